// Data-aware controls: the field binding, the data-aware control bases and the library's data controls.
#ifdef JEX_HAVE_DB

#include "jex/jexdbctrls.h"

#include <algorithm>
#include <cmath>

#include "jexdbpublish.h"
#include "vcl/dialogs.h"

namespace jex {

using namespace vcl;

namespace {

// Sets a flag for the length of a scope (the control is showing the field's value, not a person).
class TFlagGuard {
public:
    explicit TFlagGuard(bool& Flag) : FFlag(Flag), FOld(Flag) { FFlag = true; }
    ~TFlagGuard() { FFlag = FOld; }
    TFlagGuard(const TFlagGuard&) = delete;
    TFlagGuard& operator=(const TFlagGuard&) = delete;

private:
    bool& FFlag;
    bool FOld;
};

[[noreturn]] void CannotChange(const rtl::TComponent* Control, const db::TField* Field) {
    if (!Field)
        throw EUserActionError(
            rtl::Format("%s is not bound to a field that can be edited", {Control->Name()}));
    throw EUserActionError(rtl::Format(db::SFieldReadOnly, {Field->DisplayName()}));
}

// Writes a control's text into a field: empty text empties a field that holds no text.
void SetFieldText(db::TField* Field, const std::string& Text) {
    bool textual = Field->DataType() == db::ftString || Field->DataType() == db::ftFixedChar ||
                   Field->DataType() == db::ftWideString || Field->IsBlob();
    if (Text.empty() && !textual)
        Field->Clear();
    else
        Field->SetAsString(Text);
}

// Lines of a ';'-separated value list.
std::vector<std::string> SplitValues(const std::string& Text) {
    std::vector<std::string> out;
    size_t start = 0;
    for (;;) {
        size_t p = Text.find(';', start);
        out.push_back(Text.substr(start, p == std::string::npos ? std::string::npos : p - start));
        if (p == std::string::npos) break;
        start = p + 1;
    }
    return out;
}

// Checks a label mask with sample arguments, so that a bad mask is refused when set.
void CheckMask(const std::string& Mask, const std::vector<rtl::TVarRec>& Sample) {
    rtl::Format(Mask, Sample);
}

double DateOf(double v) {
    return std::floor(v);
}

double TimeOf(double v) {
    return v - std::floor(v);
}

} // namespace

// ---- TjexFieldBinding
// --------------------------------------------------------------------------------------
TjexFieldBinding::TjexFieldBinding() : FLink(std::make_unique<db::TFieldDataLink>()) {
    FLink->OnDataChange = [this](rtl::TObject*) {
        if (OnDataChange) OnDataChange();
    };
    FLink->OnUpdateData = [this](rtl::TObject*) {
        if (OnUpdateData) OnUpdateData();
    };
    FLink->OnEditingChange = [this](rtl::TObject*) {
        if (OnEditingChange) OnEditingChange();
    };
    FLink->OnActiveChange = [this](rtl::TObject*) {
        if (OnActiveChange) OnActiveChange();
    };
}

TjexFieldBinding::~TjexFieldBinding() {
    // The control is going away: no more calls into it while the link detaches.
    OnDataChange = nullptr;
    OnUpdateData = nullptr;
    OnEditingChange = nullptr;
    OnActiveChange = nullptr;
}

bool TjexFieldBinding::BeginChange() {
    db::TField* f = Field();
    if (!f || ReadOnly() || !f->CanModify()) return false;
    return FLink->Edit();
}

void TjexFieldBinding::UpdateRecord() {
    if (Editing()) FLink->UpdateRecord();
}

JEX_IMPLEMENT_CLASS(TjexNotifyDataLink, db::TDataLink, "jexdbctrls") {}

// ---- TjexCustomDBEdit
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBEdit, TCustomEdit, "jexdbctrls") {}

TjexCustomDBEdit::TjexCustomDBEdit(rtl::TComponent* AOwner) : TCustomEdit(AOwner) {
    FWidth = 121;
    FHeight = 21;
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBEdit::SetReadOnly(bool Value) {
    FBinding.SetReadOnly(Value);
    TCustomEdit::SetReadOnly(Value);
}

void TjexCustomDBEdit::CheckCanChange() {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
}

void TjexCustomDBEdit::EnterText(const std::string& v) {
    CheckCanChange();
    TCustomEdit::EnterText(v);
}

void TjexCustomDBEdit::KeyPress(char& Key) {
    if (Key == 27) {
        FBinding.Reset();
        Key = 0;
        return;
    }
    if ((static_cast<unsigned char>(Key) >= 32 || Key == 8) && !FBinding.BeginChange()) {
        Key = 0;
        return;
    }
    TCustomEdit::KeyPress(Key);
}

void TjexCustomDBEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
    if (Key == VK_ESCAPE && FBinding.Editing()) {
        FBinding.Reset();
        SelectAll();
    }
    TCustomEdit::KeyDown(Key, Shift);
}

void TjexCustomDBEdit::DoExit() {
    FBinding.UpdateRecord();
    TCustomEdit::DoExit();
}

void TjexCustomDBEdit::Change() {
    if (!FShowing) FBinding.Modified();
    TCustomEdit::Change();
}

void TjexCustomDBEdit::DataChange() {
    TFlagGuard g(FShowing);
    db::TField* f = FBinding.Field();
    TControl::SetText(f ? f->Text() : std::string());
    SetModified(false);
}

void TjexCustomDBEdit::UpdateData() {
    if (db::TField* f = FBinding.Field()) SetFieldText(f, Text());
}

// ---- TjexCustomDBText
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBText, TCustomLabel, "jexdbctrls") {}

TjexCustomDBText::TjexCustomDBText(rtl::TComponent* AOwner) : TCustomLabel(AOwner) {
    SetAutoSize(false);
    FWidth = 65;
    FHeight = 17;
    FBinding.OnDataChange = [this] { DataChange(); };
}

void TjexCustomDBText::DataChange() {
    db::TField* f = FBinding.Field();
    TControl::SetText(f ? f->DisplayText() : std::string());
}

// ---- TjexCustomDBMemo
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBMemo, TCustomMemo, "jexdbctrls") {}

TjexCustomDBMemo::TjexCustomDBMemo(rtl::TComponent* AOwner) : TCustomMemo(AOwner) {
    FWidth = 185;
    FHeight = 89;
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBMemo::SetReadOnly(bool Value) {
    FBinding.SetReadOnly(Value);
    TCustomMemo::SetReadOnly(Value);
}

void TjexCustomDBMemo::SetAutoDisplay(bool Value) {
    if (FAutoDisplay == Value) return;
    FAutoDisplay = Value;
    if (Value) LoadMemo();
}

void TjexCustomDBMemo::LoadMemo() {
    FMemoLoaded = true;
    TFlagGuard g(FShowing);
    db::TField* f = FBinding.Field();
    SetText(f ? f->AsString() : std::string());
}

void TjexCustomDBMemo::DataChange() {
    db::TField* f = FBinding.Field();
    if (f && !FAutoDisplay && !(FMemoLoaded && FBinding.Editing())) {
        FMemoLoaded = false;
        TFlagGuard g(FShowing);
        SetText("(" + f->DisplayLabel() + ")");
        return;
    }
    FMemoLoaded = FAutoDisplay;
    TFlagGuard g(FShowing);
    SetText(f ? f->AsString() : std::string());
}

void TjexCustomDBMemo::UpdateData() {
    if (db::TField* f = FBinding.Field()) SetFieldText(f, Text());
}

void TjexCustomDBMemo::EnterText(const std::string& v) {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    if (!FMemoLoaded) LoadMemo();
    TCustomMemo::EnterText(v);
}

void TjexCustomDBMemo::KeyPress(char& Key) {
    if (Key == 27) {
        FBinding.Reset();
        Key = 0;
        return;
    }
    if ((static_cast<unsigned char>(Key) >= 32 || Key == 8 || Key == 13 || Key == 9) &&
        !FBinding.BeginChange()) {
        Key = 0;
        return;
    }
    if (!FMemoLoaded) LoadMemo();
    TCustomMemo::KeyPress(Key);
}

void TjexCustomDBMemo::KeyDown(uint16_t& Key, TShiftState Shift) {
    if (Key == VK_ESCAPE && FBinding.Editing()) FBinding.Reset();
    TCustomMemo::KeyDown(Key, Shift);
}

void TjexCustomDBMemo::DoExit() {
    FBinding.UpdateRecord();
    TCustomMemo::DoExit();
}

void TjexCustomDBMemo::Change() {
    if (!FShowing) FBinding.Modified();
    TCustomMemo::Change();
}

void TjexCustomDBMemo::UserDblClick() {
    if (!FMemoLoaded) LoadMemo();
    TCustomMemo::UserDblClick();
}

// ---- TjexCustomDBImage
// --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBImage, TCustomControl, "jexdbctrls") {}

TjexCustomDBImage::TjexCustomDBImage(rtl::TComponent* AOwner)
    : TCustomControl(AOwner), FPicture(std::make_unique<TPicture>()) {
    FWidth = 105;
    FHeight = 105;
    FTabStop = true;
    FColor = clWindow;
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

TjexCustomDBImage::~TjexCustomDBImage() = default;

void TjexCustomDBImage::SetAutoDisplay(bool Value) {
    if (FAutoDisplay == Value) return;
    FAutoDisplay = Value;
    if (Value) LoadPicture();
}

void TjexCustomDBImage::LoadPicture() {
    FLoaded = true;
    FInvalidData = false;
    db::TField* f = FBinding.Field();
    if (!f || f->IsNull()) {
        FPicture->Assign(nullptr);
        return;
    }
    std::string bytes = f->AsString();
    try {
        TBitmap bmp;
        bmp.LoadFromBytes(std::vector<uint8_t>(bytes.begin(), bytes.end()));
        FPicture->Assign(&bmp);
    } catch (const rtl::Exception&) {
        // Not a picture: nothing is shown, and the field keeps its bytes.
        FPicture->Assign(nullptr);
        FInvalidData = true;
    }
}

void TjexCustomDBImage::DataChange() {
    if (FAutoDisplay) {
        LoadPicture();
    } else {
        FLoaded = false;
        FInvalidData = false;
        FPicture->Assign(nullptr);
    }
}

void TjexCustomDBImage::UpdateData() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    if (!FPicture->Graphic() || FPicture->Width() == 0) {
        f->Clear();
        return;
    }
    std::vector<uint8_t> bytes;
    FPicture->Bitmap()->SaveToBytes(bytes);
    f->SetAsString(std::string(bytes.begin(), bytes.end()));
}

void TjexCustomDBImage::LoadFromFile(const std::string& FileName) {
    TPicture loaded;
    loaded.LoadFromFile(FileName); // raises before anything changes
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    FPicture->Assign(&loaded);
    FLoaded = true;
    FInvalidData = false;
    FBinding.Modified();
}

void TjexCustomDBImage::ClearPicture() {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    FPicture->Assign(nullptr);
    FBinding.Modified();
}

void TjexCustomDBImage::DoExit() {
    FBinding.UpdateRecord();
    TCustomControl::DoExit();
}

void TjexCustomDBImage::UserDblClick() {
    if (!FLoaded) LoadPicture();
    TCustomControl::UserDblClick();
}

void TjexCustomDBImage::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.PictureWidth = FPicture->Width();
    d.PictureHeight = FPicture->Height();
    d.ReadOnly = FBinding.ReadOnly();
}

