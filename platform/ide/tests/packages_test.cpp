// The package manager with real shared libraries: package information, required and built-in packages,
// Register procedures, withdrawal on unload, reload, every way a load fails, and the library unmapped.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "ide/categories.h"
#include "ide/compedit.h"
#include "ide/designer.h"
#include "ide/experts.h"
#include "ide/inspector.h"
#include "ide/packages.h"
#include "ide/palette.h"
#include "vcl/menus.h"

using namespace ide;
namespace fs = std::filesystem;

namespace {

bool Mapped(const std::string& fileName) {
    std::ifstream maps("/proc/self/maps");
    std::string line;
    while (std::getline(maps, line))
        if (line.find("/" + fileName) != std::string::npos) return true;
    return false;
}

int ControlsStarts = 0, ControlsStops = 0;

// A host: built-in platform package, a main menu with a Help menu, the package manager.
class Packages : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterBuiltinPackage("jexbuiltin", {{"Controls", [] { ++ControlsStarts; }, [] { ++ControlsStops; }},
                                              {"Forms", nullptr, nullptr}});
        ControlsStarts = ControlsStops = 0;
        Host = new rtl::TComponent(nullptr);
        Menu = new vcl::TMainMenu(Host);
        auto* help = new vcl::TMenuItem(Host);
        help->SetName("HelpMenu");
        help->SetCaption("&Help");
        Menu->Items()->Add(help);
        for (const char* n : {"HelpContentsItem", "HelpAboutItem", "HelpLastItem"}) {
            auto* item = new vcl::TMenuItem(Host);
            item->SetName(n);
            help->Add(item);
        }
        TToolServicesConfig config;
        config.MainMenu = Menu;
        ConfigureToolServices(config);
    }
    void TearDown() override {
        PackageManager().UnloadAll();
        ConfigureToolServices({});
        Host->Free();
        UnregisterBuiltinPackage("jexbuiltin");
    }
    vcl::TMenuItem* Help() { return Menu->FindByName("HelpMenu"); }
    rtl::TComponent* Host = nullptr;
    vcl::TMainMenu* Menu = nullptr;
};

int CountPages(const std::string& page) {
    auto pages = PalettePages();
    return static_cast<int>(std::count(pages.begin(), pages.end(), page));
}

int CountExperts(const std::string& id) {
    int n = 0;
    for (TIExpert* e : LibraryExperts())
        n += e->GetIDString() == id;
    return n;
}

TEST_F(Packages, LoadRegistersEverythingOnce) {
    TPackage* p = PackageManager().LoadPackage("dcljextest.bpl");
    EXPECT_EQ(p->Name(), "dcljextest");
    EXPECT_EQ(p->Description(), "Test lamps (design)");
    EXPECT_TRUE(p->Options().DesignOnly);
    EXPECT_EQ(p->Options().Defines, "LAMPTEST");
    EXPECT_EQ(p->Info().Flags & pfModuleTypeMask, pfPackageModule);
    ASSERT_EQ(p->Info().Contains.size(), 3u);
    EXPECT_EQ(p->Info().Contains[0].Flags, ufMainUnit | ufPackageUnit);
    EXPECT_EQ(p->RegisteredUnits(), std::vector<std::string>{"lampreg"});
    EXPECT_EQ(p->UnitCount(), 4);
    TPackage* rt = PackageManager().FindPackage("JEXTESTRT.bpl");
    ASSERT_NE(rt, nullptr);
    EXPECT_EQ(rt->DependentCount(), 1);
    EXPECT_EQ(rt->LoadCount(), 0);
    EXPECT_EQ(PackageManager().Packages(), (std::vector<TPackage*>{rt, p})) << "requirements first";
    EXPECT_EQ(ControlsStarts, 1) << "both packages forward to the built-in unit; it starts once";
    auto editStarts = reinterpret_cast<int (*)()>(p->FindSymbol("dcljextest_EditStarts"));
    ASSERT_NE(editStarts, nullptr);
    EXPECT_EQ(editStarts(), 1) << "a unit reached twice through the table starts once";
    EXPECT_EQ(p->FindSymbol("jextestrt_UnitStarts"), nullptr) << "only the package's own symbols";

    rtl::TClass lamp = rtl::GetClass("TTestLamp");
    ASSERT_NE(lamp, nullptr);
    EXPECT_EQ(PaletteClasses("Test Lamps"), std::vector<rtl::TClass>{lamp});
    EXPECT_EQ(GetEditorClass(lamp->FindProperty("Brightness"), lamp)->ClassName(), "TBrightnessProperty");
    EXPECT_EQ(GetComponentEditorClass(lamp)->ClassName(), "TLampEditor");
    EXPECT_TRUE(IsPropertyInCategory("Lamp", lamp, lamp->FindProperty("LampColor")));
    ASSERT_EQ(CountExperts("JexTest.LampBrowser"), 1);

    // The expert's menu item stands right below About and runs the expert.
    vcl::TMenuItem* item = Menu->FindByName("lampBrowseMenuItem");
    ASSERT_NE(item, nullptr);
    EXPECT_EQ(item->Parent(), Help());
    EXPECT_EQ(item->MenuIndex(), Help()->FindByName("HelpAboutItem")->MenuIndex() + 1);
    EXPECT_EQ(item->Caption(), "Browse Lamps...");
    auto expertRuns = reinterpret_cast<int (*)()>(rt->FindSymbol("jextestrt_ExpertRuns"));
    ASSERT_NE(expertRuns, nullptr);
    item->Click();
    EXPECT_EQ(expertRuns(), 1);
    EXPECT_TRUE(Mapped("libdcljextest.so"));
}

