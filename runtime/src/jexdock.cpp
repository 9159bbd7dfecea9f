// Docks, tool windows, toolbars and their controls, and the library's menus.
#include "jex/jexdock.h"

#include <algorithm>
#include <cctype>

#include "jexpublish.h"
#include "vcl/forms.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TjexDockPosition)
JEX_DEFINE_SET(TjexDockableTo, TjexDockPosition)
JEX_DEFINE_ENUM(TjexDockBoundLine)
JEX_DEFINE_SET(TjexDockBoundLines, TjexDockBoundLine)
JEX_DEFINE_ENUM(TjexToolWindowDockMode)
JEX_DEFINE_ENUM(TjexToolWindowFloatingMode)
JEX_DEFINE_ENUM(TjexToolbarButtonDisplayMode)
JEX_DEFINE_ENUM(TjexMenuOption)
JEX_DEFINE_SET(TjexMenuOptions, TjexMenuOption)
JEX_DEFINE_ENUM(TjexSystemMenuItem)
JEX_DEFINE_SET(TjexSystemMenuItems, TjexSystemMenuItem)

namespace {
constexpr int kToolWindowBorder = 2;
constexpr TjexMenuOptions kDefaultMenuOptions{jmoShowImages, jmoShowHints};
constexpr TjexSystemMenuItems kAllSystemItems{jsiRestore,  jsiMove,     jsiSize,
                                              jsiMinimize, jsiMaximize, jsiClose};

template <class T> void SetReference(rtl::TComponent* self, T*& field, T* value) {
    if (field == value) return;
    if (field) field->RemoveFreeNotification(self);
    field = value;
    if (field) field->FreeNotification(self);
}
} // namespace

// ---- Dock ------------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexDock, TCustomControl, "jexdock") {
    d.Property("AllowDrag", &TjexDock::AllowDrag, &TjexDock::SetAllowDrag).Default(true);
    d.Property("Background", &TjexDock::Background, &TjexDock::SetBackground);
    d.Property("BackgroundOnToolbars", &TjexDock::BackgroundOnToolbars, &TjexDock::SetBackgroundOnToolbars)
        .Default(true);
    d.Property("BackgroundTransparent", &TjexDock::BackgroundTransparent, &TjexDock::SetBackgroundTransparent)
        .Default(false);
    d.Property("BoundLines", &TjexDock::BoundLines, &TjexDock::SetBoundLines).Default(0);
    pub::Color(d, clBtnFace);
    d.Property("FixAlign", &TjexDock::FixAlign, &TjexDock::SetFixAlign).Default(false);
    d.Property("LimitToOneRow", &TjexDock::LimitToOneRow, &TjexDock::SetLimitToOneRow).Default(false);
    pub::PopupMenu(d);
    d.Property("Position", &TjexDock::Position, &TjexDock::SetPosition).Default(jdpTop);
    pub::Visible(d);
    pub::OnResize(d);
}

TjexDock::TjexDock(rtl::TComponent* AOwner)
    : TCustomControl(AOwner), FBackground(std::make_unique<TPicture>()) {
    FControlStyle.Include(csAcceptsControls);
    FColor = clBtnFace;
    FWidth = 150;
    FHeight = 9;
    SetAlign(alTop);
}

TjexDock::~TjexDock() = default;

void TjexDock::SetBoundLines(TjexDockBoundLines Value) {
    FBoundLines = Value;
    ArrangeToolWindows();
}

void TjexDock::SetFixAlign(bool Value) {
    FFixAlign = Value;
    ArrangeToolWindows();
}

void TjexDock::SetLimitToOneRow(bool Value) {
    FLimitToOneRow = Value;
    ArrangeToolWindows();
}

void TjexDock::SetPosition(TjexDockPosition Value) {
    FPosition = Value;
    static const TAlign aligns[] = {alTop, alBottom, alLeft, alRight};
    SetAlign(aligns[Value]);
    for (TjexCustomToolWindow* w : ToolWindows())
        w->Arrange();
    ArrangeToolWindows();
}

int TjexDock::BoundLineWidth(TjexDockBoundLine Line) const {
    return FBoundLines.Contains(Line) ? 1 : 0;
}

std::vector<TjexCustomToolWindow*> TjexDock::ToolWindows() const {
    std::vector<TjexCustomToolWindow*> list;
    for (TControl* c : FControls)
        if (auto* w = dynamic_cast<TjexCustomToolWindow*>(c)) list.push_back(w);
    bool oneRow = FLimitToOneRow;
    std::stable_sort(list.begin(), list.end(), [oneRow](TjexCustomToolWindow* a, TjexCustomToolWindow* b) {
        int ra = oneRow ? 0 : a->DockRow(), rb = oneRow ? 0 : b->DockRow();
        if (ra != rb) return ra < rb;
        // A window without a position goes after those that have one.
        auto key = [](int p) { return p < 0 ? INT32_MAX : p; };
        return key(a->DockPos()) < key(b->DockPos());
    });
    return list;
}

