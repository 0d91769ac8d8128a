#include "app/image_io.h"

#include <exception>
#include <optional>
#include <string_view>
#include <utility>

#include "app/image_source.h"
#include "app/not_done.h"
#include "app/save_name.h"
#include "engine/NativePaths.h"
#include "engine/PersistentDrawing.h"
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
    lab.fileLoaded(which);
}

std::string askForImage(Lab& lab) {
    lab.ComFile.FileName.clear();
    lab.ComFile.prepare(lab.folders.ImagePath, kOpenFilter);
    lab.desktop.dialogs.showOpen(lab.ComFile);
    lab.desktop.screen.pendingEvents();
    return lab.ComFile.FileName;
}

/// The name is not cleared first: the dialog offers the last one, as a bitmap's.
std::string askWhereToSave(Lab& lab) {
    FileDialog dialog = lab.ComFile;
    dialog.prepare(lab.folders.ImagePath, kSaveFilter);
    dialog.FileName = bitmapNameToOffer(dialog.FileName);
    lab.desktop.dialogs.showSave(dialog);
    lab.ComFile = dialog;
    lab.desktop.screen.pendingEvents();
    return lab.ComFile.FileName;
}

std::string upperCasedEnd(const std::string& file, std::size_t length) {
    return upperCased(std::string_view(file).substr(file.size() - MinOf(file.size(), length)));
}

/// A name with another extension is cut before the first point behind the folder,
/// so "a.b.jpg" becomes "a.bmp": scripts rely on the cut. Nothing for a name that
/// has no point.
std::optional<std::string> bitmapName(const std::string& file) {
    if (upperCasedEnd(file, 4) == ".BMP")
        return file;
    const auto point = file.find('.', file.size() - lastName(file).size());
    if (point == std::string::npos)
        return std::nullopt;
    return file.substr(0, point) + ".bmp";
}

/// The picture of the channel's file, nothing where there is none: the strip then
/// says why.
std::optional<Bitmap> pictureToReload(Lab& lab, Channel which) {
    const std::string& file = lab.channel(which).file;
    if (file.empty()) {
        lab.reportNotDone("no file to reload");
        return std::nullopt;
    }
    try {
        return lab.desktop.pictures.load(file);
    } catch (const std::exception& error) {
        lab.reportNotDone(whyNotLoaded(lab.desktop.files, file, error));
        return std::nullopt;
    }
}

/// Nothing where there is no picture, also where it went between two looks.
std::optional<Bitmap> pictureToPaste(Clipboard& clipboard) {
    try {
        if (clipboard.hasPicture())
            return clipboard.picture();
    } catch (const std::exception&) {
        // What cannot be decoded is no picture.
    }
    return std::nullopt;
}

void say(Lab& lab, const std::string& text) {
    lab.desktop.dialogs.messageBox(text, "", MessageIcon::Exclamation, MessageButtons::Ok);
}

void loadInto(Lab& lab, Integer panel, const std::string& file) {
    const LoadingBuffer buffer(lab, loadPicture(lab, file));
    // Only panel 1 means channel 1 here; every other id, 2 and 3 too, is channel 2.
    const Channel which = panel == 1 ? Channel::One : Channel::Two;
    paintStretched(lab.imagePanel(which), buffer.picture());
    lab.channel(which).file = file;
    lab.channel(which).nmask = 0;
    noteFileShown(lab, which, Placing::Stretched);
    recalculate(lab, which);
}

/// A picture that was saved over the channel's own file is that file's now.
void noteSaved(Lab& lab, Integer panel, const std::string& file) {
    const Channel which = channelOfPanel(panel);
    if (panel == imagePanelId(which) && file == lab.channel(which).file)
        noteFileShown(lab, which, Placing::Stretched);
}

}  // namespace

void loadImageFile(Lab& lab, Channel which, const std::string& file) {
    lab.channel(which).file = file;
    noteImageWithoutFile(lab, which);
    lab.channel(which).LoadImageFile(file);
    noteFileShown(lab, which, Placing::Laid);
}

void paintStretched(PictureBox& panel, const Bitmap& picture) {
    const PersistentDrawing drawing(panel);
    panel.PaintPictureStretched(picture,
                                {0, 0, toLong(panel.ScaleWidth()), toLong(panel.ScaleHeight())});
    commit(panel);
}

void LoadPanelImage(Lab& lab, Integer panel, const std::string& file) {
    std::string name = file;
    try {
        if (name.empty())
            name = askForImage(lab);
        loadInto(lab, panel, name);
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotLoaded(lab.desktop.files, name, error));
    }
}

void ReloadImage(Lab& lab, Integer panel) {
    const Channel which = channelOfPanel(panel);
    std::optional<Bitmap> picture = pictureToReload(lab, which);
    if (!picture)
        return;
    const LoadingBuffer buffer(lab, *std::move(picture));
    paintStretched(lab.imagePanel(which), buffer.picture());
    noteFileShown(lab, which, Placing::Stretched);
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
    std::string name;
    try {
        if (file.empty()) {
            // The dialog has given the name its suffix.
            name = askWhereToSave(lab);
        } else if (const std::optional<std::string> cut = bitmapName(file)) {
            name = *cut;
        } else {
            return lab.reportNotDone("not saved: the name has no point");
        }
        if (panel >= 1 && panel <= 6) {
            lab.desktop.pictures.save(lab.panel(panel).Image(), name);
            noteSaved(lab, panel, name);
        }
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotSaved(lab.desktop.files, name, error));
    }
}

void CopyPanelImage(Lab& lab, Integer panel) {
    lab.desktop.clipboard.clear();
    if (panel >= 1 && panel <= 6)
        lab.desktop.clipboard.setPicture(lab.panel(panel).Image());
    lab.desktop.screen.beep();
}

void PasteImage(Lab& lab, Integer panel) {
    const std::optional<Bitmap> picture = pictureToPaste(lab.desktop.clipboard);
    if (!picture)
        return say(lab, "No Image Data on Clipboard");
    const std::string file = clipboardFile(lab);
    try {
        lab.desktop.pictures.save(*picture, file);
    } catch (const std::exception& error) {
        return say(lab, whyNotSaved(lab.desktop.files, file, error, "Not pasted") + "\n" +
                            shownPath(file));
    }
    LoadPanelImage(lab, imagePanelId(channelOfPanel(panel)), file);
}

std::string clipboardFile(const Lab& lab) {
    return lab.desktop.environment.variable("TMP") + "\\clipboard.bmp";
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
    noteFileShown(lab, which, Placing::Stretched);
    recalculate(lab, which);
}

void dropMaskFile(const std::string& /*file*/, Integer /*spectrumPanel*/) {}

bool isPictureFile(const std::string& file) {
    return kDroppedExtensions.find(upperCasedEnd(file, 4)) != std::string_view::npos;
}

}  // namespace quillon
