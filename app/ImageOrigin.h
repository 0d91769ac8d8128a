#pragma once

#include <string>

#include "engine/Bitmap.h"

namespace quillon {

/// How the picture of a file gets onto an image panel.
enum class Placing {
    Laid,       ///< unscaled, at the top left
    Stretched,  ///< to the size of the panel
};

/// Where the picture on an image panel came from.
struct ImageOrigin {
    /// The channel's file when it was read; empty before the first time.
    std::string file;
    Placing placing = Placing::Laid;
    /// What a fresh window shows of the file, not inverted. Empty where the
    /// picture is in no file that lasts.
    Bitmap pixels;
};

}  // namespace quillon
