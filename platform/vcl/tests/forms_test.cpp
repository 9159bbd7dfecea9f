// Forms driven through the scripted user interface: a dialog built in code like the real ones, modal
// results kept back by handlers, close queries and actions, focus and keys, hints and help.
#include <gtest/gtest.h>

#include "vcl/dialogs.h"
#include "vcl/scripted_ui.h"
#include "vcl/stdctrls.h"

using namespace vcl;

namespace {

// A dialog in the style of the package's: controls by name, events wired to methods in the constructor.
class TTestEntryDlg : public TForm {
    JEX_CLASS(TTestEntryDlg, TForm)
    explicit TTestEntryDlg(TComponent* AOwner) : TForm(AOwner) {
        SetName("TestEntryDlg");
        SetCaption("Add Entry");
        SetBorderStyle(bsDialog);
        SetClientWidth(300);
        SetClientHeight(200);
        edtName = Make<TEdit>("edtName", 8, 8, 200, 21);
        edtName->SetText("");
        chkActive = Make<TCheckBox>("chkActive", 8, 36, 120, 17);
        chkActive->SetCaption("Active");
        lstKinds = Make<TListBox>("lstKinds", 8, 60, 120, 80);
        lstKinds->Items()->SetCommaText("Alpha,Beta,Gamma");
        cboSize = Make<TComboBox>("cboSize", 140, 60, 120, 21);
        cboSize->SetStyle(csDropDownList);
        cboSize->Items()->SetCommaText("Small,Medium,Large");
        cboSize->SetItemIndex(1);
        btnOK = Make<TButton>("btnOK", 130, 170, 75, 25);
        btnOK->SetCaption("OK");
        btnOK->SetModalResult(mrOk);
        btnOK->SetDefault(true);
        btnCancel = Make<TButton>("btnCancel", 215, 170, 75, 25);
        btnCancel->SetCaption("Cancel");
        btnCancel->SetModalResult(mrCancel);
        btnCancel->SetCancel(true);
        OnCreate = TNotifyEvent(this, &TTestEntryDlg::FormCreate);
        OnShow = TNotifyEvent(this, &TTestEntryDlg::FormShow);
        OnCloseQuery = TCloseQueryEvent(this, &TTestEntryDlg::FormCloseQuery);
        btnOK->OnClick = TNotifyEvent(this, &TTestEntryDlg::OKClick);
        edtName->OnChange = TNotifyEvent(this, &TTestEntryDlg::NameChange);
        edtName->OnExit = TNotifyEvent(this, &TTestEntryDlg::NameExit);
        chkActive->OnClick = TNotifyEvent(this, &TTestEntryDlg::ActiveClick);
        lstKinds->OnClick = TNotifyEvent(this, &TTestEntryDlg::KindsClick);
        cboSize->OnChange = TNotifyEvent(this, &TTestEntryDlg::SizeChange);
    }
    template <class T> T* Make(const char* name, int l, int t, int w, int h) {
        auto* c = new T(this);
        c->SetName(name);
        c->SetParent(this);
        c->SetBounds(l, t, w, h);
        return c;
    }
    void FormCreate(rtl::TObject*) { Log.push_back("create"); }
    void FormShow(rtl::TObject*) { Log.push_back("show"); }
    void FormCloseQuery(rtl::TObject*, bool& CanClose) {
        Log.push_back("closequery");
        CanClose = AllowClose;
    }
    void OKClick(rtl::TObject*) {
        Log.push_back("ok");
        if (edtName->Text().empty()) {
            MessageDlg("Name required", mtError, {mbOK}, 0);
            SetModalResult(mrNone); // keeps the dialog open
        }
    }
    void NameChange(rtl::TObject*) { Log.push_back("change:" + edtName->Text()); }
    void NameExit(rtl::TObject*) { Log.push_back("exit"); }
    void ActiveClick(rtl::TObject*) {
        Log.push_back(std::string("active:") + (chkActive->Checked() ? "1" : "0"));
        lstKinds->SetEnabled(chkActive->Checked());
    }
    void KindsClick(rtl::TObject*) { Log.push_back("kind:" + rtl::IntToStr(lstKinds->ItemIndex())); }
    void SizeChange(rtl::TObject*) { Log.push_back("size:" + cboSize->Text()); }

