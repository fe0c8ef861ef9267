#include "host/model/entityservice.h"

#include "host/model/propertyvalue.h"

#include <algorithm>

namespace vrn::orlo::host::model {

namespace {

appfw::CmdParameters payloadOf(EntityService::Entity const& entity,
                               KFRSequence<std::string> const& properties)
{
    return {{"entity", KFRAny(entity)},
            {"reference", KFRAny(entity->getEntityReference())},
            {"properties", KFRAny(properties)}};
}

}  // namespace

EntityService::Batch::Batch(std::shared_ptr<EntityService> service) : m_service(std::move(service))
{
    if (m_service != nullptr) {
        m_service->enter();
    }
}

EntityService::Batch::~Batch()
{
    if (m_service != nullptr) {
        m_service->leave();
    }
}

EntityService::EntityService(KFRSmartPointer<KFRIEventManagerInterface> events)
    : m_domain(std::move(events), kEntityDomain)
{
}

// A single change is a batch of one.

void EntityService::created(Entity const& entity)
{
    enter();
    News& news = newsOf(entity, false);
    if (news.m_exists) {
        news.m_existed = false;  // its properties were set before it was made known
    } else {
        news.m_cameAgain = news.m_existed;
    }
    news.m_exists = true;
    leave();
}

void EntityService::modified(Entity const& entity, std::string const& property,
                             KFRAny const& before)
{
    enter();
    auto& known = newsOf(entity, true).m_before;
    auto const isOfProperty = [&property](auto const& row) {
        return row.first == property;
    };
    if (std::none_of(known.begin(), known.end(), isOfProperty)) {
        known.emplace_back(property, before);
    }
    leave();
}

void EntityService::deleted(Entity const& entity)
{
    enter();
    newsOf(entity, true).m_exists = false;
    leave();
}

void EntityService::refresh(Entity const& entity)
{
    enter();
    newsOf(entity, true).m_refresh = true;
    leave();
}

EntityService::News& EntityService::newsOf(Entity const& entity, bool existed)
{
    auto const [row, isNew] = m_newsByInstance.try_emplace(entity->getInstanceID(), m_news.size());
    if (isNew) {
        m_news.push_back({entity, existed, existed, false, false, {}});
    }
    return m_news[row->second];
}

void EntityService::leave() noexcept
{
    if (--m_depth > 0) {
        return;
    }
    // Taken over first: listeners may make news of their own.
    std::vector<News> const all = std::exchange(m_news, {});
    m_newsByInstance.clear();
    for (News const& news : all) {
        publish(news);
    }
}

void EntityService::publish(News const& news) const
{
    KFRSequence<std::string> changed;
    for (auto const& [property, before] : news.m_before) {
        KFRAny now;
        news.m_entity->getProperty(property, now);
        if (!isSameValue(before, now)) {
            changed.append(property);
        }
    }
    auto const tell = [&](EntityEvent event) {
        m_domain.publish(event, payloadOf(news.m_entity, changed));
    };
    if (news.m_exists && !news.m_existed) {
        tell(kEntityCreated);
    } else if (!news.m_exists && news.m_existed) {
        tell(kEntityDeleted);
    } else if (news.m_exists && (news.m_cameAgain || !changed.empty())) {
        tell(kEntityModified);
    }
    if (news.m_refresh && news.m_exists) {
        changed.clear();
        tell(kEntityRefresh);
    }
}

}  // namespace vrn::orlo::host::model
