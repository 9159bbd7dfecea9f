// The standard property editors, the editor registry with its best-match rule, and GetComponentProperties.
#include "ide/propedit.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <map>
#include <unordered_map>

#include "registry_internal.h"
#include "rtl/lists.h"
#include "vcl/dialogs.h"

namespace ide {

using namespace rtl;

JEX_DEFINE_ENUM(TPropertyAttribute)
JEX_DEFINE_SET(TPropertyAttributes, TPropertyAttribute)

// ---- TPropertyEditor
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPropertyEditor, TObject, "DesignEditors") {}

void TPropertyEditor::Setup(IDesigner* designer, std::vector<TInstProp> props) {
    FDesigner = designer;
    FProps = std::move(props);
}

TPropertyAttributes TPropertyEditor::GetAttributes() {
    return {paMultiSelect, paRevertable};
}

std::string TPropertyEditor::GetValue() {
    return srUnknown;
}

void TPropertyEditor::SetValue(const std::string&) {}

bool TPropertyEditor::AutoFill() {
    const TPropInfo* p = GetPropInfo();
    return p && p->Writable();
}

void TPropertyEditor::Edit() {
    if (!AutoFill()) return;
    TStringList values;
    values.SetSorted(GetAttributes().Contains(paSortList));
    GetValues([&](const std::string& s) { values.Add(s); });
    if (values.Count() == 0) return;
    int i = values.IndexOf(GetValue()) + 1;
    if (i >= values.Count()) i = 0;
    SetValue(values[i]);
}

std::string TPropertyEditor::GetName() {
    const TPropInfo* p = GetPropInfo();
    return p ? p->Name : std::string();
}

bool TPropertyEditor::AllEqual() {
    return PropCount() == 1;
}

std::string TPropertyEditor::GetVisualValue() {
    return AllEqual() ? GetValue() : std::string();
}

void TPropertyEditor::Revert() {
    for (auto& ip : FProps) {
        if (FDesigner) FDesigner->Revert(ip.Instance, ip.PropInfo);
    }
    Modified();
}

void TPropertyEditor::ListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                                    bool selected) {
    DefaultPropertyListDrawValue(value, canvas, rect, selected);
}

TPersistent* TPropertyEditor::GetComponent(int index) const {
    if (index < 0 || index >= PropCount()) throw EListError(Format(SListIndexError, {index}));
    return FProps[static_cast<size_t>(index)].Instance;
}

const TPropInfo* TPropertyEditor::GetPropInfo() const {
    return FProps.empty() ? nullptr : FProps[0].PropInfo;
}

const TTypeInfo* TPropertyEditor::GetPropType() const {
    const TPropInfo* p = GetPropInfo();
    return p ? p->PropType : nullptr;
}

void TPropertyEditor::Modified() {
    if (FDesigner) FDesigner->Modified();
}

namespace {
const TInstProp& Entry(const std::vector<TInstProp>& props, int index) {
    if (index < 0 || index >= static_cast<int>(props.size()))
        throw EListError(Format(SListIndexError, {index}));
    return props[static_cast<size_t>(index)];
}
} // namespace

int64_t TPropertyEditor::GetOrdValueAt(int index) const {
    auto& e = Entry(FProps, index);
    return GetOrdProp(e.Instance, *e.PropInfo);
}

void TPropertyEditor::SetOrdValue(int64_t value) {
    for (auto& e : FProps)
        SetOrdProp(e.Instance, *e.PropInfo, value);
    Modified();
}

std::string TPropertyEditor::GetStrValueAt(int index) const {
    auto& e = Entry(FProps, index);
    return GetStrProp(e.Instance, *e.PropInfo);
}

void TPropertyEditor::SetStrValue(const std::string& value) {
    for (auto& e : FProps)
        SetStrProp(e.Instance, *e.PropInfo, value);
    Modified();
}

