#pragma once

#include "engine/Desktop.h"

namespace quillon {

class QtEnvironment : public Environment {
public:
    std::string variable(const std::string& name) override;
    std::string applicationDataFolder() override;
    std::string programFolder() override;
    std::string executableName() override;
    std::string commandLine() override;
    LocalTime now() override;
    void printError(const std::string& text) override;
};

}  // namespace quillon
