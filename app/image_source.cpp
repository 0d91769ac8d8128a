#include "app/image_source.h"

#include <algorithm>
#include <exception>
#include <string>

#include "app/image_io.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

/// A panel as a fresh window has it, of the image panel's size.
class FreshPanel : public PictureBox {
public:
    explicit FreshPanel(const Bitmap& image) : PictureBox("", image.width, image.height) {
        setBackColor(kBlack);
    }
};

std::string comparable(std::string path) {
    std::ranges::replace(path, '/', '\\');
    return upperCased(path);
}

/// The next paste, in this lab or another, replaces the clipboard's file.
bool isPassing(const Lab& lab, const std::string& file) {
    const std::string path = comparable(file);
    return path.ends_with("\\CLIPBOARD.BMP") && path == comparable(clipboardFile(lab));
}

bool isComplement(const Bitmap& a, const Bitmap& b) {
    constexpr PixelWord kColourBytes = 0xFFFFFF;
    return a.width == b.width && a.height == b.height &&
           std::ranges::equal(a.words, b.words, [](PixelWord left, PixelWord right) {
               return (left ^ right) == kColourBytes;
           });
}

bool isBlack(const Bitmap& picture) {
    return std::ranges::all_of(picture.words, [](PixelWord word) { return word == 0; });
}

}  // namespace

void noteFileShown(Lab& lab, Channel which, Placing placing) {
    ImageOrigin& origin = lab.origin(which);
    origin = {lab.channel(which).file, placing, {}};
    lab.keptPictures.spare(origin.file);
    const PictureBox& panel = lab.imagePanel(which);
    if (placing == Placing::Stretched) {
        origin.pixels = panel.Image();
    } else {
        // Around a picture that is smaller, a fresh window is black.
        FreshPanel fresh(panel.Image());
        fresh.setPicture(panel.Picture());
        origin.pixels = fresh.Image();
    }
}

void noteImageWithoutFile(Lab& lab, Channel which) {
    lab.origin(which) = {lab.channel(which).file, Placing::Laid, {}};
}

Bitmap imageOf(const Lab& lab, Channel which) {
    const PictureBox& panel = lab.imagePanel(which);
    if (!lab.profiling || !lab.profiling())
        return panel.Image();
    // What the release of the Alt key falls back to.
    FreshPanel bare(panel.Image());
    bare.setBackColor(panel.BackColor());
    bare.setPicture(panel.Picture());
    return bare.Image();
}

ImageSource imageSource(const Lab& lab, Channel which) {
    const clComplexImage& channel = lab.channel(which);
    const Bitmap image = imageOf(lab, which);
    if (channel.file.empty())
        return lab.imagePanel(which).Tag.empty() && isBlack(image) ? ImageSource::Nothing
                                                                   : ImageSource::Copy;
    const bool inverted = channel.GetInvert(0);
    const ImageOrigin& origin = lab.origin(which);
    if (origin.file != channel.file)
        return inverted ? ImageSource::InvertedFile : ImageSource::File;
    if (isPassing(lab, channel.file))
        return ImageSource::Copy;
    // The pixels decide, not the flag alone: a picture that was loaded with the flag
    // on shows as its file, and inverting it would turn it round.
    if (image == origin.pixels)
        return ImageSource::File;
    return inverted && isComplement(image, origin.pixels) ? ImageSource::InvertedFile
                                                          : ImageSource::Copy;
}

bool fileIsIntact(const Lab& lab, Channel which, FileCheck check) {
    const ImageOrigin& origin = lab.origin(which);
    if (origin.file != lab.channel(which).file)
        return true;
    try {
        if (check == FileCheck::Exists)
            return lab.desktop.files.length(origin.file) > 0;
        const Bitmap picture = lab.desktop.pictures.load(origin.file);
        FreshPanel panel(lab.imagePanel(which).Image());
        if (origin.placing == Placing::Stretched)
            paintStretched(panel, picture);
        else
            panel.setPicture(picture);
        return panel.Image() == origin.pixels;
    } catch (const std::exception&) {
        return false;
    }
}

}  // namespace quillon
