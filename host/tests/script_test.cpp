// Design scripts run by the built executable: a small form built from the test packages' classes with a
// dialog, a message box and a colour dialog answered, saved and read back; the File, Help and Component
// menus; clipboard and deletion; and the ways a script fails.
#include "commands.h"
#include "host.h"
#include "hosttest.h"
#include "rtl/streaming.h"
#include "script.h"

using namespace hosttest;

namespace {

class Scripts : public HostTest {
protected:
    Json Transcript(const TRun& r) {
        Json t = Json::parse(r.Out, nullptr, false);
        EXPECT_FALSE(t.is_discarded()) << r.Out << r.Err;
        return t;
    }
    std::vector<std::string> ComponentNames(const Json& t) {
        std::vector<std::string> v;
        for (const auto& c : t["form"]["components"])
            v.push_back(c["name"].get<std::string>());
        return v;
    }
    std::string FormFile() const { return (Dir / "Gauges.dfm").string(); }
};

} // namespace

// The script text with the form file's name put in.
static Json GaugeScript(const std::string& file) {
    Json script = Json::parse(R"js([
      {"op": "new", "name": "MainForm"},
      {"op": "drop", "class": "TPanel"},
      {"op": "drop", "class": "TTestGauge", "parent": "Panel1", "left": 4, "top": 4, "width": 120, "height": 30},
      {"op": "drop", "class": "TTestLamp"},
      {"op": "pick", "component": "TestLamp1", "property": "Brightness", "value": "50"},
      {"op": "set", "property": "Brightness", "value": "abc", "expectError": "is not a valid integer value"},
      {"op": "expect", "component": "TestLamp1", "property": "Brightness", "value": "50"},
      {"op": "set", "component": "TestLamp1", "property": "Caption", "value": "Desk lamp"},
      {"op": "answer", "color": "clRed"},
      {"op": "edit", "component": "TestLamp1", "property": "LampColor"},
      {"op": "verb", "component": "TestLamp1", "verb": "Switch On"},
      {"op": "answer", "form": "TGaugeSetupDialog", "actions": [
          {"type": "TitleEdit", "text": "Speed"},
          {"type": "MaxEdit", "text": "x"},
          {"answer": {"message": "ok", "text": "'x' is not a number"}},
          {"click": "OKButton"},
          {"expect": "MaxEdit", "caption": "x"},
          {"type": "MaxEdit", "text": "250"},
          {"check": "ShowTextCheck", "checked": false},
          {"click": "OKButton"}]},
      {"op": "verb", "component": "TestGauge1", "verb": 0},
      {"op": "answer", "message": "no", "contains": "Reset TestGauge1"},
      {"op": "verb", "component": "TestGauge1", "verb": "&Reset"},
      {"op": "answer", "form": "TForm", "actions": [{"type": "Edit", "text": "Fuel"}], "close": "ok"},
      {"op": "edit", "component": "TestGauge1", "property": "Title"},
      {"op": "hint", "class": "TTestLamp"},
      {"op": "expect", "hint": "TestLamp", "modified": true, "message": "Reset TestGauge1 to its defaults?"},
      {"op": "expect", "component": "TestGauge1", "parent": "Panel1", "property": "MaxValue", "value": "250"},
      {"op": "save", "file": ""},
      {"op": "expect", "modified": false, "componentCount": 3}
    ])js");
    for (auto& step : script)
        if (step["op"] == "save") step["file"] = file;
    return script;
}

