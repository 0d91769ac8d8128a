#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/FormFixture.h"
#include "ui/frmDIM.h"

namespace quillon {
namespace {

/// What the dark asks of the main window, written into one log with what it
/// asks of its own.
class RecordingForm : public DimmedForm {
public:
    explicit RecordingForm(CallLog& log) : log_(log) {}
    frmDIM* dim = nullptr;
    /// A batch or a script is under way.
    bool running = false;

    void LightOn() override {
        log_.add("LightOn()");
        // The main window asks for the unload too.
        if (dim != nullptr)
            dim->unload();
    }
    void ShowRemotePopup(Integer i) override {
        log_.add("ShowRemotePopup(" + std::to_string(i) + ")");
    }
    void remoteKeyPress(Integer& KeyAscii) override {
        log_.add("remoteKeyPress(" + std::to_string(KeyAscii) + ")");
    }
    void remoteKeyUp(Integer& KeyCode, Integer& Shift) override {
        log_.add("remoteKeyUp(" + std::to_string(KeyCode) + "," + std::to_string(Shift) + ")");
    }
    bool remoteEscape() override {
        log_.add("remoteEscape()");
        return running;
    }

private:
    CallLog& log_;
};

class TheDark : public ::testing::Test {
protected:
    TheDark() {
        form.dim = &dim;
        host.shown = &dim;
    }
    void load() { dim.load(host); }
    /// Ticks until the timer stops; the opacities that were shown.
    std::vector<Integer> fade() {
        host.alphas.clear();
        for (int i = 0; i < 100 && dim.Timer1.Enabled; ++i)
            dim.Timer1_Timer();
        return host.alphas;
    }
    void loadAndFadeIn() {
        load();
        fade();
        calls.lines.clear();
    }
    long count(const std::string& line) {
        return static_cast<long>(std::ranges::count(calls.lines, line));
    }

