// Jexreg_a: the "Jex Toolbars && Menus" palette page, and the dock, toolbar and menu components' own
// properties in the library's "Jex" category.
#include "dcljexc/jexpropc.h"
#include "dcljexc/units.h"
#include "ide/palette.h"
#include "jex/jexdock.h"

using namespace dcljexc;
using namespace jex;

DCLJEXC_UNIT_WITHOUT_BODIES(Jexreg_a)

JEX_PACKAGE_REGISTER(jexreg_a) {
    ide::RegisterComponents(
        "Jex Toolbars && Menus",
        {TjexDock::StaticClass(), TjexToolbar::StaticClass(), TjexToolWindow::StaticClass(),
         TjexToolbarButton::StaticClass(), TjexToolbarSep::StaticClass(), TjexToolbarEdit::StaticClass(),
         TjexToolbarMaskEdit::StaticClass(), TjexMainMenu::StaticClass(), TjexMenuToolbar::StaticClass(),
         TjexPopupMenu::StaticClass(), TjexSystemMenu::StaticClass(), TjexMenuImages::StaticClass()});

    // Property editor registrations of this unit come with the value-list editors.

    jexRegisterPropertiesInCategory(
        TjexDock::StaticClass(), {"AllowDrag", "Background", "BackgroundOnToolbars", "BackgroundTransparent",
                                  "BoundLines", "FixAlign", "LimitToOneRow", "Position"});
    jexRegisterPropertiesInCategory(TjexToolbar::StaticClass(),
                                    {"ActivateParent", "CloseButton", "DefaultDock", "DockableTo", "DockedTo",
                                     "DockMode", "DockPos", "DockRow", "DragHandle", "FloatingMode",
                                     "FullSize", "HideWhenInactive"});
    jexRegisterPropertiesInCategory(TjexToolWindow::StaticClass(),
                                    {"ActivateParent", "ClientAreaHeight", "ClientAreaWidth", "CloseButton",
                                     "DefaultDock", "DockableTo", "DockedTo", "DockMode", "DockPos",
                                     "DockRow", "DragHandle", "FloatingMode", "FullSize", "HideWhenInactive",
                                     "MinClientHeight", "MinClientWidth", "Resizable"});
    jexRegisterPropertiesInCategory(TjexToolbarButton::StaticClass(), {"AllowAllUp",
                                                                       "DisplayMode",
                                                                       "DropdownAlways",
                                                                       "DropdownArrow",
                                                                       "DropdownCombo",
                                                                       "DropdownMenu",
                                                                       "Flat",
                                                                       "Glyph",
                                                                       "GlyphMask",
                                                                       "Layout",
                                                                       "Margin",
                                                                       "NoBorder",
                                                                       "NumGlyphs",
                                                                       "OldDisabledStyle",
                                                                       "Opaque",
                                                                       "RepeatDelay",
                                                                       "Repeating",
                                                                       "RepeatInterval",
                                                                       "ShowBorderWhenInactive",
                                                                       "Spacing"});
    jexRegisterPropertiesInCategory(TjexToolbarSep::StaticClass(), {"Blank", "SizeHorz", "SizeVert"});
    jexRegisterPropertiesInCategory(
        TjexMenuToolbar::StaticClass(),
        {"ActivateParent", "CloseButton", "DefaultDock", "DockableTo", "DockedTo", "DockMode", "DockPos",
         "DockRow", "DragHandle", "FloatingMode", "FullSize", "GrayWhenInactive", "HideWhenInactive",
         "MainMenu", "OpaqueButtons", "Options", "StatusBar", "StatusBarIndex", "SystemFont"});
    jexRegisterPropertiesInCategory(TjexPopupMenu::StaticClass(),
                                    {"Options", "StatusBar", "StatusBarIndex", "SystemFont"});
    jexRegisterPropertiesInCategory(TjexSystemMenu::StaticClass(),
                                    {"Options", "StatusBar", "StatusBarIndex", "SystemFont", "VisibleItems"});
    jexRegisterPropertiesInCategory(TjexMenuImages::StaticClass(), {"Items"});
}
