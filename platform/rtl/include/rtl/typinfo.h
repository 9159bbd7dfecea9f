// Type information: type infos with kinds and names, published properties with their accessors, and
// the per-class descriptor (TMetaClass) that a class declares once, next to its implementation.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "rtl/system.h"

namespace rtl {

enum TTypeKind {
    tkUnknown, tkInteger, tkChar, tkEnumeration, tkFloat, tkString, tkSet, tkClass, tkMethod, tkWChar,
    tkLString, tkWString, tkVariant, tkArray, tkRecord, tkInterface, tkInt64, tkDynArray
};
enum TOrdType { otSByte, otUByte, otSWord, otUWord, otSLong, otULong };
enum TFloatType { ftSingle, ftDouble, ftExtended, ftComp, ftCurr };

// One named type. Two named types that share a representation (TFileName and String, TImageIndex and
// Integer) are two distinct TTypeInfo objects; identity is what the designer's editor lookup compares.
class TTypeInfo {
public:
    TTypeKind Kind = tkUnknown;
    std::string Name;
    // Ordinals (tkInteger, tkChar, tkEnumeration, tkInt64; tkSet uses CompType)
    TOrdType OrdType = otSLong;
    int64_t MinValue = 0;
    int64_t MaxValue = 0;
    std::vector<std::string> EnumNames;  // tkEnumeration, index = ordinal
    const TTypeInfo* BaseType = nullptr; // tkEnumeration: the enumeration a subrange comes from
    const TTypeInfo* CompType = nullptr; // tkSet: the member type
    TFloatType FloatType = ftDouble;     // tkFloat
    TClass ClassType = nullptr;          // tkClass
    std::string MethodParams;            // tkMethod: "Sender: TObject"
    std::string MethodResult;            // tkMethod: result type name, empty for a procedure

