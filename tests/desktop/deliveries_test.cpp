#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>
#include <functional>
#include <string>
#include <vector>

#include "desktop/DesktopApplication.h"
#include "desktop/QtScreen.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

// What has to wait until the handler of an event has returned.

namespace quillon {
namespace {

using Lines = std::vector<std::string>;

class Deliveries : public ::testing::Test {
protected:
    void handle(std::function<void()> handler) {
        QMetaObject::invokeMethod(qApp, std::move(handler), Qt::QueuedConnection);
    }
    void later(const std::string& what) {
        DesktopApplication::afterDelivery([this, what] { log.push_back(what); });
    }
    Lines log;
};

TEST_F(Deliveries, OutsideOfAHandlerNothingWaits) {
    later("now");
    EXPECT_EQ(log, Lines{"now"});
}

TEST_F(Deliveries, WhatWaitsRunsInItsOrderBehindTheHandler) {
    handle([this] {
        later("first");
        later("second");
        log.push_back("handled");
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(log, (Lines{"handled", "first", "second"}));
}

TEST_F(Deliveries, TheLoopOfADialogWithinTheHandlerRunsNothingOfIt) {
    handle([this] {
        later("behind");
        QEventLoop dialog;
        handle([&] {
            later("of the dialog");
            log.push_back("inside");
            dialog.quit();
        });
        dialog.exec();
        log.push_back("handled");
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(log, (Lines{"inside", "handled", "behind", "of the dialog"}));
}

TEST_F(Deliveries, AnEventThatAHandlerLetsInDoesNotWaitForThatHandler) {
    QtScreen screen;
    handle([&] {
        later("behind");
        handle([this] { later("let in"); });
        screen.pendingEvents();
        log.push_back("handled");
    });
    QCoreApplication::processEvents();
    EXPECT_EQ(log, (Lines{"let in", "handled", "behind"}));
}

TEST_F(Deliveries, AHandlerThatFailsIsOverBeforeItsErrorIsTold) {
    auto& application = *static_cast<DesktopApplication*>(qApp);
    RecordingDesktop recording;
    recording.dialogs.onMessage = [this](const RecordingDialogs::Message& message) {
        log.push_back(message.text);
        handle([this] { later("while it is told"); });
        QCoreApplication::processEvents();
    };
    application.setDialogs(recording.dialogs);
    application.setEnding([this](int) { log.push_back("end"); });
    handle([this] {
        later("behind");
        throw RunTimeError(ErrorNumber::Overflow);
    });
    QCoreApplication::processEvents();
    application.resetEnding();
    EXPECT_EQ(log, (Lines{"behind", "Run-time error '6':\nOverflow\nThe program closes.",
                          "while it is told", "end"}));
}

}  // namespace
}  // namespace quillon
