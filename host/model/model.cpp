#include "host/model/model.h"

#include "platform/typenames/objectmodel.h"

#include <utility>

namespace vrn::orlo::host::model {

using geometry::Entity;
using geometry::EntityClass;
using geometry::Instance;
using KFR::Services::TypeRegistry::ITypeRegistryInterface;

namespace {

std::string checkColor(KFRAny const& value)
{
    constexpr int kWhite = 0xFFFFFF;
    int const color = *value.get<int>();
    return color >= 0 && color <= kWhite ? "" : "a color from 0 to 16777215 (0xRRGGBB)";
}

std::string checkTransparency(KFRAny const& value)
{
    double const transparency = *value.get<double>();
    return transparency >= 0.0 && transparency <= 1.0 ? "" : "a number from 0 to 1";
}

}  // namespace

Part::Part(std::string name, unsigned int typeId, unsigned int number,
           std::shared_ptr<EntityService> service)
    : EntityObjectOf(KFR::NULLSP, typeId, number, std::move(service)), m_name(std::move(name))
{
    constexpr int kGrey = 0xB0B0B0;
    declareProperty(kNameProperty, KFRAny(icu::UnicodeString::fromUTF8(m_name)));
    declareProperty("description", KFRAny(icu::UnicodeString()));
    declareProperty("visible", KFRAny(true));
    declareProperty("color", KFRAny(kGrey), checkColor);
    declareProperty("transparency", KFRAny(0.0), checkTransparency);
}

CAE::EntityReference Part::getEntityReference()
{
    CAE::EntityReference reference = EntityObjectOf::getEntityReference();
    reference.service = KFRSmartPointer<CAE::IPartInterface>(this);
    return reference;
}

Model::Model(geometry::GeometryModel geometry, ITypeRegistryInterface& types,
             std::shared_ptr<EntityService> const& service, RootManager* entities)
    : m_geometry(std::move(geometry)), m_partTypeId(types.getTypeId(typenames::kSimulationPart))
{
    m_parts.reserve(m_geometry.m_parts.size());
    for (geometry::Part const& part : m_geometry.m_parts) {
        auto const number = static_cast<unsigned>(m_parts.size()) + 1;
        m_parts.push_back(KFR::make<Part>(part.m_name, m_partTypeId, number, service));
        if (entities != nullptr) {
            static_cast<void>(entities->add(m_parts.back()));
        }
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
    return m_parts[part]->getEntityReference();
}

std::string_view Model::typeNameOf(Instance const& node, bool isRoot) noexcept
{
    if (node.m_part != Instance::kNoPart) {
        return "Simulation.PartInstance";
    }
    return isRoot ? "Simulation.Assembly" : "Simulation.AssemblyInstance";
}

}  // namespace vrn::orlo::host::model
