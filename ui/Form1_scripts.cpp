#include <array>

#include "scripting/ReadScript.h"
#include "scripting/WriteScript.h"
#include "scripting/script_commands.h"
#include "ui/Form1.h"

// Scripts: the window's routines hand on to scripting/.

namespace quillon {

namespace {

/// Counts a script while it runs, however it ends.
class RunningScript {
public:
    explicit RunningScript(int& count) : count_(count) { ++count_; }
    RunningScript(const RunningScript&) = delete;
    RunningScript& operator=(const RunningScript&) = delete;
    ~RunningScript() { --count_; }

private:
    int& count_;
};

}  // namespace

void Form1::ReadScript(const std::string& path) {
    const RunningScript running(scriptsRunning_);
    quillon::ReadScript(lab, *this, path);
}

void Form1::ResetForScript() {
    quillon::ResetForScript(lab, *this);
}

void Form1::markInvertEntry(Integer panel, EntryMark mark) {
    constexpr Integer kImageEntry = 9;
    constexpr Integer kOtherEntry = 6;
    struct Entry {
        MenuArray array;
        Integer index;
    };
    constexpr std::array<Entry, 6> kEntries{{{MenuArray::mnuImg1a, kImageEntry},
                                             {MenuArray::mnuFT1a, kOtherEntry},
                                             {MenuArray::mnuNew1a, kOtherEntry},
                                             {MenuArray::mnuImg2a, kImageEntry},
                                             {MenuArray::mnuFT2a, kOtherEntry},
                                             {MenuArray::mnuNew2a, kOtherEntry}}};
    const Entry& entry = kEntries.at(static_cast<std::size_t>(panel - 1));
    menu(entry.array, entry.index).Checked = mark == EntryMark::Checked;
}

void Form1::WriteScript(const std::string& path, const std::string& title) {
    quillon::WriteScript(lab, path, title);
}

void Form1::LoadScriptCommand(const std::string& file) {
    const RunningScript running(scriptsRunning_);
    quillon::LoadScriptCommand(lab, *this, file);
}

void Form1::SaveScriptCommand(const std::string& file) {
    quillon::SaveScriptCommand(lab, file);
}

void Form1::EditScriptCommand() {
    quillon::EditScriptCommand(lab);
}

}  // namespace quillon
