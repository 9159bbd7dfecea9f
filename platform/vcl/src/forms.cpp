// Forms (modal and modeless showing through the user-interface service, closing, focus, key routing),
// frames, scroll boxes, and the process-wide application and screen objects.
#include "vcl/forms.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <ft2build.h>
#include FT_FREETYPE_H

#include "publish.h"
#include "vcl/extctrls_more.h"
#include "vcl/stdctrls.h"

namespace vcl {

using rtl::EInvalidOperation;

JEX_DEFINE_ENUM(TScrollBarKind)
JEX_DEFINE_ENUM(TPosition)
JEX_DEFINE_ENUM(TFormStyle)
JEX_DEFINE_ENUM(TBorderIcon)
JEX_DEFINE_SET(TBorderIcons, TBorderIcon)
JEX_DEFINE_ENUM(TWindowState)
JEX_DEFINE_ENUM(TCloseAction)
JEX_DEFINE_EVENT_TYPE(TCloseEvent, "Sender: TObject; var Action: TCloseAction")
JEX_DEFINE_EVENT_TYPE(TCloseQueryEvent, "Sender: TObject; var CanClose: Boolean")
JEX_DEFINE_EVENT_TYPE(TShowHintEvent, "var HintStr: string; var CanShow: Boolean; var HintInfo: THintInfo")
JEX_DEFINE_EVENT_TYPE(TExceptionEvent, "Sender: TObject; E: Exception")
JEX_DEFINE_EVENT_TYPE(THelpEvent, "Command: Word; Data: Longint; var CallHelp: Boolean")

namespace {
TApplication* ApplicationIfAny();
TScreen* ScreenIfAny();
constexpr const char* SCannotShowModal = "Cannot make a visible window modal";
constexpr const char* SCannotFocus = "Cannot focus a disabled or invisible window";
} // namespace

// ---- Scrolling containers -------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TControlScrollBar, rtl::TPersistent, "Forms") {
    d.Property("Increment", &TControlScrollBar::Increment, &TControlScrollBar::SetIncrement).Default(8);
    d.Property("Margin", &TControlScrollBar::Margin, &TControlScrollBar::SetMargin).Default(0);
    d.Property("Position", &TControlScrollBar::Position, &TControlScrollBar::SetPosition).Default(0);
    d.Property("Range", &TControlScrollBar::Range, &TControlScrollBar::SetRange).Default(0);
    d.Property("Smooth", &TControlScrollBar::Smooth, &TControlScrollBar::SetSmooth).Default(false);
    d.Property("Tracking", &TControlScrollBar::Tracking, &TControlScrollBar::SetTracking).Default(false);
    d.Property("Visible", &TControlScrollBar::Visible, &TControlScrollBar::SetVisible).Default(true);
}

void TControlScrollBar::Assign(rtl::TPersistent* Source) {
    if (auto* s = dynamic_cast<TControlScrollBar*>(Source)) {
        FIncrement = s->FIncrement;
        FMargin = s->FMargin;
        FPosition = s->FPosition;
        FRange = s->FRange;
        FSmooth = s->FSmooth;
        FTracking = s->FTracking;
        FVisible = s->FVisible;
        return;
    }
    rtl::TPersistent::Assign(Source);
}

JEX_IMPLEMENT_CLASS(TScrollingWinControl, TWinControl, "Forms") {}

TScrollingWinControl::TScrollingWinControl(TComponent* AOwner)
    : TWinControl(AOwner), FHorz(new TControlScrollBar(sbHorizontal)),
      FVert(new TControlScrollBar(sbVertical)) {}

TScrollingWinControl::~TScrollingWinControl() {
    delete FHorz;
    delete FVert;
}

JEX_IMPLEMENT_CLASS(TScrollBox, TScrollingWinControl, "Forms") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoScroll", &TScrollBox::AutoScroll, &TScrollBox::SetAutoScroll).Default(true);
    d.Property("BorderStyle", &TScrollBox::BorderStyle, &TScrollBox::SetBorderStyle, TypeInfo_TBorderStyle())
        .Default(bsSingle);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HorzScrollBar", &TScrollBox::HorzScrollBar, &TScrollBox::SetHorzScrollBar);
    pub::ParentColor(d, false);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("VertScrollBar", &TScrollBox::VertScrollBar, &TScrollBox::SetVertScrollBar);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TScrollBox::TScrollBox(TComponent* AOwner) : TScrollingWinControl(AOwner) {
    FControlStyle =
        TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FControlStyle.Exclude(csSetCaption);
    FWidth = 185;
    FHeight = 41;
    FColor = clBtnFace;
}

