/// \file
/// Tells the application of changes to entities.

#pragma once

#include "host/model/eventdomain.h"
#include "platform/appfw/entity.h"
#include "platform/kfr/kfreventmanager.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

/// The domain of the events of entities.
inline constexpr char const* kEntityDomain = "vrn.orlo.appfw.Entity";

/// Events of the domain.
enum EntityEvent : int {
    kEntityCreated = 1,
    kEntityModified = 2,
    kEntityDeleted = 3,
    kEntityRenamed = 9,  ///< Never sent: a new name is a modification of the property "name".
    kEntityRefresh = 15,
};

/// Publishes what happens to entities.
///
/// An event's payload is CmdParameters: "entity", the handle; "reference", its EntityReference;
/// "properties", a KFRSequence<std::string> of the names of the properties that have changed.
///
/// Order      As told; after a batch, in the order in which its entities were first touched.
/// Threads    Main thread. Listeners may change entities while they are called.
class EntityService {
public:
    using Entity = KFRSmartPointer<appfw::IEntityInterface>;

    /// While one lives nothing is published; when the outermost goes, what has come together is:
    /// an entity's events once, and only what differs between the two ends. A property that has its
    /// old value again was not changed, an entity that came and went never was, and one that went
    /// and came again was modified. A refresh that was asked for comes after all that.
    ///
    /// Ownership  Holds the service.
    class Batch {
    public:
        /// \param service  may be null: then there is nothing to hold back
        explicit Batch(std::shared_ptr<EntityService> service);
        Batch(Batch const&) = delete;
        Batch& operator=(Batch const&) = delete;
        ~Batch();

    private:
        std::shared_ptr<EntityService> m_service;
    };

    /// Creates the domain.
    /// \param events  null for a service that publishes nothing
    explicit EntityService(KFRSmartPointer<KFRIEventManagerInterface> events);

    void created(Entity const& entity);
    /// \param before  the value that the property had; what it has now is asked of the entity
    void modified(Entity const& entity, std::string const& property, KFRAny const& before);
    void deleted(Entity const& entity);
    void refresh(Entity const& entity);

private:
    struct News {
        Entity m_entity;
        bool m_existed;
        bool m_exists;
        bool m_cameAgain = false;
        bool m_refresh = false;
        std::vector<std::pair<std::string, KFRAny>> m_before;
    };

    News& newsOf(Entity const& entity, bool existed);
    void enter() noexcept { ++m_depth; }
    void leave() noexcept;
    void publish(News const& news) const;

    EventDomain m_domain;
    int m_depth = 0;
    std::vector<News> m_news;
    std::unordered_map<long long, std::size_t> m_newsByInstance;
};

}  // namespace vrn::orlo::host::model
