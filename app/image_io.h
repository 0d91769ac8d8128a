#pragma once

#include <string>

#include "app/Lab.h"
#include "engine/Numbers.h"
#include "engine/clComplexImage.h"

namespace quillon {

// Pictures into and out of the panels. Panel ids are 1 to 3 for image, FT and
// reconstruction of channel 1, 4 to 6 for those of channel 2.
//
// A picture enters a channel in one way only: it is painted on the image panel,
// stretched to the panel, and CalculateAll then reads the panel's pixels. Loads,
// reloads and saves open no dialog when they fail: the strip says what was not
// done and why. A cancelled dialog is no failure.

/// Loads a picture file into a channel as a script does: laid unscaled at the top
/// left, without a transform. The error of a file that cannot be read goes to the
/// caller; the channel then has the file's name and still shows the image before.
void loadImageFile(Lab& lab, Channel which, const std::string& file);

/// Loads a picture file into a channel; without a file it asks for one. A failed
/// load changes nothing in the channel.
void LoadPanelImage(Lab& lab, Integer panel, const std::string& file);

/// Paints a picture on an image panel, stretched to it, and commits it as the
/// panel's picture, so that a later Cls falls back to what the user saw. The
/// empty picture throws RunTimeError InvalidPicture.
void paintStretched(PictureBox& panel, const Bitmap& picture);

/// Loads the channel's file once more. The invert state and the masks stay, and
/// where there is no file or it cannot be loaded, everything does.
void ReloadImage(Lab& lab, Integer panel);

/// Empties a channel's panels. Its file stays, so that a reload brings it back,
/// and no transform runs.
void NewPanelImage(Lab& lab, Integer panel);

/// Writes what panel 1 to 6 shows as a Windows bitmap; without a file it asks
/// for one.
void SavePanelImage(Lab& lab, Integer panel, const std::string& file);

/// Puts what panel 1 to 6 shows on the clipboard, and beeps.
void CopyPanelImage(Lab& lab, Integer panel);

/// Loads the clipboard's picture into a channel through "clipboard.bmp" in the
/// folder TMP, which stays the channel's file. One dialog, and no change of the
/// channel, where there is no picture or the file cannot be written.
void PasteImage(Lab& lab, Integer panel);

/// The file through which a picture comes from the clipboard.
std::string clipboardFile(const Lab& lab);

/// Inverts a panel and records the flag. On an image panel the pixels flip
/// whichever way `on` points; the two others are redrawn with the flag in force.
void InvertPanel(Lab& lab, MaskPainter& masks, Integer panel, bool on);

/// Loads a picture file that was dropped on a channel's image panel. Failures
/// reach the caller. The masks stay, in contrast to LoadPanelImage.
void dropImage(Lab& lab, Channel which, const std::string& file);

/// The entry for a mask file that was dropped: a mask file cannot be applied by
/// dropping, so this does nothing.
void dropMaskFile(const std::string& file, Integer spectrumPanel);

/// True for a file that a drop takes as a picture: its last four characters
/// occur anywhere in ".BMP.GIF.JPG.JPEG", whatever their case.
bool isPictureFile(const std::string& file);

}  // namespace quillon
