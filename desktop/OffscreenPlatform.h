#pragma once

#include <QSize>
#include <QTemporaryFile>

namespace quillon {

/// A screen that nobody sees, for programs that draw the window without a display.
/// The toolkit's own has 800 by 800 pixels, so that the window would not fit it and
/// start maximised. Made before the application and kept as long as it; where the
/// user has chosen another platform it changes nothing.
class OffscreenPlatform {
public:
    explicit OffscreenPlatform(QSize screen = {1920, 1200});

private:
    QTemporaryFile configuration_;
};

}  // namespace quillon
