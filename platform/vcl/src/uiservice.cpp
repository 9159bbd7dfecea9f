// The installed user-interface service, message-box button and type texts, and the shell and beep calls.
#include "vcl/uiservice.h"

#include "vcl/forms.h"

namespace vcl {

JEX_DEFINE_ENUM(TMsgDlgType)
JEX_DEFINE_ENUM(TMsgDlgBtn)
JEX_DEFINE_SET(TMsgDlgButtons, TMsgDlgBtn)

namespace {
TUserInterface*& Installed() {
    static TUserInterface* ui = nullptr;
    return ui;
}
} // namespace

TUserInterface& UI() {
    if (!Installed()) throw rtl::EInvalidOperation("No user interface is installed");
    return *Installed();
}

bool UIInstalled() {
    return Installed() != nullptr;
}

TUserInterface* SetUI(TUserInterface* Implementation) {
    TUserInterface* old = Installed();
    Installed() = Implementation;
    return old;
}

TModalResult ModalResultOf(TMsgDlgBtn Button) {
    switch (Button) {
    case mbYes:
        return mrYes;
    case mbNo:
        return mrNo;
    case mbOK:
        return mrOk;
    case mbCancel:
        return mrCancel;
    case mbAbort:
        return mrAbort;
    case mbRetry:
        return mrRetry;
    case mbIgnore:
        return mrIgnore;
    case mbAll:
        return mrAll;
    case mbNoToAll:
        return mrNoToAll;
    case mbYesToAll:
        return mrYesToAll;
    default:
        return mrNone;
    }
}

std::optional<TMsgDlgBtn> ButtonOfModalResult(TModalResult Result) {
    for (int b = mbYes; b <= mbYesToAll; ++b)
        if (ModalResultOf(static_cast<TMsgDlgBtn>(b)) == Result) return static_cast<TMsgDlgBtn>(b);
    return std::nullopt;
}

std::string MsgDlgButtonCaption(TMsgDlgBtn Button) {
    switch (Button) {
    case mbYes:
        return "&Yes";
    case mbNo:
        return "&No";
    case mbOK:
        return "OK";
    case mbCancel:
        return "Cancel";
    case mbAbort:
        return "&Abort";
    case mbRetry:
        return "&Retry";
    case mbIgnore:
        return "&Ignore";
    case mbAll:
        return "&All";
    case mbNoToAll:
        return "N&o to All";
    case mbYesToAll:
        return "Yes to &All";
    case mbHelp:
        return "&Help";
    }
    return {};
}

std::string MsgDlgTypeCaption(TMsgDlgType Type) {
    switch (Type) {
    case mtWarning:
        return "Warning";
    case mtError:
        return "Error";
    case mtInformation:
        return "Information";
    case mtConfirmation:
        return "Confirm";
    default:
        return Application()->Title();
    }
}

void TUserInterface::ShowException(const std::string& ClassName, const std::string& Message) {
    TMessageRequest r;
    r.Text = Message;
    r.Caption = Application()->Title();
    r.Type = mtError;
    r.Buttons = TMsgDlgButtons{mbOK};
    MessageDlg(r);
}

int ShellExecute(const std::string& Verb, const std::string& File, const std::string& Parameters,
                 const std::string& Directory, int ShowCmd) {
    TShellExecuteRequest r{Verb, File, Parameters, Directory, ShowCmd};
    return UI().ShellExecute(r);
}

void MessageBeep(unsigned Type) {
    UI().MessageBeep(Type);
}

} // namespace vcl
