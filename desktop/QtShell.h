#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// Starts other programs. Whether one has been asked is all that is known: what
/// becomes of it shows on the screen.
class QtShell : public Shell {
public:
    Opening execute(const std::string& program, const std::string& parameters,
                    const std::string& directory) override;
    Opening openAddress(const std::string& address) override;
};

}  // namespace quillon
