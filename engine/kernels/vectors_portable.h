#pragma once

#include <cstdint>
#include <cstring>

#include "engine/kernels/exact_fma.h"
#include "engine/kernels/twiddles256.h"

namespace quillon::kernels {

/// Vectors of eight Singles in two halves of the compiler's own, for Kernel and
/// Sweeps on any processor: one row of eight, a tile of one block.
struct PortableVectors {
    struct Reg {
        Floats4 low;
        Floats4 high;
    };
    static constexpr int kWidth = 8;
    static constexpr int kRows = 1;

    static Floats4 load4(const float* p) noexcept {
        Floats4 x;
        std::memcpy(&x, p, sizeof x);
        return x;
    }
    static void store4(float* p, Floats4 x) noexcept { std::memcpy(p, &x, sizeof x); }
    static Floats4 broadcast4(float value) noexcept { return Floats4{value, value, value, value}; }

    static Reg load(const float* p) noexcept { return {load4(p), load4(p + 4)}; }
    static void store(float* p, const Reg& x) noexcept {
        store4(p, x.low);
        store4(p + 4, x.high);
    }
    static Reg broadcast(const float* p) noexcept { return {broadcast4(*p), broadcast4(*p)}; }
    static Reg zero() noexcept { return {Floats4{}, Floats4{}}; }
    static Reg add(const Reg& a, const Reg& b) noexcept { return {a.low + b.low, a.high + b.high}; }
    static Reg sub(const Reg& a, const Reg& b) noexcept { return {a.low - b.low, a.high - b.high}; }
    static Reg mul(const Reg& a, const Reg& b) noexcept { return {a.low * b.low, a.high * b.high}; }
    static Reg fma(const Reg& a, const Reg& b, const Reg& c) noexcept {
        return {exactFma(a.low, b.low, c.low), exactFma(a.high, b.high, c.high)};
    }
    static Reg fnma(const Reg& a, const Reg& b, const Reg& c) noexcept {
        return {exactFma(-a.low, b.low, c.low), exactFma(-a.high, b.high, c.high)};
    }
    // A product with 0 is exact, so no fused step is needed.
    static Reg product0(const Reg& a, const Reg& b) noexcept { return sub(a, mul(zero(), b)); }
    static Reg sum0(const Reg& a, const Reg& b) noexcept { return add(a, mul(zero(), b)); }
    static Reg min(const Reg& a, const Reg& b) noexcept {
        return {a.low < b.low ? a.low : b.low, a.high < b.high ? a.high : b.high};
    }
    static Reg max(const Reg& a, const Reg& b) noexcept {
        return {a.low > b.low ? a.low : b.low, a.high > b.high ? a.high : b.high};
    }
    static Reg bitOr(const Reg& a, const Reg& b) noexcept {
        return {or4(a.low, b.low), or4(a.high, b.high)};
    }

    static Reg lanesRe(const Twiddles256& w, int i) noexcept { return load(w.lanesRe[i]); }
    static Reg lanesIm(const Twiddles256& w, int i) noexcept { return load(w.lanesIm[i]); }

    static Reg loadHalves(const float* low, const float* high) noexcept {
        return {load4(low), load4(high)};
    }
    static Reg broadcastHalves(const float* p) noexcept {
        return {broadcast4(p[0]), broadcast4(p[1])};
    }
    static void transposeQuads(Reg (&x)[4]) noexcept {
        transpose4(x[0].low, x[1].low, x[2].low, x[3].low);
        transpose4(x[0].high, x[1].high, x[2].high, x[3].high);
    }

    static constexpr int kInterleavedOrder[8] = {0, 1, 2, 3, 4, 5, 6, 7};
    static void loadInterleaved(const float* p, const float*, Reg& re, Reg& im) noexcept {
        const Floats4 a = load4(p);
        const Floats4 b = load4(p + 4);
        const Floats4 c = load4(p + 8);
        const Floats4 d = load4(p + 12);
        re = {__builtin_shufflevector(a, b, 0, 2, 4, 6), __builtin_shufflevector(c, d, 0, 2, 4, 6)};
        im = {__builtin_shufflevector(a, b, 1, 3, 5, 7), __builtin_shufflevector(c, d, 1, 3, 5, 7)};
    }
    static void storeInterleaved(float* p, const Reg& re, const Reg& im) noexcept {
        store4(p, __builtin_shufflevector(re.low, im.low, 0, 4, 1, 5));
        store4(p + 4, __builtin_shufflevector(re.high, im.high, 0, 4, 1, 5));
        store4(p + 8, __builtin_shufflevector(re.low, im.low, 2, 6, 3, 7));
        store4(p + 12, __builtin_shufflevector(re.high, im.high, 2, 6, 3, 7));
    }

    static Reg loadTile(const float* row, int tile) noexcept { return load(row + 8 * tile); }
    static Reg loadPixels(const std::uint8_t* row, int tile) noexcept {
        const std::uint8_t* const p = row + 8 * tile;
        return {Floats4{float(p[0]), float(p[1]), float(p[2]), float(p[3])},
                Floats4{float(p[4]), float(p[5]), float(p[6]), float(p[7])}};
    }
    static void storeTile(float* row, int tile, const Reg& x) noexcept {
        store(row + 8 * tile, {__builtin_shufflevector(x.low, x.high, 0, 1, 4, 5),
                               __builtin_shufflevector(x.low, x.high, 2, 3, 6, 7)});
    }

    using Bits4 [[gnu::vector_size(16)]] = int;
    struct Kept {
        Bits4 low;
        Bits4 high;
    };
    static Kept keepCells(const std::uint8_t* bits, int tile) noexcept {
        const int set = bits[tile];
        const Bits4 all = {set, set, set, set};
        return {(all & Bits4{1, 2, 4, 8}) == 0, (all & Bits4{16, 32, 64, 128}) == 0};
    }
    static Reg keep(const Kept& kept, const Reg& x) noexcept {
        return {reinterpret_cast<Floats4>(kept.low & reinterpret_cast<Bits4>(x.low)),
                reinterpret_cast<Floats4>(kept.high & reinterpret_cast<Bits4>(x.high))};
    }

private:
    static Floats4 or4(Floats4 a, Floats4 b) noexcept {
        return reinterpret_cast<Floats4>(reinterpret_cast<Bits4>(a) | reinterpret_cast<Bits4>(b));
    }
    static void transpose4(Floats4& a, Floats4& b, Floats4& c, Floats4& d) noexcept {
        const Floats4 lowAb = __builtin_shufflevector(a, b, 0, 4, 1, 5);
        const Floats4 highAb = __builtin_shufflevector(a, b, 2, 6, 3, 7);
        const Floats4 lowCd = __builtin_shufflevector(c, d, 0, 4, 1, 5);
        const Floats4 highCd = __builtin_shufflevector(c, d, 2, 6, 3, 7);
        a = __builtin_shufflevector(lowAb, lowCd, 0, 1, 4, 5);
        b = __builtin_shufflevector(lowAb, lowCd, 2, 3, 6, 7);
        c = __builtin_shufflevector(highAb, highCd, 0, 1, 4, 5);
        d = __builtin_shufflevector(highAb, highCd, 2, 3, 6, 7);
    }
};

}  // namespace quillon::kernels
