#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// The registry of the current user, or on other systems the file
/// <settings folder>/<organisation>/<product>.conf, whose two names are the last
/// two of the key's path.
class QtStringStore : public StringStore {
public:
    std::string read(const std::string& key, const std::string& name) override;
    void write(const std::string& key, const std::string& name, const std::string& value) override;
    void writeNumber(const std::string& key, const std::string& name, Long value) override;
};

}  // namespace quillon
