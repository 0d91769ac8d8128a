#pragma once

#include <string>

namespace quillon {

// What the browser's engine needs of the system before it starts.

/// Name of the engine's own variable for its command line.
inline constexpr const char* kEngineFlagsVariable = "QTWEBENGINE_CHROMIUM_FLAGS";

enum class SystemUser { Root, Ordinary };

/// The user that this process runs as.
SystemUser systemUser();

/// The flags to start the engine with. For root the sandbox is off, without
/// which the engine ends the process; for anybody else the flags stay the user's.
std::string engineFlags(const std::string& usersFlags, SystemUser user);

/// Whether the engine's sandbox can be set up for a user. Where it cannot, the
/// engine would end the process. A user who has switched it off has decided.
bool sandboxIsUsable(const std::string& usersFlags, SystemUser user);

/// Whether the system lets an ordinary process make the namespaces that the
/// sandbox is built from. Asked in a process of its own, which ends at once.
bool namespacesAreAllowed();

}  // namespace quillon
