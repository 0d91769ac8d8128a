#pragma once

#include "engine/Desktop.h"

namespace quillon {

class QtClipboard : public Clipboard {
public:
    void clear() override;
    void setText(const std::string& text) override;
    void setPicture(const Bitmap& picture) override;
    bool hasPicture() override;
    Bitmap picture() override;
};

}  // namespace quillon
