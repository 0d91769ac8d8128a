#include <utility>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// Rolling by the mouse: the tool None (Shift) on the image panels, and every
/// drag on the reconstruction panels.
class RollTool : public CommandFixture {
protected:
    void choose(Channel which) {
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, 2);
        desktop.log.clear();
    }
};

TEST_F(RollTool, ChoosingTheToolChecksItAndKeepsThePen) {
    for (const Channel which : kBoth) {
        const MenuArray array = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
        for (const Integer pen : {Integer{1}, Integer{2}}) {
            image(which).DrawWidth = pen;
            choose(which);
            EXPECT_EQ(image(which).DrawWidth, pen);
        }
        EXPECT_FALSE(form.menu(array, 0).Checked);
        EXPECT_FALSE(form.menu(array, 1).Checked);
        EXPECT_TRUE(form.menu(array, 2).Checked);
        EXPECT_EQ(channel(which).mDraw, 2);
        EXPECT_EQ(image(which).MousePointer, 15);
    }
}

TEST_F(RollTool, ADragRollsTheImageFromThePress) {
    for (const Channel which : kBoth) {
        choose(which);
        const Bitmap before = image(which).Image();
        const Integer id = which == Channel::One ? 1 : 4;
        image(which).MousePointer = 0;
        form.MouseDown(image(which), kLeftButton, 0, 100, 120);
        EXPECT_EQ(image(which).MousePointer, 15);
        EXPECT_EQ(form.mem.Picture(), before);
        EXPECT_EQ(form.dragXY[static_cast<std::size_t>(id)][0], 100);
        EXPECT_EQ(form.dragXY[static_cast<std::size_t>(id)][1], 120);
        for (const auto& [x, y] :
             {std::pair{103, 120}, {90, 140}, {255, 0}, {100, 120}, {60, 70}}) {
            form.MouseMove(image(which), kLeftButton, 0, static_cast<Single>(x),
                           static_cast<Single>(y));
            EXPECT_EQ(image(which).Image(), rolled(before, (x + 156) % 256, (y + 136) % 256))
                << x << ", " << y;
            EXPECT_EQ(form.dragXY[static_cast<std::size_t>(id)][2], x);
            EXPECT_EQ(form.dragXY[static_cast<std::size_t>(id)][3], y);
        }
        EXPECT_EQ(transforms(), 0);
        form.MouseUp(image(which), kLeftButton, 0, 60, 70);
        EXPECT_EQ(transforms(), 2);
        EXPECT_EQ(image(which).Picture(), rolled(before, 216, 206)) << "committed";
    }
}

TEST_F(RollTool, APressAfterAHalfDoneLatticeMakesTheRollCount) {
    for (const Channel which : kBoth) {
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, 1);
        form.MouseDown(image(which), kLeftButton, 0, 10, 12);
        ASSERT_FALSE(image(which).AutoRedraw());
        choose(which);
        EXPECT_FALSE(image(which).AutoRedraw()) << "the choice leaves the drawing as it was";
        image(which).setPicture(squaresPicture());
        form.MouseDown(image(which), kLeftButton, 0, 100, 120);
        EXPECT_TRUE(image(which).AutoRedraw());
        form.MouseMove(image(which), kLeftButton, 0, 107, 90);
        form.MouseUp(image(which), kLeftButton, 0, 107, 90);
        EXPECT_EQ(image(which).Picture(), rolled(squaresPicture(), 7, -30));
        form.lattice[0][0] = 0;
    }
}

TEST_F(RollTool, ADragByTheWholePanelKeepsThePictureAndByHalfSwapsItsQuadrants) {
    choose(Channel::One);
    const Bitmap before = form.pb1.Image();
    form.MouseDown(form.pb1, kLeftButton, 0, 0, 0);
    form.MouseMove(form.pb1, kLeftButton, 0, 256, 256);
    EXPECT_EQ(form.pb1.Image(), before);
    form.MouseMove(form.pb1, kLeftButton, 0, 128, 128);
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(form.pb1.Image().at(x, y), before.at(x ^ 128, y ^ 128)) << x << ", " << y;
}

