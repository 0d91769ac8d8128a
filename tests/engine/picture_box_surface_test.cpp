// The panel surface's three layers, its size, and its bits.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "engine/RunTimeError.h"
#include "tests/support/RecordingWatcher.h"
#include "tests/support/TestPanel.h"

namespace quillon {
namespace {

TEST(PictureBoxSurface, StartsBlankWithPixelScaleAndNoAutoRedraw) {
    const PictureBox panel("pb1", 3, 2);
    EXPECT_EQ(textOf(panel.Image()), (Rows{"###", "###"}));
    EXPECT_TRUE(panel.Picture().empty());
    EXPECT_FALSE(panel.hasScreenLayer());
    EXPECT_FALSE(panel.AutoRedraw());
    EXPECT_FALSE(panel.AutoSize);
    EXPECT_EQ(panel.ScaleMode, 3);
    EXPECT_EQ(panel.DrawWidth, 1);
    EXPECT_EQ(panel.DrawMode, kPenCopy);
    EXPECT_EQ(panel.ScaleWidth(), 3.0F);
    EXPECT_EQ(panel.ScaleHeight(), 2.0F);
    EXPECT_EQ(panel.Width, 45.0F);
    EXPECT_EQ(panel.Height, 30.0F);
}

TEST(PictureBoxSurface, ABorderTakesOnePixelOnEachSide) {
    PictureBox panel("pb1", 90.0F, 60.0F, Integer{1});
    EXPECT_EQ(panel.ScaleWidth(), 4.0F);
    EXPECT_EQ(panel.ScaleHeight(), 2.0F);
    panel.BorderStyle = 0;
    EXPECT_EQ(panel.ScaleWidth(), 6.0F);
    EXPECT_EQ(panel.ScaleHeight(), 4.0F);
    panel.Move(0, 0, 15, 15);
    EXPECT_EQ(panel.Image().words.size(), 1U);
    panel.BorderStyle = 1;
    EXPECT_EQ(panel.ScaleWidth(), 0.0F);
    EXPECT_TRUE(panel.Image().empty());
}

TEST(PictureBoxSurface, APictureLiesAtTheTopLeftOverTheGround) {
    TestPanel panel(4, 3);
    panel.setBackColor(kBlue);
    panel.setPicture(pictureOf({"RG", "#."}));
    EXPECT_EQ(panel.text(), (Rows{"RGBB", "#.BB", "BBBB"}));
}

TEST(PictureBoxSurface, WhatOfAPictureExceedsThePanelIsCutOff) {
    TestPanel panel(2, 1);
    panel.setPicture(pictureOf({"RG#", "###", "..."}));
    EXPECT_EQ(panel.text(), (Rows{"RG"}));
    EXPECT_EQ(panel.Picture().height, 3);
}

TEST(PictureBoxSurface, SettingAPictureDropsEverythingDrawn) {
    TestPanel panel(3, 1);
    panel.PSet(2, 0);
    panel.setPicture(pictureOf({"R"}));
    EXPECT_EQ(panel.text(), (Rows{"R.."}));
    panel.setAutoRedraw(false);
    panel.PSet(2, 0);
    panel.setPicture(pictureOf({"G"}));
    EXPECT_EQ(panel.shownText(), (Rows{"G.."}));
    panel.setPicture({});
    EXPECT_EQ(panel.text(), (Rows{"..."}));
    EXPECT_TRUE(panel.Picture().empty());
}

TEST(PictureBoxSurface, PictureFromImageCommitsWhatIsDrawn) {
    TestPanel panel(Rows{"R.."});
    panel.PSet(1, 0);
    panel.setPicture(panel.Image());
    EXPECT_EQ(textOf(panel.Picture()), (Rows{"R#."}));
    panel.PSet(2, 0);
    panel.Cls();
    EXPECT_EQ(panel.text(), (Rows{"R#."}));
    panel.setPicture(panel.Picture());
    EXPECT_EQ(panel.text(), (Rows{"R#."}));
}

TEST(PictureBoxSurface, PictureFromTheShownLayerCommitsThatToo) {
    TestPanel panel(Rows{"R.."});
    panel.setAutoRedraw(false);
    panel.PSet(1, 0);
    panel.setPicture(panel.shown());
    EXPECT_EQ(panel.text(), (Rows{"R#."}));
    EXPECT_FALSE(panel.hasScreenLayer());
}

TEST(PictureBoxSurface, ClsFallsBackToThePictureOverTheGround) {
    TestPanel panel(3, 2);
    panel.setBackColor(kBlue);
    panel.setPicture(pictureOf({"RG"}));
    panel.Box(0, 0, 2, 1, kWhite, BoxStyle::Filled);
    panel.Cls();
    EXPECT_EQ(panel.text(), (Rows{"RGB", "BBB"}));
}

TEST(PictureBoxSurface, ClsWithAutoRedrawOffTakesTheScreenLayerAlone) {
    TestPanel panel(3, 1);
    panel.PSet(0, 0);
    panel.setAutoRedraw(false);
    panel.PSet(2, 0, kRed);
    EXPECT_EQ(panel.shownText(), (Rows{"#.R"}));
    panel.Cls();
    EXPECT_EQ(panel.shownText(), (Rows{"#.."}));
    EXPECT_FALSE(panel.hasScreenLayer());
    panel.setAutoRedraw(true);
    panel.Cls();
    EXPECT_EQ(panel.shownText(), (Rows{"..."}));
}

TEST(PictureBoxSurface, ClsWithAutoRedrawOnTakesTheScreenLayerToo) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0);
    panel.setAutoRedraw(true);
    EXPECT_EQ(panel.shownText(), (Rows{"#."}));
    panel.Cls();
    EXPECT_EQ(panel.shownText(), (Rows{".."}));
}

