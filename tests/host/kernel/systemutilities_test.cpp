#include "host/kernel/systemutilities.h"

#include "tests/support/temporaryfolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace vrn::orlo::host::kernel {
namespace {

class SystemUtilitiesTest : public ::testing::Test {
protected:
    /// A path below the folder, written with backslashes.
    icu::UnicodeString path(char16_t const* name) const
    {
        return icu::UnicodeString::fromUTF8(m_folder.path().string()).append(u'\\').append(name);
    }

    KFRSmartPointer<SystemUtilities> m_utilities = KFR::make<SystemUtilities>();
    test::TemporaryFolder m_folder;
};

TEST_F(SystemUtilitiesTest, FindsAndRemovesAFileWithAnyName)
{
    m_folder.write("Größe µ.lck", "x");
    EXPECT_TRUE(m_utilities->exists(path(u"Größe µ.lck")).isOk());
    EXPECT_TRUE(m_utilities->remove(path(u"Größe µ.lck")).isOk());
    EXPECT_EQ(m_utilities->exists(path(u"Größe µ.lck")).getCode(), ENOENT);
    EXPECT_TRUE(m_utilities->remove(path(u"Größe µ.lck")).isOk());
}

TEST_F(SystemUtilitiesTest, RemovesALinkAndNotWhatItLeadsToAndNoFolder)
{
    std::filesystem::create_directory(m_folder.path() / "empty");
    EXPECT_TRUE(m_utilities->exists(path(u"empty")).isOk());
    EXPECT_EQ(m_utilities->remove(path(u"empty")).getCode(), EISDIR);
    EXPECT_TRUE(std::filesystem::remove(m_folder.path() / "empty"));
    std::filesystem::create_symlink("nowhere", m_folder.path() / "broken");
    std::filesystem::create_symlink(m_folder.path(), m_folder.path() / "toFolder");
    EXPECT_EQ(m_utilities->exists(path(u"broken")).getCode(), ENOENT);
    EXPECT_TRUE(m_utilities->remove(path(u"broken")).isOk());
    EXPECT_TRUE(m_utilities->remove(path(u"toFolder")).isOk());
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path()));
}

TEST_F(SystemUtilitiesTest, VariableThatIsNotSetLeavesTheValue)
{
    std::string value = "default";
    ::unsetenv("ORLO_TEST_VARIABLE");
    EXPECT_FALSE(m_utilities->getEnvironmentVariable(u"ORLO_TEST_VARIABLE", value).isOk());
    EXPECT_EQ(value, "default");
    ::setenv("ORLO_TEST_VARIABLE", "", 1);
    EXPECT_TRUE(m_utilities->getEnvironmentVariable(u"ORLO_TEST_VARIABLE", value).isOk());
    EXPECT_EQ(value, "");
}

// clang-format off
struct {
    char const* name;
    char16_t const* folder;
    char16_t const* path;
    char16_t const* expected;
} const kJoinCases[] = {
    // name                folder      path          expected
    {"Plain",              u"a",       u"b",         u"a/b"},
    {"Backslashes",        u"\\a\\b",  u"c\\d",      u"/a/b/c/d"},
    {"SlashAlreadyThere",  u"a\\",     u"b",         u"a/b"},
    {"AbsolutePath",       u"a",       u"\\b",       u"/b"},
    {"NoFolder",           u"",        u"b",         u"b"},
    {"NoPath",             u"a",       u"",          u"a"},
};
// clang-format on

TEST(JoinedPath, HasOneSlashBetweenItsParts)
{
    for (auto const& row : kJoinCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(KFR::make<SystemUtilities>()->join(row.folder, row.path),
                  icu::UnicodeString(row.expected));
    }
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