int TjexDock::RowCount() const {
    int rows = 0, last = INT32_MIN;
    for (TjexCustomToolWindow* w : ToolWindows()) {
        if (!w->Visible()) continue;
        int r = FLimitToOneRow ? 0 : w->DockRow();
        if (r != last) {
            ++rows;
            last = r;
        }
    }
    return rows;
}

void TjexDock::ArrangeToolWindows() {
    if (FArranging || IsLoading() || IsDestroying()) return;
    FArranging = true;
    try {
        bool horz = Horizontal();
        int startAlong = horz ? BoundLineWidth(jdbLeft) : BoundLineWidth(jdbTop);
        int endAlong = horz ? Width() - BoundLineWidth(jdbRight) : Height() - BoundLineWidth(jdbBottom);
        int across = horz ? BoundLineWidth(jdbTop) : BoundLineWidth(jdbLeft);
        std::vector<TjexCustomToolWindow*> windows = ToolWindows();
        size_t i = 0;
        while (i < windows.size()) {
            int row = FLimitToOneRow ? 0 : windows[i]->DockRow();
            int along = startAlong, thickness = 0;
            for (; i < windows.size() && (FLimitToOneRow || windows[i]->DockRow() == row); ++i) {
                TjexCustomToolWindow* w = windows[i];
                if (!w->Visible()) continue;
                int len = horz ? w->Width() : w->Height();
                int thick = horz ? w->Height() : w->Width();
                if (w->FullSize()) len = std::max(0, endAlong - startAlong);
                along = std::max(along, w->DockPos());
                if (horz)
                    w->SetBounds(along, across, len, thick);
                else
                    w->SetBounds(across, along, thick, len);
                w->FDockPos = along;
                along += len;
                thickness = std::max(thickness, thick);
            }
            across += thickness;
        }
        int size = across + (horz ? BoundLineWidth(jdbBottom) : BoundLineWidth(jdbRight));
        if (windows.empty() && FFixAlign) size = std::max(size, 9);
        if (horz)
            SetBounds(Left(), Top(), Width(), size);
        else
            SetBounds(Left(), Top(), size, Height());
    } catch (...) {
        FArranging = false;
        throw;
    }
    FArranging = false;
}

void TjexDock::AlignControls() {
    TCustomControl::AlignControls();
    ArrangeToolWindows();
}

void TjexDock::Loaded() {
    TCustomControl::Loaded();
    ArrangeToolWindows();
}

void TjexDock::ControlAdded(TControl* AControl) {
    TCustomControl::ControlAdded(AControl);
    ArrangeToolWindows();
}

void TjexDock::ControlRemoved(TControl* AControl) {
    TCustomControl::ControlRemoved(AControl);
    ArrangeToolWindows();
}

// ---- Tool windows ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomToolWindow, TCustomControl, "jexdock") {}

TjexCustomToolWindow::TjexCustomToolWindow(rtl::TComponent* AOwner) : TCustomControl(AOwner) {
    FControlStyle.Include(csAcceptsControls);
    FColor = clBtnFace;
    FWidth = 2 * kToolWindowBorder + 9;
    FHeight = 2 * kToolWindowBorder + 22;
}

void TjexCustomToolWindow::SetDefaultDock(TjexDock* Value) {
    SetReference<TjexDock>(this, FDefaultDock, Value);
}

void TjexCustomToolWindow::SetDockedTo(TjexDock* Value) {
    if (Value == FDockedTo) return;
    if (!Value) {
        Float();
        return;
    }
    if (!FDockableTo.Contains(Value->Position()))
        throw rtl::EInvalidOperation(
            "'" + Name() + "' cannot dock to a " +
            rtl::GetEnumName(TypeInfoOf(static_cast<TjexDockPosition*>(nullptr)), Value->Position()) +
            " dock");
    if (FDockedTo && FDockMode == jdmCannotFloatOrChangeDocks && !IsLoading())
        throw rtl::EInvalidOperation("'" + Name() + "' cannot change docks");
    SetParent(Value);
}

void TjexCustomToolWindow::Float() {
    if (!FDockedTo) return;
    if (FDockMode != jdmCanFloat) throw rtl::EInvalidOperation("'" + Name() + "' cannot float");
    TWinControl* form = GetParentForm(this);
    SetParent(form == FDockedTo ? nullptr : form);
}

bool TjexCustomToolWindow::Vertical() const {
    return FDockedTo && !FDockedTo->Horizontal();
}

void TjexCustomToolWindow::SetParent(TWinControl* AParent) {
    TCustomControl::SetParent(AParent);
    TjexDock* dock = dynamic_cast<TjexDock*>(AParent);
    if (dock != FDockedTo) {
        FDockedTo = dock;
        DockChanged();
    }
}

