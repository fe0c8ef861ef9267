// `orlo mesh`: what is meshed, told and written.

#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshmeasure.h"
#include "apps/orlo/meshrun.h"
#include "apps/orlorun.h"
#include "host/geometry/geometryimport.h"
#include "host/meshing/meshfile.h"
#include "host/modelspace/modelwriter.h"
#include "tests/support/shareddata.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace vrn::orlo::app {
namespace {

using host::meshing::MeshFile;
using host::meshing::readMeshFile;
using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

std::string const kBracket = std::string(ORLO_BRACKET) + "/bracket.step";

OrloRun mesh(std::string const& file, std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), {"mesh", file});
    return runOrlo(arguments);
}

json inspected(std::string const& file)
{
    OrloRun const run = runOrlo({"inspect", file, "--json"});
    EXPECT_EQ(run.m_status, 0) << run.m_err;
    return json::parse(run.m_out);
}

TEST(OrloMeshes, EveryPartOnceAndWritesItInEachFormat)
{
    TemporaryFolder const folder;
    std::string const stem = (folder.path() / "b").string();
    OrloRun const run = mesh(kBracket, {"--size", "12", "--order", "2", "-o", stem + ".inp", "-o",
                                        stem + ".msh", "-o", stem + ".orlo"});
    ASSERT_EQ(run.m_status, 0) << run.m_err;
    json const kept = inspected(stem + ".orlo");
    json const& total = kept["mesh"]["total"];
    double const volume = kept["volume"];
    EXPECT_NEAR(total["volume"], volume, 1e-4 * volume);
    EXPECT_NEAR(total["area"], 1728.0, 1e-6);  // of the stiffener
    EXPECT_FALSE(total.contains("straightened"));

    MeshFile const parts = readMeshFile(stem + ".inp");
    MeshFile const whole = readMeshFile(stem + ".msh");
    ASSERT_EQ(parts.m_parts.size(), 4U);
    ASSERT_EQ(parts.m_instances.size(), 7U);
    std::size_t nodes = 0;
    for (auto const& instance : parts.m_instances) {
        nodes += parts.m_parts[instance.m_part]->nodes().size();
    }
    EXPECT_EQ(nodes, total["nodes"]);
    EXPECT_THAT(run.m_out, AllOf(HasSubstr("all instances          7       7"),
                                 HasSubstr(std::to_string(nodes) + "  ")));
    ASSERT_EQ(whole.m_parts.size(), 1U);
    EXPECT_EQ(whole.m_parts[0]->nodes().size(), nodes);
    EXPECT_NEAR(measureOf(*whole.m_parts[0]).m_volume, total["volume"], 1e-6 * volume);
    EXPECT_TRUE(findSet(whole.m_parts[0]->elementSets(), "bolt 3") != nullptr);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(whole.m_parts[0]->box().m_low[i], kept["box"]["min"][i], 1e-6);
        EXPECT_NEAR(whole.m_parts[0]->box().m_high[i], kept["box"]["max"][i], 1e-6);
    }
}

// Instances that are turned stand in both files at the same place, seen from all sides.
TEST(OrloMeshes, PutsInstancesWhereTheModelHasThem)
{
    TemporaryFolder const folder;
    std::string const stem = (folder.path() / "b").string();
    ASSERT_EQ(mesh(kBracket, {"--size", "15", "-o", stem + ".inp", "-o", stem + ".msh"}).m_status,
              0);
    // Heads of bolts in their middle and by their corners, which are turned by 15 and 45 degrees; the
    // stiffener, which is turned about a slanted axis.
    std::vector<std::vector<std::string>> const views{
        {"z", "713,557"}, {"z", "665,557"}, {"z", "713,509"},   {"z", "760,545"},
        {"z", "286,355"}, {"z", "334,355"}, {"z", "320,321"},   {"-z", "286,445"},
        {"x", "560,400"}, {"x", "600,300"}, {"iso", "350,560"}, {"iso", "500,400"}};
    for (auto const& view : views) {
        SCOPED_TRACE(view[0]);
        json hits[2];
        for (int i = 0; i < 2; ++i) {
            OrloRun const run =
                runOrlo({"query", stem + (i == 0 ? ".inp" : ".msh"), "--json", "--filter",
                         "2DElement,3DElement", "--view", view[0], "--at-pixel", view[1]});
            ASSERT_EQ(run.m_status, 0) << run.m_err;
            hits[i] = json::parse(run.m_out)["hits"];
        }
        ASSERT_EQ(hits[0].size(), hits[1].size());
        for (std::size_t hit = 0; hit < hits[0].size(); ++hit) {
            EXPECT_NEAR(hits[0][hit]["depth"], hits[1][hit]["depth"], 1e-6);
        }
    }
}

