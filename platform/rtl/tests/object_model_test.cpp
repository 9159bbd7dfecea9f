// Object model: type information, published properties by name, components, collections, class registry.
#include <gtest/gtest.h>

#include "rtl/classes.h"

using namespace rtl;

namespace om {

JEX_ENUM(TShade, shLight, shMedium, shDark)
JEX_SET(TShades, TShade)
JEX_DEFINE_ENUM(TShade)
JEX_DEFINE_SET(TShades, TShade)
const TTypeInfo* TypeInfo_TImageIndex();
JEX_DEFINE_ALIAS_TYPE(TypeInfo_TImageIndex, "TImageIndex", TypeInfo_Integer)

class TWidget : public TComponent {
    JEX_CLASS(TWidget, TComponent)
    using TComponent::TComponent;
    ~TWidget() override = default;
    int Width() const { return FWidth; }
    void SetWidth(int v) {
        FWidth = v;
        ++SetterCalls;
    }
    bool Checked() const { return FChecked; }
    void SetChecked(bool v) { FChecked = v; }
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& v) { FFileName = v; }
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int v) { FImageIndex = v; }
    TShade Shade() const { return FShade; }
    void SetShade(TShade v) { FShade = v; }
    TShades Shades() const { return FShades; }
    void SetShades(TShades v) { FShades = v; }
    TWidget* Buddy() const { return FBuddy; }
    void SetBuddy(TWidget* v) {
        if (FBuddy == v) return;
        FBuddy = v;
        if (v) v->FreeNotification(this);
    }
    double Ratio() const { return FRatio; }
    void SetRatio(double v) { FRatio = v; }
    TNotifyEvent OnClick;
    int SetterCalls = 0;
    std::vector<std::pair<TComponent*, TOperation>> Notes;

protected:
    void Notification(TComponent* c, TOperation op) override {
        TComponent::Notification(c, op);
        Notes.emplace_back(c, op);
        if (op == opRemove && c == FBuddy) FBuddy = nullptr;
    }

private:
    int FWidth = 10;
    bool FChecked = false;
    std::string FFileName;
    int FImageIndex = -1;
    TShade FShade = shMedium;
    TShades FShades{shLight};
    TWidget* FBuddy = nullptr;
    double FRatio = 0;
};

JEX_IMPLEMENT_CLASS(TWidget, TComponent, "OmTest") {
    d.Property("Width", &TWidget::Width, &TWidget::SetWidth).Default(10);
    d.Property("Checked", &TWidget::Checked, &TWidget::SetChecked).Default(false);
    d.Property("FileName", &TWidget::FileName, &TWidget::SetFileName, TypeInfo_TFileName());
    d.Property("ImageIndex", &TWidget::ImageIndex, &TWidget::SetImageIndex, TypeInfo_TImageIndex()).Default(-1);
    d.Property("Shade", &TWidget::Shade, &TWidget::SetShade).Default(shMedium);
    d.Property("Shades", &TWidget::Shades, &TWidget::SetShades);
    d.Property("Buddy", &TWidget::Buddy, &TWidget::SetBuddy);
    d.Property("Ratio", &TWidget::Ratio, &TWidget::SetRatio);
    d.Event("OnClick", &TWidget::OnClick);
}

class TFancyWidget : public TWidget {
    JEX_CLASS(TFancyWidget, TWidget)
    using TWidget::TWidget;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& v) { FCaption = v; }

private:
    std::string FCaption;
};
JEX_IMPLEMENT_CLASS(TFancyWidget, TWidget, "OmTest") {
    d.Property("Caption", &TFancyWidget::Caption, &TFancyWidget::SetCaption);
}

class TAbstractThing : public TComponent {
    JEX_CLASS(TAbstractThing, TComponent)
    using TComponent::TComponent;
    virtual void Pure() = 0;
};
JEX_IMPLEMENT_CLASS(TAbstractThing, TComponent, "OmTest") {}

class TPoint3 : public TCollectionItem {
    JEX_CLASS(TPoint3, TCollectionItem)
    using TCollectionItem::TCollectionItem;
    int X() const { return FX; }
    void SetX(int v) { FX = v; }
    void Assign(TPersistent* src) override {
        if (auto* p = dynamic_cast<TPoint3*>(src)) FX = p->FX;
        else TCollectionItem::Assign(src);
    }

private:
    int FX = 0;
};
JEX_IMPLEMENT_CLASS(TPoint3, TCollectionItem, "OmTest") { d.Property("X", &TPoint3::X, &TPoint3::SetX).Default(0); }

} // namespace om

using namespace om;

