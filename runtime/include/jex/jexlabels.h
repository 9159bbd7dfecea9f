// The library's labels: rotated, version-information, web-link and mail-to, multi-line, currency-in-words,
// mouse-sensitive, clock, margin, automatic and edit labels; the module version resource they read; and
// the date/time formatting the clock label uses.
#pragma once

#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "vcl/stdctrls.h"

namespace rtl {
class TResourceModule;
}

namespace jex {

// ---- Version resources -------------------------------------------------------------------------------
// A module's version information is its raw resource "VERSIONINFO": UTF-8 text of "Key=Value" lines
// (OriginalFilename, FileVersion, ProductName, CompanyName, FileDescription ...), keys compared ignoring
// case. jexc60 carries its own.
inline constexpr const char* jexVersionResourceName = "VERSIONINFO";
// Fills Values with the module's "Key=Value" lines; false (and Values empty) when it has none.
bool jexReadVersionInfo(rtl::TResourceModule& Module, rtl::TStrings* Values);
// One value of the module's version information, empty when missing.
std::string jexVersionValue(rtl::TResourceModule& Module, const std::string& Key);
// The library's release ("6.0.1") and edition ("Vantor Edition").
std::string jexLibraryRelease();
std::string jexLibraryEdition();

// ---- Date and time -----------------------------------------------------------------------------------
// Days since 1899-12-30, the fraction being the time of day (the platform's TDateTime).
using TjexDateTime = double;
TjexDateTime jexNow();
TjexDateTime jexEncodeDateTime(int Year, int Month, int Day, int Hour, int Min, int Sec, int MSec = 0);
// The platform's date/time format language with its default (U.S.) settings: c (short date, and long time
// unless midnight), d dd ddd dddd ddddd (short date "m/d/yyyy") dddddd (long date "dddd, mmmm d, yyyy"),
// m mm mmm mmmm (minutes right after an hour), yy yyyy, h hh, n nn, s ss, z zzz, t (short time
// "h:mm AMPM"), tt (long time "h:mm:ss AMPM"), am/pm, a/p, ampm (12-hour hours), / and :, and quoted text.
// Letters are case-insensitive; an empty format means "c".
std::string jexFormatDateTime(const std::string& Format, TjexDateTime DateTime);

// ---- Shared label types ---------------------------------------------------------------------------------
JEX_ENUM(TjexLabelBorderStyle, jlbNone, jlbSingle, jlbLowered, jlbRaised)

// The label base of the library. Labels whose text is computed (version, currency, clock, multi-line)
// keep the computed text as their caption through ShowText and ignore captions assigned from outside.
class TjexCustomLabel : public vcl::TCustomLabel {
    JEX_CLASS(TjexCustomLabel, vcl::TCustomLabel)
    explicit TjexCustomLabel(rtl::TComponent* AOwner) : vcl::TCustomLabel(AOwner) {}

protected:
    // Sets the caption (and the size, with AutoSize) to a computed text.
    void ShowText(const std::string& Text) { vcl::TControl::SetText(Text); }
};

// A label drawn at an angle (degrees counter-clockwise, 0..359); with AutoSize it takes the size of the
// rotated text.
class TjexRotLabel : public TjexCustomLabel {
    JEX_CLASS(TjexRotLabel, TjexCustomLabel)
    explicit TjexRotLabel(rtl::TComponent* AOwner);
    int Angle() const { return FAngle; }
    void SetAngle(int Value); // taken modulo 360
    TjexLabelBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TjexLabelBorderStyle Value);
    TjexTextStyle CaptionStyle() const { return FCaptionStyle; }
    void SetCaptionStyle(TjexTextStyle Value) { FCaptionStyle = Value; }
    bool RotateCenter() const { return FRotateCenter; }
    void SetRotateCenter(bool Value) { FRotateCenter = Value; }
    void AdjustRotatedBounds();
    void TextChanged() override;
    void FontChanged() override;
    void Loaded() override;

private:
    int FAngle = 0;
    TjexLabelBorderStyle FBorderStyle = jlbNone;
    TjexTextStyle FCaptionStyle = jtsNormal;
    bool FRotateCenter = false;
};

