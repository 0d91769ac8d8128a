#include <gtest/gtest.h>

#include <cmath>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"
#include "tests/support/slow_edits.h"

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

class SpectrumCommands : public CommandFixture {
protected:
    const Spectrum& f(Channel which) { return channel(which).spectrum(); }
    void recalculate() {
        for (const Channel which : kBoth)
            channel(which).runFOURN(1);
        form.ShowStatus(2, "before");
        desktop.log.clear();
    }
    static Single magnitude(const ComplexCell& cell) {
        return static_cast<Single>(std::hypot(double{cell.re}, double{cell.im}));
    }
};

TEST_F(SpectrumCommands, EditBothChannelsChannelOneFirstAndReport) {
    Rnd rnd;
    const auto expectEdited = [&](Integer index, const std::string& text, auto edit) {
        recalculate();
        const Spectrum one = edit(f(Channel::One));
        const Spectrum two = edit(f(Channel::Two));
        form.itmOpt(index);
        EXPECT_EQ(differingCells(f(Channel::One), one), 0) << text;
        EXPECT_EQ(differingCells(f(Channel::Two), two), 0) << text;
        EXPECT_EQ(status(2), text);
        EXPECT_LT(placeOf("showNow pb3"), placeOf("showNow pb5"));
        EXPECT_EQ(transforms(), 2);
    };
    // The random numbers go on from channel 1 to channel 2 and to the next edit.
    expectEdited(7, "FT Phases Randomized",
                 [&](const Spectrum& g) { return slow::randomizePhases(g, rnd); });
    expectEdited(8, "FT Magnitudes Randomized",
                 [&](const Spectrum& g) { return slow::randomizeMagnitudes(g, rnd).spectrum; });
    expectEdited(9, "FT Phases Discarded", slow::discardPhases);
    expectEdited(10, "FT Magnitudes Discarded", slow::discardMagnitudes);
}

TEST_F(SpectrumCommands, ReportAlsoForAChannelWithoutAnImage) {
    form.pb1.Tag = "";
    const Spectrum one = f(Channel::One);
    const Spectrum two = slow::discardPhases(f(Channel::Two));
    const Bitmap panel = form.pb2.Image();
    form.itmOpt(9);
    EXPECT_EQ(differingCells(f(Channel::One), one), 0);
    EXPECT_EQ(differingCells(f(Channel::Two), two), 0);
    EXPECT_TRUE(form.pb2.Image() == panel);
    EXPECT_EQ(status(2), "FT Phases Discarded");
}

TEST_F(SpectrumCommands, ExchangeThePhasesTruly) {
    const Spectrum one = f(Channel::One);
    const Spectrum two = f(Channel::Two);
    form.itmOpt(6);
    EXPECT_EQ(differingCells(f(Channel::One), slow::swapPhases(one, two)), 0);
    EXPECT_EQ(differingCells(f(Channel::Two), slow::swapPhases(two, one)), 0);
    EXPECT_EQ(status(2), "FT Phase Sets Swapped");
    EXPECT_EQ(transforms(), 2);
    for (Long u = 0; u < 256; ++u)
        for (Long v = 0; v < 256; ++v) {
            const Single m = magnitude(one(u, v));
            ASSERT_NEAR(magnitude(f(Channel::One)(u, v)), m, 4 * 0x1p-24F * m);
        }
}

TEST_F(SpectrumCommands, ExchangedTwiceThePhasesAreBack) {
    const Spectrum before[] = {f(Channel::One), f(Channel::Two)};
    form.itmOpt(6);
    EXPECT_GT(differingCells(f(Channel::One), before[0]), 60000);
    form.itmOpt(6);
    for (const Channel which : kBoth)
        for (Long u = 0; u < 256; ++u)
            for (Long v = 0; v < 256; ++v) {
                const ComplexCell& a = before[static_cast<int>(which)](u, v);
                const ComplexCell& b = f(which)(u, v);
                // Each exchange rounds two lengths and each part once.
                ASSERT_NEAR(a.re, b.re, 8 * 0x1p-24F * magnitude(a));
                ASSERT_NEAR(a.im, b.im, 8 * 0x1p-24F * magnitude(a));
            }
}

