// Split controls, their panes and the stand-alone split bar.
#include "jex/jexsplit.h"

#include <algorithm>

#include "jexpanelpub.h"

namespace jex {

using namespace vcl;

JEX_DEFINE_ENUM(TBevelKind)
JEX_DEFINE_ENUM(TBevelEdge)
JEX_DEFINE_SET(TBevelEdges, TBevelEdge)
JEX_DEFINE_ENUM(TjexBiLayout)
JEX_DEFINE_ENUM(TjexTriLayout)
JEX_DEFINE_ENUM(TjexMultiLayout)
JEX_DEFINE_ENUM(TjexSplitMoveStyle)

namespace {
constexpr TBevelEdges kAllEdges{beLeft, beTop, beRight, beBottom};

bool PtInRect(const TRect& r, int x, int y) {
    return x >= r.Left && x < r.Right && y >= r.Top && y < r.Bottom;
}

int SlotCount(TjexMultiLayout l) {
    switch (l) {
    case jmlLeftRight:
    case jmlTopBottom:
        return 2;
    case jmlQuad:
        return 4;
    default:
        return 3;
    }
}

TjexMultiLayout RotatedClockwise(TjexMultiLayout l) {
    switch (l) {
    case jmlLeftRight:
        return jmlTopBottom;
    case jmlTopBottom:
        return jmlLeftRight;
    case jmlTriLeft:
        return jmlTriTop;
    case jmlTriTop:
        return jmlTriRight;
    case jmlTriRight:
        return jmlTriBottom;
    case jmlTriBottom:
        return jmlTriLeft;
    default:
        return jmlQuad;
    }
}

TRect Shrink(TRect r, TBevelEdges edges, int width) {
    if (edges.Contains(beLeft)) r.Left += width;
    if (edges.Contains(beTop)) r.Top += width;
    if (edges.Contains(beRight)) r.Right -= width;
    if (edges.Contains(beBottom)) r.Bottom -= width;
    return r;
}

template <class C> void PublishPaneBevels(rtl::TClassDecl<C>& d) {
    d.Property("BevelEdges", &C::BevelEdges, &C::SetBevelEdges).Default(kAllEdges.Bits());
    d.Property("BevelKind", &C::BevelKind, &C::SetBevelKind).Default(bkNone);
}

template <class C> void PublishSplit(rtl::TClassDecl<C>& d) {
    pubx::Panel(d);
    d.Property("KeyIncrement", &C::KeyIncrement, &C::SetKeyIncrement).Default(10);
    d.Property("MoveImmediate", &C::MoveImmediate, &C::SetMoveImmediate).Default(true);
    d.Property("SplitBevel", &C::SplitBevel, &C::SetSplitBevel).Default(bvRaised);
    d.Property("SplitColor", &C::SplitColor, &C::SetSplitColor, TypeInfo_TColor()).Default(clBtnFace);
    d.Property("SplitHLock", &C::SplitHLock, &C::SetSplitHLock).Default(false);
    d.Property("SplitHMax", &C::SplitHMax, &C::SetSplitHMax).Default(0);
    d.Property("SplitHMin", &C::SplitHMin, &C::SetSplitHMin).Default(0);
    d.Property("SplitHPercent", &C::SplitHPercent, &C::SetSplitHPercent).Default(50);
    d.Property("SplitHPos", &C::SplitHPos, &C::SetSplitHPos);
    d.Property("SplitHScaled", &C::SplitHScaled, &C::SetSplitHScaled).Default(true);
    d.Property("SplitMoveStyle", &C::SplitMoveStyle, &C::SetSplitMoveStyle).Default(jsmPattern);
    d.Property("SplitVLock", &C::SplitVLock, &C::SetSplitVLock).Default(false);
    d.Property("SplitVMax", &C::SplitVMax, &C::SetSplitVMax).Default(0);
    d.Property("SplitVMin", &C::SplitVMin, &C::SetSplitVMin).Default(0);
    d.Property("SplitVPercent", &C::SplitVPercent, &C::SetSplitVPercent).Default(50);
    d.Property("SplitVPos", &C::SplitVPos, &C::SetSplitVPos);
    d.Property("SplitVScaled", &C::SplitVScaled, &C::SetSplitVScaled).Default(true);
    d.Property("Thickness", &C::Thickness, &C::SetThickness).Default(4);
    d.Event("OnMoved", &C::OnMoved);
}
} // namespace

// ---- Panes -----------------------------------------------------------------------------------------------
int TjexPaneBevels::EdgeWidth(TBevelEdge Edge) const {
    if (!FBevelEdges.Contains(Edge)) return 0;
    switch (FBevelKind) {
    case bkTile:
        return 2;
    case bkSoft:
    case bkFlat:
        return 1;
    default:
        return 0;
    }
}

JEX_IMPLEMENT_CLASS(TjexSplitPane, TPanel, "jexsplit") {
    PublishPaneBevels(d);
}

TjexSplitPane::TjexSplitPane(rtl::TComponent* AOwner) : TPanel(AOwner) {
    // A pane shows its controls, not its name.
    FControlStyle.Exclude(csSetCaption);
}

void TjexSplitPane::SetBevelEdges(TBevelEdges Value) {
    FBevelEdges = Value;
    Realign();
}

void TjexSplitPane::SetBevelKind(TBevelKind Value) {
    FBevelKind = Value;
    Realign();
}

TjexCustomSplit* TjexSplitPane::Split() const {
    return dynamic_cast<TjexCustomSplit*>(Parent());
}

int TjexSplitPane::PaneIndex() const {
    TjexCustomSplit* s = Split();
    if (!s) return -1;
    for (int i = 0; i < s->GetPaneCount(); ++i)
        if (s->GetPane(i) == this) return i;
    return -1;
}

TRect TjexSplitPane::AdjustClientRect() const {
    int edge = std::max({EdgeWidth(beLeft), EdgeWidth(beTop), EdgeWidth(beRight), EdgeWidth(beBottom)});
    return Shrink(TPanel::AdjustClientRect(), FBevelEdges, edge);
}

JEX_IMPLEMENT_CLASS(TjexScrollingSplitPane, TScrollBox, "jexsplit") {
    PublishPaneBevels(d);
    d.Property("BevelInner", &TjexScrollingSplitPane::BevelInner, &TjexScrollingSplitPane::SetBevelInner)
        .Default(bvNone);
    d.Property("BevelOuter", &TjexScrollingSplitPane::BevelOuter, &TjexScrollingSplitPane::SetBevelOuter)
        .Default(bvNone);
    d.Property("BevelWidth", &TjexScrollingSplitPane::BevelWidth, &TjexScrollingSplitPane::SetBevelWidth)
        .Default(1);
}

TjexScrollingSplitPane::TjexScrollingSplitPane(rtl::TComponent* AOwner) : TScrollBox(AOwner) {}

void TjexScrollingSplitPane::SetBevelEdges(TBevelEdges Value) {
    FBevelEdges = Value;
    Realign();
}

void TjexScrollingSplitPane::SetBevelKind(TBevelKind Value) {
    FBevelKind = Value;
    Realign();
}

void TjexScrollingSplitPane::SetBevelInner(TBevelCut Value) {
    FBevelInner = Value;
    Realign();
}

void TjexScrollingSplitPane::SetBevelOuter(TBevelCut Value) {
    FBevelOuter = Value;
    Realign();
}

void TjexScrollingSplitPane::SetBevelWidth(int Value) {
    FBevelWidth = std::max(1, Value);
    Realign();
}

TjexCustomSplit* TjexScrollingSplitPane::Split() const {
    return dynamic_cast<TjexCustomSplit*>(Parent());
}

int TjexScrollingSplitPane::PaneIndex() const {
    TjexCustomSplit* s = Split();
    if (!s) return -1;
    for (int i = 0; i < s->GetPaneCount(); ++i)
        if (s->GetPane(i) == this) return i;
    return -1;
}

void TjexScrollingSplitPane::ScrollTo(int HorzPos, int VertPos) {
    HorzScrollBar()->SetPosition(HorzPos);
    VertScrollBar()->SetPosition(VertPos);
    if (TjexCustomSplit* s = Split()) s->PaneScrolled(this);
}

TRect TjexScrollingSplitPane::AdjustClientRect() const {
    TRect r = TScrollBox::AdjustClientRect();
    int bevel = (FBevelInner != bvNone ? FBevelWidth : 0) + (FBevelOuter != bvNone ? FBevelWidth : 0);
    r = Rect(r.Left + bevel, r.Top + bevel, r.Right - bevel, r.Bottom - bevel);
    int edge = std::max({EdgeWidth(beLeft), EdgeWidth(beTop), EdgeWidth(beRight), EdgeWidth(beBottom)});
    return Shrink(r, FBevelEdges, edge);
}

// ---- The split
// ---------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexCustomSplit, TCustomPanel, "jexsplit") {}

TjexCustomSplit::TjexCustomSplit(rtl::TComponent* AOwner) : TCustomPanel(AOwner) {
    FControlStyle.Exclude(csSetCaption);
    SetBounds(0, 0, 200, 150);
}

std::vector<TWinControl*> TjexCustomSplit::Panes() const {
    std::vector<TWinControl*> list;
    for (TControl* c : FControls)
        if (dynamic_cast<TjexSplitPane*>(c) || dynamic_cast<TjexScrollingSplitPane*>(c))
            list.push_back(static_cast<TWinControl*>(c));
    return list;
}

int TjexCustomSplit::GetPaneCount() const {
    return static_cast<int>(Panes().size());
}

TWinControl* TjexCustomSplit::GetPane(int Index) const {
    std::vector<TWinControl*> panes = Panes();
    return Index >= 0 && Index < static_cast<int>(panes.size()) ? panes[Index] : nullptr;
}

int TjexCustomSplit::RequiredPaneCount() const {
    return SlotCount(FLayout);
}

rtl::TClass TjexCustomSplit::PaneClass() const {
    return TjexSplitPane::StaticClass();
}

void TjexCustomSplit::CreatePanes() {
    rtl::TComponent* owner = Owner() ? Owner() : this;
    for (int n = GetPaneCount(); n < RequiredPaneCount(); ++n) {
        rtl::TComponent* c = PaneClass()->CreateComponent(owner);
        try {
            static_cast<TControl*>(c)->SetParent(this);
        } catch (...) {
            c->Free();
            throw;
        }
    }
    ResizePanes();
}

int TjexCustomSplit::Extent(bool Horz) const {
    TRect r = AdjustClientRect();
    return std::max(0, Horz ? r.Width() : r.Height());
}

int TjexCustomSplit::Clamp(const TBar& Bar, int Pos, bool Horz) const {
    int hi = Extent(Horz) - FThickness;
    if (Bar.Max > 0) hi = std::min(hi, Bar.Max);
    Pos = std::min(Pos, hi);
    Pos = std::max(Pos, Bar.Min);
    return std::max(Pos, 0);
}

void TjexCustomSplit::BarChanged(TBar& Bar, bool Horz, int Value, bool FromPercent) {
    // A form file holds positions that already fit the stored size; they are taken as they are.
    if (IsLoading()) {
        (FromPercent ? Bar.Percent : Bar.Pos) = Value;
        return;
    }
    int ext = Extent(Horz);
    if (FromPercent) {
        Bar.Percent = std::clamp(Value, 0, 100);
        Bar.Pos = Clamp(Bar, Bar.Percent * ext / 100, Horz);
    } else {
        Bar.Pos = Clamp(Bar, Value, Horz);
        if (ext > 0) Bar.Percent = Bar.Pos * 100 / ext;
    }
    ResizePanes();
    OnMoved(this);
}

void TjexCustomSplit::Rescale() {
    for (int i = 0; i < 2; ++i) {
        bool horz = i == 0;
        TBar& bar = horz ? FH : FV;
        int ext = Extent(horz);
        if (bar.Scaled) {
            bar.Pos = Clamp(bar, bar.Percent * ext / 100, horz);
        } else {
            bar.Pos = Clamp(bar, bar.Pos, horz);
            if (ext > 0) bar.Percent = bar.Pos * 100 / ext;
        }
    }
}

void TjexCustomSplit::SetSplitHPos(int Value) {
    BarChanged(FH, true, Value, false);
}
void TjexCustomSplit::SetSplitVPos(int Value) {
    BarChanged(FV, false, Value, false);
}
void TjexCustomSplit::SetSplitHPercent(int Value) {
    BarChanged(FH, true, Value, true);
}
void TjexCustomSplit::SetSplitVPercent(int Value) {
    BarChanged(FV, false, Value, true);
}

void TjexCustomSplit::SetSplitHMin(int Value) {
    FH.Min = std::max(0, Value);
    if (!IsLoading()) SetSplitHPos(FH.Pos);
}
void TjexCustomSplit::SetSplitHMax(int Value) {
    FH.Max = std::max(0, Value);
    if (!IsLoading()) SetSplitHPos(FH.Pos);
}
void TjexCustomSplit::SetSplitVMin(int Value) {
    FV.Min = std::max(0, Value);
    if (!IsLoading()) SetSplitVPos(FV.Pos);
}
void TjexCustomSplit::SetSplitVMax(int Value) {
    FV.Max = std::max(0, Value);
    if (!IsLoading()) SetSplitVPos(FV.Pos);
}

void TjexCustomSplit::SetThickness(int Value) {
    FThickness = std::max(0, Value);
    if (IsLoading()) return;
    FH.Pos = Clamp(FH, FH.Pos, true);
    FV.Pos = Clamp(FV, FV.Pos, false);
    ResizePanes();
}

void TjexCustomSplit::SetGeneralLayout(TjexMultiLayout Value) {
    FLayout = Value;
    if (!IsLoading()) ResizePanes();
}

bool TjexCustomSplit::UsesHBar() const {
    return FLayout != jmlTopBottom;
}

bool TjexCustomSplit::UsesVBar() const {
    return FLayout != jmlLeftRight;
}

TRect TjexCustomSplit::SlotRect(int Slot) const {
    TRect c = AdjustClientRect();
    int t = FThickness;
    int x = c.Left + std::clamp(FH.Pos, 0, std::max(0, c.Width() - t));
    int y = c.Top + std::clamp(FV.Pos, 0, std::max(0, c.Height() - t));
    int L = c.Left, T = c.Top, R = c.Right, B = c.Bottom;
    std::vector<TRect> slots;
    switch (FLayout) {
    case jmlLeftRight:
        slots = {Rect(L, T, x, B), Rect(x + t, T, R, B)};
        break;
    case jmlTopBottom:
        slots = {Rect(L, T, R, y), Rect(L, y + t, R, B)};
        break;
    case jmlTriLeft:
        slots = {Rect(L, T, x, B), Rect(x + t, T, R, y), Rect(x + t, y + t, R, B)};
        break;
    case jmlTriRight:
        slots = {Rect(L, T, x, y), Rect(x + t, T, R, B), Rect(L, y + t, x, B)};
        break;
    case jmlTriTop:
        slots = {Rect(L, T, R, y), Rect(L, y + t, x, B), Rect(x + t, y + t, R, B)};
        break;
    case jmlTriBottom:
        slots = {Rect(L, T, x, y), Rect(x + t, T, R, y), Rect(L, y + t, R, B)};
        break;
    case jmlQuad:
        slots = {Rect(L, T, x, y), Rect(x + t, T, R, y), Rect(L, y + t, x, B), Rect(x + t, y + t, R, B)};
        break;
    }
    if (Slot < 0 || Slot >= static_cast<int>(slots.size())) return {};
    TRect r = slots[Slot];
    r.Right = std::max(r.Left, r.Right);
    r.Bottom = std::max(r.Top, r.Bottom);
    return r;
}

TRect TjexCustomSplit::HBarRect() const {
    if (!UsesHBar()) return {};
    TRect c = AdjustClientRect();
    int t = FThickness;
    int x = c.Left + std::clamp(FH.Pos, 0, std::max(0, c.Width() - t));
    int y = c.Top + std::clamp(FV.Pos, 0, std::max(0, c.Height() - t));
    switch (FLayout) {
    case jmlTriTop:
        return Rect(x, y + t, x + t, c.Bottom);
    case jmlTriBottom:
        return Rect(x, c.Top, x + t, y);
    default:
        return Rect(x, c.Top, x + t, c.Bottom);
    }
}

TRect TjexCustomSplit::VBarRect() const {
    if (!UsesVBar()) return {};
    TRect c = AdjustClientRect();
    int t = FThickness;
    int x = c.Left + std::clamp(FH.Pos, 0, std::max(0, c.Width() - t));
    int y = c.Top + std::clamp(FV.Pos, 0, std::max(0, c.Height() - t));
    switch (FLayout) {
    case jmlTriLeft:
        return Rect(x + t, y, c.Right, y + t);
    case jmlTriRight:
        return Rect(c.Left, y, x, y + t);
    default:
        return Rect(c.Left, y, c.Right, y + t);
    }
}

void TjexCustomSplit::ResizePanes() {
    if (FPlacing || IsLoading() || IsDestroying()) return;
    FPlacing = true;
    try {
        std::vector<TWinControl*> panes = Panes();
        int slots = RequiredPaneCount();
        for (int i = 0; i < static_cast<int>(panes.size()); ++i) {
            if (i < slots) {
                panes[i]->SetBoundsRect(SlotRect(i));
                panes[i]->SetVisible(true);
            } else {
                panes[i]->SetVisible(false);
            }
        }
    } catch (...) {
        FPlacing = false;
        throw;
    }
    FPlacing = false;
}

void TjexCustomSplit::ReorderPanes(const std::vector<TWinControl*>& Order) {
    std::vector<size_t> at;
    for (size_t i = 0; i < FControls.size(); ++i)
        if (dynamic_cast<TjexSplitPane*>(FControls[i]) || dynamic_cast<TjexScrollingSplitPane*>(FControls[i]))
            at.push_back(i);
    for (size_t k = 0; k < at.size() && k < Order.size(); ++k)
        FControls[at[k]] = Order[k];
    // Tab order follows the slots, so that a form file (which restores both) keeps them in step.
    for (size_t k = 0; k < Order.size(); ++k)
        Order[k]->SetTabOrder(static_cast<int>(k));
}

void TjexCustomSplit::Rotate(bool Clockwise) {
    for (int turn = 0; turn < (Clockwise ? 1 : 3); ++turn) {
        std::vector<TWinControl*> panes = Panes();
        TRect c = AdjustClientRect();
        double w = std::max(1, c.Width()), h = std::max(1, c.Height());
        // Where each occupied slot's centre goes when the whole area turns clockwise: (u, v) -> (1 - v, u).
        std::vector<std::pair<double, double>> targets;
        int used = std::min<int>(static_cast<int>(panes.size()), RequiredPaneCount());
        for (int i = 0; i < used; ++i) {
            TRect r = SlotRect(i);
            double u = ((r.Left + r.Right) / 2.0 - c.Left) / w, v = ((r.Top + r.Bottom) / 2.0 - c.Top) / h;
            targets.emplace_back(1 - v, u);
        }
        int oldH = FH.Percent, oldV = FV.Percent;
        FLayout = RotatedClockwise(FLayout);
        FH.Percent = 100 - oldV;
        FV.Percent = oldH;
        FH.Pos = Clamp(FH, FH.Percent * Extent(true) / 100, true);
        FV.Pos = Clamp(FV, FV.Percent * Extent(false) / 100, false);
        std::vector<TWinControl*> order(panes.size(), nullptr);
        for (int i = 0; i < used; ++i) {
            int px = c.Left + static_cast<int>(targets[i].first * w);
            int py = c.Top + static_cast<int>(targets[i].second * h);
            // The new slot holding that point, else the nearest free one.
            int best = -1;
            double bestDist = 1e18;
            for (int j = 0; j < used; ++j) {
                if (order[j]) continue;
                TRect r = SlotRect(j);
                if (PtInRect(Rect(r.Left - FThickness, r.Top - FThickness, r.Right + FThickness,
                                  r.Bottom + FThickness),
                             px, py)) {
                    best = j;
                    break;
                }
                double dx = (r.Left + r.Right) / 2.0 - px, dy = (r.Top + r.Bottom) / 2.0 - py;
                if (dx * dx + dy * dy < bestDist) {
                    bestDist = dx * dx + dy * dy;
                    best = j;
                }
            }
            order[best] = panes[i];
        }
        for (size_t i = used; i < panes.size(); ++i)
            order[i] = panes[i];
        ReorderPanes(order);
    }
    ResizePanes();
    OnMoved(this);
}

void TjexCustomSplit::Exchange(int A, int B) {
    std::vector<TWinControl*> panes = Panes();
    int n = static_cast<int>(panes.size());
    for (int i : {A, B})
        if (i < 0 || i >= n) throw rtl::EListError(rtl::Format(rtl::SListIndexError, {i}));
    std::swap(panes[A], panes[B]);
    ReorderPanes(panes);
    ResizePanes();
}

void TjexCustomSplit::FlatStyle() {
    SetBorderStyle(bsNone);
    SetBorderWidth(0);
    SetBevelInner(bvNone);
    SetBevelOuter(bvNone);
    FSplitBevel = bvNone;
    for (TWinControl* p : Panes()) {
        if (auto* pane = dynamic_cast<TjexSplitPane*>(p)) {
            pane->SetBevelEdges(kAllEdges);
            pane->SetBevelInner(bvNone);
            pane->SetBevelKind(bkSoft);
            pane->SetBevelOuter(bvLowered);
        } else if (auto* spane = dynamic_cast<TjexScrollingSplitPane*>(p)) {
            spane->SetBevelEdges(kAllEdges);
            spane->SetBevelInner(bvNone);
            spane->SetBevelKind(bkSoft);
            spane->SetBevelOuter(bvLowered);
        }
    }
    ResizePanes();
}

void TjexCustomSplit::AlignControls() {
    TCustomPanel::AlignControls();
    int w = Extent(true), h = Extent(false);
    if (IsLoading()) {
        FLastWidth = w;
        FLastHeight = h;
        return;
    }
    if (w != FLastWidth || h != FLastHeight) {
        FLastWidth = w;
        FLastHeight = h;
        Rescale();
    }
    ResizePanes();
}

void TjexCustomSplit::Loaded() {
    TCustomPanel::Loaded();
    FLastWidth = Extent(true);
    FLastHeight = Extent(false);
    ResizePanes();
}

void TjexCustomSplit::ControlAdded(TControl* AControl) {
    TCustomPanel::ControlAdded(AControl);
    if (dynamic_cast<TjexSplitPane*>(AControl) || dynamic_cast<TjexScrollingSplitPane*>(AControl))
        ResizePanes();
}

void TjexCustomSplit::ControlRemoved(TControl* AControl) {
    TCustomPanel::ControlRemoved(AControl);
    if (dynamic_cast<TjexSplitPane*>(AControl) || dynamic_cast<TjexScrollingSplitPane*>(AControl))
        ResizePanes();
}

void TjexCustomSplit::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseDown(Button, Shift, X, Y);
    if (Button != mbLeft) return;
    FDragBars = 0;
    if (UsesHBar() && !FH.Lock && PtInRect(HBarRect(), X, Y)) FDragBars |= 1;
    if (UsesVBar() && !FV.Lock && PtInRect(VBarRect(), X, Y)) FDragBars |= 2;
    TRect c = AdjustClientRect();
    FGrabX = X - (c.Left + FH.Pos);
    FGrabY = Y - (c.Top + FV.Pos);
    FDragH = FH.Pos;
    FDragV = FV.Pos;
}

