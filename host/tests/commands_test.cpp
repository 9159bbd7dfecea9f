// The jexdesign commands run as a person or a script runs them: the built executable on the platform's
// test packages and the host's test package, text and JSON output, and the one-line errors.
#include <algorithm>

#include "commands.h"
#include "hosttest.h"

using namespace hosttest;

namespace {

const Json* FindPage(const Json& palette, const std::string& caption) {
    for (const auto& p : palette["pages"])
        if (p["caption"] == caption) return &p;
    return nullptr;
}

const Json* FindRow(const Json& inspect, const std::string& property) {
    for (const auto& r : inspect["rows"])
        if (r["property"] == property) return &r;
    return nullptr;
}

std::vector<std::string> Names(const Json& items) {
    std::vector<std::string> v;
    for (const auto& i : items)
        v.push_back(i["name"].get<std::string>());
    return v;
}

} // namespace

// ---- Command line ---------------------------------------------------------------------------------------
TEST(CommandLine, OptionsMayStandOnEitherSideOfTheCommand) {
    auto cl =
        host::ParseCommandLine({"--json", "inspect", "TButton", "--category", "Visual", "--package", "a.so",
                                "--package", "b.so", "--package-alias", "x=vcl60", "--no-standard-packages"});
    EXPECT_EQ(cl.Command, "inspect");
    EXPECT_EQ(cl.Args, std::vector<std::string>{"TButton"});
    EXPECT_TRUE(cl.Json);
    EXPECT_TRUE(cl.HasCategory);
    EXPECT_EQ(cl.Category, "Visual");
    EXPECT_EQ(cl.Host.Packages, (std::vector<std::string>{"a.so", "b.so"}));
    ASSERT_EQ(cl.Host.PackageAliases.size(), 1u);
    EXPECT_EQ(cl.Host.PackageAliases[0].first, "x");
    EXPECT_EQ(cl.Host.PackageAliases[0].second, "vcl60");
    EXPECT_FALSE(cl.Host.LoadStandardPackages);
    auto run = host::ParseCommandLine({"run", "-"});
    EXPECT_EQ(run.Args, std::vector<std::string>{"-"});
}

TEST(CommandLine, BadArgumentsAreUsageErrors) {
    using host::EUsageError;
    using host::ParseCommandLine;
    EXPECT_THROW(ParseCommandLine({"frobnicate"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"--frobnicate"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"inspect"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"inspect", "TA", "TB"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"palette", "extra"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"--package"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"--package-alias", "novalue"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"--package-alias", "=vcl60"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"palette", "--category", "Visual"}), EUsageError);
    EXPECT_THROW(ParseCommandLine({"run"}), EUsageError);
}

// ---- Commands on real packages ----------------------------------------------------------------------------
class Commands : public HostTest {};

TEST_F(Commands, OverviewCountsWhatIsLoaded) {
    TRun bare = Run({"--json"});
    ASSERT_EQ(bare.Status, 0) << bare.Err;
    Json b = bare.Parsed();
    EXPECT_TRUE(b["packages"].empty());

    TRun r = Run([&] {
        auto a = AllPackages();
        a.push_back("--json");
        return a;
    }());
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    EXPECT_EQ(j["packages"], Json::array({"jextestrt", "dcljextest", "dcljexhosttest"}));
    EXPECT_EQ(j["palettePages"].get<int>(), b["palettePages"].get<int>() + 2);
    EXPECT_EQ(j["componentCount"].get<int>(), b["componentCount"].get<int>() + 2);

    TRun text = Run(AllPackages());
    ASSERT_EQ(text.Status, 0);
    EXPECT_NE(text.Out.find("Packages loaded: 3 (jextestrt, dcljextest, dcljexhosttest)"), std::string::npos)
        << text.Out;
    EXPECT_NE(text.Out.find("Usage: jexdesign"), std::string::npos);
}

