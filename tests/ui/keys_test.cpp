#include <initializer_list>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

constexpr Integer kAlt = 18;
constexpr Integer kEscape = 27;
constexpr Integer kLeft = 37;
constexpr Integer kUp = 38;
constexpr Integer kRight = 39;
constexpr Integer kDown = 40;

class Keys : public CommandFixture {
protected:
    /// Turns Auto-Calculate off.
    void calculateByHand() {
        form.itmOpt(4);
        desktop.log.clear();
    }
    void drag(PictureBox& panel, Single fromX, Single fromY, Single toX, Single toY) {
        form.MouseDown(panel, kLeftButton, 0, fromX, fromY);
        form.MouseMove(panel, kLeftButton, 0, toX, toY);
        form.MouseUp(panel, kLeftButton, 0, toX, toY);
    }
    /// One drag of two, another tool, and a picture: the panel still draws on its
    /// screen layer.
    void abandonLattice(Channel which) {
        const MenuArray tools = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
        form.click(tools, 1);
        form.lattice[0][0] = 0;
        drag(image(which), 20, 20, 60, 25);
        form.click(tools, 2);
        image(which).setPicture(squaresPicture());
        ASSERT_FALSE(image(which).AutoRedraw());
    }
};

TEST_F(Keys, ShiftAndAnArrowRollTheUpperImageByOnePixel) {
    const struct {
        Integer key;
        int dx;
        int dy;
    } arrows[] = {{kLeft, -1, 0}, {kUp, 0, -1}, {kRight, 1, 0}, {kDown, 0, 1}};
    for (const auto& arrow : arrows) {
        const Bitmap before = form.pb1.Image();
        const Bitmap other = form.pb4.Image();
        form.KeyDown(arrow.key, kShiftKey);
        EXPECT_EQ(form.pb1.Image(), rolled(before, arrow.dx, arrow.dy)) << arrow.key;
        EXPECT_EQ(form.pb4.Image(), other);
        EXPECT_EQ(form.pendingShiftPanel, 1);
        EXPECT_EQ(form.mem.Picture(), before);
    }
    EXPECT_EQ(transforms(), 0) << "nothing is transformed yet";
}

TEST_F(Keys, CtrlAndAnArrowRollTheLowerImage) {
    const Bitmap before = form.pb4.Image();
    const Bitmap other = form.pb1.Image();
    form.KeyDown(kRight, kCtrlKey);
    form.KeyDown(kDown, kCtrlKey);
    EXPECT_EQ(form.pb4.Image(), rolled(before, 1, 1));
    EXPECT_EQ(form.pb1.Image(), other);
    EXPECT_EQ(form.pendingShiftPanel, 4);
}

TEST_F(Keys, AnArrowRollsAndTransformsAnImageWhoseLatticeWasAbandoned) {
    for (const Channel which : kBoth) {
        abandonLattice(which);
        const Bitmap before = image(which).Image();
        desktop.log.clear();
        form.KeyDown(kRight, which == Channel::One ? kShiftKey : kCtrlKey);
        EXPECT_EQ(image(which).shown(), rolled(before, 1, 0));
        EXPECT_EQ(image(which).Image(), rolled(before, 1, 0));
        form.KeyUp(kRight, 0);
        EXPECT_EQ(transforms(), 2);
        EXPECT_EQ(image(which).Picture(), rolled(before, 1, 0)) << "committed";
        const Single transformed = channel(which).spectrum()(1, 0).re;
        channel(which).runFOURN(1, 0);
        EXPECT_EQ(channel(which).spectrum()(1, 0).re, transformed) << "it was the rolled image's";
        EXPECT_FALSE(image(which).AutoRedraw()) << "a lattice goes on where it was left";
    }
}

TEST_F(Keys, AnArrowBetweenTheDragsOfALatticeLeavesNoConstructionLineInIt) {
    const auto lattice = [this](const auto& between) {
        form.click(MenuArray::mnuImg1b, 1);
        form.lattice[0][0] = 0;
        drag(form.pb1, 20, 20, 60, 25);
        between();
        drag(form.pb1, 20, 20, 30, 70);
        return form.pb1.Image();
    };
    const Bitmap plain = lattice([] {});
    const Bitmap rolledBetween = lattice([this] {
        form.KeyDown(kRight, kShiftKey);
        form.KeyUp(kRight, 0);
    });
    EXPECT_EQ(rolledBetween, plain);
}

TEST_F(Keys, AHeldArrowRollsAllTheWayRound) {
    const Bitmap before = form.pb1.Image();
    for (int i = 0; i < 256; ++i)
        form.KeyDown(kLeft, kShiftKey);
    EXPECT_EQ(form.pb1.Image(), before);
}

TEST_F(Keys, ModifiersCountByEquality) {
    const Bitmap upper = form.pb1.Image();
    const Bitmap lower = form.pb4.Image();
    for (const Integer shift : std::initializer_list<Integer>{0, 3, 4, 5, 6, 7})
        for (Integer key = kLeft; key <= kDown; ++key)
            form.KeyDown(key, shift);
    for (const Integer key : std::initializer_list<Integer>{36, 41})
        form.KeyDown(key, kShiftKey);
    EXPECT_EQ(form.pb1.Image(), upper);
    EXPECT_EQ(form.pb4.Image(), lower);
    EXPECT_EQ(form.pendingShiftPanel, 0);
}

