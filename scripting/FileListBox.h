#pragma once

#include <string>
#include <vector>

#include "engine/Control.h"

namespace quillon {

/// The list of a folder's files that match a pattern ("*.bmp;*.gif"). The names
/// are those of the last listing, sorted by name.
class FileListBox : public Control {
public:
    using Control::Control;
    std::string Path;
    std::string Pattern;
    std::vector<std::string> List;
};

}  // namespace quillon
