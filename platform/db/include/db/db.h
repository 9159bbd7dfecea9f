// The data-set model of the data-access layer: values, field and index definitions, fields, the abstract
// TDataSet with navigation, editing, filters and bookmarks, parameters, and the data source / data link pair
// through which data-aware controls follow a data set.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "rtl/lists.h"

namespace db {

using rtl::Exception;
using rtl::TComponent;
using rtl::TObject;
using rtl::TPersistent;
using rtl::TStrings;

// Raised for every data-access failure; the message is what a person is shown.
JEX_DECLARE_EXCEPTION(EDatabaseError, Exception)

// Days since 1899-12-30, the fraction being the time of day.
using TDateTime = double;

// A field, parameter or column value: Null, a Boolean, an integer, a float or a string (text or raw bytes).
class Variant {
public:
    Variant() = default;
    Variant(std::nullptr_t) {}
    Variant(bool v) : FValue(v) {}
    Variant(int v) : FValue(static_cast<int64_t>(v)) {}
    Variant(int64_t v) : FValue(v) {}
    Variant(double v) : FValue(v) {}
    Variant(const char* v) : FValue(std::string(v ? v : "")) {}
    Variant(std::string v) : FValue(std::move(v)) {}

    bool IsNull() const { return FValue.index() == 0; }
    bool IsBool() const { return FValue.index() == 1; }
    bool IsInteger() const { return FValue.index() == 2; }
    bool IsFloat() const { return FValue.index() == 3; }
    bool IsString() const { return FValue.index() == 4; }
    // Conversions with the platform's rules: Null gives "", 0 or False; text is parsed (EConvertError).
    std::string AsString() const;
    int64_t AsInteger() const;
    double AsFloat() const;
    bool AsBoolean() const;
    bool operator==(const Variant& o) const { return FValue == o.FValue; }

private:
    std::variant<std::monostate, bool, int64_t, double, std::string> FValue;
};

// Orders two values: Null first, numbers numerically, text (optionally ignoring case) by bytes.
int CompareVariants(const Variant& a, const Variant& b, bool CaseInsensitive = false);

// Dates: the text form used for display and storage is "yyyy-mm-dd", "hh:nn:ss", "yyyy-mm-dd hh:nn:ss"
// (with ".zzz" when there are milliseconds).
TDateTime EncodeDate(int Year, int Month, int Day); // EConvertError for an invalid date
TDateTime EncodeTime(int Hour, int Min, int Sec, int MSec);
void DecodeDate(TDateTime Date, int& Year, int& Month, int& Day);
void DecodeTime(TDateTime Time, int& Hour, int& Min, int& Sec, int& MSec);
std::string DateToStr(TDateTime Date);
std::string TimeToStr(TDateTime Time);
std::string DateTimeToStr(TDateTime DateTime);
// Accepts a date, a time, or both separated by a blank or 'T'; raises EConvertError otherwise.
TDateTime StrToDateTime(std::string_view S);
bool TryStrToDateTime(std::string_view S, TDateTime& Value);

JEX_ENUM(TFieldType, ftUnknown, ftString, ftSmallint, ftInteger, ftWord, ftBoolean, ftFloat, ftCurrency,
         ftBCD, ftDate, ftTime, ftDateTime, ftBytes, ftVarBytes, ftAutoInc, ftBlob, ftMemo, ftGraphic,
         ftFmtMemo, ftParadoxOle, ftDBaseOle, ftTypedBinary, ftCursor, ftFixedChar, ftWideString, ftLargeint,
         ftADT, ftArray, ftReference, ftDataSet, ftOraBlob, ftOraClob, ftVariant, ftInterface, ftIDispatch,
         ftGuid, ftTimeStamp, ftFMTBcd)
JEX_ENUM(TDataSetState, dsInactive, dsBrowse, dsEdit, dsInsert, dsSetKey, dsCalcFields, dsFilter, dsNewValue,
         dsOldValue, dsCurValue, dsBlockRead, dsInternalCalc, dsOpening)
JEX_ENUM(TDataEvent, deFieldChange, deRecordChange, deDataSetChange, deDataSetScroll, deLayoutChange,
         deUpdateRecord, deUpdateState, deCheckBrowseMode, dePropertyChange, deFieldListChange,
         deFocusControl, deParentScroll, deConnectChange)
JEX_ENUM(TFieldKind, fkData, fkCalculated, fkLookup, fkInternalCalc, fkAggregate)
JEX_ENUM(TIndexOption, ixPrimary, ixUnique, ixDescending, ixCaseInsensitive, ixExpression, ixNonMaintained)
JEX_SET(TIndexOptions, TIndexOption)
JEX_ENUM(TFilterOption, foCaseInsensitive, foNoPartialCompare)
JEX_SET(TFilterOptions, TFilterOption)
JEX_ENUM(TLocateOption, loCaseInsensitive, loPartialKey)
JEX_SET(TLocateOptions, TLocateOption)
JEX_ENUM(TParamType, ptUnknown, ptInput, ptOutput, ptInputOutput, ptResult)
JEX_ENUM(TDataAction, daFail, daAbort, daRetry)
JEX_ENUM(TAlignment, taLeftJustify, taRightJustify, taCenter)
JEX_ENUM(TFieldAttribute, faHiddenCol, faReadonly, faRequired, faLink, faUnNamed, faFixed)
JEX_SET(TFieldAttributes, TFieldAttribute)

// The field type's name as the platform prints it ("String", "Integer", "AutoInc" ...).
std::string FieldTypeName(TFieldType t);

class TDataSet;
class TField;
class TDataSource;
class TFieldDefs;
class TIndexDefs;

JEX_EVENT_TYPE(TDataSetNotifyEvent, void(TDataSet* DataSet))
JEX_EVENT_TYPE(TFilterRecordEvent, void(TDataSet* DataSet, bool& Accept))
JEX_EVENT_TYPE(TDataSetErrorEvent, void(TDataSet* DataSet, EDatabaseError& E, TDataAction& Action))
JEX_EVENT_TYPE(TFieldNotifyEvent, void(TField* Sender))
JEX_EVENT_TYPE(TDataChangeEvent, void(rtl::TObject* Sender, TField* Field))

// ---- Field and index definitions
// ---------------------------------------------------------------------------
class TFieldDef : public rtl::TCollectionItem {
    JEX_CLASS(TFieldDef, rtl::TCollectionItem)
    explicit TFieldDef(rtl::TCollection* Collection);
    void Assign(TPersistent* Source) override;
    std::string GetDisplayName() const override;

