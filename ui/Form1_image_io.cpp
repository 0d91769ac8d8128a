#include <algorithm>
#include <exception>
#include <string_view>

#include "app/image_io.h"
#include "app/printing.h"
#include "ui/Form1.h"

// Pictures into and out of the panels: the window's routines hand on to app/.

namespace quillon {

namespace {

constexpr std::string_view kScriptExtension = ".FTSCR";
constexpr std::string_view kMaskExtension = ".FTMSK";

bool endsWith(const std::string& file, std::string_view upperCasedExtension) {
    if (file.size() < upperCasedExtension.size())
        return false;
    const std::string_view end =
        std::string_view(file).substr(file.size() - upperCasedExtension.size());
    return std::ranges::equal(end, upperCasedExtension, [](char letter, char upper) {
        return (letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter) == upper;
    });
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

void Form1::OLEDragDrop(Control& where, const std::vector<std::string>& files) {
    if (files.empty() || (&where != &pb1 && &where != &pb4))
        return;
    const Channel which = &where == &pb1 ? Channel::One : Channel::Two;
    const std::string& file = files.front();
    try {
        if (isPictureFile(file))
            dropImage(lab, which, file);
        if (endsWith(file, kScriptExtension))
            ReadScript(file);
        if (endsWith(file, kMaskExtension))
            dropMaskFile(file, spectrumPanelId(which));
    } catch (const std::exception&) {
        // A drop that fails is abandoned without a message, as a load is.
    }
}

}  // namespace quillon
