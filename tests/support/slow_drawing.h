#pragma once

#include "analysis/lattice_points.h"
#include "engine/Bitmap.h"
#include "engine/PictureBox.h"

// What the drawing tools leave on a picture, as plain loops over all its points.
namespace quillon::slow {

/// A line of a pen of any width: at each step along the longer side the pixel
/// nearest to the true line, the smaller coordinate of two equally near ones, but
/// not the last. A pen covers its block there, of width 2 the 2 by 2 block whose
/// lower right pixel is the point; a line of no length is one dot of a pen wider
/// than a pixel. Each pixel takes the ink as it is.
void line(Bitmap& picture, PanelPoint from, PanelPoint to, int pen, PixelWord ink);

/// One dot of the pen.
void dot(Bitmap& picture, PanelPoint at, int pen, PixelWord ink);

/// White lattice points on black, by the double loop over all i and j.
Bitmap lattice(int width, int height, const LatticeBasis& basis);

/// The picture moved by (dx, dy) on a torus, for moves within its own size.
Bitmap rolled(const Bitmap& picture, int dx, int dy);

}  // namespace quillon::slow
