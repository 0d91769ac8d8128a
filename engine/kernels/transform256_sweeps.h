#pragma once

#include <cstddef>
#include <cstdint>

#include "engine/kernels/transform256_kernel.h"
#include "engine/kernels/transform256_levels.h"

namespace quillon::kernels {

/// The transforms of Transform256Level on the vectors of one instruction set: two
/// sweeps over the memory each, one along the rows and one down the columns.
///
/// A sweep down the columns works on one tile at a time: kWidth columns, which are
/// one block of eight neighbours (n) or two (n and n + 16). Between the sweeps the
/// values of a row lie tile by tile, so that a tile is a vector.
///
/// To the vectors of a Kernel the ends of the sweeps add
///   loadInterleaved   eight pairs of each of kRows rows, as kInterleavedOrder tells
///   storeInterleaved  a tile in the order of the lanes as pairs, block by block
///   loadTile, loadPixels  the tile n of a row, blocks in natural order
///   joinRows, partRows    where kRows is 2: a tile of one row and of the next to
///                     two blocks of both rows, and back; the latter takes the
///                     lanes from the order of kLaneFrequency to the natural one
///   storeTile         a tile of frequencies into a row, in natural order
///   keepCells, keep   the lanes of a tile whose bits are not set
template <class V>
struct Sweeps {
    using K = Kernel<V>;
    using Pack = typename K::Pack;
    using Reg = typename V::Reg;

    static constexpr int kTiles = 256 / V::kWidth;
    /// Where the imaginary parts of a tile lie behind the real ones, in a row of
    /// pairs whose values lie tile by tile.
    static constexpr int kImaginary = V::kRows == 1 ? 8 : 256;

    /// x divided by 65536. The product with the reciprocal rounds the same number,
    /// so it gives the same bits, also where the result is subnormal.
    static constexpr float kReciprocal = 1.0F / 65536.0F;

    /// Packs q, q+8, q+16 and q+24 of kRows rows from their tiles, one part.
    [[gnu::always_inline]] static void loadRows(const float* row, std::ptrdiff_t stride, int q,
                                                Reg (&x)[4]) noexcept {
        if constexpr (V::kRows == 1) {
            unrolled<4>([&](auto k) { x[k] = V::load(row + V::kWidth * (q + 8 * k)); });
        } else {
            unrolled<2>([&](auto k) {
                const float* const p = row + V::kWidth * (q + 8 * k);
                x[k] = V::load(p);
                x[k + 2] = V::load(p + stride);
                V::joinRows(x[k], x[k + 2]);
            });
        }
    }

    /// Visits what rows() leaves as visit(row, tile, pack), tile by tile.
    template <class Visit>
    [[gnu::always_inline]] static void eachTile(int n, Pack (&x)[8], const Visit& visit) noexcept {
        if constexpr (V::kRows == 1) {
            unrolled<8>([&](auto k) { visit(0, n + 4 * K::kReversed3[k], x[k]); });
        } else {
            unrolled<4>([&](auto k) {
                Pack& row = x[2 * k];
                Pack& next = x[2 * k + 1];
                V::partRows(row.re, next.re);
                V::partRows(row.im, next.im);
                visit(0, n + 4 * K::kReversed3[2 * k], row);
                visit(1, n + 4 * K::kReversed3[2 * k], next);
            });
        }
    }

    [[gnu::flatten]] static void flatRows(const float* data, float* between, std::ptrdiff_t stride,
                                          const Twiddles256& w) noexcept {
        for (int y = 0; y < 256; y += V::kRows) {
            const float* const from = data + 512 * y;
            float* const to = between + stride * y;
            K::rows(
                w, V::kInterleavedOrder,
                [from](int q, Pack(&x)[4]) {
                    unrolled<4>([&](auto k) {
                        const float* const p = from + 16 * (q + 8 * k);
                        V::loadInterleaved(p, p + 512, x[k].re, x[k].im);
                    });
                },
                [to, stride](int n, Pack(&x)[8]) {
                    eachTile(n, x, [to, stride](int row, int tile, const Pack& pack) {
                        float* const p = to + stride * row + 16 * tile;
                        V::store(p, pack.re);
                        V::store(p + kImaginary, pack.im);
                    });
                });
        }
    }

