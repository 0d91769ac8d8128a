#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// Letters on a panel's bitmap, in pixels of the bitmap whatever the screen.
class QtTextPainter : public TextPainter {
public:
    void draw(Bitmap& canvas, int x, int y, const std::string& text, Font font, Single points,
              ColorValue color) override;
    int width(const std::string& text, Font font, Single points) override;
};

}  // namespace quillon
