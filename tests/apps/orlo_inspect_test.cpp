#include "apps/orlorun.h"
#include "tests/support/shareddata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <map>
#include <set>
#include <string>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

namespace vrn::orlo::app {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

std::string const kBracket = std::string(ORLO_BRACKET) + "/bracket.step";

json inspected(std::string const& file)
{
    OrloRun const run = runOrlo({"inspect", file, "--json"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    return json::parse(run.m_out);
}

std::map<std::string, json> partsByName(json const& report)
{
    std::map<std::string, json> parts;
    for (json const& part : report["parts"]) {
        parts[part["name"]] = part;
    }
    return parts;
}

TEST(OrloInspect, TellsTheBracketsPartsInstancesAndSheet)
{
    json const report = inspected(kBracket);
    EXPECT_EQ(report["counts"]["solids"], 6);
    EXPECT_EQ(report["counts"]["sheets"], 1);
    EXPECT_EQ(report["lengthUnit"]["name"], "millimetre");
    EXPECT_THAT(report["warnings"], IsEmpty());
    auto const parts = partsByName(report);
    ASSERT_EQ(parts.size(), 4U);
    EXPECT_EQ(parts.at("bolt")["instances"], 4);
    EXPECT_EQ(parts.at("stiffener")["counts"]["sheets"], 1);
}

TEST(OrloInspect, NumbersEntitiesFromOneWithoutAGap)
{
    unsigned expected = 0;
    json const report = inspected(kBracket);
    for (json const& part : report["parts"]) {
        for (json const& entity : part["entities"]) {
            EXPECT_EQ(entity["number"], ++expected);
        }
    }
    EXPECT_GT(expected, 50U);
}

struct AnswerCase {
    char const* m_type;
    int m_class;
    std::set<std::string> m_answers;
};

TEST(OrloInspect, GivesEachClassTheLibrarysOwnAnswers)
{
    AnswerCase const cases[] = {
        {"BODY", 7, {"isBody", "isSolidBody"}},
        {"SHEETBODY", 8, {"isBody", "isSheetBody"}},
        {"REGION", 16, {"isRegion"}},
        {"FACE", 18, {"isFace"}},
        {"EDGE", 21, {"isEdge"}},
        {"VERTEX", 22, {"isVertex"}},
    };
    std::map<std::string, std::set<std::set<std::string>>> answersByType;
    std::map<std::string, std::set<int>> classesByType;
    json const report = inspected(kBracket);
    for (json const& part : report["parts"]) {
        EXPECT_EQ(part["answers"], json({"isPart"}));
        for (json const& entity : part["entities"]) {
            answersByType[entity["type"]].insert(entity["answers"].get<std::set<std::string>>());
            classesByType[entity["type"]].insert(entity["class"].get<int>());
        }
    }
    EXPECT_EQ(answersByType.size(), std::size(cases));
    for (AnswerCase const& row : cases) {
        SCOPED_TRACE(row.m_type);
        EXPECT_THAT(answersByType[row.m_type], ::testing::ElementsAre(row.m_answers));
        EXPECT_THAT(classesByType[row.m_type], ::testing::ElementsAre(row.m_class));
    }
}

TEST(OrloInspect, OfTheSameFileTwicePrintsTheSameBytes)
{
    EXPECT_EQ(runOrlo({"inspect", kBracket, "--json"}).m_out,
              runOrlo({"inspect", kBracket, "--json"}).m_out);
}

TEST(OrloInspect, ShowsOnlyTheTreeWhenAskedTo)
{
    OrloRun const tree = runOrlo({"inspect", kBracket, "--tree"});
    EXPECT_THAT(tree.m_out, HasSubstr("bolt 3 (bolt): 1 solid"));
    EXPECT_THAT(tree.m_out, Not(HasSubstr("isFace")));
    EXPECT_THAT(runOrlo({"inspect", kBracket}).m_out, HasSubstr("isFace"));
    EXPECT_EQ(tree.m_err, "");
}

TEST(OrloInspect, WarnsOfABoltMeasuredInMetres)
{
    TemporaryFolder const folder;
    std::string text = contentOf(kBracket);
    std::size_t const unit = text.find(".MILLI.,.METRE.");
    ASSERT_NE(unit, std::string::npos);
    text.replace(unit, 8, "$,");  // ".MILLI.," becomes "$,": metres
    OrloRun const run = runOrlo({"inspect", folder.write("metres.step", text), "--tree"});
    EXPECT_EQ(run.m_status, 0);
    EXPECT_THAT(run.m_err, HasSubstr("warning: "));
    EXPECT_THAT(run.m_err, HasSubstr("metre"));
}

// clang-format off
struct {
    char const* m_file;
    int m_nodes;
    char const* m_type;
    int m_elements;
    int m_dimension;
} const kMeshes[] = {
    {"constraint_tie.inp",            12470, "C3D10",        6044,  3},
    {"ccx_cantilever_faceload.inp",   228,   "C3D10",        79,    3},
    {"ccx_cantilever_faceload.bdf",   228,   "CTETRA",       79,    3},
    {"ccx_cantilever_ele_hexa20.inp", 261,   "C3D20",        32,    3},
    {"ccx_cantilever_ele_quad8.inp",  25,    "S8",           4,     2},
    {"ccx_cantilever_ele_seg3.inp",   11,    "B32",          5,     1},
    {"ccx_cantilever_ele_tria3.bdf",  546,   "CTRIA3",       968,   2},
    {"tetra10_mesh.inp",              10,    "C3D10",        1,     3},
    {"beamptied1.inp",                282,   "C3D20R",       32,    3},
    {"distcoup.inp",                  262,   "C3D20R",       32,    3},
    {"b8_g.nas",                      3211,  "CTETRA",       12489, 3},
    {"msh_tetra.msh",                 66,    "TETRAHEDRON4", 127,   3},
};
// clang-format on

using OrloInspectsRealFiles = test::WithSharedData;

TEST_F(OrloInspectsRealFiles, MeshesAsTheyAreKnown)
{
    for (auto const& row : kMeshes) {
        SCOPED_TRACE(row.m_file);
        json const part = inspected(sharedFile("mesh", row.m_file))["parts"].at(0);
        EXPECT_EQ(part["nodes"], row.m_nodes);
        EXPECT_EQ(part["types"][0]["name"], row.m_type);
        EXPECT_EQ(part["types"][0]["count"], row.m_elements);
        EXPECT_EQ(part["elementsByDimension"].at(static_cast<std::size_t>(row.m_dimension)),
                  row.m_elements);
    }
    OrloRun const piston = runOrlo({"inspect", sharedFile("mesh", "b8_g.nas")});
    EXPECT_THAT(piston.m_err, HasSubstr("210 PLOAD4"));
    OrloRun const whole = runOrlo({"inspect", sharedFile("mesh", "msh_tetra.msh")});
    EXPECT_THAT(whole.m_out, HasSubstr("made of      1 part in 1 instance"));
    EXPECT_THAT(whole.m_out, HasSubstr("type         TETRAHEDRON4, 4 nodes: 127\n"));
    EXPECT_THAT(whole.m_out, HasSubstr("element set  "));  // the physical group
    EXPECT_THAT(runOrlo({"inspect", sharedFile("mesh", "msh_tetra.msh"), "--tree"}).m_out,
                Not(HasSubstr("TETRAHEDRON4")));
}

TEST(OrloDoctor, TellsTheInformationBlockAndEveryServiceName)
{
    OrloRun const run = runOrlo({"doctor"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    EXPECT_THAT(run.m_out, HasSubstr("vrn.orlo.plugin.modeling.ModelingPluginUtilities"));
    EXPECT_THAT(run.m_out, HasSubstr("KernelMajorVersion   24"));
    EXPECT_THAT(run.m_out,
                ::testing::ContainsRegex("getTypeRegistry +KFR.Services.TypeRegistry +KFR"));
    EXPECT_THAT(run.m_out,
                ::testing::ContainsRegex("getGuiExeutive +vrn.orlo.appfw.GuiExecutive +vrn"));
    EXPECT_THAT(run.m_out, ::testing::ContainsRegex("getGSCServer +vrn.orlo.gsc.GSCMain +vrn"));
}

TEST(OrloDoctor, SpeaksTheUsersLanguage)
{
    setenv("LC_ALL", "de_AT.UTF-8", 1);
    EXPECT_THAT(runOrlo({"doctor"}).m_out, HasSubstr("x muss zwischen 0 und 1 liegen"));
    setenv("LC_ALL", "fr_FR.UTF-8", 1);  // not shipped
    EXPECT_THAT(runOrlo({"doctor"}).m_out, HasSubstr("x must be between 0 and 1"));
}

}  // namespace
}  // namespace vrn::orlo::app
