#pragma once

#include <string>

#include "analysis/data_export.h"
#include "engine/Grid.h"
#include "engine/clComplexImage.h"

namespace quillon::slow {

/// What an export with these options leaves on the clipboard, cell by cell.
std::string exportText(const ComplexGrid& f, const ExportOptions& options);

}  // namespace quillon::slow
