#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <vector>

#include "engine/kernels/greys.h"

namespace quillon {
namespace {

constexpr std::uint32_t kSeed = 20240622;
/// What stands behind the words that a kernel may write.
constexpr std::int32_t kGuard = 0x5A5A5A5A;

using kernels::GreyScale;

/// The steps as they are told, one by one.
std::int32_t plainGrey(float re, const GreyScale& scale) {
    const float above = re - scale.lowest;
    const float product = above * 255.0F;
    const float level = product / scale.range;
    const auto rounded = static_cast<std::int32_t>(std::nearbyint(level));
    const std::int32_t grey = scale.flip == 255 ? 255 - rounded : rounded;
    return grey * 0x010101;
}

GreyScale scaleOf(const std::vector<float>& parts, std::int32_t flip) {
    const auto [lowest, highest] = std::ranges::minmax(parts);
    return {lowest, highest - lowest, flip};
}

class GreysLevels : public testing::TestWithParam<std::size_t> {
protected:
    static void expectPlainGreys(const std::vector<float>& parts, const std::string& name) {
        for (const std::int32_t flip : {0, 255}) {
            const GreyScale scale = scaleOf(parts, flip);
            std::vector<std::int32_t> expected;
            for (const float re : parts)
                expected.push_back(plainGrey(re, scale));
            expected.push_back(kGuard);
            std::vector<std::int32_t> words(parts.size() + 1, kGuard);
            kernels::greysLevels()[GetParam()](parts.data(), parts.size(), scale, words.data());
            EXPECT_EQ(words, expected) << name << ", flip " << flip;
        }
    }
};

INSTANTIATE_TEST_SUITE_P(OfThisMachine, GreysLevels,
                         testing::Range(std::size_t{0}, kernels::greysLevels().size()));

TEST_P(GreysLevels, OfRandomPartsAreThoseOfThePlainSteps) {
    std::mt19937 random(kSeed);
    for (const float size : {1e-30F, 0.7342F, 255.0F, 1e6F, 1e33F}) {
        std::normal_distribution<float> normal(0, size);
        std::vector<float> parts(256 * 256);
        std::ranges::generate(parts, [&] { return normal(random); });
        expectPlainGreys(parts, "size " + std::to_string(size) + ", seed 20240622");
    }
}

TEST_P(GreysLevels, OfPartsOnTheBordersBetweenGreysAreThoseOfThePlainSteps) {
    for (const float range : {255.0F, 510.0F, 0.7342F, 3.0F}) {
        std::vector<float> parts{0.0F, -0.0F, range};
        for (int level = 0; level < 255; ++level) {
            const float border = (static_cast<float>(level) + 0.5F) * range / 255.0F;
            parts.push_back(border);
            parts.push_back(std::nextafter(border, 0.0F));
            parts.push_back(std::nextafter(border, 2 * range));
        }
        expectPlainGreys(parts, "range " + std::to_string(range));
    }
}

TEST_P(GreysLevels, OfTheSmallestPartsAreThoseOfThePlainSteps) {
    constexpr float kTiny = std::numeric_limits<float>::denorm_min();
    std::vector<float> parts;
    for (int i = -9; i <= 9; ++i)
        parts.push_back(static_cast<float>(i) * kTiny);
    expectPlainGreys(parts, "subnormal");
}

TEST_P(GreysLevels, OfAnyNumberOfPartsEndWithTheLast) {
    std::mt19937 random(kSeed);
    std::normal_distribution<float> normal;
    for (std::size_t count = 2; count < 70; ++count) {
        std::vector<float> parts(count);
        std::ranges::generate(parts, [&] { return normal(random); });
        expectPlainGreys(parts, std::to_string(count) + " parts");
    }
}

TEST(GreysLevelChoice, TheLastLevelServesTheLab) {
    EXPECT_EQ(kernels::greysLevels().front(), &kernels::greysPortable);
    EXPECT_EQ(kernels::greys(), kernels::greysLevels().back());
}

}  // namespace
}  // namespace quillon
