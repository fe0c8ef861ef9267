/// \file
/// What GeometryQueries keeps, and how its queries come to the kernel's shapes. For its sources
/// only.

#pragma once

#include "host/geometry/faceprobe.h"
#include "host/geometry/geometryqueries.h"
#include "host/geometry/keptbynumber.h"

#include <memory>
#include <optional>

#include <gp_Lin.hxx>
#include <gp_XYZ.hxx>
#include <Standard_Failure.hxx>
#include <TopoDS_Edge.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::geometry {

/// What an entity's line queries need: the line from the entity's middle, and how far to follow it.
struct LineStretch {
    gp_Lin m_line;  ///< Its origin is the line's point that is nearest to the middle of the box.
    double m_reach = 0.0;  ///< mm to both sides, beyond which nothing of the entity is near.
};

struct GeometryQueries::Kept {
    explicit Kept(GeometryModel const& model) : m_model(model) {}

    /// A null shape for an entity of another class, and for a number that the model does not have.
    [[nodiscard]] TopoDS_Shape shapeOf(unsigned number, EntityClass entityClass) const;
    [[nodiscard]] TopoDS_Edge edgeOf(unsigned number) const;
    [[nodiscard]] TopoDS_Face faceOf(unsigned number) const;

    /// Null for all but faces with a surface, and when the kernel fails.
    [[nodiscard]] FaceProbe* probeOf(unsigned face);

    /// Empty for a number that the model does not have, and when the kernel fails.
    [[nodiscard]] Box const& boxOf(unsigned number);

    /// Nothing for a line without direction, and for an entity without a box.
    [[nodiscard]] std::optional<LineStretch> stretchAt(unsigned number, Line const& line);

    GeometryModel const& m_model;
    KeptByNumber<std::optional<Vector>> m_middles;
    KeptByNumber<Box> m_boxes;
    KeptByNumber<std::unique_ptr<FaceProbe>> m_probes;
};

/// What `find` gives; nothing when the kernel fails.
template <typename Find>
[[nodiscard]] auto orNothing(Find const& find) -> decltype(find())
{
    try {
        return find();
    } catch (Standard_Failure const&) {
        return {};
    }
}

[[nodiscard]] inline GeometryQueries::Vector arrayOf(gp_XYZ const& vector)
{
    return {vector.X(), vector.Y(), vector.Z()};
}

[[nodiscard]] inline gp_XYZ xyzOf(GeometryQueries::Vector const& vector)
{
    return {vector[0], vector[1], vector[2]};
}

}  // namespace vrn::orlo::host::geometry
