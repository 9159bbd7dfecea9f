// Data sources and data links: state and data events, disabled controls, field links, reference safety; and
// the field conversions and filter language seen through them.
#include "dbtest.h"

using namespace db;
using dbtest::DbTest;

namespace {
// A link that records what it is told, as a data-aware control would react.
class TRecordingLink : public TDataLink {
public:
    std::vector<std::string> Log;

protected:
    void ActiveChanged() override { Log.push_back(Active() ? "active" : "inactive"); }
    void EditingChanged() override { Log.push_back(Editing() ? "editing" : "browsing"); }
    void DataSetChanged() override { Log.push_back("changed"); }
    void DataSetScrolled(int d) override { Log.push_back("scrolled " + std::to_string(d)); }
    void RecordChanged(TField* f) override {
        Log.push_back("record " + (f ? f->FieldName() : std::string("-")));
    }
};
// A form-like root: writes the components it owns that have no parent (fields go with their data set).
class TTestRoot : public TComponent {
public:
    using TComponent::TComponent;
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override {
        for (TComponent* c : ComponentList())
            if (!c->HasParent()) Proc(c);
    }
};
} // namespace

class DataSourceTest : public DbTest {
protected:
    void SetUp() override {
        DbTest::SetUp();
        WriteConfig();
        table.reset(MakePeople());
        table->Open();
        AddPerson(table.get(), "Ann", 20);
        AddPerson(table.get(), "Ben", 30);
        table->First();
    }
    void TearDown() override {
        table.reset();
        DbTest::TearDown();
    }
    std::unique_ptr<TTable> table;
};

TEST_F(DataSourceTest, StateAndDataEventsReachSourceAndLinks) {
    TDataSource src(nullptr);
    std::vector<std::string> events;
    src.OnStateChange = [&](rtl::TObject*) { events.push_back("state " + std::to_string(src.State())); };
    src.OnDataChange = [&](rtl::TObject*, TField* f) {
        events.push_back("data " + (f ? f->FieldName() : std::string("-")));
    };
    TRecordingLink link;
    link.SetDataSource(&src);
    src.SetDataSet(table.get());
    EXPECT_EQ(src.State(), dsBrowse);
    EXPECT_TRUE(link.Active());
    EXPECT_EQ(events, (std::vector<std::string>{"state 1", "data -"}));
    events.clear();
    link.Log.clear();

    table->Next();
    src.Edit(); // AutoEdit puts the data set into edit mode
    EXPECT_EQ(table->State(), dsEdit);
    table->FieldByName("AGE")->SetAsInteger(31);
    table->Post();
    EXPECT_EQ(events,
              (std::vector<std::string>{"data -", "state 2", "data -", "data AGE", "state 1", "data -"}));
    EXPECT_EQ(link.Log, (std::vector<std::string>{"scrolled 1", "editing", "record -", "record AGE",
                                                  "browsing", "changed"}));
    src.SetAutoEdit(false);
    src.Edit();
    EXPECT_EQ(table->State(), dsBrowse);

    link.Log.clear();
    table->Close();
    EXPECT_EQ(link.Log, std::vector<std::string>{"inactive"});
    EXPECT_EQ(src.State(), dsInactive);
    src.SetEnabled(false);
    table->Open();
    EXPECT_FALSE(link.Active());
    src.SetEnabled(true);
    EXPECT_TRUE(link.Active());
}

TEST_F(DataSourceTest, DisabledControlsHearOneChangeAtTheEnd) {
    TDataSource src(nullptr);
    src.SetDataSet(table.get());
    TRecordingLink link;
    link.SetDataSource(&src);
    link.Log.clear();
    table->DisableControls();
    table->Next();
    table->First();
    table->Last();
    EXPECT_TRUE(link.Log.empty());
    table->EnableControls();
    EXPECT_EQ(link.Log, std::vector<std::string>{"changed"});
}

