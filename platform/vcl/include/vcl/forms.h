// Forms, frames, scroll boxes, and the application and screen objects: modal and modeless showing through
// the user-interface service, closing with close actions, focus, key routing, hints and help.
#pragma once

#include <exception>
#include <string>
#include <vector>

#include "vcl/controls.h"
#include "vcl/menus.h"
#include "vcl/uiservice.h"

namespace vcl {

// ---- Scrolling containers -------------------------------------------------------------------------------
JEX_ENUM(TScrollBarKind, sbHorizontal, sbVertical)

class TControlScrollBar : public rtl::TPersistent {
    JEX_CLASS(TControlScrollBar, rtl::TPersistent)
    explicit TControlScrollBar(TScrollBarKind Kind = sbHorizontal) : FKind(Kind) {}
    TControlScrollBar() = default;
    void Assign(rtl::TPersistent* Source) override;
    TScrollBarKind Kind() const { return FKind; }
    int Increment() const { return FIncrement; }
    void SetIncrement(int v) { FIncrement = v; }
    int Margin() const { return FMargin; }
    void SetMargin(int v) { FMargin = v; }
    int Position() const { return FPosition; }
    void SetPosition(int v) { FPosition = v < 0 ? 0 : v; }
    int Range() const { return FRange; }
    void SetRange(int v) { FRange = v; }
    bool Smooth() const { return FSmooth; }
    void SetSmooth(bool v) { FSmooth = v; }
    bool Tracking() const { return FTracking; }
    void SetTracking(bool v) { FTracking = v; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool v) { FVisible = v; }

private:
    TScrollBarKind FKind = sbHorizontal;
    int FIncrement = 8, FMargin = 0, FPosition = 0, FRange = 0;
    bool FSmooth = false, FTracking = false, FVisible = true;
};

class TScrollingWinControl : public TWinControl {
    JEX_CLASS(TScrollingWinControl, TWinControl)
    explicit TScrollingWinControl(TComponent* AOwner);
    ~TScrollingWinControl() override;
    bool AutoScroll() const { return FAutoScroll; }
    void SetAutoScroll(bool v) { FAutoScroll = v; }
    TControlScrollBar* HorzScrollBar() const { return FHorz; }
    void SetHorzScrollBar(TControlScrollBar* v) { FHorz->Assign(v); }
    TControlScrollBar* VertScrollBar() const { return FVert; }
    void SetVertScrollBar(TControlScrollBar* v) { FVert->Assign(v); }
    void ScrollInView(TControl* AControl) {}

private:
    bool FAutoScroll = true;
    TControlScrollBar* FHorz;
    TControlScrollBar* FVert;
};

class TScrollBox : public TScrollingWinControl {
    JEX_CLASS(TScrollBox, TScrollingWinControl)
    explicit TScrollBox(TComponent* AOwner);
    TBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TBorderStyle v) { FBorderStyle = v; }
    TRect AdjustClientRect() const override;

private:
    TBorderStyle FBorderStyle = bsSingle;
};

// ---- Forms ----------------------------------------------------------------------------------------------
JEX_ENUM(TPosition, poDesigned, poDefault, poDefaultPosOnly, poDefaultSizeOnly, poScreenCenter,
         poDesktopCenter, poMainFormCenter, poOwnerFormCenter)
JEX_ENUM(TFormStyle, fsNormal, fsMDIChild, fsMDIForm, fsStayOnTop)
JEX_ENUM(TBorderIcon, biSystemMenu, biMinimize, biMaximize, biHelp)
JEX_SET(TBorderIcons, TBorderIcon)
JEX_ENUM(TWindowState, wsNormal, wsMinimized, wsMaximized)
JEX_ENUM(TCloseAction, caNone, caHide, caFree, caMinimize)
JEX_EVENT_TYPE(TCloseEvent, void(rtl::TObject* Sender, TCloseAction& Action))
JEX_EVENT_TYPE(TCloseQueryEvent, void(rtl::TObject* Sender, bool& CanClose))

// A form built in code constructs its controls in its constructor and wires their events to its methods;
// create it with NewForm<T>(...) (or call AfterConstruction yourself) so that OnCreate runs after the
// whole object exists, and free it with Free() so that OnDestroy runs while it still does.
class TCustomForm : public TScrollingWinControl {
    JEX_CLASS(TCustomForm, TScrollingWinControl)
    explicit TCustomForm(TComponent* AOwner);
    ~TCustomForm() override;
    // Raises OnCreate once.
    virtual void AfterConstruction();
    // Raises OnDestroy once.
    void BeforeDestruction() override;

