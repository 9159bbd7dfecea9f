// The library's own Object Inspector category, "Jex": the routine every Register procedure files the
// components' own properties with, and the category class that goes with it.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

#include "ide/categories.h"
#include "rtl/resources.h"

namespace dcljexc {

// "Jex": loaded whenever a registration is made, so that a translated string table renames the category.
JEX_DECLARE_RESOURCESTRING(_sjexPropCategoryName);
// "Jex Properties"; declared with the name, not used by the registration.
JEX_DECLARE_RESOURCESTRING(_sjexPropCategoryDescription);

// Puts the named properties of ComponentClass (and its descendants) into the "Jex" category, passing the
// names on unchanged and in order. An empty list registers nothing. Raises only what the designer raises.
void jexRegisterPropertiesInCategory(rtl::TClass ComponentClass,
                                     std::initializer_list<const char*> PropertyNames);
void jexRegisterPropertiesInCategory(rtl::TClass ComponentClass,
                                     const std::vector<std::string>& PropertyNames);

// The category as a class, for code that names categories by class; it adds nothing to the platform's.
class TjexCategory : public ide::TPropertyCategory {
    JEX_CLASS(TjexCategory, ide::TPropertyCategory)
    TjexCategory() = default;
};

} // namespace dcljexc
