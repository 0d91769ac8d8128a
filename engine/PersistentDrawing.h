#pragma once

#include "engine/PictureBox.h"

namespace quillon {

/// Makes a panel draw into its bitmap for a while. A lattice under way, or one
/// that was abandoned, draws on the screen layer, where a picture would neither
/// stay in sight nor reach the transform; it goes on there afterwards.
class PersistentDrawing {
public:
    explicit PersistentDrawing(PictureBox& panel) : panel_(panel), former_(panel.AutoRedraw()) {
        panel_.setAutoRedraw(true);
    }
    PersistentDrawing(const PersistentDrawing&) = delete;
    PersistentDrawing& operator=(const PersistentDrawing&) = delete;
    ~PersistentDrawing() { panel_.setAutoRedraw(former_); }

private:
    PictureBox& panel_;
    bool former_;
};

}  // namespace quillon
