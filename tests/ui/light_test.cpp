#include <string>
#include <vector>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

using enum MenuArray;

class Light : public CommandFixture {
protected:
    Light() {
        // A window with a side border of 4 pixels, 50 pixels above the client
        // area and a lower border of 6.
        form.Move(100 * 15, 60 * 15, (900 + 8) * 15, (660 + 56) * 15);
        form.resized(900 * 15, 660 * 15);
        form.itmOpt0(0);
        desktop.log.clear();
    }
    void lightOff() { form.Click(form.imgDIM); }
    void fadeIn() {
        while (form.dim.Timer1.Enabled)
            form.dim.Timer1_Timer();
    }
    /// Fades the dark out to its end.
    void lightOn() {
        form.dim.unload();
        fadeIn();
    }
    void showTutorial() { form.Click(form.lbTAB(1)); }
    ColorValue color(std::size_t i) { return form.lab.guiColors[i]; }
    bool isLit(Integer panel) {
        const Bitmap& shown = form.lab.panel(panel).Image();
        return shown == Bitmap(256, 256, toPixelWord(color(1)));
    }
    std::vector<Control*> grounds() {
        return {&form,     &form.frt1, &form.fr1, &form.fr2,
                &form.fr3, &form.fr4,  &form.fr5, &form.fr6};
    }
    std::vector<Label*> intensities() {
        return {&form.lbBR1(0), &form.lbBR1(1), &form.lbBR2(0), &form.lbBR2(1)};
    }
};

TEST_F(Light, OffCutsTheHoleThreePixelsAroundThePanels) {
    lightOff();
    EXPECT_EQ(form.holeRect.Left, form.frt1.Left + (100 + 4 - 3) * 15);
    // Title bar, menu bar and the lower border together stand above the client area.
    EXPECT_EQ(form.holeRect.Top, form.frt1.Top + (60 + 50 + 6 - 3) * 15);
    EXPECT_EQ(form.holeRect.Width, 12345 + 6 * 15);
    EXPECT_EQ(form.holeRect.Height, 8535 + 6 * 15);
}

TEST_F(Light, OffCutsTheHoleAroundTheBrowserInTheTutorialView) {
    showTutorial();
    lightOff();
    EXPECT_EQ(form.holeRect.Left, 90 + (100 + 4) * 15);
    EXPECT_EQ(form.holeRect.Top, 480 + (60 + 50 + 6) * 15);
    EXPECT_EQ(form.holeRect.Width, form.ie5.Width);
    EXPECT_EQ(form.holeRect.Width, 900 * 15 - 180);
    EXPECT_EQ(form.holeRect.Height, form.ie5.Height - 3 * 15);
}

TEST_F(Light, OffMakesTheWindowDark) {
    lightOff();
    for (const Control* ground : grounds())
        EXPECT_EQ(ground->BackColor(), RGB(33, 33, 33)) << ground->Name;
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.frame(panel).BorderStyle, 0) << panel;
    for (const Label* label : intensities()) {
        EXPECT_EQ(label->BackStyle, 0) << label->Name;
        EXPECT_EQ(label->ForeColor, RGB(93, 93, 93)) << label->Name;
    }
    for (const Control* hidden :
         std::initializer_list<Control*>{&form.lbTAB(0), &form.lbTAB(1), &form.btLUT, &form.stb})
        EXPECT_FALSE(hidden->Visible) << hidden->Name;
    EXPECT_TRUE(form.imgDIM.Visible);
    EXPECT_EQ(form.Tag, "DIM");
}

TEST_F(Light, OffTakesTheDimmedPairOfTheScheme) {
    form.ApplyGuiColors(kWhite, kBlack, kRed, RGB(1, 2, 3), RGB(4, 5, 6));
    lightOff();
    EXPECT_EQ(form.BackColor(), RGB(1, 2, 3));
    EXPECT_EQ(form.lbBR2(1).ForeColor, RGB(4, 5, 6));
}

TEST_F(Light, OffKeepsTheColoursInTheTutorialView) {
    form.lab.channel1.file.clear();
    const Bitmap spectrum1 = form.pb2.Image();
    const ColorValue behind = form.pb2.BackColor();
    showTutorial();
    lightOff();
    EXPECT_EQ(form.pb2.Image(), spectrum1);
    EXPECT_EQ(form.pb2.BackColor(), behind);
    for (const Control* ground : grounds())
        EXPECT_EQ(ground->BackColor(), color(0)) << ground->Name;
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.frame(panel).BorderStyle, 1);
    for (const Label* label : intensities())
        EXPECT_EQ(label->BackStyle, 1);
    EXPECT_TRUE(form.lbTAB(0).Visible);
    EXPECT_TRUE(form.lbTAB(1).Visible);
    EXPECT_FALSE(form.stb.Visible);
    EXPECT_EQ(form.Tag, "DIM");
}

