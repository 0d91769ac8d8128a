#include <gtest/gtest.h>

#include <QTimer>
#include <new>

#include "desktop/DesktopApplication.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

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
              (RecordingDialogs::Message{"Run-time error '9':\nSubscript out of range", "",
                                         MessageIcon::Critical, MessageButtons::Ok}));
    EXPECT_EQ(endings, std::vector<int>{1});
}

TEST_F(UnhandledErrors, NameWhatFailedWhereTheErrorTellsIt) {
    raise(RunTimeError(ErrorNumber::FileNotFound, "File not found: a.jpg"));
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text, "Run-time error '53':\nFile not found: a.jpg");
}

TEST_F(UnhandledErrors, OfTheLanguageEndTheProgramWithAWordToo) {
    raise(std::bad_alloc());
    ASSERT_EQ(recording.dialogs.messages.size(), 1U);
    EXPECT_EQ(recording.dialogs.messages[0].text, "Run-time error '7':\nOut of memory");
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

}  // namespace
}  // namespace quillon
