#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <ostream>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::IsEmpty;

struct FileRow {
    char const* m_name;
    char const* m_file;
    Counts m_totals;
    unsigned m_assemblies;
    std::size_t m_parts;
};

void PrintTo(FileRow const& row, std::ostream* out)
{
    *out << row.m_file;
}

class RealStep : public RealFile, public ::testing::WithParamInterface<FileRow> {};

TEST_P(RealStep, HasTheKnownCountsOverItsInstances)
{
    GeometryModel const model = importGeometry(stepFile(GetParam().m_file));
    EXPECT_EQ(model.m_totals, GetParam().m_totals);
    EXPECT_EQ(model.m_assemblyCount, GetParam().m_assemblies);
    EXPECT_EQ(model.m_parts.size(), GetParam().m_parts);
    EXPECT_EQ(model.m_unit.m_name, "millimetre");
    EXPECT_THAT(model.m_warnings, IsEmpty());
}

TEST_P(RealStep, NumbersEntitiesFromOneInPartsAndLevels)
{
    GeometryModel const model = importGeometry(stepFile(GetParam().m_file));
    unsigned next = 1;
    for (std::size_t part = 0; part < model.m_parts.size(); ++part) {
        auto lastClass = EntityClass::solidBody;
        for (Entity const& entity : model.entitiesOf(part)) {
            ASSERT_EQ(entity.m_number, next++);
            ASSERT_EQ(entity.m_part, part);
            ASSERT_GE(entity.m_class, lastClass);
            ASSERT_TRUE(isBodyClass(model.entity(entity.m_body)->m_class));
            lastClass = entity.m_class;
        }
    }
    EXPECT_EQ(model.m_entities.size(), next - 1);
}

// clang-format off
constexpr FileRow kFiles[] = {
    // name         file                solids        volumes faces edges vertices  assemblies parts
    {"Bracket203", "as1-tu-203.stp",  {18, 0, 0, 0,  18,     160,  354,  236},      4,         5},
    {"Bracket214", "as1-oc-214.stp",  {18, 0, 0, 0,  18,     160,  354,  236},      4,         5},
    {"Inductor",   "RLF_12545.stp",   { 3, 0, 0, 0,   3,      47,  120,   80},      2,         3},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Shared, RealStep, ::testing::ValuesIn(kFiles),
                         [](auto const& row) { return std::string(row.param.m_name); });

unsigned usesOf(GeometryModel const& model, std::string const& name)
{
    auto const part = std::find_if(model.m_parts.begin(), model.m_parts.end(),
                                   [&](Part const& p) { return p.m_name == name; });
    return part == model.m_parts.end() ? 0 : part->m_instanceCount;
}

class BracketAssembly : public RealFile {};

TEST_F(BracketAssembly, StoresEachPartOnceAndCountsItsUses)
{
    GeometryModel const model = importGeometry(stepFile("as1-tu-203.stp"));
    EXPECT_EQ(usesOf(model, "plate"), 1u);
    EXPECT_EQ(usesOf(model, "l-bracket"), 2u);
    EXPECT_EQ(usesOf(model, "rod"), 1u);
    EXPECT_EQ(usesOf(model, "bolt"), 6u);
    EXPECT_EQ(usesOf(model, "nut"), 8u);
}

TEST_F(BracketAssembly, HasItsTightBoxAndVolume)
{
    GeometryModel const model = importGeometry(stepFile("as1-oc-214.stp"));
    EXPECT_NEAR(model.m_box.m_max[0] - model.m_box.m_min[0], 200.0, 1e-9);
    EXPECT_NEAR(model.m_box.m_max[1] - model.m_box.m_min[1], 150.0, 1e-9);
    EXPECT_NEAR(model.m_box.m_max[2] - model.m_box.m_min[2], 84.0, 1e-9);
    EXPECT_NEAR(model.volume(), 764520.0, 1.0);
}

TEST_F(BracketAssembly, TellsOccurrencesOfOneProductApart)
{
    GeometryModel const model = importGeometry(stepFile("as1-oc-214.stp"));
    Instance const& rods = model.m_roots.at(0).m_children.at(0);
    EXPECT_EQ(rods.m_name, "rod-assembly_1");
    EXPECT_EQ(rods.m_productName, "rod-assembly");
    EXPECT_EQ(rods.m_children.at(0).m_name, "nut_1");
    EXPECT_EQ(rods.m_children.at(1).m_name, "nut_2");
    EXPECT_EQ(rods.m_children.at(0).m_part, rods.m_children.at(1).m_part);
}

TEST_F(BracketAssembly, GivesTheProductsNameToOccurrencesThatOnlyHaveAnId)
{
    GeometryModel const model = importGeometry(stepFile("RLF_12545.stp"));
    EXPECT_EQ(model.m_roots.at(0).m_children.at(0).m_name, "Open CASCADE STEP translator 6.3 1.1");
}

TEST_F(BracketAssembly, ReportsProgressThatOnlyGrowsUpToOne)
{
    std::vector<double> seen;
    static_cast<void>(importGeometry(stepFile("as1-oc-214.stp"),
                                     [&](double f, std::string const&) { seen.push_back(f); }));
    EXPECT_GT(seen.size(), 10u);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
    EXPECT_EQ(seen.front(), 0.0);
    EXPECT_EQ(seen.back(), 1.0);
}

TEST_F(BracketAssembly, KeepsTheKernelSilent)
{
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    static_cast<void>(importGeometry(stepFile("as1-tu-203.stp")));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