// ---- TjexCustomDBListBox
// ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBListBox, TCustomListBox, "jexdbctrls") {}

TjexCustomDBListBox::TjexCustomDBListBox(rtl::TComponent* AOwner) : TCustomListBox(AOwner) {
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBListBox::DataChange() {
    TFlagGuard g(FShowing);
    db::TField* f = FBinding.Field();
    SetItemIndex(f ? Items()->IndexOf(f->Text()) : -1);
}

void TjexCustomDBListBox::UpdateData() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    int i = ItemIndex();
    SetFieldText(f, i >= 0 ? Items()->Strings(i) : std::string());
}

void TjexCustomDBListBox::Click() {
    // A person's choice (programmatic selection raises no click): it must be allowed first.
    if (!FShowing) {
        int chosen = ItemIndex();
        if (!FBinding.BeginChange()) {
            DataChange();
            CannotChange(this, FBinding.Field());
        }
        {
            TFlagGuard g(FShowing);
            SetItemIndex(chosen);
        }
        FBinding.Modified();
    }
    TCustomListBox::Click();
}

void TjexCustomDBListBox::DoExit() {
    FBinding.UpdateRecord();
    TCustomListBox::DoExit();
}

// ---- TjexCustomDBComboBox
// -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBComboBox, TCustomComboBox, "jexdbctrls") {}

TjexCustomDBComboBox::TjexCustomDBComboBox(rtl::TComponent* AOwner) : TCustomComboBox(AOwner) {
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBComboBox::CheckCanChange() {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
}

void TjexCustomDBComboBox::DataChange() {
    TFlagGuard g(FShowing);
    db::TField* f = FBinding.Field();
    SetText(f ? f->Text() : std::string());
}

void TjexCustomDBComboBox::UpdateData() {
    if (db::TField* f = FBinding.Field()) SetFieldText(f, Text());
}

void TjexCustomDBComboBox::Change() {
    if (!FShowing) FBinding.Modified();
    TCustomComboBox::Change();
}

void TjexCustomDBComboBox::UserType(const std::string& Text) {
    CheckCanChange();
    TCustomComboBox::UserType(Text);
    FBinding.Modified();
}

void TjexCustomDBComboBox::UserSelect(int Index) {
    CheckCanChange();
    TCustomComboBox::UserSelect(Index);
    FBinding.Modified();
}

void TjexCustomDBComboBox::UserSelectText(const std::string& Text) {
    CheckCanChange();
    TCustomComboBox::UserSelectText(Text);
    FBinding.Modified();
}

void TjexCustomDBComboBox::DoExit() {
    FBinding.UpdateRecord();
    TCustomComboBox::DoExit();
}

// ---- TjexCustomDBCheckBox
// -----------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBCheckBox, TCustomCheckBox, "jexdbctrls") {}

TjexCustomDBCheckBox::TjexCustomDBCheckBox(rtl::TComponent* AOwner) : TCustomCheckBox(AOwner) {
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBCheckBox::SetValueChecked(const std::string& Value) {
    FValueChecked = Value;
    DataChange();
}

void TjexCustomDBCheckBox::SetValueUnchecked(const std::string& Value) {
    FValueUnchecked = Value;
    DataChange();
}

void TjexCustomDBCheckBox::DataChange() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    TCheckBoxState state = cbGrayed;
    if (!f->IsNull()) {
        if (f->DataType() == db::ftBoolean) {
            state = f->AsBoolean() ? cbChecked : cbUnchecked;
        } else {
            std::string text = f->Text();
            auto in = [&](const std::string& list) {
                for (const std::string& v : SplitValues(list))
                    if (rtl::SameText(v, text)) return true;
                return false;
            };
            if (in(FValueChecked))
                state = cbChecked;
            else if (in(FValueUnchecked))
                state = cbUnchecked;
        }
    }
    TFlagGuard g(FShowing);
    SetState(state);
}

void TjexCustomDBCheckBox::UpdateData() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    if (State() == cbGrayed)
        f->Clear();
    else if (f->DataType() == db::ftBoolean)
        f->SetAsBoolean(Checked());
    else
        f->SetAsString(SplitValues(Checked() ? FValueChecked : FValueUnchecked).front());
}

void TjexCustomDBCheckBox::UserClick() {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    TCustomCheckBox::UserClick();
    FBinding.Modified();
}

void TjexCustomDBCheckBox::UserCheck(bool v) {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    TCustomCheckBox::UserCheck(v);
    FBinding.Modified();
}

void TjexCustomDBCheckBox::DoExit() {
    FBinding.UpdateRecord();
    TCustomCheckBox::DoExit();
}

// ---- TjexCustomDBRadioGroup
// ---------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBRadioGroup, TCustomRadioGroup, "jexdbctrls") {}

TjexCustomDBRadioGroup::TjexCustomDBRadioGroup(rtl::TComponent* AOwner)
    : TCustomRadioGroup(AOwner), FValues(std::make_unique<rtl::TStringList>()) {
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
    FValues->OnChange = [this](rtl::TObject*) { DataChange(); };
}

TjexCustomDBRadioGroup::~TjexCustomDBRadioGroup() {
    FValues->OnChange = nullptr;
}

std::string TjexCustomDBRadioGroup::Value() const {
    int i = ItemIndex();
    if (i < 0) return {};
    return i < FValues->Count() ? FValues->Strings(i) : Items()->Strings(i);
}

void TjexCustomDBRadioGroup::DataChange() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    std::string text = f->Text();
    int found = -1;
    for (int i = 0; i < Items()->Count() && found < 0; ++i) {
        std::string v = i < FValues->Count() ? FValues->Strings(i) : Items()->Strings(i);
        if (rtl::SameText(v, text)) found = i;
    }
    TFlagGuard g(FShowing);
    SetItemIndex(found);
}

void TjexCustomDBRadioGroup::UpdateData() {
    if (db::TField* f = FBinding.Field()) SetFieldText(f, Value());
}

void TjexCustomDBRadioGroup::UserSelect(int Index) {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    TCustomRadioGroup::UserSelect(Index);
    FBinding.Modified();
    // A radio group has no exit of its own to wait for: the choice goes into the record at once.
    FBinding.UpdateRecord();
}

void TjexCustomDBRadioGroup::UserSelectText(const std::string& Text) {
    int i = Items()->IndexOf(Text);
    if (i < 0) throw EUserActionError("No item '" + Text + "' in " + Name());
    UserSelect(i);
}

// ---- Lookup lists
// ---------------------------------------------------------------------------------------------
TjexLookupList::TjexLookupList(std::function<void()> OnChanged)
    : FLink(std::make_unique<TjexNotifyDataLink>()), FOnChanged(std::move(OnChanged)) {
    FLink->OnChange = [this] {
        if (FLoading) return;
        Reload();
    };
}

TjexLookupList::~TjexLookupList() {
    FLink->OnChange = nullptr;
}

void TjexLookupList::SetListSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    Reload();
}

void TjexLookupList::SetKeyField(const std::string& Value) {
    FKeyField = Value;
    Reload();
}

void TjexLookupList::SetListField(const std::string& Value) {
    FListField = Value;
    Reload();
}

int TjexLookupList::IndexOfKey(const db::Variant& Key) const {
    if (Key.IsNull()) return -1;
    for (size_t i = 0; i < FEntries.size(); ++i)
        if (db::CompareVariants(FEntries[i].Key, Key) == 0) return static_cast<int>(i);
    return -1;
}

void TjexLookupList::Reload() {
    std::vector<TEntry> entries;
    db::TDataSet* ds = FLink->DataSet();
    if (ds && ds->Active() && ds->State() == db::dsBrowse && !FKeyField.empty()) {
        std::vector<std::string> shown = db::SplitFieldNames(FListField);
        db::TField* key = ds->FindField(FKeyField);
        db::TField* text = ds->FindField(shown.empty() ? FKeyField : shown.front());
        if (key && text) {
            FLoading = true;
            ds->DisableControls();
            try {
                db::TBookmark mark = ds->GetBookmark();
                ds->First();
                while (!ds->Eof()) {
                    entries.push_back({key->Value(), text->DisplayText()});
                    ds->Next();
                }
                if (!mark.empty() && ds->BookmarkValid(mark)) ds->GotoBookmark(mark);
            } catch (...) {
                ds->EnableControls();
                FLoading = false;
                throw;
            }
            ds->EnableControls();
            FLoading = false;
        }
    }
    FEntries = std::move(entries);
    if (FOnChanged) FOnChanged();
}

// ---- TjexCustomDBLookupListBox
// ------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBLookupListBox, TCustomListBox, "jexdbctrls") {}

