// The navigator panel wizard driven through the scripted user interface: choosing buttons, the pages and
// their buttons, captions and hints edited in the grids, the created components (names, parents, texts,
// glyphs, positions, panel size), the rows and columns spinners, the layout of buttons and other controls,
// custom glyphs from a real INI file and real bitmaps, and the toolbar case.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>

#include "../../catalogue/tests/catalogue_testutil.h"
#include "dcljexc/jexdfnav.h"
#include "dcljexc/jexdsncn.h"
#include "jexdfnav_classes.h"
#include "vcl/graphics.h"
#include "vcl/scripted_ui.h"

using namespace dcljexc;
using namespace vcl;
namespace fs = std::filesystem;

// A toolbar that records how deep in BeginUpdate it was each time the wizard sized it.
class TjexTestNavToolbar : public jex::TjexNavToolbar {
    JEX_CLASS(TjexTestNavToolbar, jex::TjexNavToolbar)
    explicit TjexTestNavToolbar(rtl::TComponent* AOwner) : jex::TjexNavToolbar(AOwner) {}
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override {
        UpdateCounts.push_back(UpdateCount());
        jex::TjexNavToolbar::SetBounds(ALeft, ATop, AWidth, AHeight);
    }
    std::vector<int> UpdateCounts;
};
JEX_IMPLEMENT_CLASS(TjexTestNavToolbar, jex::TjexNavToolbar, "jexdfnav_test") {}

namespace {

using TDriver = std::function<void(TFormDriver&)>;

class NavigatorWizard : public ::testing::Test {
protected:
    void SetUp() override {
        std::string templ = (fs::temp_directory_path() / "jexdfnavXXXXXX").string();
        Dir = mkdtemp(templ.data());
        rtl::SetSystemDirectory(Dir);
        Jexdsncn::Start();
        UI.PropagateExceptions = true;
        Form = new TForm(nullptr);
        Form->SetName("Form1");
        Panel = new jex::TjexNavPanel(Form);
        Panel->SetName("jexNavPanel1");
        Panel->SetParent(Form);
        Panel->SetBounds(16, 24, 200, 40);
    }
    void TearDown() override {
        Form->Free();
        Jexdsncn::Stop();
        rtl::SetSystemDirectory("");
        fs::remove_all(Dir);
    }

    // Runs the wizard on Target with the person's actions.
    bool Run(const TDriver& Actions, TWinControl* Target = nullptr) {
        UI.OnForm("TjexdfNavPanelEdit", Actions);
        return ExecjexdfNavPanelEdit(Target ? Target : Panel);
    }
    // Picks the outline entries (group or "Group\\Button" paths) and adds each.
    static void Pick(TFormDriver& d, std::initializer_list<const char*> Paths) {
        for (const char* p : Paths) {
            d.Select("outButtons", p);
            d.Click("btnAdd");
        }
    }
    static std::vector<std::string> Selected(TFormDriver& d) {
        std::vector<std::string> out;
        TStrings* items = d.Get<TListBox>("lstSelected")->Items();
        for (int i = 0; i < items->Count(); ++i)
            out.push_back((*items)[i]);
        return out;
    }
    static int PageIndex(TFormDriver& d) { return d.Get<TNotebook>("Notebook")->PageIndex(); }
    // Presses Next until the wizard closes.
    static void Finish(TFormDriver& d) {
        for (int i = 0; i < 6 && !d.Closed(); ++i)
            d.Click("btnNext");
    }
    // Next from page 0 to the size page, without captions.
    static void ToSizePage(TFormDriver& d) {
        d.Click("btnNext");
        d.Click("btnNext");
        ASSERT_EQ(PageIndex(d), 3);
    }
    static void AddTimes(TFormDriver& d, const char* Path, int Times) {
        d.Select("outButtons", Path);
        for (int i = 0; i < Times; ++i)
            d.Click("btnAdd");
    }
    std::vector<std::string> ChildNames() const {
        std::vector<std::string> out;
        for (int i = 0; i < Panel->ControlCount(); ++i)
            out.push_back(Panel->Controls(i)->Name());
        return out;
    }
    template <class T> T* Child(int Index) const { return dynamic_cast<T*>(Panel->Controls(Index)); }
    void WriteIni(const std::string& Text) const { std::ofstream(fs::path(Dir) / jexNavIniFileName) << Text; }
    // A real BMP file of W x H whose pixels encode Seed, so that two files can be told apart.
    std::string WriteBmp(const std::string& Name, int W, int H, uint32_t Seed) const {
        TBitmap bmp;
        bmp.SetSize(W, H);
        for (int y = 0; y < H; ++y)
            for (int x = 0; x < W; ++x)
                bmp.SetPixelRGB(x, y, (Seed * 0x3131 + static_cast<uint32_t>(x * 8 + y)) & 0xFFFFFF);
        const std::string file = (fs::path(Dir) / Name).string();
        bmp.SaveToFile(file);
        return file;
    }

