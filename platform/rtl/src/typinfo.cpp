// Type infos, class descriptors and property access by name.
#include "rtl/typinfo.h"

#include <algorithm>
#include <cctype>

#include "rtl/sysutils.h"

namespace rtl {

namespace {
std::string UpperKey(std::string_view s) { return UpperCase(s); }

std::string TrimSpaces(std::string_view s) {
    size_t b = 0, e = s.size();
    while (b < e && std::isspace(static_cast<unsigned char>(s[b]))) ++b;
    while (e > b && std::isspace(static_cast<unsigned char>(s[e - 1]))) --e;
    return std::string(s.substr(b, e - b));
}
} // namespace

// ---- TTypeInfo factories ---------------------------------------------------------------------------
TTypeInfo TTypeInfo::MakeOrdinal(std::string name, TTypeKind kind, TOrdType ot, int64_t lo, int64_t hi) {
    TTypeInfo t;
    t.Kind = kind;
    t.Name = std::move(name);
    t.OrdType = ot;
    t.MinValue = lo;
    t.MaxValue = hi;
    return t;
}

TTypeInfo TTypeInfo::MakeEnum(std::string name, std::string_view names) {
    TTypeInfo t;
    t.Kind = tkEnumeration;
    t.Name = std::move(name);
    size_t start = 0;
    while (start <= names.size()) {
        size_t comma = names.find(',', start);
        std::string_view part = names.substr(start, comma == std::string_view::npos ? names.npos : comma - start);
        // "member = value" declarations keep only the member name.
        if (auto eq = part.find('='); eq != std::string_view::npos) part = part.substr(0, eq);
        std::string n = TrimSpaces(part);
        if (!n.empty()) t.EnumNames.push_back(n);
        if (comma == std::string_view::npos) break;
        start = comma + 1;
    }
    t.MinValue = 0;
    t.MaxValue = static_cast<int64_t>(t.EnumNames.size()) - 1;
    t.OrdType = t.EnumNames.size() <= 256 ? otUByte : otUWord;
    return t;
}

TTypeInfo TTypeInfo::MakeSet(std::string name, const TTypeInfo* comp) {
    TTypeInfo t;
    t.Kind = tkSet;
    t.Name = std::move(name);
    t.CompType = comp;
    t.OrdType = otULong;
    return t;
}

TTypeInfo TTypeInfo::MakeFloat(std::string name, TFloatType ft) {
    TTypeInfo t;
    t.Kind = tkFloat;
    t.Name = std::move(name);
    t.FloatType = ft;
    return t;
}

TTypeInfo TTypeInfo::MakeString(std::string name, TTypeKind kind) {
    TTypeInfo t;
    t.Kind = kind;
    t.Name = std::move(name);
    return t;
}

TTypeInfo TTypeInfo::MakeMethod(std::string name, std::string params, std::string result) {
    TTypeInfo t;
    t.Kind = tkMethod;
    t.Name = std::move(name);
    t.MethodParams = std::move(params);
    t.MethodResult = std::move(result);
    return t;
}

TTypeInfo TTypeInfo::MakeAlias(std::string name, const TTypeInfo& of) {
    TTypeInfo t = of;
    t.Name = std::move(name);
    return t;
}

#define JEX_BASIC_TYPE(Func, Expr)                                                                       \
    const TTypeInfo* Func() {                                                                            \
        static const TTypeInfo ti = Expr;                                                                \
        return &ti;                                                                                      \
    }
JEX_BASIC_TYPE(TypeInfo_Integer, TTypeInfo::MakeOrdinal("Integer", tkInteger, otSLong, INT32_MIN, INT32_MAX))
JEX_BASIC_TYPE(TypeInfo_Cardinal, TTypeInfo::MakeOrdinal("Cardinal", tkInteger, otULong, 0, UINT32_MAX))
JEX_BASIC_TYPE(TypeInfo_Int64, TTypeInfo::MakeOrdinal("Int64", tkInt64, otSLong, INT64_MIN, INT64_MAX))
JEX_BASIC_TYPE(TypeInfo_Byte, TTypeInfo::MakeOrdinal("Byte", tkInteger, otUByte, 0, 255))
JEX_BASIC_TYPE(TypeInfo_Word, TTypeInfo::MakeOrdinal("Word", tkInteger, otUWord, 0, 65535))
JEX_BASIC_TYPE(TypeInfo_SmallInt, TTypeInfo::MakeOrdinal("SmallInt", tkInteger, otSWord, -32768, 32767))
JEX_BASIC_TYPE(TypeInfo_ShortInt, TTypeInfo::MakeOrdinal("ShortInt", tkInteger, otSByte, -128, 127))
JEX_BASIC_TYPE(TypeInfo_Char, TTypeInfo::MakeOrdinal("Char", tkChar, otUByte, 0, 255))
JEX_BASIC_TYPE(TypeInfo_WideChar, TTypeInfo::MakeOrdinal("WideChar", tkWChar, otUWord, 0, 65535))
JEX_BASIC_TYPE(TypeInfo_Boolean, TTypeInfo::MakeEnum("Boolean", "False, True"))
JEX_BASIC_TYPE(TypeInfo_String, TTypeInfo::MakeString("String"))
JEX_BASIC_TYPE(TypeInfo_WideString, TTypeInfo::MakeString("WideString", tkWString))
JEX_BASIC_TYPE(TypeInfo_Double, TTypeInfo::MakeFloat("Double", ftDouble))
JEX_BASIC_TYPE(TypeInfo_Single, TTypeInfo::MakeFloat("Single", ftSingle))
JEX_BASIC_TYPE(TypeInfo_Extended, TTypeInfo::MakeFloat("Extended", ftExtended))
JEX_BASIC_TYPE(TypeInfo_Currency, TTypeInfo::MakeFloat("Currency", ftCurr))
JEX_BASIC_TYPE(TypeInfo_TDateTime, TTypeInfo::MakeFloat("TDateTime", ftDouble))
JEX_BASIC_TYPE(TypeInfo_TDate, TTypeInfo::MakeFloat("TDate", ftDouble))
JEX_BASIC_TYPE(TypeInfo_TTime, TTypeInfo::MakeFloat("TTime", ftDouble))
JEX_BASIC_TYPE(TypeInfo_TFileName, TTypeInfo::MakeString("TFileName"))
JEX_BASIC_TYPE(TypeInfo_TComponentName, TTypeInfo::MakeString("TComponentName"))
JEX_BASIC_TYPE(TypeInfo_THelpContext, TTypeInfo::MakeOrdinal("THelpContext", tkInteger, otSLong, INT32_MIN, INT32_MAX))
#undef JEX_BASIC_TYPE

JEX_DEFINE_EVENT_TYPE(TNotifyEvent, "Sender: TObject")

// ---- TMetaClass ------------------------------------------------------------------------------------
TMetaClass::TMetaClass(std::string name, TClass parent, std::string unitName)
    : FName(std::move(name)), FParent(parent), FUnitName(std::move(unitName)) {
    FTypeInfo.Kind = tkClass;
    FTypeInfo.Name = FName;
    FTypeInfo.ClassType = this;
}

bool TMetaClass::InheritsFrom(TClass ancestor) const {
    for (TClass c = this; c; c = c->FParent)
        if (c == ancestor) return true;
    return false;
}

const std::vector<const TPropInfo*>& TMetaClass::Properties() const {
    if (!FSealed) Seal();
    return FAll;
}

const TPropInfo* TMetaClass::FindProperty(std::string_view name) const {
    if (!FSealed) Seal();
    auto it = FIndex.find(UpperKey(name));
    return it == FIndex.end() ? nullptr : it->second;
}

TPropInfo& TMetaClass::AddProperty(std::unique_ptr<TPropInfo> p) {
    p->DeclaringClass = this;
    FSealed = false;
    FOwn.push_back(std::move(p));
    return *FOwn.back();
}

void TMetaClass::Seal() const {
    FSealed = true;
    FAll.clear();
    if (FParent) FAll = FParent->Properties();
    for (auto& own : FOwn) {
        // A redeclared property (a descendant publishing it again with another default) takes the
        // inherited one's place.
        auto it = std::find_if(FAll.begin(), FAll.end(),
                               [&](const TPropInfo* p) { return SameText(p->Name, own->Name); });
        if (it != FAll.end()) *it = own.get();
        else FAll.push_back(own.get());
    }
    FIndex.clear();
    for (size_t i = 0; i < FAll.size(); ++i) FIndex[UpperKey(FAll[i]->Name)] = FAll[i];
    for (auto& own : FOwn) {
        auto pos = std::find(FAll.begin(), FAll.end(), own.get());
        own->NameIndex = static_cast<int>(pos - FAll.begin());
    }
}

TComponent* TMetaClass::CreateComponent(TComponent* owner) const {
    if (!FNewComponent) throw EInvalidOperation(Format("Cannot create an instance of abstract class %s", {FName}));
    return FNewComponent(owner);
}

TCollectionItem* TMetaClass::CreateItem(TCollection* collection) const {
    if (!FNewItem) throw EInvalidOperation(Format("Cannot create an instance of abstract class %s", {FName}));
    return FNewItem(collection);
}

TObject* TMetaClass::Create() const {
    if (!FNewObject) throw EInvalidOperation(Format("Cannot create an instance of abstract class %s", {FName}));
    return FNewObject();
}

// ---- TObject ------------------------------------------------------------------------------------------
TClass TObject::StaticClass() {
    static const TMetaClass mc("TObject", nullptr, "System");
    return &mc;
}
TClass TObject::ClassType() const { return StaticClass(); }
const std::string& TObject::ClassName() const { return ClassType()->ClassName(); }
bool TObject::InheritsFrom(TClass cls) const { return ClassType()->InheritsFrom(cls); }
void TObject::Free() {
    BeforeDestruction();
    delete this;
}

// ---- Property access -------------------------------------------------------------------------------
const TPropInfo* GetPropInfo(TClass cls, std::string_view name) { return cls ? cls->FindProperty(name) : nullptr; }
const TPropInfo* GetPropInfo(const TObject* obj, std::string_view name) {
    return obj ? obj->ClassType()->FindProperty(name) : nullptr;
}
const TPropInfo& GetPropInfoOrRaise(const TObject* obj, std::string_view name) {
    const TPropInfo* p = GetPropInfo(obj, name);
    if (!p) throw EPropertyError(Format(SUnknownProperty, {std::string(name)}));
    return *p;
}
bool IsPublishedProp(const TObject* obj, std::string_view name) { return GetPropInfo(obj, name) != nullptr; }
TTypeKind PropType(const TObject* obj, std::string_view name) { return GetPropInfoOrRaise(obj, name).PropType->Kind; }

namespace {
[[noreturn]] void WrongKind(const TPropInfo& p) {
    throw EPropertyError(Format("Property %s is not of the requested kind", {p.Name}));
}
[[noreturn]] void ReadOnlyProp(const TPropInfo& p) {
    throw EPropertyError(Format("Property %s is read only", {p.Name}));
}
} // namespace

int64_t GetOrdProp(const TObject* obj, const TPropInfo& p) {
    if (!p.GetOrd) WrongKind(p);
    return p.GetOrd(obj);
}
void SetOrdProp(TObject* obj, const TPropInfo& p, int64_t value) {
    if (!p.SetOrd) {
        if (!p.GetOrd) WrongKind(p);
        ReadOnlyProp(p);
    }
    const TTypeInfo* t = p.PropType;
    if (t->Kind == tkInteger || t->Kind == tkChar || t->Kind == tkWChar || t->Kind == tkEnumeration || t->Kind == tkInt64) {
        if (value < t->MinValue || value > t->MaxValue) throw ERangeError(SRangeError);
    } else if (t->Kind == tkSet && t->CompType) {
        int64_t members = t->CompType->MaxValue + 1;
        if (members < 64 && (static_cast<uint64_t>(value) >> members) != 0) throw ERangeError(SRangeError);
    }
    p.SetOrd(obj, value);
}
std::string GetStrProp(const TObject* obj, const TPropInfo& p) {
    if (!p.GetStr) WrongKind(p);
    return p.GetStr(obj);
}
void SetStrProp(TObject* obj, const TPropInfo& p, const std::string& value) {
    if (!p.SetStr) {
        if (!p.GetStr) WrongKind(p);
        ReadOnlyProp(p);
    }
    p.SetStr(obj, value);
}
double GetFloatProp(const TObject* obj, const TPropInfo& p) {
    if (!p.GetFloat) WrongKind(p);
    return p.GetFloat(obj);
}
void SetFloatProp(TObject* obj, const TPropInfo& p, double value) {
    if (!p.SetFloat) {
        if (!p.GetFloat) WrongKind(p);
        ReadOnlyProp(p);
    }
    p.SetFloat(obj, value);
}
TObject* GetObjectProp(const TObject* obj, const TPropInfo& p) {
    if (!p.GetObj) WrongKind(p);
    return p.GetObj(obj);
}
void SetObjectProp(TObject* obj, const TPropInfo& p, TObject* value) {
    if (!p.SetObj) {
        if (!p.GetObj) WrongKind(p);
        ReadOnlyProp(p);
    }
    if (value && p.PropType->ClassType && !value->InheritsFrom(p.PropType->ClassType))
        throw EInvalidCast(SInvalidCast);
    p.SetObj(obj, value);
}
TMethod GetMethodProp(const TObject* obj, const TPropInfo& p) {
    if (!p.GetMethod) WrongKind(p);
    return p.GetMethod(obj);
}
void SetMethodProp(TObject* obj, const TPropInfo& p, const TMethod& value) {
    if (!p.SetMethod) {
        if (!p.GetMethod) WrongKind(p);
        ReadOnlyProp(p);
    }
    p.SetMethod(obj, value);
}

int64_t GetOrdProp(const TObject* obj, std::string_view name) { return GetOrdProp(obj, GetPropInfoOrRaise(obj, name)); }
void SetOrdProp(TObject* obj, std::string_view name, int64_t v) { SetOrdProp(obj, GetPropInfoOrRaise(obj, name), v); }
std::string GetStrProp(const TObject* obj, std::string_view name) { return GetStrProp(obj, GetPropInfoOrRaise(obj, name)); }
void SetStrProp(TObject* obj, std::string_view name, const std::string& v) { SetStrProp(obj, GetPropInfoOrRaise(obj, name), v); }
double GetFloatProp(const TObject* obj, std::string_view name) { return GetFloatProp(obj, GetPropInfoOrRaise(obj, name)); }
void SetFloatProp(TObject* obj, std::string_view name, double v) { SetFloatProp(obj, GetPropInfoOrRaise(obj, name), v); }
TObject* GetObjectProp(const TObject* obj, std::string_view name) { return GetObjectProp(obj, GetPropInfoOrRaise(obj, name)); }
void SetObjectProp(TObject* obj, std::string_view name, TObject* v) { SetObjectProp(obj, GetPropInfoOrRaise(obj, name), v); }
TMethod GetMethodProp(const TObject* obj, std::string_view name) { return GetMethodProp(obj, GetPropInfoOrRaise(obj, name)); }
void SetMethodProp(TObject* obj, std::string_view name, const TMethod& v) { SetMethodProp(obj, GetPropInfoOrRaise(obj, name), v); }

std::string GetEnumName(const TTypeInfo* t, int64_t value) {
    if (!t || value < 0 || value >= static_cast<int64_t>(t->EnumNames.size())) return {};
    return t->EnumNames[static_cast<size_t>(value)];
}

int GetEnumValue(const TTypeInfo* t, std::string_view name) {
    if (!t) return -1;
    for (size_t i = 0; i < t->EnumNames.size(); ++i)
        if (SameText(t->EnumNames[i], name)) return static_cast<int>(i);
    return -1;
}

const TTypeInfo* GetTypeData_CompType(const TTypeInfo* setType) { return setType ? setType->CompType : nullptr; }

std::string SetToString(const TTypeInfo* setType, int64_t value, bool brackets) {
    std::string out;
    const TTypeInfo* comp = setType ? setType->CompType : nullptr;
    for (int i = 0; i < 64; ++i) {
        if (!(static_cast<uint64_t>(value) & (uint64_t(1) << i))) continue;
        if (!out.empty()) out += ',';
        std::string n = GetEnumName(comp, i);
        out += n.empty() ? IntToStr(i) : n;
    }
    return brackets ? "[" + out + "]" : out;
}

int64_t StringToSet(const TTypeInfo* setType, std::string_view value) {
    std::string s = Trim(value);
    if (!s.empty() && s.front() == '[') s.erase(0, 1);
    if (!s.empty() && s.back() == ']') s.pop_back();
    int64_t result = 0;
    size_t start = 0;
    while (start <= s.size()) {
        size_t comma = s.find(',', start);
        std::string item = Trim(std::string_view(s).substr(start, comma == std::string::npos ? std::string::npos : comma - start));
        if (!item.empty()) {
            int v = GetEnumValue(setType ? setType->CompType : nullptr, item);
            if (v < 0) throw EPropertyError(SInvalidPropertyValue);
            result |= int64_t(1) << v;
        }
        if (comma == std::string::npos) break;
        start = comma + 1;
    }
    return result;
}

bool IsDefaultPropValue(const TObject* obj, const TPropInfo& p) {
    switch (p.PropType->Kind) {
    case tkInteger: case tkChar: case tkWChar: case tkEnumeration: case tkSet: case tkInt64:
        return p.Default.has_value() && p.GetOrd && p.GetOrd(obj) == *p.Default;
    case tkFloat:
        return p.GetFloat && p.GetFloat(obj) == 0.0;
    case tkString: case tkLString: case tkWString:
        return p.GetStr && p.GetStr(obj).empty();
    case tkClass:
        return p.GetObj && p.GetObj(obj) == nullptr;
    case tkMethod:
        return p.GetMethod && p.GetMethod(obj).Name.empty();
    default:
        return false;
    }
}

} // namespace rtl
