#include "tests/support/spectra.h"

#include <cmath>
#include <functional>
#include <limits>
#include <numbers>
#include <random>

namespace quillon {

namespace {

using CellAt = std::function<ComplexCell(Long u, Long v)>;

ComplexGrid planeOf(Long w, Long h, const CellAt& cellAt) {
    ComplexGrid cells(w, h);
    for (Long u = 0; u < w; ++u)
        for (Long v = 0; v < h; ++v)
            cells(u, v) = cellAt(u, v);
    return cells;
}

ComplexCell cell(double re, double im) {
    return {static_cast<Single>(re), static_cast<Single>(im)};
}

/// Distance of a frequency from the zero frequency.
double frequency(Long u, Long v) {
    const Long du = u > 128 ? u - 256 : u;
    const Long dv = v > 128 ? v - 256 : v;
    return std::hypot(du, dv);
}

}  // namespace

ComplexGrid randomSpectrum(Long w, Long h, std::uint32_t seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    return planeOf(w, h, [&](Long, Long) { return cell(normal(random), normal(random)); });
}

std::vector<NamedSpectrum> spectraToRender(std::uint32_t seed) {
    std::mt19937 random(seed);
    std::normal_distribution<double> normal;
    const std::string tail = ", seed " + std::to_string(seed);
    constexpr double kTiny = std::numeric_limits<Single>::denorm_min();
    constexpr double kHuge = std::numeric_limits<Single>::max();
    std::vector<NamedSpectrum> spectra;
    const auto add = [&](const std::string& name, const CellAt& cellAt) {
        spectra.push_back({name, planeOf(256, 256, cellAt)});
    };

    add("noise" + tail, [&](Long, Long) { return cell(normal(random), normal(random)); });
    add("like a photograph" + tail, [&](Long u, Long v) {
        const double size = 1e6 / (1 + frequency(u, v) * frequency(u, v));
        return cell(size * normal(random), size * normal(random));
    });
    add("all sizes of Singles" + tail, [&](Long, Long) {
        const double size = std::pow(10, static_cast<int>(random() % 74) - 44);
        return cell(size * normal(random), size * normal(random));
    });
    // Ties of the grey levels, and phases on the axes and the diagonals.
    add("small whole numbers" + tail, [&](Long, Long) {
        return cell(static_cast<int>(random() % 11) - 5, static_cast<int>(random() % 11) - 5);
    });
    add("levels and halves" + tail,
        [&](Long, Long) { return cell(static_cast<int>(random() % 511) / 2.0, 0); });
    add("negative halves" + tail,
        [&](Long, Long) { return cell(-static_cast<int>(random() % 511) / 2.0, 0); });
    add("imaginary only" + tail, [&](Long, Long) { return cell(0, normal(random)); });
    add("mostly zero" + tail, [&](Long, Long) {
        return random() % 50 == 0 ? cell(normal(random), normal(random)) : ComplexCell{};
    });
    add("negative zeros" + tail, [&](Long, Long) {
        return cell(random() % 2 == 0 ? -0.0 : 0.0, random() % 2 == 0 ? -0.0 : normal(random));
    });
    add("smallest Singles" + tail, [&](Long, Long) {
        return cell(kTiny * (static_cast<int>(random() % 9) - 4),
                    kTiny * (static_cast<int>(random() % 9) - 4));
    });
    // A hair to either side of the borders between two hues, and between two
    // greys of a range of 0.7342: what is rounded where decides them.
    add("phases at the borders of the hues" + tail, [&](Long u, Long) {
        const double angle = (static_cast<double>(u % 239) + 0.5) * 1.506 * std::numbers::pi / 180;
        const double size = 1 + static_cast<double>(random() % 100000);
        return cell(size * std::cos(angle), size * std::sin(angle));
    });
    add("greys at their borders", [&](Long u, Long v) {
        const double border = 0.7342F * (u == 255 ? 255.0 : static_cast<double>(u) + 0.5) / 255;
        const double hair = u == 255 ? 0 : 6e-8 * static_cast<double>(v - 128) / 16;
        return cell(border * (1 + hair), 0);
    });
    add("odd greys of a double range",
        [](Long u, Long v) { return cell(static_cast<double>((u * 256 + v) % 511), 0); });
    add("all zero", [](Long, Long) { return ComplexCell{}; });
    add("only the zero frequency",
        [](Long u, Long v) { return u + v == 0 ? cell(255, 0) : ComplexCell{}; });
    add("all the same", [](Long, Long) { return cell(3, -4); });
    add("all the same negative", [](Long, Long) { return cell(-7, 0); });
    // Overflows: of the magnitude alone, of every step, of a range.
    add("one magnitude too large", [&](Long u, Long v) {
        return u == 17 && v == 200 ? cell(0.9 * kHuge, 0.9 * kHuge) : cell(1, 1);
    });
    add("largest Singles", [&](Long u, Long v) { return cell((u + v) % 2 ? kHuge : -kHuge, 0); });
    add("infinite", [](Long u, Long) {
        return u == 3 ? ComplexCell{std::numeric_limits<Single>::infinity(), 0} : cell(1, 0);
    });
    add("not a number among noise" + tail, [&](Long u, Long v) {
        return u == 80 && v == 3 ? ComplexCell{std::numeric_limits<Single>::quiet_NaN(), 1}
                                 : cell(normal(random), normal(random));
    });
    add("not a number among zeros", [](Long u, Long v) {
        return u == 5 && v == 9 ? ComplexCell{1, -std::numeric_limits<Single>::quiet_NaN()}
                                : ComplexCell{};
    });
    return spectra;
}

}  // namespace quillon
