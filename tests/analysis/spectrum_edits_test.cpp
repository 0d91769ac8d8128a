#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "engine/ExchangeArray.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_edits.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

/// Pictures as a student would load them: shades, an outline, a texture; noise; a
/// drawing of lines; a picture that repeats, whose spectrum is mostly 0.
const std::function<int(int, int)> kPictures[] = {
    scene,
    noise(5),
    [](int x, int y) { return x == y || x + y == 300 || y == 77 ? 255 : 12; },
    [](int x, int y) { return (x / 16 + y / 32) % 2 == 0 ? 200 : 40; },
};

class SpectrumEdits : public testing::Test {
protected:
    SpectrumEdits() {
        lab.show(scene);
        channel.CalculateAll();
        lab.log.clear();
    }

    /// The channel holds exactly these cells from now on.
    void setSpectrum(const Spectrum& f) {
        channel.SetFTArray(slow::toExchangeArray(f));
        lab.pb1.Tag = "!";
        lab.log.clear();
    }

    ChannelUnderTest lab;
    clComplexImage& channel = lab.channel;
};

using Edit = void (clComplexImage::*)();

struct NamedEdit {
    const char* name;
    Edit edit;
    std::function<Spectrum(const Spectrum&, Rnd&)> reference;
};

const NamedEdit kEdits[] = {
    {"DiscardPhases", &clComplexImage::DiscardPhases,
     [](const Spectrum& f, Rnd&) { return slow::discardPhases(f); }},
    {"DiscardMagnitudes", &clComplexImage::DiscardMagnitudes,
     [](const Spectrum& f, Rnd&) { return slow::discardMagnitudes(f); }},
    {"RandomizePhases", &clComplexImage::RandomizePhases, slow::randomizePhases},
    {"RandomizeMagnitudes", &clComplexImage::RandomizeMagnitudes,
     [](const Spectrum& f, Rnd& rnd) { return slow::randomizeMagnitudes(f, rnd).spectrum; }},
};

TEST_F(SpectrumEdits, AreThePlainLoopsOverThePicturesOfALesson) {
    Rnd rnd;
    for (const auto& picture : kPictures)
        for (const NamedEdit& each : kEdits) {
            lab.show(picture);
            channel.CalculateAll();
            const Spectrum expected = each.reference(channel.spectrum(), rnd);
            std::invoke(each.edit, channel);
            EXPECT_EQ(differingCells(channel.spectrum(), expected), 0) << each.name;
        }
}

TEST_F(SpectrumEdits, AreThePlainLoopsOverSpectraOfEverySize) {
    constexpr std::uint32_t kSeed = 2101;
    int finished = 0;
    for (const NamedSpectrum& start : spectraToRender(kSeed))
        for (const NamedEdit& each : kEdits) {
            setSpectrum(start.cells);
            Rnd rnd;
            const Spectrum expected = each.reference(channel.spectrum(), rnd);
            lab.rnd = Rnd();
            // Some of these spectra have steps that no Single holds.
            if (errorOf([&] { std::invoke(each.edit, channel); }) != ErrorNumber{})
                continue;
            ++finished;
            EXPECT_EQ(differingCells(channel.spectrum(), expected), 0)
                << each.name << " of " << start.name;
        }
    EXPECT_GT(finished, 30);
}

TEST_F(SpectrumEdits, AddUp) {
    Rnd rnd;
    const Spectrum expected =
        slow::randomizePhases(slow::discardMagnitudes(channel.spectrum()), rnd);
    channel.DiscardMagnitudes();
    channel.RandomizePhases();
    EXPECT_EQ(differingCells(channel.spectrum(), expected), 0);
}

TEST_F(SpectrumEdits, EndWithTheSpectrumDrawnAndThenTheInverse) {
    const std::vector<std::string> expected = {"showNow pb2", "DrawMasks(-1)",
                                               // The inverse run.
                                               "screen.setMousePointer(11)", "showNow lbSTB(2)",
                                               "showNow pb3", "DrawMasks(-1)",
                                               "screen.setMousePointer(0)"};
    for (const NamedEdit& each : kEdits) {
        lab.log.clear();
        std::invoke(each.edit, channel);
        EXPECT_EQ(lab.calls(), expected) << each.name;
    }
    ExchangeArray p(256, 256);
    channel.GetFTArray(p);
    lab.log.clear();
    channel.SwapPhases(p);
    EXPECT_EQ(lab.calls(), expected);
    lab.log.clear();
    channel.SetFTArray(p);
    EXPECT_EQ(lab.calls(), expected);
}

