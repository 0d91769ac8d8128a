#include <initializer_list>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// The Freehand tool on the image panels, driven by the mouse.
class Freehand : public CommandFixture {
protected:
    /// The panel empty and black, the tool in force, nothing logged yet.
    void begin(Channel which) {
        image(which).setAutoRedraw(true);
        image(which).setBackColor(kBlack);
        image(which).setPicture(Bitmap(256, 256));
        drawing(which, 0);
        desktop.log.clear();
    }
    void drawing(Channel which, Integer entry) {
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, entry);
    }
    /// The pixels that are not black.
    static std::vector<std::pair<int, int>> inked(const Bitmap& picture) {
        std::vector<std::pair<int, int>> points;
        for (int y = 0; y < picture.height; ++y)
            for (int x = 0; x < picture.width; ++x)
                if (picture.at(x, y) != 0)
                    points.emplace_back(x, y);
        return points;
    }
    static std::vector<std::pair<int, int>> dot(int x, int y) {
        return {{x - 1, y - 1}, {x, y - 1}, {x - 1, y}, {x, y}};
    }
};

TEST_F(Freehand, TheToolIsInForceAtTheStart) {
    for (const Channel which : kBoth) {
        EXPECT_EQ(channel(which).mDraw, 0);
        EXPECT_EQ(image(which).DrawWidth, 2);
    }
}

TEST_F(Freehand, ChoosingTheToolChecksItAndTakesItsPointerAndPen) {
    for (const Channel which : kBoth) {
        const MenuArray array = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
        drawing(which, 1);
        const Bitmap before = image(which).Image();
        drawing(which, 0);
        EXPECT_TRUE(form.menu(array, 0).Checked);
        EXPECT_FALSE(form.menu(array, 1).Checked);
        EXPECT_FALSE(form.menu(array, 2).Checked);
        EXPECT_EQ(channel(which).mDraw, 0);
        EXPECT_EQ(image(which).MousePointer, 99);
        EXPECT_EQ(image(which).DrawWidth, 2);
        EXPECT_EQ(image(which).Image(), before);
    }
}

TEST_F(Freehand, AClickLeavesADotOfThePensWidthAndOneTransform) {
    for (const Channel which : kBoth) {
        begin(which);
        press(image(which), kLeftButton, 0, 40, 60);
        EXPECT_EQ(inked(image(which).Image()), dot(40, 60));
        EXPECT_EQ(image(which).Picture(), image(which).Image()) << "committed";
        EXPECT_EQ(transforms(), 2) << "one forward run with its inverse";
        EXPECT_EQ(shown(image(which)), 2) << "at the press and with the dot of the release";
    }
}

TEST_F(Freehand, WithAutoCalculateOffAClickOnlyDraws) {
    begin(Channel::One);
    form.itmOpt(4);
    desktop.log.clear();
    press(form.pb1, kLeftButton, 0, 40, 60);
    EXPECT_EQ(inked(form.pb1.Image()), dot(40, 60));
    EXPECT_EQ(form.pb1.Picture(), form.pb1.Image());
    EXPECT_EQ(transforms(), 0);
}

TEST_F(Freehand, AStrokeJoinsThePointsOfTheMoves) {
    for (const Channel which : kBoth) {
        begin(which);
        PictureBox expected("expected", 256, 256);
        expected.setAutoRedraw(true);
        expected.setBackColor(kBlack);
        expected.DrawWidth = 2;
        const std::pair<Single, Single> way[] = {{10, 10}, {50, 20}, {30, 90}, {300, 120}};
        form.MouseDown(image(which), kLeftButton, 0, 10, 10);
        expected.Line(10, 10, 10, 10, kWhite);
        for (std::size_t i = 1; i < std::size(way); ++i) {
            form.MouseMove(image(which), kLeftButton, 0, way[i].first, way[i].second);
            expected.Line(way[i - 1].first, way[i - 1].second, way[i].first, way[i].second, kWhite);
            EXPECT_EQ(image(which).Image(), expected.Image()) << i;
            EXPECT_EQ(form.strokeLastX, way[i].first);
            EXPECT_EQ(form.strokeLastY, way[i].second);
        }
        EXPECT_EQ(form.strokeStartX, 10);
        EXPECT_EQ(transforms(), 0) << "the transform waits for the release";
        form.MouseUp(image(which), kLeftButton, 0, 300, 120);
        EXPECT_EQ(image(which).Image(), expected.Image()) << "no extra dot";
        EXPECT_EQ(transforms(), 2);
    }
}

