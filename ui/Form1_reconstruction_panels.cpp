#include "ui/Form1.h"

// The mouse on the reconstruction panels: a drag rolls the view, so that a
// periodic result can be looked at across its edges. Nothing is committed.

namespace quillon {

void Form1::reconstructionPanelMouseDown(Channel which, Integer Button, Integer /*Shift*/, Single X,
                                         Single Y) {
    if (Button == kRightButton)
        popupPanelMenu(which == Channel::One ? "mnuNew1" : "mnuNew2");
    else
        beginRoll(reconstructionPanelId(which), X, Y);
}

void Form1::reconstructionPanelMouseMove(Channel which, Integer Button, Integer /*Shift*/, Single X,
                                         Single Y) {
    lab.showFileName(reconstructionPanelId(which));
    showGrey(lab.reconstructionPanel(which), X, Y);
    if (Button == kLeftButton)
        rollTo(reconstructionPanelId(which), X, Y);
}

void Form1::reconstructionPanelMouseUp(Channel which, Integer /*Button*/, Integer /*Shift*/,
                                       Single /*X*/, Single /*Y*/) {
    lab.reconstructionPanel(which).MousePointer = kPointerDefault;
}

}  // namespace quillon
