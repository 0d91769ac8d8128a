#include <initializer_list>

#include "engine/RunTimeError.h"
#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// The iFT menus, clicked by index on both channels.
class ReconstructionMenu : public CommandFixture {
protected:
    void click(Channel which, Integer index) { form.click(array(which), index); }
    static MenuArray array(Channel which) {
        return which == Channel::One ? MenuArray::mnuNew1a : MenuArray::mnuNew2a;
    }
};

TEST_F(ReconstructionMenu, EveryIndexLetsTheEventLoopRunFirst) {
    for (const Channel which : kBoth)
        for (const Integer index : std::initializer_list<Integer>{-1, 0, 1, 2, 5, 8, 9, 10, 11}) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(desktop.log.front(), "screen.pendingEvents()") << index;
        }
}

TEST_F(ReconstructionMenu, SeparatorsAndIndicesBeyondTheLastDoNothing) {
    for (const Channel which : kBoth)
        for (const Integer index : std::initializer_list<Integer>{-1, 1, 5, 8, 11, 99}) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(desktop.log, std::vector<std::string>{"screen.pendingEvents()"}) << index;
        }
}

TEST_F(ReconstructionMenu, InverseFtReconstructsItsOwnChannel) {
    for (const Channel which : kBoth) {
        const Bitmap before = reconstruction(which).Image();
        reconstruction(which).setBackColor(kRed);
        desktop.log.clear();
        click(which, 0);
        EXPECT_EQ(reconstruction(which).Image(), before);
        EXPECT_EQ(transforms(), 1);
    }
}

TEST_F(ReconstructionMenu, CopySaveAndPrintWorkOnItsOwnPanel) {
    for (const Channel which : kBoth) {
        click(which, 2);
        EXPECT_EQ(desktop.clipboard.content, reconstruction(which).Image());
        desktop.dialogs.answerSave("C:\\saved.bmp");
        click(which, 3);
        EXPECT_EQ(desktop.pictures.saved.back().second, reconstruction(which).Image());
        desktop.printer.marks.clear();
        click(which, 4);
        EXPECT_EQ(desktop.printer.marks[0].text, "FFT - " + channel(which).sfile + "!");
    }
}

TEST_F(ReconstructionMenu, AFailingPrinterIsAnErrorAtTheHandler) {
    desktop.printer.failingCall = "print";
    EXPECT_EQ(errorOf([&] { click(Channel::One, 4); }), ErrorNumber::PrinterError);
    EXPECT_EQ(errorOf([&] { clickFilter(Channel::Two, 4); }), ErrorNumber::PrinterError);
}

TEST_F(ReconstructionMenu, InvertImageTogglesItsMarkAndRedraws) {
    for (const Channel which : kBoth) {
        const Bitmap before = reconstruction(which).Image();
        click(which, 6);
        EXPECT_TRUE(form.menu(array(which), 6).Checked);
        EXPECT_TRUE(channel(which).GetInvert(2));
        EXPECT_EQ(reconstruction(which).Image().at(3, 3), 0xFFFFFF - before.at(3, 3));
        click(which, 6);
        EXPECT_FALSE(form.menu(array(which), 6).Checked);
        EXPECT_EQ(reconstruction(which).Image(), before);
    }
}

TEST_F(ReconstructionMenu, TheHalfShiftSwapsQuadrantsOnThePanelAlone) {
    for (const Channel which : kBoth) {
        const Bitmap before = reconstruction(which).Image();
        const Single value = channel(which).reconstruction()(40, 50).re;
        desktop.log.clear();
        click(which, 9);
        const Bitmap after = reconstruction(which).Image();
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                ASSERT_EQ(after.at(x, y), before.at((x + 128) % 256, (y + 128) % 256));
        EXPECT_EQ(channel(which).reconstruction()(40, 50).re, value);
        EXPECT_EQ(transforms(), 0);
        EXPECT_EQ(shown(reconstruction(which)), 1);
        click(which, 9);
        EXPECT_EQ(reconstruction(which).Image(), before);
    }
}

TEST_F(ReconstructionMenu, ViewFtSurfaceDrawsTheReliefOnItsOwnPanel) {
    for (const Channel which : kBoth) {
        const Bitmap before = reconstruction(which).Image();
        click(which, 10);
        EXPECT_EQ(reconstruction(which).Tag, "3D");
        EXPECT_NE(reconstruction(which).Image(), before);
    }
}

}  // namespace
}  // namespace quillon
