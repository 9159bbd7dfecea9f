// Property editors: the TPropertyEditor family the object inspector creates for each shown property, the
// registry that binds editor classes to property types, component classes and property names, and the
// selection-wide property enumeration (GetComponentProperties).
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "ide/designintf.h"
#include "rtl/typinfo.h"
#include "vcl/graphics.h"

namespace ide {

JEX_ENUM(TPropertyAttribute, paValueList, paSubProperties, paDialog, paMultiSelect, paAutoUpdate, paSortList,
         paReadOnly, paRevertable, paFullWidthName, paVolatileSubProperties, paVCL, paNotNestable)
JEX_SET(TPropertyAttributes, TPropertyAttribute)

// Sets of type kinds, to choose which properties GetComponentProperties reports.
using TTypeKinds = rtl::TSet<rtl::TTypeKind>;
inline constexpr TTypeKinds tkMethods{rtl::tkMethod};
inline constexpr TTypeKinds tkAny = TTypeKinds::FromBits((uint64_t(1) << (rtl::tkDynArray + 1)) - 1);
inline constexpr TTypeKinds tkProperties = tkAny - tkMethods - TTypeKinds{rtl::tkUnknown};

// Texts of the property editors.
inline constexpr const char* srNone = "(None)";
inline constexpr const char* srUnknown = "(Unknown)";
inline constexpr const char* SOutOfRange = "Value must be between %d and %d";
inline constexpr const char* SPropertyReadOnly = "Property is read-only";
using rtl::SInvalidPropertyValue;

class TPropertyEditor;
using TPropertyEditorPtr = std::unique_ptr<TPropertyEditor>;
using TGetPropProc = std::function<void(TPropertyEditorPtr)>;

// One edited object and the property of it.
struct TInstProp {
    TPersistent* Instance = nullptr;
    const rtl::TPropInfo* PropInfo = nullptr;
};

// Edits one property of every selected object at once. Editor classes are created through their class
// reference (default constructor), then Setup gives them the designer and the objects, then Initialize.
class TPropertyEditor : public rtl::TObject {
    JEX_CLASS(TPropertyEditor, rtl::TObject)
    TPropertyEditor() = default;

    void Setup(IDesigner* designer, std::vector<TInstProp> props);
    // Called once after Setup.
    virtual void Initialize() {}

    // [paMultiSelect, paRevertable] here; descendants say what they support.
    virtual TPropertyAttributes GetAttributes();
    // The value as the inspector shows it (of the first object).
    virtual std::string GetValue();
    // Takes a typed value. Raises a platform exception for a bad one, leaving every object unchanged.
    virtual void SetValue(const std::string& value);
    // The drop-down values, in order (the inspector sorts them when paSortList is set).
    virtual void GetValues(const TGetStrProc& proc) {}
    // Runs the editor's dialog. By default a value-list property steps to its next value.
    virtual void Edit();
    // The row's caption; the property name by default.
    virtual std::string GetName();
    // Editors of the sub-properties (for paSubProperties).
    virtual void GetProperties(const TGetPropProc& proc) {}
    // True when every object has the same value.
    virtual bool AllEqual();
    virtual int GetEditLimit() { return 255; }
    // Sets every object's property back to its default through the designer.
    virtual void Revert();
    // Whether GetValue can be computed; false hides the value.
    virtual bool ValueAvailable() { return true; }
    // Whether Edit may cycle through GetValues when there is no dialog.
    virtual bool AutoFill();
    // GetValue when all objects agree, otherwise empty.
    std::string GetVisualValue();

    // Owner-drawn value lists: measure and draw one entry of the drop-down.
    virtual void ListMeasureWidth(const std::string& value, vcl::TCanvas* canvas, int& width) {}
    virtual void ListMeasureHeight(const std::string& value, vcl::TCanvas* canvas, int& height) {}
    virtual void ListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                               bool selected);

    IDesigner* Designer() const { return FDesigner; }
    // The i-th edited object; raises EListError out of range.
    TPersistent* GetComponent(int index) const;
    int PropCount() const { return static_cast<int>(FProps.size()); }
    const rtl::TPropInfo* GetPropInfo() const;
    const rtl::TTypeInfo* GetPropType() const;
    const std::vector<TInstProp>& PropList() const { return FProps; }
    // Tells the designer that the form changed.
    void Modified();

