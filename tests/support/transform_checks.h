#pragma once

#include "tests/support/ChannelUnderTest.h"

namespace quillon {

// Checks of a channel against transforms in Doubles, with tolerances made of the
// epsilon of a Single, the number of passes and the size of the numbers.

/// The spectrum is the sum over the pixels of the image panel, with the positive
/// sign in the exponent.
void expectForwardLikeDoubles(const ChannelUnderTest& lab);

/// The reconstruction is the sum over the spectrum, with the negative sign, over
/// the number of cells.
void expectInverseLikeDoubles(const ChannelUnderTest& lab);

/// Without a filter the reconstruction is the image.
void expectImageComesBack(const ChannelUnderTest& lab);

}  // namespace quillon