    std::string Dir;
    TScriptedUI UI;
    cattest::TPackageModuleScope Package;
    navtest::TNavClassesScope Classes;
    TForm* Form = nullptr;
    jex::TjexNavPanel* Panel = nullptr;
};

bool SamePixels(const TBitmap& a, const TBitmap& b) {
    if (a.Width() != b.Width() || a.Height() != b.Height() || a.Width() == 0) return false;
    for (int y = 0; y < a.Height(); ++y)
        for (int x = 0; x < a.Width(); ++x)
            if (a.PixelRGB(x, y) != b.PixelRGB(x, y)) return false;
    return true;
}

// The package's bitmap resource, decoded.
std::unique_ptr<TBitmap> Resource(rtl::TResourceModule& Module, const std::string& Name) {
    auto bmp = std::make_unique<TBitmap>();
    const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(Module, Name);
    EXPECT_NE(bytes, nullptr) << Name;
    if (bytes) bmp->LoadFromBytes(*bytes);
    return bmp;
}

std::unique_ptr<TBitmap> FileBitmap(const std::string& File) {
    auto bmp = std::make_unique<TBitmap>();
    bmp->LoadFromFile(File);
    return bmp;
}

struct TBounds {
    int Left, Top, Width, Height;
    bool operator==(const TBounds&) const = default;
};
std::ostream& operator<<(std::ostream& o, const TBounds& b) {
    return o << "(" << b.Left << ", " << b.Top << ", " << b.Width << " x " << b.Height << ")";
}
TBounds BoundsOf(const TControl* c) { return {c->Left(), c->Top(), c->Width(), c->Height()}; }

} // namespace

// ---- Pages and the choice of buttons ------------------------------------------------------------------------

TEST_F(NavigatorWizard, PagesShowTheirHintsAndTheNextButtonSaysWhenItFinishes) {
    struct TStep {
        int Page;
        const char* Hint;
        const char* Next;
    };
    const std::vector<TStep> forward = {
        {0,
         "Choose the navigator buttons you would like to add. Use '>' to select a single button or all buttons in "
         "a group;  click '>>' to select every button.",
         "&Next"},
        {1, "Choose a set of button glyphs. Hints and captions can be added if required.", "&Next"},
        {2, "Layout the glyph and caption appearance with the following options.", "&Next"},
        {3, "Choose a button size and number of button rows for the panel.", "&Next"},
        {4, "Edit the caption text for your selected buttons.", "&Next"},
        {5, "Edit the hint text for your selected buttons.", "&Create"}};
    Run([&](TFormDriver& d) {
        EXPECT_EQ(d.Form()->Caption(), "Add Navigator Buttons");
        EXPECT_FALSE(d.Get<TButton>("btnPrev")->Enabled());
        Pick(d, {"Navigate\\Next"});
        for (size_t i = 0; i < forward.size(); ++i) {
            if (i == 1) d.Check("chkCaption", true);
            SCOPED_TRACE(i);
            EXPECT_EQ(PageIndex(d), forward[i].Page);
            EXPECT_EQ(d.Get<TLabel>("lblPageHint")->Caption(), forward[i].Hint);
            EXPECT_EQ(d.Get<TBitBtn>("btnNext")->Caption(), forward[i].Next);
            EXPECT_EQ(d.Get<TButton>("btnPrev")->Enabled(), i > 0);
            if (i + 1 < forward.size()) d.Click("btnNext");
        }
        EXPECT_EQ(d.Get<TBitBtn>("btnNext")->NumGlyphs(), 1);
        // Back down again: the caption page is on the way while captions are chosen.
        for (int page : {4, 3, 2, 1, 0}) {
            d.Click("btnPrev");
            EXPECT_EQ(PageIndex(d), page);
        }
        EXPECT_EQ(d.Get<TBitBtn>("btnNext")->NumGlyphs(), 2);
        // Without captions the caption-style and caption pages are skipped both ways.
        d.Click("btnNext");
        d.Check("chkCaption", false);
        d.Click("btnNext");
        EXPECT_EQ(PageIndex(d), 3);
        d.Click("btnNext");
        EXPECT_EQ(PageIndex(d), 5);
        d.Click("btnPrev");
        EXPECT_EQ(PageIndex(d), 3);
        d.Click("btnPrev");
        EXPECT_EQ(PageIndex(d), 1);
        d.Click("btnCancel");
    });
}

TEST_F(NavigatorWizard, SizePageFinishesWhenThereIsNothingToEdit) {
    struct TCase {
        bool Pick, Caption, Hints;
        const char* Next;
    };
    for (const TCase& c : {TCase{false, true, true, "&Create"}, TCase{true, false, false, "&Create"},
                           TCase{true, false, true, "&Next"}, TCase{true, true, false, "&Next"}}) {
        Run([&](TFormDriver& d) {
            if (c.Pick) Pick(d, {"Navigate\\First"});
            d.Click("btnNext");
            d.Check("chkCaption", c.Caption);
            d.Check("chkHints", c.Hints);
            d.Click("btnNext");
            if (c.Caption) d.Click("btnNext");
            EXPECT_EQ(PageIndex(d), 3);
            EXPECT_EQ(d.Get<TBitBtn>("btnNext")->Caption(), c.Next) << c.Pick << c.Caption << c.Hints;
            d.Click("btnCancel");
        });
    }
}