    const std::string& Name() const { return FName; }
    void SetName(const std::string& v);
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType v);
    int Size() const { return FSize; }
    void SetSize(int v);
    int Precision() const { return FPrecision; }
    void SetPrecision(int v) { FPrecision = v; }
    bool Required() const { return FRequired; }
    void SetRequired(bool v) { FRequired = v; }
    // Required is the faRequired member; the others are kept as given.
    TFieldAttributes Attributes() const;
    void SetAttributes(TFieldAttributes v);
    int FieldNo() const { return Index() + 1; }
    // The field class that represents this definition (TStringField for ftString ...); nil when none does.
    rtl::TClass FieldClass() const;

private:
    std::string FName;
    TFieldType FDataType = ftUnknown;
    int FSize = 0;
    int FPrecision = 0;
    bool FRequired = false;
    TFieldAttributes FAttributes;
};

class TFieldDefs : public rtl::TOwnedCollection {
    JEX_CLASS(TFieldDefs, rtl::TOwnedCollection)
    // Owned by a data set, or by nobody (nil) for scratch definitions.
    explicit TFieldDefs(TDataSet* AOwner);
    TFieldDef* Items(int index) const;
    TFieldDef* AddFieldDef();
    // Adds a definition; raises EDatabaseError "Duplicate field name '%s'" for a name already present.
    TFieldDef* Add(const std::string& Name, TFieldType DataType, int Size = 0, bool Required = false);
    TFieldDef* Find(const std::string& Name) const; // EDatabaseError "Field '%s' not found"
    int IndexOf(std::string_view Name) const;
    // Reads the definitions from the data set's storage without opening it.
    void Update();
    void GetItemNames(TStrings* List) const;
};

class TIndexDef : public rtl::TCollectionItem {
    JEX_CLASS(TIndexDef, rtl::TCollectionItem)
    explicit TIndexDef(rtl::TCollection* Collection);
    void Assign(TPersistent* Source) override;
    std::string GetDisplayName() const override;

    const std::string& Name() const { return FName; }
    void SetName(const std::string& v) { FName = v; }
    // Field names separated by ';'.
    const std::string& Fields() const { return FFields; }
    void SetFields(const std::string& v) { FFields = v; }
    TIndexOptions Options() const { return FOptions; }
    void SetOptions(TIndexOptions v) { FOptions = v; }
    // For ixExpression indexes: the expression text.
    const std::string& Expression() const { return FExpression; }
    void SetExpression(const std::string& v) { FExpression = v; }
    const std::string& DescFields() const { return FDescFields; }
    void SetDescFields(const std::string& v) { FDescFields = v; }
    const std::string& CaseInsFields() const { return FCaseInsFields; }
    void SetCaseInsFields(const std::string& v) { FCaseInsFields = v; }

private:
    std::string FName, FFields, FExpression, FDescFields, FCaseInsFields;
    TIndexOptions FOptions;
};

class TIndexDefs : public rtl::TOwnedCollection {
    JEX_CLASS(TIndexDefs, rtl::TOwnedCollection)
    explicit TIndexDefs(TDataSet* AOwner);
    TIndexDef* Items(int index) const;
    TIndexDef* AddIndexDef();
    TIndexDef* Add(const std::string& Name, const std::string& Fields, TIndexOptions Options);
    TIndexDef* Find(const std::string& Name) const; // EDatabaseError "Index '%s' not found"
    int IndexOf(std::string_view Name) const;
    // The index whose field list starts with Fields (case-insensitively), preferring the primary one; nil.
    TIndexDef* GetIndexForFields(const std::string& Fields, bool CaseInsensitive) const;
    // Reads the definitions from the data set's storage.
    void Update();
    void GetItemNames(TStrings* List) const;
    // Set by Update; cleared by any change made through the collection.
    bool Updated = false;
};