TEST_F(Scripts, BuildsAFormThroughDialogsAndSavesIt) {
    TRun r = RunScript(GaugeScript(FormFile()), AllPackages());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_TRUE(t["ok"].get<bool>());
    for (const auto& step : t["steps"])
        EXPECT_TRUE(step["ok"].get<bool>()) << step.dump();
    EXPECT_EQ(t["steps"][1]["result"]["name"], "Panel1");
    EXPECT_EQ(t["steps"][2]["result"]["parent"], "Panel1");
    EXPECT_EQ(t["steps"][2]["result"]["bounds"], Json::array({4, 4, 120, 30}));
    EXPECT_EQ(t["steps"][4]["result"]["values"], Json::array({"0", "50", "100"}));
    EXPECT_NE(t["steps"][5]["expectedError"].get<std::string>().find("'abc'"), std::string::npos);

    // The setup dialog: shown with the gauge's values, closed with OK and the typed ones.
    ASSERT_EQ(t["forms"].size(), 2u);
    const Json& setup = t["forms"][0];
    EXPECT_EQ(setup["class"], "TGaugeSetupDialog");
    EXPECT_TRUE(setup["modal"].get<bool>());
    EXPECT_EQ(setup["result"], "ok");
    auto control = [](const Json& desc, const std::string& name) {
        for (const auto& c : desc["children"])
            if (c["name"] == name) return c;
        return Json();
    };
    EXPECT_EQ(control(setup["atShow"], "MaxEdit")["caption"], "100");
    EXPECT_EQ(control(setup["atClose"], "MaxEdit")["caption"], "250");
    EXPECT_EQ(control(setup["atClose"], "ShowTextCheck")["checked"], false);
    EXPECT_EQ(t["forms"][1]["class"], "TForm");
    EXPECT_EQ(t["forms"][1]["caption"], "Gauge Title");

    // The refusal inside the dialog, then the reset question answered No.
    ASSERT_EQ(t["messages"].size(), 2u);
    EXPECT_EQ(t["messages"][0]["type"], "mtError");
    EXPECT_EQ(t["messages"][0]["answer"], "mbOK");
    EXPECT_EQ(t["messages"][1]["text"], "Reset TestGauge1 to its defaults?");
    EXPECT_EQ(t["messages"][1]["buttons"], Json::array({"mbYes", "mbNo"}));
    EXPECT_EQ(t["messages"][1]["answer"], "mbNo");
    ASSERT_EQ(t["dialogs"].size(), 1u);
    EXPECT_EQ(t["dialogs"][0]["kind"], "color");
    EXPECT_EQ(t["dialogs"][0]["chosen"], Json::array({"clRed"}));
    EXPECT_EQ(t["hints"], Json::array({"TestLamp"}));
    EXPECT_EQ(t["steps"][17]["result"]["shown"], "TestLamp");
    ASSERT_EQ(t["verbs"].size(), 3u);
    EXPECT_EQ(t["verbs"][0]["verb"], "&Switch On");
    EXPECT_EQ(t["verbs"][1]["editor"], "TGaugeEditor");
    EXPECT_EQ(t["steps"][12]["shown"]["forms"], Json::array({0}));
    EXPECT_EQ(t["steps"][12]["shown"]["messages"], Json::array({0}));
    EXPECT_FALSE(t["modified"].get<bool>());
    EXPECT_EQ(t["unusedAnswers"], 0);
    EXPECT_EQ(t["form"]["name"], "MainForm");
    EXPECT_EQ(t["form"]["file"], FormFile());
    EXPECT_EQ(ComponentNames(t), (std::vector<std::string>{"Panel1", "TestGauge1", "TestLamp1"}));

    std::string text = ReadAll(FormFile());
    for (const char* line :
         {"object MainForm: TForm", "object Panel1: TPanel", "object TestGauge1: TTestGauge",
          "MaxValue = 250", "Title = 'Fuel'", "ShowText = False", "object TestLamp1: TTestLamp",
          "Brightness = 100", "LampColor = clRed", "Caption = 'Desk lamp'"})
        EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
}

