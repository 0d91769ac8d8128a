#include "analysis/grid_pattern.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingWatcher.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// What a code means, for the rule below.
struct Rule {
    int black = 10;
    int white = 2;
    bool exclusive = false;
    bool inverted = false;
    bool plain = false;
};

Bitmap byRule(int width, int height, const Rule& rule) {
    Bitmap picture(width, height);
    const int period = rule.black + rule.white;
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) {
            const bool v = !rule.plain && x % period < rule.white;
            const bool h = !rule.plain && y % period < rule.white;
            const bool white = rule.exclusive ? v != h : v || h;
            picture.at(x, y) = white != rule.inverted ? 0xFFFFFF : 0;
        }
    return picture;
}

class GridPattern : public ::testing::Test {
protected:
    GridPattern() { box.setAutoRedraw(true); }

    void draw(const std::string& code) { DrawGridPattern(desktop.desktop(), box, code); }
    void expectRule(const std::string& code, const Rule& rule) {
        draw(code);
        EXPECT_TRUE(box.Image() == byRule(256, 256, rule)) << code;
    }

    RecordingDesktop desktop;
    PictureBox box{"pb1", 256, 256};
};

TEST_F(GridPattern, CodesGiveTheirPixels) {
    expectRule("10.2.0.0", {10, 2});
    expectRule("10.2.1.0", {10, 2, true});
    expectRule("10.2.0.1", {10, 2, false, true});
    expectRule("10.2.1.1", {10, 2, true, true});
    expectRule("1.1.0.0", {1, 1});
    expectRule("1.1.1.0", {1, 1, true});
    expectRule("7.5.1.0", {7, 5, true});
    expectRule("3.30.1.1", {3, 30, true, true});
    expectRule("200.100.1.0", {200, 100, true});
}

TEST_F(GridPattern, AnyValueButZeroCountsAsYes) {
    expectRule("4.3.2.7", {4, 3, true, true});
}

TEST_F(GridPattern, MissingWordsAreZero) {
    expectRule("1.10", {1, 10});
    expectRule("6.4.1", {6, 4, true});
}

TEST_F(GridPattern, BlackAndWhiteAreAtLeastOneAndHaveNoUpperLimit) {
    expectRule("0.0.1.0", {1, 1, true});
    expectRule("x.3.0.0", {1, 3});
    expectRule("300.400.0.0", {300, 400});
}

TEST_F(GridPattern, WordsStandApartByPointsDashesCommasOrBlanks) {
    for (const char* code : {"10 2 1 0", "10-2-1-0", "10,2,1,0", "  10.2-1,0  ", "10  2..1,-0"})
        expectRule(code, {10, 2, true});
}

TEST_F(GridPattern, OfThreeBlanksOneEmptyWordIsLeft) {
    // "10", "", "2": the white bands fall back to one pixel and 2 becomes the XOR.
    expectRule("10   2", {10, 1, true});
}

TEST_F(GridPattern, ASeparatorInFrontMakesAnEmptyFirstWordAndOneBehindAnEmptyLastOne) {
    // Trimmed is the code as it came, before its separators turn into blanks.
    expectRule(".5.0.0", {1, 5});
    expectRule("10.2.", {10, 2});
    expectRule("10.2.1.", {10, 2, true});
}

TEST_F(GridPattern, ALeadingGIsIgnoredAndALeadingPDrawsNoBands) {
    expectRule("g10.2.1.0", {10, 2, true});
    expectRule("G10.2.0.1", {10, 2, false, true});
    expectRule("p1.1", {1, 1, false, false, true});
    expectRule("P10.2.1.1", {10, 2, true, true, true});
    expectRule("gp10.2.0.0", {10, 2, false, false, true});
    // Blanks are trimmed only after the letters: here the first word has no number.
    expectRule(" g5.2.0.1", {1, 2, false, true});
    // After a P a G is no prefix any more: the first word has no number.
    expectRule("pg5.2.0.1", {1, 2, false, true, true});
}