// Splits a field list "A;B;C" (also accepting ',') into trimmed names.
std::vector<std::string> SplitFieldNames(std::string_view Fields);

// ---- Fields ---------------------------------------------------------------------------------------------
class TField : public TComponent {
    JEX_CLASS(TField, TComponent)
    explicit TField(TComponent* AOwner);
    ~TField() override;

    TDataSet* DataSet() const { return FDataSet; }
    // Adds the field to the data set's persistent fields (the data set must be closed).
    void SetDataSet(TDataSet* Value);
    const std::string& FieldName() const { return FFieldName; }
    void SetFieldName(const std::string& v);
    TFieldType DataType() const { return FDataType; }
    TFieldKind FieldKind() const { return FFieldKind; }
    void SetFieldKind(TFieldKind v) { FFieldKind = v; }
    int Size() const { return FSize; }
    virtual void SetSize(int v);
    // 1-based position of the field's column in the record; 0 when not bound.
    int FieldNo() const { return FFieldNo; }
    // Position among the data set's fields.
    int Index() const;
    void SetIndex(int v);
    std::string DisplayLabel() const { return FDisplayLabel.empty() ? FFieldName : FDisplayLabel; }
    void SetDisplayLabel(const std::string& v) { FDisplayLabel = v; }
    std::string DisplayName() const { return DisplayLabel(); }
    int DisplayWidth() const { return FDisplayWidth > 0 ? FDisplayWidth : DefaultDisplayWidth(); }
    void SetDisplayWidth(int v) { FDisplayWidth = v; }
    bool IsDisplayLabelStored() const { return !FDisplayLabel.empty(); }
    bool IsDisplayWidthStored() const { return FDisplayWidth > 0; }
    TAlignment Alignment() const { return FAlignment; }
    void SetAlignment(TAlignment v) { FAlignment = v; }
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool v) { FReadOnly = v; }
    bool Required() const { return FRequired; }
    void SetRequired(bool v) { FRequired = v; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool v) { FVisible = v; }
    const std::string& EditMask() const { return FEditMask; }
    void SetEditMask(const std::string& v) { FEditMask = v; }
    const std::string& DefaultExpression() const { return FDefaultExpression; }
    void SetDefaultExpression(const std::string& v) { FDefaultExpression = v; }
    bool CanModify() const;
    bool IsBlob() const;

    // The value in the data set's active record (the edit buffer while editing). Reading needs an open
    // data set; writing needs dsEdit or dsInsert ("Dataset not in edit or insert mode").
    Variant Value() const;
    void SetValue(const Variant& v);
    bool IsNull() const { return Value().IsNull(); }
    void Clear() { SetValue(Variant()); }
    virtual std::string AsString() const;
    virtual void SetAsString(const std::string& v);
    virtual int32_t AsInteger() const;
    virtual void SetAsInteger(int32_t v);
    virtual double AsFloat() const;
    virtual void SetAsFloat(double v);
    virtual bool AsBoolean() const;
    virtual void SetAsBoolean(bool v);
    virtual TDateTime AsDateTime() const;
    virtual void SetAsDateTime(TDateTime v);
    double AsCurrency() const { return AsFloat(); }
    void SetAsCurrency(double v) { SetAsFloat(v); }
    // The value as shown (DisplayText) and as edited (Text); the same here.
    std::string DisplayText() const { return AsString(); }
    std::string Text() const { return AsString(); }
    void SetText(const std::string& v) { SetAsString(v); }
    void FocusControl();

    TFieldNotifyEvent OnChange;
    TFieldNotifyEvent OnValidate;

    bool HasParent() const override { return true; }
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* Value) override;

protected:
    // Converts a value of any kind into this field's storage kind (raises EConvertError / EDatabaseError).
    virtual Variant Coerce(const Variant& v) const { return v; }
    virtual int DefaultDisplayWidth() const { return 10; }
    [[noreturn]] void ConvertError(const std::string& typeName) const;
    void SetDataTypeInternal(TFieldType t) { FDataType = t; }
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TDataSet;
    friend class TFields;
    TDataSet* FDataSet = nullptr;
    std::string FFieldName;
    std::string FDisplayLabel;
    std::string FEditMask;
    std::string FDefaultExpression;
    TFieldType FDataType = ftUnknown;
    TFieldKind FFieldKind = fkData;
    TAlignment FAlignment = taLeftJustify;
    int FSize = 0;
    int FFieldNo = 0;
    int FDisplayWidth = 0;
    bool FReadOnly = false;
    bool FRequired = false;
    bool FVisible = true;
};

