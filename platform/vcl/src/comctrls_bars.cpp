// Tool bars and their buttons, status bars with panels, progress bars, track bars and up-down buttons.
#include <algorithm>

#include "publish.h"
#include "vcl/comctrls.h"

namespace vcl {

using rtl::EListError;

JEX_DEFINE_ENUM(TToolButtonStyle)
JEX_DEFINE_ENUM(TEdgeBorder)
JEX_DEFINE_SET(TEdgeBorders, TEdgeBorder)
JEX_DEFINE_ENUM(TEdgeStyle)
JEX_DEFINE_ENUM(TStatusPanelStyle)
JEX_DEFINE_ENUM(TStatusPanelBevel)
JEX_DEFINE_EVENT_TYPE(TDrawPanelEvent, "StatusBar: TStatusBar; Panel: TStatusPanel; const Rect: TRect")
JEX_DEFINE_ENUM(TProgressBarOrientation)
JEX_DEFINE_ENUM(TTrackBarOrientation)
JEX_DEFINE_ENUM(TTickMark)
JEX_DEFINE_ENUM(TTickStyle)
JEX_DEFINE_ENUM(TUDAlignButton)
JEX_DEFINE_ENUM(TUDOrientation)
JEX_DEFINE_ENUM(TUDBtnType)
JEX_DEFINE_EVENT_TYPE(TUDClickEvent, "Sender: TObject; Button: TUDBtnType")
JEX_DEFINE_EVENT_TYPE(TUDChangingEvent, "Sender: TObject; var AllowChange: Boolean")

namespace {
constexpr int kSeparatorWidth = 8;
constexpr int kDropDownArrowWidth = 14;

void Follow(TComponent* self, TCustomImageList*& field, TCustomImageList* v) {
    if (v == field) return;
    if (field) field->RemoveFreeNotification(self);
    field = v;
    if (v) v->FreeNotification(self);
}

bool IsSeparator(TToolButtonStyle s) {
    return s == tbsSeparator || s == tbsDivider;
}
} // namespace

// ---- TToolButton --------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TToolButton, TGraphicControl, "ComCtrls") {
    d.Property("AllowAllUp", &TToolButton::AllowAllUp, &TToolButton::SetAllowAllUp).Default(false);
    pub::Caption(d);
    d.Property("Down", &TToolButton::Down, &TToolButton::SetDown).Default(false);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("DropdownMenu", &TToolButton::DropdownMenu, &TToolButton::SetDropdownMenu);
    pub::Enabled(d);
    d.Property("Grouped", &TToolButton::Grouped, &TToolButton::SetGrouped).Default(false);
    d.Property("ImageIndex", &TToolButton::ImageIndex, &TToolButton::SetImageIndex, TypeInfo_TImageIndex())
        .Default(-1);
    d.Property("Indeterminate", &TToolButton::Indeterminate, &TToolButton::SetIndeterminate).Default(false);
    d.Property("Marked", &TToolButton::Marked, &TToolButton::SetMarked).Default(false);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("Wrap", &TToolButton::Wrap, &TToolButton::SetWrap).Default(false);
    pub::ShowHint(d);
    d.Property("Style", &TToolButton::Style, &TToolButton::SetStyle).Default(tbsButton);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
}

TToolButton::TToolButton(TComponent* AOwner) : TGraphicControl(AOwner) {
    FControlStyle = TControlStyle{csCaptureMouse, csClickEvents, csSetCaption, csDoubleClicks};
    FWidth = 23;
    FHeight = 22;
}

TToolButton::~TToolButton() {
    if (FDropdownMenu) FDropdownMenu->RemoveFreeNotification(this);
    // Leave the bar while still a whole button, so that it forgets this one and lays out the rest.
    if (FParent) SetParent(nullptr);
}

TToolBar* TToolButton::ToolBar() const {
    return dynamic_cast<TToolBar*>(FParent);
}

int TToolButton::Index() const {
    TToolBar* bar = ToolBar();
    if (!bar) return -1;
    auto it = std::find(bar->FButtons.begin(), bar->FButtons.end(), this);
    return it == bar->FButtons.end() ? -1 : static_cast<int>(it - bar->FButtons.begin());
}

std::vector<TToolButton*> TToolButton::Group() const {
    auto* self = const_cast<TToolButton*>(this);
    auto inGroup = [](const TToolButton* b) { return b->FStyle == tbsCheck && b->FGrouped; };
    TToolBar* bar = ToolBar();
    if (!bar || !inGroup(this)) return {self};
    const auto& all = bar->FButtons;
    int i = Index(), first = i, last = i;
    while (first > 0 && inGroup(all[first - 1]))
        --first;
    while (last + 1 < static_cast<int>(all.size()) && inGroup(all[last + 1]))
        ++last;
    return std::vector<TToolButton*>(all.begin() + first, all.begin() + last + 1);
}

