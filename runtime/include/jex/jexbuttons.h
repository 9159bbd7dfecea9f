// The library's buttons: picture speed buttons (the base of the navigator buttons), repeating and toggle
// buttons, windowed picture buttons, form-opening and sound buttons, shaped image-list buttons, mouse
// regions, menu buttons, self-sizing and push buttons.
#pragma once

#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "vcl/graphics.h"
#include "vcl/imglist.h"
#include "vcl/menus.h"
#include "vcl/stdctrls.h"

namespace vcl {
class TCustomForm;
}

namespace jex {

// The state whose glyph image a picture button shows.
enum class TjexGlyphState { Up, Disabled, Down, Exclusive, Over };

// The glyph and caption look shared by the speed-button and windowed picture buttons: the picture holding
// NumGlyphs images side by side (up, disabled, down, exclusive, mouse-over), where glyph and caption go,
// the frame style and how the glyph is highlighted.
class TjexGlyphProps {
public:
    TjexGlyphProps();
    virtual ~TjexGlyphProps();
    TjexGlyphProps(const TjexGlyphProps&) = delete;
    TjexGlyphProps& operator=(const TjexGlyphProps&) = delete;

    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value); // copies Value (nil empties the picture)
    // The picture as a bitmap; a picture holding another graphic, or nothing, becomes a bitmap.
    vcl::TBitmap* Glyph() const { return FPicture->Bitmap(); }
    void SetGlyph(vcl::TBitmap* Value);
    // Images side by side in the picture, 1..5; raises ERangeError outside and keeps the old count.
    int NumGlyphs() const { return FNumGlyphs; }
    void SetNumGlyphs(int Value);
    // Pixels between the edge and the glyph; -1 centres glyph and caption together.
    int Margin() const { return FMargin; }
    void SetMargin(int Value);
    int Spacing() const { return FSpacing; }
    void SetSpacing(int Value);
    TjexButtonLayout Layout() const { return FLayout; }
    void SetLayout(TjexButtonLayout Value);
    TjexTextStyle TextStyle() const { return FTextStyle; }
    void SetTextStyle(TjexTextStyle Value);
    TjexButtonStyle Style() const { return FStyle; }
    void SetStyle(TjexButtonStyle Value);
    TjexPictureHighlight PictureHighlight() const { return FPictureHighlight; }
    void SetPictureHighlight(TjexPictureHighlight Value);
    // A popup button shows its frame only while the mouse is over it; otherwise it always has one.
    bool Popup() const { return FPopup; }
    void SetPopup(bool Value);
    // A disabled glyph without its own image is drawn as an embossed shadow (else greyed).
    bool DisabledShadow() const { return FDisabledShadow; }
    void SetDisabledShadow(bool Value);
    // The glyph's transparent colour; clDefault takes the bottom-left pixel of the picture.
    vcl::TColor TransparentColor() const { return FTransparentColor; }
    void SetTransparentColor(vcl::TColor Value);

    // Size of one glyph image (0 x 0 without a picture).
    int GlyphWidth() const;
    int GlyphHeight() const;
    // The image shown in State: 0 up, 1 disabled, 2 down, 3 exclusive, 4 over; image 0 when the picture
    // holds fewer (the disabled state then derives its look from image 0).
    int GlyphIndex(TjexGlyphState State) const;
    // Draws the glyph of State into Dest (resized to GlyphWidth x GlyphHeight) over Background: its
    // transparent pixels take Background, a disabled state without its own image is greyed or shadowed,
    // and outside the Over and Down states the picture highlight applies (Gray: grey levels, Fade: halfway
    // to Background, Darken: three quarters of each channel). Empty Dest without a picture.
    void DrawGlyph(TjexGlyphState State, vcl::TBitmap* Dest, vcl::TColor Background = vcl::clBtnFace) const;
    // Copies the look (everything but the picture) from another button.
    void AssignLook(const TjexGlyphProps& Source);

protected:
    // After any change of the look or the picture.
    virtual void GlyphChanged() {}
    // An image list and index that supply the glyph instead of the picture (none by default).
    virtual vcl::TCustomImageList* GlyphImages(int& Index) const { return nullptr; }

private:
    std::unique_ptr<vcl::TPicture> FPicture;
    int FNumGlyphs = 1;
    int FMargin = -1;
    int FSpacing = 4;
    TjexButtonLayout FLayout = jblGlyphLeft;
    TjexTextStyle FTextStyle = jtsNormal;
    TjexButtonStyle FStyle = jbsAutoDetect;
    TjexPictureHighlight FPictureHighlight = jphNormal;
    bool FPopup = true;
    bool FDisabledShadow = false;
    vcl::TColor FTransparentColor = vcl::clDefault;
};

