// dclJEXC loaded, registered, unloaded and loaded again through the real package manager, from a test that
// links neither the package nor jexc60: what the package declares, its start table, its registrations
// against the tables, its unit lifecycle, and every palette class streamed through its registration.
#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <memory>
#include <set>

#include "ide/categories.h"
#include "ide/compedit.h"
#include "ide/experts.h"
#include "ide/palette.h"
#include "ide/propedit.h"
#include "loader.h"
#include "rtl/resources.h"
#include "rtl/streaming.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"

using namespace dcltest;
using nlohmann::json;

namespace {

std::string Demangled(const char* symbol) {
    if (!symbol) return {};
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> d(abi::__cxa_demangle(symbol, nullptr, nullptr, &status),
                                             std::free);
    return status == 0 && d ? d.get() : symbol;
}

std::string SymbolOf(const void* address) {
    Dl_info info;
    return address && dladdr(address, &info) ? Demangled(info.dli_sname) : std::string();
}

std::set<std::string> Pending() {
    auto list = Strings(Data()["not_in_library_yet"]);
    return {list.begin(), list.end()};
}

std::string ProjectNameForTests() {
    return "Inventory";
}
std::string SentinelProjectName() {
    return "sentinel";
}

class PackageLoad : public ::testing::Test {
protected:
    void SetUp() override {
        InstallPlatformPackages();
        ide::TToolServicesConfig config;
        config.ProjectName = ProjectNameForTests;
        ide::ConfigureToolServices(config);
    }
    void TearDown() override {
        Manager.UnloadAll();
        UninstallPlatformPackages();
        ide::ConfigureToolServices({});
    }
    ide::TPackage* LoadPackage(const std::string& name = "dclJEXC") { return Manager.LoadPackage(name); }
    const ide::TPackageInfoTable* StartTable(ide::TPackage* p) {
        auto get =
            reinterpret_cast<const ide::TPackageInfoTable* (*)()>(p->FindSymbol("GetPackageInfoTable"));
        return get ? get() : nullptr;
    }
    // Counts of every built-in unit the tables forward to, "package:Unit" -> starts minus stops.
    static std::map<std::string, int> PlatformUnitCounts() {
        std::map<std::string, int> counts;
        for (auto& [package, units] : Data()["builtin_packages"].items())
            for (const std::string& unit : ide::BuiltinPackageUnits(package))
                counts[package + ":" + unit] = ide::BuiltinUnitStartCount(package, unit);
        return counts;
    }
    ide::TPackageManager Manager;
};

TEST_F(PackageLoad, DeclaresItselfAsADesignOnlyPackageRequiringJexc60) {
    ide::TPackage* p = LoadPackage();
    const ide::TPackageInfo& info = p->Info();
    EXPECT_EQ(info.Flags, 0x4C000003u);
    std::vector<std::string> required;
    for (auto& r : info.Requires) {
        required.push_back(r.Name);
        EXPECT_EQ(r.HashCode, ide::PackageNameHash(r.Name)) << r.Name;
    }
    EXPECT_EQ(required, (std::vector<std::string>{"jexc60.bpl", "dclbde60.bpl", "dcldb60.bpl", "vcl60.bpl"}));
    std::vector<std::string> units;
    for (auto& u : info.Contains) {
        units.push_back(u.Name);
        EXPECT_EQ(u.HashCode, ide::PackageNameHash(u.Name)) << u.Name;
        EXPECT_EQ(u.Flags, units.size() == 1 ? ide::ufMainUnit | ide::ufPackageUnit : 0) << u.Name;
    }
    EXPECT_EQ(units, Strings(Data()["contained_units"]));
    EXPECT_EQ(p->Description(), "Jex Vantor 6");
    const std::vector<uint8_t>* raw = rtl::FindRawResource(*p->Resources(), "DESCRIPTION");
    ASSERT_NE(raw, nullptr);
    EXPECT_EQ(std::vector<uint8_t>(raw->begin(), raw->begin() + 6),
              (std::vector<uint8_t>{'J', 0, 'e', 0, 'x', 0}));
    EXPECT_TRUE(p->Options().DesignOnly);
    EXPECT_FALSE(p->Options().RunOnly);
    EXPECT_EQ(p->Options().Defines, "JEXVANTOR");
    EXPECT_EQ(p->Options().UnitAliases,
              "WinTypes=Windows;WinProcs=Windows;DbiTypes=BDE;DbiProcs=BDE;DbiErrs=BDE");
    EXPECT_EQ(p->Options().Description, "Jex Vantor 6");

    // jexc60 is a run-time package; its units include those of every class the package registers.
    ASSERT_EQ(p->Requires().size(), 1u);
    ide::TPackage* rt = p->Requires()[0];
    EXPECT_EQ(rt->Name(), "jexc60");
    EXPECT_EQ(rt->Info().Flags & (ide::pfModuleTypeMask | ide::pfRunOnly | ide::pfDesignOnly),
              ide::pfPackageModule | ide::pfRunOnly);
    EXPECT_TRUE(rt->Options().RunOnly);
    std::set<std::string> rtUnits;
    for (auto& u : rt->Info().Contains) {
        rtUnits.insert(u.Name);
        EXPECT_EQ(u.HashCode, ide::PackageNameHash(u.Name)) << u.Name;
    }
    EXPECT_EQ(rt->Info().Contains.front().Name, "jexc60");
    EXPECT_EQ(rt->Info().Contains.front().Flags, ide::ufMainUnit | ide::ufPackageUnit);
    for (const std::string& page : ide::PalettePages())
        for (rtl::TClass c : ide::PaletteClasses(page))
            EXPECT_TRUE(rtUnits.count(c->UnitName()))
                << c->ClassName() << "'s unit " << c->UnitName() << " is not among jexc60's units";
}

TEST_F(PackageLoad, StartTableForwardsToTheUnitsEachUnitUsesBeforeStartingIt) {
    ide::TPackage* p = LoadPackage();
    const ide::TPackageInfoTable* table = StartTable(p);
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->UnitCount, 345);

