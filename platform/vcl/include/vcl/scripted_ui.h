// A user-interface service driven by a script: handlers queued per form class act on each form shown
// through the same entry points a person's actions reach, answers are queued for message boxes and common
// dialogs, and everything shown is recorded. Tests install it; a host can use the form driver alone to
// feed a person's actions to a form.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "vcl/dialogs.h"
#include "vcl/formdesc.h"
#include "vcl/forms.h"

namespace vcl {

// A script asked for something the form cannot do, or left something unanswered.
class EScriptedUIError : public rtl::Exception {
public:
    using Exception::Exception;
    const char* ClassName() const noexcept override { return "EScriptedUIError"; }
};

class TScriptedUI;

// Acts on one open form as a person would. Each action first checks that the control can be reached
// (showing and enabled, up through its parents), moves the focus there when a click would, runs the
// control's entry point, and then lets a modal form close when its ModalResult was set (OnCloseQuery and
// OnClose may keep it open). An exception raised by the form's own event handlers goes to
// Application()->HandleException, as it does on the platform; a control that cannot take the action
// raises EScriptedUIError. Controls are named by their component name, or "Frame1.Edit1" for a control
// owned by a frame.
class TFormDriver {
public:
    TFormDriver(TCustomForm* Form, TScriptedUI* Owner = nullptr);
    TCustomForm* Form() const { return FForm; }
    // True once the form was closed by an action (a modal form's run has ended, a modeless one is hidden).
    bool Closed() const { return FClosed; }

    // The control with this name; raises EScriptedUIError when there is none.
    TControl* Control(const std::string& Name) const;
    template <class T> T* Get(const std::string& Name) const {
        TControl* c = Control(Name);
        if (auto* t = dynamic_cast<T*>(c)) return t;
        throw EScriptedUIError("Control '" + Name + "' is a " + c->ClassName() + ", not the kind asked for");
    }

    void Click(const std::string& Name);
    void DblClick(const std::string& Name);
    // Replaces the text of an edit, memo, combo box or spin edit as typing does (OnChange follows).
    void Type(const std::string& Name, const std::string& Text);
    void Check(const std::string& Name, bool Checked);
    // Selects an item: list box, combo box, radio group, outline or tree node ("Parent\\Child" text path
    // for outlines and trees, with the control's separator), notebook page, page control or tab.
    void Select(const std::string& Name, int Index);
    void Select(const std::string& Name, const std::string& Text);
    void SelectMulti(const std::string& Name, const std::vector<int>& Indexes);
    void SelectCell(const std::string& Name, int ACol, int ARow);
    void SetCell(const std::string& Name, int ACol, int ARow, const std::string& Text);
    // A key pressed while the control has the focus (it gets the focus first).
    void PressKey(const std::string& Name, uint16_t Key, TShiftState Shift = {});
    // A key pressed on whatever has the focus (the form itself when nothing has).
    void PressKey(uint16_t Key, TShiftState Shift = {});
    // Sets a spin edit's value as its arrows and typing do (clamped, OnChange follows).
    void SetValue(const std::string& Name, int Value);
    // Moves the focus (OnExit of the control left, OnEnter of this one).
    void Focus(const std::string& Name);
    // A menu item (of the form's menu or a popup menu) chosen by a person.
    void ClickMenu(const std::string& ItemName);
    // Drags Source onto Target; true when the target accepted the drop.
    bool DragDrop(const std::string& Source, const std::string& Target, int X = 0, int Y = 0);
    // The mouse rests on the control: the hint text shown, or empty.
    std::string Hint(const std::string& Name, int X = 0, int Y = 0);
    // Sets the form's ModalResult (a modal form then closes through OnCloseQuery/OnClose).
    void Close(TModalResult Result);
    // The close box: Close() on the form.
    void CloseForm();

    TControlDesc Describe() const { return DescribeControl(FForm); }

private:
    template <class F> void Act(const std::string& Name, F action, bool focus);
    void RunGuarded(rtl::TObject* sender, const std::function<void()>& f);
    void AfterAction();
    void EnsureOpen() const;
    std::string FormText() const;
    TCustomForm* FForm;
    TScriptedUI* FOwner;
    bool FClosed = false;
};

class TScriptedUI : public TUserInterface {
public:
    using TFormHandler = std::function<void(TFormDriver&)>;
    using TMessageAnswer = std::function<TModalResult(const TMessageRequest&)>;

    // Installs itself as the service; the destructor puts back the one installed before.
    TScriptedUI();
    ~TScriptedUI() override;
    TScriptedUI(const TScriptedUI&) = delete;
    TScriptedUI& operator=(const TScriptedUI&) = delete;

