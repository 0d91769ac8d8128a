#pragma once

#include "engine/Numbers.h"
#include "engine/PictureBox.h"

namespace quillon {

/// A point of an image panel, in pixels.
struct PointXY {
    Single x = 0;
    Single y = 0;
};

/// Three points that span a lattice: its origin and the ends of its two basis
/// vectors.
struct LatticeBasis {
    PointXY p0;
    PointXY p1;
    PointXY p2;
};

/// Plots the lattice p0 + i (p1 - p0) + j (p2 - p0) as single pixels in the
/// panel's ForeColor, persistently, and shows the panel. Every step is rounded to
/// a Single, and only points with neither coordinate below 0 are plotted. i and j
/// run over ten times as many steps of the longer vector as the panel is wide or
/// high, so that skewed bases still fill it. Throws RunTimeError Overflow where
/// that number does not fit an Integer.
void plotLattice(PictureBox& pb, const LatticeBasis& basis);

}  // namespace quillon
