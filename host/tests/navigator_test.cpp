// Design scripts on the standard packages, run by the built executable: a navigator panel and a navigator
// toolbar filled through "Add Navigator Buttons...", one button restyled through "Edit Button Style...",
// and the saved form files read back to the same controls.
#include "hosttest.h"

using namespace hosttest;

namespace {

const std::filesystem::path ScriptDir = std::filesystem::path(__FILE__).parent_path() / "data";

class NavigatorScripts : public HostTest {
protected:
    // Runs a script of the test data with "$FORM" standing for Form, on the standard packages found
    // beside the executable.
    Json Run(const std::string& Name, const std::filesystem::path& Form) {
        std::string text = ReadAll(ScriptDir / Name);
        for (size_t at; (at = text.find("$FORM")) != std::string::npos;)
            text.replace(at, 5, Form.string());
        auto file = Dir / Name;
        WriteAll(file, text);
        TRun r = RunRaw({"--system-dir", (Dir / "system").string(), "run", file.string()});
        Json t = Json::parse(r.Out, nullptr, false);
        EXPECT_FALSE(t.is_discarded()) << r.Out << r.Err;
        if (t.is_discarded()) return Json::object();
        EXPECT_EQ(r.Status, 0) << r.Err << Failures(t);
        EXPECT_TRUE(t.value("ok", false)) << Failures(t);
        return t;
    }
    static std::string Failures(const Json& t) {
        std::string s = t.contains("failure") ? t["failure"].dump() : std::string();
        for (const auto& step : t.value("steps", Json::array()))
            if (!step.value("ok", false)) s += "\n" + step.dump();
        return s;
    }
    // The form as the transcript describes it after reading File back.
    Json ReadBack(const std::filesystem::path& File) {
        auto script = Dir / "open.json";
        WriteAll(script, Json::array({{{"op", "open"}, {"file", File.string()}}}).dump());
        TRun r = RunRaw({"--system-dir", (Dir / "system").string(), "run", script.string()});
        EXPECT_EQ(r.Status, 0) << r.Err << r.Out;
        Json t = Json::parse(r.Out, nullptr, false);
        return t.is_discarded() ? Json::object() : t["form"]["components"];
    }
    static const Json* Component(const Json& Components, const std::string& Name) {
        for (const auto& c : Components)
            if (c["name"] == Name) return &c;
        return nullptr;
    }
};

} // namespace

TEST_F(NavigatorScripts, ThePanelWizardFillsAPanelThatReadsBackTheSame) {
    auto form = Dir / "NavForm.dfm";
    Json t = Run("navigator_panel.json", form);
    ASSERT_TRUE(t.contains("form"));
    const Json& made = t["form"]["components"];
    ASSERT_EQ(made.size(), 4u) << made.dump();

    // The buttons stand in one row inside the panel, in the order chosen, 80 x 30 each.
    std::vector<std::string> names;
    for (const auto& c : made)
        names.push_back(c["name"]);
    EXPECT_EQ(names,
              (std::vector<std::string>{"jexNavPanel1", "jexnpFirst1", "jexnpNext1", "jexnpBookmark1"}));
    int left = -1;
    for (const char* name : {"jexnpFirst1", "jexnpNext1", "jexnpBookmark1"}) {
        const Json* c = Component(made, name);
        ASSERT_NE(c, nullptr) << name;
        EXPECT_EQ((*c)["parent"], "jexNavPanel1");
        EXPECT_EQ((*c)["bounds"][2], 80);
        EXPECT_EQ((*c)["bounds"][3], 30);
        EXPECT_GT((*c)["bounds"][0].get<int>(), left) << name;
        left = (*c)["bounds"][0].get<int>();
    }
    // The panel was resized around them.
    const Json* panel = Component(made, "jexNavPanel1");
    ASSERT_NE(panel, nullptr);
    EXPECT_GE((*panel)["bounds"][2].get<int>(), 3 * 80);
    EXPECT_EQ(t["verbs"][0]["editor"], "TjexNavPanelEditor");
    ASSERT_EQ(t["forms"].size(), 1u);
    EXPECT_EQ(t["forms"][0]["caption"], "Add Navigator Buttons");

    // The file names the classes and keeps the texts; read back, the same controls stand in the same places.
    std::string text = ReadAll(form);
    for (const char* line :
         {"object jexnpNext1: TjexnpNext", "Caption = 'Forward'", "Hint = 'Start|Go to the first record'"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
    EXPECT_EQ(ReadBack(form), made);
}

TEST_F(NavigatorScripts, TheToolbarWizardMarksTheFormOnlyWhenButtonsWereMade) {
    auto form = Dir / "BarForm.dfm";
    Json t = Run("navigator_toolbar.json", form);
    ASSERT_TRUE(t.contains("form"));
    const Json& made = t["form"]["components"];
    // Six navigation buttons and the state label, all on the toolbar.
    ASSERT_EQ(made.size(), 8u) << made.dump();
    for (const auto& c : made)
        if (c["name"] != "jexNavToolbar1") EXPECT_EQ(c["parent"], "jexNavToolbar1") << c.dump();
    ASSERT_EQ(t["forms"].size(), 2u);
    EXPECT_EQ(t["forms"][0]["result"], "cancel");
    EXPECT_EQ(t["forms"][1]["result"], "ok");
    EXPECT_EQ(ReadBack(form), made);
}

TEST_F(NavigatorScripts, TheButtonEditorRestylesOneButtonInPlace) {
    auto form = Dir / "NavForm.dfm";
    Json first = Run("navigator_panel.json", form);
    ASSERT_TRUE(first.contains("form"));
    Json t = Run("navigator_button.json", form);
    ASSERT_TRUE(t.contains("form"));
    ASSERT_EQ(t["forms"].size(), 1u);
    EXPECT_EQ(t["forms"][0]["caption"], "Set Button Properties");
    EXPECT_EQ(t["verbs"][0]["editor"], "TjexnpButtonEditor");

    // Read back, the button keeps its place and has its new size; the other buttons are as they were.
    Json back = ReadBack(form);
    ASSERT_EQ(back.size(), first["form"]["components"].size());
    for (const auto& before : first["form"]["components"]) {
        const Json* after = Component(back, before["name"]);
        ASSERT_NE(after, nullptr) << before.dump();
        Json want = before;
        if (before["name"] == "jexnpNext1")
            want["bounds"] = {before["bounds"][0], before["bounds"][1], 25, 25};
        EXPECT_EQ(*after, want);
    }
    EXPECT_NE(ReadAll(form).find("Caption = 'Onward'"), std::string::npos);
}