    TEdit* edtName;
    TCheckBox* chkActive;
    TListBox* lstKinds;
    TComboBox* cboSize;
    TButton* btnOK;
    TButton* btnCancel;
    bool AllowClose = true;
    std::vector<std::string> Log;
};
JEX_IMPLEMENT_CLASS(TTestEntryDlg, TForm, "FormsTest") {}

struct FormsTest : ::testing::Test {
    TScriptedUI ui;
    TTestEntryDlg* dlg = nullptr;
    void SetUp() override { dlg = NewForm<TTestEntryDlg>(nullptr); }
    void TearDown() override {
        if (dlg) dlg->Free();
        Application()->ProcessMessages();
    }
};

TEST_F(FormsTest, HandlerDrivesDialogThroughPersonEntryPoints) {
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        f.Type("edtName", "Widget");
        f.Check("chkActive", true);
        f.Select("lstKinds", "Gamma");
        f.Select("cboSize", "Large");
        f.Click("btnOK");
        EXPECT_TRUE(f.Closed());
    });
    EXPECT_EQ(dlg->ShowModal(), mrOk);
    EXPECT_FALSE(dlg->Visible());
    EXPECT_EQ(dlg->edtName->Text(), "Widget");
    EXPECT_EQ(dlg->lstKinds->ItemIndex(), 2);
    EXPECT_EQ(dlg->cboSize->Text(), "Large");
    std::vector<std::string> expected = {"create",     "show", "change:Widget", "exit", "active:1", "kind:2",
                                         "size:Large", "ok",   "closequery"};
    EXPECT_EQ(dlg->Log, expected);
    ASSERT_EQ(ui.Forms().size(), 1u);
    const auto& shown = ui.Forms()[0];
    EXPECT_EQ(shown.ClassName, "TTestEntryDlg");
    EXPECT_EQ(shown.Caption, "Add Entry");
    EXPECT_EQ(shown.Result, mrOk);
    ASSERT_NE(shown.AtShow.Find("cboSize"), nullptr);
    EXPECT_EQ(shown.AtShow.Find("cboSize")->ItemIndex, 1);
    EXPECT_EQ(shown.AtClose.Find("cboSize")->ItemIndex, 2);
    EXPECT_EQ(shown.AtShow.Find("lstKinds")->Enabled, true);
    EXPECT_EQ(*shown.AtClose.Find("chkActive")->Checked, true);
}

TEST_F(FormsTest, ResettingModalResultInOnClickKeepsDialogOpen) {
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        f.Click("btnOK"); // empty name: refused with a message, still open
        EXPECT_FALSE(f.Closed());
        EXPECT_TRUE(f.Form()->Visible());
        f.Type("edtName", "x");
        f.Click("btnOK");
        EXPECT_TRUE(f.Closed());
    });
    EXPECT_EQ(dlg->ShowModal(), mrOk);
    ASSERT_EQ(ui.Messages().size(), 1u);
    EXPECT_EQ(ui.Messages()[0].Request.Text, "Name required");
    EXPECT_EQ(ui.Messages()[0].Request.Type, mtError);
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Error");
    EXPECT_EQ(ui.Messages()[0].Result, mrOk);
}

