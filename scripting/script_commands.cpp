#include "scripting/script_commands.h"

#include <exception>

#include "engine/mFFTUTIL.h"
#include "scripting/ReadScript.h"
#include "scripting/WriteScript.h"

namespace quillon {

namespace {

constexpr const char* kScriptFilter = "Quillon Script Files (*.ftscr)|*.ftscr";
constexpr Integer kLabView = 1;

template <class Command>
void silently(Command command) {
    try {
        command();
    } catch (const std::exception&) {
        // Nothing is said: a cancelled dialog comes this way too.
    }
}

enum class Purpose { Open, Save };

std::string askForScript(Lab& lab, Purpose purpose) {
    lab.ComFile.InitDir = lab.folders.ScriptPath;
    lab.ComFile.Filter = kScriptFilter;
    if (purpose == Purpose::Open)
        lab.desktop.dialogs.showOpen(lab.ComFile);
    else
        lab.desktop.dialogs.showSave(lab.ComFile);
    lab.desktop.screen.pendingEvents();
    return lab.ComFile.FileName;
}

std::string chosenScript(Lab& lab, const std::string& file, Purpose purpose) {
    if (!file.empty())
        return file;
    lab.ComFile.FileName.clear();
    return askForScript(lab, purpose);
}

}  // namespace

void LoadScriptCommand(Lab& lab, ScriptHost& host, const std::string& file) {
    silently([&] {
        const std::string name = chosenScript(lab, file, Purpose::Open);
        if (lab.viewTab > kLabView)
            host.tabClick(0);
        ReadScript(lab, host, name);
    });
}

void SaveScriptCommand(Lab& lab, const std::string& file) {
    silently([&] {
        const std::string name = chosenScript(lab, file, Purpose::Save);
        const std::string title =
            lab.desktop.dialogs.inputBox("Please enter title", "Script Description", "")
                .value_or("");
        WriteScript(lab, name, title);
    });
}

void EditScriptCommand(Lab& lab) {
    silently([&] {
        const std::string name = askForScript(lab, Purpose::Open);
        lab.desktop.shell.execute("notepad.exe", name, FolderPart(name));
    });
}

}  // namespace quillon
