#include "analysis/lattice_points.h"

#include <algorithm>
#include <cmath>

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr Long kOverCover = 10;

/// How far off the panel a candidate is still computed, in pixels. The Singles
/// of a candidate err by far less, so none that lands on the panel is missed.
constexpr Double kMargin = 4;

/// Whole numbers from first to last, none where last is below first.
struct StepRange {
    Long first = 0;
    Long last = -1;
};

/// Steps to each side: Integers, as overflow tells.
Integer stepsToEachSide(Single side, Single firstStep, Single secondStep) {
    Single step = MaxOf(std::abs(secondStep), std::abs(firstStep));
    if (step == 0)
        step = 1;
    return toInteger(kOverCover * static_cast<Double>(toInteger(side / step)));
}

/// The steps j for which start + j * step can lie within the panel's side.
StepRange stepsWithin(Double start, Double step, Double side, StepRange all) {
    const Double low = -kMargin - start;
    const Double high = side + kMargin - start;
    if (step == 0)
        return low <= 0 && high >= 0 ? all : StepRange{};
    const Double a = std::min(low / step, high / step);
    const Double b = std::max(low / step, high / step);
    if (b < all.first || a > all.last)
        return {};
    return {static_cast<Long>(std::max<Double>(std::floor(a), all.first)),
            static_cast<Long>(std::min<Double>(std::ceil(b), all.last))};
}

}  // namespace

void plotLattice(PictureBox& pb, const LatticeBasis& basis) {
    const PointXY origin = basis.p0;
    const PointXY a{basis.p1.x - origin.x, basis.p1.y - origin.y};
    const PointXY b{basis.p2.x - origin.x, basis.p2.y - origin.y};
    pb.setAutoRedraw(true);
    const Integer n1 = stepsToEachSide(pb.ScaleWidth(), a.x, b.x);
    const Integer n2 = stepsToEachSide(pb.ScaleHeight(), a.y, b.y);
    // With a second vector of no length every j gives the same point.
    const StepRange all = b.x == 0 && b.y == 0 ? StepRange{0, 0} : StepRange{-n2, n2};
    for (Long i = -n1; i <= n1; ++i) {
        const auto step1 = static_cast<Single>(i);
        const Single rowX = origin.x + step1 * a.x;
        const Single rowY = origin.y + step1 * a.y;
        const StepRange inX = stepsWithin(rowX, b.x, pb.ScaleWidth(), all);
        const StepRange steps = stepsWithin(rowY, b.y, pb.ScaleHeight(), inX);
        for (Long j = steps.first; j <= steps.last; ++j) {
            const auto step2 = static_cast<Single>(j);
            const Single px = rowX + step2 * b.x;
            const Single py = rowY + step2 * b.y;
            // Beyond the right and lower edges the panel itself clips.
            if (px >= 0 && py >= 0)
                pb.SetPixelV(toLong(px), toLong(py), pb.ForeColor);
        }
    }
    pb.Refresh();
}

}  // namespace quillon
