#pragma once

#include <cstdint>

#include "engine/Numbers.h"

namespace quillon {

/// The one generator of random numbers, shared by both channels and all edits of
/// a spectrum. It always starts at the same place and is never seeded, so that
/// every run of the program on every system repeats the same sequence. The
/// formula stands in docs/numbers.md.
class Rnd {
public:
    Rnd() noexcept = default;
    /// Starts at another place of the same sequence.
    explicit Rnd(std::uint64_t state) noexcept : state_(state) {}

    /// The next number, one of the 2^24 multiples of 2^-24 from 0 up to but not
    /// including 1, all equally likely. Exact in a Single.
    Single operator()() noexcept;

private:
    // The state that the generator's author reaches from the seed 42 on stream 54.
    std::uint64_t state_ = 0x185706B82C2E03F8U;
};

}  // namespace quillon
