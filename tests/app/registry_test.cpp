#include <gtest/gtest.h>

#include <string>

#include "app/mREGISTRY.h"
#include "engine/RunTimeError.h"
#include "tests/support/RecordingDesktop.h"

namespace quillon {
namespace {

TEST(Registry, TheKeysAreThoseOfTheTwoPrograms) {
    EXPECT_STREQ(kSettingsKey, "Software\\Brindlewood\\Quillon");
    EXPECT_STREQ(kCompanionKey, "Software\\Brindlewood\\Sorrel");
}

TEST(Registry, ASavedStringReadsBackAsItWas) {
    RecordingDesktop desktop;
    for (const std::string value :
         {"2", "", " 15 30 12900 10500 0 ", "C:\\\xC3\xA9t\xC3\xA9\\Quillon.exe"}) {
        SaveRegistryString(desktop.store, kSettingsKey, "PATH", value);
        EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "PATH"), value);
    }
}

TEST(Registry, ALaterStringReplacesTheEarlierAndLeavesTheOthers) {
    RecordingDesktop desktop;
    SaveRegistryString(desktop.store, kSettingsKey, "GUIC", "2");
    SaveRegistryString(desktop.store, kSettingsKey, "LUT", "5");
    SaveRegistryString(desktop.store, kSettingsKey, "GUIC", "4");
    EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "GUIC"), "4");
    EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "LUT"), "5");
    EXPECT_EQ(desktop.store.values.size(), 2U);
}

TEST(Registry, ANumberReadsBackAsItsText) {
    RecordingDesktop desktop;
    for (const Long number : {0, 5, -1, 2147483647, -2147483647 - 1}) {
        SaveRegistryNumber(desktop.store, kSettingsKey, "LUT", number);
        EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "LUT"), std::to_string(number));
    }
    EXPECT_EQ(desktop.calls.of({"store.write"}).at(1),
              "store.writeNumber(Software\\Brindlewood\\Quillon, LUT, 5)");
}

TEST(Registry, AMissingKeyOrValueReadsAsTheEmptyString) {
    RecordingDesktop desktop;
    EXPECT_EQ(GetRegistryString(desktop.store, kCompanionKey, "EXE"), "");
    SaveRegistryString(desktop.store, kSettingsKey, "LUT", "5");
    EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "EXE"), "");
    EXPECT_EQ(GetRegistryString(desktop.store, kCompanionKey, "LUT"), "");
}

TEST(Registry, AStoreThatCannotBeWrittenRemembersNothing) {
    RecordingDesktop desktop;
    desktop.store.writable = false;
    SaveRegistryString(desktop.store, kSettingsKey, "PATH", "C:\\Quillon.exe");
    EXPECT_EQ(GetRegistryString(desktop.store, kSettingsKey, "PATH"), "");
    EXPECT_TRUE(desktop.dialogs.messages.empty());
}

class FailingStore : public StringStore {
public:
    std::string read(const std::string&, const std::string&) override {
        throw RunTimeError(ErrorNumber::PermissionDenied);
    }
    void write(const std::string&, const std::string&, const std::string&) override {
        throw RunTimeError(ErrorNumber::PermissionDenied);
    }
    void writeNumber(const std::string&, const std::string&, Long) override {
        throw RunTimeError(ErrorNumber::PermissionDenied);
    }
};

TEST(Registry, AFailingStoreIsNotReportedAnywhere) {
    FailingStore store;
    EXPECT_NO_THROW(SaveRegistryString(store, kSettingsKey, "PATH", "x"));
    EXPECT_NO_THROW(SaveRegistryNumber(store, kSettingsKey, "LUT", 5));
    EXPECT_EQ(GetRegistryString(store, kSettingsKey, "PATH"), "");
}

}  // namespace
}  // namespace quillon
