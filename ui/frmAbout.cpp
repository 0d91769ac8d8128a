#include "ui/frmAbout.h"

#include <string>

#include "engine/Version.h"
#include "ui/credits.h"

namespace quillon {

namespace {

constexpr Integer kTransparent = 0;
constexpr Integer kLeftButtonAlone = 1;

std::string versionText() {
    return "Version " + std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." +
           std::to_string(kVersionRevision);
}

std::string creditsText() {
    return std::string("Programming:  ") + kProgrammer + " (" + kMakerSite + ")\n" +
           "Images and Tutorial:  " + kImageAuthor + ", " + kTutorialAuthor;
}

}  // namespace

frmAbout::frmAbout(Screen& screen) : Control("frmAbout"), screen_(screen) {
    Width = 5805;
    Height = 3210;
    setBackColor(kWhite);

    lblVersion.Move(600, 1320, 705, 180);
    lblVersion.Caption = std::string("Version 1.0");
    // The place is narrower than a version of three numbers.
    lblVersion.AutoSize = true;

    lblTitle.Move(165, 2025, 5535, 360);
    lblTitle.Caption = std::string(kProductTitle) + " - " + kEditionName;
    lblTitle.FontName = Font::TimesNewRoman;
    lblTitle.FontBold = true;
    lblTitle.FontSize = 14.25F;

    // Reaches beyond the box's lower edge; the text stands above it.
    lblDescription.Move(150, 2625, 5445, 705);

    // The picture of the ground shows through the labels.
    for (Label* label : {&lblVersion, &lblTitle, &lblDescription})
        label->BackStyle = kTransparent;

    cmdOK.Move(5010, 2715, 615, 345);
    cmdOK.Caption = std::string("OK");
    cmdOK.ToolTipText = std::string("Close About Box");
}

void frmAbout::Form_Load() {
    Caption = std::string("About ") + kProductTitle;
    lblVersion.Caption = versionText();
    lblDescription.Caption = creditsText();
}

void frmAbout::MouseDown(Control& where, Integer Button, Integer Shift) {
    if (&where == &cmdOK)
        return;
    MousePointer = kPointerFourArrows;
    if (Button == kLeftButtonAlone && Shift == 0)
        screen_.dragControl(*this);
}

void frmAbout::Click(Control& where) {
    if (&where == &cmdOK)
        unloaded_ = true;
}

}  // namespace quillon
