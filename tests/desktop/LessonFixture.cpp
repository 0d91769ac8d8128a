#include "tests/desktop/LessonFixture.h"

#include <cmath>

#include "desktop/Conversions.h"
#include "desktop/QtEnvironment.h"

namespace quillon {

namespace {

int around(int at) {
    return ((at % kSide) + kSide) % kSide;
}

QString programFolder() {
    return toNativePath(QtEnvironment().programFolder());
}

}  // namespace

Greys delivered(const char* name) {
    const QImage image(programFolder() + QStringLiteral("/Images/") + QLatin1String(name));
    EXPECT_EQ(image.size(), QSize(kSide, kSide)) << name;
    return [image](int x, int y) {
        return static_cast<double>(qGray(image.pixel(around(x), around(y))));
    };
}

Greys shown(const PictureBox& panel) {
    return [picture = panel.shown()](int x, int y) {
        return static_cast<double>(picture.at(around(x), around(y)) & 0xFF);
    };
}

double likeness(const Greys& one, const Greys& other) {
    double sumA = 0, sumB = 0, sumAA = 0, sumBB = 0, sumAB = 0;
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const double a = one(x, y);
            const double b = other(x, y);
            sumA += a;
            sumB += b;
            sumAA += a * a;
            sumBB += b * b;
            sumAB += a * b;
        }
    constexpr double kPixels = kSide * kSide;
    const double spread = (sumAA - sumA * sumA / kPixels) * (sumBB - sumB * sumB / kPixels);
    return (sumAB - sumA * sumB / kPixels) / std::sqrt(spread);
}

void Lessons::setUp(const char* script) {
    form().ReadScript(
        toLabPath(programFolder() + QStringLiteral("/Scripts/") + QLatin1String(script)));
    settle();
}

void Lessons::clickOn(const char* panelName, int x, int y) {
    PanelWidget& target = panel(panelName);
    press(target, pixel(target, x, y));
    release(target, pixel(target, x, y));
}

void Lessons::dragOn(const char* panelName, QPoint from, QPoint to) {
    PictureBox& box = dynamic_cast<PictureBox&>(form().control(panelName));
    const auto single = [](int number) { return static_cast<Single>(number); };
    form().MouseDown(box, kLeftButton, 0, single(from.x()), single(from.y()));
    form().MouseMove(box, kLeftButton, 0, single(to.x()), single(to.y()));
    form().MouseUp(box, kLeftButton, 0, single(to.x()), single(to.y()));
    settle();
}

double Lessons::magnitude(Channel which, int u, int v) {
    const auto& cell = channel(which).spectrum().at(around(u), around(v));
    return std::hypot(double{cell.re}, double{cell.im});
}

}  // namespace quillon
