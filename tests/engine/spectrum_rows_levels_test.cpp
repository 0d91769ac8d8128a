#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "engine/kernels/spectrum_rows.h"

namespace quillon::kernels {
namespace {

constexpr std::uint32_t kSeed = 20240711;
constexpr float kInfinite = std::numeric_limits<float>::infinity();
/// Ends in the midst of vectors of any width.
const std::size_t kCounts[] = {0, 1, 2, 3, 4, 5, 7, 8, 9, 15, 16, 17, 31, 33, 256, 1000};

/// Every level that this machine has, on finite values of every size and sign.
class SpectrumRowsLevels : public testing::TestWithParam<const SpectrumRows*> {
protected:
    SpectrumRowsLevels() { RecordProperty("seed", static_cast<int>(kSeed)); }

    std::vector<float> values(std::size_t count) {
        std::vector<float> made(count);
        for (float& value : made) {
            do
                value = std::bit_cast<float>(static_cast<std::uint32_t>(random_()));
            while (!std::isfinite(value));
            if (random_() % 8 == 0)
                value = random_() % 2 == 0 ? 0.0F : -0.0F;
            if (random_() % 3 == 0)
                value = static_cast<float>(static_cast<int>(random_() % 2001) - 1000) / 2;
        }
        return made;
    }

    const SpectrumRows& rows = *GetParam();
    std::mt19937 random_{kSeed};
};

void expectSameBits(const std::vector<float>& found, const std::vector<float>& expected) {
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i)
        ASSERT_EQ(std::bit_cast<std::uint32_t>(found[i]), std::bit_cast<std::uint32_t>(expected[i]))
            << i << ": " << found[i] << " and not " << expected[i];
}

TEST_P(SpectrumRowsLevels, MagnitudesAreFormedInDoubleAndRoundedOnce) {
    for (const std::size_t count : kCounts) {
        const std::vector<float> re = values(count);
        const std::vector<float> im = values(count);
        std::vector<float> found(count + 1, 77);
        std::vector<float> expected(count + 1, 77);
        for (std::size_t i = 0; i < count; ++i) {
            const double x = re[i];
            const double y = im[i];
            expected[i] = static_cast<float>(std::sqrt(x * x + y * y));
        }
        rows.magnitudes(re.data(), im.data(), count, found.data());
        expectSameBits(found, expected);
    }
}

TEST_P(SpectrumRowsLevels, TheGreatestSizeIsThatOfAnySign) {
    for (const std::size_t count : kCounts) {
        const std::vector<float> all = values(count);
        float expected = 0;
        for (const float value : all)
            expected = std::max(expected, std::abs(value));
        EXPECT_EQ(rows.greatest(all.data(), count), expected);
    }
}

TEST_P(SpectrumRowsLevels, TheInfiniteLieAboveAllAndWhatIsNoNumberAboveThem) {
    std::vector<float> all = values(100);
    for (const std::size_t at : {0U, 50U, 99U}) {
        std::vector<float> one = all;
        one[at] = -kInfinite;
        EXPECT_EQ(rows.greatest(one.data(), one.size()), kInfinite);
        for (const float sign : {1.0F, -1.0F}) {
            std::vector<float> two = one;
            two[99 - at / 2] = std::copysign(std::numeric_limits<float>::quiet_NaN(), sign);
            EXPECT_TRUE(std::isnan(rows.greatest(two.data(), two.size())));
        }
    }
}

TEST_P(SpectrumRowsLevels, ScalesByOneRoundedStepAfterTheOther) {
    for (const std::size_t count : kCounts)
        for (const float divisor : {1.0F, 255.0F, 0.37F, 1e-30F, 3e38F}) {
            const std::vector<float> all = values(count);
            std::vector<float> linear = all;
            std::vector<float> root = all;
            for (float& value : linear) {
                value = value / divisor;
                value = value * 255.0F;
            }
            for (float& value : root) {
                float t = std::abs(value) / divisor;
                t = t * 255.0F;
                const float size =
                    t < 1.0F ? 0.0F : static_cast<float>(std::sqrt(static_cast<double>(t)));
                value = std::signbit(value) ? -size : size;
            }
            std::vector<float> found = all;
            rows.scaleLinear(found.data(), count, divisor);
            expectSameBits(found, linear);
            found = all;
            rows.scaleSquareRoot(found.data(), count, divisor);
            expectSameBits(found, root);
        }
}

TEST_P(SpectrumRowsLevels, LevelsAreTheNearestWithTiesToTheEvenOne) {
    for (const std::size_t count : kCounts)
        for (const float factor : {1.0F, 0.05F, 7.77F, 0.0F})
            for (const std::uint8_t flip : {std::uint8_t{0}, std::uint8_t{255}}) {
                std::vector<float> steps = values(count);
                // A product above the range of a float is told before.
                for (float& step : steps)
                    step = std::abs(step) > 1e36F ? 12.5F : step;
                std::vector<std::uint8_t> found(count + 1, 99);
                std::vector<std::uint8_t> expected(count + 1, 99);
                for (std::size_t i = 0; i < count; ++i) {
                    const float x = std::abs(steps[i]) * factor;
                    const auto g = static_cast<std::uint8_t>(std::nearbyint(std::min(x, 255.0F)));
                    expected[i] = flip == 0 ? g : static_cast<std::uint8_t>(255 - g);
                }
                rows.levels(steps.data(), count, factor, flip, found.data());
                EXPECT_EQ(found, expected);
            }
}

TEST_P(SpectrumRowsLevels, EveryHalfGoesToTheEvenLevel) {
    std::vector<float> steps;
    for (int level = 0; level < 255; ++level)
        for (const float border : {static_cast<float>(level) + 0.5F})
            for (const float step :
                 {std::nextafter(border, 0.0F), border, -border, std::nextafter(border, kInfinite)})
                steps.push_back(step);
    std::vector<std::uint8_t> found(steps.size());
    rows.levels(steps.data(), steps.size(), 1, 0, found.data());
    for (std::size_t i = 0; i < steps.size(); ++i)
        EXPECT_EQ(found[i], std::nearbyint(std::abs(steps[i]))) << steps[i];
}

INSTANTIATE_TEST_SUITE_P(EveryInstructionSet, SpectrumRowsLevels,
                         testing::ValuesIn(spectrumRowsLevels().begin(),
                                           spectrumRowsLevels().end()),
                         [](const auto& info) { return std::string(info.param->name); });

}  // namespace
}  // namespace quillon::kernels
