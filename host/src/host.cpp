// The design host's start-up and shutdown, its standard palette, and installing and removing packages.
#include "host.h"

#include <algorithm>
#include <filesystem>
#include <typeinfo>

#include "builtins.h"
#include "ide/experts.h"
#include "ide/palette.h"
#include "mainwindow.h"
#include "rtl/resources.h"
#include "vcl/buttons.h"
#include "vcl/comctrls.h"
#include "vcl/dialogs.h"
#include "vcl/extctrls.h"
#include "vcl/extctrls_more.h"
#include "vcl/grids.h"
#include "vcl/imglist.h"
#include "vcl/outline.h"
#include "vcl/spin.h"
#include "vcl/stdctrls.h"
#ifdef JEXDESIGN_HAVE_DB
#include "db/db.h"
#include "db/dbtables.h"
#endif

JEX_MODULE("jexdesign")

namespace host {

using namespace rtl;

namespace {
std::string CanonicalPath(const std::string& path) {
    std::error_code ec;
    auto p = std::filesystem::weakly_canonical(path, ec);
    return ec ? path : p.string();
}

// The shared library (or executable) whose code made the object: where its type information lives.
std::string ModuleOfObject(const TObject* obj) {
    return ModuleFileNameOf(typeid(*obj).name());
}
} // namespace

THost::THost(THostOptions options, std::function<void(const std::string&)> note)
    : FOptions(std::move(options)), FNoteFn(std::move(note)) {}

THost::~THost() {
    Shutdown();
}

void THost::Note(const std::string& text) {
    if (std::find(FNotes.begin(), FNotes.end(), text) != FNotes.end()) return;
    FNotes.push_back(text);
    if (FNoteFn) FNoteFn(text);
}

void THost::Start() {
    if (FStarted) return;
    FStarted = true;
    SetMainInstance(&jexThisModule());
    if (!FOptions.SystemDir.empty()) SetSystemDirectory(ExpandFileName(FOptions.SystemDir));

    InstallBuiltinPackages();
    FBuiltinsInstalled = true;
    for (const auto& [alias, platform] : FOptions.PackageAliases)
        InstallPackageAlias(alias, platform);

    vcl::TApplication* app = vcl::Application();
    app->SetTitle("jexdesign");
    app->SetExeName(ide::TPackageManager::HostDirectory() + "/jexdesign");

    RegisterStandardPalette();
    FMainWindow = vcl::NewForm<TMainWindow>(nullptr, this);
    app->SetMainForm(FMainWindow);

    ide::TToolServicesConfig tools;
    tools.ProjectName = [this] { return FSession.ProjectName(); };
    tools.MainMenu = FMainWindow->MainMenu;
    tools.ReportException = [](const std::string& message) {
        vcl::Application()->ShowException(rtl::Exception(message));
    };
    tools.CurrentFile = [this] { return FSession.FileName(); };
    ide::ConfigureToolServices(std::move(tools));

    if (FOptions.LoadStandardPackages) LoadStandardPackages();
    try {
        for (const std::string& p : FOptions.Packages)
            ide::PackageManager().LoadPackage(p);
    } catch (...) {
        FMainWindow->RefreshPalette();
        throw;
    }
    FMainWindow->RefreshPalette();
}

// The platform's own components on the pages a person expects before any package adds its own.
void THost::RegisterStandardPalette() {
    using namespace vcl;
    ide::RegisterComponents("Standard",
                            {TMainMenu::StaticClass(), TPopupMenu::StaticClass(), TLabel::StaticClass(),
                             TEdit::StaticClass(), TMemo::StaticClass(), TButton::StaticClass(),
                             TCheckBox::StaticClass(), TRadioButton::StaticClass(), TListBox::StaticClass(),
                             TComboBox::StaticClass(), TGroupBox::StaticClass(), TRadioGroup::StaticClass(),
                             TPanel::StaticClass()});
    ide::RegisterComponents(
        "Additional", {TBitBtn::StaticClass(), TSpeedButton::StaticClass(), TStringGrid::StaticClass(),
                       TDrawGrid::StaticClass(), TImage::StaticClass(), TBevel::StaticClass(),
                       TScrollBox::StaticClass(), TStaticText::StaticClass(), TSplitter::StaticClass()});
    ide::RegisterComponents(
        "Win32", {TTabControl::StaticClass(), TPageControl::StaticClass(), TImageList::StaticClass(),
                  TRichEdit::StaticClass(), TTrackBar::StaticClass(), TProgressBar::StaticClass(),
                  TUpDown::StaticClass(), TDateTimePicker::StaticClass(), TMonthCalendar::StaticClass(),
                  TTreeView::StaticClass(), TListView::StaticClass(), TStatusBar::StaticClass(),
                  TToolBar::StaticClass()});
    ide::RegisterComponents("System", {TTimer::StaticClass(), TPaintBox::StaticClass()});
    // Made by their containers' editors, never dropped on their own.
    ide::RegisterNoIcon({TTabSheet::StaticClass(), TToolButton::StaticClass()});
    ide::RegisterComponents("Win 3.1", {TNotebook::StaticClass(), TOutline::StaticClass()});
    ide::RegisterComponents("Samples", {TSpinEdit::StaticClass()});
    ide::RegisterComponents("Dialogs", {TOpenDialog::StaticClass(), TSaveDialog::StaticClass(),
                                        TFontDialog::StaticClass(), TColorDialog::StaticClass()});
#ifdef JEXDESIGN_HAVE_DB
    ide::RegisterComponents("Data Access", {db::TDataSource::StaticClass()});
    ide::RegisterComponents("BDE", {db::TTable::StaticClass(), db::TQuery::StaticClass(),
                                    db::TDatabase::StaticClass(), db::TSession::StaticClass()});
#endif
}

void THost::LoadStandardPackages() {
    std::string dir = FOptions.StandardPackageDir.empty() ? ide::TPackageManager::HostDirectory()
                                                          : FOptions.StandardPackageDir;
    dir = ExcludeTrailingPathDelimiter(dir);
    for (const char* file : {SStandardRuntimePackage, SStandardDesignPackage}) {
        std::string path = dir + "/" + file;
        if (!FileExists(path)) {
            Note(std::string("standard package ") + file + " not found in " + dir +
                 "; continuing without it");
            continue;
        }
        try {
            ide::PackageManager().LoadPackage(path);
        } catch (const Exception& e) {
            Note(std::string("standard package ") + file + " did not load: " + e.Message());
        }
    }
}

ide::TPackage* THost::InstallPackage(const std::string& fileName) {
    try {
        ide::TPackage* p = ide::PackageManager().LoadPackage(fileName);
        FMainWindow->RefreshPalette();
        return p;
    } catch (...) {
        FMainWindow->RefreshPalette();
        throw;
    }
}

void THost::RemovePackage(ide::TPackage* package) {
    if (!package || package->IsBuiltin()) throw EPackageError("Only loaded packages can be removed");
    if (package->DependentCount() > 0) {
        std::string users;
        for (ide::TPackage* p : ide::PackageManager().Packages())
            for (ide::TPackage* r : p->Requires())
                if (r == package) users += (users.empty() ? "" : ", ") + p->Name();
        throw EPackageError("The package " + package->Name() + " is required by " + users);
    }
    if (package->LoadCount() == 0)
        throw EPackageError("The package " + package->Name() + " was not loaded on its own");
    // The package and the requirements that would go with it must not have made anything on the form:
    // their code leaves with them.
    std::vector<std::string> files;
    std::function<void(ide::TPackage*)> collect = [&](ide::TPackage* p) {
        if (p->IsBuiltin()) return;
        files.push_back(CanonicalPath(p->FileName()));
        for (ide::TPackage* r : p->Requires())
            if (r->LoadCount() == 0 && r->DependentCount() <= 1) collect(r);
    };
    collect(package);
    if (FSession.HasForm()) {
        TComponent* root = FSession.Root();
        std::vector<TComponent*> all{root};
        for (size_t i = 0; i < all.size(); ++i)
            for (TComponent* c : all[i]->ComponentList())
                all.push_back(c);
        for (TComponent* c : all) {
            std::string module = CanonicalPath(ModuleOfObject(c));
            if (std::find(files.begin(), files.end(), module) != files.end())
                throw EPackageError("The package " + package->Name() + " cannot be removed while " +
                                    (c->Name().empty() ? c->ClassName() : c->Name()) +
                                    " on the form uses its classes");
        }
    }
    try {
        ide::PackageManager().UnloadPackage(package);
    } catch (...) {
        FMainWindow->RefreshPalette();
        throw;
    }
    FMainWindow->RefreshPalette();
}

std::vector<ide::TPackage*> THost::LoadedPackages() const {
    std::vector<ide::TPackage*> result;
    for (ide::TPackage* p : ide::PackageManager().Packages())
        if (!p->IsBuiltin()) result.push_back(p);
    return result;
}

void THost::Shutdown() {
    if (!FStarted) return;
    FStarted = false;
    // Components and windows made by package code go before the code does.
    FSession.CloseForm();
    ide::SetDesignClipboardText({});
    vcl::TScreen* screen = vcl::Screen();
    for (bool found = true; found;) {
        found = false;
        for (int i = 0; i < screen->FormCount(); ++i) {
            vcl::TCustomForm* f = screen->Forms(i);
            if (f == FMainWindow) continue;
            f->Free();
            found = true;
            break;
        }
    }
    vcl::Application()->ProcessMessages();
    try {
        ide::PackageManager().UnloadAll();
    } catch (const Exception& e) {
        Note("unloading the packages: " + e.Message());
    }
    ide::ConfigureToolServices({});
    if (FMainWindow) {
        vcl::Application()->SetMainForm(nullptr);
        FMainWindow->Free();
        FMainWindow = nullptr;
    }
    UninstallPackageAliases();
    if (FBuiltinsInstalled) {
        // The host's standard palette goes with the classes the built-in units registered.
        ide::UnregisterModule(static_cast<ide::TModuleHandle>(nullptr));
        UninstallBuiltinPackages();
        FBuiltinsInstalled = false;
    }
}

} // namespace host