TRect TScrollBox::AdjustClientRect() const {
    TRect r = TScrollingWinControl::AdjustClientRect();
    if (FBorderStyle == bsSingle) r = Rect(r.Left + 2, r.Top + 2, r.Right - 2, r.Bottom - 2);
    return r;
}

// ---- TCustomForm --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomForm, TScrollingWinControl, "Forms") {}
JEX_IMPLEMENT_CLASS(TForm, TCustomForm, "Forms") {
    d.Property("ActiveControl", &TForm::ActiveControl, &TForm::SetActiveControl);
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoScroll", &TForm::AutoScroll, &TForm::SetAutoScroll).Default(true);
    d.Property("BorderIcons", &TForm::BorderIcons, &TForm::SetBorderIcons)
        .Default(TBorderIcons{biSystemMenu, biMinimize, biMaximize}.Bits());
    d.Property("BorderStyle", &TForm::BorderStyle, &TForm::SetBorderStyle).Default(bsSizeable);
    d.Property("BorderWidth", &TForm::BorderWidth, &TForm::SetBorderWidth).Default(0);
    pub::Caption(d);
    d.Property("ClientHeight", &TForm::ClientHeight, &TForm::SetClientHeight);
    d.Property("ClientWidth", &TForm::ClientWidth, &TForm::SetClientWidth);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::ParentFont(d);
    pub::Font(d);
    d.Property("FormStyle", &TForm::FormStyle, &TForm::SetFormStyle).Default(fsNormal);
    d.Property("HelpFile", &TForm::HelpFile, &TForm::SetHelpFile);
    d.Property("HorzScrollBar", &TForm::HorzScrollBar, &TForm::SetHorzScrollBar);
    d.Property("KeyPreview", &TForm::KeyPreview, &TForm::SetKeyPreview).Default(false);
    d.Property("Menu", &TForm::Menu, &TForm::SetMenu);
    d.Property("OldCreateOrder", &TForm::OldCreateOrder, &TForm::SetOldCreateOrder);
    pub::ParentShowHint(d);
    d.Property("PixelsPerInch", &TForm::PixelsPerInch, &TForm::SetPixelsPerInch);
    pub::PopupMenu(d);
    d.Property("Position", &TForm::Position, &TForm::SetPosition).Default(poDesigned);
    d.Property("Scaled", &TForm::Scaled, &TForm::SetScaled).Default(true);
    pub::ShowHint(d);
    d.Property("TextHeight", &TForm::TextHeight, &TForm::SetTextHeight);
    d.Property("VertScrollBar", &TForm::VertScrollBar, &TForm::SetVertScrollBar);
    d.Property("Visible", &TForm::Visible, &TForm::SetVisible).Default(false);
    d.Property("WindowState", &TForm::WindowState, &TForm::SetWindowState).Default(wsNormal);
    d.Event("OnActivate", &TForm::OnActivate);
    pub::OnClick(d);
    d.Event("OnClose", &TForm::OnClose);
    d.Event("OnCloseQuery", &TForm::OnCloseQuery);
    d.Event("OnCreate", &TForm::OnCreate);
    pub::OnDblClick(d);
    d.Event("OnDeactivate", &TForm::OnDeactivate);
    d.Event("OnDestroy", &TForm::OnDestroy);
    pub::OnDrag(d);
    d.Event("OnHide", &TForm::OnHide);
    pub::OnKeys(d);
    pub::OnMouse(d);
    pub::OnResize(d);
    d.Event("OnShow", &TForm::OnShow);
}

TCustomForm::TCustomForm(TComponent* AOwner) : TScrollingWinControl(AOwner) {
    FControlStyle =
        TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FVisible = false;
    FParentFont = false;
    FColor = clBtnFace;
    FWidth = 320;
    FHeight = 240;
    FLeft = 0;
    FTop = 0;
    Screen()->AddForm(this);
}

