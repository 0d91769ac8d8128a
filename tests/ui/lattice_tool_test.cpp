#include "analysis/lattice_points.h"
#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// The Lattice tool on the image panels, driven by the mouse.
class LatticeTool : public CommandFixture {
protected:
    void choose(Channel which) {
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, 1);
        desktop.log.clear();
    }
    void drag(Channel which, Single x1, Single y1, Single x2, Single y2) {
        form.MouseDown(image(which), kLeftButton, 0, x1, y1);
        form.MouseMove(image(which), kLeftButton, 0, x2, y2);
        form.MouseUp(image(which), kLeftButton, 0, x2, y2);
    }
    void markTags() {
        for (Integer panel = 1; panel <= 6; ++panel)
            form.lab.panel(panel).Tag = "mark";
    }
    /// The numbers of the panels whose marks are gone.
    std::string cleared() {
        std::string found;
        for (Integer panel = 1; panel <= 6; ++panel)
            if (form.lab.panel(panel).Tag.empty())
                found += static_cast<char>('0' + panel);
        return found;
    }
    static Bitmap lattice(const LatticeBasis& basis) {
        PictureBox expected("expected", 256, 256);
        expected.setBackColor(kBlack);
        expected.ForeColor = kWhite;
        plotLattice(expected, basis);
        return expected.Image();
    }
};

TEST_F(LatticeTool, ChoosingTheToolWipesThePanelForTheConstruction) {
    for (const Channel which : kBoth) {
        const MenuArray array = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
        image(which).setAutoRedraw(false);
        markTags();
        choose(which);
        EXPECT_FALSE(form.menu(array, 0).Checked);
        EXPECT_TRUE(form.menu(array, 1).Checked);
        EXPECT_FALSE(form.menu(array, 2).Checked);
        EXPECT_EQ(channel(which).mDraw, 1);
        EXPECT_EQ(image(which).MousePointer, 1);
        EXPECT_EQ(image(which).DrawWidth, 1);
        EXPECT_TRUE(image(which).AutoRedraw());
        EXPECT_TRUE(image(which).Picture().empty());
        EXPECT_EQ(image(which).Image(), Bitmap(256, 256, 0));
        EXPECT_EQ(image(which).BackColor(), kBlack);
        EXPECT_EQ(image(which).ForeColor, kWhite);
        EXPECT_EQ(cleared(), which == Channel::One ? "123" : "456");
    }
}

TEST_F(LatticeTool, OnAnInvertedImageTheInksAreExchanged) {
    for (const Channel which : kBoth) {
        channel(which).SetInvert(0, true);
        choose(which);
        EXPECT_EQ(image(which).BackColor(), kWhite);
        EXPECT_EQ(image(which).ForeColor, kBlack);
        EXPECT_EQ(image(which).Image(), Bitmap(256, 256, 0xFFFFFF));
        image(which).setBackColor(kRed);
        form.MouseDown(image(which), kLeftButton, 0, 10, 10);
        EXPECT_EQ(image(which).BackColor(), kWhite) << "a new lattice takes the inks again";
        EXPECT_EQ(image(which).ForeColor, kBlack);
        form.lattice[0][0] = 0;
    }
}

TEST_F(LatticeTool, TwoDragsFillThePanelAndTransform) {
    for (const Channel which : kBoth) {
        choose(which);
        drag(which, 20, 30, 36, 33);
        EXPECT_EQ(form.lattice[0][0], 2);
        EXPECT_EQ(transforms(), 0);
        drag(which, 200, 200, 25, 52);
        EXPECT_EQ(form.lattice[0], (std::array<Single, 4>{3, 20, 36, 25}));
        EXPECT_EQ(form.lattice[1], (std::array<Single, 4>{0, 30, 33, 52}));
        EXPECT_EQ(image(which).Image(), lattice({{20, 30}, {36, 33}, {25, 52}}))
            << "no construction line is left";
        EXPECT_EQ(image(which).Picture(), image(which).Image());
        EXPECT_TRUE(image(which).AutoRedraw());
        EXPECT_EQ(transforms(), 2);
    }
}