    CallLog calls;
    HoleRect hole{3000, 1500, 12435, 8625};
    RecordingForm form{calls};
    RecordingDimHost host{calls};
    frmDIM dim{hole, form};
};

TEST_F(TheDark, IsBlackWithoutABorderUnderTheHand) {
    EXPECT_EQ(dim.Name, "frmDIM");
    EXPECT_EQ(dim.BackColor(), kBlack);
    EXPECT_EQ(dim.BorderStyle, 0);
    EXPECT_EQ(dim.MousePointer, kPointerCustom);
    EXPECT_FALSE(dim.Timer1.Enabled);
    EXPECT_FALSE(dim.fr.Visible);
    EXPECT_FALSE(dim.hand.Visible);
    EXPECT_EQ(dim.hand.MouseIcon, kMouseIconHand);
    EXPECT_FALSE(dim.isLoaded());
}

TEST_F(TheDark, HasItsMiniMenuWhereItWasDrawn) {
    struct Built {
        const Control& control;
        Single left, top, width, height;
        const char* caption;
        const char* hint;
    };
    const Built built[] = {
        {dim.fr, 1170, 465, 2475, 225, "", ""},
        {dim.lb(0), 0, 0, 585, 210, "Scripts", "Scripts Menu"},
        {dim.lb(1), 780, 0, 645, 210, "Options", "Options Menu"},
        {dim.lb(2), 1620, 0, 360, 210, "Help", "Help Menu"},
        {dim.lb(3), 2235, -15, 210, 210, "[x]", "Light On"},
    };
    for (const Built& row : built) {
        EXPECT_EQ(row.control.Left, row.left) << row.control.Name;
        EXPECT_EQ(row.control.Top, row.top) << row.control.Name;
        EXPECT_EQ(row.control.Width, row.width) << row.control.Name;
        EXPECT_EQ(row.control.Height, row.height) << row.control.Name;
        EXPECT_EQ(row.control.Caption.get(), row.caption);
        EXPECT_EQ(row.control.ToolTipText.get(), row.hint);
    }
    EXPECT_EQ(dim.fr.BackColor(), kBlack);
    EXPECT_EQ(dim.fr.BorderStyle, 0);
    for (Integer i = 0; i < 4; ++i) {
        EXPECT_EQ(dim.lb(i).FontName, Font::Arial);
        EXPECT_TRUE(dim.lb(i).FontBold);
        EXPECT_EQ(dim.lb(i).ForeColor, ColorValue{0x404040});
        EXPECT_EQ(dim.lb(i).BackStyle, 0);
    }
}

TEST_F(TheDark, LoadsInAFixedOrder) {
    load();
    // The opacity comes before the layered bit, where it has no effect yet.
    EXPECT_EQ(calls.lines,
              (std::vector<std::string>{"dim.setLayeredAlpha(255)", "dim.setLayeredBit()",
                                        "dim.maximise()", "dim.setWindowRegion()"}));
    EXPECT_TRUE(dim.isLoaded());
    EXPECT_EQ(dim.WindowState, 2);
    EXPECT_EQ(dim.MouseIcon, kMouseIconHand);
    for (Integer i = 0; i < 4; ++i) {
        EXPECT_EQ(dim.lb(i).MouseIcon, kMouseIconHand);
        EXPECT_EQ(dim.lb(i).MousePointer, kPointerCustom);
    }
    EXPECT_EQ(dim.fadeDirection, 1);
    EXPECT_EQ(dim.fadeAlpha, 0);
    EXPECT_EQ(dim.fadeStep, 20);
    EXPECT_EQ(dim.Timer1.Interval, 10);
    EXPECT_TRUE(dim.Timer1.Enabled);
    EXPECT_TRUE(dim.fr.Visible);
    EXPECT_EQ(dim.MousePointer, kPointerArrow);
}

TEST_F(TheDark, IsLoadedOnceUntilItHasGone) {
    loadAndFadeIn();
    load();
    EXPECT_TRUE(calls.lines.empty());
    EXPECT_EQ(dim.fadeAlpha, 260);
}

TEST_F(TheDark, FadesInBy13Ticks) {
    load();
    calls.lines.clear();
    EXPECT_EQ(fade(),
              (std::vector<Integer>{20, 40, 60, 80, 100, 120, 140, 160, 180, 200, 220, 240, 255}));
    // Only what is shown is clamped.
    EXPECT_EQ(dim.fadeAlpha, 260);
    EXPECT_FALSE(dim.Timer1.Enabled);
    EXPECT_EQ(count("dim.setLayeredBit()"), 1);
    EXPECT_EQ(calls.lines.front(), "dim.setLayeredBit()") << "at the first tick, before it shows";
}

TEST_F(TheDark, FadesOutBy7TicksAndGoes) {
    loadAndFadeIn();
    dim.unload();
    EXPECT_EQ(dim.fadeDirection, 2);
    EXPECT_EQ(dim.fadeAlpha, 255);
    EXPECT_EQ(dim.fadeStep, -40);
    EXPECT_TRUE(dim.Timer1.Enabled);
    EXPECT_TRUE(calls.lines.empty()) << "the request itself shows nothing";
    EXPECT_EQ(fade(), (std::vector<Integer>{215, 175, 135, 95, 55, 15, 0}));
    EXPECT_EQ(
        calls.lines,
        (std::vector<std::string>{
            "dim.setLayeredBit()", "dim.setLayeredAlpha(215)", "dim.setLayeredAlpha(175)",
            "dim.setLayeredAlpha(135)", "dim.setLayeredAlpha(95)", "dim.setLayeredAlpha(55)",
            "dim.setLayeredAlpha(15)", "dim.setLayeredAlpha(0)", "LightOn()", "dim.unloaded()"}));
    EXPECT_EQ(dim.fadeAlpha, -25);
    EXPECT_FALSE(dim.Timer1.Enabled);
    EXPECT_FALSE(dim.isLoaded());
}

TEST_F(TheDark, JumpsToBlackForARequestDuringTheFadeIn) {
    load();
    for (int i = 0; i < 4; ++i)
        dim.Timer1_Timer();
    ASSERT_EQ(dim.fadeAlpha, 80);
    dim.KeyPress('l');
    EXPECT_EQ(dim.fadeAlpha, 255);
    // The first opacity shown after it is one step below black.
    EXPECT_EQ(fade(), (std::vector<Integer>{215, 175, 135, 95, 55, 15, 0}));
    EXPECT_EQ(count("LightOn()"), 1);
}

TEST_F(TheDark, StartsItsFadeOutAnewForARequestDuringIt) {
    loadAndFadeIn();
    dim.unload();
    dim.Timer1_Timer();
    dim.Timer1_Timer();
    ASSERT_EQ(dim.fadeAlpha, 175);
    dim.unload();
    EXPECT_EQ(fade(), (std::vector<Integer>{215, 175, 135, 95, 55, 15, 0}));
}

TEST_F(TheDark, GoesWithoutAFadeRightAfterTheLoad) {
    load();
    calls.lines.clear();
    dim.unload();
    EXPECT_EQ(calls.lines, (std::vector<std::string>{"LightOn()", "dim.unloaded()"}));
    EXPECT_FALSE(dim.isLoaded());
    EXPECT_FALSE(dim.Timer1.Enabled);
}

TEST_F(TheDark, IsNotAskedAgainWhileAnUnloadIsUnderWay) {
    load();
    // RecordingForm::LightOn asks for the unload, as the main window does.
    dim.unload();
    EXPECT_EQ(count("LightOn()"), 1);
    EXPECT_EQ(count("dim.unloaded()"), 1);
    dim.unload();
    EXPECT_EQ(count("LightOn()"), 1) << "what has gone is not asked";
}

TEST_F(TheDark, ComesBackAsItWasBuilt) {
    loadAndFadeIn();
    dim.MouseDown(2);
    dim.unload();
    fade();
    load();
    EXPECT_TRUE(dim.fr.Visible);
    EXPECT_EQ(dim.MousePointer, kPointerArrow);
    EXPECT_EQ(dim.fadeAlpha, 0);
    EXPECT_EQ(dim.fadeDirection, 1);
    EXPECT_EQ(dim.fadeStep, 20);
    EXPECT_TRUE(dim.Timer1.Enabled);
}

TEST_F(TheDark, IsTheScreenWithoutTheHole) {
    load();
    EXPECT_EQ(host.whole, (PixelRect{0, 0, 1920, 1080}));
    EXPECT_EQ(host.hole, (PixelRect{200, 100, 1029, 675}));
}

TEST_F(TheDark, RoundsTheHoleToWholePixelsHalvesToTheEvenOne) {
    // 2.5, 3.5, 5.0 and 8.0 pixels, and a right edge of 2.4 + 3.2 = 5.6.
    hole = {37.5F, 52.5F, 37.5F, 67.5F};
    load();
    EXPECT_EQ(host.hole, (PixelRect{2, 4, 5, 8}));
    hole = {36, -37.5F, 48, 60};
    dim.resized(100 * 15 + 7.5F, 100 * 15 + 22.5F);
    EXPECT_EQ(host.hole, (PixelRect{2, -2, 6, 2}));
    EXPECT_EQ(host.whole, (PixelRect{0, 0, 100, 102}));
}

TEST_F(TheDark, PutsTheMiniMenuTwoOfItsHeightsAboveTheHole) {
    load();
    EXPECT_EQ(dim.fr.Left, 3000);
    EXPECT_EQ(dim.fr.Top, 1500 - 2 * 225);
}

TEST_F(TheDark, KeepsItsHoleUntilItIsResized) {
    load();
    hole.Left = 0;
    fade();
    EXPECT_EQ(host.hole.left, 200);
    EXPECT_EQ(count("dim.setWindowRegion()"), 1);
    dim.resized(1920 * 15, 1080 * 15);
    EXPECT_EQ(host.hole.left, 0);
    EXPECT_EQ(count("dim.setWindowRegion()"), 2);
}

TEST_F(TheDark, CutsNoHoleWhileItIsMinimised) {
    load();
    dim.WindowState = 1;
    hole.Left = 0;
    dim.resized(0, 0);
    EXPECT_EQ(count("dim.setWindowRegion()"), 1);
    EXPECT_EQ(dim.fr.Left, 3000);
}

TEST_F(TheDark, IgnoresALeftPressWhileTheMiniMenuIsInSight) {
    loadAndFadeIn();
    dim.MouseDown(1);
    EXPECT_EQ(dim.fadeDirection, 1);
    EXPECT_FALSE(dim.Timer1.Enabled);
}

TEST_F(TheDark, FadesOutAtALeftPressWithoutTheMiniMenu) {
    loadAndFadeIn();
    dim.MouseDown(2);
    dim.MouseDown(1);
    EXPECT_EQ(dim.fadeDirection, 2);
    EXPECT_EQ(dim.fadeAlpha, 255);
    EXPECT_TRUE(dim.Timer1.Enabled);
}

TEST_F(TheDark, TurnsTheMiniMenuOverAtARightPressAndShowsArrowOrHand) {
    loadAndFadeIn();
    dim.MouseDown(2);
    EXPECT_FALSE(dim.fr.Visible);
    EXPECT_EQ(dim.MousePointer, kPointerCustom);
    dim.MouseDown(2);
    EXPECT_TRUE(dim.fr.Visible);
    EXPECT_EQ(dim.MousePointer, kPointerArrow);
    for (const Integer other : {Integer{3}, Integer{4}, Integer{0}}) {
        dim.MouseDown(other);
        EXPECT_TRUE(dim.fr.Visible) << other;
    }
    EXPECT_TRUE(calls.lines.empty());
}

TEST_F(TheDark, AsksForTheMenuOfALabel) {
    loadAndFadeIn();
    for (Integer i = 0; i < 3; ++i)
        dim.Click(dim.lb(i));
    EXPECT_EQ(calls.lines, (std::vector<std::string>{"ShowRemotePopup(0)", "ShowRemotePopup(1)",
                                                     "ShowRemotePopup(2)"}));
    EXPECT_EQ(dim.fadeDirection, 1);
}

TEST_F(TheDark, FadesOutAtTheClosingLabel) {
    loadAndFadeIn();
    dim.Click(dim.lb(3));
    EXPECT_EQ(dim.fadeDirection, 2);
    EXPECT_TRUE(dim.Timer1.Enabled);
    EXPECT_TRUE(calls.lines.empty());
}

TEST_F(TheDark, FadesOutAtLOfEitherCase) {
    for (const Integer key : {Integer{'l'}, Integer{'L'}}) {
        load();
        fade();
        calls.lines.clear();
        dim.KeyPress(key);
        EXPECT_EQ(dim.fadeDirection, 2) << key;
        EXPECT_TRUE(calls.lines.empty()) << "the letter goes no further";
        fade();
    }
}

TEST_F(TheDark, FadesOutAtEscapeUnlessSomethingThatRunsTakesIt) {
    loadAndFadeIn();
    form.running = true;
    dim.KeyDown(27);
    EXPECT_EQ(dim.fadeDirection, 1);
    EXPECT_FALSE(dim.Timer1.Enabled);
    form.running = false;
    dim.KeyDown(27);
    EXPECT_EQ(dim.fadeDirection, 2);
    EXPECT_TRUE(dim.Timer1.Enabled);
    EXPECT_EQ(count("remoteEscape()"), 2);
}

TEST_F(TheDark, TakesNoOtherKeyBeforeItIsTyped) {
    loadAndFadeIn();
    for (Integer code = 0; code < 256; ++code)
        if (code != 27)
            dim.KeyDown(code);
    EXPECT_TRUE(calls.lines.empty());
    EXPECT_EQ(dim.fadeDirection, 1);
}

TEST_F(TheDark, LetsThreeKeysThrough) {
    loadAndFadeIn();
    for (Integer key = 0; key < 256; ++key)
        if (key != 'l' && key != 'L')
            dim.KeyPress(key);
    EXPECT_EQ(calls.lines, (std::vector<std::string>{"remoteKeyPress(13)", "remoteKeyPress(32)",
                                                     "remoteKeyPress(114)"}));
    EXPECT_EQ(dim.fadeDirection, 1);
}

TEST_F(TheDark, LetsTheReleasesOfShiftCtrlAndAltThrough) {
    loadAndFadeIn();
    for (Integer code = 0; code < 256; ++code)
        dim.KeyUp(code, 5);
    EXPECT_EQ(calls.lines, (std::vector<std::string>{"remoteKeyUp(16,5)", "remoteKeyUp(17,5)",
                                                     "remoteKeyUp(18,5)"}));
}

TEST_F(TheDark, ForgetsAWindowThatHasGoneUnasked) {
    loadAndFadeIn();
    dim.abandoned();
    EXPECT_FALSE(dim.isLoaded());
    dim.Timer1_Timer();
    dim.unload();
    dim.resized(15, 15);
    EXPECT_TRUE(calls.lines.empty());
}

}  // namespace
}  // namespace quillon
