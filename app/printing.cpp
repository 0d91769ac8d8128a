#include "app/printing.h"

#include <string>

#include "engine/Numbers.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr Integer kPortrait = 1;
/// Where the pictures begin, in twips from the top of the page: below the title.
constexpr Single kPictureTop = 400;

void printFramed(Printer& printer, const Bitmap& picture, Single left, Single width,
                 Single height) {
    printer.paintPicture(picture, left, kPictureTop, width, height);
    printer.box(left, kPictureTop, width, height);
}

}  // namespace

void PrintPanel(Lab& lab, Integer panel) {
    Printer& printer = lab.desktop.printer;
    const Channel which = channelOfPanel(panel);
    const Integer formerOrientation = printer.orientation();
    const Single heightByWidth = divideSingle(lab.pb1.ScaleHeight(), lab.pb1.ScaleWidth());

    printer.setOrientation(kPortrait);
    printer.setCurrentPosition(0, 0);
    const Single width = printer.pageWidth() / 3;
    // The title ends in the mark of channel 1's FT panel on both channels' pages.
    printer.print("FFT - " + lastName(lab.channel(which).file) + lab.pb2.Tag);

    Single left = 0;
    for (const PictureBox* shown :
         {&lab.imagePanel(which), &lab.spectrumPanel(which), &lab.reconstructionPanel(which)}) {
        printFramed(printer, shown->Image(), left, width, width * heightByWidth);
        left += width;
    }
    printer.endDocument();
    printer.setOrientation(formerOrientation);
}

}  // namespace quillon
