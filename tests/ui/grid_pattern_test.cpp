#include "tests/support/CommandFixture.h"

namespace quillon {
namespace {

/// The entry "Grid Pattern" of the Drawing menus.
class GridPatternEntry : public CommandFixture {
protected:
    void choose(Channel which) {
        desktop.log.clear();
        form.click(which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b, 3);
    }
};

TEST_F(GridPatternEntry, TheQuestionExplainsTheCodeAndOffersTheFirstOne) {
    desktop.dialogs.cancelInput();
    choose(Channel::One);
    ASSERT_EQ(desktop.dialogs.inputs.size(), 1U);
    EXPECT_EQ(desktop.dialogs.inputs[0].prompt,
              "Enter code in format b.w.x.i\n(black.white.xor.invert)\n"
              "b and w range from 1-254\nx and i are 0 or 1");
    EXPECT_EQ(desktop.dialogs.inputs[0].title, "Enter Grid Pattern Code");
    EXPECT_EQ(desktop.dialogs.inputs[0].preset, "10.2.1.0");
}

TEST_F(GridPatternEntry, CancelledItLeavesTheRollToolAndTheOldImage) {
    for (const Channel which : kBoth) {
        const MenuArray array = which == Channel::One ? MenuArray::mnuImg1b : MenuArray::mnuImg2b;
        const Bitmap before = image(which).Image();
        image(which).MousePointer = 0;
        desktop.dialogs.cancelInput();
        choose(which);
        EXPECT_EQ(channel(which).mDraw, 2);
        EXPECT_FALSE(form.menu(array, 0).Checked);
        EXPECT_FALSE(form.menu(array, 1).Checked);
        EXPECT_TRUE(form.menu(array, 2).Checked);
        EXPECT_FALSE(form.menu(array, 3).Checked);
        EXPECT_EQ(image(which).MousePointer, 15);
        EXPECT_EQ(image(which).Image(), before);
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(GridPatternEntry, ACodeOfThreeCharactersIsRefusedSilently) {
    const Bitmap before = form.pb1.Image();
    // The last has three characters in four bytes.
    for (const char* code : {"", "1", "1.1", "1.\u00e9"}) {
        desktop.dialogs.answerInput(code);
        choose(Channel::One);
    }
    EXPECT_EQ(form.pb1.Image(), before);
    EXPECT_EQ(form.gridCode, "10.2.1.0");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
    EXPECT_FALSE(desktop.clipboard.content);
}

TEST_F(GridPatternEntry, ThePatternBecomesTheChannelsImageByWayOfTheClipboard) {
    for (const Channel which : kBoth) {
        image(which).setAutoRedraw(true);
        desktop.dialogs.answerInput("1.10");
        choose(which);
        Bitmap expected(256, 256);
        for (int y = 0; y < 256; ++y)
            for (int x = 0; x < 256; ++x)
                expected.at(x, y) = x % 11 < 10 || y % 11 < 10 ? 0xFFFFFF : 0;
        ASSERT_TRUE(desktop.clipboard.content);
        EXPECT_EQ(*desktop.clipboard.content, expected);
        EXPECT_EQ(image(which).Image(), expected);
        EXPECT_EQ(image(which).Picture(), expected);
        EXPECT_EQ(channel(which).file, "C:\\Temp\\clipboard.bmp");
        ASSERT_FALSE(desktop.pictures.saved.empty());
        EXPECT_EQ(desktop.pictures.saved.back().first, "C:\\Temp\\clipboard.bmp");
        EXPECT_TRUE(desktop.dialogs.messages.empty());
    }
}

TEST_F(GridPatternEntry, TheLettersGAndPCountAsCharacters) {
    const std::pair<const char*, PixelWord> codes[] = {{"p1.1", 0}, {"g10.2.1.0", 0xFFFFFF}};
    for (const auto& [code, word] : codes) {
        desktop.dialogs.answerInput(code);
        choose(Channel::One);
        EXPECT_EQ(form.pb1.Image().at(0, 5), word) << code;
        EXPECT_EQ(form.pb1.Image().at(5, 5), 0) << code;
        EXPECT_EQ(form.gridCode, code);
    }
}

TEST_F(GridPatternEntry, AHalfDoneLatticeIsToldOfAndThePatternDoesNotReachTheImage) {
    form.click(MenuArray::mnuImg2b, 1);
    form.MouseDown(form.pb4, kLeftButton, 0, 10, 12);
    desktop.dialogs.answerInput("10.2.1.0");
    choose(Channel::Two);
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0],
              (RecordingDialogs::Message{"!", "", MessageIcon::None, MessageButtons::Ok}));
    EXPECT_EQ(form.pb4.Image(), Bitmap(256, 256, 0));
}

TEST_F(GridPatternEntry, TheLastCodeIsOfferedToBothChannels) {
    desktop.dialogs.answerInput("g6.3.0.1");
    choose(Channel::One);
    desktop.dialogs.cancelInput();
    choose(Channel::Two);
    EXPECT_EQ(desktop.dialogs.inputs.back().preset, "g6.3.0.1");
}

TEST_F(GridPatternEntry, AFailureIsToldAndItsCodeKept) {
    const Bitmap before = form.pb4.Image();
    desktop.dialogs.answerInput("1234");
    choose(Channel::Two);
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0],
              (RecordingDialogs::Message{"Error: Subscript out of range", "", MessageIcon::None,
                                         MessageButtons::Ok}));
    EXPECT_EQ(form.gridCode, "1234");
    EXPECT_EQ(form.pb4.Image(), before);
}

TEST_F(GridPatternEntry, WhereTheImageCannotBeTakenThePatternStaysOnThePanel) {
    form.pb1.setAutoRedraw(true);
    desktop.pictures.failingSaves.insert("C:\\Temp\\clipboard.bmp");
    desktop.dialogs.answerInput("1.10");
    choose(Channel::One);
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_TRUE(desktop.dialogs.messages[0].text.starts_with("Not pasted"))
        << desktop.dialogs.messages[0].text;
    EXPECT_EQ(form.pb1.Image(), *desktop.clipboard.content);
}

}  // namespace
}  // namespace quillon
