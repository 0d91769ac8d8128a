#include "engine/kernels/twiddles256.h"

#include <cstddef>

#include "engine/kernels/twiddles.h"

namespace quillon::kernels {
namespace {

constexpr std::size_t reversed(std::size_t value, int bits) noexcept {
    std::size_t result = 0;
    for (int i = 0; i < bits; ++i)
        result |= ((value >> i) & 1U) << (bits - 1 - i);
    return result;
}

constexpr void fillLanes(const float (&heap)[256], float (&lanes)[32][8],
                         float (&twoRowLanes)[32][16]) noexcept {
    for (int pass = 3; pass < 8; ++pass) {
        const std::size_t vectors = std::size_t{1} << (pass - 3);
        for (std::size_t t = 0; t < vectors; ++t) {
            for (std::size_t lane = 0; lane < 8; ++lane) {
                const auto frequency = static_cast<std::size_t>(kLaneFrequency[lane]);
                const float w = heap[8 * vectors + reversed(frequency, 3) * vectors + t];
                const std::size_t group = 8 * (lane / 4) + lane % 4;
                lanes[vectors + t][lane] = w;
                twoRowLanes[vectors + t][group] = w;
                twoRowLanes[vectors + t][group + 4] = w;
            }
        }
    }
}

constexpr Twiddles256 twiddles(int isign) noexcept {
    Twiddles256 table{};
    for (int pass = 0; pass < 8; ++pass) {
        const std::size_t blocks = std::size_t{1} << pass;
        const TwiddleStep step = twiddleStep(pass, isign);
        Twiddle twiddle;
        for (std::size_t i = 0; i < blocks; ++i) {
            const std::size_t block = blocks + reversed(i, pass);
            table.re[block] = static_cast<float>(twiddle.wr);
            table.im[block] = static_cast<float>(twiddle.wi);
            twiddle.advance(step);
        }
    }
    fillLanes(table.re, table.lanesRe, table.twoRowLanesRe);
    fillLanes(table.im, table.lanesIm, table.twoRowLanesIm);
    return table;
}

}  // namespace

constinit const Twiddles256 kForwardTwiddles = twiddles(1);
constinit const Twiddles256 kInverseTwiddles = twiddles(-1);

}  // namespace quillon::kernels