TEST_F(NavigatorWizard, OutlineListsTheCatalogueUnderItsGroups) {
    Run([&](TFormDriver& d) {
        auto* out = d.Get<TOutline>("outButtons");
        ASSERT_EQ(out->ItemCount(), 41);
        EXPECT_EQ(out->Items(1)->Text(), "Navigate");
        EXPECT_EQ(out->Items(1)->ChildCount(), 6);
        EXPECT_EQ(out->Items(8)->Text(), "Edit Records");
        EXPECT_EQ(out->Items(8)->ChildCount(), 12);
        EXPECT_EQ(out->GetTextItem("Mark & Locate Records\\Find Key"), 24);
        EXPECT_EQ(reinterpret_cast<intptr_t>(out->Items(24)->Data()), 20);
        EXPECT_EQ(out->Items(35)->Text(), "Other");
        EXPECT_EQ(out->Items(41)->Text(), "Custom Up/Down Button");
        EXPECT_EQ(reinterpret_cast<intptr_t>(out->Items(41)->Data()), 34);
        d.Click("btnCancel");
    });
}

TEST_F(NavigatorWizard, ChoosingAndOrderingButtons) {
    Run([&](TFormDriver& d) {
        // A group adds all its buttons, a leaf itself, a double click a leaf but not a group.
        Pick(d, {"Mark & Locate Records", "Navigate\\Next", "Navigate\\Next"});
        d.Select("outButtons", "SQL Server Transactions\\Commit");
        d.DblClick("outButtons");
        d.Select("outButtons", "Navigate");
        d.DblClick("outButtons");
        EXPECT_EQ(Selected(d), (std::vector<std::string>{"Single Bookmark", "Multiple Bookmark", "Find Key", "Next",
                                                         "Next", "Commit"}));
        // Up and down keep the moved entry selected and stop at the ends.
        d.Select("lstSelected", 5);
        d.Click("btnUp");
        d.Click("btnUp");
        EXPECT_EQ(d.Get<TListBox>("lstSelected")->ItemIndex(), 3);
        d.Select("lstSelected", 0);
        d.Click("btnUp");
        d.Click("btnDown");
        EXPECT_EQ(Selected(d), (std::vector<std::string>{"Multiple Bookmark", "Single Bookmark", "Find Key",
                                                         "Commit", "Next", "Next"}));
        EXPECT_EQ(d.Get<TListBox>("lstSelected")->ItemIndex(), 1);
        // Removing the last entry selects the new last one, removing inside the one now at that place.
        d.Select("lstSelected", 5);
        d.Click("btnRemove");
        EXPECT_EQ(d.Get<TListBox>("lstSelected")->ItemIndex(), 4);
        d.Select("lstSelected", 1);
        d.Click("btnRemove");
        EXPECT_EQ(Selected(d), (std::vector<std::string>{"Multiple Bookmark", "Find Key", "Commit", "Next"}));
        EXPECT_EQ(d.Get<TListBox>("lstSelected")->ItemIndex(), 1);
        // All, then none.
        d.Click("btnAddAll");
        EXPECT_EQ(Selected(d).size(), 39u);
        EXPECT_EQ(Selected(d)[4], "First");
        EXPECT_EQ(Selected(d).back(), "Custom Up/Down Button");
        d.Click("btnRemoveAll");
        EXPECT_TRUE(Selected(d).empty());
        d.Click("btnCancel");
    });
}

TEST_F(NavigatorWizard, CancelLeavesThePanelUntouched) {
    auto* existing = new jex::TjexnpFirst(Form);
    existing->SetName("jexnpFirst1");
    existing->SetParent(Panel);
    existing->SetBounds(5, 6, 30, 31);
    EXPECT_FALSE(Run([&](TFormDriver& d) {
        d.Click("btnAddAll");
        d.Click("btnNext");
        d.Check("chkCaption", true);
        d.Click("btnNext");
        d.Click("btnNext");
        d.Click("btnCancel");
    }));
    EXPECT_EQ(ChildNames(), std::vector<std::string>{"jexnpFirst1"});
    EXPECT_EQ(BoundsOf(Panel), (TBounds{16, 24, 200, 40}));
    EXPECT_EQ(BoundsOf(existing), (TBounds{5, 6, 30, 31}));
    EXPECT_EQ(Form->ComponentCount(), 2);
    EXPECT_FALSE(Panel->ShowHint());
}

// ---- Created components --------------------------------------------------------------------------------------

