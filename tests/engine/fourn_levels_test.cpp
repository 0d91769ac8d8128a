#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "engine/fourn.h"
#include "engine/kernels/aligned_floats.h"
#include "engine/kernels/transform256_levels.h"
#include "engine/transform256.h"
#include "tests/support/fourn_grids.h"
#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

constexpr std::array<Integer, 2> kBothSigns = {1, -1};
constexpr std::size_t kSide = 256;
constexpr std::size_t kFloats = 2 * kSide * kSide;
/// What stands in the columns behind the 256 of a plane.
constexpr Single kPadding = 31337.5F;

using kernels::Transform256Level;

const kernels::Twiddles256& twiddles(Integer isign) {
    return isign > 0 ? kernels::kForwardTwiddles : kernels::kInverseTwiddles;
}

FournGrid plain(FournGrid grid, Integer isign) {
    plainFourn(grid.data, grid.nn, grid.ndim(), isign);
    return grid;
}

std::span<const Single> elementsOf(const FournGrid& grid) {
    return std::span<const Single>(grid.data).subspan(1, kFloats);
}

/// Planes of 256 by 256 cells with padding behind every row and below the last.
ComplexGrid paddedPlanes() {
    ComplexGrid planes(256, 256);
    for (std::ptrdiff_t y = 0; y <= 256; ++y) {
        for (std::ptrdiff_t x = y < 256 ? 256 : 0; x < planes.stride(); ++x) {
            planes.realPlane()[y * planes.stride() + x] = kPadding;
            planes.imaginaryPlane()[y * planes.stride() + x] = kPadding;
        }
    }
    return planes;
}

void expectPaddingUntouched(const ComplexGrid& planes) {
    for (std::ptrdiff_t y = 0; y <= 256; ++y) {
        for (std::ptrdiff_t x = y < 256 ? 256 : 0; x < planes.stride(); ++x) {
            ASSERT_EQ(planes.realPlane()[y * planes.stride() + x], kPadding) << x << "," << y;
            ASSERT_EQ(planes.imaginaryPlane()[y * planes.stride() + x], kPadding) << x << "," << y;
        }
    }
}

ComplexGrid planesOf(const FournGrid& grid) {
    ComplexGrid planes = paddedPlanes();
    for (std::size_t k = 0; k < kSide * kSide; ++k)
        planes(static_cast<Long>(k / kSide), static_cast<Long>(k % kSide)) = {grid.re(k),
                                                                              grid.im(k)};
    return planes;
}

/// The 256 by 256 real parts, in the order of the flattened array.
std::vector<Single> realParts(const ComplexGrid& planes) {
    std::vector<Single> values;
    for (Long x = 0; x < 256; ++x)
        for (Long y = 0; y < 256; ++y)
            values.push_back(planes(x, y).re);
    return values;
}

std::vector<Single> imaginaryParts(const ComplexGrid& planes) {
    std::vector<Single> values;
    for (Long x = 0; x < 256; ++x)
        for (Long y = 0; y < 256; ++y)
            values.push_back(planes(x, y).im);
    return values;
}

std::vector<Single> realParts(const FournGrid& grid) {
    std::vector<Single> values;
    for (std::size_t k = 0; k < kSide * kSide; ++k)
        values.push_back(grid.re(k));
    return values;
}

std::vector<Single> imaginaryParts(const FournGrid& grid) {
    std::vector<Single> values;
    for (std::size_t k = 0; k < kSide * kSide; ++k)
        values.push_back(grid.im(k));
    return values;
}

bool isCut(const CellBits& cut, std::size_t x, std::size_t y) {
    return (cut[y][x / 8] >> (x % 8) & 1) != 0;
}

/// What an inverse is defined to work on: the spectrum divided, then cut.
FournGrid dividedAndCut(FournGrid spectrum, const CellBits* cut) {
    for (std::size_t k = 0; k < kSide * kSide; ++k) {
        const bool gone = cut != nullptr && isCut(*cut, k / kSide, k % kSide);
        spectrum.re(k) = gone ? 0.0F : spectrum.re(k) / 65536.0F;
        spectrum.im(k) = gone ? 0.0F : spectrum.im(k) / 65536.0F;
    }
    return spectrum;
}

/// A disc kept in the middle of the panel, and some cells here and there.
CellBits someCut() {
    CellBits cut{};
    std::mt19937 random(kFournSeed);
    for (std::size_t y = 0; y < kSide; ++y) {
        for (std::size_t x = 0; x < kSide; ++x) {
            const std::size_t dx = std::min(x, kSide - x);
            const std::size_t dy = std::min(y, kSide - y);
            if (dx * dx + dy * dy > 1600 || random() % 50 == 0)
                cut[y][x / 8] = static_cast<std::uint8_t>(cut[y][x / 8] | 1U << (x % 8));
        }
    }
    return cut;
}

