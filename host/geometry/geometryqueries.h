/// \file
/// Exact geometry of single entities of a GeometryModel: points, parameters, frames, projections,
/// intersections and boxes. Free of the geometry kernel's types.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

namespace vrn::orlo::host::geometry {

/// Answers questions about the shape of one entity.
///
/// Units      mm, in the coordinates of the entity's part. Parameters are those of the curve or
///            surface. Vectors of frames and normals have length 1.
/// Failure    Never throws of its own accord. An entity of another class than a query is for, a
///            number that the model does not have, an argument that is not finite, and an entity
///            that the geometry kernel fails on answer nothing, false or an empty list.
///            An edge without length (the pole of a sphere, the tip of a cone) has no curve, hence
///            neither parameters nor a frame; it lies in its vertex. A face of triangles has no
///            surface, hence neither parameters nor a frame.
/// Ownership  Refers to the model, which must stay where it is and keep its numbers.
/// Threads    Const operations may run on several threads. Those about one face take turns.
/// Cost       The kernel's tools for a face, boxes and middles are made at the first question and
///            then kept. A question to a face of triangles is linear in them.
class GeometryQueries {
public:
    using Vector = std::array<double, 3>;

    /// A line without ends.
    struct Line {
        Vector m_origin{};
        Vector m_direction{};  ///< Of any length but 0.
    };

    struct CurveFrame {
        Vector m_tangent{};   ///< Towards growing parameters.
        Vector m_normal{};    ///< To the centre of curvature; zero where the curve is straight.
        Vector m_binormal{};  ///< Tangent x normal; zero with the normal.
    };

    struct SurfaceFrame {
        Vector m_normal{};  ///< Out of the body: u x v or against it.
        Vector m_u{};       ///< Towards growing u.
        Vector m_v{};       ///< Towards growing v; at right angles to u on most surfaces only.
    };

    struct ClosePoints {
        Vector m_onEntity{};
        Vector m_onLine{};
        double m_distance = 0.0;
    };

    /// Where the kernel's map of shapes has an entity.
    struct KernelTag {
        unsigned m_part = 0;   ///< Index in GeometryModel::parts().
        unsigned m_level = 0;  ///< 0 bodies, 1 volumes, 2 faces, 3 edges, 4 vertices.
        unsigned m_index = 0;  ///< From 1, among the entities of the part and level.

        friend bool operator==(KernelTag const&, KernelTag const&) = default;
    };

    explicit GeometryQueries(GeometryModel const& model);
    GeometryQueries(GeometryQueries&&) noexcept;
    GeometryQueries& operator=(GeometryQueries&&) noexcept;
    ~GeometryQueries();

    [[nodiscard]] std::optional<Vector> pointOfVertex(unsigned vertex) const;

    /// Start and end of the curve, equal for a closed one; twice the vertex of an edge without
    /// length.
    [[nodiscard]] std::optional<std::array<Vector, 2>> endPoints(unsigned edge) const;

    /// For an edge, whether its curve ends where it starts. For a face, whether its surface closes
    /// on itself in u or v over the range of the face.
    [[nodiscard]] std::optional<bool> isPeriodic(unsigned entity) const;

    /// True for a line, and for a curve of another kind that keeps to its chord within 1e-7 mm.
    [[nodiscard]] std::optional<bool> isStraight(unsigned edge) const;

    /// Parameter of the point of the edge, between its ends, that is nearest to the point.
    [[nodiscard]] std::optional<double> closestParameter(unsigned edge, Vector const& point) const;

    /// Nothing for a parameter beyond the ends of the edge, or where the curve has a cusp.
    /// A curvature below 1e-7 per mm counts as straight.
    [[nodiscard]] std::optional<CurveFrame> curveFrame(unsigned edge, double parameter) const;

    /// Parameters u and v of the point of the face, within its boundary, that is nearest to the
    /// point.
    [[nodiscard]] std::optional<std::array<double, 2>> closestParameters(unsigned face,
                                                                         Vector const& point) const;

    /// Nothing for parameters beyond the range of the face. Where u or v has no direction, as at a
    /// pole, the frame is the one that nearby places tend to; nothing where they do not agree on
    /// a normal, as at the tip of a cone.
    [[nodiscard]] std::optional<SurfaceFrame> surfaceFrame(
        unsigned face, std::array<double, 2> const& parameters) const;

    /// The nearest point of a face, within its boundary, or of an edge. Nothing for other classes.
    [[nodiscard]] std::optional<Vector> projection(unsigned entity, Vector const& point) const;

    /// True when the point is at most `tolerance` mm away from the edge, inclusive. A negative
    /// tolerance is false.
    [[nodiscard]] bool contains(unsigned edge, Vector const& point, double tolerance) const;

    /// The normal out of the body at the point of the face that is nearest to the point. Nothing
    /// at the tip of a cone.
    [[nodiscard]] std::optional<Vector> normalAt(unsigned face, Vector const& point) const;

    /// The point of GeometryPicker::middleOf() for a face, edge or vertex.
    [[nodiscard]] std::optional<Vector> middleOf(unsigned entity) const;

    /// The nearest points of an edge and a line. Of several pairs at the least distance the one
    /// comes that is the first along the direction of the line: what is seen before the rest.
    [[nodiscard]] std::optional<ClosePoints> leastDistance(unsigned edge, Line const& line) const;

    /// Where the line goes through the face or touches it, within the boundary, which counts as
    /// part of the face. A line that lies in a plane face does not go through it.
    ///
    /// Order      Along the direction of the line. Points that are equal within 1e-7 mm are one.
    [[nodiscard]] std::vector<Vector> intersections(unsigned face, Line const& line) const;

    /// The tight box of an entity of any class.
    [[nodiscard]] std::optional<Box> box(unsigned entity) const;

    /// A few points that stand for the entity: a vertex gives its point; an edge the corners of a
    /// polyline that keeps within kSeedChord of it, from start to end, both included; a face points
    /// inside its boundary, at least one. Empty for bodies and volumes.
    [[nodiscard]] std::vector<Vector> seedPoints(unsigned entity) const;

    [[nodiscard]] std::optional<KernelTag> kernelTag(unsigned entity) const;

    /// Chord error of seedPoints(), as a share of the diagonal of the edge's box.
    static constexpr double kSeedChord = 0.01;

private:
    struct Kept;

    std::unique_ptr<Kept> m_kept;
};

}  // namespace vrn::orlo::host::geometry
