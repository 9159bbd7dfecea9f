// The splash screen and the busy window.
#include "jex/jexsplash.h"

#include <algorithm>
#include <thread>

#include "jex/jexbuttons.h"
#include "jexpanelpub.h"
#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexAVIPosition)
JEX_DEFINE_ENUM(TjexBusyOption)
JEX_DEFINE_SET(TjexBusyOptions, TjexBusyOption)

// ---- Splash screen -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSplashForm, TForm, "jexsplash") {}

TjexSplashForm::TjexSplashForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexSplashForm");
    SetBorderStyle(bsNone);
    SetPosition(poScreenCenter);
    imgSplash = new TImage(this);
    imgSplash->SetName("imgSplash");
    imgSplash->SetParent(this);
    imgSplash->SetAlign(alClient);
    imgSplash->OnClick = rtl::TNotifyEvent(this, &TjexSplashForm::SplashClick);
    OnClick = rtl::TNotifyEvent(this, &TjexSplashForm::SplashClick);
}

void TjexSplashForm::SplashClick(rtl::TObject*) {
    if (!HideOnClick) return;
    if (Modal())
        SetModalResult(mrOk);
    else
        Hide();
}

JEX_IMPLEMENT_CLASS(TjexSplash, rtl::TComponent, "jexsplash") {
    d.Property("AllowLocalBmp", &TjexSplash::AllowLocalBmp, &TjexSplash::SetAllowLocalBmp).Default(false);
    d.Property("AutoShow", &TjexSplash::AutoShow, &TjexSplash::SetAutoShow).Default(false);
    d.Property("Duration", &TjexSplash::Duration, &TjexSplash::SetDuration).Default(2000);
    d.Property("HideOnClick", &TjexSplash::HideOnClick, &TjexSplash::SetHideOnClick).Default(true);
    d.Property("Picture", &TjexSplash::Picture, &TjexSplash::SetPicture);
    d.Property("PictureVGA", &TjexSplash::PictureVGA, &TjexSplash::SetPictureVGA);
    d.Property("ShowModal", &TjexSplash::ShowModal, &TjexSplash::SetShowModal).Default(false);
    d.Property("StayOnTop", &TjexSplash::StayOnTop, &TjexSplash::SetStayOnTop).Default(true);
}

TjexSplash::TjexSplash(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FPicture(std::make_unique<TPicture>()),
      FPictureVGA(std::make_unique<TPicture>()) {}

TjexSplash::~TjexSplash() {
    if (FForm) FForm->Free();
}

void TjexSplash::Assign(rtl::TPersistent* Source) {
    if (auto* s = dynamic_cast<TjexSplash*>(Source)) {
        FAllowLocalBmp = s->FAllowLocalBmp;
        FAutoShow = s->FAutoShow;
        FDuration = s->FDuration;
        FHideOnClick = s->FHideOnClick;
        FPicture->Assign(s->FPicture.get());
        FPictureVGA->Assign(s->FPictureVGA.get());
        FShowModal = s->FShowModal;
        FStayOnTop = s->FStayOnTop;
        return;
    }
    rtl::TComponent::Assign(Source);
}

TGraphic* TjexSplash::ShownGraphic(std::unique_ptr<TBitmap>& Holder) const {
    if (FAllowLocalBmp) {
        std::string exe = Application()->ExeName();
        std::string local = exe.empty() ? std::string() : rtl::ChangeFileExt(exe, ".bmp");
        if (!local.empty() && rtl::FileExists(local)) {
            auto bmp = std::make_unique<TBitmap>();
            try {
                bmp->LoadFromFile(local);
                Holder = std::move(bmp);
                return Holder.get();
            } catch (const rtl::Exception&) {
                // A bitmap that cannot be read leaves the stored picture in charge.
            }
        }
    }
    if (FPicture->Graphic() && !FPicture->Graphic()->Empty()) return FPicture->Graphic();
    if (FPictureVGA->Graphic() && !FPictureVGA->Graphic()->Empty()) return FPictureVGA->Graphic();
    return nullptr;
}

bool TjexSplash::Execute() {
    std::unique_ptr<TBitmap> holder;
    TGraphic* g = ShownGraphic(holder);
    if (!g) return false;
    if (!FForm) FForm = NewForm<TjexSplashForm>(nullptr);
    FForm->imgSplash->Picture()->Assign(g);
    FForm->SetClientWidth(g->Width());
    FForm->SetClientHeight(g->Height());
    FForm->SetFormStyle(FStayOnTop ? fsStayOnTop : fsNormal);
    FForm->HideOnClick = FHideOnClick;
    FShownAt = std::chrono::steady_clock::now();
    if (FShowModal) {
        FForm->ShowModal();
        FForm->Free();
        FForm = nullptr;
    } else {
        FForm->Show();
    }
    return true;
}

void TjexSplash::Hide() {
    if (FForm) FForm->Hide();
}

bool TjexSplash::Showing() const {
    return FForm && FForm->Visible();
}

bool TjexSplash::Expired() const {
    return std::chrono::steady_clock::now() - FShownAt >= std::chrono::milliseconds(FDuration);
}

bool TjexSplash::HideIfExpired() {
    if (!Showing() || !Expired()) return false;
    Hide();
    return true;
}

void TjexSplash::Loaded() {
    rtl::TComponent::Loaded();
    // Without a user interface (a form read by a tool) there is no screen to show it on.
    if (FAutoShow && !IsDesigning() && UIInstalled()) Execute();
}

// ---- Busy window ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexBusyForm, TForm, "jexsplash") {}

TjexBusyForm::TjexBusyForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexBusyForm");
    SetBorderStyle(bsDialog);
    SetBorderIcons({});
    pnlAVI = new TPanel(this);
    pnlAVI->SetName("pnlAVI");
    pnlAVI->SetParent(this);
    pnlAVI->SetCaption("");
    pnlAVI->SetBevelOuter(bvNone);
    lblMessage1 = new TLabel(this);
    lblMessage1->SetName("lblMessage1");
    lblMessage1->SetParent(this);
    lblMessage2 = new TLabel(this);
    lblMessage2->SetName("lblMessage2");
    lblMessage2->SetParent(this);
    pbProgress = new TProgressBar(this);
    pbProgress->SetName("pbProgress");
    pbProgress->SetParent(this);
}

