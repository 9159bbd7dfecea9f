// Component editors: the registry's most-derived rule, verbs, inline detection, and TDefaultEditor's
// double-click that goes to the default event's handler.
#include <gtest/gtest.h>

#include "ide/compedit.h"
#include "ide/designer.h"
#include "testcomps.h"

using namespace ide;
using namespace idetest;

namespace {

class TVerbEditor : public TComponentEditor {
    JEX_CLASS(TVerbEditor, TComponentEditor)
    int GetVerbCount() override { return 2; }
    std::string GetVerb(int index) override { return index == 0 ? "&Widen" : "&Reset"; }
    void ExecuteVerb(int index) override {
        auto* g = static_cast<TGadget*>(Component());
        if (index == 0)
            g->SetWidth(g->Width() + 10);
        else
            g->SetWidth(0);
        Designer()->Modified();
    }
};
class TFancyEditor : public TVerbEditor {
    JEX_CLASS(TFancyEditor, TVerbEditor)
};
class TLateEditor : public TVerbEditor {
    JEX_CLASS(TLateEditor, TVerbEditor)
};
JEX_IMPLEMENT_CLASS(TVerbEditor, TComponentEditor, "IdeTest") {}
JEX_IMPLEMENT_CLASS(TFancyEditor, TVerbEditor, "IdeTest") {}
JEX_IMPLEMENT_CLASS(TLateEditor, TVerbEditor, "IdeTest") {}

class ComponentEditors : public ::testing::Test {
protected:
    void SetUp() override {
        Form = new TTestForm(nullptr);
        Form->SetName("Form1");
        Designer = std::make_unique<TFormDesigner>(Form, true);
        Gadget = new TGadget(Form);
        Gadget->SetName("Gadget1");
    }
    std::unique_ptr<TFormDesigner> Designer;
    TTestForm* Form = nullptr;
    TGadget* Gadget = nullptr;
};

TEST_F(ComponentEditors, MostDerivedRegisteredClassWins) {
    TFakeModule module;
    EXPECT_EQ(GetComponentEditorClass(TFancyGadget::StaticClass()), TDefaultEditor::StaticClass());
    RegisterComponentEditor(TFancyGadget::StaticClass(), TFancyEditor::StaticClass());
    RegisterComponentEditor(TGadget::StaticClass(), TVerbEditor::StaticClass());
    EXPECT_EQ(GetComponentEditorClass(TFancyGadget::StaticClass()), TFancyEditor::StaticClass());
    EXPECT_EQ(GetComponentEditorClass(TGadget::StaticClass()), TVerbEditor::StaticClass());
    EXPECT_EQ(GetComponentEditorClass(TWidget::StaticClass()), TDefaultEditor::StaticClass());
    RegisterComponentEditor(TGadget::StaticClass(), TLateEditor::StaticClass());
    EXPECT_EQ(GetComponentEditorClass(TGadget::StaticClass()), TLateEditor::StaticClass())
        << "later wins a tie";
    EXPECT_EQ(GetComponentEditorClass(TFancyGadget::StaticClass()), TFancyEditor::StaticClass());
    EXPECT_THROW(RegisterComponentEditor(TGadget::StaticClass(), TGadget::StaticClass()),
                 rtl::EComponentError);
}

TEST_F(ComponentEditors, WithdrawnWithTheModule) {
    int before = ComponentEditorRegistrationCount();
    {
        TFakeModule module;
        RegisterComponentEditor(TGadget::StaticClass(), TVerbEditor::StaticClass());
        EXPECT_EQ(ComponentEditorRegistrationCount(), before + 1);
    }
    EXPECT_EQ(ComponentEditorRegistrationCount(), before);
    EXPECT_EQ(GetComponentEditorClass(TGadget::StaticClass()), TDefaultEditor::StaticClass());
}

TEST_F(ComponentEditors, VerbsRunAgainstTheComponent) {
    TFakeModule module;
    RegisterComponentEditor(TGadget::StaticClass(), TVerbEditor::StaticClass());
    auto editor = GetComponentEditor(Gadget, Designer.get());
    EXPECT_EQ(editor->Component(), Gadget);
    EXPECT_EQ(editor->Designer(), Designer.get());
    ASSERT_EQ(editor->GetVerbCount(), 2);
    EXPECT_EQ(editor->GetVerb(1), "&Reset");
    Designer->SetModified(false);
    editor->Edit(); // verb 0
    EXPECT_EQ(Gadget->Width(), 20);
    EXPECT_TRUE(Designer->IsModified());
    editor->ExecuteVerb(1);
    EXPECT_EQ(Gadget->Width(), 0);
}

TEST_F(ComponentEditors, InlinedComponentsAreRecognised) {
    auto* frame = new TTestForm(Form);
    frame->SetName("Frame1");
    frame->SetInline(true);
    auto* inner = new TGadget(frame);
    EXPECT_TRUE(GetComponentEditor(inner, Designer.get())->IsInInlined());
    EXPECT_FALSE(GetComponentEditor(Gadget, Designer.get())->IsInInlined());
}

TEST_F(ComponentEditors, DefaultEditorGoesToTheDefaultEvent) {
    // OnChange wins over OnClick; the new handler is named after the component and the event.
    GetComponentEditor(Gadget, Designer.get())->Edit();
    EXPECT_EQ(Gadget->OnChange.Name, "Gadget1Change");
    EXPECT_EQ(Gadget->OnClick.Name, "");
    EXPECT_TRUE(Designer->MethodExists("Gadget1Change"));
    EXPECT_EQ(Designer->LastShownMethod(), "Gadget1Change");
    // OnCreate wins over both.
    auto* fancy = new TFancyGadget(Form);
    fancy->SetName("Fancy1");
    GetComponentEditor(fancy, Designer.get())->Edit();
    EXPECT_EQ(fancy->OnCreate.Name, "Fancy1Create");
    EXPECT_EQ(fancy->OnChange.Name, "");
    // Only OnClick: that one.
    auto* box = new TBox(Form);
    box->SetName("Box1");
    GetComponentEditor(box, Designer.get())->Edit();
    EXPECT_EQ(box->OnClick.Name, "Box1Click");
}

TEST_F(ComponentEditors, DefaultEditorKeepsAnExistingHandler) {
    Gadget->OnChange.Name = "SharedChange";
    Designer->RebuildMethodTable();
    GetComponentEditor(Gadget, Designer.get())->Edit();
    EXPECT_EQ(Gadget->OnChange.Name, "SharedChange");
    EXPECT_EQ(Designer->LastShownMethod(), "SharedChange");
}

TEST_F(ComponentEditors, DefaultEditorWithoutEventsDoesNothing) {
    auto* quiet = new TQuiet(Form);
    quiet->SetName("Quiet1");
    Designer->SetModified(false);
    GetComponentEditor(quiet, Designer.get())->Edit();
    EXPECT_FALSE(Designer->IsModified());
    EXPECT_TRUE(Designer->Methods().empty());
}

TEST_F(ComponentEditors, TheFormFileRecordsTheNewHandler) {
    RegisterTestClasses();
    GetComponentEditor(Gadget, Designer.get())->Edit();
    std::string text = Designer->SaveToText();
    EXPECT_NE(text.find("OnChange = Gadget1Change"), std::string::npos) << text;
}

} // namespace
