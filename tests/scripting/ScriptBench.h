#pragma once

#include <array>
#include <functional>
#include <string>
#include <vector>

#include "engine/NativePaths.h"
#include "engine/NumberText.h"
#include "scripting/ReadScript.h"
#include "scripting/ScriptHost.h"
#include "tests/support/LabFixture.h"

namespace quillon {

using Lines = std::vector<std::string>;

/// The window as a script sees it: what is asked of it stands in the log, in
/// short form ("FT1(10)", "ring(0, 12.5)"), and the filters and invert flags of
/// the channels follow as they do under the real one.
class RecordingScriptHost : public ScriptHost {
public:
    RecordingScriptHost(CallLog& log, Lab& lab) : log_(log), lab_(lab) {}

    /// Commands, as they stand in the log, that fail with Overflow.
    std::string failing;
    /// Called at the end of the session.
    std::function<void()> onUnload;

    void mnuFT1a(Integer Index) override { filter(Channel::One, "FT1", Index); }
    void mnuFT2a(Integer Index) override { filter(Channel::Two, "FT2", Index); }
    void itmOpt(Integer Index) override { add("opt", Index); }
    void itmFile(Integer Index) override { add("file", Index); }
    void tabClick(Integer Index) override { add("tab", Index); }
    void markInvertEntry(Integer panel, EntryMark mark) override {
        add(mark == EntryMark::Checked ? "mark" : "unmark", panel);
    }
    void SetFilterRing(Integer c, Single R) override {
        addLine("ring(" + std::to_string(c) + ", " + shortestText(R) + ")");
    }
    void NewPanelImage(Integer panel) override { add("new", panel); }
    void SavePanelImage(Integer panel, const std::string& file) override {
        addLine("save(" + std::to_string(panel) + ", " + file + ")");
    }
    void InvertPanel(Integer panel, bool on) override {
        add(on ? "invert" : "revert", panel);
        lab_.channelOf(panel).SetInvert(toInteger((panel - 1) % 3), on);
    }
    void ConvolveSpectra(Integer p) override { add("convolve", p); }
    void DeconvolveSpectra(Integer p) override { add("deconvolve", p); }
    void unload() override {
        addLine("unload()");
        if (onUnload)
            onUnload();
    }

private:
    void filter(Channel which, const std::string& menu, Integer Index) {
        add(menu, Index);
        lab_.channel(which).SetFilterFT(toInteger(Index - 8));
        if (lab_.channel(which).bRing)
            lab_.channel(which).SetFilterRad(20);
    }
    void add(const std::string& call, Integer argument) {
        addLine(call + "(" + std::to_string(argument) + ")");
    }
    void addLine(const std::string& line) {
        log_.add(line);
        if (line == failing)
            throw RunTimeError(ErrorNumber::Overflow);
    }

    CallLog& log_;
    Lab& lab_;
};

/// A lab in which scripts run: three pictures in the image folder ("a.bmp",
/// "b.jpg", "Big Cat.bmp"), a mask file in the script folder ("two.ftmsk"), and
/// a host that records.
class ScriptBench : public LabFixture {
public:
    ScriptBench();
    ~ScriptBench() override;
    void TestBody() override {}

    /// Runs a text as a script and gives what it did, one line each: the host's
    /// calls, "load PATH", "title TEXT", "transform 1" (a draw of channel 1's
    /// spectrum), "stop TEXT" and "warn TEXT" for dialogs titled "Script Error",
    /// "plain TEXT" for one without icon and title. What a reset does at the
    /// start is checked and left out.
    Lines run(const std::string& script);
    /// The channels, one text each, empty for one that nothing was set in:
    /// "file=a.bmp low=12.5 masks=1,2,3,4 invert=13".
    std::string state(Channel which) const;
    /// The strip's cell for messages.
    std::string message() const { return cells[2].Caption; }

    using LabFixture::cells;
    using LabFixture::channel1;
    using LabFixture::channel2;
    using LabFixture::desktop;
    using LabFixture::lab;
    using LabFixture::pb1;
    using LabFixture::pb3;
    using LabFixture::pb6;
    RecordingScriptHost host{desktop.calls, lab};
    const std::string scriptFile = lab.folders.ScriptPath + "test.ftscr";

private:
    /// Tells what is shown at once while a script runs.
    class Watcher : public ControlWatcher {
    public:
        explicit Watcher(CallLog& log) : log_(log) {}
        void stale(Control& /*control*/) override {}
        void showNow(Control& control) override;

    private:
        CallLog& log_;
    };

    Watcher watcher_{desktop.calls};
};

/// One script with what it is to do and what it leaves behind.
struct ScriptCase {
    const char* what;
    std::string script;
    Lines actions;
    std::string top;
    std::string bottom;
};

/// Runs every case in a lab of its own.
void expectScripts(const std::vector<ScriptCase>& cases);

// Lines of expected actions.
inline std::string stopFor(const std::string& path) {
    return "stop File not found:\n" + shownPath(path);
}
inline std::string warnFor(const std::string& path) {
    return "warn File not found:\n" + shownPath(path);
}
inline std::string failure(const std::string& keyword, const std::string& description) {
    return "plain Error in Read Script: [" + keyword + "]" + description;
}

}  // namespace quillon
