// The message box and progress window components, driven through the scripted user interface.
#include <gtest/gtest.h>

#include "jex/jexdialogs.h"
#include "vcl/scripted_ui.h"

using namespace jex;
using namespace vcl;

TEST(JexMessageDlg, ShowsItsLinesUnderItsCaptionAndReturnsTheButtonPressed) {
    TScriptedUI ui;
    TjexMessageDlg dlg(nullptr);
    dlg.SetCaption("Jex 6");
    dlg.Lines()->Add("");
    dlg.Lines()->Add("You have the current release 6.0.1");
    dlg.SetDlgType(mtWarning);
    dlg.SetButtons({mbYes, mbNo});
    dlg.SetHelpContext(25);
    ui.AnswerMessage(mrNo);
    EXPECT_EQ(dlg.Execute(), mrNo);
    ASSERT_EQ(ui.Messages().size(), 1u);
    const TMessageRequest& r = ui.Messages()[0].Request;
    EXPECT_EQ(r.Text, "\r\nYou have the current release 6.0.1");
    EXPECT_EQ(r.Caption, "Jex 6");
    EXPECT_EQ(r.Type, mtWarning);
    EXPECT_EQ(r.Buttons, (TMsgDlgButtons{mbYes, mbNo}));
    EXPECT_EQ(r.HelpCtx, 25);

    // No caption: the type's title; no buttons: OK.
    dlg.SetCaption("");
    dlg.SetButtons({});
    dlg.SetDlgType(mtInformation);
    EXPECT_EQ(dlg.Execute(), mrOk);
    EXPECT_EQ(ui.Messages()[1].Request.Caption, "Information");
    EXPECT_EQ(ui.Messages()[1].Request.Buttons, TMsgDlgButtons{mbOK});
}

TEST(JexMessageDlg, NeedsAUserInterface) {
    TjexMessageDlg dlg(nullptr);
    EXPECT_THROW(dlg.Execute(), rtl::EInvalidOperation);
}

TEST(JexProgressDlg, ShowsProgressAndAPersonCanCancel) {
    TScriptedUI ui;
    TjexProgressDlg progress(nullptr);
    progress.SetCaption("Copying");
    progress.SetMessage("Copying files...");
    progress.SetMax(50);
    int cancels = 0;
    progress.OnCancel = [&](rtl::TObject*) { ++cancels; };
    progress.Show();
    EXPECT_TRUE(progress.Showing());
    progress.SetStep(5);
    progress.StepIt();
    progress.StepIt();
    EXPECT_EQ(progress.Position(), 10);
    EXPECT_EQ(progress.Percent(), 20);
    TFormDriver driver = ui.OpenForm("TjexProgressForm");
    TControlDesc d = driver.Describe();
    EXPECT_EQ(d.Caption, "Copying");
    EXPECT_EQ(d.Find("lblMessage")->Caption, "Copying files...");
    EXPECT_EQ(d.Find("lblPercent")->Caption, "20%");
    progress.SetPosition(500); // kept within Min..Max
    EXPECT_EQ(progress.Position(), 50);
    EXPECT_EQ(driver.Describe().Find("lblPercent")->Caption, "100%");
    driver.Click("btnCancel");
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_FALSE(progress.Showing());
    EXPECT_EQ(cancels, 1);
    progress.Show(); // a new run starts uncancelled
    EXPECT_FALSE(progress.Cancelled());
    progress.SetShowCancel(false);
    EXPECT_FALSE(ui.OpenForm("TjexProgressForm").Describe().Find("btnCancel")->Visible);
    progress.SetMin(60); // Max follows
    EXPECT_EQ(progress.Max(), 60);
    EXPECT_EQ(progress.Percent(), 100);
}
