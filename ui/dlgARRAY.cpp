#include "ui/dlgARRAY.h"

#include <string>
#include <utility>

namespace quillon {

namespace {

constexpr Integer kEnter = 13;

constexpr std::array<const char*, dlgARRAY::kOptions> kOptionCaptions = {
    "1 - Complex (Re,Im)", "2 - Magnitude", "3 - Phase", "4 - Real Part", "5 - Imaginary Part",
};
constexpr std::size_t kFirstOption = 1;

constexpr std::array<const char*, dlgARRAY::kChecks> kCheckCaptions = {
    "Integer Values Only",
    "Shift by NX/2, NY/2",
    "Three Column Format",
};
constexpr std::array<Integer, dlgARRAY::kChecks> kFirstChecks = {1, 1, 0};

}  // namespace

dlgARRAY::dlgARRAY(const Colors& guiColors, std::function<void(dlgARRAY&)> showModal)
    : Control("dlgARRAY"),
      guiColors_(guiColors),
      showModal_(std::move(showModal)),
      op_{OptionButton("op(0)"), OptionButton("op(1)"), OptionButton("op(2)"),
          OptionButton("op(3)"), OptionButton("op(4)")},
      check1_{CheckBox("Check1(0)"), CheckBox("Check1(1)"), CheckBox("Check1(2)")} {
    Caption = std::string("FT Data Export");
    Visible = false;
    for (std::size_t i = 0; i < op_.size(); ++i) {
        op_[i].Caption = std::string(kOptionCaptions[i]);
        op_[i].FontBold = true;
        op_[i].Value = i == kFirstOption;
    }
    for (std::size_t i = 0; i < check1_.size(); ++i) {
        check1_[i].Caption = std::string(kCheckCaptions[i]);
        check1_[i].Value = kFirstChecks[i];
    }
    OKButton.Caption = std::string("OK");
}

void dlgARRAY::RemoteStart() {
    const auto paint = [this](Control& control) {
        control.setBackColor(guiColors_[0]);
        control.ForeColor = guiColors_[1];
    };
    paint(*this);
    for (CheckBox& box : check1_)
        paint(box);
    for (OptionButton& option : op_)
        paint(option);
    paint(OKButton);
    ok = false;
    Visible = true;
    showModal_(*this);
    Visible = false;
}

void dlgARRAY::Click(Control& where) {
    for (OptionButton& option : op_)
        if (&where == &option)
            for (OptionButton& each : op_)
                each.Value = &each == &option;
    for (CheckBox& box : check1_)
        if (&where == &box)
            box.Value = static_cast<Integer>(box.Value == 0 ? 1 : 0);
    if (&where == &OKButton)
        takeChoices();
}

void dlgARRAY::KeyPress(Integer KeyAscii) {
    if (KeyAscii == kEnter)
        takeChoices();
}

void dlgARRAY::takeChoices() {
    ok = true;
    for (std::size_t i = 0; i < op_.size(); ++i)
        if (op_[i].Value)
            m = static_cast<Integer>(i);
    bi = check1_[0].Value;
    bs = check1_[1].Value;
    b3 = check1_[2].Value;
    Visible = false;
}

}  // namespace quillon
