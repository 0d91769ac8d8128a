// Bit copies, pictures and text painted on the panel surface.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

#include "engine/Desktop.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/TestPanel.h"

namespace quillon {
namespace {

TEST(PictureBoxCopies, ABitCopyTakesAnAreaFromItsPlaceInTheSource) {
    TestPanel panel(4, 3);
    panel.BitBlt({1, 0, 2, 2}, pictureOf({"...", ".RG", ".B#"}), 1, 1);
    EXPECT_EQ(panel.text(), (Rows{".RG.", ".B#.", "...."}));
}

TEST(PictureBoxCopies, WhatLiesOffTheSourceOrOffThePanelIsLeftOut) {
    const Bitmap source = pictureOf({"RG", "B#"});
    TestPanel panel(3, 3);
    panel.BitBlt({2, 2, 99, 99}, source, 0, 0);
    panel.BitBlt({-1, -1, 2, 2}, source, 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"#..", "...", "..R"}));
    panel.Cls();
    // The source's own corner may lie off the source.
    panel.BitBlt({0, 0, 3, 3}, source, -1, -1);
    EXPECT_EQ(panel.text(), (Rows{"...", ".RG", ".B#"}));
    panel.Cls();
    panel.BitBlt({-2, 0, 2, 2}, source, 0, 0);
    panel.BitBlt({0, 3, 2, 2}, source, 0, 0);
    panel.BitBlt({0, 0, 2, 2}, source, 2, 0);
    panel.BitBlt({0, 0, 0, 2}, source, 0, 0);
    panel.BitBlt({0, 0, -2, 2}, source, 0, 0);
    panel.BitBlt({0, 0, 3, 3}, Bitmap{}, 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"...", "...", "..."}));
}

TEST(PictureBoxCopies, EveryBitCopyIsTheSlowOne) {
    constexpr unsigned kSeed = 31;
    SCOPED_TRACE(kSeed);
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> number(-12, 20);
    const Bitmap source = randomPicture(7, 9, kSeed);
    for (int round = 0; round < 2000; ++round) {
        TestPanel panel(11, 6);
        const PixelArea area{number(random), number(random), number(random), number(random)};
        const int left = number(random);
        const int top = number(random);
        Bitmap expected = panel.Image();
        for (int y = 0; y < area.height; ++y)
            for (int x = 0; x < area.width; ++x)
                if (source.contains(left + x, top + y) &&
                    expected.contains(area.left + x, area.top + y))
                    expected.at(area.left + x, area.top + y) = source.at(left + x, top + y);
        panel.BitBlt(area, source, left, top);
        ASSERT_EQ(panel.Image(), expected);
    }
}

TEST(PictureBoxCopies, TheFarthestAreasNeitherOverflowNorTakeLong) {
    constexpr int kFar = 2'147'483'647;
    const Bitmap source = pictureOf({"RG"});
    TestPanel panel(2, 2);
    panel.BitBlt({-kFar - 1, 0, kFar, 1}, source, -kFar - 1, 0);
    panel.BitBlt({kFar, kFar, kFar, kFar}, source, kFar, kFar);
    panel.PaintPicture(source, -2e9F, 2e9F);
    panel.PaintPictureStretched(source, {-kFar - 1, -kFar - 1, kFar, kFar});
    panel.PaintPictureStretched(source, {kFar, 0, kFar, 1});
    panel.StretchArea({kFar, kFar, kFar, kFar}, source, {kFar, kFar, kFar, kFar});
    EXPECT_EQ(panel.text(), (Rows{"..", ".."}));
    panel.BitBlt({0, 0, kFar, kFar}, source, 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"RG", ".."}));
    // Of an enlargement as large as can be only what is seen is made.
    panel.PaintPictureStretched(source, {-kFar / 2 + 1, -5, kFar, kFar});
    EXPECT_EQ(panel.text(), (Rows{"RG", "RG"}));
}