TEST_F(DataSourceTest, FieldDataLinkBindsByNameAndWritesBack) {
    TDataSource src(nullptr);
    src.SetDataSet(table.get());
    TFieldDataLink link;
    std::string shown;
    std::string typed;
    link.OnDataChange = [&](rtl::TObject*) { shown = link.Field() ? link.Field()->AsString() : "<none>"; };
    link.OnUpdateData = [&](rtl::TObject*) { link.Field()->SetAsString(typed); };
    link.SetFieldName("NAME");
    link.SetDataSource(&src);
    ASSERT_NE(link.Field(), nullptr);
    EXPECT_EQ(shown, "Ann");
    table->Next();
    EXPECT_EQ(shown, "Ben");
    // A control edits: the link puts the data set in edit mode, the control's text is taken on Post.
    EXPECT_TRUE(link.Edit());
    typed = "Benjamin";
    link.Modified();
    table->Post();
    EXPECT_EQ(table->FieldByName("NAME")->AsString(), "Benjamin");
    link.SetFieldName("NOPE");
    EXPECT_EQ(link.Field(), nullptr);
    EXPECT_FALSE(link.CanModify());
}

TEST_F(DataSourceTest, ReferencesClearWhenComponentsGo) {
    auto* src = new TDataSource(nullptr);
    TRecordingLink link;
    link.SetDataSource(src);
    src->SetDataSet(table.get());
    EXPECT_EQ(table->DataSourceCount(), 1);
    src->Free();
    EXPECT_EQ(link.DataSource(), nullptr);
    EXPECT_FALSE(link.Active());
    EXPECT_EQ(table->DataSourceCount(), 0);

    TDataSource keep(nullptr);
    auto* other = new TTable(nullptr);
    keep.SetDataSet(other);
    other->Free();
    EXPECT_EQ(keep.DataSet(), nullptr);
}

TEST_F(DataSourceTest, PersistentFieldsStreamAndBindOnOpen) {
    TTestRoot form(nullptr);
    form.SetName("Form1");
    auto* t = new TTable(&form);
    t->SetName("People");
    t->SetDatabaseName("TESTDB");
    t->SetTableName("PEOPLE");
    auto* name = new TStringField(&form);
    name->SetName("PeopleNAME");
    name->SetFieldName("NAME");
    name->SetSize(30);
    name->SetDisplayLabel("Name");
    name->SetDataSet(t);
    t->Open();
    EXPECT_EQ(t->FieldCount(), 1); // only the persistent field
    EXPECT_EQ(t->FieldByName("NAME"), name);
    EXPECT_EQ(name->AsString(), "Ann");
    t->Close();
    auto* bad = new TIntegerField(&form);
    bad->SetFieldName("NOT_THERE");
    bad->SetDataSet(t);
    try {
        t->Open();
        FAIL();
    } catch (const EDatabaseError& e) {
        EXPECT_STREQ(e.what(), "People: Field 'NOT_THERE' not found");
    }
    EXPECT_FALSE(t->Active());
    bad->Free();
    EXPECT_EQ(t->FieldCount(), 1);

    std::string text = rtl::WriteComponentText(&form);
    EXPECT_NE(text.find("object PeopleNAME: TStringField"), std::string::npos) << text;
    EXPECT_NE(text.find("DisplayLabel = 'Name'"), std::string::npos) << text;
    EXPECT_NE(text.find("Size = 30"), std::string::npos) << text;
}