TEST(PictureBoxSurface, TheScreenLayerIsInNoImageAndNoCopyOfTheBits) {
    TestPanel panel(Rows{"R."});
    panel.setAutoRedraw(false);
    panel.Line(0, 0, 2, 0);
    EXPECT_EQ(panel.text(), (Rows{"R."}));
    EXPECT_EQ(panel.shownText(), (Rows{"##"}));
    std::array<PixelWord, 2> words{};
    EXPECT_EQ(panel.GetBitmapBits(8, words), 8);
    EXPECT_EQ(words[0], 0xFF0000);
    EXPECT_EQ(words[1], 0);
}

TEST(PictureBoxSurface, TheScreenLayerLiesOverImageAndGathersDrawings) {
    TestPanel panel(Rows{"R.G"});
    panel.setAutoRedraw(false);
    panel.PSet(1, 0);
    panel.PSet(0, 0, kBlue);
    EXPECT_EQ(panel.shownText(), (Rows{"B#G"}));
}

TEST(PictureBoxSurface, RefreshTakesTheScreenLayerAway) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0);
    panel.Refresh();
    EXPECT_EQ(panel.shownText(), (Rows{".."}));
    EXPECT_FALSE(panel.hasScreenLayer());
}

TEST(PictureBoxSurface, DrawingIntoImagePaintsThePanelAfreshWithoutTheLayer) {
    TestPanel panel(3, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0);
    panel.setAutoRedraw(true);
    panel.PSet(2, 0, kRed);
    EXPECT_EQ(panel.shownText(), (Rows{"..R"}));
}

TEST(PictureBoxSurface, ABackColourErasesWhatWasDrawnEvenWhenItIsTheSame) {
    TestPanel panel(Rows{"R.."});
    panel.PSet(1, 0);
    panel.setBackColor(kBlack);
    EXPECT_EQ(panel.text(), (Rows{"R.."}));
    panel.PSet(1, 0);
    panel.setAutoRedraw(false);
    panel.PSet(2, 0);
    panel.setBackColor(RGB(0, 255, 255));
    EXPECT_EQ(panel.BackColor(), RGB(0, 255, 255));
    // The ground shows only where Picture does not lie.
    EXPECT_EQ(panel.shownText(), (Rows{"R.."}));
    panel.setPicture({});
    EXPECT_EQ(panel.text(), (Rows{"CCC"}));
}

