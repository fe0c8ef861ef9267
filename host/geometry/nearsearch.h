/// \file
/// The search for the entities of one part that are nearest to a point.

#pragma once

#include "host/geometry/entityboxes.h"

#include <array>
#include <optional>
#include <span>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrn::orlo::host::geometry {

/// Distances of a part's entities from one point, in part coordinates.
///
/// Cost       A kernel's search per face, edge and vertex whose box is within the limit, and none
///            twice: a body is as far as its nearest face.
class NearSearch {
public:
    struct Found {
        unsigned m_number = 0;
        double m_distance = 0.0;  ///< mm
    };

    NearSearch(GeometryModel const& model, EntityBoxes& boxes, unsigned part,
               std::array<double, 3> const& point)
        : m_model(model), m_boxes(boxes), m_part(part), m_point(point)
    {
    }

    /// The entities of the classes that are not farther than the limit and, with `spare`, not
    /// farther than the nearest of them.
    [[nodiscard]] std::vector<Found> nearest(std::span<EntityClass const> classes, double limit,
                                             double spare);

private:
    using Numbers = std::vector<unsigned>;

    [[nodiscard]] std::vector<Found> byBox(Numbers const& numbers, double limit);
    [[nodiscard]] std::optional<double> distanceOf(unsigned number, double limit);
    [[nodiscard]] std::optional<double> distanceOfWhole(Entity const& entity, double limit);
    [[nodiscard]] Numbers boundaryOf(unsigned number) const;

    GeometryModel const& m_model;
    EntityBoxes& m_boxes;
    unsigned m_part;
    std::array<double, 3> m_point;
    std::unordered_map<unsigned, std::optional<double>> m_exact;  // of faces, edges and vertices
};

}  // namespace vrn::orlo::host::geometry
