#include "host/study/atomicfile.h"

#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

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
    std::string const bytes("a\r\n\0b", 5);
    // The second name is as long as names can be; the last one's folders are made.
    for (std::string const& name :
         {std::string("t.txt"), std::string(255, 'n'), std::string("a/b/t")}) {
        TemporaryFolder const folder;
        for (std::string const& text : {bytes, std::string()}) {
            writeFileAtomically(folder.path() / name, text);
            EXPECT_EQ(contentOf(folder.path() / name), text);
        }
        EXPECT_THAT(folder.names(), ElementsAre(name.substr(0, name.find('/'))));
    }
}

TEST(AtomicFile, ReplacesWhatWasThereAndKeepsItsPermissionsAlsoThroughALink)
{
    TemporaryFolder const folder;
    fs::path const file = folder.write("t.txt", "a much longer text");
    fs::perms const ownerOnly = fs::perms::owner_read | fs::perms::owner_write;
    fs::permissions(file, ownerOnly);
    writeFileAtomically(file, "new");
    EXPECT_EQ(contentOf(file), "new");
    EXPECT_EQ(fs::status(file).permissions(), ownerOnly);
    fs::path const link = folder.path() / "link.txt";
    fs::create_symlink(file, link);
    writeFileAtomically(link, "newer");
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(contentOf(file), "newer");
}

TEST(AtomicFile, RefusesAFolderADeviceNoNameAtAllAndAFileForAFolder)
{
    TemporaryFolder const folder;
    std::string const path = folder.path().string();
    EXPECT_THAT(errorOf(path, "x"), StartsWith(path + ": cannot be written: it is a folder"));
    EXPECT_THAT(errorOf(path + "/new/", "x"), HasSubstr("it names no file"));
    EXPECT_THAT(errorOf("/dev/null", "x"), HasSubstr("it is a device"));
    EXPECT_TRUE(fs::is_character_file("/dev/null"));
    fs::path const file = folder.write("plain", "x") / "t.txt";
    EXPECT_THAT(errorOf(file, "x"),
                StartsWith(file.string() + ": cannot be written: its folder cannot be made: "));
    EXPECT_THAT(folder.names(), ElementsAre("plain"));
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
        EXPECT_NE(errorOf(folder.path() / "absent.txt", std::string(5000, 'x')), "");
    }
    EXPECT_THAT(message, StartsWith(file.string() + ": cannot be written: writing failed: "));
    EXPECT_EQ(contentOf(file), "old");
    EXPECT_THAT(folder.names(), ElementsAre("t.txt"));
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
