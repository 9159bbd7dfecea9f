// Fields: the typed views of one column of a data set's active record, with the platform's conversions
// between text, numbers, Booleans and dates, range checks, and the published properties of persistent fields.
#include <cmath>

#include "db/db.h"

namespace db {

using rtl::Format;

// ---- TField -----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TField, TComponent, "DB") {
    d.Property("Alignment", &TField::Alignment, &TField::SetAlignment).Default(taLeftJustify);
    d.Property("DefaultExpression", &TField::DefaultExpression, &TField::SetDefaultExpression);
    d.Property("DisplayLabel", &TField::DisplayLabel, &TField::SetDisplayLabel)
        .Stored(&TField::IsDisplayLabelStored);
    d.Property("DisplayWidth", &TField::DisplayWidth, &TField::SetDisplayWidth)
        .Stored(&TField::IsDisplayWidthStored);
    d.Property("EditMask", &TField::EditMask, &TField::SetEditMask);
    d.Property("FieldKind", &TField::FieldKind, &TField::SetFieldKind).Default(fkData);
    d.Property("FieldName", &TField::FieldName, &TField::SetFieldName);
    d.Property("ReadOnly", &TField::ReadOnly, &TField::SetReadOnly).Default(false);
    d.Property("Required", &TField::Required, &TField::SetRequired).Default(false);
    d.Property("Visible", &TField::Visible, &TField::SetVisible).Default(true);
    d.Event("OnChange", &TField::OnChange);
    d.Event("OnValidate", &TField::OnValidate);
}

TField::TField(TComponent* AOwner) : TComponent(AOwner) {}

TField::~TField() {
    if (FDataSet) FDataSet->RemoveField(this);
}

void TField::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDataSet) FDataSet = nullptr;
}

void TField::SetDataSet(TDataSet* Value) {
    if (Value == FDataSet) return;
    if (FDataSet) FDataSet->CheckInactive();
    if (Value) {
        Value->CheckInactive();
        if (Value->FindField(FFieldName) && !FFieldName.empty())
            throw EDatabaseError(Format(SDuplicateFieldName, {FFieldName}));
    }
    if (FDataSet) FDataSet->RemoveField(this);
    if (Value) Value->AddField(this);
}

TComponent* TField::GetParentComponent() const {
    return FDataSet;
}

void TField::SetParentComponent(TComponent* Value) {
    if (IsLoading() || ComponentState().Contains(rtl::csReading)) {
        if (auto* ds = dynamic_cast<TDataSet*>(Value)) SetDataSet(ds);
    } else {
        SetDataSet(rtl::As<TDataSet>(Value));
    }
}

void TField::SetFieldName(const std::string& v) {
    if (v == FFieldName) return;
    if (FDataSet) {
        FDataSet->CheckInactive();
        TField* other = FDataSet->FindField(v);
        if (other && other != this) throw EDatabaseError(Format(SDuplicateFieldName, {v}));
    }
    FFieldName = v;
}

void TField::SetSize(int v) {
    if (FDataSet) FDataSet->CheckInactive();
    if (v < 0) throw EDatabaseError(Format("Invalid field size: %d", {v}));
    FSize = v;
}

int TField::Index() const {
    return FDataSet ? FDataSet->Fields()->IndexOf(this) : -1;
}

void TField::SetIndex(int v) {
    if (!FDataSet) return;
    auto& list = FDataSet->FFields->FList;
    int cur = Index();
    if (v < 0) v = 0;
    if (v >= static_cast<int>(list.size())) v = static_cast<int>(list.size()) - 1;
    if (cur == v) return;
    list.erase(list.begin() + cur);
    list.insert(list.begin() + v, this);
    if (FDataSet->Active()) FDataSet->DataEvent(deLayoutChange, 0);
}

bool TField::CanModify() const {
    return !FReadOnly && FFieldKind == fkData && FDataSet && FDataSet->CanModify();
}

bool TField::IsBlob() const {
    return dynamic_cast<const TBlobField*>(this) != nullptr;
}

Variant TField::Value() const {
    if (!FDataSet) throw EDatabaseError(Format("Field '%s' has no dataset", {DisplayName()}));
    return FDataSet->GetFieldData(this);
}

void TField::SetValue(const Variant& v) {
    if (!FDataSet) throw EDatabaseError(Format("Field '%s' has no dataset", {DisplayName()}));
    if (FReadOnly || FFieldKind != fkData) throw EDatabaseError(Format(SFieldReadOnly, {DisplayName()}));
    FDataSet->SetFieldData(this, Coerce(v));
}

void TField::ConvertError(const std::string& typeName) const {
    throw EDatabaseError(Format("Invalid type conversion for field '%s' to %s", {DisplayName(), typeName}));
}

