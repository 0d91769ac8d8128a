#include <utility>

#include "tests/support/CommandFixture.h"
#include "tests/support/TextPicture.h"

namespace quillon {
namespace {

/// The wrap-around shift of a panel's picture.
class Shift : public CommandFixture {};

TEST_F(Shift, AShiftRollsTheCopyWhateverTheOffsetWithinOnePanel) {
    const Bitmap before = form.pb3.Image();
    form.mem.setPicture(before);
    for (const auto& [dx, dy] : {std::pair{0, 0},
                                 {256, 256},
                                 {-256, 256},
                                 {128, 128},
                                 {-1, 255},
                                 {255, -1},
                                 {-200, -3},
                                 {17, -256},
                                 {3, 250}}) {
        form.pb3.setBackColor(kRed);
        form.ShiftPanel(static_cast<Single>(dx), static_cast<Single>(dy), form.pb3);
        EXPECT_EQ(form.pb3.Image(), rolled(before, (dx + 256) % 256, (dy + 256) % 256))
            << dx << ", " << dy;
    }
}

TEST_F(Shift, AShiftIsMeasuredInWholePixels) {
    const Bitmap before = form.pb3.Image();
    form.mem.setPicture(before);
    form.ShiftPanel(2.5F, -3.5F, form.pb3);
    EXPECT_EQ(form.pb3.Image(), rolled(before, 2, -4)) << "ties go to the even pixel";
}

TEST_F(Shift, TheNineTilesOverlapInTheirOrderAndReachOnePanelFarAtMost) {
    // A copy larger than the panel shows which tile was laid last.
    const Bitmap copy = randomPicture(300, 280, 21);
    form.mem.setPicture(copy);
    for (const auto& [dx, dy] :
         {std::pair{0, 0}, {100, 30}, {-100, 30}, {100, -30}, {-9, -40}, {400, -30}, {20, 290}}) {
        // Beyond a whole panel the tiles leave a part as it was.
        Bitmap expected = form.pb3.Image();
        const std::pair<int, int> order[] = {
            {dx - 256, dy + 256}, {dx + 256, dy},       {dx - 256, dy},
            {dx, dy + 256},       {dx, dy - 256},       {dx + 256, dy + 256},
            {dx - 256, dy - 256}, {dx + 256, dy - 256}, {dx, dy}};
        for (const auto& [left, top] : order)
            for (int y = 0; y < copy.height; ++y)
                for (int x = 0; x < copy.width; ++x)
                    if (expected.contains(left + x, top + y))
                        expected.at(left + x, top + y) = copy.at(x, y);
        form.ShiftPanel(static_cast<Single>(dx), static_cast<Single>(dy), form.pb3);
        EXPECT_EQ(differingPixels(form.pb3.Image(), expected), 0) << dx << ", " << dy;
    }
}

TEST_F(Shift, AShiftShowsThePanelAtOnce) {
    form.mem.setPicture(form.pb3.Image());
    desktop.log.clear();
    form.ShiftPanel(5, 5, form.pb3);
    EXPECT_EQ(shown(form.pb3), 1);
}

}  // namespace
}  // namespace quillon