    TFormBorderStyle BorderStyle() const { return FBorderStyle; }
    void SetBorderStyle(TFormBorderStyle v);
    TBorderIcons BorderIcons() const { return FBorderIcons; }
    void SetBorderIcons(TBorderIcons v) { FBorderIcons = v; }
    TPosition Position() const { return FPosition; }
    void SetPosition(TPosition v) { FPosition = v; }
    TFormStyle FormStyle() const { return FFormStyle; }
    void SetFormStyle(TFormStyle v) { FFormStyle = v; }
    TWindowState WindowState() const { return FWindowState; }
    void SetWindowState(TWindowState v) { FWindowState = v; }
    bool KeyPreview() const { return FKeyPreview; }
    void SetKeyPreview(bool v) { FKeyPreview = v; }
    TMainMenu* Menu() const { return FMenu; }
    void SetMenu(TMainMenu* v);
    std::string HelpFile() const { return FHelpFile; }
    void SetHelpFile(const std::string& v) { FHelpFile = v; }
    int PixelsPerInch() const { return FPixelsPerInch; }
    void SetPixelsPerInch(int v) { FPixelsPerInch = v; }
    bool Scaled() const { return FScaled; }
    void SetScaled(bool v) { FScaled = v; }
    bool OldCreateOrder() const { return FOldCreateOrder; }
    void SetOldCreateOrder(bool v) { FOldCreateOrder = v; }
    int TextHeight() const { return FTextHeight; }
    void SetTextHeight(int v) { FTextHeight = v; }

    TModalResult ModalResult() const { return FModalResult; }
    void SetModalResult(TModalResult v) { FModalResult = v; }
    bool Modal() const { return FModal; }
    // True between the start of the show and the end of the close.
    bool Active() const { return FActive; }

    // Shows the form modally through the user-interface service and returns its ModalResult. Raises
    // EInvalidOperation "Cannot make a visible window modal" when the form is visible or disabled.
    virtual TModalResult ShowModal();
    // Shows the form modelessly (Visible := true) or hides it.
    void Show();
    void Hide() { SetVisible(false); }
    // A modal form gets ModalResult mrCancel (its modal loop then closes it); a modeless one asks
    // OnCloseQuery, raises OnClose and acts on the close action.
    void Close();
    // OnCloseQuery; true when the form may close.
    virtual bool CloseQuery();
    // Runs the close of a modal form whose ModalResult became non-zero: OnCloseQuery and OnClose; a refusal
    // (or caNone) resets ModalResult to mrNone and returns false. caFree releases the form.
    bool CloseModal();
    // Frees the form at the next Application()->ProcessMessages (after its event handlers have returned).
    void Release();

    TWinControl* ActiveControl() const { return FActiveControl; }
    // Raises EInvalidOperation "Cannot focus a disabled or invisible window" for a control that cannot
    // take the focus.
    void SetActiveControl(TWinControl* Control);
    TWinControl* FocusedControl() const { return FFocusedControl; }
    void FocusControl(TWinControl* Control);
    // Moves the focus, raising OnExit on the controls left and OnEnter on those entered.
    void SetFocusedControl(TWinControl* Control);
    // Focus moves to the next (previous) control in tab order.
    void SelectNext(TWinControl* CurControl, bool GoForward, bool CheckTabStop);
    // A control is leaving the form: the form forgets it as the active or focused control.
    void ControlRemoving(TControl* Control);

    // A key a person pressed while Target had the focus, routed as the platform does: menu shortcuts,
    // then dialog keys (Tab moves the focus, Enter presses the focused or default button, Escape the
    // cancel button, F1 asks for help), then KeyDown / KeyPress / KeyUp with the form's KeyPreview first.
    void DispatchKey(TWinControl* Target, uint16_t Key, TShiftState Shift);
    // The button Enter (Escape) presses, or nil.
    TControl* DefaultButton() const;
    TControl* CancelButton() const;

    TRect ClientRect() const override;
    TPoint ClientOrigin() const override;
    void SetVisible(bool v) override;
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void Describe(TControlDesc& d) const override;
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;

