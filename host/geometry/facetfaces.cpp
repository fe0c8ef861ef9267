#include "host/geometry/facetfaces.h"

#include "host/geometry/facets.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

namespace vrn::orlo::host::geometry {

namespace {

double squaredToSegment(gp_XYZ const& point, gp_XYZ const& a, gp_XYZ const& b)
{
    gp_XYZ const along = b - a;
    double const length = along.SquareModulus();
    double const at = length == 0.0 ? 0.0 : std::clamp((point - a).Dot(along) / length, 0.0, 1.0);
    return (point - a - along * at).SquareModulus();
}

double squaredToFacet(gp_XYZ const& point, FacetCorners const& corners)
{
    gp_XYZ const normal = (corners[1] - corners[0]).Crossed(corners[2] - corners[0]);
    double nearest = std::numeric_limits<double>::infinity();
    bool isAbove = normal.SquareModulus() > 0.0;
    for (std::size_t k = 0; k < 3; ++k) {
        gp_XYZ const& from = corners[k];
        gp_XYZ const& to = corners[(k + 1) % 3];
        isAbove = isAbove && normal.Dot((to - from).Crossed(point - from)) >= 0.0;
        nearest = std::min(nearest, squaredToSegment(point, from, to));
    }
    if (isAbove) {
        double const height = (point - corners[0]).Dot(normal);
        nearest = std::min(nearest, height * height / normal.SquareModulus());
    }
    return nearest;
}

/// The solid angle under which a point sees a triangle; negative from its back.
double solidAngle(gp_XYZ const& point, FacetCorners const& corners)
{
    std::array<gp_XYZ, 3> const rays{corners[0] - point, corners[1] - point, corners[2] - point};
    std::array<double, 3> const l{rays[0].Modulus(), rays[1].Modulus(), rays[2].Modulus()};
    double const triple = rays[0].Dot(rays[1].Crossed(rays[2]));
    double const sum = l[0] * l[1] * l[2] + rays[0].Dot(rays[1]) * l[2] +
                       rays[1].Dot(rays[2]) * l[0] + rays[2].Dot(rays[0]) * l[1];
    return 2.0 * std::atan2(triple, sum);
}

}  // namespace

bool isFacetFace(TopoDS_Face const& face)
{
    TopLoc_Location location;
    return BRep_Tool::Surface(face, location).IsNull();
}

bool hasFacetFaces(TopoDS_Shape const& shape)
{
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
        if (isFacetFace(TopoDS::Face(it.Current()))) {
            return true;
        }
    }
    return false;
}

double distanceToFacets(TopoDS_Face const& face, gp_XYZ const& point)
{
    double nearest = std::numeric_limits<double>::infinity();
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        nearest = std::min(nearest, squaredToFacet(point, corners));
    });
    return std::sqrt(nearest);
}

bool areFacetsAround(TopoDS_Shape const& shape, gp_XYZ const& point)
{
    double sum = 0.0;
    for (TopExp_Explorer it(shape, TopAbs_FACE); it.More(); it.Next()) {
        forEachFacetOf(TopoDS::Face(it.Current()),
                     [&](FacetCorners const& corners) { sum += solidAngle(point, corners); });
    }
    return std::abs(sum) > 2.0 * std::numbers::pi;  // a whole turn inside, none outside
}

std::optional<MiddleFacet> middleFacet(TopoDS_Face const& face)
{
    gp_XYZ centre;
    double area = 0.0;
    auto const middle = [](FacetCorners const& c) {
        return (c[0] + c[1] + c[2]) / 3.0;
    };
    auto const normal = [](FacetCorners const& c) {
        return (c[1] - c[0]).Crossed(c[2] - c[0]);
    };
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        double const weight = normal(corners).Modulus();
        centre += middle(corners) * weight;
        area += weight;
    });
    if (!(area > 0.0)) {
        return std::nullopt;
    }
    centre /= area;
    MiddleFacet found;
    double nearest = std::numeric_limits<double>::infinity();
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        gp_XYZ const own = normal(corners);
        double const distance = (middle(corners) - centre).SquareModulus();
        if (distance < nearest && own.Modulus() > 0.0) {
            nearest = distance;
            found = {middle(corners), own / own.Modulus()};
        }
    });
    return found;
}

}  // namespace vrn::orlo::host::geometry