class TStringField : public TField {
    JEX_CLASS(TStringField, TField)
    explicit TStringField(TComponent* AOwner);
    bool FixedChar() const { return FFixedChar; }
    void SetFixedChar(bool v) { FFixedChar = v; }
    bool Transliterate() const { return FTransliterate; }
    void SetTransliterate(bool v) { FTransliterate = v; }

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return Size(); }

private:
    bool FFixedChar = false;
    bool FTransliterate = true;
};

class TWideStringField : public TStringField {
    JEX_CLASS(TWideStringField, TStringField)
    explicit TWideStringField(TComponent* AOwner);
};

class TNumericField : public TField {
    JEX_CLASS(TNumericField, TField)
    explicit TNumericField(TComponent* AOwner);
    const std::string& DisplayFormat() const { return FDisplayFormat; }
    void SetDisplayFormat(const std::string& v) { FDisplayFormat = v; }
    const std::string& EditFormat() const { return FEditFormat; }
    void SetEditFormat(const std::string& v) { FEditFormat = v; }

private:
    std::string FDisplayFormat, FEditFormat;
};

class TIntegerField : public TNumericField {
    JEX_CLASS(TIntegerField, TNumericField)
    explicit TIntegerField(TComponent* AOwner);
    // Zero for both means "the type's whole range".
    int32_t MinValue() const { return FMinValue; }
    void SetMinValue(int32_t v) { FMinValue = v; }
    int32_t MaxValue() const { return FMaxValue; }
    void SetMaxValue(int32_t v) { FMaxValue = v; }

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 11; }
    virtual int64_t LowLimit() const { return INT32_MIN; }
    virtual int64_t HighLimit() const { return INT32_MAX; }

private:
    int32_t FMinValue = 0, FMaxValue = 0;
};

class TSmallintField : public TIntegerField {
    JEX_CLASS(TSmallintField, TIntegerField)
    explicit TSmallintField(TComponent* AOwner);

protected:
    int64_t LowLimit() const override { return -32768; }
    int64_t HighLimit() const override { return 32767; }
    int DefaultDisplayWidth() const override { return 6; }
};

class TWordField : public TIntegerField {
    JEX_CLASS(TWordField, TIntegerField)
    explicit TWordField(TComponent* AOwner);

protected:
    int64_t LowLimit() const override { return 0; }
    int64_t HighLimit() const override { return 65535; }
    int DefaultDisplayWidth() const override { return 5; }
};

class TAutoIncField : public TIntegerField {
    JEX_CLASS(TAutoIncField, TIntegerField)
    explicit TAutoIncField(TComponent* AOwner);
};

class TLargeintField : public TNumericField {
    JEX_CLASS(TLargeintField, TNumericField)
    explicit TLargeintField(TComponent* AOwner);
    int64_t AsLargeInt() const;
    void SetAsLargeInt(int64_t v);

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 15; }
};

class TFloatField : public TNumericField {
    JEX_CLASS(TFloatField, TNumericField)
    explicit TFloatField(TComponent* AOwner);
    bool Currency() const { return FCurrency; }
    void SetCurrency(bool v) { FCurrency = v; }
    int Precision() const { return FPrecision; }
    void SetPrecision(int v) { FPrecision = v; }
    std::string AsString() const override;

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 10; }

private:
    bool FCurrency = false;
    int FPrecision = 15;
};

class TCurrencyField : public TFloatField {
    JEX_CLASS(TCurrencyField, TFloatField)
    explicit TCurrencyField(TComponent* AOwner);
};

class TBCDField : public TNumericField {
    JEX_CLASS(TBCDField, TNumericField)
    explicit TBCDField(TComponent* AOwner);
    std::string AsString() const override;

protected:
    Variant Coerce(const Variant& v) const override;
};

class TBooleanField : public TField {
    JEX_CLASS(TBooleanField, TField)
    explicit TBooleanField(TComponent* AOwner);
    // "True;False": the texts shown for the two values, and accepted (ignoring case) when set as text.
    const std::string& DisplayValues() const { return FDisplayValues; }
    void SetDisplayValues(const std::string& v);
    std::string AsString() const override;
    void SetAsString(const std::string& v) override;

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 5; }

private:
    std::string FDisplayValues = "True;False";
    std::string FTrue = "True", FFalse = "False";
};

class TDateTimeField : public TField {
    JEX_CLASS(TDateTimeField, TField)
    explicit TDateTimeField(TComponent* AOwner);
    const std::string& DisplayFormat() const { return FDisplayFormat; }
    void SetDisplayFormat(const std::string& v) { FDisplayFormat = v; }
    std::string AsString() const override;

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 19; }

private:
    std::string FDisplayFormat;
};

class TDateField : public TDateTimeField {
    JEX_CLASS(TDateField, TDateTimeField)
    explicit TDateField(TComponent* AOwner);
    std::string AsString() const override;

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 10; }
};

class TTimeField : public TDateTimeField {
    JEX_CLASS(TTimeField, TDateTimeField)
    explicit TTimeField(TComponent* AOwner);
    std::string AsString() const override;

protected:
    Variant Coerce(const Variant& v) const override;
    int DefaultDisplayWidth() const override { return 8; }
};

