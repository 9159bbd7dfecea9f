// The navigator button catalogue: every column of every kind, the answers outside the range, the list
// groups, translations taking effect at once, and the glyph bitmaps the lookups name.
#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>

#include "catalogue_testutil.h"
#include "dcljexc/jexdsncn.h"
#include "jex/jexbuttons.h"
#include "jex/jexnav.h"
#include "rtl/classes.h"
#include "vcl/graphics.h"

using namespace dcljexc;

// The registration unit that makes the navigator button classes streamable by name.
namespace dcljexc::Jexreg_b {
void Start();
void Stop();
} // namespace dcljexc::Jexreg_b

namespace {

// The catalogue as the designers know it; null: the lookup answers with its placeholder (texts) or with
// an empty name (bitmaps).
struct TKindRow {
    const char* ListName;
    const char* ClassName;
    const char* Bitmap;
    const char* VertBitmap;
    const char* Caption;
    const char* Hint;
    const char* HintDown;
};

const TKindRow Kinds[jexNavBtnKindCount] = {
    {"First", "TjexnpFirst", "FIRST", "VFIRST", "First", "First|Move to the first record", nullptr},
    {"Jump Back", "TjexnpJumpBack", "JUMPB", "VJUMPB", "Back",
     "Jump Back|Move back 10 records (hold down to repeat)", nullptr},
    {"Previous", "TjexnpPrev", "PREV", "VPREV", "Prev",
     "Previous|Move back to previous record (hold down to accelerate)", nullptr},
    {"Next", "TjexnpNext", "NEXT", "VNEXT", "Next",
     "Next|Move forward to next record (hold down to accelerate)", nullptr},
    {"Jump Forward", "TjexnpJumpFwd", "JUMPF", "VJUMPF", "Forward",
     "Jump Forward|Move forward 10 records (hold down to repeat)", nullptr},
    {"Last", "TjexnpLast", "LAST", "VLAST", "Last", "Last|Move to last record", nullptr},
    {"Insert", "TjexnpInsert", "INSERT", "INSERT", "Insert",
     "Insert New Record|Add a new record at the current position in the records", nullptr},
    {"Append", "TjexnpAppend", "APPEND", "VAPPEND", "Append",
     "Append New Record|Add a new record after the last record", nullptr},
    {"Duplicate Record", "TjexnpDuplicateRec", "DUPREC", "DUPREC", "Duplicate",
     "Duplicate Record|Copy the current record to a new record and edit the new record", nullptr},
    {"Edit", "TjexnpEdit", "EDIT", "EDIT", "Edit", "Edit|Edit the current record", nullptr},
    {"Edit/View DataSource", "TjexnpDataSourceEdit", "DSEDIT", "DSEDIT", "Edit...",
     "Edit %datasource%|Display a form to view or edit %datasource% records", nullptr},
    {"Edit Memo/Picture", "TjexnpBlobEdit", "EDACT", "EDACT", "Edit Memo/Graphic",
     "Edit Memo/Graphic|Edit the current (Memo), (Graphic) or (Blob) field", nullptr},
    {"Find/Replace Text", "TjexnpFindReplace", "FINDREP", "FINDREP", "Find/Replace",
     "Find/Replace|Find or replace values in the current record or all records", nullptr},
    {"Delete", "TjexnpDelete", "DELETE", "DELETE", "Delete", "Delete|Delete the current record", nullptr},
    {"Cancel", "TjexnpCancel", "CANCEL", "CANCEL", "Cancel",
     "Cancel Changes|Cancel new or changed record updates without saving changes", nullptr},
    {"Post", "TjexnpPost", "POST", "POST", "Post", "Save Changes|Save new or changed records to the database",
     nullptr},
    {"Refresh", "TjexnpRefresh", "REFRESH", "REFRESH", "Refresh",
     "Refresh Records|Refresh the screen display from the database", nullptr},
    {"Empty Table", "TjexnpEmptyTable", "EMPTY", "EMPTY", "Empty",
     "Empty Table|Delete all records from the table", nullptr},
    {"Single Bookmark", "TjexnpBookmark", "BMK", "BMK", "Bookmark",
     "Set Bookmark|Mark this record position with a bookmark",
     "Go To Bookmark|Return to the last bookmarked record"},
    {"Multiple Bookmark", "TjexnpBookmarkMenu", "BMKS", "BMKS", "Bookmarks",
     "Bookmark Menu|Show bookmark popup menu", nullptr},
    {"Find Key", "TjexnpFindKey", "FIND", "FIND", "Find Key",
     "Find Key Value|Search for a record using key field values", nullptr},
    {"Index ComboBox", "TjexnpIndexCombo", nullptr, nullptr, nullptr,
     "Sort by Index|Sort the records by a new index", nullptr},
    {"Range Filter", "TjexnpRange", "RANGE", "RANGE", "Range",
     "Set/Clear Range Filter|Restrict the range of records by first and last key values", nullptr},
    {"Range Edit Box", "TjexnpRangeEdit", nullptr, nullptr, nullptr,
     "Filter range|Type a range expression for the key field, e.g. 1-100 or a-c", nullptr},
    {"Filter Active Control", "TjexnpFilterActive", "FILTACT", "FILTACT", "Filter Active",
     "Add Filter on Current Field Value|Show only records with the same value as the active field",
     "Remove Filter|Remove the filter on the active field value"},
    {"Filter Expression", "TjexnpFilterExpression", "FILTER", "FILTER", "Filter Expression",
     "Apply Filter|Apply a filter expression to the records (or right click to edit the filter expression)",
     "Remove Filter|Turn off this filter"},
    {"Start Transaction", "TjexnpSQLStartTrans", "STARTT", "STARTT", "Start Trans",
     "Start Transaction|Start a transaction on the database so you can edit many records before committing "
     "or "
     "rolling back changes",
     nullptr},
    {"Commit", "TjexnpSQLCommit", "COMMIT", "COMMIT", "Commit",
     "Commit Transaction|Commit the current transaction on the database (makes all changes since the start "
     "permanent)",
     nullptr},
    {"Rollback", "TjexnpSQLRollback", "ROLLBK", "ROLLBK", "Rollback",
     "Rollback Transaction|Undo the current transaction on the database (all changes since the start will be "
     "lost)",
     nullptr},
    {"Edit Query Params", "TjexnpQueryParams", "QRYPARM", "QRYPARM", "Query Params",
     "Edit Query Params|Edit the parameter values used in the query", nullptr},
    {"Show DB Info", "TjexnpDBInfo", "DBINFO", "DBINFO", "DB Info",
     "Show Database Info|Show debugging information about the current datasource", nullptr},
    {"DB State Label", "TjexnpState", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"DB RecordCount Label", "TjexnpRecordCount", nullptr, nullptr, nullptr, nullptr, nullptr},
    {"Custom Button", "TjexPicSpeedBtn", nullptr, nullptr, "Custom", "Custom Button|This is a custom button",
     nullptr},
    {"Custom Up/Down Button", "TjexToggleBtn", nullptr, nullptr, "Up/Down",
     "Activate Button|Click to activate button", "Deactivate Button|Click to deactivate button"},
};

constexpr const char* NoCaption = "{no Caption}";
constexpr const char* NoHint = "{no Hint}";
constexpr const char* NoHintDown = "{no Hint Down}";

// The navigator button classes streamable by name, as the package's start leaves them, plus the two
// custom button classes, which the palette registration makes streamable.
class NavigatorCatalogue : public ::testing::Test {
protected:
    void SetUp() override {
        dcljexc::Jexreg_b::Start();
        rtl::RegisterClasses({jex::TjexPicSpeedBtn::StaticClass(), jex::TjexToggleBtn::StaticClass()});
    }
    void TearDown() override {
        rtl::UnRegisterClasses({jex::TjexPicSpeedBtn::StaticClass(), jex::TjexToggleBtn::StaticClass()});
        dcljexc::Jexreg_b::Stop();
    }
};

} // namespace