void TjexCustomToolWindow::DockChanged() {
    Arrange();
    if (!IsLoading() && !IsDestroying()) OnDockChanged(this);
}

void TjexCustomToolWindow::SetDockPos(int Value) {
    FDockPos = Value;
    if (FDockedTo) FDockedTo->ArrangeToolWindows();
}

void TjexCustomToolWindow::SetDockRow(int Value) {
    FDockRow = Value;
    if (FDockedTo) FDockedTo->ArrangeToolWindows();
}

void TjexCustomToolWindow::SetDragHandle(bool Value) {
    if (FDragHandle == Value) return;
    FDragHandle = Value;
    Arrange();
}

void TjexCustomToolWindow::SetFullSize(bool Value) {
    FFullSize = Value;
    if (FDockedTo) FDockedTo->ArrangeToolWindows();
}

void TjexCustomToolWindow::BeginUpdate() {
    ++FUpdateCount;
}

void TjexCustomToolWindow::EndUpdate() {
    if (FUpdateCount == 0) return;
    if (--FUpdateCount == 0 && FArrangePending) Arrange();
}

void TjexCustomToolWindow::Arrange() {
    if (FUpdateCount > 0 || IsLoading()) {
        FArrangePending = true;
        return;
    }
    FArrangePending = false;
    if (FArranging || IsDestroying()) return;
    FArranging = true;
    try {
        ArrangeControls();
    } catch (...) {
        FArranging = false;
        throw;
    }
    FArranging = false;
    if (FDockedTo) FDockedTo->ArrangeToolWindows();
}

void TjexCustomToolWindow::ArrangeControls() {
    bool vert = Vertical();
    int along = kToolWindowBorder + HandleSize();
    int thickness = 0;
    std::vector<TControl*> visible;
    for (TControl* c : FControls)
        if (c->Visible()) visible.push_back(c);
    for (TControl* c : visible)
        if (!dynamic_cast<TjexToolbarSep*>(c))
            thickness = std::max(thickness, vert ? c->Width() : c->Height());
    if (thickness == 0) thickness = 22;
    for (TControl* c : visible) {
        int len = vert ? c->Height() : c->Width();
        int thick = vert ? c->Width() : c->Height();
        if (auto* sep = dynamic_cast<TjexToolbarSep*>(c)) {
            len = sep->SizeAlongRow();
            thick = thickness;
        }
        if (vert)
            c->SetBounds(kToolWindowBorder, along, thick, len);
        else
            c->SetBounds(along, kToolWindowBorder, len, thick);
        along += len;
    }
    int alongSize = along + kToolWindowBorder;
    int acrossSize = thickness + 2 * kToolWindowBorder;
    // A full-size window keeps the length its dock gave it.
    bool keepLength = FFullSize && FDockedTo;
    if (vert)
        SetBounds(Left(), Top(), acrossSize, keepLength ? Height() : alongSize);
    else
        SetBounds(Left(), Top(), keepLength ? Width() : alongSize, acrossSize);
}

void TjexCustomToolWindow::AlignControls() {
    TCustomControl::AlignControls();
}

void TjexCustomToolWindow::Loaded() {
    TCustomControl::Loaded();
    Arrange();
}

void TjexCustomToolWindow::ControlAdded(TControl* AControl) {
    TCustomControl::ControlAdded(AControl);
    Arrange();
}

void TjexCustomToolWindow::ControlRemoved(TControl* AControl) {
    TCustomControl::ControlRemoved(AControl);
    Arrange();
}

void TjexCustomToolWindow::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDefaultDock) FDefaultDock = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexToolbar, TjexCustomToolWindow, "jexdock") {
    pub::ToolWindowLooks(d);
    pub::Docking(d);
    d.Property("Images", &TjexToolbar::Images, &TjexToolbar::SetImages);
}

TjexToolbar::TjexToolbar(rtl::TComponent* AOwner) : TjexCustomToolWindow(AOwner) {}

void TjexToolbar::SetImages(TCustomImageList* Value) {
    SetReference<TCustomImageList>(this, FImages, Value);
}

void TjexToolbar::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomToolWindow::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexToolWindow, TjexCustomToolWindow, "jexdock") {
    pub::ToolWindowLooks(d);
    pub::Docking(d);
    d.Property("ClientAreaHeight", &TjexToolWindow::ClientAreaHeight, &TjexToolWindow::SetClientAreaHeight)
        .Default(50);
    d.Property("ClientAreaWidth", &TjexToolWindow::ClientAreaWidth, &TjexToolWindow::SetClientAreaWidth)
        .Default(100);
    d.Property("MinClientHeight", &TjexToolWindow::MinClientHeight, &TjexToolWindow::SetMinClientHeight)
        .Default(32);
    d.Property("MinClientWidth", &TjexToolWindow::MinClientWidth, &TjexToolWindow::SetMinClientWidth)
        .Default(32);
    d.Property("Resizable", &TjexToolWindow::Resizable, &TjexToolWindow::SetResizable).Default(true);
}

