#include "tests/support/fourn_grids.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <utility>

#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

constexpr std::size_t kSide = 256;

FournGrid square() {
    return FournGrid({256, 256});
}

FournGrid constant(Single re, Single im) {
    FournGrid grid = square();
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        grid.re(k) = re;
        grid.im(k) = im;
    }
    return grid;
}

FournGrid impulse(std::size_t element, Single re, Single im) {
    FournGrid grid = square();
    grid.re(element) = re;
    grid.im(element) = im;
    return grid;
}

FournGrid picture(int kind) {
    FournGrid grid = square();
    const std::vector<std::uint8_t> bytes = testPicture(kind);
    for (std::size_t x = 0; x < kSide; ++x)
        for (std::size_t y = 0; y < kSide; ++y)
            grid.re(x * kSide + y) = bytes[y * kSide + x];
    return grid;
}

FournGrid spectrumOf(FournGrid grid) {
    plainFourn(grid.data, grid.nn, grid.ndim(), 1);
    return grid;
}

FournGrid divided(FournGrid grid) {
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        grid.re(k) /= 65536.0F;
        grid.im(k) /= 65536.0F;
    }
    return grid;
}

FournGrid noise(std::mt19937& random, Single magnitude) {
    FournGrid grid = square();
    fillRandom(grid, random, magnitude);
    return grid;
}

/// Zeros of both signs, with a few other values among them.
FournGrid signedZeros(std::mt19937& random, unsigned othersInThousand) {
    FournGrid grid = square();
    const auto draw = [&] {
        const auto bits = static_cast<std::uint32_t>(random());
        if (bits % 1000 < othersInThousand)
            return static_cast<Single>(static_cast<int>(bits >> 24)) - 128.0F;
        return bits & 0x80000000U ? -0.0F : 0.0F;
    };
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        grid.re(k) = draw();
        grid.im(k) = draw();
    }
    return grid;
}

/// Random signs, exponents and fractions; sums stay finite.
FournGrid allExponents(std::mt19937& random) {
    FournGrid grid = square();
    const auto draw = [&] {
        const auto fraction = static_cast<Single>(random() >> 8) - 8388608.0F;
        return std::ldexp(fraction, static_cast<int>(random() % 230) - 160);
    };
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        grid.re(k) = draw();
        grid.im(k) = draw();
    }
    return grid;
}

}  // namespace

FournGrid::FournGrid(const std::vector<Long>& sides) : nn{0} {
    std::size_t total = 1;
    for (const Long side : sides) {
        nn.push_back(side);
        total *= static_cast<std::size_t>(side);
    }
    data.assign(2 * total + 2, 0.0F);
    data.front() = kFournGuard;
    data.back() = kFournGuard;
}

void fillRandom(FournGrid& grid, std::mt19937& random, Single magnitude) {
    std::uniform_real_distribution<Single> uniform(-magnitude, magnitude);
    for (std::size_t k = 0; k < grid.elements(); ++k) {
        grid.re(k) = uniform(random);
        grid.im(k) = uniform(random);
    }
}

std::vector<std::uint8_t> testPicture(int kind) {
    std::vector<std::uint8_t> bytes(kSide * kSide);
    std::mt19937 random(kFournSeed);
    for (std::size_t y = 0; y < kSide; ++y) {
        for (std::size_t x = 0; x < kSide; ++x) {
            const auto dx = static_cast<double>(x) - 100;
            const auto dy = static_cast<double>(y) - 140;
            std::size_t grey = 255;
            if (kind == 0)
                grey = dx * dx + dy * dy < 3600 ? 230 : x / 3 + y / 5;
            else if (kind == 1)
                grey = std::min(x, y) < 9 ? 0 : 40 + 150 * ((x + 2 * y) / 7 % 2);
            else if (kind == 2)
                grey = random() & 0xFFU;
            bytes[y * kSide + x] = static_cast<std::uint8_t>(grey);
        }
    }
    return bytes;
}

std::vector<NamedGrid> squareGrids() {
    std::mt19937 random(kFournSeed);
    std::vector<NamedGrid> grids;
    const auto add = [&](std::string name, FournGrid grid) {
        grids.push_back({std::move(name), std::move(grid)});
    };
    add("noise", noise(random, 1.0F));
    add("large noise", noise(random, 1e30F));
    add("subnormal noise", noise(random, 1e-39F));
    add("all exponents", allExponents(random));
    add("impulse at the origin", impulse(0, 1, 0));
    add("impulse at the second element", impulse(1, 1, 0));
    add("imaginary impulse", impulse(77 * kSide + 201, 0, -3));
    add("constant", constant(3, 0));
    add("negative constant", constant(-1, -0.0F));
    add("disc", picture(0));
    add("stripes", picture(1));
    add("noise picture", picture(2));
    add("white", picture(3));
    add("spectrum of the disc", spectrumOf(picture(0)));
    add("divided spectrum of the stripes", divided(spectrumOf(picture(1))));
    add("divided spectrum of white", divided(spectrumOf(picture(3))));
    add("spectrum of subnormal noise, divided", divided(spectrumOf(noise(random, 1e-41F))));
    add("zeros", square());
    add("negative zeros", constant(-0.0F, -0.0F));
    add("zeros of both signs", signedZeros(random, 0));
    add("zeros of both signs and few others", signedZeros(random, 2));
    add("zeros of both signs and many others", signedZeros(random, 500));
    return grids;
}

void expectSameBits(std::span<const Single> actual, std::span<const Single> expected,
                    const std::string& what) {
    ASSERT_EQ(actual.size(), expected.size()) << what;
    if (std::memcmp(actual.data(), expected.data(), actual.size_bytes()) == 0)
        return;
    for (std::size_t i = 0; i < actual.size(); ++i) {
        if (std::memcmp(&actual[i], &expected[i], sizeof(Single)) != 0) {
            ADD_FAILURE() << what << ": index " << i << " is " << std::hexfloat << actual[i]
                          << ", not " << expected[i] << "; seed " << std::dec << kFournSeed;
            return;
        }
    }
}

}  // namespace quillon