TEST_F(NavigatorCatalogue, EveryKindAnswersItsRowInEveryColumn) {
    for (int kind = 0; kind < jexNavBtnKindCount; ++kind) {
        const TKindRow& r = Kinds[kind];
        SCOPED_TRACE(kind);
        EXPECT_EQ(JEXDesignNavBtnListName(kind), r.ListName);
        EXPECT_STREQ(JEXDesignNavClassNames[kind], r.ClassName);
        const rtl::TClass cls = JEXDesignNavComponentClass(kind);
        ASSERT_NE(cls, nullptr);
        EXPECT_EQ(cls->ClassName(), r.ClassName);
        EXPECT_EQ(JEXDesignNavBmpResName(kind), r.Bitmap ? r.Bitmap : "");
        EXPECT_EQ(JEXDesignNavVertBmpResName(kind), r.VertBitmap ? r.VertBitmap : "");
        EXPECT_EQ(JEXDesignNavComponentCaption(kind), r.Caption ? r.Caption : NoCaption);
        EXPECT_EQ(JEXDesignNavComponentHint(kind), r.Hint ? r.Hint : NoHint);
        EXPECT_EQ(JEXDesignNavComponentHintDown(kind), r.HintDown ? r.HintDown : NoHintDown);
    }
}

TEST_F(NavigatorCatalogue, KindsOutsideTheRangeGetTheDocumentedAnswers) {
    for (int kind : {-1, jexNavBtnKindCount, jexNavBtnKindCount + 1, 1000, INT_MIN, INT_MAX}) {
        SCOPED_TRACE(kind);
        EXPECT_EQ(JEXDesignNavBtnListName(kind), "First") << "the list name of kind 0";
        EXPECT_EQ(JEXDesignNavComponentClass(kind), nullptr);
        EXPECT_EQ(JEXDesignNavBmpResName(kind), "");
        EXPECT_EQ(JEXDesignNavVertBmpResName(kind), "");
        EXPECT_EQ(JEXDesignNavComponentCaption(kind), NoCaption);
        EXPECT_EQ(JEXDesignNavComponentHint(kind), NoHint);
        EXPECT_EQ(JEXDesignNavComponentHintDown(kind), NoHintDown);
    }
}

