// Filter expressions of data sets: parsed once when the filter is applied, then evaluated per record.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "db/db.h"

namespace db::filter {

struct TNode;

// Looks a field name up: its 0-based column and its type; false when there is no such field.
using TResolveField = std::function<bool(const std::string& Name, int& Column, TFieldType& Type)>;

class TExpression {
public:
    // Raises EDatabaseError for a syntax error or an unknown field.
    TExpression(const std::string& Text, const TResolveField& Resolve, TFilterOptions Options);
    ~TExpression();
    bool Matches(const std::vector<Variant>& Values) const;

private:
    std::unique_ptr<TNode> FRoot;
    TFilterOptions FOptions;
};

} // namespace db::filter
