/// \file
/// Finds the entities of the host.

#pragma once

#include "host/model/entityservice.h"
#include "platform/appfw/entity.h"
#include "platform/kfr/kfrserviceobject.h"

#include <compare>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::model {

/// All entities that are part of the model, by reference. Tells the entity service of their coming
/// and going.
///
/// Order      As added.
/// Failure    As EntityFailure says; changes nothing then.
/// Ownership  Holds the entities until they are removed.
/// Threads    Main thread.
/// Cost       By reference: one search in a map. By name: a walk over all.
class RootManager final : public KFRServiceObjectImpl<appfw::IRootManagerInterface> {
public:
    using Entity = EntityService::Entity;

    /// \param service  null for a manager that tells nobody
    explicit RootManager(std::shared_ptr<EntityService> service) : m_service(std::move(service)) {}

    /// Fails for null, and for a reference that is known already.
    KFRResult add(Entity const& entity);
    /// Fails for a reference that is not known.
    KFRResult remove(CAE::EntityReference const& reference);

    KFRSmartPointer<appfw::IEntityInterface> getEntity(
        CAE::EntityReference const& reference) override;
    /// The first entity whose property "name" is this text; null when there is none.
    [[nodiscard]] Entity entityByName(std::string const& name) const;
    [[nodiscard]] std::vector<Entity> entities() const;

    std::string getObjectName() override { return "vrn.orlo.host.model:RootManager"; }

private:
    /// A reference with its owner as a number; the entity keeps the owner alive, and so the number
    /// its own.
    struct Key {
        long long m_owner;
        unsigned int m_typeId;
        unsigned int m_id;
        unsigned int m_subId;

        friend auto operator<=>(Key const&, Key const&) = default;
    };
    [[nodiscard]] static Key keyOf(CAE::EntityReference const& reference);

    std::shared_ptr<EntityService> m_service;
    std::list<Entity> m_entities;
    std::map<Key, std::list<Entity>::iterator> m_byReference;
};

}  // namespace vrn::orlo::host::model
