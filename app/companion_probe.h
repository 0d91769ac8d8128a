#pragma once

#include "engine/Desktop.h"

namespace quillon {

/// The product page of the maker's companion program.
inline constexpr const char* kCompanionPage = "https://www.brindlewood.example/products/Sorrel";

/// Opens the companion program's page, at every start, on a machine where the
/// companion program has left no record of a program file that exists.
void probeCompanion(Desktop& desktop);

}  // namespace quillon
