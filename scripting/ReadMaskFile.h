#pragma once

#include <string>

#include "app/Lab.h"
#include "engine/Numbers.h"

namespace quillon {

/// Adds the rectangles of a mask file to the channel of a panel (1 to 6), one
/// for each row, in file order; rows are corners in FT panel pixels. The list is
/// not emptied first, and nothing is recomputed.
///
/// A missing or empty file is told in one dialog with an exclamation mark, so
/// that it looks less grave than a missing image, and adds nothing. A bad row
/// (RunTimeError SubscriptOutOfRange or Overflow) and the 1001st mask
/// (SubscriptOutOfRange) reach the caller, with the rows before it in the list.
void ReadMaskFile(Lab& lab, Integer panel, const std::string& path);

}  // namespace quillon