// Publishes the look of a class deriving from TjexGlyphProps: DisabledShadow, Layout, Margin, NumGlyphs,
// Picture, PictureHighlight, Popup, Spacing, Style, TextStyle and (when asked) TransparentColor.
template <class C> void jexPublishGlyphProps(rtl::TClassDecl<C>& d, bool TransparentColor = true);

// Auto-repeat while a button is held down: the first repeat after RepeatInitialPause ms, then one every
// RepeatPause ms; with Accelerate each pause is three quarters of the one before (at least 20 ms).
class TjexRepeatProps {
public:
    bool RepeatEnabled() const { return FRepeatEnabled; }
    void SetRepeatEnabled(bool Value) { FRepeatEnabled = Value; }
    int RepeatInitialPause() const { return FRepeatInitialPause; }
    void SetRepeatInitialPause(int Value) { FRepeatInitialPause = Value < 0 ? 0 : Value; }
    int RepeatPause() const { return FRepeatPause; }
    void SetRepeatPause(int Value) { FRepeatPause = Value < 1 ? 1 : Value; }
    bool Accelerate() const { return FAccelerate; }
    void SetAccelerate(bool Value) { FAccelerate = Value; }
    // How many clicks holding the button down for HeldMs gives (the press itself included).
    int ClicksForHold(int HeldMs) const;

private:
    bool FRepeatEnabled = true;
    int FRepeatInitialPause = 400;
    int FRepeatPause = 100;
    bool FAccelerate = false;
};

// ---- Picture speed buttons ------------------------------------------------------------------------------
// A flat, windowless button showing a glyph from its picture and a caption, with speed-button grouping
// (GroupIndex, Down, AllowAllUp), optional two-state behaviour (HintUp / HintDown), and sounds.
class TjexCustomPicSpeedBtn : public vcl::TGraphicControl, public TjexGlyphProps {
    JEX_CLASS(TjexCustomPicSpeedBtn, vcl::TGraphicControl)
    explicit TjexCustomPicSpeedBtn(rtl::TComponent* AOwner);
    ~TjexCustomPicSpeedBtn() override;
    JEX_SOUND_ACCESSORS(FSounds)

    // Buttons of one parent with the same GroupIndex (> 0) are exclusive: one going down releases the
    // others; AllowAllUp lets a person release the last one.
    int GroupIndex() const { return FGroupIndex; }
    void SetGroupIndex(int Value);
    bool Down() const { return FDown; }
    virtual void SetDown(bool Value);
    bool AllowAllUp() const { return FAllowAllUp; }
    void SetAllowAllUp(bool Value);
    // Two-state buttons show HintUp while up and HintDown while down (as their Hint).
    std::string HintUp() const { return FHintUp; }
    void SetHintUp(const std::string& Value);
    std::string HintDown() const { return FHintDown; }
    void SetHintDown(const std::string& Value);
    virtual bool IsTwoState() const { return false; }

    bool MouseInControl() const { return FMouseInControl; }
    // The mouse entering and leaving the button (plays SoundOver on entering).
    virtual void MouseEnter();
    virtual void MouseLeave();
    // The glyph state the button shows now.
    TjexGlyphState CurrentGlyphState() const;

    // A person's click: SoundDown, then a two-state button toggles, a grouped one goes down (or up with
    // AllowAllUp), then Click.
    void UserClick() override;
    void Describe(vcl::TControlDesc& d) const override;
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    void GlyphChanged() override {}
    void EnabledChanged() override {}
    void UpdateStateHint();
    void ReleaseGroup();

    TjexSoundProps FSounds;
    int FGroupIndex = 0;
    bool FDown = false;
    bool FAllowAllUp = false;
    std::string FHintUp, FHintDown;
    bool FMouseInControl = false;
};

