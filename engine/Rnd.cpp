#include "engine/Rnd.h"

#include <bit>

namespace quillon {

namespace {

constexpr std::uint64_t kMultiplier = 6364136223846793005U;
// Twice the stream's number, 54, and 1.
constexpr std::uint64_t kIncrement = 109;
constexpr Single kUnit = 0x1p-24F;

/// The 32 bits that a state gives: its upper half folded onto itself, then
/// turned to the right by as many places as the five highest bits say.
std::uint32_t permuted(std::uint64_t state) noexcept {
    const auto folded = static_cast<std::uint32_t>(((state >> 18U) ^ state) >> 27U);
    return std::rotr(folded, static_cast<int>(state >> 59U));
}

}  // namespace

Single Rnd::operator()() noexcept {
    const std::uint32_t bits = permuted(state_);
    state_ = state_ * kMultiplier + kIncrement;
    // A Single has 24 bits; more would be rounded, and could be rounded up to 1.
    return static_cast<Single>(bits >> 8U) * kUnit;
}

}  // namespace quillon
