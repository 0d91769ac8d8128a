#include "scripting/batch.h"
#include "ui/Form1.h"

// Whole folders: the window's routines hand on to scripting/.

namespace quillon {

namespace {

BatchWindow batchWindow(Form1& form) {
    return {form.File1, form.fr1, form.fr2, form.fr3, form.bStopBatch, form.batchRunning};
}

}  // namespace

void Form1::BatchCommand() {
    quillon::BatchCommand(lab, *this, batchWindow(*this));
}

void Form1::RunBatch(const std::string& folder) {
    quillon::RunBatch(lab, *this, batchWindow(*this), folder);
}

}  // namespace quillon
