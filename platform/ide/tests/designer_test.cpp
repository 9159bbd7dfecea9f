// The form designer: unique names, creation, selection, notifications to design windows, the modified
// flag, names across frames and forms, the clipboard round trip and form files.
#include <gtest/gtest.h>

#include <filesystem>

#include "ide/designer.h"
#include "testcomps.h"

using namespace ide;
using namespace idetest;

namespace {

// Records what a design window would hear.
class TRecorder : public IDesignNotification {
public:
    TRecorder() { RegisterDesignNotification(this); }
    ~TRecorder() override { UnregisterDesignNotification(this); }
    void ItemDeleted(IDesigner* d, rtl::TPersistent* item) override {
        Log.push_back("deleted " + NameOf(item));
        Deleted.push_back(item);
    }
    void ItemInserted(IDesigner* d, rtl::TPersistent* item) override {
        Log.push_back("inserted " + NameOf(item));
    }
    void ItemsModified(IDesigner* d) override { Log.push_back("modified"); }
    void FormModified(IDesigner* d) override { ++FormModifications; }
    int FormModifications = 0;
    void SelectionChanged(IDesigner* d, const TDesignerSelectionList& s) override {
        Log.push_back("selection " + std::to_string(s.Count()));
    }
    void DesignerOpened(IDesigner* d, bool) override { Log.push_back("opened"); }
    void DesignerClosed(IDesigner* d, bool) override {
        Log.push_back("closed");
        if (CloseSelf) UnregisterDesignNotification(this);
    }
    bool Has(const std::string& s) const { return std::find(Log.begin(), Log.end(), s) != Log.end(); }
    std::vector<std::string> Log;
    std::vector<rtl::TPersistent*> Deleted;
    bool CloseSelf = false;

private:
    // A deleted item is half destroyed: only its identity may be used, so names are looked up beforehand.
    std::string NameOf(rtl::TPersistent* p) {
        for (auto& [ptr, name] : Names)
            if (ptr == p) return name;
        return "?";
    }

public:
    std::vector<std::pair<rtl::TPersistent*, std::string>> Names;
};

class Designer : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterTestClasses();
        Form = new TBoxForm(nullptr);
        Form->SetName("Form1");
        D = std::make_unique<TFormDesigner>(Form, true);
    }
    std::unique_ptr<TFormDesigner> D;
    TBoxForm* Form = nullptr;
};

TEST_F(Designer, UniqueNamesDropTheTAndTakeTheSmallestFreeNumber) {
    EXPECT_EQ(D->UniqueName("TGadget"), "Gadget1");
    auto* g = new TGadget(Form);
    g->SetName("gadget1");
    auto* g3 = new TGadget(Form);
    g3->SetName("Gadget3");
    EXPECT_EQ(D->UniqueName("TGadget"), "Gadget2") << "ignoring case, smallest free";
    EXPECT_EQ(D->UniqueName("Gadget"), "Gadget2") << "without a leading T";
    Form->SetName("Box1");
    EXPECT_EQ(D->UniqueName("TBox"), "Box2") << "the form's own name counts";
}

TEST_F(Designer, CreateComponentLikeAPaletteDrop) {
    TRecorder rec;
    auto* panel = static_cast<TBox*>(D->CreateComponent(TBox::StaticClass(), nullptr, 8, 16, 100, 0));
    auto* inner = static_cast<TBox*>(D->CreateComponent(TBox::StaticClass(), panel, 1, 2, 0, 0));
    EXPECT_EQ(panel->Name(), "Box1");
    EXPECT_EQ(inner->Name(), "Box2");
    EXPECT_EQ(panel->Owner(), Form);
    EXPECT_EQ(inner->Owner(), Form);
    EXPECT_EQ(panel->Parent(), Form);
    EXPECT_EQ(inner->Parent(), panel);
    EXPECT_EQ(panel->Left(), 8);
    EXPECT_EQ(panel->Top(), 16);
    EXPECT_EQ(panel->Width(), 100);
    EXPECT_EQ(panel->Height(), 20) << "0 keeps the default size";
    EXPECT_TRUE(inner->IsDesigning());
    EXPECT_TRUE(D->IsModified());
    EXPECT_EQ(std::count(rec.Log.begin(), rec.Log.end(), "inserted ?"), 2);
    auto* g = D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0);
    EXPECT_EQ(g->Name(), "Gadget1");
    EXPECT_THROW(D->CreateComponent(rtl::TPersistent::StaticClass(), nullptr, 0, 0, 0, 0),
                 rtl::EComponentError);
}

