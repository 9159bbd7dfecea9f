// TControl and TWinControl: parent/child order, bounds, alignment and anchors, inherited fonts, colours and
// hint flags, tab order and focus, and the person entry points that raise the controls' events.
#include "vcl/controls.h"

#include <algorithm>
#include <cstdlib>

#include "publish.h"
#include "vcl/forms.h"
#include "vcl/menus.h"

namespace vcl {

using rtl::TTypeInfo;

JEX_DEFINE_ALIAS_TYPE(TypeInfo_TCaption, "TCaption", rtl::TypeInfo_String)
JEX_DEFINE_ALIAS_TYPE(TypeInfo_TModalResult, "TModalResult", rtl::TypeInfo_Integer)

const TTypeInfo* TypeInfo_TCursor() {
    static const TTypeInfo ti =
        TTypeInfo::MakeOrdinal("TCursor", rtl::tkInteger, rtl::otSWord, -32768, 32767);
    return &ti;
}
const TTypeInfo* TypeInfo_TTabOrder() {
    static const TTypeInfo ti = TTypeInfo::MakeOrdinal("TTabOrder", rtl::tkInteger, rtl::otSWord, -1, 32767);
    return &ti;
}

JEX_DEFINE_ENUM(TAlign)
JEX_DEFINE_ENUM(TAnchorKind)
JEX_DEFINE_SET(TAnchors, TAnchorKind)
JEX_DEFINE_ENUM(TAlignment)
JEX_DEFINE_ENUM(TTextLayout)
JEX_DEFINE_ENUM(TShiftStateFlag)
JEX_DEFINE_SET(TShiftState, TShiftStateFlag)
JEX_DEFINE_ENUM(TMouseButton)
JEX_DEFINE_ENUM(TDragState)
JEX_DEFINE_ENUM(TDragMode)
JEX_DEFINE_ENUM(THelpType)
JEX_DEFINE_ENUM(TFormBorderStyle)
JEX_DEFINE_ENUM(TControlStyleFlag)
JEX_DEFINE_SET(TControlStyle, TControlStyleFlag)
JEX_DEFINE_ENUM(TScrollStyle)

const TTypeInfo* TypeInfo_TBorderStyle() {
    static const TTypeInfo ti = [] {
        TTypeInfo t = TTypeInfo::MakeEnum("TBorderStyle", "bsNone, bsSingle");
        t.BaseType = TypeInfoOf(static_cast<TFormBorderStyle*>(nullptr));
        return t;
    }();
    return &ti;
}

JEX_DEFINE_EVENT_TYPE(TMouseEvent, "Sender: TObject; Button: TMouseButton; Shift: TShiftState; X, Y: Integer")
JEX_DEFINE_EVENT_TYPE(TMouseMoveEvent, "Sender: TObject; Shift: TShiftState; X, Y: Integer")
JEX_DEFINE_EVENT_TYPE(TKeyEvent, "Sender: TObject; var Key: Word; Shift: TShiftState")
JEX_DEFINE_EVENT_TYPE(TKeyPressEvent, "Sender: TObject; var Key: Char")
JEX_DEFINE_EVENT_TYPE(TDragOverEvent,
                      "Sender, Source: TObject; X, Y: Integer; State: TDragState; var Accept: Boolean")
JEX_DEFINE_EVENT_TYPE(TDragDropEvent, "Sender, Source: TObject; X, Y: Integer")
JEX_DEFINE_EVENT_TYPE(TEndDragEvent, "Sender, Target: TObject; X, Y: Integer")

// ---- Cursors ------------------------------------------------------------------------------------------
namespace {
struct CursorName {
    TCursor Value;
    const char* Name;
};
constexpr CursorName kCursors[] = {
    {crDefault, "crDefault"},
    {crArrow, "crArrow"},
    {crCross, "crCross"},
    {crIBeam, "crIBeam"},
    {crSizeNESW, "crSizeNESW"},
    {crSizeNS, "crSizeNS"},
    {crSizeNWSE, "crSizeNWSE"},
    {crSizeWE, "crSizeWE"},
    {crUpArrow, "crUpArrow"},
    {crHourGlass, "crHourGlass"},
    {crDrag, "crDrag"},
    {crNoDrop, "crNoDrop"},
    {crHSplit, "crHSplit"},
    {crVSplit, "crVSplit"},
    {crMultiDrag, "crMultiDrag"},
    {crSQLWait, "crSQLWait"},
    {crNo, "crNo"},
    {crAppStart, "crAppStart"},
    {crHelp, "crHelp"},
    {crHandPoint, "crHandPoint"},
    {crSizeAll, "crSizeAll"},
    {crNone, "crNone"},
};
} // namespace

bool CursorToIdent(TCursor cursor, std::string& ident) {
    for (const auto& c : kCursors)
        if (c.Value == cursor) {
            ident = c.Name;
            return true;
        }
    return false;
}

bool IdentToCursor(const std::string& ident, TCursor& cursor) {
    for (const auto& c : kCursors)
        if (rtl::SameText(ident, c.Name)) {
            cursor = c.Value;
            return true;
        }
    return false;
}

std::string CursorToString(TCursor cursor) {
    std::string s;
    return CursorToIdent(cursor, s) ? s : rtl::IntToStr(cursor);
}

TCursor StringToCursor(const std::string& s) {
    TCursor c;
    if (IdentToCursor(s, c)) return c;
    return rtl::StrToInt(s);
}

void GetCursorValues(const std::function<void(const std::string&)>& proc) {
    for (const auto& c : kCursors)
        proc(c.Name);
}

// ---- Helpers ------------------------------------------------------------------------------------------
TCustomForm* GetParentForm(const TControl* Control) {
    const TControl* c = Control;
    while (c && c->Parent())
        c = c->Parent();
    if (!c) return nullptr;
    return dynamic_cast<TCustomForm*>(const_cast<TControl*>(c));
}

std::string GetShortHint(const std::string& Hint) {
    auto p = Hint.find('|');
    return p == std::string::npos ? Hint : Hint.substr(0, p);
}

std::string GetLongHint(const std::string& Hint) {
    auto p = Hint.find('|');
    return p == std::string::npos ? Hint : Hint.substr(p + 1);
}

int TextHeightOf(const TFont* font) {
    int h = font ? std::abs(font->Height()) : 11;
    return h + 2; // the platform's default 8-point font measures 13 pixels
}

int TextWidthOf(const TFont* font, const std::string& text) {
    // An average advance of a little over half the character height, counting UTF-8 code points.
    int h = font ? std::abs(font->Height()) : 11;
    int n = 0;
    for (unsigned char ch : text)
        if ((ch & 0xC0) != 0x80) ++n;
    return (n * h * 6 + 5) / 11;
}

// ---- TControl -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TControl, TComponent, "Controls") {
    d.Property("Left", &TControl::Left, &TControl::SetLeft);
    d.Property("Top", &TControl::Top, &TControl::SetTop);
    d.Property("Width", &TControl::Width, &TControl::SetWidth);
    d.Property("Height", &TControl::Height, &TControl::SetHeight);
    d.Property("Cursor", &TControl::Cursor, &TControl::SetCursor, TypeInfo_TCursor()).Default(crDefault);
    d.Property("Hint", &TControl::Hint, &TControl::SetHint);
    d.Property("HelpType", &TControl::HelpType, &TControl::SetHelpType).Default(htContext);
    d.Property("HelpKeyword", &TControl::HelpKeyword, &TControl::SetHelpKeyword);
    d.Property("HelpContext", &TControl::HelpContext, &TControl::SetHelpContext, rtl::TypeInfo_THelpContext())
        .Default(0);
}

