#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <chrono>
#include <functional>

namespace quillon {

/// Runs the event loop until a condition holds; false where it never does within
/// the limit. The loop sleeps until the next event, as the program's own does. The
/// toolkit's qWaitFor() sleeps ten milliseconds after each round of events instead,
/// and a page in the browser takes hundreds of rounds.
inline bool waitUntil(const std::function<bool()>& holds,
                      std::chrono::milliseconds limit = std::chrono::minutes(2)) {
    QTimer end;
    end.setSingleShot(true);
    end.start(limit);
    // For what changes without an event, such as a file.
    QTimer beat;
    beat.start(std::chrono::milliseconds(50));
    while (!holds()) {
        if (!end.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

}  // namespace quillon