TCustomForm::~TCustomForm() {
    if (!FDestroyRaised) {
        // Deleted without Free(): the derived parts are already gone, so OnDestroy cannot run safely.
        FDestroyRaised = true;
    }
    if (FVisible && !FModal && UIInstalled()) UI().HideForm(this);
    if (FMenu) FMenu->RemoveFreeNotification(this);
    if (TScreen* s = ScreenIfAny()) s->RemoveForm(this);
    if (TApplication* a = ApplicationIfAny()) a->FormDestroyed(this);
}

void TCustomForm::AfterConstruction() {
    if (FCreated) return;
    FCreated = true;
    OnCreate(this);
}

void TCustomForm::BeforeDestruction() {
    if (!FDestroyRaised) {
        FDestroyRaised = true;
        if (FVisible && !FModal) {
            FVisible = false;
            if (UIInstalled()) UI().HideForm(this);
            Screen()->FormDeactivated(this);
        }
        OnDestroy(this);
    }
    TScrollingWinControl::BeforeDestruction();
}

void TCustomForm::SetBorderStyle(TFormBorderStyle v) {
    if (v == FBorderStyle) return;
    // The client area keeps its size; the frame around it changes.
    int cw = ClientWidth(), ch = ClientHeight();
    FBorderStyle = v;
    if (!IsLoading()) {
        SetClientWidth(cw);
        SetClientHeight(ch);
    }
}

void TCustomForm::SetMenu(TMainMenu* v) {
    if (v == FMenu) return;
    int ch = ClientHeight();
    if (FMenu) FMenu->RemoveFreeNotification(this);
    FMenu = v;
    if (v) v->FreeNotification(this);
    if (!IsLoading()) SetClientHeight(ch);
}

void TCustomForm::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TScrollingWinControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FMenu) FMenu = nullptr;
}

int TCustomForm::FrameWidth() const {
    switch (FBorderStyle) {
    case bsNone:
        return 0;
    case bsSizeable:
    case bsSizeToolWin:
        return 4;
    default:
        return 3;
    }
}

int TCustomForm::CaptionHeight() const {
    switch (FBorderStyle) {
    case bsNone:
        return 0;
    case bsToolWindow:
    case bsSizeToolWin:
        return 16;
    default:
        return 19;
    }
}

TRect TCustomForm::ClientRect() const {
    int fw = FrameWidth();
    int top = CaptionHeight() + (FMenu ? 19 : 0);
    return Rect(0, 0, std::max(0, FWidth - 2 * fw), std::max(0, FHeight - 2 * fw - top));
}

TPoint TCustomForm::ClientOrigin() const {
    int fw = FrameWidth();
    TPoint p = FParent ? TScrollingWinControl::ClientOrigin() : Point(FLeft, FTop);
    return Point(p.X + fw, p.Y + fw + CaptionHeight() + (FMenu ? 19 : 0));
}

void TCustomForm::PlaceOnScreen() {
    TCustomForm* center = nullptr;
    switch (FPosition) {
    case poScreenCenter:
    case poDesktopCenter:
        SetBounds((Screen()->Width() - FWidth) / 2, (Screen()->Height() - FHeight) / 2, FWidth, FHeight);
        return;
    case poMainFormCenter:
        center = Application()->MainForm();
        break;
    case poOwnerFormCenter:
        center = dynamic_cast<TCustomForm*>(Owner());
        break;
    default:
        return;
    }
    if (!center || center == this) center = nullptr;
    if (center)
        SetBounds(center->Left() + (center->Width() - FWidth) / 2,
                  center->Top() + (center->Height() - FHeight) / 2, FWidth, FHeight);
    else
        SetBounds((Screen()->Width() - FWidth) / 2, (Screen()->Height() - FHeight) / 2, FWidth, FHeight);
}

void TCustomForm::ShowingChanged(bool showing) {
    if (showing) {
        PlaceOnScreen();
        DoShow();
        Activate();
        if (!FActiveControl) FActiveControl = FindNextControl(nullptr, true, true, false);
        if (FActiveControl && FActiveControl->CanFocus()) SetFocusedControl(FActiveControl);
    } else {
        Deactivate();
        FFocusedControl = nullptr;
        DoHide();
    }
}

