// Common dialogs checked against real files in a temporary folder, message box texts, and the JSON form
// description.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "vcl/dialogs.h"
#include "vcl/scripted_ui.h"
#include "vcl/stdctrls.h"

using namespace vcl;
namespace fs = std::filesystem;

namespace {

struct DialogsTest : ::testing::Test {
    TScriptedUI ui;
    fs::path dir;
    void SetUp() override {
        dir = fs::temp_directory_path() / ("jexvcl_dialogs_" + std::to_string(::getpid()) + "_" +
                                           ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(dir);
        std::ofstream(dir / "existing.txt") << "data";
        fs::create_directories(dir / "sub");
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string P(const std::string& name) const { return (dir / name).string(); }
};

TEST_F(DialogsTest, OpenDialogDefaultsAndFileMustExist) {
    TOpenDialog dlg(nullptr);
    EXPECT_EQ(dlg.Options(), (TOpenOptions{ofHideReadOnly, ofEnableSizing}));
    EXPECT_EQ(dlg.FilterIndex(), 1);
    dlg.SetOptions(dlg.Options() + TOpenOptions{ofFileMustExist});
    dlg.SetInitialDir(dir.string());
    ui.AnswerOpen("missing.txt"); // refused: the person is told and chooses again
    ui.AnswerOpen("existing.txt");
    EXPECT_TRUE(dlg.Execute());
    EXPECT_EQ(dlg.FileName(), P("existing.txt"));
    EXPECT_EQ(dlg.Files()->Count(), 1);
    ASSERT_EQ(ui.Messages().size(), 1u);
    EXPECT_EQ(ui.Messages()[0].Request.Text,
              P("missing.txt") + "\nFile not found.\nCheck the file name and try again.");
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Open");
    // Refused and then cancelled: FileName keeps its old value.
    ui.AnswerOpen(P("sub/nothing.txt"));
    ui.AnswerOpen(std::nullopt);
    EXPECT_FALSE(dlg.Execute());
    EXPECT_EQ(dlg.FileName(), P("existing.txt"));
    EXPECT_EQ(ui.Dialogs().size(), 4u);
    EXPECT_TRUE(ui.Dialogs().back().Cancelled);
    // No answer queued is an error, not a hang.
    EXPECT_THROW(dlg.Execute(), EScriptedUIError);
}

TEST_F(DialogsTest, PathMustExistAndFoldersAreNoFiles) {
    TOpenDialog dlg(nullptr);
    dlg.SetOptions(TOpenOptions{ofPathMustExist});
    ui.AnswerOpen(P("nowhere/file.txt"));
    ui.AnswerOpen(P("sub"));
    ui.AnswerOpen(P("sub/new.txt"));
    EXPECT_TRUE(dlg.Execute());
    EXPECT_EQ(dlg.FileName(), P("sub/new.txt")) << "a missing file in an existing folder is fine";
    auto texts = ui.MessageTexts();
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_NE(texts[0].find("The path does not exist."), std::string::npos);
    EXPECT_NE(texts[1].find("This is a folder"), std::string::npos);
}

TEST_F(DialogsTest, SaveDialogAddsDefaultExtAndAsksBeforeOverwriting) {
    TSaveDialog dlg(nullptr);
    dlg.SetInitialDir(dir.string());
    dlg.SetDefaultExt("txt");
    dlg.SetOptions(dlg.Options() + TOpenOptions{ofOverwritePrompt});
    ui.AnswerSave("existing"); // becomes existing.txt, which exists
    ui.AnswerMessage([](const TMessageRequest& r) {
        EXPECT_EQ(r.Buttons, (TMsgDlgButtons{mbYes, mbNo}));
        return mrNo;
    });
    ui.AnswerSave("existing");
    ui.AnswerMessage(mrYes);
    EXPECT_TRUE(dlg.Execute());
    EXPECT_EQ(dlg.FileName(), P("existing.txt"));
    EXPECT_EQ(ui.Messages().size(), 2u);
    EXPECT_NE(ui.Messages()[0].Request.Text.find("already exists.\nDo you want to replace it?"),
              std::string::npos);
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Save As");
    EXPECT_FALSE(dlg.Options().Contains(ofExtensionDifferent));
    ui.AnswerSave("fresh.dat");
    EXPECT_TRUE(dlg.Execute()) << "a new file needs no question";
    EXPECT_EQ(dlg.FileName(), P("fresh.dat"));
    EXPECT_TRUE(dlg.Options().Contains(ofExtensionDifferent));
    EXPECT_EQ(ui.Messages().size(), 2u);
    // Without the option, an existing file is taken silently.
    dlg.SetOptions(TOpenOptions{});
    ui.AnswerSave(P("existing.txt"));
    EXPECT_TRUE(dlg.Execute());
    EXPECT_EQ(ui.Messages().size(), 2u);
}

TEST_F(DialogsTest, MultiSelectCreatePromptAndOnCanClose) {
    TOpenDialog dlg(nullptr);
    dlg.SetInitialDir(dir.string());
    EXPECT_THROW(dlg.AcceptChoice({"a", "b"}), rtl::EInvalidOperation);
    dlg.SetOptions(TOpenOptions{ofAllowMultiSelect, ofFileMustExist, ofCreatePrompt});
    ui.AnswerOpen(std::vector<std::string>{"existing.txt", "made.txt"});
    ui.AnswerMessage(mrYes); // create made.txt?
    int asked = 0;
    dlg.OnCanClose = [&](rtl::TObject*, bool& CanClose) { CanClose = ++asked > 1; };
    ui.AnswerOpen(std::vector<std::string>{"existing.txt", "made.txt"});
    ui.AnswerMessage(mrYes);
    EXPECT_TRUE(dlg.Execute());
    EXPECT_EQ(asked, 2);
    EXPECT_EQ(dlg.Files()->ToVector(), (std::vector<std::string>{P("existing.txt"), P("made.txt")}));
}

TEST_F(DialogsTest, FilterParsingAndMatching) {
    auto items = ParseFilter("Text files (*.txt)|*.txt;*.text|All files (*.*)|*.*");
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].Description, "Text files (*.txt)");
    EXPECT_EQ(items[0].Pattern, "*.txt;*.text");
    EXPECT_TRUE(MatchesFilterPattern("README.TEXT", items[0].Pattern));
    EXPECT_FALSE(MatchesFilterPattern("readme.md", items[0].Pattern));
    EXPECT_TRUE(MatchesFilterPattern("Makefile", items[1].Pattern));
    EXPECT_TRUE(MatchesFilterPattern("jex_4_d.ini", "jex_?_d.*"));
    EXPECT_TRUE(ParseFilter("").empty());
}

TEST_F(DialogsTest, FolderDialogRefusesMissingFoldersUnlessAllowedToCreate) {
    std::string chosen = dir.string();
    ui.AnswerFolder(P("missing"));
    ui.AnswerFolder(P("existing.txt"));
    ui.AnswerFolder(P("sub/"));
    EXPECT_TRUE(SelectDirectory("Pick", dir.string(), chosen));
    EXPECT_EQ(chosen, P("sub"));
    EXPECT_EQ(ui.Messages().size(), 2u);
    std::string created = P("made/deeper");
    ui.AnswerFolder(created);
    ui.AnswerMessage(mrYes);
    EXPECT_TRUE(SelectDirectory(created, TSelectDirOpts{sdAllowCreate, sdPerformCreate, sdPrompt}, 0));
    EXPECT_TRUE(fs::is_directory(created));
}

TEST_F(DialogsTest, ColorAndFontDialogs) {
    TColorDialog cd(nullptr);
    ui.AnswerColor(clTeal);
    EXPECT_TRUE(cd.Execute());
    EXPECT_EQ(cd.Color(), clTeal);
    ui.AnswerColor(std::nullopt);
    EXPECT_FALSE(cd.Execute());
    EXPECT_EQ(cd.Color(), clTeal);

    TFontDialog fd(nullptr);
    EXPECT_EQ(fd.Options(), TFontDialogOptions{fdEffects});
    ASSERT_GT(Screen()->Fonts()->Count(), 0) << "the machine has fonts installed";
    std::string real = Screen()->Fonts()->Get(0);
    fd.SetOptions(TFontDialogOptions{fdForceFontExist, fdLimitSize});
    fd.SetMinFontSize(6);
    fd.SetMaxFontSize(20);
    ui.AnswerFont([](TFont& f) {
        f.SetName("No Such Font Family");
        return true;
    });
    ui.AnswerFont([&](TFont& f) {
        f.SetName(real);
        f.SetSize(48);
        return true;
    });
    ui.AnswerFont([&](TFont& f) {
        f.SetName(real);
        f.SetSize(12);
        f.SetStyle(TFontStyles{fsItalic});
        return true;
    });
    EXPECT_TRUE(fd.Execute());
    EXPECT_EQ(fd.Font()->Name(), real);
    EXPECT_EQ(fd.Font()->Size(), 12);
    auto texts = ui.MessageTexts();
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0], "There is no font with that name.\nChoose a font from the list of fonts.");
    EXPECT_EQ(texts[1], "Size must be between 6 and 20 points.");
}

