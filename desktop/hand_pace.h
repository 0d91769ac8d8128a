#pragma once

namespace quillon {

// The pace of a held control, in milliseconds: that of a hand, whatever the
// drawing could do.
inline constexpr int kPauseAfterFirstStep = 300;
inline constexpr int kBetweenSteps = 84;
inline constexpr int kMostStepsInASecond = 12;
static_assert(kMostStepsInASecond * kBetweenSteps >= 1000);

/// How long to wait before a step. The first one comes with the timer's own
/// interval, where it has not been made at the press.
/// @param stepsMade since the control was pressed
constexpr int waitBeforeStep(int stepsMade, int interval) noexcept {
    if (stepsMade == 0)
        return interval;
    return stepsMade == 1 ? kPauseAfterFirstStep : kBetweenSteps;
}

}  // namespace quillon
