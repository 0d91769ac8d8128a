#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTimer>
#include <new>
#include <optional>

#include "desktop/Conversions.h"
#include "desktop/DesktopApplication.h"
#include "desktop/SessionGuard.h"
#include "engine/RunTimeError.h"
#include "tests/desktop/OpenedWindow.h"

namespace quillon {
namespace {

class UnhandledErrors : public ::testing::Test {
protected:
    UnhandledErrors() {
        application.setDialogs(recording.dialogs);
        application.setEnding([this](int status) {
            EXPECT_EQ(recording.dialogs.messages.size(), 1U) << "the message comes first";
            endings.push_back(status);
        });
    }
    ~UnhandledErrors() override { application.resetEnding(); }

    /// Raises an error in the event loop, where nothing handles it.
    template <class Error>
    void raise(const Error& error) {
        QMetaObject::invokeMethod(
            qApp, [error] { throw error; }, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }

    DesktopApplication& application = *static_cast<DesktopApplication*>(qApp);
    RecordingDesktop recording;
    std::vector<int> endings;
};

TEST_F(UnhandledErrors, AreToldWithNumberAndDescriptionAndEndTheProgramWithStatus1) {
    raise(RunTimeError(ErrorNumber::SubscriptOutOfRange));
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0],
              (RecordingDialogs::Message{"Run-time error '9':\nSubscript out of range\n"
                                         "The program closes.",
                                         "", MessageIcon::Critical, MessageButtons::Ok}));
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrors, NameWhatFailedWhereTheErrorTellsIt) {
    raise(RunTimeError(ErrorNumber::FileNotFound, "File not found: a.jpg"));
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text,
              "Run-time error '53':\nFile not found: a.jpg\nThe program closes.");
}

TEST_F(UnhandledErrors, OfTheLanguageEndTheProgramWithAWordToo) {
    raise(std::bad_alloc());
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text,
              "Run-time error '7':\nOut of memory\nThe program closes.");
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrors, ThatComeWhileTheMessageStandsAreNotToldAgain) {
    recording.dialogs.onMessage = [this](const RecordingDialogs::Message&) {
        recording.dialogs.onMessage = {};
        raise(RunTimeError(ErrorNumber::Overflow));
    };
    raise(RunTimeError(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(endings, std::vector<int>{1});
}

using UnhandledErrorsDeathTest = UnhandledErrors;

TEST_F(UnhandledErrorsDeathTest, ReallyEndTheProcess) {
    application.resetEnding();
    application.setDialogs(recording.dialogs);
    EXPECT_EXIT(application.endWith(std::make_exception_ptr(RunTimeError(ErrorNumber::Overflow))),
                ::testing::ExitedWithCode(1), "");
}

/// The same while a session runs.
class UnhandledErrorsInASession : public OpenedWindow {
protected:
    void SetUp() override {
        open();
        recording.dialogs.messages.clear();
        application.setDialogs(recording.dialogs);
        application.setEnding([this](int status) { endings.push_back(status); });
        guard.emplace(application, *lab);
    }
    ~UnhandledErrorsInASession() override { application.resetEnding(); }

    void raise(ErrorNumber number) {
        QMetaObject::invokeMethod(
            qApp, [number] { throw RunTimeError(number); }, Qt::QueuedConnection);
        QCoreApplication::processEvents();
    }
    bool isKept() { return QFile::exists(script); }
    std::string text(std::size_t i) { return recording.dialogs.messages.at(i).text; }

    DesktopApplication& application = *static_cast<DesktopApplication*>(qApp);
    const QString script = home.filePath(QStringLiteral("Quillon/Scripts/last.ftscr"));
    std::optional<SessionGuard> guard;
    std::vector<int> endings;
};

TEST_F(UnhandledErrorsInASession, SayWhereItIsKeptKeepItAndEndTheProgramWithStatus1) {
    form().Timer1.Enabled = true;
    bool shown = false;
    recording.dialogs.onMessage = [&](const RecordingDialogs::Message&) {
        shown = true;
        EXPECT_FALSE(form().Timer1.Enabled) << "a timer would raise the error again";
        EXPECT_FALSE(isKept()) << "the user reads of it first";
    };
    raise(ErrorNumber::Overflow);
    EXPECT_TRUE(shown);
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(text(0),
              "Run-time error '6':\nOverflow\nThe program closes. The session is kept in " +
                  toBytes(script));
    EXPECT_TRUE(isKept());
    EXPECT_NE(services.store.read("Software\\Brindlewood\\Quillon", "WNDO"), "");
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrorsInASession, ThatComeBackDuringTheClosingAreNotToldAgain) {
    recording.dialogs.onMessage = [this](const RecordingDialogs::Message&) {
        raise(ErrorNumber::SubscriptOutOfRange);
    };
    raise(ErrorNumber::Overflow);
    EXPECT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrorsInASession, WhoseClosingFailsTooSayWhereElseItIsKept) {
    // A folder of the script's name is in the way.
    ASSERT_TRUE(QDir().mkpath(script));
    raise(ErrorNumber::Overflow);
    ASSERT_EQ(recording.dialogs.messages.size(), 2U);
    EXPECT_TRUE(text(1).starts_with("The session script cannot be written:\n" + toBytes(script)))
        << text(1);
    EXPECT_NE(text(1).find("The session is kept here instead:\n"), std::string::npos) << text(1);
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrorsInASession, CloseItOnceWhereTheWindowHasBeenClosedBefore) {
    window().close();
    ASSERT_TRUE(QFile::remove(script));
    raise(ErrorNumber::Overflow);
    EXPECT_FALSE(isKept());
    EXPECT_EQ(endings, std::vector<int>{1});
}

}  // namespace
}  // namespace quillon
