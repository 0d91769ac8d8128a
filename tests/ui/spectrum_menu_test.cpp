#include <initializer_list>

#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

constexpr PixelWord kMaskBlue = 0x0000FF;

/// The FT menus, clicked by index on both channels.
class SpectrumMenu : public CommandFixture {
protected:
    void click(Channel which, Integer index) { clickFilter(which, index); }
    MenuItem& entry(Channel which, Integer index) {
        return form.menu(which == Channel::One ? MenuArray::mnuFT1a : MenuArray::mnuFT2a, index);
    }
    /// The marks of entries 9 to 12 as "x---".
    std::string filterMarks(Channel which) {
        std::string marks;
        for (Integer index = 9; index <= 12; ++index)
            marks += entry(which, index).Checked ? 'x' : '-';
        return marks;
    }
    std::string scaleMarks(Channel which) {
        std::string marks = entry(which, 14).Checked ? "x" : "-";
        return marks + (entry(which, 15).Checked ? "x" : "-");
    }
};

TEST_F(SpectrumMenu, EveryIndexLetsTheEventLoopRunFirst) {
    for (const Channel which : kBoth)
        for (const Integer index : std::initializer_list<Integer>{-1, 0, 1, 6, 9, 10, 11, 12, 14}) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(desktop.log.front(), "screen.pendingEvents()") << index;
        }
}

TEST_F(SpectrumMenu, SeparatorsAndIndicesBeyondTheLastDoNothingOfTheirOwn) {
    for (const Channel which : kBoth)
        for (const Integer index : std::initializer_list<Integer>{-1, 1, 5, 8, 13, 16, 18, 99}) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(desktop.log, std::vector<std::string>{"screen.pendingEvents()"}) << index;
        }
}

TEST_F(SpectrumMenu, EveryIndexShowsTheIntensityFactorWhileAControlIsHeld) {
    for (const Channel which : kBoth)
        for (Integer index = -1; index <= 18; ++index) {
            form.fr2.Tag = "+-";
            form.fr2.Caption = "stale";
            if (index == 3)
                desktop.dialogs.cancelSave();
            click(which, index);
            EXPECT_EQ(form.fr2.Caption.get(), "Intensity Factor: " + form.lab.channel1.getIntFac())
                << index;
        }
}

TEST_F(SpectrumMenu, TheFactorIsShownAfterTheChangeOfScale) {
    form.fr5.Tag = "+-";
    click(Channel::Two, 14);
    EXPECT_EQ(form.fr5.Caption.get(), "Intensity Factor: 100.0 (linear)");
    click(Channel::Two, 15);
    EXPECT_EQ(form.fr5.Caption.get(), "Intensity Factor: 1.00 (sqrt)");
}

TEST_F(SpectrumMenu, FourierTransformRunsForwardAndBack) {
    for (const Channel which : kBoth) {
        const Bitmap before = spectrum(which).Image();
        spectrum(which).setBackColor(kRed);
        desktop.log.clear();
        click(which, 0);
        EXPECT_EQ(spectrum(which).Image(), before);
        EXPECT_EQ(transforms(), 2);
    }
}

TEST_F(SpectrumMenu, FourierTransformUnderMasksDrawsThemAgain) {
    for (const Channel which : kBoth) {
        click(which, 12);
        channel(which).AddMask(10, 20, 30, 40);
        click(which, 0);
        EXPECT_EQ(spectrum(which).Image().at(10, 25), kMaskBlue);
        EXPECT_EQ(spectrum(which).Image().at(30, 40), kMaskBlue);
    }
}

TEST_F(SpectrumMenu, UnderABlackImageTheMasksAreDrawnAllTheSame) {
    for (const Channel which : kBoth) {
        click(which, 12);
        channel(which).AddMask(10, 20, 30, 40);
        form.NewPanelImage(imagePanelId(which));
        channel(which).AddMask(10, 20, 30, 40);
        click(which, 0);
        EXPECT_EQ(spectrum(which).Tag, "") << "a black image has no spectrum to draw";
        EXPECT_EQ(spectrum(which).Image().at(10, 20), kMaskBlue);
    }
}

TEST_F(SpectrumMenu, CopySaveAndPrintWorkOnItsOwnPanel) {
    for (const Channel which : kBoth) {
        click(which, 2);
        EXPECT_EQ(desktop.clipboard.content, spectrum(which).Image());
        desktop.dialogs.answerSave("C:\\saved.bmp");
        click(which, 3);
        EXPECT_EQ(desktop.pictures.saved.back().second, spectrum(which).Image());
        desktop.printer.marks.clear();
        click(which, 4);
        ASSERT_EQ(desktop.printer.marks.size(), 7U);
        EXPECT_EQ(desktop.printer.marks[3].picture, spectrum(which).Image());
    }
}

TEST_F(SpectrumMenu, InvertImageIsMarkedBeforeThePictureIsRedrawnAndTwoClicksUndoIt) {
    for (const Channel which : kBoth) {
        const Bitmap before = spectrum(which).Image();
        bool markedAtRedraw = false;
        watcher.onShow = [&](Control& control) {
            if (&control == &spectrum(which))
                markedAtRedraw = entry(which, 6).Checked;
        };
        click(which, 6);
        watcher.onShow = nullptr;
        EXPECT_TRUE(markedAtRedraw);
        EXPECT_TRUE(channel(which).GetInvert(1));
        EXPECT_NE(spectrum(which).Image(), before);
        click(which, 6);
        EXPECT_FALSE(entry(which, 6).Checked);
        EXPECT_FALSE(channel(which).GetInvert(1));
        EXPECT_EQ(spectrum(which).Image(), before);
    }
}

