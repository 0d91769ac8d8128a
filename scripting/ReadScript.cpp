#include "scripting/ReadScript.h"

#include <array>
#include <exception>
#include <string_view>
#include <vector>

#include "app/image_io.h"
#include "engine/NativePaths.h"
#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"
#include "scripting/ReadMaskFile.h"
#include "scripting/script_text.h"

namespace quillon {

namespace {

// Filter modes.
constexpr Integer kNoFilter = 1;
constexpr Integer kLowPass = 2;
constexpr Integer kHighPass = 3;
constexpr Integer kCustomMasks = 4;

/// The filter entries of the FT menu follow each other in the order of the modes.
constexpr Integer kFilterEntriesFrom = 8;

// Entries of the options menu.
constexpr Integer kRecalculateAll = 3;
constexpr Integer kRandomizePhases = 7;
constexpr Integer kRandomizeMagnitudes = 8;
constexpr Integer kViewMagnitudes = 12;

/// The commands that wait for the end of a script, in the order in which they run.
enum class Deferred : Integer {
    Exit,
    RandomPhases,
    RandomModuli,
    ConvolveInto1,
    ConvolveInto2,
    DeconvolveInto1,
    DeconvolveInto2
};
constexpr std::size_t kDeferredCount = 7;

void chooseFilter(ScriptHost& host, Channel which, Integer mode) {
    const Integer entry = toInteger(kFilterEntriesFrom + mode);
    if (which == Channel::One)
        host.mnuFT1a(entry);
    else
        host.mnuFT2a(entry);
}

/// One run of a script, from the opening of its file.
class ScriptRun {
public:
    ScriptRun(Lab& lab, ScriptHost& host) : lab_(lab), host_(host) {}

    void run(const std::string& path);

private:
    struct Command {
        std::string_view keyword;
        void (ScriptRun::*act)(Integer argument);
        Integer argument;
    };
    static const std::array<Command, 21> kCommands;

    void read(std::string text);
    void obey(std::string line);

    // The commands; what the argument of each says stands in the table.
    void chooseSection(Integer channel);
    void showTitle(Integer unused);
    void loadImage(Integer unused);
    void newImage(Integer unused);
    void cutByRing(Integer mode);
    void setMasks(Integer unused);
    void deferInvert(Integer kind);
    void savePanel(Integer kind);
    void defer(Integer command);

    void readMaskRows(Integer count);
    void runClosingStage();
    void finishChannel(Channel which);
    void runDeferred(Deferred command);

    Integer imagePanel() const noexcept { return imagePanelId(section_); }