    [[gnu::flatten]] static void flatColumns(const float* between, std::ptrdiff_t stride,
                                             float* data, const Twiddles256& w) noexcept {
        for (int tile = 0; tile < kTiles; ++tile) {
            const float* const from = between + 16 * tile;
            float* const to = data + 16 * tile;
            const auto source = [from, stride](int y) {
                const float* const p = from + stride * y;
                return Pack{V::load(p), V::load(p + kImaginary)};
            };
            K::columns(
                w,
                [&w, &source](int i, Pack(&x)[4]) {
                    unrolled<4>([&](auto k) { x[k] = source(i + 64 * k); });
                    K::firstRadix4(x, w);
                },
                [to](int f, const Pack& pack) {
                    V::storeInterleaved(to + 512 * f, pack.re, pack.im);
                });
        }
    }

    static void flat(float* data, float* between, std::ptrdiff_t stride,
                     const Twiddles256& w) noexcept {
        flatRows(data, between, stride, w);
        flatColumns(between, stride, data, w);
    }

    /// A sink for columns(): the tile as it is, in planes.
    [[gnu::always_inline]] static auto tileStore(float* re, float* im, std::ptrdiff_t stride,
                                                 int tile) noexcept {
        return [=](int f, const Pack& pack) {
            V::store(re + stride * f + V::kWidth * tile, pack.re);
            V::store(im + stride * f + V::kWidth * tile, pack.im);
        };
    }
    /// A source for rows(): kRows rows from their tiles in planes.
    [[gnu::always_inline]] static auto tileLoad(const float* re, const float* im,
                                                std::ptrdiff_t stride) noexcept {
        return [=](int q, Pack(&x)[4]) {
            Reg parts[4];
            loadRows(re, stride, q, parts);
            unrolled<4>([&](auto k) { x[k].re = parts[k]; });
            loadRows(im, stride, q, parts);
            unrolled<4>([&](auto k) { x[k].im = parts[k]; });
        };
    }

    [[gnu::flatten]] static void forwardColumns(const std::uint8_t* pixels, float* re, float* im,
                                                std::ptrdiff_t stride) noexcept {
        const Twiddles256& w = kForwardTwiddles;
        for (int tile = 0; tile < kTiles; ++tile) {
            K::columns(
                w,
                [&w, pixels, tile](int i, Pack(&x)[4]) {
                    Reg grey[4];
                    unrolled<4>([&](auto k) {
                        grey[k] = V::loadPixels(pixels + 256 * (i + 64 * k), tile);
                    });
                    K::firstRadix4Real(grey, x, w);
                },
                tileStore(re, im, stride, tile));
        }
    }

    [[gnu::flatten]] static void forwardRows(float* re, float* im, std::ptrdiff_t stride) noexcept {
        for (int y = 0; y < 256; y += V::kRows) {
            float* const rowRe = re + stride * y;
            float* const rowIm = im + stride * y;
            K::rows(kForwardTwiddles, kNaturalOrder, tileLoad(rowRe, rowIm, stride),
                    [=](int n, Pack(&x)[8]) {
                        eachTile(n, x, [=](int row, int tile, const Pack& pack) {
                            V::storeTile(rowRe + stride * row, tile, pack.re);
                            V::storeTile(rowIm + stride * row, tile, pack.im);
                        });
                    });
        }
    }

    static void forward(const std::uint8_t* pixels, float* re, float* im,
                        std::ptrdiff_t stride) noexcept {
        forwardColumns(pixels, re, im, stride);
        forwardRows(re, im, stride);
    }