CellBits everyCell() {
    CellBits cut;
    for (auto& row : cut)
        row.fill(0xFF);
    return cut;
}

class FournLevels : public testing::TestWithParam<const Transform256Level*> {
protected:
    static const Transform256Level& level() { return *GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(OfThisMachine, FournLevels,
                         testing::ValuesIn(kernels::transform256Levels().begin(),
                                           kernels::transform256Levels().end()),
                         [](const auto& info) {
                             std::string name = info.param->name;
                             std::erase_if(name, [](char c) { return c == ' ' || c == '-'; });
                             return name;
                         });

TEST_P(FournLevels, InPlaceItHasTheBitsOfThePlainLoop) {
    kernels::AlignedFloats data(kFloats);
    for (const NamedGrid& input : squareGrids()) {
        for (const Integer isign : kBothSigns) {
            const FournGrid expected = plain(input.grid, isign);
            std::ranges::copy(elementsOf(input.grid), data.data());
            level().flat(data.data(), data.data(), 512, twiddles(isign));
            expectSameBits({data.data(), kFloats}, elementsOf(expected), input.name);
        }
    }
}

TEST_P(FournLevels, WithRoomBetweenItHasTheBitsOfThePlainLoopAtAnyAlignment) {
    kernels::AlignedFloats between(256 * 528);
    kernels::AlignedFloats memory(kFloats + 32);
    const std::vector<NamedGrid> inputs = squareGrids();
    for (std::size_t offset = 1; offset <= 16; ++offset) {
        const NamedGrid& input = inputs[offset % inputs.size()];
        const FournGrid expected = plain(input.grid, 1);
        Single* const data = memory.data() + offset;
        data[-1] = kPadding;
        data[kFloats] = kPadding;
        std::ranges::copy(elementsOf(input.grid), data);
        level().flat(data, between.data(), 528, twiddles(1));
        expectSameBits({data, kFloats}, elementsOf(expected), input.name);
        EXPECT_EQ(data[-1], kPadding);
        EXPECT_EQ(data[kFloats], kPadding);
    }
}

TEST_P(FournLevels, FromPixelsItHasTheBitsOfThePlainLoop) {
    for (int kind = 0; kind < 4; ++kind) {
        const std::vector<std::uint8_t> pixels = testPicture(kind);
        FournGrid grid({256, 256});
        for (std::size_t k = 0; k < kSide * kSide; ++k)
            grid.re(k) = pixels[k % kSide * kSide + k / kSide];
        const FournGrid expected = plain(grid, 1);
        ComplexGrid spectrum = paddedPlanes();
        level().forward(pixels.data(), spectrum.realPlane(), spectrum.imaginaryPlane(),
                        spectrum.stride());
        const std::string name = "picture " + std::to_string(kind);
        expectSameBits(realParts(spectrum), realParts(expected), name + ", real");
        expectSameBits(imaginaryParts(spectrum), imaginaryParts(expected), name + ", imaginary");
        expectPaddingUntouched(spectrum);
    }
}

TEST_P(FournLevels, FromSinglePixelsItHasTheBitsOfThePlainLoop) {
    for (const std::size_t pixel : {0U, 1U, 255U, 256U, 32768U, 65535U}) {
        std::vector<std::uint8_t> pixels(kSide * kSide);
        pixels[pixel] = 200;
        FournGrid grid({256, 256});
        grid.re(pixel % kSide * kSide + pixel / kSide) = 200;
        const FournGrid expected = plain(grid, 1);
        ComplexGrid spectrum(256, 256);
        level().forward(pixels.data(), spectrum.realPlane(), spectrum.imaginaryPlane(),
                        spectrum.stride());
        expectSameBits(realParts(spectrum), realParts(expected), "real");
        expectSameBits(imaginaryParts(spectrum), imaginaryParts(expected), "imaginary");
    }
}

TEST_P(FournLevels, BackToAPictureItHasTheBitsOfThePlainLoop) {
    const CellBits cut = someCut();
    const CellBits all = everyCell();
    const CellBits none{};
    for (const NamedGrid& input : squareGrids()) {
        for (const CellBits* bits : {static_cast<const CellBits*>(nullptr), &none, &cut, &all}) {
            const FournGrid expected = plain(dividedAndCut(input.grid, bits), -1);
            const ComplexGrid spectrum = planesOf(input.grid);
            ComplexGrid picture = paddedPlanes();
            level().inverse(spectrum.realPlane(), spectrum.imaginaryPlane(),
                            bits == nullptr ? nullptr : bits->front().data(), picture.realPlane(),
                            picture.imaginaryPlane(), spectrum.stride());
            expectSameBits(realParts(picture), realParts(expected), input.name);
            expectPaddingUntouched(picture);
            expectSameBits(realParts(spectrum), realParts(input.grid),
                           input.name + ", the spectrum");
        }
    }
}

TEST_P(FournLevels, TheExtremesOfThePictureAreFound) {
    for (const NamedGrid& input : squareGrids()) {
        const ComplexGrid spectrum = planesOf(input.grid);
        ComplexGrid picture(256, 256);
        const InverseFindings findings =
            level().inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), nullptr,
                            picture.realPlane(), picture.imaginaryPlane(), spectrum.stride());
        const std::vector<Single> values = realParts(picture);
        EXPECT_EQ(findings.lowest, *std::ranges::min_element(values)) << input.name;
        EXPECT_EQ(findings.highest, *std::ranges::max_element(values)) << input.name;
    }
}