void TjexCustomSplit::MouseMove(TShiftState Shift, int X, int Y) {
    TCustomPanel::MouseMove(Shift, X, Y);
    if (!FDragBars) return;
    TRect c = AdjustClientRect();
    if (FDragBars & 1) {
        FDragH = Clamp(FH, X - c.Left - FGrabX, true);
        if (FMoveImmediate && FDragH != FH.Pos) SetSplitHPos(FDragH);
    }
    if (FDragBars & 2) {
        FDragV = Clamp(FV, Y - c.Top - FGrabY, false);
        if (FMoveImmediate && FDragV != FV.Pos) SetSplitVPos(FDragV);
    }
}

void TjexCustomSplit::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FDragBars) {
        MouseMove(Shift, X, Y);
        int bars = FDragBars;
        FDragBars = 0;
        if ((bars & 1) && FDragH != FH.Pos) SetSplitHPos(FDragH);
        if ((bars & 2) && FDragV != FV.Pos) SetSplitVPos(FDragV);
    }
    TCustomPanel::MouseUp(Button, Shift, X, Y);
}

void TjexCustomSplit::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomPanel::KeyDown(Key, Shift);
    if ((Key == VK_LEFT || Key == VK_RIGHT) && UsesHBar() && !FH.Lock) {
        SetSplitHPos(FH.Pos + (Key == VK_LEFT ? -FKeyIncrement : FKeyIncrement));
        Key = 0;
    } else if ((Key == VK_UP || Key == VK_DOWN) && UsesVBar() && !FV.Lock) {
        SetSplitVPos(FV.Pos + (Key == VK_UP ? -FKeyIncrement : FKeyIncrement));
        Key = 0;
    }
}

