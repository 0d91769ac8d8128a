#include "ui/Form1.h"

// The mouse on the reconstruction panels.

namespace quillon {

void Form1::reconstructionPanelMouseDown(Channel which, Integer Button, Integer /*Shift*/,
                                         Single /*X*/, Single /*Y*/) {
    if (Button == kRightButton)
        popupPanelMenu(which == Channel::One ? "mnuNew1" : "mnuNew2");
}

void Form1::reconstructionPanelMouseMove(Channel which, Integer /*Button*/, Integer /*Shift*/,
                                         Single X, Single Y) {
    lab.lbSTB[0]->Caption = lab.channel(which).sfile + " [iFT] ";
    showGrey(lab.reconstructionPanel(which), X, Y);
}

void Form1::reconstructionPanelMouseUp(Channel /*which*/, Integer /*Button*/, Integer /*Shift*/,
                                       Single /*X*/, Single /*Y*/) {}

}  // namespace quillon