    // Typed access: the Get* functions read the first object (or the index-th), the Set* functions write
    // every object and then call Modified.
    int64_t GetOrdValue() const { return GetOrdValueAt(0); }
    int64_t GetOrdValueAt(int index) const;
    void SetOrdValue(int64_t value);
    std::string GetStrValue() const { return GetStrValueAt(0); }
    std::string GetStrValueAt(int index) const;
    void SetStrValue(const std::string& value);
    double GetFloatValue() const { return GetFloatValueAt(0); }
    double GetFloatValueAt(int index) const;
    void SetFloatValue(double value);
    rtl::TMethod GetMethodValue() const { return GetMethodValueAt(0); }
    rtl::TMethod GetMethodValueAt(int index) const;
    void SetMethodValue(const rtl::TMethod& value);
    // Class-typed properties. Setting assigns into the current object when the property has no setter.
    rtl::TObject* GetObjectValue() const { return GetObjectValueAt(0); }
    rtl::TObject* GetObjectValueAt(int index) const;
    void SetObjectValue(rtl::TObject* value);

private:
    IDesigner* FDesigner = nullptr;
    std::vector<TInstProp> FProps;
};

// Draws one drop-down entry the standard way: the text inside the rectangle.
void DefaultPropertyListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                                  bool selected);

class TOrdinalProperty : public TPropertyEditor {
    JEX_CLASS(TOrdinalProperty, TPropertyEditor)
    bool AllEqual() override;
    int GetEditLimit() override { return 63; }
};

// Integers of any size; a value outside the type's range raises EPropertyError
// "Value must be between %d and %d", text that is no integer EConvertError.
class TIntegerProperty : public TOrdinalProperty {
    JEX_CLASS(TIntegerProperty, TOrdinalProperty)
    std::string GetValue() override;
    void SetValue(const std::string& value) override;
};

// A character: printable ones as themselves, others as "#n"; takes one character or "#n".
class TCharProperty : public TOrdinalProperty {
    JEX_CLASS(TCharProperty, TOrdinalProperty)
    std::string GetValue() override;
    void SetValue(const std::string& value) override;
};

class TEnumProperty : public TOrdinalProperty {
    JEX_CLASS(TEnumProperty, TOrdinalProperty)
    TPropertyAttributes GetAttributes() override;
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
};

// Boolean: "False"/"True" (any case) or an ordinal.
class TBoolProperty : public TEnumProperty {
    JEX_CLASS(TBoolProperty, TEnumProperty)
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
};

// A set, shown as "[a,b]" with one True/False sub-property per member. Also takes the "[a,b]" text.
class TSetProperty : public TOrdinalProperty {
    JEX_CLASS(TSetProperty, TOrdinalProperty)
    TPropertyAttributes GetAttributes() override;
    std::string GetValue() override;
    void SetValue(const std::string& value) override;
    void GetProperties(const TGetPropProc& proc) override;
};

// One member of a set property.
class TSetElementProperty : public TPropertyEditor {
    JEX_CLASS(TSetElementProperty, TPropertyEditor)
    void SetElement(int element) { FElement = element; }
    int Element() const { return FElement; }
    TPropertyAttributes GetAttributes() override;
    std::string GetName() override;
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
    bool AllEqual() override;

private:
    int FElement = 0;
};

class TFloatProperty : public TPropertyEditor {
    JEX_CLASS(TFloatProperty, TPropertyEditor)
    bool AllEqual() override;
    std::string GetValue() override;
    void SetValue(const std::string& value) override;
};

class TStringProperty : public TPropertyEditor {
    JEX_CLASS(TStringProperty, TPropertyEditor)
    bool AllEqual() override;
    std::string GetValue() override { return GetStrValue(); }
    void SetValue(const std::string& value) override { SetStrValue(value); }
};

// A class-typed sub-object edited in place: shows "(TFont)" and its published properties below.
class TClassProperty : public TPropertyEditor {
    JEX_CLASS(TClassProperty, TPropertyEditor)
    TPropertyAttributes GetAttributes() override;
    std::string GetValue() override;
    void GetProperties(const TGetPropProc& proc) override;
};

// A reference to a component: its name on this form, or "Form.Component" on another; the value list
// holds the fitting components. An unknown name raises EPropertyError "Invalid property value"; an empty
// value sets nil.
class TComponentProperty : public TPropertyEditor {
    JEX_CLASS(TComponentProperty, TPropertyEditor)
    TPropertyAttributes GetAttributes() override;
    bool AllEqual() override;
    int GetEditLimit() override { return 127; }
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
};