TEST_F(NavigatorCatalogue, TheKindsByNature) {
    // Insert keeps its horizontal glyph on vertical panels, Append has a turned one of its own.
    EXPECT_EQ(JEXDesignNavVertBmpResName(6), "INSERT");
    EXPECT_EQ(JEXDesignNavVertBmpResName(7), "VAPPEND");
    // The index combo and the range edit have hints, but neither caption nor glyph; the labels have none.
    for (int kind : {21, 23}) {
        EXPECT_NE(JEXDesignNavComponentHint(kind), NoHint) << kind;
        EXPECT_EQ(JEXDesignNavComponentCaption(kind), NoCaption) << kind;
        EXPECT_EQ(JEXDesignNavBmpResName(kind), "") << kind;
    }
    for (int kind : {31, 32}) {
        EXPECT_EQ(JEXDesignNavComponentHint(kind), NoHint) << kind;
        EXPECT_EQ(JEXDesignNavComponentCaption(kind), NoCaption) << kind;
    }
    // The run-time button fills in the data source; the catalogue keeps both markers as they are.
    const std::string hint = JEXDesignNavComponentHint(10);
    const size_t first = hint.find("%datasource%");
    ASSERT_NE(first, std::string::npos);
    EXPECT_NE(hint.find("%datasource%", first + 1), std::string::npos);
    // The two-state kinds are exactly those with a hint of the pressed state; a hint is short|long.
    std::set<int> twoState;
    for (int kind = 0; kind < jexNavBtnKindCount; ++kind) {
        if (JEXDesignNavComponentHintDown(kind) != NoHintDown) twoState.insert(kind);
        if (kind != 31 && kind != 32) EXPECT_NE(JEXDesignNavComponentHint(kind).find('|'), std::string::npos);
    }
    EXPECT_EQ(twoState, (std::set<int>{18, 24, 25, 34}));
}

