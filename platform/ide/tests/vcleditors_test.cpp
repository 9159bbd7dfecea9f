// Property editors that open dialogs, driven through the scripted user interface: font, colour, filter;
// and the value lists of font names and cursors.
#include <gtest/gtest.h>

#include "ide/designer.h"
#include "ide/propedit.h"
#include "testcomps.h"
#include "vcl/dialogs.h"
#include "vcl/grids.h"
#include "vcl/scripted_ui.h"

using namespace ide;
using namespace idetest;

namespace {

class DialogEditors : public ::testing::Test {
protected:
    void SetUp() override {
        Form = new TTestForm(nullptr);
        Form->SetName("Form1");
        D = std::make_unique<TFormDesigner>(Form, true);
        G = new TGadget(Form);
        G->SetName("Gadget1");
        H = new THolder(Form);
        H->SetName("Holder1");
        D->SetModified(false);
    }
    TPropertyEditorPtr EditorFor(rtl::TPersistent* obj, const std::string& name) {
        TPropertyEditorPtr found;
        GetComponentProperties({obj}, tkAny, D.get(), [&](TPropertyEditorPtr e) {
            if (e->GetName() == name) found = std::move(e);
        });
        if (!found) throw rtl::EPropertyError("no editor for " + name);
        return found;
    }
    vcl::TScriptedUI UI;
    std::unique_ptr<TFormDesigner> D;
    TTestForm* Form = nullptr;
    TGadget* G = nullptr;
    THolder* H = nullptr;
};

TEST_F(DialogEditors, FontDialogChangesTheFont) {
    UI.AnswerFont([](vcl::TFont& f) {
        f.SetName("DejaVu Sans");
        f.SetStyle({vcl::fsBold});
        return true;
    });
    EditorFor(G, "Font")->Edit();
    EXPECT_EQ(G->Font()->Name(), "DejaVu Sans");
    EXPECT_TRUE(G->Font()->Style().Contains(vcl::fsBold));
    EXPECT_TRUE(D->IsModified());
    ASSERT_EQ(UI.Dialogs().size(), 1u);
    EXPECT_EQ(UI.Dialogs()[0].Kind, "font");
    // Cancelled: nothing changes.
    D->SetModified(false);
    UI.AnswerFont([](vcl::TFont& f) {
        f.SetName("Other");
        return false;
    });
    EditorFor(G, "Font")->Edit();
    EXPECT_EQ(G->Font()->Name(), "DejaVu Sans");
    EXPECT_FALSE(D->IsModified());
}

TEST_F(DialogEditors, ColourDialog) {
    UI.AnswerColor(vcl::TColor(0x00FF8000));
    auto color = EditorFor(G, "Color");
    color->Edit();
    EXPECT_EQ(G->Color(), 0x00FF8000);
    EXPECT_EQ(color->GetValue(), "$00FF8000");
    UI.AnswerColor(std::nullopt);
    color->Edit();
    EXPECT_EQ(G->Color(), 0x00FF8000);
}

TEST_F(DialogEditors, FilterEditorEditsPairs) {
    vcl::TOpenDialog* dlg = new vcl::TOpenDialog(Form);
    dlg->SetName("OpenDialog1");
    dlg->SetFilter("Text files (*.txt)|*.txt|All files (*.*)|*.*");
    auto filter = EditorFor(dlg, "Filter");
    EXPECT_EQ(filter->ClassName(), "TFilterProperty");
    EXPECT_EQ(filter->GetAttributes(), TPropertyAttributes{paDialog});
    UI.OnForm("TFilterEditor", [](vcl::TFormDriver& f) {
        auto* grid = f.Get<vcl::TStringGrid>("Grid");
        EXPECT_EQ(grid->Cells(0, 1), "Text files (*.txt)");
        EXPECT_EQ(grid->Cells(1, 2), "*.*");
        f.SetCell("Grid", 0, 3, "Logs");
        f.SetCell("Grid", 1, 3, "*.log");
        f.SetCell("Grid", 0, 2, "");
        f.SetCell("Grid", 1, 2, "");
        f.Click("OKButton");
    });
    filter->Edit();
    EXPECT_EQ(dlg->Filter(), "Text files (*.txt)|*.txt|Logs|*.log");
    UI.OnForm("TFilterEditor", [](vcl::TFormDriver& f) {
        f.SetCell("Grid", 0, 1, "Changed");
        f.Click("CancelButton");
    });
    filter->Edit();
    EXPECT_EQ(dlg->Filter(), "Text files (*.txt)|*.txt|Logs|*.log");
}

TEST_F(DialogEditors, FontNamesCursorsAndCaptions) {
    auto* fontEditor = EditorFor(G, "Font").release();
    std::vector<std::string> names;
    fontEditor->GetProperties([&](TPropertyEditorPtr e) {
        if (e->GetName() != "Name") return;
        EXPECT_EQ(e->ClassName(), "TFontNameProperty");
        e->GetValues([&](const std::string& s) { names.push_back(s); });
    });
    delete fontEditor;
    EXPECT_FALSE(names.empty()) << "the installed fonts";

    auto cursor = EditorFor(H, "Cursor");
    EXPECT_EQ(cursor->GetValue(), "crDefault");
    cursor->SetValue("crHandPoint");
    EXPECT_EQ(H->Cursor(), vcl::crHandPoint);
    cursor->SetValue("-2");
    EXPECT_EQ(cursor->GetValue(), "crArrow");
    EXPECT_THROW(cursor->SetValue("crNoSuchCursor"), rtl::EConvertError);
    EXPECT_THROW(cursor->SetValue("40000"), rtl::EPropertyError) << "outside the cursor range";
    std::vector<std::string> cursors;
    cursor->GetValues([&](const std::string& s) { cursors.push_back(s); });
    EXPECT_NE(std::find(cursors.begin(), cursors.end(), "crHourGlass"), cursors.end());

    auto title = EditorFor(H, "Title");
    EXPECT_EQ(title->ClassName(), "TCaptionProperty");
    EXPECT_TRUE(title->GetAttributes().Contains(paAutoUpdate));
}

} // namespace
