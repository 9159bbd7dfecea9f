// The library's message box and progress window components.
#include "jex/jexdialogs.h"

#include <algorithm>

#include "vcl/uiservice.h"

namespace jex {

using namespace vcl;

JEX_IMPLEMENT_CLASS(TjexMessageDlg, rtl::TComponent, "jexdialogs") {
    d.Property("Buttons", &TjexMessageDlg::Buttons, &TjexMessageDlg::SetButtons)
        .Default(TMsgDlgButtons{mbOK}.Bits());
    d.Property("Caption", &TjexMessageDlg::Caption, &TjexMessageDlg::SetCaption);
    d.Property("DlgType", &TjexMessageDlg::DlgType, &TjexMessageDlg::SetDlgType).Default(mtInformation);
    d.Property("HelpContext", &TjexMessageDlg::HelpContext, &TjexMessageDlg::SetHelpContext,
               rtl::TypeInfo_THelpContext())
        .Default(0);
    d.Property("Lines", &TjexMessageDlg::Lines, &TjexMessageDlg::SetLines);
}

TjexMessageDlg::TjexMessageDlg(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner), FLines(std::make_unique<rtl::TStringList>()) {}

TjexMessageDlg::~TjexMessageDlg() = default;

std::string TjexMessageDlg::MessageText() const {
    std::string text;
    for (int i = 0; i < FLines->Count(); ++i)
        text += (i ? "\r\n" : "") + (*FLines)[i];
    return text;
}

TModalResult TjexMessageDlg::Execute() {
    TMessageRequest request;
    request.Text = MessageText();
    request.Caption = FCaption.empty() ? MsgDlgTypeCaption(FDlgType) : FCaption;
    request.Type = FDlgType;
    request.Buttons = FButtons.Empty() ? TMsgDlgButtons{mbOK} : FButtons;
    request.HelpCtx = FHelpContext;
    return UI().MessageDlg(request);
}

// ---- Progress
// ----------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexProgressForm, TForm, "jexdialogs") {}

TjexProgressForm::TjexProgressForm(rtl::TComponent* AOwner) : TForm(AOwner) {
    SetName("jexProgressForm");
    SetBorderStyle(bsDialog);
    SetBorderIcons({});
    SetPosition(poScreenCenter);
    SetClientWidth(300);
    SetClientHeight(96);
    lblMessage = new TLabel(this);
    lblMessage->SetName("lblMessage");
    lblMessage->SetParent(this);
    lblMessage->SetBounds(12, 12, 276, 13);
    lblPercent = new TLabel(this);
    lblPercent->SetName("lblPercent");
    lblPercent->SetParent(this);
    lblPercent->SetBounds(12, 36, 276, 13);
    lblPercent->SetCaption("0%");
    btnCancel = new TButton(this);
    btnCancel->SetName("btnCancel");
    btnCancel->SetParent(this);
    btnCancel->SetCaption("Cancel");
    btnCancel->SetCancel(true);
    btnCancel->SetBounds(113, 60, 75, 25);
    btnCancel->OnClick = TNotifyEvent(this, &TjexProgressForm::btnCancelClick);
}

void TjexProgressForm::btnCancelClick(rtl::TObject*) {
    if (Dialog) Dialog->Cancel();
}

JEX_IMPLEMENT_CLASS(TjexProgressDlg, rtl::TComponent, "jexdialogs") {
    d.Property("Caption", &TjexProgressDlg::Caption, &TjexProgressDlg::SetCaption);
    d.Property("Max", &TjexProgressDlg::Max, &TjexProgressDlg::SetMax).Default(100);
    d.Property("Message", &TjexProgressDlg::Message, &TjexProgressDlg::SetMessage);
    d.Property("Min", &TjexProgressDlg::Min, &TjexProgressDlg::SetMin).Default(0);
    d.Property("Position", &TjexProgressDlg::Position, &TjexProgressDlg::SetPosition).Default(0);
    d.Property("ShowCancel", &TjexProgressDlg::ShowCancel, &TjexProgressDlg::SetShowCancel).Default(true);
    d.Property("Step", &TjexProgressDlg::Step, &TjexProgressDlg::SetStep).Default(10);
    d.Event("OnCancel", &TjexProgressDlg::OnCancel);
}

TjexProgressDlg::TjexProgressDlg(rtl::TComponent* AOwner) : rtl::TComponent(AOwner) {}

TjexProgressDlg::~TjexProgressDlg() {
    if (FForm) {
        FForm->Dialog = nullptr;
        FForm->Free();
    }
}

void TjexProgressDlg::SetCaption(const std::string& Value) {
    FCaption = Value;
    UpdateForm();
}

void TjexProgressDlg::SetMessage(const std::string& Value) {
    FMessage = Value;
    UpdateForm();
}

void TjexProgressDlg::SetMin(int Value) {
    FMin = Value;
    if (FMax < FMin) FMax = FMin;
    SetPosition(FPosition);
}

void TjexProgressDlg::SetMax(int Value) {
    FMax = Value;
    if (FMin > FMax) FMin = FMax;
    SetPosition(FPosition);
}

void TjexProgressDlg::SetPosition(int Value) {
    // While a form file is read, Min and Max may come after Position.
    FPosition = IsLoading() ? Value : std::clamp(Value, FMin, FMax);
    UpdateForm();
}

void TjexProgressDlg::SetShowCancel(bool Value) {
    FShowCancel = Value;
    UpdateForm();
}

int TjexProgressDlg::Percent() const {
    if (FMax <= FMin) return 100;
    return static_cast<int>((int64_t(FPosition) - FMin) * 100 / (int64_t(FMax) - FMin));
}

void TjexProgressDlg::UpdateForm() {
    if (!FForm) return;
    FForm->SetCaption(FCaption);
    FForm->lblMessage->SetCaption(FMessage);
    FForm->lblPercent->SetCaption(std::to_string(Percent()) + "%");
    FForm->btnCancel->SetVisible(FShowCancel);
}

void TjexProgressDlg::Show() {
    if (!FForm) {
        FForm = NewForm<TjexProgressForm>(nullptr);
        FForm->Dialog = this;
    }
    FCancelled = false;
    UpdateForm();
    FForm->Show();
}

void TjexProgressDlg::Hide() {
    if (FForm) FForm->Hide();
}

bool TjexProgressDlg::Showing() const {
    return FForm && FForm->Visible();
}

void TjexProgressDlg::Cancel() {
    FCancelled = true;
    Hide();
    OnCancel(this);
}

static const TjexLibraryUnit<TjexMessageDlg, TjexProgressDlg> jexdialogsUnit("jexdialogs");

} // namespace jex
