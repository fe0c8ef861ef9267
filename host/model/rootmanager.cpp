#include "host/model/rootmanager.h"

#include "host/model/entityname.h"
#include "host/model/propertytable.h"

namespace vrn::orlo::host::model {

KFRResult RootManager::add(Entity const& entity)
{
    if (entity == KFR::NULLSP) {
        return KFRResult(kUnknownEntity).addParam("There is no entity to add.");
    }
    auto const [row, isNew] =
        m_byReference.try_emplace(keyOf(entity->getEntityReference()), m_entities.end());
    if (!isNew) {
        return KFRResult(kReferenceTaken)
            .addParam("Entity " + labelOf(*entity) + " cannot be added: its reference is that of " +
                      labelOf(**row->second) + ".");
    }
    row->second = m_entities.insert(m_entities.end(), entity);
    if (m_service != nullptr) {
        m_service->created(entity);
    }
    return KFR::ok;
}

KFRResult RootManager::remove(CAE::EntityReference const& reference)
{
    auto const row = m_byReference.find(keyOf(reference));
    if (row == m_byReference.end()) {
        return KFRResult(kUnknownEntity)
            .addParam("No entity has the reference with type " + std::to_string(reference.typeId) +
                      " and number " + std::to_string(reference.id) + ".");
    }
    Entity const entity = *row->second;
    m_entities.erase(row->second);
    m_byReference.erase(row);
    if (m_service != nullptr) {
        m_service->deleted(entity);
    }
    return KFR::ok;
}

KFRSmartPointer<appfw::IEntityInterface> RootManager::getEntity(
    CAE::EntityReference const& reference)
{
    auto const row = m_byReference.find(keyOf(reference));
    return row != m_byReference.end() ? *row->second : Entity();
}

RootManager::Entity RootManager::entityByName(std::string const& name) const
{
    for (Entity const& entity : m_entities) {
        if (nameOf(*entity) == name) {
            return entity;
        }
    }
    return {};
}

std::vector<RootManager::Entity> RootManager::entities() const
{
    return {m_entities.begin(), m_entities.end()};
}

RootManager::Key RootManager::keyOf(CAE::EntityReference const& reference)
{
    KFRIService const& owner = reference.service;
    return {owner != KFR::NULLSP ? owner->getInstanceID() : 0, reference.typeId, reference.id,
            reference.subId};
}

}  // namespace vrn::orlo::host::model