void TToolButton::SetAllowAllUp(bool v) {
    for (TToolButton* b : Group())
        b->FAllowAllUp = v;
    FAllowAllUp = v;
}

void TToolButton::SetDown(bool v) {
    if (v == FDown) return;
    if (IsLoading()) {
        FDown = v;
        return;
    }
    std::vector<TToolButton*> group = Group();
    bool grouped = group.size() > 1 || (FStyle == tbsCheck && FGrouped);
    if (!v && grouped && !FAllowAllUp) return;
    if (v && grouped)
        for (TToolButton* b : group)
            if (b != this) b->FDown = false;
    FDown = v;
}

void TToolButton::SetDropdownMenu(TPopupMenu* v) {
    if (v == FDropdownMenu) return;
    if (FDropdownMenu) FDropdownMenu->RemoveFreeNotification(this);
    FDropdownMenu = v;
    if (v) v->FreeNotification(this);
    RequestLayout();
}

void TToolButton::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TGraphicControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FDropdownMenu) FDropdownMenu = nullptr;
}

void TToolButton::SetGrouped(bool v) {
    if (v == FGrouped) return;
    FGrouped = v;
    // Joining a group with a button already down puts this one up.
    if (v && FDown && !IsLoading())
        for (TToolButton* b : Group())
            if (b != this && b->FDown) {
                FDown = false;
                break;
            }
}

void TToolButton::SetImageIndex(TImageIndex v) {
    FImageIndex = v;
}

void TToolButton::SetStyle(TToolButtonStyle v) {
    if (v == FStyle) return;
    bool wasSeparator = IsSeparator(FStyle);
    FStyle = v;
    if (!IsLoading()) {
        if (IsSeparator(v) && !wasSeparator)
            FWidth = kSeparatorWidth;
        else if (!IsSeparator(v) && wasSeparator)
            FWidth = ToolBar() ? ToolBar()->ButtonSize().cx : 23;
    }
    RequestLayout();
}

void TToolButton::SetWrap(bool v) {
    if (v == FWrap) return;
    FWrap = v;
    RequestLayout();
}

void TToolButton::RequestLayout() {
    if (IsLoading()) return;
    if (TToolBar* bar = ToolBar(); bar && !bar->FArranging && !bar->IsLoading()) bar->ArrangeButtons();
}

void TToolButton::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    TGraphicControl::SetBounds(ALeft, ATop, AWidth, AHeight);
    if (!FPlacing) RequestLayout();
}

void TToolButton::TextChanged() {
    if (TToolBar* bar = ToolBar(); bar && bar->ShowCaptions()) RequestLayout();
}

void TToolButton::VisibleChanged() {
    RequestLayout();
}

bool TToolButton::CheckMenuDropdown() {
    if (!FDropdownMenu) return false;
    TPoint p = ClientToScreen(Point(0, FHeight));
    FDropdownMenu->SetPopupComponent(this);
    FDropdownMenu->Popup(p.X, p.Y);
    return true;
}

void TToolButton::UserClick() {
    if (IsSeparator(FStyle)) throw EUserActionError("'" + Name() + "' is a separator and takes no clicks");
    if (FStyle == tbsCheck) {
        if (!FDown)
            SetDown(true);
        else if (!(FGrouped && !FAllowAllUp))
            SetDown(false);
    }
    if (FStyle == tbsDropDown && FDropdownMenu && !OnClick) {
        CheckMenuDropdown();
        return;
    }
    Click();
    // Any other button with a menu drops it when clicked.
    if (FStyle != tbsDropDown && FDropdownMenu) CheckMenuDropdown();
}

void TToolButton::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    if (FStyle == tbsCheck || FDown) d.Checked = FDown;
}