TjexToolWindow::TjexToolWindow(rtl::TComponent* AOwner) : TjexCustomToolWindow(AOwner) {
    FWidth = FClientAreaWidth + 2 * kToolWindowBorder + HandleSize();
    FHeight = FClientAreaHeight + 2 * kToolWindowBorder;
}

void TjexToolWindow::SetClientAreaWidth(int Value) {
    FClientAreaWidth = std::max(Value, FMinClientWidth);
    Arrange();
}

void TjexToolWindow::SetClientAreaHeight(int Value) {
    FClientAreaHeight = std::max(Value, FMinClientHeight);
    Arrange();
}

void TjexToolWindow::SetMinClientWidth(int Value) {
    FMinClientWidth = std::max(0, Value);
    if (FClientAreaWidth < FMinClientWidth) SetClientAreaWidth(FMinClientWidth);
}

void TjexToolWindow::SetMinClientHeight(int Value) {
    FMinClientHeight = std::max(0, Value);
    if (FClientAreaHeight < FMinClientHeight) SetClientAreaHeight(FMinClientHeight);
}

void TjexToolWindow::ArrangeControls() {
    bool vert = Vertical();
    int w = FClientAreaWidth + 2 * kToolWindowBorder + (vert ? 0 : HandleSize());
    int h = FClientAreaHeight + 2 * kToolWindowBorder + (vert ? HandleSize() : 0);
    SetBounds(Left(), Top(), w, h);
}

void TjexToolWindow::Resize() {
    TjexCustomToolWindow::Resize();
    // A person (or the form file) sizing the window sizes its client area.
    if (FArranging || !FResizable) return;
    bool vert = Vertical();
    FClientAreaWidth = std::max(FMinClientWidth, Width() - 2 * kToolWindowBorder - (vert ? 0 : HandleSize()));
    FClientAreaHeight =
        std::max(FMinClientHeight, Height() - 2 * kToolWindowBorder - (vert ? HandleSize() : 0));
}

