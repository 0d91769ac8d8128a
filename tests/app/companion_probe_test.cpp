#include "app/companion_probe.h"

#include <gtest/gtest.h>

#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

const std::vector<std::string> kPage = {"https://www.brindlewood.example/products/Sorrel"};

TEST(CompanionProbe, WithoutTheCompanionItsPageOpensAtEachStart) {
    RecordingDesktop desktop;
    probeCompanion(desktop.desktop());
    EXPECT_EQ(desktop.shell.addresses, kPage);
    EXPECT_EQ(desktop.calls.of({"store."}),
              (std::vector<std::string>{"store.read(Software\\Brindlewood\\Sorrel, EXE)"}));
    probeCompanion(desktop.desktop());
    EXPECT_EQ(desktop.shell.addresses.size(), 2U);
}

TEST(CompanionProbe, AnInstalledCompanionKeepsThePageClosed) {
    RecordingDesktop desktop;
    desktop.files.addFile("C:\\Sorrel\\Sorrel.exe", "MZ");
    desktop.store.values[{"Software\\Brindlewood\\Sorrel", "EXE"}] = "C:\\Sorrel\\Sorrel.exe";
    probeCompanion(desktop.desktop());
    EXPECT_TRUE(desktop.shell.addresses.empty());
}

TEST(CompanionProbe, ARecordOfAMissingOrEmptyProgramOpensThePage) {
    RecordingDesktop desktop;
    desktop.store.values[{"Software\\Brindlewood\\Sorrel", "EXE"}] = "C:\\Sorrel\\Sorrel.exe";
    probeCompanion(desktop.desktop());
    EXPECT_EQ(desktop.shell.addresses, kPage);
    desktop.files.addFile("C:\\Sorrel\\Sorrel.exe", "");
    probeCompanion(desktop.desktop());
    EXPECT_EQ(desktop.shell.addresses.size(), 2U);
}

TEST(CompanionProbe, NothingIsWritten) {
    RecordingDesktop desktop;
    probeCompanion(desktop.desktop());
    EXPECT_TRUE(desktop.store.values.empty());
}

}  // namespace
}  // namespace quillon