TEST(OrloMeshes, AStudyAsItSaysUnlessTheCommandLineSaysOtherwise)
{
    TemporaryFolder const folder;
    std::filesystem::copy_file(kBracket, folder.path() / "b.step");
    std::string const study =
        folder.write("s.yaml",
                     "geometry: b.step\nmesh:\n  size: 20\n  dimension: 2\n  curvature: 6\n"
                     "  parts: [{part: bolt, size: 3}]\n");
    std::string const asSaid = mesh(study, {}).m_out;
    EXPECT_EQ(asSaid, mesh(kBracket, {"--size", "20", "--dimension", "2", "--curvature", "6",
                                      "--part-size", "bolt=3"})
                          .m_out);
    EXPECT_THAT(asSaid, AllOf(HasSubstr("S3"), Not(HasSubstr("C3D4"))));
    EXPECT_EQ(mesh(study, {"--dimension", "3", "--part-size", "bolt=5"}).m_out,
              mesh(kBracket, {"--size", "20", "--curvature", "6", "--part-size", "bolt=5"}).m_out);
}

std::string facet(std::vector<std::string> const& corners)
{
    std::string text = "facet normal 0 0 0\nouter loop\n";
    for (std::string const& corner : corners) {
        text += "vertex " + corner + "\n";
    }
    return text + "endloop\nendfacet\n";
}

TEST(OrloMeshes, WhatItCanAndNamesABodyThatItCannot)
{
    // A prism whose tip is pulled out through its own floor, beside a sound tetrahedron.
    std::string const a = "9 0 0", b = "13 0 0", c = "9 4 0", d = "9 0 4", e = "13 0 4",
                      f = "9 4 4", tip = "10 1 -2", o = "0 0 0", x = "4 0 0", y = "0 4 0",
                      z = "0 0 4";
    std::string stl = "solid f\n";
    for (auto const& corners : std::vector<std::vector<std::string>>{{o, y, x},
                                                                     {o, x, z},
                                                                     {x, y, z},
                                                                     {y, o, z},
                                                                     {a, c, b},
                                                                     {a, b, e},
                                                                     {a, e, d},
                                                                     {b, c, f},
                                                                     {b, f, e},
                                                                     {c, a, d},
                                                                     {c, d, f},
                                                                     {d, e, tip},
                                                                     {e, f, tip},
                                                                     {f, d, tip}}) {
        stl += facet(corners);
    }
    TemporaryFolder const folder;
    std::string const out = (folder.path() / "f.inp").string();
    OrloRun const run =
        mesh(folder.write("f.stl", stl + "endsolid f\n"), {"--size", "2", "-o", out});
    EXPECT_EQ(run.m_status, 1);
    EXPECT_THAT(run.m_err, AllOf(HasSubstr("warning: part \"f\", body #2 has no mesh: the mesher"),
                                 HasSubstr("wrote " + out)));
    EXPECT_NEAR(measureOf(*readMeshFile(out).m_parts.at(0)).m_volume, 64.0 / 6, 1e-9);
}

