#include "scripting/script_text.h"

#include <algorithm>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

std::string LineReader::next() {
    if (atEnd())
        throw RunTimeError(ErrorNumber::InputPastEndOfFile);
    const std::size_t end = std::min(text_.find_first_of("\r\n", next_), text_.size());
    std::string line = text_.substr(next_, end - next_);
    const bool pair = text_.compare(end, 2, "\r\n") == 0;
    next_ = end + (pair ? 2 : 1);
    return line;
}

std::string withPointsAndBlanks(std::string text) {
    std::ranges::replace(text, ',', '.');
    std::ranges::replace(text, '\t', ' ');
    return text;
}

bool isSilent(std::string_view line) {
    return line.empty() || line.front() == '\'';
}

std::string argumentText(std::string_view line) {
    const std::size_t blank = line.find(' ');
    return withoutOuterBlanks(blank == std::string_view::npos ? line : line.substr(blank));
}

std::string inFolder(const std::string& folder, const std::string& name) {
    const bool bare = name.find('\\') == std::string::npos && !name.starts_with('/');
    return bare ? folder + name : name;
}

std::array<Integer, 4> maskCorners(const std::vector<std::string>& words) {
    std::array<Integer, 4> corners{};
    for (std::size_t i = 0; i < corners.size(); ++i) {
        if (i >= words.size())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        corners[i] = toInteger(leadingNumber(words[i]));
    }
    return corners;
}

}  // namespace quillon