TEST_F(Packages, UnloadWithdrawsAndUnmapsAndReloadRegistersOnceAgain) {
    int editorsBefore = PropertyEditorRegistrationCount();
    int compEditorsBefore = ComponentEditorRegistrationCount();
    int categoriesBefore = CategoryRegistrationCount();
    for (int round = 0; round < 2; ++round) {
        TPackage* p = PackageManager().LoadPackage("dcljextest");
        TPackage* rt = PackageManager().FindPackage("jextestrt");
        ASSERT_NE(rt, nullptr);
        auto starts = reinterpret_cast<int (*)()>(rt->FindSymbol("jextestrt_UnitStarts"));
        EXPECT_EQ(starts(), 1) << "a fresh mapping starts from scratch (round " << round << ")";
        EXPECT_EQ(CountPages("Test Lamps"), 1);
        EXPECT_EQ(PaletteClasses("Test Lamps").size(), 1u);
        EXPECT_EQ(rtl::RegisteredClassCount("TTestLamp"), 1);
        EXPECT_EQ(CountExperts("JexTest.LampBrowser"), 1);
        EXPECT_EQ(PropertyEditorRegistrationCount(), editorsBefore + 1);
        EXPECT_EQ(ComponentEditorRegistrationCount(), compEditorsBefore + 1);
        EXPECT_EQ(CategoryRegistrationCount(), categoriesBefore + 2);
        EXPECT_EQ(InsertedMenuItemCount(), 1);
        EXPECT_EQ(Help()->Count(), 4);

        PackageManager().UnloadPackage(p);
        EXPECT_TRUE(PackageManager().Packages().empty()) << "the required package went with it";
        EXPECT_EQ(CountPages("Test Lamps"), 0);
        EXPECT_EQ(rtl::GetClass("TTestLamp"), nullptr);
        EXPECT_EQ(CountExperts("JexTest.LampBrowser"), 0);
        EXPECT_EQ(PropertyEditorRegistrationCount(), editorsBefore);
        EXPECT_EQ(ComponentEditorRegistrationCount(), compEditorsBefore);
        EXPECT_EQ(CategoryRegistrationCount(), categoriesBefore);
        EXPECT_EQ(Menu->FindByName("lampBrowseMenuItem"), nullptr);
        EXPECT_EQ(InsertedMenuItemCount(), 0);
        EXPECT_EQ(Help()->Count(), 3);
        EXPECT_EQ(BuiltinUnitStartCount("jexbuiltin", "Controls"), 0);
        EXPECT_FALSE(Mapped("libdcljextest.so"));
        EXPECT_FALSE(Mapped("libjextestrt.so"));
    }
    EXPECT_EQ(ControlsStarts, 2);
    EXPECT_EQ(ControlsStops, 2);
}

TEST_F(Packages, LoadCountsAndRequiredPackagesStay) {
    TPackage* rt = PackageManager().LoadPackage("jextestrt");
    TPackage* p = PackageManager().LoadPackage("dcljextest");
    EXPECT_EQ(PackageManager().LoadPackage("dcljextest"), p);
    EXPECT_EQ(p->LoadCount(), 2);
    PackageManager().UnloadPackage(p);
    EXPECT_TRUE(Mapped("libdcljextest.so"));
    PackageManager().UnloadPackage(p);
    EXPECT_FALSE(Mapped("libdcljextest.so"));
    EXPECT_EQ(PackageManager().Packages(), std::vector<TPackage*>{rt}) << "loaded on its own, it stays";
    EXPECT_TRUE(Mapped("libjextestrt.so"));
    PackageManager().UnloadPackage(rt);
    EXPECT_FALSE(Mapped("libjextestrt.so"));
    EXPECT_THROW(PackageManager().UnloadPackage(rt), rtl::EPackageError);
}

