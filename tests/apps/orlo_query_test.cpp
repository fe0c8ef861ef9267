// `orlo query`: what the library says of entities, elements, nodes and pixels.

#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <vector>

namespace vrn::orlo::app {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;

std::string const kBracket = std::string(ORLO_BRACKET) + "/bracket.step";

// Two parts whose ids repeat; the second stands turned by a quarter about z and 10 further along x.
constexpr char const* kTwoParts = R"(*PART, NAME=plate
*NODE
1, 0, 0, 0
2, 2, 0, 0
3, 2, 2, 0
4, 0, 2, 0
*ELEMENT, TYPE=S4
70, 1, 2, 3, 4
*END PART
*PART, NAME=wedge
*NODE
1, 0, 0, 0
2, 3, 0, 0
3, 0, 3, 0
4, 0, 0, 3
9, 5, 5, 5
*ELEMENT, TYPE=C3D4
70, 1, 2, 3, 4
*END PART
*ASSEMBLY, NAME=A
*INSTANCE, NAME=plate-1, PART=plate
*END INSTANCE
*INSTANCE, NAME=wedge-1, PART=wedge
10, 0, 0
10, 0, 0, 10, 0, 1, 90
*END INSTANCE
*END ASSEMBLY
)";

OrloRun query(std::string const& file, std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"query", file});
    return runOrlo(arguments);
}

json answerOf(std::string const& file, std::vector<std::string> arguments)
{
    arguments.emplace_back("--json");
    OrloRun const run = query(file, std::move(arguments));
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    return json::parse(run.m_out);
}

TEST(OrloQueries, EntitiesOfEachClass)
{
    json const body = answerOf(kBracket, {"--entity", "1"});
    EXPECT_EQ(body["class"], 7);
    EXPECT_EQ(body["type"], "BODY");
    EXPECT_EQ(body["dimension"], 3);
    EXPECT_EQ(body["is"], json({"isBody", "is3DBody", "isValidInGSC"}));
    EXPECT_EQ(body["children"]["faces"].size(), 14U);
    EXPECT_EQ(body["mesh"]["partIsMeshed"], "none");

    json const face = answerOf(kBracket, {"--entity", "7"});  // the underside of the base plate
    EXPECT_EQ(face["type"], "FACE");
    EXPECT_EQ(face["part"], "base plate");
    EXPECT_EQ(face["firstInstance"], "base plate");
    EXPECT_EQ(face["parents"], json({{"regions", {2}}}));
    EXPECT_EQ(face["normal"], json({0.0, 0.0, -1.0}));
    // Corners rounded by 12, four holes of diameter 10.
    EXPECT_NEAR(face["area"], 16000 - (4 - M_PI) * 144 - 4 * M_PI * 25, 1e-6);
    EXPECT_EQ(face["visible"], true);

    json const edge =
        answerOf(kBracket, {"--entity", std::to_string(face["children"]["edges"][0].get<int>())});
    EXPECT_EQ(edge["class"], 21);
    EXPECT_EQ(edge["parents"]["faces"].size(), 2U);
    EXPECT_EQ(edge["endPoints"].size(), 2U);
    EXPECT_GT(edge["length"], 0.0);
    json const vertex = answerOf(
        kBracket, {"--entity", std::to_string(edge["children"]["vertices"][0].get<int>())});
    EXPECT_EQ(vertex["is"], json({"isVertex", "isValidInGSC"}));
    EXPECT_THAT((std::vector<json>{edge["endPoints"][0], edge["endPoints"][1]}),
                ::testing::Contains(vertex["midPoint"]));
}

TEST(OrloQueries, TheMeshOnAnEntityWhetherMadeNowOrKept)
{
    TemporaryFolder const folder;
    std::string const kept = folder.path() / "b.orlo";
    ASSERT_EQ(runOrlo({"mesh", kBracket, "--size", "20", "--faces", "-o", kept}).m_status, 0);
    json const face = answerOf(kept, {"--entity", "7"});
    EXPECT_EQ(face, answerOf(kBracket, {"--entity", "7", "--size", "20", "--faces"}));
    json const& mesh = face["mesh"];
    EXPECT_EQ(mesh["is"], json({"isMeshed", "hasMesh", "has2DMesh", "isFullMeshed"}));
    EXPECT_EQ(mesh["subMesh"]["name"], "face 7");
    EXPECT_EQ(mesh["subMesh"]["elements"], mesh["elements"]);
    EXPECT_EQ(mesh["elementNormals"]["elements"], mesh["elements"]);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(mesh["elementNormals"]["mean"][i], face["normal"][i], 1e-9);
    }
    EXPECT_EQ(mesh["meshBody"]["dimensions"], json({2, 3}));
    EXPECT_EQ(mesh["partIsMeshed"], "fully");
    json const body = answerOf(kept, {"--entity", "1"})["mesh"];
    EXPECT_GT(body["continuous2D"]["elements"], mesh["elements"]);
    EXPECT_EQ(body["elements"], body["continuous3D"]["elements"]);
    EXPECT_EQ(body["facesWithMesh"], 14);
}