TEST_F(Freehand, AStrokeBackToItsStartGetsTheExtraDot) {
    // The ink changes on the way, so that the dot of the release can be told.
    begin(Channel::One);
    form.MouseDown(form.pb1, kLeftButton, 0, 40, 60);
    form.MouseMove(form.pb1, kLeftButton, 0, 80, 60);
    form.MouseMove(form.pb1, kLeftButton, 0, 40, 60);
    form.pb1.ForeColor = kRed;
    form.MouseUp(form.pb1, kLeftButton, 0, 40, 60);
    for (const auto& [x, y] : dot(40, 60))
        EXPECT_EQ(form.pb1.GetPixel(x, y), kRed.value);
    EXPECT_EQ(form.pb1.GetPixel(45, 60), kWhite.value);
}

TEST_F(Freehand, AStrokeThatEndsHalfAPixelAwayGetsNone) {
    begin(Channel::One);
    form.MouseDown(form.pb1, kLeftButton, 0, 40, 60);
    form.pb1.ForeColor = kRed;
    form.MouseUp(form.pb1, kLeftButton, 0, 40.25F, 60);
    EXPECT_EQ(form.pb1.GetPixel(40, 60), kWhite.value);
}

TEST_F(Freehand, TheInkStandsOutAgainstThePolarity) {
    for (const Channel which : kBoth) {
        channel(which).SetInvert(0, true);
        form.MouseDown(image(which), kLeftButton, 0, 40, 60);
        EXPECT_EQ(image(which).ForeColor, kBlack);
        EXPECT_EQ(image(which).FillColor, kBlack);
        EXPECT_EQ(image(which).GetPixel(40, 60), kBlack.value);
        channel(which).SetInvert(0, false);
        form.MouseDown(image(which), kLeftButton, 0, 140, 60);
        EXPECT_EQ(image(which).ForeColor, kWhite);
        EXPECT_EQ(image(which).FillColor, kWhite);
        EXPECT_EQ(image(which).GetPixel(140, 60), kWhite.value);
    }
}

TEST_F(Freehand, TheMiddleButtonInksThePenAndDrawsNothingUntilItsRelease) {
    const Bitmap before = form.pb1.Image();
    form.pb1.ForeColor = kRed;
    form.MouseDown(form.pb1, kMiddleButton, 0, 40, 60);
    form.MouseMove(form.pb1, kMiddleButton, 0, 80, 60);
    form.MouseMove(form.pb1, 3, 0, 90, 60);
    EXPECT_EQ(form.pb1.ForeColor, kWhite);
    EXPECT_EQ(form.pb1.FillColor, kWhite);
    EXPECT_EQ(form.pb1.Image(), before);
    form.MouseUp(form.pb1, kMiddleButton, 0, 80, 60);
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(transforms(), 2) << "the release does not look at its button";
}

TEST_F(Freehand, TheRightButtonOpensTheMenuAndLeavesTheInkAlone) {
    begin(Channel::One);
    form.pb1.ForeColor = kRed;
    press(form.pb1, kRightButton, 0, 40, 60);
    EXPECT_EQ(host.popups, std::vector<std::string>{"mnuImg1"});
    EXPECT_EQ(form.pb1.ForeColor, kRed);
    EXPECT_TRUE(inked(form.pb1.Image()).empty());
    EXPECT_EQ(transforms(), 0);
}

TEST_F(Freehand, AStrokeTurnsThePersistentDrawingOnAndShowsEachSegment) {
    begin(Channel::Two);
    form.pb4.setAutoRedraw(false);
    form.MouseDown(form.pb4, kLeftButton, 0, 40, 60);
    EXPECT_TRUE(form.pb4.AutoRedraw());
    EXPECT_EQ(shown(form.pb4), 1);
    form.MouseMove(form.pb4, kLeftButton, 0, 50, 60);
    EXPECT_EQ(shown(form.pb4), 2);
}

TEST_F(Freehand, AStrokeOnOneChannelLeavesTheOther) {
    begin(Channel::One);
    const Bitmap lower = form.pb4.Image();
    press(form.pb1, kLeftButton, 0, 40, 60);
    EXPECT_EQ(form.pb4.Image(), lower);
    EXPECT_EQ(shown(form.pb5), 0);
    EXPECT_EQ(shown(form.pb2), 1);
}

}  // namespace
}  // namespace quillon