TEST(TypeInfo, DistinctNamedTypesStayDistinct) {
    TClass c = TFancyWidget::StaticClass();
    const TPropInfo* file = c->FindProperty("filename");
    const TPropInfo* image = c->FindProperty("ImageIndex");
    ASSERT_TRUE(file && image);
    EXPECT_NE(file->PropType, TypeInfo_String());
    EXPECT_EQ(file->PropType, TypeInfo_TFileName());
    EXPECT_EQ(file->PropType->Kind, tkLString);
    EXPECT_NE(image->PropType, TypeInfo_Integer());
    EXPECT_EQ(image->PropType->Name, "TImageIndex");
    EXPECT_EQ(image->PropType->Kind, tkInteger);

    const TTypeInfo* b = c->FindProperty("Checked")->PropType;
    EXPECT_EQ(b->Kind, tkEnumeration);
    EXPECT_EQ(b->EnumNames, (std::vector<std::string>{"False", "True"}));
    const TTypeInfo* buddy = c->FindProperty("Buddy")->PropType;
    EXPECT_EQ(buddy->Kind, tkClass);
    EXPECT_EQ(buddy->ClassType, TWidget::StaticClass());
    const TTypeInfo* shades = c->FindProperty("Shades")->PropType;
    EXPECT_EQ(shades->Kind, tkSet);
    EXPECT_EQ(shades->CompType, TypeInfoOf(static_cast<TShade*>(nullptr)));
    const TTypeInfo* ev = c->FindProperty("OnClick")->PropType;
    EXPECT_EQ(ev->Kind, tkMethod);
    EXPECT_EQ(ev->Name, "TNotifyEvent");
}

TEST(TypeInfo, PropertiesInheritedInDeclarationOrder) {
    std::vector<std::string> names;
    for (auto* p : TFancyWidget::StaticClass()->Properties()) names.push_back(p->Name);
    EXPECT_EQ(names, (std::vector<std::string>{"Name", "Tag", "Width", "Checked", "FileName", "ImageIndex", "Shade",
                                               "Shades", "Buddy", "Ratio", "OnClick", "Caption"}));
    EXPECT_TRUE(TFancyWidget::StaticClass()->InheritsFrom(TComponent::StaticClass()));
    EXPECT_FALSE(TWidget::StaticClass()->InheritsFrom(TFancyWidget::StaticClass()));
    EXPECT_EQ(TFancyWidget::StaticClass()->ClassParent(), TWidget::StaticClass());
}

TEST(TypeInfo, ReadAndWriteByNameGoThroughSetters) {
    TComponent owner(nullptr);
    TComponent* obj = TFancyWidget::StaticClass()->CreateComponent(&owner);
    auto* w = dynamic_cast<TFancyWidget*>(obj);
    ASSERT_NE(w, nullptr);
    SetOrdProp(obj, "width", 42);
    EXPECT_EQ(w->Width(), 42);
    EXPECT_EQ(w->SetterCalls, 1);
    SetOrdProp(obj, "Checked", 1);
    EXPECT_TRUE(w->Checked());
    SetStrProp(obj, "FileName", "/tmp/a.txt");
    EXPECT_EQ(GetStrProp(obj, "FILENAME"), "/tmp/a.txt");
    SetOrdProp(obj, "Shade", shDark);
    EXPECT_EQ(GetEnumName(GetPropInfo(obj, "Shade")->PropType, GetOrdProp(obj, "Shade")), "shDark");
    int64_t set = StringToSet(GetPropInfo(obj, "Shades")->PropType, "[shLight, shDark]");
    SetOrdProp(obj, "Shades", set);
    EXPECT_EQ(w->Shades(), (TShades{shLight, shDark}));
    EXPECT_EQ(SetToString(GetPropInfo(obj, "Shades")->PropType, GetOrdProp(obj, "Shades")), "[shLight,shDark]");
    SetFloatProp(obj, "Ratio", 2.5);
    EXPECT_DOUBLE_EQ(w->Ratio(), 2.5);
    SetStrProp(obj, "Caption", "Hello");
    EXPECT_EQ(w->Caption(), "Hello");

    // Out of range for the enumeration and for Boolean.
    EXPECT_THROW(SetOrdProp(obj, "Shade", 3), ERangeError);
    EXPECT_THROW(SetOrdProp(obj, "Checked", 2), ERangeError);
    EXPECT_THROW(GetOrdProp(obj, "Missing"), EPropertyError);
    EXPECT_THROW(GetStrProp(obj, "Width"), EPropertyError);
    EXPECT_THROW(StringToSet(GetPropInfo(obj, "Shades")->PropType, "[shPurple]"), EPropertyError);

    // Class-typed property: right class accepted, wrong class refused.
    auto* other = new TWidget(&owner);
    SetObjectProp(obj, "Buddy", other);
    EXPECT_EQ(w->Buddy(), other);
    TComponent plain(nullptr);
    EXPECT_THROW(SetObjectProp(obj, "Buddy", &plain), EInvalidCast);

    // Events: by name and with a handler.
    int clicks = 0;
    TMethod m;
    m.Name = "Widget1Click";
    m.Code = TNotifyEvent::Function([&](TObject*) { ++clicks; });
    SetMethodProp(obj, "OnClick", m);
    EXPECT_EQ(w->OnClick.Name, "Widget1Click");
    w->OnClick(w);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(GetMethodProp(obj, "OnClick").Name, "Widget1Click");

    // Defaults decide what a form file leaves out.
    const TPropInfo& tag = GetPropInfoOrRaise(obj, "Tag");
    EXPECT_TRUE(IsDefaultPropValue(obj, tag));
    EXPECT_FALSE(IsDefaultPropValue(obj, GetPropInfoOrRaise(obj, "Width")));
    EXPECT_FALSE(GetPropInfoOrRaise(obj, "Name").IsStored(obj));
}

