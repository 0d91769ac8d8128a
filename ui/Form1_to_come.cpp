#include "ui/Form1.h"

// Commands whose subject has not arrived: each says so in the strip's message
// cell and changes nothing. Every body moves out with its subject, and the file
// goes with the last.

namespace quillon {

namespace {

void sayNotThere(Form1& form, const std::string& command) {
    form.ShowStatus(2, command + " is not there yet");
}

}  // namespace

void Form1::SwapPhasesCommand() {
    sayNotThere(*this, "Swap Phase Sets");
}

void Form1::RandomizePhasesCommand() {
    sayNotThere(*this, "Randomize Phases");
}

void Form1::RandomizeMagnitudesCommand() {
    sayNotThere(*this, "Randomize Magnitudes");
}

void Form1::DiscardPhasesCommand() {
    sayNotThere(*this, "Discard Phases");
}

void Form1::DiscardMagnitudesCommand() {
    sayNotThere(*this, "Discard Magnitudes");
}

void Form1::ConvolveSpectra(Integer /*p*/) {
    sayNotThere(*this, "Convolution");
}

void Form1::DeconvolveSpectra(Integer /*p*/) {
    sayNotThere(*this, "Deconvolution");
}

void Form1::getHistogram(PictureBox& /*pb*/) {
    sayNotThere(*this, "Histogram");
}

void Form1::histogramMouseMove(Single /*X*/, Single /*Y*/) {
    sayNotThere(*this, "Histogram");
}

void Form1::CopyData(Channel /*which*/) {
    sayNotThere(*this, "Export Data");
}

void Form1::LoadScriptCommand(const std::string& /*file*/) {
    sayNotThere(*this, "Load Script");
}

void Form1::SaveScriptCommand(const std::string& /*file*/) {
    sayNotThere(*this, "Save as Script");
}

void Form1::EditScriptCommand() {
    sayNotThere(*this, "Edit Script");
}

void Form1::BatchCommand() {
    sayNotThere(*this, "Batch Processing");
}

void Form1::ShowHelp(Integer /*id*/) {
    sayNotThere(*this, "Help");
}

void Form1::itm10(Integer /*Index*/) {
    sayNotThere(*this, "Help");
}

void Form1::itm10a(Integer /*Index*/) {
    sayNotThere(*this, "Links");
}

void Form1::LightOff() {
    sayNotThere(*this, "Light Off");
}

}  // namespace quillon
