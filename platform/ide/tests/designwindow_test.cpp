// Design windows: notifications, activation, closing with the designer; the collection editor window
// driven as a person would.
#include <gtest/gtest.h>

#include "ide/designer.h"
#include "ide/editordialogs.h"
#include "ide/propedit.h"
#include "testcomps.h"
#include "vcl/scripted_ui.h"

using namespace ide;
using namespace idetest;

namespace {

class TProbeWindow : public TDesignWindow {
    JEX_CLASS(TProbeWindow, TDesignWindow)
    using TDesignWindow::TDesignWindow;
    void ItemDeleted(IDesigner* d, rtl::TPersistent* item) override { Deleted.push_back(item); }
    void ItemsModified(IDesigner* d) override { ++Modifications; }
    void SelectionChanged(IDesigner* d, const TDesignerSelectionList& s) override { LastSelection = s; }
    void Activated() override {
        ++Activations;
        TDesignWindow::Activated();
    }
    std::vector<rtl::TPersistent*> Deleted;
    int Modifications = 0, Activations = 0;
    TDesignerSelectionList LastSelection;
};
JEX_IMPLEMENT_CLASS(TProbeWindow, TDesignWindow, "IdeTest") {}

class DesignWindows : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterTestClasses();
        Form = new TTestForm(nullptr);
        Form->SetName("Form1");
        D = std::make_unique<TFormDesigner>(Form, true);
    }
    void TearDown() override {
        D.reset();
        vcl::Application()->ProcessMessages();
    }
    vcl::TScriptedUI UI;
    std::unique_ptr<TFormDesigner> D;
    TTestForm* Form = nullptr;
};

TEST_F(DesignWindows, FollowDesignerNotificationsAndActivation) {
    auto* other = new TTestForm(nullptr);
    TFormDesigner d2(other, true);
    auto* w = vcl::NewForm<TProbeWindow>(nullptr);
    w->SetDesigner(D.get());
    auto* g = D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0);
    EXPECT_GE(w->Modifications, 1);
    D->SelectComponent(g);
    EXPECT_TRUE(w->LastSelection.Equals(TDesignerSelectionList{g}));
    D->DeleteComponent(g);
    EXPECT_EQ(w->Deleted, std::vector<rtl::TPersistent*>{g});
    EXPECT_EQ(w->UniqueName(Form), "TestForm1");
    EXPECT_EQ(ActiveDesigner(), &d2) << "the last opened designer";
    w->Show();
    EXPECT_TRUE(w->Active());
    EXPECT_EQ(w->Activations, 1);
    EXPECT_EQ(ActiveDesigner(), D.get()) << "activating a design window activates its designer";
    // Closing the designer closes its windows.
    D.reset();
    EXPECT_EQ(w->Designer(), nullptr);
    EXPECT_FALSE(w->Visible());
    w->Free();
}

TEST_F(DesignWindows, ClipboardThroughTheWindow) {
    auto* w = vcl::NewForm<TProbeWindow>(nullptr);
    w->SetDesigner(D.get());
    auto* g = D->CreateComponent(TGadget::StaticClass(), nullptr, 0, 0, 0, 0);
    w->CopyComponents(Form, {g});
    EXPECT_TRUE(w->ClipboardComponents());
    TDesignerSelectionList pasted;
    w->PasteComponents(Form, Form, pasted);
    ASSERT_EQ(pasted.Count(), 1);
    EXPECT_EQ(static_cast<rtl::TComponent*>(pasted[0])->Name(), "Gadget2");
    w->Free();
}

TEST_F(DesignWindows, CollectionEditorWindow) {
    auto* h = new THolder(Form);
    h->SetName("Holder1");
    static_cast<TTestItem*>(h->Items()->Add())->SetCaption("first");
    TPropertyEditorPtr items;
    GetComponentProperties({h}, tkProperties, D.get(), [&](TPropertyEditorPtr e) {
        if (e->GetName() == "Items") items = std::move(e);
    });
    ASSERT_TRUE(items);
    EXPECT_EQ(items->ClassName(), "TCollectionProperty");
    EXPECT_EQ(items->GetValue(), "(TOwnedCollection)");
    items->Edit();
    TCollectionEditor* editor = TCollectionEditor::FindEditor(D.get(), h->Items());
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->Caption(), "Editing Holder1.Items");
    items->Edit();
    EXPECT_EQ(TCollectionEditor::FindEditor(D.get(), h->Items()), editor) << "one window per collection";

    vcl::TFormDriver f = UI.OpenForm("TCollectionEditor");
    EXPECT_EQ(editor->ItemList->Items()->Count(), 1);
    EXPECT_EQ(editor->ItemList->Items()->Strings(0), "0 - TTestItem");
    D->SetModified(false);
    f.Click("AddButton");
    EXPECT_EQ(h->Items()->Count(), 2);
    EXPECT_TRUE(D->IsModified());
    TDesignerSelectionList sel;
    D->GetSelections(sel);
    EXPECT_TRUE(sel.Equals(TDesignerSelectionList{h->Items()->Items(1)})) << "the new item is selected";
    f.SelectMulti("ItemList", {0});
    D->GetSelections(sel);
    EXPECT_TRUE(sel.Equals(TDesignerSelectionList{h->Items()->Items(0)}));
    auto* firstItem = h->Items()->Items(0);
    f.Click("MoveDownButton");
    EXPECT_EQ(h->Items()->Items(1), firstItem);
    f.Click("DeleteButton");
    EXPECT_EQ(h->Items()->Count(), 1);
    EXPECT_EQ(static_cast<TTestItem*>(h->Items()->Items(0))->Caption(), "");
    // Deleting the component closes its collection editor.
    D->DeleteComponent(h);
    vcl::Application()->ProcessMessages();
    EXPECT_EQ(TCollectionEditor::FindEditor(D.get(), nullptr), nullptr);
}

} // namespace