double TPropertyEditor::GetFloatValueAt(int index) const {
    auto& e = Entry(FProps, index);
    return GetFloatProp(e.Instance, *e.PropInfo);
}

void TPropertyEditor::SetFloatValue(double value) {
    for (auto& e : FProps)
        SetFloatProp(e.Instance, *e.PropInfo, value);
    Modified();
}

TMethod TPropertyEditor::GetMethodValueAt(int index) const {
    auto& e = Entry(FProps, index);
    return GetMethodProp(e.Instance, *e.PropInfo);
}

void TPropertyEditor::SetMethodValue(const TMethod& value) {
    for (auto& e : FProps)
        SetMethodProp(e.Instance, *e.PropInfo, value);
    Modified();
}

TObject* TPropertyEditor::GetObjectValueAt(int index) const {
    auto& e = Entry(FProps, index);
    return GetObjectProp(e.Instance, *e.PropInfo);
}

void TPropertyEditor::SetObjectValue(TObject* value) {
    const TTypeInfo* t = GetPropType();
    if (value && t && t->Kind == tkClass && t->ClassType && !value->InheritsFrom(t->ClassType))
        throw EPropertyError(SInvalidPropertyValue);
    for (auto& e : FProps) {
        if (e.PropInfo->SetObj) {
            SetObjectProp(e.Instance, *e.PropInfo, value);
            continue;
        }
        // A sub-object published without a setter is edited in place, as its owner's setter would do.
        auto* current = dynamic_cast<TPersistent*>(GetObjectProp(e.Instance, *e.PropInfo));
        auto* source = dynamic_cast<TPersistent*>(value);
        if (!current || !source) throw EPropertyError(SPropertyReadOnly);
        if (current != source) current->Assign(source);
    }
    Modified();
}

void DefaultPropertyListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                                  bool selected) {
    if (!canvas) return;
    canvas->TextRect(rect, rect.Left + 1, rect.Top + 1, value);
}

// ---- Ordinals
// ------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TOrdinalProperty, TPropertyEditor, "DesignEditors") {}

bool TOrdinalProperty::AllEqual() {
    if (PropCount() <= 1) return true;
    int64_t v = GetOrdValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetOrdValueAt(i) != v) return false;
    return true;
}

namespace {
// The range a property's ordinal type allows; the full range when the type gives none.
void OrdRange(const TTypeInfo* t, int64_t& lo, int64_t& hi) {
    lo = t ? t->MinValue : INT64_MIN;
    hi = t ? t->MaxValue : INT64_MAX;
    if (lo >= hi) {
        lo = INT64_MIN;
        hi = INT64_MAX;
    }
}
} // namespace

JEX_IMPLEMENT_CLASS(TIntegerProperty, TOrdinalProperty, "DesignEditors") {}

std::string TIntegerProperty::GetValue() {
    return IntToStr(GetOrdValue());
}

void TIntegerProperty::SetValue(const std::string& value) {
    int64_t v = StrToInt64(value);
    int64_t lo, hi;
    OrdRange(GetPropType(), lo, hi);
    if (v < lo || v > hi)
        throw EPropertyError(Format(SOutOfRange, {static_cast<long long>(lo), static_cast<long long>(hi)}));
    SetOrdValue(v);
}

JEX_IMPLEMENT_CLASS(TCharProperty, TOrdinalProperty, "DesignEditors") {}

std::string TCharProperty::GetValue() {
    int64_t ch = GetOrdValue();
    if (ch >= 33 && ch <= 127) return std::string(1, static_cast<char>(ch));
    return "#" + IntToStr(ch);
}

void TCharProperty::SetValue(const std::string& value) {
    int64_t v;
    if (value.size() == 1)
        v = static_cast<unsigned char>(value[0]);
    else if (value.size() > 1 && value[0] == '#')
        v = StrToInt(value.substr(1));
    else
        throw EPropertyError(SInvalidPropertyValue);
    int64_t lo, hi;
    OrdRange(GetPropType(), lo, hi);
    if (v < lo || v > hi)
        throw EPropertyError(Format(SOutOfRange, {static_cast<long long>(lo), static_cast<long long>(hi)}));
    SetOrdValue(v);
}

