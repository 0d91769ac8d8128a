#include "engine/transform256.h"

namespace quillon {

void forwardTransform256(std::span<const std::uint8_t, 256 * 256> pixels, ComplexPlanes& spectrum) {
    kernels::transform256().forward(pixels.data(), spectrum.re(), spectrum.im(),
                                    ComplexPlanes::kStride);
}

InverseFindings inverseTransform256(const ComplexPlanes& spectrum, const CellBits* cut,
                                    ComplexPlanes& picture) {
    const std::uint8_t* const bits = cut == nullptr ? nullptr : cut->front().data();
    return kernels::transform256().inverse(spectrum.re(), spectrum.im(), bits, picture.re(),
                                           picture.im(), ComplexPlanes::kStride);
}

}  // namespace quillon
