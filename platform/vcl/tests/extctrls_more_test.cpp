// Timers firing as the clock advances, splitters resizing their neighbour, and paint boxes drawing.
#include <gtest/gtest.h>

#include <thread>

#include "rtl/streaming.h"
#include "vcl/extctrls_more.h"
#include "vcl/forms.h"

using namespace vcl;

namespace {

class TimerTest : public ::testing::Test {
protected:
    void SetUp() override { baseline = ActiveTimerCount(); }
    void TearDown() override { EXPECT_EQ(ActiveTimerCount(), baseline) << "a freed timer stays registered"; }
    TTimer* Make(unsigned interval, std::vector<std::string>* log, const char* name) {
        auto* t = new TTimer(&owner);
        t->SetInterval(interval);
        t->OnTimer = [log, name](rtl::TObject*) { log->push_back(name); };
        return t;
    }
    int baseline = 0;
    TComponent owner{nullptr};
};

TEST_F(TimerTest, FiresOncePerIntervalAsTimeAdvancesInDueOrder) {
    std::vector<std::string> log;
    TTimer* fast = Make(100, &log, "fast");
    Make(250, &log, "slow");
    AdvanceTimers(99);
    EXPECT_TRUE(log.empty());
    AdvanceTimers(1);
    EXPECT_EQ(log, (std::vector<std::string>{"fast"}));
    log.clear();
    AdvanceTimers(400); // clock 100 -> 500
    // At 500 both are due: the one waiting longer since its last firing goes first.
    EXPECT_EQ(log, (std::vector<std::string>{"fast", "slow", "fast", "fast", "slow", "fast"}));
    EXPECT_EQ(NextTimerDue(), 100) << "the fast one is due next, at 600";
    log.clear();
    fast->SetEnabled(false);
    AdvanceTimers(1000);
    EXPECT_EQ(log, (std::vector<std::string>{"slow", "slow", "slow", "slow"}));
    owner.DestroyComponents();
}

TEST_F(TimerTest, EnablingOrChangingTheIntervalStartsAFreshInterval) {
    std::vector<std::string> log;
    TTimer* t = Make(100, &log, "t");
    AdvanceTimers(90);
    t->SetInterval(50); // due 50 ms from now, not from the start
    AdvanceTimers(49);
    EXPECT_TRUE(log.empty());
    AdvanceTimers(1);
    EXPECT_EQ(log.size(), 1u);
    t->SetEnabled(false);
    t->SetEnabled(true);
    AdvanceTimers(49);
    EXPECT_EQ(log.size(), 1u);
    t->SetInterval(0);
    EXPECT_EQ(ActiveTimerCount(), baseline) << "interval 0 stops the timer";
    AdvanceTimers(10000);
    EXPECT_EQ(log.size(), 1u);
    owner.DestroyComponents();
}

TEST_F(TimerTest, HandlersMayFreeOrStopTimersAndReentryIsRefused) {
    std::vector<std::string> log;
    TTimer* victim = Make(100, &log, "victim");
    auto* killer = new TTimer(&owner);
    killer->SetInterval(100);
    killer->OnTimer = [&](rtl::TObject*) {
        log.push_back("killer");
        if (victim) {
            victim->Free();
            victim = nullptr;
        }
    };
    AdvanceTimers(100); // the victim registered first and fires first at the same due time
    EXPECT_EQ(log, (std::vector<std::string>{"victim", "killer"}));
    log.clear();
    AdvanceTimers(100);
    EXPECT_EQ(log, (std::vector<std::string>{"killer"}));

    int depth = 0, calls = 0;
    killer->OnTimer = [&](rtl::TObject*) {
        ++calls;
        ++depth;
        EXPECT_EQ(depth, 1) << "a handler still running is not called again";
        AdvanceTimers(300); // time passes inside the handler (a modal dialog, say)
        --depth;
    };
    uint64_t before = TimerClock();
    AdvanceTimers(100);
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(TimerClock(), before + 400) << "the clock never runs back after a nested advance";
    killer->OnTimer = [](rtl::TObject*) { throw rtl::EInvalidOperation("handler failed"); };
    EXPECT_THROW(AdvanceTimers(400), rtl::EInvalidOperation);
    killer->OnTimer = [&](rtl::TObject*) { ++calls; };
    AdvanceTimers(100);
    EXPECT_EQ(calls, 2) << "a handler that raised can fire again";
    owner.DestroyComponents();
}

TEST_F(TimerTest, MessageLoopDrivesTimersByRealTimeOncePerCall) {
    std::vector<std::string> log;
    Application()->ProcessMessages(); // starts the real clock
    TTimer* t = Make(20, &log, "t");
    std::this_thread::sleep_for(std::chrono::milliseconds(70));
    Application()->ProcessMessages();
    EXPECT_EQ(log.size(), 1u) << "intervals missed while the loop was busy fire once";
    EXPECT_GT(NextTimerDue(), 0);
    t->SetDesigning(true);
    std::this_thread::sleep_for(std::chrono::milliseconds(30));
    Application()->ProcessMessages();
    EXPECT_EQ(log.size(), 1u) << "a timer under design keeps still";
    owner.DestroyComponents();
}

TEST_F(TimerTest, ReadFromAFormFileTheTimerStartsAfterLoading) {
    rtl::TClass cls = TTimer::StaticClass();
    bool registered = !rtl::GetClass("TTimer");
    if (registered) rtl::RegisterClass(cls);
    auto* t = dynamic_cast<TTimer*>(rtl::ReadComponentText("object Tick: TTimer\r\n"
                                                           "  Enabled = False\r\n"
                                                           "  Interval = 40\r\n"
                                                           "end\r\n",
                                                           nullptr));
    ASSERT_NE(t, nullptr);
    EXPECT_EQ(t->Interval(), 40u);
    EXPECT_EQ(ActiveTimerCount(), baseline);
    int fired = 0;
    t->OnTimer = [&](rtl::TObject*) { ++fired; };
    t->SetEnabled(true);
    AdvanceTimers(80);
    EXPECT_EQ(fired, 2);
    EXPECT_EQ(rtl::WriteComponentText(t), "object Tick: TTimer\r\n  Interval = 40\r\nend\r\n");
    t->Free();
    if (registered) rtl::UnRegisterClass(cls);
}

// ---- Splitters -----------------------------------------------------------------------------------------
TEST(Splitters, DraggingResizesTheNeighbourWithinLimits) {
    auto* form = NewForm<TForm>(nullptr);
    form->SetClientWidth(400);
    form->SetClientHeight(300);
    auto* tree = new TPanel(form);
    tree->SetParent(form);
    tree->SetWidth(120);
    tree->SetAlign(alLeft);
    auto* split = new TSplitter(form);
    split->SetParent(form);
    split->SetLeft(200); // an aligned control goes after those already on its side
    auto* rest = new TPanel(form);
    rest->SetParent(form);
    rest->SetAlign(alClient);
    ASSERT_EQ(split->Left(), 120);
    EXPECT_EQ(split->ResizeControl(), tree);
    std::vector<int> moved;
    split->OnMoved = [&](rtl::TObject*) { moved.push_back(tree->Width()); };
    EXPECT_TRUE(split->MoveBy(50));
    EXPECT_EQ(tree->Width(), 170);
    EXPECT_EQ(split->Left(), 170);
    EXPECT_EQ(rest->Left(), 173);
    split->MoveBy(1000);
    EXPECT_EQ(rest->Width(), 30) << "the rest keeps MinSize";
    split->MoveBy(-1000);
    EXPECT_EQ(tree->Width(), 0) << "AutoSnap closes a control dragged far below MinSize";
    split->MoveBy(100);
    split->SetAutoSnap(false);
    split->MoveBy(-90);
    EXPECT_EQ(tree->Width(), 30);
    split->OnCanResize = [](rtl::TObject*, int& size, bool& accept) {
        accept = size != 77;
        size = size / 10 * 10;
    };
    EXPECT_TRUE(split->MoveBy(25));
    EXPECT_EQ(tree->Width(), 50);
    EXPECT_FALSE(split->MoveBy(27)) << "77 refused";
    EXPECT_EQ(moved, (std::vector<int>{170, 367, 0, 100, 30, 50}));
    form->Free();
}

// ---- Paint boxes ---------------------------------------------------------------------------------------
TEST(PaintBoxes, PaintFillsWithColourThenRunsOnPaint) {
    TPaintBox box(nullptr);
    box.SetBounds(0, 0, 20, 10);
    box.SetColor(clRed);
    box.OnPaint = [&](rtl::TObject* sender) {
        auto* b = static_cast<TPaintBox*>(sender);
        b->Canvas()->Brush()->SetColor(clBlue);
        b->Canvas()->FillRect(Rect(10, 0, 20, 10));
    };
    box.Paint();
    ASSERT_EQ(box.Bitmap()->Width(), 20);
    EXPECT_EQ(box.Bitmap()->PixelRGB(2, 2), ColorToRGB(clRed));
    EXPECT_EQ(box.Bitmap()->PixelRGB(15, 2), ColorToRGB(clBlue));
    box.SetBounds(0, 0, 30, 40);
    box.Paint();
    EXPECT_EQ(box.Bitmap()->Height(), 40) << "the picture follows the control's size";
    TControlDesc d = DescribeControl(&box);
    EXPECT_EQ(d.PictureWidth, std::optional<int>(30));
}

} // namespace