    std::vector<std::string> expected;
    int forwarders = 0;
    for (auto& unit : Data()["start_order"]) {
        for (auto& use : Data()["forwarders"][unit.get<std::string>()]) {
            expected.push_back(use.get<std::string>());
            ++forwarders;
        }
        expected.push_back("own:" + unit.get<std::string>());
    }
    EXPECT_EQ(forwarders, 290);

    // What each entry reaches: an own unit by its procedure's name, a jexc60 unit by its exported
    // procedure, a platform unit by the count its entry moves.
    std::vector<std::string> actual;
    for (int i = 0; i < table->UnitCount; ++i) {
        const ide::TPackageUnitEntry& e = table->UnitInfo[i];
        std::string start = SymbolOf(reinterpret_cast<const void*>(e.Init));
        std::string stop = SymbolOf(reinterpret_cast<const void*>(e.FInit));
        if (start.rfind("dcljexc::", 0) == 0) {
            std::string unit = start.substr(9, start.find("::Start()") - 9);
            EXPECT_EQ(stop, "dcljexc::" + unit + "::Stop()");
            actual.push_back("own:" + unit);
        } else if (start.rfind("Initialize_", 0) == 0) {
            EXPECT_EQ(FileOfAddress(reinterpret_cast<const void*>(e.Init)), "libjexc60.so");
            EXPECT_EQ(stop, "Finalize_" + start.substr(11));
            actual.push_back("jexc60:" + start.substr(11));
        } else {
            auto before = PlatformUnitCounts();
            e.Init();
            auto during = PlatformUnitCounts();
            e.FInit();
            EXPECT_EQ(PlatformUnitCounts(), before) << "entry " << i << " does not stop what it starts";
            std::string moved;
            for (auto& [unit, count] : during)
                if (count != before[unit]) moved += (moved.empty() ? "" : "+") + unit;
            actual.push_back(moved.empty() ? "entry " + std::to_string(i) + ": " + start : moved);
        }
    }
    EXPECT_EQ(actual, expected);
}

