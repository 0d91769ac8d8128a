#include "ui/Form1.h"

// Commands whose subject has not arrived: each says so in the strip's message
// cell and changes nothing. Every body moves out with its subject, and the file
// goes with the last.

namespace quillon {

namespace {

void sayNotThere(Form1& form, const std::string& command) {
    form.ShowStatus(2, command + " is not there yet");
}

}  // namespace

void Form1::ShowHelp(Integer /*id*/) {
    sayNotThere(*this, "Help");
}

void Form1::itm10(Integer /*Index*/) {
    sayNotThere(*this, "Help");
}

void Form1::itm10a(Integer /*Index*/) {
    sayNotThere(*this, "Links");
}

}  // namespace quillon
