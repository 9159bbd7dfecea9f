// The component palette: pages of component classes (RegisterComponents) and classes the designer knows
// without an icon (RegisterNoIcon).
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "rtl/classes.h"

namespace ide {

using rtl::TClass;

// Puts the classes on the page (created on first use, pages keep the order they were first used in),
// tagged with the current module. A class already on that page keeps its first place. The classes are
// also registered for streaming by name unless they are already; UnregisterModule undoes that.
void RegisterComponents(const std::string& Page, std::initializer_list<TClass> ComponentClasses);
void RegisterComponents(const std::string& Page, const std::vector<TClass>& ComponentClasses);
// Classes that the designer may create (sub-components, items) but that get no palette icon.
void RegisterNoIcon(std::initializer_list<TClass> ComponentClasses);
void RegisterNoIcon(const std::vector<TClass>& ComponentClasses);

// Page captions as registered ("Jex Toolbars && Menus"), in page order.
std::vector<std::string> PalettePages();
// The caption as the palette shows it: "&&" becomes "&".
std::string PageDisplayCaption(const std::string& Page);
// The classes on a page (exact caption), in palette order; empty for an unknown page.
std::vector<TClass> PaletteClasses(const std::string& Page);
// The pages a class is on.
std::vector<std::string> PagesOfClass(TClass ComponentClass);
bool IsNoIconClass(TClass ComponentClass);
std::vector<TClass> NoIconClasses();
// A class on the palette or registered without icon, by name ignoring case; nil when unknown.
TClass FindDesignClass(const std::string& ClassName);
// The palette glyph of a class: the bitmap resource named after the class (BMP file bytes) in the loaded
// modules, most recently registered first; nil when there is none.
const std::vector<uint8_t>* PaletteGlyph(TClass ComponentClass);

} // namespace ide