TEST(PictureBoxSurface, AColourValueHasRedLowestAndAPixelWordBlueLowest) {
    TestPanel panel(1, 1);
    panel.PSet(0, 0, RGB(0x12, 0x34, 0x56));
    EXPECT_EQ(panel.Image().at(0, 0), 0x123456);
    EXPECT_EQ(panel.GetPixel(0, 0), 0x563412);
}

TEST(PictureBoxSurface, GetPixelIsMinusOneOffThePanel) {
    TestPanel panel(Rows{"RG", "B#"});
    EXPECT_EQ(panel.GetPixel(0, 0), kRed.value);
    EXPECT_EQ(panel.GetPixel(1, 1), kWhite.value);
    for (const auto& [x, y] :
         {std::pair{-1, 0}, {0, -1}, {2, 0}, {0, 2}, {1'000'000'000, -1'000'000'000}})
        EXPECT_EQ(panel.GetPixel(x, y), -1) << x << ' ' << y;
}

TEST(PictureBoxSurface, GetPixelReadsWhatThePanelShows) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(1, 0, kGreen);
    EXPECT_EQ(panel.GetPixel(1, 0), kGreen.value);
    panel.Cls();
    EXPECT_EQ(panel.GetPixel(1, 0), 0);
}

TEST(PictureBoxSurface, GrowingShowsPictureOverGroundWhereTheSurfaceIsNew) {
    TestPanel panel(2, 1);
    panel.setPicture(pictureOf({"RGB", "BGR"}));
    panel.PSet(0, 0);
    panel.Width = 60;
    panel.Height = 45;
    EXPECT_EQ(panel.text(), (Rows{"#GB.", "BGR.", "...."}));
}

TEST(PictureBoxSurface, ShrinkingForgetsWhatLiesBeyondTheNewSize) {
    TestPanel panel(3, 2);
    panel.Box(0, 0, 2, 1, kWhite, BoxStyle::Filled);
    panel.Width = 15;
    EXPECT_EQ(panel.text(), (Rows{"#", "#"}));
    panel.Move(0, 0, 45, 45);
    EXPECT_EQ(panel.text(), (Rows{"#..", "#..", "..."}));
}

TEST(PictureBoxSurface, AnotherSizeTakesTheScreenLayerAway) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0);
    panel.Width = 45;
    EXPECT_EQ(panel.shownText(), (Rows{"..."}));
}

TEST(PictureBoxSurface, APropertyThatKeepsTheSizeKeepsTheDrawing) {
    TestPanel panel(2, 1);
    panel.PSet(0, 0);
    panel.setAutoRedraw(false);
    panel.PSet(1, 0);
    panel.Left = 300;
    panel.Visible = false;
    EXPECT_EQ(panel.text(), (Rows{"#."}));
    EXPECT_EQ(panel.shownText(), (Rows{"##"}));
}

TEST(PictureBoxSurface, AutoSizeGivesTheSurfaceTheSizeOfThePicture) {
    PictureBox box("img", 15.0F, 15.0F, Integer{0});
    box.AutoSize = true;
    box.setPicture(pictureOf({"RGB", "#.#"}));
    EXPECT_EQ(textOf(box.Image()), (Rows{"RGB", "#.#"}));
    EXPECT_EQ(box.Width, 45.0F);
    EXPECT_EQ(box.Height, 30.0F);
    box.BorderStyle = 1;
    box.setPicture(pictureOf({"RGB", "#.#"}));
    EXPECT_EQ(textOf(box.Image()), (Rows{"RGB", "#.#"}));
    EXPECT_EQ(box.Width, 75.0F);
    box.setPicture({});
    EXPECT_EQ(textOf(box.Image()), (Rows{"###", "###"}));
}

