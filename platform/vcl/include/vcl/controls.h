// Controls: TControl and TWinControl with parent/child order, bounds and alignment, fonts, colours, hints,
// focus, and the events a person's actions raise; also the shared control types (TAlign, TCursor ...).
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "rtl/lists.h"
#include "vcl/formdesc.h"
#include "vcl/graphics.h"
#include "vcl/imglist.h"

namespace vcl {

using rtl::TClass;
using rtl::TComponent;
using rtl::TStringList;
using rtl::TStrings;

class TWinControl;
class TCustomForm;
class TPopupMenu;

// ---- Shared types ---------------------------------------------------------------------------------------
const rtl::TTypeInfo* TypeInfo_TCaption();     // String under its own name
const rtl::TTypeInfo* TypeInfo_TCursor();      // -32768..32767
const rtl::TTypeInfo* TypeInfo_TModalResult(); // Integer under its own name
const rtl::TTypeInfo* TypeInfo_TTabOrder();    // -1..32767

using TModalResult = int;
inline constexpr TModalResult mrNone = 0, mrOk = 1, mrCancel = 2, mrAbort = 3, mrRetry = 4, mrIgnore = 5,
                              mrYes = 6, mrNo = 7, mrAll = 8, mrNoToAll = 9, mrYesToAll = 10;

using TCursor = int;
inline constexpr TCursor crDefault = 0, crNone = -1, crArrow = -2, crCross = -3, crIBeam = -4,
                         crSizeNESW = -6, crSizeNS = -7, crSizeNWSE = -8, crSizeWE = -9, crUpArrow = -10,
                         crHourGlass = -11, crDrag = -12, crNoDrop = -13, crHSplit = -14, crVSplit = -15,
                         crMultiDrag = -16, crSQLWait = -17, crNo = -18, crAppStart = -19, crHelp = -20,
                         crHandPoint = -21, crSizeAll = -22, crSize = -22;
// Cursor names as form files write them ("crHandPoint"); unknown values give false.
bool CursorToIdent(TCursor cursor, std::string& ident);
bool IdentToCursor(const std::string& ident, TCursor& cursor);
std::string CursorToString(TCursor cursor);   // the name, else the number
TCursor StringToCursor(const std::string& s); // a name or an integer; raises EConvertError
void GetCursorValues(const std::function<void(const std::string&)>& proc);

using THelpContext = int;

// Virtual key codes.
inline constexpr uint16_t VK_BACK = 8, VK_TAB = 9, VK_RETURN = 13, VK_SHIFT = 16, VK_CONTROL = 17,
                          VK_MENU = 18, VK_ESCAPE = 27, VK_SPACE = 32, VK_PRIOR = 33, VK_NEXT = 34,
                          VK_END = 35, VK_HOME = 36, VK_LEFT = 37, VK_UP = 38, VK_RIGHT = 39, VK_DOWN = 40,
                          VK_INSERT = 45, VK_DELETE = 46, VK_NUMPAD0 = 96, VK_NUMPAD9 = 105,
                          VK_MULTIPLY = 106, VK_ADD = 107, VK_SUBTRACT = 109, VK_DECIMAL = 110,
                          VK_DIVIDE = 111, VK_F1 = 112, VK_F12 = 123;

JEX_ENUM(TAlign, alNone, alTop, alBottom, alLeft, alRight, alClient, alCustom)
JEX_ENUM(TAnchorKind, akLeft, akTop, akRight, akBottom)
JEX_SET(TAnchors, TAnchorKind)
JEX_ENUM(TAlignment, taLeftJustify, taRightJustify, taCenter)
JEX_ENUM(TTextLayout, tlTop, tlCenter, tlBottom)
JEX_ENUM(TShiftStateFlag, ssShift, ssAlt, ssCtrl, ssLeft, ssRight, ssMiddle, ssDouble)
JEX_SET(TShiftState, TShiftStateFlag)
JEX_ENUM(TMouseButton, mbLeft, mbRight, mbMiddle)
JEX_ENUM(TDragState, dsDragEnter, dsDragLeave, dsDragMove)
JEX_ENUM(TDragMode, dmManual, dmAutomatic)
JEX_ENUM(THelpType, htKeyword, htContext)
JEX_ENUM(TFormBorderStyle, bsNone, bsSingle, bsSizeable, bsDialog, bsToolWindow, bsSizeToolWin)
// TBorderStyle is the bsNone..bsSingle part of TFormBorderStyle.
using TBorderStyle = TFormBorderStyle;
const rtl::TTypeInfo* TypeInfo_TBorderStyle();
JEX_ENUM(TControlStyleFlag, csAcceptsControls, csCaptureMouse, csDesignInteractive, csClickEvents, csFramed,
         csSetCaption, csOpaque, csDoubleClicks, csFixedWidth, csFixedHeight, csNoDesignVisible,
         csReplicatable, csNoStdEvents, csDisplayDragImage, csReflector, csActionClient, csMenuEvents)
JEX_SET(TControlStyle, TControlStyleFlag)
JEX_ENUM(TScrollStyle, ssNone, ssHorizontal, ssVertical, ssBoth)

JEX_EVENT_TYPE(TMouseEvent, void(rtl::TObject* Sender, TMouseButton Button, TShiftState Shift, int X, int Y))
JEX_EVENT_TYPE(TMouseMoveEvent, void(rtl::TObject* Sender, TShiftState Shift, int X, int Y))
JEX_EVENT_TYPE(TKeyEvent, void(rtl::TObject* Sender, uint16_t& Key, TShiftState Shift))
JEX_EVENT_TYPE(TKeyPressEvent, void(rtl::TObject* Sender, char& Key))
JEX_EVENT_TYPE(TDragOverEvent,
               void(rtl::TObject* Sender, rtl::TObject* Source, int X, int Y, TDragState State, bool& Accept))
JEX_EVENT_TYPE(TDragDropEvent, void(rtl::TObject* Sender, rtl::TObject* Source, int X, int Y))
JEX_EVENT_TYPE(TEndDragEvent, void(rtl::TObject* Sender, rtl::TObject* Target, int X, int Y))

// A person's action that the control cannot take (no such action, read-only, no such item).
class EUserActionError : public rtl::EInvalidOperation {
public:
    using EInvalidOperation::EInvalidOperation;
    const char* ClassName() const noexcept override { return "EUserActionError"; }
};

// ---- TControl ---------------------------------------------------------------------------------------------
// Entry points that a person's actions reach (Click, DblClick, MouseDown ..., KeyDown ...) are public so
// that the user-interface service and its drivers call exactly what the platform's message handling calls.
class TControl : public TComponent {
    JEX_CLASS(TControl, TComponent)
    explicit TControl(TComponent* AOwner);
    ~TControl() override;

