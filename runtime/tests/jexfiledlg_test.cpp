// Tests of file and folder choosing through the scripted user interface and real folders: the folder
// dialog and its history, the file and folder edits with their wrapped dialogs, resource and video data,
// shell-execute parameters and the page setup dialog.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "jex/jexfiledlg.h"
#include "rtl/streaming.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

class FileDlgTest : public ::testing::Test {
protected:
    void SetUp() override {
        dir = std::filesystem::temp_directory_path() /
              ("jexfiledlg_test_" + std::to_string(::getpid()) + "_" +
               ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::create_directories(dir / "sub");
        std::ofstream(dir / "a.txt") << "text";
    }
    void TearDown() override { std::filesystem::remove_all(dir); }
    std::string P(const std::string& name) const { return (dir / name).string(); }
    std::filesystem::path dir;
    TScriptedUI ui;
};

TEST_F(FileDlgTest, TheFolderDialogChecksTheFolderAndKeepsAHistory) {
    TjexDirectoryDialog dialog(nullptr);
    dialog.SetTitle("Pick");
    dialog.SetOptions({jdoPathMustExist, jdoAddToHistory});
    ui.AnswerFolder(P("sub"));
    ASSERT_TRUE(dialog.Execute());
    EXPECT_EQ(dialog.Directory(), P("sub"));
    ASSERT_FALSE(ui.Dialogs().empty());
    EXPECT_EQ(ui.Dialogs().back().Title, "Pick");
    // A missing folder is refused (the person is told and asked again; here they cancel).
    ui.AnswerFolder(P("missing"));
    ui.AnswerFolder(std::nullopt);
    EXPECT_FALSE(dialog.Execute());
    EXPECT_EQ(dialog.Directory(), P("sub"));
    EXPECT_FALSE(std::filesystem::exists(dir / "missing"));
    // Without jdoPathMustExist it is taken as typed.
    dialog.SetOptions({jdoAddToHistory});
    ui.AnswerFolder(P("missing"));
    ASSERT_TRUE(dialog.Execute());
    ui.AnswerFolder(P("sub"));
    ASSERT_TRUE(dialog.Execute());
    EXPECT_EQ(dialog.HistoryList()->Text(), P("sub") + "\r\n" + P("missing") + "\r\n");
    // With jdoPerformCreate it is made.
    dialog.SetOptions({jdoAllowCreate, jdoPerformCreate, jdoPathMustExist});
    ui.AnswerFolder(P("made"));
    ASSERT_TRUE(dialog.Execute());
    EXPECT_TRUE(std::filesystem::is_directory(dir / "made"));
}

TEST_F(FileDlgTest, FileEditsRunTheirDialogsFromTheText) {
    TjexFileOpenEdit edit(nullptr);
    edit.OpenDialog()->SetFilter("Text (*.txt)|*.txt");
    edit.OpenDialog()->SetOptions({ofFileMustExist});
    EXPECT_EQ(edit.Dialog()->Filter(), "Text (*.txt)|*.txt");
    int after = 0;
    edit.OnAfterDialog = [&](rtl::TObject*) { ++after; };
    ui.AnswerOpen(P("a.txt"));
    EXPECT_TRUE(edit.ButtonClick());
    EXPECT_EQ(edit.Text(), P("a.txt"));
    EXPECT_EQ(after, 1);
    ui.AnswerOpen(std::nullopt);
    edit.ButtonClick();
    EXPECT_EQ(edit.Text(), P("a.txt"));
    EXPECT_EQ(after, 1);
    // The dialog starts from the text.
    edit.SetText(P("b.txt"));
    ui.AnswerOpen(std::nullopt);
    EXPECT_FALSE(edit.Execute());
    EXPECT_EQ(edit.Dialog()->FileName(), P("b.txt"));

    TjexFileSaveEdit save(nullptr);
    save.SaveDialog()->SetDefaultExt("log");
    ui.AnswerSave(P("out"));
    ASSERT_TRUE(save.Execute());
    EXPECT_EQ(save.Text(), P("out.log"));

    TjexDirectoryEdit folder(nullptr);
    folder.SetText(P("sub"));
    ui.AnswerFolder(P("sub"));
    ASSERT_TRUE(folder.Execute());
    EXPECT_EQ(folder.Dialog()->Directory(), P("sub"));
    folder.DirDialog()->SetOptions({jdoShowHelp});
    EXPECT_TRUE(folder.Dialog()->Options().Contains(jdoShowHelp));
}

TEST_F(FileDlgTest, TheWrappedDialogSettingsSurviveAFormFile) {
    rtl::RegisterClasses(
        {TForm::StaticClass(), TjexFileOpenEdit::StaticClass(), TjexDirectoryEdit::StaticClass()});
    auto* form = new TForm(nullptr);
    form->SetName("Form1");
    auto* edit = new TjexFileOpenEdit(form);
    edit->SetName("Edit1");
    edit->SetParent(form);
    edit->OpenDialog()->SetFilter("Logs|*.log");
    edit->OpenDialog()->SetTitle("Open log");
    auto* folder = new TjexDirectoryEdit(form);
    folder->SetName("Folder1");
    folder->SetParent(form);
    folder->DirDialog()->HistoryList()->Add("/tmp");
    std::string text = rtl::WriteComponentText(form);
    EXPECT_NE(text.find("OpenDialog.Filter = 'Logs|*.log'"), std::string::npos) << text;
    auto* copy = rtl::ReadComponentText(text, nullptr);
    EXPECT_EQ(dynamic_cast<TjexFileOpenEdit*>(copy->FindComponent("Edit1"))->Dialog()->Title(), "Open log");
    EXPECT_EQ(
        dynamic_cast<TjexDirectoryEdit*>(copy->FindComponent("Folder1"))->Dialog()->HistoryList()->Text(),
        "/tmp\r\n");
    copy->Free();
    form->Free();
    rtl::UnRegisterClasses(
        {TForm::StaticClass(), TjexFileOpenEdit::StaticClass(), TjexDirectoryEdit::StaticClass()});
}

TEST_F(FileDlgTest, ResourceDataTakesFilesAndTheirType) {
    TjexResourceData res;
    res.LoadFromFile(P("a.txt"));
    EXPECT_EQ(res.ResourceType(), "RCDATA");
    EXPECT_EQ(res.Data()->Size(), 4u);
    EXPECT_EQ(res.FileName(), P("a.txt"));
    EXPECT_THROW(res.LoadFromFile(P("none.bmp")), rtl::EFOpenError);
    EXPECT_EQ(res.FileName(), P("a.txt"));
    EXPECT_EQ(TjexResourceData::TypeForExtension(".Wav"), "WAVE");
    EXPECT_EQ(TjexResourceData::TypeForExtension(".bmp"), "BITMAP");
}

TEST_F(FileDlgTest, VideoDataIsCheckedAndItsHeaderRead) {
    auto le32 = [](uint32_t v) {
        return std::string{char(v & 0xFF), char((v >> 8) & 0xFF), char((v >> 16) & 0xFF),
                           char((v >> 24) & 0xFF)};
    };
    std::string avih = le32(66666) + le32(0) + le32(0) + le32(0) + le32(12) + le32(0) + le32(1) + le32(0) +
                       le32(160) + le32(120) + std::string(16, '\0');
    std::string hdrl = "hdrl" + std::string("avih") + le32(avih.size()) + avih;
    std::string body = "AVI " + std::string("LIST") + le32(hdrl.size()) + hdrl;
    std::string file = "RIFF" + le32(body.size()) + body;
    std::ofstream(dir / "clip.avi", std::ios::binary) << file;
    TjexAVISource src;
    EXPECT_TRUE(src.Empty());
    src.SetFileName(P("clip.avi"));
    TjexAVIInfo info = src.Info();
    EXPECT_EQ(info.Width, 160);
    EXPECT_EQ(info.Height, 120);
    EXPECT_EQ(info.FrameCount, 12);
    EXPECT_EQ(info.MicroSecPerFrame, 66666);
    src.Data()->LoadFromFile(P("clip.avi"));
    src.SetFileName("");
    EXPECT_EQ(src.Info().FrameCount, 12);
    EXPECT_THROW(src.Data()->LoadFromFile(P("a.txt")), rtl::EConvertError);
    EXPECT_EQ(src.Data()->Size(), file.size());
}

TEST_F(FileDlgTest, ShellParametersGoToTheDesktop) {
    TjexShellExecParams params;
    EXPECT_THROW(params.Execute(), rtl::EInvalidOperation);
    params.SetFileName(P("a.txt"));
    params.SetVerb("print");
    params.SetShowCmd(jscMinimized);
    EXPECT_TRUE(params.Execute());
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].Verb, "print");
    EXPECT_EQ(ui.ShellExecutes()[0].ShowCmd, SW_SHOWMINIMIZED);
    ui.ShellExecuteResult = 2; // the desktop could not find it
    EXPECT_FALSE(params.Execute());
    EXPECT_EQ(params.LastResult(), 2);
}

TEST_F(FileDlgTest, PageSetupRefusesMarginsBelowTheMinimum) {
    TjexPageSetupDialog dialog(nullptr);
    dialog.SetOptions({jpsMinMargins});
    dialog.MinMargins()->SetLeft(500);
    ui.OnForm("TjexPageSetupForm", [](TFormDriver& d) {
        EXPECT_EQ(d.Get<TSpinEdit>("speLeft")->Value(), 1000);
        d.SetValue("speLeft", 200);
        d.Click("btnOK"); // refused: the window stays
        EXPECT_FALSE(d.Closed());
        d.SetValue("speLeft", 600);
        d.SetValue("speBottom", 750);
        d.Click("btnOK");
    });
    ASSERT_TRUE(dialog.Execute());
    EXPECT_EQ(dialog.Margins()->Left(), 600);
    EXPECT_EQ(dialog.Margins()->Bottom(), 750);
    EXPECT_EQ(ui.Messages().size(), 1u);
    ui.OnForm("TjexPageSetupForm", [](TFormDriver& d) {
        d.SetValue("speTop", 10);
        d.Click("btnCancel");
    });
    EXPECT_FALSE(dialog.Execute());
    EXPECT_EQ(dialog.Margins()->Top(), 1000);
}

} // namespace
