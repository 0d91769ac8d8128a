#include <algorithm>
#include <cmath>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/clComplexImage.h"
#include "engine/spectrum_passes.h"

namespace quillon {

namespace {

constexpr Double kDimmer = 0.9;
constexpr Double kBrighter = 1.11;
constexpr Single kLeastSqrtFactor = 0.01F;
constexpr Single kLeastLinearFactor = 0.1F;
constexpr Single kLeastEnteredFactor = 0.05F;

/// One step of a factor; beyond the range of a Single it is infinite. The product is
/// a Double, rounded once, so that the caption shows the same factor after the same
/// steps on every machine.
Single stepped(Single factor, Double step, Single least) noexcept {
    return std::max(least, static_cast<Single>(factor * step));
}

}  // namespace

SpectrumLook clComplexImage::spectrumLook(bool invert) const {
    return {.view = mView,
            .scale = bSqrtScale ? Scale::SquareRoot : Scale::Linear,
            .linearFactor = ifacLinear,
            .sqrtFactor = ifacSqrt,
            .inversion = invert ? Inversion::On : Inversion::Off,
            .lutActive = lutActive,
            .lutHue = lutHue,
            .lutRe = lutRe,
            .lutIm = lutIm};
}

void clComplexImage::DrawFT(const ComplexGrid& data, Long w, Long h, PictureBox* pb, Integer mode,
                            bool invert) {
    // The index is renewed even where nothing is drawn: a spectrum that shows
    // nothing leaves all its entries at (0, 0).
    if (mode == 1)
        ftIndex.allocate(w, h);
    if (ifacSqrt == 0.0F)
        ifacSqrt = 1.0F;
    try {
        requireCells(data, w, h);
        if (mode == 1) {
            const SpectrumLook look = spectrumLook(invert);
            if (!spectrumPasses.measure(data, w, h, look))
                return;
            bound(pb).PaintBitmapBits(w * h * 4, [&](std::span<PixelWord> pix) {
                spectrumPasses.paint(look, ftIndex, pix);
            });
        } else {
            if (!showsReconstruction(imgRange, mView))
                return;
            bound(pb).PaintBitmapBits(w * h * 4, [&](std::span<PixelWord> pix) {
                paintReconstruction(data, w, h, imgRange, invert ? Inversion::On : Inversion::Off,
                                    pix);
            });
        }
        bound(pb).Refresh();
        masks_.DrawMasks(-1);
        if (mode == 0)
            bound(pbNEW).Tag = "!";
    } catch (const RunTimeError& error) {
        desktop_.dialogs.messageBox("Error in DrawFT: " + error.description(), "",
                                    MessageIcon::None, MessageButtons::Ok);
    }
}

void clComplexImage::RedrawFT(Integer mode, Single ifac) {
    if (ifac > 0.0F)
        ifacLinear = ifac;
    if (mode == 1)
        DrawFT(ftData, nfftX, nfftY, pbFFT, 1, bInvert[1]);
    else if (mode == 0)
        DrawFT(imgData, nfftX, nfftY, pbNEW, 0, bInvert[2]);
}

void clComplexImage::SetFTView(Integer m, Integer s) {
    mView = m;
    activateTable();
    if (s != 0)
        return;
    RedrawFT(1, 0);
    drawSurfaceIfShown();
}

void clComplexImage::SetScale(Integer m) {
    bSqrtScale = m == 1;
    RedrawFT(1, -1.0F);
}

void clComplexImage::ChangeBrightness(Integer m) {
    const Double step = m < 1 ? kDimmer : kBrighter;
    Single& factor = bSqrtScale ? ifacSqrt : ifacLinear;
    const Single before = factor;
    factor = stepped(before, step, bSqrtScale ? kLeastSqrtFactor : kLeastLinearFactor);
    // A held control would open one message box after the other.
    if (!std::isfinite(factor) || spectrumOverflows())
        factor = before;
    else
        RedrawFT(1, ifacLinear);
}

bool clComplexImage::spectrumOverflows() {
    try {
        const SpectrumLook look = spectrumLook(bInvert[1]);
        return spectrumPasses.measure(ftData, nfftX, nfftY, look) && spectrumPasses.overflows(look);
    } catch (const RunTimeError& error) {
        // Any other failure is left to the draw.
        return error.number() == ErrorNumber::Overflow;
    }
}

std::string clComplexImage::getIntFac() {
    intFacText = bSqrtScale ? sqrtFactorText(ifacSqrt) : linearFactorText(ifacLinear);
    return intFacText;
}

void clComplexImage::setIntFac(Single v) {
    const Single factor = v < kLeastEnteredFactor ? kLeastEnteredFactor : v;
    (bSqrtScale ? ifacSqrt : ifacLinear) = factor;
    RedrawFT(1, ifacLinear);
    drawSurfaceIfShown();
}

void clComplexImage::drawSurfaceIfShown() {
    if (bound(pbNEW).Tag == "3D")
        draw3DFT();
}

}  // namespace quillon
