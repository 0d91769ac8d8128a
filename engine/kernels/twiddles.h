#pragma once

#include <array>
#include <cstddef>

namespace quillon::kernels {

/// A full turn as the transform knows it: exactly this decimal, a little more
/// than 2 pi, so the sine of half of it is not quite zero.
inline constexpr double kFullTurn = 6.28318530717959;

/// kSines[j] is sin(kFullTurn / 2^j), correctly rounded. They are literals
/// because mathematics libraries differ in the last place of a sine, and a
/// twiddle that differs there changes the spectrum: with these every machine
/// gives the same bits. The last one serves a side of 2^29, the largest whose
/// indices fit into a Long.
inline constexpr std::array<double, 31> kSines = {
    // clang-format off
      0x1.dcb3b399d747fp-49,  -0x1.dcb3b399d747fp-50,                  0x1p+0,
       0x1.6a09e667f3bcfp-1,    0x1.87de2a6aea966p-2,    0x1.8f8b83c69a60ep-3,
       0x1.917a6bc29b430p-4,    0x1.91f65f10dd818p-5,    0x1.92155f7a36682p-6,
       0x1.921d1fcdec788p-7,    0x1.921f0fe670075p-8,    0x1.921f8becca4bep-9,
      0x1.921faaee64731p-10,   0x1.921fb2aecb364p-11,   0x1.921fb49ee4eaap-12,
      0x1.921fb51aeb57fp-13,   0x1.921fb539ecf35p-14,   0x1.921fb541ad5a2p-15,
      0x1.921fb5439d73ep-16,   0x1.921fb544197a4p-17,   0x1.921fb544387bep-18,
      0x1.921fb544403c5p-19,   0x1.921fb544422c6p-20,   0x1.921fb54442a87p-21,
      0x1.921fb54442c77p-22,   0x1.921fb54442cf3p-23,   0x1.921fb54442d12p-24,
      0x1.921fb54442d19p-25,   0x1.921fb54442d1bp-26,   0x1.921fb54442d1cp-27,
      0x1.921fb54442d1cp-28,
    // clang-format on
};

/// What a pass of the transform starts from: pass k (from 0 on) joins blocks of
/// 2^k elements, its angle is isign * kFullTurn / 2^(k+1).
struct TwiddleStep {
    double wpr;
    double wpi;
};

/// The step of pass k for isign +1 or -1.
constexpr TwiddleStep twiddleStep(int pass, int isign) noexcept {
    const auto k = static_cast<std::size_t>(pass);
    const double wtemp = kSines[k + 2];
    return {-2.0 * (wtemp * wtemp), isign < 0 ? -kSines[k + 1] : kSines[k + 1]};
}

/// The twiddle of a pass, carried from butterfly to butterfly in Double.
struct Twiddle {
    double wr = 1.0;
    double wi = 0.0;

    constexpr void advance(const TwiddleStep& step) noexcept {
        const double wtemp = wr;
        wr = wr * step.wpr - wi * step.wpi + wr;
        wi = wi * step.wpr + wtemp * step.wpi + wi;
    }
};

}  // namespace quillon::kernels
