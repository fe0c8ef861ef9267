#include "host/geometry/tightbox.h"

#include <gtest/gtest.h>

#include <BRepBuilderAPI_NurbsConvert.hxx>
#include <BRepBuilderAPI_Transform.hxx>
#include <BRepPrimAPI_MakeCone.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepPrimAPI_MakeSphere.hxx>
#include <BRepPrimAPI_MakeTorus.hxx>

#include <cmath>
#include <numbers>
#include <ostream>

namespace vrn::orlo::host::geometry {
namespace {

struct ShapeRow {
    char const* m_name;
    TopoDS_Shape (*m_make)();
    double m_maxX;
    double m_minZ;
    double m_maxZ;
};

void PrintTo(ShapeRow const& row, std::ostream* out)
{
    *out << row.m_name;
}

/// Turned about y by 30 degrees, so that no peak lies on a seam or pole.
TopoDS_Shape turned(TopoDS_Shape const& shape)
{
    gp_Trsf turn;
    turn.SetRotation(gp_Ax1(gp_Pnt(), gp_Dir(0, 1, 0)), std::numbers::pi / 6);
    return BRepBuilderAPI_Transform(shape, turn).Shape();
}

class TightBox : public ::testing::TestWithParam<ShapeRow> {};

TEST_P(TightBox, ReachesJustAsFarAsTheShape)
{
    TopoDS_Shape const shape = GetParam().m_make();
    for (TopoDS_Shape const& form : {shape, BRepBuilderAPI_NurbsConvert(shape).Shape()}) {
        Box const box = tightBox(form);
        EXPECT_NEAR(box.m_max[0], GetParam().m_maxX, 1e-6);
        EXPECT_NEAR(box.m_min[2], GetParam().m_minZ, 1e-6);
        EXPECT_NEAR(box.m_max[2], GetParam().m_maxZ, 1e-6);
    }
}

double const kSin = 0.5;
double const kCos = std::sqrt(0.75);

// clang-format off
ShapeRow const kShapes[] = {
    {"Sphere", [] { return turned(BRepPrimAPI_MakeSphere(3.0).Shape()); }, 3.0, -3.0, 3.0},
    {"Torus",  [] { return turned(BRepPrimAPI_MakeTorus(5.0, 1.0).Shape()); },
               5.0 * kCos + 1.0, -5.0 * kSin - 1.0, 5.0 * kSin + 1.0},
    {"LyingTorus", [] { return BRepPrimAPI_MakeTorus(5.0, 1.0).Shape(); }, 6.0, -1.0, 1.0},
    {"Cone",   [] { return turned(BRepPrimAPI_MakeCone(4.0, 0.0, 10.0).Shape()); },
               10.0 * kSin, -4.0 * kSin, 10.0 * kCos},
    {"Cylinder", [] { return turned(BRepPrimAPI_MakeCylinder(2.0, 10.0).Shape()); },
               10.0 * kSin + 2.0 * kCos, -2.0 * kSin, 10.0 * kCos + 2.0 * kSin},
    // The cap from 45 degrees on: what is cut away of the sphere must not count.
    {"Cap",    [] { return BRepPrimAPI_MakeSphere(2.0, std::numbers::pi / 4,
                                                  std::numbers::pi / 2).Shape(); },
               std::numbers::sqrt2, std::numbers::sqrt2, 2.0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Curved, TightBox, ::testing::ValuesIn(kShapes),
                         [](auto const& row) { return std::string(row.param.m_name); });

}  // namespace
}  // namespace vrn::orlo::host::geometry
