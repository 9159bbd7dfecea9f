// Windows shown while the application starts or works: the splash screen and the busy window with its
// messages, video and progress.
#pragma once

#include <chrono>
#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "jex/jexfiledlg.h"
#include "vcl/comctrls.h"
#include "vcl/extctrls.h"
#include "vcl/forms.h"

namespace jex {

// ---- Splash screen -------------------------------------------------------------------------------------
// The splash window: the picture in "imgSplash".
class TjexSplashForm : public vcl::TForm {
    JEX_CLASS(TjexSplashForm, vcl::TForm)
    explicit TjexSplashForm(rtl::TComponent* AOwner);
    vcl::TImage* imgSplash;
    bool HideOnClick = false;
    void SplashClick(rtl::TObject* Sender);
};

// A borderless window with a picture, centred on the screen: modal (a click closes it with HideOnClick)
// or not (it stays until Hide, a click with HideOnClick, or HideIfExpired after Duration milliseconds).
// With AllowLocalBmp a bitmap next to the application, named like it, replaces Picture; PictureVGA stands
// in for an empty Picture. AutoShow shows it when the form is loaded at run time.
class TjexSplash : public rtl::TComponent {
    JEX_CLASS(TjexSplash, rtl::TComponent)
    explicit TjexSplash(rtl::TComponent* AOwner);
    ~TjexSplash() override;
    void Assign(rtl::TPersistent* Source) override;
    bool AllowLocalBmp() const { return FAllowLocalBmp; }
    void SetAllowLocalBmp(bool Value) { FAllowLocalBmp = Value; }
    bool AutoShow() const { return FAutoShow; }
    void SetAutoShow(bool Value) { FAutoShow = Value; }
    int Duration() const { return FDuration; }
    void SetDuration(int Value) { FDuration = Value < 0 ? 0 : Value; }
    bool HideOnClick() const { return FHideOnClick; }
    void SetHideOnClick(bool Value) { FHideOnClick = Value; }
    vcl::TPicture* Picture() const { return FPicture.get(); }
    void SetPicture(vcl::TPicture* Value) { FPicture->Assign(Value); }
    vcl::TPicture* PictureVGA() const { return FPictureVGA.get(); }
    void SetPictureVGA(vcl::TPicture* Value) { FPictureVGA->Assign(Value); }
    bool ShowModal() const { return FShowModal; }
    void SetShowModal(bool Value) { FShowModal = Value; }
    bool StayOnTop() const { return FStayOnTop; }
    void SetStayOnTop(bool Value) { FStayOnTop = Value; }

