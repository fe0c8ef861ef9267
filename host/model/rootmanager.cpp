#include "host/model/rootmanager.h"

#include "host/model/entityname.h"
#include "host/model/modelobject.h"
#include "host/model/propertytable.h"

#include <bit>
#include <cstdint>

namespace vrn::orlo::host::model {

KFRResult RootManager::add(Entity const& entity)
{
    if (entity == KFR::NULLSP) {
        return KFRResult(kUnknownEntity).addParam("There is no entity to add.");
    }
    auto const [row, isNew] =
        m_byReference.try_emplace(ReferenceKey(entity->getEntityReference()), m_entities.end());
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
    KFRResult result;
    Entity const entity = take(reference, result);
    if (entity != KFR::NULLSP && m_service != nullptr) {
        m_service->deleted(entity);
    }
    return result;
}

KFRResult RootManager::withdraw(CAE::EntityReference const& reference)
{
    KFRResult result;
    static_cast<void>(take(reference, result));
    return result;
}

RootManager::Entity RootManager::take(CAE::EntityReference const& reference, KFRResult& result)
{
    auto const row = m_byReference.find(ReferenceKey(reference));
    if (row == m_byReference.end()) {
        result = KFRResult(kUnknownEntity)
                     .addParam("No entity has the reference with type " +
                               std::to_string(reference.typeId) + " and number " +
                               std::to_string(reference.id) + ".");
        return {};
    }
    Entity entity = *row->second;
    m_entities.erase(row->second);
    m_byReference.erase(row);
    result = KFR::ok;
    return entity;
}

RootManager::Registration RootManager::addResolver(Resolver resolver)
{
    m_resolvers.emplace(++m_lastResolver, std::move(resolver));
    return {*this, m_lastResolver};
}

void RootManager::Registration::drop() noexcept
{
    if (m_manager != KFR::NULLSP) {
        m_manager->m_resolvers.erase(m_number);
        m_manager.release();
    }
}

KFRSmartPointer<appfw::IEntityInterface> RootManager::getEntity(
    CAE::EntityReference const& reference)
{
    Entity found;
    if (auto const row = m_byReference.find(ReferenceKey(reference)); row != m_byReference.end()) {
        found = *row->second;
    }
    for (auto row = m_resolvers.begin(); found == KFR::NULLSP && row != m_resolvers.end(); ++row) {
        found = row->second(reference);
    }
    return isDeleted(found) ? Entity() : found;
}

KFRSmartPointer<appfw::IEntityInterface> RootManager::getEntityOfObject(KFRIService const& object)
{
    return isDeleted(object) ? Entity() : KFR::loose_cast<appfw::IEntityInterface>(object);
}

KFRSmartPointer<appfw::IEntityListInterface> RootManager::createEntityList(
    appfw::IEntities const& entities)
{
    return KFR::make<EntityList>(entities);
}

bool RootManager::equals(CAE::EntityReference const& left, CAE::EntityReference const& right)
{
    return ReferenceKey(left) == ReferenceKey(right);
}

bool RootManager::lessThan(CAE::EntityReference const& left, CAE::EntityReference const& right)
{
    return ReferenceKey(left) < ReferenceKey(right);
}

int RootManager::hashCode(CAE::EntityReference const& reference)
{
    std::uint64_t const hash = ReferenceKey::Hash()(ReferenceKey(reference));
    return std::bit_cast<int>(static_cast<std::uint32_t>(hash ^ (hash >> 32U)));
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

}  // namespace vrn::orlo::host::model
