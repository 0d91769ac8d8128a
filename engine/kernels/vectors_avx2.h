#pragma once

#include <immintrin.h>

#include <cstdint>

#include "engine/kernels/twiddles256.h"

namespace quillon::kernels {

/// Vectors of eight Singles on a processor with AVX2 and FMA, for Kernel and
/// Sweeps: one row of eight, a tile of one block.
struct Avx2Vectors {
    using Reg = __m256;
    static constexpr int kWidth = 8;
    static constexpr int kRows = 1;

    static Reg load(const float* p) noexcept { return _mm256_loadu_ps(p); }
    static void store(float* p, Reg x) noexcept { _mm256_storeu_ps(p, x); }
    static Reg broadcast(const float* p) noexcept { return _mm256_broadcast_ss(p); }
    static Reg zero() noexcept { return _mm256_setzero_ps(); }
    static Reg add(Reg a, Reg b) noexcept { return _mm256_add_ps(a, b); }
    static Reg sub(Reg a, Reg b) noexcept { return _mm256_sub_ps(a, b); }
    static Reg mul(Reg a, Reg b) noexcept { return _mm256_mul_ps(a, b); }
    static Reg fma(Reg a, Reg b, Reg c) noexcept { return _mm256_fmadd_ps(a, b, c); }
    static Reg fnma(Reg a, Reg b, Reg c) noexcept { return _mm256_fnmadd_ps(a, b, c); }
    static Reg product0(Reg a, Reg b) noexcept { return fnma(zero(), b, a); }
    static Reg sum0(Reg a, Reg b) noexcept { return fma(zero(), b, a); }
    static Reg min(Reg a, Reg b) noexcept { return _mm256_min_ps(a, b); }
    static Reg max(Reg a, Reg b) noexcept { return _mm256_max_ps(a, b); }
    static Reg bitOr(Reg a, Reg b) noexcept { return _mm256_or_ps(a, b); }

    static Reg lanesRe(const Twiddles256& w, int i) noexcept { return load(w.lanesRe[i]); }
    static Reg lanesIm(const Twiddles256& w, int i) noexcept { return load(w.lanesIm[i]); }

    static Reg loadHalves(const float* low, const float* high) noexcept {
        return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(low)), _mm_loadu_ps(high),
                                    1);
    }
    static Reg broadcastHalves(const float* p) noexcept {
        return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_broadcast_ss(p)),
                                    _mm_broadcast_ss(p + 1), 1);
    }
    static void transposeQuads(Reg (&x)[4]) noexcept {
        const Reg a = _mm256_unpacklo_ps(x[0], x[1]);
        const Reg b = _mm256_unpackhi_ps(x[0], x[1]);
        const Reg c = _mm256_unpacklo_ps(x[2], x[3]);
        const Reg d = _mm256_unpackhi_ps(x[2], x[3]);
        x[0] = _mm256_shuffle_ps(a, c, 0x44);
        x[1] = _mm256_shuffle_ps(a, c, 0xEE);
        x[2] = _mm256_shuffle_ps(b, d, 0x44);
        x[3] = _mm256_shuffle_ps(b, d, 0xEE);
    }

    // The order in which one shuffle of 128-bit groups parts the pairs, and one
    // unpacking of them makes pairs again.
    static constexpr int kInterleavedOrder[8] = {0, 1, 4, 5, 2, 3, 6, 7};
    static void loadInterleaved(const float* p, const float*, Reg& re, Reg& im) noexcept {
        const Reg low = load(p);
        const Reg high = load(p + 8);
        re = _mm256_shuffle_ps(low, high, 0x88);
        im = _mm256_shuffle_ps(low, high, 0xDD);
    }
    static void storeInterleaved(float* p, Reg re, Reg im) noexcept {
        store(p, _mm256_unpacklo_ps(re, im));
        store(p + 8, _mm256_unpackhi_ps(re, im));
    }

    static Reg loadTile(const float* row, int tile) noexcept { return load(row + 8 * tile); }
    static Reg loadPixels(const std::uint8_t* row, int tile) noexcept {
        const auto* const p = reinterpret_cast<const __m128i*>(row + 8 * tile);
        return _mm256_cvtepi32_ps(_mm256_cvtepu8_epi32(_mm_loadl_epi64(p)));
    }
    static void storeTile(float* row, int tile, Reg x) noexcept {
        const __m256d pairs = _mm256_castps_pd(x);
        store(row + 8 * tile, _mm256_castpd_ps(_mm256_permute4x64_pd(pairs, 0xD8)));
    }

    static Reg keepCells(const std::uint8_t* bits, int tile) noexcept {
        const __m256i lane = _mm256_setr_epi32(1, 2, 4, 8, 16, 32, 64, 128);
        const __m256i set = _mm256_and_si256(_mm256_set1_epi32(bits[tile]), lane);
        return _mm256_castsi256_ps(_mm256_cmpeq_epi32(set, _mm256_setzero_si256()));
    }
    static Reg keep(Reg kept, Reg x) noexcept { return _mm256_and_ps(kept, x); }
};

}  // namespace quillon::kernels
