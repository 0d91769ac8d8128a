#include "desktop/screen_fit.h"

#include <gtest/gtest.h>

#include <vector>

namespace quillon {
namespace {

/// A large screen with a panel along its top, and a smaller one to its right.
const ScreenRoom kLarge{QRect(0, 0, 1920, 1200), QRect(0, 30, 1920, 1170)};
const ScreenRoom kRight{QRect(1920, 0, 1280, 1024), QRect(1920, 0, 1280, 1024)};
const ScreenRoom kSmall{QRect(0, 0, 800, 600), QRect(0, 0, 800, 560)};

QRect windowAt(int x, int y) {
    return {x, y, 860, 700};
}

PlaceOnScreen placed(const QRect& window, const std::vector<ScreenRoom>& screens) {
    return placeOnScreen(window, screens);
}

TEST(PlaceOnScreen, AWindowOnAScreenStaysWhereItIs) {
    for (const QRect& window : {windowAt(0, 0), windowAt(210, 90), windowAt(1060, 500),
                                windowAt(2000, 100), windowAt(1500, 300)}) {
        const PlaceOnScreen place = placed(window, {kLarge, kRight});
        EXPECT_EQ(place.topLeft, window.topLeft()) << window.x();
        EXPECT_EQ(place.fit, ScreenFit::Fits) << window.x();
    }
}

TEST(PlaceOnScreen, AWindowThatAHandCanTakeByItsTitleStaysHalfOutside) {
    for (const QRect& window :
         {windowAt(1820, 400), windowAt(-760, 400), windowAt(300, 1180), windowAt(300, -10)})
        EXPECT_EQ(placed(window, {kLarge}).topLeft, window.topLeft()) << window.x();
}

TEST(PlaceOnScreen, AWindowOfAScreenThatIsGoneMovesIntoTheNearest) {
    struct Case {
        QRect window;
        QPoint expected;
    };
    for (const Case& one :
         {Case{windowAt(2000, 100), QPoint(1060, 100)}, Case{windowAt(-3000, 100), QPoint(0, 100)},
          Case{windowAt(200, -900), QPoint(200, 30)}, Case{windowAt(200, 2500), QPoint(200, 500)},
          Case{windowAt(-32000, -32000), QPoint(0, 30)},
          Case{windowAt(32000, 32000), QPoint(1060, 500)}}) {
        const PlaceOnScreen place = placed(one.window, {kLarge});
        EXPECT_EQ(place.topLeft, one.expected) << one.window.x() << ", " << one.window.y();
        EXPECT_EQ(place.fit, ScreenFit::Fits);
        EXPECT_TRUE(kLarge.free.contains(QRect(place.topLeft, one.window.size())));
    }
    EXPECT_EQ(placed(windowAt(4000, 100), {kLarge, kRight}).topLeft, QPoint(2340, 100));
    EXPECT_EQ(placed(windowAt(-900, 100), {kRight, kLarge}).topLeft, QPoint(0, 100));
}

TEST(PlaceOnScreen, ATitleBarOutOfReachCountsAsGone) {
    EXPECT_EQ(placed(windowAt(1821, 400), {kLarge}).topLeft, QPoint(1060, 400));
    EXPECT_EQ(placed(windowAt(300, -11), {kLarge}).topLeft, QPoint(300, 30));
    EXPECT_EQ(placed(windowAt(300, 1191), {kLarge}).topLeft, QPoint(300, 500));
}

TEST(PlaceOnScreen, AWindowLargerThanWhatItsScreenHasFreeIsTooLarge) {
    const PlaceOnScreen small = placed(windowAt(100, 100), {kSmall});
    EXPECT_EQ(small.fit, ScreenFit::TooLarge);
    EXPECT_EQ(small.topLeft, QPoint(0, 0));
    EXPECT_EQ(placed(windowAt(2000, 0), {kSmall, kRight}).fit, ScreenFit::Fits);
    const ScreenRoom withPanel{QRect(0, 0, 1024, 720), QRect(0, 24, 1024, 696)};
    EXPECT_EQ(placed(windowAt(0, 0), {withPanel}).fit, ScreenFit::TooLarge);
    EXPECT_EQ(placed(windowAt(0, 0), {{QRect(0, 0, 860, 700), QRect(0, 0, 860, 700)}}).fit,
              ScreenFit::Fits);
}

TEST(PlaceOnScreen, WithoutAScreenNothingChanges) {
    const PlaceOnScreen place = placed(windowAt(-5000, 7), {});
    EXPECT_EQ(place.topLeft, QPoint(-5000, 7));
    EXPECT_EQ(place.fit, ScreenFit::Fits);
}

}  // namespace
}  // namespace quillon