TEST_F(Scripts, TheSavedFormReadsBackToTheSameTree) {
    TRun r = RunScript(GaugeScript(FormFile()), AllPackages());
    ASSERT_EQ(r.Status, 0) << r.Err;
    std::string saved = ReadAll(FormFile());

    // Read in this process with the platform's streaming, the packages loaded by a host of our own.
    {
        host::TScriptUI ui;
        host::THostOptions options;
        options.LoadStandardPackages = false;
        options.SystemDir = (Dir / "system").string();
        options.PackageAliases = {{"jexbuiltin", "vcl60"}};
        options.Packages = {JEX_LAMP_PACKAGE, JEX_HOSTTEST_PACKAGE};
        host::THost h(options);
        h.Start();
        rtl::TComponent* root = rtl::ReadComponentText(saved, nullptr);
        ASSERT_NE(root, nullptr);
        EXPECT_EQ(rtl::WriteComponentText(root), saved);
        rtl::TComponent* gauge = root->FindComponent("TestGauge1");
        ASSERT_NE(gauge, nullptr);
        ASSERT_NE(gauge->GetParentComponent(), nullptr);
        EXPECT_EQ(gauge->GetParentComponent()->Name(), "Panel1");
        EXPECT_EQ(rtl::GetStrProp(gauge, "Title"), "Fuel");
        EXPECT_EQ(rtl::GetOrdProp(root->FindComponent("TestLamp1"), "Brightness"), 100);
        root->Free();
    }

    // And by the designer of another run: open, check, save again unchanged.
    Json reopen = Json::array();
    reopen.push_back({{"op", "open"}, {"file", FormFile()}});
    reopen.push_back({{"op", "expect"},
                      {"component", "TestGauge1"},
                      {"parent", "Panel1"},
                      {"property", "Title"},
                      {"value", "Fuel"}});
    reopen.push_back(
        {{"op", "expect"}, {"component", "TestLamp1"}, {"property", "LampColor"}, {"value", "clRed"}});
    reopen.push_back({{"op", "save"}, {"file", (Dir / "again.dfm").string()}});
    TRun again = RunScript(reopen, AllPackages());
    ASSERT_EQ(again.Status, 0) << again.Err << again.Out;
    EXPECT_EQ(ReadAll(Dir / "again.dfm"), saved);
}

TEST_F(Scripts, AnUnansweredDialogFailsTheRun) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestGauge"},
      {"op": "verb", "component": "TestGauge1", "verb": "Configure..."},
      {"op": "expect", "exists": "TestGauge1"}
    ])js");
    TRun r = RunScript(script, AllPackages());
    EXPECT_EQ(r.Status, 1);
    EXPECT_EQ(LineCount(r.Err), 1) << r.Err;
    EXPECT_NE(r.Err.find("No scripted answer for form TGaugeSetupDialog 'Gauge Setup'"), std::string::npos)
        << r.Err;
    Json t = Transcript(r);
    EXPECT_FALSE(t["ok"].get<bool>());
    EXPECT_FALSE(t["steps"][2]["ok"].get<bool>());
    EXPECT_EQ(t["steps"][2]["errorClass"], "EScriptedUIError");
    EXPECT_TRUE(t["steps"][3]["skipped"].get<bool>());
    ASSERT_EQ(t["unanswered"].size(), 1u);
    EXPECT_EQ(t["unanswered"][0]["kind"], "form");
}

TEST_F(Scripts, AnUnansweredMessageFailsEvenWhenOnErrorSaysContinue) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestGauge"},
      {"op": "verb", "component": "TestGauge1", "verb": 1, "onError": "continue"},
      {"op": "expect", "exists": "TestGauge1"}
    ])js");
    TRun r = RunScript(script, AllPackages());
    EXPECT_EQ(r.Status, 1);
    Json t = Transcript(r);
    EXPECT_NE(t["failure"].get<std::string>().find("No scripted answer for the message 'Reset TestGauge1"),
              std::string::npos)
        << t["failure"];
    EXPECT_EQ(t["unanswered"][0]["kind"], "message");
    EXPECT_TRUE(t["steps"][3]["skipped"].get<bool>());
}

TEST_F(Scripts, AMessageWithOtherTextThanExpectedFails) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestGauge"},
      {"op": "answer", "message": "yes", "text": "Something else"},
      {"op": "verb", "component": "TestGauge1", "verb": "Reset"}
    ])js");
    TRun r = RunScript(script, AllPackages());
    EXPECT_EQ(r.Status, 1);
    EXPECT_NE(r.Err.find("is not the expected 'Something else'"), std::string::npos) << r.Err;
}

