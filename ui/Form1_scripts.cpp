#include "engine/mFFTUTIL.h"
#include "ui/Form1.h"

namespace quillon {

void Form1::ReadScript(const std::string& path) {
    ShowStatus(2, "Scripts cannot be read yet: " + FileNamePart(path));
}

void Form1::WriteScript(const std::string& path, const std::string& title) {
    ShowStatus(2, "Scripts cannot be written yet: " + title + " (" + FileNamePart(path) + ")");
}

}  // namespace quillon
