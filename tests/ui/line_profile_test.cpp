#include <array>
#include <cmath>
#include <vector>

#include "engine/NumberText.h"
#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// The profile over the reconstruction panel while Alt is held.
class ProfilePlot : public CommandFixture {
protected:
    void altOver(Channel which, Single x, Single y) {
        form.MouseMove(spectrum(which), 0, kAltKey, x, y);
    }
};

TEST_F(ProfilePlot, TheRowIsPlottedWithItsMaximumCentredAbove) {
    for (const Channel which : kBoth) {
        desktop.text.texts.clear();
        PictureBox& plot = reconstruction(which);
        altOver(which, 60, 90);
        std::array<Single, 256> values{};
        Single highest = 0;
        for (int i = 0; i < 256; ++i) {
            const ComplexCell& cell = channel(which).spectrum()((128 + i) % 256, 218);
            const double re = cell.re;
            const double im = cell.im;
            values[static_cast<std::size_t>(i)] = static_cast<Single>(std::sqrt(re * re + im * im));
            highest = std::fmax(highest, values[static_cast<std::size_t>(i)]);
        }
        const auto scale = static_cast<Single>(240.0 / highest);
        // 255 points: the last of the 256 is left out of the line.
        std::vector<PanelPoint> points;
        for (int i = 0; i < 255; ++i)
            points.push_back({i, static_cast<Long>(std::nearbyint(
                                     256 - scale * values[static_cast<std::size_t>(i)]))});
        const std::string text = "Max: " + trimmedText(highest, 2);
        const int left =
            static_cast<int>(std::nearbyint((255 - static_cast<double>(text.size()) * 6) / 2));
        PictureBox expected("expected", 256, 256);
        expected.setAutoRedraw(true);
        expected.setBackColor(form.lab.guiColors[1]);
        expected.ForeColor = form.lab.guiColors[0];
        expected.DrawWidth = plot.DrawWidth;
        expected.FontName = plot.FontName;
        expected.FontSize = plot.FontSize;
        expected.Polyline(points);
        ASSERT_EQ(desktop.text.texts.size(), 1U);
        EXPECT_EQ(desktop.text.texts[0].text, text);
        EXPECT_EQ(desktop.text.texts[0].x, left);
        EXPECT_EQ(desktop.text.texts[0].y, 2);
        expected.TextOut(desktop.text, left, 2, text);
        EXPECT_EQ(differingPixels(plot.Image(), expected.Image()), 0);
    }
}

TEST_F(ProfilePlot, ThePatchLiesOnTheSchemesGroundAndEachPanelIsShownOnce) {
    form.itmOpt0(0);
    const PixelWord ground = toPixelWord(form.lab.guiColors[1]);
    for (const Channel which : kBoth) {
        desktop.log.clear();
        altOver(which, 3, 3);
        EXPECT_EQ(image(which).Image().at(0, 0), ground);
        EXPECT_EQ(image(which).Image().at(255, 109), ground) << "above the panel's first row";
        EXPECT_NE(image(which).Image().at(255, 255), ground);
        EXPECT_EQ(shown(image(which)), 1);
        EXPECT_EQ(shown(reconstruction(which)), 1);
        EXPECT_EQ(shown(spectrum(which)), 0);
    }
}

TEST_F(ProfilePlot, OneChannelsProfileLeavesTheOther) {
    const Bitmap image4 = form.pb4.Image();
    const Bitmap plot6 = form.pb6.Image();
    altOver(Channel::One, 60, 90);
    EXPECT_EQ(form.pb4.Image(), image4);
    EXPECT_EQ(form.pb6.Image(), plot6);
    EXPECT_FALSE(form.Line1(1).Visible);
}

TEST_F(ProfilePlot, TheReleaseOfAltBringsThePanelsBackAndTransformsNothing) {
    for (const Channel which : kBoth) {
        const Bitmap before = image(which).Image();
        const Bitmap reconstructed = reconstruction(which).Image();
        form.KeyDown(18, kAltKey);
        desktop.log.clear();
        altOver(which, 60, 90);
        altOver(which, 128, 128);
        EXPECT_NE(image(which).shown(), before);
        EXPECT_NE(reconstruction(which).Image(), reconstructed);
        form.KeyUp(18, 0);
        EXPECT_EQ(image(which).shown(), before);
        EXPECT_EQ(reconstruction(which).Image(), reconstructed);
        EXPECT_FALSE(form.Line1(0).Visible);
        EXPECT_FALSE(form.Line1(1).Visible);
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(ProfilePlot, AnyHeldButtonStopsTheProfile) {
    const Bitmap before = form.pb3.Image();
    for (const Integer button : {kLeftButton, kRightButton, kMiddleButton})
        form.MouseMove(form.pb2, button, kAltKey, 60, 90);
    EXPECT_EQ(form.pb3.Image(), before);
    EXPECT_FALSE(form.Line1(0).Visible);
}

}  // namespace
}  // namespace quillon
