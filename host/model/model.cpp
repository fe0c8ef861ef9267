#include "host/model/model.h"

#include "platform/typenames/objectmodel.h"

#include <utility>

namespace vrn::orlo::host::model {

using geometry::Entity;
using geometry::EntityClass;
using geometry::Instance;
using KFR::Services::TypeRegistry::ITypeRegistryInterface;

Model::Model(geometry::GeometryModel geometry, ITypeRegistryInterface& types)
    : m_geometry(std::move(geometry)), m_partTypeId(types.getTypeId(typenames::kSimulationPart))
{
    m_parts.reserve(m_geometry.m_parts.size());
    for (geometry::Part const& part : m_geometry.m_parts) {
        m_parts.push_back(KFR::make<Part>(part.m_name));
    }
    for (Entity const& entity : m_geometry.m_entities) {
        if (auto const [row, isNew] = m_typeIds.try_emplace(entity.m_class); isNew) {
            std::string const name(geometry::typeNameOf(entity.m_class));
            row->second = types.getTypeId(icu::UnicodeString::fromUTF8(name));
        }
    }
}

CAE::EntityReference Model::reference(unsigned number) const
{
    Entity const* const entity = m_geometry.entity(number);
    if (entity == nullptr) {
        return {};
    }
    return {m_parts[entity->m_part], m_typeIds.at(entity->m_class), number, 0};
}

CAE::EntityReference Model::partReference(std::size_t part) const
{
    if (part >= m_parts.size()) {
        return {};
    }
    return {m_parts[part], m_partTypeId, static_cast<unsigned>(part) + 1, 0};
}

std::string_view Model::typeNameOf(Instance const& node, bool isRoot) noexcept
{
    if (node.m_part != Instance::kNoPart) {
        return "Simulation.PartInstance";
    }
    return isRoot ? "Simulation.Assembly" : "Simulation.AssemblyInstance";
}

}  // namespace vrn::orlo::host::model