JEX_IMPLEMENT_CLASS(TjexBusy, rtl::TComponent, "jexsplash") {
    d.Property("AVIPosition", &TjexBusy::AVIPosition, &TjexBusy::SetAVIPosition).Default(japLeft);
    d.Property("AVISource", &TjexBusy::AVISource, &TjexBusy::SetAVISource);
    d.Property("AVITransparent", &TjexBusy::AVITransparent, &TjexBusy::SetAVITransparent).Default(true);
    d.Property("DlgColor", &TjexBusy::DlgColor, &TjexBusy::SetDlgColor, TypeInfo_TColor()).Default(clBtnFace);
    d.Property("DlgHeight", &TjexBusy::DlgHeight, &TjexBusy::SetDlgHeight).Default(120);
    d.Property("DlgLeft", &TjexBusy::DlgLeft, &TjexBusy::SetDlgLeft).Default(0);
    d.Property("DlgPosition", &TjexBusy::DlgPosition, &TjexBusy::SetDlgPosition).Default(poScreenCenter);
    d.Property("DlgTop", &TjexBusy::DlgTop, &TjexBusy::SetDlgTop).Default(0);
    d.Property("DlgWidth", &TjexBusy::DlgWidth, &TjexBusy::SetDlgWidth).Default(320);
    d.Property("Message1", &TjexBusy::Message1, &TjexBusy::SetMessage1);
    d.Property("Message1Font", &TjexBusy::Message1Font, &TjexBusy::SetMessage1Font);
    d.Property("Message2", &TjexBusy::Message2, &TjexBusy::SetMessage2);
    d.Property("Message2Font", &TjexBusy::Message2Font, &TjexBusy::SetMessage2Font);
    d.Property("MinDuration", &TjexBusy::MinDuration, &TjexBusy::SetMinDuration).Default(0);
    d.Property("Options", &TjexBusy::Options, &TjexBusy::SetOptions)
        .Default(TjexBusyOptions{jboShowProgress, jboHourGlass, jboStayOnTop}.Bits());
    d.Property("ProgressMax", &TjexBusy::ProgressMax, &TjexBusy::SetProgressMax).Default(100);
    d.Property("ProgressMin", &TjexBusy::ProgressMin, &TjexBusy::SetProgressMin).Default(0);
    d.Property("ProgressPos", &TjexBusy::ProgressPos, &TjexBusy::SetProgressPos).Default(0);
    d.Property("ProgressStep", &TjexBusy::ProgressStep, &TjexBusy::SetProgressStep).Default(10);
    d.Property("Sound", &TjexBusy::Sound, &TjexBusy::SetSound);
}

