#pragma once

#include <cstddef>
#include <vector>

#include "engine/Numbers.h"
#include "engine/RunTimeError.h"

namespace quillon {

/// A spectrum on its way between channels: p(u, v, k) with u from 0 to the
/// transform width, v from 0 to the transform height, both inclusive (one row
/// and one column more than the spectrum, which stay 0), k 0 for the real and 1
/// for the imaginary part. Zero frequency at (0, 0), unnormalised.
class ExchangeArray {
public:
    ExchangeArray(Long width, Long height)
        : width_(width),
          height_(height),
          values_(2 * static_cast<std::size_t>(width + 1) * static_cast<std::size_t>(height + 1)) {}

    /// Throws RunTimeError SubscriptOutOfRange outside the bounds.
    Single& operator()(Long u, Long v, Long k) { return values_[index(u, v, k)]; }
    Single operator()(Long u, Long v, Long k) const { return values_[index(u, v, k)]; }

private:
    std::size_t index(Long u, Long v, Long k) const {
        if (u < 0 || v < 0 || k < 0 || u > width_ || v > height_ || k > 1)
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        return 2 * (static_cast<std::size_t>(v) * static_cast<std::size_t>(width_ + 1) +
                    static_cast<std::size_t>(u)) +
               static_cast<std::size_t>(k);
    }

    Long width_;
    Long height_;
    std::vector<Single> values_;
};

}  // namespace quillon
