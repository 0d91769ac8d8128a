#include "scripting/script_commands.h"

#include <exception>

#include "app/not_done.h"
#include "engine/mFFTUTIL.h"
#include "scripting/ReadScript.h"
#include "scripting/WriteScript.h"

namespace quillon {

namespace {

constexpr const char* kScriptFilter = "Quillon Script Files (*.ftscr)|*.ftscr";
constexpr Integer kLabView = 1;

enum class Purpose { Open, Save };

std::string askForScript(Lab& lab, Purpose purpose) {
    lab.ComFile.prepare(lab.folders.ScriptPath, kScriptFilter);
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
    std::string name = file;
    try {
        name = chosenScript(lab, file, Purpose::Open);
        if (lab.viewTab > kLabView)
            host.tabClick(0);
        ReadScript(lab, host, name);
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotLoaded(lab.desktop.files, name, error));
    }
}

void SaveScriptCommand(Lab& lab, const std::string& file) {
    std::string name = file;
    try {
        name = chosenScript(lab, file, Purpose::Save);
        const std::string title =
            lab.desktop.dialogs.inputBox("Please enter title", "Script Description", "")
                .value_or("");
        WriteScript(lab, name, title);
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotSaved(lab.desktop.files, name, error));
    }
}

void EditScriptCommand(Lab& lab) {
    std::string name;
    try {
        name = askForScript(lab, Purpose::Open);
        reportUnopened(lab, lab.desktop.shell.execute("notepad.exe", name, FolderPart(name)),
                       "file not found: " + lastName(name), "no program opens the script");
    } catch (const std::exception& error) {
        if (!isCancelled(error))
            lab.reportNotDone(whyNotLoaded(lab.desktop.files, name, error));
    }
}

}  // namespace quillon
