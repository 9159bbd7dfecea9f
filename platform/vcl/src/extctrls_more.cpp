// Splitters, timers with their registry and clock, and paint boxes.
#include "vcl/extctrls_more.h"

#include <algorithm>
#include <chrono>
#include <vector>

#include "publish.h"

namespace vcl {

JEX_DEFINE_ENUM(TResizeStyle)
JEX_DEFINE_EVENT_TYPE(TCanResizeEvent, "Sender: TObject; var NewSize: Integer; var Accept: Boolean")

// ---- TSplitter ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TSplitter, TGraphicControl, "ExtCtrls") {
    d.Property("Align", &TSplitter::Align, &TSplitter::SetAlign).Default(alLeft);
    d.Property("AutoSnap", &TSplitter::AutoSnap, &TSplitter::SetAutoSnap).Default(true);
    d.Property("Beveled", &TSplitter::Beveled, &TSplitter::SetBeveled).Default(false);
    pub::Color(d, clBtnFace);
    d.Property("MinSize", &TSplitter::MinSize, &TSplitter::SetMinSize).Default(30);
    pub::ParentColor(d, true);
    d.Property("ResizeStyle", &TSplitter::ResizeStyle, &TSplitter::SetResizeStyle).Default(rsPattern);
    pub::Visible(d);
    d.Event("OnCanResize", &TSplitter::OnCanResize);
    d.Event("OnMoved", &TSplitter::OnMoved);
}

TSplitter::TSplitter(TComponent* AOwner) : TGraphicControl(AOwner) {
    FAlign = alLeft;
    FWidth = 3;
    FHeight = 100;
    FCursor = crHSplit;
    FParentColor = true;
    FColor = clBtnFace;
}

void TSplitter::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
    TGraphicControl::SetBounds(ALeft, ATop, AWidth, AHeight);
    FCursor = FAlign == alTop || FAlign == alBottom ? crVSplit : crHSplit;
}

TControl* TSplitter::ResizeControl() const {
    if (!FParent) return nullptr;
    // The neighbour on the side the splitter is aligned to, touching it.
    for (TControl* c : FParent->ControlList()) {
        if (c == this || !c->Visible() || c->Align() != FAlign) continue;
        switch (FAlign) {
        case alLeft:
            if (c->Left() + c->Width() == FLeft) return c;
            break;
        case alRight:
            if (c->Left() == FLeft + FWidth) return c;
            break;
        case alTop:
            if (c->Top() + c->Height() == FTop) return c;
            break;
        case alBottom:
            if (c->Top() == FTop + FHeight) return c;
            break;
        default:
            break;
        }
    }
    return nullptr;
}

bool TSplitter::MoveBy(int Delta) {
    TControl* c = ResizeControl();
    if (!c || Delta == 0) return false;
    bool horizontal = FAlign == alLeft || FAlign == alRight;
    int size = horizontal ? c->Width() : c->Height();
    // Dragging towards the control makes it smaller.
    int grow = FAlign == alLeft || FAlign == alTop ? Delta : -Delta;
    // The room left for the rest of the parent: the client area less every control aligned to a side.
    TRect r = FParent->AdjustClientRect();
    int rest = horizontal ? r.Width() : r.Height();
    for (TControl* o : FParent->ControlList()) {
        if (!o->Visible()) continue;
        if (horizontal && (o->Align() == alLeft || o->Align() == alRight)) rest -= o->Width();
        if (!horizontal && (o->Align() == alTop || o->Align() == alBottom)) rest -= o->Height();
    }
    int newSize = size + grow;
    newSize = std::min(newSize, size + std::max(0, rest - FMinSize));
    if (newSize < FMinSize) newSize = FAutoSnap && size + grow < FMinSize / 2 ? 0 : std::min(size, FMinSize);
    newSize = std::max(0, newSize);
    bool accept = true;
    OnCanResize(this, newSize, accept);
    if (!accept || newSize == size) return false;
    FParent->DisableAlign();
    try {
        if (horizontal) {
            int left = FAlign == alLeft ? c->Left() : c->Left() + c->Width() - newSize;
            c->SetBounds(left, c->Top(), newSize, c->Height());
        } else {
            int top = FAlign == alTop ? c->Top() : c->Top() + c->Height() - newSize;
            c->SetBounds(c->Left(), top, c->Width(), newSize);
        }
    } catch (...) {
        FParent->EnableAlign();
        throw;
    }
    FParent->EnableAlign();
    OnMoved(this);
    return true;
}

