#include "scripting/WriteScript.h"

#include <array>

#include "engine/NumberText.h"
#include "engine/Numbers.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr const char* kLineEnd = "\r\n";

std::string twoDigits(int number) {
    const std::string digits = std::to_string(number % 100);
    return digits.size() < 2 ? "0" + digits : digits;
}

/// Month, day, year, hour and minute: "111526_0112".
std::string stampOf(const LocalTime& time) {
    return twoDigits(time.month) + twoDigits(time.day) + twoDigits(time.year) + "_" +
           twoDigits(time.hour) + twoDigits(time.minute);
}

struct CompanionNames {
    const char* stamped;
    const char* fixed;
};

constexpr CompanionNames companionNames(Channel which) {
    return which == Channel::One ? CompanionNames{"t.bmp", "last1.bmp"}
                                 : CompanionNames{"b.bmp", "last2.bmp"};
}

/// A channel without a file is written only where it has something to show.
bool needsCompanion(const Lab& lab, Channel which) {
    return lab.channel(which).file.empty() && !lab.imagePanel(which).Tag.empty();
}

/// Gives a drawn or computed picture the file that a LOAD1 line can name.
void saveCompanion(Lab& lab, Channel which, const std::string& stamp, const std::string& title) {
    std::string& file = lab.channel(which).file;
    if (!needsCompanion(lab, which))
        return;
    const CompanionNames names = companionNames(which);
    // The title decides, not the path: the session's own script has another
    // title, so its pictures get stamped names and are never overwritten.
    file = lab.folders.ImagePath + (title == "last.ftscr" ? names.fixed : stamp + names.stamped);
    lab.desktop.pictures.save(lab.imagePanel(which).Image(), file);
}

std::string maskRows(const clComplexImage& channel) {
    std::string rows;
    std::array<Single, 4> corners{};
    for (Integer i = 0; i < channel.nmask; ++i) {
        channel.GetMask(i, corners);
        rows += "    \t";
        for (std::size_t k = 0; k < corners.size(); ++k)
            rows += (k == 0 ? "" : " ") + shortestText(corners[k]);
        rows += kLineEnd;
    }
    return rows;
}

std::string channelLines(const clComplexImage& channel) {
    const std::string radius =
        channel.bLowpass || channel.bHighpass ? plainText(toInteger(channel.filter_rad)) : "";
    std::string lines = "LOAD1\t" + channel.file + kLineEnd;
    if (channel.GetInvert(0))
        lines += std::string("INVERT1") + kLineEnd;
    if (channel.bLowpass)
        lines += "LOWPASS\t" + radius + kLineEnd;
    if (channel.bHighpass)
        lines += "HIGHPASS\t" + radius + kLineEnd;
    if (channel.bMask)
        lines += "MASK\t" + plainText(channel.nmask) + kLineEnd + maskRows(channel);
    if (channel.GetInvert(1))
        lines += std::string("INVERT2") + kLineEnd;
    if (channel.GetInvert(2))
        lines += std::string("INVERT3") + kLineEnd;
    return lines;
}

}  // namespace

void WriteScript(Lab& lab, const std::string& path, const std::string& title) {
    const std::string stamp = stampOf(lab.desktop.environment.now());
    saveCompanion(lab, Channel::One, stamp, title);
    saveCompanion(lab, Channel::Two, stamp, title);
    std::string lines;
    if (!lab.channel1.file.empty()) {
        lines += "TITLE\t" + (title.empty() ? FileNamePart(path) : title) + kLineEnd;
        lines += channelLines(lab.channel1);
    }
    if (!lab.channel2.file.empty())
        lines += std::string("BOTTOM") + kLineEnd + channelLines(lab.channel2);
    lab.desktop.files.write(path, lines);
}

void writeSnapshot(Lab& lab, const std::string& path, const std::string& title) {
    WriteScript(lab, path, title);
}

SessionContent sessionContent(const Lab& lab) {
    SessionContent content;
    for (const Channel which : {Channel::One, Channel::Two}) {
        content.lines += channelLines(lab.channel(which));
        if (needsCompanion(lab, which))
            content.pictures[static_cast<std::size_t>(which)] = lab.imagePanel(which).Image();
    }
    return content;
}

}  // namespace quillon
