// Attached labels: placement beside the control and following it, locking, visibility and enabling, focus,
// form files, freeing in either order, the mask edit, and the data-aware label that shows the field.
#include "jex/jexlabeled.h"

#include <gtest/gtest.h>

#include "rtl/streaming.h"

#ifdef JEX_HAVE_DB
#include "jex/jexdblabeled.h"
#include "jexdbfixture.h"
#endif

using namespace jex;
using namespace vcl;

namespace {

class LabeledTest : public ::testing::Test {
protected:
    void SetUp() override {
        Form = new TForm(nullptr);
        Form->SetName("Form1");
        Edit = new TjexLEdit(Form);
        Edit->SetName("edtName");
        Edit->SetParent(Form);
        Edit->SetBounds(100, 50, 120, 21);
        Edit->SubLabel()->SetCaption("&Name");
    }
    void TearDown() override {
        if (Form) Form->Free();
    }
    TForm* Form = nullptr;
    TjexLEdit* Edit = nullptr;
};

TEST_F(LabeledTest, LabelSitsBesideItsControlAndFollowsIt) {
    TLabel* l = Edit->SubLabel()->Label();
    ASSERT_NE(l, nullptr);
    EXPECT_EQ(l->Parent(), Form);
    EXPECT_EQ(l->Owner(), Edit);
    EXPECT_EQ(l->Caption(), "&Name");
    EXPECT_EQ(l->Left(), 100);
    EXPECT_EQ(l->Top(), 50 - l->Height() - 3);
    EXPECT_EQ(l->FocusControl(), Edit);

    Edit->SetBounds(10, 200, 120, 21);
    EXPECT_EQ(l->Left(), 10);
    EXPECT_EQ(l->Top(), 200 - l->Height() - 3);
    Edit->SubLabel()->SetPosition(jlpLeft);
    Edit->SubLabel()->SetSpacing(6);
    EXPECT_EQ(l->Left() + l->Width() + 6, 10);
    Edit->SubLabel()->SetPosition(jlpBelow);
    EXPECT_EQ(l->Top(), 221 + 6);

    Edit->SetVisible(false);
    EXPECT_FALSE(l->Visible());
    Edit->SetVisible(true);
    EXPECT_TRUE(l->Visible());
    Edit->SetEnabled(false);
    EXPECT_FALSE(l->Enabled());
    Edit->SetEnabled(true);
    Edit->SubLabel()->SetVisible(false);
    EXPECT_FALSE(l->Visible());

    // Moving to another parent takes the label along.
    auto* panel = new TPanel(Form);
    panel->SetParent(Form);
    Edit->SetParent(panel);
    EXPECT_EQ(l->Parent(), panel);
}

TEST_F(LabeledTest, UnlockedLabelsKeepTheOffsetTheyWereMovedTo) {
    TjexSubLabel* s = Edit->SubLabel();
    EXPECT_FALSE(s->MoveTo(0, 0));
    TPoint before = s->LabelPosition();
    s->SetLocked(false);
    EXPECT_EQ(s->LabelPosition(), before); // unlocking leaves it in place
    EXPECT_TRUE(s->MoveTo(40, 30));
    EXPECT_EQ(s->OffsetX(), -60);
    EXPECT_EQ(s->OffsetY(), -20);
    Edit->SetBounds(200, 100, 120, 21);
    EXPECT_EQ(s->Label()->Left(), 140);
    EXPECT_EQ(s->Label()->Top(), 80);
}

TEST_F(LabeledTest, FocusControlIsClearedWhenItGoes) {
    auto* other = new TEdit(Form);
    other->SetParent(Form);
    Edit->SubLabel()->SetFocusControl(other);
    EXPECT_EQ(Edit->SubLabel()->Label()->FocusControl(), other);
    other->Free();
    EXPECT_EQ(Edit->SubLabel()->FocusControl(), nullptr);
    EXPECT_EQ(Edit->SubLabel()->Label()->FocusControl(), Edit);
}

TEST_F(LabeledTest, LabelSettingsGoThroughFormFilesWithTheControl) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexLEdit::StaticClass()});
    TjexSubLabel* s = Edit->SubLabel();
    s->SetPosition(jlpRight);
    s->SetLocked(false);
    s->SetOffsetX(7);
    s->SetParentFont(false);
    s->Font()->SetSize(14);
    std::string text = rtl::WriteComponentText(Form);
    EXPECT_NE(text.find("Label.Caption = '&Name'"), std::string::npos);
    EXPECT_NE(text.find("Label.OffsetX = 7"), std::string::npos);
    EXPECT_EQ(text.find("object TLabel"), std::string::npos); // the label itself is no form component
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* e = dynamic_cast<TjexLEdit*>(copy->FindComponent("edtName"));
    ASSERT_NE(e, nullptr);
    EXPECT_EQ(e->SubLabel()->Caption(), "&Name");
    EXPECT_EQ(e->SubLabel()->Position(), jlpRight);
    EXPECT_FALSE(e->SubLabel()->Locked());
    EXPECT_EQ(e->SubLabel()->Label()->Left(), 107);
    EXPECT_EQ(e->SubLabel()->Label()->Font()->Size(), 14);
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexLEdit::StaticClass()});
}