TEST(MessageDialogs, TitlesButtonsAndResults) {
    EXPECT_EQ(ModalResultOf(mbYesToAll), mrYesToAll);
    EXPECT_EQ(ModalResultOf(mbNoToAll), 9);
    EXPECT_EQ(ModalResultOf(mbHelp), mrNone);
    EXPECT_EQ(*ButtonOfModalResult(mrIgnore), mbIgnore);
    EXPECT_FALSE(ButtonOfModalResult(99).has_value());
    EXPECT_EQ(MsgDlgTypeCaption(mtWarning), "Warning");
    EXPECT_EQ(MsgDlgTypeCaption(mtConfirmation), "Confirm");
    TScriptedUI ui;
    ui.AnswerMessage(mrRetry);
    EXPECT_EQ(MessageDlg("Disk busy", mtError, mbAbortRetryIgnore, 12), mrRetry);
    EXPECT_EQ(ui.Messages()[0].Request.HelpCtx, 12);
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Error");
}

TEST(FormDescription, JsonEscapesAndNestsTheControlTree) {
    TForm form(nullptr);
    form.SetName("Dlg");
    form.SetCaption("Say \"hi\"\\\n\x01");
    auto* lb = new TListBox(&form);
    lb->SetName("lst");
    lb->SetParent(&form);
    lb->Items()->SetCommaText("a,b");
    lb->SetItemIndex(1);
    auto* chk = new TCheckBox(&form);
    chk->SetName("chk");
    chk->SetParent(&form);
    chk->SetCaption(std::string("caf\xC3\xA9 \xFF"));
    TControlDesc d = DescribeControl(&form);
    ASSERT_EQ(d.Children.size(), 2u);
    EXPECT_EQ(d.Find("LST")->ItemIndex, 1);
    std::string json = ToJson(d);
    EXPECT_NE(json.find(R"("caption":"Say \"hi\"\\\n\u0001")"), std::string::npos) << json;
    EXPECT_NE(json.find(R"("items":["a","b"],"itemIndex":1)"), std::string::npos) << json;
    EXPECT_NE(json.find("caf\xC3\xA9 \xEF\xBF\xBD"), std::string::npos) << "invalid UTF-8 becomes U+FFFD";
    EXPECT_NE(json.find(R"("kind":"TCheckBox","name":"chk")"), std::string::npos);
    EXPECT_NE(json.find(R"("checked":false)"), std::string::npos);
    std::string pretty = ToJson(d, true);
    EXPECT_NE(pretty.find("\n  \"name\": \"Dlg\""), std::string::npos) << pretty;
    EXPECT_EQ(JsonQuote(""), "\"\"");
}

} // namespace
