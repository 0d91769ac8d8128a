#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "tests/support/FormFixture.h"

namespace quillon {
namespace {

class Settings : public FormFixture {
protected:
    std::vector<std::string> storeCalls() { return desktop.calls.of({"store."}); }
    static std::string read(const std::string& name) {
        return "store.read(Software\\Brindlewood\\Quillon, " + name + ")";
    }
    static std::string write(const std::string& name, const std::string& value) {
        return "store.write(Software\\Brindlewood\\Quillon, " + name + ", " + value + ")";
    }
};

TEST_F(Settings, AFirstRunWritesTheDefaultsInOrderAndThenAppliesThem) {
    desktop.store.values.clear();
    desktop.log.clear();
    form.ReadRegistry();
    EXPECT_EQ(storeCalls(),
              (std::vector<std::string>{read("PATH"), write("PATH", "C:\\Quillon\\Quillon.exe"),
                                        write("GUIC", "2"), write("FR", "0"), write("LUT", "0"),
                                        read("GUIC"), write("GUIC", "2"), read("FR"),
                                        write("FR", "0"), read("LUT")}));
    EXPECT_TRUE(form.firstRun);
    EXPECT_EQ(form.guiColorIndex, 2);
    EXPECT_TRUE(form.menu(MenuArray::itmOpt0, 2).Checked);
    EXPECT_EQ(stored("WNDO"), "");
}

TEST_F(Settings, ALaterRunReadsThePlaceThenColoursLanguageAndTable) {
    store("WNDO", "1500 750 9000 6000 2");
    store("GUIC", "4");
    store("FR", "1");
    store("LUT", "3");
    desktop.log.clear();
    form.ReadRegistry();
    EXPECT_EQ(storeCalls(), (std::vector<std::string>{read("PATH"), read("WNDO"), read("GUIC"),
                                                      write("GUIC", "4"), read("FR"),
                                                      write("FR", "1"), read("LUT")}));
    EXPECT_FALSE(form.firstRun);
    EXPECT_EQ(form.Left, 1500);
    EXPECT_EQ(form.Top, 750);
    EXPECT_EQ(form.WindowState, kWindowMaximised);
    EXPECT_EQ(form.guiColorIndex, 4);
    EXPECT_TRUE(form.lab.frenchTutorial);
    EXPECT_NE(form.lab.channel1.grayTable()[128], 0x808080);
}

TEST_F(Settings, TheStoredSizeIsNeverReadBack) {
    store("WNDO", "1500 750 9000 6000 0");
    form.Width = 12900;
    form.Height = 10500;
    form.ReadRegistry();
    EXPECT_EQ(form.Width, 12900);
    EXPECT_EQ(form.Height, 10500);
}

TEST_F(Settings, APlaceOfFourOrSixWordsLeavesTheWindowWhereItIs) {
    form.Left = 300;
    form.Top = 450;
    for (const char* words : {"1 2 3 4", "1 2 3 4 2 6", "", "   ", "1"}) {
        store("WNDO", words);
        form.ReadRegistry();
        EXPECT_EQ(form.Left, 300) << words;
        EXPECT_EQ(form.Top, 450) << words;
        EXPECT_EQ(form.WindowState, kWindowNormal) << words;
    }
}

TEST_F(Settings, RunsOfBlanksMakeNoFurtherWords) {
    store("WNDO", "  10   20 30 40  2 ");
    form.ReadRegistry();
    EXPECT_EQ(form.Left, 10);
    EXPECT_EQ(form.Top, 20);
    EXPECT_EQ(form.WindowState, kWindowMaximised);
}

TEST_F(Settings, AWindowThatWasMinimisedComesUpInItsNormalState) {
    store("WNDO", "0 0 12900 10500 1");
    form.ReadRegistry();
    EXPECT_EQ(form.WindowState, kWindowNormal);
}

TEST_F(Settings, APlaceOnAMonitorThatIsGoneIsReadAsItIs) {
    store("WNDO", "-48000.5 37500 12900 10500 0");
    form.ReadRegistry();
    EXPECT_EQ(form.Left, -48000.5F);
    EXPECT_EQ(form.Top, 37500);
}

TEST_F(Settings, AnUnreadablePlaceCountsAsZero) {
    form.Left = 300;
    form.Top = 450;
    store("WNDO", "left top wide high open");
    form.ReadRegistry();
    EXPECT_EQ(form.Left, 0);
    EXPECT_EQ(form.Top, 0);
    EXPECT_EQ(form.WindowState, kWindowNormal);
    store("WNDO", "1e30 -1e300 1 1 99999999999");
    form.ReadRegistry();
    EXPECT_EQ(form.Left, 0) << "no window system could hold it";
    EXPECT_EQ(form.Top, 0);
    EXPECT_EQ(form.WindowState, kWindowNormal);
}

TEST_F(Settings, AnyPathKeepsTheDefaultsAwayAndWhatIsMissingReadsAsZero) {
    desktop.store.values.clear();
    store("PATH", "x");
    form.ReadRegistry();
    EXPECT_FALSE(form.firstRun);
    EXPECT_EQ(form.guiColorIndex, 0);
    EXPECT_TRUE(form.menu(MenuArray::itmOpt0, 0).Checked);
    EXPECT_FALSE(form.lab.frenchTutorial);
    EXPECT_EQ(form.lab.channel1.grayTable()[77], 77 * 0x10101);
    EXPECT_EQ(stored("PATH"), "x");
}

TEST_F(Settings, AnUnreadableNumberIsBlueEnglishAndTheGreyRamp) {
    for (const char* garbage : {"seven", "-", "&H2", "\xFF\xFE", "NaN", "inf", "()"}) {
        store("GUIC", garbage);
        store("FR", garbage);
        store("LUT", garbage);
        form.ReadRegistry();
        EXPECT_EQ(form.guiColorIndex, 0) << garbage;
        EXPECT_FALSE(form.lab.frenchTutorial) << garbage;
        EXPECT_EQ(form.lab.channel1.grayTable()[200], 200 * 0x10101) << garbage;
    }
}

TEST_F(Settings, ANumberThatNamesNoEntryCountsAsZero) {
    for (const char* number : {"7", "5", "-1", "99", "40000", "1e300", "-1e300"}) {
        store("GUIC", number);
        store("FR", number);
        store("LUT", std::string(number) == "5" ? "7" : number);
        form.ReadRegistry();
        EXPECT_EQ(form.guiColorIndex, 0) << number;
        EXPECT_TRUE(form.menu(MenuArray::itmOpt0, 0).Checked) << number;
        EXPECT_TRUE(form.menu(MenuArray::itmOpt1, 0).Checked) << number;
        EXPECT_EQ(form.lab.channel1.grayTable()[200], 200 * 0x10101) << number;
    }
}

TEST_F(Settings, NumbersStopAtTheFirstOtherCharacterAndRoundHalfToEven) {
    const std::pair<const char*, Integer> cases[] = {{"3 colours", 3}, {"2.5", 2},  {"3.5", 4},
                                                     {"1.5", 2},       {" 4", 4},   {"4.5", 4},
                                                     {"0.5", 0},       {"-0.5", 0}, {"1e0", 1}};
    for (const auto& [text, index] : cases) {
        store("GUIC", text);
        form.ReadRegistry();
        EXPECT_EQ(form.guiColorIndex, index) << text;
    }
}

TEST_F(Settings, GarbageInEveryValueNeverStopsAStart) {
    const unsigned seed = 20240309;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    for (int run = 0; run < 200; ++run) {
        for (const char* name : {"WNDO", "GUIC", "FR", "LUT"}) {
            std::string garbage(random() % 40, ' ');
            for (char& letter : garbage)
                letter = "0123456789 .-+eE x\xE9\0"[random() % 20];
            store(name, garbage);
        }
        EXPECT_NO_THROW(form.ReadRegistry()) << run;
        EXPECT_GE(form.guiColorIndex, 0);
        EXPECT_LE(form.guiColorIndex, 4);
        EXPECT_TRUE(form.WindowState >= 0 && form.WindowState <= 2);
        EXPECT_LE(std::abs(form.Left.get()), 32767 * 15);
    }
}

TEST_F(Settings, SavingWritesThePlaceAndThenThePath) {
    form.Left = 1500.5F;
    form.Top = -30;
    form.Width = 12900;
    form.Height = 10500;
    form.WindowState = kWindowMaximised;
    desktop.log.clear();
    form.SaveRegistry();
    EXPECT_EQ(storeCalls(), (std::vector<std::string>{write("WNDO", "1500.5 -30 12900 10500 2"),
                                                      write("PATH", "C:\\Quillon\\Quillon.exe")}));
}

TEST_F(Settings, AMinimisedWindowIsSavedAsTheWindowSystemTellsIt) {
    form.Left = -480000;
    form.Top = -480000;
    form.Width = 2400;
    form.Height = 405;
    form.WindowState = kWindowMinimised;
    form.SaveRegistry();
    EXPECT_EQ(stored("WNDO"), "-480000 -480000 2400 405 1");
}

TEST_F(Settings, WhatIsSavedIsReadBackAtTheNextStart) {
    form.Left = 345;
    form.Top = 678;
    form.itmOpt0(3);
    form.itmOpt1(1);
    form.SelectLutRow(0);
    form.MouseUp(form.pbLUT, kLeftButton, 0, 1, 55);
    form.SaveRegistry();
    Form1 next(desktop.desktop(), folders);
    next.ReadRegistry();
    EXPECT_EQ(next.Left, 345);
    EXPECT_EQ(next.Top, 678);
    EXPECT_EQ(next.guiColorIndex, 3);
    EXPECT_TRUE(next.lab.frenchTutorial);
    EXPECT_EQ(next.lab.channel1.grayTable(), form.lab.channel1.grayTable());
    EXPECT_EQ(stored("LUT"), "5");
}

TEST_F(Settings, AStoreThatCannotBeWrittenMakesEveryStartTheFirst) {
    desktop.store.values.clear();
    desktop.store.writable = false;
    form.ReadRegistry();
    EXPECT_TRUE(form.firstRun);
    EXPECT_EQ(form.guiColorIndex, 0) << "the default could not be written, so it reads as nothing";
    form.SaveRegistry();
    Form1 next(desktop.desktop(), folders);
    next.ReadRegistry();
    EXPECT_TRUE(next.firstRun);
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

}  // namespace
}  // namespace quillon
