#pragma once

#include "app/Lab.h"
#include "engine/Bitmap.h"

namespace quillon {

// Where a channel's image came from, and whether its file still brings it back. A
// script names the file of an image that is as it was read; one that was drawn
// on, rolled or pasted exists on its panel alone.

/// Remembers what the image panel shows of the channel's file, which has just been
/// read. Call it before the image is inverted.
void noteFileShown(Lab& lab, Channel which, Placing placing);

/// Remembers that the channel's file does not hold what the panel shows.
void noteImageWithoutFile(Lab& lab, Channel which);

/// The image as the user has made it: what the panel shows, but for the magnified
/// patch of the spectrum that covers it during a line profile.
Bitmap imageOf(const Lab& lab, Channel which);

/// What brings a channel's image back.
enum class ImageSource {
    Nothing,       ///< a channel without a file whose panel is as empty as at the start
    File,          ///< the file alone
    InvertedFile,  ///< the file, then inverted
    Copy,          ///< only a copy of the image
};

/// The source as far as this lab knows; no file is looked at. A file that the
/// channel was given without being shown counts as the image's.
ImageSource imageSource(const Lab& lab, Channel which);

/// How closely a file is looked at.
enum class FileCheck {
    Exists,  ///< it is there
    Holds,   ///< it is read once more and gives the same picture
};

/// True where the channel's file can still bring back what was read of it. It may
/// have been removed since, or written over.
bool fileIsIntact(const Lab& lab, Channel which, FileCheck check);

}  // namespace quillon