TEST_F(LatticeTool, TheLatticeTransformsAlsoWithAutoCalculateOff) {
    form.itmOpt(4);
    choose(Channel::Two);
    drag(Channel::Two, 20, 30, 36, 33);
    drag(Channel::Two, 20, 30, 25, 52);
    EXPECT_EQ(transforms(), 2);
}

TEST_F(LatticeTool, TheFirstPressBeginsOverAnEmptyScreenLayer) {
    for (const Channel which : kBoth) {
        choose(which);
        image(which).setPicture(Bitmap(256, 256, 0x808080));
        form.MouseDown(image(which), kLeftButton, 0, 10.5F, 12);
        EXPECT_TRUE(image(which).Picture().empty());
        EXPECT_FALSE(image(which).AutoRedraw());
        EXPECT_EQ(image(which).Image(), Bitmap(256, 256, 0));
        EXPECT_EQ(image(which).GetPixel(10, 12), kWhite.value);
        EXPECT_EQ(form.lattice[0][0], 1);
        EXPECT_EQ(form.lattice[0][1], 10.5F);
        EXPECT_EQ(form.lattice[1][1], 12);
        form.lattice[0][0] = 0;
    }
}

/// Keeps what a panel looks like whenever it tells that it has changed.
class Stages : public ControlWatcher {
public:
    struct Stage {
        bool hasPicture;
        ColorValue ground;
        friend bool operator==(const Stage&, const Stage&) = default;
    };
    explicit Stages(PictureBox& panel) : panel_(panel) { panel_.watch(this); }
    Stages(const Stages&) = delete;
    Stages& operator=(const Stages&) = delete;
    ~Stages() override { panel_.watch(nullptr); }

    void stale(Control& /*control*/) override {
        seen.push_back({!panel_.Picture().empty(), panel_.BackColor()});
    }
    void showNow(Control& control) override { stale(control); }

    std::vector<Stage> seen;

private:
    PictureBox& panel_;
};

TEST_F(LatticeTool, TheFirstPressWipesTheUpperPanelBeforeItsInksAndTheLowerOneAfterThem) {
    for (const Channel which : kBoth) {
        choose(which);
        image(which).setPicture(Bitmap(256, 256, 0x808080));
        image(which).setBackColor(kRed);
        const Stages stages(image(which));
        form.MouseDown(image(which), kLeftButton, 0, 10, 12);
        ASSERT_GE(stages.seen.size(), 2U);
        const Stages::Stage wipedFirst{false, kRed};
        const Stages::Stage inkedFirst{true, kBlack};
        EXPECT_EQ(stages.seen[0], which == Channel::One ? wipedFirst : inkedFirst);
        EXPECT_EQ(stages.seen[1], (Stages::Stage{false, kBlack}));
        form.lattice[0][0] = 0;
    }
}

TEST_F(LatticeTool, TheFirstPressClearsTheLowerChannelsMarksOnBothPanels) {
    for (const Channel which : kBoth) {
        choose(which);
        markTags();
        form.MouseDown(image(which), kLeftButton, 0, 10, 12);
        EXPECT_EQ(cleared(), "456");
        form.lattice[0][0] = 0;
    }
}

TEST_F(LatticeTool, TheThirdPointTakesTheMarksOfItsOwnChannelOnlyAndThenTransforms) {
    for (const Channel which : kBoth) {
        choose(which);
        drag(which, 20, 30, 36, 33);
        form.MouseDown(image(which), kLeftButton, 0, 20, 30);
        markTags();
        form.MouseUp(image(which), kLeftButton, 0, 25, 52);
        for (Integer panel = 1; panel <= 6; ++panel) {
            const bool own = (panel < 4) == (which == Channel::One);
            // Cleared before the transform, which marks what it has computed.
            EXPECT_EQ(form.lab.panel(panel).Tag, own ? "!" : "mark") << panel;
        }
    }
}

