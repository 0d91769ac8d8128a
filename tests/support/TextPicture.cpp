#include "tests/support/TextPicture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>

namespace quillon {
namespace {

struct Letter {
    char letter;
    PixelWord word;
};

constexpr std::array<Letter, 9> kLetters{{
    {'.', 0x000000},
    {'#', 0xFFFFFF},
    {'R', 0xFF0000},
    {'G', 0x00FF00},
    {'B', 0x0000FF},
    {'Y', 0xFFFF00},
    {'C', 0x00FFFF},
    {'M', 0xFF00FF},
    {'-', 0x808080},
}};

}  // namespace

Bitmap pictureOf(const std::vector<std::string>& rows) {
    Bitmap picture(rows.empty() ? 0 : static_cast<int>(rows.front().size()),
                   static_cast<int>(rows.size()));
    std::string letters;
    for (const std::string& row : rows)
        letters += row;
    EXPECT_EQ(letters.size(), picture.words.size()) << "rows of unequal length";
    for (std::size_t i = 0; i < std::min(letters.size(), picture.words.size()); ++i) {
        const auto* found = std::ranges::find(kLetters, letters[i], &Letter::letter);
        EXPECT_NE(found, kLetters.end()) << "no colour for " << letters[i];
        picture.words[i] = found == kLetters.end() ? -1 : found->word;
    }
    return picture;
}

std::vector<std::string> textOf(const Bitmap& picture) {
    std::vector<std::string> rows;
    for (int y = 0; y < picture.height; ++y) {
        std::string row;
        for (const PixelWord word : picture.row(y)) {
            const auto* found = std::ranges::find(kLetters, word, &Letter::word);
            row += found == kLetters.end() ? '?' : found->letter;
        }
        rows.push_back(row);
    }
    return rows;
}

Bitmap randomPicture(int width, int height, unsigned seed) {
    std::mt19937 random(seed);
    Bitmap picture(width, height);
    for (PixelWord& word : picture.words)
        word = static_cast<PixelWord>(random() & 0xFFFFFF);
    return picture;
}

}  // namespace quillon
