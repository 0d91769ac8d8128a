#include "engine/stretch.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <utility>

namespace quillon {
namespace {

/// The source pixels under one target pixel of one axis, first to last
/// inclusive. The weights are lengths in units of the source pixel divided by
/// the target's length, so that they are whole numbers.
struct Run {
    int first = 0;
    int last = 0;
    std::uint32_t firstWeight = 1;
    std::uint32_t innerWeight = 1;
    std::uint32_t lastWeight = 1;

    std::uint32_t weight(int index) const noexcept {
        return index == first ? firstWeight : index == last ? lastWeight : innerWeight;
    }
};

struct Axis {
    std::vector<Run> runs;
    /// Sum of the weights of each run.
    std::uint64_t total = 1;
};

Axis axis(int source, int target, int from, int count) {
    Axis result;
    result.runs.reserve(static_cast<std::size_t>(count));
    if (target < source)
        result.total = static_cast<std::uint64_t>(source);
    for (int index = from; index < from + count; ++index) {
        Run run;
        if (target >= source) {
            run.first = run.last = nearestPixel(index, source, target);
        } else {
            const std::int64_t begin = std::int64_t{index} * source;
            const std::int64_t end = begin + source;
            run.first = static_cast<int>(begin / target);
            run.last = static_cast<int>((end - 1) / target);
            run.firstWeight =
                static_cast<std::uint32_t>((std::int64_t{run.first} + 1) * target - begin);
            run.innerWeight = static_cast<std::uint32_t>(target);
            run.lastWeight = static_cast<std::uint32_t>(end - std::int64_t{run.last} * target);
        }
        result.runs.push_back(run);
    }
    return result;
}

/// Weighted sums of the three bytes.
struct Sums {
    /// Blue in the lower half, red in the upper one, so that one addition does both.
    std::uint64_t redBlue = 0;
    std::uint64_t green = 0;

    void add(PixelWord word, std::uint64_t weight) noexcept {
        const auto bits = static_cast<std::uint64_t>(word);
        redBlue += ((bits & 0xFF) | (bits & 0xFF0000) << 16) * weight;
        green += (bits >> 8 & 0xFF) * weight;
    }
};

void sumRow(std::span<const PixelWord> row, std::span<const Run> runs,
            std::span<Sums> sums) noexcept {
    for (std::size_t i = 0; i < runs.size(); ++i) {
        const Run& run = runs[i];
        Sums inner;
        for (int x = run.first + 1; x < run.last; ++x)
            inner.add(row[static_cast<std::size_t>(x)], 1);
        Sums whole{inner.redBlue * run.innerWeight, inner.green * run.innerWeight};
        whole.add(row[static_cast<std::size_t>(run.first)], run.firstWeight);
        if (run.last > run.first)
            whole.add(row[static_cast<std::size_t>(run.last)], run.lastWeight);
        sums[i] = whole;
    }
}

struct ByteSums {
    std::uint64_t red = 0;
    std::uint64_t green = 0;
    std::uint64_t blue = 0;

    void add(const Sums& sums, std::uint64_t weight) noexcept {
        red += (sums.redBlue >> 32) * weight;
        green += sums.green * weight;
        blue += (sums.redBlue & 0xFFFFFFFF) * weight;
    }
    PixelWord average(std::uint64_t total) const noexcept {
        const auto rounded = [total](std::uint64_t sum) {
            return static_cast<PixelWord>((2 * sum + total) / (2 * total));
        };
        return rounded(red) << 16 | rounded(green) << 8 | rounded(blue);
    }
};

Bitmap nearest(const Bitmap& source, const Axis& columns, const Axis& rows) {
    Bitmap target(static_cast<int>(columns.runs.size()), static_cast<int>(rows.runs.size()));
    for (int y = 0; y < target.height; ++y) {
        const auto from = source.row(rows.runs[static_cast<std::size_t>(y)].first);
        const auto to = target.row(y);
        for (std::size_t x = 0; x < to.size(); ++x)
            to[x] = from[static_cast<std::size_t>(columns.runs[x].first)];
    }
    return target;
}

Bitmap averaged(const Bitmap& source, const Axis& columns, const Axis& rows) {
    Bitmap target(static_cast<int>(columns.runs.size()), static_cast<int>(rows.runs.size()));
    std::vector<Sums> sums(columns.runs.size());
    int summedRow = -1;
    for (int y = 0; y < target.height; ++y) {
        const Run& run = rows.runs[static_cast<std::size_t>(y)];
        std::vector<ByteSums> bytes(columns.runs.size());
        for (int row = run.first; row <= run.last; ++row) {
            // Two neighbouring target rows share the source row on their border.
            if (row != summedRow)
                sumRow(source.row(row), columns.runs, sums);
            summedRow = row;
            for (std::size_t x = 0; x < bytes.size(); ++x)
                bytes[x].add(sums[x], run.weight(row));
        }
        const auto to = target.row(y);
        for (std::size_t x = 0; x < to.size(); ++x)
            to[x] = bytes[x].average(columns.total * rows.total);
    }
    return target;
}

}  // namespace

int nearestPixel(int index, int source, int target) noexcept {
    return static_cast<int>((2 * std::int64_t{index} + 1) * source / (2 * std::int64_t{target}));
}

Bitmap stretchedPart(const Bitmap& source, int width, int height, PixelArea window) {
    if (source.empty() || window.width <= 0 || window.height <= 0)
        return {};
    const Axis columns = axis(source.width, width, window.left, window.width);
    const Axis rows = axis(source.height, height, window.top, window.height);
    const bool reduces = width < source.width || height < source.height;
    return reduces ? averaged(source, columns, rows) : nearest(source, columns, rows);
}

Bitmap stretched(const Bitmap& source, int width, int height) {
    return stretchedPart(source, width, height, PixelArea{0, 0, width, height});
}

}  // namespace quillon
