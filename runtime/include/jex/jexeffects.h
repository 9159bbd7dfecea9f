// Transition effects (wipes, slides, blinds, dissolves, fades between two images) and the images that
// change their picture through one: plain, with rich text over the picture, and (in jexdbeffects) from a
// data field.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "jex/jexcommon.h"
#include "jex/jexctrls.h"
#include "vcl/graphics.h"
#include "vcl/imglist.h"

namespace jex {

JEX_ENUM(TjexTransitionEffect, jteNone, jteWipeLeft, jteWipeRight, jteWipeUp, jteWipeDown, jteSlideLeft,
         jteSlideRight, jteSlideUp, jteSlideDown, jteCenterOut, jteBlinds, jteDissolve, jteFade, jteRandom)

// The text the effect choosers show ("Wipe Left").
std::string jexTransitionEffectCaption(TjexTransitionEffect Effect);

// How one image turns into another in steps. Effect jteRandom takes the effects of EffectSelection in
// turn (all real effects when the selection is empty), starting at EffectSelIndex. EffectSize is the
// size in pixels of the bands and blocks of the blinds and the dissolve.
//
// EffectSelection is a list of effect ordinals (each stored in a pointer slot, as the platform's TList
// holds them); the form file keeps it as "SelectedEffects".
class TjexTransition : public rtl::TPersistent {
    JEX_CLASS(TjexTransition, rtl::TPersistent)
    TjexTransition();
    ~TjexTransition() override;
    void Assign(rtl::TPersistent* Source) override;

    TjexTransitionEffect Effect() const { return FEffect; }
    void SetEffect(TjexTransitionEffect Value) { FEffect = Value; }
    rtl::TList* EffectSelection() const { return FSelection.get(); }
    void SetEffectSelection(rtl::TList* Value);
    int EffectSelIndex() const { return FSelIndex; }
    void SetEffectSelIndex(int Value) { FSelIndex = Value < 0 ? 0 : Value; }
    int EffectSize() const { return FEffectSize; }
    void SetEffectSize(int Value) { FEffectSize = Value < 1 ? 1 : Value; }

    std::vector<TjexTransitionEffect> SelectedEffects() const;
    void SetSelectedEffects(const std::vector<TjexTransitionEffect>& Effects);
    // The effect the next transition uses; for jteRandom it moves EffectSelIndex on.
    TjexTransitionEffect NextEffect();
    // Draws step Step of Steps of the change from From to To into Dest (made the size of To; From is
    // drawn at its top-left). Step 0 shows From, step Steps shows To.
    void Render(TjexTransitionEffect Effect, vcl::TBitmap* From, vcl::TBitmap* To, int Step, int Steps,
                vcl::TBitmap* Dest) const;
    // Every step of a transition (1 .. Steps), as Run draws them, handed to Frame.
    void Run(vcl::TBitmap* From, vcl::TBitmap* To, int Steps,
             const std::function<void(int Step, vcl::TBitmap* Frame)>& Frame);

