#include <gtest/gtest.h>

#include <QInputDialog>
#include <QLineEdit>
#include <QTest>

#include "tests/desktop/AnsweredWindow.h"
#include "tests/support/slow_renderer.h"

// The relief of a spectrum in the real window: how it follows the intensity and
// the view, and how the reconstruction comes back.

namespace quillon {
namespace {

struct Side {
    const char* surface;
    const char* inverse;
    const char* reconstruction;
    const char* minus;
    const char* plus;
};

class SurfaceInTheWindow : public AnsweredWindow, public ::testing::WithParamInterface<Channel> {
protected:
    bool first() const { return GetParam() == Channel::One; }
    Side side() const {
        return first() ? Side{"mnuNew1a(10)", "mnuNew1a(0)", "pb3", "lbBR1(0)", "lbBR1(1)"}
                       : Side{"mnuNew2a(10)", "mnuNew2a(0)", "pb6", "lbBR2(0)", "lbBR2(1)"};
    }
    const clComplexImage& channel() { return form().lab.channel(GetParam()); }
    PictureBox& box() { return first() ? form().pb3 : form().pb6; }
    PictureBox& spectrum() { return first() ? form().pb2 : form().pb5; }
    void expectSurface() {
        EXPECT_EQ(box().Tag, "3D");
        EXPECT_EQ(box().Image(), slow::reliefOn(box(), channel()));
        EXPECT_NE(box().Image(), reconstruction_);
    }
    void expectReconstruction() {
        EXPECT_EQ(box().Tag, "!");
        EXPECT_EQ(box().Image(), reconstruction_);
    }
    void showSurface() {
        reconstruction_ = box().Image();
        chooseOn(side().reconstruction, side().surface);
        expectSurface();
    }

private:
    Bitmap reconstruction_;
};

TEST_P(SurfaceInTheWindow, ComesFromTheMenuOfTheReconstructionPanelItPaintsOver) {
    const Bitmap before = spectrum().Image();
    const Bitmap other = (first() ? form().pb6 : form().pb3).Image();
    showSurface();
    EXPECT_EQ(spectrum().Image(), before);
    EXPECT_EQ((first() ? form().pb6 : form().pb3).Image(), other);
}

TEST_P(SurfaceInTheWindow, FollowsAHeldIntensityControlWhenItIsLetGo) {
    showSurface();
    for (const char* name : {side().plus, side().minus}) {
        const Bitmap relief = box().Image();
        const std::string factor = form().lab.channel(GetParam()).getIntFac();
        QWidget& control = widget(name);
        press(control, {5, 5});
        // The timer repeats the step, in the real time of the event loop.
        const Bitmap flat = spectrum().Image();
        ASSERT_TRUE(QTest::qWaitFor([&] { return spectrum().Image() != flat; })) << name;
        EXPECT_EQ(box().Image(), relief) << "while it is held only the flat picture steps";
        release(control, {5, 5});
        settle();
        EXPECT_NE(form().lab.channel(GetParam()).getIntFac(), factor);
        EXPECT_NE(box().Image(), relief) << name;
        expectSurface();
    }
}

TEST_P(SurfaceInTheWindow, FollowsAnIntensityThatIsTypedIn) {
    showSurface();
    const Bitmap relief = box().Image();
    answers.next<QInputDialog>([](QInputDialog& dialog) {
        auto& line = *dialog.findChild<QLineEdit*>();
        QTest::keyClicks(&line, QStringLiteral("3.5"));
        QTest::keyClick(&line, Qt::Key_Return);
    });
    press(widget(side().plus), {5, 5}, Qt::RightButton);
    release(widget(side().plus), {5, 5}, Qt::RightButton);
    settle();
    EXPECT_EQ(channel().sqrtFactor(), 3.5F);
    EXPECT_NE(box().Image(), relief);
    expectSurface();
}

TEST_P(SurfaceInTheWindow, FollowsTheViewOfTheOptionsMenu) {
    showSurface();
    for (const char* view :
         {"itmOpt(13)", "itmOpt(14)", "itmOpt(15)", "itmOpt(16)", "itmOpt(12)"}) {
        const Bitmap relief = box().Image();
        choose("mnuOpt", view);
        EXPECT_NE(box().Image(), relief) << view;
        expectSurface();
    }
}

TEST_P(SurfaceInTheWindow, GivesWayToTheReconstructionWhereTheInverseTransformRuns) {
    showSurface();
    chooseOn(side().reconstruction, side().inverse);
    expectReconstruction();
    showSurface();
    doubleClick(panel(side().reconstruction), pixel(panel(side().reconstruction), 50, 50));
    expectReconstruction();
    showSurface();
    QTest::keyClick(window().windowHandle(), Qt::Key_Return);
    settle();
    expectReconstruction();
    // No longer a surface, so the intensity leaves the panel alone.
    press(widget(side().plus), {5, 5});
    release(widget(side().plus), {5, 5});
    settle();
    expectReconstruction();
}

INSTANTIATE_TEST_SUITE_P(OfBothChannels, SurfaceInTheWindow,
                         ::testing::Values(Channel::One, Channel::Two), [](const auto& about) {
                             return about.param == Channel::One ? "First" : "Second";
                         });

}  // namespace
}  // namespace quillon
