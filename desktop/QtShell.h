#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// Starts other programs. Nobody looks at the outcome: a file without a program
/// that opens it, or a program that is not there, is passed over in silence.
class QtShell : public Shell {
public:
    void execute(const std::string& program, const std::string& parameters,
                 const std::string& directory) override;
    void openAddress(const std::string& address) override;
};

}  // namespace quillon
