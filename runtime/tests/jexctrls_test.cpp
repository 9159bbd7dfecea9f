// Tests of the edit and button-like controls: rich text and its editor window, the rich edit with real
// files, button edits, caption placement, the popup selector, key states, the focus highlighter and the
// tab sets, driven through the scripted user interface where a person acts.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "jex/jexctrls.h"
#include "rtl/streaming.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

namespace {

std::filesystem::path TempDir() {
    auto dir = std::filesystem::temp_directory_path() /
               ("jexctrls_test_" + std::to_string(::getpid()) + "_" +
                ::testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::create_directories(dir);
    return dir;
}

TEST(RichTextTest, HoldsOnlyRtfAndGivesItsPlainText) {
    TjexRichText text;
    EXPECT_THROW(text.SetData("plain", 5), rtl::EConvertError);
    EXPECT_TRUE(text.GetEmpty());
    text.SetPlainText("Caf\xC3\xA9 {one}\r\nback\\slash");
    std::string rtf(text.Bytes().begin(), text.Bytes().end());
    EXPECT_EQ(rtf.rfind("{\\rtf1", 0), 0u);
    EXPECT_NE(rtf.find("\\'e9"), std::string::npos);
    EXPECT_NE(rtf.find("\\{one\\}"), std::string::npos);
    EXPECT_EQ(text.PlainText(), "Caf\xC3\xA9 {one}\r\nback\\slash");
}

TEST(RichTextTest, EditingChangesTheDocumentOnlyWhenConfirmed) {
    TScriptedUI ui;
    TjexRichText text;
    text.SetPlainText("before");
    ui.OnForm("TjexRichEditorForm", [](TFormDriver& d) {
        EXPECT_EQ(d.Get<TMemo>("memText")->Text(), "before");
        d.Type("memText", "after");
        d.Click("btnCancel");
    });
    EXPECT_FALSE(text.Edit());
    EXPECT_EQ(text.PlainText(), "before");
    ui.OnForm("TjexRichEditorForm", [](TFormDriver& d) {
        d.Type("memText", "after");
        d.Click("btnOK");
    });
    EXPECT_TRUE(text.Edit());
    EXPECT_EQ(text.PlainText(), "after");
}

TEST(RichEditTest, FilesTemplatesAndTheEditorWindow) {
    TScriptedUI ui;
    auto dir = TempDir();
    std::string doc = (dir / "doc.rtf").string();
    std::ofstream(doc) << "{\\rtf1 Hello\\par World}";
    TjexRichEdit edit(nullptr);
    edit.LoadFromFile(doc);
    EXPECT_TRUE(edit.IsRichText());
    EXPECT_EQ(edit.FileName(), doc);
    EXPECT_EQ(edit.InitialDir(), dir.string() + "/");
    EXPECT_THROW(edit.LoadFromFile((dir / "missing.rtf").string()), rtl::EFOpenError);
    EXPECT_EQ(edit.FileName(), doc);
    EXPECT_FALSE(edit.DropFile(doc));
    edit.SetAcceptDroppedFiles(true);
    std::ofstream(dir / "two.txt") << "second";
    EXPECT_TRUE(edit.DropFile((dir / "two.txt").string()));
    EXPECT_EQ(edit.Text(), "second");

    edit.SetFileTemplate(doc);
    EXPECT_FALSE(edit.ApplyTemplate());
    edit.SetText("");
    EXPECT_TRUE(edit.ApplyTemplate());
    EXPECT_TRUE(edit.IsRichText());

    edit.SetEditorTitle("Notes");
    ui.OnForm("TjexRichEditorForm", [](TFormDriver& d) {
        EXPECT_EQ(d.Form()->Caption(), "Notes");
        d.Type("memText", "typed");
        d.Click("btnOK");
    });
    EXPECT_TRUE(edit.Edit());
    EXPECT_EQ(edit.Text(), "typed");
    EXPECT_THROW(edit.Print(), rtl::EInvalidOperation);
    std::filesystem::remove_all(dir);
}

TEST(ButtonEditTest, TheButtonRunsUnlessHiddenOrDisabled) {
    TjexButtonEdit edit(nullptr);
    edit.SetBounds(0, 0, 120, 21);
    int clicks = 0;
    edit.OnButtonClick = [&](rtl::TObject*) { ++clicks; };
    EXPECT_TRUE(edit.ButtonClick());
    edit.MouseDown(mbLeft, {}, 110, 5);
    EXPECT_EQ(clicks, 2);
    edit.MouseDown(mbLeft, {}, 10, 5);
    EXPECT_EQ(clicks, 2);
    uint16_t key = VK_RETURN;
    edit.KeyDown(key, {});
    EXPECT_EQ(clicks, 2);
    edit.SetClickOnEnterKey(true);
    EXPECT_TRUE(edit.WantsKey(VK_RETURN));
    edit.KeyDown(key, {});
    EXPECT_EQ(clicks, 3);
    EXPECT_EQ(key, 0);
    edit.DblClick();
    EXPECT_EQ(clicks, 3);
    edit.SetAutoClick(true);
    edit.DblClick();
    EXPECT_EQ(clicks, 4);
    edit.SetButtonDisabled(true);
    EXPECT_FALSE(edit.ButtonClick());
    edit.SetButtonDisabled(false);
    edit.SetButtonVisible(false);
    EXPECT_FALSE(edit.ButtonClick());
    EXPECT_EQ(edit.ButtonRect(), TRect{});
    EXPECT_EQ(clicks, 4);
}

TEST(CaptionTest, CaptionsArePlacedBesideTheBox) {
    TjexCheckBox box(nullptr);
    box.SetBounds(0, 0, 200, 40);
    box.SetCaption("Check");
    TRect r = box.CaptionRect();
    EXPECT_EQ(r.Left, 17);
    EXPECT_EQ(r.Top, (40 - r.Height()) / 2);
    box.SetAlignHorz(jahRight);
    box.SetAlignVert(javBottom);
    r = box.CaptionRect();
    EXPECT_EQ(r.Right, 200);
    EXPECT_EQ(r.Bottom, 40);
    box.SetAlignment(taLeftJustify); // the box on the right
    EXPECT_EQ(box.CaptionRect().Right, 183);
    TjexRadioButton radio(nullptr);
    radio.SetBounds(0, 0, 60, 40);
    radio.SetCaption("a rather long caption that wraps");
    radio.SetWordWrap(true);
    radio.SetAlignVert(javTop);
    EXPECT_GT(radio.CaptionRect().Height(), TextHeightOf(radio.Font()));
}

TEST(PopupSelectTest, APersonChoosesFromThePoppedUpColumns) {
    TScriptedUI ui;
    auto* form = new TForm(nullptr);
    form->SetBounds(0, 0, 400, 300);
    auto* sel = new TjexPopupSelect(form);
    sel->SetParent(form);
    sel->SetBounds(10, 100, 80, 20);
    for (int i = 0; i < 7; ++i)
        sel->Items()->Add("Item " + std::to_string(i));
    sel->SetItemsPerCol(3);
    int changes = 0;
    sel->OnChange = [&](rtl::TObject*) { ++changes; };
    sel->Click();
    ASSERT_EQ(ui.Popups().size(), 1u);
    TMenuItem* items = sel->Menu()->Items();
    ASSERT_EQ(items->Count(), 7);
    EXPECT_EQ(items->Items(4)->Tag(), 1);
    EXPECT_EQ(items->Items(6)->Tag(), 2);
    items->Items(4)->Click();
    EXPECT_EQ(sel->ItemIndex(), 4);
    EXPECT_EQ(sel->Caption(), "Item 4");
    EXPECT_EQ(changes, 1);
    TPoint over = sel->PopupPoint();
    sel->SetPopupYAdjust(false);
    TPoint below = sel->PopupPoint();
    EXPECT_EQ(below.Y - over.Y, 20 + (TextHeightOf(sel->Font()) + 6));
    sel->Items()->Delete(4);
    EXPECT_EQ(sel->Caption(), "Item 5");
    form->Free();
}

TEST(KeyStateTest, ShowsTheKeysThatAreOn) {
    TjexKeyState keys(nullptr);
    EXPECT_EQ(keys.Caption(), "INS");
    keys.KeyPressed(20); // Caps Lock
    keys.KeyPressed(VK_INSERT);
    EXPECT_EQ(keys.Caption(), "CAPS OVR");
    keys.SetShowINSAsOVR(false);
    EXPECT_EQ(keys.DisplayText(), "CAPS");
    keys.SetShowKeyStates({jksNumLock});
    keys.KeyPressed(144);
    EXPECT_EQ(keys.DisplayText(), "NUM");
    // With ToggleOnClick a click on a key's part flips it: here the one key shown.
    keys.SetToggleOnClick(true);
    keys.MouseDown(mbLeft, {}, 3, 3);
    EXPECT_FALSE(keys.KeyNumLock());

    // At run time the form's keys reach it.
    auto* form = new TForm(nullptr);
    auto* onForm = new TjexKeyState(form);
    onForm->SetParent(form);
    onForm->Loaded();
    uint16_t k = 145;
    form->KeyDown(k, {});
    EXPECT_TRUE(onForm->KeyScrollLock());
    form->Free();
}

TEST(ActiveHighlightTest, TheFocusedControlIsColouredUntilLeft) {
    TScriptedUI ui;
    auto* form = new TForm(nullptr);
    form->SetName("Form1");
    auto* a = new TEdit(form);
    a->SetName("EditA");
    a->SetParent(form);
    a->SetText("hello");
    auto* b = new TEdit(form);
    b->SetName("EditB");
    b->SetParent(form);
    b->SetColor(clLime);
    auto* hl = new TjexActiveHighlight(form);
    hl->SetHighlightColor(clYellow);
    hl->SetMoveCursor(true);
    hl->Loaded();
    form->Show();
    TFormDriver drive = ui.Drive(form);
    drive.Focus("EditA");
    EXPECT_EQ(a->Color(), clYellow);
    EXPECT_EQ(a->SelStart(), 5);
    drive.Focus("EditB");
    EXPECT_EQ(a->Color(), clWindow);
    EXPECT_EQ(b->Color(), clYellow);
    EXPECT_EQ(hl->Highlighted(), b);
    hl->Free();
    EXPECT_EQ(b->Color(), clLime);
    drive.Focus("EditA");
    EXPECT_EQ(a->Color(), clWindow);
    form->Free();
}

TEST(TabSetTest, TabsFollowTheirNotebook) {
    auto* form = new TForm(nullptr);
    auto* nb = new TNotebook(form);
    nb->SetParent(form);
    nb->Pages()->SetText("One\nTwo\nThree");
    nb->SetPageIndex(0);
    auto* tabs = new TjexAutoTabSet(form);
    tabs->SetParent(form);
    tabs->SetNoteBook(nb);
    EXPECT_EQ(tabs->Tabs()->Text(), "One\r\nTwo\r\nThree\r\n");
    tabs->UserSelect(2);
    EXPECT_EQ(nb->PageIndex(), 2);
    nb->SetPageIndex(1);
    EXPECT_EQ(tabs->TabIndex(), 1);
    nb->Free();
    EXPECT_EQ(tabs->NoteBook(), nullptr);
    form->Free();
}

TEST(TabSetTest, DocumentTabsListTheOpenChildForms) {
    TScriptedUI ui;
    auto* main = new TForm(nullptr);
    main->SetFormStyle(fsMDIForm);
    auto* tabs = new TjexMDITabs(main);
    tabs->SetParent(main);
    auto* doc1 = new TForm(nullptr);
    doc1->SetFormStyle(fsMDIChild);
    doc1->OnClose = [](rtl::TObject*, TCloseAction& Action) { Action = caHide; };
    doc1->SetCaption("Doc 1");
    doc1->Show();
    auto* doc2 = new TForm(nullptr);
    doc2->SetFormStyle(fsMDIChild);
    doc2->SetCaption("Doc 2");
    doc2->Show();
    tabs->RefreshTabs();
    EXPECT_EQ(tabs->Tabs()->Text(), "Doc 1\r\nDoc 2\r\n");
    EXPECT_TRUE(tabs->CloseTab(0));
    EXPECT_EQ(tabs->Tabs()->Text(), "Doc 2\r\n");
    tabs->SetOptions({jmtHideWhenEmpty});
    EXPECT_FALSE(tabs->CloseTab(0));
    doc2->Hide();
    tabs->RefreshTabs();
    EXPECT_FALSE(tabs->Visible());
    doc1->Free();
    doc2->Free();
    main->Free();
}

} // namespace
