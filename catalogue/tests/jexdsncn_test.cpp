// The component catalogue: the lookup rules, the unit's start and stop, the table's identifiers and
// texts, and translation of the descriptions.
#include <gtest/gtest.h>

#include <set>

#include "catalogue_testutil.h"
#include "dcljexc/jexdsncn.h"

using namespace dcljexc;

namespace {

class Jexdsncn : public ::testing::Test {
protected:
    void SetUp() override { dcljexc::Jexdsncn::Start(); }
    void TearDown() override { dcljexc::Jexdsncn::Stop(); }
};

constexpr const char* DockDescription =
    "is a container or drop area for toolbars, menu bars and toolwindows.";

} // namespace

TEST_F(Jexdsncn, LooksUpByExactNameAndPutsTheClassNameBeforeAnIsFragment) {
    EXPECT_EQ(jexIDEComponentDescription("TjexDock"), std::string("TjexDock ") + DockDescription);
    EXPECT_EQ(
        jexIDEComponentDescription("TjexMessageDlg"),
        "shows a modal dialog for custom messages. It is similar to MessageDlg function, with extra message, "
        "icon, checkbox and button formatting.");
    EXPECT_EQ(jexIDEComponentDescription("TjexProgressDlg"),
              "shows a modal message dialog and progress bar with timer counting up or down.");
    // The last entry is found like any other.
    EXPECT_EQ(
        jexIDEComponentDescription("TjexMailToLabel"),
        "TjexMailToLabel is a highighting mouse label that creates an email (with address, subject and body "
        "text); then loads it into the default email application.");
    // Catalogue-only classes (registered on the palette by other packages) have hints all the same.
    EXPECT_EQ(jexIDEComponentDescription("TjexADOAdapterReg").rfind("TjexADOAdapterReg is ", 0), 0u);
}

TEST_F(Jexdsncn, UnknownEmptyOrDifferentlyCasedNamesGiveNothing) {
    for (const char* name :
         {"tjexdock", "TJEXDOCK", "TjexDock ", " TjexDock", "jexDock", "", "TButton", "Tjex", "TjexDockX"})
        EXPECT_EQ(jexIDEComponentDescription(name), "") << '"' << name << '"';
}

TEST_F(Jexdsncn, OnlyTheTwoDialogDescriptionsStandWithoutIs) {
    std::vector<std::string> withoutIs;
    const auto& names = jexCatalogueClassNames();
    const auto& descriptions = jexCatalogueDescriptions();
    ASSERT_EQ(names.size(), static_cast<size_t>(jexCatalogueCount));
    ASSERT_EQ(descriptions.size(), static_cast<size_t>(jexCatalogueCount));
    for (int i = 0; i < jexCatalogueCount; ++i) {
        const bool is = descriptions[i].rfind("is ", 0) == 0;
        if (!is) withoutIs.push_back(names[i]);
        EXPECT_EQ(jexIDEComponentDescription(names[i]),
                  is ? names[i] + " " + descriptions[i] : descriptions[i]);
    }
    EXPECT_EQ(withoutIs, (std::vector<std::string>{"TjexMessageDlg", "TjexProgressDlg"}));
}

TEST_F(Jexdsncn, TablesLiveFromStartToStopAndTheGuardCountsPasses) {
    dcljexc::Jexdsncn::Start(); // a second walk of the start table
    dcljexc::Jexdsncn::Stop();
    EXPECT_EQ(jexCatalogueClassNames().size(), static_cast<size_t>(jexCatalogueCount))
        << "still started once";
    dcljexc::Jexdsncn::Stop();
    EXPECT_TRUE(jexCatalogueClassNames().empty());
    EXPECT_TRUE(jexCatalogueDescriptions().empty());
    EXPECT_EQ(jexIDEComponentDescription("TjexDock"), "") << "nothing is found while the unit is stopped";
    dcljexc::Jexdsncn::Start();
    EXPECT_EQ(jexIDEComponentDescription("TjexDock"), std::string("TjexDock ") + DockDescription);
}