TControl::TControl(TComponent* AOwner) : TComponent(AOwner), FFont(std::make_unique<TFont>()) {
    FFont->OnChange = [this](rtl::TObject*) { FontChanged(); };
}

TControl::~TControl() {
    if (FPopupMenu) FPopupMenu->RemoveFreeNotification(this);
    if (FParent) {
        if (TCustomForm* f = GetParentForm(this)) f->ControlRemoving(this);
        FParent->RemoveChild(this);
    }
}

void TControl::SetParent(TWinControl* AParent) {
    if (AParent == FParent) return;
    if (AParent == this) throw rtl::EInvalidOperation("A control cannot have itself as its parent");
    if (auto* self = dynamic_cast<TWinControl*>(this); self && AParent && self->ContainsControl(AParent))
        throw rtl::EInvalidOperation("A control cannot have itself as its parent");
    if (FParent) {
        if (TCustomForm* f = GetParentForm(this)) f->ControlRemoving(this);
        FParent->RemoveChild(this);
    }
    if (AParent) {
        AParent->AddChild(this);
        if (FParentFont) ParentFontChanged();
        if (FParentColor) ParentColorChanged();
        if (FParentShowHint) ParentShowHintChanged();
        RequestAlign();
    }
}

void TControl::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    if (ALeft == FLeft && ATop == FTop && AWidth == FWidth && AHeight == FHeight) return;
    bool sized = AWidth != FWidth || AHeight != FHeight;
    TRect oldClient = ClientRect();
    FLeft = ALeft;
    FTop = ATop;
    FWidth = AWidth;
    FHeight = AHeight;
    if (sized) {
        if (auto* w = dynamic_cast<TWinControl*>(this)) {
            TRect nc = ClientRect();
            w->AnchorChildren(nc.Width() - oldClient.Width(), nc.Height() - oldClient.Height());
            w->AlignControls();
        }
    }
    if (FAlign != alNone) RequestAlign();
    if (sized) Resize();
}