void TjexCustomSplit::PaneScrolled(TjexScrollingSplitPane* Pane) {
    if (FSyncing || (!FSyncHScroll && !FSyncVScroll)) return;
    FSyncing = true;
    TRect a = Pane->BoundsRect();
    for (TWinControl* p : Panes()) {
        auto* other = dynamic_cast<TjexScrollingSplitPane*>(p);
        if (!other || other == Pane) continue;
        TRect b = other->BoundsRect();
        // Panes of one column share the horizontal position, panes of one row the vertical one.
        if (FSyncHScroll && a.Left < b.Right && b.Left < a.Right)
            other->HorzScrollBar()->SetPosition(Pane->HorzScrollBar()->Position());
        if (FSyncVScroll && a.Top < b.Bottom && b.Top < a.Bottom)
            other->VertScrollBar()->SetPosition(Pane->VertScrollBar()->Position());
    }
    FSyncing = false;
}

// ---- The concrete splits -------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexBiSplit, TjexCustomSplit, "jexsplit") {
    d.Property("Layout", &TjexBiSplit::Layout, &TjexBiSplit::SetLayout).Default(jblLeftRight);
    PublishSplit(d);
}

TjexBiSplit::TjexBiSplit(rtl::TComponent* AOwner) : TjexCustomSplit(AOwner) {}