TjexCustomDBLookupListBox::TjexCustomDBLookupListBox(rtl::TComponent* AOwner)
    : TCustomListBox(AOwner), FList([this] { ListChanged(); }) {
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBLookupListBox::ListChanged() {
    {
        TFlagGuard g(FShowing);
        Items()->BeginUpdate();
        Items()->Clear();
        for (const auto& e : FList.Entries())
            Items()->Add(e.Text);
        Items()->EndUpdate();
    }
    DataChange();
}

db::Variant TjexCustomDBLookupListBox::KeyValue() const {
    int i = ItemIndex();
    return i >= 0 && i < static_cast<int>(FList.Entries().size())
               ? FList.Entries()[static_cast<size_t>(i)].Key
               : db::Variant();
}

void TjexCustomDBLookupListBox::DataChange() {
    db::TField* f = FBinding.Field();
    TFlagGuard g(FShowing);
    SetItemIndex(f ? FList.IndexOfKey(f->Value()) : -1);
}

void TjexCustomDBLookupListBox::UpdateData() {
    if (db::TField* f = FBinding.Field()) f->SetValue(KeyValue());
}

void TjexCustomDBLookupListBox::Click() {
    if (!FShowing) {
        int chosen = ItemIndex();
        if (!FBinding.BeginChange()) {
            DataChange();
            CannotChange(this, FBinding.Field());
        }
        {
            TFlagGuard g(FShowing);
            SetItemIndex(chosen);
        }
        FBinding.Modified();
        FBinding.UpdateRecord();
    }
    TCustomListBox::Click();
}

// ---- TjexCustomDBLookupComboBox
// -----------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomDBLookupComboBox, TCustomComboBox, "jexdbctrls") {}

TjexCustomDBLookupComboBox::TjexCustomDBLookupComboBox(rtl::TComponent* AOwner)
    : TCustomComboBox(AOwner), FList([this] { ListChanged(); }) {
    SetStyle(csDropDownList);
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexCustomDBLookupComboBox::ListChanged() {
    {
        TFlagGuard g(FShowing);
        Items()->BeginUpdate();
        Items()->Clear();
        for (const auto& e : FList.Entries())
            Items()->Add(e.Text);
        Items()->EndUpdate();
    }
    DataChange();
}

db::Variant TjexCustomDBLookupComboBox::KeyValue() const {
    int i = ItemIndex();
    return i >= 0 && i < static_cast<int>(FList.Entries().size())
               ? FList.Entries()[static_cast<size_t>(i)].Key
               : db::Variant();
}

void TjexCustomDBLookupComboBox::DataChange() {
    db::TField* f = FBinding.Field();
    TFlagGuard g(FShowing);
    SetItemIndex(f ? FList.IndexOfKey(f->Value()) : -1);
}

void TjexCustomDBLookupComboBox::UpdateData() {
    if (db::TField* f = FBinding.Field()) f->SetValue(KeyValue());
}

void TjexCustomDBLookupComboBox::UserSelect(int Index) {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    {
        TFlagGuard g(FShowing);
        TCustomComboBox::UserSelect(Index);
    }
    FBinding.Modified();
    FBinding.UpdateRecord();
}

void TjexCustomDBLookupComboBox::UserSelectText(const std::string& Text) {
    int i = Items()->IndexOf(Text);
    if (i < 0) throw EUserActionError("No item '" + Text + "' in " + Name());
    UserSelect(i);
}

// ---- Popup editor
// ---------------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexPopupBlobAs)
JEX_IMPLEMENT_CLASS(TjexDBPopupEditForm, TForm, "jexdbctrls") {}

TjexDBPopupEditForm::TjexDBPopupEditForm(rtl::TComponent* AOwner, db::TField* Field, TjexPopupBlobAs BlobAs)
    : TForm(AOwner),
      FText(BlobAs == jpbText || (Field && !Field->IsBlob()) || (Field && Field->DataType() == db::ftMemo)) {
    SetName("jexdbPopupEdit");
    SetCaption(Field ? Field->DisplayLabel() : std::string());
    SetPosition(poScreenCenter);
    SetBounds(0, 0, 420, 300);
    if (FText) {
        FMemo = new TMemo(this);
        FMemo->SetName("memEdit");
        FMemo->SetParent(this);
        FMemo->SetBounds(8, 8, 396, 220);
        FMemo->SetScrollBars(ssBoth);
        if (Field && !Field->IsNull()) FMemo->SetText(Field->AsString());
    } else {
        FImage = new TImage(this);
        FImage->SetName("imgEdit");
        FImage->SetParent(this);
        FImage->SetBounds(8, 8, 396, 220);
        if (Field && !Field->IsNull()) {
            std::string bytes = Field->AsString();
            try {
                TBitmap bmp;
                bmp.LoadFromBytes(std::vector<uint8_t>(bytes.begin(), bytes.end()));
                FImage->Picture()->Assign(&bmp);
            } catch (const rtl::Exception&) {
            }
        }
        FLoad = new TButton(this);
        FLoad->SetName("btnLoad");
        FLoad->SetParent(this);
        FLoad->SetCaption("&Load...");
        FLoad->SetBounds(8, 236, 75, 25);
        FLoad->OnClick = [this](rtl::TObject*) {
            TOpenDialog dlg(nullptr);
            dlg.SetFilter(GraphicFilter(nullptr));
            dlg.SetOptions(dlg.Options() + TOpenOptions{ofFileMustExist});
            if (dlg.Execute()) FImage->Picture()->LoadFromFile(dlg.FileName());
        };
    }
    FOK = new TButton(this);
    FOK->SetName("btnOK");
    FOK->SetParent(this);
    FOK->SetCaption("OK");
    FOK->SetDefault(true);
    FOK->SetModalResult(mrOk);
    FOK->SetBounds(248, 236, 75, 25);
    FCancel = new TButton(this);
    FCancel->SetName("btnCancel");
    FCancel->SetParent(this);
    FCancel->SetCaption("Cancel");
    FCancel->SetCancel(true);
    FCancel->SetModalResult(mrCancel);
    FCancel->SetBounds(329, 236, 75, 25);
}

void TjexDBPopupEditForm::ApplyTo(db::TField* Field) const {
    if (FText) {
        SetFieldText(Field, FMemo->Text());
        return;
    }
    TPicture* pic = FImage->Picture();
    if (!pic->Graphic() || pic->Width() == 0) {
        Field->Clear();
        return;
    }
    std::vector<uint8_t> bytes;
    pic->Bitmap()->SaveToBytes(bytes);
    Field->SetAsString(std::string(bytes.begin(), bytes.end()));
}

bool jexPopupEditField(db::TDataSource* Source, db::TField* Field, TjexPopupBlobAs BlobAs,
                       TFormStyle FormStyle, const std::string& Caption) {
    if (!Field) return false;
    auto* form = NewForm<TjexDBPopupEditForm>(nullptr, Field, BlobAs);
    bool changed = false;
    try {
        form->SetFormStyle(FormStyle);
        if (!Caption.empty()) form->SetCaption(Caption);
        bool canEdit = Field->CanModify();
        if (!canEdit) {
            if (form->Memo()) form->Memo()->SetReadOnly(true);
        }
        if (form->ShowModal() == mrOk && canEdit) {
            db::TDataSet* ds = Field->DataSet();
            if (ds->State() != db::dsEdit && ds->State() != db::dsInsert) {
                if (Source)
                    Source->Edit();
                else
                    ds->Edit();
            }
            if (ds->State() == db::dsEdit || ds->State() == db::dsInsert) {
                form->ApplyTo(Field);
                changed = true;
            }
        }
    } catch (...) {
        form->Free();
        throw;
    }
    form->Free();
    return changed;
}

// ---- TjexDBRichEdit ---------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexDBRichEditorOption)
JEX_DEFINE_SET(TjexDBRichEditorOptions, TjexDBRichEditorOption)
JEX_DEFINE_ENUM(TjexDBRichPopupOption)
JEX_DEFINE_SET(TjexDBRichPopupOptions, TjexDBRichPopupOption)

JEX_IMPLEMENT_CLASS(TjexDBRichPrintMargins, rtl::TPersistent, "jexdbctrls") {
    d.Property("Bottom", &TjexDBRichPrintMargins::Bottom, &TjexDBRichPrintMargins::SetBottom).Default(100);
    d.Property("Left", &TjexDBRichPrintMargins::Left, &TjexDBRichPrintMargins::SetLeft).Default(100);
    d.Property("Right", &TjexDBRichPrintMargins::Right, &TjexDBRichPrintMargins::SetRight).Default(100);
    d.Property("Top", &TjexDBRichPrintMargins::Top, &TjexDBRichPrintMargins::SetTop).Default(100);
}

void TjexDBRichPrintMargins::Assign(rtl::TPersistent* Source) {
    if (auto* m = dynamic_cast<TjexDBRichPrintMargins*>(Source)) {
        FLeft = m->FLeft;
        FTop = m->FTop;
        FRight = m->FRight;
        FBottom = m->FBottom;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

JEX_IMPLEMENT_CLASS(TjexDBRichEdit, TjexCustomDBMemo, "jexdbctrls") {
    dbpub::DBMemo(d);
    d.Property("AcceptDroppedFiles", &TjexDBRichEdit::AcceptDroppedFiles,
               &TjexDBRichEdit::SetAcceptDroppedFiles)
        .Default(false);
    d.Property("EditorOptions", &TjexDBRichEdit::EditorOptions, &TjexDBRichEdit::SetEditorOptions)
        .Default(
            TjexDBRichEditorOptions{jreoWordWrap, jreoWantTabs, jreoWantReturns, jreoShowToolbar}.Bits());
    d.Property("EditorWindowState", &TjexDBRichEdit::EditorWindowState, &TjexDBRichEdit::SetEditorWindowState)
        .Default(wsNormal);
    d.Property("FileTemplate", &TjexDBRichEdit::FileTemplate, &TjexDBRichEdit::SetFileTemplate,
               rtl::TypeInfo_TFileName());
    d.Property("PopupOptions", &TjexDBRichEdit::PopupOptions, &TjexDBRichEdit::SetPopupOptions)
        .Default(TjexDBRichPopupOptions{jrpoCutCopyPaste, jrpoUndo, jrpoFind, jrpoEditor}.Bits());
    d.Property("PrintMargins", &TjexDBRichEdit::PrintMargins, &TjexDBRichEdit::SetPrintMargins);
    d.Property("PrintTitle", &TjexDBRichEdit::PrintTitle, &TjexDBRichEdit::SetPrintTitle);
}

TjexDBRichEdit::TjexDBRichEdit(rtl::TComponent* AOwner)
    : TjexCustomDBMemo(AOwner), FPrintMargins(std::make_unique<TjexDBRichPrintMargins>()) {}

TjexDBRichEdit::~TjexDBRichEdit() = default;

void TjexDBRichEdit::SetEditorOptions(TjexDBRichEditorOptions Value) {
    FEditorOptions = Value;
}

bool TjexDBRichEdit::IsRichText() const {
    std::string t = rtl::TrimLeft(Text());
    return t.rfind("{\\rtf", 0) == 0;
}

void TjexDBRichEdit::LoadFromFile(const std::string& FileName) {
    std::string content = rtl::ReadFileBytes(FileName); // EFOpenError before anything changes
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    FMemoLoaded = true;
    SetText(content);
    FBinding.Modified();
}

bool TjexDBRichEdit::DropFile(const std::string& FileName) {
    if (!FAcceptDroppedFiles) return false;
    LoadFromFile(FileName);
    return true;
}

bool TjexDBRichEdit::ApplyTemplate() {
    if (FFileTemplate.empty() || !Text().empty()) return false;
    LoadFromFile(FFileTemplate);
    return true;
}

bool TjexDBRichEdit::ExecuteEditor() {
    db::TField* f = FBinding.Field();
    if (!f) return false;
    FBinding.UpdateRecord();
    auto* form = NewForm<TjexDBPopupEditForm>(nullptr, f, jpbText);
    bool changed = false;
    try {
        form->SetWindowState(FEditorWindowState);
        form->SetCaption(FPrintTitle.empty() ? f->DisplayLabel() : FPrintTitle);
        TMemo* memo = form->Memo();
        memo->SetWordWrap(FEditorOptions.Contains(jreoWordWrap));
        memo->SetWantTabs(FEditorOptions.Contains(jreoWantTabs));
        memo->SetWantReturns(FEditorOptions.Contains(jreoWantReturns));
        bool canEdit = !FBinding.ReadOnly() && f->CanModify();
        memo->SetReadOnly(!canEdit);
        if (form->ShowModal() == mrOk && canEdit && FBinding.BeginChange()) {
            FMemoLoaded = true;
            SetText(memo->Text());
            FBinding.Modified();
            changed = true;
        }
    } catch (...) {
        form->Free();
        throw;
    }
    form->Free();
    return changed;
}

// ---- TjexDBAutoEdit
// -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBAutoEdit, TjexCustomDBEdit, "jexdbctrls") {
    dbpub::DBEdit(d);
    d.Property("PopupAutoEdit", &TjexDBAutoEdit::PopupAutoEdit, &TjexDBAutoEdit::SetPopupAutoEdit)
        .Default(true);
    d.Property("PopupEditBlobAs", &TjexDBAutoEdit::PopupEditBlobAs, &TjexDBAutoEdit::SetPopupEditBlobAs)
        .Default(jpbText);
    d.Property("PopupFormStyle", &TjexDBAutoEdit::PopupFormStyle, &TjexDBAutoEdit::SetPopupFormStyle)
        .Default(fsNormal);
}

bool TjexDBAutoEdit::IsBlobField() const {
    db::TField* f = FBinding.Field();
    return f && f->IsBlob();
}

bool TjexDBAutoEdit::PopupEdit() {
    db::TField* f = FBinding.Field();
    if (!f) return false;
    FBinding.UpdateRecord();
    return jexPopupEditField(FBinding.DataSource(), f, FPopupEditBlobAs, FPopupFormStyle, f->DisplayLabel());
}

void TjexDBAutoEdit::EnterText(const std::string& v) {
    if (IsBlobField() && FPopupAutoEdit) {
        PopupEdit();
        return;
    }
    TjexCustomDBEdit::EnterText(v);
}

void TjexDBAutoEdit::UserDblClick() {
    if (IsBlobField()) {
        PopupEdit();
        return;
    }
    TjexCustomDBEdit::UserDblClick();
}

void TjexDBAutoEdit::DataChange() {
    db::TField* f = FBinding.Field();
    if (f && f->IsBlob() && f->DataType() != db::ftMemo && f->DataType() != db::ftFmtMemo) {
        // Binary data has no text to show inline.
        TFlagGuard g(FShowing);
        TControl::SetText(f->IsNull() ? std::string() : "(" + db::FieldTypeName(f->DataType()) + ")");
        return;
    }
    TjexCustomDBEdit::DataChange();
}

// ---- TjexDBEditLabel
// ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBEditLabel, TjexCustomEditLabel, "jexdbctrls") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("Caption", &TjexDBEditLabel::LabelCaption, &TjexDBEditLabel::SetLabelCaption,
               TypeInfo_TCaption());
    d.Property("CaptionAuto", &TjexDBEditLabel::CaptionAuto, &TjexDBEditLabel::SetCaptionAuto).Default(true);
    pub::Color(d, clBtnFace);
    dbpub::DataFieldSource(d);
    d.Property("EditColor", &TjexDBEditLabel::EditColor, &TjexDBEditLabel::SetEditColor, TypeInfo_TColor())
        .Default(clWindow)
        .Stored(&TjexDBEditLabel::IsEditColorStored);
    d.Property("EditFont", &TjexDBEditLabel::EditFont, &TjexDBEditLabel::SetEditFont)
        .Stored(&TjexDBEditLabel::IsEditFontStored);
    d.Property("EditParentColor", &TjexDBEditLabel::EditParentColor, &TjexDBEditLabel::SetEditParentColor)
        .Default(false);
    d.Property("EditParentFont", &TjexDBEditLabel::EditParentFont, &TjexDBEditLabel::SetEditParentFont)
        .Default(true);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("LabelFont", &TjexDBEditLabel::LabelFont, &TjexDBEditLabel::SetLabelFont)
        .Stored(&TjexDBEditLabel::IsLabelFontStored);
    d.Property("LabelHeight", &TjexDBEditLabel::LabelHeight, &TjexDBEditLabel::SetLabelHeight).Default(17);
    d.Property("LabelOffsetX", &TjexDBEditLabel::LabelOffsetX, &TjexDBEditLabel::SetLabelOffsetX).Default(4);
    d.Property("LabelOffsetY", &TjexDBEditLabel::LabelOffsetY, &TjexDBEditLabel::SetLabelOffsetY).Default(3);
    d.Property("LabelParentFont", &TjexDBEditLabel::LabelParentFont, &TjexDBEditLabel::SetLabelParentFont)
        .Default(true);
    d.Property("LabelWidth", &TjexDBEditLabel::LabelWidth, &TjexDBEditLabel::SetLabelWidth).Default(60);
    d.Property("Layout", &TjexDBEditLabel::Layout, &TjexDBEditLabel::SetLayout).Default(jelLeft);
    d.Property("MaxLength", &TjexDBEditLabel::MaxLength, &TjexDBEditLabel::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TjexDBEditLabel::ReadOnly, &TjexDBEditLabel::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Event("OnChange", &TjexDBEditLabel::OnChange);
    pub::OnClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TjexDBEditLabel::TjexDBEditLabel(rtl::TComponent* AOwner) : TjexCustomEditLabel(AOwner) {
    Edit()->OnChange = [this](rtl::TObject*) {
        if (!FShowing) FBinding.Modified();
        OnChange(this);
    };
    Edit()->OnExit = [this](rtl::TObject*) { FBinding.UpdateRecord(); };
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
}

void TjexDBEditLabel::SetCaptionAuto(bool Value) {
    FCaptionAuto = Value;
    DataChange();
}

void TjexDBEditLabel::SetReadOnly(bool Value) {
    FBinding.SetReadOnly(Value);
    TjexCustomEditLabel::SetReadOnly(Value);
}

void TjexDBEditLabel::UserType(const std::string& Text) {
    if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    TjexCustomEditLabel::UserType(Text);
}

void TjexDBEditLabel::DataChange() {
    db::TField* f = FBinding.Field();
    TFlagGuard g(FShowing);
    if (f || FBinding.DataSource()) SetEditText(f ? f->Text() : std::string());
    if (f && FCaptionAuto) SetLabelCaption(f->DisplayLabel());
}

void TjexDBEditLabel::UpdateData() {
    if (db::TField* f = FBinding.Field()) SetFieldText(f, EditText());
}

// ---- Record count and state labels
// -------------------------------------------------------------------------
namespace {
template <class C> void PublishDBLabel(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    d.Property("Alignment", &TCustomLabel::Alignment, &TCustomLabel::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoSize", &TCustomLabel::AutoSize, &TCustomLabel::SetAutoSize).Default(true);
    pub::Color(d, clBtnFace);
    d.Property("DataSource", &C::DataSource, &C::SetDataSource);
    d.Property("DisabledCaption", &C::DisabledCaption, &C::SetDisabledCaption);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Layout", &TCustomLabel::Layout, &TCustomLabel::SetLayout).Default(tlTop);
    d.Property("Mask", &C::Mask, &C::SetMask);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Transparent", &TCustomLabel::Transparent, &TCustomLabel::SetTransparent).Default(false);
    pub::Visible(d);
    d.Property("WordWrap", &TCustomLabel::WordWrap, &TCustomLabel::SetWordWrap).Default(false);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}
} // namespace

JEX_IMPLEMENT_CLASS(TjexDBRecordCount, TjexCustomLabel, "jexdbctrls") {
    PublishDBLabel(d);
}

TjexDBRecordCount::TjexDBRecordCount(rtl::TComponent* AOwner)
    : TjexCustomLabel(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()) {
    FLink->OnChange = [this] { UpdateCaption(); };
    UpdateCaption();
}

TjexDBRecordCount::~TjexDBRecordCount() {
    FLink->OnChange = nullptr;
}

void TjexDBRecordCount::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    UpdateCaption();
}

void TjexDBRecordCount::SetMask(const std::string& Value) {
    CheckMask(Value, {1, 1});
    FMask = Value;
    UpdateCaption();
}

void TjexDBRecordCount::SetDisabledCaption(const std::string& Value) {
    FDisabledCaption = Value;
    UpdateCaption();
}

std::string TjexDBRecordCount::CurrentText() const {
    db::TDataSet* ds = FLink->DataSet();
    if (!FLink->Active() || !ds) return FDisabledCaption;
    int count = ds->RecordCount();
    int rec = ds->State() == db::dsInsert ? count + 1 : ds->RecNo();
    if (ds->State() == db::dsInsert) ++count;
    return rtl::Format(FMask, {rec, count});
}

void TjexDBRecordCount::UpdateCaption() {
    ShowText(CurrentText());
}

JEX_IMPLEMENT_CLASS(TjexDBState, TjexCustomLabel, "jexdbctrls") {
    PublishDBLabel(d);
    d.Property("States", &TjexDBState::States, &TjexDBState::SetStates).Stored(&TjexDBState::IsStatesStored);
}

std::vector<std::string> TjexDBState::DefaultStates() {
    return {"Inactive", "Browse",   "Edit",     "Insert",    "SetKey",       "CalcFields", "Filter",
            "NewValue", "OldValue", "CurValue", "BlockRead", "InternalCalc", "Opening"};
}

TjexDBState::TjexDBState(rtl::TComponent* AOwner)
    : TjexCustomLabel(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()),
      FStates(std::make_unique<rtl::TStringList>()) {
    FStates->AddStrings(DefaultStates());
    FStates->OnChange = [this](rtl::TObject*) { UpdateCaption(); };
    FLink->OnChange = [this] { UpdateCaption(); };
    UpdateCaption();
}

TjexDBState::~TjexDBState() {
    FLink->OnChange = nullptr;
    FStates->OnChange = nullptr;
}

bool TjexDBState::IsStatesStored() const {
    return FStates->ToVector() != DefaultStates();
}

void TjexDBState::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    UpdateCaption();
}

void TjexDBState::SetMask(const std::string& Value) {
    CheckMask(Value, {std::string("Browse")});
    FMask = Value;
    UpdateCaption();
}

void TjexDBState::SetDisabledCaption(const std::string& Value) {
    FDisabledCaption = Value;
    UpdateCaption();
}

std::string TjexDBState::CurrentText() const {
    db::TDataSource* src = FLink->DataSource();
    db::TDataSetState state = src ? src->State() : db::dsInactive;
    if (state == db::dsInactive && !FDisabledCaption.empty()) return FDisabledCaption;
    int i = static_cast<int>(state);
    std::string name = i < FStates->Count() ? FStates->Strings(i) : std::string();
    return rtl::Format(FMask, {name});
}

void TjexDBState::UpdateCaption() {
    ShowText(CurrentText());
}

// ---- TjexDBCurrencyLabel
// ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBCurrencyLabel, TjexCurrencyLabel, "jexdbctrls") {
    dbpub::DataFieldSource(d);
}

TjexDBCurrencyLabel::TjexDBCurrencyLabel(rtl::TComponent* AOwner) : TjexCurrencyLabel(AOwner) {
    FBinding.OnDataChange = [this] { DataChange(); };
}

void TjexDBCurrencyLabel::DataChange() {
    db::TField* f = FBinding.Field();
    double v = 0;
    if (f && !f->IsNull()) {
        try {
            v = f->AsFloat();
        } catch (const rtl::Exception&) {
            v = 0; // a field that holds no number shows nothing in words
        }
    }
    try {
        SetValue(v);
    } catch (const rtl::Exception&) {
        // An amount the label cannot spell (HandleException off) keeps the previous text.
    }
}

// ---- TjexLRDBComboBox
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexLRDBComboBox, TjexCustomDBComboBox, "jexdbctrls") {
    dbpub::DBComboBox(d, false);
    d.Property("Items", &TjexLRDBComboBox::Choices, &TjexLRDBComboBox::SetChoices);
}

