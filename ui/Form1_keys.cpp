#include "engine/PersistentDrawing.h"
#include "ui/Form1.h"

// The keyboard. The window sees every key before any control does.

namespace quillon {

namespace {

constexpr Integer kKeyLeft = 37;
constexpr Integer kKeyUp = 38;
constexpr Integer kKeyRight = 39;
constexpr Integer kKeyDown = 40;

constexpr Integer kRecalculateAll = 3;
constexpr Integer kTutorialView = 2;

struct PixelStep {
    Single dx;
    Single dy;
};

PixelStep stepOf(Integer KeyCode) {
    switch (KeyCode) {
        case kKeyLeft:
            return {-1, 0};
        case kKeyUp:
            return {0, -1};
        case kKeyRight:
            return {1, 0};
        default:
            return {0, 1};
    }
}

}  // namespace

void Form1::KeyDown(Integer KeyCode, Integer Shift) {
    if (KeyCode == kKeyEscape) {
        bStopBatch = true;
        desktop.screen.pendingEvents();
    }
    if (KeyCode >= kKeyLeft && KeyCode <= kKeyDown) {
        if (Shift == kShiftKey)
            lab.runCommand([&] { rollByKey(Channel::One, KeyCode); });
        else if (Shift == kCtrlKey)
            lab.runCommand([&] { rollByKey(Channel::Two, KeyCode); });
    }
    if (KeyCode == kKeyAlt && Shift == kAltKey)
        showProfileLines(true);
}

void Form1::rollByKey(Channel which, Integer KeyCode) {
    PictureBox& panel = lab.imagePanel(which);
    mem.setPicture(panel.Image());
    const PixelStep step = stepOf(KeyCode);
    ShiftPanel(step.dx, step.dy, panel);
    // The transform waits for the release, so that a held key rolls on quickly.
    pendingShiftPanel = imagePanelId(which);
}

void Form1::KeyUp(Integer KeyCode, Integer /*Shift*/) {
    // Any key's release ends the roll: the arrow or the modifier, whichever comes first.
    if (pendingShiftPanel == 1 || pendingShiftPanel == 4) {
        const Channel which = channelOfPanel(pendingShiftPanel);
        pendingShiftPanel = 0;
        PictureBox& panel = lab.imagePanel(which);
        // Committed here, as the mouse's roll is at its release: without that the
        // next release of Alt, which falls back to the panel's picture, would take
        // the roll back while its transform stays.
        panel.setPicture(panel.Image());
        if (lab.autoCalculate)
            lab.channel(which).runFOURN(1, 0);
    }
    if (KeyCode != kKeyAlt)
        return;
    // The line profile and its magnified patch are taken off the panels.
    showProfileLines(false);
    desktop.screen.pendingEvents();
    for (PictureBox* image : {&pb1, &pb4}) {
        // The patch lies in the bitmap whatever the panel draws on.
        const PersistentDrawing drawing(*image);
        image->Cls();
    }
    pb1.Refresh();
    pb4.Refresh();
    lab.channel1.RedrawFT(0, 0);
    lab.channel2.RedrawFT(0, 0);
}

void Form1::KeyPress(Integer KeyAscii) {
    // In the Tutorial view a letter is typed, and Space and Enter scroll and follow
    // links: who reads there does not mean the lab behind the page. The dark over
    // the Tutorial hands its keys on to here, so they rest there too.
    if (lab.viewTab >= kTutorialView)
        return;
    if (KeyAscii == kAsciiUpperL || KeyAscii == kAsciiLowerL)
        lab.runCommand([&] { LightOff(); });
    if (KeyAscii == kAsciiEnter || KeyAscii == kAsciiSpace)
        lab.runCommand([&] { itmOpt(kRecalculateAll); });
    else if (KeyAscii == kAsciiLowerR)
        lab.runCommand([&] { ResetForScript(); });
}

bool Form1::remoteEscape() {
    if (!lab.channel1.bBatch && scriptsRunning_ == 0)
        return false;
    KeyDown(kKeyEscape, 0);
    return true;
}

bool Form1::showsProfile() {
    return Line1(0).Visible || Line1(1).Visible;
}

void Form1::showProfileLines(bool visible) {
    Line1(0).Visible = visible;
    Line1(1).Visible = visible;
}

}  // namespace quillon
