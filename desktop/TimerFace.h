#pragma once

#include <QTimer>
#include <functional>

#include "ui/Controls.h"

namespace quillon {

/// A timer that ticks through the event loop while its control is enabled.
class TimerFace : public ControlWatcher {
public:
    TimerFace(Timer& timer, std::function<void()> tick);
    TimerFace(const TimerFace&) = delete;
    TimerFace& operator=(const TimerFace&) = delete;
    ~TimerFace() override { release(); }

    /// Ticks no more and leaves the control to another face. Safe within a tick.
    void release();

    void stale(Control& control) override;
    void showNow(Control& control) override { stale(control); }

private:
    /// None after the release.
    Timer* timer_;
    QTimer ticker_;
};

}  // namespace quillon