// Shows lines "Caption Value" for the keys of its VersionInfo items, read from a module's version
// resource (ModuleName; empty: the host's main module).
class TjexVersionLabel : public TjexCustomLabel {
    JEX_CLASS(TjexVersionLabel, TjexCustomLabel)
    explicit TjexVersionLabel(rtl::TComponent* AOwner);
    ~TjexVersionLabel() override;
    bool DoubleSpaced() const { return FDoubleSpaced; }
    void SetDoubleSpaced(bool Value);
    TjexVersionInfoItems* VersionInfo() const { return FVersionInfo.get(); }
    void SetVersionInfo(TjexVersionInfoItems* Value) { FVersionInfo->Assign(Value); }
    std::string ModuleName() const { return FModuleName; }
    void SetModuleName(const std::string& Value);
    // The module read: the registered module named ModuleName, or the main instance; nil when none.
    rtl::TResourceModule* Module() const;
    // The value of a key, and of item Index's key (empty when missing or out of range).
    std::string Value(const std::string& Key) const;
    std::string ItemValue(int Index) const;
    // The shown lines, an empty line between items when DoubleSpaced; the caption is these lines.
    std::vector<std::string> Lines() const;
    // Reads the module again and shows the lines.
    void Refresh();
    // The lines joined by CR LF (worked out afresh when items were added or removed since the last
    // Refresh, because a new item is announced before it is constructed).
    std::string GetText() const override;
    void SetText(const std::string&) override {}
    void Loaded() override;

private:
    class TItems;
    std::string LinesText() const;
    bool FStale = false;
    bool FDoubleSpaced = false;
    std::unique_ptr<TjexVersionInfoItems> FVersionInfo;
    std::string FModuleName;
};

// A label that reacts to the mouse: while the mouse is over it its colour and font styles become
// MouseOverColor / MouseOverEffects, while pressed MouseDownColor / MouseDownEffects; sounds as buttons.
class TjexMouseLabel : public TjexCustomLabel {
    JEX_CLASS(TjexMouseLabel, TjexCustomLabel)
    explicit TjexMouseLabel(rtl::TComponent* AOwner);
    JEX_SOUND_ACCESSORS(FSounds)
    vcl::TColor MouseOverColor() const { return FMouseOverColor; }
    void SetMouseOverColor(vcl::TColor Value) { FMouseOverColor = Value; }
    vcl::TFontStyles MouseOverEffects() const { return FMouseOverEffects; }
    void SetMouseOverEffects(vcl::TFontStyles Value) { FMouseOverEffects = Value; }
    vcl::TColor MouseDownColor() const { return FMouseDownColor; }
    void SetMouseDownColor(vcl::TColor Value) { FMouseDownColor = Value; }
    vcl::TFontStyles MouseDownEffects() const { return FMouseDownEffects; }
    void SetMouseDownEffects(vcl::TFontStyles Value) { FMouseDownEffects = Value; }

    bool MouseInControl() const { return FMouseInControl; }
    bool MousePressed() const { return FMousePressed; }
    // The text colour and styles shown now (the font's outside the mouse states).
    vcl::TColor ShownColor() const;
    vcl::TFontStyles ShownStyle() const;
    void MouseEnter();
    void MouseLeave();
    void MouseDown(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    void MouseUp(vcl::TMouseButton Button, vcl::TShiftState Shift, int X, int Y) override;
    rtl::TNotifyEvent OnMouseEnter;
    rtl::TNotifyEvent OnMouseLeave;

protected:
    void Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) override;
    TjexSoundProps FSounds;

private:
    vcl::TColor FMouseOverColor = vcl::clBlue;
    vcl::TFontStyles FMouseOverEffects{vcl::fsUnderline};
    vcl::TColor FMouseDownColor = vcl::clRed;
    vcl::TFontStyles FMouseDownEffects{vcl::fsUnderline};
    bool FMouseInControl = false, FMousePressed = false;
};

