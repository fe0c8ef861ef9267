/// \file
/// Where curved surfaces reach farthest.

#pragma once

#include <vector>

#include <BRepAdaptor_Surface.hxx>
#include <gp_Dir.hxx>
#include <gp_Pnt2d.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

/// True for a surface of straight lines: each line reaches farthest where it meets the face's
/// boundary, so such a face lies in the box of its edges.
[[nodiscard]] bool isRuled(BRepAdaptor_Surface const& surface);

/// The places in the interior of a surface where it reaches farthest in a direction, each among its
/// neighbours. They need not lie in the face, which may be trimmed.
///
/// Cost       None for spheres and tori; for others one point per grid node, some hundreds, and a
///            search from each node that exceeds its neighbours, mostly none.
class SurfacePeaks {
public:
    /// The surface must outlive the object.
    SurfacePeaks(TopoDS_Face const& face, BRepAdaptor_Surface const& surface);

    [[nodiscard]] std::vector<gp_Pnt2d> towards(gp_Dir const& direction) const;

private:
    void sampleGrid();
    [[nodiscard]] std::vector<gp_Pnt2d> withinBounds(std::vector<gp_Pnt2d> peaks) const;
    [[nodiscard]] std::vector<gp_Pnt2d> climbedFromGrid(gp_Dir const& direction) const;
    [[nodiscard]] gp_Pnt2d climbedFrom(gp_Pnt2d start, gp_Dir const& direction) const;

    BRepAdaptor_Surface const& m_surface;
    std::vector<gp_Pnt> m_grid;  // rows along v
    int m_columns = 0;           // along u
    int m_rows = 0;
    double m_firstU = 0.0;  // the face's range of parameters
    double m_lastU = 0.0;
    double m_firstV = 0.0;
    double m_lastV = 0.0;
    double m_stepU = 0.0;
    double m_stepV = 0.0;
};

}  // namespace vrn::orlo::host::geometry
