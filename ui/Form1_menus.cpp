#include <exception>

#include "app/not_done.h"
#include "engine/NativePaths.h"
#include "ui/Form1.h"

// The click handlers of the menus. Each is a small dispatcher by Index; an Index
// of a separator, of a sub-menu or of no entry does nothing of its own.

namespace quillon {

namespace {

MenuArray imageArray(Channel which) {
    return which == Channel::One ? MenuArray::mnuImg1a : MenuArray::mnuImg2a;
}

MenuArray spectrumArray(Channel which) {
    return which == Channel::One ? MenuArray::mnuFT1a : MenuArray::mnuFT2a;
}

MenuArray reconstructionArray(Channel which) {
    return which == Channel::One ? MenuArray::mnuNew1a : MenuArray::mnuNew2a;
}

/// Turns the mark of an entry over and gives its new state.
bool toggle(MenuItem& entry) {
    entry.Checked = !entry.Checked;
    return entry.Checked;
}

// Indices of the FT menu that more than one step looks at.
constexpr Integer kInvertSpectrum = 6;
constexpr Integer kNoFilter = 9;
constexpr Integer kHighPass = 11;
constexpr Integer kCustomMasks = 12;
constexpr Integer kLinearScale = 14;
constexpr Integer kSqrtScale = 15;

// Indices of the options menu.
constexpr Integer kFirstView = 12;
constexpr Integer kLastView = 16;

}  // namespace

void Form1::imageMenu(Channel which, Integer Index) {
    // The pull-down is gone before a long operation starts.
    desktop.screen.pendingEvents();
    const Integer panel = imagePanelId(which);
    switch (Index) {
        case 0:
            ReloadImage(panel);
            break;
        case 2:
            LoadPanelImage(panel, "");
            break;
        case 3:
            NewPanelImage(panel);
            break;
        case 5:
            CopyPanelImage(panel);
            break;
        case 6:
            SavePanelImage(panel, "");
            break;
        case 7:
            PasteImage(panel);
            break;
        case 9:
            InvertPanel(panel, toggle(menu(imageArray(which), Index)));
            break;
        case 10:
            getHistogram(lab.imagePanel(which));
            placeHistogram(panel);
            break;
        case 14:
            ConvolveSpectra(panel);
            break;
        case 15:
            DeconvolveSpectra(panel);
            break;
        default:
            break;
    }
}

void Form1::spectrumMenu(Channel which, Integer Index) {
    desktop.screen.pendingEvents();
    const Integer panel = spectrumPanelId(which);
    const MenuArray array = spectrumArray(which);
    clComplexImage& channel = lab.channel(which);

    // First the marks alone, so that what follows finds them as they will stay.
    if (Index == kInvertSpectrum)
        toggle(menu(array, kInvertSpectrum));
    if (Index == kLinearScale || Index == kSqrtScale) {
        menu(array, kLinearScale).Checked = Index == kLinearScale;
        menu(array, kSqrtScale).Checked = Index == kSqrtScale;
    }

    switch (Index) {
        case 0:
            channel.runFOURN(1, 0);
            if (channel.bMask)
                DrawMasks(panel);
            break;
        case 2:
            CopyPanelImage(panel);
            break;
        case 3:
            SavePanelImage(panel, "");
            break;
        case 4:
            PrintPanel(panel);
            break;
        case kInvertSpectrum:
            InvertPanel(panel, menu(array, kInvertSpectrum).Checked);
            break;
        case 7:
            getHistogram(lab.spectrumPanel(which));
            placeHistogram(panel);
            break;
        case kNoFilter:
        case 10:
        case kHighPass:
        case kCustomMasks:
            chooseFilter(which, Index);
            break;
        case kLinearScale:
            channel.SetScale(0);
            break;
        case kSqrtScale:
            channel.SetScale(1);
            break;
        case 17:
            CopyData(which);
            break;
        default:
            break;
    }

    // "Custom Masks" does not reconstruct: its masks are yet to be drawn, and
    // each finished rectangle runs its own.
    if (Index >= kNoFilter && Index <= kHighPass)
        channel.runFOURN(0, 0);

    // A change of scale or a new transform alters the factor shown.
    ShowIntensityFactor();
}

void Form1::chooseFilter(Channel which, Integer Index) {
    clComplexImage& channel = lab.channel(which);
    if (Index != kCustomMasks && channel.bMask) {
        // Without the flag the redraw takes the masks off the picture.
        channel.bMask = false;
        channel.RedrawFT(1, 0);
    }
    const MenuArray array = spectrumArray(which);
    for (Integer entry = kNoFilter; entry <= kCustomMasks; ++entry)
        menu(array, entry).Checked = false;
    menu(array, Index).Checked = true;
    ApplyFilterChoice(spectrumPanelId(which), toInteger(Index - 8));
}

void Form1::reconstructionMenu(Channel which, Integer Index) {
    desktop.screen.pendingEvents();
    const Integer panel = reconstructionPanelId(which);
    PictureBox& shown = lab.reconstructionPanel(which);
    switch (Index) {
        case 0:
            lab.channel(which).runFOURN(0, 0);
            break;
        case 2:
            CopyPanelImage(panel);
            break;
        case 3:
            SavePanelImage(panel, "");
            break;
        case 4:
            PrintPanel(panel);
            break;
        case 6:
            InvertPanel(panel, toggle(menu(reconstructionArray(which), Index)));
            break;
        case 7:
            getHistogram(shown);
            placeHistogram(panel);
            break;
        case 9:
            // Only what the panel shows rolls: no data changes, nothing is recomputed.
            mem.setPicture(shown.Image());
            ShiftPanel(shown.ScaleWidth() / 2, shown.ScaleHeight() / 2, shown);
            break;
        case 10:
            lab.channel(which).draw3DFT();
            break;
        default:
            break;
    }
}

void Form1::placeHistogram(Integer panel) {
    const Frame& asked = frame(panel);
    pbh.Move(asked.Left + 120, asked.Top + 240, pbh.Width, pbh.Height);
}

void Form1::itmFile(Integer Index) {
    try {
        switch (Index) {
            case 0:
                // A batch that the closing has stopped gets here too.
                if (!unloaded_)
                    viewFolder(lab.folders.ImagePath);
                break;
            case 1:
                viewFolder(lab.folders.ScriptPath);
                break;
            case 3:
                BatchCommand();
                break;
            case 5:
                unload();
                break;
            default:
                break;
        }
    } catch (const std::exception& error) {
        // The menu is left as if the entry had not been chosen.
        lab.reportNotDone(std::string("not done: ") + error.what());
    }
}

void Form1::viewFolder(const std::string& folder) {
    reportUnopened(lab, desktop.shell.execute("explorer.exe", folder, "0"),
                   "folder not found: " + shownPath(folder), "no program shows folders");
}

void Form1::itmSCR(Integer Index) {
    switch (Index) {
        case 0:
            LoadScriptCommand("");
            break;
        case 1:
            SaveScriptCommand("");
            break;
        case 2:
            EditScriptCommand();
            break;
        default:
            break;
    }
}

void Form1::itmOpt(Integer Index) {
    switch (Index) {
        case 3:
            pb3.Tag.clear();
            lab.channel1.CalculateAll();
            pb6.Tag.clear();
            lab.channel2.CalculateAll();
            break;
        case 4:
            lab.autoCalculate = toggle(menu(MenuArray::itmOpt, Index));
            break;
        case 6:
            SwapPhasesCommand();
            break;
        case 7:
            RandomizePhasesCommand();
            break;
        case 8:
            RandomizeMagnitudesCommand();
            break;
        case 9:
            DiscardPhasesCommand();
            break;
        case 10:
            DiscardMagnitudesCommand();
            break;
        default:
            if (Index >= kFirstView && Index <= kLastView)
                chooseView(Index);
            break;
    }
    repaintLowPassMasks();
}

void Form1::chooseView(Integer Index) {
    for (Integer entry = kFirstView; entry <= kLastView; ++entry)
        menu(MenuArray::itmOpt, entry).Checked = false;
    MenuItem& chosen = menu(MenuArray::itmOpt, Index);
    chosen.Checked = true;
    ShowStatus(2, chosen.Caption);
    // The view is common to both channels.
    const Integer mode = toInteger(Index - kFirstView);
    lab.channel1.SetFTView(mode, 0);
    lab.channel2.SetFTView(mode, 0);
}

void Form1::repaintLowPassMasks() {
    // Any option can have repainted the FT panels, and the dark surround of a
    // low-pass is no part of the rendered picture.
    for (const Channel which : {Channel::One, Channel::Two}) {
        if (!lab.channel(which).bLowpass)
            continue;
        mem.Tag = "low";
        DrawLowPassMask(spectrumPanelId(which), lab.spectrumPanel(which));
    }
}

void Form1::click(MenuArray array, Integer Index) {
    lab.runCommand([&] { choose(array, Index); });
}

void Form1::choose(MenuArray array, Integer Index) {
    switch (array) {
        case MenuArray::mnuImg1a:
            return mnuImg1a(Index);
        case MenuArray::mnuImg1b:
            return mnuImg1b(Index);
        case MenuArray::mnuFT1a:
            return mnuFT1a(Index);
        case MenuArray::mnuNew1a:
            return mnuNew1a(Index);
        case MenuArray::mnuImg2a:
            return mnuImg2a(Index);
        case MenuArray::mnuImg2b:
            return mnuImg2b(Index);
        case MenuArray::mnuFT2a:
            return mnuFT2a(Index);
        case MenuArray::mnuNew2a:
            return mnuNew2a(Index);
        case MenuArray::itmFile:
            return itmFile(Index);
        case MenuArray::itmSCR:
            return itmSCR(Index);
        case MenuArray::itmOpt:
            return itmOpt(Index);
        case MenuArray::itmOpt0:
            return itmOpt0(Index);
        case MenuArray::itmOpt1:
            return itmOpt1(Index);
        case MenuArray::itm10:
            return itm10(Index);
        case MenuArray::itm10a:
            return itm10a(Index);
    }
}

}  // namespace quillon
