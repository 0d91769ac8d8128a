#pragma once

#include <exception>
#include <string>

#include "app/Lab.h"
#include "engine/Desktop.h"

namespace quillon {

// Why a command could not do its work, in the few words that the strip has room
// for. A file is named without its folder, unless the folder is what is missing.

/// "not saved: no right to write here". What was not done may be named otherwise.
std::string whyNotSaved(Files& files, const std::string& path, const std::exception& error,
                        const std::string& what = "not saved");

/// "not a picture: x.png", "file not found: cat.jpg"
std::string whyNotLoaded(Files& files, const std::string& path, const std::exception& error);

/// Why the files of a folder could not be found: "folder not found: /home/ada/x/"
std::string whyNotListed(const std::string& folder, const std::exception& error);

/// Where another program was to open something and could not, says so: `missing`
/// where the thing is not there, `noProgram` where nothing opens it.
void reportUnopened(Lab& lab, Opening outcome, const std::string& missing,
                    const std::string& noProgram);

/// True for a dialog that the user has cancelled, which is no failure.
bool isCancelled(const std::exception& error);

}  // namespace quillon
