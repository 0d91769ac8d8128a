#pragma once

#include <QTimer>
#include <functional>

#include "ui/Controls.h"

namespace quillon {

/// A timer that ticks through the event loop while its control is enabled.
class TimerFace : public ControlWatcher {
public:
    /// Milliseconds before the next tick, after so many since the control was enabled.
    using Pace = std::function<int(int ticks)>;

    /// @param pace none: the control's interval
    TimerFace(Timer& timer, std::function<void()> tick, Pace pace = {});
    TimerFace(const TimerFace&) = delete;
    TimerFace& operator=(const TimerFace&) = delete;
    ~TimerFace() override { release(); }

    /// Ticks no more and leaves the control to another face. Safe within a tick.
    void release();

    void stale(Control& control) override;
    void showNow(Control& control) override { stale(control); }

private:
    void start();
    void tick();

    /// None after the release.
    Timer* timer_;
    std::function<void()> tick_;
    Pace pace_;
    int ticks_ = 0;
    QTimer ticker_;
};

}  // namespace quillon