TPoint TControl::ClientOrigin() const {
    TPoint p{0, 0};
    if (FParent) {
        TPoint o = FParent->ClientOrigin();
        p = Point(o.X + FLeft, o.Y + FTop);
    }
    return p;
}

TPoint TControl::ClientToScreen(TPoint p) const {
    TPoint o = ClientOrigin();
    return Point(p.X + o.X, p.Y + o.Y);
}

TPoint TControl::ScreenToClient(TPoint p) const {
    TPoint o = ClientOrigin();
    return Point(p.X - o.X, p.Y - o.Y);
}

void TControl::SetAlign(TAlign v) {
    if (v == FAlign) return;
    TAlign old = FAlign;
    FAlign = v;
    // The platform resets the anchors to the ones the new alignment implies.
    switch (v) {
    case alTop:
        FAnchors = TAnchors{akLeft, akTop, akRight};
        break;
    case alBottom:
        FAnchors = TAnchors{akLeft, akRight, akBottom};
        break;
    case alLeft:
        FAnchors = TAnchors{akLeft, akTop, akBottom};
        break;
    case alRight:
        FAnchors = TAnchors{akRight, akTop, akBottom};
        break;
    case alClient:
        FAnchors = TAnchors{akLeft, akTop, akRight, akBottom};
        break;
    default:
        FAnchors = TAnchors{akLeft, akTop};
        break;
    }
    if (old != alNone || v != alNone) RequestAlign();
}

void TControl::SetVisible(bool v) {
    if (v == FVisible) return;
    FVisible = v;
    VisibleChanged();
    if (FAlign != alNone) RequestAlign();
}

bool TControl::Showing() const {
    for (const TControl* c = this; c; c = c->FParent)
        if (!c->FVisible) return false;
    return true;
}

void TControl::SetEnabled(bool v) {
    if (v == FEnabled) return;
    FEnabled = v;
    EnabledChanged();
}

bool TControl::CanBeActedOn() const {
    for (const TControl* c = this; c; c = c->FParent)
        if (!c->FVisible || !c->FEnabled) return false;
    return true;
}