    // Queues a handler for the next modal show of a form of this class (or of a class it derives from).
    void OnForm(const std::string& ClassName, TFormHandler Handler);
    // A driver for an open modeless form of this class (the last shown); raises when there is none.
    TFormDriver OpenForm(const std::string& ClassName);
    TFormDriver Drive(TCustomForm* Form) { return TFormDriver(Form, this); }

    // Message boxes: queued answers in order; an answer must be one of the buttons offered. With
    // StrictMessages false, a box with a single button needs no queued answer and gets that button.
    void AnswerMessage(TModalResult Result);
    void AnswerMessage(TMessageAnswer Answer);
    bool StrictMessages = false;

    // Common dialogs: queued answers per kind; nothing (std::nullopt) cancels.
    void AnswerOpen(std::optional<std::vector<std::string>> Files);
    void AnswerOpen(const std::string& File) { AnswerOpen(std::vector<std::string>{File}); }
    void AnswerSave(std::optional<std::string> File);
    void AnswerColor(std::optional<TColor> Color);
    void AnswerFont(std::function<bool(TFont&)> Change); // returns false to cancel
    void AnswerFolder(std::optional<std::string> Folder);
    // Queued answers not used yet (forms, messages and dialogs together).
    int PendingAnswers() const;

    // When set, exceptions from event handlers reach the test instead of the application's handler.
    bool PropagateExceptions = false;
    int ShellExecuteResult = 42;
    bool HelpResult = true;

    struct TShownForm {
        std::string ClassName;
        std::string Caption;
        bool Modal = false;
        TControlDesc AtShow;
        TControlDesc AtClose;
        TModalResult Result = mrNone;
        bool Closed = false;
    };
    struct TShownMessage {
        TMessageRequest Request;
        TModalResult Result = mrNone;
    };
    struct TShownDialog {
        std::string Kind; // "open", "save", "color", "font", "folder"
        std::string Title;
        bool Cancelled = false;
        std::vector<std::string> Proposed;
    };
    const std::vector<TShownForm>& Forms() const { return FForms; }
    const std::vector<TShownMessage>& Messages() const { return FMessages; }
    const std::vector<TShownDialog>& Dialogs() const { return FDialogs; }
    const std::vector<unsigned>& Beeps() const { return FBeeps; }
    const std::vector<TCursor>& Cursors() const { return FCursors; }
    const std::vector<TShellExecuteRequest>& ShellExecutes() const { return FShell; }
    const std::vector<THelpRequest>& HelpCalls() const { return FHelp; }
    const std::vector<std::string>& Hints() const { return FHints; }
    const std::vector<std::string>& Popups() const { return FPopups; } // popup menu names
    // Texts of the messages shown, in order.
    std::vector<std::string> MessageTexts() const;

    // TUserInterface
    TModalResult ShowModal(TCustomForm* Form) override;
    void ShowForm(TCustomForm* Form) override;
    void HideForm(TCustomForm* Form) override;
    TModalResult MessageDlg(const TMessageRequest& Request) override;
    std::optional<std::vector<std::string>> ChooseFiles(const TOpenDialog& Dialog) override;
    std::optional<TColor> ChooseColor(const TColorDialog& Dialog) override;
    bool ChooseFont(const TFontDialog& Dialog, TFont& Chosen) override;
    std::optional<std::string> ChooseFolder(const TFolderDialog& Dialog) override;
    void CursorChanged(TCursor Cursor) override { FCursors.push_back(Cursor); }
    void MessageBeep(unsigned Type) override { FBeeps.push_back(Type); }
    int ShellExecute(const TShellExecuteRequest& Request) override;
    bool Help(const THelpRequest& Request) override;
    void ShowHint(const THintInfo& Info) override { FHints.push_back(Info.HintStr); }
    void Popup(TPopupMenu* Menu, int X, int Y) override;

private:
    friend class TFormDriver;
    template <class T> T NextDialogAnswer(const std::string& kind, const std::string& title);
    TUserInterface* FPrevious;
    std::map<std::string, std::deque<TFormHandler>> FFormHandlers;
    std::deque<TMessageAnswer> FMessageAnswers;
    std::deque<std::optional<std::vector<std::string>>> FOpenAnswers, FSaveAnswers;
    std::deque<std::optional<TColor>> FColorAnswers;
    std::deque<std::function<bool(TFont&)>> FFontAnswers;
    std::deque<std::optional<std::string>> FFolderAnswers;
    std::vector<TShownForm> FForms;
    std::vector<const TCustomForm*> FFormObjects; // the form each record is about (identity only)
    std::vector<TShownMessage> FMessages;
    std::vector<TShownDialog> FDialogs;
    std::vector<unsigned> FBeeps;
    std::vector<TCursor> FCursors;
    std::vector<TShellExecuteRequest> FShell;
    std::vector<THelpRequest> FHelp;
    std::vector<std::string> FHints;
    std::vector<std::string> FPopups;
};

} // namespace vcl
