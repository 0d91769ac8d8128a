#include <gtest/gtest.h>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

class IntensityControls : public OpenForm {
protected:
    void hold(Label& label, Integer button = kLeftButton) {
        form.MouseDown(label, button, 0, 60, 60);
    }
    void release(Label& label, Integer button = kLeftButton) {
        form.MouseUp(label, button, 0, 60, 60);
    }
    std::string factor1() { return form.lab.channel1.getIntFac(); }
    std::string factor2() { return form.lab.channel2.getIntFac(); }
    void linearScale() {
        form.lab.channel1.SetScale(0);
        form.lab.channel2.SetScale(0);
    }
};

TEST_F(IntensityControls, FactorsStartAtOneInTheRootScaleAndAHundredInTheLinear) {
    EXPECT_EQ(factor1(), "1.00 (sqrt)");
    linearScale();
    EXPECT_EQ(factor1(), "100.0 (linear)");
    EXPECT_EQ(factor2(), "100.0 (linear)");
}

TEST_F(IntensityControls, APressOnPlusOfChannelOneStepsAtOnce) {
    linearScale();
    hold(form.lbBR1(1));
    release(form.lbBR1(1));
    EXPECT_EQ(factor1(), "111.0 (linear)");
    EXPECT_EQ(factor2(), "100.0 (linear)");
}

TEST_F(IntensityControls, APressOnMinusOfChannelOneStepsAtOnce) {
    linearScale();
    hold(form.lbBR1(0));
    release(form.lbBR1(0));
    EXPECT_EQ(factor1(), "90.0 (linear)");
}

TEST_F(IntensityControls, APressOnChannelTwoStepsOnlyByTheTimer) {
    linearScale();
    for (Integer i = 0; i <= 1; ++i) {
        hold(form.lbBR2(i));
        release(form.lbBR2(i));
    }
    EXPECT_EQ(factor2(), "100.0 (linear)");
    hold(form.lbBR2(1));
    form.Timer1_Timer();
    release(form.lbBR2(1));
    EXPECT_EQ(factor2(), "111.0 (linear)");
    hold(form.lbBR2(0));
    form.Timer1_Timer();
    form.Timer1_Timer();
    release(form.lbBR2(0));
    EXPECT_EQ(factor2(), "89.9 (linear)");
    EXPECT_EQ(factor1(), "100.0 (linear)");
}

TEST_F(IntensityControls, TheMiddleButtonStepsLikeTheLeft) {
    linearScale();
    hold(form.lbBR1(1), kMiddleButton);
    EXPECT_EQ(form.Timer1.Tag, "2");
    release(form.lbBR1(1), kMiddleButton);
    EXPECT_EQ(factor1(), "111.0 (linear)");
}

TEST_F(IntensityControls, AFurtherButtonOfTheMouseDoesNothing) {
    hold(form.lbBR1(1), 8);
    EXPECT_EQ(factor1(), "1.00 (sqrt)");
    EXPECT_FALSE(form.Timer1.Enabled);
}

TEST_F(IntensityControls, TheTimersTagNamesWhatItRepeats) {
    const std::pair<Label*, const char*> tags[] = {
        {&form.lbBR1(0), "1"}, {&form.lbBR1(1), "2"}, {&form.lbBR2(0), "3"}, {&form.lbBR2(1), "4"}};
    for (const auto& [label, tag] : tags) {
        EXPECT_FALSE(form.Timer1.Enabled);
        hold(*label);
        EXPECT_EQ(form.Timer1.Tag, tag);
        EXPECT_TRUE(form.Timer1.Enabled);
        release(*label);
        EXPECT_EQ(form.Timer1.Tag, "");
        EXPECT_FALSE(form.Timer1.Enabled);
    }
}

TEST_F(IntensityControls, EachTickStepsOnceMore) {
    linearScale();
    hold(form.lbBR1(0));
    form.Timer1_Timer();
    form.Timer1_Timer();
    release(form.lbBR1(0));
    EXPECT_EQ(factor1(), "72.9 (linear)");
}