TEST_F(Designer, NoComponentsAddedToFrameInstances) {
    auto* frame = new TBox(Form);
    frame->SetName("Frame1");
    frame->SetInline(true);
    int before = Form->ComponentCount();
    try {
        D->CreateComponent(TBox::StaticClass(), frame, 0, 0, 0, 0);
        FAIL();
    } catch (const rtl::EComponentError& e) {
        EXPECT_EQ(e.Message(), SCantAddToFrame);
    }
    EXPECT_EQ(Form->ComponentCount(), before);
}

TEST_F(Designer, ComponentsAreAnnouncedWhenFullyBuilt) {
    TRecorder rec;
    auto* g = new TGadget(Form); // the root hears of it inside its base constructor
    EXPECT_FALSE(rec.Has("inserted ?"));
    rec.Names.push_back({g, "G"});
    D->Modified();
    EXPECT_EQ(rec.Log, (std::vector<std::string>{"inserted G", "modified"}));
}

TEST_F(Designer, SelectionAndDeletion) {
    auto* a = D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0);
    auto* b = D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0);
    TRecorder rec;
    rec.Names = {{a, "A"}, {b, "B"}};
    D->SetSelections({a, b});
    TDesignerSelectionList sel;
    D->GetSelections(sel);
    EXPECT_EQ(sel.Count(), 2);
    D->SetModified(false);
    D->DeleteComponent(a);
    D->GetSelections(sel);
    EXPECT_TRUE(sel.Equals(TDesignerSelectionList{b}));
    EXPECT_EQ(rec.Log, (std::vector<std::string>{"selection 2", "selection 1", "deleted A", "modified"}));
    EXPECT_EQ(rec.Deleted, std::vector<rtl::TPersistent*>{a});
    EXPECT_TRUE(D->IsModified());
    D->SelectComponent(nullptr);
    D->GetSelections(sel);
    EXPECT_TRUE(sel.Empty());
    EXPECT_THROW(D->DeleteComponent(Form), rtl::EComponentError);
    b->SetAncestor(true);
    try {
        D->DeleteComponent(b);
        FAIL();
    } catch (const rtl::EComponentError& e) {
        EXPECT_EQ(e.Message(), SCantDeleteAncestor);
    }
    EXPECT_EQ(Form->FindComponent("Gadget2"), b);
}

TEST_F(Designer, DeletingAParentReportsItsChildren) {
    auto* panel = D->CreateComponent(TBox::StaticClass(), nullptr, 0, 0, 0, 0);
    auto* child = D->CreateComponent(TBox::StaticClass(), panel, 0, 0, 0, 0);
    TRecorder rec;
    D->DeleteComponent(panel);
    EXPECT_EQ(rec.Deleted.size(), 2u);
    EXPECT_NE(std::find(rec.Deleted.begin(), rec.Deleted.end(), child), rec.Deleted.end());
    EXPECT_EQ(Form->ComponentCount(), 0);
}

TEST_F(Designer, ModifiedIsObservable) {
    TRecorder rec;
    int calls = 0;
    D->OnModified = [&](TFormDesigner*) { ++calls; };
    EXPECT_FALSE(D->IsModified());
    D->Modified();
    EXPECT_TRUE(D->IsModified());
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(rec.FormModifications, 1);
    D->SetModified(false);
    EXPECT_FALSE(D->IsModified());
}