TEST_F(FormsTest, CloseQueryRefusalKeepsModalLoopRunning) {
    dlg->AllowClose = false;
    ui.OnForm("TTestEntryDlg", [this](TFormDriver& f) {
        f.Click("btnCancel");
        EXPECT_FALSE(f.Closed());
        EXPECT_EQ(f.Form()->ModalResult(), mrNone);
        dlg->AllowClose = true;
        f.PressKey("edtName", VK_ESCAPE); // Escape presses the cancel button
        EXPECT_TRUE(f.Closed());
    });
    EXPECT_EQ(dlg->ShowModal(), mrCancel);
    EXPECT_EQ(std::count(dlg->Log.begin(), dlg->Log.end(), "closequery"), 2);
}

TEST_F(FormsTest, CloseActionsOfModalForm) {
    TCloseAction action = caNone;
    dlg->OnClose = [&](rtl::TObject*, TCloseAction& a) { a = action; };
    ui.OnForm("TTestEntryDlg", [&](TFormDriver& f) {
        f.CloseForm(); // caNone: stays
        EXPECT_FALSE(f.Closed());
        action = caFree;
        f.Close(mrAbort);
        EXPECT_TRUE(f.Closed());
    });
    EXPECT_EQ(dlg->ShowModal(), mrAbort);
    // caFree released the form; the next message processing frees it.
    bool destroyed = false;
    dlg->OnDestroy = [&](rtl::TObject*) { destroyed = true; };
    int before = Screen()->FormCount();
    Application()->ProcessMessages();
    EXPECT_TRUE(destroyed);
    EXPECT_EQ(Screen()->FormCount(), before - 1);
    dlg = nullptr;
}

TEST_F(FormsTest, MissingHandlerAndUnclosedHandlerFailClearly) {
    try {
        dlg->ShowModal();
        FAIL() << "expected an error";
    } catch (const EScriptedUIError& e) {
        EXPECT_STREQ(e.what(), "No scripted answer for form TTestEntryDlg 'Add Entry'");
    }
    EXPECT_FALSE(dlg->Visible());
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) { f.Type("edtName", "a"); });
    EXPECT_THROW(dlg->ShowModal(), EScriptedUIError);
    EXPECT_FALSE(dlg->Visible());
    EXPECT_FALSE(dlg->Modal());
    // The form can be shown again afterwards.
    ui.OnForm("TForm", [](TFormDriver& f) { f.Close(mrOk); }); // an ancestor's queue serves too
    EXPECT_EQ(dlg->ShowModal(), mrOk);
}

TEST_F(FormsTest, DisabledAndMissingControlsCannotBeActedOn) {
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        f.Get<TListBox>("lstKinds")->SetEnabled(false);
        EXPECT_THROW(f.Select("lstKinds", 0), EScriptedUIError);
        EXPECT_THROW(f.Click("btnMissing"), EScriptedUIError);
        EXPECT_THROW(f.Type("chkActive", "text"), EScriptedUIError);
        EXPECT_THROW(f.Select("cboSize", "Huge"), EScriptedUIError);
        EXPECT_THROW(f.Type("cboSize", "Huge"), EScriptedUIError); // a drop-down list takes no free text
        f.Get<TEdit>("edtName")->SetReadOnly(true);
        EXPECT_THROW(f.Type("edtName", "x"), EScriptedUIError);
        f.Close(mrCancel);
        EXPECT_THROW(f.Click("btnOK"), EScriptedUIError); // closed already
    });
    EXPECT_EQ(dlg->ShowModal(), mrCancel);
}

TEST_F(FormsTest, ExceptionsFromHandlersGoToTheApplicationHandler) {
    dlg->btnOK->OnClick = [](rtl::TObject*) { throw rtl::EConvertError("'x' is not a valid integer value"); };
    Application()->SetTitle("Designer");
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        f.Click("btnOK"); // ModalResult was set before OnClick raised, so the dialog still closes
    });
    EXPECT_EQ(dlg->ShowModal(), mrOk);
    ASSERT_EQ(ui.Messages().size(), 1u);
    EXPECT_EQ(ui.Messages()[0].Request.Text, "'x' is not a valid integer value.");
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Designer");
    EXPECT_EQ(ui.Messages()[0].Request.Type, mtError);
    ui.PropagateExceptions = true;
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        EXPECT_THROW(f.Click("btnOK"), rtl::EConvertError);
        f.Close(mrCancel);
    });
    dlg->ShowModal();
}