TEST_F(LabeledTest, ControlAndLabelMayGoInEitherOrder) {
    TLabel* l = Edit->SubLabel()->Label();
    l->Free(); // its parent could free it first
    EXPECT_EQ(Edit->SubLabel()->Label(), nullptr);
    Edit->SetLeft(5); // made again
    ASSERT_NE(Edit->SubLabel()->Label(), nullptr);
    int before = Form->ControlCount();
    Edit->Free();
    EXPECT_EQ(Form->ControlCount(), before - 2);
    auto* memo = new TjexLMemo(Form);
    memo->SetParent(Form);
    memo->SubLabel()->SetCaption("Notes");
    Form->Free(); // the form frees the label before or after the memo
    Form = nullptr;
}

TEST_F(LabeledTest, MaskEditTakesOnlyTextThatFitsItsMask) {
    auto* m = new TjexLMaskEdit(Form);
    m->SetParent(Form);
    m->SetEditMask(">LL-0000;1;_");
    EXPECT_TRUE(m->FitsMask("AB-1234"));
    EXPECT_FALSE(m->FitsMask("AB-12x4"));
    EXPECT_FALSE(m->FitsMask("A1-1234"));
    EXPECT_FALSE(m->FitsMask("AB-123"));
    EXPECT_EQ(m->ApplyMaskCase("ab-1234"), "AB-1234");
    m->UserType("xy-0042");
    EXPECT_EQ(m->Text(), "XY-0042");
    EXPECT_THROW(m->UserType("xy-42"), EUserActionError);
    EXPECT_EQ(m->Text(), "XY-0042");
    m->UserType("");
    EXPECT_EQ(m->Text(), "");
    m->SetEditMask("99:99;0; ");
    EXPECT_TRUE(m->FitsMask("1 :3 "));
    EXPECT_TRUE(m->FitsMask("12"));
    m->SetEditMask("\\(000\\)");
    EXPECT_TRUE(m->FitsMask("(123)"));
    EXPECT_FALSE(m->FitsMask("[123]"));
}

TEST_F(LabeledTest, EveryLabelledControlPublishesItsPlatformPropertiesAndItsLabel) {
    for (rtl::TClass c : {TjexLEdit::StaticClass(), TjexLMaskEdit::StaticClass(),
                          TjexLSpinEdit::StaticClass(), TjexLMemo::StaticClass(), TjexLListBox::StaticClass(),
                          TjexLComboBox::StaticClass(), TjexLImage::StaticClass(), TjexLPanel::StaticClass(),
                          TjexLScrollBox::StaticClass(), TjexLTreeView::StaticClass()}) {
        const rtl::TPropInfo* label = c->FindProperty("Label");
        ASSERT_NE(label, nullptr) << c->ClassName();
        EXPECT_EQ(label->PropType->ClassType, TjexSubLabel::StaticClass());
        EXPECT_EQ(c->FindProperty("Visible")->DeclaringClass == c, false) << c->ClassName();
    }
    EXPECT_NE(TjexLTreeView::StaticClass()->FindProperty("Items"), nullptr);
    EXPECT_NE(TjexLSpinEdit::StaticClass()->FindProperty("MaxValue"), nullptr);
    EXPECT_NE(TjexLMaskEdit::StaticClass()->FindProperty("EditMask"), nullptr);
}

