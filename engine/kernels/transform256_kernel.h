#pragma once

#include "engine/kernels/twiddles256.h"
#include "engine/kernels/unrolled.h"

namespace quillon::kernels {

/// Runs of 256 elements, many at a time, on vectors of one instruction set.
///
/// Every butterfly is the told one: of the two products of a sum the first is
/// rounded, the second enters exactly, and the sum is rounded once. A radix-4 or
/// radix-8 step is two or three passes of such butterflies with the values kept in
/// registers; only the order of butterflies that know nothing of each other
/// differs from the plain loop, so the bits are the same.
///
/// A run is taken in natural order, with the twiddles in heap order (see
/// Twiddles256). After the last pass the element at place j is that of frequency
/// "j with its eight bits reversed", and the sinks are told the frequency.
///
/// `Vectors` holds what differs between the instruction sets:
///   Reg           a vector of kWidth Singles; load, store, broadcast, zero, add,
///                 sub, mul; fma(a, b, c) = ab + c and fnma(a, b, c) = c - ab, both
///                 rounded once; product0(a, b) = a - 0b and sum0(a, b) = a + 0b
///   kRows         how many rows of eight elements a vector holds along the rows
///   loadHalves    the lower half of a vector from one place, the upper half from
///                 another; broadcastHalves the same with two neighbouring values
///   transposeQuads  four vectors as rows, transposed within each group of four lanes
///   lanesRe, lanesIm  a vector of the lane twiddles
/// and the loads and stores that sweeps need at their ends.
///
/// The functions are inlined by force: no copy of one that was compiled for one
/// processor may ever serve another, and the registers must not go through memory.
template <class Vectors>
struct Kernel {
    using V = Vectors;
    using Reg = typename V::Reg;

    /// The real and the imaginary parts of kWidth values.
    struct Pack {
        Reg re;
        Reg im;
    };
    /// What a Pack takes in memory, in floats.
    static constexpr int kPack = 2 * V::kWidth;

    static constexpr int kReversed2[4] = {0, 2, 1, 3};
    static constexpr int kReversed3[8] = {0, 4, 2, 6, 1, 5, 3, 7};
    static constexpr int kReversed4[16] = {0, 8, 4, 12, 2, 10, 6, 14, 1, 9, 5, 13, 3, 11, 7, 15};

    [[gnu::always_inline]] static Pack load(const float* p) noexcept {
        return {V::load(p), V::load(p + V::kWidth)};
    }
    [[gnu::always_inline]] static void store(float* p, const Pack& x) noexcept {
        V::store(p, x.re);
        V::store(p + V::kWidth, x.im);
    }
    /// A twiddle of the heap, the same for all lanes.
    [[gnu::always_inline]] static Pack uniform(const Twiddles256& w, int index) noexcept {
        return {V::broadcast(w.re + index), V::broadcast(w.im + index)};
    }
    /// Twiddles that differ from lane to lane.
    [[gnu::always_inline]] static Pack lanes(const Twiddles256& w, int index) noexcept {
        return {V::lanesRe(w, index), V::lanesIm(w, index)};
    }

    [[gnu::always_inline]] static void join(Pack& a, Pack& b, Reg tempr, Reg tempi) noexcept {
        b.re = V::sub(a.re, tempr);
        b.im = V::sub(a.im, tempi);
        a.re = V::add(a.re, tempr);
        a.im = V::add(a.im, tempi);
    }
    [[gnu::always_inline]] static void butterfly(Pack& a, Pack& b, const Pack& w) noexcept {
        join(a, b, V::fnma(w.im, b.im, V::mul(w.re, b.re)), V::fma(w.im, b.re, V::mul(w.re, b.im)));
    }
    /// The butterfly of the twiddle (1, 0). The products with 0 stay: they can turn
    /// a negative zero into a positive one.
    [[gnu::always_inline]] static void firstButterfly(Pack& a, Pack& b) noexcept {
        join(a, b, V::product0(b.re, b.im), V::sum0(b.im, b.re));
    }