    TWinControl* Parent() const { return FParent; }
    // Removes the control from its old parent and appends it to the new one's child list.
    virtual void SetParent(TWinControl* AParent);

    int Left() const { return FLeft; }
    int Top() const { return FTop; }
    int Width() const { return FWidth; }
    int Height() const { return FHeight; }
    void SetLeft(int v) { SetBounds(v, FTop, FWidth, FHeight); }
    void SetTop(int v) { SetBounds(FLeft, v, FWidth, FHeight); }
    void SetWidth(int v) { SetBounds(FLeft, FTop, v, FHeight); }
    void SetHeight(int v) { SetBounds(FLeft, FTop, FWidth, v); }
    // Moves and sizes the control; an aligned control is then put back in place by its parent's layout.
    virtual void SetBounds(int ALeft, int ATop, int AWidth, int AHeight);
    TRect BoundsRect() const { return Bounds(FLeft, FTop, FWidth, FHeight); }
    void SetBoundsRect(const TRect& r) { SetBounds(r.Left, r.Top, r.Width(), r.Height()); }
    // The client area in the control's own coordinates.
    virtual TRect ClientRect() const { return Rect(0, 0, FWidth, FHeight); }
    int ClientWidth() const { return ClientRect().Width(); }
    int ClientHeight() const { return ClientRect().Height(); }
    void SetClientWidth(int v) { SetWidth(FWidth - ClientWidth() + v); }
    void SetClientHeight(int v) { SetHeight(FHeight - ClientHeight() + v); }
    // Origin of the client area on the screen, through the parents (a form's client area starts inside
    // its frame).
    virtual TPoint ClientOrigin() const;
    TPoint ClientToScreen(TPoint p) const;
    TPoint ScreenToClient(TPoint p) const;

