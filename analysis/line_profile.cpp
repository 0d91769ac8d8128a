#include <cmath>

#include "analysis/centred_cell.h"
#include "engine/PersistentDrawing.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"

namespace quillon {

namespace {

/// Side of the patch of the FT panel that is magnified around the pointer, and
/// how far its corner lies from the pointer.
constexpr int kPatchSide = 51;
constexpr Single kPatchReach = 25;

}  // namespace

void clComplexImage::GetProfile(std::span<Single> v, Single& vmax, Single x, Single y,
                                ColorValue ground) {
    PictureBox& image = bound(pbIMG);
    const PictureBox& spectrum = bound(pbFFT);
    if (v.size() < static_cast<std::size_t>(nfftX))
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const Long row = centredCell(nfftY, static_cast<Double>(y));
    for (Long i = 0; i < nfftX; ++i) {
        const ComplexCell cell = ftData.at(centredCell(nfftX, i), row);
        const Double re = cell.re;
        const Double im = cell.im;
        const auto magnitude = static_cast<Single>(std::sqrt(re * re + im * im));
        if (magnitude > vmax)
            vmax = magnitude;
        v[static_cast<std::size_t>(i)] = magnitude;
    }
    // An empty row plots on the bottom edge and needs no guard in its scale.
    if (vmax == 0)
        vmax = 1;

    // The patch shows on every image; on a screen layer the Refresh would take it
    // away. The release of Alt falls back to the panel's picture.
    const PersistentDrawing drawing(image);
    image.Box(0, 0, 255, 255, ground, BoxStyle::Filled);
    const PixelArea patch{toLong(x - kPatchReach), toLong(y - kPatchReach), kPatchSide, kPatchSide};
    image.StretchArea({0, 0, 256, 256}, spectrum.shown(), patch);
    image.Refresh();
}

}  // namespace quillon