TEST_F(NavigatorCatalogue, AClassNotRegisteredByNameIsNotFound) {
    rtl::UnRegisterClasses({jex::TjexPicSpeedBtn::StaticClass()});
    EXPECT_EQ(JEXDesignNavComponentClass(33), nullptr);
    EXPECT_EQ(JEXDesignNavComponentClass(34), jex::TjexToggleBtn::StaticClass());
    dcljexc::Jexreg_b::Stop();
    EXPECT_EQ(JEXDesignNavComponentClass(0), nullptr) << "the navigator classes are withdrawn at the stop";
    EXPECT_EQ(JEXDesignNavComponentClass(3), nullptr);
    dcljexc::Jexreg_b::Start();
    EXPECT_EQ(JEXDesignNavComponentClass(3), jex::TjexnpNext::StaticClass());
    // The class name table does not depend on registration.
    EXPECT_STREQ(JEXDesignNavClassNames[33], "TjexPicSpeedBtn");
}

TEST(NavigatorCatalogueGroups, SixGroupTextsAndTheKindsEachStartsWith) {
    // The strings are the package's own (hidden from other modules); they are found by their names in its
    // resource table, as a translator finds them.
    cattest::TPackageModuleScope package;
    const auto text = [&](const std::string& name) {
        return rtl::FindResourceString(package.Module(), name).value_or("<missing " + name + ">");
    };
    const char* texts[6] = {"Navigate",
                            "Edit Records",
                            "Mark & Locate Records",
                            "Sort & Filter Records",
                            "SQL Server Transactions",
                            "Other"};
    const int firsts[6] = {0, 6, 18, 21, 26, 29};
    for (int i = 0; i < 6; ++i) {
        EXPECT_EQ(text("_sjexnpdsgnListGroup" + std::to_string(i + 1)), texts[i]);
        EXPECT_EQ(jexNavGroupFirstKind[i], firsts[i]);
    }
    EXPECT_EQ(text("_sjexnpHintUpDown"), "{Requires Up + Down Hints}");
    EXPECT_EQ(text("_sjexnpCapNone"), NoCaption);
    EXPECT_EQ(text("_sjexnpHintNone"), NoHint);
    EXPECT_EQ(text("_sjexnpHintDownNone"), NoHintDown);
}

TEST(NavigatorCatalogueTranslation, ATranslationBesideThePackageTakesEffectOnTheNextCall) {
    cattest::TPackageModuleScope package;
    EXPECT_EQ(JEXDesignNavComponentCaption(3), "Next");
    {
        cattest::TPackageTranslation translation(package.Module());
        translation.Set("_sjexnpCapNext", "Weiter");
        translation.Set("_sjexnpdsgnListFirst", "Erster");
        translation.Set("_sjexnpHintDownNone", "{kein Hinweis}");
        EXPECT_EQ(JEXDesignNavComponentCaption(3), "Weiter");
        EXPECT_EQ(JEXDesignNavBtnListName(0), "Erster");
        EXPECT_EQ(JEXDesignNavBtnListName(-1), "Erster") << "out of range follows kind 0";
        EXPECT_EQ(JEXDesignNavComponentHintDown(3), "{kein Hinweis}");
        EXPECT_EQ(JEXDesignNavComponentCaption(2), "Prev") << "untranslated strings keep their text";
        translation.Set("_sjexnpCapNext", "Vor");
        EXPECT_EQ(JEXDesignNavComponentCaption(3), "Vor") << "a changed catalogue is read again";
    }
    EXPECT_EQ(JEXDesignNavComponentCaption(3), "Next");
    EXPECT_EQ(JEXDesignNavBtnListName(-1), "First");
}