// ---- TToolBar -----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TToolBar, TWinControl, "ComCtrls") {
    d.Property("Align", &TToolBar::Align, &TToolBar::SetAlign).Default(alTop);
    pub::Anchors(d);
    d.Property("AutoSize", &TToolBar::AutoSize, &TToolBar::SetAutoSize).Default(false);
    d.Property("BorderWidth", &TToolBar::BorderWidth, &TToolBar::SetBorderWidth).Default(0);
    d.Property("ButtonHeight", &TToolBar::ButtonHeight, &TToolBar::SetButtonHeight).Default(22);
    d.Property("ButtonWidth", &TToolBar::ButtonWidth, &TToolBar::SetButtonWidth).Default(23);
    pub::Caption(d);
    pub::Color(d, clBtnFace);
    pub::Ctl3D(d);
    d.Property("DisabledImages", &TToolBar::DisabledImages, &TToolBar::SetDisabledImages);
    pub::DragCursor(d);
    pub::DragMode(d);
    d.Property("EdgeBorders", &TToolBar::EdgeBorders, &TToolBar::SetEdgeBorders)
        .Default(TEdgeBorders{ebTop}.Bits());
    d.Property("EdgeInner", &TToolBar::EdgeInner, &TToolBar::SetEdgeInner).Default(esRaised);
    d.Property("EdgeOuter", &TToolBar::EdgeOuter, &TToolBar::SetEdgeOuter).Default(esLowered);
    pub::Enabled(d);
    d.Property("Flat", &TToolBar::Flat, &TToolBar::SetFlat).Default(false);
    pub::Font(d);
    d.Property("HotImages", &TToolBar::HotImages, &TToolBar::SetHotImages);
    d.Property("Images", &TToolBar::Images, &TToolBar::SetImages);
    d.Property("Indent", &TToolBar::Indent, &TToolBar::SetIndent).Default(0);
    d.Property("List", &TToolBar::List, &TToolBar::SetList).Default(false);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("ShowCaptions", &TToolBar::ShowCaptions, &TToolBar::SetShowCaptions).Default(false);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("Transparent", &TToolBar::Transparent, &TToolBar::SetTransparent).Default(false);
    pub::Visible(d);
    d.Property("Wrapable", &TToolBar::Wrapable, &TToolBar::SetWrapable).Default(true);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TToolBar::TToolBar(TComponent* AOwner) : TWinControl(AOwner) {
    FControlStyle = TControlStyle{csAcceptsControls, csCaptureMouse, csClickEvents,
                                  csDoubleClicks,    csMenuEvents,   csSetCaption};
    FWidth = 150;
    FHeight = 29;
    FAlign = alTop;
    FColor = clBtnFace;
}

TToolBar::~TToolBar() {
    FArranging = true;
    FButtons.clear();
}

TToolButton* TToolBar::Buttons(int Index) const {
    if (Index < 0 || Index >= ButtonCount()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    return FButtons[Index];
}

void TToolBar::ControlAdded(TControl* AControl) {
    if (auto* b = dynamic_cast<TToolButton*>(AControl)) {
        FButtons.push_back(b);
        if (!IsLoading() && !b->IsLoading()) ArrangeButtons();
    }
}

void TToolBar::ControlRemoved(TControl* AControl) {
    auto it = std::find(FButtons.begin(), FButtons.end(), AControl);
    if (it == FButtons.end()) return;
    FButtons.erase(it);
    if (!FArranging && !IsLoading() && !IsDestroying()) ArrangeButtons();
}

void TToolBar::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FImages) {
        FImages = nullptr;
        ArrangeButtons();
    }
    if (AComponent == FDisabledImages) FDisabledImages = nullptr;
    if (AComponent == FHotImages) FHotImages = nullptr;
}

void TToolBar::SetImages(TCustomImageList* v) {
    Follow(this, FImages, v);
    ArrangeButtons();
}
void TToolBar::SetDisabledImages(TCustomImageList* v) {
    Follow(this, FDisabledImages, v);
}
void TToolBar::SetHotImages(TCustomImageList* v) {
    Follow(this, FHotImages, v);
}

void TToolBar::SetAutoSize(bool v) {
    if (v == FAutoSize) return;
    FAutoSize = v;
    ArrangeButtons();
}
void TToolBar::SetButtonHeight(int v) {
    v = std::max(1, v);
    if (v == FButtonHeight) return;
    FButtonHeight = v;
    ArrangeButtons();
}
void TToolBar::SetButtonWidth(int v) {
    v = std::max(1, v);
    if (v == FButtonWidth) return;
    FButtonWidth = v;
    ArrangeButtons();
}
void TToolBar::SetEdgeBorders(TEdgeBorders v) {
    FEdgeBorders = v;
    ArrangeButtons();
}
void TToolBar::SetEdgeInner(TEdgeStyle v) {
    FEdgeInner = v;
    ArrangeButtons();
}
void TToolBar::SetEdgeOuter(TEdgeStyle v) {
    FEdgeOuter = v;
    ArrangeButtons();
}
void TToolBar::SetIndent(int v) {
    v = std::max(0, v);
    if (v == FIndent) return;
    FIndent = v;
    ArrangeButtons();
}
void TToolBar::SetList(bool v) {
    if (v == FList) return;
    FList = v;
    ArrangeButtons();
}
void TToolBar::SetShowCaptions(bool v) {
    if (v == FShowCaptions) return;
    FShowCaptions = v;
    ArrangeButtons();
}
void TToolBar::SetWrapable(bool v) {
    if (v == FWrapable) return;
    FWrapable = v;
    ArrangeButtons();
}