TEST_F(Scripts, BadStepsAreRefusedBeforeAnythingRuns) {
    struct TCase {
        const char* Script;
        const char* Error;
    } cases[] = {
        {R"js([{"op": "new"}, {"op": "frobnicate"}])js", "step 2 (frobnicate): unknown op 'frobnicate'"},
        {R"js([{"op": "drop"}])js", "step 1 (drop): missing field 'class'"},
        {R"js([{"op": "drop", "class": 5}])js", "step 1 (drop): field 'class' has the wrong type"},
        {R"js([{"op": "new", "colour": "red"}])js", "step 1 (new): unknown field 'colour'"},
        {R"js([{"op": "answer", "message": "perhaps"}])js", "Unknown message button 'perhaps'"},
        {R"js([{"op": "answer", "form": "TX", "actions": [{"click": "A", "type": "B"}]}])js",
         "exactly one of"},
        {R"js([{"op": "set", "property": "Caption", "value": "x", "onError": "shrug"}])js",
         "onError is stop or continue"},
        {R"js([{"op": "expect"}])js", "nothing to expect"},
        {R"js([{"op": "answer", "open": "x", "close": "ok"}])js", "actions and close go with a form answer"},
        {R"js([])js", "The script has no steps"},
        {"{\"op\": \"new\"}\nnot json\n", "line 2: not a JSON step"},
    };
    for (const auto& c : cases) {
        WriteAll(Dir / "bad.json", c.Script);
        // Saving would create this file: nothing may run.
        TRun r = Run({"run", (Dir / "bad.json").string()});
        EXPECT_EQ(r.Status, 2) << c.Script;
        EXPECT_TRUE(r.Out.empty()) << c.Script;
        EXPECT_EQ(LineCount(r.Err), 1) << r.Err;
        EXPECT_NE(r.Err.find(c.Error), std::string::npos) << c.Script << " -> " << r.Err;
    }
    TRun missing = Run({"run", (Dir / "nothere.json").string()});
    EXPECT_EQ(missing.Status, 2);
    EXPECT_EQ(LineCount(missing.Err), 1);
}

TEST_F(Scripts, StepsReadFromStandardInputAsJsonLines) {
    std::string lines =
        "{\"op\": \"new\", \"name\": \"Lines\"}\n"
        "\n"
        "{\"op\": \"drop\", \"class\": \"TButton\"}\n"
        "{\"op\": \"set\", \"property\": \"Caption\", \"value\": \"&Go\"}\n"
        "{\"op\": \"expect\", \"component\": \"Button1\", \"property\": \"Caption\", \"value\": \"&Go\"}\n";
    TRun r = Run({"run", "-"}, lines);
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_EQ(t["steps"].size(), 4u);
    EXPECT_EQ(t["form"]["name"], "Lines");
    EXPECT_EQ(t["steps"][2]["result"]["value"], "&Go");
}

TEST_F(Scripts, AFailedStepStopsUnlessItSaysContinue) {
    Json stop = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestLamp"},
      {"op": "set", "property": "Brightness", "value": "bright"},
      {"op": "set", "property": "Caption", "value": "never"}
    ])js");
    TRun r = RunScript(stop, LampOptions());
    EXPECT_EQ(r.Status, 1);
    Json t = Transcript(r);
    EXPECT_FALSE(t["steps"][2]["ok"].get<bool>());
    EXPECT_EQ(t["steps"][2]["errorClass"], "EConvertError");
    EXPECT_EQ(t["steps"][2]["result"]["value"], "0") << "the value is kept";
    EXPECT_TRUE(t["steps"][3]["skipped"].get<bool>());
    EXPECT_NE(r.Err.find("step 3 (set): 'bright' is not a valid integer value"), std::string::npos) << r.Err;

    stop[2]["onError"] = "continue";
    TRun c = RunScript(stop, LampOptions());
    EXPECT_EQ(c.Status, 1) << "a failed step fails the run even when it goes on";
    Json tc = Transcript(c);
    EXPECT_TRUE(tc["steps"][3]["ok"].get<bool>());
    EXPECT_EQ(tc["steps"][3]["result"]["value"], "never");
}

TEST_F(Scripts, PickAcceptsOnlyListedValues) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestLamp"},
      {"op": "pick", "property": "Brightness", "value": "75",
       "expectError": "'75' is not one of the values of Brightness: 0, 50, 100"},
      {"op": "pick", "property": "LampColor", "value": "clNavy"},
      {"op": "expect", "component": "TestLamp1", "property": "LampColor", "value": "clNavy"},
      {"op": "expect", "component": "TestLamp1", "property": "Brightness", "value": "1",
       "expectError": "TestLamp1.Brightness is '0', expected '1'"}
    ])js");
    TRun r = RunScript(script, LampOptions());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
}