TEST(PictureBoxCopies, APanelCanBeCopiedOntoItself) {
    TestPanel panel(Rows{"RGB", "#.."});
    panel.BitBlt({1, 1, 3, 2}, panel.Image(), 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"RGB", "#RG"}));
    panel.BitBlt({1, 0, 2, 1}, panel.Image(), 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"RRG", "#RG"}));
    panel.PaintPicture(panel.Image(), 1, 0);
    EXPECT_EQ(panel.text(), (Rows{"RRR", "##R"}));
}

TEST(PictureBoxCopies, TheShownLayerCanBeCopiedIntoImage) {
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.PSet(0, 0, kRed);
    panel.setAutoRedraw(true);
    panel.BitBlt({0, 0, 2, 1}, panel.shown(), 0, 0);
    EXPECT_EQ(panel.text(), (Rows{"R."}));
}

TEST(PictureBoxCopies, CopiesGoOntoTheScreenLayerWithAutoRedrawOff) {
    const Bitmap source = pictureOf({"RG"});
    TestPanel panel(2, 1);
    panel.setAutoRedraw(false);
    panel.BitBlt({0, 0, 2, 1}, source, 0, 0);
    EXPECT_EQ(panel.shownText(), (Rows{"RG"}));
    panel.Refresh();
    panel.PaintPictureStretched(source, {0, 0, 2, 1});
    panel.StretchArea({0, 0, 1, 1}, source, {1, 0, 1, 1});
    EXPECT_EQ(panel.shownText(), (Rows{"GG"}));
    panel.Refresh();
    panel.FillAroundEllipse(0, 0, 0, 0, kRed);
    EXPECT_EQ(panel.shownText(), (Rows{"RR"}));
    EXPECT_EQ(panel.text(), (Rows{".."}));
}

/// The nine copies that roll a panel's picture.
void roll(PictureBox& panel, const Bitmap& source, int dx, int dy) {
    const int w = panel.Image().width;
    const int h = panel.Image().height;
    const std::array<std::array<int, 2>, 9> corners{{{dx - w, dy + h},
                                                     {dx + w, dy},
                                                     {dx - w, dy},
                                                     {dx, dy + h},
                                                     {dx, dy - h},
                                                     {dx + w, dy + h},
                                                     {dx - w, dy - h},
                                                     {dx + w, dy - h},
                                                     {dx, dy}}};
    // The size handed over is that of the control in twips: the source's own
    // edge limits each copy.
    for (const auto& [x, y] : corners)
        panel.BitBlt({x, y, 15 * w, 15 * h}, source, 0, 0);
}

TEST(PictureBoxCopies, NineCopiesRollThePictureRoundItsEdges) {
    const int w = 8;
    const int h = 6;
    const Bitmap source = randomPicture(w, h, 32);
    for (int dx = -w; dx <= w; ++dx) {
        for (int dy = -h; dy <= h; ++dy) {
            TestPanel panel(w, h);
            panel.setBackColor(kRed);
            roll(panel, source, dx, dy);
            Bitmap expected(w, h);
            for (int y = 0; y < h; ++y)
                for (int x = 0; x < w; ++x)
                    expected.at((x + dx + w) % w, (y + dy + h) % h) = source.at(x, y);
            ASSERT_EQ(panel.Image(), expected) << dx << ' ' << dy;
        }
    }
}

TEST(PictureBoxCopies, TheComplementKeepsTheTopByteZeroAndTwiceRestores) {
    const Bitmap picture = randomPicture(9, 7, 33);
    TestPanel panel(9, 7);
    panel.BitBlt({0, 0, 9, 7}, picture, 0, 0, RasterOperation::NotSourceCopy);
    for (std::size_t i = 0; i < picture.words.size(); ++i)
        ASSERT_EQ(panel.Image().words[i], 0xFFFFFF - picture.words[i]);
    panel.BitBlt({0, 0, 9, 7}, panel.Image(), 0, 0, RasterOperation::NotSourceCopy);
    EXPECT_EQ(panel.Image(), picture);
}