JEX_IMPLEMENT_CLASS(TEnumProperty, TOrdinalProperty, "DesignEditors") {}

TPropertyAttributes TEnumProperty::GetAttributes() {
    return {paMultiSelect, paValueList, paSortList, paRevertable};
}

std::string TEnumProperty::GetValue() {
    int64_t v = GetOrdValue();
    std::string name = GetEnumName(GetPropType(), v);
    return name.empty() ? IntToStr(v) : name;
}

void TEnumProperty::GetValues(const TGetStrProc& proc) {
    const TTypeInfo* t = GetPropType();
    if (!t) return;
    for (int64_t i = std::max<int64_t>(t->MinValue, 0); i <= t->MaxValue; ++i) {
        std::string name = GetEnumName(t, i);
        if (!name.empty()) proc(name);
    }
}

void TEnumProperty::SetValue(const std::string& value) {
    const TTypeInfo* t = GetPropType();
    int v = GetEnumValue(t, Trim(value));
    if (v < 0 || (t && (v < t->MinValue || v > t->MaxValue))) throw EPropertyError(SInvalidPropertyValue);
    SetOrdValue(v);
}

JEX_IMPLEMENT_CLASS(TBoolProperty, TEnumProperty, "DesignEditors") {}

std::string TBoolProperty::GetValue() {
    return GetOrdValue() != 0 ? "True" : "False";
}

void TBoolProperty::GetValues(const TGetStrProc& proc) {
    proc("False");
    proc("True");
}

void TBoolProperty::SetValue(const std::string& value) {
    int64_t v;
    if (SameText(value, "False"))
        v = 0;
    else if (SameText(value, "True"))
        v = 1;
    else
        v = StrToInt(value);
    if (v != 0 && v != 1) throw EPropertyError(SInvalidPropertyValue);
    SetOrdValue(v);
}

// ---- Sets
// ----------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TSetProperty, TOrdinalProperty, "DesignEditors") {}

TPropertyAttributes TSetProperty::GetAttributes() {
    return {paMultiSelect, paSubProperties, paReadOnly, paRevertable};
}

std::string TSetProperty::GetValue() {
    return SetToString(GetPropType(), GetOrdValue(), true);
}

void TSetProperty::SetValue(const std::string& value) {
    SetOrdValue(StringToSet(GetPropType(), value));
}

void TSetProperty::GetProperties(const TGetPropProc& proc) {
    const TTypeInfo* comp = GetTypeData_CompType(GetPropType());
    if (!comp) return;
    for (int64_t i = std::max<int64_t>(comp->MinValue, 0); i <= comp->MaxValue && i < 64; ++i) {
        auto e = std::make_unique<TSetElementProperty>();
        e->Setup(Designer(), PropList());
        e->SetElement(static_cast<int>(i));
        e->Initialize();
        proc(std::move(e));
    }
}

JEX_IMPLEMENT_CLASS(TSetElementProperty, TPropertyEditor, "DesignEditors") {}

TPropertyAttributes TSetElementProperty::GetAttributes() {
    return {paMultiSelect, paValueList, paSortList};
}

std::string TSetElementProperty::GetName() {
    return GetEnumName(GetTypeData_CompType(GetPropType()), FElement);
}

std::string TSetElementProperty::GetValue() {
    return (static_cast<uint64_t>(GetOrdValue()) >> FElement) & 1 ? "True" : "False";
}

void TSetElementProperty::GetValues(const TGetStrProc& proc) {
    proc("False");
    proc("True");
}

