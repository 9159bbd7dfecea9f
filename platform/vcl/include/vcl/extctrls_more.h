// More of the extra controls: splitters that resize their neighbour, timers driven by the application's
// message loop (or by a test advancing time), and paint boxes that draw through OnPaint.
#pragma once

#include <cstdint>
#include <memory>

#include "vcl/extctrls.h"

namespace vcl {

// ---- Splitters ---------------------------------------------------------------------------------------
JEX_ENUM(TResizeStyle, rsNone, rsLine, rsUpdate, rsPattern)
JEX_EVENT_TYPE(TCanResizeEvent, void(rtl::TObject* Sender, int& NewSize, bool& Accept))

// A bar between a control aligned to one side and the rest of the parent. Dragging it resizes that
// control (the sibling aligned the same way and touching the splitter); the rest is never made smaller
// than MinSize, nor is the control.
class TSplitter : public TGraphicControl {
    JEX_CLASS(TSplitter, TGraphicControl)
    explicit TSplitter(TComponent* AOwner);
    bool AutoSnap() const { return FAutoSnap; }
    void SetAutoSnap(bool v) { FAutoSnap = v; }
    bool Beveled() const { return FBeveled; }
    void SetBeveled(bool v) { FBeveled = v; }
    int MinSize() const { return FMinSize; }
    void SetMinSize(int v) { FMinSize = v < 1 ? 1 : v; }
    TResizeStyle ResizeStyle() const { return FResizeStyle; }
    void SetResizeStyle(TResizeStyle v) { FResizeStyle = v; }
    // The control the splitter resizes, or nil.
    TControl* ResizeControl() const;
    // A person drags the splitter by Delta pixels (towards the right or the bottom when positive): the
    // new size is kept within the limits, OnCanResize may change or refuse it, the control is resized
    // and OnMoved follows. With AutoSnap, a size below MinSize closes the control (size 0). Returns
    // whether anything moved.
    bool MoveBy(int Delta);
    void SetBounds(int ALeft, int ATop, int AWidth, int AHeight) override;
    TNotifyEvent OnMoved;
    TCanResizeEvent OnCanResize;

private:
    bool FAutoSnap = true, FBeveled = false;
    int FMinSize = 30;
    TResizeStyle FResizeStyle = rsPattern;
};

// ---- Timers -------------------------------------------------------------------------------------------
// The timer registry: every enabled timer with an interval is due at a time on one millisecond clock.
// The clock moves only when told: AdvanceTimers moves it (firing every timer due on the way, each as many
// times as its interval fits, in order of due time), ProcessTimers moves it by the real time passed since
// the last call (the application's ProcessMessages calls it, so a host's message loop drives timers) and
// fires each due timer once, as the platform's coalesced timer messages do. A timer's handler that
// is still running is not called again; a timer freed or disabled by another's handler does not fire.
class TTimer;
uint64_t TimerClock();
void AdvanceTimers(uint64_t Milliseconds);
void ProcessTimers();
// Enabled timers with an interval, for checks and hosts (a host may sleep until the next one is due).
int ActiveTimerCount();
// Milliseconds until the next timer is due, or -1 when none is active.
int64_t NextTimerDue();

class TTimer : public TComponent {
    JEX_CLASS(TTimer, TComponent)
    explicit TTimer(TComponent* AOwner);
    ~TTimer() override;
    // Enabling (or changing the interval of an enabled timer) starts a new interval from now.
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool v);
    // Milliseconds; 0 stops the timer.
    unsigned Interval() const { return FInterval; }
    void SetInterval(unsigned v);
    // Called by the registry when the timer is due; raises OnTimer.
    virtual void Timer();
    void Loaded() override;
    TNotifyEvent OnTimer;

private:
    friend struct TTimerRegistryAccess;
    void UpdateTimer();
    bool FEnabled = true;
    unsigned FInterval = 1000;
    bool FFiring = false;
};

// ---- Paint boxes ----------------------------------------------------------------------------------------
// A control whose picture is whatever OnPaint draws on its canvas. The canvas draws into a bitmap of the
// control's size that the host shows; Paint fills it with the colour and raises OnPaint.
class TPaintBox : public TGraphicControl {
    JEX_CLASS(TPaintBox, TGraphicControl)
    explicit TPaintBox(TComponent* AOwner);
    ~TPaintBox() override;
    // The canvas of the control's picture, sized to the control.
    TCanvas* Canvas();
    // The picture as last painted.
    TBitmap* Bitmap() const { return FBitmap.get(); }
    void Paint();
    void Describe(TControlDesc& d) const override;
    TNotifyEvent OnPaint;

private:
    std::unique_ptr<TBitmap> FBitmap;
};

} // namespace vcl
