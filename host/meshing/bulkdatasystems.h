/// \file
/// Coordinate systems of bulk data files.

#pragma once

#include "host/meshing/meshstore.h"
#include "host/meshing/sourcelines.h"

#include <array>
#include <cstdint>
#include <functional>
#include <map>

namespace vrn::orlo::host::meshing {

/// Gathers systems in any order, and places points in the basic one, whose number is 0.
///
/// Units      Angles in degrees.
/// Failure    MeshFileError for a system that is missing, comes twice, stands on itself or has no
///            direction.
class BulkDataSystems {
public:
    enum class Kind : std::uint8_t { rectangular, cylindrical, spherical };

    /// By its origin, a point on its z axis and one in its xz plane.
    struct Definition {
        Kind m_kind = Kind::rectangular;
        SourceLine m_line = 0;
        std::int64_t m_base = 0;                ///< The system in which the points are given.
        std::array<Point, 3> m_points{};        ///< In coordinates of that system.
        std::array<std::int64_t, 3> m_nodes{};  ///< Nodes instead of points, where not 0.
    };
    /// Where a node is in the basic system.
    using NodePlace = std::function<Point(std::int64_t node, SourceLine askedBy)>;

    explicit BulkDataSystems(SourceLines const& lines) : m_lines(lines) {}

    void add(std::int64_t id, Definition const& definition);
    /// Works the system out, and those that it stands on.
    /// \param askedBy  of the card that names it
    void resolve(std::int64_t id, NodePlace const& nodePlace, SourceLine askedBy);
    /// A point of a system, which was resolved, in the basic one.
    [[nodiscard]] Point inBasic(std::int64_t id, Point const& point) const;

private:
    enum class State : std::uint8_t { open, atWork, resolved };
    struct System {
        Definition m_definition;
        State m_state = State::open;
        Point m_origin{};
        std::array<Point, 3> m_axes{};
    };

    SourceLines const& m_lines;
    std::map<std::int64_t, System> m_systems;
};

}  // namespace vrn::orlo::host::meshing
