#include <optional>
#include <utility>

#include "ui/Form1.h"

// Which event of which control goes to which handler. The handlers themselves
// lie with their subjects.

namespace quillon {

namespace {

/// A panel's place: its channel and its column (1 image, 2 FT, 3 reconstruction).
struct PanelPlace {
    Channel channel;
    int column;
};

std::optional<PanelPlace> placeOf(const Form1& form, const Control& control) {
    const PictureBox* const panels[] = {&form.pb1, &form.pb2, &form.pb3,
                                        &form.pb4, &form.pb5, &form.pb6};
    for (int i = 0; i < 6; ++i)
        if (panels[i] == &control)
            return PanelPlace{i < 3 ? Channel::One : Channel::Two, i % 3 + 1};
    return std::nullopt;
}

}  // namespace

void Form1::MouseDown(Control& where, Integer Button, Integer Shift, Single X, Single Y) {
    releaseEaten_ = false;
    if (const auto place = placeOf(*this, where)) {
        if (place->column == 1)
            imagePanelMouseDown(place->channel, Button, Shift, X, Y);
        else if (place->column == 2)
            spectrumPanelMouseDown(place->channel, Button, Shift, X, Y);
        else
            reconstructionPanelMouseDown(place->channel, Button, Shift, X, Y);
        return;
    }
    for (const Channel which : {Channel::One, Channel::Two})
        for (Integer i = 0; i <= 1; ++i)
            if (&where == &lbBR(which, i))
                intensityMouseDown(which, i, Button);
    if (&where == this || &where == &frLUT || &where == &pbh)
        dragOnLeftPress(where, Button, Shift);
    // The title lies over the selector's edge, where a hand takes hold of it.
    if (&where == &Label2(0))
        dragOnLeftPress(frLUT, Button, Shift);
}

void Form1::MouseMove(Control& where, Integer Button, Integer Shift, Single X, Single Y) {
    if (const auto place = placeOf(*this, where)) {
        if (place->column == 1)
            imagePanelMouseMove(place->channel, Button, Shift, X, Y);
        else if (place->column == 2)
            spectrumPanelMouseMove(place->channel, Button, Shift, X, Y);
        else
            reconstructionPanelMouseMove(place->channel, Button, Shift, X, Y);
    } else if (&where == &pbh) {
        histogramMouseMove(X, Y);
    }
}

void Form1::MouseUp(Control& where, Integer Button, Integer Shift, Single X, Single Y) {
    if (std::exchange(releaseEaten_, false))
        return;
    if (const auto place = placeOf(*this, where)) {
        if (place->column == 1)
            imagePanelMouseUp(place->channel, Button, Shift, X, Y);
        else if (place->column == 2)
            spectrumPanelMouseUp(place->channel, Button, Shift, X, Y);
        else
            reconstructionPanelMouseUp(place->channel, Button, Shift, X, Y);
        return;
    }
    for (const Channel which : {Channel::One, Channel::Two})
        for (Integer i = 0; i <= 1; ++i)
            if (&where == &lbBR(which, i))
                intensityMouseUp(which);
    if (&where == this || &where == &pbh)
        MousePointer = kPointerDefault;
    else if (&where == &pbLUT)
        selectorMouseUp(Y);
    else if (&where == &lbHIS)
        pbh.Visible = false;
}

void Form1::popupPanelMenu(std::string_view title) {
    // Set before the menu opens: it stays open until the choice has been made.
    releaseEaten_ = true;
    if (host_)
        host_->popupMenu(title);
}

void Form1::Click(Control& where) {
    if (&where == &btLUT)
        frLUT.Visible = !frLUT.Visible;
    else if (&where == &Label1)
        frLUT.Visible = false;
    else if (&where == &imgDIM)
        LightOff();
    else
        for (Integer i = 0; i <= 2; ++i)
            if (&where == &lbTAB(i))
                tabClick(i);
}

bool Form1::hasDoubleClick(const Control& where) const {
    const auto place = placeOf(*this, where);
    return place && place->column != 1;
}

void Form1::DblClick(Control& where) {
    const auto place = placeOf(*this, where);
    if (!place || !hasDoubleClick(where))
        return;
    releaseEaten_ = true;
    // A double click on a spectrum transforms, on a reconstruction reconstructs.
    if (place->column == 2)
        click(place->channel == Channel::One ? MenuArray::mnuFT1a : MenuArray::mnuFT2a, 0);
    else
        click(place->channel == Channel::One ? MenuArray::mnuNew1a : MenuArray::mnuNew2a, 0);
}

}  // namespace quillon
