// The navigator component editors driven as a person uses the designer's context menu: their verbs, the
// wizard and the button editor run through them, and "Delete All Buttons" answered either way.
#include <functional>

#include "dcljexc/jexpbtns.h"
#include "naveditors_testutil.h"

using namespace dcljexc;
using namespace jex;
using namespace vcl;

namespace {

class NavEditors : public naveditors::NavigatorEditing {
public:
    template <class E> std::unique_ptr<E> EditorFor(rtl::TComponent* C) {
        auto e = std::make_unique<E>();
        e->Setup(C, Designer.get());
        e->Initialize();
        return e;
    }

protected:
    // A panel holding two buttons and a state label, and the form not modified.
    TjexNavPanel* FilledPanel() {
        auto* panel = Drop<TjexNavPanel>(nullptr, 8, 8, 200, 40);
        Drop<TjexnpFirst>(panel, 1, 1);
        Drop<TjexnpNext>(panel, 24, 1);
        Drop<TjexnpState>(panel, 48, 1);
        Designer->SetModified(false);
        return panel;
    }
    // The wizard's answer: picks First and Next from the outline and goes through every page.
    static void AddFirstAndNext(TFormDriver& f) {
        f.Select("outButtons", "Navigate\\First");
        f.Click("btnAdd");
        f.Select("outButtons", "Navigate\\Next");
        f.Click("btnAdd");
        for (int page = 0; page < 4 && !f.Closed(); ++page)
            f.Click("btnNext");
    }
};

struct TVerbCase {
    const char* Name;
    std::function<std::unique_ptr<ide::TComponentEditor>(NavEditors&, rtl::TComponent*)> Make;
    rtl::TClass Component;
    std::vector<std::string> Verbs;
};

TEST_F(NavEditors, EachEditorOffersItsVerbs) {
    const std::vector<TVerbCase> cases = {
        {"panel",
         [](NavEditors& t, rtl::TComponent* c) { return t.EditorFor<TjexNavPanelEditor>(c); },
         TjexNavPanel::StaticClass(),
         {"Add Navigator Buttons...", "Delete All Buttons"}},
        {"toolbar",
         [](NavEditors& t, rtl::TComponent* c) { return t.EditorFor<TjexNavToolbarEditor>(c); },
         TjexNavToolbar::StaticClass(),
         {"Add Navigator Buttons...", "Delete All Buttons"}},
        {"button",
         [](NavEditors& t, rtl::TComponent* c) { return t.EditorFor<TjexnpButtonEditor>(c); },
         TjexnpFirst::StaticClass(),
         {"Edit Button Style..."}},
    };
    for (const auto& tc : cases) {
        SCOPED_TRACE(tc.Name);
        auto* c = Designer->CreateComponent(tc.Component, Form, 0, 0, 0, 0);
        auto editor = tc.Make(*this, c);
        ASSERT_EQ(editor->GetVerbCount(), static_cast<int>(tc.Verbs.size()));
        for (int i = 0; i < editor->GetVerbCount(); ++i)
            EXPECT_EQ(editor->GetVerb(i), tc.Verbs[i]);
    }
    // The button editor has one verb whatever index it is asked for.
    auto* btn = Drop<TjexnpLast>();
    EXPECT_EQ(EditorFor<TjexnpButtonEditor>(btn)->GetVerb(3), "Edit Button Style...");
}

TEST_F(NavEditors, DeleteAllButtonsAnsweredNoChangesNothing) {
    TjexNavPanel* panel = FilledPanel();
    UI.AnswerMessage(mrNo);
    EditorFor<TjexNavPanelEditor>(panel)->ExecuteVerb(1);

    ASSERT_EQ(UI.Messages().size(), 1u);
    const TMessageRequest& m = UI.Messages()[0].Request;
    EXPECT_EQ(m.Text, "All controls on the panel will be permanently deleted.\r\nAre you sure you want to "
                      "continue?");
    EXPECT_EQ(m.Type, mtWarning);
    EXPECT_EQ(m.Buttons, (TMsgDlgButtons{mbYes, mbNo}));
    EXPECT_EQ(m.HelpCtx, 0);
    EXPECT_EQ(ChildNames(panel), (std::vector<std::string>{"jexnpFirst1", "jexnpNext1", "jexnpState1"}));
    EXPECT_FALSE(Designer->IsModified());
}

TEST_F(NavEditors, DeleteAllButtonsAnsweredYesFreesEveryControlOfThePanel) {
    TjexNavPanel* panel = FilledPanel();
    auto* outside = Drop<TjexnpPrev>(nullptr, 300, 8);
    UI.AnswerMessage(mrYes);
    EditorFor<TjexNavPanelEditor>(panel)->ExecuteVerb(1);

    EXPECT_EQ(panel->ControlCount(), 0);
    EXPECT_EQ(Designer->GetComponent("jexnpFirst1"), nullptr);
    EXPECT_EQ(Designer->GetComponent("jexnpState1"), nullptr);
    EXPECT_EQ(Designer->GetComponent("jexnpPrev1"), outside); // only the panel's controls go
    EXPECT_TRUE(Designer->IsModified());
    // An empty panel is asked about too, and stays as it is.
    Designer->SetModified(false);
    UI.AnswerMessage(mrYes);
    EditorFor<TjexNavPanelEditor>(panel)->ExecuteVerb(1);
    EXPECT_EQ(UI.Messages().size(), 2u);
    EXPECT_EQ(panel->ControlCount(), 0);
}

TEST_F(NavEditors, AddNavigatorButtonsMarksTheFormModifiedOnlyWhenButtonsWereMade) {
    for (rtl::TClass cls : {TjexNavPanel::StaticClass(), TjexNavToolbar::StaticClass()}) {
        SCOPED_TRACE(cls->ClassName());
        auto* panel = static_cast<TWinControl*>(Designer->CreateComponent(cls, Form, 8, 8, 200, 40));
        auto editor = cls == TjexNavPanel::StaticClass()
                          ? std::unique_ptr<ide::TComponentEditor>(EditorFor<TjexNavPanelEditor>(panel))
                          : std::unique_ptr<ide::TComponentEditor>(EditorFor<TjexNavToolbarEditor>(panel));
        Designer->SetModified(false);

        // Cancelled after choosing buttons: nothing made, nothing marked.
        UI.OnForm("TjexdfNavPanelEdit", [](TFormDriver& f) {
            f.Select("outButtons", "Navigate\\First");
            f.Click("btnAdd");
            f.Click("btnCancel");
        });
        editor->ExecuteVerb(0);
        EXPECT_EQ(panel->ControlCount(), 0);
        EXPECT_FALSE(Designer->IsModified());

        // Double-click runs the first verb: the wizard again, now finished.
        UI.OnForm("TjexdfNavPanelEdit", AddFirstAndNext);
        editor->Edit();
        EXPECT_TRUE(Designer->IsModified());
        ASSERT_EQ(panel->ControlCount(), 2);
        EXPECT_EQ(panel->Controls(0)->ClassType(), TjexnpFirst::StaticClass());
        EXPECT_EQ(panel->Controls(1)->ClassType(), TjexnpNext::StaticClass());
        EXPECT_EQ(panel->Controls(0)->Owner(), Form);
        EXPECT_EQ(UI.PendingAnswers(), 0);
        Designer->DeleteComponent(panel);
    }
}

TEST_F(NavEditors, EditButtonStyleMarksTheFormModifiedOnlyWhenConfirmed) {
    auto* panel = Drop<TjexNavPanel>(nullptr, 8, 8, 200, 40);
    auto* btn = Drop<TjexnpNext>(panel, 1, 1, 23, 22);
    btn->SetHint("Next|Go on");
    Designer->SetModified(false);
    auto editor = EditorFor<TjexnpButtonEditor>(btn);

    UI.OnForm("TjexdfNavBtnEdit", [](TFormDriver& f) { f.Click("btnCancel"); });
    editor->ExecuteVerb(0);
    EXPECT_FALSE(Designer->IsModified());
    EXPECT_EQ(UI.Forms().back().Caption, "Set Button Properties");

    // Next through the glyph and size pages, then the hint page, then Create.
    UI.OnForm("TjexdfNavBtnEdit", [](TFormDriver& f) {
        while (!f.Closed())
            f.Click("btnNext");
    });
    editor->ExecuteVerb(5);
    EXPECT_TRUE(Designer->IsModified());
    EXPECT_EQ(UI.Forms().back().Result, mrOk);
}

} // namespace