// ---- Glyphs ----------------------------------------------------------------------------------------------
namespace {

// Colours of the classic palette the glyphs are drawn in, as $00BBGGRR.
constexpr uint32_t Black = 0x000000, Gray = 0x808080, Silver = 0xC0C0C0, White = 0xFFFFFF;

// The pixels of image Index (0 or 1) of a bitmap holding Count images side by side, other than the
// transparent colour.
std::vector<std::pair<int, int>> Drawn(const vcl::TBitmap& bmp, int Index, int Count) {
    const int w = bmp.Width() / Count;
    const uint32_t transparent = bmp.PixelRGB(0, bmp.Height() - 1);
    std::vector<std::pair<int, int>> out;
    for (int y = 0; y < bmp.Height(); ++y)
        for (int x = 0; x < w; ++x)
            if (bmp.PixelRGB(Index * w + x, y) != transparent) out.emplace_back(x, y);
    return out;
}

std::set<uint32_t> Colours(const vcl::TBitmap& bmp, int Index, int Count) {
    std::set<uint32_t> out;
    const int w = bmp.Width() / Count;
    for (auto [x, y] : Drawn(bmp, Index, Count))
        out.insert(bmp.PixelRGB(Index * w + x, y));
    return out;
}

bool LoadGlyph(rtl::TResourceModule& Module, const std::string& Name, vcl::TBitmap& Bitmap) {
    const std::vector<uint8_t>* bytes = rtl::FindBitmapResource(Module, Name);
    if (!bytes) return false;
    Bitmap.LoadFromBytes(*bytes);
    return true;
}

// Every base name the two lookups can answer, each once.
std::set<std::string> BaseNames() {
    std::set<std::string> names;
    for (int kind = 0; kind < jexNavBtnKindCount; ++kind)
        for (const std::string& name : {JEXDesignNavBmpResName(kind), JEXDesignNavVertBmpResName(kind)})
            if (!name.empty()) names.insert(name);
    return names;
}

} // namespace

TEST(NavigatorGlyphs, EveryNamedGlyphHasSixSetsOfTwo16ColourImages) {
    cattest::TPackageModuleScope package;
    const std::set<std::string> names = BaseNames();
    EXPECT_EQ(names.size(), 36u) << "29 horizontal and 7 vertical base names";
    for (const std::string& name : names) {
        for (int set = 0; set < 6; ++set) {
            const std::string resource = "JEXNP_" + name + std::to_string(set);
            SCOPED_TRACE(resource);
            vcl::TBitmap bmp;
            ASSERT_TRUE(LoadGlyph(package.Module(), resource, bmp));
            EXPECT_EQ(bmp.PixelFormat(), vcl::pf4bit);
            // Large sets hold two 18 x 18 images, medium ones two 14 x 13, small ones two 14 x 13 or, for
            // the plain arrows, two 9 x 9.
            if (set < 2) {
                EXPECT_EQ(bmp.Width(), 36);
                EXPECT_EQ(bmp.Height(), 18);
            } else if (set < 4 || bmp.Height() != 9) {
                EXPECT_EQ(bmp.Width(), 28);
                EXPECT_EQ(bmp.Height(), 13);
            } else {
                EXPECT_EQ(bmp.Width(), 18);
            }
            EXPECT_EQ(vcl::ColorToRGB(bmp.TransparentColor()), bmp.PixelRGB(0, bmp.Height() - 1));
            const auto enabled = Drawn(bmp, 0, 2), disabled = Drawn(bmp, 1, 2);
            EXPECT_GE(enabled.size(), 8u) << "a picture, not a speck";
            EXPECT_GE(disabled.size(), 8u);
            EXPECT_NE(enabled, disabled) << "the disabled image looks different";
            // The disabled image is grey, embossed with white.
            for (uint32_t c : Colours(bmp, 1, 2))
                EXPECT_TRUE(c == Gray || c == White) << std::hex << c;
            // Odd sets are black (on white where a body is light), even sets coloured.
            const std::set<uint32_t> colours = Colours(bmp, 0, 2);
            bool coloured = false;
            for (uint32_t c : colours) {
                if (set % 2) EXPECT_TRUE(c == Black || c == White) << std::hex << c;
                coloured = coloured || (c != Black && c != White && c != Gray && c != Silver);
            }
            EXPECT_EQ(coloured, set % 2 == 0);
        }
        EXPECT_EQ(rtl::FindBitmapResource(package.Module(), "JEXNP_" + name + "6"), nullptr);
    }
    // The wizard's glyph preview starts on this one.
    EXPECT_NE(rtl::FindBitmapResource(package.Module(), "JEXNP_FIRST2"), nullptr);
}

