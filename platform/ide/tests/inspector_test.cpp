// The object inspector model: rows for a selection, categories, sub-properties, value setting with
// errors, drop-down values, dialogs, owner drawing, and following the designer.
#include <gtest/gtest.h>

#include "ide/categories.h"
#include "ide/designer.h"
#include "ide/inspector.h"
#include "testcomps.h"

using namespace ide;
using namespace idetest;

namespace {

class TFileEd : public TStringProperty {
    JEX_CLASS(TFileEd, TStringProperty)
};
JEX_IMPLEMENT_CLASS(TFileEd, TStringProperty, "IdeTest") {}

class Inspector : public ::testing::Test {
protected:
    void SetUp() override {
        Form = new TTestForm(nullptr);
        Form->SetName("Form1");
        D = std::make_unique<TFormDesigner>(Form, true);
        G1 = new TGadget(Form);
        G1->SetName("Gadget1");
        G2 = new TGadget(Form);
        G2->SetName("Gadget2");
        M = std::make_unique<TInspectorModel>(D.get());
    }
    std::vector<std::string> Paths() {
        std::vector<std::string> p;
        for (auto& r : M->Rows())
            p.push_back(r.IsCategory ? "[" + r.Name + "]" : r.Path);
        return p;
    }
    std::unique_ptr<TFormDesigner> D;
    std::unique_ptr<TInspectorModel> M;
    TTestForm* Form = nullptr;
    TGadget *G1 = nullptr, *G2 = nullptr;
};

TEST_F(Inspector, FollowsTheDesignersSelection) {
    EXPECT_EQ(M->RowCount(), 0);
    D->SelectComponent(G1);
    int row = M->FindRow("Caption");
    ASSERT_GE(row, 0);
    const TInspectorRow& r = M->Row(row);
    EXPECT_EQ(r.Name, "Caption");
    EXPECT_EQ(r.EditorClassName, "TStringProperty");
    EXPECT_EQ(r.Attributes, (TPropertyAttributes{paMultiSelect, paRevertable}));
    EXPECT_EQ(M->Value("Width"), "10");
    EXPECT_EQ(M->Value("Color"), "clBtnFace");
    EXPECT_EQ(M->Value("Name"), "Gadget1");
    EXPECT_EQ(M->Row(M->FindRow("Font")).EditorClassName, "TFontProperty");
    D->SetSelections({G1, G2});
    EXPECT_EQ(M->FindRow("Name"), -1);
    EXPECT_GE(M->FindRow("Width"), 0);
    // A deleted component leaves the selection.
    D->DeleteComponent(G2);
    EXPECT_EQ(M->Selection().Count(), 1);
    EXPECT_GE(M->FindRow("Name"), 0);
    EXPECT_THROW(M->Row(999), rtl::EListError);
}

TEST_F(Inspector, SettingValuesAndErrors) {
    D->SetSelections({G1, G2});
    M->SetValue("Width", "55");
    EXPECT_EQ(G1->Width(), 55);
    EXPECT_EQ(G2->Width(), 55);
    EXPECT_EQ(M->Value("Width"), "55");
    EXPECT_TRUE(D->IsModified());
    try {
        M->SetValue("Small", "12");
        FAIL();
    } catch (const rtl::EPropertyError& e) {
        EXPECT_EQ(e.Message(), "Value must be between -5 and 5");
    }
    EXPECT_EQ(M->Value("Small"), "0");
    EXPECT_THROW(M->SetValue("Width", "wide"), rtl::EConvertError);
    EXPECT_EQ(M->Value("Width"), "55");
    EXPECT_THROW(M->SetValue("Font", "x"), rtl::EPropertyError) << "read-only row";
    EXPECT_THROW(M->SetValue("NoSuchProperty", "x"), rtl::EPropertyError);
    // Values the objects disagree on show empty.
    G2->SetCaption("other");
    M->Refresh();
    EXPECT_EQ(M->Value("Caption"), "");
}

TEST_F(Inspector, SubPropertiesExpandAndStayExpanded) {
    D->SelectComponent(G1);
    int font = M->FindRow("Font");
    EXPECT_TRUE(M->Row(font).HasSubProperties);
    EXPECT_EQ(M->FindRow("Font.Name"), -1);
    M->Expand(font);
    int name = M->FindRow("Font.Name");
    ASSERT_GE(name, 0);
    EXPECT_EQ(M->Row(name).Level, 1);
    EXPECT_EQ(M->Row(name).EditorClassName, "TFontNameProperty");
    int style = M->FindRow("Font.Style");
    M->Expand(style);
    int bold = M->FindRow("Font.Style.fsBold");
    ASSERT_GE(bold, 0);
    EXPECT_EQ(M->Row(bold).Level, 2);
    M->SetValue(bold, "True");
    EXPECT_TRUE(G1->Font()->Style().Contains(vcl::fsBold));
    EXPECT_EQ(M->Value("Font.Style"), "[fsBold]");
    // Another selection of the same kind keeps the rows open.
    D->SelectComponent(G2);
    EXPECT_GE(M->FindRow("Font.Style.fsBold"), 0);
    M->Collapse(M->FindRow("Font"));
    EXPECT_EQ(M->FindRow("Font.Name"), -1);
}

TEST_F(Inspector, DropDownValuesAreSortedWhenTheEditorSaysSo) {
    auto* g3 = new TGadget(Form);
    g3->SetName("Alpha");
    D->SelectComponent(G1);
    EXPECT_EQ(M->GetValues(M->FindRow("Buddy")), (std::vector<std::string>{"Alpha", "Gadget1", "Gadget2"}));
    auto colours = M->GetValues(M->FindRow("Color"));
    EXPECT_EQ(colours.front(), "clBlack") << "colours keep the platform's order";
    EXPECT_EQ(M->GetValues(M->FindRow("Shade")), (std::vector<std::string>{"shDark", "shLight", "shMedium"}));
}

TEST_F(Inspector, EditAndRevertThroughRows) {
    D->SelectComponent(G1);
    M->Edit(M->FindRow("Checked"));
    EXPECT_TRUE(G1->Checked());
    EXPECT_EQ(M->Value("Checked"), "True");
    M->Revert(M->FindRow("Checked"));
    EXPECT_FALSE(G1->Checked());
}

TEST_F(Inspector, EventsPage) {
    M->SetFilter(tkMethods);
    D->SelectComponent(G1);
    std::vector<std::string> paths = Paths();
    EXPECT_EQ(paths, (std::vector<std::string>{"OnChange", "OnClick"}));
    M->Edit(M->FindRow("OnClick"));
    EXPECT_EQ(G1->OnClick.Name, "Gadget1Click");
    EXPECT_EQ(M->Value("OnClick"), "Gadget1Click");
}

TEST_F(Inspector, GroupedByCategoryWithRegisteredCategories) {
    TFakeModule module;
    RegisterPropertiesInCategory("Jex", TGadget::StaticClass(), {"Shade", "Ratio"});
    D->SelectComponent(G1);
    M->SetGroupByCategory(true);
    std::vector<std::string> paths = Paths();
    auto jex = std::find(paths.begin(), paths.end(), "[Jex]");
    ASSERT_NE(jex, paths.end());
    EXPECT_EQ(*(jex + 1), "Ratio");
    EXPECT_EQ(*(jex + 2), "Shade");
    EXPECT_NE(std::find(paths.begin(), paths.end(), "[Visual]"), paths.end());
    // A property in two categories is listed under both; categories come in name order.
    EXPECT_EQ(std::count(paths.begin(), paths.end(), "Font"), 2);
    std::vector<std::string> headers;
    for (auto& p : paths)
        if (p[0] == '[') headers.push_back(p);
    EXPECT_TRUE(std::is_sorted(headers.begin(), headers.end()));
    const TInspectorRow& ratio = M->Row(M->FindRow("Ratio"));
    EXPECT_EQ(ratio.Category, "Jex");
    EXPECT_EQ(ratio.Categories, std::vector<std::string>{"Jex"});
}

TEST_F(Inspector, OwnerDrawHooksReachTheEditor) {
    D->SelectComponent(G1);
    int color = M->FindRow("Color");
    vcl::TBitmap bmp;
    bmp.SetSize(60, 14);
    EXPECT_GT(M->ListMeasureWidth(color, "clRed", bmp.Canvas(), 30), 30);
    EXPECT_EQ(M->ListMeasureHeight(color, "clRed", bmp.Canvas(), 14), 14);
    M->ListDrawValue(color, "clLime", bmp.Canvas(), vcl::Rect(0, 0, 60, 14), false);
    EXPECT_EQ(bmp.PixelRGB(6, 7), vcl::ColorToRGB(vcl::clLime));
}

TEST_F(Inspector, RegistrationsChangeTheRows) {
    D->SelectComponent(G1);
    EXPECT_EQ(M->Row(M->FindRow("FileName")).EditorClassName, "TStringProperty");
    {
        TFakeModule module;
        RegisterPropertyEditor(rtl::TypeInfo_TFileName(), nullptr, "", TFileEd::StaticClass());
        EXPECT_EQ(M->Row(M->FindRow("FileName")).EditorClassName, "TFileEd");
    }
    EXPECT_EQ(M->Row(M->FindRow("FileName")).EditorClassName, "TStringProperty");
}

} // namespace
