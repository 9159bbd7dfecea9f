// Groups of inherited control properties that the library's classes publish, in the platform's order and
// with the platform's defaults, so that every unit publishes them the same way the platform's own
// controls do.
#pragma once

#include "jex/jexdock.h"
#include "vcl/controls.h"
#include "vcl/stdctrls.h"

namespace jex::pub {

using namespace vcl;

template <class C> void Align(rtl::TClassDecl<C>& d, TAlign def = alNone) {
    d.Property("Align", &TControl::Align, &TControl::SetAlign).Default(def);
}
template <class C> void Anchors(rtl::TClassDecl<C>& d) {
    d.Property("Anchors", &TControl::Anchors, &TControl::SetAnchors).Default(TAnchors{akLeft, akTop}.Bits());
}
template <class C> void Caption(rtl::TClassDecl<C>& d) {
    d.Property("Caption", &TControl::Caption, &TControl::SetCaption, TypeInfo_TCaption());
}
template <class C> void Text(rtl::TClassDecl<C>& d) {
    d.Property("Text", &TControl::Text, &TControl::SetText, TypeInfo_TCaption());
}
template <class C> void Color(rtl::TClassDecl<C>& d, TColor def) {
    d.Property("Color", &TControl::Color, &TControl::SetColor, TypeInfo_TColor())
        .Default(def)
        .Stored(&TControl::IsColorStored);
}
template <class C> void Ctl3D(rtl::TClassDecl<C>& d) {
    d.Property("Ctl3D", &TWinControl::Ctl3D, &TWinControl::SetCtl3D).Default(true);
}
template <class C> void ParentCtl3D(rtl::TClassDecl<C>& d) {
    d.Property("ParentCtl3D", &TWinControl::ParentCtl3D, &TWinControl::SetParentCtl3D).Default(true);
}
template <class C> void DragCursor(rtl::TClassDecl<C>& d) {
    d.Property("DragCursor", &TControl::DragCursor, &TControl::SetDragCursor, TypeInfo_TCursor())
        .Default(crDrag);
}
template <class C> void DragMode(rtl::TClassDecl<C>& d) {
    d.Property("DragMode", &TControl::DragMode, &TControl::SetDragMode).Default(dmManual);
}
template <class C> void Enabled(rtl::TClassDecl<C>& d) {
    d.Property("Enabled", &TControl::Enabled, &TControl::SetEnabled).Default(true);
}
template <class C> void Font(rtl::TClassDecl<C>& d) {
    d.Property("Font", &TControl::Font, &TControl::SetFont).Stored(&TControl::IsFontStored);
}
template <class C> void ParentColor(rtl::TClassDecl<C>& d, bool def) {
    d.Property("ParentColor", &TControl::ParentColor, &TControl::SetParentColor).Default(def);
}
template <class C> void ParentFont(rtl::TClassDecl<C>& d) {
    d.Property("ParentFont", &TControl::ParentFont, &TControl::SetParentFont).Default(true);
}
template <class C> void ParentShowHint(rtl::TClassDecl<C>& d) {
    d.Property("ParentShowHint", &TControl::ParentShowHint, &TControl::SetParentShowHint).Default(true);
}
template <class C> void PopupMenu(rtl::TClassDecl<C>& d) {
    d.Property("PopupMenu", &TControl::PopupMenu, &TControl::SetPopupMenu);
}
template <class C> void ShowHint(rtl::TClassDecl<C>& d) {
    d.Property("ShowHint", &TControl::ShowHint, &TControl::SetShowHint).Stored(&TControl::IsShowHintStored);
}
template <class C> void TabOrder(rtl::TClassDecl<C>& d) {
    d.Property("TabOrder", &TWinControl::TabOrder, &TWinControl::SetTabOrder, TypeInfo_TTabOrder())
        .Default(-1);
}
template <class C> void TabStop(rtl::TClassDecl<C>& d, bool def) {
    d.Property("TabStop", &TWinControl::TabStop, &TWinControl::SetTabStop).Default(def);
}
template <class C> void Visible(rtl::TClassDecl<C>& d) {
    d.Property("Visible", &TControl::Visible, &TControl::SetVisible).Default(true);
}
template <class C> void OnClick(rtl::TClassDecl<C>& d) {
    d.Event("OnClick", &TControl::OnClick);
}
template <class C> void OnDblClick(rtl::TClassDecl<C>& d) {
    d.Event("OnDblClick", &TControl::OnDblClick);
}
template <class C> void OnDrag(rtl::TClassDecl<C>& d) {
    d.Event("OnDragDrop", &TControl::OnDragDrop);
    d.Event("OnDragOver", &TControl::OnDragOver);
    d.Event("OnEndDrag", &TControl::OnEndDrag);
}
template <class C> void OnEnterExit(rtl::TClassDecl<C>& d) {
    d.Event("OnEnter", &TWinControl::OnEnter);
    d.Event("OnExit", &TWinControl::OnExit);
}
template <class C> void OnKeys(rtl::TClassDecl<C>& d) {
    d.Event("OnKeyDown", &TWinControl::OnKeyDown);
    d.Event("OnKeyPress", &TWinControl::OnKeyPress);
    d.Event("OnKeyUp", &TWinControl::OnKeyUp);
}
template <class C> void OnMouse(rtl::TClassDecl<C>& d) {
    d.Event("OnMouseDown", &TControl::OnMouseDown);
    d.Event("OnMouseMove", &TControl::OnMouseMove);
    d.Event("OnMouseUp", &TControl::OnMouseUp);
}
template <class C> void OnResize(rtl::TClassDecl<C>& d) {
    d.Event("OnResize", &TControl::OnResize);
}

// What a graphic control (label, speed button) publishes from the platform: placement, looks, hints,
// dragging and the mouse.
template <class C> void GraphicControl(rtl::TClassDecl<C>& d, TColor color, bool parentColor) {
    Align(d);
    Anchors(d);
    Color(d, color);
    DragCursor(d);
    DragMode(d);
    Enabled(d);
    Font(d);
    ParentColor(d, parentColor);
    ParentFont(d);
    ParentShowHint(d);
    PopupMenu(d);
    ShowHint(d);
    Visible(d);
    OnClick(d);
    OnDblClick(d);
    OnDrag(d);
    OnMouse(d);
}

// What a windowed container (panel-like control) publishes from the platform.
template <class C> void WinContainer(rtl::TClassDecl<C>& d, TColor color, bool tabStop) {
    Align(d);
    Anchors(d);
    Color(d, color);
    Ctl3D(d);
    DragCursor(d);
    DragMode(d);
    Enabled(d);
    Font(d);
    ParentColor(d, false);
    ParentCtl3D(d);
    ParentFont(d);
    ParentShowHint(d);
    PopupMenu(d);
    ShowHint(d);
    TabOrder(d);
    TabStop(d, tabStop);
    Visible(d);
    OnClick(d);
    OnDblClick(d);
    OnDrag(d);
    OnEnterExit(d);
    OnMouse(d);
    OnResize(d);
}

// The looks and docking of toolbars and tool windows.
constexpr jex::TjexDockableTo kAllDocks{jex::jdpTop, jex::jdpBottom, jex::jdpLeft, jex::jdpRight};
template <class C> void ToolWindowLooks(rtl::TClassDecl<C>& d) {
    Caption(d);
    Color(d, clBtnFace);
    Enabled(d);
    Font(d);
    ParentFont(d);
    ParentShowHint(d);
    PopupMenu(d);
    ShowHint(d);
    Visible(d);
    OnClick(d);
    OnDblClick(d);
    OnMouse(d);
    OnResize(d);
}

template <class C> void Docking(rtl::TClassDecl<C>& d) {
    d.Property("ActivateParent", &C::ActivateParent, &C::SetActivateParent).Default(true);
    d.Property("CloseButton", &C::CloseButton, &C::SetCloseButton).Default(true);
    d.Property("DefaultDock", &C::DefaultDock, &C::SetDefaultDock);
    d.Property("DockableTo", &C::DockableTo, &C::SetDockableTo).Default(kAllDocks.Bits());
    // The parent says where a window is docked; the property shows it but need not be stored.
    d.Property("DockedTo", &C::DockedTo, &C::SetDockedTo).Stored(false);
    d.Property("DockMode", &C::DockMode, &C::SetDockMode).Default(jex::jdmCanFloat);
    d.Property("DockPos", &C::DockPos, &C::SetDockPos).Default(-1);
    d.Property("DockRow", &C::DockRow, &C::SetDockRow).Default(0);
    d.Property("DragHandle", &C::DragHandle, &C::SetDragHandle).Default(true);
    d.Property("FloatingMode", &C::FloatingMode, &C::SetFloatingMode).Default(jex::jfmOnTopOfParentForm);
    d.Property("FullSize", &C::FullSize, &C::SetFullSize).Default(false);
    d.Property("HideWhenInactive", &C::HideWhenInactive, &C::SetHideWhenInactive).Default(true);
    d.Event("OnClose", &C::OnClose);
    d.Event("OnDockChanged", &C::OnDockChanged);
}

// The platform label's published properties, Caption and Layout when the class keeps their meaning.
template <class C> void Label(rtl::TClassDecl<C>& d, bool caption, bool layout) {
    Align(d);
    d.Property("Alignment", &TCustomLabel::Alignment, &TCustomLabel::SetAlignment).Default(taLeftJustify);
    Anchors(d);
    d.Property("AutoSize", &TCustomLabel::AutoSize, &TCustomLabel::SetAutoSize).Default(true);
    if (caption) Caption(d);
    Color(d, clBtnFace);
    DragCursor(d);
    DragMode(d);
    Enabled(d);
    d.Property("FocusControl", &TCustomLabel::FocusControl, &TCustomLabel::SetFocusControl);
    Font(d);
    if (layout) d.Property("Layout", &TCustomLabel::Layout, &TCustomLabel::SetLayout).Default(tlTop);
    ParentColor(d, true);
    ParentFont(d);
    ParentShowHint(d);
    PopupMenu(d);
    d.Property("ShowAccelChar", &TCustomLabel::ShowAccelChar, &TCustomLabel::SetShowAccelChar).Default(true);
    ShowHint(d);
    d.Property("Transparent", &TCustomLabel::Transparent, &TCustomLabel::SetTransparent).Default(false);
    Visible(d);
    d.Property("WordWrap", &TCustomLabel::WordWrap, &TCustomLabel::SetWordWrap).Default(false);
    OnClick(d);
    OnDblClick(d);
    OnDrag(d);
    OnMouse(d);
}

} // namespace jex::pub