TEST_F(Keys, TheReleaseOfAnyKeyTransformsTheRolledImageOnce) {
    form.KeyDown(kRight, kCtrlKey);
    const Single before = form.lab.channel2.spectrum()(1, 0).re;
    desktop.log.clear();
    form.KeyUp(65, 0);
    EXPECT_EQ(form.pendingShiftPanel, 0);
    EXPECT_EQ(transforms(), 2);
    EXPECT_EQ(shown(form.pb5), 1);
    EXPECT_EQ(shown(form.pb2), 0);
    EXPECT_NE(form.lab.channel2.spectrum()(1, 0).re, before);
    form.KeyUp(17, 0);
    EXPECT_EQ(transforms(), 2) << "the second release has nothing to do";
}

TEST_F(Keys, WithAutoCalculateOffTheReleaseOnlyForgetsTheRoll) {
    calculateByHand();
    const Bitmap before = form.pb1.Image();
    form.KeyDown(kRight, kShiftKey);
    form.KeyUp(kRight, kShiftKey);
    EXPECT_EQ(form.pb1.Image(), rolled(before, 1, 0));
    EXPECT_EQ(form.pendingShiftPanel, 0);
    EXPECT_EQ(transforms(), 0);
}

TEST_F(Keys, ARolledImageOutlivesTheReleaseOfAlt) {
    const Bitmap before = form.pb1.Image();
    form.KeyDown(kRight, kShiftKey);
    form.KeyUp(kRight, kShiftKey);
    form.KeyDown(kAlt, kAltKey);
    form.KeyUp(kAlt, 0);
    EXPECT_EQ(form.pb1.Image(), rolled(before, 1, 0));
}

TEST_F(Keys, AltAloneShowsBothProfileLinesWhereTheyStand) {
    EXPECT_EQ(form.Line1(0).Y1, 194);
    EXPECT_EQ(form.Line1(1).Y1, 17);
    form.KeyDown(kAlt, kAltKey);
    for (const Integer line : std::initializer_list<Integer>{0, 1}) {
        EXPECT_TRUE(form.Line1(line).Visible);
        EXPECT_EQ(form.Line1(line).X1, 0);
        EXPECT_EQ(form.Line1(line).X2, 256);
        EXPECT_EQ(form.Line1(line).Y1, form.Line1(line).Y2);
        EXPECT_EQ(form.Line1(line).BorderColor.get(), kWhite);
    }
    EXPECT_EQ(form.Line1(0).Y1, 194);
    EXPECT_EQ(form.Line1(1).Y1, 17);
}

TEST_F(Keys, AltWithAnotherModifierShowsNoLine) {
    for (const Integer shift : std::initializer_list<Integer>{0, 1, 2, 5, 6, 7})
        form.KeyDown(kAlt, shift);
    form.KeyDown(17, kAltKey);
    EXPECT_FALSE(form.Line1(0).Visible);
    EXPECT_FALSE(form.Line1(1).Visible);
}

TEST_F(Keys, TheReleaseOfAltPutsThePanelsInOrder) {
    form.KeyDown(kAlt, kAltKey);
    const Bitmap upper = form.pb1.Image();
    const Bitmap reconstruction = form.pb6.Image();
    form.pb1.Box(10, 10, 20, 20, kRed, BoxStyle::Filled);
    form.pb4.Box(10, 10, 20, 20, kRed, BoxStyle::Filled);
    form.pb6.Box(10, 10, 20, 20, kRed, BoxStyle::Filled);
    desktop.log.clear();
    bool linesAtYield = true;
    desktop.screen.nextYields.push_back(
        [&] { linesAtYield = form.Line1(0).Visible || form.Line1(1).Visible; });
    form.KeyUp(kAlt, 0);
    EXPECT_FALSE(linesAtYield) << "the lines are hidden before the yield";
    EXPECT_FALSE(form.Line1(0).Visible);
    EXPECT_FALSE(form.Line1(1).Visible);
    EXPECT_EQ(form.pb1.Image(), upper);
    EXPECT_EQ(form.pb6.Image(), reconstruction);
    EXPECT_EQ(desktop.calls.of({"screen.", "showNow "}),
              (std::vector<std::string>{"screen.pendingEvents()", "showNow pb1", "showNow pb4",
                                        "showNow pb3", "showNow pb6"}));
}

TEST_F(Keys, ThePatchOfAltShowsOnAnImageWhoseLatticeWasAbandoned) {
    for (const Channel which : kBoth) {
        form.KeyDown(kAlt, kAltKey);
        form.MouseMove(spectrum(which), 0, kAltKey, 60, 90);
        const Bitmap patch = image(which).shown();
        form.KeyUp(kAlt, 0);
        abandonLattice(which);
        const Bitmap before = image(which).shown();
        ASSERT_NE(patch, before);
        form.KeyDown(kAlt, kAltKey);
        form.MouseMove(spectrum(which), 0, kAltKey, 60, 90);
        EXPECT_EQ(differingPixels(image(which).shown(), patch), 0);
        form.KeyUp(kAlt, 0);
        EXPECT_EQ(image(which).shown(), before);
        EXPECT_EQ(image(which).Image(), before) << "what a transform reads";
        EXPECT_FALSE(image(which).AutoRedraw()) << "a lattice goes on where it was left";
    }
}

