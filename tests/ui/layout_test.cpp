#include <gtest/gtest.h>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

struct Place {
    Single left, top, width, height;
    friend bool operator==(const Place&, const Place&) = default;
};

std::ostream& operator<<(std::ostream& out, const Place& place) {
    return out << place.left << " " << place.top << " " << place.width << " " << place.height;
}

Place placeOf(const Control& control) {
    return {control.Left, control.Top, control.Width, control.Height};
}

class WindowLayout : public FormFixture {
protected:
    void resizeTo(int widthInPixels, int heightInPixels) {
        form.resized(static_cast<Single>(widthInPixels * 15),
                     static_cast<Single>(heightInPixels * 15));
    }
};

TEST_F(WindowLayout, TheStripLiesOnTheLowerEdgeAtFullWidthAndOnlyItsLastCellGrows) {
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.stb), (Place{0, 13500 - 285, 18000, 285}));
    EXPECT_EQ(placeOf(form.lbSTB(0)), (Place{0, 0, 4350, 300}));
    EXPECT_EQ(placeOf(form.lbSTB(1)), (Place{4335, 0, 2295, 300}));
    EXPECT_EQ(placeOf(form.lbSTB(2)), (Place{6615, 0, 18000 - 6615, 300}));
}

TEST_F(WindowLayout, TheBlockKeepsItsSizeInTheMiddle) {
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.frt1),
              (Place{(18000 - 12345) / 2.0F, (13500 - 8535) / 2.0F, 12345, 8535}));
    EXPECT_EQ(placeOf(form.fr5), (Place{4125, 4305, 4095, 4230}));
}

TEST_F(WindowLayout, TheBrowserFillsTheWindowBelowTheTabs) {
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.ie5), (Place{90, 480, 18000 - 180, 13500 - 120 - 480}));
}

TEST_F(WindowLayout, TheLampStaysOneWidthFromTheRightEdge) {
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.imgDIM), (Place{18000 - 2 * 165, 135, 165, 165}));
}

TEST_F(WindowLayout, TabsAndSelectorStayWhereTheyAre) {
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.frLUT), (Place{3120, 105, 4170, 1620}));
    EXPECT_EQ(placeOf(form.lbTAB(1)), (Place{1440, 90, 1290, 270}));
    EXPECT_EQ(placeOf(form.btLUT), (Place{2790, 90, 270, 270}));
}

TEST_F(WindowLayout, AWindowSmallerThanTheBlockCutsItOffOnBothSidesAlike) {
    resizeTo(400, 300);
    EXPECT_EQ(placeOf(form.frt1),
              (Place{(6000 - 12345) / 2.0F, (4500 - 8535) / 2.0F, 12345, 8535}));
}

TEST_F(WindowLayout, AWindowNarrowerThan180LeavesTheBrowserAsItWas) {
    resizeTo(1200, 900);
    const Place before = placeOf(form.ie5);
    form.resized(179, 13500);
    EXPECT_EQ(placeOf(form.ie5), before);
    form.resized(180, 13500);
    EXPECT_EQ(placeOf(form.ie5), (Place{90, 480, 0, 12900}));
}

TEST_F(WindowLayout, AWindowTooLowForTheBrowserLeavesItToo) {
    resizeTo(1200, 900);
    const Place before = placeOf(form.ie5);
    form.resized(18000, 599);
    EXPECT_EQ(placeOf(form.ie5), before);
    form.resized(18000, 600);
    EXPECT_EQ(form.ie5.Height, 0);
}

TEST_F(WindowLayout, ACellThatWouldGetANegativeWidthKeepsItsLastAndTheRestGoesOn) {
    resizeTo(1200, 900);
    resizeTo(100, 100);
    EXPECT_EQ(form.lbSTB(2).Width, 18000 - 6615);
    EXPECT_EQ(placeOf(form.stb), (Place{0, 1500 - 285, 1500, 285}));
    EXPECT_EQ(form.frt1.Left, (1500 - 12345) / 2.0F);
    EXPECT_EQ(form.imgDIM.Left, 1500 - 330);
}

