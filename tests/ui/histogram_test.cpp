#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// Of the box's surface, in pixels.
constexpr int kBoxHeight = 116;

class HistogramBox : public CommandFixture {
protected:
    HistogramBox() { desktop.log.clear(); }

    struct Slow {
        std::array<Long, 256> counts{};
        int least = 255;
        int most = 0;
        Long top = 0;
        long percent(std::size_t i) const {
            return std::lrint(static_cast<double>(counts[i]) * 100 / static_cast<double>(top));
        }
    };
    /// Counts the red bytes of what a panel shows.
    static Slow slowCounts(const PictureBox& panel) {
        Slow slow;
        for (const PixelWord word : panel.shown().words) {
            const int red = word >> 16 & 0xFF;
            slow.least = std::min(slow.least, red);
            slow.most = std::max(slow.most, red);
            slow.top = std::max(slow.top, ++slow.counts[static_cast<std::size_t>(red)]);
        }
        return slow;
    }
    void expectShown(const PictureBox& panel) {
        const Slow slow = slowCounts(panel);
        EXPECT_EQ(form.LHIST.Caption.get(),
                  "grayrange: " + std::to_string(slow.least) + " to " + std::to_string(slow.most));
        const PixelWord bar = toPixelWord(form.lab.guiColors[0]);
        const PixelWord ground = toPixelWord(form.lab.guiColors[1]);
        for (std::size_t i = 0; i < 256; ++i) {
            ASSERT_EQ(form.histogram().hist[i], slow.percent(i)) << panel.Name << " " << i;
            for (int y = 0; y < kBoxHeight; ++y)
                ASSERT_EQ(form.pbh.shown().at(static_cast<int>(i), y),
                          y >= kBoxHeight - slow.percent(i) ? bar : ground)
                    << panel.Name << " " << i << ", " << y;
        }
    }
};

TEST_F(HistogramBox, CountsEachPanelOnRequest) {
    EXPECT_FALSE(form.pbh.Visible);
    for (Integer id = 1; id <= 6; ++id) {
        form.pbh.Visible = false;
        form.getHistogram(form.lab.panel(id));
        EXPECT_TRUE(form.pbh.Visible) << id;
        expectShown(form.lab.panel(id));
    }
}

TEST_F(HistogramBox, CountsMarksAndMasksAsTheyAreOnEveryPanel) {
    for (const Channel which : kBoth) {
        // Drawn on the image by hand.
        image(which).Line(0, 0, 255, 255, kRed);
        image(which).Box(30, 40, 90, 60, RGB(7, 0, 0), BoxStyle::Filled);
        form.getHistogram(image(which));
        expectShown(image(which));
        EXPECT_EQ(form.histogram().grayMax, 255);

        PictureBox& panel = spectrum(which);
        form.getHistogram(panel);
        const Histogram bare = form.histogram();
        clickFilter(which, 12);
        channel(which).AddMask(20, 30, 120, 90);
        form.DrawMasks(-1);
        form.getHistogram(panel);
        expectShown(panel);
        EXPECT_NE(form.histogram().hist, bare.hist) << "the outline of a mask";
        clickFilter(which, 10);
        ASSERT_TRUE(panel.hasScreenLayer()) << "the dark surround of a low-pass";
        form.getHistogram(panel);
        expectShown(panel);
        EXPECT_EQ(form.histogram().hist[0], 100);

        channel(which).draw3DFT();
        reconstruction(which).Line(0, 200, 255, 200, RGB(3, 0, 0));
        form.getHistogram(reconstruction(which));
        expectShown(reconstruction(which));
    }
}

TEST_F(HistogramBox, OfAUniformPanelIsOneBar) {
    form.pb3.setPicture(Bitmap(256, 256, 0x4D4D4D));
    form.getHistogram(form.pb3);
    EXPECT_EQ(form.LHIST.Caption.get(), "grayrange: 77 to 77");
    for (std::size_t i = 0; i < 256; ++i)
        EXPECT_EQ(form.histogram().hist[i], i == 77 ? 100 : 0);
    expectShown(form.pb3);
}

TEST_F(HistogramBox, TellsLevelsThatAreTooFewForABar) {
    Bitmap picture(256, 256, 0x646464);
    picture.at(9, 9) = 0x030303;
    picture.at(200, 9) = 0xFAFAFA;
    form.pb1.setPicture(picture);
    form.getHistogram(form.pb1);
    EXPECT_EQ(form.LHIST.Caption.get(), "grayrange: 3 to 250");
    EXPECT_EQ(form.histogram().hist[3], 0);
    expectShown(form.pb1);
}

TEST_F(HistogramBox, ShowsTheRangeBeforeTheBoxAndTheBoxAtTheEnd) {
    form.getHistogram(form.pb1);
    EXPECT_LT(placeOf("showNow LHIST"), placeOf("showNow pbh"));
    EXPECT_EQ(shown(form.pbh), 1);
    bool visibleWhileDrawn = true;
    form.pbh.Visible = false;
    watcher.onShow = [&](Control& control) {
        if (&control == &form.pbh)
            visibleWhileDrawn = form.pbh.Visible;
    };
    form.getHistogram(form.pb1);
    EXPECT_FALSE(visibleWhileDrawn);
}

TEST_F(HistogramBox, IsASnapshotUntilTheNextRequest) {
    form.getHistogram(form.pb1);
    const Bitmap before = form.pbh.shown();
    form.pb1.setPicture(Bitmap(256, 256, 0x101010));
    form.lab.channel1.CalculateAll();
    EXPECT_TRUE(form.pbh.shown() == before);
    form.getHistogram(form.pb1);
    EXPECT_FALSE(form.pbh.shown() == before);
    expectShown(form.pb1);
}