// Binary data of any length; the value is a string of bytes.
class TBlobField : public TField {
    JEX_CLASS(TBlobField, TField)
    explicit TBlobField(TComponent* AOwner);
    int BlobSize() const { return static_cast<int>(AsString().size()); }
    void LoadFromFile(const std::string& FileName);
    void SaveToFile(const std::string& FileName) const;

protected:
    Variant Coerce(const Variant& v) const override;
};

class TMemoField : public TBlobField {
    JEX_CLASS(TMemoField, TBlobField)
    explicit TMemoField(TComponent* AOwner);
};

class TGraphicField : public TBlobField {
    JEX_CLASS(TGraphicField, TBlobField)
    explicit TGraphicField(TComponent* AOwner);
};

// The fields of a data set, in order. Does not own them: a field belongs to its owner component.
class TFields : public TObject {
    JEX_CLASS(TFields, TObject)
    explicit TFields(TDataSet* ADataSet) : FDataSet(ADataSet) {}
    int Count() const { return static_cast<int>(FList.size()); }
    TField* Fields(int index) const; // EListError out of range
    TField* operator[](int index) const { return Fields(index); }
    TField* FindField(std::string_view Name) const;
    TField* FieldByName(std::string_view Name) const; // EDatabaseError "Field '%s' not found"
    TField* FieldByNumber(int FieldNo) const;
    int IndexOf(const TField* Field) const;
    void GetFieldNames(TStrings* List) const;
    TDataSet* DataSet() const { return FDataSet; }

private:
    friend class TDataSet;
    friend class TField;
    TDataSet* FDataSet;
    std::vector<TField*> FList;
};

// ---- Parameters ----------------------------------------------------------------------------------------
class TParam : public rtl::TCollectionItem {
    JEX_CLASS(TParam, rtl::TCollectionItem)
    explicit TParam(rtl::TCollection* Collection);
    void Assign(TPersistent* Source) override;
    std::string GetDisplayName() const override { return FName; }

    const std::string& Name() const { return FName; }
    void SetName(const std::string& v) { FName = v; }
    TFieldType DataType() const { return FDataType; }
    void SetDataType(TFieldType v) { FDataType = v; }
    TParamType ParamType() const { return FParamType; }
    void SetParamType(TParamType v) { FParamType = v; }
    bool Bound() const { return FBound; }
    void SetBound(bool v) { FBound = v; }

    const Variant& Value() const { return FValue; }
    void SetValue(const Variant& v);
    bool IsNull() const { return FValue.IsNull(); }
    void Clear();
    std::string AsString() const { return FValue.AsString(); }
    void SetAsString(const std::string& v);
    int32_t AsInteger() const { return static_cast<int32_t>(FValue.AsInteger()); }
    void SetAsInteger(int32_t v);
    double AsFloat() const { return FValue.AsFloat(); }
    void SetAsFloat(double v);
    bool AsBoolean() const { return FValue.AsBoolean(); }
    void SetAsBoolean(bool v);
    TDateTime AsDateTime() const;
    void SetAsDateTime(TDateTime v);
    void SetAsDate(TDateTime v);
    void SetAsMemo(const std::string& v);
    void SetAsBlob(const std::string& v);
    // Takes the value and type of a field.
    void AssignField(const TField* Field);

    // "Value" in form files, written as the kind of value it holds (number, text, Boolean).
    void DefineProperties(rtl::TFiler& Filer) override;

private:
    std::string FName;
    TFieldType FDataType = ftUnknown;
    TParamType FParamType = ptUnknown;
    Variant FValue;
    bool FBound = false;
};

class TParams : public rtl::TOwnedCollection {
    JEX_CLASS(TParams, rtl::TOwnedCollection)
    explicit TParams(TDataSet* AOwner = nullptr);
    TParam* Items(int index) const;
    TParam* AddParam();
    TParam* CreateParam(TFieldType FldType, const std::string& ParamName, TParamType ParamType);
    TParam* FindParam(std::string_view Name) const;
    TParam* ParamByName(std::string_view Name) const; // EDatabaseError "Parameter '%s' not found"
    void GetParamList(std::vector<TParam*>& List, const std::string& ParamNames) const;
    // Replaces the list with the :Name parameters of SQL (each name once, in order of appearance); keeps the
    // value and type of parameters that keep their name. Returns the SQL with every parameter as '?', and
    // fills Order with the parameter name of each '?'.
    std::string ParseSQL(const std::string& SQL, bool DoCreate, std::vector<std::string>* Order = nullptr);
    // Takes over values of parameters with the same name from Source.
    void AssignValues(const TParams* Source);
    bool IsEqual(const TParams* Other) const;
};

// ---- Data sets -----------------------------------------------------------------------------------------
using TBookmark = std::string;
using TBookmarkStr = std::string;

class TDataLink;

// An abstract data set: a cursor over records held in memory with the fields that read and write the active
// record. Descendants fill the records from storage (InternalOpen) and write changes back (InternalPost,
// InternalDelete).
class TDataSet : public TComponent {
    JEX_CLASS(TDataSet, TComponent)
    explicit TDataSet(TComponent* AOwner);
    ~TDataSet() override;
    void BeforeDestruction() override;