    static TTypeInfo MakeOrdinal(std::string name, TTypeKind kind, TOrdType ot, int64_t lo, int64_t hi);
    static TTypeInfo MakeEnum(std::string name, std::string_view commaSeparatedNames);
    static TTypeInfo MakeSet(std::string name, const TTypeInfo* comp);
    static TTypeInfo MakeFloat(std::string name, TFloatType ft);
    static TTypeInfo MakeString(std::string name, TTypeKind kind = tkLString);
    static TTypeInfo MakeMethod(std::string name, std::string params, std::string result = {});
    static TTypeInfo MakeAlias(std::string name, const TTypeInfo& of); // a distinct type, same shape
};

// Type infos of the platform's basic named types.
const TTypeInfo* TypeInfo_Integer();
const TTypeInfo* TypeInfo_Cardinal();
const TTypeInfo* TypeInfo_Int64();
const TTypeInfo* TypeInfo_Byte();
const TTypeInfo* TypeInfo_Word();
const TTypeInfo* TypeInfo_SmallInt();
const TTypeInfo* TypeInfo_ShortInt();
const TTypeInfo* TypeInfo_Char();
const TTypeInfo* TypeInfo_WideChar();
const TTypeInfo* TypeInfo_Boolean();
const TTypeInfo* TypeInfo_String();
const TTypeInfo* TypeInfo_WideString();
const TTypeInfo* TypeInfo_Double();
const TTypeInfo* TypeInfo_Single();
const TTypeInfo* TypeInfo_Extended();
const TTypeInfo* TypeInfo_Currency();
const TTypeInfo* TypeInfo_TDateTime();
const TTypeInfo* TypeInfo_TDate();
const TTypeInfo* TypeInfo_TTime();
const TTypeInfo* TypeInfo_TFileName();
const TTypeInfo* TypeInfo_TComponentName();
const TTypeInfo* TypeInfo_THelpContext();

// Declares an enumeration together with its type information:
//   JEX_ENUM(TAlign, alNone, alTop, alBottom, alLeft, alRight, alClient)
// (members are numbered from 0 in order) and in one source file of the same namespace:
//   JEX_DEFINE_ENUM(TAlign)
#define JEX_ENUM(Name, ...)                                                                              \
    enum Name : int { __VA_ARGS__ };                                                                     \
    inline constexpr const char* Name##_EnumNames = #__VA_ARGS__;                                        \
    const ::rtl::TTypeInfo* TypeInfoOf(Name*);
#define JEX_DEFINE_ENUM(Name)                                                                            \
    const ::rtl::TTypeInfo* TypeInfoOf(Name*) {                                                          \
        static const ::rtl::TTypeInfo ti = ::rtl::TTypeInfo::MakeEnum(#Name, Name##_EnumNames);          \
        return &ti;                                                                                      \
    }
// A set type over an enumeration declared with JEX_ENUM:
//   JEX_SET(TFontStyles, TFontStyle)    and    JEX_DEFINE_SET(TFontStyles, TFontStyle)
#define JEX_SET(Name, Enum)                                                                              \
    using Name = ::rtl::TSet<Enum>;                                                                      \
    const ::rtl::TTypeInfo* TypeInfoOf(::rtl::TSet<Enum>*);
#define JEX_DEFINE_SET(Name, Enum)                                                                       \
    const ::rtl::TTypeInfo* TypeInfoOf(::rtl::TSet<Enum>*) {                                             \
        static const ::rtl::TTypeInfo ti = ::rtl::TTypeInfo::MakeSet(#Name, TypeInfoOf((Enum*)nullptr)); \
        return &ti;                                                                                      \
    }
#define JEX_DEFINE_EVENT_TYPE(Name, Params)                                                              \
    const ::rtl::TTypeInfo* Name::TypeInfo() {                                                           \
        static const ::rtl::TTypeInfo ti = ::rtl::TTypeInfo::MakeMethod(#Name, Params);                  \
        return &ti;                                                                                      \
    }
// A distinct named alias of a basic type (TColor of Integer, TFileName of String):
//   const TTypeInfo* TypeInfo_TColor();   and   JEX_DEFINE_ALIAS_TYPE(TypeInfo_TColor, "TColor", TypeInfo_Integer)
#define JEX_DEFINE_ALIAS_TYPE(Func, NameText, Base)                                                      \
    const ::rtl::TTypeInfo* Func() {                                                                     \
        static const ::rtl::TTypeInfo ti = ::rtl::TTypeInfo::MakeAlias(NameText, *Base());               \
        return &ti;                                                                                      \
    }

// A published property of a class. Accessors run the class's own getter and setter; only those that fit
// the property's kind are set (ordinals, sets and chars use the Ord pair).
class TPropInfo {
public:
    std::string Name;
    const TTypeInfo* PropType = nullptr;
    TClass DeclaringClass = nullptr;
    int NameIndex = 0; // position among all published properties of the declaring class

    std::function<int64_t(const TObject*)> GetOrd;
    std::function<void(TObject*, int64_t)> SetOrd;
    std::function<std::string(const TObject*)> GetStr;
    std::function<void(TObject*, const std::string&)> SetStr;
    std::function<double(const TObject*)> GetFloat;
    std::function<void(TObject*, double)> SetFloat;
    std::function<TObject*(const TObject*)> GetObj;
    std::function<void(TObject*, TObject*)> SetObj;
    std::function<TMethod(const TObject*)> GetMethod;
    std::function<void(TObject*, const TMethod&)> SetMethod;

    // Ordinal default (the "default" directive); absent means the value is always stored.
    std::optional<int64_t> Default;
    // The "stored" directive; empty means stored.
    std::function<bool(const TObject*)> StoredFn;

    bool Writable() const { return SetOrd || SetStr || SetFloat || SetObj || SetMethod; }
    bool IsStored(const TObject* obj) const { return !StoredFn || StoredFn(obj); }
};

class TComponent;
class TCollection;
class TCollectionItem;
class TPersistent;

// The descriptor of one class: its name, parent, how to construct it, and its published properties.
class TMetaClass {
public:
    TMetaClass(std::string name, TClass parent, std::string unitName);
    TMetaClass(const TMetaClass&) = delete;

    const std::string& ClassName() const { return FName; }
    TClass ClassParent() const { return FParent; }
    const std::string& UnitName() const { return FUnitName; }
    bool InheritsFrom(TClass ancestor) const;
    // The tkClass type information of this class.
    const TTypeInfo* ClassInfo() const { return &FTypeInfo; }

    // Published properties, inherited ones first, each class's in declaration order.
    const std::vector<const TPropInfo*>& Properties() const;
    // Case-insensitive lookup by name, or nullptr.
    const TPropInfo* FindProperty(std::string_view name) const;
    const std::vector<std::unique_ptr<TPropInfo>>& OwnProperties() const { return FOwn; }

    // Virtual constructors; which ones exist depends on the class's constructor signature.
    bool CanCreateComponent() const { return static_cast<bool>(FNewComponent); }
    bool CanCreateItem() const { return static_cast<bool>(FNewItem); }
    bool CanCreate() const { return static_cast<bool>(FNewObject); }
    TComponent* CreateComponent(TComponent* owner) const;    // raises EInvalidOperation if abstract
    TCollectionItem* CreateItem(TCollection* collection) const;
    TObject* Create() const;

    // Filled once by the class declaration (see JEX_IMPLEMENT_CLASS).
    TPropInfo& AddProperty(std::unique_ptr<TPropInfo> p);
    std::function<TComponent*(TComponent*)> FNewComponent;
    std::function<TCollectionItem*(TCollection*)> FNewItem;
    std::function<TObject*()> FNewObject;

private:
    std::string FName;
    TClass FParent;
    std::string FUnitName;
    TTypeInfo FTypeInfo;
    std::vector<std::unique_ptr<TPropInfo>> FOwn;
    void Seal() const; // builds the inherited property list and the name index on first use
    mutable bool FSealed = false;
    mutable std::vector<const TPropInfo*> FAll;
    mutable std::unordered_map<std::string, const TPropInfo*> FIndex; // upper-case name
};

namespace detail {
template <class T> struct MemberTraits;
template <class R, class C> struct MemberTraits<R (C::*)() const> {
    using Value = std::decay_t<R>;
    using Class = C;
};
template <class R, class C> struct MemberTraits<R (C::*)() const noexcept> {
    using Value = std::decay_t<R>;
    using Class = C;
};
template <class T> struct IsEvent : std::is_base_of<TEventBase, T> {};
template <class T> struct EventFunction {
    using Type = typename T::Function;
};

// The default type information of a C++ value type; named aliases are passed explicitly instead.
template <class T> const TTypeInfo* DefaultTypeInfo() {
    if constexpr (std::is_same_v<T, bool>) return TypeInfo_Boolean();
    else if constexpr (std::is_enum_v<T>) return TypeInfoOf(static_cast<T*>(nullptr));
    else if constexpr (IsTSet<T>::value) return TypeInfoOf(static_cast<T*>(nullptr));
    else if constexpr (std::is_same_v<T, char>) return TypeInfo_Char();
    else if constexpr (std::is_same_v<T, uint8_t>) return TypeInfo_Byte();
    else if constexpr (std::is_same_v<T, uint16_t>) return TypeInfo_Word();
    else if constexpr (std::is_same_v<T, int16_t>) return TypeInfo_SmallInt();
    else if constexpr (std::is_same_v<T, uint32_t>) return TypeInfo_Cardinal();
    else if constexpr (std::is_same_v<T, int64_t>) return TypeInfo_Int64();
    else if constexpr (std::is_integral_v<T>) return TypeInfo_Integer();
    else if constexpr (std::is_same_v<T, float>) return TypeInfo_Single();
    else if constexpr (std::is_same_v<T, double>) return TypeInfo_Double();
    else if constexpr (std::is_same_v<T, long double>) return TypeInfo_Extended();
    else if constexpr (std::is_same_v<T, std::string>) return TypeInfo_String();
    else if constexpr (std::is_pointer_v<T>) return std::remove_pointer_t<T>::StaticClass()->ClassInfo();
    else if constexpr (IsEvent<T>::value) return T::TypeInfo();
    else static_assert(sizeof(T) == 0, "no type information for this property type");
}
} // namespace detail

// Builds the published properties of class C inside JEX_IMPLEMENT_CLASS.
//   Property("Caption", &TLabel::GetCaption, &TLabel::SetCaption, TypeInfo_TCaption());
//   Property("Tag", &TComponent::GetTag, &TComponent::SetTag).Default(0);
//   ReadOnly("Font", &TControl::GetFont)   -- class-typed sub-object, edited in place
//   Event("OnClick", &TControl::OnClick)    -- an event field
template <class C> class TClassDecl {
public:
    explicit TClassDecl(TMetaClass& mc) : FMeta(mc) {}

    class TPropRef {
    public:
        explicit TPropRef(TPropInfo& p) : FProp(p) {}
        TPropRef& Default(int64_t v) {
            FProp.Default = v;
            return *this;
        }
        TPropRef& NoDefault() {
            FProp.Default.reset();
            return *this;
        }
        TPropRef& Stored(bool (C::*fn)() const) {
            FProp.StoredFn = [fn](const TObject* o) { return (static_cast<const C*>(o)->*fn)(); };
            return *this;
        }
        TPropRef& Stored(bool stored) {
            FProp.StoredFn = [stored](const TObject*) { return stored; };
            return *this;
        }
        TPropInfo& Info() { return FProp; }

    private:
        TPropInfo& FProp;
    };

    template <class G, class S>
    TPropRef Property(const char* name, G getter, S setter, const TTypeInfo* type = nullptr) {
        using T = typename detail::MemberTraits<G>::Value;
        auto p = MakeProp<T>(name, type);
        BindGet<T>(*p, getter);
        BindSet<T>(*p, setter);
        return TPropRef(FMeta.AddProperty(std::move(p)));
    }
    template <class G> TPropRef ReadOnly(const char* name, G getter, const TTypeInfo* type = nullptr) {
        using T = typename detail::MemberTraits<G>::Value;
        auto p = MakeProp<T>(name, type);
        BindGet<T>(*p, getter);
        return TPropRef(FMeta.AddProperty(std::move(p)));
    }
    // A property backed directly by a data member.
    template <class T, class CC> TPropRef Field(const char* name, T CC::*field, const TTypeInfo* type = nullptr) {
        auto p = MakeProp<T>(name, type);
        if constexpr (detail::IsEvent<T>::value) {
            p->GetMethod = [field](const TObject* o) {
                const T& ev = static_cast<const C*>(o)->*field;
                TMethod m;
                m.Name = ev.Name;
                if (ev.Handler) m.Code = ev.Handler;
                return m;
            };
            p->SetMethod = [field](TObject* o, const TMethod& m) {
                T& ev = static_cast<C*>(o)->*field;
                ev.Name = m.Name;
                if (!m.Code.has_value()) ev.Handler = nullptr;
                else if (auto* f = std::any_cast<typename T::Function>(&m.Code)) ev.Handler = *f;
                else throw EInvalidCast(SInvalidCast);
            };
        } else {
            BindGet<T>(*p, [field](const C* o) -> T { return o->*field; });
            BindSet<T>(*p, [field](C* o, T v) { o->*field = v; });
        }
        return TPropRef(FMeta.AddProperty(std::move(p)));
    }
    template <class T, class CC> TPropRef Event(const char* name, T CC::*field) { return Field(name, field); }

private:
    template <class T> std::unique_ptr<TPropInfo> MakeProp(const char* name, const TTypeInfo* type) {
        auto p = std::make_unique<TPropInfo>();
        p->Name = name;
        p->PropType = type ? type : detail::DefaultTypeInfo<T>();
        return p;
    }
    template <class F> static auto Call(F f, const C* o) {
        if constexpr (std::is_member_function_pointer_v<F>) return (o->*f)();
        else return f(o);
    }
    template <class F, class V> static void CallSet(F f, C* o, V&& v) {
        if constexpr (std::is_member_function_pointer_v<F>) (o->*f)(std::forward<V>(v));
        else f(o, std::forward<V>(v));
    }
    template <class T, class F> void BindGet(TPropInfo& p, F getter) {
        if constexpr (IsTSet<T>::value) {
            p.GetOrd = [getter](const TObject* o) { return static_cast<int64_t>(Call(getter, static_cast<const C*>(o)).Bits()); };
        } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
            p.GetOrd = [getter](const TObject* o) { return static_cast<int64_t>(Call(getter, static_cast<const C*>(o))); };
        } else if constexpr (std::is_floating_point_v<T>) {
            p.GetFloat = [getter](const TObject* o) { return static_cast<double>(Call(getter, static_cast<const C*>(o))); };
        } else if constexpr (std::is_same_v<T, std::string>) {
            p.GetStr = [getter](const TObject* o) { return std::string(Call(getter, static_cast<const C*>(o))); };
        } else if constexpr (std::is_pointer_v<T>) {
            p.GetObj = [getter](const TObject* o) -> TObject* { return Call(getter, static_cast<const C*>(o)); };
        } else if constexpr (detail::IsEvent<T>::value) {
            p.GetMethod = [getter](const TObject* o) {
                const T& ev = Call(getter, static_cast<const C*>(o));
                TMethod m;
                m.Name = ev.Name;
                if (ev.Handler) m.Code = ev.Handler;
                return m;
            };
        }
    }
    template <class T, class F> void BindSet(TPropInfo& p, F setter) {
        if constexpr (IsTSet<T>::value) {
            p.SetOrd = [setter](TObject* o, int64_t v) { CallSet(setter, static_cast<C*>(o), T::FromBits(static_cast<uint64_t>(v))); };
        } else if constexpr (std::is_integral_v<T> || std::is_enum_v<T>) {
            p.SetOrd = [setter](TObject* o, int64_t v) { CallSet(setter, static_cast<C*>(o), static_cast<T>(v)); };
        } else if constexpr (std::is_floating_point_v<T>) {
            p.SetFloat = [setter](TObject* o, double v) { CallSet(setter, static_cast<C*>(o), static_cast<T>(v)); };
        } else if constexpr (std::is_same_v<T, std::string>) {
            p.SetStr = [setter](TObject* o, const std::string& v) { CallSet(setter, static_cast<C*>(o), v); };
        } else if constexpr (std::is_pointer_v<T>) {
            using P = std::remove_cv_t<std::remove_pointer_t<T>>;
            p.SetObj = [setter](TObject* o, TObject* v) {
                P* typed = nullptr;
                if (v) {
                    typed = dynamic_cast<P*>(v);
                    if (!typed) throw EInvalidCast(SInvalidCast);
                }
                CallSet(setter, static_cast<C*>(o), typed);
            };
        } else if constexpr (detail::IsEvent<T>::value) {
            p.SetMethod = [setter](TObject* o, const TMethod& m) {
                T ev;
                ev.Name = m.Name;
                if (m.Code.has_value()) {
                    if (auto* f = std::any_cast<typename T::Function>(&m.Code)) ev.Handler = *f;
                    else throw EInvalidCast(SInvalidCast);
                }
                CallSet(setter, static_cast<C*>(o), ev);
            };
        }
    }
    TMetaClass& FMeta;
};

// Inside a class body: declares the class's descriptor and ClassType.
#define JEX_CLASS(Self, Parent)                                                                          \
public:                                                                                                  \
    using inherited = Parent;                                                                            \
    static ::rtl::TClass StaticClass();                                                                  \
    ::rtl::TClass ClassType() const override { return StaticClass(); }

// In the class's source file, followed by a block that declares its published properties through `d`:
//   JEX_IMPLEMENT_CLASS(TLabel, TGraphicControl, "StdCtrls") { d.Property(...); }
// The descriptor is created on first use and lives until the declaring module is unloaded. A property may
// have the class itself (or a descendant) as its type.
#define JEX_IMPLEMENT_CLASS(Self, Parent, Unit)                                                          \
    static void Self##_DeclareProperties(::rtl::TClassDecl<Self>& d);                                    \
    static ::rtl::detail::TMetaSlot Self##_MetaSlot;                                                     \
    ::rtl::TClass Self::StaticClass() {                                                                  \
        return ::rtl::detail::EnsureMetaClass<Self>(Self##_MetaSlot, #Self, &Parent::StaticClass, Unit,  \
                                                    &Self##_DeclareProperties);                          \
    }                                                                                                    \
    static void Self##_DeclareProperties([[maybe_unused]] ::rtl::TClassDecl<Self>& d)

namespace detail {
// Constant-initialised holder of one class's descriptor; freed with the module.
struct TMetaSlot {
    constexpr TMetaSlot() = default;
    ~TMetaSlot() { delete Meta; }
    TMetaClass* Meta = nullptr;
};

// Creates the descriptor once: the parent first, then this class with the constructors it really has,
// then its properties.
template <class C>
TClass EnsureMetaClass(TMetaSlot& slot, const char* name, TClass (*parent)(), const char* unit,
                       void (*declare)(TClassDecl<C>&)) {
    if (slot.Meta) return slot.Meta;
    TClass p = parent();
    if (slot.Meta) return slot.Meta; // the parent's properties referred to this class
    auto* mc = new TMetaClass(name, p, unit);
    slot.Meta = mc;
    if constexpr (!std::is_abstract_v<C>) {
        if constexpr (std::is_constructible_v<C, TComponent*>)
            mc->FNewComponent = [](TComponent* owner) -> TComponent* { return new C(owner); };
        else if constexpr (std::is_constructible_v<C, TCollection*>)
            mc->FNewItem = [](TCollection* col) -> TCollectionItem* { return new C(col); };
        else if constexpr (std::is_default_constructible_v<C>)
            mc->FNewObject = []() -> TObject* { return new C(); };
    }
    TClassDecl<C> d(*mc);
    declare(d);
    return mc;
}
} // namespace detail

// ---- Property access by name or by TPropInfo (raise EPropertyError for an unknown name) ----
const TPropInfo* GetPropInfo(const TObject* obj, std::string_view name);
const TPropInfo* GetPropInfo(TClass cls, std::string_view name);
const TPropInfo& GetPropInfoOrRaise(const TObject* obj, std::string_view name);
bool IsPublishedProp(const TObject* obj, std::string_view name);
TTypeKind PropType(const TObject* obj, std::string_view name);

int64_t GetOrdProp(const TObject* obj, const TPropInfo& p);
void SetOrdProp(TObject* obj, const TPropInfo& p, int64_t value); // range-checked against the type
std::string GetStrProp(const TObject* obj, const TPropInfo& p);
void SetStrProp(TObject* obj, const TPropInfo& p, const std::string& value);
double GetFloatProp(const TObject* obj, const TPropInfo& p);
void SetFloatProp(TObject* obj, const TPropInfo& p, double value);
TObject* GetObjectProp(const TObject* obj, const TPropInfo& p);
void SetObjectProp(TObject* obj, const TPropInfo& p, TObject* value);
TMethod GetMethodProp(const TObject* obj, const TPropInfo& p);
void SetMethodProp(TObject* obj, const TPropInfo& p, const TMethod& value);

int64_t GetOrdProp(const TObject* obj, std::string_view name);
void SetOrdProp(TObject* obj, std::string_view name, int64_t value);
std::string GetStrProp(const TObject* obj, std::string_view name);
void SetStrProp(TObject* obj, std::string_view name, const std::string& value);
double GetFloatProp(const TObject* obj, std::string_view name);
void SetFloatProp(TObject* obj, std::string_view name, double value);
TObject* GetObjectProp(const TObject* obj, std::string_view name);
void SetObjectProp(TObject* obj, std::string_view name, TObject* value);
TMethod GetMethodProp(const TObject* obj, std::string_view name);
void SetMethodProp(TObject* obj, std::string_view name, const TMethod& value);

// Enumeration and set names.
std::string GetEnumName(const TTypeInfo* enumType, int64_t value); // empty when out of range
int GetEnumValue(const TTypeInfo* enumType, std::string_view name); // -1 when unknown (ignoring case)
std::string SetToString(const TTypeInfo* setType, int64_t value, bool brackets = true);
int64_t StringToSet(const TTypeInfo* setType, std::string_view value); // EPropertyError on unknown member
// An enumeration's type info, also for a set's member type.
const TTypeInfo* GetTypeData_CompType(const TTypeInfo* setType);

// True when `obj`'s value of `p` equals the property's default (what the form writer leaves out).
bool IsDefaultPropValue(const TObject* obj, const TPropInfo& p);

} // namespace rtl