// ---- Timer registry -----------------------------------------------------------------------------------
namespace {
struct TTimerEntry {
    TTimer* Timer;
    uint64_t Due;
    uint64_t Order; // registration order breaks ties in due time
};

struct TTimerRegistry {
    std::vector<TTimerEntry> Entries;
    uint64_t Clock = 0;
    uint64_t NextOrder = 0;
    bool RealClockStarted = false;
    std::chrono::steady_clock::time_point LastReal;
};

TTimerRegistry& Registry() {
    static TTimerRegistry registry;
    return registry;
}

TTimerEntry* Find(TTimer* t) {
    for (TTimerEntry& e : Registry().Entries)
        if (e.Timer == t) return &e;
    return nullptr;
}

// The earliest due entry at or before Limit, or nil.
TTimerEntry* NextDue(uint64_t Limit) {
    TTimerEntry* best = nullptr;
    for (TTimerEntry& e : Registry().Entries)
        if (e.Due <= Limit && (!best || e.Due < best->Due || (e.Due == best->Due && e.Order < best->Order)))
            best = &e;
    return best;
}
} // namespace

struct TTimerRegistryAccess {
    static void Set(TTimer* t) {
        TTimerRegistry& r = Registry();
        bool active = t->FEnabled && t->FInterval > 0 && !t->IsLoading() && !t->IsDestroying();
        TTimerEntry* e = Find(t);
        if (!active) {
            if (e) r.Entries.erase(r.Entries.begin() + (e - r.Entries.data()));
            return;
        }
        if (e) {
            e->Due = r.Clock + t->FInterval;
        } else {
            r.Entries.push_back({t, r.Clock + t->FInterval, r.NextOrder++});
        }
    }
    static void Remove(TTimer* t) {
        TTimerRegistry& r = Registry();
        if (TTimerEntry* e = Find(t)) r.Entries.erase(r.Entries.begin() + (e - r.Entries.data()));
    }
    // Fires the entry's timer and schedules its next interval from Base.
    static void Fire(TTimerEntry* e, uint64_t Base) {
        TTimer* t = e->Timer;
        e->Due = Base + t->FInterval;
        e->Order = Registry().NextOrder++;
        if (t->FFiring) return;
        t->FFiring = true;
        try {
            t->Timer();
        } catch (...) {
            // The handler may have freed the timer; only a timer still registered is touched again.
            if (Find(t)) t->FFiring = false;
            throw;
        }
        if (Find(t)) t->FFiring = false;
    }
};

uint64_t TimerClock() {
    return Registry().Clock;
}

void AdvanceTimers(uint64_t Milliseconds) {
    TTimerRegistry& r = Registry();
    uint64_t target = r.Clock + Milliseconds;
    while (TTimerEntry* e = NextDue(target)) {
        r.Clock = std::max(r.Clock, e->Due);
        TTimerRegistryAccess::Fire(e, e->Due);
    }
    // A handler may have advanced the clock further itself; time never runs back.
    r.Clock = std::max(r.Clock, target);
}

void ProcessTimers() {
    TTimerRegistry& r = Registry();
    auto now = std::chrono::steady_clock::now();
    if (r.RealClockStarted)
        r.Clock += static_cast<uint64_t>(
            std::chrono::duration_cast<std::chrono::milliseconds>(now - r.LastReal).count());
    r.RealClockStarted = true;
    r.LastReal = now;
    // Each timer due now fires once, however many intervals passed; the next interval starts now.
    std::vector<TTimer*> due;
    for (const TTimerEntry& e : r.Entries)
        if (e.Due <= r.Clock) due.push_back(e.Timer);
    for (TTimer* t : due)
        if (TTimerEntry* e = Find(t); e && e->Due <= r.Clock) TTimerRegistryAccess::Fire(e, r.Clock);
}