// A link: a click opens URL (the caption when URL is empty) through the desktop's shell.
class TjexURLLabel : public TjexMouseLabel {
    JEX_CLASS(TjexURLLabel, TjexMouseLabel)
    explicit TjexURLLabel(rtl::TComponent* AOwner);
    std::string URL() const { return FURL; }
    void SetURL(const std::string& Value) { FURL = Value; }
    // Whether the browser comes up in front (else it starts minimised).
    bool ShowBrowser() const { return FShowBrowser; }
    void SetShowBrowser(bool Value) { FShowBrowser = Value; }
    // The address opened.
    virtual std::string TargetURL() const;
    // Raises OnClick, then opens the target; true when the shell started it.
    bool Open();
    void Click() override;

private:
    std::string FURL;
    bool FShowBrowser = true;
};

// Percent-encodes every byte except letters, digits and "-._~" (and those in Keep).
std::string jexPercentEncode(const std::string& Text, const std::string& Keep = {});

// A mail link: a click opens "mailto:" + MailTo with the subject and the body lines (joined by CR LF),
// percent-encoded, in the desktop's mail program.
class TjexMailToLabel : public TjexURLLabel {
    JEX_CLASS(TjexMailToLabel, TjexURLLabel)
    explicit TjexMailToLabel(rtl::TComponent* AOwner);
    ~TjexMailToLabel() override;
    std::string MailTo() const { return FMailTo; }
    void SetMailTo(const std::string& Value) { FMailTo = Value; }
    std::string Subject() const { return FSubject; }
    void SetSubject(const std::string& Value) { FSubject = Value; }
    rtl::TStrings* Body() const { return FBody.get(); }
    void SetBody(rtl::TStrings* Value) { FBody->Assign(Value); }
    // "mailto:address?subject=...&body=..." (parts left out when empty).
    std::string TargetURL() const override;

private:
    std::string FMailTo, FSubject;
    std::unique_ptr<rtl::TStringList> FBody;
};

// A label showing its Lines, one per line.
class TjexMultilineLabel : public TjexCustomLabel {
    JEX_CLASS(TjexMultilineLabel, TjexCustomLabel)
    explicit TjexMultilineLabel(rtl::TComponent* AOwner);
    ~TjexMultilineLabel() override;
    rtl::TStrings* Lines() const { return FLines.get(); }
    void SetLines(rtl::TStrings* Value) { FLines->Assign(Value); }
    // The caption is the lines joined by CR LF; setting it splits it into lines.
    void SetText(const std::string& Value) override;

private:
    std::unique_ptr<rtl::TStringList> FLines;
};

JEX_ENUM(TjexCurrFractionFormat, jcfNumeric, jcfWords, jcfNone)

// A currency amount in words, as on a cheque: "One Hundred Twenty-Three Dollars and 45/100".
class TjexCurrencyLabel : public TjexCustomLabel {
    JEX_CLASS(TjexCurrencyLabel, TjexCustomLabel)
    explicit TjexCurrencyLabel(rtl::TComponent* AOwner);
    double Value() const { return FValue; }
    void SetValue(double Value);
    std::string CurrText() const { return FCurrText; }
    void SetCurrText(const std::string& Value);
    std::string CurrFractionText() const { return FCurrFractionText; }
    void SetCurrFractionText(const std::string& Value);
    TjexCurrFractionFormat CurrFractionFormat() const { return FCurrFractionFormat; }
    void SetCurrFractionFormat(TjexCurrFractionFormat Value);
    // Only the first letter upper-case (else every word is capitalised).
    bool FirstUpperCase() const { return FFirstUpperCase; }
    void SetFirstUpperCase(bool Value);
    // With HandleException an amount that cannot be spelled (1,000 trillion and above, or not a number)
    // shows "(amount too large)"; without, SetValue refuses it with ERangeError and keeps the old value.
    bool HandleException() const { return FHandleException; }
    void SetHandleException(bool Value);
    // The amount in words for Value with the current settings (ERangeError for an amount out of range).
    std::string AmountText(double Value) const;
    void SetText(const std::string&) override {}
    void Loaded() override;

private:
    double FValue = 0;
    std::string FCurrText = "Dollars";
    std::string FCurrFractionText = "Cents";
    TjexCurrFractionFormat FCurrFractionFormat = jcfNumeric;
    bool FFirstUpperCase = false;
    bool FHandleException = true;
};
// The words for a whole number 0 .. 999,999,999,999,999 ("One Hundred Twenty-Three"); ERangeError beyond.
std::string jexNumberToWords(int64_t Value);