TEST_F(LatticeTool, TheUpperChannelsDotLandsOnItsFtPanel) {
    choose(Channel::One);
    form.pb2.setBackColor(kBlack);
    form.pb2.setAutoRedraw(true);
    form.pb2.setPicture(Bitmap(256, 256));
    form.pb2.ForeColor = kGreen;
    form.pb2.DrawWidth = 1;
    form.MouseDown(form.pb1, kLeftButton, 0, 20, 30);
    form.MouseUp(form.pb1, kLeftButton, 0, 70, 80);
    EXPECT_EQ(form.pb2.GetPixel(70, 80), kGreen.value);
    EXPECT_EQ(form.pb1.GetPixel(70, 80), kBlack.value);
    EXPECT_EQ(form.pb1.GetPixel(20, 30), kWhite.value);
}

TEST_F(LatticeTool, TheLowerChannelsDotLandsOnItsImagePanel) {
    choose(Channel::Two);
    const Bitmap spectrum = form.pb5.shown();
    form.MouseDown(form.pb4, kLeftButton, 0, 20, 30);
    form.MouseUp(form.pb4, kLeftButton, 0, 70, 80);
    EXPECT_EQ(form.pb4.GetPixel(70, 80), kWhite.value);
    EXPECT_EQ(form.pb5.shown(), spectrum);
}

TEST_F(LatticeTool, TheRubberBandsAreRedAndGreenOverAnEmptyGround) {
    for (const Channel which : kBoth) {
        choose(which);
        PictureBox expected("expected", 256, 256);
        expected.setAutoRedraw(true);
        expected.setBackColor(kBlack);
        form.MouseDown(image(which), kLeftButton, 0, 20, 30);
        form.MouseMove(image(which), kLeftButton, 0, 200, 200);
        form.MouseMove(image(which), kLeftButton, 0, 90, 40);
        expected.Line(20, 30, 90, 40, RGB(255, 0, 0));
        EXPECT_EQ(image(which).shown(), expected.Image()) << "only the last band";
        form.MouseUp(image(which), kLeftButton, 0, 90, 40);
        form.MouseDown(image(which), kLeftButton, 0, 150, 150);
        form.MouseMove(image(which), kLeftButton, 0, 160, 160);
        form.MouseMove(image(which), kLeftButton, 0, 25, 80);
        expected.Line(20, 30, 25, 80, RGB(0, 255, 0));
        EXPECT_EQ(image(which).shown(), expected.Image());
        EXPECT_EQ(image(which).Image(), Bitmap(256, 256, 0)) << "nothing of it is persistent";
        form.MouseUp(image(which), kLeftButton, 0, 25, 80);
    }
}

TEST_F(LatticeTool, AtThreePointsAMoveDrawsNothing) {
    choose(Channel::Two);
    drag(Channel::Two, 20, 30, 36, 33);
    drag(Channel::Two, 20, 30, 25, 52);
    const Bitmap done = form.pb4.shown();
    form.MouseMove(form.pb4, kLeftButton, 0, 100, 100);
    EXPECT_EQ(form.pb4.shown(), done);
    form.MouseMove(form.pb4, 0, 0, 100, 100);
    EXPECT_EQ(form.pb4.shown(), done);
}

TEST_F(LatticeTool, AMoveBeforeAnyPointOnlyClears) {
    choose(Channel::Two);
    form.ShowStatus(2, "before");
    form.pb4.Line(0, 0, 50, 50, kRed);
    form.MouseMove(form.pb4, kLeftButton, 0, 100, 100);
    EXPECT_EQ(form.pb4.shown(), Bitmap(256, 256, 0));
    EXPECT_EQ(status(2), "before");
}