TEST_F(Scripts, AnAnswerThatIsNeverUsedFailsTheRun) {
    Json script = Json::parse(R"js([{"op": "new"}, {"op": "answer", "message": "ok"}])js");
    TRun r = RunScript(script, {});
    EXPECT_EQ(r.Status, 1);
    EXPECT_EQ(Transcript(r)["unusedAnswers"], 1);
    EXPECT_NE(r.Err.find("1 queued answer was not used"), std::string::npos) << r.Err;
}

TEST_F(Scripts, FileMenuAsksBeforeLosingChanges) {
    std::string file = (Dir / "Menu.dfm").string();
    Json script = Json::parse(R"js([
      {"op": "new", "name": "Menus"},
      {"op": "drop", "class": "TLabel"},
      {"op": "answer", "message": "cancel", "text": "Save changes to Menus?"},
      {"op": "menu", "item": "FileNewItem"},
      {"op": "expect", "exists": "Label1", "modified": true},
      {"op": "answer", "save": ""},
      {"op": "menu", "item": "FileSaveItem"},
      {"op": "expect", "modified": false},
      {"op": "menu", "item": "FileNewItem"},
      {"op": "expect", "missing": "Label1", "componentCount": 0},
      {"op": "answer", "open": ""},
      {"op": "menu", "item": "FileOpenItem"},
      {"op": "expect", "exists": "Label1"},
      {"op": "menu", "item": "FileExitItem"},
      {"op": "expect", "exists": "NeverChecked"}
    ])js");
    script[5]["save"] = file;
    script[10]["open"] = file;
    TRun r = RunScript(script, {});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_TRUE(t["exited"].get<bool>());
    EXPECT_TRUE(t["steps"][14]["skipped"].get<bool>());
    EXPECT_EQ(t["messages"][0]["buttons"], Json::array({"mbYes", "mbNo", "mbCancel"}));
    EXPECT_EQ(t["messages"][0]["answer"], "mbCancel");
    ASSERT_EQ(t["dialogs"].size(), 2u);
    EXPECT_EQ(t["dialogs"][0]["kind"], "save");
    EXPECT_EQ(t["dialogs"][1]["kind"], "open");
    EXPECT_NE(ReadAll(file).find("object Label1: TLabel"), std::string::npos);
    EXPECT_EQ(t["form"]["file"], file);
}

TEST_F(Scripts, AMenuCommandThatFailsShowsTheExceptionBox) {
    WriteAll(Dir / "notaform.dfm", "just some text\n");
    Json script = Json::parse(R"js([
      {"op": "answer", "open": "FILE"},
      {"op": "answer", "message": "ok", "text": "The text is not a form file."},
      {"op": "menu", "item": "FileOpenItem"},
      {"op": "expect", "message": "The text is not a form file."}
    ])js");
    script[0]["open"] = (Dir / "notaform.dfm").string();
    TRun r = RunScript(script, {});
    EXPECT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    ASSERT_EQ(t["exceptions"].size(), 1u);
    EXPECT_EQ(t["exceptions"][0]["class"], "EParserError");
    EXPECT_EQ(t["messages"][0]["type"], "mtError");
    EXPECT_TRUE(t["form"].is_null()) << "nothing was opened";

    // Without an answer the box is unanswered.
    script.erase(1);
    TRun bad = RunScript(script, {});
    EXPECT_EQ(bad.Status, 1);
    EXPECT_NE(bad.Err.find("No scripted answer for the message 'The text is not a form file.'"),
              std::string::npos)
        << bad.Err;
    // Items that need a form are disabled without one; unknown items are errors.
    TRun disabled = RunScript(Json::parse(R"js([{"op": "menu", "item": "EditSelectAllItem"}])js"), {});
    EXPECT_EQ(disabled.Status, 1);
    EXPECT_NE(disabled.Err.find("Menu item 'EditSelectAllItem' is disabled"), std::string::npos)
        << disabled.Err;
    TRun none = RunScript(Json::parse(R"js([{"op": "menu", "item": "NoSuchItem"}])js"), {});
    EXPECT_EQ(none.Status, 1);
    EXPECT_NE(none.Err.find("The main menu has no item named 'NoSuchItem'"), std::string::npos) << none.Err;
}