TEST_F(WindowLayout, EverySizeFrom100By100To4000By3000FollowsTheRules) {
    for (int width = 100; width <= 4000; width += 325)
        for (int height = 100; height <= 3000; height += 290) {
            SCOPED_TRACE(std::to_string(width) + " x " + std::to_string(height));
            resizeTo(width, height);
            const auto w = static_cast<Single>(15 * width);
            const auto h = static_cast<Single>(15 * height);
            EXPECT_EQ(placeOf(form.stb), (Place{0, h - 285, w, 285}));
            EXPECT_EQ(form.frt1.Left * 2 + form.frt1.Width, w);
            EXPECT_EQ(form.frt1.Top * 2 + form.frt1.Height, h);
            EXPECT_EQ(form.frt1.Width, 12345);
            EXPECT_EQ(form.imgDIM.Left, w - 330);
            if (w >= 6615) {
                EXPECT_EQ(form.lbSTB(2).Width, w - 6615);
            }
            EXPECT_EQ(placeOf(form.ie5), (Place{90, 480, w - 180, h - 600}));
        }
}

TEST_F(WindowLayout, MinimisingAndRestoringLeavesTheBlockWhereItWas) {
    resizeTo(1200, 900);
    const Place before = placeOf(form.frt1);
    form.WindowState = kWindowMinimised;
    form.resized(2400, 0);
    EXPECT_EQ(placeOf(form.frt1), before);
    EXPECT_EQ(form.stb.Width, 18000);
    form.WindowState = kWindowNormal;
    resizeTo(1200, 900);
    EXPECT_EQ(placeOf(form.frt1), before);
}

TEST_F(WindowLayout, AMaximisedWindowFollowsTheRulesToo) {
    form.WindowState = kWindowMaximised;
    resizeTo(1920, 1000);
    EXPECT_EQ(form.stb.Width, 28800);
}

TEST_F(WindowLayout, AStatusTextIsShownAtOnce) {
    RecordingWatcher watcher;
    std::vector<std::string> seen;
    watcher.onShow = [&](Control& control) {
        seen.push_back(control.Name + " " + control.Caption.get());
    };
    for (Integer i = 0; i <= 2; ++i)
        form.lbSTB(i).watch(&watcher);
    form.ShowStatus(0, "CAT.JPG ");
    form.ShowStatus(2, "Fourier Transform ...");
    EXPECT_EQ(seen,
              (std::vector<std::string>{"lbSTB(0) CAT.JPG ", "lbSTB(2) Fourier Transform ..."}));
}

TEST_F(WindowLayout, ThePointersCellTellsPlaceAndValue) {
    form.ShowPointer(12, 255, " M= 12.5");
    EXPECT_EQ(status(1), "[12,255]  M= 12.5");
    form.ShowPointer(-3, 0, "");
    EXPECT_EQ(status(1), "[-3,0] ");
}

TEST_F(WindowLayout, ALeftPressOnTheGroundWithoutModifiersDragsTheWindow) {
    form.MouseDown(form, kLeftButton, 0, 300, 300);
    EXPECT_EQ(desktop.screen.dragged, (std::vector<std::string>{"Form1"}));
}

TEST_F(WindowLayout, TheSelectorAndTheHistogramBoxAreDraggedByThemselves) {
    form.MouseDown(form.frLUT, kLeftButton, 0, 30, 30);
    form.MouseDown(form.pbh, kLeftButton, 0, 30, 30);
    EXPECT_EQ(desktop.screen.dragged, (std::vector<std::string>{"frLUT", "pbh"}));
}

TEST_F(WindowLayout, OtherButtonsAndPressesWithAModifierDragNothing) {
    for (Control* dragged : {static_cast<Control*>(&form), static_cast<Control*>(&form.frLUT),
                             static_cast<Control*>(&form.pbh)}) {
        form.MouseDown(*dragged, kRightButton, 0, 30, 30);
        form.MouseDown(*dragged, kMiddleButton, 0, 30, 30);
        for (const Integer shift : {kShiftKey, kCtrlKey, kAltKey})
            form.MouseDown(*dragged, kLeftButton, shift, 30, 30);
    }
    EXPECT_TRUE(desktop.screen.dragged.empty());
}

TEST_F(WindowLayout, AReleaseOnTheGroundBringsTheNormalPointerBack) {
    for (const Integer button : {kLeftButton, kRightButton, kMiddleButton}) {
        form.MousePointer = kPointerFourArrows;
        form.MouseUp(form, button, 0, 30, 30);
        EXPECT_EQ(form.MousePointer, kPointerDefault);
    }
}

TEST_F(WindowLayout, AReleaseOnTheHistogramsCrossHidesTheBox) {
    form.pbh.Visible = true;
    form.MouseUp(form.lbHIS, kRightButton, 0, 30, 30);
    EXPECT_FALSE(form.pbh.Visible);
}

}  // namespace
}  // namespace quillon