int TToolBar::EdgeSize(TEdgeBorder side) const {
    if (!FEdgeBorders.Contains(side)) return 0;
    return (FEdgeInner != esNone ? 1 : 0) + (FEdgeOuter != esNone ? 1 : 0);
}

TRect TToolBar::AdjustClientRect() const {
    TRect r = TWinControl::AdjustClientRect();
    return Rect(r.Left + EdgeSize(ebLeft), r.Top + EdgeSize(ebTop), r.Right - EdgeSize(ebRight),
                r.Bottom - EdgeSize(ebBottom));
}

TSize TToolBar::ButtonSize() const {
    int w = FButtonWidth, h = FButtonHeight;
    int iw = FImages ? FImages->Width() : 16, ih = FImages ? FImages->Height() : 16;
    // Room for the image with the button's 3-pixel frame on each side.
    w = std::max(w, iw + 7);
    h = std::max(h, ih + 6);
    if (FShowCaptions) {
        int textW = 0;
        for (TToolButton* b : FButtons)
            if (!IsSeparator(b->FStyle)) textW = std::max(textW, TextWidthOf(FFont.get(), b->Caption()));
        int textH = TextHeightOf(FFont.get());
        if (FList) {
            w = std::max(w, iw + textW + 12);
            h = std::max(h, std::max(ih, textH) + 6);
        } else {
            w = std::max(w, std::max(iw, textW) + 8);
            h = std::max(h, ih + textH + 9);
        }
    }
    return TSize{w, h};
}

void TToolBar::ArrangeButtons() {
    if (FArranging || IsLoading() || IsDestroying()) return;
    FArranging = true;
    try {
        TRect r = AdjustClientRect();
        TSize size = ButtonSize();
        int x = r.Left + FIndent, y = r.Top;
        int rows = 0;
        bool rowOpen = false;
        for (TToolButton* b : FButtons) {
            if (!b->FVisible) continue;
            int w = IsSeparator(b->FStyle)     ? b->FWidth
                    : b->FStyle == tbsDropDown ? size.cx + kDropDownArrowWidth
                                               : size.cx;
            if (!rowOpen) {
                ++rows;
                rowOpen = true;
            } else if (FWrapable && x > r.Left + FIndent && x + w > r.Right && !IsSeparator(b->FStyle)) {
                x = r.Left + FIndent;
                y += size.cy;
                ++rows;
            }
            b->FPlacing = true;
            b->SetBounds(x, y, w, size.cy);
            b->FPlacing = false;
            x += w;
            if (b->FWrap) {
                x = r.Left + FIndent;
                y += size.cy;
                rowOpen = false;
            }
        }
        FRowCount = rows;
        if (FAutoSize && FAlign != alLeft && FAlign != alRight && FAlign != alClient) {
            int h = FHeight - r.Height() + std::max(rows, 1) * size.cy;
            if (h != FHeight) TControl::SetBounds(FLeft, FTop, FWidth, h);
        }
    } catch (...) {
        FArranging = false;
        throw;
    }
    FArranging = false;
}

void TToolBar::AlignControls() {
    TWinControl::AlignControls();
    ArrangeButtons();
}

void TToolBar::FontChanged() {
    TWinControl::FontChanged();
    if (FShowCaptions) ArrangeButtons();
}

void TToolBar::Loaded() {
    TWinControl::Loaded();
    ArrangeButtons();
}

void TToolBar::GetChildren(const rtl::TGetChildProc& Proc, TComponent* Root) {
    // Buttons in bar order (the order they are laid out in), then any other children.
    for (TToolButton* b : FButtons)
        if (b->Owner() == Root) Proc(b);
    for (TControl* c : FControls)
        if (!dynamic_cast<TToolButton*>(c) && c->Owner() == Root) Proc(c);
}

// ---- Status panels ------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TStatusPanel, rtl::TCollectionItem, "ComCtrls") {
    d.Property("Alignment", &TStatusPanel::Alignment, &TStatusPanel::SetAlignment).Default(taLeftJustify);
    d.Property("Bevel", &TStatusPanel::Bevel, &TStatusPanel::SetBevel).Default(pbLowered);
    d.Property("Style", &TStatusPanel::Style, &TStatusPanel::SetStyle).Default(psText);
    d.Property("Text", &TStatusPanel::Text, &TStatusPanel::SetText);
    d.Property("Width", &TStatusPanel::Width, &TStatusPanel::SetWidth).Default(50);
}

TStatusPanel::TStatusPanel(rtl::TCollection* Collection) : TCollectionItem(Collection) {}

