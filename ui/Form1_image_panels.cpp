#include <string>

#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// The mouse on the image panels.

namespace quillon {

void Form1::imagePanelMouseDown(Channel which, Integer Button, Integer /*Shift*/, Single /*X*/,
                                Single /*Y*/) {
    if (Button == kRightButton)
        popupPanelMenu(which == Channel::One ? "mnuImg1" : "mnuImg2");
}

void Form1::imagePanelMouseMove(Channel which, Integer /*Button*/, Integer /*Shift*/, Single X,
                                Single Y) {
    lab.lbSTB[0]->Caption = lab.channel(which).sfile + " ";
    showGrey(lab.imagePanel(which), X, Y);
}

void Form1::imagePanelMouseUp(Channel /*which*/, Integer /*Button*/, Integer /*Shift*/,
                              Single /*X*/, Single /*Y*/) {}

void Form1::showGrey(const PictureBox& panel, Single X, Single Y) {
    // Off the bitmap the colour is -1, and the text shows -1.
    const Integer grey = RedByte(panel.GetPixel(toLong(X), toLong(Y)));
    ShowPointer(toInteger(X), toInteger(Y), " M=" + plainText(grey));
}

}  // namespace quillon
