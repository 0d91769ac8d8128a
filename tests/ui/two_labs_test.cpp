#include "tests/support/FormFixture.h"

// Two labs of one user at once: they share the folder of the session script.

namespace quillon {
namespace {

class TwoLabs : public OpenForm {
protected:
    std::string text(const std::string& name) {
        return desktop.files.bytesOf(folders.ScriptPath + name);
    }
    bool isThere(const std::string& name) {
        return desktop.files.exists(folders.ScriptPath + name);
    }

    RecordingHost otherHost{desktop.calls};
    Form1 other{desktop.desktop(), folders};
};

TEST_F(TwoLabs, TheLaterClosingWinsAndTheEarlierScriptIsKept) {
    desktop.files.addFile(folders.ScriptPath + "last.ftscr", "TITLE\tof yesterday\r\n");
    Form1 first{desktop.desktop(), folders};
    first.Form_Load();
    other.Form_Load();
    first.mnuFT1a(10);
    first.unload();
    const std::string earlier = text("last.ftscr");
    EXPECT_NE(earlier.find("LOWPASS"), std::string::npos) << earlier;
    EXPECT_FALSE(isThere("earlier.ftscr")) << "yesterday's script is replaced as ever";
    other.mnuFT2a(11);
    other.unload();
    EXPECT_NE(text("last.ftscr").find("HIGHPASS"), std::string::npos) << text("last.ftscr");
    EXPECT_EQ(text("earlier.ftscr"), earlier);
}

TEST_F(TwoLabs, OneLabAfterTheOtherKeepsNoEarlierScript) {
    form.unload();
    other.Form_Load();
    other.mnuFT1a(10);
    other.unload();
    EXPECT_FALSE(isThere("earlier.ftscr"));
}

TEST_F(TwoLabs, AFirstScriptThatTheOtherLabHasWrittenIsKeptToo) {
    other.Form_Load();
    form.mnuFT1a(10);
    form.unload();
    const std::string earlier = text("last.ftscr");
    other.unload();
    EXPECT_EQ(text("earlier.ftscr"), earlier);
}

TEST_F(TwoLabs, ScriptsThatAgreeAreNotKeptTwice) {
    other.Form_Load();
    form.unload();
    other.unload();
    desktop.files.addFile(folders.ScriptPath + "earlier.ftscr", "of another day");
    Form1 third{desktop.desktop(), folders};
    third.Form_Load();
    third.unload();
    EXPECT_EQ(text("earlier.ftscr"), "of another day");
}

TEST_F(TwoLabs, AClosingThatFailedLeavesNoScriptOfItsOwnAsTheEarlierOne) {
    other.Form_Load();
    form.mnuFT1a(10);
    form.unload();
    const std::string earlier = text("last.ftscr");
    // What comes behind the writing may fail; then the window closes once more.
    other.Form_QueryUnload();
    const std::string own = text("last.ftscr");
    other.mnuFT1a(11);
    other.Form_QueryUnload();
    EXPECT_NE(text("last.ftscr"), own);
    EXPECT_EQ(text("earlier.ftscr"), earlier);
}

}  // namespace
}  // namespace quillon