TEST(NavigatorGlyphs, ArrowsPointTheirWayAndVerticalOnesAreTurned) {
    cattest::TPackageModuleScope package;
    // A head's tip is one pixel across, its base the widest part: compare the extreme columns (rows).
    struct TArrow {
        const char* Name;
        bool Vertical;
        bool TipFirst; // the tip at the left (top)
    };
    for (const TArrow& a : {TArrow{"PREV", false, true}, TArrow{"NEXT", false, false},
                            TArrow{"VPREV", true, true}, TArrow{"VNEXT", true, false}}) {
        for (int set = 0; set < 6; ++set) {
            SCOPED_TRACE(std::string(a.Name) + std::to_string(set));
            vcl::TBitmap bmp;
            ASSERT_TRUE(
                LoadGlyph(package.Module(), "JEXNP_" + std::string(a.Name) + std::to_string(set), bmp));
            std::map<int, int> across; // column (row) -> pixels drawn in it
            for (auto [x, y] : Drawn(bmp, 0, 2))
                ++across[a.Vertical ? y : x];
            ASSERT_FALSE(across.empty());
            const int low = across.begin()->second, high = across.rbegin()->second;
            EXPECT_LT(a.TipFirst ? low : high, a.TipFirst ? high : low);
        }
    }
    // Square images turn exactly: the vertical glyph is the horizontal one mirrored on the diagonal.
    for (const char* name : {"FIRST", "JUMPB", "PREV", "NEXT", "JUMPF", "LAST", "APPEND"}) {
        for (int set : {0, 1, 4, 5}) {
            vcl::TBitmap h, v;
            ASSERT_TRUE(LoadGlyph(package.Module(), "JEXNP_" + std::string(name) + std::to_string(set), h));
            ASSERT_TRUE(LoadGlyph(package.Module(), "JEXNP_V" + std::string(name) + std::to_string(set), v));
            const int size = h.Height();
            if (h.Width() != 2 * size) continue; // the small Append is not square
            ASSERT_EQ(v.Width(), h.Width());
            int differing = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x)
                    differing += h.PixelRGB(x, y) != v.PixelRGB(y, x);
            EXPECT_EQ(differing, 0) << name << set;
        }
    }
}

TEST(NavigatorGlyphs, TheWizardHasItsCreateAndNextGlyphs) {
    cattest::TPackageModuleScope package;
    struct TWizardGlyph {
        const char* Name;
        int Images;
    };
    for (const TWizardGlyph& g : {TWizardGlyph{"JEXNPDSGN_CREATE", 1}, TWizardGlyph{"JEXNPDSGN_NEXT", 2}}) {
        SCOPED_TRACE(g.Name);
        vcl::TBitmap bmp;
        ASSERT_TRUE(LoadGlyph(package.Module(), g.Name, bmp));
        EXPECT_EQ(bmp.PixelFormat(), vcl::pf4bit);
        EXPECT_EQ(bmp.Width(), 18 * g.Images);
        EXPECT_EQ(bmp.Height(), 18);
        for (int i = 0; i < g.Images; ++i)
            EXPECT_GE(Drawn(bmp, i, g.Images).size(), 20u);
    }
}