TEST_F(FormsTest, FocusMovesRaiseExitAndEnterAndTabFollowsTabOrder) {
    std::vector<std::string> log;
    for (TWinControl* w : dlg->TabList()) {
        std::string n = w->Name();
        w->OnEnter = [&log, n](rtl::TObject*) { log.push_back("enter:" + n); };
    }
    dlg->edtName->OnExit = [&log](rtl::TObject*) { log.push_back("exit:edtName"); };
    dlg->cboSize->SetTabOrder(0);
    EXPECT_EQ(dlg->cboSize->TabOrder(), 0);
    EXPECT_EQ(dlg->edtName->TabOrder(), 1);
    ui.OnForm("TTestEntryDlg", [&](TFormDriver& f) {
        EXPECT_EQ(f.Form()->ActiveControl(), dlg->cboSize); // the first tab stop has the focus on show
        f.Focus("edtName");
        f.PressKey(VK_TAB); // to the check box, which follows the edit in tab order
        EXPECT_EQ(f.Form()->FocusedControl(), dlg->chkActive);
        f.PressKey(VK_TAB, {ssShift});
        EXPECT_EQ(f.Form()->FocusedControl(), dlg->edtName);
        f.PressKey(VK_RETURN); // the default button
    });
    dlg->edtName->SetText("filled");
    EXPECT_EQ(dlg->ShowModal(), mrOk);
    // Enter presses the default button without moving the focus.
    std::vector<std::string> expected = {"enter:cboSize", "enter:edtName", "exit:edtName", "enter:chkActive",
                                         "enter:edtName"};
    EXPECT_EQ(log, expected);
}

TEST_F(FormsTest, TypingKeysGoesThroughKeyPreviewAndEditsText) {
    std::vector<std::string> log;
    dlg->SetKeyPreview(true);
    dlg->OnKeyDown = [&](rtl::TObject*, uint16_t& Key, TShiftState) {
        log.push_back("form:" + std::to_string(Key));
        if (Key == 'Q') Key = 0; // the form swallows Q
    };
    dlg->edtName->OnKeyPress = [&](rtl::TObject*, char& Key) { log.push_back(std::string("press:") + Key); };
    ui.OnForm("TTestEntryDlg", [&](TFormDriver& f) {
        f.PressKey("edtName", 'A', {ssShift});
        f.PressKey("edtName", 'b');
        f.PressKey("edtName", 'Q');
        f.PressKey("edtName", VK_BACK);
        f.PressKey("edtName", '7');
        f.Close(mrOk);
    });
    dlg->ShowModal();
    EXPECT_EQ(dlg->edtName->Text(), "A7");
    EXPECT_TRUE(dlg->edtName->Modified());
    EXPECT_EQ(log.front(), "form:65");
    EXPECT_EQ(std::count(log.begin(), log.end(), "press:Q"), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "press:q"), 0);
    EXPECT_EQ(std::count(log.begin(), log.end(), "press:A"), 1);
}

TEST_F(FormsTest, ModelessFormsAreShownRecordedAndDrivable) {
    int clicks = 0;
    dlg->btnCancel->OnClick = [&](rtl::TObject*) { ++clicks; };
    dlg->Show();
    EXPECT_TRUE(dlg->Visible());
    EXPECT_EQ(Screen()->ActiveForm(), dlg);
    ASSERT_EQ(ui.Forms().size(), 1u);
    EXPECT_FALSE(ui.Forms()[0].Modal);
    TFormDriver f = ui.OpenForm("TTestEntryDlg");
    f.Click("btnCancel"); // a modal result means nothing to a modeless form
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(dlg->Visible());
    f.CloseForm();
    EXPECT_TRUE(f.Closed());
    EXPECT_FALSE(dlg->Visible());
    EXPECT_TRUE(ui.Forms()[0].Closed);
    EXPECT_THROW(ui.OpenForm("TTestEntryDlg"), EScriptedUIError);
}