// A label showing the current date/time in Format; the host refreshes it every Interval milliseconds.
class TjexClockLabel : public TjexCustomLabel {
    JEX_CLASS(TjexClockLabel, TjexCustomLabel)
    explicit TjexClockLabel(rtl::TComponent* AOwner);
    std::string Format() const { return FFormat; }
    void SetFormat(const std::string& Value);
    int Interval() const { return FInterval; }
    void SetInterval(int Value) { FInterval = Value < 1 ? 1 : Value; }
    // The text at a given moment, and now.
    std::string TextAt(TjexDateTime Moment) const { return jexFormatDateTime(FFormat, Moment); }
    void SetText(const std::string&) override {}
    // A tick of the clock (the host calls it every Interval ms): shows the time, then raises OnTimer.
    void Tick();
    void Loaded() override;
    rtl::TNotifyEvent OnTimer;

private:
    std::string FFormat = "tt";
    int FInterval = 1000;
};

// A label with a border and margins around its text; with AutoSize the margins add to the text's size.
class TjexSuperLabel : public TjexCustomLabel {
    JEX_CLASS(TjexSuperLabel, TjexCustomLabel)
    explicit TjexSuperLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {}
    vcl::TColor BorderColor() const { return FBorderColor; }
    void SetBorderColor(vcl::TColor Value) { FBorderColor = Value; }
    TjexLabelBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TjexLabelBorderStyle Value);
    int LeftMargin() const { return FLeftMargin; }
    void SetLeftMargin(int Value);
    int TopMargin() const { return FTopMargin; }
    void SetTopMargin(int Value);
    int RightMargin() const { return FRightMargin; }
    void SetRightMargin(int Value);
    int BottomMargin() const { return FBottomMargin; }
    void SetBottomMargin(int Value);
    TjexAlignVert VerticalAlignment() const { return FVerticalAlignment; }
    void SetVerticalAlignment(TjexAlignVert Value) { FVerticalAlignment = Value; }
    // The text's rectangle inside the label.
    vcl::TRect TextRect() const;
    void AdjustMarginBounds();
    void TextChanged() override;
    void FontChanged() override;
    void Loaded() override;

private:
    int BorderWidth() const { return FBorderStyle == jlbNone ? 0 : (FBorderStyle == jlbSingle ? 1 : 2); }
    vcl::TColor FBorderColor = vcl::clBlack;
    TjexLabelBorderStyle FBorderStyle = jlbNone;
    int FLeftMargin = 0, FTopMargin = 0, FRightMargin = 0, FBottomMargin = 0;
    TjexAlignVert FVerticalAlignment = javTop;
};

JEX_ENUM(TjexAutoLabelLayout, jalNone, jalLeft, jalAbove)

// A label for its FocusControl: without a caption of its own it shows the control's name as words
// ("edtFirstName" -> "First Name") followed by Separator, and with Layout it places itself to the left of
// or above the control.
class TjexAutoLabel : public TjexCustomLabel {
    JEX_CLASS(TjexAutoLabel, TjexCustomLabel)
    explicit TjexAutoLabel(rtl::TComponent* AOwner) : TjexCustomLabel(AOwner) {}
    vcl::TColor BorderColor() const { return FBorderColor; }
    void SetBorderColor(vcl::TColor Value) { FBorderColor = Value; }
    TjexLabelBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TjexLabelBorderStyle Value) { FBorderStyle = Value; }
    TjexAutoLabelLayout Layout() const { return FLayout; }
    void SetLayout(TjexAutoLabelLayout Value);
    std::string Separator() const { return FSeparator; }
    void SetSeparator(const std::string& Value);
    TjexTextStyle TextStyle() const { return FTextStyle; }
    void SetTextStyle(TjexTextStyle Value) { FTextStyle = Value; }
    // The text shown: the caption, or the focus control's name in words plus Separator.
    std::string ShownText() const;
    // Places the label beside its focus control as Layout says.
    void PlaceByControl();
    void SetAutoFocusControl(vcl::TWinControl* Value);
    void Describe(vcl::TControlDesc& d) const override;
    void Loaded() override;
    static std::string NameToWords(const std::string& Name);