TEST_F(Packages, DesigningWithAPackagesClasses) {
    PackageManager().LoadPackage("dcljextest");
    rtl::TClass lamp = rtl::GetClass("TTestLamp");
    ASSERT_NE(lamp, nullptr);
    auto* form = new rtl::TComponent(nullptr);
    form->SetName("Form1");
    auto designer = std::make_unique<TFormDesigner>(form, true);
    TInspectorModel inspector(designer.get());
    rtl::TComponent* c = designer->CreateComponent(lamp, nullptr, 0, 0, 0, 0);
    EXPECT_EQ(c->Name(), "TestLamp1");
    designer->SelectComponent(c);
    int row = inspector.FindRow("Brightness");
    ASSERT_GE(row, 0);
    EXPECT_EQ(inspector.Row(row).EditorClassName, "TBrightnessProperty");
    EXPECT_EQ(inspector.GetValues(row), (std::vector<std::string>{"0", "50", "100"}));
    auto editor = GetComponentEditor(c, designer.get());
    ASSERT_EQ(editor->GetVerbCount(), 2);
    EXPECT_EQ(editor->GetVerb(0), "&Switch On");
    editor->ExecuteVerb(0);
    EXPECT_EQ(inspector.Value("Brightness"), "100");
    editor.reset();
    // The host closes what uses the package's classes before unloading it.
    designer.reset();
    PackageManager().UnloadAll();
    EXPECT_EQ(inspector.RowCount(), 0);
    EXPECT_FALSE(Mapped("libdcljextest.so"));
}

struct TFailCase {
    const char* Package;
    TPackageLoadFailure Failure;
    const char* InMessage;
};

TEST_F(Packages, FailedLoadsSayWhyAndLeaveTheHostAsItWas) {
    TFailCase cases[] = {
        {"nosuchpackage", plfFileNotFound, "libnosuchpackage.so"},
        {"jexnotapkg", plfNotAPackage, "no package information"},
        {"jexnoentry", plfNotAPackage, "PackageLoad"},
        {"jexbadinfo", plfBadPackageInfo, "Invalid package information"},
        {"dclmissingreq", plfRequiredPackageMissing, "jexnosuchpackage"},
        {"dclmissingsym", plfSymbolMissing, "jex_test_symbol_defined_nowhere"},
        {"dclfailstart", plfStartFailed, "the lamp unit cannot start"},
        {"dclfailreg", plfRegisterFailed, "the lamp registration failed"},
    };
    for (auto& c : cases) {
        try {
            PackageManager().LoadPackage(c.Package);
            ADD_FAILURE() << c.Package << " loaded";
        } catch (const EPackageLoadError& e) {
            EXPECT_EQ(e.Failure, c.Failure) << c.Package << ": " << e.Message();
            EXPECT_NE(e.Message().find(c.InMessage), std::string::npos) << c.Package << ": " << e.Message();
        }
        EXPECT_TRUE(PackageManager().Packages().empty()) << c.Package;
        EXPECT_FALSE(Mapped("lib" + std::string(c.Package) + ".so")) << c.Package;
        EXPECT_FALSE(Mapped("libjextestrt.so")) << c.Package;
        EXPECT_EQ(CountPages("Failing Page"), 0) << c.Package;
        EXPECT_EQ(rtl::GetClass("TTestLamp"), nullptr) << c.Package;
        EXPECT_EQ(BuiltinUnitStartCount("jexbuiltin", "Controls"), 0) << c.Package;
    }
}

TEST_F(Packages, AFailedLoadKeepsWhatWasLoadedBefore) {
    TPackage* rt = PackageManager().LoadPackage("jextestrt");
    EXPECT_THROW(PackageManager().LoadPackage("dclfailreg"), EPackageLoadError);
    EXPECT_EQ(PackageManager().Packages(), std::vector<TPackage*>{rt});
    EXPECT_EQ(rt->DependentCount(), 0);
    EXPECT_NE(rtl::GetClass("TTestLamp"), nullptr) << "the run-time package is still started";
}