void TCustomForm::SetVisible(bool v) {
    if (v == FVisible) return;
    if (!v && FModal) {
        // Hiding a modal form ends its modal run, as the platform's Hide does.
        if (FModalResult == mrNone) FModalResult = mrCancel;
        return;
    }
    TScrollingWinControl::SetVisible(v);
    if (IsLoading() || IsDesigning()) return;
    AfterConstruction();
    ShowingChanged(v);
    if (!FModal) {
        if (v)
            UI().ShowForm(this);
        else
            UI().HideForm(this);
    }
}

void TCustomForm::Show() {
    SetVisible(true);
    BringToFront();
}

TModalResult TCustomForm::ShowModal() {
    AfterConstruction();
    if (FVisible || !FEnabled || FModal) throw EInvalidOperation(SCannotShowModal);
    TUserInterface& ui = UI();
    FModalResult = mrNone;
    FModal = true;
    auto finish = [this] {
        FModal = false;
        if (FVisible) {
            TScrollingWinControl::SetVisible(false);
            ShowingChanged(false);
        }
    };
    try {
        TScrollingWinControl::SetVisible(true);
        ShowingChanged(true);
        ui.ShowModal(this);
    } catch (...) {
        finish();
        throw;
    }
    finish();
    return FModalResult;
}

bool TCustomForm::CloseQuery() {
    bool canClose = true;
    OnCloseQuery(this, canClose);
    return canClose;
}

bool TCustomForm::CloseModal() {
    TCloseAction action = caNone;
    if (CloseQuery()) {
        action = caHide;
        DoClose(action);
    }
    switch (action) {
    case caNone:
        FModalResult = mrNone;
        return false;
    case caFree:
        Release();
        break;
    default:
        break;
    }
    return true;
}

void TCustomForm::Close() {
    if (FModal) {
        FModalResult = mrCancel;
        return;
    }
    if (!CloseQuery()) return;
    TCloseAction action = FFormStyle == fsMDIChild ? caMinimize : caHide;
    DoClose(action);
    if (action == caNone) return;
    if (Application()->MainForm() == this) Application()->Terminate();
    if (action == caHide)
        Hide();
    else if (action == caMinimize)
        FWindowState = wsMinimized;
    else
        Release();
}

void TCustomForm::Release() {
    if (FVisible && !FModal) Hide();
    Application()->ReleaseForm(this);
}

void TCustomForm::Activate() {
    if (FActive) return;
    FActive = true;
    Screen()->FormActivated(this);
    OnActivate(this);
}

void TCustomForm::Deactivate() {
    if (!FActive) return;
    FActive = false;
    OnDeactivate(this);
    Screen()->FormDeactivated(this);
}

void TCustomForm::SetActiveControl(TWinControl* Control) {
    if (Control == FActiveControl) return;
    if (Control &&
        (Control == this || GetParentForm(Control) != this || (!IsLoading() && !Control->CanFocus())))
        throw EInvalidOperation(SCannotFocus);
    FActiveControl = Control;
    if (!IsLoading() && FVisible && Control) SetFocusedControl(Control);
}

void TCustomForm::FocusControl(TWinControl* Control) {
    if (Control && !Control->CanFocus()) throw EInvalidOperation(SCannotFocus);
    SetActiveControl(Control);
}

void TCustomForm::SetFocusedControl(TWinControl* Control) {
    if (Control == FFocusedControl) return;
    TWinControl* old = FFocusedControl;
    FFocusedControl = Control;
    FActiveControl = Control;
    // Exits run from the control left up to (not including) the first container shared with the new one.
    std::vector<TWinControl*> exits;
    for (TWinControl* c = old; c && c != this && !(Control && c->ContainsControl(Control)); c = c->Parent())
        exits.push_back(c);
    for (TWinControl* c : exits) {
        c->DoExit();
        if (FFocusedControl != Control) return; // an OnExit moved the focus elsewhere
    }
    std::vector<TWinControl*> enters;
    for (TWinControl* c = Control; c && c != this && !(old && c->ContainsControl(old)); c = c->Parent())
        enters.push_back(c);
    for (auto it = enters.rbegin(); it != enters.rend(); ++it) {
        (*it)->DoEnter();
        if (FFocusedControl != Control) return;
    }
}

