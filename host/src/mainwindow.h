// The host's main window: the main menu that experts extend (File, Edit, Component, Tools, Help with
// "HelpMenu" and "HelpAboutItem"), the component palette as pages of glyph buttons whose hints name the
// classes, and the host's own dialogs (About, Install Packages).
#pragma once

#include <map>
#include <string>

#include "vcl/buttons.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"
#include "vcl/menus.h"
#include "vcl/stdctrls.h"

namespace host {

class THost;

class TMainWindow : public vcl::TForm {
    JEX_CLASS(TMainWindow, vcl::TForm)
    TMainWindow(rtl::TComponent* AOwner, THost* Host);

    vcl::TMainMenu* MainMenu;
    vcl::TMenuItem *FileMenu, *FileNewItem, *FileOpenItem, *FileSaveItem, *FileSaveAsItem, *FileExitItem;
    vcl::TMenuItem *EditMenu, *EditCopyItem, *EditPasteItem, *EditDeleteItem, *EditSelectAllItem;
    vcl::TMenuItem *ComponentMenu, *ComponentInstallPackagesItem;
    vcl::TMenuItem *ToolsMenu, *ToolsEnvironmentOptionsItem;
    vcl::TMenuItem *HelpMenu, *HelpContentsItem, *HelpAboutItem;
    vcl::TNotebook* Palette;

    // Rebuilds the palette pages and buttons from the palette registrations.
    void RefreshPalette();
    // The palette button of a class (by name, ignoring case), or nil when the class has no icon.
    vcl::TSpeedButton* PaletteButton(const std::string& className) const;
    // Items that need a form are enabled only while one is open, as a person sees them when a menu opens.
    void UpdateMenuState();
    // The main-menu item with that component name (ignoring case), or nil.
    vcl::TMenuItem* FindMenuItem(const std::string& name) const;

private:
    vcl::TMenuItem* AddItem(vcl::TMenuItem* parent, const std::string& name, const std::string& caption,
                            void (TMainWindow::*handler)(rtl::TObject*) = nullptr,
                            vcl::TShortCut shortCut = 0);
    void FileNewClick(rtl::TObject* Sender);
    void FileOpenClick(rtl::TObject* Sender);
    void FileSaveClick(rtl::TObject* Sender);
    void FileSaveAsClick(rtl::TObject* Sender);
    void FileExitClick(rtl::TObject* Sender);
    void EditCopyClick(rtl::TObject* Sender);
    void EditPasteClick(rtl::TObject* Sender);
    void EditDeleteClick(rtl::TObject* Sender);
    void EditSelectAllClick(rtl::TObject* Sender);
    void InstallPackagesClick(rtl::TObject* Sender);
    void EnvironmentOptionsClick(rtl::TObject* Sender);
    void HelpContentsClick(rtl::TObject* Sender);
    void HelpAboutClick(rtl::TObject* Sender);
    void MenuPopup(rtl::TObject* Sender);
    THost* FHost;
    std::map<std::string, vcl::TSpeedButton*> FPaletteButtons; // upper-case class name
};

// Help > About: the product, its version and the system directory; OK closes it.
class TAboutBox : public vcl::TForm {
    JEX_CLASS(TAboutBox, vcl::TForm)
    explicit TAboutBox(rtl::TComponent* AOwner);
    vcl::TLabel* ProductLabel;
    vcl::TLabel* VersionLabel;
    vcl::TLabel* SystemDirLabel;
    vcl::TButton* OKButton;
};

// Component > Install Packages: the loaded packages with their descriptions; Add loads a package file
// chosen in the open dialog, Remove unloads the selected one after asking.
class TPackagesDialog : public vcl::TForm {
    JEX_CLASS(TPackagesDialog, vcl::TForm)
    TPackagesDialog(rtl::TComponent* AOwner, THost* Host);
    vcl::TLabel* PackagesLabel;
    vcl::TListBox* PackageList;
    vcl::TButton* AddButton;
    vcl::TButton* RemoveButton;
    vcl::TButton* OKButton;
    void UpdateList();

private:
    void AddClick(rtl::TObject* Sender);
    void RemoveClick(rtl::TObject* Sender);
    void ListClick(rtl::TObject* Sender);
    THost* FHost;
};

// Tools > Environment Options: the system directory (where bare INI file names resolve) and the folders
// searched for packages by name. OK applies them.
class TEnvironmentOptionsDialog : public vcl::TForm {
    JEX_CLASS(TEnvironmentOptionsDialog, vcl::TForm)
    explicit TEnvironmentOptionsDialog(rtl::TComponent* AOwner);
    vcl::TLabel* SystemDirLabel;
    vcl::TEdit* SystemDirEdit;
    vcl::TButton* BrowseButton;
    vcl::TLabel* SearchPathLabel;
    vcl::TEdit* SearchPathEdit;
    vcl::TButton* OKButton;
    vcl::TButton* CancelButton;

private:
    void BrowseClick(rtl::TObject* Sender);
};

} // namespace host
