#pragma once

#include <array>
#include <functional>

#include "analysis/data_export.h"
#include "ui/Controls.h"

namespace quillon {

/// "FT Data Export": what of a spectrum goes to the clipboard, and how. One
/// dialog serves both channels. It is only ever hidden, so the last choices are
/// the next defaults, also those of a dialog that was closed without OK.
class dlgARRAY : public Control, public ExportPrompt {
public:
    static constexpr Integer kOptions = 5;
    static constexpr Integer kChecks = 3;
    using Colors = std::array<ColorValue, 5>;
    /// `showModal` shows the dialog until Visible is False. The colours are the
    /// window's scheme, read at each opening.
    dlgARRAY(const Colors& guiColors, std::function<void(dlgARRAY&)> showModal);

    /// What to export; one of the five is on. 0 complex to 4 imaginary part.
    OptionButton& op(Integer i) { return op_.at(static_cast<std::size_t>(i)); }
    /// 0 whole numbers, 1 shifted to the middle, 2 three columns.
    CheckBox& Check1(Integer i) { return check1_.at(static_cast<std::size_t>(i)); }
    CommandButton OKButton{"OKButton"};

    void RemoteStart() override;
    /// An option goes on and the others off; a check box turns over; OKButton
    /// takes the choices over and hides the dialog.
    void Click(Control& where);
    /// Enter is OK, wherever the keyboard is.
    void KeyPress(Integer KeyAscii);

private:
    void takeChoices();

    const Colors& guiColors_;
    std::function<void(dlgARRAY&)> showModal_;
    std::array<OptionButton, kOptions> op_;
    std::array<CheckBox, kChecks> check1_;
};

}  // namespace quillon