// The Name property: one component at a time; renaming is validated by the component and its designer.
class TComponentNameProperty : public TStringProperty {
    JEX_CLASS(TComponentNameProperty, TStringProperty)
    TPropertyAttributes GetAttributes() override { return {}; }
    int GetEditLimit() override { return 63; }
};

// An event: the name of the form's handler. Typing a new name creates the handler on the designer (or
// renames the current one when it has a handler already); Edit creates ComponentName + EventName.
class TMethodProperty : public TPropertyEditor {
    JEX_CLASS(TMethodProperty, TPropertyEditor)
    TPropertyAttributes GetAttributes() override;
    bool AllEqual() override;
    void Edit() override;
    int GetEditLimit() override { return 63; }
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
    // The handler name Edit proposes: "Button1Click", "FormCreate".
    virtual std::string GetFormMethodName();
    // The event name without its "On".
    std::string GetTrimmedEventName();
};

// The handler name for `eventName` of `instance` on the designer's form: the object's name (for the root,
// its class name without "T") without '.', '[', ']', '-', '>', then the event name without "On".
// Raises EPropertyError when the object has no name.
std::string MakeEventMethodName(IDesigner* designer, TPersistent* instance, const std::string& eventName);

// TFont sub-objects: sub-properties, and Edit opens the font dialog.
class TFontProperty : public TClassProperty {
    JEX_CLASS(TFontProperty, TClassProperty)
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// A font name chosen among the installed fonts.
class TFontNameProperty : public TStringProperty {
    JEX_CLASS(TFontNameProperty, TStringProperty)
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
};

// TColor: named colours ("clRed") or "$00FF8000"; the list is GetColorValues with colour swatches; Edit
// opens the colour dialog.
class TColorProperty : public TIntegerProperty {
    JEX_CLASS(TColorProperty, TIntegerProperty)
    TPropertyAttributes GetAttributes() override;
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
    void Edit() override;
    void ListMeasureWidth(const std::string& value, vcl::TCanvas* canvas, int& width) override;
    void ListDrawValue(const std::string& value, vcl::TCanvas* canvas, const vcl::TRect& rect,
                       bool selected) override;
};

// TCursor: cursor names ("crHandPoint") or numbers.
class TCursorProperty : public TIntegerProperty {
    JEX_CLASS(TCursorProperty, TIntegerProperty)
    TPropertyAttributes GetAttributes() override;
    std::string GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const std::string& value) override;
};

// TCaption: a string whose change shows at once (paAutoUpdate: the inspector sets it while typing).
class TCaptionProperty : public TStringProperty {
    JEX_CLASS(TCaptionProperty, TStringProperty)
    TPropertyAttributes GetAttributes() override;
};

// A collection: Edit opens the collection editor design window for it.
class TCollectionProperty : public TClassProperty {
    JEX_CLASS(TCollectionProperty, TClassProperty)
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// An open or save dialog filter: Edit opens the filter editor.
class TFilterProperty : public TStringProperty {
    JEX_CLASS(TFilterProperty, TStringProperty)
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// ---- Registry ---------------------------------------------------------------------------------------------
// Binds EditorClass (a TPropertyEditor descendant) to properties of PropertyType (for a class type also of
// its descendants), on ComponentClass and its descendants (nil: any), named PropertyName (empty: any),
// tagged with the current module. Raises EPropertyError when EditorClass is no creatable property editor.
void RegisterPropertyEditor(const rtl::TTypeInfo* PropertyType, TClass ComponentClass,
                            const std::string& PropertyName, TClass EditorClass);

// The editor class for a property of a component class: the best matching registration (a component
// class over none, a name over none, an exact type over an ancestor type, a more derived type, a more
// derived component class, a later registration), else the default editor of the type's kind.
TClass GetEditorClass(const rtl::TPropInfo* propInfo, TClass componentClass);

// Creates and initialises an editor of `editorClass` for the given objects.
TPropertyEditorPtr CreatePropertyEditor(TClass editorClass, IDesigner* designer,
                                        std::vector<TInstProp> props);

// Calls proc with an editor for each property that every selected object has (same name, same type, same
// editor class) and whose kind is in `filter`, ordered by name; with more than one object only editors
// with paMultiSelect. Read-only properties are reported only when class-typed (their sub-properties).
void GetComponentProperties(const TDesignerSelectionList& selection, TTypeKinds filter, IDesigner* designer,
                            const TGetPropProc& proc);

// Number of editor registrations currently present (for checks and tests).
int PropertyEditorRegistrationCount();

} // namespace ide
