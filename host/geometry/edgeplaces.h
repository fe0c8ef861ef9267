/// \file
/// Places on the kernel's edges.

#pragma once

#include <optional>

#include <BRepAdaptor_Curve.hxx>
#include <gp_Pnt.hxx>
#include <gp_Pnt2d.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>

namespace vrn::orlo::host::geometry {

/// A place on an edge.
struct EdgePlace {
    double m_parameter = 0.0;  ///< Of the curve; 0 for an edge without length.
    gp_Pnt m_point;
    double m_distance = 0.0;  ///< mm from the point that was asked for.
};

/// The place of a curve, between its ends, that is nearest to a point. Nothing for a curve without
/// ends that the kernel finds no place on. Throws the kernel's failures.
[[nodiscard]] std::optional<EdgePlace> nearestOnCurve(BRepAdaptor_Curve const& curve,
                                                      gp_Pnt const& point);

/// The same of an edge, which may be without length: its place is its vertex then.
[[nodiscard]] std::optional<EdgePlace> nearestOnEdge(TopoDS_Edge const& edge, gp_Pnt const& point);

/// True when the curve keeps to its chord within 1e-7 mm. Throws the kernel's failures.
///
/// Cost       A free-form curve is evaluated once more per piece than its degree.
[[nodiscard]] bool isStraight(BRepAdaptor_Curve const& curve);

/// A parameter of an edge as a place on a face that it bounds; the edge's curve on the face may
/// have other parameters. Nothing for an edge that is not on the face.
[[nodiscard]] std::optional<gp_Pnt2d> placeOnFace(TopoDS_Edge const& edge, TopoDS_Face const& face,
                                                  double parameter);

}  // namespace vrn::orlo::host::geometry
