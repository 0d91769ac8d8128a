#include "scripting/WriteScript.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include "app/image_source.h"
#include "engine/NumberText.h"
#include "engine/Numbers.h"
#include "engine/mFFTUTIL.h"
#include "scripting/script_text.h"

namespace quillon {

namespace {

constexpr const char* kLineEnd = "\r\n";

/// What a script says of a channel's image.
struct NamedImage {
    /// The file behind LOAD1.
    std::string file;
    bool inverted = false;
};

/// By channel. One that is left out of the script has none.
using NamedImages = std::array<std::optional<NamedImage>, 2>;

std::string twoDigits(int number) {
    const std::string digits = std::to_string(number % 100);
    return digits.size() < 2 ? "0" + digits : digits;
}

/// Month, day, year, hour and minute: "111526_0112".
std::string stampOf(const LocalTime& time) {
    return twoDigits(time.month) + twoDigits(time.day) + twoDigits(time.year) + "_" +
           twoDigits(time.hour) + twoDigits(time.minute);
}

/// The name of a picture that is saved with a script.
CountedName companionName(const Lab& lab, Channel which, const std::string& title) {
    const bool first = which == Channel::One;
    // The title decides, not the path: the session's own script has another
    // title, so its pictures get stamped names.
    if (title == "last.ftscr" && lab.channel(which).file.empty())
        return {lab.folders.ImagePath + (first ? "last1" : "last2"), ".bmp"};
    return {lab.folders.ImagePath + stampOf(lab.desktop.environment.now()),
            first ? "t.bmp" : "b.bmp"};
}

/// Saves a channel's image and gives the file. A channel without a file takes it
/// as its own; one that has a file keeps that for its next reload.
std::string keepImage(Lab& lab, Channel which, const std::string& title, KeepFor time) {
    const Bitmap image = imageOf(lab, which);
    const CountedName name = companionName(lab, which, title);
    std::string& file = lab.channel(which).file;
    const bool adopts = file.empty() && time == KeepFor::Good;
    if (adopts) {
        // The name comes before the saving, and stays where that fails.
        file = name.number(1);
        noteImageWithoutFile(lab, which);
    }
    std::string kept = lab.keptPictures.keep(lab.desktop, which, image, name, time);
    if (adopts) {
        file = kept;
        lab.origin(which) = {kept, Placing::Laid, image};
    }
    return kept;
}

std::optional<NamedImage> nameImage(Lab& lab, Channel which, const std::string& title,
                                    KeepFor time) {
    // A snapshot does not read the files again: that may take a large one a while.
    const FileCheck check = time == KeepFor::Good ? FileCheck::Holds : FileCheck::Exists;
    const ImageSource source = imageSource(lab, which);
    if (source == ImageSource::Nothing)
        return std::nullopt;
    if (source == ImageSource::Copy || !fileIsIntact(lab, which, check))
        return NamedImage{keepImage(lab, which, title, time)};
    return NamedImage{lab.channel(which).file, source == ImageSource::InvertedFile};
}

/// The reader makes points of the commas in a path. A file of the image folder has
/// a second name without them: the bare one, which the reader looks for there.
std::string nameForReader(const Lab& lab, const std::string& file) {
    const std::string bare = FileNamePart(file);
    const bool mayBeBare =
        lab.folders.ImagePath + bare == file && withPointsAndBlanks(bare) == bare;
    return mayBeBare && withPointsAndBlanks(file) != file ? bare : file;
}

/// The reader has whole radii of 16 bits.
std::string radiusText(Single radius) {
    using Limits = std::numeric_limits<Integer>;
    return plainText(toInteger(std::clamp<Single>(radius, Limits::min(), Limits::max())));
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

std::string channelLines(const Lab& lab, Channel which, const NamedImage& image) {
    const clComplexImage& channel = lab.channel(which);
    std::string lines = "LOAD1\t" + nameForReader(lab, image.file) + kLineEnd;
    if (image.inverted)
        lines += std::string("INVERT1") + kLineEnd;
    if (channel.bLowpass)
        lines += "LOWPASS\t" + radiusText(channel.filter_rad) + kLineEnd;
    if (channel.bHighpass)
        lines += "HIGHPASS\t" + radiusText(channel.filter_rad) + kLineEnd;
    if (channel.bMask)
        lines += "MASK\t" + plainText(channel.nmask) + kLineEnd + maskRows(channel);
    if (channel.GetInvert(1))
        lines += std::string("INVERT2") + kLineEnd;
    if (channel.GetInvert(2))
        lines += std::string("INVERT3") + kLineEnd;
    return lines;
}

std::string scriptText(const Lab& lab, const NamedImages& images, const std::string& title) {
    std::string text;
    if (images[0])
        text += "TITLE\t" + title + kLineEnd + channelLines(lab, Channel::One, *images[0]);
    if (images[1])
        text += std::string("BOTTOM") + kLineEnd + channelLines(lab, Channel::Two, *images[1]);
    return text;
}

NamedImages nameImages(Lab& lab, const std::string& title, KeepFor time) {
    return {nameImage(lab, Channel::One, title, time), nameImage(lab, Channel::Two, title, time)};
}

}  // namespace

void WriteScript(Lab& lab, const std::string& path, const std::string& title) {
    const NamedImages images = nameImages(lab, title, KeepFor::Good);
    lab.desktop.files.write(path,
                            scriptText(lab, images, title.empty() ? FileNamePart(path) : title));
}

std::string prepareScript(Lab& lab, const std::string& title) {
    return scriptText(lab, nameImages(lab, title, KeepFor::Good), title);
}

void writeSnapshot(Lab& lab, const std::string& path, const std::string& title) {
    const NamedImages images = nameImages(lab, title, KeepFor::Snapshot);
    lab.desktop.files.write(path, scriptText(lab, images, title));
    std::vector<std::string> named;
    for (const std::optional<NamedImage>& image : images)
        if (image)
            named.push_back(image->file);
    lab.keptPictures.removeUnnamed(lab.desktop, named);
}

void endSnapshots(Lab& lab) {
    lab.keptPictures.removeUnnamed(lab.desktop, {});
}

SessionContent sessionContent(const Lab& lab) {
    SessionContent content;
    NamedImages images;
    for (const Channel which : {Channel::One, Channel::Two}) {
        const auto at = static_cast<std::size_t>(which);
        const ImageSource source = imageSource(lab, which);
        if (source == ImageSource::Copy)
            content.pictures[at] = imageOf(lab, which);
        if (source != ImageSource::Nothing)
            images[at] = NamedImage{lab.channel(which).file, source == ImageSource::InvertedFile};
    }
    content.lines = scriptText(lab, images, "");
    return content;
}

}  // namespace quillon