    // The picture the window shows (see above); nil when there is none.
    vcl::TGraphic* ShownGraphic(std::unique_ptr<vcl::TBitmap>& Holder) const;
    // Shows the splash window; false when there is no picture to show.
    virtual bool Execute();
    void Hide();
    bool Showing() const;
    // Whether Duration has passed since the window appeared; HideIfExpired hides it then.
    bool Expired() const;
    bool HideIfExpired();
    TjexSplashForm* Form() const { return FForm; }
    void Loaded() override;

private:
    bool FAllowLocalBmp = false;
    bool FAutoShow = false;
    int FDuration = 2000;
    bool FHideOnClick = true;
    std::unique_ptr<vcl::TPicture> FPicture, FPictureVGA;
    bool FShowModal = false;
    bool FStayOnTop = true;
    TjexSplashForm* FForm = nullptr;
    std::chrono::steady_clock::time_point FShownAt;
};

// ---- Busy window ---------------------------------------------------------------------------------------
JEX_ENUM(TjexAVIPosition, japLeft, japTop, japRight, japBottom)
JEX_ENUM(TjexBusyOption, jboShowProgress, jboShowAVI, jboHourGlass, jboStayOnTop, jboPlaySound)
JEX_SET(TjexBusyOptions, TjexBusyOption)

// The busy window: "lblMessage1", "lblMessage2", the video's place "pnlAVI" and the bar "pbProgress".
class TjexBusyForm : public vcl::TForm {
    JEX_CLASS(TjexBusyForm, vcl::TForm)
    explicit TjexBusyForm(rtl::TComponent* AOwner);
    vcl::TLabel* lblMessage1;
    vcl::TLabel* lblMessage2;
    vcl::TPanel* pnlAVI;
    vcl::TProgressBar* pbProgress;
};

// A modeless window that says the application is busy: two messages in their fonts, a video (AVISource)
// placed by AVIPosition, and a progress bar (ProgressMin..ProgressMax, moved by ProgressPos or StepIt).
// Options: show the progress bar and the video, the hourglass cursor while showing, stay on top, play
// Sound when it appears. Hide keeps the window up for at least MinDuration milliseconds in all.
class TjexBusy : public rtl::TComponent {
    JEX_CLASS(TjexBusy, rtl::TComponent)
    explicit TjexBusy(rtl::TComponent* AOwner);
    ~TjexBusy() override;
    TjexAVIPosition AVIPosition() const { return FAVIPosition; }
    void SetAVIPosition(TjexAVIPosition Value) { FAVIPosition = Value; }
    TjexAVISource* AVISource() const { return FAVISource.get(); }
    void SetAVISource(TjexAVISource* Value) { FAVISource->Assign(Value); }
    bool AVITransparent() const { return FAVITransparent; }
    void SetAVITransparent(bool Value) { FAVITransparent = Value; }
    vcl::TColor DlgColor() const { return FDlgColor; }
    void SetDlgColor(vcl::TColor Value) { FDlgColor = Value; }
    int DlgHeight() const { return FDlgHeight; }
    void SetDlgHeight(int Value) { FDlgHeight = Value; }
    int DlgLeft() const { return FDlgLeft; }
    void SetDlgLeft(int Value) { FDlgLeft = Value; }
    vcl::TPosition DlgPosition() const { return FDlgPosition; }
    void SetDlgPosition(vcl::TPosition Value) { FDlgPosition = Value; }
    int DlgTop() const { return FDlgTop; }
    void SetDlgTop(int Value) { FDlgTop = Value; }
    int DlgWidth() const { return FDlgWidth; }
    void SetDlgWidth(int Value) { FDlgWidth = Value; }
    std::string Message1() const { return FMessage1; }
    void SetMessage1(const std::string& Value);
    vcl::TFont* Message1Font() const { return FMessage1Font.get(); }
    void SetMessage1Font(vcl::TFont* Value) { FMessage1Font->Assign(Value); }
    std::string Message2() const { return FMessage2; }
    void SetMessage2(const std::string& Value);
    vcl::TFont* Message2Font() const { return FMessage2Font.get(); }
    void SetMessage2Font(vcl::TFont* Value) { FMessage2Font->Assign(Value); }
    int MinDuration() const { return FMinDuration; }
    // 0..10000 milliseconds.
    void SetMinDuration(int Value);
    TjexBusyOptions Options() const { return FOptions; }
    void SetOptions(TjexBusyOptions Value) { FOptions = Value; }
    int ProgressMax() const { return FProgressMax; }
    void SetProgressMax(int Value);
    int ProgressMin() const { return FProgressMin; }
    void SetProgressMin(int Value);
    int ProgressPos() const { return FProgressPos; }
    void SetProgressPos(int Value);
    int ProgressStep() const { return FProgressStep; }
    void SetProgressStep(int Value) { FProgressStep = Value; }
    TjexWaveImage* Sound() const { return FSound.get(); }
    void SetSound(TjexWaveImage* Value) { FSound->Assign(Value); }

    void Show();
    void Hide();
    bool Showing() const;
    void StepIt() { SetProgressPos(FProgressPos + FProgressStep); }
    TjexBusyForm* Form() const { return FForm; }
    // Whether the sound started when the window last appeared.
    bool SoundPlayed() const { return FSoundPlayed; }

private:
    void UpdateForm();
    TjexAVIPosition FAVIPosition = japLeft;
    std::unique_ptr<TjexAVISource> FAVISource;
    bool FAVITransparent = true;
    vcl::TColor FDlgColor = vcl::clBtnFace;
    int FDlgHeight = 120, FDlgLeft = 0, FDlgTop = 0, FDlgWidth = 320;
    vcl::TPosition FDlgPosition = vcl::poScreenCenter;
    std::string FMessage1 = "Please wait...", FMessage2;
    std::unique_ptr<vcl::TFont> FMessage1Font, FMessage2Font;
    int FMinDuration = 0;
    TjexBusyOptions FOptions{jboShowProgress, jboHourGlass, jboStayOnTop};
    int FProgressMax = 100, FProgressMin = 0, FProgressPos = 0, FProgressStep = 10;
    std::unique_ptr<TjexWaveImage> FSound;
    TjexBusyForm* FForm = nullptr;
    vcl::TCursor FSavedCursor = vcl::crDefault;
    std::chrono::steady_clock::time_point FShownAt;
    bool FSoundPlayed = false;
};

} // namespace jex
