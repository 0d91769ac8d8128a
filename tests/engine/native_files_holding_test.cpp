#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>

#include "engine/NativeFiles.h"
#include "engine/NativePaths.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/error_of.h"

namespace quillon {
namespace {

class HeldFiles : public testing::Test {
protected:
    std::string path(const std::string& name) { return labPath(folder.file(name)); }

    TemporaryFolder folder;
    NativeFiles files;
};

TEST_F(HeldFiles, AreMadeWhereTheyAreMissing) {
    const auto held = files.hold(path("mark"));
    EXPECT_NE(held, nullptr);
    EXPECT_TRUE(std::filesystem::exists(folder.file("mark")));
}

TEST_F(HeldFiles, KeepTheirBytes) {
    folder.write("mark", "bytes");
    EXPECT_NE(files.hold(path("mark")), nullptr);
    EXPECT_EQ(folder.read("mark"), "bytes");
}

TEST_F(HeldFiles, AreHeldByOneAlone) {
    auto held = files.hold(path("mark"));
    EXPECT_EQ(files.hold(path("mark")), nullptr);
    held.reset();
    EXPECT_NE(files.hold(path("mark")), nullptr);
}

TEST_F(HeldFiles, AreLetGoByAProgramThatIsKilled) {
    int ready[2] = {-1, -1};
    ASSERT_EQ(::pipe(ready), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        const auto held = files.hold(path("mark"));
        [[maybe_unused]] const ssize_t told = ::write(ready[1], held ? "y" : "n", 1);
        for (;;)
            ::pause();
    }
    char answer = 0;
    ASSERT_EQ(::read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'y');
    EXPECT_EQ(files.hold(path("mark")), nullptr);
    ASSERT_EQ(::kill(child, SIGKILL), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    EXPECT_NE(files.hold(path("mark")), nullptr);
    ::close(ready[0]);
    ::close(ready[1]);
}

TEST_F(HeldFiles, AreFreeAgainUnderTheirNameOnceTheyAreRemoved) {
    const auto first = files.hold(path("mark"));
    files.remove(path("mark"));
    const auto second = files.hold(path("mark"));
    EXPECT_NE(second, nullptr);
    EXPECT_EQ(files.hold(path("mark")), nullptr);
}

TEST_F(HeldFiles, AreNoneWhereTheFolderTakesNoFile) {
    EXPECT_EQ(files.hold(path("missing\\mark")), nullptr);
    std::filesystem::create_directory(folder.file("a folder"));
    EXPECT_EQ(files.hold(path("a folder")), nullptr);
    std::filesystem::create_symlink(folder.file("elsewhere"), folder.file("link"));
    EXPECT_EQ(files.hold(path("link")), nullptr);
    EXPECT_FALSE(std::filesystem::exists(folder.file("elsewhere")));
}

TEST_F(HeldFiles, KnowWhichOfTwoWasWrittenLater) {
    folder.write("a", "a");
    folder.write("b", "b");
    const auto now = std::filesystem::last_write_time(folder.file("a"));
    std::filesystem::last_write_time(folder.file("b"), now + std::chrono::milliseconds(1));
    EXPECT_LT(files.lastWritten(path("a")), files.lastWritten(path("b")));
    EXPECT_EQ(errorOf([&] { files.lastWritten(path("c")); }), ErrorNumber::FileNotFound);
    EXPECT_EQ(errorOf([&] { files.lastWritten(labPath(folder.path())); }),
              ErrorNumber::FileNotFound);
}

}  // namespace
}  // namespace quillon
