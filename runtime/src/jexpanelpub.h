// Publishing groups and small helpers shared by the container, control, multimedia and utility units:
// panel looks, the platform's edit and list properties, and component references that clear themselves.
#pragma once

#include <memory>

#include "jexpublish.h"
#include "vcl/extctrls.h"
#include "vcl/stdctrls.h"

namespace jex::pubx {

using namespace vcl;

// Points Field at Value, moving the free notification from the old component to the new one.
template <class T> void SetReference(rtl::TComponent* Self, T*& Field, T* Value) {
    if (Field == Value) return;
    if (Field && Field != Self) Field->RemoveFreeNotification(Self);
    Field = Value;
    if (Field && Field != Self) Field->FreeNotification(Self);
}

// The bevel and border properties of a panel, as the platform's panel publishes them.
template <class C> void PanelBevels(rtl::TClassDecl<C>& d) {
    d.Property("BevelInner", &TCustomPanel::BevelInner, &TCustomPanel::SetBevelInner).Default(bvNone);
    d.Property("BevelOuter", &TCustomPanel::BevelOuter, &TCustomPanel::SetBevelOuter).Default(bvRaised);
    d.Property("BevelWidth", &TCustomPanel::BevelWidth, &TCustomPanel::SetBevelWidth).Default(1);
    d.Property("BorderWidth", &TCustomPanel::BorderWidth, &TCustomPanel::SetBorderWidth).Default(0);
    d.Property("BorderStyle", &TCustomPanel::BorderStyle, &TCustomPanel::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsNone);
}

// Everything the platform's panel publishes except Align and the bevels (which some panels publish
// with other defaults or not at all).
template <class C> void PanelRest(rtl::TClassDecl<C>& d, bool caption = true) {
    pub::Anchors(d);
    if (caption) pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

// The platform's panel, complete.
template <class C> void Panel(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    d.Property("Alignment", &TCustomPanel::Alignment, &TCustomPanel::SetAlignment).Default(taCenter);
    PanelBevels(d);
    PanelRest(d);
}

// What the platform's edit publishes, apart from Text (which a few edits replace with a value).
template <class C> void Edit(rtl::TClassDecl<C>& d, bool text = true) {
    pub::Anchors(d);
    d.Property("AutoSelect", &TCustomEdit::AutoSelect, &TCustomEdit::SetAutoSelect).Default(true);
    d.Property("AutoSize", &TCustomEdit::AutoSize, &TCustomEdit::SetAutoSize).Default(true);
    d.Property("BorderStyle", &TCustomEdit::BorderStyle, &TCustomEdit::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    d.Property("CharCase", &TCustomEdit::CharCase, &TCustomEdit::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HideSelection", &TCustomEdit::HideSelection, &TCustomEdit::SetHideSelection).Default(true);
    d.Property("MaxLength", &TCustomEdit::MaxLength, &TCustomEdit::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ReadOnly", &TCustomEdit::ReadOnly, &TCustomEdit::SetReadOnly).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    if (text) pub::Text(d);
    pub::Visible(d);
    d.Event("OnChange", &TCustomEdit::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    pub::OnMouse(d);
}

// What the platform's list box publishes (Items last but one, as there).
template <class C> void ListBox(rtl::TClassDecl<C>& d) {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("BorderStyle", &TCustomListBox::BorderStyle, &TCustomListBox::SetBorderStyle,
               TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clWindow);
    d.Property("Columns", &TCustomListBox::Columns, &TCustomListBox::SetColumns).Default(0);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("ExtendedSelect", &TCustomListBox::ExtendedSelect, &TCustomListBox::SetExtendedSelect)
        .Default(true);
    pub::Font(d);
    d.Property("IntegralHeight", &TCustomListBox::IntegralHeight, &TCustomListBox::SetIntegralHeight)
        .Default(false);
    d.Property("ItemHeight", &TCustomListBox::ItemHeight, &TCustomListBox::SetItemHeight).Default(16);
    d.Property("Items", &TCustomListBox::Items, &TCustomListBox::SetItems);
    d.Property("MultiSelect", &TCustomListBox::MultiSelect, &TCustomListBox::SetMultiSelect).Default(false);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Sorted", &TCustomListBox::Sorted, &TCustomListBox::SetSorted).Default(false);
    d.Property("Style", &TCustomListBox::Style, &TCustomListBox::SetStyle).Default(lbStandard);
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

// What the platform's combo box publishes; Items and Text are left to the caller when asked.
template <class C> void ComboBox(rtl::TClassDecl<C>& d, bool items = true, bool text = true) {
    pub::Anchors(d);
    d.Property("CharCase", &TCustomComboBox::CharCase, &TCustomComboBox::SetCharCase).Default(ecNormal);
    pub::Color(d, clWindow);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropDownCount", &TCustomComboBox::DropDownCount, &TCustomComboBox::SetDropDownCount)
        .Default(8);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("ItemHeight", &TCustomComboBox::ItemHeight, &TCustomComboBox::SetItemHeight).Default(13);
    if (items) d.Property("Items", &TCustomComboBox::Items, &TCustomComboBox::SetItems);
    d.Property("MaxLength", &TCustomComboBox::MaxLength, &TCustomComboBox::SetMaxLength).Default(0);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("Style", &TCustomComboBox::Style, &TCustomComboBox::SetStyle).Default(csDropDown);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    if (text) pub::Text(d);
    pub::Visible(d);
    d.Event("OnChange", &TCustomComboBox::OnChange);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    d.Event("OnDropDown", &TCustomComboBox::OnDropDown);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
    d.Event("OnSelect", &TCustomComboBox::OnSelect);
}

} // namespace jex::pubx

namespace jex::pubx {

// Adds Extra behind whatever handler Event has, keeping the handler's name (the form file's). Extra runs
// only while *Alive holds, so a component can go away before the control whose event it joined.
template <class Ev, class F> void ChainEvent(Ev& Event, const std::shared_ptr<bool>& Alive, F Extra) {
    auto previous = Event.Handler;
    Event.Handler = [previous, Alive, Extra](auto&&... args) {
        if (previous) previous(args...);
        if (*Alive) Extra(args...);
    };
}

} // namespace jex::pubx