void TSetElementProperty::SetValue(const std::string& value) {
    bool on;
    if (SameText(value, "True"))
        on = true;
    else if (SameText(value, "False"))
        on = false;
    else
        throw EPropertyError(SInvalidPropertyValue);
    // Each object keeps its other members.
    uint64_t bit = uint64_t(1) << FElement;
    for (auto& e : PropList()) {
        uint64_t v = static_cast<uint64_t>(GetOrdProp(e.Instance, *e.PropInfo));
        SetOrdProp(e.Instance, *e.PropInfo, static_cast<int64_t>(on ? v | bit : v & ~bit));
    }
    Modified();
}

bool TSetElementProperty::AllEqual() {
    uint64_t bit = uint64_t(1) << FElement;
    bool first = static_cast<uint64_t>(GetOrdValue()) & bit;
    for (int i = 1; i < PropCount(); ++i)
        if (bool(static_cast<uint64_t>(GetOrdValueAt(i)) & bit) != first) return false;
    return true;
}

// ---- Floats and strings
// -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFloatProperty, TPropertyEditor, "DesignEditors") {}

bool TFloatProperty::AllEqual() {
    double v = GetFloatValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetFloatValueAt(i) != v) return false;
    return true;
}

std::string TFloatProperty::GetValue() {
    double v = GetFloatValue();
    const TTypeInfo* t = GetPropType();
    if (t && t->FloatType == ftSingle && std::isfinite(v)) {
        // A single holds about seven digits; showing more would print its binary noise.
        char buf[32];
        std::snprintf(buf, sizeof buf, "%.7g", v);
        v = std::strtod(buf, nullptr);
    }
    return FloatToStr(v);
}

void TFloatProperty::SetValue(const std::string& value) {
    SetFloatValue(StrToFloat(value));
}

JEX_IMPLEMENT_CLASS(TStringProperty, TPropertyEditor, "DesignEditors") {}

bool TStringProperty::AllEqual() {
    if (PropCount() <= 1) return true;
    std::string v = GetStrValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetStrValueAt(i) != v) return false;
    return true;
}

JEX_IMPLEMENT_CLASS(TComponentNameProperty, TStringProperty, "DesignEditors") {}

// ---- Classes and components
// ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TClassProperty, TPropertyEditor, "DesignEditors") {}

TPropertyAttributes TClassProperty::GetAttributes() {
    return {paMultiSelect, paSubProperties, paReadOnly};
}

std::string TClassProperty::GetValue() {
    const TTypeInfo* t = GetPropType();
    return "(" + (t ? t->Name : std::string()) + ")";
}

void TClassProperty::GetProperties(const TGetPropProc& proc) {
    TDesignerSelectionList objects;
    for (int i = 0; i < PropCount(); ++i) {
        auto* obj = dynamic_cast<TPersistent*>(GetObjectValueAt(i));
        if (!obj) return;
        objects.Add(obj);
    }
    GetComponentProperties(objects, tkProperties, Designer(), proc);
}

JEX_IMPLEMENT_CLASS(TComponentProperty, TPropertyEditor, "DesignEditors") {}

TPropertyAttributes TComponentProperty::GetAttributes() {
    return {paMultiSelect, paValueList, paSortList, paRevertable};
}

bool TComponentProperty::AllEqual() {
    TObject* v = GetObjectValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetObjectValueAt(i) != v) return false;
    return true;
}

std::string TComponentProperty::GetValue() {
    auto* c = dynamic_cast<TComponent*>(GetObjectValue());
    if (!c) return {};
    if (Designer()) return Designer()->GetComponentName(c);
    return c->Name();
}

void TComponentProperty::GetValues(const TGetStrProc& proc) {
    const TTypeInfo* t = GetPropType();
    if (Designer() && t && t->ClassType) Designer()->GetComponentNames(t->ClassType, proc);
}