TEST_F(Light, OffTakesTheViewBeforeTheFirstTabForTheLab) {
    ASSERT_EQ(form.lab.viewTab, 0);
    lightOff();
    EXPECT_EQ(form.BackColor(), RGB(33, 33, 33));
}

TEST_F(Light, OffMergesThePanelsOfAChannelWithoutAFileWithTheDark) {
    for (const Channel which : kBoth) {
        form.lab.channel1.file = "a.bmp";
        form.lab.channel2.file = "b.bmp";
        channel(which).file.clear();
        const Bitmap drawn = image(which).Image();
        const Channel other = which == Channel::One ? Channel::Two : Channel::One;
        const Bitmap kept = spectrum(other).Image();
        const Bitmap keptToo = reconstruction(other).Image();
        lightOff();
        const Bitmap dark(256, 256, toPixelWord(RGB(93, 93, 93)));
        EXPECT_EQ(spectrum(which).Image(), dark);
        EXPECT_EQ(reconstruction(which).Image(), dark);
        EXPECT_EQ(spectrum(which).BackColor(), RGB(93, 93, 93));
        EXPECT_EQ(spectrum(other).Image(), kept);
        EXPECT_EQ(reconstruction(other).Image(), keptToo);
        EXPECT_EQ(image(which).Image(), drawn);
        lightOn();
    }
}

TEST_F(Light, OffShowsTheDarkAfterItsOwnLookAndBeforeTheTag) {
    bool prepared = false;
    host.onPrepareDark = [&] {
        // The window may take the whole screen first; the hole follows it.
        prepared = true;
        form.Move(0, 0, 1920 * 15, 1080 * 15);
        form.resized(1920 * 15, 1060 * 15);
        desktop.log.clear();
    };
    std::string tagWhenShown = "never shown";
    host.onShowOwned = [&] { tagWhenShown = form.Tag; };
    lightOff();
    EXPECT_TRUE(prepared);
    EXPECT_EQ(tagWhenShown, "");
    EXPECT_EQ(form.Tag, "DIM");
    EXPECT_EQ(form.holeRect.Top, form.frt1.Top + 20 * 15 - 3 * 15);
    EXPECT_LT(placeOf("stale fr1"), desktop.log.size());
    EXPECT_LT(placeOf("stale fr1"), placeOf("stale stb"));
    EXPECT_LT(placeOf("stale stb"), placeOf("host.showOwned(frmDIM)"));
    EXPECT_EQ(host.dimHost.hole.left, toLong(form.holeRect.Left / 15));
}

TEST_F(Light, TheLKeyTurnsItOffInTheLabAloneAndTheLampEverywhere) {
    for (const Integer key : {Integer{'l'}, Integer{'L'}})
        for (const Integer view : {Integer{0}, Integer{1}}) {
            form.lab.viewTab = view;
            form.KeyPress(key);
            EXPECT_EQ(form.Tag, "DIM") << view;
            lightOn();
            EXPECT_EQ(form.Tag, "");
        }
    showTutorial();
    form.KeyPress('l');
    form.KeyPress('L');
    EXPECT_EQ(form.Tag, "") << "in the tutorial it is a letter";
    EXPECT_FALSE(form.dim.isLoaded());
    lightOff();
    EXPECT_EQ(form.Tag, "DIM");
    EXPECT_EQ(form.holeRect.Width, form.ie5.Width);
}

TEST_F(Light, OnIsTheLookOfBefore) {
    lightOff();
    fadeIn();
    lightOn();
    EXPECT_EQ(form.Tag, "");
    EXPECT_FALSE(form.dim.isLoaded());
    for (const Control* ground : grounds())
        EXPECT_EQ(ground->BackColor(), RGB(151, 190, 223)) << ground->Name;
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.frame(panel).BorderStyle, 1) << panel;
    for (const Label* label : intensities()) {
        EXPECT_EQ(label->BackStyle, 1) << label->Name;
        EXPECT_EQ(label->ForeColor, RGB(48, 108, 160)) << label->Name;
    }
    for (const Control* shown :
         std::initializer_list<Control*>{&form.lbTAB(0), &form.lbTAB(1), &form.btLUT, &form.stb})
        EXPECT_TRUE(shown->Visible) << shown->Name;
}

TEST_F(Light, OnTakesTheColourOfEachChannelsSpectrumFrameForItsIntensityControls) {
    lightOff();
    form.fr2.ForeColor = RGB(1, 1, 1);
    form.fr5.ForeColor = RGB(2, 2, 2);
    lightOn();
    EXPECT_EQ(form.lbBR1(0).ForeColor, RGB(1, 1, 1));
    EXPECT_EQ(form.lbBR1(1).ForeColor, RGB(1, 1, 1));
    EXPECT_EQ(form.lbBR2(0).ForeColor, RGB(2, 2, 2));
    EXPECT_EQ(form.lbBR2(1).ForeColor, RGB(2, 2, 2));
}

