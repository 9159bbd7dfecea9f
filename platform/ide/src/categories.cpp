// The property category registry and the platform's standard categories of common properties.
#include "ide/categories.h"

#include <algorithm>
#include <unordered_map>

#include "registry_internal.h"

namespace ide {

using namespace rtl;

JEX_IMPLEMENT_CLASS(TPropertyCategory, TObject, "DesignIntf") {}

std::string TPropertyCategory::Name() const {
    std::string n = ClassName();
    if (n.size() > 1 && n[0] == 'T') n.erase(0, 1);
    if (n.size() > 8 && SameText(n.substr(n.size() - 8), "Category")) n.erase(n.size() - 8);
    return n;
}

namespace {
struct TCategoryReg {
    std::string Category;
    TClass ComponentClass; // nil: any class
    std::string Pattern;   // empty with a type: every property of the type
    const TTypeInfo* Type; // nil: by name
    TModuleHandle Module;
};
struct TClassPropHash {
    size_t operator()(const std::pair<TClass, const TPropInfo*>& p) const noexcept {
        return std::hash<const void*>()(p.first) * 31 + std::hash<const void*>()(p.second);
    }
};
struct TCategories {
    std::vector<TCategoryReg> Regs;
    bool StandardDone = false;
    std::unordered_map<std::pair<TClass, const TPropInfo*>, std::vector<std::string>, TClassPropHash> Cache;
};
TCategories& Cats() {
    static TCategories c;
    return c;
}

// '*' any run, '?' one character, letters ignoring case.
bool WildMatch(std::string_view pattern, std::string_view text) {
    size_t p = 0, t = 0, star = std::string_view::npos, mark = 0;
    auto eq = [](char a, char b) {
        return std::toupper(static_cast<unsigned char>(a)) == std::toupper(static_cast<unsigned char>(b));
    };
    while (t < text.size()) {
        if (p < pattern.size() && (pattern[p] == '?' || eq(pattern[p], text[t]))) {
            ++p;
            ++t;
        } else if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            mark = t;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            t = ++mark;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == '*')
        ++p;
    return p == pattern.size();
}

bool RegMatches(const TCategoryReg& r, TClass cls, const TPropInfo* prop) {
    if (r.ComponentClass && !(cls && cls->InheritsFrom(r.ComponentClass))) return false;
    if (r.Type) {
        const TTypeInfo* t = prop->PropType;
        if (t != r.Type && !(t && t->Kind == tkClass && r.Type->Kind == tkClass && t->ClassType &&
                             r.Type->ClassType && t->ClassType->InheritsFrom(r.Type->ClassType)))
            return false;
        return r.Pattern.empty() || WildMatch(r.Pattern, prop->Name);
    }
    return WildMatch(r.Pattern, prop->Name);
}

void AddReg(const std::string& category, TClass cls, const std::string& pattern, const TTypeInfo* type,
            TModuleHandle module) {
    if (category.empty()) throw EPropertyError("A property category needs a name");
    Cats().Regs.push_back({category, cls, pattern, type, module});
    Cats().Cache.clear();
    detail::BumpRegistryGeneration();
}
} // namespace

void detail::EnsureStandardCategories() {
    auto& c = Cats();
    if (c.StandardDone) return;
    c.StandardDone = true;
    TModuleHandle m = PlatformModule();
    auto names = [&](const char* cat, std::initializer_list<const char*> list) {
        for (const char* n : list)
            AddReg(cat, nullptr, n, nullptr, m);
    };
    names(sActionCategoryName, {"Action", "Caption", "Checked", "Enabled", "HelpContext", "Hint",
                                "ImageIndex", "ShortCut", "Visible", "OnClick", "OnExecute", "OnUpdate"});
    names(sDatabaseCategoryName, {"DataField", "DataSource", "DatabaseName", "TableName", "SessionName",
                                  "SQL", "Active", "IndexName", "MasterSource", "MasterFields"});
    names(sDragNDropCategoryName,
          {"DockSite", "DragCursor", "DragKind", "DragMode", "UseDockManager", "OnDockDrop", "OnDockOver",
           "OnDragDrop", "OnDragOver", "OnEndDock", "OnEndDrag", "OnStartDock", "OnStartDrag", "OnUnDock"});
    names(sHelpCategoryName, {"HelpContext", "HelpFile", "HelpKeyword", "HelpType", "Hint", "ParentShowHint",
                              "ShowHint", "OnHelp", "OnHint"});
    names(sInputCategoryName, {"AutoSize", "Enabled", "ImeMode", "ImeName", "ReadOnly", "TabOrder", "TabStop",
                               "OnClick", "OnDblClick", "OnEnter", "OnExit", "OnKeyDown", "OnKeyPress",
                               "OnKeyUp", "OnMouseDown", "OnMouseMove", "OnMouseUp", "OnMouseWheel"});
    names(sLayoutCategoryName,
          {"Align", "Anchors", "AutoSize", "BorderWidth", "ClientHeight", "ClientWidth", "Constraints",
           "Height", "Left", "Margin", "Top", "Width", "OnCanResize", "OnConstrainedResize", "OnResize"});
    names(sLegacyCategoryName, {"Ctl3D", "ParentCtl3D", "OldCreateOrder"});
    names(sLocaleCategoryName, {"BiDiMode", "ParentBiDiMode"});
    names(sLocalizableCategoryName, {"BiDiMode", "Caption", "Constraints", "EditMask", "Font", "Glyph",
                                     "Height", "Hint", "Icon", "Items", "Lines", "Picture", "Text", "Width"});
    names(sVisualCategoryName,
          {"Align",      "Alignment",   "Anchors",     "AutoSize",    "BevelInner",  "BevelKind",
           "BevelOuter", "BevelWidth",  "BorderIcons", "BorderStyle", "BorderWidth", "Caption",
           "Color",      "Constraints", "Cursor",      "Font",        "Glyph",       "Height",
           "Icon",       "Layout",      "Left",        "ParentColor", "ParentFont",  "Picture",
           "Top",        "Transparent", "Visible",     "Width",       "WindowState", "WordWrap",
           "OnPaint"});
    AddReg(sLinkageCategoryName, nullptr, "", TComponent::StaticClass()->ClassInfo(), m);
}

void detail::WithdrawCategories(TModuleHandle module) {
    // Cached answers may name the module's classes and properties: drop them all.
    std::erase_if(Cats().Regs, [&](const TCategoryReg& r) { return r.Module == module; });
    Cats().Cache.clear();
    detail::BumpRegistryGeneration();
}

void RegisterPropertiesInCategory(const std::string& Category, TClass ComponentClass,
                                  const std::vector<std::string>& PropertyNames) {
    detail::EnsureStandardCategories();
    for (auto& n : PropertyNames)
        AddReg(Category, ComponentClass, n, nullptr, CurrentModule());
}

void RegisterPropertiesInCategory(const std::string& Category, TClass ComponentClass,
                                  std::initializer_list<const char*> PropertyNames) {
    std::vector<std::string> names(PropertyNames.begin(), PropertyNames.end());
    RegisterPropertiesInCategory(Category, ComponentClass, names);
}

void RegisterPropertiesInCategory(const std::string& Category,
                                  const std::vector<std::string>& PropertyNames) {
    RegisterPropertiesInCategory(Category, nullptr, PropertyNames);
}

void RegisterPropertiesInCategory(const std::string& Category, const TTypeInfo* PropertyType) {
    detail::EnsureStandardCategories();
    if (!PropertyType) throw EPropertyError("A property category registration needs a type");
    AddReg(Category, nullptr, "", PropertyType, CurrentModule());
}

void RegisterPropertyInCategory(const std::string& Category, TClass ComponentClass,
                                const std::string& PropertyName) {
    RegisterPropertiesInCategory(Category, ComponentClass, std::vector<std::string>{PropertyName});
}

std::string CategoryNameOf(TClass CategoryClass) {
    if (!CategoryClass || !CategoryClass->InheritsFrom(TPropertyCategory::StaticClass()) ||
        !CategoryClass->CanCreate())
        throw EPropertyError(Format("%s is not a property category class",
                                    {CategoryClass ? CategoryClass->ClassName() : std::string("nil")}));
    std::unique_ptr<TObject> obj(CategoryClass->Create());
    return static_cast<TPropertyCategory*>(obj.get())->Name();
}

void RegisterPropertiesInCategory(TClass CategoryClass, TClass ComponentClass,
                                  const std::vector<std::string>& PropertyNames) {
    RegisterPropertiesInCategory(CategoryNameOf(CategoryClass), ComponentClass, PropertyNames);
}

bool IsPropertyInCategory(const std::string& Category, TClass ComponentClass, const TPropInfo* Prop) {
    if (!Prop) return false;
    for (auto& c : GetPropertyCategories(ComponentClass, Prop))
        if (SameText(c, Category)) return true;
    return false;
}

std::vector<std::string> GetPropertyCategories(TClass ComponentClass, const TPropInfo* Prop) {
    detail::EnsureStandardCategories();
    std::vector<std::string> result;
    if (!Prop) return result;
    auto key = std::make_pair(ComponentClass, Prop);
    if (auto it = Cats().Cache.find(key); it != Cats().Cache.end()) return it->second;
    for (auto& r : Cats().Regs) {
        if (!RegMatches(r, ComponentClass, Prop)) continue;
        if (std::none_of(result.begin(), result.end(),
                         [&](const std::string& c) { return SameText(c, r.Category); }))
            result.push_back(r.Category);
    }
    if (result.empty()) result.push_back(sMiscellaneousCategoryName);
    Cats().Cache.emplace(key, result);
    return result;
}

std::vector<std::string> RegisteredCategories() {
    detail::EnsureStandardCategories();
    std::vector<std::string> result;
    for (auto& r : Cats().Regs)
        if (std::none_of(result.begin(), result.end(),
                         [&](const std::string& c) { return SameText(c, r.Category); }))
            result.push_back(r.Category);
    if (std::none_of(result.begin(), result.end(),
                     [](const std::string& c) { return SameText(c, sMiscellaneousCategoryName); }))
        result.push_back(sMiscellaneousCategoryName);
    return result;
}

int CategoryRegistrationCount() {
    detail::EnsureStandardCategories();
    return static_cast<int>(Cats().Regs.size());
}

} // namespace ide
