#include "ui/Form1.h"

// The light: off, the window goes dark around the panels and frmDIM covers the
// rest of the screen; on, the window gets its look back.

namespace quillon {

namespace {

constexpr Integer kTutorialView = 2;

/// Titles of the menus that the dark offers.
constexpr std::array<const char*, 3> kRemoteMenus = {"mnuSCR", "mnuOpt", "mnu10"};

}  // namespace

void Form1::LightOff() {
    if (host_ != nullptr)
        host_->prepareDark();
    if (lab.viewTab < kTutorialView) {
        holeRect = holeAroundPanels();
        darken();
    } else {
        holeRect = holeAroundTutorial();
    }
    stb.Visible = false;
    if (host_ != nullptr)
        host_->showOwned(dim);
    Tag = "DIM";
}

Form1::ClientCorner Form1::clientCorner() const {
    // The lower border counts among the height above the client area, so the
    // hole lies lower by that border.
    return {Left + (Width - ScaleWidth()) / 2, Top + (Height - ScaleHeight())};
}

HoleRect Form1::holeAroundPanels() const {
    constexpr Single kMargin = 3 * kTwipsPerPixel;
    const ClientCorner corner = clientCorner();
    return {frt1.Left + corner.left - kMargin, frt1.Top + corner.top - kMargin,
            frt1.Width + 2 * kMargin, frt1.Height + 2 * kMargin};
}

HoleRect Form1::holeAroundTutorial() const {
    const ClientCorner corner = clientCorner();
    return {ie5.Left + corner.left, ie5.Top + corner.top, ie5.Width,
            ie5.Height - 3 * kTwipsPerPixel};
}

void Form1::darken() {
    const ColorValue ground = lab.guiColors[3];
    const ColorValue foreground = lab.guiColors[4];
    setBackColor(ground);
    frt1.setBackColor(ground);
    for (Integer panel = 1; panel <= 6; ++panel) {
        frame(panel).setBackColor(ground);
        frame(panel).BorderStyle = 0;
    }
    for (const Channel which : {Channel::One, Channel::Two}) {
        // Panels without a picture merge with the dark. LightOn asks for their
        // Tag instead: what has been computed in the meantime stays.
        if (lab.channel(which).file.empty()) {
            lab.spectrumPanel(which).setBackColor(foreground);
            lab.reconstructionPanel(which).setBackColor(foreground);
        }
        for (Integer i = 0; i <= 1; ++i) {
            lbBR(which, i).BackStyle = 0;
            lbBR(which, i).ForeColor = foreground;
        }
    }
    lbTAB(0).Visible = false;
    lbTAB(1).Visible = false;
    btLUT.Visible = false;
}

void Form1::LightOn() {
    Tag.clear();
    dim.unload();
    const ColorValue ground = lab.guiColors[0];
    setBackColor(ground);
    frt1.setBackColor(ground);
    for (Integer panel = 1; panel <= 6; ++panel) {
        frame(panel).setBackColor(ground);
        if (guiColorIndex != kDarkGreyScheme)
            frame(panel).BorderStyle = 1;
    }
    for (const Channel which : {Channel::One, Channel::Two}) {
        const Frame& title = which == Channel::One ? fr2 : fr5;
        for (Integer i = 0; i <= 1; ++i) {
            lbBR(which, i).BackStyle = 1;
            lbBR(which, i).ForeColor = title.ForeColor;
        }
        for (PictureBox* panel : {&lab.spectrumPanel(which), &lab.reconstructionPanel(which)})
            if (panel->Tag.empty())
                panel->setBackColor(lab.guiColors[1]);
    }
    stb.Visible = lab.viewTab < kTutorialView;
    // The button too, in either view, though the Tutorial view has "TOC" there.
    lbTAB(0).Visible = true;
    lbTAB(1).Visible = true;
    btLUT.Visible = true;
}

void Form1::ShowRemotePopup(Integer i) {
    // What makes no sense in the dark: its colours, and all that shows a page.
    MenuItem* const bright[] = {&menu(MenuArray::itmOpt, 0), &menu(MenuArray::itmOpt, 1),
                                &menu(MenuArray::itmOpt, 2), &menu(MenuArray::itm10, 1),
                                &menu(MenuArray::itm10, 2)};
    for (MenuItem* entry : bright)
        entry->Enabled = false;
    if (host_ != nullptr && i >= 0 && static_cast<std::size_t>(i) < kRemoteMenus.size())
        host_->popupMenu(kRemoteMenus[static_cast<std::size_t>(i)]);
    for (MenuItem* entry : bright)
        entry->Enabled = true;
}

}  // namespace quillon
