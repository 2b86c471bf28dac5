// What the pump does with the input of the mouse, the pen and the keyboard.
#include "view/test_pump.h"
#include "view/test_timers.h"
#include "view/test_window.h"
#include "view/window_parts.h"

#include "foundation/base/service.h"
#include "platform/input/keyboard.h"
#include "platform/input/linux/input.h"
#include "support/testing.h"
#include "view/input/mouse_history.h"
#include "view/messages/message_ids.h"
#include "view/process/desktop.h"
#include "view/process/tracker.h"

namespace {

using namespace Platform::Number;
using Kesto::CDesktop;
using Kesto::CMouseEvent;
using Kesto::CTracker;
using testing::ElementsAre;

struct Follow : CTracker {
    explicit Follow(std::uint32_t options = 0) : CTracker(Kesto::kMouseButton_Primary, options) {}
    bool Track(const CMouseEvent& event) override
    {
        xs.push_back(event.fPoint.x);
        return takes;
    }
    void Idle(double) override { ++idles; }
    void Hold() { fState |= kState_Running; }

    bool takes = false;
    int idles = 0;
    std::vector<int> xs;
};

class Input : public testing::Test {
protected:
    PumpedProcess process;
    TestWindow window;

    ~Input() override
    {
        Inject(kLeftUp, 100); // no button stays down
        process.PumpQuiet();
        Kesto::CServiceT<CDesktop>::Holder().Destroy();
    }