    /// Two passes over four packs that lie a quarter of a block apart; w(i) gives
    /// the twiddle i of the heap, `index` is that of the block in the first pass.
    template <class Twiddle>
    [[gnu::always_inline]] static void radix4(Pack (&x)[4], const Twiddle& w, int index) noexcept {
        const Pack w1 = w(index);
        butterfly(x[0], x[2], w1);
        butterfly(x[1], x[3], w1);
        butterfly(x[0], x[1], w(2 * index));
        butterfly(x[2], x[3], w(2 * index + 1));
    }
    /// Passes 0 and 1, whose twiddles but one are (1, 0).
    [[gnu::always_inline]] static void firstRadix4(Pack (&x)[4], const Twiddles256& w) noexcept {
        firstButterfly(x[0], x[2]);
        firstButterfly(x[1], x[3]);
        firstButterfly(x[0], x[1]);
        butterfly(x[2], x[3], uniform(w, 3));
    }
    /// The same for real values without negative zeros, where a product with 0
    /// never changes a bit: what it is added to is 0 or more, or not zero at all.
    [[gnu::always_inline]] static void firstRadix4Real(const Reg (&r)[4], Pack (&x)[4],
                                                       const Twiddles256& w) noexcept {
        const Pack w3 = uniform(w, 3);
        const Reg sum02 = V::add(r[0], r[2]);
        const Reg sum13 = V::add(r[1], r[3]);
        const Reg difference02 = V::sub(r[0], r[2]);
        const Reg difference13 = V::sub(r[1], r[3]);
        x[0] = {V::add(sum02, sum13), V::zero()};
        x[1] = {V::sub(sum02, sum13), V::zero()};
        x[2] = {difference02, V::zero()};
        join(x[2], x[3], V::mul(w3.re, difference13), V::mul(w3.im, difference13));
    }
    /// Three passes over eight packs that lie an eighth of a block apart.
    template <class Twiddle>
    [[gnu::always_inline]] static void radix8(Pack (&x)[8], const Twiddle& w, int index) noexcept {
        const Pack w1 = w(index);
        unrolled<4>([&](auto k) { butterfly(x[k], x[k + 4], w1); });
        unrolled<2>([&](auto half) {
            const Pack w2 = w(2 * index + half);
            Pack* const y = x + 4 * half;
            butterfly(y[0], y[2], w2);
            butterfly(y[1], y[3], w2);
            butterfly(y[0], y[1], w(4 * index + 2 * half));
            butterfly(y[2], y[3], w(4 * index + 2 * half + 1));
        });
    }
    /// A radix-4 step in place on packs in memory, `distance` packs apart.
    template <int distance, class Twiddle>
    [[gnu::always_inline]] static void radix4At(float* p, const Twiddle& w, int index) noexcept {
        Pack x[4];
        unrolled<4>([&](auto k) { x[k] = load(p + k * distance * kPack); });
        radix4(x, w, index);
        unrolled<4>([&](auto k) { store(p + k * distance * kPack, x[k]); });
    }

    /// Transforms kWidth columns: every lane is a run of its own.
    ///
    /// start(i, x) does passes 0 and 1 on rows i, i+64, i+128 and i+192 and leaves
    /// them in x. sink(f, pack) takes the values of frequency f.
    template <class Start, class Sink>
    [[gnu::always_inline]] static void columns(const Twiddles256& w, const Start& start,
                                               const Sink& sink) noexcept {
        // A pack more than a quarter needs keeps the quarters apart in the cache.
        constexpr int kQuarter = 65 * kPack;
        alignas(64) float scratch[4 * kQuarter];
        const auto twiddle = [&w](int index) { return uniform(w, index); };
        for (int i = 0; i < 64; ++i) {
            Pack x[4];
            start(i, x);
            unrolled<4>([&](auto k) { store(scratch + k * kQuarter + i * kPack, x[k]); });
        }
        for (int half = 0; half < 2; ++half) {
            for (int quarter = half; quarter < 4; quarter += 2) {
                float* const q = scratch + quarter * kQuarter;
                for (int i = 0; i < 16; ++i)
                    radix4At<16>(q + i * kPack, twiddle, 4 + quarter);
                for (int block = 0; block < 4; ++block)
                    for (int i = 0; i < 4; ++i)
                        radix4At<4>(q + (16 * block + i) * kPack, twiddle,
                                    16 + 4 * quarter + block);
            }
            // Even and odd frequencies by turns: rows of 2 KB that are all even, or
            // all odd, would fall into the same few lines of the cache.
            for (int turn = 0; turn < 32; ++turn) {
                const int quarter = half + turn % 2 * 2;
                const int block = turn / 2;
                const float* const p = scratch + quarter * kQuarter + 4 * block * kPack;
                Pack x[4];
                unrolled<4>([&](auto k) { x[k] = load(p + k * kPack); });
                radix4(x, twiddle, 64 + 16 * quarter + block);
                const int f = 4 * kReversed4[block] + kReversed2[quarter];
                sink(f, x[0]);
                sink(f + 128, x[1]);
                sink(f + 64, x[2]);
                sink(f + 192, x[3]);
            }
        }
    }