void TStatusPanel::Assign(rtl::TPersistent* Source) {
    auto* p = dynamic_cast<TStatusPanel*>(Source);
    if (!p) return TCollectionItem::Assign(Source);
    FAlignment = p->FAlignment;
    FBevel = p->FBevel;
    FStyle = p->FStyle;
    FText = p->FText;
    FWidth = p->FWidth;
    Changed(false);
}

std::string TStatusPanel::GetDisplayName() const {
    return FText.empty() ? TCollectionItem::GetDisplayName() : FText;
}

void TStatusPanel::SetAlignment(TAlignment v) {
    if (v == FAlignment) return;
    FAlignment = v;
    Changed(false);
}
void TStatusPanel::SetBevel(TStatusPanelBevel v) {
    if (v == FBevel) return;
    FBevel = v;
    Changed(false);
}
void TStatusPanel::SetStyle(TStatusPanelStyle v) {
    if (v == FStyle) return;
    FStyle = v;
    Changed(false);
}
void TStatusPanel::SetText(const std::string& v) {
    if (v == FText) return;
    FText = v;
    Changed(false);
}
void TStatusPanel::SetWidth(int v) {
    v = std::max(0, v);
    if (v == FWidth) return;
    FWidth = v;
    Changed(true);
}

JEX_IMPLEMENT_CLASS(TStatusPanels, rtl::TCollection, "ComCtrls") {}

TStatusPanels::TStatusPanels(TStatusBar* AOwner)
    : TCollection(TStatusPanel::StaticClass()), FStatusBar(AOwner) {
    PropName = "Panels";
}

rtl::TPersistent* TStatusPanels::GetOwner() const {
    return FStatusBar;
}

void TStatusPanels::Update(rtl::TCollectionItem*) {
    if (FStatusBar) FStatusBar->Invalidate();
}

// ---- TStatusBar ---------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TStatusBar, TWinControl, "ComCtrls") {
    d.Property("Align", &TStatusBar::Align, &TStatusBar::SetAlign).Default(alBottom);
    pub::Anchors(d);
    d.Property("AutoHint", &TStatusBar::AutoHint, &TStatusBar::SetAutoHint).Default(false);
    d.Property("BorderWidth", &TStatusBar::BorderWidth, &TStatusBar::SetBorderWidth).Default(0);
    pub::Color(d, clBtnFace);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    d.Property("Panels", &TStatusBar::Panels, &TStatusBar::SetPanels);
    pub::ParentColor(d, false);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    d.Property("SimplePanel", &TStatusBar::SimplePanel, &TStatusBar::SetSimplePanel).Default(false);
    d.Property("SimpleText", &TStatusBar::SimpleText, &TStatusBar::SetSimpleText);
    d.Property("SizeGrip", &TStatusBar::SizeGrip, &TStatusBar::SetSizeGrip).Default(true);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    d.Event("OnDrawPanel", &TStatusBar::OnDrawPanel);
    d.Event("OnHint", &TStatusBar::OnHint);
    pub::OnMouse(d);
    pub::OnResize(d);
}

TStatusBar::TStatusBar(TComponent* AOwner) : TWinControl(AOwner), FPanels(new TStatusPanels(this)) {
    FControlStyle = TControlStyle{csCaptureMouse, csClickEvents, csDoubleClicks, csOpaque};
    FWidth = 150;
    FHeight = 19;
    FAlign = alBottom;
    FColor = clBtnFace;
}

TStatusBar::~TStatusBar() {
    delete FPanels;
}

bool TStatusBar::ShowHintText(const std::string& Hint) {
    if (!FAutoHint) return false;
    if (FSimplePanel || FPanels->Count() == 0)
        SetSimpleText(Hint);
    else
        FPanels->Items(0)->SetText(Hint);
    OnHint(this);
    return true;
}

TRect TStatusBar::PanelRect(int Index) const {
    if (Index < 0 || Index >= FPanels->Count()) throw EListError(rtl::Format(rtl::SListIndexError, {Index}));
    TRect c = ClientRect();
    int x = c.Left;
    for (int i = 0; i < Index; ++i)
        x += FPanels->Items(i)->Width();
    int right = Index == FPanels->Count() - 1 ? std::max(x, c.Right) : x + FPanels->Items(Index)->Width();
    return Rect(x, c.Top, right, c.Bottom);
}

int TStatusBar::PanelAt(int X) const {
    if (FSimplePanel) return -1;
    for (int i = 0; i < FPanels->Count(); ++i) {
        TRect r = PanelRect(i);
        if (X >= r.Left && X < r.Right) return i;
    }
    return -1;
}

void TStatusBar::DrawPanel(TStatusPanel* Panel, const TRect& Rect) {
    OnDrawPanel(this, Panel, Rect);
}

