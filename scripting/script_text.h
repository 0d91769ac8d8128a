#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Numbers.h"

namespace quillon {

// How the texts of scripts and mask files are taken apart. They are plain bytes.

/// The lines of a text, one after the other. CR LF, a lone CR and a lone LF each
/// end a line; the last line may have no end.
class LineReader {
public:
    explicit LineReader(std::string text) : text_(std::move(text)) {}

    bool atEnd() const noexcept { return next_ >= text_.size(); }
    /// The next line without its end. Throws RunTimeError InputPastEndOfFile
    /// where there is none.
    std::string next();

private:
    std::string text_;
    std::size_t next_ = 0;
};

/// Every comma made a point and every tab a blank, so that a decimal comma reads
/// as a decimal point. It befalls titles and file names too.
std::string withPointsAndBlanks(std::string text);

/// True for a line that says nothing: empty, or a comment. The line has lost its
/// outer blanks, but a tab before the apostrophe makes it no comment.
bool isSilent(std::string_view line);

/// What stands behind the first blank of a line, without outer blanks; all of a
/// line that has none. A line that began with a tab has its first blank there,
/// so its argument begins with the keyword.
std::string argumentText(std::string_view line);

/// A name without any backslash gets the folder put in front, unless it begins
/// with "/" and so is a whole path of a POSIX system. Everything else stands as it is.
std::string inFolder(const std::string& folder, const std::string& name);

/// The corners that words 0 to 3 of a mask row tell, as X1, Y1, X2, Y2, each
/// rounded once, from all its digits, half to even. Throws RunTimeError
/// SubscriptOutOfRange for fewer words and Overflow for a corner that no Integer
/// holds.
std::array<Integer, 4> maskCorners(const std::vector<std::string>& words);

}  // namespace quillon