// ---- Toolbar buttons
// ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexToolbarButton, TGraphicControl, "jexdock") {
    d.Property("AllowAllUp", &TjexToolbarButton::AllowAllUp, &TjexToolbarButton::SetAllowAllUp)
        .Default(false);
    pub::Caption(d);
    d.Property("DisplayMode", &TjexToolbarButton::DisplayMode, &TjexToolbarButton::SetDisplayMode)
        .Default(jbdGlyphAndText);
    d.Property("GroupIndex", &TjexToolbarButton::GroupIndex, &TjexToolbarButton::SetGroupIndex).Default(0);
    d.Property("Down", &TjexToolbarButton::Down, &TjexToolbarButton::SetDown).Default(false);
    d.Property("DropdownAlways", &TjexToolbarButton::DropdownAlways, &TjexToolbarButton::SetDropdownAlways)
        .Default(false);
    d.Property("DropdownArrow", &TjexToolbarButton::DropdownArrow, &TjexToolbarButton::SetDropdownArrow)
        .Default(true);
    d.Property("DropdownCombo", &TjexToolbarButton::DropdownCombo, &TjexToolbarButton::SetDropdownCombo)
        .Default(false);
    d.Property("DropdownMenu", &TjexToolbarButton::DropdownMenu, &TjexToolbarButton::SetDropdownMenu);
    pub::Enabled(d);
    d.Property("Flat", &TjexToolbarButton::Flat, &TjexToolbarButton::SetFlat).Default(true);
    pub::Font(d);
    d.Property("Glyph", &TjexToolbarButton::Glyph, &TjexToolbarButton::SetGlyph);
    d.Property("GlyphMask", &TjexToolbarButton::GlyphMask, &TjexToolbarButton::SetGlyphMask);
    d.Property("ImageIndex", &TjexToolbarButton::ImageIndex, &TjexToolbarButton::SetImageIndex,
               TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Layout", &TjexToolbarButton::Layout, &TjexToolbarButton::SetLayout).Default(jblGlyphLeft);
    d.Property("Margin", &TjexToolbarButton::Margin, &TjexToolbarButton::SetMargin).Default(-1);
    d.Property("NoBorder", &TjexToolbarButton::NoBorder, &TjexToolbarButton::SetNoBorder).Default(false);
    d.Property("NumGlyphs", &TjexToolbarButton::NumGlyphs, &TjexToolbarButton::SetNumGlyphs).Default(1);
    d.Property("OldDisabledStyle", &TjexToolbarButton::OldDisabledStyle,
               &TjexToolbarButton::SetOldDisabledStyle)
        .Default(false);
    d.Property("Opaque", &TjexToolbarButton::Opaque, &TjexToolbarButton::SetOpaque).Default(true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    d.Property("RepeatDelay", &TjexToolbarButton::RepeatDelay, &TjexToolbarButton::SetRepeatDelay)
        .Default(400);
    d.Property("Repeating", &TjexToolbarButton::Repeating, &TjexToolbarButton::SetRepeating).Default(false);
    d.Property("RepeatInterval", &TjexToolbarButton::RepeatInterval, &TjexToolbarButton::SetRepeatInterval)
        .Default(100);
    d.Property("ShowBorderWhenInactive", &TjexToolbarButton::ShowBorderWhenInactive,
               &TjexToolbarButton::SetShowBorderWhenInactive)
        .Default(false);
    pub::ShowHint(d);
    d.Property("Spacing", &TjexToolbarButton::Spacing, &TjexToolbarButton::SetSpacing).Default(4);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnMouse(d);
}

TjexToolbarButton::TjexToolbarButton(rtl::TComponent* AOwner)
    : TGraphicControl(AOwner), FGlyph(std::make_unique<TBitmap>()), FGlyphMask(std::make_unique<TBitmap>()) {
    FWidth = 23;
    FHeight = 22;
    FColor = clBtnFace;
    FParentColor = true;
}

TjexToolbarButton::~TjexToolbarButton() = default;

void TjexToolbarButton::SetDown(bool Value) {
    if (Value && FGroupIndex == 0) Value = false;
    if (Value == FDown) return;
    FDown = Value;
    if (FDown && FParent)
        for (TControl* c : FParent->ControlList())
            if (auto* b = dynamic_cast<TjexToolbarButton*>(c);
                b && b != this && b->FGroupIndex == FGroupIndex)
                b->FDown = false;
}

void TjexToolbarButton::SetDropdownMenu(TPopupMenu* Value) {
    SetReference<TPopupMenu>(this, FDropdownMenu, Value);
}

void TjexToolbarButton::SetNumGlyphs(int Value) {
    if (Value < 1 || Value > 5) throw rtl::ERangeError(rtl::SRangeError);
    FNumGlyphs = Value;
}

TCustomImageList* TjexToolbarButton::Images() const {
    auto* toolbar = dynamic_cast<TjexToolbar*>(FParent);
    return toolbar ? toolbar->Images() : nullptr;
}

void TjexToolbarButton::UserClick() {
    if (FDropdownMenu && FDropdownAlways) {
        DropDown();
        return;
    }
    if (FGroupIndex > 0) {
        if (!FDown)
            SetDown(true);
        else if (FAllowAllUp)
            SetDown(false);
    }
    Click();
}

void TjexToolbarButton::DropDown() {
    if (!FDropdownMenu) return;
    FDropdownMenu->SetPopupComponent(this);
    TPoint p = ClientToScreen(Point(0, Height()));
    FDropdownMenu->Popup(p.X, p.Y);
}

int TjexToolbarButton::ClicksForHold(int HeldMs) const {
    if (!FRepeating || HeldMs < FRepeatDelay) return 1;
    int64_t clicks = 2 + (int64_t(HeldMs) - FRepeatDelay) / FRepeatInterval;
    return static_cast<int>(std::min<int64_t>(clicks, INT32_MAX));
}

void TjexToolbarButton::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    if (FDisplayMode == jbdGlyphOnly) d.Caption.clear();
    if (FGroupIndex > 0) d.Checked = FDown;
    TCustomImageList* images = Images();
    if (FDisplayMode != jbdTextOnly) {
        if (images && FImageIndex >= 0 && FImageIndex < images->Count()) {
            d.PictureWidth = images->Width();
            d.PictureHeight = images->Height();
        } else if (!FGlyph->Empty()) {
            d.PictureWidth = FGlyph->Width() / FNumGlyphs;
            d.PictureHeight = FGlyph->Height();
        }
    }
}

void TjexToolbarButton::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDropdownMenu) FDropdownMenu = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexToolbarSep, TGraphicControl, "jexdock") {
    d.Property("Blank", &TjexToolbarSep::Blank, &TjexToolbarSep::SetBlank).Default(false);
    d.Property("SizeHorz", &TjexToolbarSep::SizeHorz, &TjexToolbarSep::SetSizeHorz).Default(6);
    d.Property("SizeVert", &TjexToolbarSep::SizeVert, &TjexToolbarSep::SetSizeVert).Default(6);
    pub::Visible(d);
}

TjexToolbarSep::TjexToolbarSep(rtl::TComponent* AOwner) : TGraphicControl(AOwner) {
    FWidth = 6;
    FHeight = 22;
}

void TjexToolbarSep::SetSizeHorz(int Value) {
    FSizeHorz = std::max(0, Value);
    if (auto* w = dynamic_cast<TjexCustomToolWindow*>(FParent)) w->Arrange();
}

void TjexToolbarSep::SetSizeVert(int Value) {
    FSizeVert = std::max(0, Value);
    if (auto* w = dynamic_cast<TjexCustomToolWindow*>(FParent)) w->Arrange();
}

