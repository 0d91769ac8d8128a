#include <gtest/gtest.h>

#include <cmath>

#include "engine/clComplexImage.h"
#include "engine/mFFTUTIL.h"
#include "tests/support/slow_renderer.h"
#include "tests/support/spectra.h"

namespace quillon {
namespace {

constexpr Double kHalfTurn = 3.14159265358979;
constexpr Double kFullTurn = 6.28318530717958;

TEST(AngleOfAPoint, IsZeroAtTheOrigin) {
    EXPECT_EQ(Atan2Rad(0, 0), 0);
}

TEST(AngleOfAPoint, OnTheAxesIsMadeOfTheExactDecimals) {
    EXPECT_EQ(Atan2Rad(0, 5), 0);
    EXPECT_EQ(Atan2Rad(5, 0), kHalfTurn / 2);
    EXPECT_EQ(Atan2Rad(0, -5), kHalfTurn);
    EXPECT_EQ(Atan2Rad(-5, 0), kHalfTurn / 2 + kHalfTurn);
}

TEST(AngleOfAPoint, InEachQuadrantIsTheArcTangentWithItsTurn) {
    EXPECT_EQ(Atan2Rad(2, 3), std::atan(2.0 / 3));
    EXPECT_EQ(Atan2Rad(2, -3), std::atan(-2.0 / 3) + kHalfTurn);
    EXPECT_EQ(Atan2Rad(-2, -3), std::atan(2.0 / 3) + kHalfTurn);
    EXPECT_EQ(Atan2Rad(-2, 3), std::atan(-2.0 / 3) + kFullTurn);
}

TEST(AngleOfAPoint, RunsOnceAroundWithoutFallingBack) {
    Double before = -1;
    for (int degree = 0; degree < 360; ++degree) {
        const Double angle = degree * kHalfTurn / 180;
        const Double found = Atan2Rad(std::sin(angle), std::cos(angle));
        EXPECT_NEAR(found, angle, 1e-12);
        EXPECT_GT(found, before);
        before = found;
    }
}

TEST(Phase, IsInDegreesAsASingle) {
    EXPECT_EQ(PhaseDeg(1, 0), 0.0F);
    EXPECT_EQ(PhaseDeg(0, 0), 0.0F);
    EXPECT_EQ(PhaseDeg(0, 1), 90.0F);
    EXPECT_EQ(PhaseDeg(-1, 0), 180.0F);
    EXPECT_EQ(PhaseDeg(0, -1), 270.0F);
    EXPECT_EQ(PhaseDeg(3, 4), static_cast<Single>(std::atan(4.0 / 3) / 0.017453292519943278));
}

TEST(Phase, IsDividedInDoublesAndRoundedOnce) {
    constexpr std::uint32_t kSeed = 31;
    SCOPED_TRACE(testing::Message() << "seed " << kSeed);
    const ComplexGrid cells = randomSpectrum(100, 100, kSeed);
    for (Long u = 0; u < 100; ++u)
        for (Long v = 0; v < 100; ++v)
            ASSERT_EQ(PhaseDeg(cells(u, v).re, cells(u, v).im),
                      slow::phaseDegrees(cells(u, v).re, cells(u, v).im));
}

TEST(Phase, JustBelowTheAxisReachesAFullTurnAndNoMore) {
    EXPECT_EQ(PhaseDeg(1.0F, -1e-30F), 360.0F);
    EXPECT_LE(PhaseDeg(1.0F, -1e-7F), 360.0F);
    EXPECT_GT(PhaseDeg(1.0F, -1e-3F), 359.0F);
}

}  // namespace
}  // namespace quillon