TEST_F(FormsTest, ShowModalOfVisibleFormIsRefused) {
    dlg->Show();
    try {
        dlg->ShowModal();
        FAIL();
    } catch (const rtl::EInvalidOperation& e) {
        EXPECT_STREQ(e.what(), "Cannot make a visible window modal");
    }
    dlg->Hide();
}

TEST_F(FormsTest, NestedModalDialogsAndMessageAnswers) {
    dlg->btnOK->OnClick = [this](rtl::TObject*) {
        if (MessageDlg("Save changes?", mtConfirmation, mbYesNoCancel, 0) != mrYes)
            dlg->SetModalResult(mrNone);
        std::string value = "3";
        if (InputQuery("Count", "How many?", value)) dlg->edtName->SetText(value);
    };
    ui.AnswerMessage(mrNo);
    ui.AnswerMessage([](const TMessageRequest& r) {
        EXPECT_EQ(r.Caption, "Confirm");
        return mrYes;
    });
    ui.OnForm("TForm", [](TFormDriver& f) {
        EXPECT_EQ(f.Get<TLabel>("Prompt")->Caption(), "How many?");
        f.Type("Edit", "12");
        f.PressKey("Edit", VK_RETURN);
    });
    ui.OnForm("TTestEntryDlg", [](TFormDriver& f) {
        f.Click("btnOK");
        EXPECT_FALSE(f.Closed());
        f.Click("btnOK");
        EXPECT_TRUE(f.Closed());
    });
    // The first click's message answer is No, so InputQuery runs only... on both clicks; queue a second.
    ui.OnForm("TForm", [](TFormDriver& f) { f.Click("CancelButton"); });
    EXPECT_EQ(dlg->ShowModal(), mrOk);
    EXPECT_EQ(dlg->edtName->Text(), "12");
    EXPECT_EQ(ui.PendingAnswers(), 0);
    ASSERT_EQ(ui.Forms().size(), 3u);
    EXPECT_EQ(ui.Forms()[1].Caption, "Count");
    ui.AnswerMessage(mrAll);
    EXPECT_THROW(MessageDlg("Delete?", mtWarning, {mbYes, mbNo}, 0), EScriptedUIError);
    EXPECT_THROW(MessageDlg("Delete?", mtWarning, {mbYes, mbNo}, 0), EScriptedUIError);
}

TEST_F(FormsTest, ShowMessageUsesApplicationTitleAndSingleButtonNeedsNoAnswer) {
    Application()->SetTitle("Jex Designer");
    ShowMessage("Done");
    ASSERT_EQ(ui.Messages().size(), 1u);
    EXPECT_EQ(ui.Messages()[0].Request.Caption, "Jex Designer");
    EXPECT_EQ(ui.Messages()[0].Request.Buttons, TMsgDlgButtons{mbOK});
    ui.StrictMessages = true;
    EXPECT_THROW(ShowMessage("Again"), EScriptedUIError);
    ui.StrictMessages = false;
    EXPECT_EQ(MessageBox("Sure?", "Title", MB_OK | MB_ICONQUESTION), mrOk) << "queued nothing";
    EXPECT_EQ(ui.Messages().back().Request.Type, mtConfirmation);
}

