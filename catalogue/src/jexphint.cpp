// Jexphint: the Browse Components expert over the host's expert interface and main menu.
#include "dcljexc/jexphint.h"

#include <exception>

#include "dcljexc/jexdfabh.h"
#include "dcljexc/units.h"
#include "rtl/resources.h"

DCLJEXC_UNIT_WITHOUT_BODIES(Jexphint)

namespace dcljexc {

JEX_RESOURCESTRING(_sjexpropdsgnBrowseCompsMenuText, "Browse Jex Components...");

namespace Jexphint {

void HandleException() {
    std::string message;
    try {
        throw;
    } catch (const rtl::Exception& e) {
        message = e.Message();
    } catch (const std::exception& e) {
        message = e.what();
    } catch (...) {
        message = "Unknown exception";
    }
    ide::ToolServices->RaiseException(message);
}

} // namespace Jexphint

TjexBrowseCompsExpert::TjexBrowseCompsExpert() {
    using ide::TIntfRef;
    TIntfRef<ide::TIMainMenuIntf> mainMenu(ide::ToolServices->GetMainMenu());
    if (!mainMenu) return;
    TIntfRef<ide::TIMenuItemIntf> menuItems(mainMenu->GetMenuItems());
    if (!menuItems) return;
    TIntfRef<ide::TIMenuItemIntf> helpMenu(mainMenu->FindMenuItem("HelpMenu"));
    TIntfRef<ide::TIMenuItemIntf> aboutItem(mainMenu->FindMenuItem("HelpAboutItem"));
    if (!helpMenu || !aboutItem) return;
    FMenuItem = helpMenu->InsertItem(aboutItem->GetIndex() + 1, GetMenuText(), "jexBrowseCompsMenuItem", "",
                                     0, 0, 0, {ide::mfEnabled, ide::mfVisible},
                                     [this](ide::TIMenuItemIntf* Item) { jexBrowseCompsMenuClick(Item); });
}

TjexBrowseCompsExpert::~TjexBrowseCompsExpert() {
    if (FMenuItem) FMenuItem->Release();
    FMenuItem = nullptr;
}

std::string TjexBrowseCompsExpert::GetName() {
    return "Jex Browse Components Expert";
}

std::string TjexBrowseCompsExpert::GetAuthor() {
    return {};
}

std::string TjexBrowseCompsExpert::GetComment() {
    return {};
}

std::string TjexBrowseCompsExpert::GetPage() {
    return {};
}

intptr_t TjexBrowseCompsExpert::GetGlyph() {
    return 0;
}

ide::TExpertStyle TjexBrowseCompsExpert::GetStyle() {
    return ide::esAddIn;
}

ide::TExpertState TjexBrowseCompsExpert::GetState() {
    return {ide::esEnabled};
}

std::string TjexBrowseCompsExpert::GetIDString() {
    return "QuentrelSWTechnology.JEXBrowseComponentExpert";
}

std::string TjexBrowseCompsExpert::GetMenuText() {
    return rtl::LoadResString(_sjexpropdsgnBrowseCompsMenuText);
}

void TjexBrowseCompsExpert::Execute() {
    try {
        jexShowIDEHintAbout();
    } catch (...) {
        Jexphint::HandleException();
    }
}

void TjexBrowseCompsExpert::jexBrowseCompsMenuClick(ide::TIMenuItemIntf*) {
    Execute();
}

} // namespace dcljexc
