// The host with its standard packages, jexc60 and dclJEXC, loaded from beside the executable: what the
// packages declare, the Jex palette pages, the Jex property category in the inspector, the extended palette
// hints, and the Help-menu item that opens the hint and About window.
#include <algorithm>
#include <fstream>
#include <map>
#include <set>

#include "hosttest.h"

using namespace hosttest;

namespace {

class StandardPackages : public HostTest {
protected:
    TRun Host(std::vector<std::string> args) {
        args.insert(args.begin(), {"--system-dir", (Dir / "system").string()});
        return RunRaw(args);
    }
    Json HostJson(std::vector<std::string> args) {
        args.insert(args.begin(), "--json");
        TRun r = Host(args);
        EXPECT_EQ(r.Status, 0) << r.Err;
        return r.Status == 0 ? r.Parsed() : Json();
    }
    static Json Registrations() {
        std::ifstream in(std::string(JEX_PACKAGE_TEST_DATA) + "/registrations.json");
        return Json::parse(in);
    }
};

TEST_F(StandardPackages, PackagesDeclareTheirDescriptionRequirementsAndUnits) {
    Json j = HostJson({"packages"});
    const Json* dcl = nullptr;
    for (const Json& p : j["packages"])
        if (p["name"] == "dclJEXC") dcl = &p;
    ASSERT_NE(dcl, nullptr) << j.dump(1);
    EXPECT_EQ((*dcl)["description"], "Jex Vantor 6");
    EXPECT_TRUE((*dcl)["designOnly"].get<bool>());
    EXPECT_EQ((*dcl)["requires"], Json::array({"jexc60.bpl", "dclbde60.bpl", "dcldb60.bpl", "vcl60.bpl"}));
    EXPECT_EQ((*dcl)["units"], Registrations()["contained_units"]);
    EXPECT_EQ((*dcl)["units"].size(), 57u);

    TRun text = Host({"packages"});
    ASSERT_EQ(text.Status, 0) << text.Err;
    EXPECT_NE(text.Out.find("Jex Vantor 6"), std::string::npos) << text.Out;
}

TEST_F(StandardPackages, PaletteShowsTheFourteenJexPagesWithEachClassOnceInItsFirstPlace) {
    // The expected pages: registration order, "&&" shown as "&", a class registered twice on a page once.
    std::vector<std::string> order;
    std::map<std::string, std::vector<std::string>> expected;
    const Json registrations = Registrations();
    for (const Json& row : registrations["palette"]) {
        std::string caption = row["page"];
        for (size_t at; (at = caption.find("&&")) != std::string::npos;)
            caption.replace(at, 2, "&");
        if (!expected.count(caption)) order.push_back(caption);
        auto& classes = expected[caption];
        for (const Json& c : row["classes"])
            if (std::find(classes.begin(), classes.end(), c.get<std::string>()) == classes.end())
                classes.push_back(c);
    }
    ASSERT_EQ(order.size(), 14u);

    Json j = HostJson({"palette"});
    std::vector<std::string> shown;
    for (const Json& page : j["pages"]) {
        std::string caption = page["caption"];
        if (caption.rfind("Jex ", 0) != 0) continue;
        shown.push_back(caption);
        EXPECT_EQ(page["components"].get<std::vector<std::string>>(), expected[caption]) << caption;
    }
    EXPECT_EQ(shown, order);
}

TEST_F(StandardPackages, TheJexCategoryHoldsExactlyThePropertiesFiledForTheClass) {
    const Json registrations = Registrations();
    for (const Json& call : registrations["categories"]) {
        if (call["class"] != "TjexDock") continue;
        std::set<std::string> filed;
        for (const Json& p : call["props"])
            filed.insert(p.get<std::string>());
        Json j = HostJson({"inspect", "TjexDock", "--category", "Jex"});
        std::set<std::string> rows;
        for (const Json& r : j["rows"])
            rows.insert(r["property"].get<std::string>());
        EXPECT_EQ(rows, filed);
        return;
    }
    FAIL() << "no category call for TjexDock";
}

TEST_F(StandardPackages, HintsComeFromTheCatalogueAndUnknownClassesFail) {
    Json j = HostJson({"hint", "TjexDock"});
    EXPECT_EQ(j["provider"], "dclJEXC");
    std::string d = j["description"];
    EXPECT_EQ(d.rfind("TjexDock is ", 0), 0u) << d;

    TRun unknown = Host({"hint", "TNoSuchClass"});
    EXPECT_EQ(unknown.Status, 1);
    EXPECT_EQ(LineCount(unknown.Err), 1) << unknown.Err;
}

TEST_F(StandardPackages, TheBrowseItemOpensTheWindowThatFollowsPaletteHints) {
    std::string dock = HostJson({"hint", "TjexDock"})["description"];
    Json menu = HostJson({"menu"});
    const Json* help = nullptr;
    for (const Json& m : menu["items"])
        if (m["name"] == "HelpMenu") help = &m;
    ASSERT_NE(help, nullptr);
    std::vector<std::string> names;
    for (const Json& i : (*help)["items"])
        names.push_back(i["name"]);
    auto about = std::find(names.begin(), names.end(), "HelpAboutItem");
    ASSERT_NE(about, names.end());
    ASSERT_NE(about + 1, names.end());
    EXPECT_EQ(about[1], "jexBrowseCompsMenuItem");
    EXPECT_EQ((*help)["items"][about - names.begin() + 1]["caption"], "Browse Jex Components...");

    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "menu", "item": "jexBrowseCompsMenuItem"},
      {"op": "menu", "item": "jexBrowseCompsMenuItem"},
      {"op": "hint", "class": "TjexDock"},
      {"op": "form", "class": "TjexdfHintAbout", "actions": [{"expect": "lblCompDesc", "caption": "DOCK"}]},
      {"op": "hint", "class": "TPanel"},
      {"op": "form", "class": "TjexdfHintAbout", "actions": [
          {"expect": "lblCompDesc",
           "caption": "Move the mouse over the Jex component palette icons to view extended hints."},
          {"click": "btnCancel"}]}
    ])js");
    script[4]["actions"][0]["caption"] = dock;
    auto file = Dir / "script.json";
    WriteAll(file, script.dump(2));
    TRun r = Host({"run", file.string()});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = r.Parsed();
    ASSERT_EQ(t["forms"].size(), 1u) << "clicking the item twice shows one window";
    EXPECT_EQ(t["forms"][0]["class"], "TjexdfHintAbout");
    EXPECT_FALSE(t["forms"][0]["modal"].get<bool>());
    EXPECT_EQ(t["hints"], Json::array({"jexDock", "Panel"}));
}

} // namespace