TEST_F(SpectrumCommands, ExchangeWithAnEmptySpectrumFailsAtTheFirstCellOfTheOther) {
    const ExchangeArray empty(256, 256);
    for (const Channel emptied : kBoth) {
        recalculate();
        channel(emptied).SetFTArray(empty);
        form.lab.imagePanel(emptied).Tag = "";
        const Channel other = emptied == Channel::One ? Channel::Two : Channel::One;
        const Spectrum before = f(other);
        form.ShowStatus(2, "before");
        EXPECT_EQ(errorOf([&] { form.itmOpt(6); }), ErrorNumber::DivisionByZero);
        EXPECT_EQ(differingCells(f(other), before), 0);
        EXPECT_EQ(differingCells(f(emptied), Spectrum(256, 256)), 0);
        EXPECT_EQ(status(2), "before");
    }
}

TEST_F(SpectrumCommands, ExchangeInChannelOneBeforeChannelTwo) {
    const auto withHole = [](const Spectrum& f) {
        Spectrum holed = f;
        holed(2, 7) = ComplexCell{};
        return slow::toExchangeArray(holed);
    };
    recalculate();
    channel(Channel::Two).SetFTArray(withHole(f(Channel::Two)));
    const Spectrum before = f(Channel::Two);
    EXPECT_EQ(errorOf([&] { form.itmOpt(6); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(differingCells(f(Channel::Two), before), 0) << "its turn never came";

    recalculate();
    channel(Channel::One).SetFTArray(withHole(f(Channel::One)));
    const Spectrum swapped = slow::swapPhases(f(Channel::One), f(Channel::Two));
    const Spectrum two = f(Channel::Two);
    form.ShowStatus(2, "before");
    EXPECT_EQ(errorOf([&] { form.itmOpt(6); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(differingCells(f(Channel::One), swapped), 0) << "channel 1 is through";
    EXPECT_GT(differingCells(f(Channel::Two), two), 500);
    EXPECT_EQ(f(Channel::Two)(2, 7).re, two(2, 7).re);
    EXPECT_EQ(f(Channel::Two)(2, 8).im, two(2, 8).im);
    EXPECT_NE(status(2), "FT Phase Sets Swapped");
}

TEST_F(SpectrumCommands, RepeatTheSameNumbersInEveryRunOfTheProgram) {
    Form1 second(desktop.desktop(), folders);
    RecordingHost secondHost{desktop.calls};
    second.setHost(&secondHost);
    second.Form_Load();
    recalculate();
    for (const Integer index : {Integer{7}, Integer{8}, Integer{7}}) {
        form.itmOpt(index);
        second.itmOpt(index);
    }
    EXPECT_EQ(differingCells(f(Channel::One), second.lab.channel1.spectrum()), 0);
    EXPECT_EQ(differingCells(f(Channel::Two), second.lab.channel2.spectrum()), 0);
    second.setHost(nullptr);
}

TEST_F(SpectrumCommands, CombineIntoTheChannelOfTheMenuAndReport) {
    struct Asked {
        MenuArray array;
        Integer index;
        Channel target;
        const char* text;
        Spectrum (*reference)(const Spectrum&, const Spectrum&);
    };
    for (const Asked& asked :
         {Asked{MenuArray::mnuImg1a, 14, Channel::One, "Convolution Performed", slow::convolve},
          Asked{MenuArray::mnuImg2a, 14, Channel::Two, "Convolution Performed", slow::convolve},
          Asked{MenuArray::mnuImg1a, 15, Channel::One, "Deconvolution Performed",
                slow::deconvolveIntoChannel1},
          Asked{MenuArray::mnuImg2a, 15, Channel::Two, "Deconvolution Performed",
                slow::deconvolveIntoChannel2}}) {
        recalculate();
        const Spectrum expected = asked.reference(f(Channel::One), f(Channel::Two));
        form.click(asked.array, asked.index);
        EXPECT_EQ(differingCells(f(asked.target), expected), 0) << asked.text;
        EXPECT_EQ(status(2), asked.text);
        EXPECT_EQ(transforms(), 1);
    }
}

TEST_F(SpectrumCommands, ACombinationThatFailsReportsNothing) {
    channel(Channel::Two).SetFTArray(ExchangeArray(256, 256));
    const Spectrum one = f(Channel::One);
    form.ShowStatus(2, "before");
    for (const Integer target : {Integer{1}, Integer{4}})
        EXPECT_EQ(errorOf([&] { form.DeconvolveSpectra(target); }), ErrorNumber::DivisionByZero);
    EXPECT_EQ(status(2), "before");
    EXPECT_EQ(differingCells(f(Channel::One), one), 0);
}

}  // namespace
}  // namespace quillon