TEST_F(GridPattern, ACodeOfOneWordFailsBeforeAnythingIsDrawn) {
    box.setBackColor(kRed);
    for (const char* code : {"1000", "", "g", "p12"})
        EXPECT_EQ(errorOf([&] { draw(code); }), ErrorNumber::SubscriptOutOfRange) << code;
    EXPECT_EQ(box.GetPixel(128, 128), kRed.value);
    EXPECT_FALSE(desktop.clipboard.content);
}

TEST_F(GridPattern, OnAHighPanelTheLowerRowsStayWithoutBands) {
    PictureBox high("high", 40, 100);
    high.setAutoRedraw(true);
    DrawGridPattern(desktop.desktop(), high, "10.2.0.0");
    // 40 / 12 + 0.5 rounds to 4: bands at 0, 12, 24, 36 and 48.
    for (int y = 0; y < 100; ++y)
        EXPECT_EQ(high.GetPixel(5, y) == kWhite.value, y % 12 < 2 && y < 50) << y;
    for (int x = 0; x < 40; ++x)
        EXPECT_EQ(high.GetPixel(x, 99) == kWhite.value, x % 12 < 2) << x;
}

TEST_F(GridPattern, ThePenIsOnePixelWideMeanwhileAndIsPutBack) {
    box.DrawWidth = 2;
    RecordingWatcher watcher;
    watcher.onShow = [this](Control&) {
        EXPECT_EQ(box.DrawWidth, 1);
        EXPECT_EQ(box.DrawMode, kPenXor) << "the copy pen comes back after the show";
    };
    box.watch(&watcher);
    expectRule("10.2.1.0", {10, 2, true});
    EXPECT_EQ(watcher.count("showNow pb1"), 1);
    box.watch(nullptr);
    EXPECT_EQ(box.DrawWidth, 2);
    EXPECT_EQ(box.DrawMode, kPenCopy);
    EXPECT_EQ(box.BackColor(), kBlack);
}

TEST_F(GridPattern, AFailureOnTheWayPutsThePenBackAndLeavesTheClipboardAlone) {
    box.DrawWidth = 2;
    // A band wider than any whole number of pixels.
    EXPECT_EQ(errorOf([&] { draw("1 1e20 1"); }), ErrorNumber::Overflow);
    EXPECT_EQ(box.DrawWidth, 2);
    EXPECT_EQ(box.DrawMode, kPenCopy);
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(GridPattern, WhatThePanelShowedIsGone) {
    box.setPicture(Bitmap(256, 256, 0x808080));
    box.Box(0, 0, 100, 100, kRed, BoxStyle::Filled);
    expectRule("10.2.0.0", {10, 2});
    EXPECT_TRUE(box.Picture().empty());
}

TEST_F(GridPattern, AnInvertedPatternLiesOverItsOwnPicture) {
    draw("10.2.1.1");
    EXPECT_TRUE(box.Picture() == byRule(256, 256, {10, 2, true}));
}

TEST_F(GridPattern, ThePatternGoesToTheClearedClipboard) {
    draw("10.2.1.0");
    ASSERT_TRUE(desktop.clipboard.content);
    EXPECT_TRUE(*desktop.clipboard.content == box.Image());
    ASSERT_EQ(desktop.log.size(), 2U) << "no message while the panel keeps its drawing";
    EXPECT_EQ(desktop.log[0], "clipboard.clear()");
    EXPECT_TRUE(desktop.log[1].starts_with("clipboard.setPicture(")) << desktop.log[1];
}

TEST_F(GridPattern, APanelThatDoesNotKeepItsDrawingIsToldFirst) {
    box.setAutoRedraw(false);
    box.setBackColor(kRed);
    bool untouched = false;
    desktop.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        untouched = box.GetPixel(0, 0) == kRed.value;
    };
    draw("10.2.1.0");
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].text, "!");
    EXPECT_TRUE(untouched);
    // The drawing goes on, but it ends with the panel's repaint.
    EXPECT_TRUE(box.shown() == Bitmap(256, 256));
    ASSERT_TRUE(desktop.clipboard.content);
    EXPECT_TRUE(*desktop.clipboard.content == Bitmap(256, 256));
    EXPECT_EQ(box.BackColor(), kBlack);
}

}  // namespace
}  // namespace quillon