void TComponentProperty::SetValue(const std::string& value) {
    if (value.empty()) {
        SetObjectValue(nullptr);
        return;
    }
    TComponent* c = Designer() ? Designer()->GetComponent(value) : nullptr;
    const TTypeInfo* t = GetPropType();
    if (!c || (t && t->ClassType && !c->InheritsFrom(t->ClassType)))
        throw EPropertyError(SInvalidPropertyValue);
    SetObjectValue(c);
}

// ---- Events
// ----------------------------------------------------------------------------------------------------------
std::string MakeEventMethodName(IDesigner* designer, TPersistent* instance, const std::string& eventName) {
    std::string base;
    if (designer && instance == designer->GetRoot()) {
        base = designer->GetRootClassName();
        if (!base.empty() && base[0] == 'T') base.erase(0, 1);
    } else {
        base = designer   ? designer->GetObjectName(instance)
               : instance ? instance->GetNamePath()
                          : std::string();
        std::erase_if(base, [](char c) { return c == '.' || c == '[' || c == ']' || c == '-' || c == '>'; });
    }
    if (base.empty()) throw EPropertyError(SCannotCreateName);
    std::string ev = eventName;
    if (ev.size() > 2 && SameText(ev.substr(0, 2), "On")) ev.erase(0, 2);
    return base + ev;
}

JEX_IMPLEMENT_CLASS(TMethodProperty, TPropertyEditor, "DesignEditors") {}

TPropertyAttributes TMethodProperty::GetAttributes() {
    return {paMultiSelect, paValueList, paSortList};
}

bool TMethodProperty::AllEqual() {
    std::string v = GetMethodValue().Name;
    for (int i = 1; i < PropCount(); ++i)
        if (!SameText(GetMethodValueAt(i).Name, v)) return false;
    return true;
}

std::string TMethodProperty::GetValue() {
    TMethod m = GetMethodValue();
    return Designer() ? Designer()->GetMethodName(m) : m.Name;
}

void TMethodProperty::GetValues(const TGetStrProc& proc) {
    if (Designer()) Designer()->GetMethods(GetPropType(), proc);
}

void TMethodProperty::SetValue(const std::string& value) {
    IDesigner* d = Designer();
    if (!d) {
        TMethod m;
        m.Name = value;
        SetMethodValue(m);
        return;
    }
    std::string cur = GetValue();
    if (!cur.empty() && !value.empty() && (SameText(cur, value) || !d->MethodExists(value)) &&
        !d->MethodFromAncestor(GetMethodValue())) {
        d->RenameMethod(cur, value);
        return;
    }
    bool isNew = !value.empty() && !d->MethodExists(value);
    SetMethodValue(d->CreateMethod(value, GetPropType()));
    if (isNew) d->ShowMethod(value);
}

std::string TMethodProperty::GetTrimmedEventName() {
    std::string n = GetName();
    if (n.size() > 2 && SameText(n.substr(0, 2), "On")) n.erase(0, 2);
    return n;
}

std::string TMethodProperty::GetFormMethodName() {
    return MakeEventMethodName(Designer(), GetComponent(0), GetName());
}

void TMethodProperty::Edit() {
    std::string name = GetValue();
    if (name.empty() || (Designer() && Designer()->MethodFromAncestor(GetMethodValue()))) {
        if (name.empty()) name = GetFormMethodName();
        SetValue(name);
    }
    if (Designer()) Designer()->ShowMethod(name);
}

// ---- Fonts and colours
// --------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFontNameProperty, TStringProperty, "DesignEditors") {}

TPropertyAttributes TFontNameProperty::GetAttributes() {
    return {paMultiSelect, paValueList, paSortList, paRevertable};
}

JEX_IMPLEMENT_CLASS(TColorProperty, TIntegerProperty, "DesignEditors") {}

TPropertyAttributes TColorProperty::GetAttributes() {
    return {paMultiSelect, paDialog, paValueList, paRevertable};
}

std::string TColorProperty::GetValue() {
    return vcl::ColorToString(static_cast<vcl::TColor>(GetOrdValue()));
}