TEST_F(Packages, MissingLibraryOfARequiredPackage) {
    // A copy of the design package without its run-time package beside it.
    fs::path dir = fs::temp_directory_path() / ("ide_pkg_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    fs::copy_file(PackageManager().FindPackageFile("dcljextest"), dir / "libdcljextest.so",
                  fs::copy_options::overwrite_existing);
    try {
        PackageManager().LoadPackage((dir / "libdcljextest.so").string());
        ADD_FAILURE() << "loaded";
    } catch (const EPackageLoadError& e) {
        EXPECT_EQ(e.Failure, plfRequiredPackageMissing) << e.Message();
        EXPECT_NE(e.Message().find("libjextestrt.so"), std::string::npos) << e.Message();
    }
    fs::remove_all(dir);
    EXPECT_TRUE(PackageManager().Packages().empty());
}

TEST_F(Packages, FindsFilesBesideTheHostAndOnTheSearchPath) {
    EXPECT_FALSE(PackageManager().FindPackageFile("jextestrt.bpl").empty());
    EXPECT_FALSE(PackageManager().FindPackageFile("JEXTESTRT").empty()) << "names ignore case";
    EXPECT_TRUE(PackageManager().FindPackageFile("nothere").empty());
    fs::path dir = fs::temp_directory_path() / ("ide_path_" + std::to_string(::getpid()));
    fs::create_directories(dir);
    std::ofstream(dir / "libelsewhere.so") << "x";
    EXPECT_TRUE(PackageManager().FindPackageFile("elsewhere").empty());
    PackageManager().SetSearchPath({dir.string()});
    EXPECT_EQ(PackageManager().FindPackageFile("elsewhere.bpl"), (dir / "libelsewhere.so").string());
    try {
        PackageManager().LoadPackage("elsewhere");
        ADD_FAILURE();
    } catch (const EPackageLoadError& e) {
        EXPECT_EQ(e.Failure, plfNotAPackage) << e.Message();
    }
    PackageManager().SetSearchPath({});
    fs::remove_all(dir);
}

// ---- Records and tables
// ---------------------------------------------------------------------------------------
TEST(PackageInfo, BuildAndParseRoundTrip) {
    TPackageInfo info;
    info.Flags = 0x4C000003;
    info.Requires = {{"jexc60.bpl"}, {"vcl60.bpl", 0x7F}};
    info.Contains = {{"dclJEXC", ufMainUnit | ufPackageUnit}, {"jexppts"}};
    auto bytes = BuildPackageInfo(info);
    ASSERT_GE(bytes.size(), 12u);
    EXPECT_EQ(bytes[0], 0x03);
    EXPECT_EQ(bytes[3], 0x4C);
    EXPECT_EQ(bytes[4], 2); // required count
    EXPECT_EQ(bytes[8], PackageNameHash("jexc60.bpl"));
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&bytes[9])), "jexc60.bpl");
    TPackageInfo back = ParsePackageInfo(bytes);
    EXPECT_EQ(back.Flags, 0x4C000003u);
    ASSERT_EQ(back.Requires.size(), 2u);
    EXPECT_EQ(back.Requires[1].Name, "vcl60.bpl");
    EXPECT_EQ(back.Requires[1].HashCode, 0x7F);
    ASSERT_EQ(back.Contains.size(), 2u);
    EXPECT_EQ(back.Contains[0].Flags, ufMainUnit | ufPackageUnit);
    EXPECT_EQ(back.Contains[1].Name, "jexppts");
    EXPECT_NE(PackageNameHash("abc"), PackageNameHash("abd"));
    EXPECT_EQ(PackageNameHash("abc"), PackageNameHash("ABC"));
}

TEST(PackageInfo, DamagedRecordsAreRefused) {
    TPackageInfo info;
    info.Flags = pfPackageModule;
    info.Requires = {{"a.bpl"}};
    info.Contains = {{"unit1"}};
    auto good = BuildPackageInfo(info);
    for (size_t cut = 0; cut < good.size(); ++cut) {
        std::vector<uint8_t> part(good.begin(), good.begin() + static_cast<long>(cut));
        EXPECT_THROW(ParsePackageInfo(part), rtl::EPackageError) << "cut at " << cut;
    }
    auto trailing = good;
    trailing.push_back(0);
    EXPECT_THROW(ParsePackageInfo(trailing), rtl::EPackageError);
    auto huge = good;
    huge[4] = 0xFF;
    huge[7] = 0x7F;
    try {
        ParsePackageInfo(huge);
        FAIL();
    } catch (const rtl::EPackageError& e) {
        EXPECT_EQ(e.Message(), "Invalid package information: the required package count is wrong");
    }
    info.Contains = {{""}};
    EXPECT_THROW(BuildPackageInfo(info), rtl::EPackageError);
}