TEST_F(Light, OffAndOnGiveEverySchemeItsOwnLookBack) {
    for (Integer scheme = 0; scheme <= 4; ++scheme) {
        form.itmOpt0(scheme);
        const Integer border = form.fr4.BorderStyle;
        const ColorValue title = form.fr5.ForeColor;
        lightOff();
        for (const Control* ground : grounds())
            EXPECT_EQ(ground->BackColor(), color(3)) << scheme << ' ' << ground->Name;
        for (const Label* label : intensities())
            EXPECT_EQ(label->ForeColor, color(4)) << scheme << ' ' << label->Name;
        lightOn();
        EXPECT_EQ(border, scheme == 4 ? 0 : 1);
        for (Integer panel = 1; panel <= 6; ++panel)
            EXPECT_EQ(form.frame(panel).BorderStyle, border) << scheme << ' ' << panel;
        for (const Control* ground : grounds())
            EXPECT_EQ(ground->BackColor(), color(0)) << scheme << ' ' << ground->Name;
        for (const Label* label : intensities())
            EXPECT_EQ(label->ForeColor, title) << scheme << ' ' << label->Name;
    }
}

TEST_F(Light, OnLeavesDarkGreyWithoutBorders) {
    form.itmOpt0(4);
    lightOff();
    lightOn();
    for (Integer panel = 1; panel <= 6; ++panel)
        EXPECT_EQ(form.frame(panel).BorderStyle, 0) << panel;
    EXPECT_EQ(form.BackColor(), RGB(33, 33, 33));
}

TEST_F(Light, OffAsksForTheFileAndOnForTheTag) {
    // The two differ for a drawing: it has no file, but its spectrum has been
    // computed. And for a loaded picture that has not been transformed yet.
    ASSERT_FALSE(form.lab.channel1.file.empty());
    form.lab.channel2.file.clear();
    form.pb5.Tag = "!";
    form.pb6.Tag = "";
    form.pb2.Tag = "";
    form.pb3.Tag = "3D";
    const Bitmap spectrum1 = form.pb2.Image();
    const Bitmap relief = form.pb3.Image();
    lightOff();
    EXPECT_EQ(form.pb2.Image(), spectrum1);
    const Bitmap dark(256, 256, toPixelWord(RGB(93, 93, 93)));
    EXPECT_EQ(form.pb5.Image(), dark);
    EXPECT_EQ(form.pb6.Image(), dark);
    lightOn();
    EXPECT_TRUE(isLit(2));
    EXPECT_EQ(form.pb3.Image(), relief);
    EXPECT_EQ(form.pb5.Image(), dark) << "what counts as computed keeps what it shows";
    EXPECT_TRUE(isLit(6));
}

TEST_F(Light, OnShowsTheButtonOfTheColourTablesInTheTutorialViewToo) {
    showTutorial();
    ASSERT_FALSE(form.btLUT.Visible);
    lightOff();
    lightOn();
    EXPECT_TRUE(form.btLUT.Visible);
    EXPECT_TRUE(form.lbTAB(0).Visible);
    EXPECT_TRUE(form.lbTAB(1).Visible);
    EXPECT_FALSE(form.stb.Visible) << "the strip belongs to the Lab";
}

TEST_F(Light, OnRunsOnceWhenTheFadeEnds) {
    lightOff();
    fadeIn();
    form.Tag = "DIM";
    desktop.log.clear();
    int runs = 0;
    watcher.onShow = nullptr;
    lightOn();
    for (const std::string& line : desktop.log)
        runs += line == "stale btLUT" ? 1 : 0;
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(std::ranges::count(desktop.log, "dim.unloaded()"), 1);
    EXPECT_EQ(desktop.log.back(), "dim.unloaded()") << "the dark goes when the look is back";
}

TEST_F(Light, OnByItselfStartsTheFadeOfADarkThatIsSeen) {
    lightOff();
    fadeIn();
    form.LightOn();
    EXPECT_EQ(form.Tag, "");
    EXPECT_EQ(form.BackColor(), RGB(151, 190, 223));
    EXPECT_TRUE(form.dim.isLoaded());
    EXPECT_EQ(form.dim.fadeDirection, 2);
    fadeIn();
    EXPECT_FALSE(form.dim.isLoaded());
}

TEST_F(Light, OffASecondTimeShowsTheSameDarkAgain) {
    lightOff();
    fadeIn();
    const PixelRect hole = host.dimHost.hole;
    form.Move(0, 0, form.Width, form.Height);
    desktop.log.clear();
    // As a lamp that lies in the hole does. Nothing guards against it.
    form.Click(form.imgDIM);
    EXPECT_EQ(form.Tag, "DIM");
    EXPECT_EQ(form.dim.fadeAlpha, 260);
    EXPECT_EQ(std::ranges::count(desktop.log, "host.showOwned(frmDIM)"), 1);
    EXPECT_EQ(host.dimHost.hole, hole) << "the hole does not follow the window";
}

