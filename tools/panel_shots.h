#pragma once

#include <QImage>

#include "desktop/FormWindow.h"

namespace quillon {

/// A panel (1 to 6) as the window shows it, rings, masks and lines included and
/// without its border, a picture pixel to the panel pixel.
QImage panelShot(FormWindow& window, Form1& form, Integer panel);

/// The three panels of channel 1 or 2 side by side with narrow clear gaps, so
/// that the picture lies well on a light page and on a dark one.
QImage rowShot(FormWindow& window, Form1& form, Integer channel);

}  // namespace quillon