void TControl::SetText(const std::string& v) {
    if (v == FText) return;
    FText = v;
    TextChanged();
}

void TControl::SetName(const std::string& NewName) {
    // Controls whose caption still shows their name keep following it (a new "Button1" reads "Button1").
    bool changeText = FControlStyle.Contains(csSetCaption) && !IsLoading() && Name() == GetText();
    if (changeText) {
        if (auto* owner = dynamic_cast<TControl*>(Owner()); owner && owner->IsLoading()) changeText = false;
    }
    TComponent::SetName(NewName);
    if (changeText) SetText(NewName);
}

void TControl::SetShowHint(bool v) {
    FParentShowHint = false;
    if (v == FShowHint) return;
    FShowHint = v;
    if (auto* w = dynamic_cast<TWinControl*>(this))
        for (TControl* c : w->FControls)
            c->ParentShowHintChanged();
}

void TControl::SetParentShowHint(bool v) {
    if (v == FParentShowHint) return;
    FParentShowHint = v;
    if (v) ParentShowHintChanged();
}

void TControl::ParentShowHintChanged() {
    if (!FParentShowHint || !FParent) return;
    FShowHint = FParent->FShowHint;
}

void TControl::SetFont(TFont* v) {
    if (v) FFont->Assign(v);
}

void TControl::FontChanged() {
    if (!FUpdatingFromParent) FParentFont = false;
}

void TControl::SetParentFont(bool v) {
    if (v == FParentFont) return;
    FParentFont = v;
    if (v) ParentFontChanged();
}

void TControl::ParentFontChanged() {
    if (!FParentFont || !FParent) return;
    FUpdatingFromParent = true;
    try {
        FFont->Assign(FParent->Font());
    } catch (...) {
        FUpdatingFromParent = false;
        throw;
    }
    FUpdatingFromParent = false;
    FParentFont = true;
}

void TControl::SetColor(TColor v) {
    FParentColor = false;
    if (v == FColor) return;
    FColor = v;
    ColorChanged();
}

void TControl::SetParentColor(bool v) {
    if (v == FParentColor) return;
    FParentColor = v;
    if (v) ParentColorChanged();
}

void TControl::ParentColorChanged() {
    if (!FParentColor || !FParent) return;
    if (FColor == FParent->Color()) return;
    FColor = FParent->Color();
    ColorChanged();
}

void TControl::SetPopupMenu(TPopupMenu* v) {
    if (v == FPopupMenu) return;
    if (FPopupMenu) FPopupMenu->RemoveFreeNotification(this);
    FPopupMenu = v;
    if (v) v->FreeNotification(this);
}

void TControl::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TComponent::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FPopupMenu) FPopupMenu = nullptr;
}

void TControl::BringToFront() {
    if (!FParent) return;
    auto& v = FParent->FControls;
    v.erase(std::find(v.begin(), v.end(), this));
    v.push_back(this);
}

void TControl::SendToBack() {
    if (!FParent) return;
    auto& v = FParent->FControls;
    v.erase(std::find(v.begin(), v.end(), this));
    v.insert(v.begin(), this);
}

void TControl::RequestAlign() {
    if (FParent && !FParent->FAligning && FParent->FAlignLevel == 0) FParent->AlignControls();
}

namespace {
[[noreturn]] void CannotDo(const TControl* c, const char* what) {
    throw EUserActionError("Control '" + c->Name() + "' (" + c->ClassName() + ") cannot " + what);
}
} // namespace

void TControl::UserType(const std::string&) {
    CannotDo(this, "take typed text");
}
void TControl::UserCheck(bool) {
    CannotDo(this, "be checked");
}
void TControl::UserSelect(int) {
    CannotDo(this, "select an item");
}
void TControl::UserSelectText(const std::string&) {
    CannotDo(this, "select an item");
}
void TControl::UserSelectMulti(const std::vector<int>&) {
    CannotDo(this, "select several items");
}
void TControl::UserSelectCell(int, int) {
    CannotDo(this, "select a cell");
}
void TControl::UserSetCell(int, int, const std::string&) {
    CannotDo(this, "edit a cell");
}
void TControl::UserSetValue(int) {
    CannotDo(this, "take a value");
}

