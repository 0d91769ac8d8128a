#include <exception>

#include "analysis/spectrum_combination.h"
#include "app/not_done.h"
#include "engine/ExchangeArray.h"
#include "ui/Form1.h"

// Edits and combinations of the stored spectra. An edit command acts on both
// channels, channel 1 first, and reports whether or not a channel had an image.

namespace quillon {

void Form1::SwapPhasesCommand() {
    // Both are taken before either changes, so that it is a true exchange.
    ExchangeArray p1(panelW, panelH);
    lab.channel1.GetFTArray(p1);
    ExchangeArray p2(panelW, panelH);
    lab.channel2.GetFTArray(p2);
    lab.channel1.SwapPhases(p2);
    lab.channel2.SwapPhases(p1);
    ShowStatus(2, "FT Phase Sets Swapped");
}

void Form1::RandomizePhasesCommand() {
    lab.channel1.RandomizePhases();
    lab.channel2.RandomizePhases();
    ShowStatus(2, "FT Phases Randomized");
}

void Form1::RandomizeMagnitudesCommand() {
    lab.channel1.RandomizeMagnitudes();
    lab.channel2.RandomizeMagnitudes();
    ShowStatus(2, "FT Magnitudes Randomized");
}

void Form1::DiscardPhasesCommand() {
    lab.channel1.DiscardPhases();
    lab.channel2.DiscardPhases();
    ShowStatus(2, "FT Phases Discarded");
}

void Form1::DiscardMagnitudesCommand() {
    lab.channel1.DiscardMagnitudes();
    lab.channel2.DiscardMagnitudes();
    ShowStatus(2, "FT Magnitudes Discarded");
}

void Form1::ConvolveSpectra(Integer target) {
    quillon::ConvolveSpectra(lab.channel1, lab.channel2, panelW, panelH, target);
    ShowStatus(2, "Convolution Performed");
}

void Form1::DeconvolveSpectra(Integer target) {
    quillon::DeconvolveSpectra(lab.channel1, lab.channel2, panelW, panelH, target);
    ShowStatus(2, "Deconvolution Performed");
}

void Form1::CopyData(Channel which) {
    const std::exception_ptr failure = lab.channel(which).CopyData(exportDialog, 0);
    if (failure == nullptr)
        return;
    const std::string file = desktop.environment.variable("TMP") + "\\tmp";
    try {
        std::rethrow_exception(failure);
    } catch (const std::exception& error) {
        lab.reportNotDone(whyNotSaved(desktop.files, file, error, "not exported"));
    }
}

}  // namespace quillon
