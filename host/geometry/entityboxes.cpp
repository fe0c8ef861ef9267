#include "host/geometry/entityboxes.h"

#include "host/geometry/placement.h"
#include "host/geometry/shapestore.h"
#include "host/geometry/tightbox.h"

#include <array>
#include <map>

namespace vrn::orlo::host::geometry {

namespace {

constexpr std::array<std::size_t, 3> kShifts{3, 7, 11};  // the fourth column of a placement

Placement rotationOf(Placement placement)
{
    for (std::size_t const i : kShifts) {
        placement.m_rows[i] = 0.0;
    }
    return placement;
}

Placement shiftOf(Placement const& placement)
{
    Placement shift;
    for (std::size_t const i : kShifts) {
        shift.m_rows[i] = placement.m_rows[i];
    }
    return shift;
}

}  // namespace

EntityBoxes::EntityBoxes(GeometryModel const& model, std::span<PlacedInstance const> instances)
    : m_model(model), m_instances(instances)
{
    std::map<std::array<double, 12>, std::size_t> known;
    for (PlacedInstance const& instance : instances) {
        auto const [at, isNew] =
            known.emplace(rotationOf(instance.m_placement).m_rows, m_turned.size());
        if (isNew) {
            m_turned.push_back(std::make_unique<KeptByNumber<Box>>());
        }
        m_rotationOf.push_back(at->second);
    }
}

Box const& EntityBoxes::inPart(unsigned number)
{
    return m_boxes.at(number, [&] {
        return tightBox(m_model.shapes().part(m_model.entity(number)->m_part).shapeOf(number));
    });
}

Box EntityBoxes::inModel(unsigned number, unsigned instance)
{
    PlacedInstance const& placed = m_instances[instance];
    Box const& turned = m_turned[m_rotationOf[instance]]->at(number, [&] {
        Placement const rotation = rotationOf(placed.m_placement);
        Box box;
        if (!mapsAxesToAxes(rotation)) {
            box = turnedTightBox(m_model.shapes().part(placed.m_part).shapeOf(number), rotation);
        }
        return box.isEmpty() ? movedBox(inPart(number), rotation) : box;
    });
    return movedBox(turned, shiftOf(placed.m_placement));
}

}  // namespace vrn::orlo::host::geometry