TjexLRDBComboBox::TjexLRDBComboBox(rtl::TComponent* AOwner)
    : TjexCustomDBComboBox(AOwner), FChoices(std::make_unique<rtl::TStringList>()) {
    FChoices->OnChange = [this](rtl::TObject*) {
        if (FDropped) DropDown();
    };
}

TjexLRDBComboBox::~TjexLRDBComboBox() {
    FChoices->OnChange = nullptr;
}

void TjexLRDBComboBox::DropDown() {
    std::string current = Text();
    {
        TFlagGuard g(FShowing);
        Items()->BeginUpdate();
        Items()->Assign(FChoices.get());
        Items()->EndUpdate();
        SetItemIndex(Items()->IndexOf(current));
        if (ItemIndex() < 0 && Style() != csDropDownList) TControl::SetText(current);
    }
    FDropped = true;
    OnDropDown(this);
}

void TjexLRDBComboBox::CloseUp() {
    if (!FDropped) return;
    FDropped = false;
    std::string current = Text();
    {
        TFlagGuard g(FShowing);
        Items()->BeginUpdate();
        Items()->Clear();
        if (!current.empty()) Items()->Add(current);
        Items()->EndUpdate();
        SetItemIndex(current.empty() ? -1 : 0);
    }
    OnCloseUp(this);
}

