#pragma once

#include <QImage>
#include <functional>

#include "tests/desktop/OpenedWindow.h"

namespace quillon {

inline constexpr int kSide = 256;

/// A grey for each pixel, the picture going on across its borders.
using Greys = std::function<double(int x, int y)>;

/// A delivered picture.
Greys delivered(const char* name);

/// What a panel shows now.
Greys shown(const PictureBox& panel);

/// How alike two pictures are, whatever their brightness and contrast: 1 for the
/// same, about 0 for two that have nothing to do with each other. A reconstruction
/// is stretched, so its greys cannot be compared as they are.
double likeness(const Greys& one, const Greys& other);

/// The window with the experiments of the tutorial.
class Lessons : public OpenedWindow {
protected:
    /// Runs a delivered script as its link in the tutorial does.
    void setUp(const char* script);
    void clickOn(const char* panelName, int x, int y);
    void dragOn(const char* panelName, QPoint from, QPoint to);
    const clComplexImage& channel(Channel which) { return form().lab.channel(which); }
    double magnitude(Channel which, int u, int v);
};

}  // namespace quillon
