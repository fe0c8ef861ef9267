/// \file
/// Tight boxes of entities, found once and then kept.

#pragma once

#include "host/geometry/geometrypicker.h"
#include "host/geometry/keptbynumber.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

namespace vrn::orlo::host::geometry {

/// The tight boxes of a model's entities, in part coordinates and as instances show them.
///
/// Ownership  Refers to the model and the instances.
/// Threads    Any.
/// Cost       One tight box per entity and per rotation that its part is placed with.
class EntityBoxes {
public:
    EntityBoxes(GeometryModel const& model, std::span<PlacedInstance const> instances);

    /// In part coordinates.
    [[nodiscard]] Box const& inPart(unsigned number);

    /// In model coordinates; the instance must be one of the entity's part.
    [[nodiscard]] Box inModel(unsigned number, unsigned instance);

private:
    GeometryModel const& m_model;
    std::span<PlacedInstance const> m_instances;
    std::vector<std::size_t> m_rotationOf;  // by instance: index in m_turned
    KeptByNumber<Box> m_boxes;
    std::vector<std::unique_ptr<KeptByNumber<Box>>> m_turned;
};

}  // namespace vrn::orlo::host::geometry
