// Query parameters: the :Name placeholders of an SQL statement with their types and values, as a collection
// that forms stream.
#include "db/db.h"

namespace db {

using rtl::Format;

JEX_IMPLEMENT_CLASS(TParam, rtl::TCollectionItem, "DB") {
    d.Property("DataType", &TParam::DataType, &TParam::SetDataType).Default(ftUnknown);
    d.Property("Name", &TParam::Name, &TParam::SetName);
    d.Property("ParamType", &TParam::ParamType, &TParam::SetParamType).Default(ptUnknown);
}

TParam::TParam(rtl::TCollection* Collection) : TCollectionItem(Collection) {}

void TParam::Assign(TPersistent* Source) {
    if (auto* s = dynamic_cast<TParam*>(Source)) {
        FName = s->FName;
        FDataType = s->FDataType;
        FParamType = s->FParamType;
        FValue = s->FValue;
        FBound = s->FBound;
        return;
    }
    TCollectionItem::Assign(Source);
}

void TParam::SetValue(const Variant& v) {
    FValue = v;
    if (FDataType == ftUnknown) {
        if (v.IsBool())
            FDataType = ftBoolean;
        else if (v.IsInteger())
            FDataType = ftInteger;
        else if (v.IsFloat())
            FDataType = ftFloat;
        else if (v.IsString())
            FDataType = ftString;
    }
    FBound = true;
}

// An explicit Null: the parameter counts as given.
void TParam::Clear() {
    FValue = Variant();
    FBound = true;
}

void TParam::SetAsString(const std::string& v) {
    if (FDataType == ftUnknown) FDataType = ftString;
    FValue = Variant(v);
    FBound = true;
}
void TParam::SetAsInteger(int32_t v) {
    if (FDataType == ftUnknown) FDataType = ftInteger;
    FValue = Variant(static_cast<int64_t>(v));
    FBound = true;
}
void TParam::SetAsFloat(double v) {
    if (FDataType == ftUnknown) FDataType = ftFloat;
    FValue = Variant(v);
    FBound = true;
}
void TParam::SetAsBoolean(bool v) {
    if (FDataType == ftUnknown) FDataType = ftBoolean;
    FValue = Variant(v);
    FBound = true;
}
TDateTime TParam::AsDateTime() const {
    if (FValue.IsString()) return StrToDateTime(FValue.AsString());
    return FValue.AsFloat();
}
void TParam::SetAsDateTime(TDateTime v) {
    FDataType = ftDateTime;
    FValue = Variant(v);
    FBound = true;
}
void TParam::SetAsDate(TDateTime v) {
    FDataType = ftDate;
    FValue = Variant(v);
    FBound = true;
}
void TParam::SetAsMemo(const std::string& v) {
    FDataType = ftMemo;
    FValue = Variant(v);
    FBound = true;
}
void TParam::SetAsBlob(const std::string& v) {
    FDataType = ftBlob;
    FValue = Variant(v);
    FBound = true;
}

void TParam::AssignField(const TField* Field) {
    FDataType = Field->DataType() == ftAutoInc ? ftInteger : Field->DataType();
    if (FName.empty()) FName = Field->FieldName();
    FValue = Field->Value();
    FBound = true;
}

void TParam::DefineProperties(rtl::TFiler& Filer) {
    Filer.DefineProperty(
        "Value",
        [this](rtl::TReader& r) {
            switch (r.NextValue()) {
            case rtl::TReader::vaInteger:
                FValue = Variant(r.ReadInt64());
                break;
            case rtl::TReader::vaExtended:
                FValue = Variant(r.ReadFloat());
                break;
            case rtl::TReader::vaFalse:
            case rtl::TReader::vaTrue:
                FValue = Variant(r.ReadBoolean());
                break;
            case rtl::TReader::vaString:
                FValue = Variant(r.ReadString());
                break;
            default:
                throw rtl::EReadError(rtl::SInvalidPropertyValue);
            }
            FBound = true;
        },
        [this](rtl::TWriter& w) {
            if (FValue.IsBool())
                w.WriteBoolean(FValue.AsBoolean());
            else if (FValue.IsInteger())
                w.WriteInteger(FValue.AsInteger());
            else if (FValue.IsFloat())
                w.WriteFloat(FValue.AsFloat());
            else
                w.WriteString(FValue.AsString());
        },
        !FValue.IsNull());
}

// ---- TParams ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TParams, rtl::TOwnedCollection, "DB") {}

TParams::TParams(TDataSet* AOwner) : TOwnedCollection(AOwner, TParam::StaticClass()) {}

TParam* TParams::Items(int index) const {
    return static_cast<TParam*>(TCollection::Items(index));
}
TParam* TParams::AddParam() {
    return static_cast<TParam*>(TCollection::Add());
}

TParam* TParams::CreateParam(TFieldType FldType, const std::string& ParamName, TParamType ParamType) {
    TParam* p = AddParam();
    p->SetName(ParamName);
    p->SetDataType(FldType);
    p->SetParamType(ParamType);
    return p;
}

TParam* TParams::FindParam(std::string_view Name) const {
    for (int i = 0; i < Count(); ++i)
        if (rtl::SameText(Items(i)->Name(), Name)) return Items(i);
    return nullptr;
}

TParam* TParams::ParamByName(std::string_view Name) const {
    TParam* p = FindParam(Name);
    if (!p) throw EDatabaseError(Format(SParameterNotFound, {std::string(Name)}));
    return p;
}

void TParams::GetParamList(std::vector<TParam*>& List, const std::string& ParamNames) const {
    for (const std::string& n : SplitFieldNames(ParamNames))
        List.push_back(ParamByName(n));
}

namespace {
bool IsNameChar(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}
} // namespace

std::string TParams::ParseSQL(const std::string& SQL, bool DoCreate, std::vector<std::string>* Order) {
    std::string out;
    std::vector<std::string> names;
    size_t i = 0, n = SQL.size();
    while (i < n) {
        char c = SQL[i];
        if (c == '\'' || c == '"' || c == '`' || c == '[') {
            // Literals and quoted identifiers are copied as they are.
            char close = c == '[' ? ']' : c;
            size_t j = i + 1;
            while (j < n) {
                if (SQL[j] == close) {
                    if (close != ']' && j + 1 < n && SQL[j + 1] == close) {
                        j += 2;
                        continue;
                    }
                    break;
                }
                ++j;
            }
            size_t end = j < n ? j + 1 : n;
            out.append(SQL, i, end - i);
            i = end;
        } else if (c == '-' && i + 1 < n && SQL[i + 1] == '-') {
            size_t j = SQL.find('\n', i);
            if (j == std::string::npos) j = n;
            out.append(SQL, i, j - i);
            i = j;
        } else if (c == '/' && i + 1 < n && SQL[i + 1] == '*') {
            size_t j = SQL.find("*/", i + 2);
            j = j == std::string::npos ? n : j + 2;
            out.append(SQL, i, j - i);
            i = j;
        } else if (c == ':' && i + 1 < n && SQL[i + 1] == ':') {
            out += "::";
            i += 2;
        } else if (c == ':' && i + 1 < n && (IsNameChar(SQL[i + 1]) || SQL[i + 1] == '"')) {
            std::string name;
            size_t j = i + 1;
            if (SQL[j] == '"') {
                size_t e = SQL.find('"', j + 1);
                if (e == std::string::npos) e = n;
                name = SQL.substr(j + 1, e - j - 1);
                j = e < n ? e + 1 : n;
            } else {
                while (j < n && IsNameChar(SQL[j]))
                    ++j;
                name = SQL.substr(i + 1, j - i - 1);
            }
            names.push_back(name);
            out += '?';
            i = j;
        } else {
            out += c;
            ++i;
        }
    }
    if (DoCreate) {
        // Keep what the old parameters knew about names that stay.
        TParams keep(nullptr);
        keep.Assign(this);
        BeginUpdate();
        Clear();
        for (const std::string& name : names) {
            if (FindParam(name)) continue;
            TParam* p = AddParam();
            if (TParam* o = keep.FindParam(name)) p->Assign(o);
            p->SetName(name);
            if (p->ParamType() == ptUnknown) p->SetParamType(ptInput);
        }
        EndUpdate();
    }
    if (Order) *Order = std::move(names);
    return out;
}

void TParams::AssignValues(const TParams* Source) {
    for (int i = 0; i < Source->Count(); ++i)
        if (TParam* p = FindParam(Source->Items(i)->Name())) p->Assign(Source->Items(i));
}

bool TParams::IsEqual(const TParams* Other) const {
    if (!Other || Other->Count() != Count()) return false;
    for (int i = 0; i < Count(); ++i) {
        const TParam* a = Items(i);
        const TParam* b = Other->Items(i);
        if (a->Name() != b->Name() || a->DataType() != b->DataType() || a->ParamType() != b->ParamType() ||
            !(a->Value() == b->Value()))
            return false;
    }
    return true;
}

} // namespace db
