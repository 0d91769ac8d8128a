#pragma once

#include "app/Lab.h"
#include "engine/Numbers.h"

namespace quillon {

/// Prints the three panels of the channel of the given panel id side by side on
/// one portrait page, below a title line. Throws RunTimeError PrinterError where
/// printing fails.
void PrintPanel(Lab& lab, Integer panel);

}  // namespace quillon