TEST(TypeInfo, AbstractClassesCannotBeCreated) {
    EXPECT_FALSE(TAbstractThing::StaticClass()->CanCreateComponent());
    EXPECT_THROW(TAbstractThing::StaticClass()->CreateComponent(nullptr), EInvalidOperation);
    EXPECT_TRUE(TPoint3::StaticClass()->CanCreateItem());
}

TEST(Component, NamesAreValidatedAndUniqueIgnoringCase) {
    TComponent form(nullptr);
    auto* a = new TWidget(&form);
    auto* b = new TWidget(&form);
    a->SetName("Button1");
    EXPECT_THROW(b->SetName("button1"), EComponentError);
    try {
        b->SetName("BUTTON1");
    } catch (const EComponentError& e) {
        EXPECT_STREQ(e.what(), "A component named BUTTON1 already exists");
    }
    EXPECT_THROW(b->SetName("1abc"), EComponentError);
    try {
        b->SetName("a b");
    } catch (const EComponentError& e) {
        EXPECT_STREQ(e.what(), "'a b' is not a valid component name");
    }
    EXPECT_EQ(b->Name(), "");
    a->SetName("button1"); // a case change of its own name is allowed
    EXPECT_EQ(form.FindComponent("BUTTON1"), a);
    b->SetName("_x2");
    EXPECT_EQ(form.FindComponent("_X2"), b);
    a->SetName("Other");
    EXPECT_EQ(form.FindComponent("button1"), nullptr);
    EXPECT_EQ(form.FindComponent("other"), a);
    EXPECT_EQ(form.ComponentCount(), 2);
    EXPECT_EQ(b->ComponentIndex(), 1);
    b->SetComponentIndex(0);
    EXPECT_EQ(form.Components(0), b);
    EXPECT_THROW(form.Components(2), EListError);
}

TEST(Component, OwnerDestroysOwnedAndFreeNotificationsClearReferences) {
    auto* form = new TComponent(nullptr);
    auto* a = new TWidget(form);
    auto* b = new TWidget(form);
    TWidget outsider(nullptr);
    outsider.SetBuddy(a);
    b->SetBuddy(a);
    a->Free();
    EXPECT_EQ(outsider.Buddy(), nullptr);
    EXPECT_EQ(b->Buddy(), nullptr);
    EXPECT_EQ(form->ComponentCount(), 1);
    outsider.SetBuddy(b);
    form->Free(); // b goes with its owner
    EXPECT_EQ(outsider.Buddy(), nullptr);
}

TEST(Component, DesigningStatePropagatesToOwnedComponents) {
    TComponent form(nullptr);
    form.SetDesigning(true);
    auto* w = new TWidget(&form);
    EXPECT_TRUE(w->IsDesigning());
    form.SetDesigning(false);
    EXPECT_FALSE(w->IsDesigning());
}

TEST(Collection, ItemsAddAssignAndIndex) {
    TCollection col(TPoint3::StaticClass());
    auto* p = static_cast<TPoint3*>(col.Add());
    p->SetX(5);
    col.Add();
    EXPECT_EQ(col.Count(), 2);
    EXPECT_EQ(p->Index(), 0);
    p->SetIndex(1);
    EXPECT_EQ(col.Items(1), p);
    TCollection copy(TPoint3::StaticClass());
    copy.Assign(&col);
    EXPECT_EQ(copy.Count(), 2);
    EXPECT_EQ(static_cast<TPoint3*>(copy.Items(1))->X(), 5);
    col.Delete(0);
    EXPECT_EQ(col.Count(), 1);
    EXPECT_THROW(col.Items(1), EListError);
    TWidget w(nullptr);
    EXPECT_THROW(copy.Assign(&w), EConvertError);
}

TEST(ClassRegistry, RegisterFindAndWithdraw) {
    EXPECT_EQ(GetClass("TWidget"), nullptr);
    RegisterClasses({TWidget::StaticClass(), TFancyWidget::StaticClass()});
    RegisterClass(TWidget::StaticClass()); // twice is harmless
    EXPECT_EQ(RegisteredClassCount("TWidget"), 1);
    EXPECT_EQ(GetClass("twidget"), TWidget::StaticClass());
    EXPECT_EQ(FindClass("TFancyWidget"), TFancyWidget::StaticClass());
    ActivateClassGroup(TWidget::StaticClass());
    EXPECT_EQ(GetClass("TWidget"), TWidget::StaticClass());
    UnRegisterClasses({TWidget::StaticClass(), TFancyWidget::StaticClass()});
    EXPECT_EQ(GetClass("TWidget"), nullptr);
    try {
        FindClass("TWidget");
        FAIL();
    } catch (const EClassNotFound& e) {
        EXPECT_STREQ(e.what(), "Class TWidget not found");
    }
}
