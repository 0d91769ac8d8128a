#pragma once

#include <cstddef>
#include <new>
#include <vector>

namespace quillon::kernels {

/// The size of a cache line, to which the kernels' arrays are aligned.
inline constexpr std::size_t kCacheLine = 64;

/// Gives a standard container memory that begins on a cache line.
template <class Value>
struct CacheLineAllocator {
    using value_type = Value;

    CacheLineAllocator() = default;
    template <class Other>
    CacheLineAllocator(const CacheLineAllocator<Other>&) noexcept {}

    Value* allocate(std::size_t count) {
        return static_cast<Value*>(
            ::operator new (count * sizeof(Value), std::align_val_t{kCacheLine}));
    }
    void deallocate(Value* p, std::size_t) noexcept {
        ::operator delete (p, std::align_val_t{kCacheLine});
    }
    friend bool operator==(CacheLineAllocator, CacheLineAllocator) noexcept { return true; }
};

/// Floats that begin on a cache line.
using AlignedFloats = std::vector<float, CacheLineAllocator<float>>;

}  // namespace quillon::kernels