void TCustomForm::SelectNext(TWinControl* CurControl, bool GoForward, bool CheckTabStop) {
    TWinControl* next = FindNextControl(CurControl, GoForward, CheckTabStop, !CheckTabStop);
    if (next) next->SetFocus();
}

void TCustomForm::ControlRemoving(TControl* Control) {
    // Walks up from the focused controls instead of casting Control, which may be half destroyed.
    auto inside = [Control](const TControl* c) {
        for (; c; c = c->Parent())
            if (c == Control) return true;
        return false;
    };
    if (inside(FActiveControl)) FActiveControl = nullptr;
    if (inside(FFocusedControl)) FFocusedControl = nullptr;
}

namespace {
TButton* FindButton(const TWinControl* root, bool cancel) {
    for (TControl* c : root->ControlList()) {
        if (auto* b = dynamic_cast<TButton*>(c);
            b && (cancel ? b->Cancel() : b->Default()) && b->CanBeActedOn())
            return b;
        if (auto* w = dynamic_cast<TWinControl*>(c); w && w->Visible())
            if (TButton* b = FindButton(w, cancel)) return b;
    }
    return nullptr;
}

char KeyToChar(uint16_t key, TShiftState shift) {
    if (shift.Contains(ssAlt)) return 0;
    if (key >= 'A' && key <= 'Z') {
        if (shift.Contains(ssCtrl)) return static_cast<char>(key - 'A' + 1);
        return static_cast<char>(shift.Contains(ssShift) ? key : key + 32);
    }
    if (shift.Contains(ssCtrl)) return 0;
    if (key >= '0' && key <= '9') return static_cast<char>(key);
    if (key >= VK_NUMPAD0 && key <= VK_NUMPAD9) return static_cast<char>('0' + key - VK_NUMPAD0);
    switch (key) {
    case VK_SPACE:
        return ' ';
    case VK_RETURN:
        return '\r';
    case VK_ESCAPE:
        return 27;
    case VK_BACK:
        return '\b';
    case VK_TAB:
        return '\t';
    case VK_MULTIPLY:
        return '*';
    case VK_ADD:
        return '+';
    case VK_SUBTRACT:
        return '-';
    case VK_DECIMAL:
        return '.';
    case VK_DIVIDE:
        return '/';
    default:
        return 0;
    }
}
} // namespace

TControl* TCustomForm::DefaultButton() const {
    return FindButton(this, false);
}
TControl* TCustomForm::CancelButton() const {
    return FindButton(this, true);
}

void TCustomForm::DispatchKey(TWinControl* Target, uint16_t Key, TShiftState Shift) {
    if (!Target) Target = this;
    const uint16_t original = Key;
    // Menu shortcuts come first: the form's menu, then the popup menus of the focused control's chain.
    if (FMenu && FMenu->IsShortCut(Key, Shift)) return;
    for (TControl* c = Target; c; c = c->Parent())
        if (c->PopupMenu() && c->PopupMenu()->IsShortCut(Key, Shift)) return;
    // Dialog keys, unless the control wants them itself.
    if (!Target->WantsKey(Key) && (Shift - TShiftState{ssShift}).Empty()) {
        if (Key == VK_TAB && !Shift.Contains(ssCtrl)) {
            SelectNext(Target == this ? nullptr : Target, !Shift.Contains(ssShift), true);
            return;
        }
        if (Shift.Empty() && (Key == VK_RETURN || Key == VK_ESCAPE)) {
            TControl* button = nullptr;
            if (Key == VK_RETURN) {
                if (auto* b = dynamic_cast<TButton*>(Target))
                    button = b;
                else
                    button = DefaultButton();
            } else {
                button = CancelButton();
            }
            if (button) {
                button->Click();
                return;
            }
        }
        if (Key == VK_F1 && Shift.Empty()) {
            THelpContext ctx = 0;
            for (TControl* c = Target; c && !ctx; c = c->Parent())
                ctx = c->HelpContext();
            if (ctx) {
                Application()->HelpContext(ctx);
                return;
            }
        }
    }
    if (FKeyPreview && Target != this) KeyDown(Key, Shift);
    if (Key) Target->KeyDown(Key, Shift);
    if (Key) {
        char ch = KeyToChar(Key, Shift);
        if (ch) {
            if (FKeyPreview && Target != this) KeyPress(ch);
            if (ch) Target->KeyPress(ch);
        }
    }
    uint16_t up = original;
    if (FKeyPreview && Target != this) KeyUp(up, Shift);
    if (up) Target->KeyUp(up, Shift);
}

