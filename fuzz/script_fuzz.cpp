#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/NullLab.h"
#include "fuzz/require.h"
#include "scripting/ReadScript.h"

// Any bytes as a script, on a window where nothing happens. Whatever they are,
// the run ends by itself, speaks in its own words, asks only for what there is,
// and asks once for each command that waits for the end.

namespace {

using namespace quillon;

class NullHost : public ScriptHost {
public:
    explicit NullHost(Lab& lab) : lab_(lab) {}

    int deferred = 0;

    void mnuFT1a(Integer Index) override { filter(lab_.channel1, Index); }
    void mnuFT2a(Integer Index) override { filter(lab_.channel2, Index); }
    void itmOpt(Integer Index) override {
        require(Index == 3 || Index == 7 || Index == 8 || Index == 12, "an option that there is");
        deferred += Index == 7 || Index == 8 ? 1 : 0;
    }
    void itmFile(Integer /*Index*/) override { require(false, "no script opens a folder"); }
    void tabClick(Integer /*Index*/) override { require(false, "no script turns to a tab"); }
    void markInvertEntry(Integer panel, EntryMark /*mark*/) override { checkPanel(panel); }
    void SetFilterRing(Integer c, Single R) override {
        require(c == 0 || c == 1, "a ring that there is");
        require(R - R == 0, "a radius is a number");
    }
    void NewPanelImage(Integer panel) override {
        require(panel == 1 || panel == 4, "an image panel");
    }
    void SavePanelImage(Integer panel, const std::string& file) override {
        checkPanel(panel);
        require(!file.empty(), "a script never opens the save dialog");
    }
    void InvertPanel(Integer panel, bool on) override {
        checkPanel(panel);
        require(on, "a script only inverts");
    }
    void ConvolveSpectra(Integer p) override { combine(p); }
    void DeconvolveSpectra(Integer p) override { combine(p); }
    void unload() override { ++deferred; }

private:
    static void checkPanel(Integer panel) {
        require(panel >= 1 && panel <= 6, "a panel that there is");
    }
    void combine(Integer p) {
        require(p == 1 || p == 4, "an image panel");
        ++deferred;
    }
    static void filter(clComplexImage& channel, Integer Index) {
        require(Index >= 9 && Index <= 12, "a filter that there is");
        channel.SetFilterFT(toInteger(Index - 8));
    }

    Lab& lab_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static NullLab nothing;
    NullHost host(nothing.lab);
    nothing.files.bytes.assign(reinterpret_cast<const char*>(data), size);
    nothing.dialogs.messages = 0;
    nothing.dialogs.lastMessage.clear();
    nothing.channel1.file.clear();
    nothing.channel2.file.clear();
    ReadScript(nothing.lab, host, "C:\\s.ftscr");
    require(host.deferred <= 7, "what waits runs once");
    for (const clComplexImage* channel : {&nothing.channel1, &nothing.channel2})
        require(channel->nmask >= 0 && channel->nmask <= kMaskLimit, "the list holds a thousand");
    const std::string& said = nothing.dialogs.lastMessage;
    require(nothing.dialogs.messages == 0 || said.starts_with("File not found:\n") ||
                said.starts_with("Error in Read Script: ["),
            "a script speaks in its own words");
    return 0;
}
