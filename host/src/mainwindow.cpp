// The host's main window, its menu actions and the host's own dialogs.
#include "mainwindow.h"

#include <algorithm>
#include <functional>
#include <memory>

#include "host.h"
#include "ide/packages.h"
#include "ide/palette.h"
#include "vcl/dialogs.h"

namespace host {

using namespace rtl;
using namespace vcl;

JEX_IMPLEMENT_CLASS(TMainWindow, TForm, "Main") {}
JEX_IMPLEMENT_CLASS(TAboutBox, TForm, "About") {}
JEX_IMPLEMENT_CLASS(TPackagesDialog, TForm, "PkgDlg") {}
JEX_IMPLEMENT_CLASS(TEnvironmentOptionsDialog, TForm, "EnvOpts") {}

namespace {
constexpr int PaletteButtonSize = 28;

TButton* PlaceButton(TForm* form, const char* name, const char* caption, int l, int t) {
    auto* b = new TButton(form);
    b->SetName(name);
    b->SetParent(form);
    b->SetCaption(caption);
    b->SetBounds(l, t, 75, 25);
    return b;
}

TLabel* PlaceLabel(TForm* form, const char* name, const std::string& caption, int l, int t, int w) {
    auto* label = new TLabel(form);
    label->SetName(name);
    label->SetParent(form);
    label->SetCaption(caption);
    label->SetBounds(l, t, w, 17);
    return label;
}

// Runs a host dialog modally and frees it whatever happens; `ok` runs when the person pressed OK.
template <class F, class... A> TModalResult RunDialog(const std::function<void(F*)>& ok, A&&... args) {
    F* dlg = NewForm<F>(std::forward<A>(args)...);
    std::unique_ptr<F, void (*)(F*)> guard(dlg, [](F* f) { f->Free(); });
    TModalResult result = dlg->ShowModal();
    if (result == mrOk && ok) ok(dlg);
    return result;
}

bool AcceptsControls(TComponent* c) {
    auto* w = dynamic_cast<TWinControl*>(c);
    return w && (dynamic_cast<TCustomForm*>(c) || dynamic_cast<TCustomFrame*>(c) ||
                 w->ControlStyle().Contains(csAcceptsControls));
}
} // namespace

// ---- TMainWindow ------------------------------------------------------------------------------------------
TMainWindow::TMainWindow(TComponent* AOwner, THost* Host) : TForm(AOwner), FHost(Host) {
    SetName("MainWindow");
    SetCaption("jexdesign");
    SetBounds(0, 0, 800, 110);
    MainMenu = new TMainMenu(this);
    MainMenu->SetName("MainMenu");
    SetMenu(MainMenu);
    TMenuItem* bar = MainMenu->Items();

    FileMenu = AddItem(bar, "FileMenu", "&File", &TMainWindow::MenuPopup);
    FileNewItem = AddItem(FileMenu, "FileNewItem", "&New Form", &TMainWindow::FileNewClick);
    FileOpenItem =
        AddItem(FileMenu, "FileOpenItem", "&Open...", &TMainWindow::FileOpenClick, ShortCut('O', {ssCtrl}));
    FileSaveItem =
        AddItem(FileMenu, "FileSaveItem", "&Save", &TMainWindow::FileSaveClick, ShortCut('S', {ssCtrl}));
    FileSaveAsItem = AddItem(FileMenu, "FileSaveAsItem", "Save &As...", &TMainWindow::FileSaveAsClick);
    AddItem(FileMenu, "FileSep1", cLineCaption);
    FileExitItem = AddItem(FileMenu, "FileExitItem", "E&xit", &TMainWindow::FileExitClick);

    EditMenu = AddItem(bar, "EditMenu", "&Edit", &TMainWindow::MenuPopup);
    EditCopyItem =
        AddItem(EditMenu, "EditCopyItem", "&Copy", &TMainWindow::EditCopyClick, ShortCut('C', {ssCtrl}));
    EditPasteItem =
        AddItem(EditMenu, "EditPasteItem", "&Paste", &TMainWindow::EditPasteClick, ShortCut('V', {ssCtrl}));
    EditDeleteItem = AddItem(EditMenu, "EditDeleteItem", "&Delete", &TMainWindow::EditDeleteClick,
                             ShortCut(VK_DELETE, {}));
    AddItem(EditMenu, "EditSep1", cLineCaption);
    EditSelectAllItem =
        AddItem(EditMenu, "EditSelectAllItem", "Select &All", &TMainWindow::EditSelectAllClick);

    ComponentMenu = AddItem(bar, "ComponentMenu", "&Component");
    ComponentInstallPackagesItem = AddItem(ComponentMenu, "ComponentInstallPackagesItem",
                                           "Install &Packages...", &TMainWindow::InstallPackagesClick);

    ToolsMenu = AddItem(bar, "ToolsMenu", "&Tools");
    ToolsEnvironmentOptionsItem = AddItem(ToolsMenu, "ToolsEnvironmentOptionsItem", "&Environment Options...",
                                          &TMainWindow::EnvironmentOptionsClick);

    HelpMenu = AddItem(bar, "HelpMenu", "&Help");
    HelpContentsItem = AddItem(HelpMenu, "HelpContentsItem", "&Contents", &TMainWindow::HelpContentsClick);
    AddItem(HelpMenu, "HelpSep1", cLineCaption);
    HelpAboutItem = AddItem(HelpMenu, "HelpAboutItem", "&About...", &TMainWindow::HelpAboutClick);

    Palette = new TNotebook(this);
    Palette->SetName("Palette");
    Palette->SetParent(this);
    Palette->SetAlign(alClient);
    RefreshPalette();
}

TMenuItem* TMainWindow::AddItem(TMenuItem* parent, const std::string& name, const std::string& caption,
                                void (TMainWindow::*handler)(TObject*), TShortCut shortCut) {
    auto* item = new TMenuItem(this);
    item->SetName(name);
    item->SetCaption(caption);
    item->SetShortCut(shortCut);
    if (handler) item->OnClick = TNotifyEvent(this, handler);
    parent->Add(item);
    return item;
}

void TMainWindow::RefreshPalette() {
    FPaletteButtons.clear();
    Palette->Pages()->Clear();
    for (const std::string& page : ide::PalettePages()) {
        Palette->Pages()->Add(ide::PageDisplayCaption(page));
        TPage* sheet = Palette->Page(Palette->PageCount() - 1);
        int x = 0;
        for (TClass cls : ide::PaletteClasses(page)) {
            // The palette names a class without its leading "T", in the button's hint.
            auto* button = new TSpeedButton(sheet);
            button->SetParent(sheet);
            button->SetBounds(x, 0, PaletteButtonSize, PaletteButtonSize);
            button->SetFlat(true);
            const std::string& name = cls->ClassName();
            button->SetHint(name.size() > 1 && (name[0] == 'T' || name[0] == 't') ? name.substr(1) : name);
            button->SetShowHint(true);
            if (const std::vector<uint8_t>* glyph = ide::PaletteGlyph(cls)) {
                try {
                    button->Glyph()->LoadFromBytes(*glyph);
                } catch (const Exception&) {
                    // A glyph that does not read leaves the button blank; the class is still usable.
                }
            }
            FPaletteButtons.emplace(UpperCase(name), button);
            x += PaletteButtonSize;
        }
    }
    if (Palette->PageCount() > 0) Palette->SetPageIndex(0);
}

TSpeedButton* TMainWindow::PaletteButton(const std::string& className) const {
    auto it = FPaletteButtons.find(UpperCase(className));
    return it == FPaletteButtons.end() ? nullptr : it->second;
}

TMenuItem* TMainWindow::FindMenuItem(const std::string& name) const {
    return MainMenu->FindByName(name);
}

void TMainWindow::MenuPopup(TObject*) {
    UpdateMenuState();
}

void TMainWindow::UpdateMenuState() {
    bool open = FHost->Session().HasForm();
    for (TMenuItem* item : {FileSaveItem, FileSaveAsItem, EditCopyItem, EditDeleteItem, EditSelectAllItem})
        item->SetEnabled(open);
    EditPasteItem->SetEnabled(open && ide::IsComponentText(ide::DesignClipboardText()));
}

void TMainWindow::FileNewClick(TObject*) {
    TDesignSession& s = FHost->Session();
    if (!s.CloseQuery()) return;
    s.NewForm();
}

void TMainWindow::FileOpenClick(TObject*) {
    TDesignSession& s = FHost->Session();
    if (!s.CloseQuery()) return;
    s.OpenAsk();
}

void TMainWindow::FileSaveClick(TObject*) {
    FHost->Session().SaveAsk();
}

void TMainWindow::FileSaveAsClick(TObject*) {
    FHost->Session().SaveAsAsk();
}

void TMainWindow::FileExitClick(TObject*) {
    if (!FHost->Session().CloseQuery()) return;
    Application()->Terminate();
}

void TMainWindow::EditCopyClick(TObject*) {
    ide::TFormDesigner* d = FHost->Session().Designer();
    d->CopyComponents(d->GetRoot(), d->Selection());
}

void TMainWindow::EditPasteClick(TObject*) {
    ide::TFormDesigner* d = FHost->Session().Designer();
    // Paste goes into the selected container, else next to the selected control, else onto the form.
    TComponent* parent = d->GetRoot();
    if (d->Selection().Count() == 1) {
        auto* sel = dynamic_cast<TComponent*>(d->Selection()[0]);
        if (sel && AcceptsControls(sel))
            parent = sel;
        else if (auto* c = dynamic_cast<TControl*>(sel); c && c->Parent())
            parent = c->Parent();
    }
    ide::TDesignerSelectionList pasted;
    d->PasteComponents(d->GetRoot(), parent, pasted);
    d->SetSelections(pasted);
}

void TMainWindow::EditDeleteClick(TObject*) {
    ide::TFormDesigner* d = FHost->Session().Designer();
    std::vector<TComponent*> doomed;
    for (TPersistent* p : d->Selection().List())
        if (auto* c = dynamic_cast<TComponent*>(p); c && c != d->GetRoot()) doomed.push_back(c);
    // A control inside another deleted one goes with its container, so it is not deleted on its own.
    auto insideDoomed = [&](TComponent* c) {
        for (TComponent* p = c->GetParentComponent(); p; p = p->GetParentComponent())
            if (std::find(doomed.begin(), doomed.end(), p) != doomed.end()) return true;
        return false;
    };
    std::vector<TComponent*> top;
    for (TComponent* c : doomed)
        if (!insideDoomed(c)) top.push_back(c);
    d->SelectComponent(d->GetRoot());
    for (TComponent* c : top)
        d->DeleteComponent(c);
}

void TMainWindow::EditSelectAllClick(TObject*) {
    ide::TFormDesigner* d = FHost->Session().Designer();
    ide::TDesignerSelectionList all;
    for (TComponent* c : d->GetRoot()->ComponentList())
        all.Add(c);
    d->SetSelections(all);
}

void TMainWindow::InstallPackagesClick(TObject*) {
    RunDialog<TPackagesDialog>(std::function<void(TPackagesDialog*)>{}, nullptr, FHost);
}

void TMainWindow::EnvironmentOptionsClick(TObject*) {
    RunDialog<TEnvironmentOptionsDialog>(std::function<void(TEnvironmentOptionsDialog*)>([](auto* dlg) {
                                             SetSystemDirectory(Trim(dlg->SystemDirEdit->Text()));
                                             std::vector<std::string> folders;
                                             std::string path = dlg->SearchPathEdit->Text();
                                             size_t start = 0;
                                             while (start <= path.size()) {
                                                 size_t colon = path.find(':', start);
                                                 std::string f = Trim(path.substr(start, colon - start));
                                                 if (!f.empty()) folders.push_back(f);
                                                 if (colon == std::string::npos) break;
                                                 start = colon + 1;
                                             }
                                             ide::PackageManager().SetSearchPath(folders);
                                         }),
                                         nullptr);
}

void TMainWindow::HelpContentsClick(TObject*) {
    Application()->HelpCommand(HELP_CONTENTS, 0);
}

void TMainWindow::HelpAboutClick(TObject*) {
    RunDialog<TAboutBox>(std::function<void(TAboutBox*)>{}, nullptr);
}

// ---- TAboutBox
// ----------------------------------------------------------------------------------------------
TAboutBox::TAboutBox(TComponent* AOwner) : TForm(AOwner) {
    SetName("AboutBox");
    SetCaption("About jexdesign");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(360);
    SetClientHeight(130);
    ProductLabel = PlaceLabel(this, "ProductLabel", "jexdesign form designer", 16, 16, 328);
    VersionLabel = PlaceLabel(this, "VersionLabel", std::string("Version ") + JEXDESIGN_VERSION, 16, 40, 328);
    SystemDirLabel =
        PlaceLabel(this, "SystemDirLabel", "System directory: " + GetSystemDirectory(), 16, 64, 328);
    OKButton = PlaceButton(this, "OKButton", "OK", 142, 96);
    OKButton->SetModalResult(mrOk);
    OKButton->SetDefault(true);
    OKButton->SetCancel(true);
}

// ---- TPackagesDialog
// ----------------------------------------------------------------------------------------
TPackagesDialog::TPackagesDialog(TComponent* AOwner, THost* Host) : TForm(AOwner), FHost(Host) {
    SetName("PackagesDialog");
    SetCaption("Install Packages");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(440);
    SetClientHeight(260);
    PackagesLabel = PlaceLabel(this, "PackagesLabel", "Design &packages:", 8, 8, 200);
    PackageList = new TListBox(this);
    PackageList->SetName("PackageList");
    PackageList->SetParent(this);
    PackageList->SetBounds(8, 28, 340, 190);
    PackageList->OnClick = TNotifyEvent(this, &TPackagesDialog::ListClick);
    AddButton = PlaceButton(this, "AddButton", "&Add...", 357, 28);
    AddButton->OnClick = TNotifyEvent(this, &TPackagesDialog::AddClick);
    RemoveButton = PlaceButton(this, "RemoveButton", "&Remove", 357, 60);
    RemoveButton->OnClick = TNotifyEvent(this, &TPackagesDialog::RemoveClick);
    OKButton = PlaceButton(this, "OKButton", "OK", 357, 226);
    OKButton->SetModalResult(mrOk);
    OKButton->SetDefault(true);
    OKButton->SetCancel(true);
    UpdateList();
}

void TPackagesDialog::UpdateList() {
    TStrings* items = PackageList->Items();
    items->Clear();
    for (ide::TPackage* p : FHost->LoadedPackages()) {
        std::string line = p->Name();
        if (!p->Description().empty()) line += " - " + p->Description();
        items->Add(line);
    }
    RemoveButton->SetEnabled(false);
}

void TPackagesDialog::ListClick(TObject*) {
    RemoveButton->SetEnabled(PackageList->ItemIndex() >= 0);
}

void TPackagesDialog::AddClick(TObject*) {
    auto* dlg = new TOpenDialog(nullptr);
    std::unique_ptr<TOpenDialog, void (*)(TOpenDialog*)> guard(dlg, [](TOpenDialog* d) { d->Free(); });
    dlg->SetTitle("Add Design Package");
    dlg->SetFilter("Packages (lib*.so)|lib*.so|All files (*)|*");
    dlg->SetOptions({ofHideReadOnly, ofPathMustExist, ofFileMustExist, ofEnableSizing});
    if (!dlg->Execute()) return;
    try {
        FHost->InstallPackage(dlg->FileName());
    } catch (const Exception& e) {
        MessageDlg(e.Message(), mtError, {mbOK}, 0);
    }
    UpdateList();
}

void TPackagesDialog::RemoveClick(TObject*) {
    int index = PackageList->ItemIndex();
    std::vector<ide::TPackage*> packages = FHost->LoadedPackages();
    if (index < 0 || index >= static_cast<int>(packages.size())) return;
    ide::TPackage* p = packages[static_cast<size_t>(index)];
    if (MessageDlg("Remove the package " + p->Name() + "?", mtConfirmation, {mbYes, mbNo}, 0) != mrYes)
        return;
    try {
        FHost->RemovePackage(p);
    } catch (const Exception& e) {
        MessageDlg(e.Message(), mtError, {mbOK}, 0);
    }
    UpdateList();
}

// ---- TEnvironmentOptionsDialog ----------------------------------------------------------------------------
TEnvironmentOptionsDialog::TEnvironmentOptionsDialog(TComponent* AOwner) : TForm(AOwner) {
    SetName("EnvironmentOptionsDialog");
    SetCaption("Environment Options");
    SetBorderStyle(bsDialog);
    SetPosition(poScreenCenter);
    SetClientWidth(440);
    SetClientHeight(150);
    SystemDirLabel = PlaceLabel(this, "SystemDirLabel", "&System directory:", 8, 8, 300);
    SystemDirEdit = new TEdit(this);
    SystemDirEdit->SetName("SystemDirEdit");
    SystemDirEdit->SetParent(this);
    SystemDirEdit->SetBounds(8, 28, 340, 23);
    SystemDirEdit->SetText(GetSystemDirectory());
    BrowseButton = PlaceButton(this, "BrowseButton", "&Browse...", 357, 27);
    BrowseButton->OnClick = TNotifyEvent(this, &TEnvironmentOptionsDialog::BrowseClick);
    SearchPathLabel =
        PlaceLabel(this, "SearchPathLabel", "&Package search path (folders separated by ':'):", 8, 60, 340);
    SearchPathEdit = new TEdit(this);
    SearchPathEdit->SetName("SearchPathEdit");
    SearchPathEdit->SetParent(this);
    SearchPathEdit->SetBounds(8, 80, 424, 23);
    std::string path;
    for (const std::string& f : ide::PackageManager().SearchPath())
        path += (path.empty() ? "" : ":") + f;
    SearchPathEdit->SetText(path);
    OKButton = PlaceButton(this, "OKButton", "OK", 276, 116);
    OKButton->SetModalResult(mrOk);
    OKButton->SetDefault(true);
    CancelButton = PlaceButton(this, "CancelButton", "Cancel", 357, 116);
    CancelButton->SetModalResult(mrCancel);
    CancelButton->SetCancel(true);
}

void TEnvironmentOptionsDialog::BrowseClick(TObject*) {
    std::string dir = Trim(SystemDirEdit->Text());
    if (SelectDirectory("System Directory", "", dir)) SystemDirEdit->SetText(dir);
}

} // namespace host