TEST_F(Scripts, HelpMenuShowsTheAboutBoxAndRunsTheExpert) {
    Json script = Json::parse(R"js([
      {"op": "answer", "form": "TAboutBox", "actions": [{"click": "OKButton"}]},
      {"op": "menu", "item": "HelpAboutItem"},
      {"op": "menu", "item": "lampBrowseMenuItem"},
      {"op": "expect", "formShown": "TAboutBox"}
    ])js");
    TRun r = RunScript(script, LampOptions());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    ASSERT_EQ(t["forms"].size(), 1u);
    EXPECT_EQ(t["forms"][0]["result"], "ok");
    EXPECT_EQ(t["steps"][2]["result"]["caption"], "Browse Lamps...");
}

TEST_F(Scripts, InstallPackagesRefusesToRemoveAPackageTheFormUses) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestLamp"},
      {"op": "answer", "form": "TPackagesDialog", "actions": [
          {"expect": "PackageList", "items": ["jextestrt - Test lamps (run time)", "dcljextest - Test lamps (design)"]},
          {"select": "PackageList", "index": 1},
          {"answer": {"message": "yes", "text": "Remove the package dcljextest?"}},
          {"answer": {"message": "ok", "contains": "cannot be removed while TestLamp1"}},
          {"click": "RemoveButton"},
          {"select": "PackageList", "index": 0},
          {"answer": {"message": "yes"}},
          {"answer": {"message": "ok", "contains": "is required by dcljextest"}},
          {"click": "RemoveButton"}],
       "close": "ok"},
      {"op": "menu", "item": "ComponentInstallPackagesItem"},
      {"op": "delete", "component": "TestLamp1"},
      {"op": "answer", "form": "TPackagesDialog", "actions": [
          {"select": "PackageList", "index": 1},
          {"answer": {"message": "yes"}},
          {"click": "RemoveButton"},
          {"expect": "PackageList", "items": []},
          {"click": "OKButton"}]},
      {"op": "menu", "item": "ComponentInstallPackagesItem"},
      {"op": "drop", "class": "TTestLamp", "expectError": "Unknown component class 'TTestLamp'"}
    ])js");
    TRun r = RunScript(script, LampOptions());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
}

TEST_F(Scripts, ClipboardAndDeletion) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TPanel"},
      {"op": "drop", "class": "TButton", "parent": "Panel1"},
      {"op": "drop", "class": "TButton", "parent": "Button1", "expectError": "cannot hold other controls"},
      {"op": "copy", "component": "Panel1"},
      {"op": "paste"},
      {"op": "expect", "selected": ["Panel2"], "exists": "Button2"},
      {"op": "expect", "component": "Button2", "parent": "Panel2"},
      {"op": "select", "components": ["Panel1", "Button1"]},
      {"op": "menu", "item": "EditDeleteItem"},
      {"op": "expect", "missing": "Panel1", "componentCount": 2},
      {"op": "delete", "component": "Form1", "expectError": "The form itself cannot be deleted"},
      {"op": "dblclick", "component": "Button2"},
      {"op": "expect", "component": "Button2", "property": "OnClick", "value": "Button2Click"}
    ])js");
    TRun r = RunScript(script, {});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_EQ(t["steps"][5]["result"]["pasted"], Json::array({"Panel2"}));
    EXPECT_EQ(t["steps"][12]["result"]["method"], "Button2Click");
}

TEST_F(Scripts, DoubleClickRunsTheFirstVerb) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestLamp"},
      {"op": "dblclick", "component": "TestLamp1"},
      {"op": "expect", "component": "TestLamp1", "property": "Brightness", "value": "100", "modified": true},
      {"op": "verb", "component": "TestLamp1", "verb": 2, "expectError": "there is no verb 2"},
      {"op": "verb", "component": "TestLamp1", "verb": "Dim", "expectError": "has no verb 'Dim'"}
    ])js");
    TRun r = RunScript(script, LampOptions());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
}

TEST_F(Scripts, PaletteHintsGoThroughTheApplicationsHintHandler) {
    Json script = Json::parse(R"js([
      {"op": "hint", "class": "TPanel"},
      {"op": "expect", "hint": "Panel"},
      {"op": "hint", "class": "TMenuItem", "expectError": "TMenuItem has no icon on the palette"}
    ])js");
    TRun r = RunScript(script, {});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    EXPECT_EQ(Transcript(r)["hints"], Json::array({"Panel"}));
}