TEST_F(Jexdsncn, EveryEntryHasANameAndADescriptionOfAtMost256Characters) {
    std::set<std::string> names;
    for (int i = 0; i < jexCatalogueCount; ++i) {
        const std::string name = jexCatalogueClassNames()[i];
        const std::string description = jexCatalogueDescriptions()[i];
        EXPECT_EQ(name.rfind("Tjex", 0), 0u) << i;
        EXPECT_TRUE(names.insert(name).second) << "duplicate " << name;
        EXPECT_FALSE(description.empty()) << name;
        EXPECT_LE(description.size(), 256u) << name;
        EXPECT_EQ(description.find('\n'), std::string::npos) << name << ": one paragraph";
        EXPECT_EQ(name, jexCatalogueClassNameString(i).Text());
    }
    EXPECT_THROW(jexCatalogueClassNameString(-1), rtl::EListError);
    EXPECT_THROW(jexCatalogueDescriptionString(jexCatalogueCount), rtl::EListError);
}

TEST_F(Jexdsncn, IdentifiersLieInTheirRangesAndOnlyTheLookupListsShareOne) {
    std::map<int, std::vector<int>> byId; // identifier -> entries using it (names as i, descriptions as ~i)
    for (int i = 0; i < jexCatalogueCount; ++i) {
        const int nameId = jexCatalogueClassNameString(i).Id();
        const int descId = jexCatalogueDescriptionString(i).Id();
        EXPECT_TRUE((nameId >= 65056 && nameId <= 65279) || (nameId >= 65293 && nameId <= 65295))
            << jexCatalogueClassNames()[i] << " " << nameId;
        EXPECT_TRUE(descId >= 64848 && descId <= 65063) << jexCatalogueClassNames()[i] << " " << descId;
        byId[nameId].push_back(i);
        byId[descId].push_back(~i);
    }
    std::vector<std::vector<int>> shared;
    for (const auto& [id, users] : byId)
        if (users.size() > 1) shared.push_back(users);
    ASSERT_EQ(shared.size(), 1u);
    ASSERT_EQ(shared[0].size(), 2u);
    const int a = ~shared[0][0], b = ~shared[0][1];
    EXPECT_EQ(jexCatalogueClassNames()[a], "TjexLDBLookupList");
    EXPECT_EQ(jexCatalogueClassNames()[b], "TjexLDBLookupListBox");
    // The same string resource, so one text serves both.
    EXPECT_EQ(&jexCatalogueDescriptionString(a), &jexCatalogueDescriptionString(b));
    EXPECT_EQ(jexCatalogueClassNameString(0).Id(), 65293);
    EXPECT_EQ(jexCatalogueClassNameString(1).Id(), 65294);
    EXPECT_EQ(jexCatalogueClassNameString(2).Id(), 65295);
}

