#include "app/image_io.h"

#include <exception>
#include <string_view>
#include <utility>

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr const char* kOpenFilter = "Images (*.bmp;*.gif;*.jpg)|*.bmp;*.gif;*.jpg";
constexpr const char* kSaveFilter = "Windows Bitmap (*.bmp)|*.bmp";
constexpr std::string_view kDroppedExtensions = ".BMP.GIF.JPG.JPEG";
constexpr Single kRestingSize = 15;

/// The hidden box through which every picture comes in. Between operations it
/// is empty and 15 by 15, however the operation ended.
class LoadingBuffer {
public:
    LoadingBuffer(Lab& lab, Bitmap picture) : img_(lab.img) { img_.setPicture(std::move(picture)); }
    LoadingBuffer(const LoadingBuffer&) = delete;
    LoadingBuffer& operator=(const LoadingBuffer&) = delete;
    ~LoadingBuffer() {
        img_.setPicture(Bitmap{});
        img_.Move(img_.Left, img_.Top, kRestingSize, kRestingSize);
    }

    const Bitmap& picture() const { return img_.Picture(); }

private:
    PictureBox& img_;
};

/// Makes a panel draw into its bitmap for a while. A lattice under way draws on
/// the screen layer, where a picture would never reach the transform.
class PersistentDrawing {
public:
    explicit PersistentDrawing(PictureBox& panel) : panel_(panel), former_(panel.AutoRedraw()) {
        panel_.setAutoRedraw(true);
    }
    PersistentDrawing(const PersistentDrawing&) = delete;
    PersistentDrawing& operator=(const PersistentDrawing&) = delete;
    ~PersistentDrawing() { panel_.setAutoRedraw(former_); }

private:
    PictureBox& panel_;
    bool former_;
};

/// The picture of a file; without a file the empty picture.
Bitmap loadPicture(const Lab& lab, const std::string& file) {
    return file.empty() ? Bitmap{} : lab.desktop.pictures.load(file);
}

/// What is painted is committed as the panel's picture, so that a later Cls
/// falls back to what the user saw.
void commit(PictureBox& panel) {
    panel.setPicture(panel.Image());
}

void invertPicture(PictureBox& panel) {
    const PersistentDrawing drawing(panel);
    panel.InvertPicture();
    commit(panel);
}

/// The yield lets the image panel show its new picture before the long transform.
void recalculate(Lab& lab, Channel which) {
    lab.ClearChannelTags(imagePanelId(which));
    lab.desktop.screen.pendingEvents();
    lab.channel(which).CalculateAll();
}

std::string askForImage(Lab& lab) {
    lab.ComFile.FileName.clear();
    lab.ComFile.InitDir = lab.folders.ImagePath;
    lab.ComFile.Filter = kOpenFilter;
    lab.desktop.dialogs.showOpen(lab.ComFile);
    lab.desktop.screen.pendingEvents();
    return lab.ComFile.FileName;
}

/// The name is not cleared first: the dialog offers the last one.
std::string askWhereToSave(Lab& lab) {
    lab.ComFile.InitDir = lab.folders.ImagePath;
    lab.ComFile.Filter = kSaveFilter;
    lab.desktop.dialogs.showSave(lab.ComFile);
    lab.desktop.screen.pendingEvents();
    return lab.ComFile.FileName;
}

std::string upperCasedEnd(const std::string& file, std::size_t length) {
    return upperCased(std::string_view(file).substr(file.size() - MinOf(file.size(), length)));
}

/// A name with another extension is cut before the first point of the whole
/// path, so "C:\my.pics\a.jpg" becomes "C:\my.bmp": scripts rely on the cut.
std::string bitmapName(const std::string& file) {
    if (upperCasedEnd(file, 4) == ".BMP")
        return file;
    const auto point = file.find('.');
    if (point == std::string::npos)
        throw RunTimeError(ErrorNumber::PathFileAccessError);
    return file.substr(0, point) + ".bmp";
}

/// The same error with the thing that failed in its description, for errors
/// that nobody handles: the user reads only this text.
[[noreturn]] void rethrowNaming(const RunTimeError& error, const std::string& thing) {
    if (error.description().find(thing) != std::string::npos)
        throw RunTimeError(error);
    throw RunTimeError(error.number(), error.description() + ": " + thing);
}

Bitmap pictureToReload(const Lab& lab, Channel which) {
    const std::string& file = lab.channel(which).file;
    if (file.empty())
        throw RunTimeError(ErrorNumber::InvalidPicture,
                           describe(ErrorNumber::InvalidPicture) + ": channel " +
                               (which == Channel::One ? "1" : "2") + " has no file to reload");
    try {
        return loadPicture(lab, file);
    } catch (const RunTimeError& error) {
        rethrowNaming(error, file);
    }
}

