// The host's built-in platform packages: their unit lists, and the unit bodies that make each layer's
// component classes streamable by name, as the platform's own units did when they started.
#include "builtins.h"

#include <algorithm>

#include "ide/package.h"
#include "rtl/classes.h"
#include "rtl/streaming.h"
#include "vcl/buttons.h"
#include "vcl/comctrls.h"
#include "vcl/dialogs.h"
#include "vcl/extctrls.h"
#include "vcl/extctrls_more.h"
#include "vcl/forms.h"
#include "vcl/grids.h"
#include "vcl/imglist.h"
#include "vcl/menus.h"
#include "vcl/outline.h"
#include "vcl/spin.h"
#include "vcl/stdctrls.h"
#ifdef JEXDESIGN_HAVE_DB
#include "db/db.h"
#include "db/dbtables.h"
#endif

namespace host {

namespace {

using ClassList = std::vector<rtl::TClass>;

ClassList FormsClasses() {
    return {vcl::TForm::StaticClass(), vcl::TFrame::StaticClass(), vcl::TScrollBox::StaticClass()};
}
ClassList ControlsClasses() {
    return {vcl::TImageList::StaticClass()};
}
ClassList ComCtrlsClasses() {
    using namespace vcl;
    return {TTabControl::StaticClass(), TPageControl::StaticClass(),    TTabSheet::StaticClass(),
            TRichEdit::StaticClass(),   TTrackBar::StaticClass(),       TProgressBar::StaticClass(),
            TUpDown::StaticClass(),     TDateTimePicker::StaticClass(), TMonthCalendar::StaticClass(),
            TTreeView::StaticClass(),   TListView::StaticClass(),       TStatusBar::StaticClass(),
            TToolBar::StaticClass(),    TToolButton::StaticClass()};
}
ClassList StdCtrlsClasses() {
    using namespace vcl;
    return {TLabel::StaticClass(),     TEdit::StaticClass(),     TMemo::StaticClass(),
            TButton::StaticClass(),    TCheckBox::StaticClass(), TRadioButton::StaticClass(),
            TListBox::StaticClass(),   TComboBox::StaticClass(), TGroupBox::StaticClass(),
            TStaticText::StaticClass()};
}
ClassList ExtCtrlsClasses() {
    using namespace vcl;
    return {TPanel::StaticClass(),      TBevel::StaticClass(),    TImage::StaticClass(),
            TRadioGroup::StaticClass(), TNotebook::StaticClass(), TPage::StaticClass(),
            TSplitter::StaticClass(),   TTimer::StaticClass(),    TPaintBox::StaticClass()};
}
ClassList ButtonsClasses() {
    return {vcl::TSpeedButton::StaticClass(), vcl::TBitBtn::StaticClass()};
}
ClassList GridsClasses() {
    return {vcl::TDrawGrid::StaticClass(), vcl::TStringGrid::StaticClass()};
}
ClassList MenusClasses() {
    return {vcl::TMainMenu::StaticClass(), vcl::TPopupMenu::StaticClass(), vcl::TMenuItem::StaticClass()};
}
ClassList DialogsClasses() {
    using namespace vcl;
    return {TOpenDialog::StaticClass(), TSaveDialog::StaticClass(), TColorDialog::StaticClass(),
            TFontDialog::StaticClass(), TFolderDialog::StaticClass()};
}
ClassList SpinClasses() {
    return {vcl::TSpinEdit::StaticClass()};
}
ClassList OutlineClasses() {
    return {vcl::TOutline::StaticClass()};
}
#ifdef JEXDESIGN_HAVE_DB
ClassList DBClasses() {
    using namespace db;
    return {TDataSource::StaticClass(),    TStringField::StaticClass(),   TWideStringField::StaticClass(),
            TIntegerField::StaticClass(),  TSmallintField::StaticClass(), TWordField::StaticClass(),
            TAutoIncField::StaticClass(),  TLargeintField::StaticClass(), TFloatField::StaticClass(),
            TCurrencyField::StaticClass(), TBCDField::StaticClass(),      TBooleanField::StaticClass(),
            TDateTimeField::StaticClass(), TDateField::StaticClass(),     TTimeField::StaticClass(),
            TBlobField::StaticClass(),     TMemoField::StaticClass(),     TGraphicField::StaticClass()};
}
ClassList DBTablesClasses() {
    using namespace db;
    return {TTable::StaticClass(), TQuery::StaticClass(), TDatabase::StaticClass(), TSession::StaticClass()};
}
#endif

// A unit that registers its classes for streaming at start and withdraws them at stop.
template <ClassList (*Classes)()> void RegisterUnitClasses() {
    rtl::RegisterClasses(Classes());
}
template <ClassList (*Classes)()> void UnregisterUnitClasses() {
    rtl::UnRegisterClasses(Classes());
}
template <ClassList (*Classes)()> ide::TBuiltinUnit ClassUnit(const char* name) {
    return {name, &RegisterUnitClasses<Classes>, &UnregisterUnitClasses<Classes>};
}

// Controls also lets form files name cursors ("crHandPoint"), as the platform's unit does when it starts.
void ControlsStart() {
    RegisterUnitClasses<ControlsClasses>();
    rtl::RegisterIntegerConsts(
        vcl::TypeInfo_TCursor(),
        [](std::string_view ident, int64_t& value) {
            vcl::TCursor c;
            if (!vcl::IdentToCursor(std::string(ident), c)) return false;
            value = c;
            return true;
        },
        [](int64_t value, std::string& ident) {
            return vcl::CursorToIdent(static_cast<vcl::TCursor>(value), ident);
        });
}
void ControlsStop() {
    rtl::UnRegisterIntegerConsts(vcl::TypeInfo_TCursor());
    UnregisterUnitClasses<ControlsClasses>();
}

ide::TBuiltinUnit Plain(const char* name) {
    return {name, nullptr, nullptr};
}

struct TBuiltinTable {
    std::string Name;
    std::vector<ide::TBuiltinUnit> Units;
};

const std::vector<TBuiltinTable>& Tables() {
    static const std::vector<TBuiltinTable> tables = [] {
        std::vector<TBuiltinTable> t;
        auto plain = [](std::initializer_list<const char*> names) {
            std::vector<ide::TBuiltinUnit> units;
            for (const char* n : names)
                units.push_back(Plain(n));
            return units;
        };
        t.push_back(
            {"rtl60", plain({"System",   "SysInit",   "SysUtils", "SysConst",  "Classes",  "TypInfo",
                             "Types",    "Math",      "Variants", "VarUtils",  "StrUtils", "DateUtils",
                             "Contnrs",  "IniFiles",  "Registry", "RTLConsts", "Masks",    "ConvUtils",
                             "SyncObjs", "HelpIntfs", "Windows",  "Messages",  "ActiveX",  "ComObj",
                             "ShellAPI", "ShlObj",    "MMSystem", "WinInet",   "CommDlg",  "ZLib"})});
        std::vector<ide::TBuiltinUnit> vcl = {
            Plain("Graphics"),
            {"Controls", &ControlsStart, &ControlsStop},
            ClassUnit<FormsClasses>("Forms"),
            ClassUnit<StdCtrlsClasses>("StdCtrls"),
            ClassUnit<ExtCtrlsClasses>("ExtCtrls"),
            ClassUnit<ButtonsClasses>("Buttons"),
            ClassUnit<GridsClasses>("Grids"),
            ClassUnit<MenusClasses>("Menus"),
            ClassUnit<DialogsClasses>("Dialogs"),
        };
        vcl.push_back(ClassUnit<ComCtrlsClasses>("ComCtrls"));
        for (auto& u : plain({"ImgList", "CommCtrl", "ToolWin", "ActnList", "StdActns", "Clipbrd", "Printers",
                              "Consts", "ComStrs", "ExtDlgs", "AppEvnts", "Themes", "FlatSB", "MultiMon"}))
            vcl.push_back(std::move(u));
        t.push_back({"vcl60", std::move(vcl)});
        std::vector<ide::TBuiltinUnit> vclx = {ClassUnit<OutlineClasses>("Outline")};
        for (auto& u : plain({"Tabs", "CheckLst", "FileCtrl", "Mask", "Calendar", "Grids2"}))
            vclx.push_back(std::move(u));
        t.push_back({"vclx60", std::move(vclx)});
        std::vector<ide::TBuiltinUnit> smp = {ClassUnit<SpinClasses>("Spin")};
        for (auto& u : plain({"Gauges", "ColorGrd", "DirOutln"}))
            smp.push_back(std::move(u));
        t.push_back({"vclsmp60", std::move(smp)});
#ifdef JEXDESIGN_HAVE_DB
        std::vector<ide::TBuiltinUnit> dbrtl = {ClassUnit<DBClasses>("DB")};
        std::vector<ide::TBuiltinUnit> bde = {ClassUnit<DBTablesClasses>("DBTables")};
#else
        std::vector<ide::TBuiltinUnit> dbrtl = {Plain("DB")};
        std::vector<ide::TBuiltinUnit> bde = {Plain("DBTables")};
#endif
        for (auto& u : plain({"DBCommon", "DBConsts", "SqlTimSt", "FMTBcd", "DBClient", "Provider"}))
            dbrtl.push_back(std::move(u));
        t.push_back({"dbrtl60", std::move(dbrtl)});
        t.push_back(
            {"vcldb60", plain({"DBCtrls", "DBGrids", "DBCGrids", "DBLookup", "DBActns", "DBOleCtl"})});
        for (auto& u : plain({"BDE", "BDEConst", "DBLogDlg", "DBPWDlg", "DBExcept", "SMIntf"}))
            bde.push_back(std::move(u));
        t.push_back({"bdertl60", std::move(bde)});
        t.push_back({"designide60", plain({"DesignIntf",
                                           "DesignEditors",
                                           "DesignWindows",
                                           "DesignConst",
                                           "DesignMenus",
                                           "VCLEditors",
                                           "PropertyCategories",
                                           "ComponentDesigner",
                                           "ToolsAPI",
                                           "ToolIntf",
                                           "ExptIntf",
                                           "EditIntf",
                                           "VirtIntf",
                                           "FileIntf",
                                           "IStreams",
                                           "ColnEdit",
                                           "LibHelp",
                                           "TreeIntf",
                                           "Proxies",
                                           "DsnConst",
                                           "FiltEdit",
                                           "StrEdit",
                                           "PicEdit",
                                           "ImgEdit"})});
        t.push_back({"dclstd60", plain({"StdReg", "MaskProp", "MaskText", "ActnEdit", "MenuDsgn"})});
        t.push_back({"dcldb60", plain({"DBReg", "DSDesign", "DsnDBCst", "FldLinks", "DBColnEd", "DSAdd",
                                       "DSDefine", "DBEdit"})});
        t.push_back({"dclbde60", plain({"BDEReg", "SQLEdit", "DBIdxEdt", "DBTabEd", "QBE", "DBExpl"})});
        return t;
    }();
    return tables;
}

std::vector<std::string>& Aliases() {
    static std::vector<std::string> aliases;
    return aliases;
}

} // namespace

const std::vector<TBuiltinPackageDef>& BuiltinPackageDefs() {
    static const std::vector<TBuiltinPackageDef> defs = [] {
        std::vector<TBuiltinPackageDef> d;
        for (const auto& t : Tables()) {
            TBuiltinPackageDef def{t.Name, {}};
            for (const auto& u : t.Units)
                def.Units.push_back(u.Name);
            d.push_back(std::move(def));
        }
        return d;
    }();
    return defs;
}

void InstallBuiltinPackages() {
    for (const auto& t : Tables())
        ide::RegisterBuiltinPackage(t.Name, t.Units);
    for (const auto& t : Tables())
        for (const auto& u : t.Units)
            ide::StartBuiltinUnit(t.Name, u.Name);
}

void UninstallBuiltinPackages() {
    const auto& tables = Tables();
    for (auto t = tables.rbegin(); t != tables.rend(); ++t) {
        if (!ide::IsBuiltinPackage(t->Name)) continue;
        for (auto u = t->Units.rbegin(); u != t->Units.rend(); ++u)
            if (ide::BuiltinUnitStartCount(t->Name, u->Name) > 0) ide::StopBuiltinUnit(t->Name, u->Name);
        ide::UnregisterBuiltinPackage(t->Name);
    }
}

void InstallPackageAlias(const std::string& alias, const std::string& platformPackage) {
    auto it = std::find_if(Tables().begin(), Tables().end(),
                           [&](const TBuiltinTable& t) { return rtl::SameText(t.Name, platformPackage); });
    if (it == Tables().end())
        throw rtl::EPackageError("Unknown platform package '" + platformPackage + "' for the alias '" +
                                 alias + "'");
    if (ide::IsBuiltinPackage(alias))
        throw rtl::EPackageError("'" + alias + "' is a platform package already");
    // The platform units run already (the host started them), so the alias's units need no bodies: a
    // package forwarding to them only counts its own starts and stops.
    std::vector<ide::TBuiltinUnit> units;
    for (const auto& u : it->Units)
        units.push_back(Plain(u.Name.c_str()));
    ide::RegisterBuiltinPackage(alias, std::move(units));
    Aliases().push_back(alias);
}

void UninstallPackageAliases() {
    for (const auto& a : Aliases())
        ide::UnregisterBuiltinPackage(a);
    Aliases().clear();
}

} // namespace host