// The plain picture speed button, with its glyph optionally taken from an image list.
class TjexPicSpeedBtn : public TjexCustomPicSpeedBtn {
    JEX_CLASS(TjexPicSpeedBtn, TjexCustomPicSpeedBtn)
    explicit TjexPicSpeedBtn(rtl::TComponent* AOwner) : TjexCustomPicSpeedBtn(AOwner) {}
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int Value) { FImageIndex = Value; }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    vcl::TCustomImageList* GlyphImages(int& Index) const override;

private:
    vcl::TCustomImageList* FImages = nullptr;
    int FImageIndex = -1;
};

// A picture speed button that clicks repeatedly while held down.
class TjexRepSpeedBtn : public TjexCustomPicSpeedBtn, public TjexRepeatProps {
    JEX_CLASS(TjexRepSpeedBtn, TjexCustomPicSpeedBtn)
    explicit TjexRepSpeedBtn(rtl::TComponent* AOwner) : TjexCustomPicSpeedBtn(AOwner) {}
    // A person holds the button down for HeldMs: Click as often as ClicksForHold says (once without
    // RepeatEnabled).
    void Hold(int HeldMs);
};

// A two-state picture button: each click toggles Down; the hint follows the state.
class TjexToggleBtn : public TjexCustomPicSpeedBtn {
    JEX_CLASS(TjexToggleBtn, TjexCustomPicSpeedBtn)
    explicit TjexToggleBtn(rtl::TComponent* AOwner) : TjexCustomPicSpeedBtn(AOwner) {}
    bool IsTwoState() const override { return true; }
};

// Finds a form by name among the screen's forms, else creates one of the registered form class of that
// name (with or without its leading "T"), owned by the application. Raises EComponentError
// "Form 'Name' not found" otherwise. Created is set when a new form was made.
vcl::TCustomForm* jexFindOrCreateForm(const std::string& FormName, bool& Created);

// Shows the form named FormName (see jexFindOrCreateForm) modally or not; returns the modal result
// (mrNone for a modeless show). A form created for a modal show is freed afterwards.
vcl::TModalResult jexShowFormByName(const std::string& FormName, bool Modal);

// A picture speed button that opens a form.
class TjexFormPicSpeedBtn : public TjexCustomPicSpeedBtn {
    JEX_CLASS(TjexFormPicSpeedBtn, TjexCustomPicSpeedBtn)
    explicit TjexFormPicSpeedBtn(rtl::TComponent* AOwner) : TjexCustomPicSpeedBtn(AOwner) {}
    std::string FormName() const { return FFormName; }
    void SetFormName(const std::string& Value) { FFormName = Value; }
    bool ShowModal() const { return FShowModal; }
    void SetShowModal(bool Value) { FShowModal = Value; }
    // Raises OnClick, then shows the form (nothing when FormName is empty).
    void Click() override;
    vcl::TModalResult LastResult() const { return FLastResult; }

private:
    std::string FFormName;
    bool FShowModal = true;
    vcl::TModalResult FLastResult = vcl::mrNone;
};

// ---- Windowed picture buttons ------------------------------------------------------------------------
// A push button (with Default, Cancel and ModalResult) that shows a glyph and plays sounds.
class TjexCustomPicBtn : public vcl::TButton, public TjexGlyphProps {
    JEX_CLASS(TjexCustomPicBtn, vcl::TButton)
    explicit TjexCustomPicBtn(rtl::TComponent* AOwner);
    JEX_SOUND_ACCESSORS(FSounds)
    void UserClick() override;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    TjexSoundProps FSounds;
};

class TjexPicBtn : public TjexCustomPicBtn {
    JEX_CLASS(TjexPicBtn, TjexCustomPicBtn)
    explicit TjexPicBtn(rtl::TComponent* AOwner) : TjexCustomPicBtn(AOwner) {}
    vcl::TCustomImageList* Images() const { return FImages; }
    void SetImages(vcl::TCustomImageList* Value);
    int ImageIndex() const { return FImageIndex; }
    void SetImageIndex(int Value) { FImageIndex = Value; }

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    vcl::TCustomImageList* GlyphImages(int& Index) const override;

private:
    vcl::TCustomImageList* FImages = nullptr;
    int FImageIndex = -1;
};

