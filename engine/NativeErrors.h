#pragma once

#include <string>

#include "engine/RunTimeError.h"

namespace quillon {

/// What the system's error `code` (an errno) about a native path is to a user of
/// the lab. Where nothing is found it is PathNotFound if the folder is missing,
/// else FileNotFound; a path that cannot be used for any other reason is a
/// PathFileAccessError.
RunTimeError systemError(int code, const std::string& native);

}  // namespace quillon