TEST_F(Commands, PackagesShowDescriptionsRequirementsAndUnits) {
    auto args = AllPackages();
    args.insert(args.end(), {"packages", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    ASSERT_EQ(j["packages"].size(), 3u);
    const Json& lamps = j["packages"][1];
    EXPECT_EQ(lamps["name"], "dcljextest");
    EXPECT_EQ(lamps["description"], "Test lamps (design)");
    EXPECT_TRUE(lamps["designOnly"].get<bool>());
    EXPECT_EQ(lamps["requires"], Json::array({"jextestrt.bpl", "jexbuiltin.bpl"}));
    EXPECT_EQ(lamps["units"], Json::array({"dcljextest", "lampreg", "lampedit"}));
    EXPECT_EQ(lamps["registeredUnits"], Json::array({"lampreg"}));
    const Json& gauges = j["packages"][2];
    EXPECT_EQ(gauges["requires"], Json::array({"vcl60.bpl", "designide60.bpl"}));
    EXPECT_TRUE(j["packages"][0]["runOnly"].get<bool>());

    args.pop_back();
    TRun text = Run(args);
    EXPECT_NE(text.Out.find("dcljextest  Test lamps (design)"), std::string::npos) << text.Out;
    EXPECT_NE(text.Out.find("requires: jextestrt.bpl, jexbuiltin.bpl"), std::string::npos);
}

TEST_F(Commands, PaletteShowsPagesInOrderWithDisplayCaptions) {
    auto args = AllPackages();
    args.insert(args.end(), {"palette", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    ASSERT_GE(j["pages"].size(), 3u);
    EXPECT_EQ(j["pages"][0]["caption"], "Standard");
    size_t n = j["pages"].size();
    EXPECT_EQ(j["pages"][n - 2]["caption"], "Test Lamps");
    EXPECT_EQ(j["pages"][n - 2]["components"], Json::array({"TTestLamp"}));
    // Registered as "Gauges && Meters", twice with the same class: one "&", one entry.
    EXPECT_EQ(j["pages"][n - 1]["caption"], "Gauges & Meters");
    EXPECT_EQ(j["pages"][n - 1]["registeredAs"], "Gauges && Meters");
    EXPECT_EQ(j["pages"][n - 1]["components"], Json::array({"TTestGauge"}));
    const Json* standard = FindPage(j, "Standard");
    ASSERT_NE(standard, nullptr);
    EXPECT_EQ((*standard)["components"][0], "TMainMenu");

    args.pop_back();
    TRun text = Run(args);
    EXPECT_NE(text.Out.find("Gauges & Meters (1)\n  TTestGauge\n"), std::string::npos) << text.Out;
}

TEST_F(Commands, InspectShowsTheRowsOfANewComponent) {
    auto args = LampOptions();
    args.insert(args.end(), {"inspect", "TTestLamp", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    EXPECT_EQ(j["class"], "TTestLamp");
    EXPECT_EQ(j["component"], "TestLamp1");
    std::vector<std::string> props;
    for (const auto& row : j["rows"])
        props.push_back(row["property"].get<std::string>());
    EXPECT_TRUE(std::is_sorted(props.begin(), props.end())) << "rows are ordered by published name";
    const Json* b = FindRow(j, "Brightness");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ((*b)["editor"], "TBrightnessProperty");
    EXPECT_EQ((*b)["value"], "0");
    EXPECT_EQ((*b)["categories"], Json::array({"Lamp"}));
    EXPECT_NE(std::find((*b)["attributes"].begin(), (*b)["attributes"].end(), "paValueList"),
              (*b)["attributes"].end());
    const Json* color = FindRow(j, "LampColor");
    ASSERT_NE(color, nullptr);
    EXPECT_EQ((*color)["value"], "clYellow");
    EXPECT_EQ((*color)["editor"], "TColorProperty");
    const Json* name = FindRow(j, "Name");
    ASSERT_NE(name, nullptr);
    EXPECT_EQ((*name)["value"], "TestLamp1");
    EXPECT_EQ(FindRow(j, "OnSwitch"), nullptr) << "events are not properties";
}

TEST_F(Commands, InspectByCategory) {
    auto args = LampOptions();
    args.insert(args.end(), {"inspect", "TTestLamp", "--category", "lamp", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    std::vector<std::string> props;
    for (const auto& row : j["rows"])
        props.push_back(row["property"].get<std::string>());
    EXPECT_EQ(props, (std::vector<std::string>{"Brightness", "LampColor"}));

    auto bad = LampOptions();
    bad.insert(bad.end(), {"inspect", "TTestLamp", "--category", "NoSuchCategory"});
    TRun e = Run(bad);
    EXPECT_EQ(e.Status, 1);
    EXPECT_TRUE(e.Out.empty());
    EXPECT_EQ(LineCount(e.Err), 1) << e.Err;
    EXPECT_NE(e.Err.find("Unknown property category 'NoSuchCategory'"), std::string::npos) << e.Err;
}

TEST_F(Commands, InspectAPlatformControlWithText) {
    TRun r = Run({"inspect", "TButton"});
    ASSERT_EQ(r.Status, 0) << r.Err;
    EXPECT_NE(r.Out.find("TButton (Button1 on Form1)"), std::string::npos) << r.Out;
    EXPECT_NE(r.Out.find("Caption"), std::string::npos);
    EXPECT_NE(r.Out.find("Button1"), std::string::npos);
}

TEST_F(Commands, VerbsOfTheComponentEditor) {
    auto args = AllPackages();
    args.insert(args.end(), {"verbs", "TTestLamp", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    EXPECT_EQ(j["editor"], "TLampEditor");
    ASSERT_EQ(j["verbs"].size(), 2u);
    EXPECT_EQ(j["verbs"][0]["caption"], "&Switch On");
    EXPECT_EQ(j["verbs"][1]["text"], "Switch Off");

    TRun plain = Run({"verbs", "TPanel", "--json"});
    ASSERT_EQ(plain.Status, 0) << plain.Err;
    EXPECT_EQ(plain.Parsed()["editor"], "TDefaultEditor");
    EXPECT_TRUE(plain.Parsed()["verbs"].empty());

    args.pop_back();
    TRun text = Run(args);
    EXPECT_EQ(text.Out, "TTestLamp: component editor TLampEditor\n  0  &Switch On\n  1  Switch &Off\n");
}

TEST_F(Commands, MenuShowsTheExpertItemBelowAbout) {
    TRun bare = Run({"menu", "--json"});
    ASSERT_EQ(bare.Status, 0) << bare.Err;
    Json b = bare.Parsed();
    EXPECT_EQ(Names(b["items"]),
              (std::vector<std::string>{"FileMenu", "EditMenu", "ComponentMenu", "ToolsMenu", "HelpMenu"}));
    EXPECT_EQ(Names(b["items"][4]["items"]),
              (std::vector<std::string>{"HelpContentsItem", "HelpSep1", "HelpAboutItem"}));

    auto args = LampOptions();
    args.insert(args.end(), {"menu", "--json"});
    TRun r = Run(args);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json help = r.Parsed()["items"][4];
    EXPECT_EQ(Names(help["items"]), (std::vector<std::string>{"HelpContentsItem", "HelpSep1", "HelpAboutItem",
                                                              "lampBrowseMenuItem"}));
    EXPECT_EQ(help["items"][3]["caption"], "Browse Lamps...");

    args.pop_back();
    TRun text = Run(args);
    EXPECT_NE(text.Out.find("  Browse Lamps...            lampBrowseMenuItem\n"), std::string::npos)
        << text.Out;
}

TEST_F(Commands, HintNeedsAPackageThatDescribesComponents) {
    auto lamps = LampOptions();
    lamps.insert(lamps.end(), {"hint", "TTestLamp"});
    TRun none = Run(lamps);
    EXPECT_EQ(none.Status, 1);
    EXPECT_EQ(LineCount(none.Err), 1) << none.Err;
    EXPECT_NE(none.Err.find("No loaded package provides extended component descriptions"), std::string::npos);
    EXPECT_NE(none.Err.find(host::SComponentDescriptionSymbol), std::string::npos);

    auto all = AllPackages();
    all.insert(all.end(), {"hint", "TTestGauge", "--json"});
    TRun r = Run(all);
    ASSERT_EQ(r.Status, 0) << r.Err;
    Json j = r.Parsed();
    EXPECT_EQ(j["provider"], "dcljexhosttest");
    EXPECT_EQ(j["description"], "TTestGauge is a container that shows a value against its maximum.");

    all[all.size() - 2] = "TButton";
    all.pop_back();
    TRun unknown = Run(all);
    ASSERT_EQ(unknown.Status, 0) << unknown.Err;
    EXPECT_EQ(unknown.Out, "No extended description for TButton.\n");
}

// ---- Errors ---------------------------------------------------------------------------------------------
TEST_F(Commands, UnknownClassesAreOneLineErrors) {
    for (const char* command : {"inspect", "verbs"}) {
        TRun r = Run({command, "TNoSuchThing"});
        EXPECT_EQ(r.Status, 1) << command;
        EXPECT_TRUE(r.Out.empty());
        EXPECT_EQ(r.Err, "jexdesign: Unknown component class 'TNoSuchThing'\n");
    }
    TRun form = Run({"inspect", "TForm"});
    EXPECT_EQ(form.Status, 1);
    EXPECT_NE(form.Err.find("is a form"), std::string::npos) << form.Err;
}

TEST_F(Commands, BadArgumentsExitWithStatusTwo) {
    for (auto args :
         std::vector<std::vector<std::string>>{{"frobnicate"}, {"--bogus"}, {"inspect"}, {"menu", "x"}}) {
        TRun r = Run(args);
        EXPECT_EQ(r.Status, 2) << args[0];
        EXPECT_EQ(LineCount(r.Err), 1) << r.Err;
        EXPECT_TRUE(r.Out.empty());
    }
}

TEST_F(Commands, PackagesThatDoNotLoadFailTheStart) {
    TRun missing = Run({"--package", (Dir / "libnothere.so").string(), "palette"});
    EXPECT_EQ(missing.Status, 1);
    EXPECT_TRUE(missing.Out.empty());
    EXPECT_EQ(LineCount(missing.Err), 1) << missing.Err;

    TRun req = Run({"--package-alias", "jexbuiltin=vcl60", "--package", JEX_MISSINGREQ_PACKAGE, "palette"});
    EXPECT_EQ(req.Status, 1);
    EXPECT_EQ(LineCount(req.Err), 1) << req.Err;
    EXPECT_NE(req.Err.find("requires"), std::string::npos) << req.Err;

    TRun notapkg = Run({"--package", JEX_NOTAPKG_PACKAGE, "palette"});
    EXPECT_EQ(notapkg.Status, 1);
    EXPECT_EQ(LineCount(notapkg.Err), 1) << notapkg.Err;

    // Without the alias the lamps require a platform package the host does not have.
    TRun noAlias = Run({"--package", JEX_LAMP_PACKAGE, "palette"});
    EXPECT_EQ(noAlias.Status, 1);
    EXPECT_NE(noAlias.Err.find("jexbuiltin"), std::string::npos) << noAlias.Err;

    TRun badAlias = Run({"--package-alias", "x=nosuchplatform", "palette"});
    EXPECT_EQ(badAlias.Status, 1);
    EXPECT_NE(badAlias.Err.find("Unknown platform package 'nosuchplatform'"), std::string::npos)
        << badAlias.Err;
}

TEST_F(Commands, MissingStandardPackagesAreNotedOnceAndTheHostGoesOn) {
    std::filesystem::create_directories(Dir / "empty");
    TRun r = RunRaw({"--system-dir", (Dir / "system").string(), "--standard-packages",
                     (Dir / "empty").string(), "palette", "--json"});
    ASSERT_EQ(r.Status, 0) << r.Err;
    EXPECT_NO_THROW(r.Parsed());
    EXPECT_EQ(LineCount(r.Err), 2) << r.Err;
    EXPECT_NE(r.Err.find("libjexc60.so not found"), std::string::npos) << r.Err;
    EXPECT_NE(r.Err.find("libdclJEXC.so not found"), std::string::npos) << r.Err;

    // A standard package that is there but does not load is noted the same way.
    std::filesystem::copy_file(JEX_NOTAPKG_PACKAGE, Dir / "empty" / "libjexc60.so");
    TRun bad = RunRaw({"--system-dir", (Dir / "system").string(), "--standard-packages",
                       (Dir / "empty").string(), "--json"});
    ASSERT_EQ(bad.Status, 0) << bad.Err;
    EXPECT_NE(bad.Err.find("standard package libjexc60.so did not load"), std::string::npos) << bad.Err;
    EXPECT_EQ(bad.Parsed()["notes"].size(), 2u);
}

TEST_F(Commands, SystemDirectoryComesFromTheOption) {
    TRun r = Run({"--json"});
    ASSERT_EQ(r.Status, 0);
    EXPECT_EQ(r.Parsed()["systemDir"], (Dir / "system").string());
}