class TjexFormPicBtn : public TjexCustomPicBtn {
    JEX_CLASS(TjexFormPicBtn, TjexCustomPicBtn)
    explicit TjexFormPicBtn(rtl::TComponent* AOwner) : TjexCustomPicBtn(AOwner) {}
    std::string FormName() const { return FFormName; }
    void SetFormName(const std::string& Value) { FFormName = Value; }
    bool ShowModal() const { return FShowModal; }
    void SetShowModal(bool Value) { FShowModal = Value; }
    void Click() override;
    vcl::TModalResult LastResult() const { return FLastResult; }

private:
    std::string FFormName;
    bool FShowModal = true;
    vcl::TModalResult FLastResult = vcl::mrNone;
};

// Plays a wave file through the desktop (the shell's "play" verb), hidden; returns whether it started.
bool jexPlayWaveFile(const std::string& FileName);
// Plays a wave held in memory: written once to a file in the temporary folder named by its content, then
// played as a file. Nothing for an empty sound.
bool jexPlayWave(const TjexWaveImage& Sound);

// A picture button that plays its embedded sound when clicked.
class TjexWaveBtn : public TjexCustomPicBtn {
    JEX_CLASS(TjexWaveBtn, TjexCustomPicBtn)
    explicit TjexWaveBtn(rtl::TComponent* AOwner) : TjexCustomPicBtn(AOwner) {}
    TjexWaveImage* Sound() const { return const_cast<TjexWaveImage*>(&FSound); }
    void SetSound(TjexWaveImage* Value) { FSound.Assign(Value); }
    bool PlaySync() const { return FPlaySync; }
    void SetPlaySync(bool Value) { FPlaySync = Value; }
    // Plays the sound, then raises OnClick.
    void Click() override;

private:
    TjexWaveImage FSound;
    bool FPlaySync = false;
};

// A picture button that plays a wave file when clicked.
class TjexWaveFileBtn : public TjexCustomPicBtn {
    JEX_CLASS(TjexWaveFileBtn, TjexCustomPicBtn)
    explicit TjexWaveFileBtn(rtl::TComponent* AOwner) : TjexCustomPicBtn(AOwner) {}
    std::string FileName() const { return FFileName; }
    void SetFileName(const std::string& Value) { FFileName = Value; }
    bool PlaySync() const { return FPlaySync; }
    void SetPlaySync(bool Value) { FPlaySync = Value; }
    void Click() override;

private:
    std::string FFileName;
    bool FPlaySync = false;
};

// ---- Other buttons ------------------------------------------------------------------------------------
// A plain button that opens a form.
class TjexFormButton : public vcl::TButton {
    JEX_CLASS(TjexFormButton, vcl::TButton)
    explicit TjexFormButton(rtl::TComponent* AOwner) : vcl::TButton(AOwner) {}
    std::string FormName() const { return FFormName; }
    void SetFormName(const std::string& Value) { FFormName = Value; }
    bool ShowModal() const { return FShowModal; }
    void SetShowModal(bool Value) { FShowModal = Value; }
    void Click() override;
    vcl::TModalResult LastResult() const { return FLastResult; }

private:
    std::string FFormName;
    bool FShowModal = true;
    vcl::TModalResult FLastResult = vcl::mrNone;
};

// A button whose caption is aligned inside it and may wrap.
class TjexButton : public vcl::TButton {
    JEX_CLASS(TjexButton, vcl::TButton)
    explicit TjexButton(rtl::TComponent* AOwner) : vcl::TButton(AOwner) {}
    TjexAlignHorz AlignHorz() const { return FAlignHorz; }
    void SetAlignHorz(TjexAlignHorz Value) { FAlignHorz = Value; }
    TjexAlignVert AlignVert() const { return FAlignVert; }
    void SetAlignVert(TjexAlignVert Value) { FAlignVert = Value; }

private:
    TjexAlignHorz FAlignHorz = jahCenter;
    TjexAlignVert FAlignVert = javCenter;
};

