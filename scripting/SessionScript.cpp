#include "scripting/SessionScript.h"

#include "engine/RunTimeError.h"
#include "scripting/WriteScript.h"

namespace quillon {

namespace {

/// The text of a script; empty where there is none that can be read.
std::string textOf(Files& files, const std::string& path) {
    try {
        return files.read(path);
    } catch (const RunTimeError&) {
        return {};
    }
}

}  // namespace

void SessionScript::begin() {
    known_ = textOf(lab_.desktop.files, path());
}

void SessionScript::write(const std::string& title) {
    Files& files = lab_.desktop.files;
    // The pictures first: another lab may close while they are saved.
    const std::string text = prepareScript(lab_, title);
    const std::string found = textOf(files, path());
    // A copy, so that there is a whole session script at every moment.
    if (!found.empty() && found != known_)
        files.copy(path(), lab_.folders.ScriptPath + "earlier.ftscr");
    files.write(path(), text);
    known_ = text;
}

}  // namespace quillon