// Palette pages, no-icon classes and category registrations against the tables, for every class the
// library has; the rows of classes it has not got yet (named in the test data) are not made.
TEST_F(PackageLoad, RegistersThePaletteNoIconAndCategoryTables) {
    const int categoriesBefore = ide::CategoryRegistrationCount();
    const int editorsBefore = ide::ComponentEditorRegistrationCount();
    ide::TPackage* p = LoadPackage();
    TJexc60 jex(p->Requires()[0]);
    std::set<std::string> pending = Pending();
    auto has = [&](const std::string& c) { return !pending.count(c); };
    auto classNames = [](const std::vector<rtl::TClass>& classes) {
        std::vector<std::string> names;
        for (rtl::TClass c : classes)
            names.push_back(c->ClassName());
        return names;
    };

    std::vector<std::string> units;
    for (auto& u : Data()["register_units"])
        units.push_back(rtl::LowerCase(u.get<std::string>()));
    EXPECT_EQ(p->RegisteredUnits(), units);

    // A page is made by its first row; a class already on a page keeps its first place.
    std::vector<std::string> pages;
    std::map<std::string, std::vector<std::string>> onPage;
    for (auto& row : Data()["palette"]) {
        std::string page = row["page"];
        for (auto& c : row["classes"]) {
            std::string name = c;
            if (!has(name)) continue;
            if (std::find(pages.begin(), pages.end(), page) == pages.end()) pages.push_back(page);
            auto& list = onPage[page];
            if (std::find(list.begin(), list.end(), name) == list.end()) list.push_back(name);
        }
    }
    EXPECT_EQ(ide::PalettePages(), pages);
    for (auto& page : pages)
        EXPECT_EQ(classNames(ide::PaletteClasses(page)), onPage[page]) << page;

    std::vector<std::string> noIcon;
    for (auto& c : Data()["noicon"])
        if (has(c)) noIcon.push_back(c);
    EXPECT_EQ(classNames(ide::NoIconClasses()), noIcon);

    // Every listed property is in "Jex", and no other property of those classes is (a row of an ancestor
    // class covers its descendants too).
    std::map<std::string, rtl::TClass> byName;
    int names = 0;
    std::map<std::string, std::set<std::string>> listed;
    for (auto& row : Data()["categories"]) {
        std::string cls = row["class"];
        if (!has(cls)) continue;
        byName[cls] = jex.ClassByName(cls);
        listed[cls];
        for (auto& prop : row["props"]) {
            listed[cls].insert(prop.get<std::string>());
            ++names;
        }
    }
    for (auto& [name, props] : listed) {
        rtl::TClass cls = byName[name];
        ASSERT_NE(cls, nullptr) << name;
        std::set<std::string> covered;
        for (auto& [other, otherProps] : listed)
            if (byName[other] && cls->InheritsFrom(byName[other]))
                covered.insert(otherProps.begin(), otherProps.end());
        for (const std::string& prop : props) {
            const rtl::TPropInfo* info = rtl::GetPropInfo(cls, prop);
            EXPECT_NE(info, nullptr) << name << " does not publish " << prop;
            if (info) {
                EXPECT_TRUE(ide::IsPropertyInCategory("Jex", cls, info)) << name << "." << prop;
            }
        }
        for (const rtl::TPropInfo* info : cls->Properties())
            if (!covered.count(info->Name)) {
                EXPECT_FALSE(ide::IsPropertyInCategory("Jex", cls, info)) << name << "." << info->Name;
            }
    }
    EXPECT_EQ(ide::CategoryRegistrationCount() - categoriesBefore, names);
    for (const std::string& category : ide::RegisteredCategories()) {
        if (rtl::SameText(category, "Jex")) {
            EXPECT_EQ(category, "Jex");
        }
    }

    // The rows whose editors the platform has.
    for (auto& row : Data()["platform_editor_rows"]) {
        std::string name = row["class"];
        if (!has(name)) continue;
        rtl::TClass cls = jex.ClassByName(name);
        ASSERT_NE(cls, nullptr) << name;
        const rtl::TPropInfo* info = rtl::GetPropInfo(cls, row["prop"].get<std::string>());
        ASSERT_NE(info, nullptr) << name << "." << row["prop"];
        EXPECT_EQ(ide::GetEditorClass(info, cls)->ClassName(), row["editor"]) << name << "." << row["prop"];
    }

    // One component-editor registration per row, each giving its class (and the descendants that have no
    // row of their own) the editor of the row.
    int editorRows = 0;
    for (auto& row : Data()["component_editors"]) {
        std::string name = row["class"];
        if (!has(name)) continue;
        ++editorRows;
        rtl::TClass cls = jex.ClassByName(name);
        ASSERT_NE(cls, nullptr) << name;
        EXPECT_EQ(ide::GetComponentEditorClass(cls)->ClassName(), row["editor"]) << name;
    }
    EXPECT_EQ(ide::ComponentEditorRegistrationCount() - editorsBefore, editorRows);

    Manager.UnloadPackage(p);
    EXPECT_TRUE(ide::PalettePages().empty());
    EXPECT_TRUE(ide::NoIconClasses().empty());
    EXPECT_EQ(ide::CategoryRegistrationCount(), categoriesBefore);
    EXPECT_EQ(ide::ComponentEditorRegistrationCount(), editorsBefore);
}