TEST_F(Keys, AClosingUnderAltTakesThePatchOffFirst) {
    const Bitmap before = form.pb4.Image();
    form.KeyDown(kAlt, kAltKey);
    form.MouseMove(form.pb5, 0, kAltKey, 60, 90);
    ASSERT_NE(form.pb4.Image(), before);
    form.unload();
    EXPECT_EQ(form.pb4.Image(), before);
}

TEST_F(Keys, TheReleaseOfAltKeepsWhatIsPaintedOnTheImages) {
    desktop.pictures.add("C:\\odd.bmp", Bitmap(20, 20, 0x123456));
    form.LoadPanelImage(1, "C:\\odd.bmp");
    form.mnuImg2a(9);
    const Bitmap loaded = form.pb1.Image();
    const Bitmap inverted = form.pb4.Image();
    form.KeyUp(kAlt, 0);
    EXPECT_EQ(form.pb1.Image(), loaded);
    EXPECT_EQ(form.pb4.Image(), inverted);
}

TEST_F(Keys, TheReleaseOfAnotherKeyRepaintsNothing) {
    for (const Integer key : std::initializer_list<Integer>{16, 17, 27, 65})
        form.KeyUp(key, 0);
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Keys, EscapeAsksARunningBatchToStopAndLetsEventsRun) {
    form.KeyDown(kEscape, 0);
    EXPECT_TRUE(form.bStopBatch);
    EXPECT_EQ(desktop.log, std::vector<std::string>{"screen.pendingEvents()"});
}

TEST_F(Keys, EscapeSetsItsFlagBeforeTheYield) {
    bool flag = false;
    desktop.screen.nextYields.push_back([&] { flag = form.bStopBatch; });
    form.KeyDown(kEscape, kShiftKey);
    EXPECT_TRUE(flag);
}

TEST_F(Keys, EnterAndSpaceRecalculateAllInTheLab) {
    for (const Integer view : std::initializer_list<Integer>{0, 1})
        for (const Integer key : std::initializer_list<Integer>{13, 32}) {
            form.lab.viewTab = view;
            form.pb3.Tag = "3D";
            desktop.log.clear();
            form.KeyPress(key);
            EXPECT_EQ(transforms(), 6) << key << " in view " << view;
            EXPECT_EQ(form.pb3.Tag, "!");
        }
}

TEST_F(Keys, InTheTutorialEnterSpaceAndRLeaveTheHiddenLabAlone) {
    clickFilter(Channel::Two, 11);
    form.mnuImg1a(9);
    form.lab.viewTab = 2;
    desktop.log.clear();
    for (Integer key : std::initializer_list<Integer>{13, 32, 'r', 'l'}) {
        form.KeyPress(key);
        // The dark's keys are the window's, over the Tutorial too.
        form.remoteKeyPress(key);
    }
    EXPECT_TRUE(desktop.log.empty());
    EXPECT_TRUE(form.lab.channel2.bHighpass);
    EXPECT_TRUE(form.lab.channel1.GetInvert(0));
}

TEST_F(Keys, OtherCharactersRecalculateNothing) {
    for (const Integer key : std::initializer_list<Integer>{0, 9, 10, 27, 33, 65, 82, 97, 255})
        form.KeyPress(key);
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Keys, OnlyALowerCaseRResetsTheLab) {
    clickFilter(Channel::Two, 11);
    form.mnuImg1a(9);
    form.KeyPress('R');
    EXPECT_TRUE(form.lab.channel2.bHighpass);
    Integer key = 'r';
    form.remoteKeyPress(key);
    EXPECT_FALSE(form.lab.channel2.bFilter);
    EXPECT_FALSE(form.lab.channel1.GetInvert(0));
    EXPECT_FALSE(form.menu(MenuArray::mnuImg1a, 9).Checked);
}

TEST_F(Keys, TheOverlaysKeysAreTheWindowsKeys) {
    Integer space = 32;
    form.remoteKeyPress(space);
    EXPECT_EQ(transforms(), 6);
    form.Line1(0).Visible = true;
    Integer alt = kAlt;
    Integer shift = 0;
    form.remoteKeyUp(alt, shift);
    EXPECT_FALSE(form.Line1(0).Visible);
}

TEST_F(Keys, AutoCalculateDoesNotGovernMenusDoubleClicksOrEnter) {
    calculateByHand();
    form.mnuFT1a(0);
    form.mnuNew2a(0);
    form.mnuFT2a(10);
    EXPECT_EQ(transforms(), 4);
    form.DblClick(form.pb2);
    EXPECT_EQ(transforms(), 6);
    form.KeyPress(13);
    EXPECT_EQ(transforms(), 12);
}

}  // namespace
}  // namespace quillon