TEST_F(NavigatorWizard, CreatesUniquelyNamedButtonsWithTheEditedTextsAndGlyphs) {
    // Names already used anywhere on the form are skipped.
    auto* elsewhere = new TLabel(Form);
    elsewhere->SetName("jexnpNext1");
    elsewhere->SetParent(Form);
    auto* taken = new TLabel(Form);
    taken->SetName("JEXNPNEXT3");
    EXPECT_TRUE(Run([&](TFormDriver& d) {
        Pick(d, {"Navigate\\Next", "Mark & Locate Records\\Single Bookmark", "Navigate\\Next",
                 "Other\\Custom Up/Down Button", "Sort & Filter Records\\Range Edit Box"});
        d.Click("btnNext");
        d.Check("chkCaption", true);
        d.Click("btnNext");
        d.Click("btnNext");
        d.Click("btnNext");
        auto* captions = d.Get<TStringGrid>("grdCaptions");
        EXPECT_EQ(captions->RowCount(), 6);
        EXPECT_EQ(captions->Cells(0, 0), "BUTTON");
        EXPECT_EQ(captions->Cells(1, 0), "CAPTION");
        EXPECT_EQ(captions->Cells(0, 2), "Single Bookmark");
        EXPECT_EQ(captions->Cells(1, 2), "Bookmark");
        EXPECT_EQ(captions->Cells(1, 5), "{no Caption}");
        d.SetCell("grdCaptions", 1, 3, "Onward");
        d.Click("btnNext");
        auto* hints = d.Get<TStringGrid>("grdHints");
        EXPECT_EQ(hints->Cells(1, 0), "HINT or HINT UP");
        EXPECT_EQ(hints->Cells(2, 0), "HINT DOWN");
        EXPECT_EQ(hints->Cells(2, 1), "{no Hint Down}");
        EXPECT_EQ(hints->Cells(2, 2), "Go To Bookmark|Return to the last bookmarked record");
        d.SetCell("grdHints", 1, 1, "Go on|One record on");
        d.SetCell("grdHints", 2, 4, "Off|Turn it off");
        d.Click("btnNext");
        EXPECT_TRUE(d.Closed());
    }));

    EXPECT_EQ(ChildNames(), (std::vector<std::string>{"jexnpNext2", "jexnpBookmark1", "jexnpNext4",
                                                      "jexToggleBtn1", "jexnpRangeEdit1"}));
    for (int i = 0; i < Panel->ControlCount(); ++i) {
        EXPECT_EQ(Panel->Controls(i)->Owner(), Form);
        EXPECT_EQ(Panel->Controls(i)->Parent(), Panel);
    }
    auto* next2 = Child<jex::TjexnpNext>(0);
    auto* bookmark = Child<jex::TjexnpBookmark>(1);
    auto* next4 = Child<jex::TjexnpNext>(2);
    auto* toggle = Child<jex::TjexToggleBtn>(3);
    auto* range = Child<jex::TjexnpRangeEdit>(4);
    ASSERT_TRUE(next2 && bookmark && next4 && toggle && range);
    EXPECT_EQ(next2->Caption(), "Next");
    EXPECT_EQ(next2->Hint(), "Go on|One record on");
    EXPECT_EQ(next4->Caption(), "Onward");
    EXPECT_EQ(next4->Hint(), "Next|Move forward to next record (hold down to accelerate)");
    EXPECT_EQ(bookmark->HintUp(), "Set Bookmark|Mark this record position with a bookmark");
    EXPECT_EQ(bookmark->HintDown(), "Go To Bookmark|Return to the last bookmarked record");
    EXPECT_EQ(toggle->Caption(), "Up/Down");
    EXPECT_EQ(toggle->HintUp(), "Activate Button|Click to activate button");
    EXPECT_EQ(toggle->HintDown(), "Off|Turn it off");
    EXPECT_EQ(range->Hint(), "Filter range|Type a range expression for the key field, e.g. 1-100 or a-c");
    EXPECT_TRUE(Panel->ShowHint());

    // The medium coloured set, two glyphs, and the caption sample's look: 40 x 40 chosen, 50 x 50 made.
    const auto nextGlyph = Resource(Package.Module(), "JEXNP_NEXT2");
    EXPECT_TRUE(SamePixels(*next2->Glyph(), *nextGlyph));
    EXPECT_TRUE(SamePixels(*next4->Glyph(), *nextGlyph));
    EXPECT_TRUE(SamePixels(*bookmark->Glyph(), *Resource(Package.Module(), "JEXNP_BMK2")));
    EXPECT_EQ(next2->NumGlyphs(), 2);
    EXPECT_EQ(next2->Glyph()->PixelFormat(), pf4bit);
    EXPECT_EQ(next2->Style(), jex::jbsThin);
    EXPECT_EQ(next2->Layout(), jex::jblGlyphTop);
    EXPECT_EQ(BoundsOf(next2), (TBounds{1, 1, 50, 50}));
    EXPECT_EQ(BoundsOf(bookmark), (TBounds{51, 1, 50, 50}));
    EXPECT_EQ(BoundsOf(toggle), (TBounds{151, 1, 50, 50}));
    // The range edit flows below the row of four buttons.
    EXPECT_EQ(range->Left(), 2);
    EXPECT_EQ(range->Top(), 52);
    EXPECT_EQ(Panel->Left(), 16);
    EXPECT_EQ(Panel->Top(), 24);
    EXPECT_EQ(Panel->Width(), 50 * 4 + 2);
    EXPECT_EQ(Panel->Height(), 52 + range->Height() + 2);
}

TEST_F(NavigatorWizard, ButtonsOfTheBlobFilterAndFindKindsTurnOnAutoField) {
    Run([&](TFormDriver& d) {
        Pick(d, {"Navigate\\First"});
        Finish(d);
    });
    EXPECT_FALSE(Panel->AutoField());
    Run([&](TFormDriver& d) {
        Pick(d, {"Edit Records\\Find/Replace Text"});
        Finish(d);
    });
    EXPECT_TRUE(Panel->AutoField());
    EXPECT_EQ(ChildNames(), (std::vector<std::string>{"jexnpFirst1", "jexnpFindReplace1"}));
}