    // ---- Opening
    bool Active() const { return FState != dsInactive; }
    // During loading the value is kept and applied in Loaded, as the platform does with streamed forms.
    void SetActive(bool Value);
    void Open() { SetActive(true); }
    void Close() { SetActive(false); }
    TDataSetState State() const { return FState; }
    bool Modified() const { return FModified; }
    virtual bool CanModify() const { return FState != dsInactive && !FReadOnlyData; }

    // ---- Fields
    TFields* Fields() const { return FFields.get(); }
    TFieldDefs* FieldDefs() const { return FFieldDefs.get(); }
    void SetFieldDefs(TFieldDefs* Value);
    int FieldCount() const { return FFields->Count(); }
    TField* FieldByName(std::string_view Name) const { return FFields->FieldByName(Name); }
    TField* FindField(std::string_view Name) const { return FFields->FindField(Name); }
    TField* FieldByNumber(int FieldNo) const { return FFields->FieldByNumber(FieldNo); }
    // The field names; from the field definitions (read from storage) when the data set is closed and has
    // no persistent fields.
    void GetFieldNames(TStrings* List);
    // Dynamic fields are made on opening when there are no persistent ones.
    bool DefaultFields() const { return FDefaultFields; }
    Variant FieldValue(std::string_view Name) const { return FieldByName(Name)->Value(); }
    void SetFieldValue(std::string_view Name, const Variant& v) { FieldByName(Name)->SetValue(v); }

    // ---- Navigation
    void First();
    void Last();
    void Next();
    void Prior();
    int MoveBy(int Distance); // returns how far it really moved
    bool Eof() const { return FEof; }
    bool Bof() const { return FBof; }
    bool IsEmpty() const { return FView.empty() && FState != dsInsert; }
    // The number of records that pass the filter, the range and the master link.
    int RecordCount() const;
    // 1-based position of the current record, 0 when there is none.
    int RecNo() const;
    void SetRecNo(int Value);
    // Finds the first record whose KeyFields (';'-separated) equal KeyValues; moves there when found.
    bool Locate(const std::string& KeyFields, const std::vector<Variant>& KeyValues, TLocateOptions Options);
    void Refresh();
    void Resync() { DataEvent(deDataSetChange, 0); }

    // ---- Editing
    void Edit();
    void Insert();
    void Append();
    void Post();
    void Cancel();
    void Delete();
    void CheckBrowseMode();
    // Asks the data links to write pending control values into the fields (deUpdateRecord).
    void UpdateRecord();
    void ClearFields();
    void AppendRecord(const std::vector<Variant>& Values);
    void InsertRecord(const std::vector<Variant>& Values);
    void SetFields(const std::vector<Variant>& Values);

    // ---- Filters
    const std::string& Filter() const { return FFilter; }
    // An expression over field names: comparisons (= <> < > <= >=), AND, OR, NOT, parentheses, IS NULL,
    // numbers and quoted strings; 'abc*' matches by prefix unless foNoPartialCompare. A syntax error
    // raises EDatabaseError when the filter is applied.
    void SetFilter(const std::string& Value);
    bool Filtered() const { return FFiltered; }
    void SetFiltered(bool Value);
    TFilterOptions FilterOptions() const { return FFilterOptions; }
    void SetFilterOptions(TFilterOptions Value);

    // ---- Bookmarks: identify a record for the life of the open data set.
    TBookmark GetBookmark() const;
    TBookmarkStr Bookmark() const { return GetBookmark(); }
    void SetBookmark(const TBookmarkStr& Value) { GotoBookmark(Value); }
    void GotoBookmark(const TBookmark& Bookmark); // EDatabaseError "Record not found" when gone
    bool BookmarkValid(const TBookmark& Bookmark) const;
    int CompareBookmarks(const TBookmark& a, const TBookmark& b) const;
    void FreeBookmark(TBookmark&) {}

    // ---- Data sources
    void DisableControls();
    void EnableControls();
    bool ControlsDisabled() const { return FDisableCount > 0; }
    // The data source this data set takes its master values from (a detail table's MasterSource, a
    // query's DataSource); nil when none.
    virtual TDataSource* GetDataSource() const { return nullptr; }
    // True when DataSource leads back to this data set through master links (linking them would be
    // circular).
    bool IsLinkedTo(TDataSource* DataSource) const;
    int DataSourceCount() const { return static_cast<int>(FDataSources.size()); }

    // ---- Events
    TDataSetNotifyEvent BeforeOpen, AfterOpen, BeforeClose, AfterClose, BeforeInsert, AfterInsert, BeforeEdit,
        AfterEdit, BeforePost, AfterPost, BeforeCancel, AfterCancel, BeforeDelete, AfterDelete, BeforeScroll,
        AfterScroll, BeforeRefresh, AfterRefresh, OnNewRecord, OnCalcFields;
    TFilterRecordEvent OnFilterRecord;
    TDataSetErrorEvent OnPostError, OnDeleteError, OnEditError;

    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void Loaded() override;