TjexBiLayout TjexBiSplit::Layout() const {
    return GeneralLayout() == jmlTopBottom ? jblTopBottom : jblLeftRight;
}

void TjexBiSplit::SetLayout(TjexBiLayout Value) {
    SetGeneralLayout(Value == jblTopBottom ? jmlTopBottom : jmlLeftRight);
}

JEX_IMPLEMENT_CLASS(TjexTriSplit, TjexCustomSplit, "jexsplit") {
    d.Property("Layout", &TjexTriSplit::Layout, &TjexTriSplit::SetLayout).Default(jtlLeft);
    PublishSplit(d);
}

TjexTriSplit::TjexTriSplit(rtl::TComponent* AOwner) : TjexCustomSplit(AOwner) {
    SetGeneralLayout(jmlTriLeft);
}

TjexTriLayout TjexTriSplit::Layout() const {
    switch (GeneralLayout()) {
    case jmlTriRight:
        return jtlRight;
    case jmlTriTop:
        return jtlTop;
    case jmlTriBottom:
        return jtlBottom;
    default:
        return jtlLeft;
    }
}

void TjexTriSplit::SetLayout(TjexTriLayout Value) {
    static const TjexMultiLayout map[] = {jmlTriLeft, jmlTriRight, jmlTriTop, jmlTriBottom};
    SetGeneralLayout(map[Value]);
}