void TColorProperty::GetValues(const TGetStrProc& proc) {
    vcl::GetColorValues(proc);
}

void TColorProperty::SetValue(const std::string& value) {
    vcl::TColor c;
    if (vcl::IdentToColor(Trim(value), c))
        SetOrdValue(c);
    else
        TIntegerProperty::SetValue(value);
}

void TColorProperty::ListMeasureWidth(const std::string& value, vcl::TCanvas* canvas, int& width) {
    if (canvas) width += canvas->TextHeight("M");
}

namespace {
// A swatch border that stays visible against the swatch and the list's background.
vcl::TColor SwatchBorder(vcl::TColor color, bool selected) {
    uint32_t rgb = vcl::ColorToRGB(color);
    if ((rgb & 0xFF) > 192 || ((rgb >> 8) & 0xFF) > 192 || ((rgb >> 16) & 0xFF) > 192) return vcl::clBlack;
    if (selected) return vcl::clWhite;
    return color;
}
} // namespace

void TColorProperty::ListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                                   bool selected) {
    if (!canvas) return;
    int right = rect.Left + (rect.Bottom - rect.Top);
    vcl::TColor color;
    bool known = vcl::IdentToColor(value, color);
    if (!known) {
        int32_t v;
        known = TryStrToInt(value, v);
        color = v;
    }
    if (known) {
        vcl::TColor oldPen = canvas->Pen()->Color(), oldBrush = canvas->Brush()->Color();
        canvas->Pen()->SetColor(oldBrush);
        canvas->Rectangle(rect.Left, rect.Top, right, rect.Bottom);
        canvas->Brush()->SetColor(color);
        canvas->Pen()->SetColor(SwatchBorder(color, selected));
        canvas->Rectangle(rect.Left + 1, rect.Top + 1, right - 1, rect.Bottom - 1);
        canvas->Brush()->SetColor(oldBrush);
        canvas->Pen()->SetColor(oldPen);
    }
    DefaultPropertyListDrawValue(value, canvas, vcl::Rect(right, rect.Top, rect.Right, rect.Bottom),
                                 selected);
}

JEX_IMPLEMENT_CLASS(TFontProperty, TClassProperty, "DesignEditors") {}

TPropertyAttributes TFontProperty::GetAttributes() {
    return {paMultiSelect, paSubProperties, paDialog, paReadOnly};
}

// ---- Registry
// ----------------------------------------------------------------------------------------------------------
namespace {
struct TEditorReg {
    const TTypeInfo* Type;
    TClass ComponentClass;
    std::string Name;
    TClass Editor;
    TModuleHandle Module;
};

struct TPairHash {
    size_t operator()(const std::pair<const TPropInfo*, TClass>& p) const noexcept {
        return std::hash<const void*>()(p.first) * 31 + std::hash<const void*>()(p.second);
    }
};

struct TEditorRegistry {
    std::vector<TEditorReg> Regs;
    std::unordered_map<std::pair<const TPropInfo*, TClass>, TClass, TPairHash> Cache;
    bool StandardDone = false;
};

TEditorRegistry& Registry() {
    static TEditorRegistry r;
    return r;
}

int ClassDepth(TClass c) {
    int d = 0;
    for (; c; c = c->ClassParent())
        ++d;
    return d;
}

TClass DefaultEditorFor(const TTypeInfo* t) {
    switch (t ? t->Kind : tkUnknown) {
    case tkInteger:
    case tkInt64:
        return TIntegerProperty::StaticClass();
    case tkChar:
    case tkWChar:
        return TCharProperty::StaticClass();
    case tkEnumeration:
        return TEnumProperty::StaticClass();
    case tkFloat:
        return TFloatProperty::StaticClass();
    case tkString:
    case tkLString:
    case tkWString:
        return TStringProperty::StaticClass();
    case tkSet:
        return TSetProperty::StaticClass();
    case tkClass:
        return TClassProperty::StaticClass();
    case tkMethod:
        return TMethodProperty::StaticClass();
    default:
        return TPropertyEditor::StaticClass();
    }
}

// How well a registration fits; compared field by field, the first difference decides.
struct TMatchRank {
    bool HasComponentClass, HasName, ExactType;
    int TypeDepth, ComponentDepth;
    size_t Order;
    auto Key() const {
        return std::tuple(HasComponentClass, HasName, ExactType, TypeDepth, ComponentDepth, Order);
    }
};

bool Matches(const TEditorReg& r, const TPropInfo* p, TClass componentClass) {
    const TTypeInfo* t = p->PropType;
    if (r.Type != t) {
        if (!(r.Type && t && r.Type->Kind == tkClass && t->Kind == tkClass && r.Type->ClassType &&
              t->ClassType && t->ClassType->InheritsFrom(r.Type->ClassType)))
            return false;
    }
    if (r.ComponentClass && !(componentClass && componentClass->InheritsFrom(r.ComponentClass))) return false;
    if (!r.Name.empty() && !SameText(r.Name, p->Name)) return false;
    return true;
}

void AddRegistration(const TTypeInfo* type, TClass componentClass, const std::string& name, TClass editor,
                     TModuleHandle module) {
    auto& r = Registry();
    r.Regs.push_back({type, componentClass, name, editor, module});
    r.Cache.clear();
    detail::BumpRegistryGeneration();
}
} // namespace

