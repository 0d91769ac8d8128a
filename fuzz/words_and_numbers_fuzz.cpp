#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/NumberText.h"
#include "engine/mFFTUTIL.h"
#include "fuzz/require.h"

// What settings, scripts and mask files are read with: a text is split into words,
// and a word is read as a number.

namespace {

using namespace quillon;

/// The text with every run of blanks made one, and none at the ends.
std::string collapsed(const std::string& text) {
    std::string result;
    for (const char c : text) {
        if (c == ' ' && (result.empty() || result.back() == ' '))
            continue;
        result += c;
    }
    if (!result.empty() && result.back() == ' ')
        result.pop_back();
    return result;
}

void checkNumber(const std::string& word) {
    require(std::isfinite(leadingNumber(word)), "a word reads as a finite number");
    const Single value = leadingSingle(word);
    require(std::isfinite(value), "a word reads as a finite Single");
    // Seven digits tell a Single to half a unit of the seventh.
    const Single again = leadingSingle(shortestText(value));
    require(std::abs(again - value) <= 1e-6F * std::abs(value), "a Single's text reads back");
    require(word.empty() || leadingNumber(word + " 1") == leadingNumber(word),
            "a blank ends the number");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> words = SplitWords(text);
    require(!words.empty(), "there is always one word");

    std::string joined;
    for (const std::string& word : words) {
        require(words.size() == 1 || !word.empty(), "no word among several is empty");
        joined += (joined.empty() ? "" : " ") + word;
        checkNumber(word);
    }
    require(joined == collapsed(text), "the words are the text without its spare blanks");
    return 0;
}