TEST(OrloQueries, ElementsAndNodesOfTheirParts)
{
    TemporaryFolder const folder;
    std::string const file = folder.write("two.inp", kTwoParts);
    json const shell = answerOf(file, {"--entity", "70"});
    EXPECT_EQ(shell["part"], "plate");
    EXPECT_EQ(shell["kind"], "S4");
    EXPECT_EQ(shell["centre"], json({1.0, 1.0, 0.0}));
    EXPECT_EQ(shell["nodes"], json({1, 2, 3, 4}));
    EXPECT_EQ(shell["meshBody"]["isPureMesh"], true);
    EXPECT_THAT(query(file, {"--entity", "70"}).m_err, HasSubstr("--part chooses another: wedge"));

    OrloRun const chosen = query(file, {"--entity", "70", "--part", "WEDGE", "--json"});
    EXPECT_EQ(chosen.m_err, "");
    json const solid = json::parse(chosen.m_out);
    ASSERT_EQ(solid["faces"].size(), 4U);
    EXPECT_EQ(solid["faces"][0]["nodes"], json({1, 3, 2}));
    EXPECT_LT(solid["faces"][0]["normal"][2], 0.0);  // outwards
    EXPECT_EQ(solid["firstInstance"], "wedge-1");

    json const node = answerOf(file, {"--node", "4", "--part", "wedge"});
    EXPECT_EQ(node["location"], json({0.0, 0.0, 3.0}));
    EXPECT_EQ(node["elements"], json({70}));
    EXPECT_EQ(answerOf(file, {"--node", "9"})["isConnected"], false);
}

TEST(OrloQueries, WhatShowsAtAPixelAndFirstWhatIsInFront)
{
    // The middle of the window is that of the box, on the base plate between the bolts from below.
    for (char const* const projection : {"--window=1000x800", "--perspective"}) {
        json const below = answerOf(
            kBracket, {"--at-pixel", "500,400", "--view", "-z", "--filter", "Face", projection});
        EXPECT_EQ(below["entity"], 7) << projection;
        ASSERT_GT(below["hits"].size(), 1U);
        EXPECT_LT(below["hits"][0]["depth"], below["hits"][1]["depth"]);
        EXPECT_NEAR(below["hits"][0]["point"][2], 0.0, 1e-9);
    }
    OrloRun const pick =
        runOrlo({"pick", kBracket, "--filter", "Face", "--at-pixel", "500,400", "--view", "-z"});
    EXPECT_THAT(pick.m_out, AllOf(HasSubstr("picked 1\n"), HasSubstr("#7 FACE of base plate")));

    TemporaryFolder const folder;
    std::string const file = folder.write("two.inp", kTwoParts);
    // The wedge reaches from x = 7 to 10 where it stands, and the box from 0 to 10.
    json const wedge = answerOf(file, {"--at-pixel", "875,420", "--view", "z", "--filter",
                                       "3DElement", "--window", "1000x500"});
    EXPECT_EQ(wedge["hits"][0]["instance"], "wedge-1");
    EXPECT_EQ(wedge["kind"], "C3D4");
    EXPECT_THAT(runOrlo({"pick", file, "--filter", "3DElement", "--at-pixel", "875,420", "--view",
                         "z", "--window", "1000x500"})
                    .m_out,
                HasSubstr("70 FEM.Simulation.3DElement C3D4 of wedge"));
}

// clang-format off
struct {
    char const* name;
    std::vector<std::string> arguments;
    int status;
    char const* says;
} const kMistakes[] = {
    {"NoQuestion",    {},                                             2, "give one of --entity N, --node N and --at-pixel x,y"},
    {"TwoQuestions",  {"--entity", "1", "--at-pixel", "1,1"},         2, "give one of"},
    {"NotThere",      {"--entity", "9999"},                           2, "the file has entities 1 to"},
    {"NodeOfAFace",   {"--node", "1"},                                2, "geometry has no nodes"},
    {"OutsideWindow", {"--at-pixel", "1001,5"},                       2, "--at-pixel 1001,5: it is outside the window; give from 0,0 to 1000,800"},
    {"OneNumber",     {"--at-pixel", "10"},                           2, "--at-pixel: give x,y"},
    {"UnknownView",   {"--at-pixel", "1,1", "--view", "top"},         2, "--view top: give iso, x"},
    {"BadWindow",     {"--at-pixel", "1,1", "--window", "9"},         2, "--window 9: give its width and height"},
    {"UnknownFilter", {"--at-pixel", "1,1", "--filter", "Fase"},      2, "the filters are Vertex, Edge"},
    {"NothingThere",  {"--at-pixel", "1,1"},                          1, "nothing of these kinds is at the pixel"},
    {"NoSize",        {"--entity", "1", "--order", "2"},              2, "give --size MM, too"},
};
// clang-format on

TEST(OrloQueries, NamePlaceAndMendOfAMistake)
{
    for (auto const& row : kMistakes) {
        SCOPED_TRACE(row.name);
        OrloRun const run = query(kBracket, row.arguments);
        EXPECT_EQ(run.m_status, row.status);
        EXPECT_EQ(run.m_out, "");
        EXPECT_THAT(run.m_err, HasSubstr(row.says));
        EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1) << run.m_err;
    }
    TemporaryFolder const folder;
    std::string const file = folder.write("two.inp", kTwoParts);
    EXPECT_THAT(query(file, {"--entity", "71"}).m_err,
                HasSubstr("no element 71; the ids are 70 to 70 in plate, 70 to 70 in wedge"));
    EXPECT_THAT(query(file, {"--entity", "70", "--size", "1"}).m_err,
                HasSubstr("it is a mesh already"));
}

}  // namespace
}  // namespace vrn::orlo::app