JEX_IMPLEMENT_CLASS(TjexQuadSplit, TjexCustomSplit, "jexsplit") {
    PublishSplit(d);
}

TjexQuadSplit::TjexQuadSplit(rtl::TComponent* AOwner) : TjexCustomSplit(AOwner) {
    SetGeneralLayout(jmlQuad);
}

JEX_IMPLEMENT_CLASS(TjexMultiSplit, TjexCustomSplit, "jexsplit") {
    d.Property("Layout", &TjexMultiSplit::Layout, &TjexMultiSplit::SetLayout).Default(jmlLeftRight);
    PublishSplit(d);
}

TjexMultiSplit::TjexMultiSplit(rtl::TComponent* AOwner) : TjexCustomSplit(AOwner) {}

// The scrolling variants publish the same plus the scroll synchronisation.
JEX_IMPLEMENT_CLASS(TjexSBiSplit, TjexBiSplit, "jexsplit") {
    d.Property("SyncHScroll", &TjexSBiSplit::SyncHScroll, &TjexSBiSplit::SetSyncHScroll).Default(false);
    d.Property("SyncVScroll", &TjexSBiSplit::SyncVScroll, &TjexSBiSplit::SetSyncVScroll).Default(false);
}
JEX_IMPLEMENT_CLASS(TjexSTriSplit, TjexTriSplit, "jexsplit") {
    d.Property("SyncHScroll", &TjexSTriSplit::SyncHScroll, &TjexSTriSplit::SetSyncHScroll).Default(false);
    d.Property("SyncVScroll", &TjexSTriSplit::SyncVScroll, &TjexSTriSplit::SetSyncVScroll).Default(false);
}
JEX_IMPLEMENT_CLASS(TjexSQuadSplit, TjexQuadSplit, "jexsplit") {
    d.Property("SyncHScroll", &TjexSQuadSplit::SyncHScroll, &TjexSQuadSplit::SetSyncHScroll).Default(false);
    d.Property("SyncVScroll", &TjexSQuadSplit::SyncVScroll, &TjexSQuadSplit::SetSyncVScroll).Default(false);
}
JEX_IMPLEMENT_CLASS(TjexSMultiSplit, TjexMultiSplit, "jexsplit") {
    d.Property("SyncHScroll", &TjexSMultiSplit::SyncHScroll, &TjexSMultiSplit::SetSyncHScroll).Default(false);
    d.Property("SyncVScroll", &TjexSMultiSplit::SyncVScroll, &TjexSMultiSplit::SetSyncVScroll).Default(false);
}

