#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>

namespace vrn::orlo::app {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string const kBracket = std::string(ORLO_BRACKET) + "/bracket.step";

struct BadFile {
    char const* m_name;
    std::function<std::string(TemporaryFolder const&)> m_make;  ///< Gives the path to inspect.
};

void PrintTo(BadFile const& row, std::ostream* out)
{
    *out << row.m_name;
}

std::string stepWithoutShapes()
{
    return "ISO-10303-21;\nHEADER;\nFILE_DESCRIPTION((''),'2;1');\n"
           "FILE_NAME('','',(''),(''),'','','');\nFILE_SCHEMA(('AUTOMOTIVE_DESIGN'));\nENDSEC;\n"
           "DATA;\n#1=APPLICATION_CONTEXT('none');\nENDSEC;\nEND-ISO-10303-21;\n";
}

class OrloInspectRefuses : public ::testing::TestWithParam<BadFile> {};

TEST_P(OrloInspectRefuses, InOneLineThatNamesTheFile)
{
    TemporaryFolder const folder;
    std::string const file = GetParam().m_make(folder);
    for (char const* const form : {"--tree", "--json"}) {
        OrloRun const run = runOrlo({"inspect", file, form});
        EXPECT_EQ(run.m_status, 2);
        EXPECT_EQ(run.m_out, "");
        EXPECT_THAT(run.m_err, StartsWith("orlo: "));
        EXPECT_THAT(run.m_err, HasSubstr(file));
        EXPECT_EQ(std::count(run.m_err.begin(), run.m_err.end(), '\n'), 1) << run.m_err;
    }
}

// clang-format off
BadFile const kBadFiles[] = {
    {"Missing",         [](auto const& f) { return (f.path() / "nowhere.step").string(); }},
    {"Empty",           [](auto const& f) { return f.write("empty.step", "").string(); }},
    {"TextCalledStep",  [](auto const& f) { return f.write("text.step", "dear reader\n").string(); }},
    {"CutInTheMiddle",  [](auto const& f) {
        std::string const whole = contentOf(kBracket);
        return f.write("cut.step", whole.substr(0, whole.size() / 2)).string(); }},
    {"WithoutShapes",   [](auto const& f) { return f.write("none.step", stepWithoutShapes()).string(); }},
    {"AFolder",         [](auto const& f) {
        std::filesystem::create_directory(f.path() / "folder.step");
        return (f.path() / "folder.step").string(); }},
    {"UnknownEnding",   [](auto const& f) { return f.write("part.xyz", contentOf(kBracket)).string(); }},
    {"MeshMissing",     [](auto const& f) { return (f.path() / "nowhere.inp").string(); }},
    {"MeshEmpty",       [](auto const& f) { return f.write("empty.bdf", "").string(); }},
    {"TextCalledMesh",  [](auto const& f) { return f.write("text.msh", "dear reader\n").string(); }},
    {"DataOfAnotherKind", [](auto const& f) { return f.write("table.dat", "1 2 3\n").string(); }},
    {"ModelMissing",    [](auto const& f) { return (f.path() / "nowhere.orlo").string(); }},
    {"TextCalledModel", [](auto const& f) { return f.write("text.orlo", "dear reader\n").string(); }},
    {"StlWithoutTriangles", [](auto const& f) { return f.write("none.stl", "solid a\nendsolid a\n").string(); }},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Orlo, OrloInspectRefuses, ::testing::ValuesIn(kBadFiles),
                         [](auto const& row) { return std::string(row.param.m_name); });

TEST(OrloUsage, IsToldWithStatusTwo)
{
    EXPECT_EQ(runOrlo({}).m_status, 2);
    EXPECT_EQ(runOrlo({"inspect"}).m_status, 2);
    EXPECT_EQ(runOrlo({"melt", "it"}).m_status, 2);
    EXPECT_EQ(runOrlo({"inspect", "a.step", "--tree", "--json"}).m_status, 2);
    EXPECT_EQ(runOrlo({"--help"}).m_status, 0);
}

}  // namespace
}  // namespace vrn::orlo::app
