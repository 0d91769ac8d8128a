#include <cmath>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "ui/Form1.h"

namespace quillon {

namespace {

/// The centre of a panel on its scale of 0 to 255.
constexpr Single kPanelCentre = 255.0F / 2;

/// Brings a ring and its channel to a radius. The diameter is always odd, so
/// that the ring has a centre pixel; the channel gets the radius that is seen,
/// which is R rounded up to the next half. The corner is placed by R itself.
/// A negative radius is refused, as any negative size is, and changes nothing.
void setRing(Shape& ring, clComplexImage& channel, Single R) {
    if (R < 0)
        throw RunTimeError(ErrorNumber::InvalidPropertyValue);
    ring.Height = checkedSingle(2.0 * R);
    if (std::fmod(std::trunc(ring.Height.get()), 2.0F) == 0.0F)
        ring.Height = ring.Height + 1;
    ring.Width = ring.Height;
    ring.Top = kPanelCentre - R;
    ring.Left = ring.Top;
    ring.Tag = shortestText(ring.Height / 2);
    channel.SetFilterRad(ring.Height / 2);
}

}  // namespace

void Form1::SetFilterRings(Single R) {
    setRing(shp1(0), lab.channel1, R);
    setRing(shp1(1), lab.channel2, R);
}

void Form1::SetFilterRing(Integer c, Single R) {
    if (c == 0)
        setRing(shp1(0), lab.channel1, R);
    else
        setRing(shp1(1), lab.channel2, R);
}

}  // namespace quillon