    TAlign Align() const { return FAlign; }
    void SetAlign(TAlign v);
    TAnchors Anchors() const { return FAnchors; }
    void SetAnchors(TAnchors v) { FAnchors = v; }

    bool Visible() const { return FVisible; }
    virtual void SetVisible(bool v);
    void Show() { SetVisible(true); }
    void Hide() { SetVisible(false); }
    // Visible here and in every parent up to a top-level control.
    bool Showing() const;
    bool Enabled() const { return FEnabled; }
    virtual void SetEnabled(bool v);
    // What a person can act on: showing, and enabled here and in every parent.
    bool CanBeActedOn() const;

    // Caption and Text are the same value (the window text).
    std::string Caption() const { return GetText(); }
    void SetCaption(const std::string& v) { SetText(v); }
    std::string Text() const { return GetText(); }
    virtual std::string GetText() const { return FText; }
    virtual void SetText(const std::string& v);

    std::string Hint() const { return FHint; }
    void SetHint(const std::string& v) { FHint = v; }
    bool ShowHint() const { return FShowHint; }
    void SetShowHint(bool v);
    bool ParentShowHint() const { return FParentShowHint; }
    void SetParentShowHint(bool v);

    TFont* Font() const { return FFont.get(); }
    void SetFont(TFont* v); // copies v
    bool ParentFont() const { return FParentFont; }
    void SetParentFont(bool v);
    TColor Color() const { return FColor; }
    void SetColor(TColor v);
    bool ParentColor() const { return FParentColor; }
    void SetParentColor(bool v);

    TCursor Cursor() const { return FCursor; }
    void SetCursor(TCursor v) { FCursor = v; }
    TPopupMenu* PopupMenu() const { return FPopupMenu; }
    void SetPopupMenu(TPopupMenu* v);
    THelpContext HelpContext() const { return FHelpContext; }
    void SetHelpContext(THelpContext v) { FHelpContext = v; }
    THelpType HelpType() const { return FHelpType; }
    void SetHelpType(THelpType v) { FHelpType = v; }
    std::string HelpKeyword() const { return FHelpKeyword; }
    void SetHelpKeyword(const std::string& v) { FHelpKeyword = v; }
    TDragMode DragMode() const { return FDragMode; }
    void SetDragMode(TDragMode v) { FDragMode = v; }
    TCursor DragCursor() const { return FDragCursor; }
    void SetDragCursor(TCursor v) { FDragCursor = v; }
    bool IsFontStored() const { return !FParentFont; }
    bool IsColorStored() const { return !FParentColor; }
    bool IsShowHintStored() const { return !FParentShowHint; }

    TControlStyle ControlStyle() const { return FControlStyle; }
    void SetControlStyle(TControlStyle v) { FControlStyle = v; }

    void BringToFront();
    void SendToBack();
    // Painting happens in the host from the control tree; these keep the platform's calls valid.
    void Invalidate() {}
    void Repaint() {}
    void Refresh() {}
    void Update() {}