TEST_F(Jexdsncn, TellingRowsKeepTheirIdentifiersAndTexts) {
    struct TRow {
        int Index;
        const char* Class;
        int NameId, DescId;
        const char* Description;
    };
    const TRow rows[] = {
        {0, "TjexDock", 65293, 65061, DockDescription},
        {13, "TjexNavToolbar", 65274, 65042,
         "is a dockable toolbar that supports global datasource, field and state detection from the active "
         "control. It is a container for other jex data navigation controls which you can add with the "
         "component "
         "editor."},
        {16, "TjexnpFirst", 65277, 65045,
         "is a dataset navigation button to scroll to the first record. Use this on a TjexNavToolbar or "
         "TjexNavPanel."},
        {49, "TjexDBTreeView", 65246, 65014,
         "is a data aware tree view that loads itself from multiple master-detail datasources, or "
         "recursively from "
         "a single dataset."},
        {74, "TjexQuadSplit", 65207, 65007,
         "is a four way splitter control. Each splitter pane is a separate control owned by the form. Use "
         "the "
         "component editor to add panes."},
        {117, "TjexSplash", 65154, 64954,
         "is an automatic splash screen is launched from this component on application startup. You just "
         "need to "
         "provide the bitmap image. Includes a designtime preview."},
        {131, "TjexWaveFileList", 65136, 64936,
         "is a non-visual component to play a list of sound files, with methods for playing one or more "
         "sounds in "
         "the list. "},
        {196, "TjexDBIdleTime", 65073, 64873,
         "is a component which executes at Application.OnIdle to flush BDE updates cached in memory to "
         "disk."},
        {198, "TjexDBTableGrid", 65075, 64875,
         "is an aggregate component containing a TTable, DBGrid and Navigator."},
        {209, "TjexMessageDlg", 65086, 64854,
         "shows a modal dialog for custom messages. It is similar to MessageDlg function, with extra "
         "message, icon, "
         "checkbox and button formatting."},
        {210, "TjexProgressDlg", 65087, 64855,
         "shows a modal message dialog and progress bar with timer counting up or down."},
        {215, "TjexMailToLabel", 65060, 64860,
         "is a highighting mouse label that creates an email (with address, subject and body text); then "
         "loads it "
         "into the default email application."},
    };
    for (const TRow& r : rows) {
        SCOPED_TRACE(r.Class);
        EXPECT_EQ(jexCatalogueClassNames()[r.Index], r.Class);
        EXPECT_EQ(jexCatalogueDescriptions()[r.Index], r.Description);
        EXPECT_EQ(jexCatalogueClassNameString(r.Index).Id(), r.NameId);
        EXPECT_EQ(jexCatalogueDescriptionString(r.Index).Id(), r.DescId);
    }
}

TEST_F(Jexdsncn, ATranslatedStringTableChangesTheHintsWithoutARebuild) {
    cattest::TPackageModuleScope package;
    dcljexc::Jexdsncn::Stop();
    {
        cattest::TPackageTranslation translation(package.Module());
        translation.Set(jexCatalogueDescriptionString(0).Name(), "ist ein Dock für Werkzeugleisten.");
        translation.Set(jexCatalogueDescriptionString(209).Name(), "zeigt einen Dialog.");
        // The tables are read when the unit starts, so a started unit keeps what it read.
        dcljexc::Jexdsncn::Start();
        // "ist" begins with the two letters "is", which is all the rule looks at.
        EXPECT_EQ(jexIDEComponentDescription("TjexDock"), "TjexDock ist ein Dock für Werkzeugleisten.");
        EXPECT_EQ(jexIDEComponentDescription("TjexMessageDlg"), "zeigt einen Dialog.");
        dcljexc::Jexdsncn::Stop();
    }
    dcljexc::Jexdsncn::Start();
    EXPECT_EQ(jexIDEComponentDescription("TjexDock"), std::string("TjexDock ") + DockDescription);
}

extern "C" size_t JexComponentDescription(const char* ClassName, char* Buffer, size_t BufferSize);

TEST_F(Jexdsncn, TheHostReadsDescriptionsThroughTheExportedRoutine) {
    const std::string full = jexIDEComponentDescription("TjexDock");
    EXPECT_EQ(JexComponentDescription("TjexDock", nullptr, 0), full.size());
    std::vector<char> buffer(full.size() + 1, 'x');
    EXPECT_EQ(JexComponentDescription("TjexDock", buffer.data(), buffer.size()), full.size());
    EXPECT_EQ(std::string(buffer.data()), full);
    char small[9];
    EXPECT_EQ(JexComponentDescription("TjexDock", small, sizeof small), full.size());
    EXPECT_EQ(std::string(small), "TjexDock") << "cut to the buffer, NUL included";
    char empty[4] = "abc";
    EXPECT_EQ(JexComponentDescription("tjexdock", empty, sizeof empty), 0u);
    EXPECT_EQ(std::string(empty), "");
    EXPECT_EQ(JexComponentDescription(nullptr, nullptr, 0), 0u);
}
