#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <ios>
#include <limits>
#include <random>
#include <vector>

#include "engine/kernels/exact_fma.h"
#include "tests/support/fourn_grids.h"

namespace quillon::kernels {
namespace {

/// One lane of the vector function.
float exact(float a, float b, float c) {
    return exactFma(Floats4{0, a, 0, 0}, Floats4{0, b, 0, 0}, Floats4{0, c, 0, 0})[1];
}

void expectLikeTheInstruction(float a, float b, float c) {
    const float expected = std::fma(a, b, c);
    const float actual = exact(a, b, c);
    if (std::isnan(expected)) {
        ASSERT_TRUE(std::isnan(actual)) << std::hexfloat << a << " * " << b << " + " << c;
        return;
    }
    ASSERT_EQ(std::bit_cast<std::uint32_t>(actual), std::bit_cast<std::uint32_t>(expected))
        << std::hexfloat << a << " * " << b << " + " << c << " is " << actual << ", not "
        << expected << "; seed " << std::dec << kFournSeed;
}

std::uint32_t draw(std::mt19937& random) {
    return static_cast<std::uint32_t>(random());
}

TEST(FournExactFma, AnyBitsGiveTheBitsOfAFusedStep) {
    std::mt19937 random(kFournSeed);
    for (int i = 0; i < 1'000'000; ++i)
        expectLikeTheInstruction(std::bit_cast<float>(draw(random)),
                                 std::bit_cast<float>(draw(random)),
                                 std::bit_cast<float>(draw(random)));
}

TEST(FournExactFma, TwiddleProductsGiveTheBitsOfAFusedStep) {
    std::mt19937 random(kFournSeed);
    std::uniform_real_distribution<float> unit(-1, 1);
    for (int i = 0; i < 1'000'000; ++i) {
        const float value = std::ldexp(unit(random), static_cast<int>(draw(random) % 40));
        const float other = std::ldexp(unit(random), static_cast<int>(draw(random) % 40));
        expectLikeTheInstruction(unit(random), value, unit(random) * other);
    }
}

TEST(FournExactFma, SumsThatLieAlmostHalfwayRoundOnce) {
    // Products a little beside a power of two, by less than a Double holds beside an
    // addend whose half last place that power is: rounded to Double first, the sum
    // would be a tie.
    struct Product {
        float a;
        float b;
        int exponent;
    };
    const std::vector<Product> products = {
        {0x1.000002p23F, 0x1.fffffcp22F, 46},  // 2^46 - 1
        {0x1.000004p22F, 0x1.fffff8p21F, 44},  // 2^44 - 1
        {0x1.00001p20F, 0x1.ffffep19F, 40},    // 2^40 - 1
        {0x1.001p12F, 0x1.ffe002p23F, 36},     // 2^36 + 1
    };
    std::mt19937 random(kFournSeed);
    int beside = 0;
    for (const Product& product : products) {
        for (int exponent = -125; exponent <= 100; ++exponent) {
            for (int i = 0; i < 64; ++i) {
                const float fraction =
                    std::bit_cast<float>((draw(random) & 0x007FFFFFU) | 0x3F800000U);
                const float c = std::ldexp(i % 2 == 0 ? fraction : -fraction, exponent);
                const float sign = i % 4 < 2 ? 1.0F : -1.0F;
                const float a = std::ldexp(product.a, exponent - 24 - product.exponent);
                expectLikeTheInstruction(sign * a, product.b, c);
                const double rounded = static_cast<double>(sign * a) * product.b + c;
                beside += static_cast<float>(rounded) != std::fma(sign * a, product.b, c);
            }
        }
    }
    EXPECT_GT(beside, 1000) << "sums that a Double alone would round wrongly";
}

TEST(FournExactFma, SubnormalSumsThatLieAlmostHalfwayRoundOnce) {
    for (int last = 0; last < 64; ++last) {
        const float c = std::ldexp(static_cast<float>(0x400000 + last), -149);
        // 2^-150 and a little less, then a little more, in either direction.
        expectLikeTheInstruction(0x1.000002p-98F, 0x1.fffffcp-53F, c);
        expectLikeTheInstruction(-0x1.000002p-98F, 0x1.fffffcp-53F, c);
        expectLikeTheInstruction(0x1.001p-98F, 0x1.ffe002p-53F, c);
        expectLikeTheInstruction(-0x1.001p-98F, 0x1.ffe002p-53F, c);
        expectLikeTheInstruction(0x1p-98F, 0x1p-52F, c);
    }
}

TEST(FournExactFma, ProductsOfOddFractionsBesideTheirOwnRoundingRoundOnce) {
    // c is the rounded product or a neighbour, so the sum is the error of the
    // product or close to it; scaled down, it is subnormal.
    std::mt19937 random(kFournSeed);
    for (int i = 0; i < 300'000; ++i) {
        const auto fraction = [&] {
            return std::bit_cast<float>((draw(random) & 0x007FFFFFU) | 0x3F800001U);
        };
        const int scale = -static_cast<int>(draw(random) % 150);
        const float a = std::ldexp(fraction(), scale);
        const float b = fraction();
        const float rounded = -(a * b);
        expectLikeTheInstruction(a, b, rounded);
        expectLikeTheInstruction(a, b, std::nextafter(rounded, 1.0F));
        expectLikeTheInstruction(a, b, std::nextafter(rounded, -1.0F));
        expectLikeTheInstruction(a, b, std::ldexp(rounded, 24));
        expectLikeTheInstruction(a, b, std::ldexp(1.0F, scale + 25));
        expectLikeTheInstruction(a, b, -std::ldexp(1.0F, scale + 26));
    }
}

TEST(FournExactFma, EdgesGiveTheBitsOfAFusedStep) {
    const float infinity = std::numeric_limits<float>::infinity();
    const std::vector<float> edges = {0.0F,
                                      -0.0F,
                                      1.0F,
                                      -1.0F,
                                      0x1p-149F,
                                      -0x1p-149F,
                                      0x1p-126F,
                                      -0x1p-126F,
                                      0x1.8p-149F,
                                      0x1p-75F,
                                      0x1p-74F,
                                      -0x1p-75F,
                                      0x1.fffffep127F,
                                      -0x1.fffffep127F,
                                      infinity,
                                      -infinity,
                                      0x1p104F,
                                      0x1p103F,
                                      0x1p64F,
                                      0x1p24F,
                                      0x1.000002p0F,
                                      0x1.fffffep-1F,
                                      0x1.fffffcp-127F,
                                      std::numeric_limits<float>::quiet_NaN()};
    for (const float a : edges)
        for (const float b : edges)
            for (const float c : edges)
                expectLikeTheInstruction(a, b, c);
}

}  // namespace
}  // namespace quillon::kernels