    // Activation as the service reports it (the platform's WM_ACTIVATE).
    void Activate();
    void Deactivate();

    TNotifyEvent OnActivate;
    TCloseEvent OnClose;
    TCloseQueryEvent OnCloseQuery;
    TNotifyEvent OnCreate;
    TNotifyEvent OnDeactivate;
    TNotifyEvent OnDestroy;
    TNotifyEvent OnHide;
    TNotifyEvent OnShow;

protected:
    virtual void DoShow() { OnShow(this); }
    virtual void DoHide() { OnHide(this); }
    virtual void DoClose(TCloseAction& Action) { OnClose(this, Action); }
    void PlaceOnScreen();
    int FrameWidth() const;
    int CaptionHeight() const;

private:
    void ShowingChanged(bool showing);
    TFormBorderStyle FBorderStyle = bsSizeable;
    TBorderIcons FBorderIcons{biSystemMenu, biMinimize, biMaximize};
    TPosition FPosition = poDesigned;
    TFormStyle FFormStyle = fsNormal;
    TWindowState FWindowState = wsNormal;
    bool FKeyPreview = false;
    TMainMenu* FMenu = nullptr;
    std::string FHelpFile;
    int FPixelsPerInch = 96;
    bool FScaled = true;
    bool FOldCreateOrder = false;
    int FTextHeight = 13;
    TModalResult FModalResult = mrNone;
    bool FModal = false;
    bool FActive = false;
    bool FCreated = false;
    bool FDestroyRaised = false;
    TWinControl* FActiveControl = nullptr;
    TWinControl* FFocusedControl = nullptr;
};

class TForm : public TCustomForm {
    JEX_CLASS(TForm, TCustomForm)
    using TCustomForm::TCustomForm;
};

// Creates a form built in code and raises its OnCreate.
template <class F, class... A> F* NewForm(A&&... args) {
    F* f = new F(std::forward<A>(args)...);
    try {
        f->AfterConstruction();
    } catch (...) {
        f->Free();
        throw;
    }
    return f;
}

class TCustomFrame : public TScrollingWinControl {
    JEX_CLASS(TCustomFrame, TScrollingWinControl)
    explicit TCustomFrame(TComponent* AOwner);
    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
};

class TFrame : public TCustomFrame {
    JEX_CLASS(TFrame, TCustomFrame)
    using TCustomFrame::TCustomFrame;
};

// ---- Application and screen ---------------------------------------------------------------------------
struct THintInfo {
    TControl* HintControl = nullptr;
    TPoint HintPos; // screen position of the hint window
    int HintMaxWidth = 0;
    TColor HintColor = clInfoBk;
    TRect CursorRect; // in the hint control's client coordinates
    TPoint CursorPos; // in the hint control's client coordinates
    int ReshowTimeout = 0;
    int HideTimeout = 0;
    std::string HintStr;
    void* HintData = nullptr;
};

JEX_EVENT_TYPE(TShowHintEvent, void(std::string& HintStr, bool& CanShow, THintInfo& HintInfo))
JEX_EVENT_TYPE(TExceptionEvent, void(rtl::TObject* Sender, const rtl::Exception& E))
JEX_EVENT_TYPE(THelpEvent, bool(uint16_t Command, int64_t Data, bool& CallHelp))

class TApplication : public TComponent {
    JEX_CLASS(TApplication, TComponent)
    explicit TApplication(TComponent* AOwner);
    ~TApplication() override;

    std::string Title() const { return FTitle; }
    void SetTitle(const std::string& v) { FTitle = v; }
    std::string HelpFile() const { return FHelpFile; }
    void SetHelpFile(const std::string& v) { FHelpFile = v; }
    std::string ExeName() const { return FExeName; }
    void SetExeName(const std::string& v) { FExeName = v; }
    TCustomForm* MainForm() const { return FMainForm; }
    void SetMainForm(TCustomForm* f) { FMainForm = f; }
    bool Terminated() const { return FTerminated; }
    void Terminate() { FTerminated = true; }

