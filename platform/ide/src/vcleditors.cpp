// Property editors that reach the person through vcl dialogs and design windows: fonts, colours, font
// names, cursors, captions, collections and filters.
#include <memory>

#include "ide/editordialogs.h"
#include "ide/propedit.h"
#include "vcl/dialogs.h"

namespace ide {

using namespace rtl;

namespace {
// Dialog components are created for one call and freed in every case.
template <class T> using TOwned = std::unique_ptr<T, void (*)(TObject*)>;
template <class T> TOwned<T> MakeDialog() {
    return TOwned<T>(new T(nullptr), [](TObject* o) { rtl::Free(o); });
}
} // namespace

void TFontProperty::Edit() {
    auto* font = dynamic_cast<vcl::TFont*>(GetObjectValue());
    auto dlg = MakeDialog<vcl::TFontDialog>();
    if (font) dlg->SetFont(font);
    if (dlg->Execute()) SetObjectValue(dlg->Font());
}

void TFontNameProperty::GetValues(const TGetStrProc& proc) {
    TStrings* fonts = vcl::Screen()->Fonts();
    for (int i = 0; i < fonts->Count(); ++i)
        proc(fonts->Strings(i));
}

void TColorProperty::Edit() {
    auto dlg = MakeDialog<vcl::TColorDialog>();
    dlg->SetColor(static_cast<vcl::TColor>(GetOrdValue()));
    if (dlg->Execute()) SetOrdValue(dlg->Color());
}

JEX_IMPLEMENT_CLASS(TCursorProperty, TIntegerProperty, "DesignEditors") {}

TPropertyAttributes TCursorProperty::GetAttributes() {
    return {paMultiSelect, paSortList, paValueList, paRevertable};
}

std::string TCursorProperty::GetValue() {
    return vcl::CursorToString(static_cast<vcl::TCursor>(GetOrdValue()));
}

void TCursorProperty::GetValues(const TGetStrProc& proc) {
    vcl::GetCursorValues(proc);
}

void TCursorProperty::SetValue(const std::string& value) {
    vcl::TCursor c;
    if (vcl::IdentToCursor(Trim(value), c))
        SetOrdValue(c);
    else
        TIntegerProperty::SetValue(value);
}

JEX_IMPLEMENT_CLASS(TCaptionProperty, TStringProperty, "DesignEditors") {}

TPropertyAttributes TCaptionProperty::GetAttributes() {
    return {paMultiSelect, paAutoUpdate, paRevertable};
}

JEX_IMPLEMENT_CLASS(TCollectionProperty, TClassProperty, "ColnEdit") {}

TPropertyAttributes TCollectionProperty::GetAttributes() {
    return {paDialog, paReadOnly};
}

void TCollectionProperty::Edit() {
    auto* collection = dynamic_cast<TCollection*>(GetObjectValue());
    if (!collection) return;
    auto* component = dynamic_cast<TComponent*>(GetComponent(0));
    if (!component && Designer()) component = Designer()->GetRoot();
    TCollectionEditor::ShowCollectionEditor(Designer(), component, collection, GetName());
}

JEX_IMPLEMENT_CLASS(TFilterProperty, TStringProperty, "FiltEdit") {}

TPropertyAttributes TFilterProperty::GetAttributes() {
    return {paDialog};
}

void TFilterProperty::Edit() {
    std::string filter = GetValue();
    if (EditFilter(filter)) SetValue(filter);
}

} // namespace ide