TEST(FieldConversion, TypedFieldsConvertLikeThePlatform) {
    EXPECT_EQ(DateTimeToStr(EncodeDate(2000, 2, 29) + EncodeTime(23, 59, 59, 0)), "2000-02-29 23:59:59");
    EXPECT_THROW(EncodeDate(2001, 2, 29), rtl::EConvertError);
    EXPECT_DOUBLE_EQ(StrToDateTime("1899-12-30"), 0);
    EXPECT_DOUBLE_EQ(StrToDateTime("12:00"), 0.5);
    EXPECT_THROW(StrToDateTime("31/12/2000"), rtl::EConvertError);
    EXPECT_EQ(Variant(int64_t(5)).AsString(), "5");
    EXPECT_EQ(Variant(2.5).AsInteger(), 2); // half to even
    EXPECT_TRUE(Variant("true").AsBoolean());
    EXPECT_THROW(Variant("maybe").AsBoolean(), rtl::EConvertError);
    EXPECT_LT(CompareVariants(Variant(), Variant(int64_t(0))), 0);
    EXPECT_EQ(CompareVariants(Variant("abc"), Variant("ABC"), true), 0);
    EXPECT_GT(CompareVariants(Variant(int64_t(10)), Variant(9.5)), 0);
}

TEST_F(DataSourceTest, FieldKindsValidateTheirValues) {
    table->Edit();
    TField* active = table->FieldByName("ACTIVE");
    auto* b = dynamic_cast<TBooleanField*>(active);
    ASSERT_NE(b, nullptr);
    b->SetDisplayValues("Yes;No");
    active->SetAsString("y");
    EXPECT_TRUE(active->AsBoolean());
    EXPECT_EQ(active->AsString(), "Yes");
    EXPECT_THROW(active->SetAsString("perhaps"), EDatabaseError);
    EXPECT_THROW(b->SetDisplayValues("Yes"), EDatabaseError);
    TField* name = table->FieldByName("NAME");
    name->SetAsString(std::string(40, 'x'));
    EXPECT_EQ(name->AsString().size(), 30u); // cut to the field size
    name->SetAsString("Ann");
    TField* born = table->FieldByName("BORN");
    born->SetAsString("2001-02-03 10:00:00");
    EXPECT_EQ(born->AsString(), "2001-02-03"); // a date field keeps the date only
    born->SetAsString("");
    EXPECT_TRUE(born->IsNull());
    TField* age = table->FieldByName("AGE");
    age->OnValidate = [](TField* f) {
        if (f->AsInteger() < 0) throw EDatabaseError("Age cannot be negative");
    };
    EXPECT_THROW(age->SetAsInteger(-1), EDatabaseError);
    EXPECT_EQ(age->AsInteger(), 20); // the refused value was not kept
    table->Cancel();
}

TEST_F(DataSourceTest, FilterLanguage) {
    AddPerson(table.get(), "Cy", 40);
    table->Edit();
    table->FieldByName("BORN")->SetAsString("1990-06-01");
    table->Post();
    auto names = [&](const std::string& filter) {
        table->SetFilter(filter);
        table->SetFiltered(true);
        auto r = Column(table.get(), "NAME");
        table->SetFiltered(false);
        return r;
    };
    using V = std::vector<std::string>;
    EXPECT_EQ(names("AGE > 20 AND NOT (NAME = 'Cy')"), V{"Ben"});
    EXPECT_EQ(names("AGE = 20 OR AGE = 40"), (V{"Ann", "Cy"}));
    EXPECT_EQ(names("BORN IS NULL"), (V{"Ann", "Ben"}));
    EXPECT_EQ(names("BORN = NULL"), (V{"Ann", "Ben"}));
    EXPECT_EQ(names("BORN > '1980-01-01'"), V{"Cy"});
    EXPECT_EQ(names("AGE * 2 - 10 = 50"), V{"Ben"});
    EXPECT_EQ(names("UPPER(NAME) LIKE 'B%'"), V{"Ben"});
    EXPECT_EQ(names("[NAME] <> 'Ann'"), (V{"Ben", "Cy"}));
    EXPECT_THROW(names("NOSUCH = 1"), EDatabaseError);
    EXPECT_THROW(names("(AGE = 1"), EDatabaseError);
    EXPECT_THROW(names("AGE = 'unterminated"), EDatabaseError);
}