TEST_P(FournLevels, TheExtremesAreInfiniteWhereARealPartIsNotFinite) {
    constexpr Single kHuge = std::numeric_limits<Single>::max();
    constexpr Single kInfinite = std::numeric_limits<Single>::infinity();
    const auto extremes = [&](Single re, Single im) {
        ComplexGrid spectrum(256, 256);
        for (Long x = 0; x < 256; ++x)
            for (Long y = 0; y < 256; ++y)
                spectrum(x, y) = {x == 0 ? re : 0.0F, y == 3 ? im : 0.0F};
        ComplexGrid picture(256, 256);
        const InverseFindings findings =
            level().inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), nullptr,
                            picture.realPlane(), picture.imaginaryPlane(), spectrum.stride());
        return std::pair(findings.lowest, findings.highest);
    };
    EXPECT_EQ(extremes(kInfinite, 0), std::pair(-kInfinite, kInfinite));
    EXPECT_EQ(extremes(std::numeric_limits<Single>::quiet_NaN(), 0),
              std::pair(-kInfinite, kInfinite));
    // The large parts just fit; with the imaginary ones some sums do not.
    EXPECT_LT(extremes(kHuge, 0).second, kInfinite);
    EXPECT_EQ(extremes(kHuge, kInfinite), std::pair(-kInfinite, kInfinite));
}

TEST_P(FournLevels, OnlyARealPartThatIsLeftAfterTheDivisionCounts) {
    const auto anyRealPart = [&](Single re, Single im) {
        FournGrid grid({256, 256});
        grid.re(77 * kSide + 200) = re;
        grid.im(12 * kSide + 13) = im;
        const ComplexGrid spectrum = planesOf(grid);
        const CellBits all = everyCell();
        ComplexGrid picture(256, 256);
        return level()
            .inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), all.front().data(),
                     picture.realPlane(), picture.imaginaryPlane(), spectrum.stride())
            .anyRealPart;
    };
    EXPECT_TRUE(anyRealPart(1, 0)) << "the cut comes later";
    EXPECT_TRUE(anyRealPart(-0x1p-126F, 0));
    EXPECT_FALSE(anyRealPart(0, 5));
    EXPECT_FALSE(anyRealPart(-0.0F, 5));
    EXPECT_FALSE(anyRealPart(0x1p-149F, 0)) << "too small to be divided";
}

TEST(FournLevelChoice, TheLastLevelServesTheLab) {
    ASSERT_FALSE(kernels::transform256Levels().empty());
    EXPECT_EQ(kernels::transform256Levels().front(), &kernels::kPortableLevel);
    EXPECT_EQ(&kernels::transform256(), kernels::transform256Levels().back());
}

TEST(FournLevelChoice, TheDoorsUseIt) {
    const std::vector<std::uint8_t> pixels = testPicture(0);
    ComplexGrid spectrum(256, 256);
    forwardTransform256(std::span<const std::uint8_t, 65536>(pixels), spectrum);
    ComplexGrid expected(256, 256);
    kernels::transform256().forward(pixels.data(), expected.realPlane(), expected.imaginaryPlane(),
                                    spectrum.stride());
    expectSameBits(realParts(spectrum), realParts(expected), "real");
    expectSameBits(imaginaryParts(spectrum), imaginaryParts(expected), "imaginary");

    ComplexGrid picture(256, 256);
    const InverseFindings findings = inverseTransform256(spectrum, nullptr, picture);
    EXPECT_TRUE(findings.anyRealPart);
    // The transform there and back gives the picture within the rounding.
    const std::vector<Single> values = realParts(picture);
    for (std::size_t k = 0; k < values.size(); ++k)
        ASSERT_NEAR(values[k], pixels[k % kSide * kSide + k / kSide], 1e-3) << k;
    const CellBits all = everyCell();
    inverseTransform256(spectrum, &all, picture);
    EXPECT_EQ(realParts(picture), std::vector<Single>(kSide * kSide, 0.0F));
}

}  // namespace
}  // namespace quillon
