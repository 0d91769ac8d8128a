#include <string>

#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// The mouse on the image panels: press, move and release go to the tool in force.

namespace quillon {

namespace {

enum Tool : Integer { kFreehand = 0, kLattice = 1, kShift = 2 };

/// Commits what was drawn or rolled as the panel's picture.
void commit(PictureBox& pb) {
    pb.setPicture(pb.Image());
}

}  // namespace

void Form1::imagePanelMouseDown(Channel which, Integer Button, Integer /*Shift*/, Single X,
                                Single Y) {
    if (Button == kRightButton) {
        popupPanelMenu(which == Channel::One ? "mnuImg1" : "mnuImg2");
        return;
    }
    PictureBox& pb = lab.imagePanel(which);
    const clComplexImage& channel = lab.channel(which);
    // The ink stands out against the image's polarity.
    pb.ForeColor = channel.GetInvert(0) ? kBlack : kWhite;
    pb.FillColor = pb.ForeColor;
    if (Button != kLeftButton)
        return;
    if (channel.mDraw == kFreehand || channel.mDraw == kLattice) {
        strokeLastX = strokeStartX = X;
        strokeLastY = strokeStartY = Y;
    }
    switch (channel.mDraw) {
        case kFreehand:
            pb.setAutoRedraw(true);
            DrawStrokeTo(pb, X, Y);
            break;
        case kLattice:
            if (lattice[0][0] >= 3)
                lattice[0][0] = 0;
            if (lattice[0][0] == 0)
                beginLattice(which, X, Y);
            break;
        case kShift:
            // A lattice left half done draws on the screen layer; a roll counts. The
            // panel stays so: whoever takes this tool has left the lattice.
            pb.setAutoRedraw(true);
            beginRoll(imagePanelId(which), X, Y);
            break;
        default:
            break;
    }
}

void Form1::imagePanelMouseMove(Channel which, Integer Button, Integer /*Shift*/, Single X,
                                Single Y) {
    PictureBox& pb = lab.imagePanel(which);
    lab.showFileName(imagePanelId(which));
    showGrey(pb, X, Y);
    if (Button != kLeftButton)
        return;
    switch (lab.channel(which).mDraw) {
        case kFreehand:
            DrawStrokeTo(pb, X, Y);
            strokeLastX = X;
            strokeLastY = Y;
            break;
        case kLattice:
            if (lattice[0][0] <= 2)
                stretchLattice(pb, X, Y);
            break;
        case kShift:
            rollTo(imagePanelId(which), X, Y);
            break;
        default:
            break;
    }
}

void Form1::imagePanelMouseUp(Channel which, Integer /*Button*/, Integer /*Shift*/, Single X,
                              Single Y) {
    PictureBox& pb = lab.imagePanel(which);
    clComplexImage& channel = lab.channel(which);
    switch (channel.mDraw) {
        case kFreehand:
            // A stroke that ends where it began is a click and gets its dot.
            if (X == strokeStartX && Y == strokeStartY) {
                pb.PSet(X, Y);
                pb.Refresh();
            }
            if (lab.autoCalculate)
                channel.runFOURN(1, 0);
            commit(pb);
            break;
        case kLattice:
            setLatticePoint(which, X, Y);
            break;
        case kShift:
            if (lab.autoCalculate)
                channel.runFOURN(1, 0);
            commit(pb);
            break;
        default:
            break;
    }
}

void Form1::showGrey(const PictureBox& panel, Single X, Single Y) {
    // Off the bitmap the colour is -1, and the text shows -1.
    const Integer grey = RedByte(panel.GetPixel(toLong(X), toLong(Y)));
    ShowPointer(toInteger(X), toInteger(Y), " M=" + plainText(grey));
}

void Form1::DrawStrokeTo(PictureBox& pb, Single X, Single Y) {
    pb.Line(strokeLastX, strokeLastY, X, Y);
    pb.Refresh();
}

void Form1::beginRoll(Integer panel, Single X, Single Y) {
    PictureBox& pb = lab.panel(panel);
    auto& drag = dragXY[static_cast<std::size_t>(panel)];
    drag[0] = toInteger(X);
    drag[1] = toInteger(Y);
    mem.setPicture(pb.Image());
    pb.MousePointer = kPointerFourArrows;
}

void Form1::rollTo(Integer panel, Single X, Single Y) {
    auto& drag = dragXY[static_cast<std::size_t>(panel)];
    drag[2] = toInteger(X);
    drag[3] = toInteger(Y);
    // Always measured from the press and against the copy, so that errors
    // cannot add up.
    ShiftPanel(static_cast<Single>(drag[2] - drag[0]), static_cast<Single>(drag[3] - drag[1]),
               lab.panel(panel));
}

}  // namespace quillon
