#pragma once

#include <string_view>

namespace quillon {

// The toolkit's decoders fill up what a cut-off file lacks and say nothing. A
// half picture in a lesson would look like a picture with a black half, so a
// file is taken only if it is all there.

/// True where the bytes are a BMP, GIF or JPEG file whose first picture reaches
/// its end. Bytes after the end do no harm.
bool isWholePicture(std::string_view bytes) noexcept;

}  // namespace quillon
