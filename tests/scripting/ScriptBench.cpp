#include "tests/scripting/ScriptBench.h"

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

/// Any picture that is not black, so that a transform of it is drawn.
Bitmap somePicture(int corner) {
    Bitmap picture(16, 12, 0x202020);
    picture.at(corner, corner) = 0xF0F0F0;
    return picture;
}

std::string dialogLine(const RecordingDialogs::Message& message) {
    if (message.title == "Script Error" && message.buttons == MessageButtons::Ok) {
        if (message.icon == MessageIcon::Critical)
            return "stop " + message.text;
        if (message.icon == MessageIcon::Exclamation)
            return "warn " + message.text;
    }
    if (message.title.empty() && message.icon == MessageIcon::None)
        return "plain " + message.text;
    return "unknown dialog " + message.title + ": " + message.text;
}

/// What a reset does, first of all to the filters in force.
Lines resetOf(const Lab& lab) {
    Lines lines;
    if (lab.channel1.bFilter)
        lines.emplace_back("FT1(9)");
    if (lab.channel2.bFilter)
        lines.emplace_back("FT2(9)");
    for (const char* line : {"unmark(1)", "unmark(4)", "unmark(2)", "unmark(5)", "unmark(3)",
                             "unmark(6)", "opt(12)", "opt(3)"})
        lines.emplace_back(line);
    return lines;
}

bool isNoise(const std::string& line) {
    for (const char* service : {"files.", "screen.", "dialogs.", "environment."})
        if (line.starts_with(service))
            return true;
    return line.find("DrawMasks(") != std::string::npos;
}

std::string inverts(const clComplexImage& channel) {
    std::string text;
    for (Integer kind = 0; kind < 3; ++kind)
        if (channel.GetInvert(kind))
            text += std::to_string(kind + 1);
    return text;
}

std::string maskText(const clComplexImage& channel) {
    std::string text = "masks=";
    std::array<Single, 4> mask{};
    for (Integer i = 0; i < channel.nmask; ++i) {
        channel.GetMask(i, mask);
        text += i == 0 ? "" : ";";
        for (std::size_t k = 0; k < mask.size(); ++k)
            text += (k == 0 ? "" : ",") + shortestText(mask[k]);
    }
    return text;
}

}  // namespace

void ScriptBench::Watcher::showNow(Control& control) {
    if (control.Name == "pb2")
        log_.add("transform 1");
    if (control.Name == "pb5")
        log_.add("transform 2");
    // A transform run tells the filter in the same cell; it begins with a blank.
    const std::string& text = control.Caption;
    if (control.Name == "lbSTB(2)" && !text.empty() && text.front() != ' ')
        log_.add("title " + text);
}

ScriptBench::ScriptBench() {
    desktop.pictures.add(lab.folders.ImagePath + "a.bmp", somePicture(3));
    desktop.pictures.add(lab.folders.ImagePath + "b.jpg", somePicture(5));
    desktop.pictures.add(lab.folders.ImagePath + "Big Cat.bmp", somePicture(7));
    desktop.files.addFile(lab.folders.ScriptPath + "two.ftmsk", "1 2 3 4\r\n5 6 7 8\r\n");
    for (Control* control : std::initializer_list<Control*>{&pb2, &pb5, &cells[2]})
        control->watch(&watcher_);
    desktop.dialogs.onMessage = [this](const RecordingDialogs::Message& message) {
        desktop.calls.add(dialogLine(message));
    };
}

ScriptBench::~ScriptBench() {
    for (Control* control : std::initializer_list<Control*>{&pb2, &pb5, &cells[2]})
        control->watch(nullptr);
}

Lines ScriptBench::run(const std::string& script) {
    desktop.files.addFile(scriptFile, script);
    desktop.log.clear();
    const Lines reset = resetOf(lab);
    ReadScript(lab, host, scriptFile);
    Lines actions;
    for (const std::string& line : desktop.log) {
        const std::string load = "pictures.load(";
        if (line.starts_with(load))
            actions.push_back("load " + line.substr(load.size(), line.size() - load.size() - 1));
        else if (!isNoise(line))
            actions.push_back(line);
    }
    const auto resetEnd =
        actions.begin() + static_cast<std::ptrdiff_t>(std::min(actions.size(), reset.size()));
    EXPECT_EQ(Lines(actions.begin(), resetEnd), reset);
    return {resetEnd, actions.end()};
}

std::string ScriptBench::state(Channel which) const {
    const clComplexImage& channel = lab.channel(which);
    Lines parts;
    if (!channel.file.empty())
        parts.push_back("file=" + FileNamePart(channel.file));
    if (channel.bLowpass)
        parts.push_back("low=" + shortestText(channel.filter_rad));
    if (channel.bHighpass)
        parts.push_back("high=" + shortestText(channel.filter_rad));
    if (channel.bMask || channel.nmask > 0)
        parts.push_back(maskText(channel));
    if (!inverts(channel).empty())
        parts.push_back("invert=" + inverts(channel));
    std::string text;
    for (const std::string& part : parts)
        text += (text.empty() ? "" : " ") + part;
    return text;
}

void expectScripts(const std::vector<ScriptCase>& cases) {
    for (const ScriptCase& row : cases) {
        SCOPED_TRACE(row.what);
        ScriptBench bench;
        EXPECT_EQ(bench.run(row.script), row.actions);
        EXPECT_EQ(bench.state(Channel::One), row.top);
        EXPECT_EQ(bench.state(Channel::Two), row.bottom);
    }
}

}  // namespace quillon
