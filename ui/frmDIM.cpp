#include "ui/frmDIM.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "engine/PictureBox.h"
#include "ui/platform_numbers.h"

namespace quillon {

namespace {

constexpr Integer kFadingIn = 1;
constexpr Integer kFadingOut = 2;
constexpr Long kTransparent = 0;
constexpr Long kOpaque = 255;
constexpr Integer kStepIn = 20;
constexpr Integer kStepOut = -40;
constexpr Integer kTickMilliseconds = 10;

constexpr Integer kLightOnLabel = 3;

/// Readable against the black only when one looks for it.
constexpr ColorValue kDarkGrey{0x404040};

constexpr int kSingle = -1;
constexpr bool kHidden = false;
constexpr bool kShown = true;

// clang-format off
constexpr ControlRow kControls[] = {
    {"fr",     kSingle, ControlKind::Frame, "frmDIM", 1170, 465, 2475, 225, "", "", kHidden},
    {"lb",     0,       ControlKind::Label, "fr",        0,   0,  585, 210, "Scripts", "Scripts Menu", kShown, "Scripts menu"},
    {"lb",     1,       ControlKind::Label, "fr",      780,   0,  645, 210, "Options", "Options Menu", kShown, "Options menu"},
    {"lb",     2,       ControlKind::Label, "fr",     1620,   0,  360, 210, "Help",    "Help Menu",    kShown, "Help menu"},
    {"lb",     3,       ControlKind::Label, "fr",     2235, -15,  210, 210, "[x]",     "Light On",     kShown, "Light on"},
    {"Timer1", kSingle, ControlKind::Timer, "frmDIM",    0,   0,    0,   0},
    {"hand",   kSingle, ControlKind::Image, "frmDIM",    0,   0,  480, 480, "", "", kHidden},
};
// clang-format on

void place(Control& control, const ControlRow& row) {
    control.Move(row.left, row.top, row.width, row.height);
    control.Caption = row.caption;
    control.ToolTipText = row.toolTip;
    control.Visible = row.visible;
}

/// Whole pixels of a length on the screen, by the platform's rounding.
Long pixels(Single twips) {
    return toLong(twips / kTwipsPerPixel);
}

}  // namespace

std::span<const ControlRow> frmDIM::controlTable() {
    return kControls;
}

frmDIM::frmDIM(const HoleRect& holeRect, DimmedForm& form)
    : Control("frmDIM"),
      holeRect_(holeRect),
      form_(form),
      lb_{Label("lb(0)"), Label("lb(1)"), Label("lb(2)"), Label("lb(3)")} {
    setUp();
}

void frmDIM::setUp() {
    setBackColor(kBlack);
    BorderStyle = 0;
    MousePointer = kPointerCustom;
    WindowState = kWindowNormal;
    for (const ControlRow& row : kControls) {
        const std::string_view name = row.name;
        if (name == "fr")
            place(fr, row);
        else if (name == "lb")
            place(lb(static_cast<Integer>(row.index)), row);
        else if (name == "hand")
            place(hand, row);
    }
    fr.setBackColor(kBlack);
    fr.BorderStyle = 0;
    for (Label& label : lb_) {
        label.BackStyle = 0;
        label.ForeColor = kDarkGrey;
        label.FontName = Font::Arial;
        label.FontBold = true;
        label.MousePointer = kPointerCustom;
        label.AutoSize = true;
    }
    hand.MouseIcon = kMouseIconHand;
    Timer1.Enabled = false;
}

void frmDIM::load(DimHost& host) {
    if (isLoaded())
        return;
    host_ = &host;
    setUp();
    Form_Load();
}

void frmDIM::Form_Load() {
    // Before the layered bit an opacity has no effect, so nothing flashes black
    // ahead of the fade.
    host_->setLayeredAlpha(kOpaque);
    host_->setLayeredBit();
    WindowState = kWindowMaximised;
    host_->maximise();
    MouseIcon = hand.MouseIcon;
    for (Label& label : lb_)
        label.MouseIcon = hand.MouseIcon;
    fadeDirection = kFadingIn;
    fadeAlpha = kTransparent;
    fadeStep = kStepIn;
    Timer1.Interval = kTickMilliseconds;
    Timer1.Enabled = true;
    fr.Visible = true;
    MousePointer = kPointerArrow;
}

void frmDIM::resized(Single width, Single height) {
    Width = width;
    Height = height;
    Form_Resize();
}

void frmDIM::Form_Resize() {
    if (WindowState == kWindowMinimised || !isLoaded())
        return;
    const HoleRect& hole = holeRect_;
    host_->setWindowRegion({0, 0, pixels(Width), pixels(Height)},
                           {pixels(hole.Left), pixels(hole.Top), pixels(hole.Left + hole.Width),
                            pixels(hole.Top + hole.Height)});
    fr.Left = hole.Left;
    fr.Top = hole.Top - 2 * fr.Height;
}

void frmDIM::Timer1_Timer() {
    if (!isLoaded())
        return;
    if ((fadeAlpha == kOpaque && fadeDirection == kFadingOut) ||
        (fadeAlpha == kTransparent && fadeDirection == kFadingIn))
        host_->setLayeredBit();
    fadeAlpha += fadeStep;
    // Only what is shown is clamped. The count itself tells by its overshoot
    // that a fade is over.
    host_->setLayeredAlpha(static_cast<Integer>(std::clamp(fadeAlpha, kTransparent, kOpaque)));
    if (fadeAlpha >= kOpaque)
        Timer1.Enabled = false;
    if (fadeAlpha < 1) {
        Timer1.Enabled = false;
        unload();
    }
}

void frmDIM::unload() {
    // The window's LightOn asks for the unload too, while this one is under way.
    if (!isLoaded() || asked_)
        return;
    asked_ = true;
    const Answer answer = Form_QueryUnload();
    asked_ = false;
    if (answer == Answer::Cancelled)
        return;
    Timer1.Enabled = false;
    std::exchange(host_, nullptr)->unloaded();
}

frmDIM::Answer frmDIM::Form_QueryUnload() {
    if (fadeAlpha < 1) {
        form_.LightOn();
        return Answer::Goes;
    }
    // Always from full black: a request during the fade-in jumps there first.
    fadeDirection = kFadingOut;
    fadeAlpha = kOpaque;
    fadeStep = kStepOut;
    Timer1.Enabled = true;
    return Answer::Cancelled;
}

void frmDIM::abandoned() noexcept {
    host_ = nullptr;
}

void frmDIM::MouseDown(Integer Button) {
    // With the mini menu in sight a click on the dark leaves it: nobody turns the
    // light on by accident.
    if (Button == kLeftButton && !fr.Visible)
        unload();
    if (Button == kRightButton) {
        fr.Visible = !fr.Visible;
        MousePointer = fr.Visible ? kPointerArrow : kPointerCustom;
    }
}

void frmDIM::Click(Control& where) {
    if (&where == &lb(kLightOnLabel)) {
        unload();
        return;
    }
    for (Integer i = 0; i < kLightOnLabel; ++i)
        if (&where == &lb(i))
            form_.ShowRemotePopup(i);
}

void frmDIM::KeyDown(Integer KeyCode) {
    // What is running has the first claim: who wants to stop a batch in a dark
    // room does not want the light. The next Escape is the light's.
    if (KeyCode == kKeyEscape && !form_.remoteEscape())
        unload();
}

void frmDIM::KeyPress(Integer KeyAscii) {
    if (KeyAscii == kAsciiUpperL || KeyAscii == kAsciiLowerL)
        unload();
    if (KeyAscii == kAsciiLowerR || KeyAscii == kAsciiSpace || KeyAscii == kAsciiEnter)
        form_.remoteKeyPress(KeyAscii);
}

void frmDIM::KeyUp(Integer KeyCode, Integer Shift) {
    if (KeyCode == kKeyShift || KeyCode == kKeyCtrl || KeyCode == kKeyAlt)
        form_.remoteKeyUp(KeyCode, Shift);
}

}  // namespace quillon