TEST(Application, HintsFollowParentsAndOnShowHintCanChangeThem) {
    TScriptedUI ui;
    auto* form = NewForm<TForm>(nullptr);
    auto* panelButton = new TButton(form);
    panelButton->SetParent(form);
    form->SetHint("Form hint|Long form hint");
    form->SetShowHint(true);
    EXPECT_TRUE(panelButton->ShowHint()); // ParentShowHint
    std::string seenHint;
    TControl* seenControl = nullptr;
    Application()->OnShowHint = [&](std::string& HintStr, bool& CanShow, THintInfo& Info) {
        seenHint = HintStr;
        seenControl = Info.HintControl;
        EXPECT_EQ(Info.HintColor, clInfoBk);
        HintStr = "[" + HintStr + "]";
    };
    EXPECT_EQ(Application()->ActivateHint(panelButton, Point(3, 4)), "[Form hint]");
    EXPECT_EQ(seenHint, "Form hint");
    EXPECT_EQ(seenControl, panelButton);
    EXPECT_EQ(Application()->Hint(), "Long form hint");
    panelButton->SetHint("Button|Presses");
    panelButton->SetShowHint(false); // the nearest parent that shows hints shows its own
    EXPECT_EQ(Application()->ActivateHint(panelButton), "[Form hint]");
    EXPECT_EQ(seenControl, form);
    EXPECT_EQ(Application()->Hint(), "Presses");
    form->SetShowHint(false);
    EXPECT_EQ(Application()->ActivateHint(panelButton), "");
    panelButton->SetShowHint(true);
    EXPECT_EQ(Application()->ActivateHint(panelButton), "[Button]");
    Application()->OnShowHint = [](std::string&, bool& CanShow, THintInfo&) { CanShow = false; };
    EXPECT_EQ(Application()->ActivateHint(panelButton), "");
    Application()->OnShowHint = nullptr;
    Application()->SetShowHint(false);
    EXPECT_EQ(Application()->ActivateHint(panelButton), "");
    Application()->SetShowHint(true);
    EXPECT_EQ(ui.Hints(), (std::vector<std::string>{"[Form hint]", "[Form hint]", "[Button]"}));
    form->Free();
}

TEST(Application, HelpAndShellAndCursorGoThroughTheService) {
    TScriptedUI ui;
    Application()->SetHelpFile("jex.hlp");
    EXPECT_TRUE(Application()->HelpContext(42));
    EXPECT_TRUE(Application()->HelpKeyword("TjexNavPanel"));
    ASSERT_EQ(ui.HelpCalls().size(), 2u);
    EXPECT_EQ(ui.HelpCalls()[0].HelpFile, "jex.hlp");
    EXPECT_EQ(ui.HelpCalls()[0].Command, HELP_CONTEXT);
    EXPECT_EQ(ui.HelpCalls()[0].Data, 42);
    EXPECT_EQ(ui.HelpCalls()[1].Keyword, "TjexNavPanel");
    Application()->OnHelp = [](uint16_t, int64_t, bool& CallHelp) {
        CallHelp = false;
        return true;
    };
    EXPECT_TRUE(Application()->HelpContext(7));
    EXPECT_EQ(ui.HelpCalls().size(), 2u);
    Application()->OnHelp = nullptr;
    EXPECT_EQ(ShellExecute("open", "http://example.invalid/jex"), 42);
    ASSERT_EQ(ui.ShellExecutes().size(), 1u);
    EXPECT_EQ(ui.ShellExecutes()[0].File, "http://example.invalid/jex");
    Screen()->SetCursor(crHourGlass);
    Screen()->SetCursor(crDefault);
    EXPECT_EQ(ui.Cursors(), (std::vector<TCursor>{crHourGlass, crDefault}));
    MessageBeep(MB_ICONASTERISK);
    EXPECT_EQ(ui.Beeps(), std::vector<unsigned>{MB_ICONASTERISK});
    Application()->SetHelpFile("");
}

TEST(Application, NoServiceInstalledIsAClearError) {
    ASSERT_FALSE(UIInstalled());
    try {
        ShowMessage("x");
        FAIL();
    } catch (const rtl::EInvalidOperation& e) {
        EXPECT_STREQ(e.what(), "No user interface is installed");
    }
}

} // namespace
