#include "tests/support/slow_renderer.h"

#include <cfenv>
#include <cmath>

namespace quillon::slow {

namespace {

Long rounded(double value) {
    // The rounding mode in force is the default, half to even.
    return static_cast<Long>(std::nearbyint(value));
}

double angle(double y, double x) {
    double result = 0;
    if (x == 0 && y == 0)
        return 0;
    if (x == 0) {
        result = 3.14159265358979 / 2;
        if (y < 0)
            result = result + 3.14159265358979;
    } else {
        result = std::atan(y / x);
        if (x < 0)
            result = result + 3.14159265358979;
    }
    if (result < 0)
        result = result + 6.28318530717958;
    return result;
}

/// The value of a cell by the view, or `before` in a view that does not exist.
Single valueOf(const ComplexCell& cell, Integer mView, Single before) {
    const double re = cell.re;
    const double im = cell.im;
    switch (mView) {
        case 0:
        case 1:
            return static_cast<Single>(std::sqrt(re * re + im * im));
        case 2:
            return phaseDegrees(cell.re, cell.im);
        case 3:
            return std::fabs(cell.re);
        case 4:
            return std::fabs(cell.im);
        default:
            return before;
    }
}

struct Extremes {
    bool allNumbers = true;
    Single vmax = 0;
    Single rmin = 0;
    Single rmax = 0;
};

Extremes firstPass(const ComplexGrid& data, Long w, Long h, const Look& look) {
    Extremes e;
    Single v = 0;
    for (Long i = 0; i < w; ++i)
        for (Long j = 0; j < h; ++j) {
            v = valueOf(data(i, j), look.mView, v);
            if (std::isnan(v))
                e.allNumbers = false;
            if (look.bSqrtScale)
                v = static_cast<Single>(std::sqrt(static_cast<double>(v)));
            if (!(v <= e.vmax))
                e.vmax = v;
            if (data(i, j).re < e.rmin)
                e.rmin = data(i, j).re;
            if (data(i, j).re > e.rmax)
                e.rmax = data(i, j).re;
        }
    return e;
}

Long colourOf(const ComplexCell& cell, Long g, Single ph, const Look& look, const Tables& tables) {
    const auto level = static_cast<std::size_t>(g);
    switch (look.mView) {
        case 0:
            return look.lutActive[level];
        case 1:
            return hsbToRgb(static_cast<Integer>(rounded(ph / 1.506)), 239,
                            static_cast<Integer>(rounded(static_cast<Single>(g) / 255.0F * 239.0F)),
                            1);
        case 2:
            return tables.hue[static_cast<std::size_t>(rounded(ph / 1.506))];
        case 3:
            return cell.re < 0 ? tables.re[255 - level] : tables.re[255 + level];
        default:
            return cell.im < 0 ? tables.im[255 - level] : tables.im[255 + level];
    }
}

Integer centredPosition(Long i, Long w) {
    if (i <= w / 2.0)
        return static_cast<Integer>(rounded(w / 2.0 + i - 1));
    return static_cast<Integer>(rounded(i - w / 2.0 - 1));
}

std::size_t cellsOf(Long w, Long h) {
    return static_cast<std::size_t>(w) * static_cast<std::size_t>(h);
}

}  // namespace

Long hsbToRgb(Integer h, Integer s, Integer b, Integer swap) {
    const Single H = static_cast<Single>(h) / 239.0F;
    const Single S = static_cast<Single>(s) / 239.0F;
    const Single L = static_cast<Single>(b) / 239.0F;
    Long bytes[3];
    for (int k = 0; k < 3; ++k) {
        Single colour = L;
        if (S != 0) {
            Single p = 0;
            if (L >= 0.5F)
                p = L + S - L * S;
            else
                p = (S + 1.0F) * L;
            const Single q = 2.0F * L - p;
            Single t = H;
            if (k == 0)
                t = H + 1.0F / 3.0F;
            if (k == 2)
                t = H - 1.0F / 3.0F;
            if (t < 0)
                t = t + 1.0F;
            if (t > 1)
                t = t - 1.0F;
            if (6.0F * t < 1)
                colour = q + (p - q) * 6.0F * t;
            else if (2.0F * t < 1)
                colour = p;
            else if (3.0F * t < 2)
                colour = q + (2.0F / 3.0F - t) * (p - q) * 6.0F;
            else
                colour = q;
        }
        bytes[k] = rounded(colour * 255.0F);
        if (bytes[k] > 255)
            bytes[k] = 255;
    }
    if (swap != 0)
        return bytes[2] + bytes[1] * 256 + bytes[0] * 65536;
    return bytes[0] + bytes[1] * 256 + bytes[2] * 65536;
}

Single phaseDegrees(Single re, Single im) {
    auto degrees = static_cast<Single>(angle(im, re) / 0.017453292519943278);
    if (degrees < 0)
        degrees = degrees + 360.0F;
    return degrees;
}

Tables makeTables() {
    Tables tables;
    for (Integer i = 0; i <= 255; ++i) {
        const auto up = static_cast<std::size_t>(255 + i);
        const auto down = static_cast<std::size_t>(255 - i);
        const auto at = static_cast<std::size_t>(i);
        tables.gray[at] = i + i * 256 + i * 65536;
        tables.hue[at] = hsbToRgb(static_cast<Integer>(rounded(i / 255.0 * 239.0)), 239, 128, 1);
        tables.re[up] = hsbToRgb(static_cast<Integer>(0), 239, i, 1);
        tables.re[down] = hsbToRgb(static_cast<Integer>(rounded(119.5)), 239, i, 1);
        tables.im[up] = hsbToRgb(static_cast<Integer>(rounded(89.625)), 239, i, 1);
        tables.im[down] = hsbToRgb(static_cast<Integer>(rounded(209.125)), 239, i, 1);
    }
    return tables;
}

Drawing drawSpectrum(const ComplexGrid& data, Long w, Long h, const Look& look,
                     const Tables& tables) {
    Drawing drawing;
    drawing.ftIndex.allocate(w, h);
    drawing.pix.assign(cellsOf(w, h), 0);
    drawing.relief.assign(cellsOf(w, h), 0);
    const Extremes extremes = firstPass(data, w, h, look);
    const Single vmax = extremes.vmax;
    if (extremes.allNumbers && vmax == 0)
        return drawing;
    if (!extremes.allNumbers || !std::isfinite(vmax)) {
        drawing.overflow = true;
        return drawing;
    }
    for (Long i = 0; i < w; ++i)
        for (Long j = 0; j < h; ++j) {
            const ComplexCell& cell = data(i, j);
            Single v = valueOf(cell, look.mView, 0);
            const Single ph = phaseDegrees(cell.re, cell.im);
            if (look.mView == 2)
                v = ph;
            const Integer xs = centredPosition(i, w);
            const Integer ys = centredPosition(j, h);
            drawing.ftIndex(xs, ys) = {static_cast<Integer>(i), static_cast<Integer>(j)};
            Single x = 0;
            if (look.bSqrtScale && look.mView != 2) {
                Single t = v / vmax;
                t = t * 255.0F;
                if (t < 1)
                    t = 0;
                else
                    t = static_cast<Single>(std::sqrt(static_cast<double>(t)));
                x = t * look.ifacSqrt;
            } else {
                x = v / vmax;
                x = x * 255.0F;
                x = x * look.ifacLinear;
            }
            if (!std::isfinite(x)) {
                drawing.overflow = true;
                return drawing;
            }
            Long g = rounded(x < 255.0F ? x : 255.0F);
            if (look.invert)
                g = 255 - g;
            const auto at = static_cast<std::size_t>(ys * w + xs);
            drawing.pix[at] = colourOf(cell, g, ph, look, tables);
            drawing.relief[at] = static_cast<Integer>(g);
        }
    drawing.drawn = true;
    return drawing;
}

Drawing drawReconstruction(const ComplexGrid& data, Long w, Long h, const Look& look) {
    Drawing drawing;
    drawing.pix.assign(cellsOf(w, h), 0);
    Extremes e = firstPass(data, w, h, look);
    if (e.vmax == 0)
        return drawing;
    if (!(e.rmin < e.rmax)) {
        e.rmin = e.rmin - 0.01F;
        e.rmax = e.rmax + 0.01F;
    }
    for (Long i = 0; i < w; ++i)
        for (Long j = 0; j < h; ++j) {
            const Single above = data(i, j).re - e.rmin;
            const Single product = above * 255.0F;
            const Single range = e.rmax - e.rmin;
            const Single level = product / range;
            if (!std::isfinite(above) || !std::isfinite(product) || !std::isfinite(range)) {
                drawing.overflow = true;
                return drawing;
            }
            Long g = rounded(level);
            if (g < 0)
                g = 0;
            if (look.invert)
                g = 255 - g;
            drawing.pix[static_cast<std::size_t>(j * w + i)] = g + g * 256 + g * 65536;
        }
    drawing.drawn = true;
    return drawing;
}

void drawRelief(const Drawing& spectrum, Long w, Long h, PictureBox& pbNEW) {
    pbNEW.Cls();
    for (Long r = 0; r < h; ++r)
        for (Long c = 0; c < w; ++c) {
            const auto at = static_cast<std::size_t>(r * w + c);
            const auto sx = static_cast<Integer>(rounded((c + 60) - r * 0.5));
            const auto sy = static_cast<Integer>(rounded((r + 90) - r * 0.5));
            const Long height = rounded(spectrum.relief[at] / 2.0);
            const Long word = spectrum.pix[at];
            const Long blue = word % 256;
            const Long green = (word & 65280) / 256;
            const Long red = (word & 16711680) / 65536;
            pbNEW.Line(sx, sy, sx, static_cast<Single>(sy - height), RGB(red, green, blue));
        }
}

Look lookOf(const clComplexImage& channel, Integer panel) {
    Look look;
    look.mView = channel.mView;
    look.bSqrtScale = channel.sqrtScale();
    look.ifacLinear = channel.linearFactor();
    look.ifacSqrt = channel.sqrtFactor();
    look.invert = channel.GetInvert(panel);
    look.lutActive = channel.activeTable();
    return look;
}

Bitmap reliefOn(const PictureBox& panel, const clComplexImage& channel) {
    const Long w = panel.Image().width;
    const Long h = panel.Image().height;
    PictureBox relief("relief", w, h);
    relief.setAutoRedraw(true);
    relief.setBackColor(panel.BackColor());
    relief.setPicture(panel.Picture());
    const Drawing drawing =
        drawSpectrum(channel.spectrum(), w, h, lookOf(channel, 1), makeTables());
    // Of an empty spectrum there is nothing to draw.
    if (drawing.drawn)
        drawRelief(drawing, w, h, relief);
    return relief.Image();
}

}  // namespace quillon::slow