void detail::EnsureStandardPropertyEditors() {
    auto& r = Registry();
    if (r.StandardDone) return;
    r.StandardDone = true;
    TModuleHandle m = PlatformModule();
    AddRegistration(TypeInfo_Boolean(), nullptr, "", TBoolProperty::StaticClass(), m);
    AddRegistration(TComponent::StaticClass()->ClassInfo(), nullptr, "", TComponentProperty::StaticClass(),
                    m);
    AddRegistration(TypeInfo_TComponentName(), TComponent::StaticClass(), "Name",
                    TComponentNameProperty::StaticClass(), m);
    AddRegistration(vcl::TFont::StaticClass()->ClassInfo(), nullptr, "", TFontProperty::StaticClass(), m);
    AddRegistration(vcl::TypeInfo_TFontName(), nullptr, "", TFontNameProperty::StaticClass(), m);
    AddRegistration(vcl::TypeInfo_TColor(), nullptr, "", TColorProperty::StaticClass(), m);
    AddRegistration(vcl::TypeInfo_TCursor(), nullptr, "", TCursorProperty::StaticClass(), m);
    AddRegistration(vcl::TypeInfo_TCaption(), nullptr, "", TCaptionProperty::StaticClass(), m);
    AddRegistration(TCollection::StaticClass()->ClassInfo(), nullptr, "", TCollectionProperty::StaticClass(),
                    m);
    AddRegistration(TypeInfo_String(), vcl::TOpenDialog::StaticClass(), "Filter",
                    TFilterProperty::StaticClass(), m);
}

void detail::WithdrawPropertyEditors(TModuleHandle module) {
    auto& r = Registry();
    // Cached answers may name the module's classes and properties: drop them all.
    std::erase_if(r.Regs, [&](const TEditorReg& e) { return e.Module == module; });
    r.Cache.clear();
    detail::BumpRegistryGeneration();
}

void RegisterPropertyEditor(const TTypeInfo* PropertyType, TClass ComponentClass,
                            const std::string& PropertyName, TClass EditorClass) {
    detail::EnsureStandardPropertyEditors();
    if (!PropertyType) throw EPropertyError("A property editor needs a property type");
    if (!EditorClass || !EditorClass->InheritsFrom(TPropertyEditor::StaticClass()) ||
        !EditorClass->CanCreate())
        throw EPropertyError(Format("%s is not a property editor class",
                                    {EditorClass ? EditorClass->ClassName() : std::string("nil")}));
    AddRegistration(PropertyType, ComponentClass, PropertyName, EditorClass, CurrentModule());
}