TEST_F(IntensityControls, HeldForeverTheyStopAtTheLastFactorThatCanBeDrawn) {
    for (Label* control : {&form.lbBR1(1), &form.lbBR2(1)}) {
        hold(*control);
        std::string before;
        for (int tick = 0; tick < 1000; ++tick) {
            before = factor1() + factor2();
            form.Timer1_Timer();
        }
        EXPECT_EQ(factor1() + factor2(), before);
        release(*control);
        EXPECT_TRUE(desktop.dialogs.messages.empty());
    }
    hold(form.lbBR1(0));
    EXPECT_EQ(form.fr2.Caption.get(), "Intensity Factor: " + factor1());
    release(form.lbBR1(0));
}

TEST_F(IntensityControls, TheHeldControlSaysWhetherItHasSteppedAtItsPress) {
    for (Integer i = 0; i <= 1; ++i) {
        hold(form.lbBR1(i));
        EXPECT_EQ(form.stepsAtPress(), 1);
        release(form.lbBR1(i));
        EXPECT_EQ(form.stepsAtPress(), 0);
        hold(form.lbBR2(i));
        EXPECT_EQ(form.stepsAtPress(), 0);
        release(form.lbBR2(i));
    }
}

TEST_F(IntensityControls, AnEmptyTagSwitchesTheTimerOffAndStepsNothing) {
    form.Timer1.Enabled = true;
    form.Timer1_Timer();
    EXPECT_FALSE(form.Timer1.Enabled);
    EXPECT_EQ(factor1(), "1.00 (sqrt)");
    EXPECT_EQ(factor2(), "1.00 (sqrt)");
}

TEST_F(IntensityControls, BothFramesTellTheirFactorsWhileOneControlIsHeld) {
    form.lab.channel2.SetScale(0);
    hold(form.lbBR1(1));
    EXPECT_EQ(form.fr2.Tag, "+-");
    EXPECT_EQ(form.fr5.Tag, "");
    EXPECT_EQ(form.fr2.Caption.get(), "Intensity Factor: 1.11 (sqrt)");
    EXPECT_EQ(form.fr5.Caption.get(), "Intensity Factor: 100.0 (linear)");
    form.Timer1_Timer();
    EXPECT_EQ(form.fr2.Caption.get(), "Intensity Factor: 1.23 (sqrt)");
    release(form.lbBR1(1));
    EXPECT_EQ(form.fr2.Caption.get(), "Fourier Transform");
    EXPECT_EQ(form.fr5.Caption.get(), "Fourier Transform");
    EXPECT_EQ(form.fr2.Tag, "");
}

TEST_F(IntensityControls, ChannelTwosHeldControlMarksItsOwnFrame) {
    hold(form.lbBR2(0));
    EXPECT_EQ(form.fr2.Tag, "");
    EXPECT_EQ(form.fr5.Tag, "+-");
    EXPECT_EQ(form.fr2.Caption.get(), "Intensity Factor: 1.00 (sqrt)");
    release(form.lbBR2(0));
    EXPECT_EQ(form.fr5.Tag, "");
    EXPECT_EQ(form.fr5.Caption.get(), "Fourier Transform");
}

TEST_F(IntensityControls, WithoutAHeldControlTheCaptionsStay) {
    form.ShowIntensityFactor();
    EXPECT_EQ(form.fr2.Caption.get(), "Fourier Transform");
    form.Timer1_Timer();
    EXPECT_EQ(form.fr5.Caption.get(), "Fourier Transform");
}

TEST_F(IntensityControls, AReleaseOfAnyButtonEndsTheHold) {
    hold(form.lbBR1(1));
    release(form.lbBR1(1), kRightButton);
    EXPECT_FALSE(form.Timer1.Enabled);
    EXPECT_EQ(form.fr2.Caption.get(), "Fourier Transform");
}

TEST_F(IntensityControls, AStepRedrawsTheSpectrum) {
    const Bitmap before = form.pb2.Image();
    hold(form.lbBR1(1));
    release(form.lbBR1(1));
    EXPECT_NE(form.pb2.Image(), before);
}

TEST_F(IntensityControls, TheRightButtonAsksForAFactor) {
    linearScale();
    desktop.dialogs.answerInput("42.5");
    hold(form.lbBR1(0), kRightButton);
    ASSERT_EQ(desktop.dialogs.inputs.size(), 1U);
    EXPECT_EQ(
        desktop.dialogs.inputs[0],
        (RecordingDialogs::Input{"Enter new Intensity Factor\n\nCurrent value = 100.0 (linear)",
                                 "Adjust FT Brightness", ""}));
    EXPECT_EQ(factor1(), "42.5 (linear)");
    EXPECT_EQ(form.Timer1.Tag, "");
    EXPECT_FALSE(form.Timer1.Enabled);
    EXPECT_EQ(form.fr2.Caption.get(), "Fourier Transform");
}

