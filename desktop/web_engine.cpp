#include "desktop/web_engine.h"

#include <QtGlobal>
#include <cerrno>
#include <sstream>

#ifdef Q_OS_LINUX
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>
#elif defined(Q_OS_UNIX)
#include <unistd.h>
#endif

namespace quillon {

namespace {

constexpr const char* kNoSandbox = "--no-sandbox";
/// The toolkit's own switch of the sandbox.
constexpr const char* kNoSandboxVariable = "QTWEBENGINE_DISABLE_SANDBOX";

bool switchesSandboxOff(const std::string& flags) {
    std::istringstream words(flags);
    for (std::string word; words >> word;)
        if (word == kNoSandbox)
            return true;
    return qEnvironmentVariableIntValue(kNoSandboxVariable) != 0;
}

}  // namespace

SystemUser systemUser() {
#ifdef Q_OS_UNIX
    return ::geteuid() == 0 ? SystemUser::Root : SystemUser::Ordinary;
#else
    return SystemUser::Ordinary;
#endif
}

std::string engineFlags(const std::string& usersFlags, SystemUser user) {
    if (user != SystemUser::Root || switchesSandboxOff(usersFlags))
        return usersFlags;
    return usersFlags.empty() ? kNoSandbox : usersFlags + " " + kNoSandbox;
}

bool sandboxIsUsable(const std::string& usersFlags, SystemUser user) {
    return user == SystemUser::Root || switchesSandboxOff(usersFlags) || namespacesAreAllowed();
}

bool namespacesAreAllowed() {
#ifdef Q_OS_LINUX
    const pid_t child = ::fork();
    if (child < 0)
        return false;
    if (child == 0)
        ::_exit(::unshare(CLONE_NEWUSER | CLONE_NEWPID | CLONE_NEWNET) == 0 ? 0 : 1);
    int status = 0;
    pid_t ended = -1;
    do
        ended = ::waitpid(child, &status, 0);
    while (ended < 0 && errno == EINTR);
    return ended == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
#else
    return true;
#endif
}

}  // namespace quillon
