// Published property sets of the data-aware controls, in the platform's order and with its defaults, so
// that the library's data controls and their attached-label versions publish them the same way.
#pragma once

#include "jex/jexdbctrls.h"
#include "jexpublish.h"

namespace jex::dbpub {

using namespace vcl;

template <class C> void DataFieldSource(rtl::TClassDecl<C>& d) {
    d.Property("DataField", &C::DataField, &C::SetDataField);
    d.Property("DataSource", &C::DataSource, &C::SetDataSource);
}

template <class C> void ReadOnly(rtl::TClassDecl<C>& d) {
    d.Property("ReadOnly", &C::ReadOnly, &C::SetReadOnly).Default(false);
}

// The data-aware edit (and the automatic edit).
template <class C> void DBEdit(rtl::TClassDecl<C>& d) {
    pub::Anchors(d);
    d.Property("AutoSelect", &TCustomEdit::AutoSelect, &TCustomEdit::SetAutoSelect).Default(true);
    d.Property("AutoSize", &TCustomEdit::AutoSize, &TCustomEdit::SetAutoSize).Default(true);
    d.Property("BorderStyle", &TCustomEdit::BorderStyle, &TCustomEdit::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    d.Property("CharCase", &TCustomEdit::CharCase, &TCustomEdit::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("MaxLength", &TCustomEdit::MaxLength, &TCustomEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("PasswordChar", &TCustomEdit::PasswordChar, &TCustomEdit::SetPasswordChar).Default(0);
    pub::PopupMenu(d);
    ReadOnly(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Event("OnChange", &TCustomEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

template <class C> void DBText(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    d.Property("Alignment", &TCustomLabel::Alignment, &TCustomLabel::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoSize", &TCustomLabel::AutoSize, &TCustomLabel::SetAutoSize).Default(false);
    pub::Color(d, clBtnFace);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
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

template <class C> void DBMemo(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    d.Property("Alignment", &TCustomMemo::Alignment, &TCustomMemo::SetAlignment).Default(taLeftJustify);
    pub::Anchors(d);
    d.Property("AutoDisplay", &C::AutoDisplay, &C::SetAutoDisplay).Default(true);
    d.Property("BorderStyle", &TCustomEdit::BorderStyle, &TCustomEdit::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("MaxLength", &TCustomEdit::MaxLength, &TCustomEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    ReadOnly(d);
    d.Property("ScrollBars", &TCustomMemo::ScrollBars, &TCustomMemo::SetScrollBars).Default(ssNone);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    d.Property("WantReturns", &TCustomMemo::WantReturns, &TCustomMemo::SetWantReturns).Default(true);
    d.Property("WantTabs", &TCustomMemo::WantTabs, &TCustomMemo::SetWantTabs).Default(false);
    d.Property("WordWrap", &TCustomMemo::WordWrap, &TCustomMemo::SetWordWrap).Default(true);
    d.Event("OnChange", &TCustomEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

template <class C> void DBImage(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoDisplay", &C::AutoDisplay, &C::SetAutoDisplay).Default(true);
    d.Property("BorderStyle", &C::BorderStyle, &C::SetBorderStyle, TypeInfo_TBorderStyle()).Default(bsSingle);
    d.Property("Center", &C::Center, &C::SetCenter).Default(true);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    ReadOnly(d);
    pub::ShowHint(d);
    d.Property("Stretch", &C::Stretch, &C::SetStretch).Default(false);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

// What list and combo boxes share after their own properties.
template <class C> void ListTail(rtl::TClassDecl<C>& d) {
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    ReadOnly(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    pub::Visible(d);
}

template <class C> void ListEvents(rtl::TClassDecl<C>& d) {
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

template <class C> void DBListBox(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TCustomListBox::BorderStyle, &TCustomListBox::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("IntegralHeight", &TCustomListBox::IntegralHeight, &TCustomListBox::SetIntegralHeight)
        .Default(false);
    d.Property("ItemHeight", &TCustomListBox::ItemHeight, &TCustomListBox::SetItemHeight).Default(16);
    d.Property("Items", &TCustomListBox::Items, &TCustomListBox::SetItems);
    ListTail(d);
    ListEvents(d);
}

template <class C> void DBComboBox(rtl::TClassDecl<C>& d, bool items = true) {
    pub::Anchors(d);
    d.Property("CharCase", &TCustomComboBox::CharCase, &TCustomComboBox::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropDownCount", &TCustomComboBox::DropDownCount, &TCustomComboBox::SetDropDownCount)
        .Default(8);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemHeight", &TCustomComboBox::ItemHeight, &TCustomComboBox::SetItemHeight).Default(13);
    if (items) d.Property("Items", &TCustomComboBox::Items, &TCustomComboBox::SetItems);
    d.Property("MaxLength", &TCustomComboBox::MaxLength, &TCustomComboBox::SetMaxLength).Default(0);
    ListTail(d);
    d.Property("Sorted", &TCustomComboBox::Sorted, &TCustomComboBox::SetSorted).Default(false);
    d.Property("Style", &TCustomComboBox::Style, &TCustomComboBox::SetStyle).Default(csDropDown);
    d.Event("OnChange", &TCustomComboBox::OnChange);
    ListEvents(d);
    d.Event("OnDropDown", &TCustomComboBox::OnDropDown);
}

template <class C> void DBCheckBox(rtl::TClassDecl<C>& d) {
    d.Property("Alignment", &TCustomCheckBox::Alignment, &TCustomCheckBox::SetAlignment,
               TypeInfo_TLeftRight())
        .Default(taRightJustify);
    d.Property("AllowGrayed", &TCustomCheckBox::AllowGrayed, &TCustomCheckBox::SetAllowGrayed).Default(false);
    pub::Anchors(d);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    ReadOnly(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("ValueChecked", &C::ValueChecked, &C::SetValueChecked);
    d.Property("ValueUnchecked", &C::ValueUnchecked, &C::SetValueUnchecked);
    pub::Visible(d);
    d.Property("WordWrap", &TButtonControl::WordWrap, &TButtonControl::SetWordWrap).Default(false);
    ListEvents(d);
}

template <class C> void DBRadioGroup(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    d.Property("Columns", &TCustomRadioGroup::Columns, &TCustomRadioGroup::SetColumns).Default(1);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Items", &TCustomRadioGroup::Items, &TCustomRadioGroup::SetItems);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    ReadOnly(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("Values", &C::Values, &C::SetValues);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
}

// The lookup list box and combo box; Old publishes the earlier names LookupSource, LookupField and
// LookupDisplay for ListSource, KeyField and ListField.
template <class C> void LookupNames(rtl::TClassDecl<C>& d, bool Old) {
    d.Property(Old ? "LookupDisplay" : "ListField", &C::ListField, &C::SetListField);
    d.Property(Old ? "LookupField" : "KeyField", &C::KeyField, &C::SetKeyField);
    d.Property(Old ? "LookupSource" : "ListSource", &C::ListSource, &C::SetListSource);
}

template <class C> void DBLookupListBox(rtl::TClassDecl<C>& d, bool Old) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TCustomListBox::BorderStyle, &TCustomListBox::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    LookupNames(d, Old);
    ListTail(d);
    ListEvents(d);
}

template <class C> void DBLookupComboBox(rtl::TClassDecl<C>& d, bool Old) {
    pub::Anchors(d);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    DataFieldSource(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropDownCount", &TCustomComboBox::DropDownCount, &TCustomComboBox::SetDropDownCount)
        .Default(8);
    pub::Enabled(d);
    pub::Font(d);
    LookupNames(d, Old);
    ListTail(d);
    d.Event("OnChange", &TCustomComboBox::OnChange);
    ListEvents(d);
    d.Event("OnDropDown", &TCustomComboBox::OnDropDown);
}

} // namespace jex::dbpub