void TControl::Click() {
    OnClick(this);
}
void TControl::DblClick() {
    OnDblClick(this);
}
void TControl::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    OnMouseDown(this, Button, Shift, X, Y);
}
void TControl::MouseMove(TShiftState Shift, int X, int Y) {
    OnMouseMove(this, Shift, X, Y);
}
void TControl::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    OnMouseUp(this, Button, Shift, X, Y);
}

bool TControl::DragOver(rtl::TObject* Source, int X, int Y, TDragState State) {
    if (!OnDragOver) return false;
    bool accept = true;
    OnDragOver(this, Source, X, Y, State, accept);
    return accept;
}

void TControl::DragDrop(rtl::TObject* Source, int X, int Y) {
    OnDragDrop(this, Source, X, Y);
}
void TControl::DoEndDrag(rtl::TObject* Target, int X, int Y) {
    OnEndDrag(this, Target, X, Y);
}
void TControl::Resize() {
    OnResize(this);
}

TComponent* TControl::GetParentComponent() const {
    return FParent;
}

void TControl::SetParentComponent(TComponent* Value) {
    if (auto* w = dynamic_cast<TWinControl*>(Value); w && w != FParent) SetParent(w);
}

void TControl::Describe(TControlDesc& d) const {
    d.Kind = ClassName();
    d.Name = Name();
    d.Left = FLeft;
    d.Top = FTop;
    d.Width = FWidth;
    d.Height = FHeight;
    d.Caption = GetText();
    d.Hint = FHint;
    d.Enabled = FEnabled;
    d.Visible = FVisible;
}

// ---- TWinControl --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TWinControl, TControl, "Controls") {}

TWinControl::TWinControl(TComponent* AOwner) : TControl(AOwner) {}

TWinControl::~TWinControl() {
    if (TCustomForm* f = GetParentForm(this); f && f != static_cast<TControl*>(this))
        f->ControlRemoving(this);
    while (!FControls.empty()) {
        TControl* c = FControls.back();
        RemoveChild(c);
        c->Free();
    }
}

TControl* TWinControl::Controls(int index) const {
    if (index < 0 || index >= ControlCount())
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {index}));
    return FControls[static_cast<size_t>(index)];
}

void TWinControl::AddChild(TControl* c) {
    FControls.push_back(c);
    c->FParent = this;
    if (auto* w = dynamic_cast<TWinControl*>(c)) FTabList.push_back(w);
    ControlAdded(c);
}

void TWinControl::RemoveChild(TControl* c) {
    auto it = std::find(FControls.begin(), FControls.end(), c);
    if (it == FControls.end()) return;
    FControls.erase(it);
    // Compared by address: a child being destroyed is no longer a TWinControl to dynamic_cast.
    FTabList.erase(std::remove_if(FTabList.begin(), FTabList.end(),
                                  [c](TWinControl* w) { return static_cast<TControl*>(w) == c; }),
                   FTabList.end());
    c->FParent = nullptr;
    ControlRemoved(c);
    if (c->FAlign != alNone && !IsDestroying()) AlignControls();
}

void TWinControl::InsertControl(TControl* AControl) {
    if (AControl) AControl->SetParent(this);
}

void TWinControl::RemoveControl(TControl* AControl) {
    if (AControl && AControl->FParent == this) AControl->SetParent(nullptr);
}

bool TWinControl::ContainsControl(const TControl* AControl) const {
    for (const TControl* c = AControl; c; c = c->Parent())
        if (c == this) return true;
    return false;
}

TControl* TWinControl::FindChildControl(const std::string& ControlName) const {
    for (TControl* c : FControls)
        if (rtl::SameText(c->Name(), ControlName)) return c;
    return nullptr;
}