void TjexLRDBComboBox::UserSelect(int Index) {
    if (!FDropped) DropDown();
    try {
        TjexCustomDBComboBox::UserSelect(Index);
    } catch (...) {
        CloseUp();
        throw;
    }
    CloseUp();
}

void TjexLRDBComboBox::UserSelectText(const std::string& Text) {
    if (!FDropped) DropDown();
    try {
        TjexCustomDBComboBox::UserSelectText(Text);
    } catch (...) {
        CloseUp();
        throw;
    }
    CloseUp();
}

void TjexLRDBComboBox::DataChange() {
    if (!FDropped) {
        db::TField* f = FBinding.Field();
        std::string text = f ? f->Text() : std::string();
        TFlagGuard g(FShowing);
        Items()->Clear();
        if (!text.empty()) Items()->Add(text);
    }
    TjexCustomDBComboBox::DataChange();
}

// ---- TjexDBDateTimePicker
// -----------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexDateTimeKind)

JEX_IMPLEMENT_CLASS(TjexDBDateTimePicker, TWinControl, "jexdbctrls") {
    pub::Anchors(d);
    d.Property("Checked", &TjexDBDateTimePicker::Checked, &TjexDBDateTimePicker::SetChecked).Default(true);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    d.Property("DataField", &TjexDBDateTimePicker::DataField, &TjexDBDateTimePicker::SetDataField);
    d.Property("DataFieldCheckBox", &TjexDBDateTimePicker::DataFieldCheckBox,
               &TjexDBDateTimePicker::SetDataFieldCheckBox);
    d.Property("DataSource", &TjexDBDateTimePicker::DataSource, &TjexDBDateTimePicker::SetDataSource);
    d.Property("Date", &TjexDBDateTimePicker::Date, &TjexDBDateTimePicker::SetDate, rtl::TypeInfo_TDate());
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Kind", &TjexDBDateTimePicker::Kind, &TjexDBDateTimePicker::SetKind).Default(jdkDate);
    d.Property("MaxDate", &TjexDBDateTimePicker::MaxDate, &TjexDBDateTimePicker::SetMaxDate,
               rtl::TypeInfo_TDate());
    d.Property("MinDate", &TjexDBDateTimePicker::MinDate, &TjexDBDateTimePicker::SetMinDate,
               rtl::TypeInfo_TDate());
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TjexDBDateTimePicker::ReadOnly, &TjexDBDateTimePicker::SetReadOnly)
        .Default(false);
    d.Property("ShowCheckbox", &TjexDBDateTimePicker::ShowCheckbox, &TjexDBDateTimePicker::SetShowCheckbox)
        .Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("Time", &TjexDBDateTimePicker::Time, &TjexDBDateTimePicker::SetTime, rtl::TypeInfo_TTime());
    pub::Visible(d);
    d.Event("OnChange", &TjexDBDateTimePicker::OnChange);
    pub::OnClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TjexDBDateTimePicker::TjexDBDateTimePicker(rtl::TComponent* AOwner) : TWinControl(AOwner) {
    FWidth = 186;
    FHeight = 21;
    FTabStop = true;
    FColor = clWindow;
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
    FCheckBinding.OnDataChange = [this] { CheckChange(); };
    FCheckBinding.OnUpdateData = [this] { UpdateCheckData(); };
}

TjexDBDateTimePicker::~TjexDBDateTimePicker() = default;

void TjexDBDateTimePicker::SetDataSource(db::TDataSource* Value) {
    FBinding.SetDataSource(Value);
    FCheckBinding.SetDataSource(Value);
}

void TjexDBDateTimePicker::SetReadOnly(bool Value) {
    FBinding.SetReadOnly(Value);
    FCheckBinding.SetReadOnly(Value);
}

void TjexDBDateTimePicker::SetDateTime(double Value) {
    if (FDateTime == Value) return;
    FDateTime = Value;
    if (!FShowing) OnChange(this);
}

double TjexDBDateTimePicker::Date() const {
    return DateOf(FDateTime);
}

void TjexDBDateTimePicker::SetDate(double Value) {
    SetDateTime(DateOf(Value) + TimeOf(FDateTime));
}

double TjexDBDateTimePicker::Time() const {
    return TimeOf(FDateTime);
}

void TjexDBDateTimePicker::SetTime(double Value) {
    SetDateTime(DateOf(FDateTime) + TimeOf(Value));
}

void TjexDBDateTimePicker::SetKind(TjexDateTimeKind Value) {
    FKind = Value;
}

void TjexDBDateTimePicker::SetChecked(bool Value) {
    if (FChecked == Value) return;
    FChecked = Value;
    if (!FShowing) OnChange(this);
}

std::string TjexDBDateTimePicker::DisplayText() const {
    if (FShowCheckbox && !FChecked) return {};
    switch (FKind) {
    case jdkDate:
        return db::DateToStr(FDateTime);
    case jdkTime:
        return db::TimeToStr(FDateTime);
    default:
        return db::DateTimeToStr(FDateTime);
    }
}

void TjexDBDateTimePicker::CheckRange(double Value) const {
    double day = DateOf(Value);
    if ((FMinDate != 0 && day < DateOf(FMinDate)) || (FMaxDate != 0 && day > DateOf(FMaxDate)))
        throw rtl::EConvertError(
            rtl::Format("Date %s is outside the range %s to %s",
                        {db::DateToStr(Value), FMinDate != 0 ? db::DateToStr(FMinDate) : "",
                         FMaxDate != 0 ? db::DateToStr(FMaxDate) : ""}));
}

void TjexDBDateTimePicker::UserType(const std::string& Text) {
    double v = db::StrToDateTime(rtl::Trim(Text)); // EConvertError for text that is no date or time
    if (FKind == jdkDate)
        v = DateOf(v) + TimeOf(FDateTime);
    else if (FKind == jdkTime && v < 1)
        v = DateOf(FDateTime) + v;
    CheckRange(v);
    bool bound = FBinding.DataSource() && !FBinding.DataField().empty();
    if (bound && !FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    SetDateTime(v);
    if (bound) FBinding.Modified();
    if (FShowCheckbox && !FChecked) {
        // A date typed into an unticked picker ticks it.
        if (!DataFieldCheckBox().empty() && FCheckBinding.BeginChange()) FCheckBinding.Modified();
        SetChecked(true);
    }
}

void TjexDBDateTimePicker::UserCheck(bool v) {
    if (!FShowCheckbox) throw EUserActionError(Name() + " shows no check box");
    if (!DataFieldCheckBox().empty()) {
        if (!FCheckBinding.BeginChange()) CannotChange(this, FCheckBinding.Field());
        SetChecked(v);
        FCheckBinding.Modified();
    } else if (FBinding.DataSource() && !FBinding.DataField().empty()) {
        if (!FBinding.BeginChange()) CannotChange(this, FBinding.Field());
        SetChecked(v);
        FBinding.Modified();
    } else {
        SetChecked(v);
    }
}

void TjexDBDateTimePicker::DataChange() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    TFlagGuard g(FShowing);
    if (f->IsNull()) {
        // Without a check box field an empty date is an unticked box.
        if (FShowCheckbox && DataFieldCheckBox().empty()) FChecked = false;
        return;
    }
    FDateTime = f->AsDateTime();
    if (FShowCheckbox && DataFieldCheckBox().empty()) FChecked = true;
}

void TjexDBDateTimePicker::UpdateData() {
    db::TField* f = FBinding.Field();
    if (!f) return;
    if (FShowCheckbox && !FChecked && DataFieldCheckBox().empty())
        f->Clear();
    else if (FKind == jdkDate && f->DataType() == db::ftDate)
        f->SetAsDateTime(DateOf(FDateTime));
    else if (FKind == jdkTime && f->DataType() == db::ftTime)
        f->SetAsDateTime(TimeOf(FDateTime));
    else
        f->SetAsDateTime(FDateTime);
}

void TjexDBDateTimePicker::CheckChange() {
    db::TField* f = FCheckBinding.Field();
    if (!f) return;
    TFlagGuard g(FShowing);
    FChecked = !f->IsNull() && f->AsBoolean();
}

void TjexDBDateTimePicker::UpdateCheckData() {
    if (db::TField* f = FCheckBinding.Field()) f->SetAsBoolean(FChecked);
}

void TjexDBDateTimePicker::DoExit() {
    FBinding.UpdateRecord();
    FCheckBinding.UpdateRecord();
    TWinControl::DoExit();
}

void TjexDBDateTimePicker::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Caption = DisplayText();
    if (FShowCheckbox) d.Checked = FChecked;
    d.ReadOnly = FBinding.ReadOnly();
}

// ---- TjexDBMonthCalendar
// ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBMonthCalendar, TCustomControl, "jexdbctrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clWindow);
    d.Property("DataField", &TjexDBMonthCalendar::DataField, &TjexDBMonthCalendar::SetDataField);
    d.Property("DataFieldEndDate", &TjexDBMonthCalendar::DataFieldEndDate,
               &TjexDBMonthCalendar::SetDataFieldEndDate);
    d.Property("DataSource", &TjexDBMonthCalendar::DataSource, &TjexDBMonthCalendar::SetDataSource);
    d.Property("Date", &TjexDBMonthCalendar::Date, &TjexDBMonthCalendar::SetDate, rtl::TypeInfo_TDate());
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("EndDate", &TjexDBMonthCalendar::EndDate, &TjexDBMonthCalendar::SetEndDate,
               rtl::TypeInfo_TDate())
        .Stored(&TjexDBMonthCalendar::MultiSelect);
    pub::Font(d);
    d.Property("MaxSelectRange", &TjexDBMonthCalendar::MaxSelectRange,
               &TjexDBMonthCalendar::SetMaxSelectRange)
        .Default(31);
    d.Property("MultiSelect", &TjexDBMonthCalendar::MultiSelect, &TjexDBMonthCalendar::SetMultiSelect)
        .Default(false);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TjexDBMonthCalendar::ReadOnly, &TjexDBMonthCalendar::SetReadOnly).Default(false);
    pub::ShowHint(d);
    d.Property("ShowToday", &TjexDBMonthCalendar::ShowToday, &TjexDBMonthCalendar::SetShowToday)
        .Default(true);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WeekNumbers", &TjexDBMonthCalendar::WeekNumbers, &TjexDBMonthCalendar::SetWeekNumbers)
        .Default(false);
    d.Event("OnChange", &TjexDBMonthCalendar::OnChange);
    pub::OnClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TjexDBMonthCalendar::TjexDBMonthCalendar(rtl::TComponent* AOwner) : TCustomControl(AOwner) {
    FWidth = 191;
    FHeight = 154;
    FTabStop = true;
    FColor = clWindow;
    FBinding.OnDataChange = [this] { DataChange(); };
    FBinding.OnUpdateData = [this] { UpdateData(); };
    FEndBinding.OnDataChange = [this] { DataChange(); };
    FEndBinding.OnUpdateData = [this] { UpdateData(); };
}