TEST_F(NavigatorWizard, FinishingWithNothingChosenRestylesWhatIsThere) {
    auto* b = new jex::TjexnpLast(Form);
    b->SetName("jexnpLast1");
    b->SetParent(Panel);
    b->SetBounds(40, 3, 10, 10);
    Run([&](TFormDriver& d) {
        d.Click("btnNext");
        d.Select("rgGlyphStyles", 5);
        d.Select("cboBtnStyle", "Framed");
        d.Click("btnNext");
        EXPECT_FALSE(d.Get<TSpinEdit>("speBtnRows")->Enabled());
        EXPECT_FALSE(d.Get<TSpinEdit>("speBtnCols")->Enabled());
        EXPECT_EQ(d.Get<TSpinEdit>("speBtnCols")->Value(), 1);
        Finish(d);
    });
    EXPECT_EQ(ChildNames(), std::vector<std::string>{"jexnpLast1"});
    EXPECT_EQ(BoundsOf(b), (TBounds{1, 1, 23, 22}));
    EXPECT_EQ(b->Style(), jex::jbsFramed);
    EXPECT_TRUE(SamePixels(*b->Glyph(), *Resource(Package.Module(), "JEXNP_LAST5")));
    EXPECT_EQ(BoundsOf(Panel), (TBounds{16, 24, 25, 24}));
}

TEST_F(NavigatorWizard, NilPanelIsRefused) {
    EXPECT_THROW(ExecjexdfNavPanelEdit(nullptr), rtl::EInvalidOperation);
    EXPECT_TRUE(UI.Forms().empty());
}

// ---- Rows and columns ----------------------------------------------------------------------------------------

TEST_F(NavigatorWizard, RowsStepToTheNextShapeThatChangesTheColumns) {
    struct TStep {
        const char* Spin;
        int Value, Rows, Cols;
    };
    const std::vector<TStep> horizontal = {{"speBtnRows", 2, 2, 5},  {"speBtnRows", 3, 3, 4},
                                           {"speBtnRows", 4, 4, 3},  {"speBtnRows", 5, 5, 2},
                                           {"speBtnRows", 6, 10, 1}, {"speBtnRows", 9, 5, 2},
                                           {"speBtnRows", 4, 4, 3},  {"speBtnRows", 1, 1, 10},
                                           {"speBtnCols", 4, 3, 4},  {"speBtnCols", 6, 2, 6}};
    const std::vector<TStep> vertical = {{"speBtnCols", 2, 5, 2},  {"speBtnCols", 3, 4, 3},
                                         {"speBtnCols", 5, 2, 5},  {"speBtnCols", 6, 1, 10},
                                         {"speBtnCols", 9, 2, 5},  {"speBtnCols", 1, 10, 1},
                                         {"speBtnRows", 3, 3, 4}};
    for (bool vert : {false, true}) {
        Run([&](TFormDriver& d) {
            AddTimes(d, "Navigate\\Next", 9);
            // One more glyph button (Range) and two controls that are no buttons.
            Pick(d, {"Sort & Filter Records\\Index ComboBox", "Sort & Filter Records\\Range Filter",
                     "Other\\DB State Label"});
            d.Click("btnNext");
            d.Select("rgGlyphOrient", vert ? 1 : 0);
            d.Click("btnNext");
            auto* rows = d.Get<TSpinEdit>("speBtnRows");
            auto* cols = d.Get<TSpinEdit>("speBtnCols");
            EXPECT_EQ(rows->Value(), vert ? 10 : 1);
            EXPECT_EQ(cols->Value(), vert ? 1 : 10);
            EXPECT_EQ(rows->MaxValue(), 10);
            EXPECT_TRUE(rows->Enabled());
            for (const TStep& s : vert ? vertical : horizontal) {
                d.SetValue(s.Spin, s.Value);
                EXPECT_EQ(rows->Value(), s.Rows) << vert << " " << s.Spin << " " << s.Value;
                EXPECT_EQ(cols->Value(), s.Cols) << vert << " " << s.Spin << " " << s.Value;
            }
            d.Click("btnCancel");
        });
    }
}

TEST_F(NavigatorWizard, GridCountsNormaliseTheOtherDimension) {
    struct TCase {
        int Total, In, OutCount, OutIn;
    };
    for (const TCase& c : {TCase{0, 3, 0, 0}, TCase{10, 0, 10, 1}, TCase{10, 3, 4, 3}, TCase{10, 10, 1, 10},
                           TCase{10, 12, 1, 10}, TCase{7, 2, 4, 2}}) {
        int rows = c.In, cols = c.In;
        EXPECT_EQ(TjexdfNavPanelEdit::GetColCount(c.Total, rows), c.OutCount) << c.Total << "/" << c.In;
        EXPECT_EQ(rows, c.OutIn);
        EXPECT_EQ(TjexdfNavPanelEdit::GetRowCount(c.Total, cols), c.OutCount);
        EXPECT_EQ(cols, c.OutIn);
    }
}