    void Inject(std::uint32_t number, std::uint32_t time, std::int32_t x = 0,
                std::uintptr_t first = 0)
    {
        Platform::InjectInput({window.Handle(), number, first, 0, time, x, 0});
    }
};

TEST_F(Input, ATrackerEndsWithItsButton)
{
    Follow tracker;
    tracker.Hold();
    EXPECT_TRUE(process.PumpTracker(tracker)) << "the button isn't down at all";
    EXPECT_FALSE(tracker.IsRunning());
    Inject(kLeftDown, 1);
    Inject(kLeftUp, 2);
    Inject(kLeftDown, 3); // pressed anew before the release was looked at
    process.PumpQuiet();
    tracker.Hold();
    Inject(kLeftUp, 4);
    Inject(kLeftDown, 5);
    EXPECT_TRUE(process.PumpTracker(tracker));
    EXPECT_FALSE(tracker.IsRunning());
    EXPECT_THAT(tracker.xs, ElementsAre()) << "the release is for the window";
}

TEST_F(Input, ATrackerSeesMouseAndKeysByAgeBeforePaintsAndTimers)
{
    Follow tracker(CTracker::kOption_Idle);
    tracker.Hold();
    Inject(kLeftDown, 1);
    process.PumpQuiet();
    window.received.clear();
    Inject(kKeyDown,
           std::numeric_limits<std::uint32_t>::max()); // the clock starts over between the two
    Inject(kMouseMove, 3, 50);
    Platform::PostToQueue(window.Handle(), kUser);
    process.PostMark(0, 1);
    for (int turn = 0; turn < 2; ++turn)
        EXPECT_TRUE(process.PumpTracker(tracker)) << "turn " << turn;
    EXPECT_THAT(window.received, ElementsAre(kKeyDown, kMouseMove));
    EXPECT_EQ(tracker.idles, 0);
    EXPECT_FALSE(process.PumpTracker(tracker));
    EXPECT_EQ(tracker.idles, 1);
    EXPECT_THAT(process.log, ElementsAre(1));
    tracker.takes = true;
    EXPECT_FALSE(process.PumpTracker(tracker));
    EXPECT_EQ(tracker.idles, 1) << "the event was taken";
    EXPECT_THAT(tracker.xs, ElementsAre(50, 50, 50, 50)) << "where the cursor is, not where it was";
}

TEST_F(Input, ATrackerRunsUntilTheReleaseAndRestsWhileAMessageWaitsThatItDoesNotLookAt)
{
    Follow tracker;
    Inject(kLeftDown, 1, 5);
    process.PumpQuiet();
    Platform::PostToQueue(window.Handle(), kUser);
    CallTimer release(0.3, [&] {
        EXPECT_EQ(CTracker::Active(), &tracker);
        Inject(kLeftUp, 2, 6);
    });
    release.Start();
    tracker.Run(process);
    EXPECT_FALSE(tracker.IsRunning());
    EXPECT_EQ(CTracker::Active(), nullptr);
    EXPECT_LT(tracker.xs.size(), 40U) << "a turn each three hundredths of a second";
    EXPECT_THAT(std::set(tracker.xs.begin(), tracker.xs.end()), ElementsAre(5));
}

TEST_F(Input, TheHistoryBringsEachPlaceOnce)
{
    Follow tracker;
    tracker.Hold();
    Kesto::CMouseHistory& history = Kesto::CMouseHistory::Get();
    history.SetOn(true);
    Platform::InjectPen(9, {{1, 0, 5, 100}, {2, 0, 6, 200}});
    Inject(kLeftDown, 1, 7);
    Inject(kPenMoved, 2, 8, 9);
    process.PumpQuiet();
    EXPECT_FLOAT_EQ(process.Pressure(), 0.2F);
    tracker.takes = true;
    Inject(kMouseMove, 3, 9);
    for (int turn = 0; turn < 4; ++turn)
        process.PumpTracker(tracker);
    EXPECT_THAT(tracker.xs, ElementsAre(1, 2, 9));
    history.SetOn(false);
}

TEST_F(Input, APenThatDoesNotPressAndOneThatPressesTooHard)
{
    EXPECT_EQ(process.Pressure(), -2.0F);
    const std::pair<std::uint32_t, float> cases[] = {
        {0, -1.0F}, {500, 0.5F}, {5000, 1.0F}, {0, -1.0F}};
    for (const auto& [raw, pressure] : cases) {
        Platform::InjectPen(3, {{0, 0, 1, raw}});
        Inject(kPenMoved, 1, 0, 3);
        process.PumpQuiet();
        EXPECT_FLOAT_EQ(process.Pressure(), pressure) << "of " << raw;
    }
    Inject(kPenMoved, 1, 0, 4);
    process.PumpQuiet();
    EXPECT_EQ(process.Pressure(), -1.0F) << "a finger is no pen";
}

TEST_F(Input, APenIsReadInLoopsThatDoNotPassThePump)
{
    Kesto::CDocumentWindow paper(DocumentPlan());
    paper.Start();
    for (const std::uint32_t number : {kPenDown, kPenMoved}) {
        SCOPED_TRACE(number);
        Platform::InjectPen(3, {{0, 0, 1, number == kPenDown ? 250U : 750U}});
        Platform::DispatchToWindow({paper.NativeHandle(), number, 3});
        EXPECT_FLOAT_EQ(process.Pressure(), number == kPenDown ? 0.25F : 0.75F);
    }
    Kesto::CMouseHistory& history = Kesto::CMouseHistory::Get();
    history.SetOn(true);
    Platform::InjectInput({paper.NativeHandle(), kPenMoved, 3, 0, 2, 5, 5});
    process.PumpQuiet();
    EXPECT_TRUE(history.Take());
    EXPECT_FALSE(history.Take()) << "it is read once";
    history.SetOn(false);
}

struct Place : Kesto::CDesktopWindow, Platform::MessageReceiver {
    Place(std::string itsName, std::vector<std::string>& itsLog)
        : name(std::move(itsName)), log(itsLog)
    {
        Kesto::CServiceT<CDesktop>::Get()->Add(*this);
    }
    Platform::NativeWindow NativeHandle() const override
    {
        return const_cast<Place*>(this)->Handle();
    }
    bool Covers(Platform::PixelPoint point) const override
    {
        return point.x / 100 == (name == "right" ? 1 : 0);
    }
    std::intptr_t Receive(std::uint32_t number, std::uintptr_t, std::intptr_t) override
    {
        if (number == kLeftDown)
            log.push_back(name + " clicked");
        return 0;
    }
    bool IsFloat() const override { return isFloat; }
    bool IsPopup() const override { return isPopup; }
    bool TakesClicks() const override { return takesClicks; }
    void UpdateNow() override { log.push_back(name + " updated"); }
    void ActivateFloat(bool on) override { log.push_back(name + (on ? " on" : " off")); }
    void ClosePopup() override
    {
        isPopup = false;
        log.push_back(name + " closed");
    }
    void PointerMoved(const CMouseEvent& event) override { over = event.fPoint.x; }
    void PointerGone() override { over = -1; }

    std::string name;
    std::vector<std::string>& log;
    bool isFloat = false;
    bool isPopup = false;
    bool takesClicks = true;
    int over = -1;
};

class Desktop : public Input {
protected:
    std::vector<std::string> log;
    Place left{"left", log};
    Place right{"right", log};
    CDesktop& desktop = *Kesto::CServiceT<CDesktop>::Get();

