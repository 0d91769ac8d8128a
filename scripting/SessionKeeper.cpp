#include "scripting/SessionKeeper.h"

#include <algorithm>
#include <exception>
#include <utility>
#include <vector>

#include "scripting/SessionScript.h"

namespace quillon {

namespace {

constexpr const char* kScriptEnding = ".ftscr";
constexpr const char* kMarkEnding = ".open";
constexpr int kMostLabs = 100;

/// What fails leaves the session as it was kept before.
template <class Step>
void asFarAsPossible(Step step) {
    try {
        step();
    } catch (const std::exception&) {
        // Nobody is there to be asked, and nothing on the screen has changed.
    }
}

/// A session whose program is gone.
struct EndedSession {
    std::string script;
    std::int64_t lastWritten = 0;
};

}  // namespace

std::string SessionKeeper::path(int number, const char* ending) const {
    return lab_.folders.ScriptPath + "snapshot" + std::to_string(number) + ending;
}

std::string SessionKeeper::takeEndedSession() {
    std::string script;
    asFarAsPossible([&] { script = takeNewest(); });
    return script;
}

std::string SessionKeeper::takeNewest() {
    Files& files = lab_.desktop.files;
    const std::string& folder = lab_.folders.ScriptPath;
    std::vector<EndedSession> ended;
    for (const std::string& name : files.list(folder, std::string("snapshot*") + kMarkEnding)) {
        // Held while it is removed, so that of two labs that start at once one takes it.
        const std::unique_ptr<HeldFile> mark = files.hold(folder + name);
        if (mark == nullptr)
            continue;
        const std::string script =
            folder + name.substr(0, name.size() - std::string(kMarkEnding).size()) + kScriptEnding;
        asFarAsPossible([&] {
            // A mark that stays would bring the session back at every start.
            files.remove(folder + name);
            ended.push_back({script, files.lastWritten(script)});
        });
    }
    const auto newest = std::ranges::max_element(ended, {}, &EndedSession::lastWritten);
    return newest == ended.end() ? std::string() : newest->script;
}

bool SessionKeeper::begin() {
    for (int number = 1; mark_ == nullptr && number <= kMostLabs; ++number) {
        // A mark that is there is another lab's, or one that waits to be taken up.
        const std::string mark = path(number, kMarkEnding);
        if (!lab_.desktop.files.list(lab_.folders.ScriptPath, mark.substr(mark.rfind('\\') + 1))
                 .empty())
            continue;
        mark_ = lab_.desktop.files.hold(mark);
        number_ = number;
    }
    return mark_ != nullptr;
}

void SessionKeeper::write() {
    if (!begin())
        return;
    SessionContent content = sessionContent(lab_);
    quillon::writeSnapshot(lab_, path(number_, kScriptEnding), kSessionTitle);
    kept_ = std::move(content);
}

void SessionKeeper::writeSnapshot() {
    asFarAsPossible([&] {
        if (kept_ != sessionContent(lab_))
            write();
    });
}

void SessionKeeper::close() {
    if (mark_ == nullptr)
        return;
    Files& files = lab_.desktop.files;
    asFarAsPossible([&] { files.remove(path(number_, kMarkEnding)); });
    // The closing has given every picture a file, so this one leaves those of the
    // snapshots before it without a use, and they are removed.
    asFarAsPossible([&] { write(); });
    asFarAsPossible([&] { files.remove(path(number_, kScriptEnding)); });
    mark_.reset();
    // A desktop that has been told to stay lets the session go on from here.
    asFarAsPossible([&] { passOver(); });
}

void SessionKeeper::leave() {
    asFarAsPossible([&] { write(); });
}

}  // namespace quillon