void TCustomForm::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    TScrollingWinControl::GetChildren(Proc, Root);
    if (Root == this)
        for (TComponent* c : ComponentList())
            if (!c->HasParent()) Proc(c);
}

void TCustomForm::Describe(TControlDesc& d) const {
    TScrollingWinControl::Describe(d);
    if (FMenu)
        for (int i = 0; i < FMenu->Items()->Count(); ++i)
            d.Menu.push_back(DescribeMenuItem(FMenu->Items()->Items(i)));
}

// ---- Frames -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TCustomFrame, TScrollingWinControl, "Forms") {}
JEX_IMPLEMENT_CLASS(TFrame, TCustomFrame, "Forms") {
    pub::Align(d);
    pub::Anchors(d);
    d.Property("AutoScroll", &TFrame::AutoScroll, &TFrame::SetAutoScroll).Default(true);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("HorzScrollBar", &TFrame::HorzScrollBar, &TFrame::SetHorzScrollBar);
    pub::ParentColor(d, true);
    pub::ParentCtl3D(d);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("VertScrollBar", &TFrame::VertScrollBar, &TFrame::SetVertScrollBar);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TCustomFrame::TCustomFrame(TComponent* AOwner) : TScrollingWinControl(AOwner) {
    FControlStyle =
        TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FWidth = 320;
    FHeight = 240;
    FParentColor = true;
    FColor = clBtnFace;
}

void TCustomFrame::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    TScrollingWinControl::GetChildren(Proc, Root);
    if (Root == this)
        for (TComponent* c : ComponentList())
            if (!c->HasParent()) Proc(c);
}

// ---- TApplication -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TApplication, TComponent, "Forms") {}

TApplication::TApplication(TComponent* AOwner) : TComponent(AOwner) {}

TApplication::~TApplication() {
    std::vector<TCustomForm*> released;
    released.swap(FReleased);
    for (TCustomForm* f : released)
        f->Free();
}

void TApplication::SetHint(const std::string& v) {
    if (v == FHint) return;
    FHint = v;
    OnHint(this);
}

namespace {
std::string HintOf(const TControl* c) {
    for (; c; c = c->Parent())
        if (!c->Hint().empty()) return c->Hint();
    return {};
}
} // namespace

std::string TApplication::ActivateHint(TControl* Control, TPoint CursorPos) {
    if (!Control) return {};
    SetHint(GetLongHint(HintOf(Control)));
    TControl* hintControl = Control;
    while (hintControl && !hintControl->ShowHint())
        hintControl = hintControl->Parent();
    if (!hintControl || hintControl->IsDesigning() || !FShowHint) return {};
    THintInfo info;
    info.HintControl = hintControl;
    // The cursor position is relative to the control under the mouse; the hint shows below the cursor.
    TPoint screenPos = Control->ClientToScreen(CursorPos);
    info.CursorPos = hintControl->ScreenToClient(screenPos);
    info.HintPos = Point(screenPos.X, screenPos.Y + 20);
    info.HintMaxWidth = Screen()->Width();
    info.HintColor = FHintColor;
    info.CursorRect = hintControl->ClientRect();
    info.ReshowTimeout = 0;
    info.HideTimeout = FHintHidePause;
    info.HintStr = GetShortHint(HintOf(hintControl));
    bool canShow = true;
    OnShowHint(info.HintStr, canShow, info);
    if (!canShow || info.HintStr.empty()) return {};
    UI().ShowHint(info);
    return info.HintStr;
}

void TApplication::CancelHint() {
    if (UIInstalled()) UI().HideHint();
}

std::string TApplication::CurrentHelpFile() const {
    if (TCustomForm* f = Screen()->ActiveForm(); f && !f->HelpFile().empty()) return f->HelpFile();
    return FHelpFile;
}

