#pragma once

#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"

namespace quillon {

/// A picture file as a student's folder holds them.
struct MixedPicture {
    std::string name;
    /// False for a file that is no whole picture.
    bool whole = true;
};

/// Fills a folder with bitmaps, GIF and JPEG files of many sizes, their endings
/// in small and in capital letters. The first one and some of the others are cut
/// off in the middle, empty, a text, or a picture of another type. In the order
/// of their names without regard to capitals; written in the opposite order.
std::vector<MixedPicture> makeMixedPictures(const TemporaryFolder& folder, int count);

}  // namespace quillon
