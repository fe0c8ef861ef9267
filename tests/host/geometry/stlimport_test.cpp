#include "host/geometry/testfiles.h"

#include <gmock/gmock.h>

#include <array>
#include <cstring>
#include <sstream>

namespace vrn::orlo::host::geometry {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Triangle = std::array<std::array<float, 3>, 3>;

/// A tetrahedron with the right angle at (x, y, z); volume size^3 / 6, triangles pointing outwards.
std::vector<Triangle> tetrahedron(float size, float x = 0, float y = 0, float z = 0)
{
    std::array<float, 3> const o{x, y, z};
    std::array<float, 3> const a{x + size, y, z};
    std::array<float, 3> const b{x, y + size, z};
    std::array<float, 3> const c{x, y, z + size};
    return {{o, b, a}, {o, a, c}, {o, c, b}, {a, b, c}};
}

std::vector<Triangle> joined(std::vector<Triangle> first, std::vector<Triangle> const& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::string ascii(std::vector<Triangle> const& triangles)
{
    std::ostringstream out;
    out << "solid piece\n";
    for (Triangle const& triangle : triangles) {
        out << " facet normal 0 0 0\n  outer loop\n";
        for (auto const& p : triangle) {
            out << "   vertex " << p[0] << ' ' << p[1] << ' ' << p[2] << '\n';
        }
        out << "  endloop\n endfacet\n";
    }
    out << "endsolid piece\n";
    return out.str();
}

std::string binary(std::vector<Triangle> const& triangles)
{
    // Many programs begin a binary file with the word that begins a text.
    std::string out = "solid but binary";
    out.resize(80);
    auto const append = [&](void const* data, std::size_t size) {
        out.append(static_cast<char const*>(data), size);
    };
    auto const count = static_cast<std::uint32_t>(triangles.size());
    append(&count, sizeof count);
    for (Triangle const& triangle : triangles) {
        std::array<float, 3> const normal{};
        append(normal.data(), sizeof normal);
        append(triangle.data(), sizeof triangle);
        out.append(2, '\0');
    }
    return out;
}

class StlImport : public WithFolder {
protected:
    GeometryModel imported(std::string const& content) const
    {
        return importGeometry(write("wheel hub.stl", content));
    }
};

TEST_F(StlImport, ReadsTextAndBinaryAlike)
{
    for (std::string const& content : {ascii(tetrahedron(6)), binary(tetrahedron(6))}) {
        GeometryModel const model = imported(content);
        ASSERT_THAT(model.m_parts, SizeIs(1));
        EXPECT_EQ(model.m_parts[0].m_name, "wheel hub");
        EXPECT_EQ(model.m_unit.m_name, "none");
        EXPECT_EQ(model.m_totals, (Counts{1, 0, 0, 0, 1, 1, 0, 0}));
        EXPECT_NEAR(model.volume(), 36.0, 1e-9);
        EXPECT_EQ(model.m_box.m_max, (std::array{6.0, 6.0, 6.0}));
    }
}

TEST_F(StlImport, GivesAClosedBodyAVolumeAndOneFaceWithItsArea)
{
    GeometryModel const model = imported(ascii(tetrahedron(6)));
    EXPECT_THAT(numbersOf(model, EntityClass::facetSolid), ElementsAre(1));
    EXPECT_THAT(model.children(1, EntityClass::volume), ElementsAre(2));
    EXPECT_THAT(model.children(1, EntityClass::face), ElementsAre(3));
    EXPECT_THAT(model.parents(3, EntityClass::facetSolid), ElementsAre(1));
    EXPECT_NEAR(model.measure(1), 36.0, 1e-9);
    EXPECT_NEAR(model.measure(3), 3 * 18.0 + 18.0 * std::sqrt(3.0), 1e-6);
}

TEST_F(StlImport, TakesTheVolumeFarFromTheOriginAsExactly)
{
    GeometryModel const model = imported(binary(tetrahedron(8, 100'000, 100'000, 0)));
    EXPECT_NEAR(model.volume(), 512.0 / 6.0, 1e-6);
}

TEST_F(StlImport, SplitsWhatSharesNoEdge)
{
    GeometryModel const model = imported(ascii(joined(tetrahedron(1), tetrahedron(1, 1))));
    EXPECT_THAT(numbersOf(model, EntityClass::facetSolid), SizeIs(2)) << "they share a node";
}

TEST_F(StlImport, TakesAnOpenBodyAsASheet)
{
    auto triangles = tetrahedron(6);
    triangles.pop_back();
    GeometryModel const model = imported(ascii(triangles));
    EXPECT_THAT(numbersOf(model, EntityClass::facetSheet), SizeIs(1));
    EXPECT_NEAR(model.measure(1), 54.0, 1e-9);
    EXPECT_EQ(model.volume(), 0.0);
}

TEST_F(StlImport, TakesAnEdgeOfThreeTrianglesAsAGeneralBody)
{
    auto triangles = tetrahedron(6);
    triangles.push_back({{{0, 0, 0}, {6, 0, 0}, {9, -9, -9}}});
    EXPECT_THAT(numbersOf(imported(ascii(triangles)), EntityClass::facetGeneral), SizeIs(1));
}

TEST_F(StlImport, MendsTrianglesThatRunAgainstTheirNeighbours)
{
    auto triangles = tetrahedron(6);
    std::swap(triangles[2][0], triangles[2][1]);
    GeometryModel const model = imported(ascii(triangles));
    EXPECT_THAT(numbersOf(model, EntityClass::facetSolid), SizeIs(1));
    EXPECT_NEAR(model.volume(), 36.0, 1e-9);
    EXPECT_THAT(model.m_warnings, IsEmpty());
}

TEST_F(StlImport, WarnsOfABodyThatIsInsideOut)
{
    auto triangles = tetrahedron(6);
    for (Triangle& triangle : triangles) {
        std::swap(triangle[0], triangle[1]);
    }
    GeometryModel const model = imported(ascii(triangles));
    EXPECT_NEAR(model.volume(), 36.0, 1e-9);
    EXPECT_THAT(model.m_warnings, ElementsAre(HasSubstr("inwards")));
}

}  // namespace
}  // namespace vrn::orlo::host::geometry
