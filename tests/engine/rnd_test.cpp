#include "engine/Rnd.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

namespace quillon {
namespace {

TEST(Rnd, BeginsWithTheNumbersThatItsAuthorPublished) {
    Rnd rnd;
    for (const std::uint32_t bits :
         {0xA15C02B7U, 0x7B47F409U, 0xBA1D3330U, 0x83D2F293U, 0xBFA4784BU, 0xCBED606EU})
        EXPECT_EQ(rnd(), static_cast<Single>(bits >> 8U) / 16777216.0F);
}

TEST(Rnd, RepeatsTheSameSequenceFromEachStart) {
    Rnd first;
    Rnd second;
    for (int i = 0; i < 10000; ++i)
        ASSERT_EQ(first(), second());
}

TEST(Rnd, GoesOnWhereItWasLeft) {
    Rnd rnd;
    Rnd other;
    rnd();
    EXPECT_NE(rnd(), other());
}

TEST(Rnd, StaysFromZeroToBelowOneInStepsThatASingleHolds) {
    Rnd rnd;
    for (int i = 0; i < 1000000; ++i) {
        const Single number = rnd();
        ASSERT_GE(number, 0.0F);
        ASSERT_LT(number, 1.0F);
        const Double steps = number * 16777216.0;
        ASSERT_EQ(steps, std::floor(steps));
    }
}

TEST(Rnd, ReachesBothEndsOfItsRange) {
    // States worked out backwards from the numbers.
    Rnd atZero(0);
    EXPECT_EQ(atZero(), 0.0F);
    Rnd atTop(0x07FFFE00078001E0U);
    EXPECT_EQ(atTop(), 1.0F - 0x1p-24F);
}

TEST(Rnd, FillsEqualPartsOfItsRangeEqually) {
    constexpr int kParts = 256;
    constexpr int kEach = 4000;
    std::vector<int> counts(kParts);
    Rnd rnd;
    for (int i = 0; i < kParts * kEach; ++i)
        ++counts[static_cast<std::size_t>(rnd() * kParts)];
    // Chi-squared with 255 degrees of freedom: mean 255, deviation sqrt(510).
    double chi = 0;
    for (const int count : counts)
        chi += (count - kEach) * (count - kEach) / static_cast<double>(kEach);
    EXPECT_NEAR(chi, 255.0, 5 * std::sqrt(510.0));
}

}  // namespace
}  // namespace quillon
