// Field and index definitions: the collections that describe a table's columns and indexes, filled from
// storage or by hand before CreateTable, and streamed with forms.
#include "db/db.h"

namespace db {

JEX_DEFINE_ENUM(TFieldType)
JEX_DEFINE_ENUM(TDataSetState)
JEX_DEFINE_ENUM(TDataEvent)
JEX_DEFINE_ENUM(TFieldKind)
JEX_DEFINE_ENUM(TIndexOption)
JEX_DEFINE_SET(TIndexOptions, TIndexOption)
JEX_DEFINE_ENUM(TFilterOption)
JEX_DEFINE_SET(TFilterOptions, TFilterOption)
JEX_DEFINE_ENUM(TLocateOption)
JEX_DEFINE_SET(TLocateOptions, TLocateOption)
JEX_DEFINE_ENUM(TParamType)
JEX_DEFINE_ENUM(TDataAction)
JEX_DEFINE_ENUM(TAlignment)
JEX_DEFINE_ENUM(TFieldAttribute)
JEX_DEFINE_SET(TFieldAttributes, TFieldAttribute)
JEX_DEFINE_EVENT_TYPE(TDataSetNotifyEvent, "DataSet: TDataSet")
JEX_DEFINE_EVENT_TYPE(TFilterRecordEvent, "DataSet: TDataSet; var Accept: Boolean")
JEX_DEFINE_EVENT_TYPE(TDataSetErrorEvent, "DataSet: TDataSet; E: EDatabaseError; var Action: TDataAction")
JEX_DEFINE_EVENT_TYPE(TFieldNotifyEvent, "Sender: TField")
JEX_DEFINE_EVENT_TYPE(TDataChangeEvent, "Sender: TObject; Field: TField")

std::vector<std::string> SplitFieldNames(std::string_view Fields) {
    std::vector<std::string> out;
    size_t start = 0;
    for (size_t i = 0; i <= Fields.size(); ++i) {
        if (i == Fields.size() || Fields[i] == ';' || Fields[i] == ',') {
            std::string name = rtl::Trim(Fields.substr(start, i - start));
            if (!name.empty()) out.push_back(name);
            start = i + 1;
        }
    }
    return out;
}

// ---- TFieldDef --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFieldDef, rtl::TCollectionItem, "DB") {
    d.Property("Name", &TFieldDef::Name, &TFieldDef::SetName);
    d.Property("Attributes", &TFieldDef::Attributes, &TFieldDef::SetAttributes).Default(0);
    d.Property("DataType", &TFieldDef::DataType, &TFieldDef::SetDataType).Default(ftUnknown);
    d.Property("Precision", &TFieldDef::Precision, &TFieldDef::SetPrecision).Default(0);
    d.Property("Size", &TFieldDef::Size, &TFieldDef::SetSize).Default(0);
}

TFieldDef::TFieldDef(rtl::TCollection* Collection) : TCollectionItem(Collection) {}

void TFieldDef::Assign(TPersistent* Source) {
    if (auto* s = dynamic_cast<TFieldDef*>(Source)) {
        FName = s->FName;
        FDataType = s->FDataType;
        FSize = s->FSize;
        FPrecision = s->FPrecision;
        FRequired = s->FRequired;
        FAttributes = s->FAttributes;
        Changed(false);
        return;
    }
    TCollectionItem::Assign(Source);
}

std::string TFieldDef::GetDisplayName() const {
    return FName.empty() ? TCollectionItem::GetDisplayName() : FName;
}

void TFieldDef::SetName(const std::string& v) {
    FName = v;
    Changed(false);
}

void TFieldDef::SetDataType(TFieldType v) {
    FDataType = v;
    // Fixed-size types carry no size; the platform gives a new string definition 20 characters.
    switch (v) {
    case ftString:
    case ftFixedChar:
    case ftWideString:
    case ftBytes:
    case ftVarBytes:
        if (FSize == 0) FSize = 20;
        break;
    case ftBCD:
    case ftFMTBcd:
    case ftBlob:
    case ftMemo:
    case ftGraphic:
    case ftFmtMemo:
    case ftTypedBinary:
    case ftParadoxOle:
    case ftDBaseOle:
    case ftOraBlob:
    case ftOraClob:
        break;
    default:
        FSize = 0;
    }
    Changed(false);
}