// The category's name is a resource string: a catalogue beside the package renames it.
TEST_F(PackageLoad, ATranslatedCategoryNameRenamesTheCategory) {
    // A catalogue for a language no other test uses, removed again however the test ends.
    struct TCatalogue {
        std::string Path = ide::TPackageManager::HostDirectory() + "/libdclJEXC.qq.po";
        TCatalogue() {
            std::ofstream(Path)
                << "msgctxt \"_sjexPropCategoryName\"\nmsgid \"Jex\"\nmsgstr \"Jex-Eigenschaften\"\n";
            rtl::SetResourceLanguage("qq");
        }
        ~TCatalogue() {
            rtl::SetResourceLanguage("");
            std::remove(Path.c_str());
        }
    } catalogue;
    ide::TPackage* p = LoadPackage();
    rtl::TClass dock = rtl::GetClass("TjexDock");
    ASSERT_NE(dock, nullptr);
    const rtl::TPropInfo* allowDrag = rtl::GetPropInfo(dock, "AllowDrag");
    EXPECT_TRUE(ide::IsPropertyInCategory("Jex-Eigenschaften", dock, allowDrag));
    EXPECT_FALSE(ide::IsPropertyInCategory("Jex", dock, allowDrag));
    Manager.UnloadPackage(p);
}

TEST_F(PackageLoad, LoadUnloadAndLoadAgainLeavesOneLiveHookAndOneRegistrationOfEachClass) {
    // jexc60 is held by its own load, so that it outlives the design package.
    ide::TPackage* rt = LoadPackage("jexc60");
    TJexc60 jex(rt);
    ASSERT_TRUE(jex.Designing && jex.ProjectNameFunc);
    EXPECT_FALSE(*jex.Designing);
    EXPECT_EQ(*jex.ProjectNameFunc, nullptr);

    std::vector<std::string> streamed;
    for (auto& c : Data()["stream_classes"])
        if (!Pending().count(c)) streamed.push_back(c);
    auto expectStreamed = [&](int count) {
        for (auto& c : streamed) {
            EXPECT_EQ(rtl::RegisteredClassCount(c), count) << c;
            EXPECT_EQ(rtl::GetClass(c) != nullptr, count == 1) << c;
        }
    };
    const std::string file = PackageFile("dclJEXC");

    for (int round = 0; round < 2; ++round) {
        SCOPED_TRACE("load " + std::to_string(round + 1));
        ide::TPackage* p = LoadPackage();
        EXPECT_EQ(p->Requires()[0], rt);
        EXPECT_TRUE(*jex.Designing);
        ASSERT_NE(*jex.ProjectNameFunc, nullptr);
        EXPECT_EQ(FileOfAddress(reinterpret_cast<const void*>(*jex.ProjectNameFunc)), "libdclJEXC.so");
        EXPECT_EQ((*jex.ProjectNameFunc)(), "Inventory");
        expectStreamed(1);
        EXPECT_GT(ide::BuiltinUnitStartCount("vcl60", "Controls"), 0);

        Manager.UnloadPackage(p);
        EXPECT_FALSE(IsMapped(file));
        EXPECT_EQ(*jex.ProjectNameFunc, nullptr);
        // The package sets the flag and leaves it: jexc60 keeps it for as long as it stays loaded.
        EXPECT_TRUE(*jex.Designing);
        expectStreamed(0);
        for (auto& [unit, count] : PlatformUnitCounts())
            EXPECT_EQ(count, 0) << unit;
    }

    Manager.UnloadPackage(rt);
    EXPECT_FALSE(IsMapped(PackageFile("jexc60")));
    TJexc60 fresh(LoadPackage("jexc60"));
    ASSERT_NE(fresh.Designing, nullptr);
    EXPECT_FALSE(*fresh.Designing);
}

TEST_F(PackageLoad, ASecondWalkOfTheStartTableRunsNoStartOrStopBodyAgain) {
    ide::TPackage* p = LoadPackage();
    TJexc60 jex(p->Requires()[0]);
    const ide::TPackageInfoTable* table = StartTable(p);
    ASSERT_TRUE(table && jex.ProjectNameFunc);
    rtl::TClass first = rtl::GetClass("TjexnpFirst");
    rtl::TClass last = rtl::GetClass("TjexnpLast");
    ASSERT_TRUE(first && last);

    // Undo two start bodies' work by hand; a start body that ran again would redo it.
    *jex.ProjectNameFunc = SentinelProjectName;
    rtl::UnRegisterClass(first);
    ide::RunUnitStarts(*table);
    EXPECT_EQ(*jex.ProjectNameFunc, SentinelProjectName);
    EXPECT_EQ(rtl::GetClass("TjexnpFirst"), nullptr);

    // One walk back leaves every unit started once: no stop body runs.
    ide::RunUnitStops(*table);
    EXPECT_EQ(*jex.ProjectNameFunc, SentinelProjectName);
    EXPECT_EQ(rtl::GetClass("TjexnpLast"), last);

    // Unloading walks back the first start: now the stop bodies run.
    ide::TPackage* rt = LoadPackage("jexc60");
    Manager.UnloadPackage(p);
    EXPECT_EQ(*jex.ProjectNameFunc, nullptr);
    EXPECT_EQ(rtl::RegisteredClassCount("TjexnpLast"), 0);
    Manager.UnloadPackage(rt);
}