private:
    vcl::TColor FBorderColor = vcl::clBlack;
    TjexLabelBorderStyle FBorderStyle = jlbNone;
    TjexAutoLabelLayout FLayout = jalLeft;
    std::string FSeparator = ":";
    TjexTextStyle FTextStyle = jtsNormal;
};

JEX_ENUM(TjexEditLabelLayout, jelLeft, jelTop)

// An edit box with its own label: the label LabelWidth x LabelHeight to the left of (or above) the edit,
// offset by LabelOffsetX / LabelOffsetY. Caption is the label's text, Text the edit's.
class TjexCustomEditLabel : public vcl::TCustomControl {
    JEX_CLASS(TjexCustomEditLabel, vcl::TCustomControl)
    explicit TjexCustomEditLabel(rtl::TComponent* AOwner);
    vcl::TLabel* Label() const { return FLabel; }
    vcl::TEdit* Edit() const { return FEdit; }

    std::string LabelCaption() const { return FLabel->Caption(); }
    void SetLabelCaption(const std::string& Value) { FLabel->SetCaption(Value); }
    std::string EditText() const { return FEdit->Text(); }
    void SetEditText(const std::string& Value) { FEdit->SetText(Value); }
    vcl::TColor EditColor() const { return FEdit->Color(); }
    void SetEditColor(vcl::TColor Value) { FEdit->SetColor(Value); }
    vcl::TFont* EditFont() const { return FEdit->Font(); }
    void SetEditFont(vcl::TFont* Value) { FEdit->SetFont(Value); }
    bool EditParentColor() const { return FEdit->ParentColor(); }
    void SetEditParentColor(bool Value) { FEdit->SetParentColor(Value); }
    bool EditParentFont() const { return FEdit->ParentFont(); }
    void SetEditParentFont(bool Value) { FEdit->SetParentFont(Value); }
    bool IsEditFontStored() const { return !FEdit->ParentFont(); }
    bool IsEditColorStored() const { return !FEdit->ParentColor(); }
    vcl::TFont* LabelFont() const { return FLabel->Font(); }
    void SetLabelFont(vcl::TFont* Value) { FLabel->SetFont(Value); }
    bool LabelParentFont() const { return FLabel->ParentFont(); }
    void SetLabelParentFont(bool Value) { FLabel->SetParentFont(Value); }
    bool IsLabelFontStored() const { return !FLabel->ParentFont(); }
    int LabelWidth() const { return FLabelWidth; }
    void SetLabelWidth(int Value);
    int LabelHeight() const { return FLabelHeight; }
    void SetLabelHeight(int Value);
    int LabelOffsetX() const { return FLabelOffsetX; }
    void SetLabelOffsetX(int Value);
    int LabelOffsetY() const { return FLabelOffsetY; }
    void SetLabelOffsetY(int Value);
    TjexEditLabelLayout Layout() const { return FLayout; }
    void SetLayout(TjexEditLabelLayout Value);
    bool ReadOnly() const { return FEdit->ReadOnly(); }
    void SetReadOnly(bool Value) { FEdit->SetReadOnly(Value); }
    int MaxLength() const { return FEdit->MaxLength(); }
    void SetMaxLength(int Value) { FEdit->SetMaxLength(Value); }

    // Places label and edit inside the control.
    void ArrangeParts();
    void Resize() override;
    // Typing into the control types into its edit.
    void UserType(const std::string& Text) override;
    void Describe(vcl::TControlDesc& d) const override;
    // After every change of the edit's text.
    rtl::TNotifyEvent OnChange;

private:
    vcl::TLabel* FLabel;
    vcl::TEdit* FEdit;
    int FLabelWidth = 60, FLabelHeight = 17;
    int FLabelOffsetX = 4, FLabelOffsetY = 3;
    TjexEditLabelLayout FLayout = jelLeft;
};

class TjexEditLabel : public TjexCustomEditLabel {
    JEX_CLASS(TjexEditLabel, TjexCustomEditLabel)
    explicit TjexEditLabel(rtl::TComponent* AOwner) : TjexCustomEditLabel(AOwner) {}
};

} // namespace jex