TjexBusy::TjexBusy(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FAVISource(std::make_unique<TjexAVISource>()),
      FMessage1Font(std::make_unique<TFont>()), FMessage2Font(std::make_unique<TFont>()),
      FSound(std::make_unique<TjexWaveImage>()) {
    FMessage1Font->SetStyle({fsBold});
}

TjexBusy::~TjexBusy() {
    if (FForm) {
        if (FForm->Visible() && FOptions.Contains(jboHourGlass)) Screen()->SetCursor(FSavedCursor);
        FForm->Free();
    }
}

void TjexBusy::SetMessage1(const std::string& Value) {
    FMessage1 = Value;
    UpdateForm();
}

void TjexBusy::SetMessage2(const std::string& Value) {
    FMessage2 = Value;
    UpdateForm();
}

void TjexBusy::SetMinDuration(int Value) {
    FMinDuration = std::clamp(Value, 0, 10000);
}

void TjexBusy::SetProgressMin(int Value) {
    FProgressMin = Value;
    if (!IsLoading()) {
        FProgressMax = std::max(FProgressMax, FProgressMin);
        FProgressPos = std::clamp(FProgressPos, FProgressMin, FProgressMax);
    }
    UpdateForm();
}

void TjexBusy::SetProgressMax(int Value) {
    FProgressMax = Value;
    if (!IsLoading()) {
        FProgressMin = std::min(FProgressMin, FProgressMax);
        FProgressPos = std::clamp(FProgressPos, FProgressMin, FProgressMax);
    }
    UpdateForm();
}

void TjexBusy::SetProgressPos(int Value) {
    // While a form file is read, Min and Max may come after the position.
    FProgressPos = IsLoading() ? Value : std::clamp(Value, FProgressMin, FProgressMax);
    UpdateForm();
}

void TjexBusy::UpdateForm() {
    if (!FForm) return;
    FForm->SetColor(FDlgColor);
    FForm->lblMessage1->SetCaption(FMessage1);
    FForm->lblMessage1->Font()->Assign(FMessage1Font.get());
    FForm->lblMessage2->SetCaption(FMessage2);
    FForm->lblMessage2->Font()->Assign(FMessage2Font.get());
    FForm->pbProgress->SetMin(FProgressMin);
    FForm->pbProgress->SetMax(FProgressMax);
    FForm->pbProgress->SetPosition(FProgressPos);
    FForm->pbProgress->SetVisible(FOptions.Contains(jboShowProgress));
    bool avi = FOptions.Contains(jboShowAVI) && !FAVISource->Empty();
    FForm->pnlAVI->SetVisible(avi);
    // The video's size comes from its header; a video that cannot be read takes no room.
    int aw = 0, ah = 0;
    if (avi) {
        try {
            TjexAVIInfo info = FAVISource->Info();
            aw = info.Width;
            ah = info.Height;
        } catch (const rtl::Exception&) {
            FForm->pnlAVI->SetVisible(false);
        }
    }
    int w = FForm->ClientWidth(), h = FForm->ClientHeight();
    TRect text = Rect(8, 8, w - 8, h - 8);
    switch (FAVIPosition) {
    case japLeft:
        FForm->pnlAVI->SetBounds(8, 8, aw, ah);
        if (aw) text.Left += aw + 8;
        break;
    case japRight:
        FForm->pnlAVI->SetBounds(w - 8 - aw, 8, aw, ah);
        if (aw) text.Right -= aw + 8;
        break;
    case japTop:
        FForm->pnlAVI->SetBounds((w - aw) / 2, 8, aw, ah);
        if (ah) text.Top += ah + 8;
        break;
    case japBottom:
        FForm->pnlAVI->SetBounds((w - aw) / 2, h - 8 - ah, aw, ah);
        if (ah) text.Bottom -= ah + 8;
        break;
    }
    int line = TextHeightOf(FMessage1Font.get()) + 4;
    FForm->lblMessage1->SetBounds(text.Left, text.Top, text.Width(), line);
    FForm->lblMessage2->SetBounds(text.Left, text.Top + line, text.Width(), line);
    FForm->pbProgress->SetBounds(text.Left, text.Top + 2 * line + 4, text.Width(), 16);
}

void TjexBusy::Show() {
    if (!FForm) FForm = NewForm<TjexBusyForm>(nullptr);
    FForm->SetPosition(FDlgPosition);
    FForm->SetBounds(FDlgLeft, FDlgTop, FDlgWidth, FDlgHeight);
    FForm->SetFormStyle(FOptions.Contains(jboStayOnTop) ? fsStayOnTop : fsNormal);
    UpdateForm();
    bool wasShowing = FForm->Visible();
    FForm->Show();
    if (wasShowing) return;
    FShownAt = std::chrono::steady_clock::now();
    if (FOptions.Contains(jboHourGlass)) {
        FSavedCursor = Screen()->Cursor();
        Screen()->SetCursor(crHourGlass);
    }
    FSoundPlayed = FOptions.Contains(jboPlaySound) && jexPlayWave(*FSound);
}

void TjexBusy::Hide() {
    if (!Showing()) return;
    // The window stays up for MinDuration in all, so that a quick job does not just flash it.
    auto left = std::chrono::milliseconds(FMinDuration) - (std::chrono::steady_clock::now() - FShownAt);
    if (left > std::chrono::milliseconds(0)) std::this_thread::sleep_for(left);
    FForm->Hide();
    if (FOptions.Contains(jboHourGlass)) Screen()->SetCursor(FSavedCursor);
}

bool TjexBusy::Showing() const {
    return FForm && FForm->Visible();
}

static const TjexLibraryUnit<TjexBusy, TjexSplash> jexsplashUnit("jexsplash");

} // namespace jex