TEST_F(Light, ANewPictureInTheDarkTakesTheDimmedForeground) {
    lightOff();
    form.mnuImg1a(3);
    EXPECT_EQ(form.pb2.BackColor(), RGB(93, 93, 93));
    lightOn();
    EXPECT_EQ(form.pb2.BackColor(), RGB(48, 108, 160));
    form.mnuImg2a(3);
    EXPECT_EQ(form.pb5.BackColor(), RGB(48, 108, 160));
}

TEST_F(Light, WithoutAWindowOnlyTheLookChanges) {
    form.setHost(nullptr);
    lightOff();
    EXPECT_EQ(form.Tag, "DIM");
    EXPECT_FALSE(form.dim.isLoaded());
    form.ShowRemotePopup(0);
    form.LightOn();
    EXPECT_EQ(form.Tag, "");
    EXPECT_EQ(form.BackColor(), RGB(151, 190, 223));
}

struct EntryPlace {
    MenuArray array;
    Integer index;
};
constexpr EntryPlace kBright[] = {{itmOpt, 0}, {itmOpt, 1}, {itmOpt, 2}, {itm10, 1}, {itm10, 2}};

TEST_F(Light, ARemoteMenuHasNoEntryThatMakesNoSenseInTheDark) {
    const std::pair<Integer, const char*> menus[] = {{0, "mnuSCR"}, {1, "mnuOpt"}, {2, "mnu10"}};
    for (const auto& [i, title] : menus) {
        host.popups.clear();
        host.onPopup = [this](std::string_view) {
            int disabled = 0;
            for (int array = 0; array < kMenuArrayCount; ++array)
                for (std::size_t k = 0; k < menuEntries(static_cast<MenuArray>(array)).size(); ++k)
                    disabled +=
                        form.menu(static_cast<MenuArray>(array), static_cast<Integer>(k)).Enabled
                            ? 0
                            : 1;
            EXPECT_EQ(disabled, 5);
            for (const EntryPlace& entry : kBright)
                EXPECT_FALSE(form.menu(entry.array, entry.index).Enabled);
        };
        form.ShowRemotePopup(i);
        EXPECT_EQ(host.popups, std::vector<std::string>{title});
        for (const EntryPlace& entry : kBright)
            EXPECT_TRUE(form.menu(entry.array, entry.index).Enabled);
    }
}

TEST_F(Light, ThereAreThreeRemoteMenus) {
    for (const Integer i : {Integer{-1}, Integer{3}, Integer{100}})
        form.ShowRemotePopup(i);
    EXPECT_TRUE(host.popups.empty());
    for (const EntryPlace& entry : kBright)
        EXPECT_TRUE(form.menu(entry.array, entry.index).Enabled);
}

TEST_F(Light, TheMiniMenuShowsTheWindowsMenus) {
    lightOff();
    form.dim.Click(form.dim.lb(0));
    form.dim.Click(form.dim.lb(1));
    form.dim.Click(form.dim.lb(2));
    EXPECT_EQ(host.popups, (std::vector<std::string>{"mnuSCR", "mnuOpt", "mnu10"}));
}

TEST_F(Light, KeysInTheDarkResetAndRecalculate) {
    lightOff();
    fadeIn();
    form.pb3.Tag = "3D";
    form.dim.KeyPress(13);
    EXPECT_NE(form.pb3.Tag, "3D");
    form.pb3.Tag = "3D";
    form.dim.KeyPress(32);
    EXPECT_NE(form.pb3.Tag, "3D");
    clickFilter(Channel::One, 10);
    ASSERT_TRUE(form.lab.channel1.bLowpass);
    form.dim.KeyPress('R');
    EXPECT_TRUE(form.lab.channel1.bLowpass);
    form.dim.KeyPress('r');
    EXPECT_FALSE(form.lab.channel1.bLowpass);
}

TEST_F(Light, AReleaseInTheDarkEndsWhatTheKeyBegan) {
    form.KeyDown(18, 4);
    ASSERT_TRUE(form.Line1(0).Visible);
    lightOff();
    form.dim.KeyUp(18, 0);
    EXPECT_FALSE(form.Line1(0).Visible);
    form.pendingShiftPanel = 4;
    form.dim.KeyUp(37, 0);
    EXPECT_EQ(form.pendingShiftPanel, 4) << "an arrow's release stays in the dark";
    form.dim.KeyUp(17, 0);
    EXPECT_EQ(form.pendingShiftPanel, 0);
}

}  // namespace
}  // namespace quillon
