#pragma once

#include "engine/Control.h"
#include "engine/Desktop.h"
#include "ui/Controls.h"

namespace quillon {

/// "About": which version this is, and who made it. A fixed box, made anew at
/// each opening; it ends with its button.
class frmAbout : public Control {
public:
    explicit frmAbout(Screen& screen);

    Label lblVersion{"lblVersion"};
    Label lblTitle{"lblTitle"};
    Label lblDescription{"lblDescription"};
    CommandButton cmdOK{"cmdOK"};

    /// The texts: caption, version, credits.
    void Form_Load();
    /// A press on the box or on one of its labels: the pointer becomes four arrows
    /// and stays so, and a left press without modifier drags the box.
    void MouseDown(Control& where, Integer Button, Integer Shift);
    /// The button unloads the box.
    void Click(Control& where);
    bool isUnloaded() const noexcept { return unloaded_; }

private:
    Screen& screen_;
    bool unloaded_ = false;
};

}  // namespace quillon
