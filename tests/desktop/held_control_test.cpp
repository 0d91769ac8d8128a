#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QTest>
#include <cmath>
#include <vector>

#include "desktop/TimerFace.h"
#include "desktop/hand_pace.h"
#include "tests/desktop/OpenedWindow.h"

// "[-]" and "[+]" step at the pace of a hand while they are held.

namespace quillon {
namespace {

TEST(HandPace, PausesBehindTheFirstStepAndThenMakesTwelveASecondAtMost) {
    EXPECT_EQ(waitBeforeStep(0, 10), 10) << "the timer's own interval";
    EXPECT_EQ(waitBeforeStep(1, 10), 300);
    for (const int steps : {2, 3, 100})
        EXPECT_EQ(1000 / waitBeforeStep(steps, 10), 11) << "whole waits within a second";
}

TEST(TimerFace, AsksItsPaceForEachWaitAndAnewWhenItIsEnabledAgain) {
    Timer timer("Timer1");
    timer.Interval = Integer{10};
    std::vector<int> asked;
    int ticks = 0;
    TimerFace face(
        timer,
        [&] {
            if (++ticks % 3 == 0)
                timer.Enabled = false;
        },
        [&](int before) {
            asked.push_back(before);
            return 0;
        });
    timer.Enabled = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks == 3; }));
    timer.Enabled = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks == 6; }));
    EXPECT_EQ(asked, (std::vector<int>{0, 1, 2, 3, 0, 1, 2, 3}));
}

TEST(TimerFace, WithoutAPaceKeepsToTheIntervalOfItsControl) {
    Timer timer("Timer1");
    timer.Interval = Integer{20};
    int ticks = 0;
    TimerFace face(timer, [&] { ++ticks; });
    QElapsedTimer clock;
    clock.start();
    timer.Enabled = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return ticks == 2; }));
    EXPECT_GE(clock.elapsed(), 39);
}

class HeldControl : public OpenedWindow {
protected:
    /// Steps up from the factor of the start, which is 1.
    long steps(Channel which) {
        const double factor = std::stod(form().lab.channel(which).getIntFac());
        return std::lround(std::log(factor) / std::log(1.11));
    }
    /// Holds until so many steps have been made, and gives the milliseconds it took.
    qint64 hold(const char* control, Channel which, long count) {
        QElapsedTimer clock;
        clock.start();
        press(widget(control), {5, 5});
        EXPECT_TRUE(QTest::qWaitFor([&] { return steps(which) >= count; }));
        const qint64 taken = clock.elapsed();
        release(widget(control), {5, 5});
        return taken;
    }
};

TEST_F(HeldControl, OfChannelOneStepsAtThePressPausesAndGoesOnSlowly) {
    press(widget("lbBR1(1)"), {5, 5});
    EXPECT_EQ(steps(Channel::One), 1);
    release(widget("lbBR1(1)"), {5, 5});
    // The pause and two waits, a millisecond less for the clocks' grain.
    EXPECT_GE(hold("lbBR1(1)", Channel::One, 5), 300 + 2 * 84 - 1);
}

TEST_F(HeldControl, OfChannelTwoStepsFirstByTheTimerAndPausesBehindThat) {
    EXPECT_GE(hold("lbBR2(1)", Channel::Two, 3), 10 + 300 + 84 - 1);
    EXPECT_EQ(form().Timer1.Interval, 10);
}

}  // namespace
}  // namespace quillon