void TStatusBar::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    if (FSimplePanel) {
        d.Caption = FSimpleText;
        d.Items = {FSimpleText};
    } else {
        for (int i = 0; i < FPanels->Count(); ++i)
            d.Items.push_back(FPanels->Items(i)->Text());
    }
}

// ---- TProgressBar -------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TProgressBar, TWinControl, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("Max", &TProgressBar::Max, &TProgressBar::SetMax).Default(100);
    d.Property("Min", &TProgressBar::Min, &TProgressBar::SetMin).Default(0);
    d.Property("Orientation", &TProgressBar::Orientation, &TProgressBar::SetOrientation)
        .Default(pbHorizontal);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("Position", &TProgressBar::Position, &TProgressBar::SetPosition).Default(0);
    pub::ShowHint(d);
    d.Property("Smooth", &TProgressBar::Smooth, &TProgressBar::SetSmooth).Default(false);
    d.Property("Step", &TProgressBar::Step, &TProgressBar::SetStep).Default(10);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    pub::Visible(d);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
}

TProgressBar::TProgressBar(TComponent* AOwner) : TWinControl(AOwner) {
    FWidth = 150;
    FHeight = 16;
}

void TProgressBar::SetMin(int v) {
    if (!IsLoading() && v > FMax)
        throw rtl::EInvalidOperation("Property Min out of range: " + std::to_string(v) + " > Max");
    FMin = v;
    if (!IsLoading()) FPosition = std::clamp(FPosition, FMin, FMax);
}

void TProgressBar::SetMax(int v) {
    if (!IsLoading() && v < FMin)
        throw rtl::EInvalidOperation("Property Max out of range: " + std::to_string(v) + " < Min");
    FMax = v;
    if (!IsLoading()) FPosition = std::clamp(FPosition, FMin, FMax);
}

void TProgressBar::SetPosition(int v) {
    FPosition = IsLoading() ? v : std::clamp(v, FMin, std::max(FMin, FMax));
}

void TProgressBar::SetOrientation(TProgressBarOrientation v) {
    if (v == FOrientation) return;
    FOrientation = v;
    if (!IsLoading()) SetBounds(FLeft, FTop, FHeight, FWidth);
}

void TProgressBar::StepIt() {
    int64_t next = static_cast<int64_t>(FPosition) + FStep;
    if (next > FMax) next = FMin + (next - FMax - 1) % (static_cast<int64_t>(FMax) - FMin + 1);
    if (next < FMin) next = FMin;
    FPosition = static_cast<int>(next);
}

void TProgressBar::StepBy(int Delta) {
    SetPosition(
        static_cast<int>(std::clamp<int64_t>(static_cast<int64_t>(FPosition) + Delta, INT32_MIN, INT32_MAX)));
}

int TProgressBar::Percent() const {
    if (FMax == FMin) return 0;
    return static_cast<int>((static_cast<int64_t>(FPosition) - FMin) * 100 /
                            (static_cast<int64_t>(FMax) - FMin));
}

void TProgressBar::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Value = FPosition;
    d.MinValue = FMin;
    d.MaxValue = FMax;
}

// ---- TTrackBar ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTrackBar, TWinControl, "ComCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Ctl3D(d);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    d.Property("Frequency", &TTrackBar::Frequency, &TTrackBar::SetFrequency).Default(1);
    d.Property("LineSize", &TTrackBar::LineSize, &TTrackBar::SetLineSize).Default(1);
    d.Property("Max", &TTrackBar::Max, &TTrackBar::SetMax).Default(10);
    d.Property("Min", &TTrackBar::Min, &TTrackBar::SetMin).Default(0);
    d.Property("Orientation", &TTrackBar::Orientation, &TTrackBar::SetOrientation).Default(trHorizontal);
    pub::ParentCtl3D(d);
    pub::ParentShowHint(d);
    d.Property("PageSize", &TTrackBar::PageSize, &TTrackBar::SetPageSize).Default(2);
    pub::PopupMenu(d);
    d.Property("Position", &TTrackBar::Position, &TTrackBar::SetPosition).Default(0);
    d.Property("SelEnd", &TTrackBar::SelEnd, &TTrackBar::SetSelEnd).Default(0);
    d.Property("SelStart", &TTrackBar::SelStart, &TTrackBar::SetSelStart).Default(0);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, true);
    d.Property("TickMarks", &TTrackBar::TickMarks, &TTrackBar::SetTickMarks).Default(tmBottomRight);
    d.Property("TickStyle", &TTrackBar::TickStyle, &TTrackBar::SetTickStyle).Default(tsAuto);
    pub::Visible(d);
    d.Event("OnChange", &TTrackBar::OnChange);
    pub::OnDrag(d);
    pub::OnEnterExit(d);
    pub::OnKeys(d);
}