TEST_F(Designer, NamesAcrossFramesAndForms) {
    auto* g = new TGadget(Form);
    g->SetName("Gadget1");
    auto* frame = new TTestForm(Form);
    frame->SetName("Frame1");
    frame->SetInline(true);
    auto* inner = new TGadget(frame);
    inner->SetName("ListBox1");
    auto* form2 = new TTestForm(nullptr);
    form2->SetName("Form2");
    TFormDesigner d2(form2, true);
    auto* far = new TGadget(form2);
    far->SetName("Far1");

    EXPECT_EQ(D->GetComponent("gadget1"), g);
    EXPECT_EQ(D->GetComponent("Form1"), Form);
    EXPECT_EQ(D->GetComponent("Frame1.ListBox1"), inner);
    EXPECT_EQ(D->GetComponent("Form2.Far1"), far);
    EXPECT_EQ(D->GetComponent("Form2.Nope"), nullptr);
    EXPECT_EQ(D->GetComponent(""), nullptr);
    EXPECT_EQ(D->GetComponentName(inner), "Frame1.ListBox1");
    EXPECT_EQ(D->GetComponentName(far), "Form2.Far1");
    EXPECT_EQ(D->GetComponentName(g), "Gadget1");
    std::vector<std::string> names;
    D->GetComponentNames(TGadget::StaticClass(), [&](const std::string& s) { names.push_back(s); });
    EXPECT_EQ(names, (std::vector<std::string>{"Gadget1", "Frame1.ListBox1", "Form2.Far1"}));
}

TEST_F(Designer, ClosingTellsTheDesignWindows) {
    TRecorder rec;
    rec.CloseSelf = true;
    auto* form2 = new TTestForm(nullptr);
    auto d2 = std::make_unique<TFormDesigner>(form2, true);
    EXPECT_TRUE(rec.Has("opened"));
    d2.reset();
    EXPECT_TRUE(rec.Has("closed"));
}

TEST_F(Designer, FreeingTheRootClosesTheDesigner) {
    auto* root = new TTestForm(nullptr);
    TFormDesigner d2(root);
    TRecorder rec;
    root->Free();
    EXPECT_TRUE(rec.Has("closed"));
    EXPECT_EQ(d2.GetRoot(), nullptr);
    EXPECT_EQ(TFormDesigner::DesignerOf(root), nullptr);
}

TEST_F(Designer, ClipboardRoundTrip) {
    auto* panel = static_cast<TBox*>(D->CreateComponent(TBox::StaticClass(), nullptr, 5, 6, 0, 0));
    auto* child = static_cast<TBox*>(D->CreateComponent(TBox::StaticClass(), panel, 7, 8, 0, 0));
    child->OnClick.Name = "Box2Click";
    D->RebuildMethodTable();
    auto* g = static_cast<TGadget*>(D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0));
    g->SetCaption("not copied");
    D->CopyComponents(Form, {panel, child}); // the child goes with its parent
    ASSERT_TRUE(D->ClipboardComponents());
    std::string text = DesignClipboardText();
    EXPECT_EQ(text.find("object Box1"), text.rfind("object Box1"));

    TDesignerSelectionList pasted;
    D->PasteComponents(Form, Form, pasted);
    ASSERT_EQ(pasted.Count(), 1);
    auto* copy = static_cast<TBox*>(pasted[0]);
    EXPECT_EQ(copy->Name(), "Box3") << "a clashing name gets a unique one";
    EXPECT_EQ(copy->Left(), 5);
    ASSERT_EQ(copy->Children().size(), 1u);
    EXPECT_EQ(copy->Children()[0]->Name(), "Box4");
    EXPECT_EQ(copy->Children()[0]->OnClick.Name, "Box2Click");

    // Into another form: handlers that form lacks are dropped, names are kept when free.
    auto* form2 = new TBoxForm(nullptr);
    form2->SetName("Form2");
    TFormDesigner d2(form2, true);
    TDesignerSelectionList pasted2;
    d2.PasteComponents(form2, form2, pasted2);
    ASSERT_EQ(pasted2.Count(), 1);
    EXPECT_EQ(pasted2[0]->GetNamePath(), "Box1");
    auto* child2 = static_cast<TBox*>(pasted2[0])->Children()[0];
    EXPECT_EQ(child2->OnClick.Name, "");
    EXPECT_TRUE(d2.IsModified());
}

