#include "engine/fourn.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <numbers>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "engine/RunTimeError.h"
#include "tests/support/fourn_grids.h"
#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

constexpr std::array<Integer, 2> kBothSigns = {1, -1};
constexpr std::size_t kSide = 256;
constexpr double kElements = 65536;
constexpr double kEpsilon = std::numeric_limits<Single>::epsilon();
/// Each of the passes adds a relative error of at most this to the norm: the two
/// roundings of a product sum, that of the twiddle, and that of the last sum.
constexpr double kErrorOfAPass = 2 * kEpsilon;

void transform(FournGrid& grid, Integer isign) {
    fourn(grid.data, grid.nn, grid.ndim(), isign);
}

double norm(const FournGrid& grid) {
    double sum = 0;
    for (std::size_t k = 0; k < grid.elements(); ++k)
        sum += std::norm(std::complex<double>(grid.re(k), grid.im(k)));
    return std::sqrt(sum);
}

FournGrid noise(unsigned salt) {
    FournGrid grid({256, 256});
    std::mt19937 random(kFournSeed + salt);
    fillRandom(grid, random, 100.0F);
    return grid;
}

ErrorNumber errorOf(std::span<Single> data, const std::vector<Long>& nn, Integer ndim) {
    try {
        fourn(data, nn, ndim, 1);
    } catch (const RunTimeError& error) {
        return error.number();
    }
    return ErrorNumber{};
}

TEST(Fourn, NoDimensionLeavesTheDataUntouched) {
    const FournGrid before = noise(1);
    FournGrid grid = before;
    fourn(grid.data, grid.nn, 0, 1);
    fourn(grid.data, grid.nn, -1, 1);
    fourn({}, {}, 0, 1);
    expectSameBits(grid.data, before.data, "ndim of 0 and less");
}

TEST(Fourn, AnImpulseAtTheOriginGivesOneInEveryElement) {
    for (const Integer isign : kBothSigns) {
        FournGrid grid({256, 256});
        grid.re(0) = 1;
        transform(grid, isign);
        for (std::size_t k = 0; k < grid.elements(); ++k) {
            ASSERT_EQ(grid.re(k), 1.0F) << k;
            ASSERT_EQ(grid.im(k), 0.0F) << k;
        }
    }
}

TEST(Fourn, AConstantGivesItsSumAtTheOriginAndNothingElsewhere) {
    const Single c = 255;
    FournGrid grid({256, 256});
    for (std::size_t k = 0; k < grid.elements(); ++k)
        grid.re(k) = c;
    transform(grid, 1);
    EXPECT_EQ(grid.re(0), c * 65536.0F);
    EXPECT_EQ(grid.im(0), 0.0F);
    const double tolerance = 16 * kErrorOfAPass * c * kElements;
    for (std::size_t k = 1; k < grid.elements(); ++k)
        ASSERT_LE(std::hypot(grid.re(k), grid.im(k)), tolerance) << k;
}

TEST(Fourn, ForwardAndInverseMultiplyARealGridByTheNumberOfElements) {
    FournGrid grid({256, 256});
    std::mt19937 random(kFournSeed);
    for (std::size_t k = 0; k < grid.elements(); ++k)
        grid.re(k) = static_cast<Single>(random() & 0xFFU);
    const FournGrid before = grid;
    transform(grid, 1);
    transform(grid, -1);
    const double tolerance = 32 * kErrorOfAPass * norm(before) * kElements;
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        ASSERT_NEAR(grid.re(k), before.re(k) * kElements, tolerance) << k;
        ASSERT_NEAR(grid.im(k), 0, tolerance) << k;
    }
}

TEST(Fourn, TheSignOfTheExponentIsPositiveInTheForwardDirection) {
    FournGrid grid({256, 256});
    for (std::size_t x = 0; x < kSide; ++x) {
        const double angle = -2 * std::numbers::pi * static_cast<double>(x) / 256;
        for (std::size_t y = 0; y < kSide; ++y) {
            grid.re(x * kSide + y) = static_cast<Single>(std::cos(angle));
            grid.im(x * kSide + y) = static_cast<Single>(std::sin(angle));
        }
    }
    transform(grid, 1);
    const double tolerance = 17 * kErrorOfAPass * kElements;
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        const double expected = k == 1 * kSide + 0 ? kElements : 0;
        ASSERT_NEAR(grid.re(k), expected, tolerance) << k;
        ASSERT_NEAR(grid.im(k), 0, tolerance) << k;
    }
}