// A button that stays pushed in: each click toggles Checked (then OnClick).
class TjexPushButton : public TjexButton {
    JEX_CLASS(TjexPushButton, TjexButton)
    explicit TjexPushButton(rtl::TComponent* AOwner) : TjexButton(AOwner) {}
    bool Checked() const { return FChecked; }
    void SetChecked(bool Value) { FChecked = Value; }
    void UserClick() override;
    void Describe(vcl::TControlDesc& d) const override;

private:
    bool FChecked = false;
};

// A button that sizes itself to its caption: text width plus twice MarginH, text height plus twice
// MarginV.
class TjexSizeButton : public vcl::TButton {
    JEX_CLASS(TjexSizeButton, vcl::TButton)
    explicit TjexSizeButton(rtl::TComponent* AOwner);
    int MarginH() const { return FMarginH; }
    void SetMarginH(int Value);
    int MarginV() const { return FMarginV; }
    void SetMarginV(int Value);
    void AdjustSize();
    void TextChanged() override { AdjustSize(); }
    void FontChanged() override;
    void Loaded() override;

private:
    int FMarginH = 8;
    int FMarginV = 4;
};

// A button drawn from an image list: one image per state (up, down, flat while the mouse is away,
// disabled) and a mask image whose opaque pixels are the part that takes clicks. Without Scaled the
// button takes the images' size.
class TjexShapeButton : public vcl::TGraphicControl {
    JEX_CLASS(TjexShapeButton, vcl::TGraphicControl)
    explicit TjexShapeButton(rtl::TComponent* AOwner);
    JEX_SOUND_ACCESSORS(FSounds)
    vcl::TCustomImageList* ImageList() const { return FImageList; }
    void SetImageList(vcl::TCustomImageList* Value);
    int IndexUp() const { return FIndexUp; }
    void SetIndexUp(int Value) { FIndexUp = Value; }
    int IndexDown() const { return FIndexDown; }
    void SetIndexDown(int Value) { FIndexDown = Value; }
    int IndexFlat() const { return FIndexFlat; }
    void SetIndexFlat(int Value) { FIndexFlat = Value; }
    int IndexDisabled() const { return FIndexDisabled; }
    void SetIndexDisabled(int Value) { FIndexDisabled = Value; }
    int IndexMouseMask() const { return FIndexMouseMask; }
    void SetIndexMouseMask(int Value) { FIndexMouseMask = Value; }
    int OffsetDownX() const { return FOffsetDownX; }
    void SetOffsetDownX(int Value) { FOffsetDownX = Value; }
    int OffsetDownY() const { return FOffsetDownY; }
    void SetOffsetDownY(int Value) { FOffsetDownY = Value; }
    int OffsetUpX() const { return FOffsetUpX; }
    void SetOffsetUpX(int Value) { FOffsetUpX = Value; }
    int OffsetUpY() const { return FOffsetUpY; }
    void SetOffsetUpY(int Value) { FOffsetUpY = Value; }
    bool Scaled() const { return FScaled; }
    void SetScaled(bool Value);

    // The image shown now: disabled, down (while pressed), up (mouse over) or flat; falls back to IndexUp.
    int CurrentIndex() const;
    // Whether (X, Y) is inside the shape: an opaque pixel of the mask image, or anywhere without one.
    bool InShape(int X, int Y) const;
    bool Pressed() const { return FPressed; }
    bool MouseInControl() const { return FMouseInControl; }
    void MouseEnter();
    void MouseLeave();
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void AdjustSize();
    void Loaded() override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexSoundProps FSounds;
    vcl::TCustomImageList* FImageList = nullptr;
    int FIndexUp = -1, FIndexDown = -1, FIndexFlat = -1, FIndexDisabled = -1, FIndexMouseMask = -1;
    int FOffsetDownX = 1, FOffsetDownY = 1, FOffsetUpX = 0, FOffsetUpY = 0;
    bool FScaled = false;
    bool FPressed = false, FMouseInControl = false;
};

