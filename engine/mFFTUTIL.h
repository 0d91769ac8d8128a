#pragma once

#include <string>
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

// Paths and strings. Paths have backslashes.

/// The path with a closing backslash. An empty path gets one too.
std::string AddBackslash(const std::string& path);
/// The text behind the last backslash; all of a string that has none.
std::string FileNamePart(const std::string& path);
/// The text up to and including the last backslash; all of a string that has none.
std::string FolderPart(const std::string& path);
/// True for a file of one byte or more; makes it writable on the way. Any failure gives false.
bool FileExists(Files& files, const std::string& path);
/// True for a folder. Any failure gives false.
bool FolderExists(Files& files, const std::string& path);
/// Starts the user's browser; failures are ignored.
void OpenInBrowser(Shell& shell, const std::string& address);
/// The words of a text between runs of blanks. A text without words gives one empty word.
std::vector<std::string> SplitWords(const std::string& text);
/// Raises the counter by 1, grows the array when the counter passes its upper
/// bound, and stores the word there.
void AppendWord(Integer& counter, std::vector<std::string>& words, const std::string& word);
/// The whole file, byte for byte; empty where there is no such file. An empty
/// file throws RunTimeError SubscriptOutOfRange.
std::string ReadWholeFile(Files& files, const std::string& path);

}  // namespace quillon