int TjexToolbarSep::SizeAlongRow() const {
    auto* w = dynamic_cast<TjexCustomToolWindow*>(FParent);
    return w && w->Vertical() ? FSizeVert : FSizeHorz;
}

// ---- Toolbar edits ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexToolbarEdit, TEdit, "jexdock") {}

TjexToolbarEdit::TjexToolbarEdit(rtl::TComponent* AOwner) : TEdit(AOwner) {
    FWidth = 121;
    FHeight = 21;
}

JEX_IMPLEMENT_CLASS(TjexToolbarMaskEdit, TjexToolbarEdit, "jexdock") {
    d.Property("EditMask", &TjexToolbarMaskEdit::EditMask, &TjexToolbarMaskEdit::SetEditMask);
}

bool TjexToolbarMaskEdit::IsValidText(const std::string& Text) const {
    if (FEditMask.empty()) return true;
    std::string mask = FEditMask.substr(0, FEditMask.find(';'));
    struct TSlot {
        char Kind; // 0 for a literal
        char Literal;
        bool Required;
    };
    std::vector<TSlot> slots;
    for (size_t i = 0; i < mask.size(); ++i) {
        char m = mask[i];
        switch (m) {
        case '\\':
            if (i + 1 < mask.size()) slots.push_back({0, mask[++i], true});
            break;
        case '!':
        case '>':
        case '<':
            break; // case and blank-handling switches take no position
        case '0':
        case 'L':
        case 'A':
        case 'C':
            slots.push_back({m, 0, true});
            break;
        case '9':
        case 'l':
        case 'a':
        case 'c':
            slots.push_back({m, 0, false});
            break;
        default:
            slots.push_back({0, m, true});
            break;
        }
    }
    if (Text.size() > slots.size()) return false;
    for (size_t i = 0; i < slots.size(); ++i) {
        const TSlot& s = slots[i];
        if (i >= Text.size()) {
            if (s.Required && s.Kind != 0) return false;
            continue;
        }
        unsigned char ch = static_cast<unsigned char>(Text[i]);
        bool blank = ch == ' ';
        switch (s.Kind) {
        case 0:
            if (Text[i] != s.Literal) return false;
            break;
        case '0':
            if (!std::isdigit(ch)) return false;
            break;
        case '9':
            if (!std::isdigit(ch) && !blank) return false;
            break;
        case 'L':
            if (!std::isalpha(ch)) return false;
            break;
        case 'l':
            if (!std::isalpha(ch) && !blank) return false;
            break;
        case 'A':
            if (!std::isalnum(ch)) return false;
            break;
        case 'a':
            if (!std::isalnum(ch) && !blank) return false;
            break;
        case 'C':
            if (blank) return false;
            break;
        default:
            break;
        }
    }
    return true;
}

void TjexToolbarMaskEdit::EnterText(const std::string& Value) {
    if (!IsValidText(Value)) throw EUserActionError("Invalid input value");
    TjexToolbarEdit::EnterText(Value);
}

// ---- Menus
// -------------------------------------------------------------------------------------------------
void TjexMenuStatus::SetStatusBar(TWinControl* Value) {
    SetReference<TWinControl>(FOwner, FStatusBar, Value);
}

void TjexMenuStatus::ShowHint(const TMenuItem* Item) {
    if (!FStatusBar) return;
    std::string text = Item ? GetLongHint(Item->Hint()) : std::string();
    // A status bar with panels shows the hint in its panel StatusBarIndex.
    if (const rtl::TPropInfo* p = rtl::GetPropInfo(FStatusBar, "Panels");
        p && p->PropType->Kind == rtl::tkClass) {
        if (auto* panels = dynamic_cast<rtl::TCollection*>(rtl::GetObjectProp(FStatusBar, *p));
            panels && StatusBarIndex >= 0 && StatusBarIndex < panels->Count()) {
            rtl::TCollectionItem* panel = panels->Items(StatusBarIndex);
            if (rtl::GetPropInfo(panel, "Text")) {
                rtl::SetStrProp(panel, "Text", text);
                return;
            }
        }
    }
    FStatusBar->SetText(text);
}

void TjexMenuStatus::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    if (Operation == rtl::opRemove && AComponent == FStatusBar) FStatusBar = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexMainMenu, TMainMenu, "jexdock") {
    d.Property("Images", &TjexMainMenu::Images, &TjexMainMenu::SetImages);
}

void TjexMainMenu::SetImages(TCustomImageList* Value) {
    SetReference<TCustomImageList>(this, FImages, Value);
}

