#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace quillon::kernels {

/// What the passes over a spectrum do with a run of its cells, for one instruction
/// set. All sets give the same bits. Nothing is checked; arrays may lie anywhere.
struct SpectrumRows {
    const char* name;

    /// The roots of re * re + im * im, formed in Double and rounded once.
    void (*magnitudes)(const float* re, const float* im, std::size_t count, float* sizes) noexcept;

    /// The greatest size, 0 for no value. An infinite one lies above all others, and
    /// what is not a number above that.
    float (*greatest)(const float* values, std::size_t count) noexcept;

    /// Turns values v into v / divisor * 255, each step rounded to Single. The
    /// divisor is above 0.
    void (*scaleLinear)(float* values, std::size_t count, float divisor) noexcept;

    /// The same with the root of the result, or 0 where the result is below 1. All
    /// of it is done with sizes, and each value keeps its sign, a zero too.
    void (*scaleSquareRoot)(float* values, std::size_t count, float divisor) noexcept;

    /// The sizes of the steps times the factor, at most 255, to the nearest whole
    /// number, ties to the even one; 255 less that where `flip` is 255, as it is
    /// where `flip` is 0. No product is infinite.
    void (*levels)(const float* steps, std::size_t count, float factor, std::uint8_t flip,
                   std::uint8_t* levels) noexcept;
};

extern const SpectrumRows kPortableSpectrumRows;
#if defined(__x86_64__)
extern const SpectrumRows kAvx2SpectrumRows;
#endif

/// Those that this machine can run, from the slowest to the fastest.
std::span<const SpectrumRows* const> spectrumRowsLevels();

/// The fastest of them.
const SpectrumRows& spectrumRows();

}  // namespace quillon::kernels
