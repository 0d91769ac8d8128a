#include "engine/kernels/twiddles.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quillon::kernels {
namespace {

/// The distance from one double to the next at this size.
double lastPlace(double value) {
    const double size = std::abs(value);
    return std::nextafter(size, std::numeric_limits<double>::infinity()) - size;
}

TEST(FournTwiddles, TheFullTurnIsTheDecimalWithFifteenDigits) {
    EXPECT_EQ(kFullTurn, 6.28318530717959);
    EXPECT_NE(kFullTurn, 2 * std::acos(-1.0));
}

TEST(FournTwiddles, TheSinesAgreeWithTheMathematicsLibraryWithinALastPlace) {
    for (std::size_t j = 0; j < kSines.size(); ++j) {
        const double angle = std::ldexp(kFullTurn, -static_cast<int>(j));
        EXPECT_NEAR(kSines[j], std::sin(angle), lastPlace(kSines[j])) << "full turn over 2^" << j;
    }
}

TEST(FournTwiddles, ASineIsNotExactlyZeroAtHalfATurn) {
    EXPECT_EQ(kSines[1], -0x1.dcb3b399d747fp-50);
    EXPECT_EQ(kSines[2], 1.0);
}

TEST(FournTwiddles, ThePassesStartFromTheirAngles) {
    for (int pass = 0; pass < 29; ++pass) {
        for (const int isign : {1, -1}) {
            const double theta = isign * kFullTurn / std::ldexp(1.0, pass + 1);
            const TwiddleStep step = twiddleStep(pass, isign);
            const double wtemp = std::sin(0.5 * theta);
            EXPECT_NEAR(step.wpi, std::sin(theta), lastPlace(step.wpi)) << pass;
            EXPECT_NEAR(step.wpr, -2.0 * std::pow(wtemp, 2.0), 3 * lastPlace(step.wpr)) << pass;
        }
    }
}

TEST(FournTwiddles, TheRecurrenceStaysOnTheUnitCircle) {
    for (int pass = 0; pass < 12; ++pass) {
        const int count = 1 << pass;
        Twiddle twiddle;
        for (int i = 0; i < count; ++i) {
            const double angle = kFullTurn * i / (2.0 * count);
            const double tolerance = (2 * i + 1) * std::numeric_limits<double>::epsilon();
            ASSERT_NEAR(twiddle.wr, std::cos(angle), tolerance) << pass << " " << i;
            ASSERT_NEAR(twiddle.wi, std::sin(angle), tolerance) << pass << " " << i;
            twiddle.advance(twiddleStep(pass, 1));
        }
    }
}

TEST(FournTwiddles, ThePassesOfTheSquareAreCarriedByRecurrence) {
    // Step by step in Double, from the two sines of the pass of 256 elements.
    const double wpr = -2.0 * (0x1.921d1fcdec788p-7 * 0x1.921d1fcdec788p-7);
    const double wpi = 0x1.92155f7a36682p-6;
    double wr = 1;
    double wi = 0;
    Twiddle forward;
    Twiddle backward;
    for (int i = 0; i < 128; ++i) {
        EXPECT_EQ(forward.wr, wr);
        EXPECT_EQ(forward.wi, wi);
        EXPECT_EQ(backward.wr, wr);
        EXPECT_EQ(backward.wi, -wi);
        const double wtemp = wr;
        wr = wr * wpr - wi * wpi + wr;
        wi = wi * wpr + wtemp * wpi + wi;
        forward.advance(twiddleStep(7, 1));
        backward.advance(twiddleStep(7, -1));
    }
    EXPECT_NE(wr, -1.0) << "the recurrence drifts a little, and the drift is kept";
}

}  // namespace
}  // namespace quillon::kernels