void TFieldDef::SetSize(int v) {
    if (v < 0) throw EDatabaseError(rtl::Format("Invalid field size: %d", {v}));
    FSize = v;
    Changed(false);
}

TFieldAttributes TFieldDef::Attributes() const {
    TFieldAttributes a = FAttributes;
    if (FRequired)
        a.Include(faRequired);
    else
        a.Exclude(faRequired);
    return a;
}

void TFieldDef::SetAttributes(TFieldAttributes v) {
    FAttributes = v;
    FRequired = v.Contains(faRequired);
}

rtl::TClass TFieldDef::FieldClass() const {
    switch (FDataType) {
    case ftString:
    case ftFixedChar:
    case ftGuid:
        return TStringField::StaticClass();
    case ftWideString:
        return TWideStringField::StaticClass();
    case ftSmallint:
        return TSmallintField::StaticClass();
    case ftInteger:
        return TIntegerField::StaticClass();
    case ftWord:
        return TWordField::StaticClass();
    case ftAutoInc:
        return TAutoIncField::StaticClass();
    case ftLargeint:
        return TLargeintField::StaticClass();
    case ftBoolean:
        return TBooleanField::StaticClass();
    case ftFloat:
        return TFloatField::StaticClass();
    case ftCurrency:
        return TCurrencyField::StaticClass();
    case ftBCD:
    case ftFMTBcd:
        return TBCDField::StaticClass();
    case ftDate:
        return TDateField::StaticClass();
    case ftTime:
        return TTimeField::StaticClass();
    case ftDateTime:
    case ftTimeStamp:
        return TDateTimeField::StaticClass();
    case ftMemo:
    case ftFmtMemo:
    case ftOraClob:
        return TMemoField::StaticClass();
    case ftGraphic:
        return TGraphicField::StaticClass();
    case ftBlob:
    case ftBytes:
    case ftVarBytes:
    case ftTypedBinary:
    case ftParadoxOle:
    case ftDBaseOle:
    case ftOraBlob:
        return TBlobField::StaticClass();
    default:
        return nullptr;
    }
}

// ---- TFieldDefs -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFieldDefs, rtl::TOwnedCollection, "DB") {}

TFieldDefs::TFieldDefs(TDataSet* AOwner) : TOwnedCollection(AOwner, TFieldDef::StaticClass()) {}

TFieldDef* TFieldDefs::Items(int index) const {
    return static_cast<TFieldDef*>(TCollection::Items(index));
}

TFieldDef* TFieldDefs::AddFieldDef() {
    return static_cast<TFieldDef*>(TCollection::Add());
}

TFieldDef* TFieldDefs::Add(const std::string& Name, TFieldType DataType, int Size, bool Required) {
    if (Name.empty()) throw EDatabaseError("Field name missing");
    if (IndexOf(Name) >= 0) throw EDatabaseError(rtl::Format(SDuplicateFieldName, {Name}));
    BeginUpdate();
    TFieldDef* d = AddFieldDef();
    try {
        d->SetName(Name);
        d->SetDataType(DataType);
        if (Size || d->Size()) d->SetSize(Size ? Size : d->Size());
        d->SetRequired(Required);
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
    return d;
}

int TFieldDefs::IndexOf(std::string_view Name) const {
    for (int i = 0; i < Count(); ++i)
        if (rtl::SameText(Items(i)->Name(), Name)) return i;
    return -1;
}

TFieldDef* TFieldDefs::Find(const std::string& Name) const {
    int i = IndexOf(Name);
    if (i < 0) throw EDatabaseError(rtl::Format(SFieldNotFound, {Name}));
    return Items(i);
}

void TFieldDefs::Update() {
    if (auto* ds = dynamic_cast<TDataSet*>(GetOwner())) {
        if (!ds->Active()) ds->InternalInitFieldDefs();
    }
}

void TFieldDefs::GetItemNames(TStrings* List) const {
    List->BeginUpdate();
    List->Clear();
    for (int i = 0; i < Count(); ++i)
        List->Add(Items(i)->Name());
    List->EndUpdate();
}

// ---- TIndexDef --------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TIndexDef, rtl::TCollectionItem, "DB") {
    d.Property("Name", &TIndexDef::Name, &TIndexDef::SetName);
    d.Property("CaseInsFields", &TIndexDef::CaseInsFields, &TIndexDef::SetCaseInsFields);
    d.Property("DescFields", &TIndexDef::DescFields, &TIndexDef::SetDescFields);
    d.Property("Expression", &TIndexDef::Expression, &TIndexDef::SetExpression);
    d.Property("Fields", &TIndexDef::Fields, &TIndexDef::SetFields);
    d.Property("Options", &TIndexDef::Options, &TIndexDef::SetOptions).Default(0);
}

