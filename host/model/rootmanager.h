/// \file
/// Finds the entities of the host.

#pragma once

#include "host/model/entityservice.h"
#include "host/model/referencekey.h"
#include "platform/appfw/entity.h"
#include "platform/kfr/kfrserviceobject.h"

#include <functional>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// A list of entities as an object. Nothing is added to it and nothing dropped.
class EntityList final : public KFRServiceObjectImpl<appfw::IEntityListInterface> {
public:
    explicit EntityList(appfw::IEntities entities) : m_entities(std::move(entities)) {}

    KFRResult getEntities(appfw::IEntities& entities) override
    {
        entities = m_entities;
        return KFR::ok;
    }
    std::string getObjectName() override { return "vrn.orlo.host.model:EntityList"; }

private:
    appfw::IEntities m_entities;
};

/// All entities of the host, by reference: those that were added, and those that resolvers make
/// when they are asked for. Tells the entity service of the coming and going of what is added.
///
/// Order      Entities: as added. References: by the owner's instance number, null first, then by
///            type, number and sub-number; total.
/// Failure    As EntityFailure says; changes nothing then. A deleted object is not found.
/// Ownership  Holds the entities until they are removed.
/// Threads    Main thread.
/// Cost       By reference: one search in a map, then the resolvers. By name: a walk over all.
class RootManager final : public KFRServiceObjectImpl<appfw::IRootManagerInterface,
                                                      appfw::IInterfaceAdapterManagerInterface> {
public:
    using Entity = EntityService::Entity;
    /// Gives null for a reference that is not its own. Leaves the manager as it is.
    using Resolver = std::function<Entity(CAE::EntityReference const&)>;

    /// Keeps a resolver in use as long as it lives.
    ///
    /// Ownership  Holds the manager.
    class Registration {
    public:
        Registration() = default;
        Registration(Registration&& other) noexcept = default;
        Registration& operator=(Registration&& other) noexcept
        {
            drop();
            m_manager.swap(other.m_manager);
            m_number = other.m_number;
            return *this;
        }
        ~Registration() { drop(); }

    private:
        friend RootManager;
        Registration(RootManager& manager, int number) : m_manager(&manager), m_number(number) {}
        void drop() noexcept;

        KFRSmartPointer<RootManager> m_manager;
        int m_number = 0;
    };

    /// \param service  null for a manager that tells nobody
    explicit RootManager(std::shared_ptr<EntityService> service) : m_service(std::move(service)) {}

    /// Resolvers are asked in the order in which they came, after the entities that were added.
    [[nodiscard]] Registration addResolver(Resolver resolver);

    /// Fails for null, and for a reference that is known already.
    KFRResult add(Entity const& entity);
    /// Fails for a reference that is not known.
    KFRResult remove(CAE::EntityReference const& reference);
    /// As remove(), but nobody is told: for what closes without being deleted.
    KFRResult withdraw(CAE::EntityReference const& reference);

    KFRSmartPointer<appfw::IEntityInterface> getEntity(
        CAE::EntityReference const& reference) override;
    KFRSmartPointer<appfw::IEntityInterface> getEntityOfObject(KFRIService const& object) override;
    KFRSmartPointer<appfw::IEntityListInterface> createEntityList(
        appfw::IEntities const& entities) override;

    bool equals(CAE::EntityReference const& left, CAE::EntityReference const& right) override;
    bool lessThan(CAE::EntityReference const& left, CAE::EntityReference const& right) override;
    int hashCode(CAE::EntityReference const& reference) override;

    /// The first entity whose property "name" is this text; null when there is none.
    [[nodiscard]] Entity entityByName(std::string const& name) const;
    [[nodiscard]] std::vector<Entity> entities() const;

    std::string getObjectName() override { return "vrn.orlo.host.model:RootManager"; }

private:
    /// The entity that is no longer known; null, with the failure, when there was none.
    Entity take(CAE::EntityReference const& reference, KFRResult& result);

    std::shared_ptr<EntityService> m_service;
    std::list<Entity> m_entities;
    std::map<ReferenceKey, std::list<Entity>::iterator> m_byReference;  // each keeps its owner
    std::map<int, Resolver> m_resolvers;
    int m_lastResolver = 0;
};

}  // namespace vrn::orlo::host::model
