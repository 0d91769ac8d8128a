#pragma once

namespace quillon {

// What the program remembers between runs, all as strings under kSettingsKey.

/// Full path of the program. That it is there tells that this is not the first run.
inline constexpr const char* kPathSetting = "PATH";
/// Left, top, width and height of the window in twips and its state, between single blanks.
inline constexpr const char* kWindowSetting = "WNDO";
/// Index of the colour scheme, 0 to 4.
inline constexpr const char* kColorsSetting = "GUIC";
/// Index of the tutorial's language: 0 English, 1 French.
inline constexpr const char* kLanguageSetting = "FR";
/// Row of the colour table in the selector, 0 to 6.
inline constexpr const char* kLutSetting = "LUT";

}  // namespace quillon
