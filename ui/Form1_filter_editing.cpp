#include <cmath>

#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// The mouse on the FT panels: a drag sets the radius of a circular filter or
// spans a mask rectangle.

namespace quillon {

namespace {

/// How far a click without movement reaches from its point, so that it makes a
/// square of 7 by 7 pixels.
constexpr Single kClickReach = 3;

Single clamped(Single value, Integer limit) {
    return MaxOf(Single{0}, MinOf(static_cast<Single>(limit), value));
}

}  // namespace

void Form1::spectrumPanelMouseDown(Channel which, Integer Button, Integer /*Shift*/, Single X,
                                   Single Y) {
    if (Button == kRightButton) {
        popupPanelMenu(which == Channel::One ? "mnuFT1" : "mnuFT2");
        return;
    }
    const clComplexImage& channel = lab.channel(which);
    if (channel.bMask) {
        bandStartX = X;
        bandStartY = Y;
        // What each step of the band falls back to.
        PictureBox& panel = lab.spectrumPanel(which);
        panel.setPicture(panel.Image());
    }
    if (channel.bLowpass) {
        mem.Tag = "low";
        ring(which).Visible = false;
    }
}

void Form1::spectrumPanelMouseMove(Channel which, Integer Button, Integer Shift, Single X,
                                   Single Y) {
    const clComplexImage& channel = lab.channel(which);
    lab.showFileName(spectrumPanelId(which));
    lbSTB(0).Refresh();
    // A captured drag can leave the panel; there is no value left of it or above.
    if (X >= 0 && Y >= 0)
        ShowPointer(toInteger(X), toInteger(Y), channel.getVXY(X, Y));
    if (Button == 0 && Shift == kAltKey)
        ShowProfile(spectrumPanelId(which), X, Y);
    if (Button != kLeftButton)
        return;
    lab.spectrumPanel(which).ForeColor = channel.bRing ? kRed : kBlue;
    if (channel.bRing)
        followRing(which, X, Y);
    if (channel.bMask)
        stretchBand(which, X, Y);
}

void Form1::followRing(Channel which, Single X, Single Y) {
    PictureBox& panel = lab.spectrumPanel(which);
    clComplexImage& channel = lab.channel(which);
    const auto cx = static_cast<Single>(toInteger(panel.ScaleWidth() / 2));
    const auto cy = static_cast<Single>(toInteger(panel.ScaleHeight() / 2));
    const double dx = X - cx;
    const double dy = Y - cy;
    const auto r = static_cast<Single>(std::sqrt(dx * dx + dy * dy));

    Shape& circle = ring(which);
    circle.Width = 2 * r;
    // The diameter stays odd, so that the circle has a centre pixel.
    if (toLong(circle.Width) % 2 == 0)
        circle.Width = circle.Width + 1;
    circle.Height = circle.Width.get();
    circle.Left = 127.5F - r;
    circle.Top = 127.5F - r;
    circle.Tag = shortestText(circle.Width / 2);
    // The cut takes the radius as it is, not the circle's rounded diameter.
    channel.SetFilterRad(r);
    if (channel.bLowpass)
        DrawLowPassMask(spectrumPanelId(which), panel);
    if (lab.autoCalculate)
        channel.runFOURN(0);
}

void Form1::stretchBand(Channel which, Single X, Single Y) {
    bandX = clamped(X, panelW);
    bandY = clamped(Y, panelH);
    PictureBox& panel = lab.spectrumPanel(which);
    panel.Cls();
    panel.Box(bandStartX, bandStartY, bandX, bandY, panel.ForeColor, BoxStyle::Outline);
}

void Form1::spectrumPanelMouseUp(Channel which, Integer /*Button*/, Integer /*Shift*/, Single X,
                                 Single Y) {
    clComplexImage& channel = lab.channel(which);
    if (!channel.bFilter)
        return;
    if (channel.bRing)
        channel.runFOURN(0);
    mem.Tag.clear();
    if (channel.bMask)
        addMaskPair(which, X, Y);
}

void Form1::addMaskPair(Channel which, Single X, Single Y) {
    clComplexImage& channel = lab.channel(which);
    PictureBox& panel = lab.spectrumPanel(which);
    const Single cx = panel.ScaleWidth() / 2;
    const Single cy = panel.ScaleHeight() / 2;

    bandX = MaxOf(X, bandStartX);
    bandY = MaxOf(Y, bandStartY);
    bandStartX = MinOf(X, bandStartX);
    bandStartY = MinOf(Y, bandStartY);
    if (bandX == bandStartX && bandY == bandStartY) {
        bandX -= kClickReach;
        bandY -= kClickReach;
        bandStartX += kClickReach;
        bandStartY += kClickReach;
    }
    channel.AddMask(toInteger(bandStartX), toInteger(bandStartY), toInteger(bandX),
                    toInteger(bandY));

    // The mirror uses the centre 128, while the zero frequency lies at 127: the
    // two rectangles are not quite symmetric about it.
    const Single mirrorStartX = cx - (bandStartX - cx);
    const Single mirrorStartY = cy - (bandStartY - cy);
    const Single mirrorX = cx - (bandX - cx);
    const Single mirrorY = cy - (bandY - cy);
    channel.AddMask(toInteger(mirrorStartX), toInteger(mirrorStartY), toInteger(mirrorX),
                    toInteger(mirrorY));
    panel.Box(mirrorStartX, mirrorStartY, mirrorX, mirrorY, kBlue, BoxStyle::Outline);
    DrawMasks(spectrumPanelId(which));
    panel.Refresh();
    if (lab.autoCalculate)
        channel.runFOURN(0);
}

}  // namespace quillon