TEST_F(NavigatorWizard, OneGlyphButtonFixesRowsAndColumns) {
    for (int total : {0, 1}) {
        Run([&](TFormDriver& d) {
            if (total) Pick(d, {"Navigate\\Previous"});
            Pick(d, {"Sort & Filter Records\\Index ComboBox", "Other\\DB State Label"});
            ToSizePage(d);
            for (const char* name : {"speBtnRows", "speBtnCols", "lblBtnRows", "lblBtnCols"})
                EXPECT_FALSE(d.Control(name)->Enabled()) << name;
            EXPECT_EQ(d.Get<TSpinEdit>("speBtnRows")->Value(), total);
            EXPECT_EQ(d.Get<TSpinEdit>("speBtnCols")->MinValue(), total);
            EXPECT_THROW(d.SetValue("speBtnRows", 3), EScriptedUIError);
            d.Click("btnCancel");
        });
    }
}

// ---- Layout ------------------------------------------------------------------------------------------------

TEST_F(NavigatorWizard, NonPopupButtonsShareTheirBorders) {
    Run([&](TFormDriver& d) {
        AddTimes(d, "Navigate\\Next", 3);
        d.Click("btnNext");
        d.Check("chkPopup", false);
        d.Click("btnNext");
        EXPECT_EQ(d.Get<TSpinEdit>("speBtnOffsetH")->Value(), -1);
        EXPECT_EQ(d.Get<TSpinEdit>("speBtnOffsetV")->Value(), -1);
        Finish(d);
    });
    EXPECT_EQ(Panel->Width(), 69);
    EXPECT_EQ(Panel->Height(), 23);
    EXPECT_EQ(BoundsOf(Panel->Controls(1)), (TBounds{23, 1, 23, 22}));
    EXPECT_EQ(BoundsOf(Panel->Controls(2)), (TBounds{45, 1, 23, 22}));
    EXPECT_FALSE(Child<jex::TjexnpNext>(0)->Popup());
    EXPECT_EQ(Child<jex::TjexnpNext>(0)->Margin(), -1);
}

TEST_F(NavigatorWizard, OtherControlsFlowInRowsBelowTheButtons) {
    // A combo and a label already on the panel, wider together than the three buttons.
    auto* combo = new jex::TjexnpIndexCombo(Form);
    combo->SetName("jexnpIndexCombo1");
    combo->SetParent(Panel);
    combo->SetBounds(0, 0, 100, 21);
    auto* label = new jex::TjexnpState(Form);
    label->SetName("jexnpState1");
    label->SetParent(Panel);
    label->SetBounds(0, 0, 60, 13);
    const int comboH = combo->Height(), labelH = label->Height();
    Run([&](TFormDriver& d) {
        AddTimes(d, "Navigate\\Next", 3);
        d.Click("btnNext");
        d.Check("chkPopup", false);
        Finish(d);
    });
    EXPECT_EQ(BoundsOf(Panel->Controls(2)), (TBounds{1, 1, 23, 22}));
    EXPECT_EQ(BoundsOf(Panel->Controls(4)), (TBounds{45, 1, 23, 22}));
    // The combo alone is wider than the buttons: the panel widens to it, the label wraps below.
    EXPECT_EQ(BoundsOf(combo), (TBounds{2, 24, 100, comboH}));
    EXPECT_EQ(BoundsOf(label), (TBounds{2, 24 + comboH + 1, 60, labelH}));
    EXPECT_EQ(Panel->Width(), 104);
    EXPECT_EQ(Panel->Height(), 24 + comboH + 1 + labelH + 1 + 1);
}

TEST_F(NavigatorWizard, IncompleteLastRowAndVerticalColumns) {
    struct TCase {
        bool Vertical;
        int Rows; // after the orientation's default
        std::vector<TBounds> Buttons;
        int PanelW, PanelH;
    };
    const std::vector<TCase> cases = {
        {false, 2, {{1, 1, 23, 22}, {24, 1, 23, 22}, {47, 1, 23, 22}, {1, 23, 23, 22}, {24, 23, 23, 22}}, 71, 46},
        {true, 3, {{1, 1, 23, 22}, {1, 23, 23, 22}, {1, 45, 23, 22}, {24, 1, 23, 22}, {24, 23, 23, 22}}, 48, 68},
        {true, 5, {{1, 1, 23, 22}, {1, 23, 23, 22}, {1, 45, 23, 22}, {1, 67, 23, 22}, {1, 89, 23, 22}}, 25, 112},
    };
    for (const TCase& c : cases) {
        for (int i = Panel->ControlCount() - 1; i >= 0; --i)
            Panel->Controls(i)->Free();
        Run([&](TFormDriver& d) {
            AddTimes(d, "Navigate\\Previous", 5);
            d.Click("btnNext");
            d.Select("rgGlyphOrient", c.Vertical ? 1 : 0);
            d.Click("btnNext");
            if (c.Vertical)
                d.SetValue("speBtnCols", c.Rows == 3 ? 2 : 1);
            else
                d.SetValue("speBtnRows", c.Rows);
            Finish(d);
        });
        ASSERT_EQ(Panel->ControlCount(), 5);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(BoundsOf(Panel->Controls(i)), c.Buttons[i]) << c.Vertical << c.Rows << " button " << i;
        EXPECT_EQ(Panel->Width(), c.PanelW) << c.Vertical << c.Rows;
        EXPECT_EQ(Panel->Height(), c.PanelH) << c.Vertical << c.Rows;
        if (c.Vertical) {
            EXPECT_TRUE(SamePixels(*Child<jex::TjexnpPrev>(0)->Glyph(), *Resource(Package.Module(), "JEXNP_VPREV2")));
        }
    }
}

