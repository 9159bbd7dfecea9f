// Implementation and type information of the test component classes.
#include "testcomps.h"

#include <algorithm>

#include "vcl/controls.h"

namespace idetest {

using namespace rtl;

JEX_DEFINE_ENUM(TShade)
JEX_DEFINE_SET(TShades, TShade)
JEX_DEFINE_ALIAS_TYPE(TypeInfo_TImageIndex, "TImageIndex", TypeInfo_Integer)
const TTypeInfo* TypeInfo_TSmall() {
    static const TTypeInfo ti = TTypeInfo::MakeOrdinal("TSmall", tkInteger, otSByte, -5, 5);
    return &ti;
}
JEX_DEFINE_EVENT_TYPE(TChangeEvent, "Sender: TObject; Value: Integer")

void TTestForm::GetChildren(const TGetChildProc& proc, TComponent* root) {
    for (TComponent* c : ComponentList()) {
        TComponent* parent = c->GetParentComponent();
        if (!parent || parent == this) proc(c);
    }
}

JEX_IMPLEMENT_CLASS(TTestForm, TComponent, "IdeTest") {
    d.Property("Caption", &TTestForm::Caption, &TTestForm::SetCaption);
    d.Event("OnClick", &TTestForm::OnClick);
    d.Event("OnCreate", &TTestForm::OnCreate);
}

TGadget::TGadget(TComponent* owner) : TComponent(owner), FFont(new vcl::TFont()) {}

TGadget::~TGadget() {
    delete FFont;
}

void TGadget::SetBuddy(TGadget* v) {
    if (FBuddy == v) return;
    if (FBuddy) FBuddy->RemoveFreeNotification(this);
    FBuddy = v;
    if (v) v->FreeNotification(this);
}

void TGadget::Notification(TComponent* c, TOperation op) {
    TComponent::Notification(c, op);
    if (op == opRemove && c == FBuddy) FBuddy = nullptr;
}

JEX_IMPLEMENT_CLASS(TGadget, TComponent, "IdeTest") {
    d.Property("Width", &TGadget::Width, &TGadget::SetWidth).Default(10);
    d.Property("Small", &TGadget::Small, &TGadget::SetSmall, TypeInfo_TSmall()).Default(0);
    d.Property("Checked", &TGadget::Checked, &TGadget::SetChecked).Default(false);
    d.Property("Letter", &TGadget::Letter, &TGadget::SetLetter);
    d.Property("FileName", &TGadget::FileName, &TGadget::SetFileName, TypeInfo_TFileName());
    d.Property("Caption", &TGadget::Caption, &TGadget::SetCaption);
    d.Property("ImageIndex", &TGadget::ImageIndex, &TGadget::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Shade", &TGadget::Shade, &TGadget::SetShade).Default(shMedium);
    d.Property("Shades", &TGadget::Shades, &TGadget::SetShades);
    d.Property("Ratio", &TGadget::Ratio, &TGadget::SetRatio);
    d.Property("Scale", &TGadget::Scale, &TGadget::SetScale);
    d.Property("Color", &TGadget::Color, &TGadget::SetColor, vcl::TypeInfo_TColor()).Default(vcl::clBtnFace);
    d.Property("Font", &TGadget::Font, &TGadget::SetFont);
    d.Property("Buddy", &TGadget::Buddy, &TGadget::SetBuddy);
    d.Event("OnClick", &TGadget::OnClick);
    d.Event("OnChange", &TGadget::OnChange);
}

JEX_IMPLEMENT_CLASS(TFancyGadget, TGadget, "IdeTest") {
    d.Property("Hint", &TFancyGadget::Hint, &TFancyGadget::SetHint);
    d.Event("OnCreate", &TFancyGadget::OnCreate);
}

JEX_IMPLEMENT_CLASS(TWidget, TComponent, "IdeTest") {
    d.Property("Width", &TWidget::Width, &TWidget::SetWidth);
    d.Property("Checked", &TWidget::Checked, &TWidget::SetChecked).Default(false);
}

JEX_IMPLEMENT_CLASS(TQuiet, TComponent, "IdeTest") {}

TBox::~TBox() {
    // A parent takes its children with it, as controls do.
    while (!FChildren.empty())
        FChildren.back()->Free();
    SetParentComponent(nullptr);
}

void TBox::SetParentComponent(TComponent* value) {
    if (auto* old = dynamic_cast<TBox*>(FParent)) std::erase(old->FChildren, this);
    FParent = value;
    if (auto* box = dynamic_cast<TBox*>(value)) box->FChildren.push_back(this);
}

void TBox::GetChildren(const TGetChildProc& proc, TComponent* root) {
    for (TBox* c : FChildren)
        proc(c);
}

JEX_IMPLEMENT_CLASS(TBox, TComponent, "IdeTest") {
    d.Property("Left", &TBox::Left, &TBox::SetLeft);
    d.Property("Top", &TBox::Top, &TBox::SetTop);
    d.Property("Width", &TBox::Width, &TBox::SetWidth);
    d.Property("Height", &TBox::Height, &TBox::SetHeight);
    d.Event("OnClick", &TBox::OnClick);
}

JEX_IMPLEMENT_CLASS(TBoxForm, TTestForm, "IdeTest") {}

JEX_IMPLEMENT_CLASS(TTestItem, TCollectionItem, "IdeTest") {
    d.Property("Caption", &TTestItem::Caption, &TTestItem::SetCaption);
}

THolder::THolder(TComponent* owner)
    : TComponent(owner), FItems(new TOwnedCollection(this, TTestItem::StaticClass())) {
    FItems->PropName = "Items";
}

THolder::~THolder() {
    delete FItems;
}

JEX_IMPLEMENT_CLASS(THolder, TComponent, "IdeTest") {
    d.Property("Items", &THolder::Items, &THolder::SetItems);
    d.Property("Cursor", &THolder::Cursor, &THolder::SetCursor, vcl::TypeInfo_TCursor()).Default(0);
    d.Property("Title", &THolder::Title, &THolder::SetTitle, vcl::TypeInfo_TCaption());
}

void RegisterTestClasses() {
    RegisterClasses({TTestForm::StaticClass(), TGadget::StaticClass(), TFancyGadget::StaticClass(),
                     TWidget::StaticClass(), TQuiet::StaticClass(), TBox::StaticClass(),
                     TBoxForm::StaticClass()});
}

} // namespace idetest