TEST(Fourn, TheFirstDimensionVariesFastest) {
    // One turn along the first dimension of 4 by 2 elements.
    FournGrid grid({4, 2});
    for (std::size_t k = 0; k < 8; ++k) {
        const double angle = -2 * std::numbers::pi * static_cast<double>(k % 4) / 4;
        grid.re(k) = static_cast<Single>(std::cos(angle));
        grid.im(k) = static_cast<Single>(std::sin(angle));
    }
    transform(grid, 1);
    for (std::size_t k = 0; k < 8; ++k)
        EXPECT_NEAR(grid.re(k), k == 1 ? 8 : 0, 8 * 4 * kErrorOfAPass) << k;
}

TEST(Fourn, NothingOutsideTheGridIsTouched) {
    for (const std::vector<Long>& sides : {std::vector<Long>{256, 256}, {8}, {4, 16, 2}}) {
        FournGrid grid(sides);
        std::mt19937 random(kFournSeed);
        fillRandom(grid, random, 1);
        transform(grid, 1);
        transform(grid, -1);
        EXPECT_EQ(grid.data.front(), kFournGuard);
        EXPECT_EQ(grid.data.back(), kFournGuard);
    }
}

TEST(Fourn, TheTransformIsLinear) {
    const FournGrid a = noise(2);
    const FournGrid b = noise(3);
    FournGrid sum({256, 256});
    for (std::size_t k = 0; k < sum.elements(); ++k) {
        sum.re(k) = 2 * a.re(k) - 3 * b.re(k);
        sum.im(k) = 2 * a.im(k) - 3 * b.im(k);
    }
    FournGrid fa = a;
    FournGrid fb = b;
    transform(fa, 1);
    transform(fb, 1);
    transform(sum, 1);
    const double tolerance = 17 * kErrorOfAPass * (2 * norm(fa) + 3 * norm(fb));
    for (std::size_t k = 0; k < sum.elements(); ++k) {
        ASSERT_NEAR(sum.re(k), 2.0 * fa.re(k) - 3.0 * fb.re(k), tolerance) << k;
        ASSERT_NEAR(sum.im(k), 2.0 * fa.im(k) - 3.0 * fb.im(k), tolerance) << k;
    }
}

TEST(Fourn, AShiftOfTheGridTurnsThePhases) {
    const FournGrid grid = noise(4);
    const std::size_t dx = 3;
    const std::size_t dy = 250;
    FournGrid shifted({256, 256});
    for (std::size_t x = 0; x < kSide; ++x) {
        for (std::size_t y = 0; y < kSide; ++y) {
            const std::size_t to = (x + dx) % kSide * kSide + (y + dy) % kSide;
            shifted.re(to) = grid.re(x * kSide + y);
            shifted.im(to) = grid.im(x * kSide + y);
        }
    }
    FournGrid spectrum = grid;
    transform(spectrum, 1);
    transform(shifted, 1);
    const double tolerance = 2 * 16 * kErrorOfAPass * norm(spectrum);
    for (std::size_t u = 0; u < kSide; ++u) {
        for (std::size_t v = 0; v < kSide; ++v) {
            const std::size_t k = u * kSide + v;
            const double turns = static_cast<double>((u * dx + v * dy) % kSide) / 256;
            const std::complex<double> expected =
                std::complex<double>(spectrum.re(k), spectrum.im(k)) *
                std::polar(1.0, 2 * std::numbers::pi * turns);
            ASSERT_NEAR(shifted.re(k), expected.real(), tolerance) << u << "," << v;
            ASSERT_NEAR(shifted.im(k), expected.imag(), tolerance) << u << "," << v;
        }
    }
}