int TWinControl::TabOrder() const {
    if (!FParent) return -1;
    const auto& t = FParent->FTabList;
    auto it = std::find(t.begin(), t.end(), this);
    return it == t.end() ? -1 : static_cast<int>(it - t.begin());
}

void TWinControl::SetTabOrder(int v) {
    if (!FParent) return;
    auto& t = FParent->FTabList;
    int cur = TabOrder();
    if (cur < 0) return;
    int count = static_cast<int>(t.size());
    if (v < 0) v = 0;
    if (v >= count) v = count - 1;
    if (v == cur) return;
    t.erase(t.begin() + cur);
    t.insert(t.begin() + v, this);
}

namespace {
void CollectTabOrder(const TWinControl* c, std::vector<TWinControl*>& out) {
    for (TWinControl* w : c->TabList()) {
        out.push_back(w);
        CollectTabOrder(w, out);
    }
}
} // namespace

TWinControl* TWinControl::FindNextControl(TWinControl* CurControl, bool GoForward, bool CheckTabStop,
                                          bool CheckParent) const {
    std::vector<TWinControl*> list;
    CollectTabOrder(this, list);
    if (list.empty()) return nullptr;
    int n = static_cast<int>(list.size());
    int start = -1;
    for (int i = 0; i < n; ++i)
        if (list[i] == CurControl) start = i;
    if (start < 0) start = GoForward ? n - 1 : 0;
    int i = start;
    for (int step = 0; step < n; ++step) {
        i = GoForward ? (i + 1) % n : (i + n - 1) % n;
        TWinControl* c = list[i];
        if (c == CurControl && step > 0) break;
        if ((!CheckTabStop || c->TabStop()) && (!CheckParent || c->Parent() == this) && c->CanFocus())
            return c;
    }
    return nullptr;
}

bool TWinControl::CanFocus() const {
    TCustomForm* form = GetParentForm(this);
    if (!form) return false;
    for (const TControl* c = this; c && c != form; c = c->Parent())
        if (!c->Visible() || !c->Enabled()) return false;
    return true;
}

bool TWinControl::Focused() const {
    TCustomForm* form = GetParentForm(this);
    return form && form->FocusedControl() == this;
}

void TWinControl::SetFocus() {
    TCustomForm* form = GetParentForm(this);
    if (!form) throw rtl::EInvalidOperation("Cannot focus a disabled or invisible window");
    form->FocusControl(this);
}

void TWinControl::SetBorderWidth(int v) {
    if (v == FBorderWidth) return;
    FBorderWidth = v;
    AlignControls();
}

void TWinControl::EnableAlign() {
    if (FAlignLevel > 0 && --FAlignLevel == 0) AlignControls();
}

TRect TWinControl::AdjustClientRect() const {
    TRect r = ClientRect();
    return Rect(r.Left + FBorderWidth, r.Top + FBorderWidth, r.Right - FBorderWidth, r.Bottom - FBorderWidth);
}

