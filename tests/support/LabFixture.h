#pragma once

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "app/Lab.h"
#include "tests/support/ChannelUnderTest.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {

/// A lab without a window: two bound channels on black panels, over a recording
/// desktop.
class LabFixture : public ::testing::Test {
protected:
    LabFixture() {
        mem.setAutoRedraw(true);
        mem.AutoSize = true;
        img.setAutoRedraw(true);
        for (PictureBox* panel : {&pb1, &pb2, &pb3, &pb4, &pb5, &pb6})
            panel->setBackColor(kBlack);
        channel1.SetMessageLabel(cells[2]);
        channel1.SetCanvas(pb1, pb2, pb3, 1);
        channel1.SetDimensionFFT(256);
        channel2.SetMessageLabel(cells[2]);
        channel2.SetCanvas(pb4, pb5, pb6, 2);
        channel2.SetDimensionFFT(256);
        // The tables come into force without a redraw.
        channel1.SetFTView(0, 1);
        channel2.SetFTView(0, 1);
        desktop.files.addFolder(lab.folders.ImagePath);
        desktop.log.clear();
    }

    RecordingDesktop desktop;
    RecordingMaskPainter masks{desktop.log};
    Rnd rnd;
    clComplexImage channel1{desktop.desktop(), masks, rnd};
    clComplexImage channel2{desktop.desktop(), masks, rnd};
    PictureBox pb1{"pb1", 256, 256};
    PictureBox pb2{"pb2", 256, 256};
    PictureBox pb3{"pb3", 256, 256};
    PictureBox pb4{"pb4", 256, 256};
    PictureBox pb5{"pb5", 256, 256};
    PictureBox pb6{"pb6", 256, 256};
    PictureBox mem{"mem", 83, 42};
    PictureBox img{"img", 33, 35};
    std::array<Label, 3> cells{Label("lbSTB(0)"), Label("lbSTB(1)"), Label("lbSTB(2)")};
    Lab lab{.desktop = desktop.desktop(),
            .folders = {.UserRoot = "C:\\Q\\",
                        .ImagePath = "C:\\Q\\Images\\",
                        .ScriptPath = "C:\\Q\\Scripts\\",
                        .DocPath = "C:\\Quillon\\doc\\",
                        .LibPath = "C:\\Quillon\\Lib\\",
                        .LibPath2 = "C:\\Quillon\\Lib\\"},
            .channel1 = channel1,
            .channel2 = channel2,
            .pb1 = pb1,
            .pb2 = pb2,
            .pb3 = pb3,
            .pb4 = pb4,
            .pb5 = pb5,
            .pb6 = pb6,
            .mem = mem,
            .img = img,
            .lbSTB = {&cells[0], &cells[1], &cells[2]},
            .dimmed = {}};
};

}  // namespace quillon
