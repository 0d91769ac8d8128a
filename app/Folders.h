#pragma once

#include <string>

namespace quillon {

class Environment;

/// The folders of the whole program, set once at start-up; each ends in a
/// backslash. The first three are the user's own; the others belong to the
/// program and are only read.
struct Folders {
    std::string UserRoot;
    std::string ImagePath;
    std::string ScriptPath;
    std::string DocPath;
    std::string LibPath;
    std::string LibPath2;
};

/// Works the folders out. The user's lie beside the application-data folder, not
/// in it, so that a user comes across them.
Folders deriveFolders(Environment& environment);

}  // namespace quillon