    // Field access for TField: the active record's value of column FieldNo (1-based).
    Variant GetFieldData(const TField* Field) const;
    void SetFieldData(TField* Field, const Variant& Value);
    // Sends Event to the data sources and their links (held back while controls are disabled).
    void DataEvent(TDataEvent Event, intptr_t Info);

protected:
    // One record: its column values, the storage's key for it, and the bookmark serial.
    struct TRecordData {
        std::vector<Variant> Values;
        int64_t Key = 0;
        uint64_t Serial = 0;
    };

    // Descendants: read FieldDefs and call SetRecords; raise EDatabaseError on failure.
    virtual void InternalOpen() = 0;
    virtual void InternalClose() {}
    // Fill FieldDefs from storage while closed (for GetFieldNames and FieldDefs.Update).
    virtual void InternalInitFieldDefs() {}
    virtual void InternalInitIndexDefs() {}
    // Write a posted record; may update its values (generated keys) and Key.
    virtual void InternalPost(TRecordData& Record, bool Inserting);
    virtual void InternalDelete(const TRecordData& Record);
    // Re-read the records; the default reopens the storage cursor through InternalOpen.
    virtual void InternalRefresh();
    // A descendant's own condition on records (ranges, master-detail); the filter comes on top.
    virtual bool RecordInScope(const TRecordData& Record) const { return true; }
    // Values a new record starts with (master fields of a detail table).
    virtual void InitNewRecord(std::vector<Variant>& Values) {}
    // Called after the record list or scope changed, to place new records in order.
    virtual void SortRecords() {}

    void SetRecords(std::vector<std::unique_ptr<TRecordData>> Records);
    std::vector<std::unique_ptr<TRecordData>>& Records() { return FRecords; }
    // Rebuilds the visible list after a change of filter or scope, keeping the current record if possible.
    void RebuildView();
    void SetReadOnlyData(bool v) { FReadOnlyData = v; }
    void CheckActive() const;    // "Cannot perform this operation on a closed dataset"
    void CheckInactive() const;  // "Cannot perform this operation on an open dataset"
    void CheckCanModify() const; // "Cannot modify a read-only dataset"
    [[noreturn]] void DatabaseError(const std::string& Message) const;
    TRecordData* ActiveRecordData() const;
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;
    // Closes quietly (no events) after a failed open or when storage went away.
    void CloseQuietly();
    void DoAfterScroll();
    std::vector<TDataSource*>& DataSourceList() { return FDataSources; }

private:
    friend class TField;
    friend class TFields;
    friend class TDataSource;
    friend class TFieldDefs;
    friend class TIndexDefs;

    void OpenCursor();
    void CreateFields();
    void BindFields();
    void DestroyDynamicFields();
    void SetState(TDataSetState Value);
    void BeginInsertAppend(bool Append);
    bool PassesFilter(const TRecordData& Record) const;
    void ParseFilter();
    void AfterMove(bool scrolled, int distance = 0);
    int IndexOfSerial(uint64_t serial) const;
    void AddField(TField* Field);
    void RemoveField(TField* Field);

    std::unique_ptr<TFields> FFields;
    std::unique_ptr<TFieldDefs> FFieldDefs;
    std::vector<std::unique_ptr<TRecordData>> FRecords;
    std::vector<TRecordData*> FView;
    std::vector<Variant> FEditBuffer;
    int FCurrent = -1;   // index into FView
    int FInsertPos = -1; // where an inserted record goes in FView
    std::vector<TDataSource*> FDataSources;
    TDataSetState FState = dsInactive;
    bool FBof = true, FEof = true;
    bool FModified = false;
    bool FStreamedActive = false;
    bool FDefaultFields = true;
    bool FReadOnlyData = false;
    bool FFiltered = false;
    TFilterOptions FFilterOptions;
    std::string FFilter;
    struct TFilterExpr;
    std::shared_ptr<TFilterExpr> FFilterExpr;
    uint64_t FNextSerial = 1;
    int FDisableCount = 0;
    bool FPendingChange = false;
    TDataSetState FDisabledState = dsInactive;
    bool FInDataEvent = false;
};

// ---- Data sources and links ----------------------------------------------------------------------------
class TDataSource : public TComponent {
    JEX_CLASS(TDataSource, TComponent)
    explicit TDataSource(TComponent* AOwner);
    ~TDataSource() override;
    void BeforeDestruction() override;

    TDataSet* DataSet() const { return FDataSet; }
    void SetDataSet(TDataSet* Value);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool Value);
    bool AutoEdit() const { return FAutoEdit; }
    void SetAutoEdit(bool Value) { FAutoEdit = Value; }
    // The data set's state, dsInactive when disabled or without a data set.
    TDataSetState State() const { return FState; }
    // Puts the data set into edit mode when AutoEdit allows and it is browsing.
    void Edit();
    // True when this data source leads back to DataSet through master links.
    bool IsLinkedTo(TDataSet* DataSet) const;
    int DataLinkCount() const { return static_cast<int>(FDataLinks.size()); }

    rtl::TNotifyEvent OnStateChange;
    TDataChangeEvent OnDataChange;
    rtl::TNotifyEvent OnUpdateData;

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

