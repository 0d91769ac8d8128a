#include "desktop/screen_fit.h"

#include <algorithm>
#include <tuple>

namespace quillon {

namespace {

/// What a hand needs of a title bar to take hold of it.
constexpr int kGripWidth = 100;
constexpr int kGripHeight = 10;

bool isWithinReach(const QRect& window, const ScreenRoom& screen) {
    constexpr int kTitleHeight = 2 * kGripHeight;
    const QRect title(window.topLeft(), QSize(window.width(), kTitleHeight));
    const QRect seen = title & screen.whole;
    return seen.width() >= std::min(kGripWidth, window.width()) && seen.height() >= kGripHeight;
}

qint64 gap(int firstEnd, int secondStart, int secondEnd, int firstStart) {
    return std::max({qint64{0}, qint64{secondStart} - firstEnd, qint64{firstStart} - secondEnd});
}

/// The square of the way between two rectangles, 0 where they overlap.
qint64 distance(const QRect& a, const QRect& b) {
    const qint64 across = gap(a.right(), b.left(), b.right(), a.left());
    const qint64 down = gap(a.bottom(), b.top(), b.bottom(), a.top());
    return across * across + down * down;
}

qint64 sharedArea(const QRect& a, const QRect& b) {
    const QRect shared = a & b;
    return qint64{shared.width()} * shared.height();
}

/// As near to `start` as a length keeps within a room.
int within(int start, int length, int roomStart, int roomLength) {
    return std::clamp(start, roomStart, std::max(roomStart, roomStart + roomLength - length));
}

}  // namespace

PlaceOnScreen placeOnScreen(const QRect& window, std::span<const ScreenRoom> screens) {
    // The screen that a hand finds it on, the one with most of it first; else the
    // nearest.
    const auto rank = [&](const ScreenRoom& screen) {
        return std::tuple(!isWithinReach(window, screen), distance(window, screen.whole),
                          -sharedArea(window, screen.whole));
    };
    const auto own = std::ranges::min_element(screens, {}, rank);
    if (own == screens.end())
        return {window.topLeft(), ScreenFit::Fits};
    const QRect& room = own->free;
    if (window.width() > room.width() || window.height() > room.height())
        return {room.topLeft(), ScreenFit::TooLarge};
    if (isWithinReach(window, *own))
        return {window.topLeft(), ScreenFit::Fits};
    return {{within(window.x(), window.width(), room.x(), room.width()),
             within(window.y(), window.height(), room.y(), room.height())},
            ScreenFit::Fits};
}

}  // namespace quillon
