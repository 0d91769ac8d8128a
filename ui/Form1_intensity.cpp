#include "engine/NumberText.h"
#include "ui/Form1.h"

// "[-]" and "[+]" above the spectra: steps of the intensity factor while held.

namespace quillon {

namespace {

// What the timer repeats, by its Tag.
struct RepeatedStep {
    const char* tag;
    Channel channel;
    Integer direction;
};

constexpr RepeatedStep kSteps[] = {
    {"1", Channel::One, -1},
    {"2", Channel::One, 1},
    {"3", Channel::Two, -1},
    {"4", Channel::Two, 1},
};

constexpr const char* kSpectrumCaption = "Fourier Transform";
constexpr const char* kHeld = "+-";

}  // namespace

void Form1::intensityMouseDown(Channel which, Integer index, Integer Button) {
    if (Button == kRightButton)
        askIntensityFactor(which);
    if (Button != kLeftButton && Button != kMiddleButton)
        return;
    const auto& step = kSteps[(which == Channel::One ? 0 : 2) + index];
    Timer1.Tag = step.tag;
    // Channel 2 makes no step at the press itself: only the timer steps it, so
    // that a short click on it leaves the factor as it is.
    if (which == Channel::One)
        lab.channel1.ChangeBrightness(step.direction);
    Timer1.Enabled = true;
    if (lab.channel(which).bMask)
        DrawMasks(which == Channel::One ? 2 : 5);
    (which == Channel::One ? fr2 : fr5).Tag = kHeld;
    ShowIntensityFactor();
}

void Form1::askIntensityFactor(Channel which) {
    clComplexImage& channel = lab.channel(which);
    const auto text = desktop.dialogs.inputBox(
        "Enter new Intensity Factor\n\nCurrent value = " + channel.getIntFac(),
        "Adjust FT Brightness", "");
    // A blank in front of the number is skipped: a factor that was pasted with one
    // is meant too.
    const Single factor = leadingSingle(text.value_or(""));
    if (factor > 0)
        channel.setIntFac(factor);
}

void Form1::intensityMouseUp(Channel which) {
    Timer1.Tag = "";
    Timer1.Enabled = false;
    fr2.Caption = kSpectrumCaption;
    fr5.Caption = fr2.Caption;
    fr2.Tag = "";
    fr5.Tag = "";
    if (lab.reconstructionPanel(which).Tag == "3D")
        lab.channel(which).draw3DFT();
}

void Form1::Timer1_Timer() {
    if (Timer1.Tag.empty())
        Timer1.Enabled = false;
    for (const RepeatedStep& step : kSteps)
        if (Timer1.Tag == step.tag)
            lab.channel(step.channel).ChangeBrightness(step.direction);
    ShowIntensityFactor();
}

Integer Form1::stepsAtPress() const {
    for (const RepeatedStep& step : kSteps)
        if (Timer1.Tag == step.tag)
            return step.channel == Channel::One ? 1 : 0;
    return 0;
}

void Form1::ShowIntensityFactor() {
    if (fr2.Tag != kHeld && fr5.Tag != kHeld)
        return;
    // Both frames tell their factors while one channel's control is held.
    fr2.Caption = "Intensity Factor: " + lab.channel1.getIntFac();
    fr5.Caption = "Intensity Factor: " + lab.channel2.getIntFac();
}

}  // namespace quillon
