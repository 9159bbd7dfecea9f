// Dialog components of the library's dialog page: a configurable message box and a modeless progress
// window with a cancel button.
#pragma once

#include <memory>
#include <string>

#include "jex/jexcommon.h"
#include "vcl/dialogs.h"
#include "vcl/forms.h"
#include "vcl/stdctrls.h"

namespace jex {

// A message box set up at design time: Caption (the title; empty gives the type's title), the message
// Lines, its icon (DlgType), Buttons and HelpContext. Execute shows it through the user-interface service.
class TjexMessageDlg : public rtl::TComponent {
    JEX_CLASS(TjexMessageDlg, rtl::TComponent)
    explicit TjexMessageDlg(rtl::TComponent* AOwner);
    ~TjexMessageDlg() override;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& Value) { FCaption = Value; }
    rtl::TStrings* Lines() const { return FLines.get(); }
    void SetLines(rtl::TStrings* Value) { FLines->Assign(Value); }
    vcl::TMsgDlgType DlgType() const { return FDlgType; }
    void SetDlgType(vcl::TMsgDlgType Value) { FDlgType = Value; }
    vcl::TMsgDlgButtons Buttons() const { return FButtons; }
    void SetButtons(vcl::TMsgDlgButtons Value) { FButtons = Value; }
    vcl::THelpContext HelpContext() const { return FHelpContext; }
    void SetHelpContext(vcl::THelpContext Value) { FHelpContext = Value; }
    // The text shown: the lines joined by line breaks.
    std::string MessageText() const;
    // Shows the box (an OK button when Buttons is empty) and returns the modal result of the button
    // pressed; raises EInvalidOperation when no user interface is installed.
    vcl::TModalResult Execute();

private:
    std::string FCaption;
    std::unique_ptr<rtl::TStringList> FLines;
    vcl::TMsgDlgType FDlgType = vcl::mtInformation;
    vcl::TMsgDlgButtons FButtons{vcl::mbOK};
    vcl::THelpContext FHelpContext = 0;
};

class TjexProgressDlg;

// The window a progress dialog shows: its message ("lblMessage"), the percentage done ("lblPercent") and a
// cancel button ("btnCancel").
class TjexProgressForm : public vcl::TForm {
    JEX_CLASS(TjexProgressForm, vcl::TForm)
    explicit TjexProgressForm(rtl::TComponent* AOwner);
    vcl::TLabel* lblMessage;
    vcl::TLabel* lblPercent;
    vcl::TButton* btnCancel;
    void btnCancelClick(rtl::TObject* Sender);
    TjexProgressDlg* Dialog = nullptr;
};

// A modeless progress window: Show it, move Position (or StepIt) from Min to Max while working, and check
// Cancelled, which a person's Cancel sets (raising OnCancel and hiding the window).
class TjexProgressDlg : public rtl::TComponent {
    JEX_CLASS(TjexProgressDlg, rtl::TComponent)
    explicit TjexProgressDlg(rtl::TComponent* AOwner);
    ~TjexProgressDlg() override;
    std::string Caption() const { return FCaption; }
    void SetCaption(const std::string& Value);
    std::string Message() const { return FMessage; }
    void SetMessage(const std::string& Value);
    int Min() const { return FMin; }
    void SetMin(int Value);
    int Max() const { return FMax; }
    void SetMax(int Value);
    // Kept within Min..Max.
    int Position() const { return FPosition; }
    void SetPosition(int Value);
    int Step() const { return FStep; }
    void SetStep(int Value) { FStep = Value; }
    bool ShowCancel() const { return FShowCancel; }
    void SetShowCancel(bool Value);
    // Position as a whole percentage of Min..Max.
    int Percent() const;
    void StepIt() { SetPosition(FPosition + FStep); }

    // Shows the window (created on first use; Cancelled is cleared) and hides it.
    void Show();
    void Hide();
    bool Showing() const;
    bool Cancelled() const { return FCancelled; }
    void Cancel();
    TjexProgressForm* Form() const { return FForm; }
    rtl::TNotifyEvent OnCancel;

private:
    void UpdateForm();
    std::string FCaption = "Progress";
    std::string FMessage;
    int FMin = 0, FMax = 100, FPosition = 0, FStep = 10;
    bool FShowCancel = true;
    bool FCancelled = false;
    TjexProgressForm* FForm = nullptr;
};

} // namespace jex