TjexDBMonthCalendar::~TjexDBMonthCalendar() = default;

void TjexDBMonthCalendar::SetDataSource(db::TDataSource* Value) {
    FBinding.SetDataSource(Value);
    FEndBinding.SetDataSource(Value);
}

void TjexDBMonthCalendar::SetReadOnly(bool Value) {
    FBinding.SetReadOnly(Value);
    FEndBinding.SetReadOnly(Value);
}

void TjexDBMonthCalendar::SetDate(double Value) {
    FDate = DateOf(Value);
    if (!FMultiSelect || FEndDate < FDate)
        FEndDate = FDate;
    else if (FEndDate - FDate + 1 > FMaxSelectRange)
        FEndDate = FDate + FMaxSelectRange - 1;
    if (!FShowing) OnChange(this);
}

void TjexDBMonthCalendar::SetEndDate(double Value) {
    if (!FMultiSelect) return;
    double v = DateOf(Value);
    if (v < FDate) v = FDate;
    if (v - FDate + 1 > FMaxSelectRange) v = FDate + FMaxSelectRange - 1;
    FEndDate = v;
    if (!FShowing) OnChange(this);
}

void TjexDBMonthCalendar::SetMultiSelect(bool Value) {
    FMultiSelect = Value;
    if (!Value) FEndDate = FDate;
}

void TjexDBMonthCalendar::PersonSets(double From, double To) {
    bool bound = FBinding.DataSource() && !FBinding.DataField().empty();
    if (bound && !FBinding.BeginChange()) CannotChange(this, FBinding.Field());
    SetDate(From);
    if (FMultiSelect) SetEndDate(To);
    if (bound) {
        FBinding.Modified();
        if (!DataFieldEndDate().empty()) FEndBinding.Modified();
    }
}

void TjexDBMonthCalendar::UserType(const std::string& Text) {
    std::string t = rtl::Trim(Text);
    size_t sep = t.find("..");
    double from = 0, to = 0;
    if (sep != std::string::npos) {
        if (!FMultiSelect) throw EUserActionError(Name() + " selects single dates only");
        from = db::StrToDateTime(rtl::Trim(t.substr(0, sep)));
        to = db::StrToDateTime(rtl::Trim(t.substr(sep + 2)));
        if (to < from) std::swap(from, to);
    } else {
        from = to = db::StrToDateTime(t);
    }
    PersonSets(from, to);
}

void TjexDBMonthCalendar::UserSetValue(int Day) {
    int y = 0, m = 0, dd = 0;
    db::DecodeDate(FDate, y, m, dd);
    double v = db::EncodeDate(y, m, Day); // EConvertError for a day the month does not have
    PersonSets(v, v);
}

void TjexDBMonthCalendar::DataChange() {
    TFlagGuard g(FShowing);
    if (db::TField* f = FBinding.Field(); f && !f->IsNull()) SetDate(f->AsDateTime());
    if (db::TField* e = FEndBinding.Field(); e && !e->IsNull()) SetEndDate(e->AsDateTime());
}

void TjexDBMonthCalendar::UpdateData() {
    if (db::TField* f = FBinding.Field(); f && FBinding.Editing()) f->SetAsDateTime(FDate);
    if (db::TField* e = FEndBinding.Field(); e && FEndBinding.Editing()) e->SetAsDateTime(FEndDate);
}

void TjexDBMonthCalendar::DoExit() {
    FBinding.UpdateRecord();
    FEndBinding.UpdateRecord();
    TCustomControl::DoExit();
}

void TjexDBMonthCalendar::Describe(TControlDesc& d) const {
    TCustomControl::Describe(d);
    d.Caption = FMultiSelect && FEndDate != FDate ? db::DateToStr(FDate) + ".." + db::DateToStr(FEndDate)
                                                  : db::DateToStr(FDate);
    d.ReadOnly = FBinding.ReadOnly();
}

// ---- TjexDBIndexCombo
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBIndexCombo, TCustomComboBox, "jexdbctrls") {
    pub::Anchors(d);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    d.Property("DataSource", &TjexDBIndexCombo::DataSource, &TjexDBIndexCombo::SetDataSource);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropDownCount", &TCustomComboBox::DropDownCount, &TCustomComboBox::SetDropDownCount)
        .Default(8);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("GoToFirst", &TjexDBIndexCombo::GoToFirst, &TjexDBIndexCombo::SetGoToFirst).Default(true);
    d.Property("ItemIndex", &TCustomComboBox::ItemIndex, &TjexDBIndexCombo::SetComboItemIndex).Default(-1);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Sorted", &TCustomComboBox::Sorted, &TCustomComboBox::SetSorted).Default(false);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("TableIndexItems", &TjexDBIndexCombo::TableIndexItems, &TjexDBIndexCombo::SetTableIndexItems);
    pub::Visible(d);
    d.Event("OnChange", &TCustomComboBox::OnChange);
    pub::OnClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TjexDBIndexCombo::TjexDBIndexCombo(rtl::TComponent* AOwner)
    : TCustomComboBox(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()),
      FTableIndexItems(std::make_unique<rtl::TStringList>()) {
    SetStyle(csDropDownList);
    FTableIndexItems->OnChange = [this](rtl::TObject*) { RebuildItems(); };
    FLink->OnChange = [this] { ShowCurrentIndex(); };
}

TjexDBIndexCombo::~TjexDBIndexCombo() {
    FTableIndexItems->OnChange = nullptr;
    FLink->OnChange = nullptr;
}

void TjexDBIndexCombo::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    ShowCurrentIndex();
}

db::TTable* TjexDBIndexCombo::Table() const {
    return dynamic_cast<db::TTable*>(FLink->DataSet());
}

std::string TjexDBIndexCombo::IndexNameOf(int Index) const {
    if (Index < 0 || Index >= Items()->Count()) return {};
    std::string caption = Items()->Strings(Index);
    for (int i = 0; i < FTableIndexItems->Count(); ++i) {
        std::string line = FTableIndexItems->Strings(i);
        size_t eq = line.find('=');
        if (eq == std::string::npos) {
            if (line == caption) return line;
        } else if (line.substr(0, eq) == caption) {
            return line.substr(eq + 1);
        }
    }
    return caption;
}

void TjexDBIndexCombo::RebuildItems() {
    int old = ItemIndex();
    FUpdating = true;
    Items()->BeginUpdate();
    Items()->Clear();
    for (int i = 0; i < FTableIndexItems->Count(); ++i) {
        std::string line = FTableIndexItems->Strings(i);
        size_t eq = line.find('=');
        Items()->Add(eq == std::string::npos ? line : line.substr(0, eq));
    }
    Items()->EndUpdate();
    TCustomComboBox::SetItemIndex(old < Items()->Count() ? old : -1);
    FUpdating = false;
    ShowCurrentIndex();
}

void TjexDBIndexCombo::ShowCurrentIndex() {
    db::TTable* t = Table();
    if (!t || FUpdating) return;
    std::string current = t->IndexName();
    for (int i = 0; i < Items()->Count(); ++i)
        if (rtl::SameText(IndexNameOf(i), current)) {
            FUpdating = true;
            TCustomComboBox::SetItemIndex(i);
            FUpdating = false;
            return;
        }
}

void TjexDBIndexCombo::ApplyIndex(int Index) {
    db::TTable* t = Table();
    if (!t || Index < 0) return;
    FUpdating = true;
    try {
        t->SetIndexName(IndexNameOf(Index));
        if (FGoToFirst && t->Active()) t->First();
    } catch (...) {
        FUpdating = false;
        ShowCurrentIndex();
        throw;
    }
    FUpdating = false;
}

void TjexDBIndexCombo::SetComboItemIndex(int Value) {
    TCustomComboBox::SetItemIndex(Value);
    if (!IsLoading()) ApplyIndex(ItemIndex());
}

int TjexDBIndexCombo::LoadItemsFromDataSet() {
    db::TTable* t = Table();
    if (!t) return 0;
    rtl::TStringList names;
    t->GetIndexNames(&names);
    FTableIndexItems->Assign(&names);
    return names.Count();
}

void TjexDBIndexCombo::UserSelect(int Index) {
    TCustomComboBox::UserSelect(Index);
    ApplyIndex(Index);
}

void TjexDBIndexCombo::UserSelectText(const std::string& Text) {
    TCustomComboBox::UserSelectText(Text);
    ApplyIndex(ItemIndex());
}

void TjexDBIndexCombo::Loaded() {
    TCustomComboBox::Loaded();
    if (ItemIndex() >= 0 && Table()) {
        try {
            ApplyIndex(ItemIndex());
        } catch (const rtl::Exception&) {
            // The table does not know the index (yet): the combo shows the table's own.
            ShowCurrentIndex();
        }
    }
}

// ---- TjexDBFilter
// --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDBFilter, rtl::TComponent, "jexdbctrls") {
    d.Property("AutoActivate", &TjexDBFilter::AutoActivate, &TjexDBFilter::SetAutoActivate).Default(false);
    d.Property("DataSource", &TjexDBFilter::DataSource, &TjexDBFilter::SetDataSource);
    d.Property("Filter", &TjexDBFilter::Filter, &TjexDBFilter::SetFilter);
    d.Property("FilterOptions", &TjexDBFilter::FilterOptions, &TjexDBFilter::SetFilterOptions).Default(0);
    d.Property("GoToFirst", &TjexDBFilter::GoToFirst, &TjexDBFilter::SetGoToFirst).Default(true);
}

TjexDBFilter::TjexDBFilter(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()) {
    FLink->OnChange = [this] { DataSetChanged(); };
}

TjexDBFilter::~TjexDBFilter() {
    FLink->OnChange = nullptr;
}

void TjexDBFilter::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    FWasActive = FLink->Active();
}

void TjexDBFilter::SetFilter(const std::string& Value) {
    if (FFilter == Value) return;
    std::string old = FFilter;
    FFilter = Value;
    if (FAutoActivate && !IsLoading() && FLink->Active()) {
        try {
            Apply();
        } catch (...) {
            FFilter = old;
            throw;
        }
    }
}

