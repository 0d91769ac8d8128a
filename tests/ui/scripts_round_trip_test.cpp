#include <random>
#include <string>

#include "tests/support/CommandFixture.h"

// Scripts that are written and read again, and the script of a session.

namespace quillon {
namespace {

class RoundTrip : public CommandFixture {
protected:
    struct State {
        std::string file;
        bool lowpass = false;
        bool highpass = false;
        Single radius = 0;
        std::vector<std::array<Single, 4>> masks;
        bool mask = false;
        std::array<bool, 3> inverts{};
        friend bool operator==(const State&, const State&) = default;
    };

    State stateOf(Channel which) {
        const clComplexImage& from = channel(which);
        State state{from.file, from.bLowpass, from.bHighpass, 0, {}, from.bMask, {}};
        if (from.bRing)
            state.radius = from.filter_rad;
        for (Integer i = 0; i < from.nmask; ++i) {
            state.masks.emplace_back();
            from.GetMask(i, state.masks.back());
        }
        for (Integer kind = 0; kind < 3; ++kind)
            state.inverts[static_cast<std::size_t>(kind)] = from.GetInvert(kind);
        return state;
    }

    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

    /// A state that a script can hold: radii of whole numbers and a half, as the
    /// ring makes of whole numbers, and masks anywhere.
    void makeRandom(Channel which) {
        channel(which).SetInvert(0, false);
        form.LoadPanelImage(imagePanelId(which), below(2) == 0 ? sample1 : sample2);
        if (below(2) == 0)
            form.InvertPanel(imagePanelId(which), true);
        clickFilter(which, toInteger(9 + below(4)));
        if (channel(which).bRing)
            form.SetFilterRing(static_cast<Integer>(which), static_cast<Single>(2 * below(60)));
        if (channel(which).bMask)
            for (int i = below(20); i > 0; --i)
                channel(which).AddMask(toInteger(below(256)), toInteger(below(256)),
                                       toInteger(below(400) - 100), toInteger(below(400) - 100));
        for (Integer kind = 1; kind < 3; ++kind)
            channel(which).SetInvert(kind, below(2) == 0);
    }

    static constexpr unsigned kSeed = 5;
    std::mt19937 random_{kSeed};
};

TEST_F(RoundTrip, BringsBackRandomStatesOfBothChannels) {
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    const std::string path = folders.ScriptPath + "trip.ftscr";
    for (int round = 0; round < 30; ++round) {
        SCOPED_TRACE("round " + std::to_string(round));
        makeRandom(Channel::One);
        makeRandom(Channel::Two);
        const State top = stateOf(Channel::One);
        const State bottom = stateOf(Channel::Two);
        form.WriteScript(path, "Trip");
        const std::string written = desktop.files.bytesOf(path);
        form.ResetForScript();
        form.ReadScript(path);
        EXPECT_TRUE(desktop.dialogs.messages.empty());
        EXPECT_TRUE(stateOf(Channel::One) == top) << written;
        EXPECT_TRUE(stateOf(Channel::Two) == bottom) << written;
        form.WriteScript(path, "Trip");
        EXPECT_EQ(desktop.files.bytesOf(path), written);
    }
}

TEST_F(RoundTrip, LosesACommaOfAFileNameAndOfATitle) {
    const std::string path = folders.ScriptPath + "trip.ftscr";
    desktop.pictures.add("C:\\x,y.bmp", discPicture());
    form.LoadPanelImage(1, "C:\\x,y.bmp");
    form.WriteScript(path, "a,b");
    form.ReadScript(path);
    ASSERT_EQ(desktop.dialogs.messages.size(), 1U);
    EXPECT_EQ(desktop.dialogs.messages[0].text, "File not found:\nC:/x.y.bmp");
}

TEST_F(RoundTrip, TakesARadiusOfAHalfAndMoreBackThroughTheRing) {
    const std::string path = folders.ScriptPath + "trip.ftscr";
    form.mnuFT1a(10);
    form.SetFilterRing(0, 12.5F);
    form.WriteScript(path, "");
    EXPECT_NE(desktop.files.bytesOf(path).find("LOWPASS\t12\r\n"), std::string::npos);
    form.ReadScript(path);
    EXPECT_EQ(form.lab.channel1.filter_rad, 12.5F);
}

TEST_F(RoundTrip, StoresADrawnImageInTheSessionScriptOnly) {
    desktop.environment.time = {2026, 11, 15, 1, 12};
    form.NewPanelImage(1);
    form.lab.channel1.file.clear();
    form.pb1.PSet(100, 100, kWhite);
    form.lab.channel1.runFOURN(1, 0);
    form.unload();
    EXPECT_EQ(host.unloads, 1);
    const std::string image = folders.ImagePath + "111526_0112t.bmp";
    EXPECT_EQ(desktop.files.bytesOf(folders.ScriptPath + "last.ftscr"),
              "TITLE\tLast Images\r\nLOAD1\t" + image + "\r\nBOTTOM\r\nLOAD1\t" + sample2 + "\r\n");
    EXPECT_TRUE(desktop.files.exists(image));
}

TEST_F(RoundTrip, EndsTheSessionOnceByExitAndStillRunsTheRest) {
    desktop.files.addFile("C:\\e.ftscr", "EXIT\r\nLOWPASS 5\r\nCONVOLVE1");
    form.ReadScript("C:\\e.ftscr");
    EXPECT_TRUE(form.isUnloaded());
    EXPECT_EQ(host.unloads, 1);
    const std::string last = desktop.files.bytesOf(folders.ScriptPath + "last.ftscr");
    EXPECT_NE(last.find("LOWPASS\t6\r\n"), std::string::npos)
        << "5.5, which the ring makes of 5, is rounded to the even number: " << last;
    EXPECT_EQ(status(2), "Convolution Performed");
    EXPECT_LT(placeOf("files.write(" + folders.ScriptPath + "last.ftscr)"),
              placeOf("host.unloaded()"));
    form.unload();
    EXPECT_EQ(host.unloads, 1);
}

TEST_F(RoundTrip, RunsTheScriptsMenu) {
    desktop.dialogs.cancelOpen();
    form.itmSCR(0);
    desktop.dialogs.cancelSave();
    form.itmSCR(1);
    desktop.dialogs.answerOpen("C:\\Q\\s.ftscr");
    form.itmSCR(2);
    EXPECT_EQ(desktop.dialogs.opens.size(), 2U);
    EXPECT_EQ(desktop.dialogs.saves.size(), 1U);
    EXPECT_EQ(desktop.shell.calls.size(), 1U);
    form.Click(form.lbTAB(1));
    form.Click(form.lbTAB(2));
    desktop.files.addFile("C:\\Q\\s.ftscr", "LOWPASS 5");
    form.LoadScriptCommand("C:\\Q\\s.ftscr");
    EXPECT_EQ(form.lab.viewTab, 1) << "the panels show";
    EXPECT_TRUE(form.lab.channel1.bLowpass);
}

}  // namespace
}  // namespace quillon
