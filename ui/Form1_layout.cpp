#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "ui/Form1.h"

namespace quillon {

namespace {

/// One step of a resize: a size that does not exist leaves its control as it was
/// and the steps behind it go on.
template <class Step>
void resumeNext(Step step) {
    try {
        step();
    } catch (const RunTimeError&) {
    }
}

void setWidth(Control& control, Single width) {
    control.Move(control.Left, control.Top, width, control.Height);
}

}  // namespace

void Form1::resized(Single scaleWidth, Single scaleHeight) {
    scaleWidth_ = scaleWidth;
    scaleHeight_ = scaleHeight;
    Form_Resize();
}

void Form1::Form_Resize() {
    if (WindowState == kWindowMinimised)
        return;
    const Single width = ScaleWidth();
    const Single height = ScaleHeight();
    resumeNext([&] { stb.Move(0, height - stb.Height, width, stb.Height); });
    resumeNext([&] { setWidth(lbSTB(2), stb.Width - lbSTB(2).Left); });
    resumeNext([&] { ie5.Move(90, ie5.Top, width - 180, height - 120 - ie5.Top); });
    // The block of panels keeps its size: a smaller window cuts it off on both sides alike.
    resumeNext([&] { frt1.Top = (height - frt1.Height) / 2; });
    resumeNext([&] { frt1.Left = (width - frt1.Width) / 2; });
    resumeNext([&] { imgDIM.Left = width - 2 * imgDIM.Width; });
}

void Form1::ShowPointer(Integer X, Integer Y, const std::string& s) {
    lbSTB(1).Caption = "[" + plainText(X) + "," + plainText(Y) + "] " + s;
}

void Form1::dragOnLeftPress(Control& dragged, Integer Button, Integer Shift) {
    if (Button == kLeftButton && Shift == 0)
        desktop.screen.dragControl(dragged);
}

}  // namespace quillon
