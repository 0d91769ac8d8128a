#include "tests/support/slow_edits.h"

#include <bit>
#include <cmath>
#include <cstdint>

namespace quillon::slow {

namespace {

constexpr Long kSide = 256;

template <class EditCell>
Spectrum edited(const Spectrum& f, EditCell editCell) {
    Spectrum g = f;
    for (Long u = 0; u < kSide; ++u)
        for (Long v = 0; v < kSide; ++v)
            editCell(u, v, f(u, v), g(u, v));
    return g;
}

Single length(Single re, Single im) {
    const Double x = re;
    const Double y = im;
    return static_cast<Single>(std::sqrt(x * x + y * y));
}

Single magnitude(const ComplexCell& cell) {
    const Single m = length(cell.re, cell.im);
    return m == 0.0F ? 1.0F : m;
}

/// (part / r) * m in Double, stored as a Single.
Single along(Single part, Single r, Single m) {
    Double value = part;
    value /= r;
    value *= m;
    return static_cast<Single>(value);
}

}  // namespace

Spectrum discardPhases(const Spectrum& f) {
    return edited(f, [](Long, Long, const ComplexCell& old, ComplexCellReference cell) {
        cell.re = magnitude(old);
        cell.im = 0;
    });
}

Spectrum discardMagnitudes(const Spectrum& f) {
    return edited(f, [](Long, Long, const ComplexCell& old, ComplexCellReference cell) {
        const Single m = magnitude(old);
        cell.re = old.re / m;
        cell.im = old.im / m;
    });
}

Spectrum randomizePhases(const Spectrum& f, Rnd& rnd) {
    return edited(f, [&](Long, Long, const ComplexCell& old, ComplexCellReference cell) {
        const Single a = rnd() - 0.5F;
        const Single b = rnd() - 0.5F;
        const Single r = length(b, a);
        cell.re = along(a, r, magnitude(old));
        cell.im = along(b, r, magnitude(old));
    });
}

RandomMagnitudes randomizeMagnitudes(const Spectrum& f, Rnd& rnd) {
    Single hi = 0;
    Single lo = 9999999.0F;
    for (Long u = 0; u < kSide; ++u)
        for (Long v = 0; v < kSide; ++v) {
            hi = std::fmax(hi, std::fmax(f(u, v).re, f(u, v).im));
            lo = std::fmin(lo, std::fmin(f(u, v).re, f(u, v).im));
        }
    RandomMagnitudes result;
    const Single range = static_cast<Single>(
        (std::fabs(static_cast<Double>(hi)) + std::fabs(static_cast<Double>(lo))) / 2.0);
    Single s = 0;
    result.spectrum = edited(f, [&](Long, Long, const ComplexCell& old, ComplexCellReference cell) {
        Double factor = rnd();
        factor *= range;
        factor /= magnitude(old);
        const auto stored = static_cast<Single>(factor);
        cell.re = stored * old.re;
        cell.im = stored * old.im;
        const Double x = cell.re;
        const Double y = cell.im;
        s = static_cast<Single>(s + std::sqrt(x * x + y * y));
    });
    const Single mean = s / 256.0F / 256.0F;
    result.range = range;
    result.ifacSqrt = range / mean / 4.0F;
    return result;
}

Spectrum swapPhases(const Spectrum& own, const Spectrum& other) {
    return edited(own, [&](Long u, Long v, const ComplexCell& old, ComplexCellReference cell) {
        const ComplexCell& p = other(u, v);
        const Single r = length(p.im, p.re);
        cell.re = along(p.re, r, magnitude(old));
        cell.im = along(p.im, r, magnitude(old));
    });
}

Spectrum convolve(const Spectrum& a, const Spectrum& b) {
    return edited(a, [&](Long u, Long v, const ComplexCell& one, ComplexCellReference cell) {
        const ComplexCell& two = b(u, v);
        const Double ar = one.re;
        const Double ai = one.im;
        cell.re = static_cast<Single>(two.re * ar - two.im * ai);
        cell.im = static_cast<Single>(two.re * ai + two.im * ar);
    });
}

Spectrum deconvolveIntoChannel1(const Spectrum& a, const Spectrum& b) {
    return edited(a, [&](Long u, Long v, const ComplexCell& one, ComplexCellReference cell) {
        const Double ar = one.re / 65536.0F;
        const Double ai = one.im / 65536.0F;
        const Double br = b(255 - u, 255 - v).re;
        const Double bi = b(255 - u, 255 - v).im;
        const auto d = static_cast<Single>(bi * bi + br * br);
        cell.re = static_cast<Single>((bi * ai + br * ar) / d);
        cell.im = static_cast<Single>(-(bi * ar - br * ai) / d);
    });
}

Spectrum deconvolveIntoChannel2(const Spectrum& a, const Spectrum& b) {
    return edited(a, [&](Long u, Long v, const ComplexCell& one, ComplexCellReference cell) {
        const Double ar = one.re;
        const Double ai = one.im;
        const Double br = b(u, v).re;
        const Double bi = b(u, v).im;
        if (std::fabs(bi) <= std::fabs(br)) {
            const auto r = static_cast<Single>(bi / br);
            const auto d = static_cast<Single>(r * bi + br);
            cell.re = static_cast<Single>((r * ai + ar) / d);
            cell.im = static_cast<Single>((ai - r * ar) / d);
        } else {
            const auto r = static_cast<Single>(br / bi);
            const auto d = static_cast<Single>(r * br + bi);
            cell.re = static_cast<Single>((r * ar + ai) / d);
            cell.im = static_cast<Single>((r * ai - ar) / d);
        }
    });
}

long differingCells(const Spectrum& a, const Spectrum& b) {
    const auto bits = [](Single value) { return std::bit_cast<std::uint32_t>(value); };
    long count = 0;
    for (Long u = 0; u <= kSide; ++u)
        for (Long v = 0; v <= kSide; ++v)
            count += bits(a(u, v).re) != bits(b(u, v).re) || bits(a(u, v).im) != bits(b(u, v).im) ||
                             bits(a(u, v).unused) != bits(b(u, v).unused)
                         ? 1
                         : 0;
    return count;
}

ExchangeArray toExchangeArray(const Spectrum& f) {
    ExchangeArray p(kSide, kSide);
    for (Long u = 0; u < kSide; ++u)
        for (Long v = 0; v < kSide; ++v) {
            p(u, v, 0) = f(u, v).re;
            p(u, v, 1) = f(u, v).im;
        }
    return p;
}

}  // namespace quillon::slow
