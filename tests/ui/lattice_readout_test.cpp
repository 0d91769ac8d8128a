#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// Lengths and angle in the strip while a lattice is drawn.
class LatticeReadout : public CommandFixture {
protected:
    LatticeReadout() { form.mnuImg2b(1); }

    void first(Single x1, Single y1, Single x2, Single y2) {
        form.MouseDown(form.pb4, kLeftButton, 0, x1, y1);
        form.MouseUp(form.pb4, kLeftButton, 0, x2, y2);
    }
    std::string at(Single x, Single y) {
        form.MouseMove(form.pb4, kLeftButton, 0, x, y);
        return status(2);
    }
};

TEST_F(LatticeReadout, TheFirstDragTellsItsLength) {
    form.MouseDown(form.pb4, kLeftButton, 0, 10, 20);
    EXPECT_EQ(at(13, 24), "a=5.0");
    EXPECT_EQ(at(11, 21), "a=1.4");
    EXPECT_EQ(at(10, 20), "a=0.0");
    EXPECT_EQ(at(210, 20), "a=200.0");
}

TEST_F(LatticeReadout, TheSecondDragTellsBothLengthsAndTheAngle) {
    first(10, 20, 40, 20);
    form.MouseDown(form.pb4, kLeftButton, 0, 200, 200);
    EXPECT_EQ(at(10, 60), "a=30.0, b=40.0, angle=90.00 deg");
    EXPECT_EQ(at(20, 30), "a=30.0, b=14.1, angle=45.00 deg");
    EXPECT_EQ(at(13, 24), "a=30.0, b=5.0, angle=53.13 deg");
    EXPECT_EQ(at(13, 16), "a=30.0, b=5.0, angle=53.13 deg") << "the angle has no sign";
    EXPECT_EQ(at(70, 20), "a=30.0, b=60.0, angle=0.00 deg");
    EXPECT_EQ(at(0, 20), "a=30.0, b=10.0, angle=180.00 deg");
}

TEST_F(LatticeReadout, AVectorOfNoLengthStandsAtNinetyDegrees) {
    first(10, 20, 10, 20);
    EXPECT_EQ(at(13, 24), "a=0.0, b=5.0, angle=90.00 deg");
    EXPECT_EQ(at(10, 20), "a=0.0, b=0.0, angle=90.00 deg");
}

TEST_F(LatticeReadout, ThePointerOnTheOriginStandsAtNinetyDegrees) {
    first(10, 20, 40, 20);
    EXPECT_EQ(at(10, 20), "a=30.0, b=0.0, angle=90.00 deg");
}

TEST_F(LatticeReadout, TheUpperPanelTellsTheSame) {
    form.mnuImg1b(1);
    form.MouseDown(form.pb1, kLeftButton, 0, 10, 20);
    form.MouseMove(form.pb1, kLeftButton, 0, 13, 24);
    EXPECT_EQ(status(2), "a=5.0");
    form.MouseUp(form.pb1, kLeftButton, 0, 13, 24);
    form.MouseMove(form.pb1, kLeftButton, 0, 14, 17);
    EXPECT_EQ(status(2), "a=5.0, b=5.0, angle=90.00 deg");
}

TEST_F(LatticeReadout, AMoveWithoutTheLeftButtonTellsNothing) {
    form.MouseDown(form.pb4, kLeftButton, 0, 10, 20);
    form.ShowStatus(2, "before");
    form.MouseMove(form.pb4, 0, 0, 50, 50);
    form.MouseMove(form.pb4, kMiddleButton, 0, 50, 50);
    EXPECT_EQ(status(2), "before");
}

}  // namespace
}  // namespace quillon