void TjexMainMenu::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TMainMenu::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexPopupMenu, TPopupMenu, "jexdock") {
    d.Property("Images", &TjexPopupMenu::Images, &TjexPopupMenu::SetImages);
    d.Property("Options", &TjexPopupMenu::Options, &TjexPopupMenu::SetOptions)
        .Default(kDefaultMenuOptions.Bits());
    d.Property("StatusBar", &TjexPopupMenu::StatusBar, &TjexPopupMenu::SetStatusBar);
    d.Property("StatusBarIndex", &TjexPopupMenu::StatusBarIndex, &TjexPopupMenu::SetStatusBarIndex)
        .Default(0);
    d.Property("SystemFont", &TjexPopupMenu::SystemFont, &TjexPopupMenu::SetSystemFont).Default(true);
}

void TjexPopupMenu::SetImages(TCustomImageList* Value) {
    SetReference<TCustomImageList>(this, FImages, Value);
}

void TjexPopupMenu::ItemHighlighted(const TMenuItem* Item) {
    if (FOptions.Contains(jmoShowHints)) FStatus.ShowHint(Item);
}

void TjexPopupMenu::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TPopupMenu::Notification(AComponent, Operation);
    FStatus.Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FImages) FImages = nullptr;
}

JEX_IMPLEMENT_CLASS(TjexSystemMenu, TMenu, "jexdock") {
    d.Property("Options", &TjexSystemMenu::Options, &TjexSystemMenu::SetOptions)
        .Default(kDefaultMenuOptions.Bits());
    d.Property("StatusBar", &TjexSystemMenu::StatusBar, &TjexSystemMenu::SetStatusBar);
    d.Property("StatusBarIndex", &TjexSystemMenu::StatusBarIndex, &TjexSystemMenu::SetStatusBarIndex)
        .Default(0);
    d.Property("SystemFont", &TjexSystemMenu::SystemFont, &TjexSystemMenu::SetSystemFont).Default(true);
    d.Property("VisibleItems", &TjexSystemMenu::VisibleItems, &TjexSystemMenu::SetVisibleItems)
        .Default(kAllSystemItems.Bits());
}

std::vector<std::string> TjexSystemMenu::ShownCaptions() const {
    static const char* const standard[] = {"&Restore", "&Move", "&Size", "Mi&nimize", "Ma&ximize"};
    std::vector<std::string> captions;
    for (int i = jsiRestore; i <= jsiMaximize; ++i)
        if (FVisibleItems.Contains(static_cast<TjexSystemMenuItem>(i))) captions.push_back(standard[i]);
    bool own = false;
    for (int i = 0; i < Items()->Count(); ++i)
        if (Items()->Items(i)->Visible()) {
            if (!own && !captions.empty()) captions.push_back(cLineCaption);
            own = true;
            captions.push_back(Items()->Items(i)->Caption());
        }
    if (FVisibleItems.Contains(jsiClose)) {
        if (!captions.empty()) captions.push_back(cLineCaption);
        captions.push_back("&Close");
    }
    return captions;
}

void TjexSystemMenu::ItemHighlighted(const TMenuItem* Item) {
    if (FOptions.Contains(jmoShowHints)) FStatus.ShowHint(Item);
}

void TjexSystemMenu::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TMenu::Notification(AComponent, Operation);
    FStatus.Notification(AComponent, Operation);
}

// ---- Menu images -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMenuImageItem, rtl::TCollectionItem, "jexdock") {
    d.Property("MenuItem", &TjexMenuImageItem::MenuItem, &TjexMenuImageItem::SetMenuItem);
    d.Property("ImageIndex", &TjexMenuImageItem::ImageIndex, &TjexMenuImageItem::SetImageIndex,
               TypeInfo_TImageIndex())
        .Default(-1);
}

TjexMenuImageItem::~TjexMenuImageItem() = default;

void TjexMenuImageItem::Assign(rtl::TPersistent* Source) {
    if (auto* item = dynamic_cast<TjexMenuImageItem*>(Source)) {
        SetMenuItem(item->FMenuItem);
        SetImageIndex(item->FImageIndex);
        return;
    }
    rtl::TCollectionItem::Assign(Source);
}

void TjexMenuImageItem::SetMenuItem(TMenuItem* Value) {
    FMenuItem = Value;
    // The owning component is told when the menu item goes, and clears every entry that refers to it.
    if (auto* owner = dynamic_cast<rtl::TComponent*>(Collection() ? Collection()->GetOwner() : nullptr);
        owner && Value)
        Value->FreeNotification(owner);
    if (FMenuItem && FImageIndex >= 0) FMenuItem->SetImageIndex(FImageIndex);
}

void TjexMenuImageItem::SetImageIndex(int Value) {
    FImageIndex = Value;
    if (FMenuItem) FMenuItem->SetImageIndex(Value);
}

std::string TjexMenuImageItem::GetDisplayName() const {
    return FMenuItem && !FMenuItem->Name().empty() ? FMenuItem->Name()
                                                   : rtl::TCollectionItem::GetDisplayName();
}

JEX_IMPLEMENT_CLASS(TjexMenuImages, rtl::TComponent, "jexdock") {
    d.Property("Images", &TjexMenuImages::Images, &TjexMenuImages::SetImages);
    d.Property("Items", &TjexMenuImages::Items, &TjexMenuImages::SetItems);
}

