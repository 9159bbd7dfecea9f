// Jexphint: the Help-menu expert that puts "Browse Jex Components..." below the About item of the
// designer's Help menu and opens the extended-hint and About window from it.
#pragma once

#include <string>

#include "ide/experts.h"

namespace dcljexc {

class TjexBrowseCompsExpert : public ide::TIExpert {
public:
    // Inserts the menu item when the host's main menu has both "HelpMenu" and "HelpAboutItem"; otherwise
    // the expert lives without one, silently.
    TjexBrowseCompsExpert();

    std::string GetName() override;
    std::string GetAuthor() override;
    std::string GetComment() override;
    std::string GetPage() override;
    intptr_t GetGlyph() override;
    ide::TExpertStyle GetStyle() override;
    ide::TExpertState GetState() override;
    std::string GetIDString() override;
    std::string GetMenuText() override;
    // Opens the window; a failure goes to the host through ToolServices instead of escaping.
    void Execute() override;

    void jexBrowseCompsMenuClick(ide::TIMenuItemIntf* Item);
    // The inserted item, nil when there is none.
    ide::TIMenuItemIntf* MenuItem() const { return FMenuItem; }

protected:
    // Releases the menu item, which takes it out of the menu.
    ~TjexBrowseCompsExpert() override;

private:
    ide::TIMenuItemIntf* FMenuItem = nullptr;
};

namespace Jexphint {
void Start();
void Stop();
// Inside a catch block: hands the message of the exception being handled to ToolServices.
void HandleException();
} // namespace Jexphint

} // namespace dcljexc
