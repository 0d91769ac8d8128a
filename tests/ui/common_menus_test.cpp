#include <initializer_list>

#include "tests/support/CommandFixture.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

/// The File and Options menus.
class CommonMenus : public CommandFixture {
protected:
    /// The marks of the five views as "x----".
    std::string viewMarks() {
        std::string marks;
        for (Integer index = 12; index <= 16; ++index)
            marks += form.menu(MenuArray::itmOpt, index).Checked ? 'x' : '-';
        return marks;
    }
};

TEST_F(CommonMenus, ViewImageAndScriptsFolderOpenTheUsersFolders) {
    form.click(MenuArray::itmFile, 0);
    form.click(MenuArray::itmFile, 1);
    const std::vector<RecordingShell::Call> expected = {{"explorer.exe", folders.ImagePath, "0"},
                                                        {"explorer.exe", folders.ScriptPath, "0"}};
    EXPECT_EQ(desktop.shell.calls, expected);
}

TEST_F(CommonMenus, AFolderThatCannotBeShownOpensNoDialog) {
    desktop.shell.outcomes["explorer.exe"] = Opening::NoProgram;
    EXPECT_EQ(errorOf([&] { form.itmFile(0); }), ErrorNumber{});
    EXPECT_EQ(errorOf([&] { form.itmFile(1); }), ErrorNumber{});
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

TEST_F(CommonMenus, ExitEndsTheSession) {
    form.click(MenuArray::itmFile, 5);
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_EQ(host.unloads, 1);
    EXPECT_FALSE(desktop.calls.of({"store.write"}).empty()) << "the settings are saved";
}

TEST_F(CommonMenus, SeparatorsOfTheFileMenuDoNothing) {
    for (const Integer index : std::initializer_list<Integer>{-1, 2, 4, 6})
        form.click(MenuArray::itmFile, index);
    for (const Integer index : std::initializer_list<Integer>{-1, 3})
        form.click(MenuArray::itmSCR, index);
    EXPECT_TRUE(desktop.log.empty());
}

TEST_F(CommonMenus, RecalculateAllClearsEachReconstructionsMarkBeforeItsChannelRuns) {
    form.pb3.Tag = "3D";
    form.pb6.Tag = "3D";
    std::vector<std::string> tags;
    watcher.onShow = [&](Control& control) {
        if (&control == &form.pb2 || &control == &form.pb5)
            tags.push_back(form.pb3.Tag + "|" + form.pb6.Tag);
    };
    form.click(MenuArray::itmOpt, 3);
    watcher.onShow = nullptr;
    EXPECT_EQ(tags, (std::vector<std::string>{"|3D", "!|"}));
    EXPECT_EQ(transforms(), 6);
}

TEST_F(CommonMenus, AutoCalculateTurnsTheMarkAndTheSwitchOver) {
    EXPECT_TRUE(form.lab.autoCalculate);
    form.click(MenuArray::itmOpt, 4);
    EXPECT_FALSE(form.menu(MenuArray::itmOpt, 4).Checked);
    EXPECT_FALSE(form.lab.autoCalculate);
    form.click(MenuArray::itmOpt, 4);
    EXPECT_TRUE(form.menu(MenuArray::itmOpt, 4).Checked);
    EXPECT_TRUE(form.lab.autoCalculate);
    EXPECT_EQ(transforms(), 0);
}

TEST_F(CommonMenus, AViewIsCommonToBothChannelsAndAnnouncedFirst) {
    const std::vector<std::string> captions = {"View FT Magnitudes", "View FT Mag. + Phases",
                                               "View FT Phases", "View FT Real Part",
                                               "View FT Imag Part"};
    for (Integer mode = 4; mode >= 0; --mode) {
        desktop.log.clear();
        form.click(MenuArray::itmOpt, static_cast<Integer>(12 + mode));
        std::string marks = "-----";
        marks[static_cast<std::size_t>(mode)] = 'x';
        EXPECT_EQ(viewMarks(), marks);
        EXPECT_EQ(status(2), captions[static_cast<std::size_t>(mode)]);
        EXPECT_EQ(form.lab.channel1.mView, mode);
        EXPECT_EQ(form.lab.channel2.mView, mode);
        EXPECT_LT(placeOf("showNow lbSTB(2)"), placeOf("showNow pb2"));
        EXPECT_LT(placeOf("showNow pb2"), placeOf("showNow pb5"));
        EXPECT_LT(placeOf("showNow pb5"), desktop.log.size());
        EXPECT_EQ(transforms(), 0);
    }
}

TEST_F(CommonMenus, EveryOptionPaintsTheDarkSurroundOfALowPassAgain) {
    for (const Channel which : kBoth) {
        clickFilter(which, 10);
        const Channel other = which == Channel::One ? Channel::Two : Channel::One;
        for (const Integer index :
             std::initializer_list<Integer>{-1, 0, 1, 2, 3, 4, 5, 6, 11, 12, 14, 16, 17}) {
            spectrum(which).Refresh();
            ASSERT_FALSE(spectrum(which).hasScreenLayer());
            form.mem.Tag.clear();
            form.click(MenuArray::itmOpt, index);
            EXPECT_EQ(form.mem.Tag, "low") << index;
            EXPECT_TRUE(spectrum(which).hasScreenLayer()) << index;
            EXPECT_EQ(spectrum(which).GetPixel(0, 0), 0) << index;
            EXPECT_FALSE(spectrum(other).hasScreenLayer()) << index;
        }
        clickFilter(which, 9);
    }
}

TEST_F(CommonMenus, WithoutALowPassNoOptionPaintsASurround) {
    clickFilter(Channel::One, 11);
    clickFilter(Channel::Two, 12);
    form.mem.Tag.clear();
    for (const Integer index : std::initializer_list<Integer>{1, 2, 12, 17})
        form.click(MenuArray::itmOpt, index);
    EXPECT_EQ(form.mem.Tag, "");
    EXPECT_FALSE(form.pb2.hasScreenLayer());
    EXPECT_FALSE(form.pb5.hasScreenLayer());
}

TEST_F(CommonMenus, OptionsDoNotYieldToTheEventLoop) {
    for (const Integer index : std::initializer_list<Integer>{0, 1, 2, 3, 4, 12, 13})
        form.click(MenuArray::itmOpt, index);
    EXPECT_EQ(desktop.screen.yields, 0);
}

}  // namespace
}  // namespace quillon
