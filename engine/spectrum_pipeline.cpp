#include <algorithm>
#include <cstdint>
#include <vector>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/flat_array.h"
#include "engine/fourn.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr Integer kForward = 1;
constexpr Integer kInverse = -1;
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

void transform(std::span<Single> data, Integer isign) {
    const Long nn[] = {0, kTransformSide, kTransformSide};
    passOver([&] { fourn(data, nn, 2, isign); });
}

}  // namespace

void clComplexImage::CalculateAll() {
    sfile = FileNamePart(file);
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

/// The pixels of the image panel, row after row; what the panel does not give
/// stays black.
std::vector<PixelWord> clComplexImage::readImagePixels() {
    std::vector<PixelWord> bits(kTransformSide * kTransformSide);
    const auto room = static_cast<std::int64_t>(bits.size());
    const std::int64_t wanted = std::int64_t{nfftTotal} * 4;
    Long got = 0;
    passOver([&] {
        const auto n = static_cast<Long>(std::min<std::int64_t>(wanted, room * 4));
        got = bound(pbIMG).GetBitmapBits(n, bits);
    });
    if (got < wanted)
        desktop_.dialogs.messageBox("Screen must be set to 32-bit True Color!",
                                    "System Requirement", MessageIcon::Critical,
                                    MessageButtons::Ok);
    return bits;
}

void clComplexImage::forwardTransform() {
    ftData.allocate(kTransformSide, kTransformSide);
    std::vector<Single> data(kFlatLength);
    Long sum = 0;
    bool empty = true;
    {
        const std::vector<PixelWord> bits = readImagePixels();
        forEachCell([&](Long x, Long y) {
            // The image is taken to be grey: of a coloured pixel only the lowest
            // byte counts.
            const Integer g = RedByte(bits[static_cast<std::size_t>(y * kTransformSide + x)]);
            data[realPart(x, y)] = g;
            sum += g;
            empty = empty && g == 0;
        });
    }
    if (empty)
        return;

    // Without a size no mean can be formed, and it stays 0.
    const Long mean = nfftTotal == 0 ? 0 : toLong(static_cast<Double>(sum) / nfftTotal);
    pencolor = mean < kMiddleGrey ? kWhitePen : kBlackPen;

    transform(data, kForward);
    forEachCell([&](Long x, Long y) {
        ftData(x, y).re = data[realPart(x, y)];
        ftData(x, y).im = data[imaginaryPart(x, y)];
    });
    passOver([&] { DrawFT(ftData, nfftX, nfftY, pbFFT, 1, bInvert[1]); });
    passOver([&] { bound(pbFFT).Tag = "!"; });
    passOver([&] { bound(pbIMG).Tag = "!"; });
    if (!bBatch)
        runFOURN(0);
    if (bMask)
        passOver([&] { masks_.DrawMasks(id); });
}

void clComplexImage::inverseTransform() {
    imgData.allocate(kTransformSide, kTransformSide);
    std::vector<Single> data(kFlatLength);
    if (!copySpectrum(data))
        return;
    if (bRing || bMask)
        cutSpectrum(data);
    transform(data, kInverse);
    // The imaginary result is thrown away.
    forEachCell([&](Long x, Long y) { imgData(x, y).re = data[realPart(x, y)]; });
    passOver([&] { DrawFT(imgData, nfftX, nfftY, pbNEW, 0, bInvert[2]); });
    passOver([&] { bound(pbNEW).Tag = "!"; });
    passOver([&] { bound(pbIMG).Tag = "!"; });
}

/// The spectrum divided by the number of cells. False where no real part is left
/// of it; imaginary parts alone do not count.
bool clComplexImage::copySpectrum(std::span<Single> data) const {
    if (nfftTotal == 0)
        return false;
    const auto total = static_cast<Double>(nfftTotal);
    bool anyRealPart = false;
    forEachCell([&](Long x, Long y) {
        if (x > ftData.xBound() || y > ftData.yBound())
            return;
        const ComplexCell cell = ftData(x, y);
        const auto re = static_cast<Single>(cell.re / total);
        data[realPart(x, y)] = re;
        data[imaginaryPart(x, y)] = static_cast<Single>(cell.im / total);
        anyRealPart = anyRealPart || re != 0.0F;
    });
    return anyRealPart;
}

}  // namespace quillon