void TjexDBFilter::SetFilterOptions(db::TFilterOptions Value) {
    FFilterOptions = Value;
    if (!IsLoading() && Active()) Apply();
}

void TjexDBFilter::SetAutoActivate(bool Value) {
    FAutoActivate = Value;
    if (Value && !IsLoading() && FLink->Active()) Apply();
}

bool TjexDBFilter::Active() const {
    db::TDataSet* ds = DataSet();
    return ds && ds->Filtered() && ds->Filter() == FFilter;
}

void TjexDBFilter::Apply() {
    db::TDataSet* ds = DataSet();
    if (!ds) throw db::EDatabaseError(rtl::Format("%s has no data set to filter", {Name()}));
    std::string oldFilter = ds->Filter();
    bool oldFiltered = ds->Filtered();
    db::TFilterOptions oldOptions = ds->FilterOptions();
    FApplying = true;
    try {
        if (oldFiltered) ds->SetFiltered(false);
        ds->SetFilterOptions(FFilterOptions);
        ds->SetFilter(FFilter);
        ds->SetFiltered(!rtl::Trim(FFilter).empty());
        if (FGoToFirst && ds->Active()) ds->First();
    } catch (...) {
        try {
            ds->SetFiltered(false);
            ds->SetFilterOptions(oldOptions);
            ds->SetFilter(oldFilter);
            ds->SetFiltered(oldFiltered);
        } catch (...) {
        }
        FApplying = false;
        throw;
    }
    FApplying = false;
}

void TjexDBFilter::Cancel() {
    db::TDataSet* ds = DataSet();
    if (!ds) return;
    FApplying = true;
    try {
        ds->SetFiltered(false);
        if (FGoToFirst && ds->Active()) ds->First();
    } catch (...) {
        FApplying = false;
        throw;
    }
    FApplying = false;
}

void TjexDBFilter::DataSetChanged() {
    bool active = FLink->Active();
    bool opened = active && !FWasActive;
    FWasActive = active;
    if (opened && FAutoActivate && !FApplying && !IsLoading()) Apply();
}

void TjexDBFilter::Loaded() {
    rtl::TComponent::Loaded();
    FWasActive = FLink->Active();
    if (FAutoActivate && FWasActive) Apply();
}

bool TjexDBFilter::Edit(bool ApplyNow, bool CancelOnEmpty) {
    auto* dlg = NewForm<TjexDBFilterDialog>(nullptr);
    bool ok = false;
    try {
        dlg->Expression()->SetText(FFilter);
        dlg->CaseInsensitive()->SetChecked(FFilterOptions.Contains(db::foCaseInsensitive));
        if (db::TDataSet* ds = DataSet()) {
            rtl::TStringList names;
            try {
                ds->GetFieldNames(&names);
            } catch (const rtl::Exception&) {
                // The field list is a help only; a data set that cannot list its fields offers none.
            }
            dlg->Fields()->Items()->Assign(&names);
        }
        if (dlg->ShowModal() == mrOk) {
            std::string expr;
            rtl::TStrings* lines = dlg->Expression()->Lines();
            for (int i = 0; i < lines->Count(); ++i)
                expr += (i ? " " : "") + rtl::Trim(lines->Strings(i));
            expr = rtl::Trim(expr);
            db::TFilterOptions options = FFilterOptions;
            if (dlg->CaseInsensitive()->Checked())
                options.Include(db::foCaseInsensitive);
            else
                options.Exclude(db::foCaseInsensitive);
            std::string oldFilter = FFilter;
            db::TFilterOptions oldOptions = FFilterOptions;
            FFilter = expr;
            FFilterOptions = options;
            ok = true;
            if (ApplyNow) {
                try {
                    if (CancelOnEmpty && expr.empty())
                        Cancel();
                    else if (DataSet())
                        Apply();
                } catch (...) {
                    FFilter = oldFilter;
                    FFilterOptions = oldOptions;
                    throw;
                }
            }
        }
    } catch (...) {
        dlg->Free();
        throw;
    }
    dlg->Free();
    return ok;
}

JEX_IMPLEMENT_CLASS(TjexDBFilterDialog, TForm, "jexdbctrls") {}

TjexDBFilterDialog::TjexDBFilterDialog(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexdbFilterDialog");
    SetCaption("Filter");
    SetPosition(poScreenCenter);
    SetBorderStyle(bsDialog);
    SetBounds(0, 0, 420, 260);
    auto* label = new TLabel(this);
    label->SetName("lblFilter");
    label->SetParent(this);
    label->SetCaption("&Filter expression:");
    label->SetBounds(8, 8, 200, 17);
    FExpression = new TMemo(this);
    FExpression->SetName("memFilter");
    FExpression->SetParent(this);
    FExpression->SetBounds(8, 28, 260, 150);
    label->SetFocusControl(FExpression);
    auto* fieldsLabel = new TLabel(this);
    fieldsLabel->SetName("lblFields");
    fieldsLabel->SetParent(this);
    fieldsLabel->SetCaption("Fi&elds:");
    fieldsLabel->SetBounds(276, 8, 120, 17);
    FFields = new TListBox(this);
    FFields->SetName("lstFields");
    FFields->SetParent(this);
    FFields->SetBounds(276, 28, 128, 150);
    FFields->OnDblClick = [this](rtl::TObject* s) { FieldsDblClick(s); };
    fieldsLabel->SetFocusControl(FFields);
    FCaseInsensitive = new TCheckBox(this);
    FCaseInsensitive->SetName("chkCaseInsensitive");
    FCaseInsensitive->SetParent(this);
    FCaseInsensitive->SetCaption("&Ignore case");
    FCaseInsensitive->SetBounds(8, 186, 160, 17);
    auto* ok = new TButton(this);
    ok->SetName("btnOK");
    ok->SetParent(this);
    ok->SetCaption("OK");
    ok->SetDefault(true);
    ok->SetModalResult(mrOk);
    ok->SetBounds(248, 212, 75, 25);
    auto* cancel = new TButton(this);
    cancel->SetName("btnCancel");
    cancel->SetParent(this);
    cancel->SetCaption("Cancel");
    cancel->SetCancel(true);
    cancel->SetModalResult(mrCancel);
    cancel->SetBounds(329, 212, 75, 25);
}

void TjexDBFilterDialog::FieldsDblClick(rtl::TObject*) {
    int i = FFields->ItemIndex();
    if (i < 0) return;
    std::string text = FExpression->Text();
    if (!text.empty() && text.back() != ' ') text += ' ';
    FExpression->SetText(text + FFields->Items()->Strings(i));
}

// ---- TjexDBRangeEdit
// ----------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexApplyRangeWhen)