    void Press(Place* at, std::int32_t x, std::uint32_t number = kLeftDown)
    {
        Platform::InjectInput({at != nullptr ? at->Handle() : nullptr, number, 0, 0, 1, x, 0});
        process.PumpQuiet();
    }
};

TEST_F(Desktop, AClickOutsideClosesPopupsAndGoesOn)
{
    const struct {
        const char* what;
        bool modal, leftTakesClicks;
        Place* at;
        std::int32_t x;
        std::vector<std::string> log;
    } cases[] = {
        {"beside the popup", false, true, &left, 10, {"right closed", "left clicked"}},
        {"on the popup", false, true, &right, 150, {"right clicked"}},
        {"on no window", false, true, nullptr, 900, {"right closed"}},
        {"on a modal window", true, true, &left, 10, {"right closed", "left clicked"}},
        {"on a window below a modal one", true, false, &left, 10, {"right closed"}},
    };
    for (const auto& one : cases) {
        right.isPopup = true;
        left.takesClicks = one.leftTakesClicks;
        if (one.modal)
            desktop.BeginModal();
        log.clear();
        Press(one.at, one.x);
        EXPECT_EQ(log, one.log) << one.what;
        desktop.EndModal();
    }
    right.isPopup = true;
    for (const std::uint32_t number : {kMouseMove, kLeftUp, kWheel, kFrameMouseFirst + 2})
        Press(&left, 10, number);
    EXPECT_TRUE(right.isPopup) << "none of these is a press";
    Press(&left, 10, kFrameMouseFirst + 4);
    EXPECT_FALSE(right.isPopup);
}

TEST_F(Desktop, ModalWindowsCountAndFloatsStepBack)
{
    left.isFloat = true;
    desktop.BeginModal();
    desktop.BeginModal();
    EXPECT_EQ(desktop.ModalCount(), 2U);
    desktop.EndModal();
    EXPECT_THAT(log, ElementsAre("left off", "right updated", "left updated"));
    desktop.EndModal();
    desktop.EndModal();
    EXPECT_EQ(desktop.ModalCount(), 0U);
    EXPECT_EQ(log.back(), "left on");
    desktop.BringToFront(left);
    EXPECT_EQ(desktop.FrontWindow(), &left);
    EXPECT_EQ(process.AlertParent(), left.Handle());
}

TEST_F(Desktop, TheWindowUnderTheMouseFollowsIt)
{
    Press(&left, 10, kMouseMove);
    EXPECT_EQ(left.over, 10);
    Press(&right, 110, kMouseMove);
    EXPECT_EQ(left.over, -1);
    EXPECT_EQ(right.over, 110);
    process.GetNextEvent(Kesto::CProcess::kEvent_Poll | Kesto::CProcess::kEvent_NoMouse);
    EXPECT_EQ(right.over, -1);
    for (const bool follows : {false, true}) {
        process.SetMouseTracking(follows);
        process.PostMark(1, 1);
        Platform::InjectInput({left.Handle(), kMouseMove, 0, 0, 1, 20, 0});
        process.GetNextEvent(Kesto::CProcess::kEvent_Poll);
        EXPECT_EQ(left.over, follows ? 20 : -1)
            << "while the event goes first and the move is pending";
    }
}

TEST_F(Input, KeysAreOfferedToTheMenuBarBeforeTheirWindow)
{
    struct Bar : Kesto::CMenuBar {
        void Update() override { ++updates; }
        bool HandleKey(Kesto::CKeyboardMessage& key) override
        {
            EXPECT_EQ(key.fRepeated, 0U);
            return key.fKeyCode == 'Q' && key.fChar == 'Q' && key.fID == Kesto::kMessage_KeyDown;
        }
        int updates = 0;
    };
    struct WithBar : PumpedProcess {
        std::unique_ptr<Kesto::CMenuBar> MakeMenuBar() override
        {
            EXPECT_EQ(bar, nullptr) << "one is enough";
            auto owned = std::make_unique<Bar>();
            bar = owned.get();
            return owned;
        }
        Bar* bar = nullptr;
    } menus;
    for (const char key : {'Q', 'R'})
        for (const std::uint32_t number : {kKeyDown, kKeyUp})
            Inject(number, 1, 0, static_cast<std::uintptr_t>(key));
    menus.PumpQuiet();
    EXPECT_THAT(window.received, ElementsAre(kKeyUp, kKeyDown, kKeyUp));
    EXPECT_EQ(menus.bar->updates, 2);
}

} // namespace
