// The transform: every level of this machine, the plain loop and the yardstick,
// side by side.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "bench/interleaved.h"
#include "bench/yardstick.h"
#include "engine/fourn.h"
#include "engine/kernels/aligned_floats.h"
#include "engine/kernels/transform256_levels.h"
#include "engine/transform256.h"
#include "tests/support/plain_fourn.h"

namespace quillon {
namespace {

constexpr std::size_t kFloats = 2 * 256 * 256;
constexpr std::size_t kRounds = 1000;
/// The plain loop and the portable level take milliseconds.
constexpr std::size_t kSlowEvery = 10;
const std::vector<Long> kSides = {0, 256, 256};

/// Greys of noise as real parts.
std::vector<Single> pictureAsPairs(std::span<const std::uint8_t> pixels) {
    std::vector<Single> pairs(kFloats);
    for (std::size_t k = 0; k < pixels.size(); ++k)
        pairs[2 * k] = pixels[k];
    return pairs;
}

/// Half of the cells cut, here and there.
CellBits checkeredCut() {
    CellBits cut;
    for (std::size_t y = 0; y < cut.size(); ++y)
        cut[y].fill(y % 2 == 0 ? 0x55 : 0xAA);
    return cut;
}

void run() {
    std::mt19937 random(1);
    std::vector<std::uint8_t> pixels(256 * 256);
    std::ranges::generate(pixels, [&] { return static_cast<std::uint8_t>(random() & 0xFFU); });
    const std::vector<Single> pairs = pictureAsPairs(pixels);
    const auto fill = [&pairs](Single* to) {
        return [&pairs, to] { std::ranges::copy(pairs, to); };
    };

    Interleaved bench;
    Yardstick yardstick;
    bench.add(
        kYardstickName, [&] { yardstick.run(); }, fill(yardstick.data()));

    // data(1) on a cache line, as the yardstick's own array lies; then the array of
    // a std::vector, whose data(1) lies anywhere.
    kernels::AlignedFloats memory(kFloats + 16);
    const std::span<Single> aligned(memory.data() + 15, kFloats + 1);
    std::vector<Single> anywhere(kFloats + 1);
    bench.add(
        "fourn", [&] { fourn(aligned, kSides, 2, 1); }, fill(aligned.data() + 1));
    bench.add(
        "fourn, array at any address", [&] { fourn(anywhere, kSides, 2, 1); },
        fill(anywhere.data() + 1));
    bench.add(
        "plain loop", [&] { plainFourn(anywhere, kSides, 2, 1); }, fill(anywhere.data() + 1),
        kSlowEvery);

    ComplexGrid spectrum(256, 256);
    ComplexGrid picture(256, 256);
    forwardTransform256(std::span<const std::uint8_t, 256 * 256>(pixels), spectrum);
    const CellBits cut = checkeredCut();
    for (const kernels::Transform256Level* level : kernels::transform256Levels()) {
        const std::string name = level->name;
        const std::size_t every = level == &kernels::kPortableLevel ? kSlowEvery : 1;
        bench.add(
            name + ": fourn",
            [&, level] {
                level->flat(aligned.data() + 1, aligned.data() + 1, 512, kernels::kForwardTwiddles);
            },
            fill(aligned.data() + 1), every);
        bench.add(
            name + ": pixels to spectrum",
            [&, level] {
                level->forward(pixels.data(), spectrum.realPlane(), spectrum.imaginaryPlane(),
                               spectrum.stride());
            },
            {}, every);
        bench.add(
            name + ": spectrum to picture",
            [&, level] {
                level->inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), nullptr,
                               picture.realPlane(), picture.imaginaryPlane(), spectrum.stride());
            },
            {}, every);
        bench.add(
            name + ": cut spectrum to picture",
            [&, level] {
                level->inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), cut.front().data(),
                               picture.realPlane(), picture.imaginaryPlane(), spectrum.stride());
            },
            {}, every);
    }

    bench.measure(kRounds);
    std::printf("%s\n", processorName().c_str());
    bench.print();
    std::printf("\nfourn is %.0f times as fast as the plain loop\n",
                bench.median("plain loop") / bench.median("fourn"));
}

}  // namespace
}  // namespace quillon

int main() {
    quillon::run();
}
