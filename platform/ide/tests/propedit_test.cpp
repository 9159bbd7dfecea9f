// Property editors: the editor choice rule, the multi-selection intersection, and what each standard
// editor shows, lists and accepts.
#include <gtest/gtest.h>

#include "ide/designer.h"
#include "ide/propedit.h"
#include "testcomps.h"

using namespace ide;
using namespace idetest;
using rtl::TClass;

namespace {

// Distinct editor classes to tell registrations apart.
class TEdA : public TPropertyEditor {
    JEX_CLASS(TEdA, TPropertyEditor)
};
class TEdB : public TPropertyEditor {
    JEX_CLASS(TEdB, TPropertyEditor)
};
// Without paMultiSelect.
class TSingleEd : public TStringProperty {
    JEX_CLASS(TSingleEd, TStringProperty)
    TPropertyAttributes GetAttributes() override { return {paDialog}; }
};
JEX_IMPLEMENT_CLASS(TEdA, TPropertyEditor, "IdeTest") {}
JEX_IMPLEMENT_CLASS(TEdB, TPropertyEditor, "IdeTest") {}
JEX_IMPLEMENT_CLASS(TSingleEd, TStringProperty, "IdeTest") {}

const rtl::TTypeInfo* ClassType(TClass c) {
    return c->ClassInfo();
}
TClass A() {
    return TEdA::StaticClass();
}
TClass B() {
    return TEdB::StaticClass();
}

struct TReg {
    const rtl::TTypeInfo* Type;
    TClass Component;
    std::string Name;
    TClass Editor;
};

struct TChoiceCase {
    const char* Title;
    std::vector<TReg> Regs;
    TClass Component; // class of the edited component
    const char* Property;
    TClass Expected;
};

std::vector<TChoiceCase> ChoiceCases() {
    const rtl::TTypeInfo* fileName = rtl::TypeInfo_TFileName();
    const rtl::TTypeInfo* font = ClassType(vcl::TFont::StaticClass());
    const rtl::TTypeInfo* persistent = ClassType(rtl::TPersistent::StaticClass());
    const rtl::TTypeInfo* graphicsObject = ClassType(vcl::TGraphicsObject::StaticClass());
    TClass gadget = TGadget::StaticClass(), fancy = TFancyGadget::StaticClass(),
           comp = rtl::TComponent::StaticClass();
    return {
        {"nothing registered: default editor of the kind",
         {},
         gadget,
         "FileName",
         TStringProperty::StaticClass()},
        {"a String registration does not reach a TFileName property",
         {{rtl::TypeInfo_String(), nullptr, "", A()}},
         gadget,
         "FileName",
         TStringProperty::StaticClass()},
        {"exact type for every class and name", {{fileName, nullptr, "", A()}}, gadget, "FileName", A()},
        {"property name compared ignoring case",
         {{fileName, nullptr, "FILENAME", A()}},
         gadget,
         "FileName",
         A()},
        {"other property name does not match",
         {{fileName, nullptr, "Caption", A()}},
         gadget,
         "FileName",
         TStringProperty::StaticClass()},
        {"descendant component class does not match its ancestor",
         {{fileName, fancy, "", A()}},
         gadget,
         "FileName",
         TStringProperty::StaticClass()},
        {"component class beats a name",
         {{fileName, gadget, "", B()}, {fileName, nullptr, "FileName", A()}},
         gadget,
         "FileName",
         B()},
        {"component class beats a name, other order",
         {{fileName, nullptr, "FileName", A()}, {fileName, gadget, "", B()}},
         gadget,
         "FileName",
         B()},
        {"a name beats none",
         {{fileName, nullptr, "FileName", B()}, {fileName, nullptr, "", A()}},
         gadget,
         "FileName",
         B()},
        {"exact type beats an ancestor type",
         {{font, nullptr, "", B()}, {persistent, nullptr, "", A()}},
         gadget,
         "Font",
         B()},
        {"exact type beats an ancestor type, other order",
         {{persistent, nullptr, "", A()}, {font, nullptr, "", B()}},
         gadget,
         "Font",
         B()},
        {"more derived ancestor type wins",
         {{ClassType(comp), nullptr, "", B()}, {persistent, nullptr, "", A()}},
         gadget,
         "Buddy",
         B()},
        {"more derived ancestor type wins, other order",
         {{persistent, nullptr, "", A()}, {ClassType(comp), nullptr, "", B()}},
         gadget,
         "Buddy",
         B()},
        {"an ancestor type without an exact one",
         {{graphicsObject, gadget, "", B()}, {persistent, gadget, "", A()}},
         gadget,
         "Font",
         B()},
        {"more derived component class wins",
         {{fileName, gadget, "", B()}, {fileName, comp, "", A()}},
         fancy,
         "FileName",
         B()},
        {"more derived component class wins, other order",
         {{fileName, comp, "", A()}, {fileName, gadget, "", B()}},
         fancy,
         "FileName",
         B()},
        {"later registration wins a tie",
         {{fileName, gadget, "", A()}, {fileName, gadget, "", B()}},
         gadget,
         "FileName",
         B()},
        {"component class beats an exact type",
         {{font, nullptr, "", A()}, {persistent, gadget, "", B()}},
         gadget,
         "Font",
         B()},
        {"a name beats an exact type",
         {{font, nullptr, "", A()}, {persistent, nullptr, "Font", B()}},
         gadget,
         "Font",
         B()},
        {"exact type beats a more derived component class",
         {{font, gadget, "", B()}, {persistent, fancy, "", A()}},
         fancy,
         "Font",
         B()},
        {"a registration for TComponent reaches a TGadget reference",
         {{ClassType(comp), gadget, "", A()}},
         gadget,
         "Buddy",
         A()},
        {"standard: Boolean", {}, gadget, "Checked", TBoolProperty::StaticClass()},
        {"standard: TColor", {}, gadget, "Color", TColorProperty::StaticClass()},
        {"standard: component reference", {}, gadget, "Buddy", TComponentProperty::StaticClass()},
        {"standard: Name", {}, gadget, "Name", TComponentNameProperty::StaticClass()},
        {"standard: TFont", {}, gadget, "Font", TFontProperty::StaticClass()},
        {"standard: event", {}, gadget, "OnClick", TMethodProperty::StaticClass()},
        {"standard: set", {}, gadget, "Shades", TSetProperty::StaticClass()},
        {"standard: enumeration", {}, gadget, "Shade", TEnumProperty::StaticClass()},
        {"standard: float", {}, gadget, "Ratio", TFloatProperty::StaticClass()},
        {"standard: char", {}, gadget, "Letter", TCharProperty::StaticClass()},
        {"standard: integer alias", {}, gadget, "ImageIndex", TIntegerProperty::StaticClass()},
    };
}

TEST(PropertyEditorChoice, FollowsTheBestMatchRule) {
    for (const TChoiceCase& c : ChoiceCases()) {
        TFakeModule module;
        for (const TReg& r : c.Regs)
            RegisterPropertyEditor(r.Type, r.Component, r.Name, r.Editor);
        const rtl::TPropInfo* p = c.Component->FindProperty(c.Property);
        ASSERT_NE(p, nullptr) << c.Title;
        TClass got = GetEditorClass(p, c.Component);
        EXPECT_EQ(got, c.Expected) << c.Title << ": got " << (got ? got->ClassName() : "nil");
    }
}

TEST(PropertyEditorChoice, WithdrawnWithTheModule) {
    const rtl::TPropInfo* p = TGadget::StaticClass()->FindProperty("FileName");
    int before = PropertyEditorRegistrationCount();
    {
        TFakeModule module;
        RegisterPropertyEditor(rtl::TypeInfo_TFileName(), nullptr, "", A());
        EXPECT_EQ(GetEditorClass(p, TGadget::StaticClass()), A());
        EXPECT_EQ(PropertyEditorRegistrationCount(), before + 1);
    }
    EXPECT_EQ(GetEditorClass(p, TGadget::StaticClass()), TStringProperty::StaticClass());
    EXPECT_EQ(PropertyEditorRegistrationCount(), before);
}

TEST(PropertyEditorChoice, RejectsClassesThatAreNoEditors) {
    TFakeModule module;
    EXPECT_THROW(RegisterPropertyEditor(rtl::TypeInfo_String(), nullptr, "", TGadget::StaticClass()),
                 rtl::EPropertyError);
    EXPECT_THROW(RegisterPropertyEditor(rtl::TypeInfo_String(), nullptr, "", nullptr), rtl::EPropertyError);
}

// ---- Multi-selection
// -----------------------------------------------------------------------------------------
std::vector<std::string> PropNames(const TDesignerSelectionList& sel, TTypeKinds filter = tkProperties) {
    std::vector<std::string> names;
    GetComponentProperties(sel, filter, nullptr,
                           [&](TPropertyEditorPtr e) { names.push_back(e->GetName()); });
    return names;
}

struct TMultiCase {
    const char* Title;
    std::vector<TClass> Classes;
    std::vector<std::string> Expected;
};

TEST(ComponentProperties, SingleSelectionListsEveryPropertyByName) {
    TTestForm form(nullptr);
    auto* g = new TGadget(&form);
    EXPECT_EQ(PropNames({g}),
              (std::vector<std::string>{"Buddy", "Caption", "Checked", "Color", "FileName", "Font",
                                        "ImageIndex", "Letter", "Name", "Ratio", "Scale", "Shade", "Shades",
                                        "Small", "Tag", "Width"}));
    EXPECT_EQ(PropNames({g}, tkMethods), (std::vector<std::string>{"OnChange", "OnClick"}));
}

TEST(ComponentProperties, SeveralSelectedShowWhatAllShareWithMultiSelectEditors) {
    std::vector<std::string> gadgetCommon{"Buddy", "Caption",    "Checked", "Color", "FileName",
                                          "Font",  "ImageIndex", "Letter",  "Ratio", "Scale",
                                          "Shade", "Shades",     "Small",   "Tag",   "Width"};
    std::vector<TMultiCase> cases{
        {"two of a class: all but Name", {TGadget::StaticClass(), TGadget::StaticClass()}, gadgetCommon},
        {"a class and its descendant: the ancestor's",
         {TFancyGadget::StaticClass(), TGadget::StaticClass()},
         gadgetCommon},
        {"same name, other type is left out",
         {TGadget::StaticClass(), TWidget::StaticClass()},
         {"Checked", "Tag"}},
        {"three classes", {TGadget::StaticClass(), TWidget::StaticClass(), TQuiet::StaticClass()}, {"Tag"}},
    };
    for (auto& c : cases) {
        TTestForm form(nullptr);
        TDesignerSelectionList sel;
        for (TClass cls : c.Classes)
            sel.Add(cls->CreateComponent(&form));
        EXPECT_EQ(PropNames(sel), c.Expected) << c.Title;
    }
}

TEST(ComponentProperties, EditorsDecideWhatSeveralObjectsShow) {
    TFakeModule module;
    TTestForm form(nullptr);
    auto* g1 = new TGadget(&form);
    auto* g2 = new TGadget(&form);
    auto* f = new TFancyGadget(&form);
    RegisterPropertyEditor(rtl::TypeInfo_String(), TGadget::StaticClass(), "Caption",
                           TSingleEd::StaticClass());
    auto has = [](const std::vector<std::string>& v, const char* n) {
        return std::find(v.begin(), v.end(), n) != v.end();
    };
    EXPECT_TRUE(has(PropNames({g1}), "Caption"));
    EXPECT_FALSE(has(PropNames({g1, g2}), "Caption")) << "editor without paMultiSelect";
    // A registration that only the descendant gets makes the editors differ.
    RegisterPropertyEditor(rtl::TypeInfo_TFileName(), TFancyGadget::StaticClass(), "", A());
    EXPECT_TRUE(has(PropNames({g1, g2}), "FileName"));
    EXPECT_FALSE(has(PropNames({g1, f}), "FileName"));
    EXPECT_TRUE(has(PropNames({f}), "FileName"));
}

TEST(ComponentProperties, EditorsGetEveryObject) {
    TTestForm form(nullptr);
    auto* g1 = new TGadget(&form);
    auto* g2 = new TFancyGadget(&form);
    int seen = 0;
    GetComponentProperties({g1, g2}, tkProperties, nullptr, [&](TPropertyEditorPtr e) {
        if (e->GetName() != "Width") return;
        ++seen;
        ASSERT_EQ(e->PropCount(), 2);
        EXPECT_EQ(e->GetComponent(0), g1);
        EXPECT_EQ(e->GetComponent(1), g2);
        EXPECT_THROW(e->GetComponent(2), rtl::EListError);
    });
    EXPECT_EQ(seen, 1);
}

// ---- Standard editors
// -------------------------------------------------------------------------------------------
class StandardEditors : public ::testing::Test {
protected:
    void SetUp() override {
        Form = new TTestForm(nullptr);
        Form->SetName("Form1");
        Designer = std::make_unique<TFormDesigner>(Form, true);
        G1 = new TGadget(Form);
        G1->SetName("Gadget1");
        G2 = new TGadget(Form);
        G2->SetName("Gadget2");
        F1 = new TFancyGadget(Form);
        F1->SetName("Fancy1");
        Designer->SetModified(false);
    }
    TPropertyEditorPtr EditorFor(const TDesignerSelectionList& sel, const std::string& name,
                                 TTypeKinds filter = tkAny) {
        TPropertyEditorPtr found;
        GetComponentProperties(sel, filter, Designer.get(), [&](TPropertyEditorPtr e) {
            if (e->GetName() == name) found = std::move(e);
        });
        if (!found) throw rtl::EPropertyError("no editor for " + name);
        return found;
    }
    std::vector<std::string> ValuesOf(TPropertyEditor& e) {
        std::vector<std::string> v;
        e.GetValues([&](const std::string& s) { v.push_back(s); });
        return v;
    }
    std::unique_ptr<TFormDesigner> Designer;
    TTestForm* Form = nullptr;
    TGadget *G1 = nullptr, *G2 = nullptr;
    TFancyGadget* F1 = nullptr;
};

TEST_F(StandardEditors, AttributesAsThePlatformDeclares) {
    struct {
        const char* Prop;
        TPropertyAttributes Attrs;
    } cases[] = {
        {"Width", {paMultiSelect, paRevertable}},
        {"Caption", {paMultiSelect, paRevertable}},
        {"Shade", {paMultiSelect, paValueList, paSortList, paRevertable}},
        {"Checked", {paMultiSelect, paValueList, paSortList, paRevertable}},
        {"Shades", {paMultiSelect, paSubProperties, paReadOnly, paRevertable}},
        {"Buddy", {paMultiSelect, paValueList, paSortList, paRevertable}},
        {"Font", {paMultiSelect, paSubProperties, paDialog, paReadOnly}},
        {"Color", {paMultiSelect, paDialog, paValueList, paRevertable}},
        {"OnClick", {paMultiSelect, paValueList, paSortList}},
        {"Name", {}},
    };
    for (auto& c : cases)
        EXPECT_EQ(EditorFor({G1}, c.Prop)->GetAttributes(), c.Attrs) << c.Prop;
}

TEST_F(StandardEditors, IntegersAreRangeChecked) {
    auto width = EditorFor({G1, G2}, "Width");
    width->SetValue("42");
    EXPECT_EQ(G1->Width(), 42);
    EXPECT_EQ(G2->Width(), 42);
    EXPECT_TRUE(Designer->IsModified());
    try {
        width->SetValue("4x");
        FAIL();
    } catch (const rtl::EConvertError& e) {
        EXPECT_EQ(e.Message(), "'4x' is not a valid integer value");
    }
    auto small = EditorFor({G1}, "Small");
    try {
        small->SetValue("6");
        FAIL();
    } catch (const rtl::EPropertyError& e) {
        EXPECT_EQ(e.Message(), "Value must be between -5 and 5");
    }
    EXPECT_EQ(G1->Small(), 0);
    small->SetValue("-5");
    EXPECT_EQ(small->GetValue(), "-5");
}

TEST_F(StandardEditors, ValuesOfDisagreeingObjectsAreBlank) {
    G2->SetWidth(99);
    auto width = EditorFor({G1, G2}, "Width");
    EXPECT_FALSE(width->AllEqual());
    EXPECT_EQ(width->GetVisualValue(), "");
    EXPECT_EQ(width->GetValue(), "10");
    G2->SetWidth(10);
    EXPECT_EQ(width->GetVisualValue(), "10");
}

TEST_F(StandardEditors, CharactersPrintableOrNumbered) {
    auto letter = EditorFor({G1}, "Letter");
    EXPECT_EQ(letter->GetValue(), "A");
    letter->SetValue("#9");
    EXPECT_EQ(G1->Letter(), '\t');
    EXPECT_EQ(letter->GetValue(), "#9");
    letter->SetValue("z");
    EXPECT_EQ(G1->Letter(), 'z');
    EXPECT_THROW(letter->SetValue("zz"), rtl::EPropertyError);
    EXPECT_EQ(G1->Letter(), 'z');
}

TEST_F(StandardEditors, EnumerationsByName) {
    auto shade = EditorFor({G1}, "Shade");
    EXPECT_EQ(shade->GetValue(), "shMedium");
    EXPECT_EQ(ValuesOf(*shade), (std::vector<std::string>{"shLight", "shMedium", "shDark"}));
    shade->SetValue("SHDARK");
    EXPECT_EQ(G1->Shade(), shDark);
    try {
        shade->SetValue("shPurple");
        FAIL();
    } catch (const rtl::EPropertyError& e) {
        EXPECT_EQ(e.Message(), "Invalid property value");
    }
    EXPECT_EQ(G1->Shade(), shDark);
    // Double-click steps through the (sorted) values and wraps around.
    shade->Edit();
    EXPECT_EQ(G1->Shade(), shLight);
}

TEST_F(StandardEditors, Booleans) {
    auto checked = EditorFor({G1}, "Checked");
    EXPECT_EQ(checked->GetValue(), "False");
    EXPECT_EQ(ValuesOf(*checked), (std::vector<std::string>{"False", "True"}));
    checked->SetValue("true");
    EXPECT_TRUE(G1->Checked());
    checked->SetValue("0");
    EXPECT_FALSE(G1->Checked());
    EXPECT_THROW(checked->SetValue("2"), rtl::EPropertyError);
    EXPECT_THROW(checked->SetValue("yes"), rtl::EConvertError);
    EXPECT_FALSE(G1->Checked());
}

TEST_F(StandardEditors, SetsAndTheirMembers) {
    G2->SetShades({shDark});
    auto shades = EditorFor({G1}, "Shades");
    EXPECT_EQ(shades->GetValue(), "[shLight]");
    std::vector<TPropertyEditorPtr> members;
    EditorFor({G1, G2}, "Shades")->GetProperties([&](TPropertyEditorPtr e) {
        members.push_back(std::move(e));
    });
    ASSERT_EQ(members.size(), 3u);
    EXPECT_EQ(members[0]->GetName(), "shLight");
    EXPECT_EQ(members[2]->GetName(), "shDark");
    EXPECT_FALSE(members[0]->AllEqual());
    // Turning a member on keeps each object's other members.
    members[1]->SetValue("True");
    EXPECT_EQ(G1->Shades(), (TShades{shLight, shMedium}));
    EXPECT_EQ(G2->Shades(), (TShades{shMedium, shDark}));
    EXPECT_TRUE(members[1]->AllEqual());
    EXPECT_EQ(members[1]->GetValue(), "True");
    EXPECT_THROW(members[1]->SetValue("maybe"), rtl::EPropertyError);
    shades->SetValue("[shDark]");
    EXPECT_EQ(G1->Shades(), (TShades{shDark}));
    EXPECT_THROW(shades->SetValue("[shRed]"), rtl::EPropertyError);
    EXPECT_EQ(G1->Shades(), (TShades{shDark}));
}

TEST_F(StandardEditors, Floats) {
    auto ratio = EditorFor({G1}, "Ratio");
    ratio->SetValue("1.25");
    EXPECT_DOUBLE_EQ(G1->Ratio(), 1.25);
    EXPECT_EQ(ratio->GetValue(), "1.25");
    EXPECT_THROW(ratio->SetValue("one"), rtl::EConvertError);
    auto scale = EditorFor({G1}, "Scale");
    scale->SetValue("0.1");
    EXPECT_EQ(scale->GetValue(), "0.1") << "a single shows its own digits, not its binary noise";
}

TEST_F(StandardEditors, ClassPropertiesShowTheirTypeAndSubProperties) {
    auto font = EditorFor({G1}, "Font");
    EXPECT_EQ(font->GetValue(), "(TFont)");
    std::vector<std::string> names;
    font->GetProperties([&](TPropertyEditorPtr e) { names.push_back(e->GetName()); });
    EXPECT_NE(std::find(names.begin(), names.end(), "Name"), names.end());
    EXPECT_NE(std::find(names.begin(), names.end(), "Style"), names.end());
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
}

TEST_F(StandardEditors, ComponentReferences) {
    auto form2 = new TTestForm(nullptr);
    form2->SetName("Form2");
    TFormDesigner other(form2, true);
    auto* remote = new TGadget(form2);
    remote->SetName("Far1");
    new TQuiet(form2); // unnamed components and other classes are not offered

    auto buddy = EditorFor({G1}, "Buddy");
    EXPECT_EQ(buddy->GetValue(), "");
    EXPECT_EQ(ValuesOf(*buddy), (std::vector<std::string>{"Gadget1", "Gadget2", "Fancy1", "Form2.Far1"}));
    buddy->SetValue("gadget2");
    EXPECT_EQ(G1->Buddy(), G2);
    EXPECT_EQ(buddy->GetValue(), "Gadget2");
    buddy->SetValue("Form2.Far1");
    EXPECT_EQ(G1->Buddy(), remote);
    EXPECT_EQ(buddy->GetValue(), "Form2.Far1");
    try {
        buddy->SetValue("Nobody");
        FAIL();
    } catch (const rtl::EPropertyError& e) {
        EXPECT_EQ(e.Message(), "Invalid property value");
    }
    EXPECT_THROW(buddy->SetValue("Form1"), rtl::EPropertyError) << "the form is no TGadget";
    EXPECT_EQ(G1->Buddy(), remote);
    buddy->SetValue("");
    EXPECT_EQ(G1->Buddy(), nullptr);
}

TEST_F(StandardEditors, EventsCreateAndRenameHandlers) {
    auto click = EditorFor({G1}, "OnClick");
    EXPECT_EQ(click->GetValue(), "");
    click->SetValue("GadgetClicked");
    EXPECT_TRUE(Designer->MethodExists("GadgetClicked"));
    EXPECT_EQ(G1->OnClick.Name, "GadgetClicked");
    EXPECT_EQ(Designer->LastShownMethod(), "GadgetClicked");
    // Another event of the same kind can share it; one of another kind does not see it.
    auto click2 = EditorFor({G2}, "OnClick");
    EXPECT_EQ(ValuesOf(*click2), (std::vector<std::string>{"GadgetClicked"}));
    EXPECT_TRUE(ValuesOf(*EditorFor({G2}, "OnChange")).empty());
    click2->SetValue("GadgetClicked");
    EXPECT_EQ(G2->OnClick.Name, "GadgetClicked");
    // Typing a new name over a handler renames it everywhere.
    click->SetValue("AnyClick");
    EXPECT_EQ(G1->OnClick.Name, "AnyClick");
    EXPECT_EQ(G2->OnClick.Name, "AnyClick");
    EXPECT_FALSE(Designer->MethodExists("GadgetClicked"));
    EXPECT_THROW(click->SetValue("not valid"), rtl::EPropertyError);
    EXPECT_EQ(G1->OnClick.Name, "AnyClick");
    click->SetValue("");
    EXPECT_EQ(G1->OnClick.Name, "");
    EXPECT_EQ(G2->OnClick.Name, "AnyClick");
}

TEST_F(StandardEditors, EventEditCreatesTheDefaultHandlerName) {
    EditorFor({G1}, "OnChange")->Edit();
    EXPECT_EQ(G1->OnChange.Name, "Gadget1Change");
    EXPECT_EQ(Designer->LastShownMethod(), "Gadget1Change");
    EditorFor({Form}, "OnCreate")->Edit();
    EXPECT_EQ(Form->OnCreate.Name, "TestFormCreate") << "the root's handlers are named after its class";
    auto* unnamed = new TGadget(Form);
    EXPECT_THROW(EditorFor({unnamed}, "OnClick")->Edit(), rtl::EPropertyError);
}

TEST_F(StandardEditors, Colours) {
    auto color = EditorFor({G1}, "Color");
    EXPECT_EQ(color->GetValue(), "clBtnFace");
    color->SetValue("clRed");
    EXPECT_EQ(G1->Color(), vcl::clRed);
    color->SetValue("$00FF8000");
    EXPECT_EQ(color->GetValue(), "$00FF8000");
    EXPECT_THROW(color->SetValue("clNoSuchColour"), rtl::EConvertError);
    EXPECT_EQ(G1->Color(), 0x00FF8000);
    auto values = ValuesOf(*color);
    ASSERT_EQ(values.size(), 47u);
    EXPECT_EQ(values.front(), "clBlack");
    EXPECT_EQ(values.back(), "clWindowText");
}

TEST_F(StandardEditors, ColourListDrawsASwatch) {
    auto color = EditorFor({G1}, "Color");
    vcl::TBitmap bmp;
    bmp.SetSize(80, 16);
    vcl::TCanvas* canvas = bmp.Canvas();
    canvas->Brush()->SetColor(vcl::clWhite);
    canvas->FillRect(vcl::Rect(0, 0, 80, 16));
    int width = 40;
    color->ListMeasureWidth("clRed", canvas, width);
    EXPECT_GT(width, 40);
    color->ListDrawValue("clRed", canvas, vcl::Rect(0, 0, 80, 16), false);
    EXPECT_EQ(bmp.PixelRGB(8, 8), vcl::ColorToRGB(vcl::clRed)) << "inside the swatch";
    EXPECT_EQ(canvas->Brush()->Color(), vcl::clWhite) << "the canvas is left as it was";
}

TEST_F(StandardEditors, RevertGoesBackToTheFreshValue) {
    G1->SetWidth(77);
    G1->SetCaption("x");
    G1->SetColor(vcl::clRed);
    EditorFor({G1}, "Width")->Revert();
    EditorFor({G1}, "Caption")->Revert();
    EditorFor({G1}, "Color")->Revert();
    EXPECT_EQ(G1->Width(), 10);
    EXPECT_EQ(G1->Caption(), "");
    EXPECT_EQ(G1->Color(), vcl::clBtnFace);
}

TEST_F(StandardEditors, NameIsValidatedByTheComponentAndTheDesigner) {
    auto name = EditorFor({G1}, "Name");
    name->SetValue("First");
    EXPECT_EQ(G1->Name(), "First");
    EXPECT_THROW(name->SetValue("Gadget2"), rtl::EComponentError);
    EXPECT_THROW(name->SetValue("form1"), rtl::EComponentError) << "the form's own name is taken";
    EXPECT_THROW(name->SetValue("1st"), rtl::EComponentError);
    EXPECT_EQ(G1->Name(), "First");
}

} // namespace