TEST(PictureBoxSurface, BitsAreWordsRowAfterRowFromTheTop) {
    TestPanel panel(Rows{"RG", "B#"});
    std::array<PixelWord, 4> words{};
    EXPECT_EQ(panel.GetBitmapBits(16, words), 16);
    EXPECT_EQ(words, (std::array<PixelWord, 4>{0xFF0000, 0x00FF00, 0x0000FF, 0xFFFFFF}));
    // The lowest byte of a word is blue.
    EXPECT_EQ(words[2] & 0xFF, 0xFF);
}

TEST(PictureBoxSurface, FewerBitsThanAskedForMeanASmallerSurface) {
    TestPanel panel(Rows{"RG", "B#"});
    std::array<PixelWord, 6> words{7, 7, 7, 7, 7, 7};
    EXPECT_EQ(panel.GetBitmapBits(24, words), 16);
    EXPECT_EQ(words[3], 0xFFFFFF);
    EXPECT_EQ(words[4], 7);
    EXPECT_EQ(panel.GetBitmapBits(-4, words), 0);
    EXPECT_EQ(panel.GetBitmapBits(16, std::span(words).first(2)), 8);
}

TEST(PictureBoxSurface, BitsCanEndInsideAWordLowestByteFirst) {
    TestPanel panel(2, 1);
    panel.PSet(0, 0, RGB(0x11, 0x22, 0x33));
    panel.PSet(1, 0, RGB(0x44, 0x55, 0x66));
    std::array<PixelWord, 2> words{0x0A0B0C0D, 0x0A0B0C0D};
    EXPECT_EQ(panel.GetBitmapBits(6, words), 6);
    EXPECT_EQ(words, (std::array<PixelWord, 2>{0x112233, 0x0A0B5566}));
    words = {0x778899, 0xAABBCC};
    panel.SetBitmapBits(5, words);
    EXPECT_EQ(panel.Image().words, (std::vector<PixelWord>{0x778899, 0x4455CC}));
}

TEST(PictureBoxSurface, BitsAreWrittenAsTheyAre) {
    const Bitmap picture = randomPicture(5, 4, 21);
    TestPanel panel(5, 4);
    panel.SetBitmapBits(80, picture.words);
    EXPECT_EQ(panel.Image(), picture);
    // Words beyond the surface are left out, words that are missing leave it alone.
    const std::vector<PixelWord> many(30, 0x010203);
    panel.SetBitmapBits(120, many);
    EXPECT_EQ(panel.Image(), Bitmap(5, 4, 0x010203));
    panel.SetBitmapBits(80, std::span(picture.words).first(5));
    EXPECT_TRUE(std::ranges::equal(panel.Image().row(0), picture.row(0)));
    EXPECT_EQ(panel.Image().at(0, 1), 0x010203);
}

TEST(PictureBoxSurface, PaintedBitsAreWrittenInPlaceAndTakeTheScreenLayerAway) {
    TestPanel panel(2, 2);
    RecordingWatcher watcher;
    panel.setAutoRedraw(false);
    panel.PSet(0, 0, kRed);
    panel.watch(&watcher);
    panel.PaintBitmapBits(12, [&](std::span<PixelWord> words) {
        EXPECT_EQ(words.size(), 3U);
        EXPECT_EQ(words.data(), panel.Image().words.data());
        std::ranges::fill(words, 0x00FF00);
    });
    EXPECT_EQ(panel.shownText(), (Rows{"GG", "G."}));
    EXPECT_EQ(watcher.log, (Rows{"stale pb1"}));
}

TEST(PictureBoxSurface, PaintedBitsThatTheSurfaceDoesNotHoldAreLeftOut) {
    TestPanel panel(2, 1);
    panel.PaintBitmapBits(12, [](std::span<PixelWord> words) {
        ASSERT_EQ(words.size(), 3U);
        words[0] = words[2] = 0x00FF00;
        words[1] = 0xFFFFFF;
    });
    EXPECT_EQ(panel.shownText(), (Rows{"G#"}));
}