bool TApplication::HelpCommand(unsigned Command, int64_t Data) {
    bool callHelp = true;
    bool result = false;
    if (OnHelp) result = OnHelp(static_cast<uint16_t>(Command), Data, callHelp);
    if (!callHelp) return result;
    THelpRequest r;
    r.HelpFile = CurrentHelpFile();
    r.Command = Command;
    r.Data = Data;
    return UI().Help(r);
}

bool TApplication::HelpContext(THelpContext Context) {
    return HelpCommand(HELP_CONTEXT, Context);
}

bool TApplication::HelpKeyword(const std::string& Keyword) {
    bool callHelp = true;
    bool result = false;
    if (OnHelp) result = OnHelp(static_cast<uint16_t>(HELP_KEY), 0, callHelp);
    if (!callHelp) return result;
    THelpRequest r;
    r.HelpFile = CurrentHelpFile();
    r.Command = HELP_KEY;
    r.Keyword = Keyword;
    return UI().Help(r);
}

bool TApplication::HelpJump(const std::string& JumpID) {
    THelpRequest r;
    r.HelpFile = CurrentHelpFile();
    r.Command = HELP_COMMAND;
    r.Keyword = "JumpID(\"\",\"" + JumpID + "\")";
    return UI().Help(r);
}

void TApplication::HandleException(rtl::TObject* Sender) {
    std::exception_ptr p = std::current_exception();
    if (!p) return;
    try {
        std::rethrow_exception(p);
    } catch (const rtl::EAbort&) {
    } catch (const rtl::Exception& e) {
        if (OnException)
            OnException(Sender, e);
        else
            ShowException(e);
    } catch (const std::exception& e) {
        rtl::Exception wrapped(e.what());
        if (OnException)
            OnException(Sender, wrapped);
        else
            ShowException(wrapped);
    }
}

void TApplication::ShowException(const rtl::Exception& E) {
    std::string msg = E.Message();
    // The platform ends the message with a period.
    if (!msg.empty() && msg.back() > '.') msg += '.';
    UI().ShowException(E.ClassName(), msg);
}

void TApplication::ProcessMessages() {
    ProcessTimers();
    std::vector<TCustomForm*> released;
    released.swap(FReleased);
    for (TCustomForm* f : released)
        f->Free();
}

int TApplication::MessageBox(const std::string& Text, const std::string& Caption, unsigned Flags) {
    TMessageRequest r;
    r.Text = Text;
    r.Caption = Caption;
    switch (Flags & 0x0F) {
    case 1:
        r.Buttons = mbOKCancel;
        break;
    case 2:
        r.Buttons = mbAbortRetryIgnore;
        break;
    case 3:
        r.Buttons = mbYesNoCancel;
        break;
    case 4:
        r.Buttons = TMsgDlgButtons{mbYes, mbNo};
        break;
    case 5:
        r.Buttons = TMsgDlgButtons{mbRetry, mbCancel};
        break;
    default:
        r.Buttons = TMsgDlgButtons{mbOK};
        break;
    }
    switch (Flags & 0xF0) {
    case MB_ICONHAND:
        r.Type = mtError;
        break;
    case MB_ICONQUESTION:
        r.Type = mtConfirmation;
        break;
    case MB_ICONEXCLAMATION:
        r.Type = mtWarning;
        break;
    case MB_ICONASTERISK:
        r.Type = mtInformation;
        break;
    default:
        r.Type = mtCustom;
        break;
    }
    // Message box IDs and modal results share their numbers (IDOK 1 ... IDNO 7).
    return UI().MessageDlg(r);
}

void TApplication::ReleaseForm(TCustomForm* Form) {
    if (std::find(FReleased.begin(), FReleased.end(), Form) == FReleased.end()) FReleased.push_back(Form);
}

void TApplication::FormDestroyed(TCustomForm* Form) {
    FReleased.erase(std::remove(FReleased.begin(), FReleased.end(), Form), FReleased.end());
    if (FMainForm == Form) FMainForm = nullptr;
}

// ---- TScreen ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TScreen, TComponent, "Forms") {}

TScreen::TScreen(TComponent* AOwner) : TComponent(AOwner), FHintFont(std::make_unique<TFont>()) {}

TScreen::~TScreen() = default;

