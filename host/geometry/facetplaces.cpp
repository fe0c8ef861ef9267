#include "host/geometry/facetplaces.h"

#include "host/geometry/facets.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace vrn::orlo::host::geometry {

namespace {

gp_XYZ normalOf(FacetCorners const& corners)
{
    return (corners[1] - corners[0]).Crossed(corners[2] - corners[0]);
}

gp_XYZ nearestOnSegment(gp_XYZ const& point, gp_XYZ const& from, gp_XYZ const& to)
{
    gp_XYZ const along = to - from;
    double const square = along.SquareModulus();
    double const at = square == 0.0 ? 0.0 : std::clamp((point - from).Dot(along) / square, 0., 1.);
    return from + along * at;
}

/// The point of a triangle that has an area.
gp_XYZ nearestOnFacet(gp_XYZ const& point, FacetCorners const& corners, gp_XYZ const& unit)
{
    gp_XYZ best;
    double least = std::numeric_limits<double>::infinity();
    bool isAbove = true;
    for (std::size_t k = 0; k < 3; ++k) {
        gp_XYZ const& from = corners[k];
        gp_XYZ const& to = corners[(k + 1) % 3];
        isAbove = isAbove && unit.Dot((to - from).Crossed(point - from)) >= 0.0;
        gp_XYZ const onSide = nearestOnSegment(point, from, to);
        if (double const square = (onSide - point).SquareModulus(); square < least) {
            least = square;
            best = onSide;
        }
    }
    return isAbove ? point - unit * unit.Dot(point - corners[0]) : best;
}

/// True when the line has no two sides of the triangle on different hands. For the common side of
/// two triangles both find the same value but for its sign, to the last digit: no line slips
/// through between them.
bool passesThrough(gp_Lin const& line, FacetCorners const& corners)
{
    gp_XYZ const direction = line.Direction().XYZ();
    int left = 0;
    int right = 0;
    for (std::size_t k = 0; k < 3; ++k) {
        gp_XYZ const from = corners[k] - line.Location().XYZ();
        gp_XYZ const to = corners[(k + 1) % 3] - line.Location().XYZ();
        double const side = direction.Dot(from.Crossed(to));
        left += side > 0.0 ? 1 : 0;
        right += side < 0.0 ? 1 : 0;
    }
    return left == 0 || right == 0;
}

}  // namespace

std::optional<FacetPlace> nearestOnFacets(TopoDS_Face const& face, gp_XYZ const& point)
{
    std::optional<FacetPlace> found;
    double least = std::numeric_limits<double>::infinity();
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        gp_XYZ const normal = normalOf(corners);
        if (!(normal.Modulus() > 0.0)) {
            return;
        }
        gp_XYZ const unit = normal / normal.Modulus();
        gp_XYZ const place = nearestOnFacet(point, corners, unit);
        if (double const square = (place - point).SquareModulus(); square < least) {
            least = square;
            found = FacetPlace{place, unit};
        }
    });
    return found;
}

std::vector<double> crossingsOfFacets(TopoDS_Face const& face, gp_Lin const& line)
{
    constexpr double kAlong = 1e-12;  // sine of the angle at which a line counts as in the plane
    gp_XYZ const direction = line.Direction().XYZ();
    std::vector<double> found;
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        gp_XYZ const normal = normalOf(corners);
        double const speed = normal.Dot(direction);
        if (std::abs(speed) > kAlong * normal.Modulus() && passesThrough(line, corners)) {
            found.push_back(normal.Dot(corners[0] - line.Location().XYZ()) / speed);
        }
    });
    std::sort(found.begin(), found.end());
    return found;
}

std::vector<gp_XYZ> middlesOfFacets(TopoDS_Face const& face, std::size_t count)
{
    std::vector<gp_XYZ> middles;
    forEachFacetOf(face, [&](FacetCorners const& corners) {
        if (normalOf(corners).Modulus() > 0.0) {
            middles.push_back((corners[0] + corners[1] + corners[2]) / 3.0);
        }
    });
    std::size_t const kept = std::min(count, middles.size());
    for (std::size_t i = 0; i < kept; ++i) {
        middles[i] = middles[i * middles.size() / kept];
    }
    middles.resize(kept);
    return middles;
}

}  // namespace vrn::orlo::host::geometry