void loadInto(Lab& lab, Integer panel, const std::string& file) {
    const LoadingBuffer buffer(lab, loadPicture(lab, file));
    // Only panel 1 means channel 1 here; every other id, 2 and 3 too, is channel 2.
    const Channel which = panel == 1 ? Channel::One : Channel::Two;
    paintStretched(lab.imagePanel(which), buffer.picture());
    lab.channel(which).file = file;
    lab.channel(which).nmask = 0;
    recalculate(lab, which);
}

}  // namespace

void paintStretched(PictureBox& panel, const Bitmap& picture) {
    const PersistentDrawing drawing(panel);
    panel.PaintPictureStretched(picture,
                                {0, 0, toLong(panel.ScaleWidth()), toLong(panel.ScaleHeight())});
    commit(panel);
}

void LoadPanelImage(Lab& lab, Integer panel, const std::string& file) {
    try {
        loadInto(lab, panel, file.empty() ? askForImage(lab) : file);
    } catch (const std::exception&) {
        // Whatever went wrong, a cancelled dialog included, the load is abandoned.
    }
}

void ReloadImage(Lab& lab, Integer panel) {
    const Channel which = channelOfPanel(panel);
    const LoadingBuffer buffer(lab, pictureToReload(lab, which));
    paintStretched(lab.imagePanel(which), buffer.picture());
    if (lab.channel(which).GetInvert(0))
        invertPicture(lab.imagePanel(which));
    recalculate(lab, which);
}

void NewPanelImage(Lab& lab, Integer panel) {
    const Channel which = channelOfPanel(panel);
    clComplexImage& channel = lab.channel(which);
    PictureBox& image = lab.imagePanel(which);
    channel.nmask = 0;
    image.setPicture(Bitmap{});
    image.Tag.clear();
    image.setBackColor(kBlack);
    const ColorValue ground = lab.guiColors[lab.dimmed && lab.dimmed() ? 4 : 1];
    for (PictureBox* computed : {&lab.spectrumPanel(which), &lab.reconstructionPanel(which)}) {
        computed->setPicture(Bitmap{});
        computed->Tag.clear();
        computed->setBackColor(ground);
    }
    // A channel set to inverted starts white; the lattice tool paints its own ground.
    if (channel.mDraw != 1 && channel.GetInvert(0))
        invertPicture(image);
    lab.ClearChannelTags(panel);
}

void SavePanelImage(Lab& lab, Integer panel, const std::string& file) {
    try {
        // A name from the dialog is taken as it stands, whatever its extension.
        const std::string name = file.empty() ? askWhereToSave(lab) : bitmapName(file);
        if (panel >= 1 && panel <= 6)
            lab.desktop.pictures.save(lab.panel(panel).Image(), name);
    } catch (const std::exception&) {
        // As with loading: nothing is saved and nothing is said.
    }
}

void CopyPanelImage(Lab& lab, Integer panel) {
    lab.desktop.clipboard.clear();
    if (panel >= 1 && panel <= 6)
        lab.desktop.clipboard.setPicture(lab.panel(panel).Image());
    lab.desktop.screen.beep();
}

void PasteImage(Lab& lab, Integer panel) {
    if (!lab.desktop.clipboard.hasPicture()) {
        lab.desktop.dialogs.messageBox("No Image Data on Clipboard", "", MessageIcon::Exclamation,
                                       MessageButtons::Ok);
        return;
    }
    const LoadingBuffer buffer(lab, lab.desktop.clipboard.picture());
    const Channel which = channelOfPanel(panel);
    const std::string file = lab.desktop.environment.variable("TMP") + "\\clipboard.bmp";
    lab.channel(which).file = file;
    lab.channel(which).nmask = 0;
    try {
        lab.desktop.pictures.save(buffer.picture(), file);
    } catch (const RunTimeError& error) {
        rethrowNaming(error, file);
    }
    LoadPanelImage(lab, imagePanelId(which), file);
}

void InvertPanel(Lab& lab, MaskPainter& masks, Integer panel, bool on) {
    if (panel < 1 || panel > 6)
        return;
    const Channel which = channelOfPanel(panel);
    clComplexImage& channel = lab.channel(which);
    if (panel == imagePanelId(which)) {
        channel.SetInvert(0, on);
        invertPicture(lab.imagePanel(which));
    } else if (panel == spectrumPanelId(which)) {
        channel.SetInvert(1, on);
        channel.RedrawFT(1, -1.0F);
        if (channel.bMask)
            masks.DrawMasks(panel);
    } else {
        channel.SetInvert(2, on);
        // The 1 becomes the linear intensity factor of the spectrum, as everywhere
        // where a redraw gets a positive factor.
        channel.RedrawFT(0, 1.0F);
    }
}

void dropImage(Lab& lab, Channel which, const std::string& file) {
    const LoadingBuffer buffer(lab, loadPicture(lab, file));
    paintStretched(lab.imagePanel(which), buffer.picture());
    lab.channel(which).file = file;
    recalculate(lab, which);
}

void dropMaskFile(const std::string& /*file*/, Integer /*spectrumPanel*/) {}

bool isPictureFile(const std::string& file) {
    return kDroppedExtensions.find(upperCasedEnd(file, 4)) != std::string_view::npos;
}

}  // namespace quillon