TClass GetEditorClass(const TPropInfo* propInfo, TClass componentClass) {
    if (!propInfo) return nullptr;
    detail::EnsureStandardPropertyEditors();
    auto& r = Registry();
    auto key = std::make_pair(propInfo, componentClass);
    if (auto it = r.Cache.find(key); it != r.Cache.end()) return it->second;
    const TEditorReg* best = nullptr;
    TMatchRank bestRank{};
    for (size_t i = 0; i < r.Regs.size(); ++i) {
        const TEditorReg& reg = r.Regs[i];
        if (!Matches(reg, propInfo, componentClass)) continue;
        TMatchRank rank{
            reg.ComponentClass != nullptr,  !reg.Name.empty(),
            reg.Type == propInfo->PropType, reg.Type->Kind == tkClass ? ClassDepth(reg.Type->ClassType) : 0,
            ClassDepth(reg.ComponentClass), i};
        if (!best || rank.Key() > bestRank.Key()) {
            best = &reg;
            bestRank = rank;
        }
    }
    TClass result = best ? best->Editor : DefaultEditorFor(propInfo->PropType);
    r.Cache.emplace(key, result);
    return result;
}

int PropertyEditorRegistrationCount() {
    detail::EnsureStandardPropertyEditors();
    return static_cast<int>(Registry().Regs.size());
}

TPropertyEditorPtr CreatePropertyEditor(TClass editorClass, IDesigner* designer,
                                        std::vector<TInstProp> props) {
    if (!editorClass || !editorClass->InheritsFrom(TPropertyEditor::StaticClass()))
        throw EPropertyError(Format("%s is not a property editor class",
                                    {editorClass ? editorClass->ClassName() : std::string("nil")}));
    TPropertyEditorPtr editor(static_cast<TPropertyEditor*>(editorClass->Create()));
    editor->Setup(designer, std::move(props));
    editor->Initialize();
    return editor;
}

void GetComponentProperties(const TDesignerSelectionList& selection, TTypeKinds filter, IDesigner* designer,
                            const TGetPropProc& proc) {
    if (selection.Empty()) return;
    TPersistent* first = selection[0];
    TClass firstClass = first->ClassType();
    std::vector<const TPropInfo*> props;
    for (const TPropInfo* p : firstClass->Properties()) {
        if (!p->PropType || !filter.Contains(p->PropType->Kind)) continue;
        if (!p->Writable() && p->PropType->Kind != tkClass) continue;
        props.push_back(p);
    }
    std::stable_sort(props.begin(), props.end(), [](const TPropInfo* a, const TPropInfo* b) {
        return CompareText(a->Name, b->Name) < 0;
    });
    const int count = selection.Count();
    for (const TPropInfo* p : props) {
        TClass editorClass = GetEditorClass(p, firstClass);
        std::vector<TInstProp> list;
        list.reserve(static_cast<size_t>(count));
        list.push_back({first, p});
        // Objects of one class share their property infos; look each class up once.
        TClass lastClass = firstClass;
        const TPropInfo* lastProp = p;
        bool common = true;
        for (int i = 1; i < count && common; ++i) {
            TPersistent* obj = selection[i];
            TClass cls = obj->ClassType();
            if (cls != lastClass) {
                const TPropInfo* q = cls->FindProperty(p->Name);
                if (!q || q->PropType != p->PropType || GetEditorClass(q, cls) != editorClass) q = nullptr;
                lastClass = cls;
                lastProp = q;
            }
            if (!lastProp)
                common = false;
            else
                list.push_back({obj, lastProp});
        }
        if (!common) continue;
        TPropertyEditorPtr editor = CreatePropertyEditor(editorClass, designer, std::move(list));
        if (count > 1 && !editor->GetAttributes().Contains(paMultiSelect)) continue;
        proc(std::move(editor));
    }
}

} // namespace ide
