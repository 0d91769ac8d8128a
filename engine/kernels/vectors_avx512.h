#pragma once

#include <immintrin.h>

#include <cstdint>

#include "engine/kernels/twiddles256.h"

namespace quillon::kernels {

/// Vectors of sixteen Singles on a processor with AVX-512 (F, VL, DQ, BW), for
/// Kernel and Sweeps.
///
/// Along the rows a vector holds eight elements of two rows, in groups of four:
/// lower four of the first row, lower four of the second, upper four of the first,
/// upper four of the second. A tile is blocks n and n + 16 of one row.
struct Avx512Vectors {
    using Reg = __m512;
    static constexpr int kWidth = 16;
    static constexpr int kRows = 2;

    static Reg load(const float* p) noexcept { return _mm512_loadu_ps(p); }
    static void store(float* p, Reg x) noexcept { _mm512_storeu_ps(p, x); }
    static Reg broadcast(const float* p) noexcept { return _mm512_set1_ps(*p); }
    static Reg zero() noexcept { return _mm512_setzero_ps(); }
    static Reg add(Reg a, Reg b) noexcept { return _mm512_add_ps(a, b); }
    static Reg sub(Reg a, Reg b) noexcept { return _mm512_sub_ps(a, b); }
    static Reg mul(Reg a, Reg b) noexcept { return _mm512_mul_ps(a, b); }
    static Reg fma(Reg a, Reg b, Reg c) noexcept { return _mm512_fmadd_ps(a, b, c); }
    static Reg fnma(Reg a, Reg b, Reg c) noexcept { return _mm512_fnmadd_ps(a, b, c); }
    static Reg product0(Reg a, Reg b) noexcept { return fnma(zero(), b, a); }
    static Reg sum0(Reg a, Reg b) noexcept { return fma(zero(), b, a); }
    static Reg min(Reg a, Reg b) noexcept { return _mm512_min_ps(a, b); }
    static Reg max(Reg a, Reg b) noexcept { return _mm512_max_ps(a, b); }
    static Reg bitOr(Reg a, Reg b) noexcept { return _mm512_or_ps(a, b); }

    static Reg lanesRe(const Twiddles256& w, int i) noexcept { return load(w.twoRowLanesRe[i]); }
    static Reg lanesIm(const Twiddles256& w, int i) noexcept { return load(w.twoRowLanesIm[i]); }

    static Reg loadHalves(const float* low, const float* high) noexcept {
        return _mm512_insertf32x8(_mm512_castps256_ps512(_mm256_loadu_ps(low)),
                                  _mm256_loadu_ps(high), 1);
    }
    static Reg broadcastHalves(const float* p) noexcept {
        return _mm512_insertf32x8(_mm512_castps256_ps512(_mm256_broadcast_ss(p)),
                                  _mm256_broadcast_ss(p + 1), 1);
    }
    static void transposeQuads(Reg (&x)[4]) noexcept {
        const Reg a = _mm512_unpacklo_ps(x[0], x[1]);
        const Reg b = _mm512_unpackhi_ps(x[0], x[1]);
        const Reg c = _mm512_unpacklo_ps(x[2], x[3]);
        const Reg d = _mm512_unpackhi_ps(x[2], x[3]);
        x[0] = _mm512_shuffle_ps(a, c, 0x44);
        x[1] = _mm512_shuffle_ps(a, c, 0xEE);
        x[2] = _mm512_shuffle_ps(b, d, 0x44);
        x[3] = _mm512_shuffle_ps(b, d, 0xEE);
    }

    static constexpr int kInterleavedOrder[8] = {0, 1, 2, 3, 4, 5, 6, 7};
    static void loadInterleaved(const float* p, const float* next, Reg& re, Reg& im) noexcept {
        const __m512i even =
            _mm512_setr_epi32(0, 2, 4, 6, 16, 18, 20, 22, 8, 10, 12, 14, 24, 26, 28, 30);
        const __m512i odd =
            _mm512_setr_epi32(1, 3, 5, 7, 17, 19, 21, 23, 9, 11, 13, 15, 25, 27, 29, 31);
        const Reg row = load(p);
        const Reg nextRow = load(next);
        re = _mm512_permutex2var_ps(row, even, nextRow);
        im = _mm512_permutex2var_ps(row, odd, nextRow);
    }
    static void storeInterleaved(float* p, Reg re, Reg im) noexcept {
        const __m512i lower =
            _mm512_setr_epi32(0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
        const __m512i upper =
            _mm512_setr_epi32(8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
        store(p, _mm512_permutex2var_ps(re, lower, im));
        store(p + 256, _mm512_permutex2var_ps(re, upper, im));
    }

    static Reg loadTile(const float* row, int tile) noexcept {
        return loadHalves(row + 8 * tile, row + 8 * tile + 128);
    }
    static Reg loadPixels(const std::uint8_t* row, int tile) noexcept {
        const auto* const p = reinterpret_cast<const __m128i*>(row + 8 * tile);
        const __m128i bytes = _mm_unpacklo_epi64(_mm_loadl_epi64(p), _mm_loadl_epi64(p + 8));
        return _mm512_cvtepi32_ps(_mm512_cvtepu8_epi32(bytes));
    }
    /// The same tile of two rows becomes blocks n and n + 16 of both.
    static void joinRows(Reg& a, Reg& b) noexcept {
        const __m512i lower = _mm512_setr_epi64(0, 1, 8, 9, 2, 3, 10, 11);
        const __m512i upper = _mm512_setr_epi64(4, 5, 12, 13, 6, 7, 14, 15);
        const __m512d row = _mm512_castps_pd(a);
        const __m512d next = _mm512_castps_pd(b);
        a = _mm512_castpd_ps(_mm512_permutex2var_pd(row, lower, next));
        b = _mm512_castpd_ps(_mm512_permutex2var_pd(row, upper, next));
    }
    /// Blocks n and n + 16 of two rows become the tiles of one row and the other,
    /// their lanes in natural order.
    static void partRows(Reg& a, Reg& b) noexcept {
        const __m512i row = _mm512_setr_epi64(0, 4, 1, 5, 8, 12, 9, 13);
        const __m512i next = _mm512_setr_epi64(2, 6, 3, 7, 10, 14, 11, 15);
        const __m512d lower = _mm512_castps_pd(a);
        const __m512d upper = _mm512_castps_pd(b);
        a = _mm512_castpd_ps(_mm512_permutex2var_pd(lower, row, upper));
        b = _mm512_castpd_ps(_mm512_permutex2var_pd(lower, next, upper));
    }
    static void storeTile(float* row, int tile, Reg x) noexcept {
        _mm256_storeu_ps(row + 8 * tile, _mm512_castps512_ps256(x));
        _mm256_storeu_ps(row + 8 * tile + 128, _mm512_extractf32x8_ps(x, 1));
    }

    static __mmask16 keepCells(const std::uint8_t* bits, int tile) noexcept {
        return static_cast<__mmask16>(~(bits[tile] | bits[tile + 16] << 8));
    }
    static Reg keep(__mmask16 kept, Reg x) noexcept { return _mm512_maskz_mov_ps(kept, x); }
};

}  // namespace quillon::kernels
