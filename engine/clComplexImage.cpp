#include "engine/clComplexImage.h"

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"
#include "engine/mHSBRGB.h"

namespace quillon {

namespace {

constexpr Integer kFullSaturation = 239;
constexpr Integer kPhaseBrightness = 128;
constexpr Integer kPositiveReal = 0;
constexpr Integer kNegativeReal = 120;
constexpr Integer kPositiveImaginary = 90;
constexpr Integer kNegativeImaginary = 209;

}  // namespace

clComplexImage::clComplexImage(Desktop& desktop, MaskPainter& masks, Rnd& rnd)
    : desktop_(desktop), masks_(masks), rnd_(rnd) {
    class_initialize();
}

void clComplexImage::class_initialize() {
    bSqrtScale = true;
    for (std::size_t i = 0; i <= 255; ++i) {
        const auto level = static_cast<Integer>(i);
        lutGray[i] = toPixelWord(RGB(level, level, level));
        lutHue[i] =
            HSBtoRGB(toInteger(level / 255.0F * 239.0F), kFullSaturation, kPhaseBrightness, 1);
        // The brightness runs up to 255 on a scale of 239, so both ends are white.
        lutRe[255 + i] = HSBtoRGB(kPositiveReal, kFullSaturation, level, 1);
        lutRe[255 - i] = HSBtoRGB(kNegativeReal, kFullSaturation, level, 1);
        lutIm[255 + i] = HSBtoRGB(kPositiveImaginary, kFullSaturation, level, 1);
        lutIm[255 - i] = HSBtoRGB(kNegativeImaginary, kFullSaturation, level, 1);
    }
}

void clComplexImage::SetLUT(Integer m, std::span<const Long> c, Integer s) {
    if (m == 1 || m == 2) {
        std::array<Long, 256>& table = m == 1 ? lutGray : lutHue;
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (i >= c.size())
                throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
            table[i] = c[i];
        }
    }
    activateTable();
    if (s == 0)
        RedrawFT(1, 0);
}

void clComplexImage::activateTable() {
    if (mView == 0 || mView == 1)
        lutActive = lutGray;
    else if (mView == 2)
        lutActive = lutHue;
}

void clComplexImage::SetDrawMode(Integer m) {
    mDraw = m;
}

void clComplexImage::SetCanvas(PictureBox& image, PictureBox& spectrum, PictureBox& reconstruction,
                               Integer channel) {
    pbIMG = &image;
    pbFFT = &spectrum;
    pbNEW = &reconstruction;
    for (PictureBox* panel : {pbIMG, pbFFT, pbNEW}) {
        panel->setAutoRedraw(true);
        panel->ScaleMode = 3;
    }
    id = channel;
}

void clComplexImage::SetMessageLabel(Label& s) {
    lbMessage = &s;
}

void clComplexImage::SetDimensionFFT(Integer w) {
    nfftX = w;
    nfftY = w;
    nfftTotal = nfftX * nfftY;
    if (w < 1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    imgData.allocate(w, w);
    imgRange = {};
    ftData.allocate(w, w);
    imageBits.assign(static_cast<std::size_t>(nfftTotal), 0);
}

void clComplexImage::SetInvert(Integer m, bool b) {
    if (m < 0 || m > 2)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    bInvert[static_cast<std::size_t>(m)] = b;
}

bool clComplexImage::GetInvert(Integer m) const {
    if (m < 0 || m > 2)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    return bInvert[static_cast<std::size_t>(m)];
}

void clComplexImage::LoadImageFile(const std::string& f) {
    file = f;
    sfile = lastName(f);
    PictureBox& panel = bound(pbIMG);
    panel.setPicture(desktop_.pictures.load(f));
    panel.Refresh();
}

void clComplexImage::Msg(const std::string& s) {
    Label& label = bound(lbMessage);
    label.Caption = s;
    label.Refresh();
}

void clComplexImage::SetImageSize(Single w_, Single h_) {
    width = toInteger(w_);
    height = toInteger(h_);
}

Integer GrayOfColor(Long c) {
    return toInteger((RedByte(c) + GreenByte(c) + BlueByte(c)) / 3.0);
}

}  // namespace quillon