rtl::TClass TjexSBiSplit::PaneClass() const {
    return TjexScrollingSplitPane::StaticClass();
}
rtl::TClass TjexSTriSplit::PaneClass() const {
    return TjexScrollingSplitPane::StaticClass();
}
rtl::TClass TjexSQuadSplit::PaneClass() const {
    return TjexScrollingSplitPane::StaticClass();
}
rtl::TClass TjexSMultiSplit::PaneClass() const {
    return TjexScrollingSplitPane::StaticClass();
}

// ---- The split bar ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TjexSplitBar, TCustomControl, "jexsplit") {
    pub::Anchors(d);
    pub::Color(d, clBtnFace);
    pub::Enabled(d);
    d.Property("KeyIncrement", &TjexSplitBar::KeyIncrement, &TjexSplitBar::SetKeyIncrement).Default(10);
    d.Property("Layout", &TjexSplitBar::Layout, &TjexSplitBar::SetLayout).Default(jblLeftRight);
    d.Property("Max", &TjexSplitBar::Max, &TjexSplitBar::SetMax).Default(0);
    d.Property("Min", &TjexSplitBar::Min, &TjexSplitBar::SetMin).Default(0);
    d.Property("MoveImmediate", &TjexSplitBar::MoveImmediate, &TjexSplitBar::SetMoveImmediate).Default(true);
    pub::ParentColor(d, false);
    pub::ParentShowHint(d);
    d.Property("Percent", &TjexSplitBar::Percent, &TjexSplitBar::SetPercent).Stored(false);
    pub::PopupMenu(d);
    d.Property("Pos", &TjexSplitBar::Pos, &TjexSplitBar::SetPos).Stored(false);
    pub::ShowHint(d);
    d.Property("SplitMoveStyle", &TjexSplitBar::SplitMoveStyle, &TjexSplitBar::SetSplitMoveStyle)
        .Default(jsmPattern);
    pub::TabOrder(d);
    pub::TabStop(d, false);
    d.Property("Thickness", &TjexSplitBar::Thickness, &TjexSplitBar::SetThickness).Default(4);
    pub::Visible(d);
    d.Property("WindowA", &TjexSplitBar::WindowA, &TjexSplitBar::SetWindowA);
    d.Property("WindowB", &TjexSplitBar::WindowB, &TjexSplitBar::SetWindowB);
    pub::OnMouse(d);
    d.Event("OnMoved", &TjexSplitBar::OnMoved);
}

