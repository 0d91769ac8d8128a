#include "scripting/session_rescue.h"

#include <exception>
#include <utility>

#include "engine/NativePaths.h"
#include "engine/mFFTUTIL.h"
#include "scripting/SessionScript.h"
#include "scripting/WriteScript.h"

namespace quillon {

namespace {

constexpr int kMostRescues = 1000;

/// Pictures of the session are written into another folder while it lives.
class PicturesElsewhere {
public:
    PicturesElsewhere(Lab& lab, std::string folder)
        : folder_(lab.folders.ImagePath), before_(std::exchange(folder_, std::move(folder))) {}
    PicturesElsewhere(const PicturesElsewhere&) = delete;
    PicturesElsewhere& operator=(const PicturesElsewhere&) = delete;
    ~PicturesElsewhere() { folder_ = before_; }

private:
    std::string& folder_;
    std::string before_;
};

/// A folder that did not exist before, with its closing backslash.
std::string newFolder(Files& files, const std::string& parent) {
    for (int n = 1;; ++n) {
        const std::string folder = parent + "quillon-session-" + std::to_string(n);
        try {
            files.createFolder(folder);
            return AddBackslash(folder);
        } catch (const std::exception&) {
            // Usually one that exists; the next number is tried.
            if (n == kMostRescues)
                throw;
        }
    }
}

}  // namespace

SessionRescue rescueSession(Lab& lab, const std::string& script, const std::string& why) {
    const std::string failed =
        "The session script cannot be written:\n" + shownPath(script) + "\n" + why + "\n\n";
    const std::string parent = AddBackslash(lab.desktop.environment.variable("TMP"));
    try {
        const std::string folder = newFolder(lab.desktop.files, parent);
        const PicturesElsewhere there(lab, folder);
        const std::string kept = folder + FileNamePart(script);
        WriteScript(lab, kept, kSessionTitle);
        return {SessionRescue::Result::Kept,
                failed + "The session is kept here instead:\n" + shownPath(kept)};
    } catch (const std::exception& failure) {
        return {SessionRescue::Result::Lost, failed + "Nor can it be kept in\n" +
                                                 shownPath(parent) + "\n" + failure.what() +
                                                 "\n\nWhat was drawn is lost."};
    }
}

}  // namespace quillon
