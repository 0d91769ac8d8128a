#include <algorithm>
#include <cmath>
#include <cstddef>

#include "analysis/grid_pattern.h"
#include "analysis/lattice_points.h"
#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// The tools of the "Drawing" sub-menu: their choice, the lattice, the grid pattern.

namespace quillon {

namespace {

constexpr Integer kLatticeEntry = 1;
constexpr Integer kShiftEntry = 2;
constexpr Integer kGridEntry = 3;
constexpr Double kRadiansPerDegree = 0.017453292519943278;
constexpr std::ptrdiff_t kLeastGridCode = 4;
constexpr const char* kFirstGridCode = "10.2.1.0";

PointXY latticePoint(const std::array<std::array<Single, 4>, 2>& lattice, std::size_t number) {
    return {lattice[0][number + 1], lattice[1][number + 1]};
}

std::array<Single, 3> vectorBetween(PointXY from, PointXY to) {
    return {to.x - from.x, to.y - from.y, 0};
}

Single lengthOf(const std::array<Single, 3>& v) {
    const Double x = v[0];
    const Double y = v[1];
    return static_cast<Single>(std::sqrt(x * x + y * y));
}

/// What the user has typed comes as UTF-8; only a character's first byte counts.
std::ptrdiff_t charactersOf(const std::string& text) {
    return std::ranges::count_if(
        text, [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0) != 0x80; });
}

}  // namespace

void Form1::mnuImg1b(Integer Index) {
    drawingMenu(Channel::One, Index);
}

void Form1::mnuImg2b(Integer Index) {
    drawingMenu(Channel::Two, Index);
}

void Form1::drawingMenu(Channel which, Integer Index) {
    const MenuArray array = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
    PictureBox& pb = lab.imagePanel(which);
    clComplexImage& channel = lab.channel(which);
    for (Integer entry = 0; entry < kGridEntry; ++entry)
        menu(array, entry).Checked = false;
    if (Index < kGridEntry) {
        menu(array, Index).Checked = true;
        channel.SetDrawMode(Index);
    }
    switch (Index) {
        case 0:
            pb.MousePointer = kPointerCustom;
            pb.DrawWidth = 2;
            break;
        case kLatticeEntry:
            pb.MousePointer = kPointerArrow;
            pb.DrawWidth = 1;
            wipeForLattice(which);
            break;
        case kShiftEntry:
            pb.MousePointer = kPointerFourArrows;
            break;
        case kGridEntry:
            // The tool goes to None (Shift) before the question, and stays there
            // also when the question is cancelled.
            pb.MousePointer = kPointerFourArrows;
            menu(array, kShiftEntry).Checked = true;
            channel.SetDrawMode(kShiftEntry);
            GridPatternCommand(imagePanelId(which));
            break;
        default:
            break;
    }
}

void Form1::wipeForLattice(Channel which) {
    PictureBox& pb = lab.imagePanel(which);
    pb.setPicture(Bitmap{});
    pb.setAutoRedraw(true);
    ClearChannelTags(imagePanelId(which));
    setLatticeInks(which);
}

void Form1::setLatticeInks(Channel which) {
    PictureBox& pb = lab.imagePanel(which);
    const bool inverted = lab.channel(which).GetInvert(0);
    pb.setBackColor(inverted ? kWhite : kBlack);
    pb.ForeColor = inverted ? kBlack : kWhite;
}

void Form1::beginLattice(Channel which, Single X, Single Y) {
    PictureBox& pb = lab.imagePanel(which);
    // On the lower panel the inks come before the wipe, on the upper one after it.
    if (which == Channel::Two)
        setLatticeInks(which);
    pb.setPicture(Bitmap{});
    pb.setAutoRedraw(false);
    // Always the lower channel's marks: a first press on the upper panel leaves
    // its own channel's alone.
    ClearChannelTags(4);
    if (which == Channel::One)
        setLatticeInks(which);
    lattice[0][0] = 1;
    lattice[0][1] = X;
    lattice[1][1] = Y;
    pb.PSet(X, Y);
}

void Form1::setLatticePoint(Channel which, Single X, Single Y) {
    lattice[0][0] += 1;
    const Integer n = toInteger(lattice[0][0]);
    // The release does not look at its button: a click of the middle one after
    // the third point gets here, and there is no fourth.
    if (n >= 4)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    lattice[0][static_cast<std::size_t>(n)] = X;
    lattice[1][static_cast<std::size_t>(n)] = Y;
    // The upper channel's dot lands on its FT panel, the lower one's on the image.
    (which == Channel::One ? pb2 : pb4).PSet(X, Y);
    if (n != 3)
        return;
    PictureBox& pb = lab.imagePanel(which);
    DrawLatticePoints(pb);
    ClearChannelTags(imagePanelId(which));
    lab.channel(which).runFOURN(1, 0);
    pb.setPicture(pb.Image());
}

void Form1::stretchLattice(PictureBox& pb, Single X, Single Y) {
    pb.Cls();
    const PointXY p0 = latticePoint(lattice, 0);
    const PointXY p1 = latticePoint(lattice, 1);
    if (lattice[0][0] == 1) {
        pb.Line(p0.x, p0.y, X, Y, kRed);
    } else if (lattice[0][0] == 2) {
        pb.Line(p0.x, p0.y, p1.x, p1.y, kRed);
        pb.Line(p0.x, p0.y, X, Y, kGreen);
    } else {
        return;
    }
    ShowLatticeReadout(X, Y);
}

void Form1::DrawLatticePoints(PictureBox& pb) {
    plotLattice(pb, {latticePoint(lattice, 0), latticePoint(lattice, 1), latticePoint(lattice, 2)});
}

void Form1::ShowLatticeReadout(Single X, Single Y) {
    const PointXY p0 = latticePoint(lattice, 0);
    auto b = vectorBetween(p0, {X, Y});
    if (lattice[0][0] == 1) {
        ShowStatus(2, "a=" + fixedText(lengthOf(b), 1));
        return;
    }
    auto a = vectorBetween(p0, latticePoint(lattice, 1));
    const std::string lengths =
        "a=" + fixedText(lengthOf(a), 1) + ", b=" + fixedText(lengthOf(b), 1);
    const Double angle = AngleBetween(a, b) / kRadiansPerDegree;
    ShowStatus(2, lengths + ", angle=" + fixedText(angle, 2) + " deg");
}

void Form1::GridPatternCommand(Integer p) {
    if (gridCode.empty())
        gridCode = kFirstGridCode;
    const auto answer = desktop.dialogs.inputBox(
        "Enter code in format b.w.x.i\n(black.white.xor.invert)\n"
        "b and w range from 1-254\nx and i are 0 or 1",
        "Enter Grid Pattern Code", gridCode);
    if (!answer || charactersOf(*answer) < kLeastGridCode)
        return;
    try {
        gridCode = *answer;
        PictureBox& pb = lab.imagePanel(channelOfPanel(p));
        DrawGridPattern(desktop, pb, *answer);
        // The pattern enters the channel as a new image by way of the clipboard.
        PasteImage(p);
        pb.setPicture(pb.Image());
    } catch (const RunTimeError& error) {
        desktop.dialogs.messageBox("Error: " + error.description(), "", MessageIcon::None,
                                   MessageButtons::Ok);
    }
}

}  // namespace quillon
