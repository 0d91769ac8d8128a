#include <exception>
#include <string_view>

#include "app/image_io.h"
#include "app/not_done.h"
#include "app/printing.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

// Pictures into and out of the panels: the window's routines hand on to app/.

namespace quillon {

namespace {

constexpr std::string_view kScriptExtension = ".FTSCR";
constexpr std::string_view kMaskExtension = ".FTMSK";

bool isScriptFile(const std::string& file) {
    return upperCased(file).ends_with(kScriptExtension);
}

}  // namespace

void Form1::LoadPanelImage(Integer panel, const std::string& file) {
    quillon::LoadPanelImage(lab, panel, file);
}

void Form1::ReloadImage(Integer panel) {
    quillon::ReloadImage(lab, panel);
}

void Form1::NewPanelImage(Integer panel) {
    quillon::NewPanelImage(lab, panel);
}

void Form1::SavePanelImage(Integer panel, const std::string& file) {
    quillon::SavePanelImage(lab, panel, file);
}

void Form1::CopyPanelImage(Integer panel) {
    quillon::CopyPanelImage(lab, panel);
}

void Form1::PasteImage(Integer panel) {
    quillon::PasteImage(lab, panel);
}

void Form1::InvertPanel(Integer panel, bool on) {
    quillon::InvertPanel(lab, *this, panel, on);
}

void Form1::PrintPanel(Integer panel) {
    quillon::PrintPanel(lab, panel);
}

bool Form1::takesDrop(const Control& where, const std::vector<std::string>& files) {
    if (files.empty() || (&where != &pb1 && &where != &pb4))
        return false;
    const std::string& file = files.front();
    try {
        // A script may be without a line; a picture without a byte is none.
        return desktop.files.isReadable(file) &&
               (isScriptFile(file) || (isPictureFile(file) && desktop.files.length(file) > 0));
    } catch (const std::exception&) {
        return false;
    }
}

void Form1::OLEDragDrop(Control& where, const std::vector<std::string>& files) {
    if (files.empty() || (&where != &pb1 && &where != &pb4))
        return;
    const Channel which = &where == &pb1 ? Channel::One : Channel::Two;
    lab.runCommand([&] { takeDropped(which, files.front()); });
}

void Form1::takeDropped(Channel which, const std::string& file) {
    try {
        if (isPictureFile(file))
            dropImage(lab, which, file);
        if (isScriptFile(file))
            ReadScript(file);
        if (upperCased(file).ends_with(kMaskExtension))
            dropMaskFile(file, spectrumPanelId(which));
    } catch (const std::exception& error) {
        lab.reportNotDone(whyNotLoaded(desktop.files, file, error));
    }
}

}  // namespace quillon
