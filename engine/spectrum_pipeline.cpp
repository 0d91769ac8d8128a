#include <algorithm>
#include <cstdint>
#include <vector>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/mFFTUTIL.h"
#include "engine/transform256.h"

namespace quillon {

namespace {

constexpr Long kCells = kTransformSide * kTransformSide;
constexpr Long kMiddleGrey = 128;
constexpr Long kWhitePen = 16777215;
constexpr Long kBlackPen = 0;

/// A transform run goes on at its next step after any error.
template <class Step>
void passOver(Step step) {
    try {
        step();
    } catch (const RunTimeError&) {
        // What the step was to do stays undone.
    }
}

/// Gives a grid the side of the transform. A transform writes every cell of it, so
/// one that has the side already is not emptied.
void fitToTransform(ComplexGrid& grid) {
    if (grid.xBound() != kTransformSide || grid.yBound() != kTransformSide)
        grid.allocate(kTransformSide, kTransformSide);
}

/// The image is taken to be grey: of a coloured pixel only the lowest byte counts.
GreyImage greysOf(std::span<const PixelWord> words) {
    GreyImage image{std::vector<std::uint8_t>(kCells)};
    std::uint8_t* const pixels = image.pixels.data();
    Long sum = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const Long grey = words[i] & 0xFF;
        pixels[i] = static_cast<std::uint8_t>(grey);
        sum += grey;
    }
    image.sum = sum;
    return image;
}

}  // namespace

void clComplexImage::CalculateAll() {
    sfile = lastName(file);
    if (ifacLinear == 0.0F)
        ifacLinear = 100.0F;
    if (ifacSqrt == 0.0F)
        ifacSqrt = 1.0F;
    runFOURN(1);
    runFOURN(0);
}

void clComplexImage::runFOURN(Integer inv, Integer b_) {
    desktop_.screen.setMousePointer(kPointerWait);
    // The side is fixed, whatever the image panel or an earlier setting says.
    nfftX = kTransformSide;
    nfftY = kTransformSide;
    if (b_ != 0)
        ifacLinear = 0.0F;
    passOver([&] { showFilterText(); });
    if (inv > 0)
        forwardTransform();
    else
        inverseTransform();
    desktop_.screen.setMousePointer(kPointerDefault);
}

void clComplexImage::showFilterText() {
    if (!bFilter)
        Msg("");
    if (bLowpass)
        Msg(" (Low-pass filter r=" + shortestText(filter_rad) + ")");
    if (bHighpass)
        Msg(" (High-pass filter r=" + shortestText(filter_rad) + ")");
    if (bMask)
        Msg(" (Custom filter)");
}

/// Reads the image panel; what it does not give stays black.
GreyImage clComplexImage::readGreys() {
    const std::int64_t wanted = std::int64_t{nfftTotal} * 4;
    std::span<const PixelWord> words;
    passOver([&] { words = bound(pbIMG).Image().words; });
    if (std::ssize(words) * 4 < wanted)
        desktop_.dialogs.messageBox("Screen must be set to 32-bit True Color!",
                                    "System Requirement", MessageIcon::Critical,
                                    MessageButtons::Ok);
    const std::int64_t given = std::min<std::int64_t>({std::ssize(words), nfftTotal, kCells});
    return greysOf(words.first(static_cast<std::size_t>(given)));
}

void clComplexImage::forwardTransform() {
    const GreyImage image = readGreys();
    if (image.sum == 0) {
        ftData.allocate(kTransformSide, kTransformSide);
        return;
    }
    // Without a size no mean can be formed, and it stays 0.
    const Long mean = nfftTotal == 0 ? 0 : toLong(static_cast<Double>(image.sum) / nfftTotal);
    pencolor = mean < kMiddleGrey ? kWhitePen : kBlackPen;

    fitToTransform(ftData);
    forwardTransform256(std::span(image.pixels).first<kCells>(), ftData);
    passOver([&] { DrawFT(ftData, nfftX, nfftY, pbFFT, 1, bInvert[1]); });
    passOver([&] { bound(pbFFT).Tag = "!"; });
    passOver([&] { bound(pbIMG).Tag = "!"; });
    if (!bBatch)
        runFOURN(0);
    if (bMask)
        passOver([&] { masks_.DrawMasks(id); });
}

void clComplexImage::inverseTransform() {
    fitToTransform(imgData);
    const bool asItStands = nfftTotal == kCells && ftData.xBound() == kTransformSide;
    const std::optional<CellBits> cut = cutCells();
    const CellBits* const cells = cut ? &*cut : nullptr;
    const InverseFindings found = asItStands
                                      ? inverseTransform256(ftData, cells, imgData)
                                      : inverseTransform256(dividedSpectrum(), cells, imgData);
    // Imaginary parts alone make no picture.
    if (!found.anyRealPart) {
        imgData.allocate(kTransformSide, kTransformSide);
        imgRange = {};
        return;
    }
    imgRange = {MinOf(found.lowest, 0.0F), MaxOf(found.highest, 0.0F)};
    passOver([&] { DrawFT(imgData, nfftX, nfftY, pbNEW, 0, bInvert[2]); });
    passOver([&] { bound(pbNEW).Tag = "!"; });
    passOver([&] { bound(pbIMG).Tag = "!"; });
}

/// The spectrum where the number of cells that was set is not that of the
/// transform, which divides by its own: what remains to be divided by the one that
/// was set. Zeros where there is no spectrum of the side.
ComplexGrid clComplexImage::dividedSpectrum() const {
    ComplexGrid divided(kTransformSide, kTransformSide);
    if (nfftTotal == 0)
        return divided;
    const auto part = [this](Single value) {
        return static_cast<Single>(value / static_cast<Double>(nfftTotal)) * kCells;
    };
    for (Long u = 0; u < std::min(ftData.xBound() + 1, kTransformSide); ++u)
        for (Long v = 0; v < std::min(ftData.yBound() + 1, kTransformSide); ++v)
            divided(u, v) = {part(ftData(u, v).re), part(ftData(u, v).im)};
    return divided;
}

}  // namespace quillon
