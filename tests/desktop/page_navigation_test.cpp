#include "desktop/page_navigation.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

const QUrl kDisk(QStringLiteral("file:///doc/en/01-spectrum.htm"));
const QUrl kOtherPage(QStringLiteral("file:///doc/en/02-one-wave.htm"));
const QUrl kScript(QStringLiteral("file:///doc/one wave.ftscr"));
const QUrl kWeb(QStringLiteral("https://www.brindlewood.example/a"));
const QUrl kOtherWeb(QStringLiteral("http://doi.wren-journal.example/b"));
const QUrl kMail(QStringLiteral("mailto:a@brindlewood.example"));

using enum NavigationKind;
constexpr NavigationKind kByThePageItself[] = {Link, Redirect, Other};

Verdict verdict(const QUrl& from, const QUrl& to, NavigationKind kind, Chooser chooser,
                Frame frame = Frame::Whole) {
    return verdictOn(from, to, {frame, kind, chooser});
}

TEST(PageNavigation, TheLabAndTheHistoryLeadAnywhereButToAScript) {
    for (const NavigationKind kind : {Asked, History})
        for (const QUrl& from : {QUrl(), kDisk, kWeb}) {
            for (const QUrl& to : {kDisk, kWeb})
                EXPECT_EQ(verdict(from, to, kind, Chooser::Page), Verdict::Go);
            EXPECT_EQ(verdict(from, kScript, kind, Chooser::User), Verdict::Stay);
        }
}

TEST(PageNavigation, APageOfTheDiskGetsToAnotherOneByAnyMeans) {
    for (const NavigationKind kind : kByThePageItself)
        EXPECT_EQ(verdict(kDisk, kOtherPage, kind, Chooser::Page), Verdict::Go);
}

TEST(PageNavigation, APageOfTheDiskGetsToTheWebByALinkThatTheUserChoseAlone) {
    EXPECT_EQ(verdict(kDisk, kWeb, Link, Chooser::User), Verdict::Go);
    for (const NavigationKind kind : kByThePageItself)
        EXPECT_EQ(verdict(kDisk, kWeb, kind, Chooser::Page), Verdict::Stay);
    EXPECT_EQ(verdict(kDisk, kWeb, Other, Chooser::User), Verdict::Stay);
}

TEST(PageNavigation, ARedirectOfAChosenLinkIsFollowed) {
    // The page of the disk is on show until the last answer has come.
    EXPECT_EQ(verdict(kDisk, kOtherWeb, Redirect, Chooser::User), Verdict::Go);
}

TEST(PageNavigation, AScriptRunsByALinkOfAPageOfTheDiskThatTheUserChose) {
    EXPECT_EQ(verdict(kDisk, kScript, Link, Chooser::User), Verdict::RunScript);
    EXPECT_EQ(verdict(kDisk, kScript, Link, Chooser::Page), Verdict::Stay);
    for (const NavigationKind kind : {Redirect, Other})
        EXPECT_EQ(verdict(kDisk, kScript, kind, Chooser::User), Verdict::Stay);
    EXPECT_EQ(verdict(kDisk, kScript, Link, Chooser::User, Frame::Inner), Verdict::Stay);
}

TEST(PageNavigation, APageOfTheWebGetsNoFileOfTheDisk) {
    for (const NavigationKind kind : kByThePageItself)
        for (const Chooser chooser : {Chooser::User, Chooser::Page})
            for (const QUrl& file : {kDisk, kScript}) {
                EXPECT_EQ(verdict(kWeb, file, kind, chooser), Verdict::Stay);
                EXPECT_EQ(verdict(kWeb, file, kind, chooser, Frame::Inner), Verdict::Stay);
            }
}

TEST(PageNavigation, APageOfTheWebGoesOnInTheWeb) {
    for (const NavigationKind kind : kByThePageItself)
        EXPECT_EQ(verdict(kWeb, kOtherWeb, kind, Chooser::Page), Verdict::Go);
    EXPECT_EQ(verdict(kWeb, kOtherWeb, Other, Chooser::Page, Frame::Inner), Verdict::Go);
}

TEST(PageNavigation, AFrameOfAPageOfTheDiskShowsPagesOfTheDiskAlone) {
    EXPECT_EQ(verdict(kDisk, kOtherPage, Other, Chooser::Page, Frame::Inner), Verdict::Go);
    for (const Chooser chooser : {Chooser::User, Chooser::Page})
        EXPECT_EQ(verdict(kDisk, kWeb, Link, chooser, Frame::Inner), Verdict::Stay);
}

TEST(PageNavigation, ALinkToWhatIsNoPageIsPassedOver) {
    for (const QUrl& from : {kDisk, kWeb})
        EXPECT_EQ(verdict(from, kMail, Link, Chooser::User), Verdict::Stay);
}

class Gesture : public ::testing::Test {
protected:
    static UserGesture::Time at(int milliseconds) {
        return UserGesture::Time() + std::chrono::milliseconds(milliseconds);
    }
    UserGesture gesture;
};

TEST_F(Gesture, NothingIsChosenBeforeAPress) {
    EXPECT_FALSE(gesture.take(at(0)));
    gesture.release(at(1));
    EXPECT_FALSE(gesture.take(at(2)));
}

TEST_F(Gesture, ChoosesOneLink) {
    gesture.press(at(0));
    gesture.release(at(100));
    EXPECT_TRUE(gesture.take(at(110)));
    EXPECT_FALSE(gesture.take(at(120)));
    gesture.press(at(200));
    EXPECT_TRUE(gesture.take(at(210)));
    gesture.release(at(300));
    EXPECT_FALSE(gesture.take(at(310))) << "the press has chosen already";
}

TEST_F(Gesture, IsOverAfterTwoSecondsFromTheRelease) {
    gesture.press(at(0));
    EXPECT_TRUE(gesture.take(at(2000)));
    gesture.press(at(10000));
    EXPECT_FALSE(gesture.take(at(12001)));
    gesture.press(at(20000));
    gesture.release(at(25000));
    EXPECT_TRUE(gesture.take(at(27000)));
}

}  // namespace
}  // namespace quillon