std::string TField::AsString() const {
    return Value().AsString();
}
void TField::SetAsString(const std::string& v) {
    SetValue(Variant(v));
}
int32_t TField::AsInteger() const {
    int64_t v = Value().AsInteger();
    if (v < INT32_MIN || v > INT32_MAX) throw rtl::ERangeError(rtl::SRangeError);
    return static_cast<int32_t>(v);
}
void TField::SetAsInteger(int32_t v) {
    SetValue(Variant(static_cast<int64_t>(v)));
}
double TField::AsFloat() const {
    return Value().AsFloat();
}
void TField::SetAsFloat(double v) {
    SetValue(Variant(v));
}
bool TField::AsBoolean() const {
    return Value().AsBoolean();
}
void TField::SetAsBoolean(bool v) {
    SetValue(Variant(v));
}
TDateTime TField::AsDateTime() const {
    Variant v = Value();
    if (v.IsNull()) return 0;
    if (v.IsString()) return StrToDateTime(v.AsString());
    return v.AsFloat();
}
void TField::SetAsDateTime(TDateTime v) {
    if (dynamic_cast<TDateTimeField*>(this) || dynamic_cast<TNumericField*>(this))
        SetValue(Variant(v));
    else
        SetValue(Variant(DateTimeToStr(v)));
}

void TField::FocusControl() {
    if (FDataSet && FDataSet->Active()) {
        TField* self = this;
        FDataSet->DataEvent(deFocusControl, reinterpret_cast<intptr_t>(&self));
    }
}

// ---- Strings ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TStringField, TField, "DB") {
    d.Property("FixedChar", &TStringField::FixedChar, &TStringField::SetFixedChar).Default(false);
    d.Property("Size", &TField::Size, &TField::SetSize).Default(20);
    d.Property("Transliterate", &TStringField::Transliterate, &TStringField::SetTransliterate).Default(true);
}

TStringField::TStringField(TComponent* AOwner) : TField(AOwner) {
    SetDataTypeInternal(ftString);
    TField::SetSize(20);
}

Variant TStringField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    std::string s = v.IsBool() ? (v.AsBoolean() ? "True" : "False") : v.AsString();
    if (Size() > 0 && static_cast<int>(s.size()) > Size()) {
        // The platform cuts text at the field size; never cut inside a UTF-8 sequence.
        size_t n = static_cast<size_t>(Size());
        while (n > 0 && (static_cast<unsigned char>(s[n]) & 0xC0) == 0x80)
            --n;
        s.resize(n);
    }
    return Variant(std::move(s));
}

JEX_IMPLEMENT_CLASS(TWideStringField, TStringField, "DB") {}
TWideStringField::TWideStringField(TComponent* AOwner) : TStringField(AOwner) {
    SetDataTypeInternal(ftWideString);
}

// ---- Numbers ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TNumericField, TField, "DB") {
    d.Property("DisplayFormat", &TNumericField::DisplayFormat, &TNumericField::SetDisplayFormat);
    d.Property("EditFormat", &TNumericField::EditFormat, &TNumericField::SetEditFormat);
}
TNumericField::TNumericField(TComponent* AOwner) : TField(AOwner) {
    SetAlignment(taRightJustify);
}

JEX_IMPLEMENT_CLASS(TIntegerField, TNumericField, "DB") {
    d.Property("MaxValue", &TIntegerField::MaxValue, &TIntegerField::SetMaxValue).Default(0);
    d.Property("MinValue", &TIntegerField::MinValue, &TIntegerField::SetMinValue).Default(0);
}
TIntegerField::TIntegerField(TComponent* AOwner) : TNumericField(AOwner) {
    SetDataTypeInternal(ftInteger);
}

Variant TIntegerField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    int64_t n;
    if (v.IsString()) {
        std::string s = rtl::Trim(v.AsString());
        if (s.empty()) return Variant();
        if (!rtl::TryStrToInt64(s, n)) throw rtl::EConvertError(Format(rtl::SInvalidInteger, {s}));
    } else {
        n = v.AsInteger();
    }
    int64_t lo = LowLimit(), hi = HighLimit();
    if (FMinValue != 0 || FMaxValue != 0) {
        lo = FMinValue;
        hi = FMaxValue;
    }
    if (n < lo || n > hi)
        throw EDatabaseError(Format(SFieldRangeError, {rtl::IntToStr(n), DisplayName(), lo, hi}));
    return Variant(n);
}

JEX_IMPLEMENT_CLASS(TSmallintField, TIntegerField, "DB") {}
TSmallintField::TSmallintField(TComponent* AOwner) : TIntegerField(AOwner) {
    SetDataTypeInternal(ftSmallint);
}
JEX_IMPLEMENT_CLASS(TWordField, TIntegerField, "DB") {}
TWordField::TWordField(TComponent* AOwner) : TIntegerField(AOwner) {
    SetDataTypeInternal(ftWord);
}
JEX_IMPLEMENT_CLASS(TAutoIncField, TIntegerField, "DB") {}
TAutoIncField::TAutoIncField(TComponent* AOwner) : TIntegerField(AOwner) {
    SetDataTypeInternal(ftAutoInc);
}