TEST_F(Scripts, AModelessWindowOfAPackageSeesPaletteHints) {
    Json script = Json::parse(R"js([
      {"op": "new"},
      {"op": "drop", "class": "TTestGauge"},
      {"op": "verb", "component": "TestGauge1", "verb": "Monitor"},
      {"op": "hint", "class": "TTestLamp"},
      {"op": "form", "class": "TGaugeMonitor", "actions": [
          {"expect": "HintLabel", "caption": "Hint: TestLamp"},
          {"click": "CloseButton"}]},
      {"op": "form", "class": "TGaugeMonitor", "actions": [], "expectError": "No open form of class TGaugeMonitor"},
      {"op": "hint", "class": "TPanel"},
      {"op": "verb", "component": "TestGauge1", "verb": "Monitor"}
    ])js");
    // The last window stays open: the host frees it before the package that made it goes.
    TRun r = RunScript(script, AllPackages());
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    ASSERT_EQ(t["forms"].size(), 2u);
    EXPECT_FALSE(t["forms"][0]["modal"].get<bool>());
    EXPECT_TRUE(t["forms"][0]["closed"].get<bool>());
    EXPECT_FALSE(t["forms"][1]["closed"].get<bool>());
    EXPECT_TRUE(t["steps"][4]["result"]["closed"].get<bool>());
    EXPECT_EQ(t["hints"], Json::array({"TestLamp", "Panel"}));
}

TEST_F(Scripts, EnvironmentOptionsChangeTheSystemDirectory) {
    std::filesystem::create_directories(Dir / "other");
    Json script = Json::parse(R"js([
      {"op": "answer", "form": "TEnvironmentOptionsDialog", "actions": [
          {"answer": {"folder": "FOLDER"}},
          {"click": "BrowseButton"},
          {"expect": "SystemDirEdit", "caption": "FOLDER"}],
       "close": "ok"},
      {"op": "menu", "item": "ToolsEnvironmentOptionsItem"},
      {"op": "answer", "form": "TAboutBox", "actions": [
          {"expect": "SystemDirLabel", "caption": "System directory: FOLDER"},
          {"key": "Enter"}]},
      {"op": "menu", "item": "HelpAboutItem"}
    ])js");
    std::string folder = (Dir / "other").string();
    std::string text = script.dump();
    for (size_t at; (at = text.find("FOLDER")) != std::string::npos;)
        text.replace(at, 6, folder);
    TRun r = RunScript(Json::parse(text), {});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_EQ(t["dialogs"][0]["kind"], "folder");
    EXPECT_EQ(t["forms"][1]["result"], "ok");
}

TEST_F(Scripts, OpensFramesAndFormsFromTextFormFiles) {
    WriteAll(Dir / "Frame.dfm",
             "object Frame1: TFrame1\n  Left = 0\n  Top = 0\n  Width = 320\n  Height = 240\n"
             "  TabOrder = 0\n  object Button1: TButton\n    Left = 8\n    Top = 8\n"
             "    Width = 75\n    Height = 25\n    Cursor = crHandPoint\n    Caption = 'Go'\n"
             "    TabOrder = 0\n  end\nend\n");
    WriteAll(Dir / "Broken.dfm", "object Form1: TForm1\n  object Button1: TNoSuchButton\n  end\nend\n");
    Json script = Json::array();
    script.push_back({{"op", "new"}, {"name", "Kept"}});
    script.push_back(
        {{"op", "open"}, {"file", (Dir / "Broken.dfm").string()}, {"expectError", "TNoSuchButton"}});
    script.push_back({{"op", "expect"}, {"component", "Kept"}, {"property", "Name"}, {"value", "Kept"}});
    script.push_back({{"op", "open"}, {"file", (Dir / "Frame.dfm").string()}});
    script.push_back(
        {{"op", "expect"}, {"component", "Button1"}, {"property", "Cursor"}, {"value", "crHandPoint"}});
    TRun r = RunScript(script, {});
    ASSERT_EQ(r.Status, 0) << r.Err << r.Out;
    Json t = Transcript(r);
    EXPECT_EQ(t["steps"][2]["ok"], true) << "a file that does not read leaves the open form as it was";
    EXPECT_EQ(t["form"]["name"], "Frame1");
    EXPECT_EQ(t["form"]["class"], "TFrame");
    EXPECT_EQ(t["steps"][3]["result"]["components"], 1);
}
