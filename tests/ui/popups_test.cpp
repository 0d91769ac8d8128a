#include <initializer_list>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// Right-click menus and double clicks of the six panels.
class Popups : public CommandFixture {};

TEST_F(Popups, ARightPressOnAPanelOpensItsMenuAndDoesNothingElse) {
    const std::vector<std::string> titles = {"mnuImg1", "mnuFT1", "mnuNew1",
                                             "mnuImg2", "mnuFT2", "mnuNew2"};
    for (Integer panel = 1; panel <= 6; ++panel) {
        desktop.log.clear();
        const std::string& title = titles[static_cast<std::size_t>(panel - 1)];
        form.MouseDown(form.lab.panel(panel), kRightButton, 0, 40, 50);
        EXPECT_EQ(desktop.log, std::vector<std::string>{"host.popupMenu(" + title + ")"});
    }
    EXPECT_EQ(host.popups, titles);
}

TEST_F(Popups, OtherButtonsAndCombinationsOpenNoMenu) {
    for (Integer panel = 1; panel <= 6; ++panel)
        for (const Integer button : std::initializer_list<Integer>{1, 3, 4, 6, 7})
            press(form.lab.panel(panel), button, 0, 40, 50);
    EXPECT_TRUE(host.popups.empty());
}

TEST_F(Popups, TheChoiceComesThroughTheClickHandler) {
    host.onPopup = [&](std::string_view title) {
        EXPECT_EQ(title, "mnuFT2");
        form.click(MenuArray::mnuFT2a, 10);
    };
    form.MouseDown(form.pb5, kRightButton, 0, 40, 50);
    EXPECT_TRUE(form.lab.channel2.bLowpass);
}

TEST_F(Popups, APressThatOpenedAMenuEatsItsRelease) {
    host.onPopup = [&](std::string_view) { form.click(MenuArray::mnuFT1a, 12); };
    press(form.pb2, kRightButton, 0, 40, 50);
    EXPECT_TRUE(form.lab.channel1.bMask);
    EXPECT_EQ(form.lab.channel1.nmask, 0) << "the release would have made two masks";
    press(form.pb2, kLeftButton, 0, 40, 50);
    EXPECT_EQ(form.lab.channel1.nmask, 2) << "only one release is eaten";
}

TEST_F(Popups, AReleaseThatTheMenuKeptForItselfCostsNoLaterOne) {
    form.mnuFT1a(12);
    form.MouseDown(form.pb2, kRightButton, 0, 40, 50);
    form.MouseDown(form.pb2, kLeftButton, 0, 40, 50);
    form.MouseUp(form.pb2, kLeftButton, 0, 40, 50);
    EXPECT_EQ(form.lab.channel1.nmask, 2);
}

TEST_F(Popups, ARightPressNeverStartsABand) {
    form.mnuFT1a(12);
    form.bandStartX = -7;
    form.MouseDown(form.pb2, kRightButton, 0, 40, 50);
    EXPECT_EQ(form.bandStartX, -7);
}

TEST_F(Popups, ADoubleClickOnASpectrumTransformsForward) {
    for (const Channel which : kBoth) {
        desktop.log.clear();
        form.DblClick(spectrum(which));
        EXPECT_EQ(transforms(), 2);
        EXPECT_EQ(shown(spectrum(which)), 1);
    }
}

TEST_F(Popups, ADoubleClickOnAReconstructionTransformsBack) {
    for (const Channel which : kBoth) {
        desktop.log.clear();
        form.DblClick(reconstruction(which));
        EXPECT_EQ(transforms(), 1);
        EXPECT_EQ(shown(reconstruction(which)), 1);
        EXPECT_EQ(shown(spectrum(which)), 0);
    }
}

TEST_F(Popups, ADoubleClickOnAnImageDoesNothing) {
    for (const Channel which : kBoth)
        form.DblClick(image(which));
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(Popups, OnlySpectraAndReconstructionsHaveADoubleClick) {
    for (const Control* control : form.controls()) {
        const std::string& name = control->Name;
        EXPECT_EQ(form.hasDoubleClick(*control),
                  name == "pb2" || name == "pb3" || name == "pb5" || name == "pb6")
            << name;
    }
    EXPECT_FALSE(form.hasDoubleClick(form));
}

TEST_F(Popups, TheSecondReleaseOfADoubleClickReachesNoHandler) {
    form.mnuFT1a(12);
    press(form.pb2, kLeftButton, 0, 40, 50);
    ASSERT_EQ(form.lab.channel1.nmask, 2);
    form.DblClick(form.pb2);
    form.MouseUp(form.pb2, kLeftButton, 0, 40, 50);
    EXPECT_EQ(form.lab.channel1.nmask, 2);
    press(form.pb2, kLeftButton, 0, 60, 70);
    EXPECT_EQ(form.lab.channel1.nmask, 4);
}

}  // namespace
}  // namespace quillon
