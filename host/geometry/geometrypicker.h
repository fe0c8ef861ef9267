/// \file
/// Geometric queries over a GeometryModel: which entities a user means who points at a place, drags
/// a box, or asks for faces by direction, area, tangency or name. Free of the geometry kernel's
/// types.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <array>
#include <compare>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::geometry {

/// A leaf of the assembly tree with its placement in the model.
struct PlacedInstance {
    Instance const* m_leaf = nullptr;
    unsigned m_part = 0;
    Placement m_placement;  ///< The part's coordinates to the model's.
};

/// An entity as one instance shows it.
struct Pick {
    unsigned m_number = 0;    ///< The entity's number in the model.
    unsigned m_instance = 0;  ///< Index in GeometryPicker::instances().

    friend auto operator<=>(Pick const&, Pick const&) = default;  ///< By number, then instance.
};

/// A pick and how far it is from the point that was asked for.
struct NearPick {
    Pick m_pick;
    double m_distance = 0.0;  ///< mm in model coordinates.
};

/// A place on an entity, in part coordinates.
struct Middle {
    std::array<double, 3> m_point{};                ///< mm.
    std::optional<std::array<double, 3>> m_normal;  ///< Unit vector out of the body; faces only.
};

/// How an entity's box has to lie to the box of inBox().
enum class BoxRule : std::uint8_t {
    touching,   ///< The two share a point: an edge or a corner is enough.
    contained,  ///< The entity's box lies in the other; common sides are allowed.
};

/// Finds entities by where they are and how they look.
///
/// Units      mm, mm2 and degrees. Points, boxes and directions are in model coordinates, which
///            each instance shows its part in, unless a query says otherwise.
/// Order      Picks ascend by number, then by instance; numbers ascend. None comes twice.
/// Failure    Never throws of its own accord. An argument that makes no sense (not a number, a
///            negative tolerance, an empty box, a direction without length, no classes, numbers
///            that the model does not have) finds nothing. An entity that the geometry kernel
///            fails on is left out.
/// Ownership  Refers to the model, which must stay where it is and keep its tree.
/// Threads    Const operations may run on several threads.
/// Cost       Construction is linear in the tree. Boxes, middles and angles are found at the first
///            question that needs them and then kept; the first question is the slow one.
class GeometryPicker {
public:
    /// Distances in mm that differ by no more than this count as equal.
    static constexpr double kSamePlace = 1e-7;

    explicit GeometryPicker(GeometryModel const& model);
    GeometryPicker(GeometryPicker&&) noexcept;
    GeometryPicker& operator=(GeometryPicker&&) noexcept;
    ~GeometryPicker();

    /// The leaves of the tree, depth first. Picks name an instance by its index here.
    [[nodiscard]] std::span<PlacedInstance const> instances() const noexcept;

    /// The entities of the classes that are nearest to the point, if they are within `tolerance`
    /// of it, inclusive. Several come when they are equally far: the faces at an edge, two
    /// instances in contact, a body with its face. All of them then carry the least distance.
    ///
    /// Solid bodies and volumes are 0 mm away from a point inside them. Edges without length lie
    /// in their vertex.
    ///
    /// Order      By distance, then number, then instance.
    /// Cost       One exact distance per entity whose box is not farther than the best so far.
    [[nodiscard]] std::vector<NearPick> nearest(std::array<double, 3> const& point,
                                                std::span<EntityClass const> classes,
                                                double tolerance) const;

    /// The entities of the classes whose tight box keeps the rule, with kSamePlace to spare.
    /// The boxes decide, not the shapes: a slanted edge may pass by a box that its own box touches.
    ///
    /// Cost       A tight box per entity, and per rotation of its part, at the first question.
    [[nodiscard]] std::vector<Pick> inBox(Box const& box, std::span<EntityClass const> classes,
                                          BoxRule rule) const;

    /// The faces whose outward normal at middleOf() is within the angle of the direction,
    /// inclusive. The direction's length does not matter.
    [[nodiscard]] std::vector<Pick> byNormal(std::array<double, 3> const& direction,
                                             double angleDegrees) const;

    /// Numbers of the faces whose GeometryModel::measure() is from `min` to `max` mm2, inclusive
    /// with one part in 1e9 to spare. In part coordinates: an instance's own scale does not count.
    [[nodiscard]] std::vector<unsigned> byArea(double min, double max) const;

    /// Numbers of the given faces, and of those reachable from them over shared edges where the
    /// outward normals on both sides, at the middle of the edge, differ by no more than the angle:
    /// 0 stays in one plane, some degrees follow fillets, 180 takes the whole shell. Growth stays
    /// in the body: two bodies may have an edge in common. Numbers that are no faces are left out;
    /// an edge where a face has no normal is not crossed, nor is any when the angle is negative.
    ///
    /// Cost       Linear in the faces visited and their edges, and once per part in its faces.
    [[nodiscard]] std::vector<unsigned> grow(std::span<unsigned const> numbers,
                                             double angleDegrees) const;

    /// Numbers of all bodies of the parts that bear the name. A part bears its own name, and the
    /// occurrence's and product's name of each node of the tree that it stands at or below. Names
    /// are compared byte for byte, as the file gives them; the empty one finds nothing.
    [[nodiscard]] std::vector<unsigned> byName(std::string_view name) const;

    /// A place on the entity of a number, in part coordinates; nothing for a number that the model
    /// does not have, and for unbounded geometry.
    ///
    /// Faces and edges give the middle of their parameter range; a face that has a hole there
    /// gives a place beside the hole. A very thin face may give the middle of one of its edges.
    /// A face of triangles gives the middle of one triangle. Bodies and volumes give the middle of
    /// their first face, edge or vertex, without a normal.
    ///
    /// The normal is missing where the surface has none, as at the tip of a cone.
    [[nodiscard]] std::optional<Middle> middleOf(unsigned number) const;

    /// The numbers in picks, each once.
    [[nodiscard]] static std::vector<unsigned> numbersOf(std::span<Pick const> picks);

private:
    struct Kept;

    GeometryModel const* m_model;
    std::vector<PlacedInstance> m_instances;
    std::unique_ptr<Kept> m_kept;
};

}  // namespace vrn::orlo::host::geometry