TEST_F(Designer, PasteWithoutComponentsRaises) {
    SetDesignClipboardText("just text");
    EXPECT_FALSE(D->ClipboardComponents());
    TDesignerSelectionList pasted;
    EXPECT_THROW(D->PasteComponents(Form, Form, pasted), rtl::EComponentError);
    EXPECT_EQ(Form->ComponentCount(), 0);
}

TEST_F(Designer, FormFilesRoundTrip) {
    auto* g = static_cast<TGadget*>(D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0));
    g->SetCaption("Hello");
    g->OnChange.Name = "Gadget1Change";
    auto* b = static_cast<TBox*>(D->CreateComponent(TBox::StaticClass(), nullptr, 3, 4, 0, 0));
    auto path =
        std::filesystem::temp_directory_path() / ("ide_designer_" + std::to_string(::getpid()) + ".dfm");
    D->SaveToFile(path.string());
    g->SetCaption("Changed");
    b->Free();
    D->LoadFromFile(path.string());
    std::filesystem::remove(path);
    auto* g2 = static_cast<TGadget*>(Form->FindComponent("Gadget1"));
    ASSERT_NE(g2, nullptr);
    EXPECT_EQ(g2->Caption(), "Hello");
    EXPECT_TRUE(g2->IsDesigning());
    auto* b2 = static_cast<TBox*>(Form->FindComponent("Box1"));
    ASSERT_NE(b2, nullptr);
    EXPECT_EQ(b2->Top(), 4);
    EXPECT_TRUE(D->MethodExists("Gadget1Change"));
    EXPECT_FALSE(D->IsModified());
}

TEST_F(Designer, BadFormTextLeavesTheFormAsItWas) {
    auto* g = static_cast<TGadget*>(D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0));
    g->SetCaption("Kept");
    EXPECT_THROW(D->LoadFromText("object Form1: TBoxForm\n  object X: TNoSuchClass\n  end\nend\n"),
                 rtl::Exception);
    auto* again = static_cast<TGadget*>(Form->FindComponent("Gadget1"));
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(again->Caption(), "Kept");
    EXPECT_THROW(D->LoadFromText("hello"), rtl::EParserError);
}

TEST_F(Designer, MethodTable) {
    auto m = D->CreateMethod("Gadget1Click", rtl::TNotifyEvent::TypeInfo());
    EXPECT_EQ(m.Name, "Gadget1Click");
    EXPECT_EQ(D->CreateMethod("GADGET1CLICK", rtl::TNotifyEvent::TypeInfo()).Name, "Gadget1Click");
    EXPECT_THROW(D->CreateMethod("gadget1click", TChangeEvent::TypeInfo()), rtl::EPropertyError)
        << "same name, other parameters";
    EXPECT_THROW(D->CreateMethod("1bad", rtl::TNotifyEvent::TypeInfo()), rtl::EPropertyError);
    D->CreateMethod("Other", rtl::TNotifyEvent::TypeInfo());
    EXPECT_THROW(D->RenameMethod("Other", "Gadget1Click"), rtl::EPropertyError);
    D->RenameMethod("Other", "Renamed");
    EXPECT_TRUE(D->MethodExists("renamed"));
    EXPECT_FALSE(D->MethodExists("Other"));
}

} // namespace
