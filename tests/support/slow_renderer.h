#pragma once

#include <array>
#include <vector>

#include "engine/Grid.h"
#include "engine/PictureBox.h"
#include "engine/clComplexImage.h"

namespace quillon::slow {

// The renderer as it is told, step by step, cell by cell, column after column,
// without a thought for speed. It shares no code with the renderer of the lab.

struct Tables {
    std::array<Long, 256> gray{};
    std::array<Long, 256> hue{};
    std::array<Long, 511> re{};
    std::array<Long, 511> im{};
};

/// The tables as a new channel has them.
Tables makeTables();

Long hsbToRgb(Integer h, Integer s, Integer b, Integer swap);
Single phaseDegrees(Single re, Single im);

struct Look {
    Integer mView = 0;
    bool bSqrtScale = true;
    Single ifacLinear = 100;
    Single ifacSqrt = 1;
    bool invert = false;
    std::array<Long, 256> lutActive{};
};

/// How a channel looks now on its spectrum panel, 1, or its reconstruction panel, 2.
Look lookOf(const clComplexImage& channel, Integer panel);

struct Drawing {
    /// False where the draw ended before the panel was touched.
    bool drawn = false;
    /// A step did not fit a Single.
    bool overflow = false;
    /// pix(x, y) at y * w + x.
    std::vector<Long> pix;
    std::vector<Integer> relief;
    Grid<FtIndexCell> ftIndex;
};

Drawing drawSpectrum(const ComplexGrid& data, Long w, Long h, const Look& look,
                     const Tables& tables);
Drawing drawReconstruction(const ComplexGrid& data, Long w, Long h, const Look& look);

/// The relief, back to front, line by line.
void drawRelief(const Drawing& spectrum, Long w, Long h, PictureBox& pbNEW);

/// The relief of a channel's spectrum over the background picture, or the bare
/// ground, of the panel that shows it.
Bitmap reliefOn(const PictureBox& panel, const clComplexImage& channel);

}  // namespace quillon::slow
