// Data-aware controls with an attached label whose caption can follow the field.
#ifdef JEX_HAVE_DB

#include "jex/jexdblabeled.h"

#include "jexdbpublish.h"

namespace jex {

using namespace vcl;

JEX_IMPLEMENT_CLASS(TjexDBSubLabel, TjexSubLabel, "jexdblabeled") {
    d.Property("CaptionAuto", &TjexDBSubLabel::CaptionAuto, &TjexDBSubLabel::SetCaptionAuto).Default(true);
}

void TjexDBSubLabel::Assign(rtl::TPersistent* Source) {
    if (auto* s = dynamic_cast<TjexDBSubLabel*>(Source)) FCaptionAuto = s->FCaptionAuto;
    TjexSubLabel::Assign(Source);
}

void TjexDBSubLabel::SetCaptionAuto(bool Value) {
    FCaptionAuto = Value;
    Apply();
}

std::string TjexDBSubLabel::ShownCaption() const {
    if (FCaptionAuto && FieldOf)
        if (db::TField* f = FieldOf()) return f->DisplayLabel();
    return Caption();
}

JEX_IMPLEMENT_CLASS(TjexLDBText, TjexCustomDBText, "jexdblabeled") {
    dbpub::DBText(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBEdit, TjexCustomDBEdit, "jexdblabeled") {
    dbpub::DBEdit(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBAutoEdit, TjexDBAutoEdit, "jexdblabeled") {
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBMemo, TjexCustomDBMemo, "jexdblabeled") {
    dbpub::DBMemo(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBImage, TjexCustomDBImage, "jexdblabeled") {
    dbpub::DBImage(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBListBox, TjexCustomDBListBox, "jexdblabeled") {
    dbpub::DBListBox(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBComboBox, TjexCustomDBComboBox, "jexdblabeled") {
    dbpub::DBComboBox(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBCheckBox, TjexCustomDBCheckBox, "jexdblabeled") {
    dbpub::DBCheckBox(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBRadioGroup, TjexCustomDBRadioGroup, "jexdblabeled") {
    dbpub::DBRadioGroup(d);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBLookupList, TjexCustomDBLookupListBox, "jexdblabeled") {
    dbpub::DBLookupListBox(d, true);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBLookupCombo, TjexCustomDBLookupComboBox, "jexdblabeled") {
    dbpub::DBLookupComboBox(d, true);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBLookupListBox, TjexCustomDBLookupListBox, "jexdblabeled") {
    dbpub::DBLookupListBox(d, false);
    jexPublishSubLabel(d);
}
JEX_IMPLEMENT_CLASS(TjexLDBLookupComboBox, TjexCustomDBLookupComboBox, "jexdblabeled") {
    dbpub::DBLookupComboBox(d, false);
    jexPublishSubLabel(d);
}

static const TjexLibraryUnit<TjexLDBText, TjexLDBEdit, TjexLDBAutoEdit, TjexLDBMemo, TjexLDBImage,
                             TjexLDBListBox, TjexLDBComboBox, TjexLDBCheckBox, TjexLDBRadioGroup,
                             TjexLDBLookupList, TjexLDBLookupCombo, TjexLDBLookupListBox,
                             TjexLDBLookupComboBox>
    jexdblabeledUnit("jexdblabeled");

} // namespace jex

#endif // JEX_HAVE_DB
