#include <gtest/gtest.h>

#include <array>

#include "engine/Version.h"
#include "tests/support/CommandFixture.h"
#include "ui/frmAbout.h"

namespace quillon {
namespace {

class AboutBox : public ::testing::Test {
protected:
    RecordingDesktop desktop;
    frmAbout about{desktop.screen};
};

using Place = std::array<Single, 4>;

Place placeOf(const Control& control) {
    return {control.Left, control.Top, control.Width, control.Height};
}

TEST_F(AboutBox, IsWhiteAndHoldsItsControlsInTheirPlaces) {
    EXPECT_EQ(about.Width, 5805);
    EXPECT_EQ(about.Height, 3210);
    EXPECT_EQ(about.BackColor(), kWhite);
    EXPECT_EQ(placeOf(about.lblVersion), (Place{600, 1320, 705, 180}));
    EXPECT_EQ(placeOf(about.lblTitle), (Place{165, 2025, 5535, 360}));
    EXPECT_EQ(placeOf(about.lblDescription), (Place{150, 2625, 5445, 705}));
    EXPECT_EQ(placeOf(about.cmdOK), (Place{5010, 2715, 615, 345}));
}

TEST_F(AboutBox, HasItsLettersAndTexts) {
    EXPECT_EQ(about.Name, "frmAbout");
    EXPECT_EQ(about.lblVersion.FontName.get(), Font::Arial);
    EXPECT_EQ(about.lblTitle.FontName.get(), Font::TimesNewRoman);
    EXPECT_TRUE(about.lblTitle.FontBold);
    EXPECT_EQ(about.lblTitle.Caption.get(), "Quillon - Classroom Edition");
    EXPECT_EQ(about.lblDescription.FontName.get(), Font::Arial);
    EXPECT_EQ(about.cmdOK.Caption.get(), "OK");
    EXPECT_EQ(about.cmdOK.ToolTipText.get(), "Close About Box");
    // As built; the load puts in what this program is.
    EXPECT_EQ(about.lblVersion.Caption.get(), "Version 1.0");
}

TEST_F(AboutBox, LoadsCaptionVersionAndCreditsInThisOrder) {
    RecordingWatcher watcher;
    for (Control* control :
         {static_cast<Control*>(&about), static_cast<Control*>(&about.lblVersion),
          static_cast<Control*>(&about.lblTitle), static_cast<Control*>(&about.lblDescription)})
        control->watch(&watcher);
    about.Form_Load();
    EXPECT_EQ(watcher.log, (std::vector<std::string>{"stale frmAbout", "stale lblVersion",
                                                     "stale lblDescription"}));
    EXPECT_EQ(about.Caption.get(), "About Quillon");
    EXPECT_EQ(about.lblVersion.Caption.get(), "Version " + std::to_string(kVersionMajor) + "." +
                                                  std::to_string(kVersionMinor) + "." +
                                                  std::to_string(kVersionRevision));
    EXPECT_EQ(about.lblDescription.Caption.get(),
              "Programming:  Lab programmer (www.brindlewood.example)\n"
              "Images and Tutorial:  Co-author (images), Co-author (tutorial)");
}

TEST_F(AboutBox, APressOnTheBoxOrALabelDragsTheBoxUnderFourArrows) {
    for (Control* where :
         {static_cast<Control*>(&about), static_cast<Control*>(&about.lblVersion),
          static_cast<Control*>(&about.lblTitle), static_cast<Control*>(&about.lblDescription)}) {
        about.MousePointer = kPointerDefault;
        desktop.screen.dragged.clear();
        about.MouseDown(*where, kLeftButton, 0);
        EXPECT_EQ(about.MousePointer, 15) << where->Name;
        EXPECT_EQ(desktop.screen.dragged, std::vector<std::string>{"frmAbout"}) << where->Name;
    }
}

TEST_F(AboutBox, AnotherPressSetsThePointerAndDragsNothing) {
    constexpr std::pair<Integer, Integer> kPresses[] = {
        {kRightButton, 0},       {kMiddleButton, 0},     {kLeftButton, kShiftKey},
        {kLeftButton, kCtrlKey}, {kLeftButton, kAltKey}, {kLeftButton + kRightButton, 0},
    };
    for (const auto& [button, shift] : kPresses) {
        about.MousePointer = kPointerDefault;
        about.MouseDown(about.lblTitle, button, shift);
        EXPECT_EQ(about.MousePointer, 15) << button << " " << shift;
    }
    EXPECT_TRUE(desktop.screen.dragged.empty());
}

TEST_F(AboutBox, TheButtonUnloadsTheBoxAndDoesNotDragIt) {
    about.MouseDown(about.cmdOK, kLeftButton, 0);
    EXPECT_EQ(about.MousePointer, kPointerDefault);
    EXPECT_TRUE(desktop.screen.dragged.empty());
    about.Click(about.lblTitle);
    EXPECT_FALSE(about.isUnloaded());
    about.Click(about.cmdOK);
    EXPECT_TRUE(about.isUnloaded());
}

TEST_F(CommandFixture, AboutShowsALoadedBoxAnewAtEachOpening) {
    int openings = 0;
    host.onShowAbout = [&](frmAbout& about) {
        ++openings;
        EXPECT_EQ(about.Caption.get(), "About Quillon");
        EXPECT_EQ(about.MousePointer, kPointerDefault);
        EXPECT_FALSE(about.isUnloaded());
        about.MouseDown(about, kRightButton, 0);
        about.Click(about.cmdOK);
    };
    desktop.log.clear();
    form.click(MenuArray::itm10, 4);
    form.click(MenuArray::itm10, 4);
    EXPECT_EQ(openings, 2);
    EXPECT_EQ(desktop.log, (std::vector<std::string>(2, "host.showModal(frmAbout)")));
    EXPECT_EQ(form.lab.viewTab, 0);
}

TEST_F(CommandFixture, AboutWithoutAWindowShowsNothing) {
    form.setHost(nullptr);
    EXPECT_NO_THROW(form.click(MenuArray::itm10, 4));
}

}  // namespace
}  // namespace quillon