void TScreen::SetCursor(TCursor v) {
    if (v == FCursor) return;
    FCursor = v;
    if (UIInstalled()) UI().CursorChanged(v);
}

TCustomForm* TScreen::Forms(int index) const {
    if (index < 0 || index >= FormCount()) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {index}));
    return FForms[index];
}

TWinControl* TScreen::ActiveControl() const {
    return FActiveForm ? FActiveForm->FocusedControl() : nullptr;
}

void TScreen::AddForm(TCustomForm* f) {
    FForms.push_back(f);
}

void TScreen::RemoveForm(TCustomForm* f) {
    FForms.erase(std::remove(FForms.begin(), FForms.end(), f), FForms.end());
    FActivation.erase(std::remove(FActivation.begin(), FActivation.end(), f), FActivation.end());
    if (FActiveForm == f) FActiveForm = FActivation.empty() ? nullptr : FActivation.back();
}

void TScreen::FormActivated(TCustomForm* f) {
    FActivation.erase(std::remove(FActivation.begin(), FActivation.end(), f), FActivation.end());
    FActivation.push_back(f);
    FActiveForm = f;
}

void TScreen::FormDeactivated(TCustomForm* f) {
    FActivation.erase(std::remove(FActivation.begin(), FActivation.end(), f), FActivation.end());
    if (FActiveForm == f) FActiveForm = FActivation.empty() ? nullptr : FActivation.back();
}

TStrings* TScreen::Fonts() {
    if (!FFonts) LoadFonts();
    return FFonts.get();
}

bool TScreen::IsTrueTypeFont(const std::string& Family) {
    Fonts();
    return std::any_of(FTrueType.begin(), FTrueType.end(),
                       [&](const std::string& f) { return rtl::SameText(f, Family); });
}

void TScreen::LoadFonts() {
    FFonts = std::make_unique<TStringList>();
    FFonts->SetSorted(true);
    FFonts->SetDuplicates(rtl::dupIgnore);
    std::vector<std::string> dirs = {"/usr/share/fonts", "/usr/local/share/fonts"};
    if (const char* home = std::getenv("HOME")) {
        dirs.push_back(std::string(home) + "/.fonts");
        dirs.push_back(std::string(home) + "/.local/share/fonts");
    }
    FT_Library lib = nullptr;
    if (FT_Init_FreeType(&lib) != 0) return;
    namespace fs = std::filesystem;
    for (const auto& dir : dirs) {
        std::error_code ec;
        if (!fs::is_directory(dir, ec)) continue;
        for (auto it =
                 fs::recursive_directory_iterator(dir, fs::directory_options::skip_permission_denied, ec);
             it != fs::recursive_directory_iterator(); it.increment(ec)) {
            if (ec) break;
            if (!it->is_regular_file(ec)) continue;
            FT_Face face = nullptr;
            if (FT_New_Face(lib, it->path().c_str(), 0, &face) != 0) continue;
            if (face->family_name) {
                std::string family = face->family_name;
                FFonts->Add(family);
                if (FT_IS_SFNT(face) && FT_IS_SCALABLE(face)) FTrueType.push_back(family);
            }
            FT_Done_Face(face);
        }
    }
    FT_Done_FreeType(lib);
}

// ---- Globals ------------------------------------------------------------------------------------------
namespace {
// Created on first use and freed with the module, application first so that its forms go before the
// screen that lists them.
struct TGlobals {
    TScreen* Screen = nullptr;
    TApplication* Application = nullptr;
    ~TGlobals() {
        if (Application) Application->Free();
        Application = nullptr;
        if (Screen) Screen->Free();
        Screen = nullptr;
    }
};
TGlobals& Globals() {
    static TGlobals g;
    return g;
}
TApplication* ApplicationIfAny() {
    return Globals().Application;
}
TScreen* ScreenIfAny() {
    return Globals().Screen;
}
} // namespace

TApplication* Application() {
    TGlobals& g = Globals();
    if (!g.Application) {
        Screen();
        g.Application = new TApplication(nullptr);
    }
    return g.Application;
}

TScreen* Screen() {
    TGlobals& g = Globals();
    if (!g.Screen) g.Screen = new TScreen(nullptr);
    return g.Screen;
}

} // namespace vcl
