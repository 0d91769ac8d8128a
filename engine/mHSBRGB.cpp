#include "engine/mHSBRGB.h"

#include "engine/Color.h"

namespace quillon {

namespace {

constexpr Single kScale = 239.0F;
constexpr Single kThird = 1.0F / 3.0F;
constexpr Single kTwoThirds = 2.0F / 3.0F;

/// One component, 0 to 1 and above for lightnesses beyond the scale. `t` is the
/// place on the hue circle, `p` the component where it is strongest, `q` where
/// it is weakest.
Single component(Single t, Single p, Single q) {
    if (t < 0.0F)
        t += 1.0F;
    if (t > 1.0F)
        t -= 1.0F;
    if (6.0F * t < 1.0F)
        return q + (p - q) * 6.0F * t;
    if (2.0F * t < 1.0F)
        return p;
    if (3.0F * t < 2.0F)
        return q + (kTwoThirds - t) * (p - q) * 6.0F;
    return q;
}

Long toByte(Single component) {
    return toInteger(component * 255.0F);
}

}  // namespace

Long HSBtoRGB(Integer h, Integer s, Integer b, Integer swap) {
    const Single H = static_cast<Single>(h) / kScale;
    const Single S = static_cast<Single>(s) / kScale;
    const Single L = static_cast<Single>(b) / kScale;

    Single red = L;
    Single green = L;
    Single blue = L;
    if (S != 0.0F) {
        const Single p = L >= 0.5F ? L + S - L * S : (S + 1.0F) * L;
        const Single q = 2.0F * L - p;
        red = component(H + kThird, p, q);
        green = component(H, p, q);
        blue = component(H - kThird, p, q);
    }
    const ColorValue color = RGB(toByte(red), toByte(green), toByte(blue));
    return swap != 0 ? toPixelWord(color) : color.value;
}

}  // namespace quillon
