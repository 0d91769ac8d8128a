#include <algorithm>
#include <string>
#include <vector>

#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

std::string AddBackslash(const std::string& path) {
    return path.ends_with('\\') ? path : path + '\\';
}

std::string FileNamePart(const std::string& path) {
    // Where there is no backslash, the position behind it is 0.
    return path.substr(path.rfind('\\') + 1);
}

std::string lastName(const std::string& path) {
    return path.substr(path.find_last_of("\\/") + 1);
}

std::string FolderPart(const std::string& path) {
    const std::size_t last = path.rfind('\\');
    return last == std::string::npos ? path : path.substr(0, last + 1);
}

std::string withoutOuterBlanks(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string upperCased(std::string_view text) {
    std::string upper(text);
    for (char& letter : upper)
        if (letter >= 'a' && letter <= 'z')
            letter = static_cast<char>(letter - 'a' + 'A');
    return upper;
}

void AppendWord(Long& counter, std::vector<std::string>& words, const std::string& word) {
    if (counter < -1)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    const auto index = static_cast<std::size_t>(++counter);
    if (index >= words.size())
        words.resize(index + 1);
    words[index] = word;
}

std::vector<std::string> SplitWords(const std::string& text) {
    std::vector<std::string> words(1);
    Long counter = -1;
    std::size_t start = 0;
    while (start < text.size()) {
        const std::size_t blank = std::min(text.find(' ', start), text.size());
        if (blank > start)
            AppendWord(counter, words, text.substr(start, blank - start));
        start = blank + 1;
    }
    return words;
}

}  // namespace quillon
