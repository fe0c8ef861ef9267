// `orlo edit`, and the logs that the command line switches on.

#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

namespace vrn::orlo::app {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::Not;

std::string const kStudy = std::string(ORLO_BRACKET) + "/study.yaml";
std::string const kStep = std::string(ORLO_BRACKET) + "/bracket.step";

/// Domain and id of each event that was told, in order.
std::vector<std::string> eventsIn(std::string const& output)
{
    std::vector<std::string> events;
    std::istringstream lines(output);
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::string word;
        std::string domain;
        std::string id;
        if (words >> word >> domain >> id && word == "event") {
            events.push_back(domain.substr(domain.rfind('.') + 1) + " " + id);
        }
    }
    return events;
}

TEST(OrloEdits, APropertyByACommandWhoseEventsArrive)
{
    OrloRun const run = runOrlo({"edit", kStudy, "--set", "bolt.description=M8 x 40"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    EXPECT_THAT(run.m_out,
                AllOf(HasSubstr("set bolt.description: \"\" -> \"M8 x 40\"\n"),
                      HasSubstr("entity: Part bolt, reference: Simulation.Part #3, properties: "
                                "[\"description\"]"),
                      HasSubstr("\nparts\n"),
                      HasSubstr("  bolt: name=\"bolt\" "
                                "description=\"M8 x 40\"")));
    EXPECT_THAT(eventsIn(run.m_out), ::testing::ElementsAre("CmdProcessor 3", "Entity 2",
                                                            "UndoRedoFWEvent 5", "CmdProcessor 4"));
}

TEST(OrloEdits, AndTakesTheLastChangeBack)
{
    OrloRun const run = runOrlo({"edit", kStudy, "--set", "bolt.color=0x0000ff", "--set",
                                 "stiffener.visible=off", "--undo"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    std::size_t const undo = run.m_out.find("\nundo\n");
    ASSERT_NE(undo, std::string::npos);
    std::string const before = run.m_out.substr(0, undo);
    std::string const after = run.m_out.substr(undo);
    EXPECT_THAT(before, HasSubstr("stiffener: name=\"stiffener\" description=\"\" visible=false"));
    EXPECT_THAT(after, HasSubstr("stiffener: name=\"stiffener\" description=\"\" visible=true"));
    EXPECT_THAT(after, HasSubstr("color=255"));  // the first change stays
    EXPECT_THAT(eventsIn(after), ::testing::ElementsAre("CmdProcessor 3", "Entity 2",
                                                        "UndoRedoFWEvent 2", "CmdProcessor 4"));
}

struct Mistake {
    char const* name;
    std::vector<std::string> arguments;
    int status;
    char const* says;
};

void PrintTo(Mistake const& mistake, std::ostream* out)
{
    *out << mistake.name;
}

class OrloEditRefuses : public ::testing::TestWithParam<Mistake> {};

TEST_P(OrloEditRefuses, WithOneLineThatNamesPlaceAndMend)
{
    std::vector<std::string> arguments{"edit", kStudy};
    arguments.insert(arguments.end(), GetParam().arguments.begin(), GetParam().arguments.end());
    OrloRun const run = runOrlo(arguments);
    EXPECT_EQ(run.m_status, GetParam().status);
    EXPECT_THAT(run.m_err, HasSubstr(GetParam().says));
    EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1) << run.m_err;
}

INSTANTIATE_TEST_SUITE_P(
    , OrloEditRefuses,
    ::testing::Values(
        Mistake{"NoValue", {"--set", "bolt.color"}, 2, "give PART.property=value"},
        Mistake{"NoPart", {"--set", "nut.color=1"}, 2, "the parts are base plate, l-bracket, bolt"},
        Mistake{"NoProperty", {"--set", "bolt.mass=1"}, 2, "its properties are name, description"},
        Mistake{"OtherKind", {"--set", "bolt.color=red"}, 2, "a whole number such as 12"},
        Mistake{"TooLarge", {"--set", "bolt.color=0x100000000"}, 2, "a whole number such as 12"},
        Mistake{"RefusedByTheModel",
                {"--set", "bolt.transparency=1.5"},
                1,
                "\"transparency\" of entity \"bolt\" takes a number from 0 to 1"}),
    [](auto const& row) { return row.param.name; });

TEST(OrloLogs, NothingByItself)
{
    OrloRun const run = runOrlo({"inspect", kStep, "--tree"});
    EXPECT_EQ(run.m_err, "");
}

TEST(OrloLogs, WhatTheCommandLineAsksFor)
{
    OrloRun const run = runOrlo({"inspect", kStep, "--tree", "--log-level", "information"});
    EXPECT_EQ(run.m_status, 0);
    EXPECT_THAT(run.m_err,
                HasSubstr(kStep + ": 4 parts"));  // a line of the library's log in the framework's
    EXPECT_THAT(runOrlo({"inspect", kStep, "--tree", "--log-level", "error"}).m_err,
                Not(HasSubstr(": 4 parts")));
    OrloRun const wrong = runOrlo({"inspect", kStep, "--log-level", "loud"});
    EXPECT_EQ(wrong.m_status, 2);
    EXPECT_THAT(wrong.m_err, HasSubstr("--log-level"));
}

TEST(OrloLogs, TimesIntoThePluginsFolder)
{
    TemporaryFolder const folder;
    setenv("ORLO_MODELING_PERFORMANCE_LOG", "TRUE", 1);
    OrloRun const run = runOrlo({"inspect", kStep, "--log-folder", folder.path()});
    EXPECT_EQ(run.m_status, 0);
    std::filesystem::path const logs = folder.path() / "VRN.ModelingPlugin";
    ASSERT_TRUE(std::filesystem::exists(logs));
    std::filesystem::path const file = std::filesystem::directory_iterator(logs)->path();
    EXPECT_THAT(file.filename(), MatchesRegex("[0-9]+\\.log"));
    EXPECT_THAT(contentOf(file), HasSubstr(" >> import of " + kStep));
}

TEST(OrloSettings, ThatAreBrokenAreToldOnceAndLeftOut)
{
    TemporaryFolder const folder;
    auto const broken = folder.write("developers.xml", "<settings name=\"x\">\n<group>\n");
    setenv("ORLO_DEVELOPER_CONFIG", broken.c_str(), 1);
    OrloRun const run = runOrlo({"inspect", kStep, "--tree"});
    EXPECT_EQ(run.m_status, 0);
    EXPECT_THAT(run.m_err, HasSubstr(broken.string() + ":"));
    EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1) << run.m_err;
}

}  // namespace
}  // namespace vrn::orlo::app