TEST_F(SpectrumMenu, TheScalesAreARadioPairMarkedBeforeTheRedraw) {
    for (const Channel which : kBoth) {
        std::string marksAtRedraw;
        watcher.onShow = [&](Control& control) {
            if (&control == &spectrum(which))
                marksAtRedraw = scaleMarks(which);
        };
        for (const int repeat : {1, 2}) {
            click(which, 14);
            EXPECT_EQ(scaleMarks(which), "x-") << repeat;
            EXPECT_EQ(marksAtRedraw, "x-");
            EXPECT_FALSE(channel(which).sqrtScale());
        }
        for (const int repeat : {1, 2}) {
            click(which, 15);
            EXPECT_EQ(scaleMarks(which), "-x") << repeat;
            EXPECT_EQ(marksAtRedraw, "-x");
            EXPECT_TRUE(channel(which).sqrtScale());
        }
        watcher.onShow = nullptr;
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(SpectrumMenu, AFilterOfOneChannelLeavesTheOtherAlone) {
    click(Channel::One, 10);
    EXPECT_EQ(filterMarks(Channel::One), "-x--");
    EXPECT_EQ(filterMarks(Channel::Two), "x---");
    EXPECT_TRUE(form.lab.channel1.bLowpass);
    EXPECT_FALSE(form.lab.channel2.bFilter);
}

TEST_F(SpectrumMenu, EachFilterChecksItsEntryAloneAndSetsItsMode) {
    for (const Channel which : kBoth) {
        const clComplexImage& c = channel(which);
        click(which, 10);
        EXPECT_EQ(filterMarks(which), "-x--");
        EXPECT_TRUE(c.bFilter && c.bRing && c.bLowpass && !c.bHighpass && !c.bMask);
        click(which, 11);
        EXPECT_EQ(filterMarks(which), "--x-");
        EXPECT_TRUE(c.bFilter && c.bRing && !c.bLowpass && c.bHighpass && !c.bMask);
        click(which, 12);
        EXPECT_EQ(filterMarks(which), "---x");
        EXPECT_TRUE(c.bFilter && !c.bRing && !c.bLowpass && !c.bHighpass && c.bMask);
        click(which, 9);
        EXPECT_EQ(filterMarks(which), "x---");
        EXPECT_FALSE(c.bFilter || c.bRing || c.bLowpass || c.bHighpass || c.bMask);
    }
}

TEST_F(SpectrumMenu, AllFiltersButTheMasksReconstructAtOnce) {
    for (const Channel which : kBoth)
        for (Integer index = 9; index <= 12; ++index) {
            desktop.log.clear();
            click(which, index);
            EXPECT_EQ(transforms(), index == 12 ? 0 : 1) << index;
            EXPECT_EQ(shown(reconstruction(which)), index == 12 ? 0 : 1) << index;
        }
}

TEST_F(SpectrumMenu, TheReconstructionFollowsTheFilterChosen) {
    for (const Channel which : kBoth) {
        const Bitmap unfiltered = reconstruction(which).Image();
        click(which, 10);
        const Bitmap low = reconstruction(which).Image();
        EXPECT_NE(low, unfiltered);
        EXPECT_EQ(form.lbSTB(2).Caption.get(), " (Low-pass filter r=20)");
        click(which, 11);
        EXPECT_NE(reconstruction(which).Image(), low);
        EXPECT_EQ(form.lbSTB(2).Caption.get(), " (High-pass filter r=20)");
        click(which, 9);
        EXPECT_EQ(reconstruction(which).Image(), unfiltered);
    }
}

TEST_F(SpectrumMenu, LeavingTheMasksTakesThemOffThePictureFirst) {
    for (const Channel which : kBoth) {
        const Bitmap plain = spectrum(which).Image();
        click(which, 12);
        channel(which).AddMask(10, 20, 30, 40);
        form.DrawMasks(1);
        ASSERT_EQ(spectrum(which).Image().at(10, 20), kMaskBlue);
        std::string marksAtRedraw;
        bool masksAtRedraw = true;
        watcher.onShow = [&](Control& control) {
            if (&control != &spectrum(which))
                return;
            marksAtRedraw = filterMarks(which);
            masksAtRedraw = channel(which).bMask;
        };
        click(which, 9);
        watcher.onShow = nullptr;
        EXPECT_EQ(marksAtRedraw, "---x") << "the redraw comes before the marks change";
        EXPECT_FALSE(masksAtRedraw);
        EXPECT_EQ(spectrum(which).Image(), plain);
        EXPECT_EQ(channel(which).nmask, 0);
        EXPECT_FALSE(channel(which).bMask);
    }
}

TEST_F(SpectrumMenu, CustomMasksChosenAgainStayActiveAndRecomputeNothing) {
    for (const Channel which : kBoth) {
        click(which, 12);
        channel(which).AddMask(10, 20, 30, 40);
        form.DrawMasks(1);
        desktop.log.clear();
        click(which, 12);
        EXPECT_TRUE(channel(which).bMask);
        EXPECT_EQ(filterMarks(which), "---x");
        EXPECT_EQ(transforms(), 0);
        EXPECT_EQ(shown(spectrum(which)), 0) << "nothing is redrawn";
        EXPECT_EQ(channel(which).nmask, 0) << "every choice of a filter empties the list";
    }
}

TEST_F(SpectrumMenu, AFilterWithoutMasksBeforeItDoesNotRedrawTheSpectrum) {
    click(Channel::One, 11);
    EXPECT_EQ(shown(form.pb2), 0);
}

}  // namespace
}  // namespace quillon