TEST(PictureBoxCopies, InvertingCommitsWhatIsDrawnAndTwiceRestoresIt) {
    TestPanel panel(Rows{"R.."});
    panel.PSet(1, 0);
    panel.InvertPicture();
    EXPECT_EQ(panel.text(), (Rows{"C.#"}));
    EXPECT_EQ(textOf(panel.Picture()), (Rows{"R#."}));
    panel.InvertPicture();
    EXPECT_EQ(panel.text(), (Rows{"R#."}));
    PictureBox none("pb1", 0, 0);
    none.InvertPicture();
    EXPECT_TRUE(none.Image().empty());
}

TEST(PictureBoxCopies, APictureIsPaintedUnstretchedAtAPoint) {
    TestPanel panel(4, 3);
    panel.PaintPicture(pictureOf({"RG", "B#"}), 1, 1);
    EXPECT_EQ(panel.text(), (Rows{"....", ".RG.", ".B#."}));
    panel.PaintPicture(pictureOf({"RG", "B#"}), -1, 2, RasterOperation::NotSourceCopy);
    EXPECT_EQ(panel.text(), (Rows{"....", ".RG.", "MB#."}));
    EXPECT_TRUE(panel.Picture().empty());
}

TEST(PictureBoxCopies, TheEmptyPictureCannotBePainted) {
    TestPanel panel(2, 2);
    for (const auto& paint :
         {std::function<void()>([&] { panel.PaintPicture({}, 0, 0); }), std::function<void()>([&] {
              panel.PaintPictureStretched({}, {0, 0, 2, 2});
          })}) {
        try {
            paint();
            ADD_FAILURE() << "no error was raised";
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.number(), ErrorNumber::InvalidPicture);
        }
    }
}

TEST(PictureBoxCopies, AStretchedPictureFillsItsAreaAndLeavesTheRest) {
    TestPanel panel(6, 4);
    panel.PaintPictureStretched(pictureOf({"RG"}), {1, 1, 4, 2});
    EXPECT_EQ(panel.text(), (Rows{"......", ".RRGG.", ".RRGG.", "......"}));
}

TEST(PictureBoxCopies, AStretchedPictureIsCutToThePanelOnAllSides) {
    const Bitmap source = randomPicture(40, 30, 34);
    for (const auto& [width, height] : {std::pair{17, 13}, {90, 70}, {17, 70}, {40, 30}}) {
        const Bitmap whole = stretched(source, width, height);
        TestPanel panel(9, 8);
        panel.PaintPictureStretched(source, {-3, -2, width, height});
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 9; ++x)
                ASSERT_EQ(panel.Image().at(x, y), whole.at(x + 3, y + 2));
        panel.Cls();
        panel.PaintPictureStretched(source, {7, 5, width, height});
        EXPECT_EQ(panel.Image().at(6, 5), 0);
        EXPECT_EQ(panel.Image().at(7, 5), whole.at(0, 0));
        EXPECT_EQ(panel.Image().at(8, 7), whole.at(1, 2));
    }
}

TEST(PictureBoxCopies, AnAreaWithoutAPixelTakesNoPicture) {
    const Bitmap source = pictureOf({"RG"});
    TestPanel panel(2, 1);
    panel.PaintPictureStretched(source, {0, 0, 0, 1});
    panel.PaintPictureStretched(source, {0, 0, 2, -1});
    panel.PaintPictureStretched(source, {5, 0, 2, 1});
    panel.StretchArea({0, 0, 2, 1}, source, {0, 0, 0, 1});
    panel.StretchArea({0, 0, -2, 1}, source, {0, 0, 2, 1});
    EXPECT_EQ(panel.text(), (Rows{".."}));
}