TEST_F(SpectrumEdits, ShowWhatARedrawAndAnInverseRunShow) {
    // Phases show in the real parts, not in the magnitudes.
    channel.SetFTView(3, 1);
    for (const bool inverted : {false, true}) {
        channel.SetInvert(1, inverted);
        channel.SetInvert(2, inverted);
        for (const NamedEdit& each : kEdits) {
            channel.runFOURN(1);
            const Bitmap before = lab.pb2.Image();
            std::invoke(each.edit, channel);
            const Bitmap spectrum = lab.pb2.Image();
            const Bitmap reconstruction = lab.pb3.Image();
            channel.RedrawFT(1, 0);
            channel.runFOURN(0);
            EXPECT_TRUE(spectrum == lab.pb2.Image()) << each.name;
            EXPECT_TRUE(reconstruction == lab.pb3.Image()) << each.name;
            EXPECT_FALSE(spectrum == before) << each.name;
        }
    }
}

TEST_F(SpectrumEdits, LeaveTheImageAndTheFilterAlone) {
    const Bitmap image = lab.pb1.Image();
    channel.SetFilterFT(2);
    channel.SetFilterRad(12.5F);
    for (const NamedEdit& each : kEdits)
        std::invoke(each.edit, channel);
    EXPECT_TRUE(image == lab.pb1.Image());
    EXPECT_TRUE(channel.bFilter && channel.bLowpass && channel.bRing);
    EXPECT_EQ(channel.filter_rad, 12.5F);
}

TEST_F(SpectrumEdits, AreNotFilteredThemselvesButShowThroughTheFilter) {
    const Spectrum expected = slow::discardPhases(channel.spectrum());
    channel.DiscardPhases();
    const Bitmap unfiltered = lab.pb3.Image();
    channel.runFOURN(1);
    channel.SetFilterFT(2);
    channel.SetFilterRad(20);
    channel.DiscardPhases();
    EXPECT_EQ(differingCells(channel.spectrum(), expected), 0);
    EXPECT_FALSE(unfiltered == lab.pb3.Image());
}

TEST_F(SpectrumEdits, LastUntilTheNextForwardTransform) {
    const Spectrum before = channel.spectrum();
    for (const NamedEdit& each : kEdits) {
        std::invoke(each.edit, channel);
        EXPECT_GT(differingCells(channel.spectrum(), before), 60000) << each.name;
        channel.runFOURN(1);
        EXPECT_EQ(differingCells(channel.spectrum(), before), 0) << each.name;
    }
}

TEST_F(SpectrumEdits, OfAChannelWithoutAnImageDoNothing) {
    lab.pb1.Tag = "";
    const Spectrum before = channel.spectrum();
    const Bitmap spectrum = lab.pb2.Image();
    const Bitmap reconstruction = lab.pb3.Image();
    for (const NamedEdit& each : kEdits)
        std::invoke(each.edit, channel);
    // No cell of this array could be taken, but none is asked for.
    channel.SwapPhases(ExchangeArray(2, 2));
    EXPECT_EQ(differingCells(channel.spectrum(), before), 0);
    EXPECT_TRUE(spectrum == lab.pb2.Image());
    EXPECT_TRUE(reconstruction == lab.pb3.Image());
    EXPECT_TRUE(lab.log.empty());
    EXPECT_EQ(lab.rnd(), Rnd()()) << "no random number was drawn";
}

TEST_F(SpectrumEdits, ChangeTheZeroFrequencyLikeEveryOtherCell) {
    Rnd rnd;
    for (const NamedEdit& each : kEdits) {
        channel.runFOURN(1);
        const ComplexCell before = channel.spectrum()(0, 0);
        const Spectrum expected = each.reference(channel.spectrum(), rnd);
        std::invoke(each.edit, channel);
        const ComplexCell& after = channel.spectrum()(0, 0);
        EXPECT_EQ(after.re, expected(0, 0).re) << each.name;
        // Without a phase of its own it is its own magnitude already.
        if (each.edit != &clComplexImage::DiscardPhases) {
            EXPECT_NE(after.re, before.re) << each.name;
        }
    }
}

