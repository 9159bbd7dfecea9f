// The palette registry: every registration is kept with its module; what the palette shows is derived
// from them, so withdrawing one module leaves the others' entries in their places.
#include "ide/palette.h"

#include <algorithm>

#include "registry_internal.h"
#include "rtl/resources.h"

namespace ide {

using namespace rtl;

namespace {
struct TPaletteReg {
    std::string Page; // empty for a no-icon registration
    TClass Class;
    TModuleHandle Module;
};
struct TStreamReg {
    TClass Class;
    TModuleHandle Module;
};
struct TPalette {
    std::vector<TPaletteReg> Regs;
    std::vector<TStreamReg> Streamed; // streaming registrations made on the module's behalf
};
TPalette& Palette() {
    static TPalette p;
    return p;
}

void EnsureStreamable(TClass cls) {
    if (RegisteredClassCount(cls->ClassName()) > 0) return;
    RegisterClass(cls);
    Palette().Streamed.push_back({cls, CurrentModule()});
}

void Add(const std::string& page, const std::vector<TClass>& classes, bool streamable) {
    for (TClass c : classes)
        if (!c) throw EComponentError("A nil class cannot be registered on the palette");
    for (TClass c : classes) {
        if (streamable) EnsureStreamable(c);
        Palette().Regs.push_back({page, c, CurrentModule()});
    }
}
} // namespace

void detail::WithdrawPalette(TModuleHandle module) {
    auto& p = Palette();
    std::erase_if(p.Regs, [&](const TPaletteReg& r) { return r.Module == module; });
    for (auto& s : p.Streamed) {
        if (s.Module != module) continue;
        // Another module that still has the class on its pages keeps it streamable.
        auto other = std::find_if(p.Regs.begin(), p.Regs.end(), [&](const TPaletteReg& r) {
            return r.Class == s.Class && !r.Page.empty();
        });
        if (other != p.Regs.end())
            s.Module = other->Module;
        else
            UnRegisterClass(s.Class);
    }
    std::erase_if(p.Streamed, [&](const TStreamReg& s) { return s.Module == module; });
}

void RegisterComponents(const std::string& Page, std::initializer_list<TClass> ComponentClasses) {
    RegisterComponents(Page, std::vector<TClass>(ComponentClasses));
}

void RegisterComponents(const std::string& Page, const std::vector<TClass>& ComponentClasses) {
    if (Page.empty()) throw EComponentError("A palette page needs a caption");
    Add(Page, ComponentClasses, true);
}

void RegisterNoIcon(std::initializer_list<TClass> ComponentClasses) {
    RegisterNoIcon(std::vector<TClass>(ComponentClasses));
}

void RegisterNoIcon(const std::vector<TClass>& ComponentClasses) {
    Add(std::string(), ComponentClasses, false);
}

std::vector<std::string> PalettePages() {
    std::vector<std::string> pages;
    for (auto& r : Palette().Regs)
        if (!r.Page.empty() && std::find(pages.begin(), pages.end(), r.Page) == pages.end())
            pages.push_back(r.Page);
    return pages;
}

std::string PageDisplayCaption(const std::string& Page) {
    return StringReplaceAll(Page, "&&", "&");
}

std::vector<TClass> PaletteClasses(const std::string& Page) {
    std::vector<TClass> classes;
    if (Page.empty()) return classes;
    for (auto& r : Palette().Regs)
        if (r.Page == Page && std::find(classes.begin(), classes.end(), r.Class) == classes.end())
            classes.push_back(r.Class);
    return classes;
}

std::vector<std::string> PagesOfClass(TClass ComponentClass) {
    std::vector<std::string> pages;
    for (auto& r : Palette().Regs)
        if (r.Class == ComponentClass && !r.Page.empty() &&
            std::find(pages.begin(), pages.end(), r.Page) == pages.end())
            pages.push_back(r.Page);
    return pages;
}

bool IsNoIconClass(TClass ComponentClass) {
    for (auto& r : Palette().Regs)
        if (r.Page.empty() && r.Class == ComponentClass) return true;
    return false;
}

std::vector<TClass> NoIconClasses() {
    std::vector<TClass> classes;
    for (auto& r : Palette().Regs)
        if (r.Page.empty() && std::find(classes.begin(), classes.end(), r.Class) == classes.end())
            classes.push_back(r.Class);
    return classes;
}

TClass FindDesignClass(const std::string& ClassName) {
    for (auto& r : Palette().Regs)
        if (SameText(r.Class->ClassName(), ClassName)) return r.Class;
    return nullptr;
}

const std::vector<uint8_t>* PaletteGlyph(TClass ComponentClass) {
    if (!ComponentClass) return nullptr;
    return FindBitmapResource(ComponentClass->ClassName());
}

} // namespace ide