TTrackBar::TTrackBar(TComponent* AOwner) : TWinControl(AOwner) {
    FWidth = 150;
    FHeight = 45;
    FTabStop = true;
}

// As the platform's setters: a minimum above the maximum (or a maximum below the minimum) is ignored.
void TTrackBar::SetMin(int v) {
    if (IsLoading()) {
        FMin = v;
        return;
    }
    if (v > FMax) return;
    FMin = v;
    if (FPosition < FMin) SetPosition(FMin);
}

void TTrackBar::SetMax(int v) {
    if (IsLoading()) {
        FMax = v;
        return;
    }
    if (v < FMin) return;
    FMax = v;
    if (FPosition > FMax) SetPosition(FMax);
}

void TTrackBar::SetPosition(int v) {
    if (IsLoading()) {
        FPosition = v;
        return;
    }
    v = std::clamp(v, FMin, std::max(FMin, FMax));
    if (v == FPosition) return;
    FPosition = v;
    OnChange(this);
}

void TTrackBar::SetOrientation(TTrackBarOrientation v) {
    if (v == FOrientation) return;
    FOrientation = v;
    if (!IsLoading()) SetBounds(FLeft, FTop, FHeight, FWidth);
}

std::vector<int> TTrackBar::Ticks() const {
    std::vector<int> r;
    if (FTickStyle == tsNone) return r;
    if (FTickStyle == tsManual) {
        r = FTicks;
        r.push_back(FMin);
        r.push_back(FMax);
    } else {
        int step = std::max(1, FFrequency);
        for (int64_t t = FMin; t <= FMax; t += step)
            r.push_back(static_cast<int>(t));
        r.push_back(FMax);
    }
    std::sort(r.begin(), r.end());
    r.erase(std::unique(r.begin(), r.end()), r.end());
    return r;
}

void TTrackBar::SetTick(int Value) {
    if (Value < FMin || Value > FMax) return;
    if (std::find(FTicks.begin(), FTicks.end(), Value) == FTicks.end()) FTicks.push_back(Value);
}

void TTrackBar::KeyDown(uint16_t& Key, TShiftState Shift) {
    TWinControl::KeyDown(Key, Shift);
    switch (Key) {
    case VK_RIGHT:
    case VK_DOWN:
        SetPosition(FPosition + FLineSize);
        break;
    case VK_LEFT:
    case VK_UP:
        SetPosition(FPosition - FLineSize);
        break;
    case VK_NEXT:
        SetPosition(FPosition + FPageSize);
        break;
    case VK_PRIOR:
        SetPosition(FPosition - FPageSize);
        break;
    case VK_HOME:
        SetPosition(FMin);
        break;
    case VK_END:
        SetPosition(FMax);
        break;
    default:
        return;
    }
    Key = 0;
}

void TTrackBar::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Value = FPosition;
    d.MinValue = FMin;
    d.MaxValue = FMax;
}

// ---- TUpDown ------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TUpDown, TWinControl, "ComCtrls") {
    d.Property("AlignButton", &TUpDown::AlignButton, &TUpDown::SetAlignButton).Default(udRight);
    pub::Anchors(d);
    d.Property("Associate", &TUpDown::Associate, &TUpDown::SetAssociate);
    d.Property("ArrowKeys", &TUpDown::ArrowKeys, &TUpDown::SetArrowKeys).Default(true);
    pub::Enabled(d);
    d.Property("Increment", &TUpDown::Increment, &TUpDown::SetIncrement).Default(1);
    d.Property("Max", &TUpDown::Max, &TUpDown::SetMax).Default(100);
    d.Property("Min", &TUpDown::Min, &TUpDown::SetMin).Default(0);
    d.Property("Orientation", &TUpDown::Orientation, &TUpDown::SetOrientation).Default(udVertical);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    d.Property("Position", &TUpDown::Position, &TUpDown::SetPosition).Default(0);
    pub::ShowHint(d);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("Thousands", &TUpDown::Thousands, &TUpDown::SetThousands).Default(true);
    pub::Visible(d);
    d.Property("Wrap", &TUpDown::Wrap, &TUpDown::SetWrap).Default(false);
    d.Event("OnChanging", &TUpDown::OnChanging);
    d.Event("OnClick", &TUpDown::OnClick);
    pub::OnEnterExit(d);
    pub::OnMouse(d);
}

TUpDown::TUpDown(TComponent* AOwner) : TWinControl(AOwner) {
    FWidth = 16;
    FHeight = 24;
}