TjexSplitBar::TjexSplitBar(rtl::TComponent* AOwner) : TCustomControl(AOwner) {
    FColor = clBtnFace;
    FCursor = crHSplit;
    FWidth = FThickness;
    FHeight = 100;
}

int TjexSplitBar::Extent() const {
    if (!FParent) return 0;
    TRect r = FParent->ClientRect();
    return FLayout == jblLeftRight ? r.Width() : r.Height();
}

int TjexSplitBar::Pos() const {
    return FLayout == jblLeftRight ? FLeft : FTop;
}

int TjexSplitBar::Percent() const {
    int ext = Extent();
    return ext > 0 ? Pos() * 100 / ext : 0;
}

int TjexSplitBar::ClampPos(int Value) const {
    int ext = Extent();
    if (ext > 0) Value = std::min(Value, ext - FThickness);
    if (FMax > 0) Value = std::min(Value, FMax);
    return std::max({Value, FMin, 0});
}

void TjexSplitBar::SetPos(int Value) {
    Value = ClampPos(Value);
    bool lr = FLayout == jblLeftRight;
    if (lr)
        SetBounds(Value, FTop, FThickness, FHeight);
    else
        SetBounds(FLeft, Value, FWidth, FThickness);
    // The near edge of each window follows the bar; the far edge stays where it was.
    if (FWindowA) {
        if (lr)
            FWindowA->SetWidth(std::max(0, Value - FWindowA->Left()));
        else
            FWindowA->SetHeight(std::max(0, Value - FWindowA->Top()));
    }
    if (FWindowB) {
        if (lr) {
            int right = FWindowB->Left() + FWindowB->Width();
            int left = Value + FThickness;
            FWindowB->SetBounds(left, FWindowB->Top(), std::max(0, right - left), FWindowB->Height());
        } else {
            int bottom = FWindowB->Top() + FWindowB->Height();
            int top = Value + FThickness;
            FWindowB->SetBounds(FWindowB->Left(), top, FWindowB->Width(), std::max(0, bottom - top));
        }
    }
    OnMoved(this);
}

