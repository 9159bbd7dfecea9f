// How the effects images publish their properties (shared by the plain and the data-aware image).
#pragma once

#include "jex/jexeffects.h"
#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

template <class C> void jexPublishEffects(rtl::TClassDecl<C>& d) {
    d.Property("Effect", &C::Effect, &C::SetEffect).Default(jteNone);
    d.Property("EffectSelection", &C::EffectSelection, &C::SetEffectSelection).Stored(false);
    d.Property("EffectSelIndex", &C::EffectSelIndex, &C::SetEffectSelIndex).Default(0);
    d.Property("EffectSize", &C::EffectSize, &C::SetEffectSize).Default(8);
    d.Property("EffectSpeed", &C::EffectSpeed, &C::SetEffectSpeed).Default(6);
}

template <class C> void jexPublishEffectsImage(rtl::TClassDecl<C>& d, bool picture) {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clBtnFace);
    pub::DragCursor(d);
    pub::DragMode(d);
    jexPublishEffects(d);
    pub::Enabled(d);
    if (picture) {
        d.Property("ImageIndex", &C::ImageIndex, &C::SetImageIndex, TypeInfo_TImageIndex()).Default(-1);
        d.Property("Images", &C::Images, &C::SetImages);
    }
    pub::ParentColor(d, true);
    pub::ParentShowHint(d);
    if (picture) d.Property("Picture", &C::Picture, &C::SetPicture);
    d.Property("PictureSize", &C::PictureSize, &C::SetPictureSize).Default(jpsNormal);
    pub::PopupMenu(d);
    d.Property("ProcessMessages", &C::ProcessMessages, &C::SetProcessMessages).Default(true);
    pub::ShowHint(d);
    if (picture) d.Property("Transparent", &C::Transparent, &C::SetTransparent).Default(false);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    d.Event("OnEffectStep", &C::OnEffectStep);
    pub::OnMouse(d);
}
} // namespace jex
