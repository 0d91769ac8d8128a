#include "app/printing.h"

#include "tests/support/LabFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

class Printing : public LabFixture {
protected:
    Printing() {
        channel1.file = "C:\\Q\\Images\\cat.jpg";
        channel2.file = "C:\\Q\\Images\\dog.jpg";
        pb2.Tag = "!";
        pb5.Tag = "3D";
        const std::array<PictureBox*, 6> panels{&pb1, &pb2, &pb3, &pb4, &pb5, &pb6};
        for (std::size_t i = 0; i < panels.size(); ++i)
            panels[i]->setBackColor(ColorValue{static_cast<Long>(i) + 1});
        desktop.printer.portraitWidth = 12000;
        desktop.printer.currentOrientation = 2;
        desktop.log.clear();
    }
};

TEST_F(Printing, PrintsATitleAndThreeFramedPanelsSideBySide) {
    PrintPanel(lab, 2);
    EXPECT_EQ(desktop.log, (std::vector<std::string>{
                               "printer.orientation()",
                               "printer.setOrientation(1)",
                               "printer.setCurrentPosition(0, 0)",
                               "printer.pageWidth()",
                               "printer.print(FFT - cat.jpg!)",
                               "printer.paintPicture(256x256, 0, 400, 4000, 4000)",
                               "printer.box(0, 400, 4000, 4000)",
                               "printer.paintPicture(256x256, 4000, 400, 4000, 4000)",
                               "printer.box(4000, 400, 4000, 4000)",
                               "printer.paintPicture(256x256, 8000, 400, 4000, 4000)",
                               "printer.box(8000, 400, 4000, 4000)",
                               "printer.endDocument()",
                               "printer.setOrientation(2)",
                           }));
}

TEST_F(Printing, PrintsImageSpectrumAndReconstructionOfThePanelsChannel) {
    for (const Integer panel : std::initializer_list<Integer>{1, 2, 3, 4, 5, 6}) {
        desktop.printer.marks.clear();
        PrintPanel(lab, panel);
        const auto& marks = desktop.printer.marks;
        ASSERT_EQ(marks.size(), 7U);
        for (Integer i = 0; i < 3; ++i) {
            const Integer shown = static_cast<Integer>((panel < 4 ? 1 : 4) + i);
            EXPECT_EQ(marks[static_cast<std::size_t>(1 + 2 * i)].picture, lab.panel(shown).Image())
                << "panel " << panel << ", picture " << i;
        }
    }
}

TEST_F(Printing, BothChannelsPrintTheMarkOfTheUpperSpectrum) {
    PrintPanel(lab, 6);
    EXPECT_EQ(desktop.printer.marks[0].text, "FFT - dog.jpg!");
}

TEST_F(Printing, ThePanelsKeepTheRatioOfTheFirstOne) {
    PictureBox wide{"pb1", 256, 128};
    Lab wideLab{.desktop = desktop.desktop(),
                .folders = {},
                .channel1 = channel1,
                .channel2 = channel2,
                .pb1 = wide,
                .pb2 = pb2,
                .pb3 = pb3,
                .pb4 = pb4,
                .pb5 = pb5,
                .pb6 = pb6,
                .mem = mem,
                .img = img,
                .lbSTB = {&cells[0], &cells[1], &cells[2]},
                .dimmed = {}};
    PrintPanel(wideLab, 5);
    EXPECT_EQ(desktop.printer.marks[1].width, 4000);
    EXPECT_EQ(desktop.printer.marks[1].height, 2000);
    EXPECT_EQ(desktop.printer.marks[2].height, 2000);
}

TEST_F(Printing, AFailingPrinterIsAnErrorAtTheCaller) {
    for (const char* call : {"orientation", "setOrientation", "setCurrentPosition", "pageWidth",
                             "print", "paintPicture", "box", "endDocument"}) {
        desktop.printer.failingCall = call;
        EXPECT_EQ(errorOf([&] { PrintPanel(lab, 1); }), ErrorNumber::PrinterError) << call;
    }
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

}  // namespace
}  // namespace quillon