TEST_F(NavigatorWizard, VerticalOthersFlowInColumnsBesideTheButtons) {
    auto* edit = new jex::TjexnpRangeEdit(Form);
    edit->SetName("jexnpRangeEdit1");
    edit->SetParent(Panel);
    edit->SetBounds(0, 0, 40, 30);
    auto* label = new jex::TjexnpRecordCount(Form);
    label->SetName("jexnpRecordCount1");
    label->SetParent(Panel);
    label->SetBounds(0, 0, 20, 20);
    const int editW = edit->Width(), editH = edit->Height(), labelW = label->Width(), labelH = label->Height();
    Run([&](TFormDriver& d) {
        AddTimes(d, "Navigate\\First", 2);
        d.Click("btnNext");
        d.Select("rgGlyphOrient", 1);
        d.Click("btnNext");
        d.SetValue("spePanelMarginH", 2);
        Finish(d);
    });
    // Two buttons in one column of height 2 x 22 + 2; the edit fits, the label wraps into a new column.
    EXPECT_EQ(BoundsOf(Panel->Controls(2)), (TBounds{2, 1, 23, 22}));
    EXPECT_EQ(BoundsOf(Panel->Controls(3)), (TBounds{2, 23, 23, 22}));
    const int x = 2 + 23 + 1;
    EXPECT_EQ(BoundsOf(edit), (TBounds{x, 2, editW, editH}));
    ASSERT_GT(2 + editH + 2 + 1 + labelH + 1, 46);
    EXPECT_EQ(BoundsOf(label), (TBounds{x + editW + 1, 2, labelW, labelH}));
    EXPECT_EQ(Panel->Height(), 46);
    EXPECT_EQ(Panel->Width(), x + editW + 1 + labelW + 2 + 1);
}

// ---- Custom glyphs -----------------------------------------------------------------------------------------

TEST_F(NavigatorWizard, CustomGlyphEntriesOfTheIniFile) {
    WriteBmp("h.bmp", 30, 10, 1);
    WriteBmp("v.bmp", 10, 30, 2);
    WriteIni("[NavPanel Custom Buttons]\nPath=" + Dir +
             "\nCustom=h.bmp\nCustomNumGlyphs=3\nCustomVertNumGlyphs=5\n"
             "Toggle=h.bmp\nToggleVert=v.bmp\nGone=missing.bmp\n");
    struct TCase {
        const char* Name;
        bool Vert;
        bool Found;
        const char* File;
        int NumGlyphs;
    };
    auto* dialog = NewForm<TjexdfNavPanelEdit>(nullptr);
    for (const TCase& c : {TCase{"Custom", false, true, "h.bmp", 3}, TCase{"Custom", true, true, "h.bmp", 3},
                           TCase{"Toggle", true, true, "v.bmp", 2}, TCase{"Toggle", false, true, "h.bmp", 2},
                           TCase{"Gone", false, false, "", 99}, TCase{"Nothing", true, false, "", 99}}) {
        std::string file = "stale";
        int count = 99;
        EXPECT_EQ(dialog->GetINIFileBtnInfo(c.Name, c.Vert, file, count), c.Found) << c.Name << c.Vert;
        EXPECT_EQ(file, c.Found ? Dir + "/" + c.File : std::string()) << c.Name << c.Vert;
        EXPECT_EQ(count, c.NumGlyphs) << c.Name << c.Vert;
    }
    dialog->Free();

    // The backslash goes in even when Path ends in a delimiter; an empty Path puts the file at the root.
    WriteIni("[NavPanel Custom Buttons]\nPath=" + Dir + "/\nCustom=h.bmp\n");
    dialog = NewForm<TjexdfNavPanelEdit>(nullptr);
    std::string file;
    int count = 0;
    EXPECT_TRUE(dialog->GetINIFileBtnInfo("Custom", false, file, count));
    EXPECT_EQ(file, Dir + "//h.bmp");
    EXPECT_EQ(count, 2);
    dialog->Free();
    WriteIni("[NavPanel Custom Buttons]\nCustom=h.bmp\n");
    dialog = NewForm<TjexdfNavPanelEdit>(nullptr);
    EXPECT_FALSE(dialog->GetINIFileBtnInfo("Custom", false, file, count));
    dialog->Free();
}