    // Person entry points. UserClick is a person's click (mouse down and up over the control): check
    // boxes toggle, radio buttons check, grouped speed buttons go down; Click only raises OnClick.
    virtual void UserClick() { Click(); }
    virtual void UserDblClick() { DblClick(); }
    // What a person does to controls that hold text, items, cells or values. A control without such an
    // action raises EUserActionError, as does an action the control refuses (typing into a read-only edit).
    virtual void UserType(const std::string& Text);
    virtual void UserCheck(bool Checked);
    virtual void UserSelect(int Index);
    virtual void UserSelectText(const std::string& Text);
    virtual void UserSelectMulti(const std::vector<int>& Indexes);
    virtual void UserSelectCell(int ACol, int ARow);
    virtual void UserSetCell(int ACol, int ARow, const std::string& Text);
    virtual void UserSetValue(int Value);
    virtual void Click();
    virtual void DblClick();
    virtual void MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y);
    virtual void MouseMove(TShiftState Shift, int X, int Y);
    virtual void MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y);
    // Asks whether Source may be dropped here: false unless OnDragOver is assigned and accepts.
    virtual bool DragOver(rtl::TObject* Source, int X, int Y, TDragState State);
    virtual void DragDrop(rtl::TObject* Source, int X, int Y);
    virtual void DoEndDrag(rtl::TObject* Target, int X, int Y);
    virtual void Resize();

    // Fills the kind-specific part of a form description; DescribeControl walks the tree.
    virtual void Describe(TControlDesc& d) const;

    // Streaming hooks: a control's parent is its parent component.
    bool HasParent() const override { return true; }
    TComponent* GetParentComponent() const override;
    void SetParentComponent(TComponent* Value) override;
    void SetName(const std::string& NewName) override;

    TNotifyEvent OnClick;
    TNotifyEvent OnDblClick;
    TMouseEvent OnMouseDown;
    TMouseMoveEvent OnMouseMove;
    TMouseEvent OnMouseUp;
    TDragOverEvent OnDragOver;
    TDragDropEvent OnDragDrop;
    TEndDragEvent OnEndDrag;
    TNotifyEvent OnResize;

    // Change notifications from the parent (font, colour, hint flag) and to the control itself.
    virtual void ParentFontChanged();
    virtual void ParentColorChanged();
    virtual void ParentShowHintChanged();
    virtual void EnabledChanged() {}
    virtual void VisibleChanged() {}
    virtual void TextChanged() {}
    virtual void FontChanged();
    virtual void ColorChanged() {}

protected:
    void Notification(TComponent* AComponent, rtl::TOperation Operation) override;
    // Asks the parent to lay out its aligned children again after this control moved or changed.
    void RequestAlign();

    TWinControl* FParent = nullptr;
    int FLeft = 0, FTop = 0, FWidth = 0, FHeight = 0;
    TAlign FAlign = alNone;
    TAnchors FAnchors{akLeft, akTop};
    bool FVisible = true;
    bool FEnabled = true;
    std::string FText;
    std::string FHint;
    bool FShowHint = false;
    bool FParentShowHint = true;
    std::unique_ptr<TFont> FFont;
    bool FParentFont = true;
    TColor FColor = clWindow;
    bool FParentColor = false;
    TCursor FCursor = crDefault;
    TPopupMenu* FPopupMenu = nullptr;
    THelpContext FHelpContext = 0;
    THelpType FHelpType = htContext;
    std::string FHelpKeyword;
    TDragMode FDragMode = dmManual;
    TCursor FDragCursor = crDrag;
    TControlStyle FControlStyle{csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    bool FUpdatingFromParent = false;

private:
    friend class TWinControl;
};

// ---- TWinControl ------------------------------------------------------------------------------------------
class TWinControl : public TControl {
    JEX_CLASS(TWinControl, TControl)
    explicit TWinControl(TComponent* AOwner);
    // Destroys every child control, whoever owns it.
    ~TWinControl() override;

    // Child order (z-order): creating or re-parenting a child appends it.
    int ControlCount() const { return static_cast<int>(FControls.size()); }
    TControl* Controls(int index) const; // raises EListError out of range
    const std::vector<TControl*>& ControlList() const { return FControls; }
    void InsertControl(TControl* AControl); // sets AControl's parent to this control
    void RemoveControl(TControl* AControl);
    // True when AControl is this control or lies anywhere below it.
    bool ContainsControl(const TControl* AControl) const;
    // A child (not a grandchild) by name, ignoring case, or nil.
    TControl* FindChildControl(const std::string& ControlName) const;

