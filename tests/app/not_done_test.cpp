#include <string>

#include "tests/support/LabFixture.h"

namespace quillon {
namespace {

class NotDone : public LabFixture {
protected:
    std::string strip() { return cells[2].Caption; }
};

TEST_F(NotDone, AReportStaysUntilTheNextCommandWhichUncoversTheTextBelow) {
    lab.ShowStatus(2, "FT Phases Randomized");
    lab.runCommand([&] { lab.reportNotDone("not saved: the disk is full"); });
    EXPECT_EQ(strip(), "not saved: the disk is full");
    lab.runCommand([&] { EXPECT_EQ(strip(), "FT Phases Randomized"); });
    EXPECT_EQ(strip(), "FT Phases Randomized");
}

TEST_F(NotDone, AReportOutlastsWhatItsOwnCommandWritesAfterwards) {
    lab.runCommand([&] {
        lab.reportNotDone("not saved: the disk is full");
        lab.channel1.runFOURN(1);
        EXPECT_EQ(strip(), "");
    });
    EXPECT_EQ(strip(), "not saved: the disk is full");
    lab.runCommand([] {});
    EXPECT_EQ(strip(), "") << "the transform's own text comes back";
}

TEST_F(NotDone, OfSeveralReportsOfACommandTheLastIsShown) {
    lab.ShowStatus(2, "before");
    lab.runCommand([&] {
        lab.reportNotDone("not a picture: a.bmp");
        lab.reportNotDone("not a picture: b.bmp");
    });
    EXPECT_EQ(strip(), "not a picture: b.bmp");
    lab.runCommand([] {});
    EXPECT_EQ(strip(), "before");
}

TEST_F(NotDone, WhatIsWrittenBetweenTwoCommandsStays) {
    lab.runCommand([&] { lab.reportNotDone("no file to reload"); });
    lab.ShowStatus(2, "a=12.0");
    lab.runCommand([&] { EXPECT_EQ(strip(), "a=12.0"); });
    EXPECT_EQ(strip(), "a=12.0");
}

TEST_F(NotDone, ACommandInTheMidstOfAnotherIsTheNextOne) {
    lab.runCommand([&] {
        lab.reportNotDone("not a picture: a.bmp");
        lab.runCommand([] {});
    });
    EXPECT_EQ(strip(), "");
}

}  // namespace
}  // namespace quillon