void TUpDown::Notification(TComponent* AComponent, rtl::TOperation Operation) {
    TWinControl::Notification(AComponent, Operation);
    if (Operation == rtl::opRemove && AComponent == FAssociate) FAssociate = nullptr;
}

void TUpDown::SetAssociate(TWinControl* v) {
    if (v == FAssociate) return;
    if (v == this) throw rtl::EInvalidOperation("An up-down control cannot be associated with itself");
    if (v && v->Parent())
        for (TControl* c : v->Parent()->ControlList())
            if (auto* other = dynamic_cast<TUpDown*>(c); other && other != this && other->FAssociate == v)
                throw rtl::EInvalidOperation(v->Name() + " is already associated with " + other->Name());
    if (FAssociate) FAssociate->RemoveFreeNotification(this);
    FAssociate = v;
    if (!v) return;
    v->FreeNotification(this);
    // A form file holds the sizes that the association already made; only a new association places.
    if (!IsLoading()) {
        PlaceAtAssociate();
        UpdateAssociate();
    }
}

void TUpDown::PlaceAtAssociate() {
    if (!FAssociate) return;
    TWinControl* a = FAssociate;
    int w = FWidth;
    int aw = std::max(0, a->Width() - w);
    if (FAlignButton == udRight) {
        a->SetBounds(a->Left(), a->Top(), aw, a->Height());
        SetBounds(a->Left() + aw, a->Top(), w, a->Height());
    } else {
        SetBounds(a->Left(), a->Top(), w, a->Height());
        a->SetBounds(a->Left() + w, a->Top(), aw, a->Height());
    }
}

void TUpDown::SetAlignButton(TUDAlignButton v) {
    if (v == FAlignButton) return;
    FAlignButton = v;
    if (FAssociate && !IsLoading()) {
        // Give the associate back its room, then sit on the other side.
        TWinControl* a = FAssociate;
        if (v == udLeft) {
            SetBounds(a->Left(), a->Top(), FWidth, a->Height());
            a->SetLeft(a->Left() + FWidth);
        } else {
            a->SetLeft(a->Left() - FWidth);
            SetBounds(a->Left() + a->Width(), a->Top(), FWidth, a->Height());
        }
    }
}

void TUpDown::SetMin(int v) {
    FMin = v;
    if (!IsLoading()) SetPosition(FPosition);
}

void TUpDown::SetMax(int v) {
    FMax = v;
    if (!IsLoading()) SetPosition(FPosition);
}

void TUpDown::SetPosition(int v) {
    if (!IsLoading()) v = std::clamp(v, std::min(FMin, FMax), std::max(FMin, FMax));
    FPosition = v;
    if (!IsLoading()) UpdateAssociate();
}

void TUpDown::SetThousands(bool v) {
    if (v == FThousands) return;
    FThousands = v;
    UpdateAssociate();
}

void TUpDown::UpdateAssociate() {
    if (!FAssociate) return;
    std::string digits = std::to_string(FPosition < 0 ? -static_cast<int64_t>(FPosition) : FPosition);
    if (FThousands)
        for (int i = static_cast<int>(digits.size()) - 3; i > 0; i -= 3)
            digits.insert(static_cast<size_t>(i), ",");
    FAssociate->SetText(FPosition < 0 ? "-" + digits : digits);
}

void TUpDown::UserClickButton(TUDBtnType Button) {
    bool allow = true;
    OnChanging(this, allow);
    if (!allow) return;
    int lo = std::min(FMin, FMax), hi = std::max(FMin, FMax);
    // Min above Max turns the arrows round, as the platform's control does.
    int64_t step = FMin <= FMax ? FIncrement : -static_cast<int64_t>(FIncrement);
    int64_t next = static_cast<int64_t>(FPosition) + (Button == btNext ? step : -step);
    if (next > hi) next = FWrap ? lo : hi;
    if (next < lo) next = FWrap ? hi : lo;
    SetPosition(static_cast<int>(next));
    OnClick(this, Button);
}

void TUpDown::UserSetValue(int Value) {
    bool allow = true;
    OnChanging(this, allow);
    if (allow) SetPosition(Value);
}

void TUpDown::KeyDown(uint16_t& Key, TShiftState Shift) {
    TWinControl::KeyDown(Key, Shift);
    if (!FArrowKeys) return;
    if (Key == VK_UP || Key == VK_RIGHT)
        UserClickButton(btNext);
    else if (Key == VK_DOWN || Key == VK_LEFT)
        UserClickButton(btPrev);
    else
        return;
    Key = 0;
}

void TUpDown::Describe(TControlDesc& d) const {
    TWinControl::Describe(d);
    d.Value = FPosition;
    d.MinValue = FMin;
    d.MaxValue = FMax;
}

} // namespace vcl