TEST_F(PackageLoad, AMissingPlatformUnitFailsTheLoadAndLeavesNothingBehind) {
    UninstallPlatformPackages();
    InstallPlatformPackages("vclx60:Outline");
    try {
        LoadPackage();
        FAIL() << "dclJEXC loaded without vclx60's Outline unit";
    } catch (const ide::EPackageLoadError& e) {
        EXPECT_EQ(e.Failure, ide::plfStartFailed);
        EXPECT_NE(e.Message().find("dclJEXC"), std::string::npos) << e.Message();
        EXPECT_NE(e.Message().find("vclx60 has no unit Outline"), std::string::npos) << e.Message();
    }
    EXPECT_TRUE(Manager.Packages().empty());
    EXPECT_FALSE(IsMapped(PackageFile("dclJEXC")));
    EXPECT_FALSE(IsMapped(PackageFile("jexc60")));
    EXPECT_TRUE(ide::PalettePages().empty());
    for (auto& [unit, count] : PlatformUnitCounts())
        EXPECT_EQ(count, 0) << unit;
}

// Every class on the palette: created on a form under design through its class reference, written to a
// form file and read back by its registered name into a form under design (the original gone, as when the
// designer reopens the form) with the same values.
std::map<std::string, std::string> SimpleValues(const rtl::TObject* obj) {
    std::map<std::string, std::string> values;
    for (const rtl::TPropInfo* prop : obj->ClassType()->Properties()) {
        switch (prop->PropType->Kind) {
        case rtl::tkInteger:
        case rtl::tkEnumeration:
        case rtl::tkSet:
        case rtl::tkChar:
            values[prop->Name] = std::to_string(rtl::GetOrdProp(obj, *prop));
            break;
        case rtl::tkString:
        case rtl::tkLString:
            values[prop->Name] = rtl::GetStrProp(obj, *prop);
            break;
        default:
            break;
        }
    }
    return values;
}

TEST_F(PackageLoad, EveryPaletteClassStreamsThroughItsRegistration) {
    LoadPackage();
    // What the host's own units make streamable: forms, and the notebook pages that notebooks write.
    const std::vector<rtl::TClass> platformClasses{vcl::TForm::StaticClass(), vcl::TPage::StaticClass()};
    rtl::RegisterClasses(platformClasses);
    int streamed = 0;
    for (const std::string& page : ide::PalettePages()) {
        for (rtl::TClass cls : ide::PaletteClasses(page)) {
            SCOPED_TRACE(cls->ClassName());
            ASSERT_EQ(rtl::GetClass(cls->ClassName()), cls);
            auto* form = new vcl::TForm(nullptr);
            form->SetName("Form1");
            form->SetDesigning(true);
            rtl::TComponent* c = cls->CreateComponent(form);
            ASSERT_NE(c, nullptr);
            c->SetName("Subject1");
            if (auto* control = dynamic_cast<vcl::TControl*>(c)) control->SetParent(form);
            // Text properties moved off their defaults; a component may refuse a value and keep its own.
            for (const rtl::TPropInfo* prop : cls->Properties()) {
                if (prop->Name == "Name" || !prop->SetStr) continue;
                if (prop->PropType->Kind != rtl::tkLString && prop->PropType->Kind != rtl::tkString) continue;
                try {
                    rtl::SetStrProp(c, *prop, "v" + prop->Name);
                } catch (const rtl::Exception&) {
                }
            }
            const std::map<std::string, std::string> values = SimpleValues(c);
            const std::string text = rtl::WriteComponentText(form);
            form->Free();
            rtl::TComponent* read = new vcl::TForm(nullptr);
            read->SetDesigning(true);
            try {
                rtl::ReadComponentText(text, nullptr, read);
            } catch (const rtl::Exception& e) {
                ADD_FAILURE() << e.Message() << "\n" << text;
                read->Free();
                continue;
            }
            rtl::TComponent* copy = read->FindComponent("Subject1");
            ASSERT_NE(copy, nullptr);
            EXPECT_EQ(copy->ClassType(), cls);
            EXPECT_EQ(SimpleValues(copy), values);
            EXPECT_EQ(rtl::WriteComponentText(read), text);
            read->Free();
            ++streamed;
        }
    }
    rtl::UnRegisterClasses(platformClasses);
    EXPECT_GT(streamed, 0);
}

} // namespace
