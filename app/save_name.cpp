#include "app/save_name.h"

#include <array>
#include <string_view>

#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

constexpr std::string_view kBitmapSuffix = ".bmp";
/// Pictures that the lab reads and does not write.
constexpr std::array<std::string_view, 3> kOtherPictures = {".JPG", ".JPEG", ".GIF"};

/// Where the suffix of a name begins, with its point; the end of a name that has none.
std::size_t suffixOf(const std::string& path) {
    const auto point = path.rfind('.');
    const bool inName = point != std::string::npos && point >= path.size() - lastName(path).size();
    return inName ? point : path.size();
}

/// The patterns of the filter with this index: "*.bmp" of "Bitmap (*.bmp)|*.bmp".
/// A filter that does not exist is the first, as in the dialog.
std::string patternsOf(const std::string& filter, Integer filterIndex) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    while (start <= filter.size()) {
        const std::size_t end = MinOf(filter.find('|', start), filter.size());
        parts.push_back(filter.substr(start, end - start));
        start = end + 1;
    }
    const auto wanted = static_cast<std::size_t>(MaxOf<Integer>(filterIndex, 1)) * 2 - 1;
    if (wanted < parts.size())
        return parts[wanted];
    return parts.size() > 1 ? parts[1] : std::string();
}

/// The suffix of the first pattern: ".bmp" of "*.bmp;*.gif". None of "*.*".
std::string suffixOfPatterns(const std::string& patterns) {
    const std::string first = patterns.substr(0, patterns.find(';'));
    const std::string suffix = first.starts_with("*.") ? first.substr(1) : std::string();
    return suffix.find_first_of("*?") == std::string::npos ? suffix : std::string();
}

bool isOtherPicture(std::string_view suffix) {
    const std::string upper = upperCased(suffix);
    for (const std::string_view other : kOtherPictures)
        if (upper == other)
            return true;
    return false;
}

}  // namespace

std::string nameToSave(const std::string& typed, const std::string& filter, Integer filterIndex) {
    const std::string wanted = suffixOfPatterns(patternsOf(filter, filterIndex));
    const std::size_t suffix = suffixOf(typed);
    // A point alone at the end is no suffix.
    if (suffix + 1 >= typed.size())
        return typed.substr(0, suffix) + wanted;
    if (wanted == kBitmapSuffix && isOtherPicture(std::string_view(typed).substr(suffix)))
        return typed.substr(0, suffix) + wanted;
    return typed;
}

std::string bitmapNameToOffer(const std::string& last) {
    return last.empty() ? last : last.substr(0, suffixOf(last)) + std::string(kBitmapSuffix);
}

}  // namespace quillon