TEST_F(LatticeTool, TheNextPressStartsOver) {
    choose(Channel::One);
    drag(Channel::One, 20, 30, 36, 33);
    drag(Channel::One, 20, 30, 25, 52);
    form.MouseDown(form.pb1, kLeftButton, 0, 70, 71);
    EXPECT_EQ(form.lattice[0][0], 1);
    EXPECT_EQ(form.lattice[0][1], 70);
    EXPECT_EQ(form.lattice[1][1], 71);
    EXPECT_EQ(form.pb1.Image(), Bitmap(256, 256, 0));
}

TEST_F(LatticeTool, TheSecondPressKeepsThePointsAndThePanel) {
    choose(Channel::One);
    drag(Channel::One, 20, 30, 36, 33);
    const auto points = form.lattice;
    form.MouseDown(form.pb1, kLeftButton, 0, 200, 100);
    EXPECT_EQ(form.lattice, points);
    EXPECT_EQ(form.strokeStartX, 200);
    EXPECT_EQ(form.strokeLastY, 100);
}

TEST_F(LatticeTool, AFourthReleaseFailsWithASubscript) {
    for (const Channel which : kBoth) {
        choose(which);
        drag(which, 20, 30, 36, 33);
        drag(which, 20, 30, 25, 52);
        const Bitmap done = image(which).Image();
        form.MouseDown(image(which), kMiddleButton, 0, 50, 50);
        EXPECT_EQ(form.lattice[0][0], 3) << "the middle button does not start over";
        const auto release = [&] { form.MouseUp(image(which), kMiddleButton, 0, 50, 50); };
        EXPECT_EQ(errorOf(release), ErrorNumber::SubscriptOutOfRange);
        EXPECT_EQ(static_cast<int>(errorOf(release)), 9) << "and every one after it";
        EXPECT_EQ(image(which).Image(), done);
        form.MouseDown(image(which), kLeftButton, 0, 50, 50);
        EXPECT_EQ(form.lattice[0][0], 1) << "the left button starts over";
        form.lattice[0][0] = 0;
    }
}

TEST_F(LatticeTool, AMiddleClickCountsAsAPointBelowThree) {
    choose(Channel::Two);
    drag(Channel::Two, 20, 30, 36, 33);
    press(form.pb4, kMiddleButton, 0, 25, 52);
    EXPECT_EQ(form.lattice[0][0], 3);
    EXPECT_EQ(form.pb4.Image(), lattice({{20, 30}, {36, 33}, {25, 52}}));
}

TEST_F(LatticeTool, ALatticeBegunOnOneChannelCanBeFinishedOnTheOther) {
    choose(Channel::One);
    drag(Channel::One, 20, 30, 36, 33);
    choose(Channel::Two);
    EXPECT_EQ(form.lattice[0][0], 2);
    drag(Channel::Two, 1, 1, 25, 52);
    EXPECT_EQ(form.lattice[0][0], 3);
    // Without a first press here the panel keeps what is drawn, bands and all.
    PictureBox expected("expected", 256, 256);
    expected.setAutoRedraw(true);
    expected.setBackColor(kBlack);
    expected.ForeColor = kWhite;
    expected.Line(20, 30, 36, 33, kRed);
    expected.Line(20, 30, 25, 52, kGreen);
    expected.PSet(25, 52);
    plotLattice(expected, {{20, 30}, {36, 33}, {25, 52}});
    EXPECT_EQ(form.pb4.Image(), expected.Image());
    EXPECT_EQ(shown(form.pb5), 1);
}

TEST_F(LatticeTool, AChangeOfToolKeepsTheCount) {
    choose(Channel::One);
    drag(Channel::One, 20, 30, 36, 33);
    form.mnuImg1b(0);
    form.mnuImg1b(2);
    form.mnuImg1b(1);
    EXPECT_EQ(form.lattice[0][0], 2);
}

}  // namespace
}  // namespace quillon
