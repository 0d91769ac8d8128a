#include "analysis/grid_pattern.h"

#include <cctype>
#include <vector>

#include "engine/NumberText.h"
#include "engine/RunTimeError.h"
#include "engine/mFFTUTIL.h"

namespace quillon {

namespace {

struct GridCode {
    Single black = 1;
    Single white = 1;
    Single exclusive = 0;
    Single inverted = 0;
    bool plain = false;
};

/// Takes the letter off the front of the code, in either case.
bool takePrefix(std::string& code, char letter) {
    if (code.empty() || std::toupper(static_cast<unsigned char>(code.front())) != letter)
        return false;
    code.erase(0, 1);
    return true;
}

std::string trimmed(const std::string& text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string::npos)
        return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Words between single blanks, empty words kept; an empty text has none.
std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    if (text.empty())
        return words;
    std::size_t start = 0;
    for (std::size_t blank = text.find(' '); blank != std::string::npos;
         blank = text.find(' ', start)) {
        words.push_back(text.substr(start, blank - start));
        start = blank + 1;
    }
    words.push_back(text.substr(start));
    return words;
}

std::string withSingleBlanks(const std::string& text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        result += text[i];
        // One pass: of three blanks in a row two are left.
        if (text.compare(i, 2, "  ") == 0)
            ++i;
    }
    return result;
}

GridCode parse(std::string code) {
    GridCode grid;
    takePrefix(code, 'G');
    grid.plain = takePrefix(code, 'P');
    code = trimmed(code);
    for (char& letter : code)
        if (letter == '.' || letter == '-' || letter == ',')
            letter = ' ';
    const auto words = wordsOf(withSingleBlanks(code));
    if (words.size() < 2)
        throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
    grid.black = MaxOf(leadingSingle(words[0]), Single{1});
    grid.white = MaxOf(leadingSingle(words[1]), Single{1});
    if (words.size() > 2)
        grid.exclusive = leadingSingle(words[2]);
    if (words.size() > 3)
        grid.inverted = leadingSingle(words[3]);
    return grid;
}

void drawBands(PictureBox& pb, const GridCode& grid) {
    const Single width = pb.ScaleWidth();
    const Single height = pb.ScaleHeight();
    const Single period = grid.black + grid.white;
    // The width alone tells how many bands there are, also down the panel.
    const Integer last = toInteger(width / period + 0.5F);
    for (Integer k = 0; k <= last; ++k) {
        const Single start = static_cast<Single>(k) * period;
        const Single end = start + grid.white - 1;
        pb.Box(start, 0, end, height, kWhite, BoxStyle::Filled);
        pb.Box(0, start, width, end, kWhite, BoxStyle::Filled);
    }
}

/// The pen of a drawing, put back however the drawing ends.
class PenGuard {
public:
    PenGuard(PictureBox& pb, Integer mode) : pb_(pb), width_(pb.DrawWidth) {
        pb_.DrawWidth = 1;
        pb_.DrawMode = mode;
    }
    PenGuard(const PenGuard&) = delete;
    PenGuard& operator=(const PenGuard&) = delete;
    ~PenGuard() {
        pb_.DrawWidth = width_;
        pb_.DrawMode = kPenCopy;
    }

private:
    PictureBox& pb_;
    Integer width_;
};

}  // namespace

void DrawGridPattern(Desktop& desktop, PictureBox& pb, const std::string& code) {
    const GridCode grid = parse(code);
    {
        const PenGuard pen(pb, grid.exclusive != 0 ? kPenXor : kPenCopy);
        if (!pb.AutoRedraw())
            desktop.dialogs.messageBox("!", "", MessageIcon::None, MessageButtons::Ok);
        pb.setPicture(Bitmap{});
        pb.setBackColor(kBlack);
        if (!grid.plain)
            drawBands(pb, grid);
        if (grid.inverted != 0)
            pb.InvertPicture();
        pb.Refresh();
    }
    desktop.clipboard.clear();
    desktop.clipboard.setPicture(pb.Image());
}

}  // namespace quillon
