#include <cmath>

#include "app/mREGISTRY.h"
#include "engine/NumberText.h"
#include "engine/lut_selector.h"
#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"
#include "ui/setting_names.h"

namespace quillon {

namespace {

constexpr std::size_t kWindowWords = 5;

/// A window system's coordinates are 16 bits wide.
constexpr Single kFarthestTwips = 32767 * kTwipsPerPixel;

std::string programPath(Environment& environment) {
    return environment.programFolder() + "\\" + environment.executableName() + ".exe";
}

/// The number of an entry, rounded half to even. A word that is no number, or
/// that names no entry, counts as 0: a bad stored value never stops a start.
Integer entryNumber(const std::string& word, std::size_t entries) {
    const Double number = roundHalfEven(leadingNumber(word));
    const bool exists = number >= 0 && number < static_cast<Double>(entries);
    return exists ? static_cast<Integer>(number) : Integer{0};
}

/// A window that was minimised at the end would come back as a mere icon, which a
/// user takes for a program that does not start.
Integer stateAtStart(Integer stored) {
    return stored == kWindowMinimised ? kWindowNormal : stored;
}

/// A coordinate in twips. A place on no screen is kept, for the window to mend,
/// but one that no window system could hold counts as an unreadable number.
Single coordinate(const std::string& word) {
    const Single twips = leadingSingle(word);
    return std::abs(twips) <= kFarthestTwips ? twips : 0.0F;
}

}  // namespace

void Form1::ReadRegistry() {
    const auto stored = [this](const char* name) {
        return GetRegistryString(desktop.store, kSettingsKey, name);
    };
    if (stored(kPathSetting).empty()) {
        WriteDefaultSettings();
    } else {
        // The size in words 2 and 3 is never read: the window always opens at its own.
        const std::vector<std::string> words = SplitWords(stored(kWindowSetting));
        if (words.size() == kWindowWords) {
            Left = coordinate(words[0]);
            Top = coordinate(words[1]);
            WindowState = stateAtStart(entryNumber(words[4], kWindowMaximised + 1));
        }
    }
    guiColorIndex = entryNumber(stored(kColorsSetting), menuEntries(MenuArray::itmOpt0).size());
    itmOpt0(guiColorIndex);
    itmOpt1(entryNumber(stored(kLanguageSetting), menuEntries(MenuArray::itmOpt1).size()));
    SelectLutRow(entryNumber(stored(kLutSetting), kLutSelectorRows));
}

void Form1::WriteDefaultSettings() {
    const auto store = [this](const char* name, const std::string& value) {
        SaveRegistryString(desktop.store, kSettingsKey, name, value);
    };
    store(kPathSetting, programPath(desktop.environment));
    store(kColorsSetting, "2");
    store(kLanguageSetting, "0");
    store(kLutSetting, "0");
    firstRun = true;
}

void Form1::SaveRegistry() {
    SaveRegistryString(desktop.store, kSettingsKey, kWindowSetting,
                       shortestText(Left) + " " + shortestText(Top) + " " + shortestText(Width) +
                           " " + shortestText(Height) + " " + plainText(WindowState));
    SaveRegistryString(desktop.store, kSettingsKey, kPathSetting, programPath(desktop.environment));
}

}  // namespace quillon
