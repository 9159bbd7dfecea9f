// The user-interface service: the one interface through which every contact with a person goes (forms
// shown modally or not, message boxes, common dialogs, cursor, beeps, the shell, help). The host installs
// its implementation; tests install the scripted one (scripted_ui.h).
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "vcl/controls.h"

namespace vcl {

class TCustomForm;
class TOpenDialog;
class TColorDialog;
class TFontDialog;
class TFolderDialog;
class TPopupMenu;
struct THintInfo;

JEX_ENUM(TMsgDlgType, mtWarning, mtError, mtInformation, mtConfirmation, mtCustom)
JEX_ENUM(TMsgDlgBtn, mbYes, mbNo, mbOK, mbCancel, mbAbort, mbRetry, mbIgnore, mbAll, mbNoToAll, mbYesToAll,
         mbHelp)
JEX_SET(TMsgDlgButtons, TMsgDlgBtn)
inline constexpr TMsgDlgButtons mbYesNoCancel{mbYes, mbNo, mbCancel};
inline constexpr TMsgDlgButtons mbYesAllNoAllCancel{mbYes, mbYesToAll, mbNo, mbNoToAll, mbCancel};
inline constexpr TMsgDlgButtons mbOKCancel{mbOK, mbCancel};
inline constexpr TMsgDlgButtons mbAbortRetryIgnore{mbAbort, mbRetry, mbIgnore};

// The modal result a message-box button gives (mbHelp gives none: it asks for help and the box stays).
TModalResult ModalResultOf(TMsgDlgBtn Button);
// The button that gives a modal result, if any.
std::optional<TMsgDlgBtn> ButtonOfModalResult(TModalResult Result);
// Button captions as the platform shows them ("&Yes", "OK", "Cancel" ...).
std::string MsgDlgButtonCaption(TMsgDlgBtn Button);
// "Warning", "Error", "Information", "Confirm"; mtCustom gives the application title.
std::string MsgDlgTypeCaption(TMsgDlgType Type);

// One message box: its text, title, icon, buttons and help context.
struct TMessageRequest {
    std::string Text;
    std::string Caption;
    TMsgDlgType Type = mtInformation;
    TMsgDlgButtons Buttons{mbOK};
    THelpContext HelpCtx = 0;
};

struct TShellExecuteRequest {
    std::string Verb; // "open", "print", "" (default)
    std::string File; // a file name or a URL
    std::string Parameters;
    std::string Directory;
    int ShowCmd = 1; // SW_SHOWNORMAL
};
inline constexpr int SW_HIDE = 0, SW_SHOWNORMAL = 1, SW_SHOWMINIMIZED = 2, SW_SHOWMAXIMIZED = 3, SW_SHOW = 5;

// Help commands.
inline constexpr unsigned HELP_CONTEXT = 1, HELP_QUIT = 2, HELP_INDEX = 3, HELP_CONTENTS = 3,
                          HELP_HELPONHELP = 4, HELP_SETINDEX = 5, HELP_CONTEXTPOPUP = 8, HELP_FINDER = 11,
                          HELP_KEY = 0x101, HELP_COMMAND = 0x102, HELP_PARTIALKEY = 0x105;
struct THelpRequest {
    std::string HelpFile;
    unsigned Command = HELP_CONTEXT;
    int64_t Data = 0;    // the help context for HELP_CONTEXT
    std::string Keyword; // HELP_KEY, HELP_PARTIALKEY and HELP_COMMAND
};

// Message beep types.
inline constexpr unsigned MB_OK = 0, MB_ICONHAND = 0x10, MB_ICONQUESTION = 0x20, MB_ICONEXCLAMATION = 0x30,
                          MB_ICONASTERISK = 0x40, MB_ICONERROR = MB_ICONHAND,
                          MB_ICONWARNING = MB_ICONEXCLAMATION, MB_ICONINFORMATION = MB_ICONASTERISK,
                          MB_ICONSTOP = MB_ICONHAND;

// The service. A common dialog's implementation only proposes what the person chose; the dialog object
// checks the proposal against its options (file must exist, overwrite prompt ...) and asks again when it
// refuses one, so every implementation enforces the same rules.
class TUserInterface {
public:
    virtual ~TUserInterface() = default;

    // Runs Form modally. The form is already visible and marked modal. The implementation feeds the
    // person's actions to the form as events; after each action, while Form->ModalResult() is not mrNone,
    // it calls Form->CloseModal() and returns as soon as that returns true. The result is the form's
    // ModalResult.
    virtual TModalResult ShowModal(TCustomForm* Form) = 0;
    // A modeless form became visible or hidden.
    virtual void ShowForm(TCustomForm* Form) = 0;
    virtual void HideForm(TCustomForm* Form) = 0;

    // A message box; the result is the modal result of the button pressed.
    virtual TModalResult MessageDlg(const TMessageRequest& Request) = 0;

    // Common dialogs: the person's choice, or nothing when cancelled.
    virtual std::optional<std::vector<std::string>> ChooseFiles(const TOpenDialog& Dialog) = 0;
    virtual std::optional<TColor> ChooseColor(const TColorDialog& Dialog) = 0;
    // Fills Chosen (which starts as the dialog's font) and returns true, or returns false when cancelled.
    virtual bool ChooseFont(const TFontDialog& Dialog, TFont& Chosen) = 0;
    virtual std::optional<std::string> ChooseFolder(const TFolderDialog& Dialog) = 0;

    virtual void CursorChanged(TCursor Cursor) = 0;
    virtual void MessageBeep(unsigned Type) = 0;
    // Opens a file or URL with the desktop; returns a value above 32 on success, as the platform does.
    virtual int ShellExecute(const TShellExecuteRequest& Request) = 0;
    // Shows help; true when help was shown.
    virtual bool Help(const THelpRequest& Request) = 0;
    // A hint window appears for a control (the text is already final).
    virtual void ShowHint(const THintInfo& Info) {}
    virtual void HideHint() {}
    // A popup menu is shown at a screen position; the person then chooses one of its items (or none).
    virtual void Popup(TPopupMenu* Menu, int X, int Y) {}
    // An exception reached the application's handler: by default a message box with an error icon
    // under the application title.
    virtual void ShowException(const std::string& ClassName, const std::string& Message);
};

// The installed service; raises EInvalidOperation "No user interface is installed" when there is none.
TUserInterface& UI();
bool UIInstalled();
// Installs an implementation (nil uninstalls) and returns the one installed before.
TUserInterface* SetUI(TUserInterface* Implementation);

// Shell and beep through the service.
int ShellExecute(const std::string& Verb, const std::string& File, const std::string& Parameters = {},
                 const std::string& Directory = {}, int ShowCmd = SW_SHOWNORMAL);
void MessageBeep(unsigned Type);

} // namespace vcl
