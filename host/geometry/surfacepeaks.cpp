#include "host/geometry/surfacepeaks.h"

#include <algorithm>
#include <array>
#include <numbers>

#include <BRepTools.hxx>
#include <ElCLib.hxx>
#include <ElSLib.hxx>
#include <gp_Sphere.hxx>
#include <gp_Torus.hxx>
#include <Precision.hxx>

namespace vrn::orlo::host::geometry {

namespace {

std::vector<gp_Pnt2d> peaksOf(gp_Sphere const& sphere, gp_Dir const& direction)
{
    gp_Pnt const peak = sphere.Location().Translated(gp_Vec(direction) * sphere.Radius());
    double u = 0.0;
    double v = 0.0;
    ElSLib::Parameters(sphere, peak, u, v);
    return {{u, v}};
}

std::vector<gp_Pnt2d> peaksOf(gp_Torus const& torus, gp_Dir const& direction)
{
    gp_Vec const d(direction);
    gp_Vec const axis(torus.Axis().Direction());
    gp_Vec across = d - axis * d.Dot(axis);
    if (across.Magnitude() < Precision::Angular()) {
        across = gp_Vec(torus.XAxis().Direction());  // a whole circle; any point stands for it
    }
    across.Normalize();
    std::vector<gp_Pnt2d> peaks;
    for (double const side : {1.0, -1.0}) {
        gp_Pnt const peak = torus.Location().Translated(across * (side * torus.MajorRadius()) +
                                                        d * torus.MinorRadius());
        double u = 0.0;
        double v = 0.0;
        ElSLib::Parameters(torus, peak, u, v);
        peaks.emplace_back(u, v);
    }
    return peaks;
}

/// Grid nodes per direction: enough that each span of the surface has nodes inside of it.
int nodesFor(int spans)
{
    constexpr int kPerSpan = 4;
    constexpr int kFewest = 12;
    constexpr int kMost = 64;
    return std::clamp(kPerSpan * spans + 1, kFewest, kMost);
}

double height(gp_Pnt const& point, gp_Dir const& direction)
{
    return point.XYZ().Dot(direction.XYZ());
}

}  // namespace

/// True for a surface of straight lines: each line reaches farthest where it meets the face's
/// boundary, so such a face lies in the box of its edges.
bool isRuled(BRepAdaptor_Surface const& surface)
{
    switch (surface.GetType()) {
        case GeomAbs_Plane:
        case GeomAbs_Cylinder:
        case GeomAbs_Cone:
        case GeomAbs_SurfaceOfExtrusion:
            return true;
        case GeomAbs_BezierSurface:
        case GeomAbs_BSplineSurface:
            return (surface.UDegree() == 1 && surface.NbUPoles() == 2) ||
                   (surface.VDegree() == 1 && surface.NbVPoles() == 2);
        default:
            return false;
    }
}

SurfacePeaks::SurfacePeaks(TopoDS_Face const& face, BRepAdaptor_Surface const& surface)
    : m_surface(surface)
{
    BRepTools::UVBounds(face, m_firstU, m_lastU, m_firstV, m_lastV);
    if (surface.GetType() != GeomAbs_Sphere && surface.GetType() != GeomAbs_Torus) {
        sampleGrid();
    }
}

std::vector<gp_Pnt2d> SurfacePeaks::towards(gp_Dir const& direction) const
{
    switch (m_surface.GetType()) {
        case GeomAbs_Sphere:
            return withinBounds(peaksOf(m_surface.Sphere(), direction));
        case GeomAbs_Torus:
            return withinBounds(peaksOf(m_surface.Torus(), direction));
        default:
            return climbedFromGrid(direction);
    }
}

std::vector<gp_Pnt2d> SurfacePeaks::withinBounds(std::vector<gp_Pnt2d> peaks) const
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    std::erase_if(peaks, [&](gp_Pnt2d& peak) {
        // The same place has a parameter in every turn; only a torus goes around along v, too.
        peak.SetX(ElCLib::InPeriod(peak.X(), m_firstU, m_firstU + kTurn));
        if (m_surface.GetType() == GeomAbs_Torus) {
            peak.SetY(ElCLib::InPeriod(peak.Y(), m_firstV, m_firstV + kTurn));
        }
        return peak.X() > m_lastU || peak.Y() < m_firstV || peak.Y() > m_lastV;
    });
    return peaks;
}

void SurfacePeaks::sampleGrid()
{
    if (Precision::IsInfinite(m_firstU) || Precision::IsInfinite(m_lastU) ||
        Precision::IsInfinite(m_firstV) || Precision::IsInfinite(m_lastV)) {
        return;
    }
    m_columns = nodesFor(m_surface.NbUIntervals(GeomAbs_C2));
    m_rows = nodesFor(m_surface.NbVIntervals(GeomAbs_C2));
    m_stepU = (m_lastU - m_firstU) / (m_columns - 1);
    m_stepV = (m_lastV - m_firstV) / (m_rows - 1);
    m_grid.reserve(static_cast<std::size_t>(m_columns) * static_cast<std::size_t>(m_rows));
    for (int row = 0; row < m_rows; ++row) {
        for (int column = 0; column < m_columns; ++column) {
            m_grid.push_back(
                m_surface.Value(m_firstU + column * m_stepU, m_firstV + row * m_stepV));
        }
    }
}

std::vector<gp_Pnt2d> SurfacePeaks::climbedFromGrid(gp_Dir const& direction) const
{
    auto const at = [&](int row, int column) {
        return height(m_grid[static_cast<std::size_t>(row * m_columns + column)], direction);
    };
    std::vector<gp_Pnt2d> peaks;
    // The outermost nodes are on the face's edges or outside of it: no peaks of the interior.
    for (int row = 1; row + 1 < m_rows; ++row) {
        for (int column = 1; column + 1 < m_columns; ++column) {
            double const own = at(row, column);
            if (own >= at(row - 1, column) && own >= at(row + 1, column) &&
                own >= at(row, column - 1) && own >= at(row, column + 1)) {
                peaks.push_back(climbedFrom({m_firstU + column * m_stepU, m_firstV + row * m_stepV},
                                            direction));
            }
        }
    }
    return peaks;
}

gp_Pnt2d SurfacePeaks::climbedFrom(gp_Pnt2d start, gp_Dir const& direction) const
{
    // At a smooth peak the height is off by the square of what the place is off.
    constexpr double kFinest = 1e-6;
    constexpr int kMostMoves = 400;
    constexpr std::array<std::array<double, 2>, 4> kSides{{{1, 0}, {-1, 0}, {0, 1}, {0, -1}}};
    double best = height(m_surface.Value(start.X(), start.Y()), direction);
    int moves = 0;
    for (double scale = 0.5; scale > kFinest && moves < kMostMoves; scale /= 2) {
        for (bool moved = true; moved && moves < kMostMoves; ++moves) {
            moved = false;
            for (auto const& [u, v] : kSides) {
                gp_Pnt2d const next(start.X() + u * scale * m_stepU,
                                    start.Y() + v * scale * m_stepV);
                double const reached = height(m_surface.Value(next.X(), next.Y()), direction);
                if (reached > best) {
                    best = reached;
                    start = next;
                    moved = true;
                }
            }
        }
    }
    return start;
}

}  // namespace vrn::orlo::host::geometry
