#pragma once

#include <string>

#include "engine/Desktop.h"

namespace quillon {

/// The name under which a save dialog saves what was typed: with the suffix of the
/// filter chosen (from 1) where none was typed. What is saved as a bitmap is a
/// bitmap by its name too: ".jpg", ".jpeg" and ".gif" give way to ".bmp". Any other
/// suffix stays as it was typed. The suffix is what follows the last point of the
/// name behind the folder; a filter without a suffix ("*.*") adds none.
std::string nameToSave(const std::string& typed, const std::string& filter, Integer filterIndex);

/// A name with ".bmp" in the place of its suffix, as a save dialog for a bitmap
/// offers the last file; the empty name stays empty.
std::string bitmapNameToOffer(const std::string& last);

}  // namespace quillon