    void DefineProperties(rtl::TFiler& Filer) override;
    rtl::TNotifyEvent OnChange;

private:
    TjexTransitionEffect FEffect = jteNone;
    std::unique_ptr<rtl::TList> FSelection;
    int FSelIndex = 0;
    int FEffectSize = 8;
};

JEX_ENUM(TjexPictureSize, jpsNormal, jpsStretch, jpsCenter, jpsProportional)

// The effect settings of an effects image and an effect sprite.
class TjexEffectProps {
public:
    TjexEffectProps();
    virtual ~TjexEffectProps();
    TjexTransitionEffect Effect() const { return FTransition->Effect(); }
    void SetEffect(TjexTransitionEffect Value) { FTransition->SetEffect(Value); }
    rtl::TList* EffectSelection() const { return FTransition->EffectSelection(); }
    void SetEffectSelection(rtl::TList* Value) { FTransition->SetEffectSelection(Value); }
    int EffectSelIndex() const { return FTransition->EffectSelIndex(); }
    void SetEffectSelIndex(int Value) { FTransition->SetEffectSelIndex(Value); }
    int EffectSize() const { return FTransition->EffectSize(); }
    void SetEffectSize(int Value) { FTransition->SetEffectSize(Value); }
    // 1 (slow) .. 10 (fast): a transition takes 60 / EffectSpeed steps.
    int EffectSpeed() const { return FEffectSpeed; }
    void SetEffectSpeed(int Value);
    int EffectSteps() const { return std::max(1, 60 / FEffectSpeed); }
    TjexTransition* Transition() const { return FTransition.get(); }

protected:
    std::unique_ptr<TjexTransition> FTransition;
    int FEffectSpeed = 6;
};

JEX_EVENT_TYPE(TjexEffectStepEvent, void(rtl::TObject* Sender, int Step, int Steps))

// An image that changes its picture through a transition effect. Display holds what the control shows
// (its size); Execute brings the current picture in with the next effect, step by step (OnEffectStep after
// each, ProcessMessages letting the application's released forms go between steps); a new picture at run
// time does so by itself. The picture comes from Picture, or from Images when ImageIndex is set.
class TjexCustomEffectsImage : public vcl::TGraphicControl, public TjexEffectProps {
    JEX_CLASS(TjexCustomEffectsImage, vcl::TGraphicControl)
    explicit TjexCustomEffectsImage(rtl::TComponent* AOwner);
    ~TjexCustomEffectsImage() override;
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    TjexPictureSize PictureSize() const { return FPictureSize; }
    void SetPictureSize(TjexPictureSize Value) { FPictureSize = Value; }
    bool ProcessMessages() const { return FProcessMessages; }
    void SetProcessMessages(bool Value) { FProcessMessages = Value; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value) { FTransparent = Value; }
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    vcl::TImageIndex ImageIndex() const { return FImageIndex; }
    void SetImageIndex(vcl::TImageIndex Value) { FImageIndex = Value; }

    // What the control shows now.
    vcl::TBitmap* Display();
    // The picture drawn the way the control shows it, at the control's size.
    virtual void RenderPicture(vcl::TBitmap* Target);
    // Brings the picture in with the next effect; the number of steps taken.
    int Execute();
    // Shows the picture at once.
    void ShowPicture();
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
    void DefineProperties(rtl::TFiler& Filer) override;
    TjexEffectStepEvent OnEffectStep;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    // The picture the control brings in (Picture, or the image list's image).
    vcl::TGraphic* SourceGraphic(std::unique_ptr<vcl::TBitmap>& Holder) const;

private:
    std::unique_ptr<vcl::TPicture> FPicture;
    TjexPictureSize FPictureSize = jpsNormal;
    bool FProcessMessages = true;
    bool FTransparent = false;
    vcl::TCustomImageList* FImages = nullptr;
    vcl::TImageIndex FImageIndex = -1;
    std::unique_ptr<vcl::TBitmap> FDisplay;

protected:
    // A new picture (or text): shown at once while designing, brought in with the effect at run time.
    void PictureChanged();
};

// The effects image with its picture stored in the form file.
class TjexEffectsImage : public TjexCustomEffectsImage {
    JEX_CLASS(TjexEffectsImage, TjexCustomEffectsImage)
    using TjexCustomEffectsImage::TjexCustomEffectsImage;
};

// An effects image with rich text written over the picture (its plain text, in the control's font,
// from the top-left corner with a small margin).
class TjexRichEffectsImage : public TjexEffectsImage {
    JEX_CLASS(TjexRichEffectsImage, TjexEffectsImage)
    explicit TjexRichEffectsImage(rtl::TComponent* AOwner);
    ~TjexRichEffectsImage() override;
    TjexRichText* RichText() const { return FRichText.get(); }
    void SetRichText(TjexRichText* Value) { FRichText->Assign(Value); }
    void RenderPicture(vcl::TBitmap* Target) override;

private:
    std::unique_ptr<TjexRichText> FRichText;
};

// Draws Graphic into Target (cleared to Background first) as PictureSize says.
void jexDrawPictureSized(vcl::TBitmap* Target, vcl::TGraphic* Graphic, TjexPictureSize Size,
                         vcl::TColor Background);
// Writes the lines of Text onto Canvas from (X, Y) in the canvas's font, without a background.
void jexDrawTextLines(vcl::TCanvas* Canvas, int X, int Y, const std::string& Text);

} // namespace jex