JEX_IMPLEMENT_CLASS(TLargeintField, TNumericField, "DB") {}
TLargeintField::TLargeintField(TComponent* AOwner) : TNumericField(AOwner) {
    SetDataTypeInternal(ftLargeint);
}
int64_t TLargeintField::AsLargeInt() const {
    return Value().AsInteger();
}
void TLargeintField::SetAsLargeInt(int64_t v) {
    SetValue(Variant(v));
}
Variant TLargeintField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    if (v.IsString()) {
        std::string s = rtl::Trim(v.AsString());
        if (s.empty()) return Variant();
        int64_t n;
        if (!rtl::TryStrToInt64(s, n)) throw rtl::EConvertError(Format(rtl::SInvalidInteger, {s}));
        return Variant(n);
    }
    return Variant(v.AsInteger());
}

namespace {
Variant CoerceFloat(const Variant& v) {
    if (v.IsNull()) return v;
    if (v.IsString()) {
        std::string s = rtl::Trim(v.AsString());
        if (s.empty()) return Variant();
        double d;
        if (!rtl::TryStrToFloat(s, d)) throw rtl::EConvertError(Format(rtl::SInvalidFloat, {s}));
        return Variant(d);
    }
    return Variant(v.AsFloat());
}
} // namespace

JEX_IMPLEMENT_CLASS(TFloatField, TNumericField, "DB") {
    d.Property("Currency", &TFloatField::Currency, &TFloatField::SetCurrency).Default(false);
    d.Property("Precision", &TFloatField::Precision, &TFloatField::SetPrecision).Default(15);
}
TFloatField::TFloatField(TComponent* AOwner) : TNumericField(AOwner) {
    SetDataTypeInternal(ftFloat);
}
Variant TFloatField::Coerce(const Variant& v) const {
    return CoerceFloat(v);
}
std::string TFloatField::AsString() const {
    Variant v = Value();
    if (v.IsNull()) return {};
    if (FCurrency) return Format("%.2f", {v.AsFloat()});
    return rtl::FloatToStr(v.AsFloat());
}

JEX_IMPLEMENT_CLASS(TCurrencyField, TFloatField, "DB") {
    d.Property("Currency", &TFloatField::Currency, &TFloatField::SetCurrency).Default(true);
}
TCurrencyField::TCurrencyField(TComponent* AOwner) : TFloatField(AOwner) {
    SetDataTypeInternal(ftCurrency);
    SetCurrency(true);
}

JEX_IMPLEMENT_CLASS(TBCDField, TNumericField, "DB") {
    d.Property("Size", &TField::Size, &TField::SetSize).Default(4);
}
TBCDField::TBCDField(TComponent* AOwner) : TNumericField(AOwner) {
    SetDataTypeInternal(ftBCD);
    TField::SetSize(4);
}
Variant TBCDField::Coerce(const Variant& v) const {
    return CoerceFloat(v);
}
std::string TBCDField::AsString() const {
    Variant v = Value();
    return v.IsNull() ? std::string() : rtl::FloatToStr(v.AsFloat());
}

// ---- Booleans ---------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TBooleanField, TField, "DB") {
    d.Property("DisplayValues", &TBooleanField::DisplayValues, &TBooleanField::SetDisplayValues);
}
TBooleanField::TBooleanField(TComponent* AOwner) : TField(AOwner) {
    SetDataTypeInternal(ftBoolean);
}

void TBooleanField::SetDisplayValues(const std::string& v) {
    size_t p = v.find(';');
    if (p == std::string::npos || p == 0 || p + 1 >= v.size() || v.find(';', p + 1) != std::string::npos)
        throw EDatabaseError(Format("Invalid DisplayValues '%s': expected 'true text;false text'", {v}));
    FDisplayValues = v;
    FTrue = v.substr(0, p);
    FFalse = v.substr(p + 1);
}

std::string TBooleanField::AsString() const {
    Variant v = Value();
    if (v.IsNull()) return {};
    return v.AsBoolean() ? FTrue : FFalse;
}

void TBooleanField::SetAsString(const std::string& v) {
    SetValue(Variant(v));
}

Variant TBooleanField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    if (!v.IsString()) return Variant(v.AsBoolean());
    std::string s = rtl::Trim(v.AsString());
    if (s.empty()) return Variant();
    // The platform accepts the display texts, or a leading part of them, ignoring case.
    auto starts = [&](const std::string& full) {
        return s.size() <= full.size() && rtl::SameText(full.substr(0, s.size()), s);
    };
    if (starts(FTrue)) return Variant(true);
    if (starts(FFalse)) return Variant(false);
    throw EDatabaseError(Format(SInvalidBoolValue, {s, DisplayName()}));
}

