#include <gtest/gtest.h>

#include "tests/desktop/OpenedWindow.h"
#include "tests/support/slow_edits.h"

namespace quillon {
namespace {

using slow::differingCells;
using slow::Spectrum;

/// The two sample pictures, channel 1 and channel 2.
class SamplePictures : public OpenedWindow {
protected:
    const Spectrum& one() { return form().lab.channel1.spectrum(); }
    const Spectrum& two() { return form().lab.channel2.spectrum(); }
    void recalculate() {
        form().lab.channel1.runFOURN(1);
        form().lab.channel2.runFOURN(1);
    }
    template <class Edit>
    void expectEdited(Integer index, Edit edit) {
        recalculate();
        const Spectrum first = edit(one());
        const Spectrum second = edit(two());
        form().itmOpt(index);
        EXPECT_EQ(differingCells(one(), first), 0) << index;
        EXPECT_EQ(differingCells(two(), second), 0) << index;
    }
};

TEST_F(SamplePictures, AreEditedAsByThePlainLoops) {
    Rnd rnd;
    expectEdited(7, [&](const Spectrum& f) { return slow::randomizePhases(f, rnd); });
    expectEdited(8, [&](const Spectrum& f) { return slow::randomizeMagnitudes(f, rnd).spectrum; });
    expectEdited(9, slow::discardPhases);
    expectEdited(10, slow::discardMagnitudes);
}

TEST_F(SamplePictures, ExchangeTheirPhasesWithoutAnError) {
    const Spectrum first = slow::swapPhases(one(), two());
    const Spectrum second = slow::swapPhases(two(), one());
    form().itmOpt(6);
    EXPECT_EQ(differingCells(one(), first), 0);
    EXPECT_EQ(differingCells(two(), second), 0);
}

TEST_F(SamplePictures, AreConvolvedAndDeconvolvedAsByThePlainLoops) {
    for (const Integer target : {Integer{1}, Integer{4}}) {
        recalculate();
        const Spectrum product = slow::convolve(one(), two());
        form().ConvolveSpectra(target);
        EXPECT_EQ(differingCells(target == 1 ? one() : two(), product), 0);
        recalculate();
        const Spectrum quotient = target == 1 ? slow::deconvolveIntoChannel1(one(), two())
                                              : slow::deconvolveIntoChannel2(one(), two());
        form().DeconvolveSpectra(target);
        EXPECT_EQ(differingCells(target == 1 ? one() : two(), quotient), 0);
    }
}

}  // namespace
}  // namespace quillon