TIndexDef::TIndexDef(rtl::TCollection* Collection) : TCollectionItem(Collection) {}

void TIndexDef::Assign(TPersistent* Source) {
    if (auto* s = dynamic_cast<TIndexDef*>(Source)) {
        FName = s->FName;
        FFields = s->FFields;
        FExpression = s->FExpression;
        FDescFields = s->FDescFields;
        FCaseInsFields = s->FCaseInsFields;
        FOptions = s->FOptions;
        Changed(false);
        return;
    }
    TCollectionItem::Assign(Source);
}

std::string TIndexDef::GetDisplayName() const {
    return FName.empty() ? TCollectionItem::GetDisplayName() : FName;
}

// ---- TIndexDefs -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TIndexDefs, rtl::TOwnedCollection, "DB") {}

TIndexDefs::TIndexDefs(TDataSet* AOwner) : TOwnedCollection(AOwner, TIndexDef::StaticClass()) {}

TIndexDef* TIndexDefs::Items(int index) const {
    return static_cast<TIndexDef*>(TCollection::Items(index));
}

TIndexDef* TIndexDefs::AddIndexDef() {
    Updated = false;
    return static_cast<TIndexDef*>(TCollection::Add());
}

TIndexDef* TIndexDefs::Add(const std::string& Name, const std::string& Fields, TIndexOptions Options) {
    if (!Name.empty() && IndexOf(Name) >= 0)
        throw EDatabaseError(rtl::Format("Duplicate index name '%s'", {Name}));
    TIndexDef* d = AddIndexDef();
    d->SetName(Name);
    if (Options.Contains(ixExpression))
        d->SetExpression(Fields);
    else
        d->SetFields(Fields);
    d->SetOptions(Options);
    return d;
}

int TIndexDefs::IndexOf(std::string_view Name) const {
    for (int i = 0; i < Count(); ++i)
        if (rtl::SameText(Items(i)->Name(), Name)) return i;
    return -1;
}

TIndexDef* TIndexDefs::Find(const std::string& Name) const {
    int i = IndexOf(Name);
    if (i < 0) throw EDatabaseError(rtl::Format(SIndexNotFound, {Name}));
    return Items(i);
}

TIndexDef* TIndexDefs::GetIndexForFields(const std::string& Fields, bool CaseInsensitive) const {
    std::vector<std::string> want = SplitFieldNames(Fields);
    if (want.empty()) return nullptr;
    TIndexDef* best = nullptr;
    for (int i = 0; i < Count(); ++i) {
        TIndexDef* d = Items(i);
        if (d->Options().Contains(ixExpression)) continue;
        if (CaseInsensitive != d->Options().Contains(ixCaseInsensitive)) continue;
        std::vector<std::string> have = SplitFieldNames(d->Fields());
        if (have.size() < want.size()) continue;
        bool ok = true;
        for (size_t k = 0; k < want.size() && ok; ++k)
            ok = rtl::SameText(have[k], want[k]);
        if (!ok) continue;
        if (!best || d->Options().Contains(ixPrimary)) best = d;
    }
    return best;
}

void TIndexDefs::Update() {
    if (auto* ds = dynamic_cast<TDataSet*>(GetOwner())) ds->InternalInitIndexDefs();
    Updated = true;
}

void TIndexDefs::GetItemNames(TStrings* List) const {
    List->BeginUpdate();
    List->Clear();
    for (int i = 0; i < Count(); ++i)
        List->Add(Items(i)->Name());
    List->EndUpdate();
}

} // namespace db