    /// Transforms kRows rows.
    ///
    /// source(q, x) gives columns 8v to 8v+7 of the rows, v being q, q+8, q+16 and
    /// q+24; `order` tells the column of each of the eight places in a group of
    /// lanes. sink(n, x) takes the frequencies from 8(n + 4 kReversed3[k]) on in
    /// x[k], in the lane order of kLaneFrequency.
    template <class Source, class Sink>
    [[gnu::always_inline]] static void rows(const Twiddles256& w, const int (&order)[8],
                                            const Source& source, const Sink& sink) noexcept {
        alignas(64) float first[32 * kPack];
        alignas(64) float second[32 * kPack];
        for (int q = 0; q < 8; ++q) {
            Pack x[4];
            source(q, x);
            firstRadix4(x, w);
            unrolled<4>([&](auto k) { store(first + (q + 8 * k) * kPack, x[k]); });
        }
        secondPassAndTranspose(first, second, order, w);
        const auto twiddle = [&w](int index) { return lanes(w, index); };
        for (int q = 0; q < 8; ++q)
            radix4At<8>(second + q * kPack, twiddle, 1);
        for (int b = 0; b < 4; ++b) {
            Pack x[8];
            unrolled<8>([&](auto k) { x[k] = load(second + (8 * b + k) * kPack); });
            radix8(x, twiddle, 4 + b);
            sink(kReversed2[b], x);
        }
    }

    /// Pass 2, and the one transpose of a row: from here on the lanes are the eight
    /// blocks of pass 3, and a vector holds the same column of each. Half vectors of
    /// blocks 2 apart are brought together by the loads.
    [[gnu::always_inline]] static void secondPassAndTranspose(const float* first, float* second,
                                                              const int (&order)[8],
                                                              const Twiddles256& w) noexcept {
        constexpr int kBlocks[4] = {0, 4, 1, 5};
        const Pack w45 = {V::broadcastHalves(w.re + 4), V::broadcastHalves(w.im + 4)};
        const Pack w67 = {V::broadcastHalves(w.re + 6), V::broadcastHalves(w.im + 6)};
        for (int b = 0; b < 4; ++b) {
            unrolled<2>([&](auto half) {
                Pack x[4];
                unrolled<4>([&](auto i) {
                    const float* const p =
                        first + (4 * kBlocks[i] + b) * kPack + half * (V::kWidth / 2);
                    x[i].re = V::loadHalves(p, p + 8 * kPack);
                    x[i].im = V::loadHalves(p + V::kWidth, p + V::kWidth + 8 * kPack);
                });
                butterfly(x[0], x[2], w45);
                butterfly(x[1], x[3], w67);
                Reg re[4] = {x[0].re, x[1].re, x[2].re, x[3].re};
                Reg im[4] = {x[0].im, x[1].im, x[2].im, x[3].im};
                V::transposeQuads(re);
                V::transposeQuads(im);
                unrolled<4>([&](auto i) {
                    store(second + (8 * b + order[4 * half + i]) * kPack, {re[i], im[i]});
                });
            });
        }
    }
};

}  // namespace quillon::kernels