    /// Returns whether any real part is left after the division.
    template <bool hasCut>
    [[gnu::flatten]] static bool inverseColumns(const float* re, const float* im,
                                                const std::uint8_t* cut, float* outRe, float* outIm,
                                                std::ptrdiff_t stride) noexcept {
        const Twiddles256& w = kInverseTwiddles;
        const Reg reciprocal = V::broadcast(&kReciprocal);
        Reg bits = V::zero();
        for (int tile = 0; tile < kTiles; ++tile) {
            const auto source = [&](int y) {
                Pack x = {V::mul(V::loadTile(re + stride * y, tile), reciprocal),
                          V::mul(V::loadTile(im + stride * y, tile), reciprocal)};
                bits = V::bitOr(bits, x.re);
                if constexpr (hasCut) {
                    const auto kept = V::keepCells(cut + 32 * y, tile);
                    x.re = V::keep(kept, x.re);
                    x.im = V::keep(kept, x.im);
                }
                return x;
            };
            K::columns(
                w,
                [&w, &source](int i, Pack(&x)[4]) {
                    unrolled<4>([&](auto k) { x[k] = source(i + 64 * k); });
                    K::firstRadix4(x, w);
                },
                tileStore(outRe, outIm, stride, tile));
        }
        float parts[V::kWidth];
        V::store(parts, bits);
        bool any = false;
        for (const float part : parts)
            any = any || part != 0.0F;  // A zero has no bit but its sign.
        return any;
    }

    /// The real parts of the rows, in place, and their extremes.
    [[gnu::flatten]] static void inverseRows(float* re, const float* im, std::ptrdiff_t stride,
                                             InverseFindings& findings) noexcept {
        Reg lowest = V::broadcast(&kHuge);
        Reg highest = V::sub(V::zero(), lowest);
        // A product with 0 is 0, but not that of a value that is not finite.
        Reg products = V::zero();
        for (int y = 0; y < 256; y += V::kRows) {
            float* const rowRe = re + stride * y;
            K::rows(kInverseTwiddles, kNaturalOrder, tileLoad(rowRe, im + stride * y, stride),
                    [&](int n, Pack(&x)[8]) {
                        eachTile(n, x, [&](int row, int tile, const Pack& pack) {
                            lowest = V::min(lowest, pack.re);
                            highest = V::max(highest, pack.re);
                            products = V::sum0(products, pack.re);
                            V::storeTile(rowRe + stride * row, tile, pack.re);
                        });
                    });
        }
        float low[V::kWidth];
        float high[V::kWidth];
        float product[V::kWidth];
        V::store(low, lowest);
        V::store(high, highest);
        V::store(product, products);
        findings.lowest = kHuge;
        findings.highest = -kHuge;
        bool allFinite = true;
        for (int i = 0; i < V::kWidth; ++i) {
            findings.lowest = low[i] < findings.lowest ? low[i] : findings.lowest;
            findings.highest = high[i] > findings.highest ? high[i] : findings.highest;
            allFinite = allFinite && product[i] == 0.0F;
        }
        if (!allFinite) {
            findings.lowest = -kHuge;
            findings.highest = kHuge;
        }
    }

    static InverseFindings inverse(const float* re, const float* im, const std::uint8_t* cut,
                                   float* outRe, float* outIm, std::ptrdiff_t stride) noexcept {
        InverseFindings findings;
        findings.anyRealPart = cut != nullptr
                                   ? inverseColumns<true>(re, im, cut, outRe, outIm, stride)
                                   : inverseColumns<false>(re, im, cut, outRe, outIm, stride);
        inverseRows(outRe, outIm, stride, findings);
        return findings;
    }

    static constexpr Transform256Level level(const char* name) noexcept {
        return {name, flat, forward, inverse};
    }

    static constexpr int kNaturalOrder[8] = {0, 1, 2, 3, 4, 5, 6, 7};
    static constexpr float kHuge = __builtin_inff();
};

}  // namespace quillon::kernels
