#pragma once

#include <memory>

namespace quillon {

/// The yardstick of all speeds: FFTW's single-precision transform of 256 by 256
/// complex values, in place, planned with FFTW_MEASURE, on one thread.
class Yardstick {
public:
    Yardstick();
    ~Yardstick();

    /// Pairs of real and imaginary part, 131,072 floats.
    float* data() noexcept;
    void run();

private:
    struct Plan;
    std::unique_ptr<Plan> plan_;
};

/// What every table calls it.
inline constexpr const char* kYardstickName = "FFTW, single precision, measured plan";

}  // namespace quillon