int ActiveTimerCount() {
    return static_cast<int>(Registry().Entries.size());
}

int64_t NextTimerDue() {
    TTimerRegistry& r = Registry();
    if (r.Entries.empty()) return -1;
    uint64_t due = UINT64_MAX;
    for (const TTimerEntry& e : r.Entries)
        due = std::min(due, e.Due);
    return due <= r.Clock ? 0 : static_cast<int64_t>(due - r.Clock);
}

// ---- TTimer -------------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TTimer, TComponent, "ExtCtrls") {
    d.Property("Enabled", &TTimer::Enabled, &TTimer::SetEnabled).Default(true);
    d.Property("Interval", &TTimer::Interval, &TTimer::SetInterval).Default(1000);
    d.Event("OnTimer", &TTimer::OnTimer);
}

TTimer::TTimer(TComponent* AOwner) : TComponent(AOwner) {
    UpdateTimer();
}

TTimer::~TTimer() {
    TTimerRegistryAccess::Remove(this);
}

void TTimer::SetEnabled(bool v) {
    if (v == FEnabled) return;
    FEnabled = v;
    UpdateTimer();
}

void TTimer::SetInterval(unsigned v) {
    if (v == FInterval) return;
    FInterval = v;
    UpdateTimer();
}

void TTimer::UpdateTimer() {
    TTimerRegistryAccess::Set(this);
}

void TTimer::Loaded() {
    TComponent::Loaded();
    UpdateTimer();
}

void TTimer::Timer() {
    // A timer on a form under design keeps still, as on the platform.
    if (FEnabled && !IsDesigning()) OnTimer(this);
}

// ---- TPaintBox ----------------------------------------------------------------------------------------
JEX_IMPLEMENT_CLASS(TPaintBox, TGraphicControl, "ExtCtrls") {
    pub::Align(d);
    pub::Anchors(d);
    pub::Color(d, clBtnFace);
    pub::DragCursor(d);
    pub::DragMode(d);
    pub::Enabled(d);
    pub::Font(d);
    pub::ParentColor(d, true);
    pub::ParentFont(d);
    pub::ParentShowHint(d);
    pub::PopupMenu(d);
    pub::ShowHint(d);
    pub::Visible(d);
    pub::OnClick(d);
    pub::OnDblClick(d);
    pub::OnDrag(d);
    pub::OnMouse(d);
    d.Event("OnPaint", &TPaintBox::OnPaint);
}

TPaintBox::TPaintBox(TComponent* AOwner) : TGraphicControl(AOwner), FBitmap(std::make_unique<TBitmap>()) {
    FControlStyle.Include(csReplicatable);
    FWidth = 105;
    FHeight = 105;
    FParentColor = true;
    FColor = clBtnFace;
}

TPaintBox::~TPaintBox() = default;

TCanvas* TPaintBox::Canvas() {
    if (FBitmap->Width() != FWidth || FBitmap->Height() != FHeight)
        FBitmap->SetSize(std::max(0, FWidth), std::max(0, FHeight));
    return FBitmap->Canvas();
}

void TPaintBox::Paint() {
    TCanvas* canvas = Canvas();
    canvas->Font()->Assign(FFont.get());
    canvas->Brush()->SetColor(FColor);
    canvas->Brush()->SetStyle(bsSolid);
    canvas->FillRect(Rect(0, 0, FWidth, FHeight));
    OnPaint(this);
}

void TPaintBox::Describe(TControlDesc& d) const {
    TGraphicControl::Describe(d);
    d.PictureWidth = FBitmap->Width();
    d.PictureHeight = FBitmap->Height();
}

} // namespace vcl
