#pragma once

#include <QDialog>

namespace quillon {

/// The width of a dialog in pixels at which a window manager shows its title
/// whole: in bold letters, beside an icon and three buttons.
int widthForTitle(const QDialog& dialog);

}  // namespace quillon
