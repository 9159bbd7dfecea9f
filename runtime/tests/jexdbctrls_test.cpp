// Data controls against real SQLite tables: the field binding of edits, memos, check boxes, radio groups,
// lists, lookups and images; the popup and rich editors; record count, state and currency labels; the
// low-resource combo; the date controls; the index combo, filter and range edit; the field edit window.
#ifdef JEX_HAVE_DB
#include "jex/jexdbctrls.h"

#include "jexdbfixture.h"
#include "rtl/streaming.h"

using namespace jex;
using namespace vcl;
using jexdbtest::DBFixture;

namespace {

class DBCtrlsTest : public DBFixture {
protected:
    void SetUp() override {
        DBFixture::SetUp();
        MakePeople();
        UI->PropagateExceptions = true;
        Other = new TEdit(Form);
        Other->SetName("edtOther");
        Other->SetParent(Form);
        Form->Show();
    }
    template <class T> T* Add(const std::string& name, const std::string& field = {}) {
        auto* c = new T(Form);
        c->SetName(name);
        c->SetParent(Form);
        if constexpr (requires { c->SetDataField(field); }) {
            c->SetDataSource(PeopleSource);
            c->SetDataField(field);
        }
        return c;
    }
    std::vector<uint8_t> BitmapBytes(int w, int h) {
        TBitmap bmp;
        bmp.SetSize(w, h);
        bmp.SetPixelRGB(0, 0, RGB(10, 200, 30));
        std::vector<uint8_t> bytes;
        bmp.SaveToBytes(bytes);
        return bytes;
    }
    TEdit* Other = nullptr;
};

TEST_F(DBCtrlsTest, EditShowsTheFieldAndWritesWhatAPersonTypesWhenLeft) {
    auto* edit = Add<TjexDBAutoEdit>("edtName", "NAME");
    EXPECT_EQ(edit->Text(), "Ann");
    People->Next();
    EXPECT_EQ(edit->Text(), "Bob");

    TFormDriver f = UI->Drive(Form);
    f.Type("edtName", "Bobby");
    EXPECT_EQ(People->State(), db::dsEdit);
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Bob"); // not yet: the edit still holds it
    f.Focus("edtOther");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Bobby");
    People->Post();
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 2"), "Bobby");

    // Escape drops a pending change and shows the field again.
    f.Type("edtName", "Zzz");
    uint16_t esc = VK_ESCAPE;
    edit->KeyDown(esc, {});
    EXPECT_EQ(edit->Text(), "Bobby");
    People->Cancel();
}

TEST_F(DBCtrlsTest, EditRefusesTypingWhenTheFieldCannotChange) {
    auto* edit = Add<TjexDBAutoEdit>("edtName", "NAME");
    edit->SetReadOnly(true);
    EXPECT_THROW(edit->UserType("X"), EUserActionError);
    EXPECT_EQ(People->State(), db::dsBrowse);
    edit->SetReadOnly(false);
    PeopleSource->SetAutoEdit(false);
    EXPECT_THROW(edit->UserType("X"), EUserActionError);
    PeopleSource->SetAutoEdit(true);
    People->FieldByName("NAME")->SetReadOnly(true);
    EXPECT_THROW(edit->UserType("X"), EUserActionError);
    auto* unbound = Add<TjexDBAutoEdit>("edtNone");
    EXPECT_THROW(unbound->UserType("X"), EUserActionError);
}

TEST_F(DBCtrlsTest, TextThatIsNoNumberIsRefusedAtPostAndTheRecordKeepsItsValue) {
    auto* edit = Add<TjexDBAutoEdit>("edtAge", "AGE");
    edit->UserType("old");
    EXPECT_THROW(People->Post(), rtl::Exception);
    People->Cancel();
    EXPECT_EQ(Stored("SELECT AGE FROM PEOPLE WHERE ID = 1"), "34");
    edit->UserType("");
    People->Post(); // an empty number is no value
    EXPECT_EQ(Stored("SELECT COALESCE(AGE, 'null') FROM PEOPLE WHERE ID = 1"), "null");
}

TEST_F(DBCtrlsTest, AutoEditOpensThePopupEditorForMemoFields) {
    auto* edit = Add<TjexDBAutoEdit>("edtNotes", "NOTES");
    ASSERT_TRUE(edit->IsBlobField());
    UI->OnForm("TjexDBPopupEditForm", [](TFormDriver& f) {
        f.Type("memEdit", "first line\r\nsecond line");
        f.Click("btnOK");
    });
    edit->UserType("x");
    ASSERT_EQ(UI->Forms().back().ClassName, "TjexDBPopupEditForm");
    People->Post();
    EXPECT_EQ(Stored("SELECT NOTES FROM PEOPLE WHERE ID = 1"), "first line\r\nsecond line");

    // Cancelling leaves the record as it was.
    UI->OnForm("TjexDBPopupEditForm", [](TFormDriver& f) {
        f.Type("memEdit", "dropped");
        f.Click("btnCancel");
    });
    EXPECT_FALSE(edit->PopupEdit());
    EXPECT_EQ(People->State(), db::dsBrowse);
}

TEST_F(DBCtrlsTest, CheckBoxRadioGroupAndListsFollowAndWriteTheirFields) {
    auto* check = Add<TjexCustomDBCheckBox>("chkActive", "ACTIVE");
    auto* grade = Add<TjexCustomDBRadioGroup>("rgGrade");
    grade->Items()->SetText("Grade A\nGrade B\nGrade C");
    grade->Values()->SetText("A\nB\nC");
    grade->SetDataSource(PeopleSource);
    grade->SetDataField("GRADE");
    auto* list = Add<TjexCustomDBListBox>("lstGrade");
    list->Items()->SetText("A\nB\nC");
    list->SetDataSource(PeopleSource);
    list->SetDataField("GRADE");
    EXPECT_TRUE(check->Checked());
    EXPECT_EQ(grade->ItemIndex(), 0);
    EXPECT_EQ(list->ItemIndex(), 0);
    People->Next();
    EXPECT_FALSE(check->Checked());
    EXPECT_EQ(grade->ItemIndex(), 1);
    EXPECT_EQ(list->ItemIndex(), 1);

    TFormDriver f = UI->Drive(Form);
    f.Check("chkActive", true);
    f.Select("lstGrade", 2);
    People->Post();
    EXPECT_EQ(Stored("SELECT ACTIVE FROM PEOPLE WHERE ID = 2"), "True");
    EXPECT_EQ(Stored("SELECT GRADE FROM PEOPLE WHERE ID = 2"), "C");
    EXPECT_EQ(grade->ItemIndex(), 2);

    // A radio choice goes into the record at once.
    f.Select("rgGrade", 0);
    People->Post();
    EXPECT_EQ(Stored("SELECT GRADE FROM PEOPLE WHERE ID = 2"), "A");

    // Text values: ValueChecked lists several texts; anything else is grayed.
    check->SetDataField("GRADE");
    check->SetValueChecked("A;X");
    check->SetValueUnchecked("B");
    EXPECT_EQ(check->State(), cbChecked);
    People->Next();
    EXPECT_EQ(check->State(), cbChecked); // Cid: A
    People->Edit();
    People->FieldByName("GRADE")->SetAsString("Q");
    EXPECT_EQ(check->State(), cbGrayed);
    People->Cancel();
}

TEST_F(DBCtrlsTest, LookupControlsOfferTheListAndWriteTheKey) {
    MakeDepartments();
    auto* combo = Add<TjexCustomDBLookupComboBox>("cboDept", "DEPT");
    combo->SetListSource(DeptSource);
    combo->SetKeyField("ID");
    combo->SetListField("NAME");
    EXPECT_EQ(combo->Items()->ToVector(), (std::vector<std::string>{"Sales", "Research", "Admin"}));
    EXPECT_EQ(combo->Text(), "Sales");
    People->Next();
    EXPECT_EQ(combo->Text(), "Research");
    auto* list = Add<TjexCustomDBLookupListBox>("lstDept", "DEPT");
    list->SetListSource(DeptSource);
    list->SetKeyField("ID");
    list->SetListField("NAME");
    EXPECT_EQ(list->ItemIndex(), 1);

    UI->Drive(Form).Select("cboDept", "Admin");
    People->Post();
    EXPECT_EQ(Stored("SELECT DEPT FROM PEOPLE WHERE ID = 2"), "3");
    EXPECT_EQ(list->ItemIndex(), 2);
    EXPECT_EQ(Dept->RecNo(), 1); // the list's data set keeps its record

    // A new department shows at once.
    Dept->AppendRecord({4, "Legal", 14});
    EXPECT_EQ(combo->Items()->Count(), 4);
}

TEST_F(DBCtrlsTest, ImageShowsBitmapFieldsAndLoadsFilesIntoTheRecord) {
    auto* image = Add<TjexCustomDBImage>("imgPhoto", "PHOTO");
    std::vector<uint8_t> bytes = BitmapBytes(3, 2);
    People->Edit();
    People->FieldByName("PHOTO")->SetAsString(std::string(bytes.begin(), bytes.end()));
    People->Post();
    EXPECT_EQ(image->Picture()->Width(), 3);
    EXPECT_FALSE(image->InvalidData());

    People->Edit();
    People->FieldByName("PHOTO")->SetAsString("no picture here");
    EXPECT_TRUE(image->InvalidData());
    EXPECT_EQ(image->Picture()->Width(), 0);
    People->Cancel();

    std::string file = Dir + "/face.bmp";
    std::vector<uint8_t> big = BitmapBytes(5, 4);
    rtl::WriteFileBytes(file, std::string(big.begin(), big.end()));
    People->Next();
    image->LoadFromFile(file);
    People->Post();
    TBitmap check;
    std::string stored = People->FieldByName("PHOTO")->AsString();
    check.LoadFromBytes(std::vector<uint8_t>(stored.begin(), stored.end()));
    EXPECT_EQ(check.Width(), 5);
    EXPECT_EQ(check.PixelRGB(0, 0), RGB(10, 200, 30));

    std::string notPicture = Dir + "/note.bmp";
    rtl::WriteFileBytes(notPicture, "hello");
    EXPECT_THROW(image->LoadFromFile(notPicture), rtl::Exception);
    EXPECT_EQ(People->State(), db::dsBrowse);
    EXPECT_EQ(image->Picture()->Width(), 5);
}

TEST_F(DBCtrlsTest, RecordCountAndStateLabelsShowTheDataSet) {
    auto* count = Add<TjexDBRecordCount>("lblCount");
    auto* state = Add<TjexDBState>("lblState");
    EXPECT_EQ(count->Caption(), "");
    count->SetDataSource(PeopleSource);
    state->SetDataSource(PeopleSource);
    EXPECT_EQ(count->Caption(), "Record 1 of 5");
    EXPECT_EQ(state->Caption(), "Browse");
    People->Next();
    People->Next();
    EXPECT_EQ(count->Caption(), "Record 3 of 5");
    People->Edit();
    EXPECT_EQ(state->Caption(), "Edit");
    People->Cancel();
    People->Append();
    EXPECT_EQ(count->Caption(), "Record 6 of 6");
    EXPECT_EQ(state->Caption(), "Insert");
    People->Cancel();

    count->SetMask("%d/%d");
    EXPECT_EQ(count->Caption(), "3/5");
    EXPECT_THROW(count->SetMask("%s of %s"), rtl::EConvertError);
    EXPECT_EQ(count->Mask(), "%d/%d");
    state->SetMask("[%s]");
    state->States()->Put(1, "Looking");
    EXPECT_EQ(state->Caption(), "[Looking]");
    EXPECT_TRUE(state->IsStatesStored());

    count->SetDisabledCaption("no data");
    state->SetDisabledCaption("closed");
    People->Close();
    EXPECT_EQ(count->Caption(), "no data");
    EXPECT_EQ(state->Caption(), "closed");
}

TEST_F(DBCtrlsTest, CurrencyLabelSpellsTheFieldsAmount) {
    auto* label = Add<TjexDBCurrencyLabel>("lblSalary", "SALARY");
    EXPECT_EQ(label->Caption(), "One Thousand Two Hundred Dollars and 50/100");
    People->Last();
    EXPECT_EQ(label->Caption(), "One Thousand Seven Hundred Fifty Dollars and 00/100");
}

TEST_F(DBCtrlsTest, LowResourceComboHoldsItsListOnlyWhileDroppedDown) {
    auto* combo = Add<TjexLRDBComboBox>("cboGrade", "GRADE");
    combo->Choices()->SetText("A\nB\nC");
    EXPECT_EQ(combo->Items()->ToVector(), std::vector<std::string>{"A"});
    combo->DropDown();
    EXPECT_EQ(combo->Items()->Count(), 3);
    EXPECT_EQ(combo->ItemIndex(), 0);
    combo->CloseUp();
    EXPECT_EQ(combo->Items()->Count(), 1);

    UI->Drive(Form).Select("cboGrade", 2);
    EXPECT_FALSE(combo->DroppedDownList());
    EXPECT_EQ(combo->Items()->ToVector(), std::vector<std::string>{"C"});
    People->Post();
    EXPECT_EQ(Stored("SELECT GRADE FROM PEOPLE WHERE ID = 1"), "C");
}

TEST_F(DBCtrlsTest, DateTimePickerEditsTheDateAndTheCheckBoxField) {
    auto* picker = Add<TjexDBDateTimePicker>("dtpBorn", "BORN");
    EXPECT_EQ(picker->DisplayText(), "1990-01-01");
    picker->SetShowCheckbox(true);
    picker->SetDataFieldCheckBox("ACTIVE");
    People->Next(); // Bob: not active
    EXPECT_EQ(picker->DisplayText(), "");
    EXPECT_FALSE(picker->Checked());

    TFormDriver f = UI->Drive(Form);
    f.Type("dtpBorn", "2001-02-03");
    EXPECT_TRUE(picker->Checked());
    f.Focus("edtOther");
    People->Post();
    EXPECT_DOUBLE_EQ(People->FieldByName("BORN")->AsDateTime(), db::EncodeDate(2001, 2, 3));
    EXPECT_TRUE(People->FieldByName("ACTIVE")->AsBoolean());

    picker->UserCheck(false);
    People->Post();
    EXPECT_EQ(Stored("SELECT ACTIVE FROM PEOPLE WHERE ID = 2"), "False");

    EXPECT_THROW(picker->UserType("not a date"), rtl::EConvertError);
    picker->SetMinDate(db::EncodeDate(2000, 1, 1));
    EXPECT_THROW(picker->UserType("1999-12-31"), rtl::EConvertError);
    EXPECT_EQ(People->State(), db::dsBrowse);
}

TEST_F(DBCtrlsTest, MonthCalendarPicksDaysAndLimitsRanges) {
    auto* cal = Add<TjexDBMonthCalendar>("calBorn", "BORN");
    EXPECT_DOUBLE_EQ(cal->Date(), db::EncodeDate(1990, 1, 1));
    cal->UserSetValue(15);
    People->Post();
    EXPECT_DOUBLE_EQ(People->FieldByName("BORN")->AsDateTime(), db::EncodeDate(1990, 1, 15));
    EXPECT_THROW(cal->UserSetValue(32), rtl::EConvertError);
    EXPECT_THROW(cal->UserType("1990-01-01..1990-01-05"), EUserActionError);
    cal->SetMultiSelect(true);
    cal->SetMaxSelectRange(7);
    cal->UserType("1990-03-01..1990-03-20");
    EXPECT_DOUBLE_EQ(cal->Date(), db::EncodeDate(1990, 3, 1));
    EXPECT_DOUBLE_EQ(cal->EndDate(), db::EncodeDate(1990, 3, 7));
    People->Cancel();
}

TEST_F(DBCtrlsTest, IndexComboListsTheTablesIndexesAndOrdersByTheChosenOne) {
    auto* combo = Add<TjexDBIndexCombo>("cboIndex");
    combo->SetDataSource(PeopleSource);
    EXPECT_EQ(combo->LoadItemsFromDataSet(), 3);
    EXPECT_EQ(combo->Items()->ToVector(), (std::vector<std::string>{"PK", "ByName", "ByDeptAge"}));
    People->Last();
    UI->Drive(Form).Select("cboIndex", "ByDeptAge");
    EXPECT_EQ(People->IndexName(), "ByDeptAge");
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Cid"); // GoToFirst: dept 1, youngest

    // Captions of their own, and the combo following an index set elsewhere.
    combo->TableIndexItems()->SetText("Primary key=PK\nBy name=ByName");
    EXPECT_EQ(combo->Items()->ToVector(), (std::vector<std::string>{"Primary key", "By name"}));
    People->SetIndexName("ByName");
    People->First(); // a data event after the change
    EXPECT_EQ(combo->Text(), "By name");
    combo->SetComboItemIndex(0);
    EXPECT_EQ(People->IndexName(), "PK");

    // A data set that is no table has no indexes to offer.
    db::TQuery q(Form);
    q.SetDatabaseName("CTRLDB");
    q.SQL()->SetText("SELECT * FROM PEOPLE");
    db::TDataSource qs(Form);
    qs.SetDataSet(&q);
    combo->SetDataSource(&qs);
    EXPECT_EQ(combo->LoadItemsFromDataSet(), 0);
}

TEST_F(DBCtrlsTest, FilterAppliesItsExpressionAndKeepsTheOldOneOnError) {
    auto* filter = new TjexDBFilter(Form);
    filter->SetName("fltAge");
    filter->SetDataSource(PeopleSource);
    filter->SetFilter("AGE > 40");
    EXPECT_FALSE(filter->Active());
    filter->Apply();
    EXPECT_TRUE(filter->Active());
    EXPECT_EQ(People->RecordCount(), 2);

    filter->SetFilter("AGE >>> 3");
    EXPECT_THROW(filter->Apply(), db::EDatabaseError);
    EXPECT_EQ(People->Filter(), "AGE > 40");
    EXPECT_TRUE(People->Filtered());
    EXPECT_EQ(People->RecordCount(), 2);

    // AutoActivate switches it on whenever the data set opens.
    filter->SetFilter("NAME = 'bob'");
    filter->SetFilterOptions({db::foCaseInsensitive});
    filter->SetAutoActivate(true);
    EXPECT_EQ(People->RecordCount(), 1);
    People->Close();
    People->SetFiltered(false);
    People->Open();
    EXPECT_TRUE(People->Filtered());
    EXPECT_EQ(People->FieldByName("NAME")->AsString(), "Bob");

    // The dialog: a person types the expression; Cancel changes nothing.
    UI->OnForm("TjexDBFilterDialog", [](TFormDriver& f) {
        f.Type("memFilter", "DEPT = 1");
        f.Check("chkCaseInsensitive", false);
        f.Click("btnOK");
    });
    EXPECT_TRUE(filter->Edit(true, false));
    EXPECT_EQ(filter->Filter(), "DEPT = 1");
    EXPECT_EQ(People->RecordCount(), 2);
    EXPECT_EQ(UI->Forms().back().AtShow.Find("lstFields")->Items.size(), 10u);
    UI->OnForm("TjexDBFilterDialog", [](TFormDriver& f) {
        f.Type("memFilter", "DEPT = 2");
        f.Click("btnCancel");
    });
    EXPECT_FALSE(filter->Edit(true, false));
    EXPECT_EQ(filter->Filter(), "DEPT = 1");
    UI->OnForm("TjexDBFilterDialog", [](TFormDriver& f) {
        f.Type("memFilter", "");
        f.Click("btnOK");
    });
    EXPECT_TRUE(filter->Edit(true, true));
    EXPECT_FALSE(People->Filtered());
    EXPECT_EQ(People->RecordCount(), 5);
}

TEST_F(DBCtrlsTest, RangeEditAppliesTypedRangesToTheCurrentIndex) {
    People->SetIndexName("PK");
    auto* range = Add<TjexDBRangeEdit>("edtRange");
    range->SetDataSource(PeopleSource);
    std::string from, to;
    range->ParseRange(" 2 - 4 ", from, to);
    EXPECT_EQ(from, "2");
    EXPECT_EQ(to, "4");
    range->ParseRange("-5-10", from, to);
    EXPECT_EQ(from, "-5");
    EXPECT_EQ(to, "10");

    TFormDriver f = UI->Drive(Form);
    f.Type("edtRange", "2-4");
    EXPECT_EQ(People->RecordCount(), 5); // not before Enter
    f.PressKey("edtRange", VK_RETURN);
    EXPECT_EQ(People->RecordCount(), 3);
    EXPECT_EQ(People->FieldByName("ID")->AsInteger(), 2);
    f.Type("edtRange", "4-");
    f.PressKey("edtRange", VK_RETURN);
    EXPECT_EQ(People->RecordCount(), 2);
    f.Type("edtRange", "3");
    f.PressKey("edtRange", VK_RETURN);
    EXPECT_EQ(People->RecordCount(), 1);
    range->SetApplyRangeWhen(jarOnChange);
    f.Type("edtRange", "");
    EXPECT_EQ(People->RecordCount(), 5);
    EXPECT_THROW(range->SetSeparator(""), rtl::EPropertyError);

    range->SetDataSource(nullptr);
    EXPECT_THROW(range->ApplyRange(), db::EDatabaseError);
}

TEST_F(DBCtrlsTest, EditWindowMakesALabelledEditPerFieldAndEditsThroughThem) {
    auto* win = Add<TjexDBEditWin>("ewPeople");
    win->LabelCaptions()->SetText("NAME=Full name");
    win->EditHints()->SetText("AGE=Years of age");
    win->SetDataSource(PeopleSource);
    ASSERT_EQ(win->FieldCount(), 10);
    EXPECT_EQ(win->FieldLabel(0)->Caption(), "ID");
    EXPECT_EQ(win->FieldLabel(1)->Caption(), "Full name");
    EXPECT_EQ(win->FieldEdit(1)->Text(), "Ann");
    EXPECT_EQ(win->FieldEdit(3)->Hint(), "Years of age");
    EXPECT_LT(win->FieldEdit(0)->Top(), win->FieldEdit(1)->Top());
    EXPECT_EQ(win->FieldEdit(0)->Left(), win->FieldEdit(1)->Left());
    EXPECT_EQ(win->FieldEdit(1)->Owner(), win); // its own parts, not the form's

    win->FieldEdit(1)->UserType("Anna");
    People->Post();
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 1"), "Anna");

    // Flowing across: several pairs share a row.
    win->SetLayoutEdit(jewFlow);
    win->SetMaxWidth(2000);
    EXPECT_EQ(win->FieldEdit(0)->Top(), win->FieldEdit(1)->Top());
    EXPECT_LT(win->FieldEdit(0)->Left(), win->FieldEdit(1)->Left());

    // Hidden fields are left out; a closed data set shows nothing.
    People->FieldByName("PHOTO")->SetVisible(false);
    win->Rebuild();
    EXPECT_EQ(win->FieldCount(), 9);
    People->Close();
    EXPECT_EQ(win->FieldCount(), 0);
}

TEST_F(DBCtrlsTest, EditLabelTakesItsCaptionFromTheField) {
    auto* el = Add<TjexDBEditLabel>("elName", "NAME");
    EXPECT_EQ(el->EditText(), "Ann");
    EXPECT_EQ(el->LabelCaption(), "NAME");
    People->FieldByName("NAME")->SetDisplayLabel("Name of person");
    People->Next();
    EXPECT_EQ(el->LabelCaption(), "Name of person");
    el->SetCaptionAuto(false);
    el->SetLabelCaption("Own");
    People->Next();
    EXPECT_EQ(el->LabelCaption(), "Own");
    el->UserType("Cyd");
    el->Edit()->DoExit();
    People->Post();
    EXPECT_EQ(Stored("SELECT NAME FROM PEOPLE WHERE ID = 3"), "Cyd");
    el->SetReadOnly(true);
    EXPECT_THROW(el->UserType("No"), EUserActionError);
}

TEST_F(DBCtrlsTest, RichEditLoadsFilesTemplatesAndTheLargerEditor) {
    auto* rich = Add<TjexDBRichEdit>("reNotes", "NOTES");
    std::string file = Dir + "/letter.rtf";
    rtl::WriteFileBytes(file, "{\\rtf1 Hello}");
    EXPECT_FALSE(rich->DropFile(file));
    rich->SetAcceptDroppedFiles(true);
    EXPECT_TRUE(rich->DropFile(file));
    EXPECT_TRUE(rich->IsRichText());
    People->Post();
    EXPECT_EQ(Stored("SELECT NOTES FROM PEOPLE WHERE ID = 1"), "{\\rtf1 Hello}");
    EXPECT_THROW(rich->LoadFromFile(Dir + "/missing.rtf"), rtl::EFOpenError);

    People->Next();
    rich->SetFileTemplate(file);
    EXPECT_TRUE(rich->ApplyTemplate());
    EXPECT_FALSE(rich->ApplyTemplate()); // not empty any more
    People->Cancel();

    UI->OnForm("TjexDBPopupEditForm", [](TFormDriver& f) {
        EXPECT_TRUE(f.Form()->Caption() == "Report");
        f.Type("memEdit", "edited in the editor");
        f.Click("btnOK");
    });
    rich->SetPrintTitle("Report");
    EXPECT_TRUE(rich->ExecuteEditor());
    People->Post();
    EXPECT_EQ(Stored("SELECT NOTES FROM PEOPLE WHERE ID = 2"), "edited in the editor");
}

TEST_F(DBCtrlsTest, TextAndMemoShowTheFieldAndMemoLoadsOnRequest) {
    auto* text = Add<TjexCustomDBText>("txtSalary", "SALARY");
    EXPECT_EQ(text->Caption(), People->FieldByName("SALARY")->DisplayText());
    text->SetText("ignored");
    EXPECT_EQ(text->Caption(), People->FieldByName("SALARY")->DisplayText());
    People->Edit();
    People->FieldByName("NOTES")->SetAsString("long notes");
    People->Post();

    auto* memo = Add<TjexCustomDBMemo>("memNotes", "NOTES");
    EXPECT_EQ(memo->Text(), "long notes");
    memo->SetAutoDisplay(false);
    People->Next();
    People->Prior();
    EXPECT_EQ(memo->Text(), "(NOTES)");
    memo->UserDblClick();
    EXPECT_EQ(memo->Text(), "long notes");
    memo->UserType("changed notes");
    memo->DoExit();
    People->Post();
    EXPECT_EQ(Stored("SELECT NOTES FROM PEOPLE WHERE ID = 1"), "changed notes");
}

TEST_F(DBCtrlsTest, PopupEditorEditsPicturesOfBlobFields) {
    std::string file = Dir + "/photo.bmp";
    std::vector<uint8_t> bytes = BitmapBytes(6, 3);
    rtl::WriteFileBytes(file, std::string(bytes.begin(), bytes.end()));
    auto* edit = Add<TjexDBAutoEdit>("edtPhoto", "PHOTO");
    edit->SetPopupEditBlobAs(jpbGraphic);
    EXPECT_EQ(edit->Text(), "");
    UI->AnswerOpen(file);
    UI->OnForm("TjexDBPopupEditForm", [](TFormDriver& f) {
        f.Click("btnLoad");
        EXPECT_EQ(f.Describe().Find("imgEdit")->PictureWidth.value_or(0), 6);
        f.Click("btnOK");
    });
    EXPECT_TRUE(edit->PopupEdit());
    People->Post();
    EXPECT_EQ(edit->Text(), "(Blob)");
    std::string stored = People->FieldByName("PHOTO")->AsString();
    TBitmap back;
    back.LoadFromBytes(std::vector<uint8_t>(stored.begin(), stored.end()));
    EXPECT_EQ(back.Width(), 6);

    // A read-only field shows but takes nothing back.
    People->FieldByName("PHOTO")->SetReadOnly(true);
    UI->OnForm("TjexDBPopupEditForm", [](TFormDriver& f) { f.Click("btnOK"); });
    EXPECT_FALSE(edit->PopupEdit());
    EXPECT_EQ(People->State(), db::dsBrowse);
}

TEST_F(DBCtrlsTest, IndexComboOnATableWithoutIndexesAddsNothing) {
    db::TTable plain(Form);
    plain.SetDatabaseName("CTRLDB");
    plain.SetTableName("PLAIN");
    plain.FieldDefs()->Add("X", db::ftInteger);
    plain.CreateTable();
    db::TDataSource src(Form);
    src.SetDataSet(&plain);
    auto* combo = Add<TjexDBIndexCombo>("cboIndex");
    combo->SetDataSource(&src);
    EXPECT_EQ(combo->LoadItemsFromDataSet(), 0);
    EXPECT_EQ(combo->Items()->Count(), 0);
    combo->SetDataSource(nullptr);
    EXPECT_EQ(combo->Table(), nullptr);
    EXPECT_EQ(combo->LoadItemsFromDataSet(), 0);
}

TEST_F(DBCtrlsTest, ControlsForgetADataSourceThatIsFreed) {
    auto* edit = Add<TjexDBAutoEdit>("edtName", "NAME");
    auto* count = Add<TjexDBRecordCount>("lblCount");
    count->SetDataSource(PeopleSource);
    auto* filter = new TjexDBFilter(Form);
    filter->SetDataSource(PeopleSource);
    auto* win = Add<TjexDBEditWin>("ewPeople");
    win->SetDataSource(PeopleSource);
    ASSERT_EQ(win->FieldCount(), 10);
    PeopleSource->Free();
    PeopleSource = nullptr;
    EXPECT_EQ(edit->DataSource(), nullptr);
    EXPECT_EQ(edit->Field(), nullptr);
    EXPECT_EQ(count->DataSource(), nullptr);
    EXPECT_EQ(filter->DataSource(), nullptr);
    EXPECT_EQ(win->DataSource(), nullptr);
    EXPECT_EQ(win->FieldCount(), 0);
    EXPECT_THROW(filter->Apply(), db::EDatabaseError);
}

TEST_F(DBCtrlsTest, FormFilesKeepTheBindingsAndTheControlsFollowAfterLoading) {
    rtl::RegisterClasses({TForm::StaticClass(), TEdit::StaticClass(), TjexDBAutoEdit::StaticClass(),
                          TjexDBState::StaticClass(), TjexDBFilter::StaticClass(),
                          TjexDBEditWin::StaticClass(), db::TTable::StaticClass(),
                          db::TDataSource::StaticClass()});
    auto* edit = Add<TjexDBAutoEdit>("edtName", "NAME");
    edit->SetPopupFormStyle(fsStayOnTop);
    auto* state = Add<TjexDBState>("lblState");
    state->SetDataSource(PeopleSource);
    state->States()->Put(1, "Viewing");
    auto* filter = new TjexDBFilter(Form);
    filter->SetName("fltOld");
    filter->SetDataSource(PeopleSource);
    filter->SetFilter("AGE > 40");
    filter->SetAutoActivate(true);
    auto* win = Add<TjexDBEditWin>("ewPeople");
    win->LabelCaptions()->SetText("NAME=Who");
    win->SetDataSource(PeopleSource);
    People->SetFiltered(false);
    std::string text = rtl::WriteComponentText(Form);
    EXPECT_NE(text.find("DataSource = dsPeople"), std::string::npos);
    // The edit window's own edits are not form components.
    EXPECT_EQ(text.find(": TjexDBAutoEdit"), text.rfind(": TjexDBAutoEdit"));

    Form->Hide();
    People->Close(); // the copy opens its own table
    rtl::TComponent* copy = rtl::ReadComponentText(text, nullptr);
    auto* table2 = dynamic_cast<db::TTable*>(copy->FindComponent("tblPeople"));
    ASSERT_NE(table2, nullptr);
    table2->Open();
    auto* edit2 = dynamic_cast<TjexDBAutoEdit*>(copy->FindComponent("edtName"));
    auto* state2 = dynamic_cast<TjexDBState*>(copy->FindComponent("lblState"));
    auto* win2 = dynamic_cast<TjexDBEditWin*>(copy->FindComponent("ewPeople"));
    ASSERT_TRUE(edit2 && state2 && win2);
    EXPECT_EQ(edit2->PopupFormStyle(), fsStayOnTop);
    EXPECT_EQ(state2->Caption(), "Viewing");
    EXPECT_TRUE(table2->Filtered()); // AutoActivate applied the filter when the table opened
    EXPECT_EQ(table2->RecordCount(), 2);
    EXPECT_EQ(edit2->Text(), "Bob");
    EXPECT_EQ(win2->FieldLabel(1)->Caption(), "Who");
    copy->Free();
    rtl::UnRegisterClasses({TForm::StaticClass(), TEdit::StaticClass(), TjexDBAutoEdit::StaticClass(),
                            TjexDBState::StaticClass(), TjexDBFilter::StaticClass(),
                            TjexDBEditWin::StaticClass(), db::TTable::StaticClass(),
                            db::TDataSource::StaticClass()});
}

} // namespace

#endif // JEX_HAVE_DB