TEST(Fourn, TheEnergyGrowsByTheNumberOfElements) {
    const FournGrid grid = noise(5);
    FournGrid spectrum = grid;
    transform(spectrum, 1);
    const double expected = norm(grid) * std::sqrt(kElements);
    EXPECT_NEAR(norm(spectrum), expected, 16 * kErrorOfAPass * expected);
}

TEST(Fourn, DataTooShortForTheGridIsASubscriptError) {
    std::vector<Single> data(2 * 65536);
    EXPECT_EQ(errorOf(data, {0, 256, 256}, 2), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf(data, {0, 256}, 2), ErrorNumber::SubscriptOutOfRange);
    EXPECT_EQ(errorOf({}, {0, 1}, 1), ErrorNumber::SubscriptOutOfRange);
    data.push_back(0);
    EXPECT_EQ(errorOf(data, {0, 256, 256}, 2), ErrorNumber{});
}

TEST(Fourn, AGridTooLargeForItsIndicesOverflows) {
    std::vector<Single> data(9);
    EXPECT_EQ(errorOf(data, {0, 65536, 65536}, 2), ErrorNumber::Overflow);
    EXPECT_EQ(errorOf(data, {0, 1 << 30}, 1), ErrorNumber::Overflow);
}

TEST(Fourn, ASideOfZeroIsADivisionByZero) {
    std::vector<Single> data(9, 1.0F);
    EXPECT_EQ(errorOf(data, {0, 0}, 1), ErrorNumber::DivisionByZero);
    EXPECT_EQ(errorOf(data, {0, 4, 0}, 2), ErrorNumber::DivisionByZero);
    EXPECT_EQ(data, std::vector<Single>(9, 1.0F));
}

TEST(Fourn, ASideThatIsNoPowerOfTwoIsNotRefused) {
    // Six elements pass for the first six of eight, as long as the array goes on.
    std::vector<Single> data(17, 1.0F);
    EXPECT_EQ(errorOf(data, {0, 6}, 1), ErrorNumber{});
    std::vector<Single> tight(13, 1.0F);
    EXPECT_EQ(errorOf(tight, {0, 6}, 1), ErrorNumber::SubscriptOutOfRange);
}

TEST(Fourn, AnotherSignScalesTheAngle) {
    FournGrid grid({4});
    grid.re(1) = 1;
    fourn(grid.data, grid.nn, 1, 2);
    // The second element turns by half a turn per step instead of a quarter.
    for (std::size_t k = 0; k < 2; ++k)
        EXPECT_NEAR(grid.re(k), k == 1 ? -1 : 1, 4 * kErrorOfAPass) << k;
}

TEST(Fourn, EveryGridOfPowersOfTwoHasTheBitsOfThePlainLoop) {
    std::mt19937 random(kFournSeed);
    for (const std::vector<Long>& sides : {std::vector<Long>{1},
                                           {2},
                                           {4},
                                           {8},
                                           {256},
                                           {4096},
                                           {65536},
                                           {1, 1},
                                           {2, 64},
                                           {64, 2},
                                           {16, 512},
                                           {512, 16},
                                           {256, 256},
                                           {256, 1},
                                           {1, 256},
                                           {128, 256},
                                           {256, 128},
                                           {512, 512},
                                           {8, 4, 16},
                                           {2, 2, 2, 2, 2},
                                           {256, 256, 1},
                                           {256, 256, 2}}) {
        for (const Integer isign : kBothSigns) {
            FournGrid grid(sides);
            fillRandom(grid, random, 1000);
            FournGrid expected = grid;
            plainFourn(expected.data, expected.nn, expected.ndim(), isign);
            transform(grid, isign);
            expectSameBits(grid.data, expected.data,
                           "first side " + std::to_string(sides[0]) + ", " +
                               std::to_string(sides.size()) + " dimensions");
        }
    }
}

TEST(Fourn, EveryKindOfInputHasTheBitsOfThePlainLoop) {
    for (const NamedGrid& input : squareGrids()) {
        for (const Integer isign : kBothSigns) {
            FournGrid expected = input.grid;
            plainFourn(expected.data, expected.nn, expected.ndim(), isign);
            FournGrid grid = input.grid;
            transform(grid, isign);
            expectSameBits(grid.data, expected.data, input.name);
        }
    }
}

}  // namespace
}  // namespace quillon
