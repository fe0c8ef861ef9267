#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <string>

namespace vrn::orlo::app {
namespace {

using ::testing::HasSubstr;

std::string const kStudy = std::string(ORLO_BRACKET) + "/study.yaml";

TEST(OrloRunsAStudy, PrintsTheTreeAndLeavesTheReports)
{
    TemporaryFolder const folder;
    OrloRun const run = runOrlo({"run", kStudy, "--out", folder.path() / "results"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    EXPECT_THAT(run.m_out, HasSubstr("length unit  millimetre"));
    EXPECT_EQ(contentOf(folder.path() / "results" / "bracket-tree.txt"), run.m_out);
    auto const report =
        nlohmann::json::parse(contentOf(folder.path() / "results" / "bracket.json"));
    EXPECT_EQ(report["counts"]["solids"], 6);
}

TEST(OrloRunsAStudy, IntoAFolderNamedAfterItWhenNoneIsGiven)
{
    TemporaryFolder const folder;
    EXPECT_EQ(runOrlo({"run", kStudy, "--json"}, folder.path()).m_status, 0);
    EXPECT_TRUE(std::filesystem::exists(folder.path() / "out" / "bracket" / "bracket.json"));
}

TEST(OrloRunsAStudy, NamesFileLineAndKeyOfAMistakeAndWritesNothing)
{
    TemporaryFolder const folder;
    auto const study = folder.write("wrong.yaml", "study: wrong\ngeometri: bracket.step\n");
    OrloRun const run = runOrlo({"run", study, "--out", folder.path() / "results"});
    EXPECT_EQ(run.m_status, 2);
    EXPECT_THAT(run.m_err, HasSubstr("wrong.yaml:2: geometri"));
    EXPECT_THAT(run.m_err, HasSubstr("geometry"));
    EXPECT_EQ(run.m_out, "");
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "results"));
}

TEST(OrloRunsAStudy, SaysWhichOutputCannotBeWritten)
{
    TemporaryFolder const folder;
    folder.write("taken", "a file where a folder is needed");
    OrloRun const run = runOrlo({"run", kStudy, "--out", folder.path() / "taken"});
    EXPECT_EQ(run.m_status, 2);
    EXPECT_THAT(run.m_err, HasSubstr("taken"));
}

}  // namespace
}  // namespace vrn::orlo::app
