// `orlo pick`: picks through the pick filter, made up and divided.

#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vrn::orlo::app {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

std::string const kStep = std::string(ORLO_BRACKET) + "/bracket.step";
// Two quadrilaterals and a triangle in a row, with ids that are not their places.
constexpr char const* kShells = R"(*NODE
10, 0, 0, 0
11, 1, 0, 0
12, 2, 0, 0
13, 0, 1, 0
14, 1, 1, 0
15, 2, 1, 0
16, 3, 0, 0
*ELEMENT, TYPE=S4, ELSET=PLATE
700, 10, 11, 14, 13
500, 11, 12, 15, 14
*ELEMENT, TYPE=S3, ELSET=TIP
900, 12, 16, 15
)";

OrloRun pick(std::string const& file, std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"pick", file});
    return runOrlo(arguments);
}

TEST(OrloPicks, TheNearestThatTheFilterAllows)
{
    // A face is as near as its body and its edges: the filter decides what is meant.
    OrloRun const face = pick(kStep, {"--filter", "face", "--at", "0,0,-12", "--within", "20"});
    EXPECT_EQ(face.m_status, 0) << face.m_err;
    EXPECT_THAT(face.m_out, AllOf(HasSubstr("picked 1\nmade up 1 references"),
                                  HasSubstr("geometries 1\n    #7 FACE of base plate"),
                                  HasSubstr("bodies     0")));
    OrloRun const body = pick(kStep, {"--filter", "Body", "--at", "0,0,-12", "--within", "20"});
    EXPECT_THAT(body.m_out, AllOf(HasSubstr("bodies     1"), HasSubstr("geometries 0")));
}

TEST(OrloPicks, WhatAllCriteriaHold)
{
    OrloRun const up = pick(kStep, {"--filter", "Face", "--normal", "0,0,1"});
    OrloRun const large =
        pick(kStep, {"--filter", "Face", "--normal", "0,0,1", "--area", "800,900"});
    EXPECT_THAT(up.m_out, Not(HasSubstr("picked 1\n")));
    EXPECT_THAT(large.m_out, AllOf(HasSubstr("picked 1\n"), HasSubstr("880 mm2"),
                                   HasSubstr("looks to (0, 0, 1)")));
    OrloRun const grown =
        pick(kStep, {"--filter", "Face", "--id", "7", "--grow", "180", "--limit", "1"});
    EXPECT_THAT(grown.m_out, HasSubstr("geometries 14"));  // all faces of the base plate
    EXPECT_THAT(grown.m_out, HasSubstr("and 13 more"));
}

TEST(OrloPicks, PartsAsTheFirstPlaceWhereTheyStand)
{
    OrloRun const run = pick(kStep, {"--filter", "Part", "--name", "bolt"});
    EXPECT_THAT(run.m_out, AllOf(HasSubstr("picked 1\n"), HasSubstr("parts      1"),
                                 HasSubstr("Simulation.PartInstance")));
}

TEST(OrloPicks, OneOnlyWhereNoMoreAreAllowed)
{
    OrloRun const run = pick(kStep, {"--filter", "Vertex", "--all", "--single"});
    EXPECT_THAT(run.m_out, HasSubstr("picked 1\n"));
    EXPECT_THAT(run.m_out, HasSubstr("1 fit no bucket"));  // vertices have none
}

TEST(OrloPicks, ElementsOfAMeshByIdBoxAndSet)
{
    TemporaryFolder const folder;
    std::string const mesh = folder.write("shells.inp", kShells);
    OrloRun const boxed = pick(mesh, {"--filter", "2DElement", "--box", "0,0,0,2,1,0"});
    EXPECT_THAT(boxed.m_out, AllOf(HasSubstr("elements   2"), HasSubstr("700 FEM.Simulation.2D"),
                                   HasSubstr("500 FEM.Simulation.2D"), Not(HasSubstr("900 "))));
    EXPECT_THAT(pick(mesh, {"--filter", "2DElement", "--id", "900,1"}).m_out,
                AllOf(HasSubstr("elements   1"), HasSubstr("900 FEM"), HasSubstr("S3 of shells")));
    EXPECT_THAT(pick(mesh, {"--filter", "2DElement", "--name", "plate", "--at", "2,0,0"}).m_out,
                AllOf(HasSubstr("elements   1"), HasSubstr("500 FEM")));
    EXPECT_EQ(pick(mesh, {"--filter", "3DElement", "--all"}).m_status, 1);
}

struct Mistake {
    char const* name;
    std::vector<std::string> arguments;
    int status;
    char const* says;
};

TEST(OrloPicks, NamePlaceAndMendOfAMistake)
{
    TemporaryFolder const folder;
    std::string const hanging =
        folder.write("hanging.inp", "*NODE\n1,0,0,0\n*ELEMENT,TYPE=T3D2\n5,1,2\n");
    std::string const twice = folder.write("twice.inp", "*NODE\n1,0,0,0\n1,1,0,0\n");
    std::vector<Mistake> const mistakes{
        {"UnknownFilter", {kStep, "--filter", "Fase", "--all"}, 2, "the filters are Vertex, Edge"},
        {"NoCriterion", {kStep, "--filter", "Face"}, 2, "give --all, --at, --box"},
        {"ShortBox", {kStep, "--filter", "Face", "--box", "1,2,3"}, 2, "--box: give x,y,z,x,y,z"},
        {"NoSuchNumber", {kStep, "--filter", "Face", "--id", "9999"}, 2, "has entities 1 to"},
        {"NothingThere",
         {kStep, "--filter", "Face", "--at", "9000,0,0"},
         1,
         "the pick hits nothing of these kinds"},
        {"MissingNode", {hanging, "--filter", "1DElement", "--all"}, 2, "hanging.inp:4: element 5"},
        {"NodeTwice", {twice, "--filter", "1DElement", "--all"}, 2, "twice.inp:3"},
        {"MeshHasNoFaces",
         {hanging, "--filter", "1DElement", "--normal", "0,0,1"},
         2,
         "hanging.inp:4"}};
    for (Mistake const& mistake : mistakes) {
        SCOPED_TRACE(mistake.name);
        std::vector<std::string> arguments = mistake.arguments;
        arguments.insert(arguments.begin(), "pick");
        OrloRun const run = runOrlo(arguments);
        EXPECT_EQ(run.m_status, mistake.status);
        EXPECT_THAT(run.m_err, HasSubstr(mistake.says));
        EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1) << run.m_err;
    }
}

}  // namespace
}  // namespace vrn::orlo::app