    Lab& lab_;
    ScriptHost& host_;
    LineReader lines_{std::string()};
    /// Set by a missing image: the lines behind it are not read.
    bool ended_ = false;
    Channel section_ = Channel::One;
    std::string keyword_;
    std::vector<std::string> words_;
    std::string argument_;
    Single value_ = 0;
    /// By channel, and by panel: image, FT, reconstruction.
    std::array<std::array<bool, 3>, 2> inverts_{};
    std::array<bool, kDeferredCount> deferred_{};
};

// In the order in which a keyword is compared. A first word that is none of them
// is ignored, which makes its line a second kind of comment. The argument is a
// channel, a filter mode, a panel of the channel (1 image, 2 FT, 3
// reconstruction) or a command that waits. The 1 of LOAD1 and NEW1 means nothing.
constexpr std::array<ScriptRun::Command, 21> ScriptRun::kCommands{{
    {"TOP", &ScriptRun::chooseSection, 1},
    {"BOTTOM", &ScriptRun::chooseSection, 2},
    {"TITLE", &ScriptRun::showTitle, 0},
    {"LOAD1", &ScriptRun::loadImage, 0},
    {"NEW1", &ScriptRun::newImage, 0},
    {"LOWPASS", &ScriptRun::cutByRing, kLowPass},
    {"HIGHPASS", &ScriptRun::cutByRing, kHighPass},
    {"MASK", &ScriptRun::setMasks, 0},
    {"INVERT1", &ScriptRun::deferInvert, 1},
    {"INVERT2", &ScriptRun::deferInvert, 2},
    {"INVERT3", &ScriptRun::deferInvert, 3},
    {"SAVE1", &ScriptRun::savePanel, 1},
    {"SAVE2", &ScriptRun::savePanel, 2},
    {"SAVE3", &ScriptRun::savePanel, 3},
    {"EXIT", &ScriptRun::defer, static_cast<Integer>(Deferred::Exit)},
    {"RNDPHASES", &ScriptRun::defer, static_cast<Integer>(Deferred::RandomPhases)},
    {"RNDMODULI", &ScriptRun::defer, static_cast<Integer>(Deferred::RandomModuli)},
    {"CONVOLVE1", &ScriptRun::defer, static_cast<Integer>(Deferred::ConvolveInto1)},
    {"CONVOLVE2", &ScriptRun::defer, static_cast<Integer>(Deferred::ConvolveInto2)},
    {"DECONVOLVE1", &ScriptRun::defer, static_cast<Integer>(Deferred::DeconvolveInto1)},
    {"DECONVOLVE2", &ScriptRun::defer, static_cast<Integer>(Deferred::DeconvolveInto2)},
}};

void ScriptRun::run(const std::string& path) {
    try {
        read(lab_.desktop.files.read(path));
        runClosingStage();
    } catch (const std::exception& error) {
        lab_.desktop.dialogs.messageBox("Error in Read Script: [" + keyword_ + "]" + error.what(),
                                        "", MessageIcon::None, MessageButtons::Ok);
    }
}

void ScriptRun::read(std::string text) {
    lines_ = LineReader(std::move(text));
    while (!ended_ && !lines_.atEnd())
        obey(withoutOuterBlanks(lines_.next()));
}

void ScriptRun::obey(std::string line) {
    if (isSilent(line))
        return;
    // The line is not trimmed again: one that began with a tab now begins with a
    // blank, and its argument with the keyword.
    line = withPointsAndBlanks(std::move(line));
    words_ = SplitWords(line);
    keyword_ = upperCased(words_.front());
    value_ = words_.size() > 1 ? leadingSingle(words_[1]) : 0;
    argument_ = argumentText(line);
    for (const Command& command : kCommands)
        if (keyword_ == command.keyword)
            return (this->*command.act)(command.argument);
}

void ScriptRun::chooseSection(Integer channel) {
    section_ = channel == 1 ? Channel::One : Channel::Two;
}

void ScriptRun::showTitle(Integer /*unused*/) {
    lab_.ShowStatus(2, argument_);
}

void ScriptRun::loadImage(Integer /*unused*/) {
    const std::string path = inFolder(lab_.folders.ImagePath, argument_);
    if (FileExists(lab_.desktop.files, path)) {
        loadImageFile(lab_, section_, path);
        lab_.fileLoaded(section_);
        return;
    }
    lab_.desktop.dialogs.messageBox("File not found:\n" + shownPath(path), "Script Error",
                                    MessageIcon::Critical, MessageButtons::Ok);
    ended_ = true;
}

void ScriptRun::newImage(Integer /*unused*/) {
    SetFilterMode(lab_, host_, imagePanel(), kNoFilter, 0);
    host_.NewPanelImage(imagePanel());
}

void ScriptRun::cutByRing(Integer mode) {
    SetFilterMode(lab_, host_, imagePanel(), mode, value_);
}

void ScriptRun::setMasks(Integer /*unused*/) {
    SetFilterMode(lab_, host_, imagePanel(), kCustomMasks, value_);
    // The number decides, not the form of the word: "3rings.ftmsk" is a count of
    // 3, and "0.0" the name of a file.
    if (value_ > 0) {
        readMaskRows(toInteger(value_));
    } else if (words_.size() < 2) {
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    } else if (words_[1] != "0") {
        ReadMaskFile(lab_, imagePanel(), inFolder(lab_.folders.ScriptPath, argument_));
    }
}

void ScriptRun::readMaskRows(Integer count) {
    // Rows are read as rows: a comment or an empty line among them is a bad row.
    for (Integer i = 0; i < count; ++i) {
        const std::string row = withPointsAndBlanks(withoutOuterBlanks(lines_.next()));
        const std::array<Integer, 4> corners = maskCorners(SplitWords(row));
        lab_.channel(section_).AddMask(corners[0], corners[1], corners[2], corners[3]);
    }
}

void ScriptRun::deferInvert(Integer kind) {
    inverts_[static_cast<std::size_t>(section_)][static_cast<std::size_t>(kind - 1)] = true;
}

void ScriptRun::savePanel(Integer kind) {
    host_.SavePanelImage(toInteger(imagePanel() + kind - 1),
                         inFolder(lab_.folders.ImagePath, argument_));
}

void ScriptRun::defer(Integer command) {
    deferred_[static_cast<std::size_t>(command)] = true;
}

void ScriptRun::runClosingStage() {
    finishChannel(Channel::One);
    finishChannel(Channel::Two);
    // EXIT comes first: the window closes before the others run.
    for (std::size_t i = 0; i < kDeferredCount; ++i)
        if (deferred_[i])
            runDeferred(static_cast<Deferred>(i));
}

void ScriptRun::finishChannel(Channel which) {
    if (lab_.channel(which).file.empty())
        return;
    lab_.ClearChannelTags(imagePanelId(which));
    lab_.channel(which).CalculateAll();
    // After the transform, so that an inverted image keeps its own spectrum.
    for (Integer kind = 1; kind <= 3; ++kind)
        if (inverts_[static_cast<std::size_t>(which)][static_cast<std::size_t>(kind - 1)])
            ApplyInvert(host_, imagePanelId(which), kind);
}

void ScriptRun::runDeferred(Deferred command) {
    const Integer image1 = imagePanelId(Channel::One);
    const Integer image2 = imagePanelId(Channel::Two);
    switch (command) {
        case Deferred::Exit:
            return host_.unload();
        case Deferred::RandomPhases:
            return host_.itmOpt(kRandomizePhases);
        case Deferred::RandomModuli:
            return host_.itmOpt(kRandomizeMagnitudes);
        case Deferred::ConvolveInto1:
            return host_.ConvolveSpectra(image1);
        case Deferred::ConvolveInto2:
            return host_.ConvolveSpectra(image2);
        case Deferred::DeconvolveInto1:
            return host_.DeconvolveSpectra(image1);
        case Deferred::DeconvolveInto2:
            return host_.DeconvolveSpectra(image2);
    }
}

}  // namespace

void ReadScript(Lab& lab, ScriptHost& host, const std::string& path) {
    ResetForScript(lab, host);
    ScriptRun(lab, host).run(path);
}

void ResetForScript(Lab& lab, ScriptHost& host) {
    for (const Channel which : {Channel::One, Channel::Two})
        if (lab.channel(which).bFilter)
            chooseFilter(host, which, kNoFilter);
    for (Integer kind = 0; kind <= 2; ++kind)
        for (const Channel which : {Channel::One, Channel::Two}) {
            host.markInvertEntry(toInteger(imagePanelId(which) + kind), EntryMark::Unchecked);
            lab.channel(which).SetInvert(kind, false);
        }
    host.itmOpt(kViewMagnitudes);
    host.itmOpt(kRecalculateAll);
}

void SetFilterMode(Lab& lab, ScriptHost& host, Integer panel, Integer mode, Single radius) {
    if (mode < kNoFilter || mode > kCustomMasks)
        return;
    const Channel which = channelOfPanel(panel);
    chooseFilter(host, which, mode);
    if (mode == kLowPass || mode == kHighPass) {
        lab.channel(which).SetFilterRad(radius);
        host.SetFilterRing(static_cast<Integer>(which), radius);
    }
    if (mode == kCustomMasks)
        lab.channel(which).nmask = 0;
}

void ApplyInvert(ScriptHost& host, Integer panel, Integer kind) {
    const auto inverted = toInteger(imagePanelId(channelOfPanel(panel)) + kind - 1);
    host.markInvertEntry(inverted, EntryMark::Checked);
    host.InvertPanel(inverted, true);
}

}  // namespace quillon