TEST_F(IntensityControls, TheRightButtonOnEitherControlAsksForItsChannel) {
    for (Integer i = 0; i <= 1; ++i) {
        desktop.dialogs.answerInput("3");
        hold(form.lbBR2(i), kRightButton);
        EXPECT_EQ(factor2(), "3.00 (sqrt)");
        EXPECT_EQ(factor1(), "1.00 (sqrt)");
        form.lab.channel2.setIntFac(1);
    }
}

TEST_F(IntensityControls, WordsZeroNegativesAndCancelChangeNothing) {
    for (const char* text : {"abc", "0", "-2", "", "x5"}) {
        desktop.dialogs.answerInput(text);
        hold(form.lbBR1(1), kRightButton);
        EXPECT_EQ(factor1(), "1.00 (sqrt)") << text;
    }
    desktop.dialogs.cancelInput();
    hold(form.lbBR1(1), kRightButton);
    EXPECT_EQ(factor1(), "1.00 (sqrt)");
}

TEST_F(IntensityControls, LeadingDigitsCountAndSmallFactorsAreRaised) {
    desktop.dialogs.answerInput(" 2.5 times");
    hold(form.lbBR1(1), kRightButton);
    EXPECT_EQ(factor1(), "2.50 (sqrt)");
    desktop.dialogs.answerInput("0.01");
    hold(form.lbBR1(1), kRightButton);
    EXPECT_EQ(factor1(), "0.05 (sqrt)");
}

TEST_F(IntensityControls, AShownSurfaceIsDrawnAgainAtTheReleaseOfItsOwnChannel) {
    form.pb3.Tag = "3D";
    RecordingWatcher watcher;
    form.pb3.watch(&watcher);
    hold(form.lbBR2(1));
    release(form.lbBR2(1));
    EXPECT_TRUE(watcher.log.empty());
    hold(form.lbBR1(1));
    watcher.log.clear();
    release(form.lbBR1(1));
    EXPECT_FALSE(watcher.log.empty());
    EXPECT_EQ(form.pb3.Tag, "3D");
}

TEST_F(IntensityControls, ChannelTwosSurfaceFollowsTheReleaseOfItsOwnControlAlone) {
    form.pb6.Tag = "3D";
    RecordingWatcher watcher;
    form.pb6.watch(&watcher);
    hold(form.lbBR1(0));
    release(form.lbBR1(0));
    EXPECT_TRUE(watcher.log.empty());
    hold(form.lbBR2(0));
    EXPECT_TRUE(watcher.log.empty());
    release(form.lbBR2(0));
    EXPECT_EQ(watcher.count("showNow pb6"), 1);
    EXPECT_EQ(form.pb6.Tag, "3D");
    form.pb6.watch(nullptr);
}

/// Notes each request to paint the mask rectangles.
class MaskNotingForm : public Form1 {
public:
    using Form1::Form1;
    std::vector<Integer> masks;
    void DrawMasks(Integer m) override { masks.push_back(m); }
};

TEST_F(FormFixture, APressPaintsTheMasksAgainWhereTheChannelHasThem) {
    MaskNotingForm noting(desktop.desktop(), folders);
    noting.Form_Load();
    const auto masksOf = [&](Label& label) {
        noting.masks.clear();
        noting.MouseDown(label, kLeftButton, 0, 60, 60);
        const std::vector<Integer> painted = noting.masks;
        noting.MouseUp(label, kLeftButton, 0, 60, 60);
        return painted;
    };
    // A draw asks with -1; channel 2 draws nothing at the press.
    EXPECT_EQ(masksOf(noting.lbBR1(0)), (std::vector<Integer>{-1}));
    EXPECT_EQ(masksOf(noting.lbBR2(0)), (std::vector<Integer>{}));
    noting.lab.channel1.bMask = true;
    noting.lab.channel2.bMask = true;
    EXPECT_EQ(masksOf(noting.lbBR1(0)), (std::vector<Integer>{-1, 2}));
    EXPECT_EQ(masksOf(noting.lbBR2(0)), (std::vector<Integer>{5}));
}

}  // namespace
}  // namespace quillon
