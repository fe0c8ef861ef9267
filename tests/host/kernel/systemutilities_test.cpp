#include "host/kernel/systemutilities.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <string>

#include <unistd.h>

namespace vrn::orlo::host::kernel {
namespace {

class SystemUtilitiesTest : public ::testing::Test {
protected:
    SystemUtilitiesTest() { std::filesystem::create_directories(m_folder); }
    ~SystemUtilitiesTest() override { std::filesystem::remove_all(m_folder); }

    /// A path below the folder, written with backslashes.
    icu::UnicodeString path(char16_t const* name) const
    {
        return icu::UnicodeString::fromUTF8(m_folder.string()).append(u'\\').append(name);
    }

    KFRSmartPointer<SystemUtilities> m_utilities = KFR::make<SystemUtilities>();
    std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("systemutilities-" + std::to_string(::getpid()));
};

TEST_F(SystemUtilitiesTest, FindsAndRemovesAFileWithAnyName)
{
    std::ofstream(m_folder / "Größe µ.lck") << "x";
    EXPECT_TRUE(m_utilities->exists(path(u"Größe µ.lck")).isOk());
    EXPECT_TRUE(m_utilities->remove(path(u"Größe µ.lck")).isOk());
    EXPECT_EQ(m_utilities->exists(path(u"Größe µ.lck")).getCode(), ENOENT);
    EXPECT_TRUE(m_utilities->remove(path(u"Größe µ.lck")).isOk());
}

TEST_F(SystemUtilitiesTest, RemovesNoFolder)
{
    std::filesystem::create_directory(m_folder / "empty");
    EXPECT_TRUE(m_utilities->exists(path(u"empty")).isOk());
    EXPECT_EQ(m_utilities->remove(path(u"empty")).getCode(), EISDIR);
    EXPECT_TRUE(std::filesystem::exists(m_folder / "empty"));
}

TEST_F(SystemUtilitiesTest, RemovesALinkAndNotWhatItLeadsTo)
{
    std::filesystem::create_symlink("nowhere", m_folder / "broken");
    std::filesystem::create_symlink(m_folder, m_folder / "toFolder");
    EXPECT_EQ(m_utilities->exists(path(u"broken")).getCode(), ENOENT);
    EXPECT_TRUE(m_utilities->remove(path(u"broken")).isOk());
    EXPECT_TRUE(m_utilities->remove(path(u"toFolder")).isOk());
    EXPECT_TRUE(std::filesystem::is_empty(m_folder));
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

struct JoinCase {
    char const* name;
    char16_t const* folder;
    char16_t const* path;
    char16_t const* expected;
};

void PrintTo(JoinCase const& row, std::ostream* out)
{
    *out << row.name;
}

class JoinedPath : public ::testing::TestWithParam<JoinCase> {};

TEST_P(JoinedPath, HasOneSlashBetweenItsParts)
{
    EXPECT_EQ(KFR::make<SystemUtilities>()->join(GetParam().folder, GetParam().path),
              icu::UnicodeString(GetParam().expected));
}

// clang-format off
JoinCase const kJoinCases[] = {
    // name                folder      path          expected
    {"Plain",              u"a",       u"b",         u"a/b"},
    {"Backslashes",        u"\\a\\b",  u"c\\d",      u"/a/b/c/d"},
    {"SlashAlreadyThere",  u"a\\",     u"b",         u"a/b"},
    {"AbsolutePath",       u"a",       u"\\b",       u"/b"},
    {"NoFolder",           u"",        u"b",         u"b"},
    {"NoPath",             u"a",       u"",          u"a"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(SystemUtilities, JoinedPath, ::testing::ValuesIn(kJoinCases),
                         [](auto const& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vrn::orlo::host::kernel
