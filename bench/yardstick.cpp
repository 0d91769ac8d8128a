#include "bench/yardstick.h"

#include <fftw3.h>

#include <cstddef>

namespace quillon {

struct Yardstick::Plan {
    fftwf_complex* data;
    fftwf_plan plan;
};

Yardstick::Yardstick() : plan_(std::make_unique<Plan>()) {
    constexpr int kSide = 256;
    plan_->data = fftwf_alloc_complex(std::size_t{kSide} * kSide);
    plan_->plan =
        fftwf_plan_dft_2d(kSide, kSide, plan_->data, plan_->data, FFTW_BACKWARD, FFTW_MEASURE);
}

Yardstick::~Yardstick() {
    fftwf_destroy_plan(plan_->plan);
    fftwf_free(plan_->data);
}

float* Yardstick::data() noexcept {
    return &plan_->data[0][0];
}

void Yardstick::run() {
    fftwf_execute(plan_->plan);
}

}  // namespace quillon
