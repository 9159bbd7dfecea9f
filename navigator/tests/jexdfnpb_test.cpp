// The navigator button editor driven as a person does: what it shows from the button, the pages it goes
// through, what page 3 proposes, and what OK and Cancel do to the button.
#include <functional>

#include "../../catalogue/tests/catalogue_testutil.h"
#include "dcljexc/jexdfnpb.h"
#include "naveditors_testutil.h"
#include "rtl/sysutils.h"

using namespace dcljexc;
using namespace jex;
using namespace vcl;

namespace {

class NavButtonEditor : public naveditors::NavigatorEditing {
protected:
    void SetUp() override {
        NavigatorEditing::SetUp();
        Panel = Drop<TjexNavPanel>(nullptr, 8, 8, 300, 60);
    }
    template <class T> T* Button(int Left = 5, int Top = 6, int W = 30, int H = 28) {
        return Drop<T>(Panel, Left, Top, W, H);
    }
    // Runs the editor with the person's actions; the result of the entry.
    bool Edit(TjexCustomPicSpeedBtn* B, std::function<void(TFormDriver&)> Person) {
        UI.OnForm("TjexdfNavBtnEdit", std::move(Person));
        bool ok = ExecjexdfNavBtnEdit(B);
        EXPECT_EQ(UI.PendingAnswers(), 0);
        return ok;
    }
    static void NextUntilClosed(TFormDriver& f) {
        for (int i = 0; i < 4 && !f.Closed(); ++i)
            f.Click("btnNext");
        EXPECT_TRUE(f.Closed());
    }
    static int Index(TFormDriver& f, const std::string& Name) {
        if (auto* rg = dynamic_cast<TRadioGroup*>(f.Control(Name))) return rg->ItemIndex();
        return f.Get<TComboBox>(Name)->ItemIndex();
    }
    static bool Checked(TFormDriver& f, const std::string& Name) { return f.Get<TCheckBox>(Name)->Checked(); }
    static std::string Text(TFormDriver& f, const std::string& Name) { return f.Get<TEdit>(Name)->Text(); }
    static bool Showing(TFormDriver& f, const std::string& Name) { return f.Control(Name)->Visible(); }
    static int Page(TFormDriver& f) { return f.Get<TNotebook>("Notebook")->PageIndex(); }

