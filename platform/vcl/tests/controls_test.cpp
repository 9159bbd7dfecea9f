// Controls: child order, destruction of children owned elsewhere, alignment and anchors, inherited fonts,
// colours and hint flags, streaming hooks, published properties, and the standard controls' events.
#include <gtest/gtest.h>

#include "vcl/forms.h"
#include "vcl/stdctrls.h"

using namespace vcl;

namespace {

std::vector<std::string> ChildNames(const TWinControl* w) {
    std::vector<std::string> v;
    for (TControl* c : w->ControlList())
        v.push_back(c->Name());
    return v;
}

template <class T> T* Child(TComponent* owner, TWinControl* parent, const char* name) {
    auto* c = new T(owner);
    c->SetName(name);
    c->SetParent(parent);
    return c;
}

TEST(ControlTree, CreatingAndReparentingAppendsToChildOrder) {
    TForm form(nullptr);
    auto* a = Child<TButton>(&form, &form, "A");
    auto* b = Child<TLabel>(&form, &form, "B");
    auto* box = Child<TGroupBox>(&form, &form, "Box");
    EXPECT_EQ(ChildNames(&form), (std::vector<std::string>{"A", "B", "Box"}));
    a->SetParent(box);
    EXPECT_EQ(ChildNames(&form), (std::vector<std::string>{"B", "Box"}));
    EXPECT_EQ(ChildNames(box), std::vector<std::string>{"A"});
    b->BringToFront();
    EXPECT_EQ(ChildNames(&form), (std::vector<std::string>{"Box", "B"}));
    b->SendToBack();
    EXPECT_EQ(form.Controls(0), b);
    EXPECT_THROW(form.Controls(5), rtl::EListError);
    EXPECT_TRUE(form.ContainsControl(a));
    EXPECT_FALSE(box->ContainsControl(b));
    EXPECT_THROW(box->SetParent(box), rtl::EInvalidOperation);
    auto* inner = Child<TGroupBox>(&form, box, "Inner");
    EXPECT_THROW(box->SetParent(inner), rtl::EInvalidOperation) << "a parent cannot move below its own child";
    form.RemoveControl(b);
    EXPECT_EQ(b->Parent(), nullptr);
    EXPECT_EQ(GetParentForm(a), &form);
    EXPECT_EQ(GetParentForm(b), nullptr);
}

TEST(ControlTree, DestroyingParentFreesChildrenOwnedElsewhere) {
    TComponent designed(nullptr); // owns the buttons, like a designed form owning created components
    auto* host = new TForm(nullptr);
    auto* panel = Child<TGroupBox>(host, host, "Panel");
    auto* b1 = Child<TButton>(&designed, panel, "B1");
    Child<TButton>(&designed, panel, "B2");
    EXPECT_EQ(designed.ComponentCount(), 2);
    EXPECT_EQ(b1->Owner(), &designed);
    panel->Free();
    EXPECT_EQ(designed.ComponentCount(), 0) << "children went with their parent and left their owner";
    EXPECT_EQ(host->ControlCount(), 0);
    // And the other way round: an owner freeing a control takes it out of its parent.
    auto* b3 = Child<TButton>(&designed, host, "B3");
    EXPECT_EQ(host->ControlCount(), 1);
    EXPECT_EQ(host->TabList().size(), 1u);
    b3->Free();
    EXPECT_EQ(host->ControlCount(), 0);
    EXPECT_TRUE(host->TabList().empty()) << "a destroyed child leaves the tab order too";
    host->Free();
}

TEST(ControlTree, StreamingHooksNestControlsInParentsAndFormsAddNonVisuals) {
    TForm form(nullptr);
    form.SetName("Form1");
    auto* panel = Child<TGroupBox>(&form, &form, "Panel1");
    auto* button = Child<TButton>(&form, panel, "Button1");
    auto* label = Child<TLabel>(&form, &form, "Label1");
    auto* menu = new TMainMenu(&form);
    menu->SetName("MainMenu1");
    TComponent other(nullptr);
    auto* foreign = Child<TButton>(&other, panel, "Foreign");
    std::vector<TComponent*> top, inPanel;
    form.GetChildren([&](TComponent* c) { top.push_back(c); }, &form);
    panel->GetChildren([&](TComponent* c) { inPanel.push_back(c); }, &form);
    EXPECT_EQ(top, (std::vector<TComponent*>{panel, label, menu}));
    EXPECT_EQ(inPanel, std::vector<TComponent*>{button})
        << "a child owned by another root is not written here";
    EXPECT_TRUE(button->HasParent());
    EXPECT_FALSE(menu->HasParent());
    EXPECT_EQ(button->GetParentComponent(), panel);
    button->SetParentComponent(&form);
    EXPECT_EQ(button->Parent(), &form);
    form.SetChildOrder(button, 0);
    EXPECT_EQ(form.Controls(0), button);
    foreign->Free();
}

TEST(Align, TopBottomLeftRightClientShareTheClientArea) {
    TForm form(nullptr);
    form.SetBorderStyle(bsNone);
    form.SetBounds(0, 0, 400, 300);
    auto* top = Child<TGroupBox>(&form, &form, "Top");
    top->SetHeight(40);
    top->SetAlign(alTop);
    auto* bottom = Child<TGroupBox>(&form, &form, "Bottom");
    bottom->SetHeight(30);
    bottom->SetAlign(alBottom);
    auto* left = Child<TGroupBox>(&form, &form, "Left");
    left->SetWidth(50);
    left->SetAlign(alLeft);
    auto* right = Child<TGroupBox>(&form, &form, "Right");
    right->SetWidth(60);
    right->SetAlign(alRight);
    auto* client = Child<TGroupBox>(&form, &form, "Client");
    client->SetAlign(alClient);
    EXPECT_EQ(top->BoundsRect(), Rect(0, 0, 400, 40));
    EXPECT_EQ(bottom->BoundsRect(), Rect(0, 270, 400, 300));
    EXPECT_EQ(left->BoundsRect(), Rect(0, 40, 50, 270));
    EXPECT_EQ(right->BoundsRect(), Rect(340, 40, 400, 270));
    EXPECT_EQ(client->BoundsRect(), Rect(50, 40, 340, 270));
    // Resizing the parent lays everything out again.
    form.SetBounds(0, 0, 500, 400);
    EXPECT_EQ(bottom->BoundsRect(), Rect(0, 370, 500, 400));
    EXPECT_EQ(client->BoundsRect(), Rect(50, 40, 440, 370));
    // A second top control stacks below the first by position; hiding one closes the gap.
    auto* top2 = Child<TGroupBox>(&form, &form, "Top2");
    top2->SetBounds(0, 100, 10, 20);
    top2->SetAlign(alTop);
    EXPECT_EQ(top2->Top(), 40);
    EXPECT_EQ(client->Top(), 60);
    top->SetVisible(false);
    EXPECT_EQ(top2->Top(), 0);
    EXPECT_EQ(client->Top(), 20);
    // Changing an aligned control's height keeps it in place and moves the rest.
    top2->SetHeight(35);
    EXPECT_EQ(client->BoundsRect(), Rect(50, 35, 440, 370));
    // A group box's frame and caption are kept clear.
    auto* inner = Child<TButton>(&form, client, "Inner");
    inner->SetAlign(alClient);
    EXPECT_EQ(inner->BoundsRect(), Rect(2, 15, 388, 333));
}

TEST(Align, AnchorsFollowParentResizeAndClientSizeExcludesFrame) {
    TForm form(nullptr);
    form.SetBorderStyle(bsDialog);
    form.SetClientWidth(300);
    form.SetClientHeight(200);
    EXPECT_EQ(form.Width(), 306);
    EXPECT_EQ(form.Height(), 225);
    auto* ok = Child<TButton>(&form, &form, "OK");
    ok->SetBounds(210, 165, 75, 25);
    ok->SetAnchors(TAnchors{akRight, akBottom});
    auto* edit = Child<TEdit>(&form, &form, "Edit");
    edit->SetBounds(8, 8, 280, 21);
    edit->SetAnchors(TAnchors{akLeft, akTop, akRight});
    form.SetClientWidth(400);
    form.SetClientHeight(250);
    EXPECT_EQ(ok->BoundsRect(), Bounds(310, 215, 75, 25));
    EXPECT_EQ(edit->BoundsRect(), Bounds(8, 8, 380, 21));
    int resized = 0;
    form.OnResize = [&](rtl::TObject*) { ++resized; };
    form.SetWidth(form.Width() + 1);
    form.SetLeft(5);
    EXPECT_EQ(resized, 1);
}

TEST(Inheritance, FontColorAndShowHintFollowParentUntilSetOwn) {
    TForm form(nullptr);
    auto* box = Child<TGroupBox>(&form, &form, "Box");
    auto* label = Child<TLabel>(&form, box, "Label");
    form.Font()->SetName("Arial");
    form.Font()->SetSize(12);
    EXPECT_EQ(label->Font()->Name(), "Arial");
    EXPECT_EQ(label->Font()->Size(), 12);
    EXPECT_TRUE(label->ParentFont());
    label->Font()->SetStyle(TFontStyles{fsBold});
    EXPECT_FALSE(label->ParentFont());
    form.Font()->SetName("Courier New");
    EXPECT_EQ(box->Font()->Name(), "Courier New");
    EXPECT_EQ(label->Font()->Name(), "Arial");
    label->SetParentFont(true);
    EXPECT_EQ(label->Font()->Name(), "Courier New");
    EXPECT_TRUE(label->ParentFont());

    EXPECT_TRUE(label->ParentColor());
    box->SetColor(clRed);
    EXPECT_EQ(label->Color(), clRed);
    label->SetColor(clBlue);
    EXPECT_FALSE(label->ParentColor());
    box->SetColor(clGreen);
    EXPECT_EQ(label->Color(), clBlue);

    form.SetShowHint(true);
    EXPECT_TRUE(label->ShowHint());
    label->SetShowHint(false);
    form.SetShowHint(false);
    form.SetShowHint(true);
    EXPECT_FALSE(label->ShowHint());
    EXPECT_FALSE(label->ParentShowHint());
}

TEST(Published, StandardPropertiesInPlatformOrderWithNamedTypes) {
    TClass c = TButton::StaticClass();
    std::vector<std::string> names;
    for (auto* p : c->Properties())
        names.push_back(p->Name);
    ASSERT_GE(names.size(), 8u);
    EXPECT_EQ(std::vector<std::string>(names.begin(), names.begin() + 6),
              (std::vector<std::string>{"Name", "Tag", "Left", "Top", "Width", "Height"}));
    EXPECT_EQ(c->FindProperty("Caption")->PropType, TypeInfo_TCaption());
    EXPECT_NE(TypeInfo_TCaption(), rtl::TypeInfo_String());
    EXPECT_EQ(c->FindProperty("ModalResult")->PropType->Name, "TModalResult");
    EXPECT_EQ(c->FindProperty("Cursor")->PropType, TypeInfo_TCursor());
    EXPECT_EQ(c->FindProperty("Font")->PropType->ClassType, TFont::StaticClass());
    EXPECT_EQ(c->FindProperty("OnClick")->PropType->Name, "TNotifyEvent");
    EXPECT_EQ(TEdit::StaticClass()->FindProperty("OnKeyDown")->PropType->Name, "TKeyEvent");
    EXPECT_EQ(TLabel::StaticClass()->FindProperty("TabOrder"), nullptr) << "labels have no tab order";
    EXPECT_EQ(TForm::StaticClass()->FindProperty("OnCloseQuery")->PropType->Name, "TCloseQueryEvent");

    TForm form(nullptr);
    auto* button = new TButton(&form);
    button->SetName("Button1");
    EXPECT_EQ(button->Caption(), "Button1") << "a new control's caption follows its name";
    button->SetName("btnOK");
    EXPECT_EQ(button->Caption(), "btnOK");
    rtl::SetStrProp(button, "Caption", "&OK");
    button->SetName("btnGo");
    EXPECT_EQ(button->Caption(), "&OK");
    rtl::SetOrdProp(button, "Left", 17);
    EXPECT_EQ(button->Left(), 17);
    button->SetParent(&form);
    EXPECT_TRUE(rtl::IsDefaultPropValue(button, *c->FindProperty("ParentFont")));
    button->Font()->SetSize(14);
    EXPECT_TRUE(c->FindProperty("Font")->IsStored(button));
    EXPECT_FALSE(rtl::IsDefaultPropValue(button, *c->FindProperty("ParentFont")));
    std::string ident;
    EXPECT_TRUE(CursorToIdent(crHandPoint, ident));
    EXPECT_EQ(ident, "crHandPoint");
    EXPECT_EQ(StringToCursor("crHourGlass"), crHourGlass);
    EXPECT_EQ(StringToCursor("-3"), crCross);
    EXPECT_THROW(StringToCursor("crBogus"), rtl::EConvertError);
}

TEST(StandardControls, CheckBoxRadioAndButtonEvents) {
    TForm form(nullptr);
    auto* chk = Child<TCheckBox>(&form, &form, "chk");
    int clicks = 0;
    chk->OnClick = [&](rtl::TObject*) { ++clicks; };
    chk->SetChecked(true); // assignments raise OnClick on the platform
    chk->SetChecked(true);
    EXPECT_EQ(clicks, 1);
    chk->SetAllowGrayed(true);
    chk->Toggle();
    EXPECT_EQ(chk->State(), cbUnchecked);
    chk->Toggle();
    EXPECT_EQ(chk->State(), cbGrayed);
    chk->Toggle();
    EXPECT_EQ(chk->State(), cbChecked);
    EXPECT_EQ(clicks, 4);

    auto* r1 = Child<TRadioButton>(&form, &form, "r1");
    auto* r2 = Child<TRadioButton>(&form, &form, "r2");
    auto* box = Child<TGroupBox>(&form, &form, "box");
    auto* r3 = Child<TRadioButton>(&form, box, "r3");
    int radioClicks = 0;
    r2->OnClick = [&](rtl::TObject*) { ++radioClicks; };
    r1->SetChecked(true);
    r3->SetChecked(true);
    r2->SetChecked(true);
    EXPECT_FALSE(r1->Checked());
    EXPECT_TRUE(r3->Checked()) << "another parent is another group";
    r2->SetChecked(false);
    EXPECT_EQ(radioClicks, 1);

    auto* btn = Child<TButton>(&form, &form, "btn");
    btn->SetModalResult(mrYes);
    btn->OnClick = [&](rtl::TObject*) { EXPECT_EQ(form.ModalResult(), mrYes); };
    btn->Click();
    EXPECT_EQ(form.ModalResult(), mrYes);
}

TEST(StandardControls, EditAndMemoRaiseOnChangeAndKeepTheirRules) {
    TForm form(nullptr);
    auto* edit = Child<TEdit>(&form, &form, "edit");
    std::vector<std::string> changes;
    edit->OnChange = [&](rtl::TObject*) { changes.push_back(edit->Text()); };
    edit->SetText("abc");
    edit->SetText("abc");
    edit->SetMaxLength(4);
    edit->SetCharCase(ecUpperCase);
    edit->EnterText("hello");
    EXPECT_EQ(edit->Text(), "HELL");
    EXPECT_EQ(changes, (std::vector<std::string>{"abc", "ABC", "HELL"}));
    edit->SetSelStart(1);
    edit->SetSelLength(2);
    EXPECT_EQ(edit->SelText(), "EL");
    edit->SetSelText("x");
    EXPECT_EQ(edit->Text(), "HxL");

    auto* memo = Child<TMemo>(&form, &form, "memo");
    EXPECT_EQ(memo->Lines()->Count(), 1) << "a new memo shows its name";
    int memoChanges = 0;
    memo->OnChange = [&](rtl::TObject*) { ++memoChanges; };
    memo->SetText("one\r\ntwo");
    EXPECT_EQ(memo->Lines()->Count(), 2);
    EXPECT_EQ(memo->Lines()->Get(1), "two");
    memo->Lines()->Add("three");
    EXPECT_EQ(memo->Text(), "one\r\ntwo\r\nthree");
    EXPECT_EQ(memoChanges, 2);
}

TEST(StandardControls, ListBoxSelectionFollowsItems) {
    TForm form(nullptr);
    auto* lb = Child<TListBox>(&form, &form, "lb");
    lb->Items()->SetCommaText("c,a,b");
    lb->SetItemIndex(2);
    lb->Items()->Insert(0, "z");
    EXPECT_EQ(lb->ItemIndex(), 3);
    EXPECT_EQ(lb->Items()->Get(lb->ItemIndex()), "b");
    lb->Items()->Delete(3);
    EXPECT_EQ(lb->ItemIndex(), -1);
    lb->SetItemIndex(7);
    EXPECT_EQ(lb->ItemIndex(), -1) << "out of range selects nothing";
    lb->SetSorted(true);
    EXPECT_EQ(lb->Items()->CommaText(), "a,c,z");
    lb->Items()->Add("b");
    EXPECT_EQ(lb->Items()->CommaText(), "a,b,c,z");
    EXPECT_EQ(lb->SelCount(), -1);
    lb->SetMultiSelect(true);
    lb->SelectItems({0, 2});
    EXPECT_EQ(lb->SelCount(), 2);
    EXPECT_TRUE(lb->Selected(2));
    lb->Items()->Delete(0);
    EXPECT_TRUE(lb->Selected(1));
    EXPECT_FALSE(lb->Selected(0));
    EXPECT_THROW(lb->Selected(9), rtl::EListError);
}

TEST(StandardControls, ComboBoxTextAndIndexStayInStep) {
    TForm form(nullptr);
    auto* cb = Child<TComboBox>(&form, &form, "cb");
    cb->Items()->SetCommaText("Red,Green,Blue");
    int changes = 0, clicks = 0;
    cb->OnChange = [&](rtl::TObject*) { ++changes; };
    cb->OnClick = [&](rtl::TObject*) { ++clicks; };
    cb->SetItemIndex(1);
    EXPECT_EQ(cb->Text(), "Green");
    EXPECT_EQ(changes, 0) << "assigning ItemIndex raises nothing";
    cb->SetText("blue");
    EXPECT_EQ(cb->ItemIndex(), -1) << "a drop-down combo's text selects only an exact line";
    cb->SetText("Blue");
    EXPECT_EQ(cb->ItemIndex(), 2);
    cb->SetStyle(csDropDownList);
    cb->SetText("Nothing");
    EXPECT_EQ(cb->ItemIndex(), -1);
    EXPECT_EQ(cb->Text(), "");
    cb->SelectItem(0);
    EXPECT_EQ(cb->Text(), "Red");
    EXPECT_EQ(clicks, 1);
    cb->Items()->Insert(0, "Black");
    EXPECT_EQ(cb->ItemIndex(), 1);
    cb->Items()->Delete(1);
    EXPECT_EQ(cb->Text(), "");
}

} // namespace
