#include "engine/transform256.h"

#include "engine/RunTimeError.h"
#include "engine/kernels/aligned_floats.h"

namespace quillon {
namespace {

void requireSquare(const ComplexGrid& grid) {
    if (grid.xBound() < 255 || grid.yBound() < 255)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
}

}  // namespace

void forwardTransform256(std::span<const std::uint8_t, 256 * 256> pixels, ComplexGrid& spectrum) {
    requireSquare(spectrum);
    kernels::transform256().forward(pixels.data(), spectrum.realPlane(), spectrum.imaginaryPlane(),
                                    spectrum.stride());
}

InverseFindings inverseTransform256(const ComplexGrid& spectrum, const CellBits* cut,
                                    ComplexGrid& picture) {
    requireSquare(spectrum);
    requireSquare(picture);
    if (spectrum.stride() != picture.stride())
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    // The imaginary parts on the way: they are thrown away in the end.
    thread_local kernels::AlignedFloats imaginary;
    imaginary.resize(static_cast<std::size_t>(256 * picture.stride()));
    const std::uint8_t* const bits = cut == nullptr ? nullptr : cut->front().data();
    return kernels::transform256().inverse(spectrum.realPlane(), spectrum.imaginaryPlane(), bits,
                                           picture.realPlane(), imaginary.data(), picture.stride());
}

}  // namespace quillon
