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
    std::string const tree = contentOf(folder.path() / "results" / "bracket-tree.txt");
    EXPECT_EQ(run.m_out.substr(0, tree.size()), tree);
    EXPECT_THAT(run.m_out.substr(tree.size()), HasSubstr("all instances          7       7"));
    auto const report =
        nlohmann::json::parse(contentOf(folder.path() / "results" / "bracket.json"));
    EXPECT_EQ(report["counts"]["solids"], 6);
    OrloRun const mesh = runOrlo({"inspect", folder.path() / "results" / "bracket.inp", "--json"});
    auto const written = nlohmann::json::parse(mesh.m_out);
    std::size_t elements = 0;
    for (auto const& part : written["parts"]) {
        elements += part["elements"].get<std::size_t>();
    }
    EXPECT_GT(elements, 1000U);
    std::size_t told = 0;
    for (auto const& part : report["mesh"]["parts"]) {
        for (auto const& [type, count] : part["elements"].items()) {
            told += count.get<std::size_t>();
        }
    }
    EXPECT_EQ(told, elements);
}

TEST(OrloRunsAStudy, NamesThePlaceOfAPartThatTheGeometryDoesNotHave)
{
    TemporaryFolder const folder;
    std::filesystem::copy_file(std::string(ORLO_BRACKET) + "/bracket.step",
                               folder.path() / "b.step");
    auto const study = folder.write(
        "s.yaml", "geometry: b.step\nmesh:\n  size: 9\n  parts:\n    - {part: blot, size: 2}\n");
    OrloRun const run = runOrlo({"run", study, "--out", folder.path() / "results"});
    EXPECT_EQ(run.m_status, 2);
    EXPECT_THAT(run.m_err, HasSubstr("s.yaml:5: mesh.parts[1].part: there is no part \"blot\""));
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "results"));
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