// clang-format off
struct {
    char const* name;
    std::vector<std::string> arguments;
    char const* says;
} const kMistakes[] = {
    {"NoSize",          {},                                           "give --size MM, or a study"},
    {"Negative",        {"--size", "-1"},                             "the mesh size is -1 mm"},
    {"TooLarge",        {"--size", "4000"},                           "the mesh size is 4000 mm, but the box of body"},
    {"Order",           {"--size", "9", "--order", "3"},              "give 1 or 2"},
    {"UnknownPart",     {"--size", "9", "--part-size", "bolts=2"},    "the parts are base plate, l-bracket, bolt, stiffener"},
    {"PartWithoutSize", {"--size", "9", "--part-size", "bolt"},       "--part-size bolt: give PART=MM"},
    {"SizeInWords",     {"--size", "9", "--part-size", "bolt=small"}, "give PART=MM"},
    {"FaceByName",      {"--size", "9", "--face-size", "top=2"},      "--face-size top=2: give NUMBER=MM"},
    {"NoFace",          {"--size", "9", "--face-size", "1=2"},        "is for #1, which is no face"},
    {"UnknownEnding",   {"--size", "9", "-o", "m.vtk"},               "m.vtk: no mesh is written with this ending"},
};
// clang-format on

TEST(OrloMeshes, NothingWhenItIsToldWrong)
{
    for (auto const& row : kMistakes) {
        SCOPED_TRACE(row.name);
        TemporaryFolder const folder;
        std::vector<std::string> arguments = row.arguments;
        arguments.insert(arguments.end(), {"-o", folder.path() / "out.inp"});
        OrloRun const run = mesh(kBracket, arguments);
        EXPECT_EQ(run.m_status, 2);
        EXPECT_EQ(run.m_out, "");
        EXPECT_THAT(run.m_err, HasSubstr(row.says));
        EXPECT_EQ(std::ranges::count(run.m_err, '\n'), 1) << run.m_err;
        EXPECT_THAT(folder.names(), IsEmpty());
    }
}

// No exporter that we have seen places parts so, but STEP files may.
TEST(MeshesOfMirroredInstances, AreTurnedForGmshAndRefusedForAbaqus)
{
    TemporaryFolder const folder;
    SessionOptions options;
    options.m_logFolder = folder.path();
    Session session(options);
    auto geometry = host::geometry::importGeometry(kBracket);
    auto& placement = geometry.m_roots.at(0).m_children.at(2).m_placement;  // of a bolt
    for (std::size_t row = 0; row < 3; ++row) {
        placement.m_rows[4 * row] *= -2.0;
        placement.m_rows[4 * row + 1] *= 2.0;
        placement.m_rows[4 * row + 2] *= 2.0;
    }
    auto const model = session.space().open(std::move(geometry));
    MeshSettings settings;
    settings.m_size = 15;
    MeshSummary const summary = meshWithProgress(session, *model, settings);
    double const bolt = summary.m_parts.at(2).m_volume;
    EXPECT_NEAR(summary.m_total.m_volume,
                summary.m_parts[0].m_volume + summary.m_parts[1].m_volume + (3 + 8) * bolt, 1e-6);
    host::modelspace::writeGmshModel(*model, folder.path() / "m.msh");
    EXPECT_NEAR(measureOf(*readMeshFile(folder.path() / "m.msh").m_parts[0]).m_volume,
                summary.m_total.m_volume, 1e-5);
    try {
        host::modelspace::writeAbaqusModel(*model, folder.path() / "m.inp");
        FAIL() << "a mirrored instance was written";
    } catch (host::modelspace::ModelWriteError const& error) {
        EXPECT_THAT(error.what(), AllOf(HasSubstr("m.inp: instance \"bolt 1\" is mirrored"),
                                        HasSubstr("write .msh")));
    }
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "m.inp"));
}

using RealMeshes = test::WithSharedData;

TEST_F(RealMeshes, MeasureWhatTheirBeamDoes)
{
    auto const measured = [](char const* name) {
        return measureOf(*readMeshFile(sharedFile("mesh", name)).m_parts.at(0));
    };
    EXPECT_NEAR(measured("ccx_cantilever_faceload.inp").m_volume, 8e9, 1.0);
    EXPECT_NEAR(measured("ccx_cantilever_ele_hexa20.inp").m_volume, 8e9, 1.0);
    EXPECT_NEAR(measured("ccx_cantilever_ele_quad8.inp").m_area, 8e6, 1e-3);
    EXPECT_NEAR(measured("ccx_cantilever_ele_tria3.bdf").m_area, 8e6, 1e-3);
    EXPECT_NEAR(measured("ccx_cantilever_ele_seg3.inp").m_length, 8e3, 1e-6);
}

}  // namespace
}  // namespace vrn::orlo::app