TEST_F(NavigatorWizard, CustomGlyphsReachTheCreatedButtonsAndThePreview) {
    const std::string first = WriteBmp("first.bmp", 36, 18, 3);
    const std::string custom = WriteBmp("custom.bmp", 48, 16, 4);
    const std::string nextV = WriteBmp("nextv.bmp", 16, 32, 5);
    WriteIni("[NavPanel Custom Buttons]\nPath=" + Dir +
             "\nnpFirst=first.bmp\njexnpFirst=unused.bmp\nCustom=custom.bmp\nCustomNumGlyphs=3\n"
             "jexnpNextVert=nextv.bmp\njexnpNextNumGlyphs=1\njexnpNextVertNumGlyphs=4\n");
    Run([&](TFormDriver& d) {
        Pick(d, {"Other\\Custom Button", "Navigate\\Next", "Navigate\\Last"});
        d.Click("btnNext");
        auto* sample = d.Get<jex::TjexPicSpeedBtn>("btnGlyphSample");
        d.Select("rgGlyphStyles", 6);
        EXPECT_TRUE(SamePixels(*sample->Glyph(), *FileBitmap(first)));
        d.Select("rgGlyphStyles", 7);
        EXPECT_TRUE(sample->Picture()->Graphic() == nullptr || sample->Picture()->Graphic()->Empty());
        d.Select("rgGlyphStyles", 6);
        // Without a vertical entry the preview keeps to the horizontal file.
        d.Select("rgGlyphOrient", 1);
        EXPECT_TRUE(SamePixels(*sample->Glyph(), *FileBitmap(first)));
        d.Check("chkHints", false);
        Finish(d);
    });
    auto* customBtn = Child<jex::TjexPicSpeedBtn>(0);
    auto* next = Child<jex::TjexnpNext>(1);
    auto* last = Child<jex::TjexnpLast>(2);
    ASSERT_TRUE(customBtn && next && last);
    EXPECT_EQ(customBtn->Name(), "jexPicSpeedBtn1");
    EXPECT_TRUE(SamePixels(*customBtn->Glyph(), *FileBitmap(custom)));
    EXPECT_EQ(customBtn->NumGlyphs(), 3);
    // The vertical file, with the count of the unsuffixed key.
    EXPECT_TRUE(SamePixels(*next->Glyph(), *FileBitmap(nextV)));
    EXPECT_EQ(next->NumGlyphs(), 1);
    // No entry: the glyph stays as created (none).
    EXPECT_EQ(last->Glyph()->Width(), 0);
    EXPECT_FALSE(Panel->ShowHint());
}

TEST_F(NavigatorWizard, GlyphCountOutsideOneToFiveIsARangeError) {
    WriteBmp("c.bmp", 20, 10, 6);
    WriteIni("[NavPanel Custom Buttons]\nPath=" + Dir + "\nnpFirst=c.bmp\nnpFirstNumGlyphs=0\n");
    // In the preview, at once.
    Run([&](TFormDriver& d) {
        d.Click("btnNext");
        auto* sample = d.Get<jex::TjexPicSpeedBtn>("btnGlyphSample");
        TBitmap before;
        before.Assign(sample->Glyph());
        EXPECT_THROW(d.Select("rgGlyphStyles", 6), rtl::ERangeError);
        EXPECT_TRUE(SamePixels(*sample->Glyph(), before));
        d.Click("btnCancel");
    });
    // On the created buttons, aborting the run; the created component stays with the form.
    WriteIni("[NavPanel Custom Buttons]\nPath=" + Dir + "\nCustom=c.bmp\nCustomNumGlyphs=6\n");
    EXPECT_THROW(Run([&](TFormDriver& d) {
                     Pick(d, {"Other\\Custom Button"});
                     d.Click("btnNext");
                     d.Select("rgGlyphStyles", 5);
                     d.Select("rgGlyphStyles", 6);
                     Finish(d);
                 }),
                 rtl::ERangeError);
    ASSERT_EQ(Panel->ControlCount(), 1);
    EXPECT_EQ(Child<jex::TjexPicSpeedBtn>(0)->Glyph()->Width(), 0);
}

// ---- Toolbars ------------------------------------------------------------------------------------------------

TEST_F(NavigatorWizard, OnAToolbarTheGridGroupsAreDisabledAndCreationIsBracketed) {
    auto* toolbar = new TjexTestNavToolbar(Form);
    toolbar->SetName("jexNavToolbar1");
    toolbar->SetParent(Form);
    toolbar->UpdateCounts.clear();
    EXPECT_TRUE(Run(
        [&](TFormDriver& d) {
            d.Select("outButtons", "Navigate\\Next");
            for (int i = 0; i < 4; ++i)
                d.Click("btnAdd");
            ToSizePage(d);
            for (const char* name : {"spePanelMarginH", "spePanelMarginV", "lblPanelMarginH", "lblPanelMarginV",
                                     "speBtnOffsetH", "speBtnOffsetV", "speBtnRows", "speBtnCols"})
                EXPECT_FALSE(d.Control(name)->Enabled()) << name;
            EXPECT_TRUE(d.Control("grpBtnAlign")->Enabled());
            EXPECT_THROW(d.SetValue("speBtnRows", 2), EScriptedUIError);
            Finish(d);
        },
        toolbar));
    ASSERT_EQ(toolbar->ControlCount(), 4);
    EXPECT_EQ(toolbar->UpdateCount(), 0);
    ASSERT_FALSE(toolbar->UpdateCounts.empty());
    EXPECT_EQ(toolbar->UpdateCounts.front(), 1);
    // The wizard's size reaches the buttons; where they sit is the toolbar's own arrangement at EndUpdate.
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(toolbar->Controls(i)->Width(), 23);
        EXPECT_EQ(toolbar->Controls(i)->Height(), 22);
        if (i > 0) {
            EXPECT_EQ(toolbar->Controls(i)->Left(), toolbar->Controls(i - 1)->Left() + 23);
        }
    }
}