TEST_F(HistogramBox, OfAPanelWithoutAPixelFailsAtTheDivision) {
    form.getHistogram(form.pb1);
    const Bitmap before = form.pbh.shown();
    form.pbh.Visible = false;
    PictureBox empty("pb1", 0, 0);
    EXPECT_EQ(errorOf([&] { form.getHistogram(empty); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(form.LHIST.Caption.get(), "grayrange: 255 to 0");
    EXPECT_TRUE(form.pbh.shown() == before);
    EXPECT_FALSE(form.pbh.Visible);
}

TEST_F(HistogramBox, DrawsInTheColoursOfTheScheme) {
    for (const Integer scheme : {Integer{0}, Integer{1}, Integer{4}}) {
        form.itmOpt0(scheme);
        form.getHistogram(form.pb4);
        expectShown(form.pb4);
    }
}

TEST_F(HistogramBox, KeepsItsBarsInTheColoursOfANewScheme) {
    form.getHistogram(form.pb4);
    for (const Integer scheme : {Integer{0}, Integer{1}, Integer{3}, Integer{4}}) {
        form.itmOpt0(scheme);
        expectShown(form.pb4);
    }
    // What the panel shows now is not counted anew.
    const Bitmap before = form.pbh.shown();
    form.pb4.setPicture(Bitmap(256, 256, 0x101010));
    form.itmOpt0(4);
    EXPECT_TRUE(form.pbh.shown() == before);
}

TEST_F(HistogramBox, ThatIsClosedHasItsColoursWhenItOpensAgainAndStaysClosed) {
    form.getHistogram(form.pb4);
    form.pbh.Visible = false;
    form.itmOpt0(1);
    EXPECT_FALSE(form.pbh.Visible);
    expectShown(form.pb4);
}

TEST_F(HistogramBox, ThatWasNeverAskedForIsEmptyInEveryScheme) {
    form.itmOpt0(1);
    EXPECT_EQ(form.pbh.shown(), Bitmap(257, kBoxHeight, toPixelWord(form.lab.guiColors[1])));
}

TEST_F(HistogramBox, ABarOfFullHeightEndsBelowTheText) {
    form.pb3.setPicture(Bitmap(256, 256, 0x0A0A0A));
    form.getHistogram(form.pb3);
    const PixelWord ground = toPixelWord(form.lab.guiColors[1]);
    const auto textEnd = static_cast<int>((form.LHIST.Top + form.LHIST.Height) / kTwipsPerPixel);
    for (int y = 0; y < textEnd; ++y)
        EXPECT_EQ(form.pbh.shown().at(10, y), ground) << y;
    EXPECT_GE(form.LHIST.Top + form.LHIST.Height, form.lbHIS.Top + form.lbHIS.Height);
}

TEST_F(HistogramBox, ReadsLevelAndPercentUnderThePointer) {
    form.MouseMove(form.pbh, 0, 0, 77, 16);
    EXPECT_EQ(form.pbh.ToolTipText.get(), "77 , 100%");
    form.MouseMove(form.pbh, 0, 0, 0, 116);
    EXPECT_EQ(form.pbh.ToolTipText.get(), "0 , 0%");
    form.MouseMove(form.pbh, 0, 0, 12.5F, 65.25F);
    EXPECT_EQ(form.pbh.ToolTipText.get(), "12.5 , 50.75%");
}

TEST_F(HistogramBox, IsDraggedByTheLeftButtonAlone) {
    for (const Integer button : {kRightButton, kMiddleButton, Integer{3}})
        form.MouseDown(form.pbh, button, 0, 9, 9);
    for (const Integer shift : {kShiftKey, kCtrlKey, kAltKey, Integer{3}})
        form.MouseDown(form.pbh, kLeftButton, shift, 9, 9);
    EXPECT_TRUE(desktop.screen.dragged.empty());
    form.MouseDown(form.pbh, kLeftButton, 0, 9, 9);
    EXPECT_EQ(desktop.screen.dragged, std::vector<std::string>{"pbh"});
}

TEST_F(HistogramBox, GivesThePointerBackAtTheRelease) {
    form.MousePointer = kPointerFourArrows;
    form.MouseUp(form.pbh, kLeftButton, 0, 9, 9);
    EXPECT_EQ(form.MousePointer, kPointerDefault);
}

TEST_F(HistogramBox, ClosesAtTheReleaseOfAnyButtonOnItsMark) {
    EXPECT_EQ(form.lbHIS.Caption.get(), "[x]");
    EXPECT_EQ(form.lbHIS.ToolTipText.get(), "Close Histogram");
    for (const Integer button : {kLeftButton, kRightButton, kMiddleButton}) {
        form.getHistogram(form.pb1);
        form.MouseDown(form.lbHIS, button, 0, 30, 30);
        EXPECT_TRUE(form.pbh.Visible);
        form.MouseUp(form.lbHIS, button, 0, 30, 30);
        EXPECT_FALSE(form.pbh.Visible);
    }
}

TEST_F(HistogramBox, TakesTheLowByteOfAColourWithItsSign) {
    Integer g = 0;
    form.getGray(0x0A0BFF, g);
    EXPECT_EQ(g, 255);
    form.getGray(-1, g);
    EXPECT_EQ(g, -1);
}

}  // namespace
}  // namespace quillon
