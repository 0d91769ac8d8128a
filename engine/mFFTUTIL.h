#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Color.h"
#include "engine/Desktop.h"
#include "engine/Numbers.h"

namespace quillon {

// Byte helpers. They are named for colour values, where red is lowest; on a
// pixel word RedByte hence gives the blue byte.

/// c modulo 256 with the remainder taking the sign of c.
constexpr Integer RedByte(Long c) noexcept {
    return static_cast<Integer>(c % 256);
}
constexpr Integer GreenByte(Long c) noexcept {
    return static_cast<Integer>((c & 65280) / 256);
}
constexpr Integer BlueByte(Long c) noexcept {
    return static_cast<Integer>((c & 16711680) / 65536);
}

/// The smaller and the larger of two values; on a tie the first is kept.
template <class Number>
constexpr Number MinOf(Number a, Number b) noexcept {
    return b < a ? b : a;
}
template <class Number>
constexpr Number MaxOf(Number a, Number b) noexcept {
    return b > a ? b : a;
}

/// The angle of (x, y) in radians, from 0 up to 2 pi; 0 for (0, 0).
Double Atan2Rad(Double y, Double x);

// Vectors of three Singles.

/// Brings a vector to the length s, to length 1 for s = 0; a negative s turns it
/// round. A zero vector stays zero.
void NormalizeVector(std::span<Single, 3> v, Single s);
/// The angle between two vectors in radians, 0 to pi, without a sign. Normalises
/// both of them in place; a zero vector stays zero and is at a right angle to
/// every other.
Single AngleBetween(std::span<Single, 3> a, std::span<Single, 3> b);
/// The angle of a cosine in radians; a cosine beyond 1 counts as 1.
Double ArcCos(Double x) noexcept;

// Paths and strings. Paths have backslashes.

/// The path with a closing backslash. An empty path gets one too.
std::string AddBackslash(const std::string& path);
/// The text behind the last backslash; all of a string that has none.
std::string FileNamePart(const std::string& path);
/// The last name of a path in either of its forms, the lab's or the system's own:
/// the text behind the last "\" or "/". No file's name holds either.
std::string lastName(const std::string& path);
/// The text up to and including the last backslash; all of a string that has none.
std::string FolderPart(const std::string& path);
/// True for a file of one byte or more; makes it writable on the way. Any
/// failure gives false, and so do an empty file and an empty path.
bool FileExists(Files& files, const std::string& path);
/// True for whatever a listing that shows folders finds under this path: a folder,
/// and a plain file too, also an empty one, unless the path has a closing
/// backslash. Any failure gives false. Where only a folder will do, ask the files
/// for isFolder or close the path.
bool FolderExists(Files& files, const std::string& path);
/// Starts the user's browser. Never throws.
Opening OpenInBrowser(Shell& shell, const std::string& address);
/// Without the blanks (the character 32 only) at both ends.
std::string withoutOuterBlanks(std::string_view text);
/// ASCII letters in upper case, all other bytes as they are.
std::string upperCased(std::string_view text);
/// The words of a text between runs of blanks (the character 32 only). A text
/// without words gives one empty word.
std::vector<std::string> SplitWords(const std::string& text);
/// Raises the counter by 1, grows the array when the counter passes its upper
/// bound, and stores the word there. The counter is the index of the last word,
/// -1 before the first. It is a Long because a line of garbage may have more
/// words than an Integer counts, and is still no error.
void AppendWord(Long& counter, std::vector<std::string>& words, const std::string& word);
/// The whole file, byte for byte; an empty string where there is no such file.
/// An empty file throws RunTimeError SubscriptOutOfRange.
std::string ReadWholeFile(Files& files, const std::string& path);

}  // namespace quillon
