/// \file
/// The event manager's and the entities' end: objects that note what they are asked for.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "tests/support/platformscope.h"

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// Its notes are texts, with domains by name. What it answers is a failure, but for domains.
class FakeEventManager final : public KFRServiceObjectImpl<KFRIEventManagerInterface> {
public:
    using Listener = KFRSmartPointer<KFRIEventListenerInterface>;
    static constexpr int kAnswer = 4714;
    static constexpr long long kGuiChannel = 7;

    KFREvent lastEvent;
    KFRIService lastListener;
    std::function<void()> atAddListener = [] {
    };

    /// The id that a name has, or would have.
    static long long idOf(std::string const& name)
    {
        return static_cast<long long>(std::hash<std::string>()(name) >> 2) + 10000;
    }
    void put(std::string const& name) { m_names[idOf(name)] = name; }
    /// What was noted since the last call of this.
    std::vector<std::string> takeNotes() { return std::exchange(m_notes, {}); }

    KFRResult createDomainID(std::string const& name, long long& id) override
    {
        m_notes.push_back("create " + name);
        put(name);
        return getDomainID(name, id);
    }
    KFRResult getDomainID(std::string const& name, long long& id) override
    {
        bool const known = m_names.contains(idOf(name));
        id = known ? idOf(name) : id;
        return known ? KFR::ok : KFR::notDone;
    }
    KFRResult getChannelID(long long& id) override
    {
        id = kGuiChannel;
        return KFR::notDone;
    }
    KFRResult addListener(long long domain, Listener const& listener, int mode,
                          KFRSequence<int> const& ids) override
    {
        atAddListener();
        return note("listen", domain, textOf(ids) + " mode " + std::to_string(mode), listener);
    }
    KFRResult addListener(KFR::Framework::EventFilter const& filter,
                          Listener const& listener) override
    {
        return note("filter", filter.domain, textOf(filter.events), listener);
    }
    KFRResult addChannelListener(long long channel, Listener const& listener, int mode) override
    {
        return note("channel", channel, " mode " + std::to_string(mode), listener);
    }
    KFRResult removeListener(long long domain, Listener const& listener) override
    {
        return note("remove", domain, "", listener);
    }
    KFRResult publishEvent(KFREvent const& event, int flag) override
    {
        lastEvent = event;
        return note("publish", event.domain, textOf({event.eventId, flag}), {});
    }
    KFRResult fireEvent(KFREvent const& event, int flag, Listener const& listener) override
    {
        lastEvent = event;
        return note("fire", event.domain, textOf({event.eventId, flag}), listener);
    }

private:
    static std::string textOf(KFRSequence<int> const& numbers)
    {
        std::string text;
        for (int const number : numbers) {
            text += ' ' + std::to_string(number);
        }
        return text;
    }
    KFRResult note(std::string const& what, long long domain, std::string const& rest,
                   Listener const& listener)
    {
        auto const known = m_names.find(domain);
        std::string const name = known != m_names.end() ? known->second : std::to_string(domain);
        m_notes.push_back(what + ' ' + name + rest);
        lastListener = listener;
        return kAnswer;
    }

    std::map<long long, std::string> m_names;
    std::vector<std::string> m_notes;
};

/// The plug-in's initializer as a listener: leads to the hub.
class FakeInitializer final : public KFRServiceObjectImpl<KFRIEventListenerInterface> {
public:
    KFRResult handleEvent(KFREvent const& event) override
    {
        return EventHandler::instance()->handleEvent(event) == kHandled ? KFR::ok : KFR::notDone;
    }
};

/// A platform with both; at its end the hub is empty. The hub keeps the listener and the domains of
/// the process's first scope: tests that look at them need a fresh process.
struct EventScope {
    EventScope()
    {
        platform.services().put("KFR.Framework.EventManager", manager);
        platform.services().put("vrn.orlo.plugin.modeling.Initializer", initializer);
    }
    EventScope(EventScope const&) = delete;
    EventScope& operator=(EventScope const&) = delete;
    ~EventScope() { EventHandler::instance()->removeAllEventHandler(); }

    PlatformScope platform;
    KFRSmartPointer<FakeEventManager> manager = KFR::make<FakeEventManager>();
    KFRSmartPointer<FakeInitializer> initializer = KFR::make<FakeInitializer>();
};

class FakeEntity final
    : public KFRServiceObjectImpl<appfw::IEntityInterface, appfw::IEntityNotificationInterface> {
public:
    std::map<std::string, KFRAny> properties;
    std::vector<std::pair<std::string, KFRAny>> notifications;

    CAE::EntityReference getEntityReference() override { return {}; }
    KFRResult setProperty(std::string const& name, KFRAny const& value) override
    {
        properties[name] = value;
        return KFR::notDone;
    }
    KFRResult getProperty(std::string const&, KFRAny&) override { return KFR::notDone; }
    KFRResult notify(std::string const& name, KFRAny const& arguments) override
    {
        notifications.emplace_back(name, arguments);
        return KFR::notDone;
    }
};

}  // namespace vrn::orlo::plugin::modeling::test