TjexMenuImages::TjexMenuImages(rtl::TComponent* AOwner)
    : rtl::TComponent(AOwner),
      FItems(std::make_unique<rtl::TOwnedCollection>(this, TjexMenuImageItem::StaticClass())) {
    FItems->PropName = "Items";
}

TjexMenuImages::~TjexMenuImages() = default;

TjexMenuImageItem* TjexMenuImages::Add(TMenuItem* Item, int ImageIndex) {
    auto* entry = static_cast<TjexMenuImageItem*>(FItems->Add());
    entry->SetMenuItem(Item);
    entry->SetImageIndex(ImageIndex);
    return entry;
}

void TjexMenuImages::SetImages(TCustomImageList* Value) {
    SetReference<TCustomImageList>(this, FImages, Value);
}

void TjexMenuImages::ApplyImages() {
    for (int i = 0; i < FItems->Count(); ++i) {
        auto* entry = static_cast<TjexMenuImageItem*>(FItems->Items(i));
        if (entry->FMenuItem) entry->FMenuItem->SetImageIndex(entry->FImageIndex);
    }
}

void TjexMenuImages::Loaded() {
    rtl::TComponent::Loaded();
    ApplyImages();
}

void TjexMenuImages::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    rtl::TComponent::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) FImages = nullptr;
    for (int i = 0; i < FItems->Count(); ++i) {
        auto* entry = static_cast<TjexMenuImageItem*>(FItems->Items(i));
        if (entry->FMenuItem == AComponent) entry->FMenuItem = nullptr;
    }
}

// ---- Menu toolbar ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexMenuToolbar, TjexCustomToolWindow, "jexdock") {
    pub::ToolWindowLooks(d);
    pub::Docking(d);
    d.Property("GrayWhenInactive", &TjexMenuToolbar::GrayWhenInactive, &TjexMenuToolbar::SetGrayWhenInactive)
        .Default(true);
    d.Property("MainMenu", &TjexMenuToolbar::MainMenu, &TjexMenuToolbar::SetMainMenu);
    d.Property("OpaqueButtons", &TjexMenuToolbar::OpaqueButtons, &TjexMenuToolbar::SetOpaqueButtons)
        .Default(false);
    d.Property("Options", &TjexMenuToolbar::Options, &TjexMenuToolbar::SetOptions)
        .Default(kDefaultMenuOptions.Bits());
    d.Property("StatusBar", &TjexMenuToolbar::StatusBar, &TjexMenuToolbar::SetStatusBar);
    d.Property("StatusBarIndex", &TjexMenuToolbar::StatusBarIndex, &TjexMenuToolbar::SetStatusBarIndex)
        .Default(0);
    d.Property("SystemFont", &TjexMenuToolbar::SystemFont, &TjexMenuToolbar::SetSystemFont).Default(true);
}

TjexMenuToolbar::TjexMenuToolbar(rtl::TComponent* AOwner) : TjexCustomToolWindow(AOwner), FStatus(this) {}

void TjexMenuToolbar::SetMainMenu(TMainMenu* Value) {
    SetReference<TMainMenu>(this, FMainMenu, Value);
}

std::vector<TMenuItem*> TjexMenuToolbar::MenuItems() const {
    std::vector<TMenuItem*> items;
    if (!FMainMenu) return items;
    for (int i = 0; i < FMainMenu->Items()->Count(); ++i)
        if (FMainMenu->Items()->Items(i)->Visible()) items.push_back(FMainMenu->Items()->Items(i));
    return items;
}

void TjexMenuToolbar::ClickItem(int Index) {
    std::vector<TMenuItem*> items = MenuItems();
    if (Index < 0 || Index >= static_cast<int>(items.size()))
        throw rtl::EListError(rtl::Format(rtl::SListIndexError, {Index}));
    if (FOptions.Contains(jmoShowHints)) FStatus.ShowHint(items[Index]);
    if (items[Index]->Enabled()) items[Index]->Click();
}

void TjexMenuToolbar::Describe(TControlDesc& d) const {
    TjexCustomToolWindow::Describe(d);
    for (TMenuItem* item : MenuItems())
        d.Menu.push_back(DescribeMenuItem(item));
}

void TjexMenuToolbar::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TjexCustomToolWindow::Notification(AComponent, Operation);
    FStatus.Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FMainMenu) FMainMenu = nullptr;
}

static const TjexLibraryUnit<TjexDock, TjexToolbar, TjexToolWindow, TjexToolbarButton, TjexToolbarSep,
                             TjexToolbarEdit, TjexToolbarMaskEdit, TjexMainMenu, TjexMenuToolbar,
                             TjexPopupMenu, TjexSystemMenu, TjexMenuImages>
    jexdockUnit("jexdock");

} // namespace jex