TEST_F(RollTool, APressAndReleaseWithoutMovementTransformsWithoutAnyChange) {
    choose(Channel::Two);
    const Bitmap before = form.pb4.Image();
    press(form.pb4, kLeftButton, 0, 30, 40);
    EXPECT_EQ(form.pb4.Image(), before);
    EXPECT_EQ(transforms(), 2);
}

TEST_F(RollTool, WithAutoCalculateOffTheRollIsOnlyCommitted) {
    choose(Channel::One);
    form.itmOpt(4);
    desktop.log.clear();
    const Bitmap before = form.pb1.Image();
    form.MouseDown(form.pb1, kLeftButton, 0, 30, 40);
    form.MouseMove(form.pb1, kLeftButton, 0, 35, 40);
    form.MouseUp(form.pb1, kLeftButton, 0, 35, 40);
    EXPECT_EQ(form.pb1.Picture(), rolled(before, 5, 0));
    EXPECT_EQ(transforms(), 0);
}

TEST_F(RollTool, AMoveWithAnotherButtonOrNoneRollsNothing) {
    choose(Channel::One);
    const Bitmap before = form.pb1.Image();
    form.MouseDown(form.pb1, kMiddleButton, 0, 30, 40);
    for (const Integer button : {Integer{0}, kMiddleButton, kRightButton, Integer{3}})
        form.MouseMove(form.pb1, button, 0, 90, 90);
    EXPECT_EQ(form.pb1.Image(), before);
}

TEST_F(RollTool, PositionsOfADragRoundHalfToEven) {
    choose(Channel::One);
    const Bitmap before = form.pb1.Image();
    form.MouseDown(form.pb1, kLeftButton, 0, 10.5F, 11.5F);
    form.MouseMove(form.pb1, kLeftButton, 0, 20.5F, 21.5F);
    EXPECT_EQ(form.dragXY[1][0], 10);
    EXPECT_EQ(form.dragXY[1][1], 12);
    EXPECT_EQ(form.pb1.Image(), rolled(before, 10, 10));
}

TEST_F(RollTool, ADragRollsAReconstructionWithoutCommittingOrTransforming) {
    for (const Channel which : kBoth) {
        PictureBox& panel = reconstruction(which);
        const Bitmap before = panel.Image();
        const Bitmap picture = panel.Picture();
        const std::size_t id = which == Channel::One ? 3 : 6;
        desktop.log.clear();
        form.MouseDown(panel, kLeftButton, 0, 10, 20);
        EXPECT_EQ(panel.MousePointer, 15);
        EXPECT_EQ(form.mem.Picture(), before);
        form.MouseMove(panel, kLeftButton, 0, 50, 15);
        EXPECT_EQ(panel.Image(), rolled(before, 40, 251));
        EXPECT_EQ(form.dragXY[id], (std::array<Integer, 4>{10, 20, 50, 15}));
        EXPECT_EQ(status(0), channel(which).sfile + " [iFT] ");
        form.MouseUp(panel, kLeftButton, 0, 50, 15);
        EXPECT_EQ(panel.MousePointer, 0);
        EXPECT_EQ(panel.Image(), rolled(before, 40, 251));
        EXPECT_EQ(panel.Picture(), picture) << "nothing is committed";
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(RollTool, AnyButtonButTheRightOneTakesHoldOfAReconstruction) {
    form.MouseDown(form.pb6, kMiddleButton, 0, 10, 20);
    EXPECT_EQ(form.pb6.MousePointer, 15);
    EXPECT_EQ(form.mem.Picture(), form.pb6.Image());
    const Bitmap before = form.pb6.Image();
    form.MouseMove(form.pb6, kMiddleButton, 0, 60, 60);
    EXPECT_EQ(form.pb6.Image(), before) << "but only the left one rolls it";
    form.MouseUp(form.pb6, kMiddleButton, 0, 60, 60);
    EXPECT_EQ(form.pb6.MousePointer, 0);
}

TEST_F(RollTool, TheRightButtonOpensTheMenuOfAReconstruction) {
    form.pb3.MousePointer = 7;
    press(form.pb3, kRightButton, 0, 10, 20);
    press(form.pb6, kRightButton, 0, 10, 20);
    EXPECT_EQ(host.popups, (std::vector<std::string>{"mnuNew1", "mnuNew2"}));
    EXPECT_EQ(form.pb3.MousePointer, 7);
}

}  // namespace
}  // namespace quillon