    TjexNavPanel* Panel = nullptr;
};

// ---- What the dialog shows ----------------------------------------------------------------------------

TEST_F(NavButtonEditor, StartsWithTheLookOfTheButton) {
    auto* b = Button<TjexnpNext>();
    b->SetStyle(jbsFramed);
    b->SetPictureHighlight(jphFade);
    b->SetPopup(false);
    b->SetColor(clYellow);
    b->SetHint("Onward|Next record please");
    b->SetCaption("Go");
    b->SetLayout(jblGlyphBottom);
    b->SetTextStyle(jtsLowered);
    b->SetMargin(4);
    b->Font()->SetName("Courier New");

    EXPECT_FALSE(Edit(b, [&](TFormDriver& f) {
        EXPECT_EQ(f.Form()->Caption(), "Set Button Properties");
        EXPECT_EQ(Index(f, "cboBtnStyle"), 9);
        EXPECT_EQ(f.Get<TComboBox>("cboBtnStyle")->Text(), "Framed");
        EXPECT_EQ(Index(f, "cboBtnPicHighlight"), 2);
        EXPECT_FALSE(Checked(f, "chkPopup"));
        EXPECT_TRUE(Checked(f, "chkHints"));
        EXPECT_TRUE(Checked(f, "chkCaption"));
        EXPECT_EQ(f.Get<TjexPicSpeedBtn>("btnGlyphSample")->Color(), clYellow);
        EXPECT_EQ(f.Get<TjexPicSpeedBtn>("btnGlyphSample")->Style(), jbsFramed);
        EXPECT_EQ(f.Get<TjexPicSpeedBtn>("btnGlyphSample")->PictureHighlight(), jphFade);
        EXPECT_FALSE(f.Get<TjexPicSpeedBtn>("btnGlyphSample")->Popup());
        EXPECT_EQ(Index(f, "rgGlyphPos"), 3);
        EXPECT_EQ(Index(f, "rgCaptionTextStyle"), 2);
        EXPECT_EQ(f.Get<TSpinEdit>("speBtnMargin")->Value(), 4);
        EXPECT_EQ(f.Get<TjexPicSpeedBtn>("btnCaptionSample")->Font()->Name(), "Courier New");
        EXPECT_EQ(Text(f, "edHint"), "Onward|Next record please");
        EXPECT_EQ(Text(f, "edHintDown"), "");
        EXPECT_EQ(Text(f, "edCaption"), "Go");
        // The page-3 rows stay hidden until page 3 is entered.
        for (const char* row : {"edHint", "lblHint", "edHintDown", "lblHintDown", "edCaption", "lblCaption"})
            EXPECT_FALSE(Showing(f, row)) << row;
        f.Click("btnCancel");
    }));
}

TEST_F(NavButtonEditor, TwoStateButtonsShowTheirUpAndDownHints) {
    struct TCase {
        rtl::TClass Cls;
        bool UpDown;
    };
    for (const TCase& tc :
         {TCase{TjexnpBookmark::StaticClass(), true}, TCase{TjexnpFilterActive::StaticClass(), true},
          TCase{TjexnpFilterExpression::StaticClass(), true}, TCase{TjexToggleBtn::StaticClass(), true},
          TCase{TjexnpFirst::StaticClass(), false}}) {
        SCOPED_TRACE(tc.Cls->ClassName());
        auto* b = static_cast<TjexCustomPicSpeedBtn*>(Designer->CreateComponent(tc.Cls, Panel, 1, 1, 23, 22));
        b->SetHintUp("Up text");
        b->SetHintDown("Down text");
        if (!tc.UpDown) b->SetHint("Plain text");
        Edit(b, [&](TFormDriver& f) {
            EXPECT_TRUE(Checked(f, "chkHints"));
            EXPECT_EQ(Text(f, "edHint"), tc.UpDown ? "Up text" : "Plain text");
            EXPECT_EQ(Text(f, "edHintDown"), tc.UpDown ? "Down text" : "");
            f.Click("btnCancel");
        });
        b->Free();
    }
}

TEST_F(NavButtonEditor, AButtonWithoutHintOrCaptionStartsWithBothBoxesUnchecked) {
    auto* b = Button<TjexnpLast>();
    Edit(b, [&](TFormDriver& f) {
        EXPECT_FALSE(Checked(f, "chkHints"));
        EXPECT_FALSE(Checked(f, "chkCaption"));
        f.Click("btnCancel");
    });
}

// ---- Pages ------------------------------------------------------------------------------------------

TEST_F(NavButtonEditor, PagesFollowTheCaptionAndHintBoxes) {
    struct TStep {
        const char* Button; // "btnNext" or "btnPrev"
        int Page;           // page shown afterwards
        const char* Next;   // the next button's caption then
    };
    struct TCase {
        const char* Name;
        bool Caption, Hints;
        std::vector<TStep> Steps;
    };
    const std::vector<TCase> cases = {
        {"caption and hints",
         true,
         true,
         {{"btnNext", 1, "&Next"},
          {"btnNext", 2, "&Next"},
          {"btnNext", 3, "&Create"},
          {"btnPrev", 2, "&Next"},
          {"btnPrev", 1, "&Next"},
          {"btnPrev", 0, "&Next"}}},
        {"hints only",
         false,
         true,
         {{"btnNext", 2, "&Next"},
          {"btnNext", 3, "&Create"},
          {"btnPrev", 2, "&Next"},
          {"btnPrev", 0, "&Next"}}},
        {"neither", false, false, {{"btnNext", 2, "&Create"}, {"btnPrev", 0, "&Next"}}},
    };
    const std::vector<std::string> hints = {
        "Choose a button glyph. A hint and caption can be added if required.",
        "Layout the glyph and caption appearance with the following options.", "Set the size of the button.",
        "Edit the hint text and/or caption text for the button."};
    auto* b = Button<TjexnpPrev>();
    for (const TCase& tc : cases) {
        SCOPED_TRACE(tc.Name);
        Edit(b, [&](TFormDriver& f) {
            EXPECT_EQ(Page(f), 0);
            EXPECT_FALSE(f.Control("btnPrev")->Enabled());
            EXPECT_EQ(f.Get<TLabel>("lblPageHint")->Caption(), hints[0]);
            f.Check("chkCaption", tc.Caption);
            f.Check("chkHints", tc.Hints);
            for (const TStep& s : tc.Steps) {
                f.Click(s.Button);
                ASSERT_FALSE(f.Closed());
                EXPECT_EQ(Page(f), s.Page) << s.Button;
                EXPECT_EQ(f.Get<TBitBtn>("btnNext")->Caption(), s.Next) << "page " << s.Page;
                EXPECT_EQ(f.Control("btnPrev")->Enabled(), s.Page > 0);
                EXPECT_EQ(f.Get<TLabel>("lblPageHint")->Caption(), hints[s.Page]);
            }
            f.Click("btnCancel");
        });
    }
}

TEST_F(NavButtonEditor, TheSizePageProposesTheDefaultSizeNotTheButtons) {
    auto* b = Button<TjexnpPrev>(5, 6, 77, 33);
    for (bool caption : {false, true}) {
        SCOPED_TRACE(caption);
        Edit(b, [&](TFormDriver& f) {
            f.Check("chkCaption", caption);
            f.Click("btnNext");
            if (caption) f.Click("btnNext");
            ASSERT_EQ(Page(f), 2);
            auto* sample = f.Get<TjexPicSpeedBtn>("btnSizeSample");
            EXPECT_EQ(Index(f, "rgBtnSize"), caption ? 6 : 2);
            EXPECT_EQ(sample->Width(), caption ? 50 : 23);
            EXPECT_EQ(sample->Height(), caption ? 50 : 22);
            EXPECT_EQ(sample->Caption(), caption ? "Caption" : "");
            f.Click("btnCancel");
        });
    }
}

TEST_F(NavButtonEditor, PageThreeProposesTheCatalogueTextsOfTheButtonsKind) {
    struct TCase {
        rtl::TClass Cls;
        bool Caption, Hints;
        std::string Hint, HintDown, CaptionText;
    };
    const std::vector<TCase> cases = {
        {TjexnpBookmark::StaticClass(), true, true, "Set Bookmark|Mark this record position with a bookmark",
         "Go To Bookmark|Return to the last bookmarked record", "Bookmark"},
        {TjexnpNext::StaticClass(), true, true, "Next|Move forward to next record (hold down to accelerate)",
         "", "Next"},
        {TjexnpRefresh::StaticClass(), true, false, "", "", "Refresh"},
        {TjexnpFilterActive::StaticClass(), false, true,
         "Add Filter on Current Field Value|Show only records with the same value as the active field",
         "Remove Filter|Remove the filter on the active field value", ""},
    };
    for (const TCase& tc : cases) {
        SCOPED_TRACE(tc.Cls->ClassName());
        auto* b = static_cast<TjexCustomPicSpeedBtn*>(Designer->CreateComponent(tc.Cls, Panel, 1, 1, 23, 22));
        b->SetHint("Own hint");
        b->SetCaption("Own caption");
        Edit(b, [&](TFormDriver& f) {
            f.Check("chkCaption", tc.Caption);
            f.Check("chkHints", tc.Hints);
            while (Page(f) < 3)
                f.Click("btnNext");
            EXPECT_EQ(Showing(f, "edHint"), tc.Hints);
            EXPECT_EQ(Showing(f, "lblHint"), tc.Hints);
            EXPECT_EQ(Showing(f, "edHintDown"), !tc.HintDown.empty());
            EXPECT_EQ(Showing(f, "lblHintDown"), !tc.HintDown.empty());
            EXPECT_EQ(Showing(f, "edCaption"), tc.Caption);
            if (tc.Hints) EXPECT_EQ(Text(f, "edHint"), tc.Hint);
            if (!tc.HintDown.empty()) EXPECT_EQ(Text(f, "edHintDown"), tc.HintDown);
            if (tc.Caption) {
                EXPECT_EQ(Text(f, "edCaption"), tc.CaptionText);
                // The caption row closes up under the rows shown above it: in the hint row's place, the
                // hint-down row's place, or below the hint-down row.
                int above = (tc.Hints ? 1 : 0) + (tc.HintDown.empty() ? 0 : 1);
                int captionTop = f.Control("edCaption")->Top();
                if (above == 0) EXPECT_EQ(captionTop, f.Control("edHint")->Top());
                if (above == 1) EXPECT_EQ(captionTop, f.Control("edHintDown")->Top());
                if (above == 2) EXPECT_GT(captionTop, f.Control("edHintDown")->Top());
            }
            f.Click("btnCancel");
        });
        b->Free();
    }
}

// ---- OK and Cancel ------------------------------------------------------------------------------------

TEST_F(NavButtonEditor, OKGivesTheButtonTheChosenLookTextsAndSize) {
    auto* b = Button<TjexnpNext>(5, 6, 30, 28);
    b->SetHint("Old|hint");
    UI.AnswerColor(clRed);
    UI.AnswerFont([](TFont& font) {
        font.SetName("Arial");
        font.SetSize(12);
        return true;
    });
    EXPECT_TRUE(Edit(b, [&](TFormDriver& f) {
        f.Select("rgGlyphStyles", 0);
        f.Select("cboBtnStyle", "Recessed");
        f.Select("cboBtnPicHighlight", "Darken");
        f.Check("chkPopup", false);
        f.Click("BtnColor");
        f.Check("chkCaption", true);
        f.Click("btnNext");
        f.Select("rgGlyphPos", 1);
        f.Select("rgCaptionTextStyle", 1);
        f.SetValue("speBtnMargin", 3);
        f.Click("btnButtonFont");
        f.Click("btnNext");
        f.Select("rgBtnSize", 4);
        f.Click("btnNext");
        f.Type("edHint", "Onward|Next record");
        f.Type("edCaption", "Onward");
        f.Click("btnNext");
    }));
    EXPECT_EQ(b->Style(), jbsRecessed);
    EXPECT_EQ(b->PictureHighlight(), jphDarken);
    EXPECT_FALSE(b->Popup());
    EXPECT_EQ(b->Color(), clRed);
    EXPECT_EQ(b->Layout(), jblGlyphRight);
    EXPECT_EQ(b->TextStyle(), jtsRaised);
    EXPECT_EQ(b->Margin(), 3);
    EXPECT_EQ(b->Font()->Name(), "Arial");
    EXPECT_EQ(b->Font()->Size(), 12);
    EXPECT_EQ(b->Caption(), "Onward");
    EXPECT_EQ(b->Hint(), "Onward|Next record");
    EXPECT_EQ(b->BoundsRect(), Bounds(5, 6, 30, 30));
    // The large coloured glyph of the Next kind.
    EXPECT_EQ(b->NumGlyphs(), 2);
    cattest::TPackageModuleScope package;
    const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(package.Module(), "JEXNP_NEXT0");
    ASSERT_NE(bytes, nullptr);
    TBitmap expected;
    expected.LoadFromBytes(*bytes);
    expected.SetPixelFormat(pf4bit);
    EXPECT_TRUE(b->Glyph()->Equals(&expected));
}

TEST_F(NavButtonEditor, OKGivesATwoStateButtonItsUpAndDownHints) {
    auto* b = Button<TjexToggleBtn>();
    b->SetHintUp("Up");
    b->SetHintDown("Down");
    EXPECT_TRUE(Edit(b, [&](TFormDriver& f) {
        f.Click("btnNext");
        f.Click("btnNext");
        ASSERT_EQ(Page(f), 3);
        EXPECT_EQ(Text(f, "edHint"), "Activate Button|Click to activate button");
        f.Type("edHint", "Switch on");
        f.Type("edHintDown", "Switch off");
        f.Click("btnNext");
    }));
    EXPECT_EQ(b->HintUp(), "Switch on");
    EXPECT_EQ(b->HintDown(), "Switch off");
    EXPECT_EQ(b->BoundsRect(), Bounds(5, 6, 23, 22));
}

TEST_F(NavButtonEditor, UncheckingTheCaptionKeepsItAndOnlyCentresTheGlyph) {
    auto* b = Button<TjexnpFirst>();
    b->SetCaption("Start");
    b->SetMargin(6);
    b->SetLayout(jblGlyphTop);
    EXPECT_TRUE(Edit(b, [&](TFormDriver& f) {
        EXPECT_TRUE(Checked(f, "chkCaption"));
        f.Check("chkCaption", false);
        f.Check("chkHints", false);
        NextUntilClosed(f);
    }));
    EXPECT_EQ(b->Caption(), "Start");
    EXPECT_EQ(b->Margin(), -1);
    EXPECT_EQ(b->Layout(), jblGlyphTop);
}

TEST_F(NavButtonEditor, AnEmptyHintStaysEmptyWhenTheHintsBoxIsLeftUnchecked) {
    auto* b = Button<TjexnpDelete>();
    EXPECT_TRUE(Edit(b, NextUntilClosed));
    EXPECT_EQ(b->Hint(), "");
    EXPECT_EQ(b->Caption(), "");
    EXPECT_EQ(UI.Forms().back().Result, mrOk);
}

TEST_F(NavButtonEditor, CancelLeavesTheButtonAsItWas) {
    auto* b = Button<TjexnpPost>();
    b->SetHint("Save|Save it");
    b->SetCaption("Save");
    const std::string before = Designer->SaveToText();
    UI.AnswerColor(clLime);
    EXPECT_FALSE(Edit(b, [&](TFormDriver& f) {
        f.Select("rgGlyphStyles", 5);
        f.Select("cboBtnStyle", "Thin Black");
        f.Click("BtnColor");
        f.Click("btnNext");
        f.Select("rgGlyphPos", 4);
        f.Click("btnNext");
        f.Select("rgBtnSize", 9);
        f.Click("btnNext");
        f.Type("edCaption", "Changed");
        f.Click("btnCancel");
    }));
    EXPECT_EQ(Designer->SaveToText(), before);
}

TEST_F(NavButtonEditor, NoButtonIsAClearError) {
    EXPECT_THROW(ExecjexdfNavBtnEdit(nullptr), rtl::EInvalidOperation);
    EXPECT_TRUE(UI.Forms().empty());
}

} // namespace