TEST(PictureBoxSurface, APaintingThatFailsBeforeItWritesChangesNothing) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0, kRed);
    const auto fail = [](std::span<PixelWord>) { throw RunTimeError(ErrorNumber::Overflow); };
    EXPECT_THROW(panel.PaintBitmapBits(8, fail), RunTimeError);
    EXPECT_EQ(panel.shownText(), (Rows{"R."}));
    EXPECT_TRUE(panel.hasScreenLayer());
}

TEST(PictureBoxSurface, WrittenBitsGoIntoImageWhateverAutoRedraw) {
    TestPanel panel(1, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0, kRed);
    const std::array<PixelWord, 1> words{0xFFFFFF};
    panel.SetBitmapBits(4, words);
    EXPECT_EQ(panel.text(), (Rows{"#"}));
    EXPECT_EQ(panel.shownText(), (Rows{"#"}));
}

TEST(PictureBoxSurface, AWatcherHearsOfEveryChangeOfThePicture) {
    TestPanel panel(3, 3);
    RecordingWatcher watcher;
    panel.watch(&watcher);
    const auto tells = [&](const auto& action) {
        watcher.log.clear();
        action();
        return watcher.log == Rows{"stale pb1"};
    };
    const Bitmap source = pictureOf({"RG"});
    EXPECT_TRUE(tells([&] { panel.Line(0, 0, 2, 2); }));
    EXPECT_TRUE(tells([&] { panel.Box(0, 0, 2, 2, kRed, BoxStyle::Filled); }));
    EXPECT_TRUE(tells([&] { panel.PSet(0, 0); }));
    EXPECT_TRUE(tells([&] { panel.SetPixelV(0, 0, kRed); }));
    EXPECT_TRUE(tells([&] { panel.Polyline({}); }));
    EXPECT_TRUE(tells([&] { panel.BitBlt({0, 0, 2, 2}, source, 0, 0); }));
    EXPECT_TRUE(tells([&] { panel.PaintPicture(source, 0, 0); }));
    EXPECT_TRUE(tells([&] { panel.PaintPictureStretched(source, {0, 0, 3, 3}); }));
    EXPECT_TRUE(tells([&] { panel.StretchArea({0, 0, 3, 3}, source, {0, 0, 1, 1}); }));
    EXPECT_TRUE(tells([&] { panel.FillAroundEllipse(0, 0, 3, 3, kRed); }));
    EXPECT_TRUE(tells([&] { panel.setPicture(source); }));
    EXPECT_TRUE(tells([&] { panel.setBackColor(kBlack); }));
    EXPECT_TRUE(tells([&] { panel.Cls(); }));
    EXPECT_TRUE(tells([&] { panel.SetBitmapBits(4, source.words); }));
    EXPECT_TRUE(tells([&] { panel.Width = 30; }));
    // A pixel off the panel changes nothing.
    EXPECT_FALSE(tells([&] { panel.SetPixelV(9, 9, kRed); }));
}

TEST(PictureBoxSurface, RefreshShowsThePanelNow) {
    TestPanel panel(2, 1);
    RecordingWatcher watcher;
    panel.watch(&watcher);
    Rows atThatMoment;
    watcher.onShow = [&](Control&) { atThatMoment = panel.shownText(); };
    panel.setAutoRedraw(false);
    panel.PSet(0, 0);
    watcher.log.clear();
    panel.Refresh();
    EXPECT_EQ(watcher.log, (Rows{"showNow pb1"}));
    EXPECT_EQ(atThatMoment, (Rows{".."}));
}

TEST(PictureBoxSurface, BitsCanBeWrittenInPlace) {
    TestPanel panel(2, 1);
    panel.bits()[1] = 0x00FF00;
    panel.Refresh();
    EXPECT_EQ(panel.shownText(), (Rows{".G"}));
}

}  // namespace
}  // namespace quillon