private:
    friend class TDataSet;
    friend class TDataLink;
    void DataEvent(TDataEvent Event, intptr_t Info);
    void UpdateState();
    TDataSet* FDataSet = nullptr;
    std::vector<TDataLink*> FDataLinks;
    TDataSetState FState = dsInactive;
    bool FEnabled = true;
    bool FAutoEdit = true;
};

// What a data-aware control holds to follow a data source: it is told when the data set opens or closes,
// scrolls, changes state or changes a record. Not a component; the control owns it.
class TDataLink : public TPersistent {
    JEX_CLASS(TDataLink, TPersistent)
    TDataLink();
    ~TDataLink() override;

    TDataSource* DataSource() const { return FDataSource; }
    void SetDataSource(TDataSource* Value);
    TDataSet* DataSet() const;
    // The data source is enabled and its data set open.
    bool Active() const { return FActive; }
    bool Editing() const { return FEditing; }
    bool ReadOnly() const { return FReadOnly; }
    void SetReadOnly(bool v);
    // Puts the data set into edit mode through the data source; true when it is editing afterwards.
    bool Edit();
    void UpdateRecord();
    int RecordCount() const;

protected:
    virtual void ActiveChanged() {}
    virtual void CheckBrowseMode() {}
    virtual void DataSetChanged() { RecordChanged(nullptr); }
    virtual void DataSetScrolled(int Distance) { DataSetChanged(); }
    virtual void EditingChanged() {}
    virtual void FocusControl(TField** Field) {}
    virtual void LayoutChanged() { DataSetChanged(); }
    virtual void RecordChanged(TField* Field) {}
    virtual void UpdateData() {}

private:
    friend class TDataSource;
    void DataEvent(TDataEvent Event, intptr_t Info);
    void UpdateState();
    TDataSource* FDataSource = nullptr;
    bool FActive = false;
    bool FEditing = false;
    bool FReadOnly = false;
    bool FUpdating = false;
};

// A data link bound to one field of the data set by name, with the notifications a single-field control
// needs.
class TFieldDataLink : public TDataLink {
    JEX_CLASS(TFieldDataLink, TDataLink)
    TFieldDataLink() = default;

    const std::string& FieldName() const { return FFieldName; }
    void SetFieldName(const std::string& Value);
    // The bound field; nil when inactive or the data set has no such field.
    TField* Field() const { return FField; }
    TComponent* Control() const { return FControl; }
    void SetControl(TComponent* v) { FControl = v; }
    bool CanModify() const;
    // Records that the control changed the value; the next UpdateRecord asks it for the value (OnUpdateData).
    void Modified() { FModified = true; }
    void Reset();

    rtl::TNotifyEvent OnDataChange;
    rtl::TNotifyEvent OnEditingChange;
    rtl::TNotifyEvent OnUpdateData;
    rtl::TNotifyEvent OnActiveChange;

protected:
    void ActiveChanged() override;
    void EditingChanged() override;
    void LayoutChanged() override;
    void RecordChanged(TField* Field) override;
    void UpdateData() override;

private:
    void UpdateField();
    std::string FFieldName;
    TField* FField = nullptr;
    TComponent* FControl = nullptr;
    bool FModified = false;
};

// Platform texts of the data-access layer.
inline constexpr const char* SDataSetOpen = "Cannot perform this operation on an open dataset";
inline constexpr const char* SDataSetClosed = "Cannot perform this operation on a closed dataset";
inline constexpr const char* SFieldNotFound = "Field '%s' not found";
inline constexpr const char* SNotEditing = "Dataset not in edit or insert mode";
inline constexpr const char* SDataSetReadOnly = "Cannot modify a read-only dataset";
inline constexpr const char* SDataSetEmpty = "Cannot perform this operation on an empty dataset";
inline constexpr const char* SFieldRequired = "Field '%s' must have a value";
inline constexpr const char* SFieldReadOnly = "Field '%s' cannot be modified";
inline constexpr const char* SRecordNotFound = "Record not found";
inline constexpr const char* SCircularDataLink = "Circular datalinks are not allowed";
inline constexpr const char* SDuplicateFieldName = "Duplicate field name '%s'";
inline constexpr const char* SIndexNotFound = "Index '%s' not found";
inline constexpr const char* SParameterNotFound = "Parameter '%s' not found";
inline constexpr const char* SFieldRangeError =
    "%s is not a valid value for field '%s'. The allowed range is %d to %d";
inline constexpr const char* SInvalidBoolValue = "'%s' is not a valid boolean value for field '%s'";
inline constexpr const char* SFieldTypeMismatch = "Type mismatch for field '%s', expecting: %s actual: %s";
inline constexpr const char* SFilterSyntax = "Filter expression error: %s";

} // namespace db
