#pragma once

#include <cstddef>
#include <memory>
#include <new>

namespace quillon::kernels {

/// The size of a cache line, to which the kernels' own arrays are aligned.
inline constexpr std::size_t kCacheLine = 64;

struct AlignedDelete {
    void operator()(float* p) const noexcept {
        ::operator delete[](p, std::align_val_t{kCacheLine});
    }
};
using AlignedFloats = std::unique_ptr<float[], AlignedDelete>;

/// Floats that begin on a cache line, zeroed.
inline AlignedFloats alignedFloats(std::size_t count) {
    return AlignedFloats(new (std::align_val_t{kCacheLine}) float[count]());
}

}  // namespace quillon::kernels