// ---- Dates ------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TDateTimeField, TField, "DB") {
    d.Property("DisplayFormat", &TDateTimeField::DisplayFormat, &TDateTimeField::SetDisplayFormat);
}
TDateTimeField::TDateTimeField(TComponent* AOwner) : TField(AOwner) {
    SetDataTypeInternal(ftDateTime);
}

Variant TDateTimeField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    if (v.IsString()) {
        std::string s = rtl::Trim(v.AsString());
        if (s.empty()) return Variant();
        TDateTime d;
        if (!TryStrToDateTime(s, d))
            throw rtl::EConvertError(Format("'%s' is not a valid date and time", {s}));
        return Variant(d);
    }
    return Variant(v.AsFloat());
}

std::string TDateTimeField::AsString() const {
    Variant v = Value();
    if (v.IsNull()) return {};
    double d = v.AsFloat();
    // As the platform's default format: the time only when there is one.
    return d == std::trunc(d) ? DateToStr(d) : DateTimeToStr(d);
}

JEX_IMPLEMENT_CLASS(TDateField, TDateTimeField, "DB") {}
TDateField::TDateField(TComponent* AOwner) : TDateTimeField(AOwner) {
    SetDataTypeInternal(ftDate);
}
Variant TDateField::Coerce(const Variant& v) const {
    Variant r = TDateTimeField::Coerce(v);
    return r.IsNull() ? r : Variant(std::trunc(r.AsFloat()));
}
std::string TDateField::AsString() const {
    Variant v = Value();
    return v.IsNull() ? std::string() : DateToStr(v.AsFloat());
}

JEX_IMPLEMENT_CLASS(TTimeField, TDateTimeField, "DB") {}
TTimeField::TTimeField(TComponent* AOwner) : TDateTimeField(AOwner) {
    SetDataTypeInternal(ftTime);
}
Variant TTimeField::Coerce(const Variant& v) const {
    Variant r = TDateTimeField::Coerce(v);
    if (r.IsNull()) return r;
    double d = r.AsFloat();
    return Variant(std::fabs(d - std::trunc(d)));
}
std::string TTimeField::AsString() const {
    Variant v = Value();
    return v.IsNull() ? std::string() : TimeToStr(v.AsFloat());
}

// ---- Blobs ------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TBlobField, TField, "DB") {
    d.Property("Size", &TField::Size, &TField::SetSize).Default(0);
}
TBlobField::TBlobField(TComponent* AOwner) : TField(AOwner) {
    SetDataTypeInternal(ftBlob);
}
Variant TBlobField::Coerce(const Variant& v) const {
    if (v.IsNull()) return v;
    return Variant(v.AsString());
}
void TBlobField::LoadFromFile(const std::string& FileName) {
    SetValue(Variant(rtl::ReadFileBytes(FileName)));
}
void TBlobField::SaveToFile(const std::string& FileName) const {
    rtl::WriteFileBytes(FileName, AsString());
}

JEX_IMPLEMENT_CLASS(TMemoField, TBlobField, "DB") {}
TMemoField::TMemoField(TComponent* AOwner) : TBlobField(AOwner) {
    SetDataTypeInternal(ftMemo);
}
JEX_IMPLEMENT_CLASS(TGraphicField, TBlobField, "DB") {}
TGraphicField::TGraphicField(TComponent* AOwner) : TBlobField(AOwner) {
    SetDataTypeInternal(ftGraphic);
}

// ---- TFields ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TFields, TObject, "DB") {}

TField* TFields::Fields(int index) const {
    if (index < 0 || index >= Count()) throw rtl::EListError(Format(rtl::SListIndexError, {index}));
    return FList[static_cast<size_t>(index)];
}

TField* TFields::FindField(std::string_view Name) const {
    for (TField* f : FList)
        if (rtl::SameText(f->FieldName(), Name)) return f;
    return nullptr;
}

TField* TFields::FieldByName(std::string_view Name) const {
    TField* f = FindField(Name);
    if (!f) throw EDatabaseError(Format(SFieldNotFound, {std::string(Name)}));
    return f;
}

TField* TFields::FieldByNumber(int FieldNo) const {
    for (TField* f : FList)
        if (f->FieldNo() == FieldNo) return f;
    return nullptr;
}

int TFields::IndexOf(const TField* Field) const {
    for (size_t i = 0; i < FList.size(); ++i)
        if (FList[i] == Field) return static_cast<int>(i);
    return -1;
}

void TFields::GetFieldNames(TStrings* List) const {
    List->BeginUpdate();
    List->Clear();
    for (TField* f : FList)
        List->Add(f->FieldName());
    List->EndUpdate();
}

} // namespace db