    bool ShowHint() const { return FShowHint; }
    void SetShowHint(bool v) { FShowHint = v; }
    TColor HintColor() const { return FHintColor; }
    void SetHintColor(TColor v) { FHintColor = v; }
    int HintPause() const { return FHintPause; }
    void SetHintPause(int v) { FHintPause = v; }
    int HintShortPause() const { return FHintShortPause; }
    void SetHintShortPause(int v) { FHintShortPause = v; }
    int HintHidePause() const { return FHintHidePause; }
    void SetHintHidePause(int v) { FHintHidePause = v; }
    // The long part of the hint under the mouse; setting a different value raises OnHint.
    std::string Hint() const { return FHint; }
    void SetHint(const std::string& v);

    // The mouse rests on Control at CursorPos (client coordinates): finds the hint control (the nearest
    // control up the parents with ShowHint) and its hint text (the nearest non-empty Hint up the parents),
    // builds THintInfo, lets OnShowHint change it or cancel, and shows it through the service. Returns the
    // text shown, empty when no hint appears. Also sets Hint to the long hint (raising OnHint).
    std::string ActivateHint(TControl* Control, TPoint CursorPos = {});
    void CancelHint();

    // Help through the service: OnHelp may handle the command or stop it. HelpFile is the active form's
    // HelpFile when it has one, else the application's.
    bool HelpCommand(unsigned Command, int64_t Data);
    bool HelpContext(THelpContext Context);
    bool HelpKeyword(const std::string& Keyword);
    bool HelpJump(const std::string& JumpID);
    std::string CurrentHelpFile() const;

    // Call inside a catch block: EAbort is ignored, OnException gets the exception when assigned,
    // otherwise the service shows it.
    void HandleException(rtl::TObject* Sender);
    void ShowException(const rtl::Exception& E);
    // Frees the forms released since the last call.
    void ProcessMessages();
    // A message box with MB_* flags through the service; returns the ID of the button pressed (IDOK 1 ...).
    int MessageBox(const std::string& Text, const std::string& Caption, unsigned Flags = MB_OK);
    template <class T> void CreateForm(T*& Reference) {
        Reference = NewForm<T>(this);
        if (!FMainForm) FMainForm = Reference;
    }

    void ReleaseForm(TCustomForm* Form);
    void FormDestroyed(TCustomForm* Form);

    TShowHintEvent OnShowHint;
    TNotifyEvent OnHint;
    TExceptionEvent OnException;
    THelpEvent OnHelp;

private:
    std::string FTitle, FHelpFile, FExeName, FHint;
    TCustomForm* FMainForm = nullptr;
    bool FTerminated = false;
    bool FShowHint = true;
    TColor FHintColor = clInfoBk;
    int FHintPause = 500, FHintShortPause = 50, FHintHidePause = 2500;
    std::vector<TCustomForm*> FReleased;
};

class TScreen : public TComponent {
    JEX_CLASS(TScreen, TComponent)
    explicit TScreen(TComponent* AOwner);
    ~TScreen() override;
    TCursor Cursor() const { return FCursor; }
    // Tells the service, which shows the cursor (crHourGlass while working ...).
    void SetCursor(TCursor v);
    int FormCount() const { return static_cast<int>(FForms.size()); }
    TCustomForm* Forms(int index) const;
    TCustomForm* ActiveForm() const { return FActiveForm; }
    TWinControl* ActiveControl() const;
    // Installed font families, sorted; read from the system's font folders on first use.
    TStrings* Fonts();
    // Whether a family of Fonts() is a TrueType/OpenType (scalable outline) font.
    bool IsTrueTypeFont(const std::string& Family);
    int Width() const { return FWidth; }
    int Height() const { return FHeight; }
    void SetSize(int w, int h) {
        FWidth = w;
        FHeight = h;
    }
    int PixelsPerInch() const { return 96; }
    TFont* HintFont() const { return FHintFont.get(); }

    void AddForm(TCustomForm* f);
    void RemoveForm(TCustomForm* f);
    void FormActivated(TCustomForm* f);
    void FormDeactivated(TCustomForm* f);

private:
    void LoadFonts();
    TCursor FCursor = crDefault;
    std::vector<TCustomForm*> FForms;
    std::vector<TCustomForm*> FActivation; // shown forms, most recently activated last
    TCustomForm* FActiveForm = nullptr;
    std::unique_ptr<TStringList> FFonts;
    std::vector<std::string> FTrueType;
    int FWidth = 1024, FHeight = 768;
    std::unique_ptr<TFont> FHintFont;
};

// The process-wide application and screen objects, created on first use.
TApplication* Application();
TScreen* Screen();

} // namespace vcl