TEST_F(LabeledTest, LabelledTreeKeepsItsNodesAndLabelThroughFormFiles) {
    rtl::RegisterClasses({TForm::StaticClass(), TjexLEdit::StaticClass(), TjexLTreeView::StaticClass()});
    auto* tree = new TjexLTreeView(Form);
    tree->SetName("tvTopics");
    tree->SetParent(Form);
    tree->SubLabel()->SetCaption("Topics");
    TTreeNode* root = tree->Items()->Add(nullptr, "Root");
    tree->Items()->AddChild(root, "Leaf");
    std::string text = rtl::WriteComponentText(Form);
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* t2 = dynamic_cast<TjexLTreeView*>(copy->FindComponent("tvTopics"));
    ASSERT_NE(t2, nullptr);
    ASSERT_EQ(t2->Items()->Count(), 2);
    EXPECT_EQ(t2->Items()->Item(1)->Text(), "Leaf");
    EXPECT_EQ(t2->SubLabel()->Label()->Caption(), "Topics");
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TjexLEdit::StaticClass(), TjexLTreeView::StaticClass()});
}

#ifdef JEX_HAVE_DB
class DBLabeledTest : public jexdbtest::DBFixture {};

TEST_F(DBLabeledTest, DataLabelsShowTheFieldsDisplayLabel) {
    MakePeople();
    auto* edit = new TjexLDBEdit(Form);
    edit->SetParent(Form);
    edit->SubLabel()->SetCaption("Own caption");
    EXPECT_EQ(edit->SubLabel()->Label()->Caption(), "Own caption");
    edit->SetDataSource(PeopleSource);
    edit->SetDataField("NAME");
    EXPECT_EQ(edit->SubLabel()->Label()->Caption(), "NAME");
    EXPECT_EQ(edit->Text(), "Ann");
    People->FieldByName("NAME")->SetDisplayLabel("Full name");
    People->Next();
    EXPECT_EQ(edit->SubLabel()->Label()->Caption(), "Full name");
    edit->SubLabel()->SetCaptionAuto(false);
    EXPECT_EQ(edit->SubLabel()->Label()->Caption(), "Own caption");

    auto* check = new TjexLDBCheckBox(Form);
    check->SetParent(Form);
    check->SetDataSource(PeopleSource);
    check->SetDataField("ACTIVE");
    EXPECT_FALSE(check->Checked());
    EXPECT_EQ(check->SubLabel()->Label()->Caption(), "ACTIVE");
    People->Close();
    EXPECT_EQ(check->SubLabel()->Label()->Caption(), "");
}

TEST_F(DBLabeledTest, LookupControlsPublishTheirOldAndNewNames) {
    EXPECT_NE(TjexLDBLookupCombo::StaticClass()->FindProperty("LookupSource"), nullptr);
    EXPECT_NE(TjexLDBLookupCombo::StaticClass()->FindProperty("LookupDisplay"), nullptr);
    EXPECT_EQ(TjexLDBLookupCombo::StaticClass()->FindProperty("ListSource"), nullptr);
    EXPECT_NE(TjexLDBLookupComboBox::StaticClass()->FindProperty("ListSource"), nullptr);
    EXPECT_NE(TjexLDBLookupComboBox::StaticClass()->FindProperty("KeyField"), nullptr);
    EXPECT_EQ(TjexLDBLookupComboBox::StaticClass()->FindProperty("Label")->PropType->ClassType,
              TjexDBSubLabel::StaticClass());

    MakeDepartments();
    MakePeople();
    auto* lookup = new TjexLDBLookupList(Form);
    lookup->SetParent(Form);
    rtl::SetObjectProp(lookup, "DataSource", PeopleSource);
    rtl::SetStrProp(lookup, "DataField", "DEPT");
    rtl::SetObjectProp(lookup, "LookupSource", DeptSource);
    rtl::SetStrProp(lookup, "LookupField", "ID");
    rtl::SetStrProp(lookup, "LookupDisplay", "NAME");
    EXPECT_EQ(lookup->Items()->Count(), 3);
    EXPECT_EQ(lookup->ItemIndex(), 0);
    EXPECT_EQ(lookup->SubLabel()->Label()->Caption(), "DEPT");
}
#endif

} // namespace
