#include <array>

#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// Filters and masks as the FT panels show them.

namespace quillon {

namespace {

constexpr Integer kSolid = 0;
constexpr Integer kTransparent = 1;

// Filter modes.
constexpr Integer kNoFilter = 1;
constexpr Integer kLowPass = 2;
constexpr Integer kHighPass = 3;
constexpr Integer kCustomMasks = 4;

/// Entering a circular mode sets the radius back to this.
constexpr Single kEntryRadius = 20;
constexpr Integer kLargestRadius = 256;

void outlineMasks(const clComplexImage& channel, PictureBox& panel) {
    if (!channel.bMask)
        return;
    std::array<Single, 4> mask{};
    for (Integer i = 0; i < channel.nmask; ++i) {
        channel.GetMask(i, mask);
        panel.Box(mask[0], mask[1], mask[2], mask[3], kBlue, BoxStyle::Outline);
    }
}

/// The disc of a high-pass covers what the cut takes away.
void coverCut(Shape& disc, Single radius) {
    disc.Width = 2 * radius + 1;
    disc.Height = disc.Width.get();
    disc.Left = 127.5F - radius;
    disc.Top = disc.Left.get();
}

}  // namespace

void Form1::DrawMasks(Integer /*m*/) {
    outlineMasks(lab.channel1, pb2);
    outlineMasks(lab.channel2, pb5);
}

void Form1::ApplyFilterChoice(Integer id, Integer m) {
    const Channel which = channelOfPanel(id);
    clComplexImage& channel = lab.channel(which);
    PictureBox& panel = lab.spectrumPanel(which);
    Shape& disc = ring(which);

    channel.SetFilterFT(m);
    if (!panel.AutoRedraw()) {
        // Cls before the switch: it takes only the dark surround of a low-pass away.
        panel.Cls();
        panel.setAutoRedraw(true);
    }
    if (m == kNoFilter || m == kCustomMasks) {
        disc.Visible = false;
    } else if (m == kLowPass) {
        disc.Visible = false;
        disc.FillStyle = kTransparent;
        disc.FillColor = kBlack;
        channel.SetFilterRad(kEntryRadius);
        mem.Tag = "low";
        DrawLowPassMask(spectrumPanelId(which), panel);
    } else if (m == kHighPass) {
        coverCut(disc, kEntryRadius);
        disc.Visible = true;
        disc.FillStyle = kSolid;
        disc.FillColor = kBlack;
        channel.SetFilterRad(kEntryRadius);
    }

    if (channel.bRing) {
        panel.MouseIcon = kMouseIconRing;
        panel.MousePointer = kPointerCustom;
    } else if (channel.bMask) {
        panel.MouseIcon = kMouseIconMasks;
        panel.MousePointer = kPointerCustom;
    } else {
        panel.MousePointer = kPointerArrow;
    }
}

void Form1::DrawLowPassMask(Integer id, PictureBox& pb) {
    if (mem.Tag != "low")
        return;
    // Beyond the panel's corners a larger circle leaves nothing dark.
    const Integer r = MinOf(toInteger(lab.channelOf(id).filter_rad), kLargestRadius);
    // On the screen layer only, so that no copy, save or transform contains it.
    pb.setAutoRedraw(false);
    pb.Cls();
    // The surround's centre is 128.5, that of the cut 127.5.
    pb.FillAroundEllipse(129 - r, 129 - r, 128 + r, 128 + r, kBlack);
}

}  // namespace quillon
