#pragma once

#include <string>

#include "engine/Desktop.h"

namespace quillon {

/// The lab's own settings under the current user.
inline constexpr const char* kSettingsKey = "Software\\Brindlewood\\Quillon";
/// The companion program's settings, which the lab reads and never writes.
inline constexpr const char* kCompanionKey = "Software\\Brindlewood\\Sorrel";

/// Keeps a string under the current user, making the key where there is none. A
/// store that cannot be written remembers nothing, without a message.
void SaveRegistryString(StringStore& store, const std::string& key, const std::string& name,
                        const std::string& value);

/// Keeps a number of 32 bits under the current user, otherwise like a string.
void SaveRegistryNumber(StringStore& store, const std::string& key, const std::string& name,
                        Long value);

/// The string as it was saved, a number as its decimal text; the empty string for a missing key, a
/// missing value and any failure, without a message.
std::string GetRegistryString(StringStore& store, const std::string& key, const std::string& name);

}  // namespace quillon