void TWinControl::AlignControls() {
    if (FAlignLevel > 0 || FAligning) return;
    FAligning = true;
    try {
        TRect r = AdjustClientRect();
        auto place = [&](TAlign align) {
            std::vector<TControl*> list;
            for (TControl* c : FControls)
                if (c->FAlign == align && c->FVisible) list.push_back(c);
            // Controls of one alignment stack in the order of their position, then of their child order.
            std::stable_sort(list.begin(), list.end(), [align](TControl* a, TControl* b) {
                switch (align) {
                case alTop:
                    return a->FTop < b->FTop;
                case alBottom:
                    return a->FTop + a->FHeight > b->FTop + b->FHeight;
                case alLeft:
                    return a->FLeft < b->FLeft;
                case alRight:
                    return a->FLeft + a->FWidth > b->FLeft + b->FWidth;
                default:
                    return false;
                }
            });
            for (TControl* c : list) {
                int w = c->FWidth, h = c->FHeight;
                int rw = std::max(0, r.Width()), rh = std::max(0, r.Height());
                switch (align) {
                case alTop:
                    c->SetBounds(r.Left, r.Top, rw, h);
                    r.Top += c->FHeight;
                    break;
                case alBottom:
                    c->SetBounds(r.Left, r.Bottom - h, rw, h);
                    r.Bottom -= c->FHeight;
                    break;
                case alLeft:
                    c->SetBounds(r.Left, r.Top, w, rh);
                    r.Left += c->FWidth;
                    break;
                case alRight:
                    c->SetBounds(r.Right - w, r.Top, w, rh);
                    r.Right -= c->FWidth;
                    break;
                case alClient:
                    c->SetBounds(r.Left, r.Top, rw, rh);
                    break;
                default:
                    break;
                }
            }
        };
        place(alTop);
        place(alBottom);
        place(alLeft);
        place(alRight);
        place(alClient);
    } catch (...) {
        FAligning = false;
        throw;
    }
    FAligning = false;
}

void TWinControl::AnchorChildren(int dw, int dh) {
    if (dw == 0 && dh == 0) return;
    if (IsLoading()) return;
    for (TControl* c : FControls) {
        if (c->FAlign != alNone) continue;
        TAnchors a = c->FAnchors;
        int l = c->FLeft, t = c->FTop, w = c->FWidth, h = c->FHeight;
        if (a.Contains(akRight)) {
            if (a.Contains(akLeft))
                w += dw;
            else
                l += dw;
        } else if (!a.Contains(akLeft)) {
            l += dw / 2;
        }
        if (a.Contains(akBottom)) {
            if (a.Contains(akTop))
                h += dh;
            else
                t += dh;
        } else if (!a.Contains(akTop)) {
            t += dh / 2;
        }
        c->SetBounds(l, t, std::max(0, w), std::max(0, h));
    }
}

void TWinControl::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    TControl::SetBounds(ALeft, ATop, AWidth, AHeight);
}

void TWinControl::KeyDown(uint16_t& Key, TShiftState Shift) {
    OnKeyDown(this, Key, Shift);
}
void TWinControl::KeyPress(char& Key) {
    OnKeyPress(this, Key);
}
void TWinControl::KeyUp(uint16_t& Key, TShiftState Shift) {
    OnKeyUp(this, Key, Shift);
}
void TWinControl::DoEnter() {
    OnEnter(this);
}
void TWinControl::DoExit() {
    OnExit(this);
}

void TWinControl::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    for (TControl* c : FControls)
        if (c->Owner() == Root) Proc(c);
}

void TWinControl::SetChildOrder(TComponent* Child, int Order) {
    auto* c = dynamic_cast<TControl*>(Child);
    if (!c || c->Parent() != this) return;
    auto it = std::find(FControls.begin(), FControls.end(), c);
    FControls.erase(it);
    Order = std::clamp(Order, 0, static_cast<int>(FControls.size()));
    FControls.insert(FControls.begin() + Order, c);
}

void TWinControl::FontChanged() {
    TControl::FontChanged();
    for (TControl* c : FControls)
        c->ParentFontChanged();
}

void TWinControl::ParentFontChanged() {
    TControl::ParentFontChanged();
}

void TWinControl::ColorChanged() {
    NotifyChildrenColor();
}

void TWinControl::ParentColorChanged() {
    TControl::ParentColorChanged();
}

void TWinControl::NotifyChildrenColor() {
    for (TControl* c : FControls)
        c->ParentColorChanged();
}

void TWinControl::ParentShowHintChanged() {
    if (!FParentShowHint || !FParent) return;
    FShowHint = FParent->ShowHint();
    for (TControl* c : FControls)
        c->ParentShowHintChanged();
}

JEX_IMPLEMENT_CLASS(TGraphicControl, TControl, "Controls") {}
JEX_IMPLEMENT_CLASS(TCustomControl, TWinControl, "Controls") {}

} // namespace vcl
