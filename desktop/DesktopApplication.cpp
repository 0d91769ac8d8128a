#include "desktop/DesktopApplication.h"

#include <QEvent>
#include <QProxyStyle>
#include <QThread>
#include <cstdlib>
#include <new>
#include <utility>

#include "desktop/RunningSession.h"
#include "engine/RunTimeError.h"
#include "engine/Version.h"

namespace quillon {

namespace {

constexpr int kOutOfMemory = 7;
constexpr int kInternalError = 51;

/// The desktop's style, but the Alt key alone belongs to the lab, which shows the
/// profile lines by it; Alt with a letter opens a menu as everywhere.
class LabStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == SH_MenuBar_AltKeyNavigation)
            return 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }
};

/// What must be set before the toolkit starts.
int& prepared(int& argc) {
    // A stroke follows the pointer through every point that the mouse tells.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QCoreApplication::setAttribute(Qt::AA_CompressTabletEvents, false);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    // A panel's pixels cover whole pixels of the screen. At a scale in between,
    // the whole window keeps to the whole number below, so that no panel stands
    // small in a frame too large for it.
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::RoundPreferFloor);
    return argc;
}

std::string errorText(int number, const std::string& description) {
    return "Run-time error '" + std::to_string(number) + "':\n" + description;
}

std::string textOf(const std::exception_ptr& error) {
    try {
        std::rethrow_exception(error);
    } catch (const RunTimeError& runTimeError) {
        return errorText(static_cast<int>(runTimeError.number()), runTimeError.description());
    } catch (const std::bad_alloc&) {
        return errorText(kOutOfMemory, "Out of memory");
    } catch (const std::exception& other) {
        return errorText(kInternalError, std::string("Internal error: ") + other.what());
    }
}

}  // namespace

DesktopApplication::DesktopApplication(int& argc, char** argv)
    : QApplication(prepared(argc), argv) {
    resetEnding();
    setApplicationName(QStringLiteral("quillon"));
    // No display name: the toolkit would add it to the title of every dialog.
    setApplicationVersion(QString::fromLatin1(kVersionText));
    setStyle(new LabStyle);
}

void DesktopApplication::resetEnding() {
    dialogs_ = &ownDialogs_;
    // No destructor of the half-finished handler's objects runs.
    ending_ = [](int status) { std::_Exit(status); };
}

bool DesktopApplication::notify(QObject* receiver, QEvent* event) {
    // The toolkit's own threads deliver events too; the lab has only this one.
    if (QThread::currentThread() != thread())
        return QApplication::notify(receiver, event);
    bool taken = true;
    ++deliveries_;
    try {
        taken = QApplication::notify(receiver, event);
    } catch (const std::exception&) {
        fail(std::current_exception());
    }
    if (--deliveries_ == 0)
        runWaiting();
    return taken;
}

void DesktopApplication::fail(std::exception_ptr error) {
    // The handler that failed is over.
    runWaiting();
    const Interlude interlude;
    endWith(std::move(error));
}

DesktopApplication* DesktopApplication::current() {
    return dynamic_cast<DesktopApplication*>(instance());
}

void DesktopApplication::afterDelivery(std::function<void()> act) {
    DesktopApplication* application = current();
    if (application == nullptr || application->deliveries_ == 0)
        act();
    else
        application->waiting_.push_back(std::move(act));
}

void DesktopApplication::runWaiting() {
    while (!waiting_.empty()) {
        const std::function<void()> act = std::move(waiting_.front());
        waiting_.pop_front();
        ++deliveries_;
        try {
            act();
        } catch (const std::exception&) {
            fail(std::current_exception());
        }
        --deliveries_;
    }
}

DesktopApplication::Interlude::Interlude() : application_(current()) {
    if (application_ == nullptr)
        return;
    deliveries_ = std::exchange(application_->deliveries_, 0);
    waiting_ = std::exchange(application_->waiting_, {});
}

DesktopApplication::Interlude::~Interlude() {
    if (application_ == nullptr)
        return;
    application_->deliveries_ = deliveries_;
    application_->waiting_ = std::move(waiting_);
}

bool DesktopApplication::event(QEvent* event) {
    // The desktop ends the program. The windows close behind this, and a box that
    // one of them opened would keep the desktop waiting.
    if (event->type() == QEvent::Quit)
        endSession(Ending::DesktopClosed);
    return QApplication::event(event);
}

void DesktopApplication::endWith(std::exception_ptr error) {
    // While the message stands, a timer may well run into the same error again.
    if (telling_)
        return;
    telling_ = true;
    tell(error);
    endSession(Ending::Failed);
    telling_ = false;
    ending_(EXIT_FAILURE);
}

void DesktopApplication::tell(const std::exception_ptr& error) {
    std::string text = textOf(error) + "\nThe program closes.";
    if (session_ != nullptr) {
        session_->stopWork();
        if (const std::string kept = session_->keptIn(); !kept.empty())
            text += " The session is kept in " + kept;
    }
    try {
        dialogs_->messageBox(text, "", MessageIcon::Critical, MessageButtons::Ok);
    } catch (const std::exception&) {
        // Where not even a box can be shown, the session is kept all the same.
    }
}

void DesktopApplication::endBySignal(int signal) {
    // What a shell reports of a program that a signal has ended.
    constexpr int kSignalStatus = 128;
    endSession(Ending::Interrupted);
    ending_(kSignalStatus + signal);
}

void DesktopApplication::endAtExit() {
    endSession(Ending::Interrupted);
    ending_(EXIT_FAILURE);
}

void DesktopApplication::endSession(Ending ending) {
    if (session_ != nullptr)
        session_->endSession(ending);
}

}  // namespace quillon
