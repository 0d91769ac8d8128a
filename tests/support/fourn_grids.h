#pragma once

#include <cstdint>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "engine/Numbers.h"

namespace quillon {

/// A grid laid out for fourn: the sides of nn from index 1, the data from index
/// 1, first dimension fastest, with a guard at index 0 and beyond the end.
struct FournGrid {
    std::vector<Long> nn;
    std::vector<Single> data;

    explicit FournGrid(const std::vector<Long>& sides);

    Integer ndim() const { return static_cast<Integer>(nn.size() - 1); }
    std::size_t elements() const { return (data.size() - 2) / 2; }
    Single& re(std::size_t k) { return data[2 * k + 1]; }
    Single& im(std::size_t k) { return data[2 * k + 2]; }
    Single re(std::size_t k) const { return data[2 * k + 1]; }
    Single im(std::size_t k) const { return data[2 * k + 2]; }
};

/// What stands at index 0 and beyond the end of a FournGrid.
inline constexpr Single kFournGuard = -12345.678F;

/// A named input of side 256 by 256.
struct NamedGrid {
    std::string name;
    FournGrid grid;
};

/// The seed of the random grids of these tests.
inline constexpr std::uint32_t kFournSeed = 20240611;

/// Uniform values from -magnitude to magnitude in both parts.
void fillRandom(FournGrid& grid, std::mt19937& random, Single magnitude);

/// The bytes of a picture of 256 by 256 in raster order, of four kinds: 0 a disc
/// on a slope, 1 stripes under a frame, 2 noise, 3 white.
std::vector<std::uint8_t> testPicture(int kind);

/// Inputs of 256 by 256 that between them meet every kind of value: noise of
/// many sizes, impulses, constants, pictures, spectra, a spectrum divided by the
/// number of elements, zeros of both signs, values down to the subnormal ones.
std::vector<NamedGrid> squareGrids();

/// A failure that names the first element whose bits differ, if any does.
void expectSameBits(std::span<const Single> actual, std::span<const Single> expected,
                    const std::string& what);

}  // namespace quillon