void TjexSplitBar::SetPercent(int Value) {
    SetPos(std::clamp(Value, 0, 100) * Extent() / 100);
}

void TjexSplitBar::SetLayout(TjexBiLayout Value) {
    if (Value == FLayout) return;
    FLayout = Value;
    FCursor = Value == jblLeftRight ? crHSplit : crVSplit;
    if (IsLoading()) return;
    // The bar turns around its top-left corner and keeps its length.
    int length = Value == jblLeftRight ? FWidth : FHeight;
    if (Value == jblLeftRight)
        SetBounds(FLeft, FTop, FThickness, length);
    else
        SetBounds(FLeft, FTop, length, FThickness);
}

void TjexSplitBar::SetThickness(int Value) {
    FThickness = std::max(1, Value);
    if (IsLoading()) return;
    if (FLayout == jblLeftRight)
        SetWidth(FThickness);
    else
        SetHeight(FThickness);
}

void TjexSplitBar::SetWindowA(TWinControl* Value) {
    pubx::SetReference<TWinControl>(this, FWindowA, Value);
}

void TjexSplitBar::SetWindowB(TWinControl* Value) {
    pubx::SetReference<TWinControl>(this, FWindowB, Value);
}

void TjexSplitBar::Notification(rtl::TComponent* AComponent, rtl::TOperation Operation) {
    TCustomControl::Notification(AComponent, Operation);
    if (Operation != rtl::opRemove) return;
    if (AComponent == FWindowA) FWindowA = nullptr;
    if (AComponent == FWindowB) FWindowB = nullptr;
}

void TjexSplitBar::MouseDown(TMouseButton Button, TShiftState Shift, int X, int Y) {
    TCustomControl::MouseDown(Button, Shift, X, Y);
    if (Button != mbLeft || !FEnabled) return;
    FDragging = true;
    FGrab = FLayout == jblLeftRight ? X : Y;
    FDragPos = Pos();
}

void TjexSplitBar::MouseMove(TShiftState Shift, int X, int Y) {
    TCustomControl::MouseMove(Shift, X, Y);
    if (!FDragging) return;
    // X and Y are relative to the bar, which may have moved already.
    FDragPos = ClampPos(Pos() + (FLayout == jblLeftRight ? X : Y) - FGrab);
    if (FMoveImmediate && FDragPos != Pos()) SetPos(FDragPos);
}

void TjexSplitBar::MouseUp(TMouseButton Button, TShiftState Shift, int X, int Y) {
    if (FDragging) {
        MouseMove(Shift, X, Y);
        FDragging = false;
        if (FDragPos != Pos()) SetPos(FDragPos);
    }
    TCustomControl::MouseUp(Button, Shift, X, Y);
}

void TjexSplitBar::KeyDown(uint16_t& Key, TShiftState Shift) {
    TCustomControl::KeyDown(Key, Shift);
    bool lr = FLayout == jblLeftRight;
    if ((lr && (Key == VK_LEFT || Key == VK_RIGHT)) || (!lr && (Key == VK_UP || Key == VK_DOWN))) {
        SetPos(Pos() + ((Key == VK_LEFT || Key == VK_UP) ? -FKeyIncrement : FKeyIncrement));
        Key = 0;
    }
}

static const TjexLibraryUnit<TjexMultiSplit, TjexQuadSplit, TjexTriSplit, TjexBiSplit, TjexSplitBar,
                             TjexSMultiSplit, TjexSQuadSplit, TjexSTriSplit, TjexSBiSplit, TjexSplitPane,
                             TjexScrollingSplitPane>
    jexsplitUnit("jexsplit");

} // namespace jex
