#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>

namespace vrn::orlo::app {
namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;
using Json = nlohmann::json;

TEST(OrloUnits, ListsAllSystemsWhenAskedForNone)
{
    OrloRun const run = runOrlo({"units", "--json"});
    ASSERT_EQ(run.m_status, 0) << run.m_err;
    Json const systems = Json::parse(run.m_out).at("systems");
    EXPECT_EQ(systems.size(), 26U);
    EXPECT_EQ(systems[0].at("name"), "SI");
    EXPECT_EQ(systems[0].at("wtmass").size(), 12U);
}

TEST(OrloUnits, TellsWhatTheLibraryMakesOfASystem)
{
    OrloRun const run = runOrlo({"units", "--json", "English_slinch", "m-kg-s-N-deg"});
    ASSERT_EQ(run.m_status, 0) << run.m_err;
    EXPECT_THAT(run.m_err, IsEmpty());
    Json const systems = Json::parse(run.m_out).at("systems");
    ASSERT_EQ(systems.size(), 2U);
    EXPECT_EQ(systems[0].at("label"), "in-slinch-s-lbf");
    EXPECT_EQ(systems[0].at("ids"),
              Json::parse(R"({"length": 6, "mass": 24, "time": 31, "force": 52, "angle": 0})"));
    EXPECT_EQ(systems[0].at("factors").at("force"), 4.448222);
    EXPECT_EQ(systems[1].at("ids").at("angle"), 62);
    EXPECT_EQ(systems[1].at("wtmass").at("kgf"), 1.0);
    // The micro is asked for as the library spells it: a wrong text would count as the newton.
    EXPECT_EQ(systems[1].at("wtmass").at("uN"), 1e-6 / 9.80665);
}

TEST(OrloUnits, WarnsOfUnitsThatTheLibraryDoesNotKnow)
{
    OrloRun const run = runOrlo({"units", "cm-g-us-daMN"});
    EXPECT_EQ(run.m_status, 0);
    EXPECT_THAT(run.m_err, HasSubstr("cm-g-us-daMN: the unit of time and force is not known"));
    EXPECT_THAT(run.m_out, HasSubstr("WTMASS"));
}

TEST(OrloUnits, NamesTheKnownLabelsNearestFirst)
{
    OrloRun const run = runOrlo({"units", "SI", "mm-t-s-M"});
    EXPECT_EQ(run.m_status, 2);
    EXPECT_THAT(run.m_out, IsEmpty());
    EXPECT_THAT(run.m_err, StartsWith("orlo: unknown unit system \"mm-t-s-M\"; known, nearest "
                                      "first: mm-t-s-N (SI_mm_t), "));
    EXPECT_THAT(run.m_err, HasSubstr("ft-slug-s-lbf-deg (English_slug_deg)"));
    EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1);
}

}  // namespace
}  // namespace vrn::orlo::app