TEST_F(SpectrumEdits, OfAnExactZeroGiveOneWithoutPhaseAndZeroWithoutMagnitude) {
    Spectrum f = randomSpectrum(256, 256, 31);
    f(0, 0) = f(3, 200) = f(255, 255) = ComplexCell{};
    for (const auto& [u, v] : {std::pair(0, 0), std::pair(3, 200), std::pair(255, 255)}) {
        setSpectrum(f);
        channel.DiscardPhases();
        EXPECT_EQ(channel.spectrum()(u, v).re, 1.0F);
        EXPECT_EQ(channel.spectrum()(u, v).im, 0.0F);
        setSpectrum(f);
        channel.DiscardMagnitudes();
        EXPECT_EQ(channel.spectrum()(u, v).re, 0.0F);
        EXPECT_EQ(channel.spectrum()(u, v).im, 0.0F);
        setSpectrum(f);
        channel.RandomizeMagnitudes();
        EXPECT_EQ(channel.spectrum()(u, v).re, 0.0F);
        EXPECT_EQ(channel.spectrum()(u, v).im, 0.0F);
        setSpectrum(f);
        channel.RandomizePhases();
        EXPECT_NEAR(std::hypot(channel.spectrum()(u, v).re, channel.spectrum()(u, v).im), 1.0F,
                    2e-7F);
    }
}

TEST_F(SpectrumEdits, AreHandedOutWithAnEmptyRowAndColumnAndWithoutAnImage) {
    lab.pb1.Tag = "";
    ExchangeArray p(256, 256);
    channel.GetFTArray(p);
    EXPECT_TRUE(lab.log.empty()) << "nothing is drawn";
    for (Long u = 0; u <= 256; ++u)
        for (Long v = 0; v <= 256; ++v) {
            const bool inside = u < 256 && v < 256;
            ASSERT_EQ(p(u, v, 0), inside ? channel.spectrum()(u, v).re : 0);
            ASSERT_EQ(p(u, v, 1), inside ? channel.spectrum()(u, v).im : 0);
        }
    // What stands in the row and the column beyond the spectrum is nobody's.
    const Spectrum before = channel.spectrum();
    for (Long i = 0; i <= 256; ++i)
        p(256, i, 0) = p(i, 256, 1) = 77;
    channel.SetFTArray(p);
    EXPECT_EQ(differingCells(channel.spectrum(), before), 0);
    EXPECT_FALSE(lab.log.empty()) << "and without an image it is drawn";
}

TEST_F(SpectrumEdits, DiscardingTwiceIsDiscardingOnce) {
    for (const Edit edit : {&clComplexImage::DiscardPhases, &clComplexImage::DiscardMagnitudes}) {
        channel.runFOURN(1);
        std::invoke(edit, channel);
        const Spectrum once = channel.spectrum();
        std::invoke(edit, channel);
        for (Long u = 0; u < 256; ++u)
            for (Long v = 0; v < 256; ++v) {
                const ComplexCell& a = once(u, v);
                const ComplexCell& b = channel.spectrum()(u, v);
                // Two roundings of the length and one of the quotient.
                const float tolerance = 3 * 0x1p-24F * std::hypot(a.re, a.im);
                ASSERT_NEAR(a.re, b.re, tolerance);
                ASSERT_NEAR(a.im, b.im, tolerance);
            }
    }
}

TEST_F(SpectrumEdits, DestroyTheSymmetryOfARealImage) {
    const auto asymmetric = [this] {
        long count = 0;
        for (Long u = 1; u < 256; ++u)
            for (Long v = 1; v < 256; ++v) {
                const ComplexCell& a = channel.spectrum()(u, v);
                const ComplexCell& b = channel.spectrum()(256 - u, 256 - v);
                count += std::hypot(a.re - b.re, a.im + b.im) > 1e-3F * std::hypot(a.re, a.im);
            }
        return count;
    };
    channel.RandomizePhases();
    EXPECT_GT(asymmetric(), 60000);
    channel.runFOURN(1);
    channel.RandomizeMagnitudes();
    EXPECT_GT(asymmetric(), 60000);
}

TEST_F(SpectrumEdits, RandomPhasesPreferTheDiagonals) {
    channel.RandomizePhases();
    long diagonal = 0;
    long axis = 0;
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const ComplexCell& cell = channel.spectrum()(u, v);
            const double angle = std::atan2(std::fabs(cell.im), std::fabs(cell.re));
            diagonal += std::fabs(angle - M_PI / 4) < M_PI / 16 ? 1 : 0;
            axis += angle < M_PI / 16 || angle > M_PI / 2 - M_PI / 16 ? 1 : 0;
        }
    // In a circle both sectors would have a quarter; in a square each has its area.
    const double axisShare = std::tan(M_PI / 16);
    const double diagonalShare = 1 - std::tan(M_PI / 4 - M_PI / 16);
    EXPECT_NEAR(static_cast<double>(axis) / 65536, axisShare, 0.01);
    EXPECT_NEAR(static_cast<double>(diagonal) / 65536, diagonalShare, 0.01);
    EXPECT_GT(diagonalShare, axisShare);
}

}  // namespace
}  // namespace quillon
