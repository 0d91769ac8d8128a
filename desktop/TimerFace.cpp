#include "desktop/TimerFace.h"

#include <utility>

namespace quillon {

TimerFace::TimerFace(Timer& timer, std::function<void()> tick) : timer_(&timer) {
    ticker_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&ticker_, &QTimer::timeout, std::move(tick));
    timer_->watch(this);
}

void TimerFace::release() {
    ticker_.stop();
    if (Timer* timer = std::exchange(timer_, nullptr))
        timer->watch(nullptr);
}

void TimerFace::stale(Control& /*control*/) {
    ticker_.setInterval(timer_->Interval);
    if (timer_->Enabled && !ticker_.isActive())
        ticker_.start();
    else if (!timer_->Enabled)
        ticker_.stop();
}

}  // namespace quillon
