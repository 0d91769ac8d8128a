#pragma once

#include <string>

namespace quillon {

/// The folders of the whole program, set once at start-up; each ends in a backslash.
struct Folders {
    std::string UserRoot;
    std::string ImagePath;
    std::string ScriptPath;
    std::string DocPath;
    std::string LibPath;
    std::string LibPath2;
};

}  // namespace quillon
