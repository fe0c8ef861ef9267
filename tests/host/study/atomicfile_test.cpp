#include "host/study/atomicfile.h"

#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

namespace vrn::orlo::host::study {
namespace {

using test::contentOf;
using test::TemporaryFolder;

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::string errorOf(fs::path const& file, std::string const& text)
{
    try {
        writeFileAtomically(file, text);
    } catch (WriteError const& error) {
        return error.what();
    }
    return "";
}

TEST(AtomicFile, WritesTheBytesAndLeavesNothingElse)
{
    TemporaryFolder const folder;
    std::string const text("a\r\n\0b", 5);
    writeFileAtomically(folder.path() / "t.txt", text);
    EXPECT_EQ(contentOf(folder.path() / "t.txt"), text);
    EXPECT_THAT(folder.names(), ElementsAre("t.txt"));
}

TEST(AtomicFile, WritesAnEmptyFile)
{
    TemporaryFolder const folder;
    writeFileAtomically(folder.path() / "t.txt", "");
    EXPECT_EQ(contentOf(folder.path() / "t.txt"), "");
}

TEST(AtomicFile, ReplacesWhatWasThereAndKeepsItsPermissions)
{
    TemporaryFolder const folder;
    fs::path const file = folder.write("t.txt", "a much longer text");
    fs::perms const ownerOnly = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(file, ownerOnly);
    writeFileAtomically(file, "new");
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), ownerOnly);
}

TEST(AtomicFile, MakesMissingFolders)
{
    TemporaryFolder const folder;
    writeFileAtomically(folder.path() / "a/b/t.txt", "x");
    EXPECT_EQ(contentOf(folder.path() / "a/b/t.txt"), "x");
}

TEST(AtomicFile, TakesANameAsLongAsNamesCanBe)
{
    TemporaryFolder const folder;
    std::string const name(255, 'n');
    writeFileAtomically(folder.path() / name, "x");
    EXPECT_EQ(contentOf(folder.path() / name), "x");
}

TEST(AtomicFile, WritesThroughASymbolicLink)
{
    TemporaryFolder const folder;
    fs::path const target = folder.write("target.txt", "old");
    fs::path const link = folder.path() / "link.txt";
    fs::create_symlink(target, link);
    writeFileAtomically(link, "new");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(contentOf(target), "new");
}

TEST(AtomicFile, RefusesAFolderADeviceAndNoNameAtAll)
{
    TemporaryFolder const folder;
    std::string const path = folder.path().string();
    EXPECT_THAT(errorOf(path, "x"), StartsWith(path + ": cannot be written: it is a folder"));
    EXPECT_THAT(errorOf(path + "/new/", "x"), HasSubstr("it names no file"));
    EXPECT_THAT(errorOf("/dev/null", "x"), HasSubstr("it is a device"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
}

TEST(AtomicFile, NamesPathAndReasonWhenTheFolderCannotBeMade)
{
    TemporaryFolder const folder;
    fs::path const file = folder.write("plain", "x") / "t.txt";
    EXPECT_THAT(errorOf(file, "x"),
                StartsWith(file.string() + ": cannot be written: its folder cannot be made: "));
    EXPECT_THAT(folder.names(), ElementsAre("plain"));
}

TEST(AtomicFile, NamesPathAndReasonWhenTheFolderMayNotBeWritten)
{
    if (::geteuid() == 0) {
        GTEST_SKIP() << "root may write everywhere";
    }
    TemporaryFolder const folder;
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_THAT(errorOf(folder.path() / "t.txt", "x"), HasSubstr("no file can be made"));
}

/// Lets no file grow beyond a size while it lives; the stand-in for a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }

    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, SIG_DFL);
    }

    FileSizeLimit(FileSizeLimit const&) = delete;
    FileSizeLimit& operator=(FileSizeLimit const&) = delete;

private:
    rlimit m_before{};
};

TEST(AtomicFile, KeepsTheOldFileAndNoOtherWhenTheDiskIsFull)
{
    TemporaryFolder const folder;
    fs::path const file = folder.write("t.txt", "old");
    std::string message;
    {
        FileSizeLimit const limit(1000);
        message = errorOf(file, std::string(5000, 'x'));
    }
    EXPECT_THAT(message, StartsWith(file.string() + ": cannot be written: writing failed: "));
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_THAT(folder.names(), ElementsAre("t.txt"));
}

TEST(AtomicFile, LeavesNothingWhereNothingWasWhenTheDiskIsFull)
{
    TemporaryFolder const folder;
    {
        FileSizeLimit const limit(1000);
        EXPECT_NE(errorOf(folder.path() / "t.txt", std::string(5000, 'x')), "");
    }
    EXPECT_THAT(folder.names(), IsEmpty());
}

TEST(AtomicFile, OfSeveralWritersOneWinsWhole)
{
    TemporaryFolder const folder;
    fs::path const file = folder.path() / "t.txt";
    std::vector<std::thread> writers;
    for (char letter = 'a'; letter < 'e'; ++letter) {
        writers.emplace_back([&file, letter] {
            for (int i = 0; i < 10; ++i) {
                writeFileAtomically(file, std::string(10'000, letter));
            }
        });
    }
    for (std::thread& writer : writers) {
        writer.join();
    }
    std::string const content = contentOf(file);
    EXPECT_EQ(content, std::string(10'000, content.empty() ? '?' : content.front()));
    EXPECT_THAT(folder.names(), ElementsAre("t.txt"));
}

}  // namespace
}  // namespace vrn::orlo::host::study