JEX_IMPLEMENT_CLASS(TjexDBRangeEdit, TCustomEdit, "jexdbctrls") {
    pub::Anchors(d);
    d.Property("ApplyRangeWhen", &TjexDBRangeEdit::ApplyRangeWhen, &TjexDBRangeEdit::SetApplyRangeWhen)
        .Default(jarOnEnter);
    d.Property("AutoSelect", &TCustomEdit::AutoSelect, &TCustomEdit::SetAutoSelect).Default(true);
    d.Property("AutoSize", &TCustomEdit::AutoSize, &TCustomEdit::SetAutoSize).Default(true);
    d.Property("BorderStyle", &TCustomEdit::BorderStyle, &TCustomEdit::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    d.Property("CharCase", &TCustomEdit::CharCase, &TCustomEdit::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    d.Property("DataSource", &TjexDBRangeEdit::DataSource, &TjexDBRangeEdit::SetDataSource);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("GoToFirst", &TjexDBRangeEdit::GoToFirst, &TjexDBRangeEdit::SetGoToFirst).Default(true);
    d.Property("MaxLength", &TCustomEdit::MaxLength, &TCustomEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TCustomEdit::ReadOnly, &TCustomEdit::SetReadOnly).Default(false);
    d.Property("Separator", &TjexDBRangeEdit::Separator, &TjexDBRangeEdit::SetSeparator);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Text(d);
    pub::Visible(d);
    d.Event("OnChange", &TCustomEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

TjexDBRangeEdit::TjexDBRangeEdit(rtl::TComponent* AOwner)
    : TCustomEdit(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()) {
    FWidth = 121;
    FHeight = 21;
}

TjexDBRangeEdit::~TjexDBRangeEdit() = default;

void TjexDBRangeEdit::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
}

void TjexDBRangeEdit::SetSeparator(const std::string& Value) {
    if (Value.empty()) throw rtl::EPropertyError("The range separator cannot be empty");
    FSeparator = Value;
}

db::TTable* TjexDBRangeEdit::Table() const {
    return dynamic_cast<db::TTable*>(FLink->DataSet());
}

void TjexDBRangeEdit::ParseRange(const std::string& Text, std::string& From, std::string& To) const {
    std::string t = rtl::Trim(Text);
    size_t sep = t.find(FSeparator);
    // "-5-10": a leading separator belongs to a negative start, and the range splits at the next one.
    if (sep == 0 && t.size() > FSeparator.size() &&
        t.find(FSeparator, FSeparator.size()) != std::string::npos)
        sep = t.find(FSeparator, FSeparator.size());
    if (sep == std::string::npos) {
        From = To = t;
        return;
    }
    From = rtl::Trim(t.substr(0, sep));
    To = rtl::Trim(t.substr(sep + FSeparator.size()));
}

void TjexDBRangeEdit::ApplyRange() {
    db::TTable* t = Table();
    if (!t) throw db::EDatabaseError(rtl::Format("%s has no table to set a range on", {Name()}));
    std::string from, to;
    ParseRange(Text(), from, to);
    if (from.empty() && to.empty()) {
        t->CancelRange();
    } else {
        std::vector<db::Variant> start, end;
        if (!from.empty()) start.emplace_back(from);
        if (!to.empty()) end.emplace_back(to);
        t->SetRange(start, end);
    }
    if (FGoToFirst && t->Active()) t->First();
}

void TjexDBRangeEdit::KeyDown(uint16_t& Key, TShiftState Shift) {
    if (Key == VK_RETURN && FApplyRangeWhen == jarOnEnter) {
        ApplyRange();
        Key = 0;
        return;
    }
    TCustomEdit::KeyDown(Key, Shift);
}

void TjexDBRangeEdit::DoExit() {
    if (FApplyRangeWhen == jarOnExit && Table()) ApplyRange();
    TCustomEdit::DoExit();
}

void TjexDBRangeEdit::Change() {
    TCustomEdit::Change();
    if (FApplyRangeWhen == jarOnChange && !IsLoading() && Table() && Table()->Active()) ApplyRange();
}

// ---- TjexDBEditWin
// ------------------------------------------------------------------------------------------
JEX_DEFINE_ENUM(TjexEditWinLayout)
JEX_DEFINE_ENUM(TjexEditWinLabelLayout)

JEX_IMPLEMENT_CLASS(TjexDBEditWin, TScrollingWinControl, "jexdbctrls") {
    using W = TjexDBEditWin;
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoCaption", &W::AutoCaption, &W::SetAutoCaption).Default(true);
    d.Property("AutoScroll", &TScrollingWinControl::AutoScroll, &TScrollingWinControl::SetAutoScroll)
        .Default(true);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    d.Property("DataSource", &W::DataSource, &W::SetDataSource);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("EditAutoSize", &W::EditAutoSize, &W::SetEditAutoSize).Default(true);
    d.Property("EditColor", &W::EditColor, &W::SetEditColor, TypeInfo_TColor()).Default(clWindow);
    d.Property("EditFont", &W::EditFont, &W::SetEditFont).Stored(&W::IsEditFontStored);
    d.Property("EditHints", &W::EditHints, &W::SetEditHints);
    d.Property("EditParentColor", &W::EditParentColor, &W::SetEditParentColor).Default(false);
    d.Property("EditParentFont", &W::EditParentFont, &W::SetEditParentFont).Default(true);
    d.Property("EditShowHint", &W::EditShowHint, &W::SetEditShowHint).Default(false);
    d.Property("EditWidth", &W::EditWidth, &W::SetEditWidth).Default(0);
    pub::Enabled(d);
    d.Property("FieldOffsetH", &W::FieldOffsetH, &W::SetFieldOffsetH).Default(8);
    d.Property("FieldOffsetV", &W::FieldOffsetV, &W::SetFieldOffsetV).Default(4);
    d.Property("FieldReadOnly", &W::FieldReadOnly, &W::SetFieldReadOnly).Default(false);
    pub::Font(d);
    d.Property("HorzScrollBar", &TScrollingWinControl::HorzScrollBar,
               &TScrollingWinControl::SetHorzScrollBar);
    d.Property("LabelAlignment", &W::LabelAlignment, &W::SetLabelAlignment).Default(taLeftJustify);
    d.Property("LabelAutoSize", &W::LabelAutoSize, &W::SetLabelAutoSize).Default(false);
    d.Property("LabelCaptions", &W::LabelCaptions, &W::SetLabelCaptions);
    d.Property("LabelColor", &W::LabelColor, &W::SetLabelColor, TypeInfo_TColor()).Default(clBtnFace);
    d.Property("LabelFont", &W::LabelFont, &W::SetLabelFont).Stored(&W::IsLabelFontStored);
    d.Property("LabelHeight", &W::LabelHeight, &W::SetLabelHeight).Default(17);
    d.Property("LabelOffsetH", &W::LabelOffsetH, &W::SetLabelOffsetH).Default(4);
    d.Property("LabelOffsetV", &W::LabelOffsetV, &W::SetLabelOffsetV).Default(3);
    d.Property("LabelParentColor", &W::LabelParentColor, &W::SetLabelParentColor).Default(true);
    d.Property("LabelParentFont", &W::LabelParentFont, &W::SetLabelParentFont).Default(true);
    d.Property("LabelWidth", &W::LabelWidth, &W::SetLabelWidth).Default(80);
    d.Property("LabelWordWrap", &W::LabelWordWrap, &W::SetLabelWordWrap).Default(false);
    d.Property("LayoutEdit", &W::LayoutEdit, &W::SetLayoutEdit).Default(jewVertical);
    d.Property("LayoutLabel", &W::LayoutLabel, &W::SetLayoutLabel).Default(jelwLeft);
    d.Property("MarginLeft", &W::MarginLeft, &W::SetMarginLeft).Default(8);
    d.Property("MarginTop", &W::MarginTop, &W::SetMarginTop).Default(8);
    d.Property("MaxWidth", &W::MaxWidth, &W::SetMaxWidth).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("PopupAutoEdit", &W::PopupAutoEdit, &W::SetPopupAutoEdit).Default(true);
    d.Property("PopupEditBlobAs", &W::PopupEditBlobAs, &W::SetPopupEditBlobAs).Default(jpbText);
    d.Property("PopupFormStyle", &W::PopupFormStyle, &W::SetPopupFormStyle).Default(fsNormal);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("VertScrollBar", &TScrollingWinControl::VertScrollBar,
               &TScrollingWinControl::SetVertScrollBar);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TjexDBEditWin::TjexDBEditWin(rtl::TComponent* AOwner)
    : TScrollingWinControl(AOwner), FLink(std::make_unique<TjexNotifyDataLink>()),
      FEditFont(std::make_unique<TFont>()), FLabelFont(std::make_unique<TFont>()),
      FEditHints(std::make_unique<rtl::TStringList>()), FLabelCaptions(std::make_unique<rtl::TStringList>()) {
    FWidth = 300;
    FHeight = 200;
    FColor = clBtnFace;
    FControlStyle.Exclude(csAcceptsControls);
    FLink->OnChange = [this] { LayoutChanged(); };
    FEditHints->OnChange = [this](rtl::TObject*) { Rebuild(); };
    FLabelCaptions->OnChange = [this](rtl::TObject*) { Rebuild(); };
}

TjexDBEditWin::~TjexDBEditWin() {
    FLink->OnChange = nullptr;
    FEditHints->OnChange = nullptr;
    FLabelCaptions->OnChange = nullptr;
}

void TjexDBEditWin::SetDataSource(db::TDataSource* Value) {
    FLink->SetDataSource(Value);
    Rebuild();
}

void TjexDBEditWin::SetEditFont(TFont* Value) {
    FEditFont->Assign(Value);
    Rebuild();
}

void TjexDBEditWin::SetLabelFont(TFont* Value) {
    FLabelFont->Assign(Value);
    Rebuild();
}

void TjexDBEditWin::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TScrollingWinControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    for (auto* list : {&FPairs, &FRetired})
        for (auto& p : *list) {
            if (p.Label == AComponent) p.Label = nullptr;
            if (p.Edit == AComponent) p.Edit = nullptr;
        }
}

void TjexDBEditWin::ClearPairs() {
    // Freed only at the next rebuild: a rebuild runs inside the data source's notification of its links,
    // which may still hold the old edits' links; unbound and unparented they can safely hear it.
    for (auto& p : FRetired) {
        if (p.Edit) p.Edit->Free();
        if (p.Label) p.Label->Free();
    }
    FRetired.clear();
    for (auto& p : FPairs) {
        if (p.Edit) {
            p.Edit->SetDataSource(nullptr);
            p.Edit->SetParent(nullptr);
        }
        if (p.Label) p.Label->SetParent(nullptr);
        FRetired.push_back(p);
    }
    FPairs.clear();
}

void TjexDBEditWin::LayoutChanged() {
    if (FRebuilding) return;
    std::string key;
    db::TDataSet* ds = FLink->DataSet();
    if (FLink->Active() && ds)
        for (int i = 0; i < ds->FieldCount(); ++i)
            if (ds->Fields()->Fields(i)->Visible()) key += ds->Fields()->Fields(i)->FieldName() + ";";
    if (key != FLayoutKey) Rebuild();
}

void TjexDBEditWin::Loaded() {
    TScrollingWinControl::Loaded();
    Rebuild();
}

void TjexDBEditWin::Rebuild() {
    if (FRebuilding || IsLoading() || IsDestroying()) return;
    FRebuilding = true;
    ClearPairs();
    FLayoutKey.clear();
    db::TDataSet* ds = FLink->DataSet();
    if (!FLink->Active() || !ds) {
        FRebuilding = false;
        return;
    }
    const int editHeight = 21;
    int x = FMarginLeft, y = FMarginTop, rowHeight = 0;
    int limit = FMaxWidth > 0 ? FMaxWidth : ClientWidth();
    for (int i = 0; i < ds->FieldCount(); ++i) {
        db::TField* f = ds->Fields()->Fields(i);
        if (!f->Visible()) continue;
        FLayoutKey += f->FieldName() + ";";
        auto* label = new TLabel(this);
        label->SetParent(this);
        std::string caption = FAutoCaption ? f->DisplayLabel() : f->FieldName();
        if (int k = FLabelCaptions->IndexOfName(f->FieldName()); k >= 0)
            caption = FLabelCaptions->Values(f->FieldName());
        label->SetAutoSize(FLabelAutoSize);
        label->SetWordWrap(FLabelWordWrap);
        label->SetAlignment(FLabelAlignment);
        label->SetCaption(caption);
        if (!FLabelParentFont) label->SetFont(FLabelFont.get());
        if (!FLabelParentColor) label->SetColor(FLabelColor);
        auto* edit = new TjexDBAutoEdit(this);
        edit->SetParent(this);
        edit->SetDataSource(FLink->DataSource());
        edit->SetDataField(f->FieldName());
        edit->SetReadOnly(FFieldReadOnly || f->ReadOnly());
        edit->SetPopupAutoEdit(FPopupAutoEdit);
        edit->SetPopupEditBlobAs(FPopupEditBlobAs);
        edit->SetPopupFormStyle(FPopupFormStyle);
        if (!FEditParentFont) edit->SetFont(FEditFont.get());
        if (!FEditParentColor) edit->SetColor(FEditColor);
        edit->SetShowHint(FEditShowHint);
        if (FEditHints->IndexOfName(f->FieldName()) >= 0) edit->SetHint(FEditHints->Values(f->FieldName()));
        label->SetFocusControl(edit);
        int editWidth = FEditWidth > 0  ? FEditWidth
                        : FEditAutoSize ? std::clamp(f->DisplayWidth() * 7 + 8, 40, 400)
                                        : 121;
        bool left = FLayoutLabel == jelwLeft;
        int pairWidth = left ? FLabelWidth + FLabelOffsetH + editWidth : std::max(FLabelWidth, editWidth);
        int pairHeight =
            left ? std::max(FLabelHeight, editHeight) : FLabelHeight + FLabelOffsetV + editHeight;
        if (FLayoutEdit == jewFlow && x > FMarginLeft && x + pairWidth > limit) {
            x = FMarginLeft;
            y += rowHeight + FFieldOffsetV;
            rowHeight = 0;
        }
        if (left) {
            label->SetBounds(x, y + FLabelOffsetV, FLabelWidth, FLabelHeight);
            edit->SetBounds(x + FLabelWidth + FLabelOffsetH, y, editWidth, editHeight);
        } else {
            label->SetBounds(x + FLabelOffsetH, y, FLabelWidth, FLabelHeight);
            edit->SetBounds(x, y + FLabelHeight + FLabelOffsetV, editWidth, editHeight);
        }
        rowHeight = std::max(rowHeight, pairHeight);
        if (FLayoutEdit == jewFlow) {
            x += pairWidth + FFieldOffsetH;
        } else {
            y += pairHeight + FFieldOffsetV;
            rowHeight = 0;
        }
        FPairs.push_back({label, edit});
        // The edits show the current record at once.
        edit->Binding().Reset();
    }
    FRebuilding = false;
}

// ---- The classes of this unit that the library lists
// ---------------------------------------------------------
static const TjexLibraryUnit<TjexDBRichEdit, TjexDBEditWin, TjexDBIndexCombo, TjexDBFilter, TjexDBRangeEdit,
                             TjexDBAutoEdit, TjexDBEditLabel, TjexDBRecordCount, TjexDBState,
                             TjexDBCurrencyLabel, TjexLRDBComboBox, TjexDBDateTimePicker, TjexDBMonthCalendar>
    jexdbctrlsUnit("jexdbctrls");

} // namespace jex

#endif // JEX_HAVE_DB