// An invisible area that reacts to the mouse: OnEnter / OnLeave events and sounds, an optional outline.
class TjexMouseRegion : public vcl::TGraphicControl {
    JEX_CLASS(TjexMouseRegion, vcl::TGraphicControl)
    explicit TjexMouseRegion(rtl::TComponent* AOwner);
    JEX_SOUND_ACCESSORS(FSounds)
    bool Outline() const { return FOutline; }
    void SetOutline(bool Value) { FOutline = Value; }
    vcl::TColor OutlineColor() const { return FOutlineColor; }
    void SetOutlineColor(vcl::TColor Value) { FOutlineColor = Value; }
    int SoundLeave() const { return FSoundLeave; }
    void SetSoundLeave(int Value) { FSoundLeave = Value; }
    bool MouseInControl() const { return FMouseInControl; }
    void MouseEnter();
    void MouseLeave();
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    rtl::TNotifyEvent OnMouseEnter;
    rtl::TNotifyEvent OnMouseLeave;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    TjexSoundProps FSounds;
    bool FOutline = false;
    vcl::TColor FOutlineColor = vcl::clBlack;
    int FSoundLeave = -1;
    bool FMouseInControl = false;
};

// A speed button tied to a menu item: clicking it runs the item, and with MenuCaption its caption is the
// item's caption (without the accelerator mark).
class TjexMenuButton : public vcl::TGraphicControl {
    JEX_CLASS(TjexMenuButton, vcl::TGraphicControl)
    explicit TjexMenuButton(rtl::TComponent* AOwner);
    ~TjexMenuButton() override;
    bool Flat() const { return FFlat; }
    void SetFlat(bool Value) { FFlat = Value; }
    vcl::TBitmap* Glyph() const { return FGlyph.get(); }
    void SetGlyph(vcl::TBitmap* Value) { FGlyph->Assign(Value); }
    TjexButtonLayout Layout() const { return FLayout; }
    void SetLayout(TjexButtonLayout Value) { FLayout = Value; }
    int Margin() const { return FMargin; }
    void SetMargin(int Value) { FMargin = Value; }
    bool MenuCaption() const { return FMenuCaption; }
    void SetMenuCaption(bool Value);
    vcl::TMenuItem* MenuItem() const { return FMenuItem; }
    void SetMenuItem(vcl::TMenuItem* Value);
    int NumGlyphs() const { return FNumGlyphs; }
    void SetNumGlyphs(int Value); // 1..5, ERangeError otherwise
    int Spacing() const { return FSpacing; }
    void SetSpacing(int Value) { FSpacing = Value; }
    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool Value) { FTransparent = Value; }
    // The caption shown: the menu item's (hotkey stripped) with MenuCaption, else Caption.
    std::string ShownCaption() const;
    // Raises OnClick, then the menu item's click (when it is enabled).
    void Click() override;
    void Describe(vcl::TControlDesc& d) const override;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;

private:
    bool FFlat = true;
    std::unique_ptr<vcl::TBitmap> FGlyph;
    TjexButtonLayout FLayout = jblGlyphLeft;
    int FMargin = -1;
    bool FMenuCaption = true;
    vcl::TMenuItem* FMenuItem = nullptr;
    int FNumGlyphs = 1;
    int FSpacing = 4;
    bool FTransparent = false;
};

} // namespace jex

// ---- Template definitions ---------------------------------------------------------------------------------
namespace jex {
template <class C> void jexPublishGlyphProps(rtl::TClassDecl<C>& d, bool TransparentColor) {
    d.Property("DisabledShadow", &C::DisabledShadow, &C::SetDisabledShadow).Default(false);
    d.Property("Layout", &C::Layout, &C::SetLayout).Default(jblGlyphLeft);
    d.Property("Margin", &C::Margin, &C::SetMargin).Default(-1);
    d.Property("NumGlyphs", &C::NumGlyphs, &C::SetNumGlyphs).Default(1);
    d.Property("Picture", &C::Picture, &C::SetPicture);
    d.Property("PictureHighlight", &C::PictureHighlight, &C::SetPictureHighlight).Default(jphNormal);
    d.Property("Popup", &C::Popup, &C::SetPopup).Default(true);
    d.Property("Spacing", &C::Spacing, &C::SetSpacing).Default(4);
    d.Property("Style", &C::Style, &C::SetStyle).Default(jbsAutoDetect);
    d.Property("TextStyle", &C::TextStyle, &C::SetTextStyle).Default(jtsNormal);
    if (TransparentColor)
        d.Property("TransparentColor", &C::TransparentColor, &C::SetTransparentColor, vcl::TypeInfo_TColor())
            .Default(vcl::clDefault);
}
} // namespace jex
