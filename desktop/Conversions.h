#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <string>
#include <string_view>

#include "engine/Bitmap.h"
#include "engine/Control.h"
#include "engine/Numbers.h"

namespace quillon {

// The one place where the lab's texts, paths, lengths, colours and pictures turn
// into the toolkit's, and back.

/// A text of bytes as the user sees it: UTF-8, or Latin-1 where it isn't UTF-8.
QString toQString(std::string_view bytes);
/// The text as UTF-8.
std::string toBytes(const QString& text);

/// The native path under which a path of the lab is found, see NativePaths.h.
QString toNativePath(const std::string& path);
/// A path of the system as the lab writes it.
std::string toLabPath(const QString& path);

/// Whole pixels of the window for a length in twips.
int toPixels(Single twips);
/// Twips for a length in pixels of the window.
Single toTwips(double pixels);
/// A control's place within its parent, in pixels of the window.
QRect placeOf(const Control& control);

QColor toQColor(ColorValue color);
ColorValue toColorValue(const QColor& color);

/// The letters of a control. Sizes are given in points, but are fixed in pixels
/// of the window, 4 to 3 points, so that texts fit the places made for them
/// whatever the desktop's own idea of a point.
QFont toQFont(Font font, Single points, bool bold = false);

/// The words of a picture as they are, not copied: the picture must outlive the
/// image and keep its size.
QImage wrapped(const Bitmap& picture);
/// A picture of an image; what is transparent lies on white. The top byte of
/// every word is 0.
Bitmap toBitmap(const QImage& image);

}  // namespace quillon
