/// \file
/// The kernel's tools for one face with a surface, made once.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <array>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include <BRepAdaptor_Curve.hxx>
#include <BRepAdaptor_Surface.hxx>
#include <BRepTopAdaptor_FClass2d.hxx>
#include <Extrema_ExtPS.hxx>
#include <gp_Lin.hxx>
#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>
#include <gp_Vec.hxx>
#include <IntCurvesFace_Intersector.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

/// A place on a face.
struct FacePlace {
    gp_Pnt2d m_parameters;
    gp_Pnt m_point;
    double m_distance = 0.0;  ///< mm from the point that was asked for.
};

/// Unit vectors at a place of a face.
struct FaceAxes {
    gp_Vec m_normal;  ///< Out of the body.
    gp_Vec m_u;
    gp_Vec m_v;
};

/// Searches on one face.
///
/// Failure    Throws the kernel's failures.
/// Threads    Any; calls take turns, for the kernel's tools hold their last answer.
class FaceProbe {
public:
    explicit FaceProbe(TopoDS_Face const& face);

    /// The place within the boundary that is nearest to a point.
    [[nodiscard]] std::optional<FacePlace> nearest(gp_Pnt const& point);

    /// Parameters of the line, ascending, where it meets the face within `reach` mm of its origin.
    [[nodiscard]] std::vector<double> crossings(gp_Lin const& line, double reach);

    /// As GeometryQueries::surfaceFrame() tells.
    [[nodiscard]] std::optional<FaceAxes> axesAt(gp_Pnt2d const& place);

    /// The places of a grid of `cells` by `cells` over the parameters that are inside the boundary.
    [[nodiscard]] std::vector<gp_Pnt> innerPoints(int cells);

    /// True when the surface closes on itself over the range of the face.
    [[nodiscard]] bool isClosed();

private:
    /// An edge of the boundary.
    struct Side {
        TopoDS_Edge m_edge;
        std::unique_ptr<BRepAdaptor_Curve> m_curve;  // null for an edge without length
        Box m_box;                                   // surely holds it; empty for an unbounded one
    };

    struct Range {
        double m_first = 0.0;
        double m_last = 0.0;
        [[nodiscard]] double length() const { return m_last - m_first; }
        [[nodiscard]] bool holds(double value) const;
        [[nodiscard]] bool isBounded() const;
    };

    void addSide(TopoDS_Edge const& edge);
    void prepareSearch();
    [[nodiscard]] bool isInside(gp_Pnt2d const& place, bool withBoundary);
    [[nodiscard]] std::array<gp_Vec, 2> derivativesAt(gp_Pnt2d const& place) const;
    [[nodiscard]] static bool isFlat(gp_Vec const& derivative, Range const& range);
    [[nodiscard]] std::optional<FaceAxes> regularAxes(gp_Pnt2d const& place) const;
    [[nodiscard]] std::optional<FaceAxes> limitAxes(gp_Pnt2d const& place, bool isUFlat) const;
    [[nodiscard]] std::optional<FaceAxes> poleAxes(gp_Pnt2d const& place, bool isUFlat) const;

    TopoDS_Face m_face;
    BRepAdaptor_Surface m_surface;
    Range m_u;
    Range m_v;
    std::mutex m_mutex;  // for the surface, which keeps what it last evaluated, and what follows
    std::unique_ptr<BRepTopAdaptor_FClass2d> m_classifier;  // null until asked for, as the others
    std::unique_ptr<Extrema_ExtPS> m_search;
    std::unique_ptr<IntCurvesFace_Intersector> m_intersector;
    std::vector<Side> m_sides;
};

}  // namespace vrn::orlo::host::geometry