    // Tab order: the position among the windowed children of the parent; -1 while there is no parent.
    int TabOrder() const;
    void SetTabOrder(int v);
    bool TabStop() const { return FTabStop; }
    void SetTabStop(bool v) { FTabStop = v; }
    // Windowed children in tab order.
    std::vector<TWinControl*> TabList() const { return FTabList; }
    // The next control to focus after CurControl in tab order (wrapping), among this control's descendants.
    TWinControl* FindNextControl(TWinControl* CurControl, bool GoForward, bool CheckTabStop,
                                 bool CheckParent) const;

    bool CanFocus() const;
    bool Focused() const;
    // Makes this control the focused control of its form (OnExit of the old one, then OnEnter).
    virtual void SetFocus();

    bool Ctl3D() const { return FCtl3D; }
    void SetCtl3D(bool v) { FCtl3D = v; }
    bool ParentCtl3D() const { return FParentCtl3D; }
    void SetParentCtl3D(bool v) { FParentCtl3D = v; }
    int BorderWidth() const { return FBorderWidth; }
    void SetBorderWidth(int v);

    // Layout of aligned and anchored children.
    void DisableAlign() { ++FAlignLevel; }
    void EnableAlign();
    void Realign() { AlignControls(); }
    virtual void AlignControls();
    // The rectangle that aligned children share; the client rectangle less borders and bevels.
    virtual TRect AdjustClientRect() const;

    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;

    // Person entry points for the keyboard; the form's KeyPreview and dialog keys are handled by the form.
    virtual void KeyDown(uint16_t& Key, TShiftState Shift);
    virtual void KeyPress(char& Key);
    virtual void KeyUp(uint16_t& Key, TShiftState Shift);
    virtual void DoEnter();
    virtual void DoExit();
    // Whether the control consumes Enter and Escape itself (memos, grids in edit mode).
    virtual bool WantsKey(uint16_t Key) const { return false; }
    // Whether a person's click moves the focus here.
    virtual bool FocusOnClick() const { return FTabStop; }

    void GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) override;
    void SetChildOrder(TComponent* Child, int Order) override;
    void ParentFontChanged() override;
    void ParentColorChanged() override;
    void ParentShowHintChanged() override;
    void FontChanged() override;
    void ColorChanged() override;

    TKeyEvent OnKeyDown;
    TKeyPressEvent OnKeyPress;
    TKeyEvent OnKeyUp;
    TNotifyEvent OnEnter;
    TNotifyEvent OnExit;

protected:
    virtual void ControlAdded(TControl* AControl) {}
    virtual void ControlRemoved(TControl* AControl) {}
    void NotifyChildrenColor();
    std::vector<TControl*> FControls;
    std::vector<TWinControl*> FTabList;
    bool FTabStop = false;
    bool FCtl3D = true;
    bool FParentCtl3D = true;
    int FBorderWidth = 0;
    int FAlignLevel = 0;
    bool FAligning = false;

private:
    friend class TControl;
    void AddChild(TControl* c);
    void RemoveChild(TControl* c);
    void AnchorChildren(int dw, int dh);
};

// A control without a window of its own (labels, speed buttons, bevels, images).
class TGraphicControl : public TControl {
    JEX_CLASS(TGraphicControl, TControl)
    using TControl::TControl;
};

// A windowed control that paints itself.
class TCustomControl : public TWinControl {
    JEX_CLASS(TCustomControl, TWinControl)
    using TWinControl::TWinControl;
};

// The form the control sits on (walking parents), or nil.
TCustomForm* GetParentForm(const TControl* Control);
// "Short|Long" hints: the part before and after the first '|'.
std::string GetShortHint(const std::string& Hint);
std::string GetLongHint(const std::string& Hint);
// Average text metrics of a font, used where the platform sizes a control to its text (AutoSize).
int TextHeightOf(const TFont* font);
int TextWidthOf(const TFont* font, const std::string& text);

} // namespace vcl