TEST(PackageInfo, DescriptionAndOptions) {
    auto d = EncodePackageDescription("Jex Vantor 6 \xE2\x82\xAC \xF0\x9F\x92\xA1");
    EXPECT_EQ(d[0], 'J');
    EXPECT_EQ(d[1], 0);
    EXPECT_EQ(d[d.size() - 1], 0);
    EXPECT_EQ(d[d.size() - 2], 0);
    EXPECT_EQ(DecodePackageDescription(d), "Jex Vantor 6 \xE2\x82\xAC \xF0\x9F\x92\xA1");
    TPackageOptions o;
    o.DesignOnly = true;
    o.Defines = "JEXVANTOR";
    o.UnitAliases = "WinTypes=Windows;WinProcs=Windows";
    o.Description = "Jex Vantor 6";
    TPackageOptions back = DecodePackageOptions(EncodePackageOptions(o));
    EXPECT_TRUE(back.DesignOnly);
    EXPECT_FALSE(back.RunOnly);
    EXPECT_EQ(back.Defines, "JEXVANTOR");
    EXPECT_EQ(back.UnitAliases, "WinTypes=Windows;WinProcs=Windows");
    EXPECT_EQ(back.Description, "Jex Vantor 6");
}

std::vector<std::string> Trace;
TUnitGuard GuardA, GuardB;
void StartA() {
    if (GuardA.Start()) Trace.push_back("start A");
}
void StopA() {
    if (GuardA.Stop()) Trace.push_back("stop A");
}
void StartB() {
    if (GuardB.Start()) Trace.push_back("start B");
}
void StopB() {
    if (GuardB.Stop()) Trace.push_back("stop B");
}
void StartFails() {
    throw rtl::Exception("no");
}

TEST(InitializationTable, GuardsRunEachBodyOnceAndStopsUnwind) {
    Trace.clear();
    const TPackageUnitEntry units[] = {{StartA, StopA}, {StartB, StopB}, {StartA, StopA}};
    const TPackageInfoTable table{3, units};
    RunUnitStarts(table);
    RunUnitStarts(table); // a second walk starts nothing again
    EXPECT_EQ(Trace, (std::vector<std::string>{"start A", "start B"}));
    RunUnitStops(table);
    RunUnitStops(table);
    EXPECT_EQ(Trace, (std::vector<std::string>{"start A", "start B", "stop B", "stop A"}));

    Trace.clear();
    const TPackageUnitEntry failing[] = {{StartA, StopA}, {StartB, StopB}, {StartFails, nullptr}};
    EXPECT_THROW(RunUnitStarts(TPackageInfoTable{3, failing}), rtl::Exception);
    EXPECT_EQ(Trace, (std::vector<std::string>{"start A", "start B", "stop B", "stop A"}));
    EXPECT_EQ(GuardA.Count(), 0);
}

TEST(InitializationTable, BuiltinUnits) {
    int starts = 0;
    static int* counter;
    counter = &starts;
    RegisterBuiltinPackage("jexplatformtest", {{"Graphics", [] { ++*counter; }, nullptr}});
    EXPECT_TRUE(IsBuiltinPackage("JEXPLATFORMTEST.bpl"));
    EXPECT_EQ(BuiltinPackageUnits("jexplatformtest"), std::vector<std::string>{"Graphics"});
    StopBuiltinUnit("jexplatformtest", "graphics"); // never started: nothing
    EXPECT_EQ(BuiltinUnitStartCount("jexplatformtest", "Graphics"), 0);
    BuiltinUnitStart<"jexplatformtest", "Graphics">();
    BuiltinUnitStart<"jexplatformtest", "Graphics">();
    EXPECT_EQ(starts, 1);
    EXPECT_EQ(BuiltinUnitStartCount("jexplatformtest", "Graphics"), 2);
    EXPECT_THROW(StartBuiltinUnit("jexplatformtest", "Nope"), rtl::EPackageError);
    EXPECT_THROW(StartBuiltinUnit("nope", "Graphics"), rtl::EPackageError);
    UnregisterBuiltinPackage("jexplatformtest");
    EXPECT_FALSE(IsBuiltinPackage("jexplatformtest"));
}

} // namespace