TEST(PictureBoxCopies, APartIsMagnifiedWithSquarePixels) {
    TestPanel panel(6, 4);
    panel.StretchArea({0, 0, 6, 4}, pictureOf({"....", ".RG.", ".B#.", "...."}), {1, 1, 2, 2});
    EXPECT_EQ(panel.text(), (Rows{"RRRGGG", "RRRGGG", "BBB###", "BBB###"}));
}

TEST(PictureBoxCopies, WhereAPartReachesOffTheSourceThePanelKeepsWhatItShows) {
    const Bitmap source = pictureOf({"RG", "B#"});
    TestPanel panel(6, 6);
    panel.setBackColor(RGB(255, 255, 0));
    panel.StretchArea({0, 0, 6, 6}, source, {-1, -1, 3, 3});
    EXPECT_EQ(panel.text(), (Rows{"YYYYYY", "YYYYYY", "YYRRGG", "YYRRGG", "YYBB##", "YYBB##"}));
    panel.Cls();
    panel.StretchArea({0, 0, 6, 6}, source, {1, 1, 3, 3});
    EXPECT_EQ(panel.text(), (Rows{"##YYYY", "##YYYY", "YYYYYY", "YYYYYY", "YYYYYY", "YYYYYY"}));
}

TEST(PictureBoxCopies, FiftyOnePixelsFillTwoHundredAndFiftySixByTheirCentres) {
    const Bitmap source = randomPicture(256, 256, 35);
    TestPanel panel(256, 256);
    panel.StretchArea({0, 0, 256, 256}, source, {100 - 25, 90 - 25, 51, 51});
    for (int y = 0; y < 256; ++y)
        for (int x = 0; x < 256; ++x)
            ASSERT_EQ(panel.Image().at(x, y),
                      source.at(75 + static_cast<int>((x + 0.5) * 51 / 256),
                                65 + static_cast<int>((y + 0.5) * 51 / 256)));
}

TEST(PictureBoxCopies, APartOfThePanelItselfCanBeMagnified) {
    TestPanel panel(Rows{"RG..", "...."});
    panel.StretchArea({0, 0, 4, 2}, panel.Image(), {0, 0, 2, 1});
    EXPECT_EQ(panel.text(), (Rows{"RRGG", "RRGG"}));
}

TEST(PictureBoxCopies, TextIsPaintedInThePanelsFontAndForeColor) {
    RecordingDesktop desktop;
    TestPanel panel(20, 10);
    panel.ForeColor = kRed;
    panel.FontName = Font::TimesNewRoman;
    panel.FontSize = 10;
    panel.TextOut(desktop.text, 3, 1, "ab");
    EXPECT_EQ(
        desktop.text.texts,
        (std::vector<RecordingTextPainter::Text>{{"ab", 3, 1, Font::TimesNewRoman, 10.0F, kRed}}));
    EXPECT_EQ(panel.text()[0], "....................");
    EXPECT_EQ(panel.text()[1], "...RRRRRRRRRRRR.....");
    panel.setAutoRedraw(false);
    panel.TextOut(desktop.text, 0, 0, "c");
    EXPECT_EQ(panel.text()[0], "....................");
    EXPECT_EQ(panel.shownText()[0], "RRRRRR..............");
}

/// Leaves 255 in the top byte, as painters of opaque pictures do.
class OpaquePainter : public RecordingTextPainter {
public:
    using RecordingTextPainter::RecordingTextPainter;
    void draw(Bitmap& canvas, int, int, const std::string&, Font, Single, ColorValue) override {
        canvas.at(0, 0) = static_cast<PixelWord>(0xFF123456);
    }
};

TEST(PictureBoxCopies, TextLeavesTheTopByteZero) {
    CallLog log;
    OpaquePainter painter(log);
    TestPanel panel(1, 1);
    panel.TextOut(painter, 0, 0, "a");
    EXPECT_EQ(panel.Image().at(0, 0), 0x123456);
}

}  // namespace
}  // namespace quillon
