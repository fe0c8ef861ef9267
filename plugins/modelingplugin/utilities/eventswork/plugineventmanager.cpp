#include "plugins/modelingplugin/utilities/eventswork/plugineventmanager.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

constexpr int kMode = 2;
constexpr int kPublishFlag = 0;
constexpr int kFireFlag = 1;

KFREvent eventOf(long long domain, int event, KFRAny const& payload)
{
    KFREvent made = initKFREvent();
    made.domain = domain;
    made.eventId = event;
    made.payload = payload;
    return made;
}

}  // namespace

long long PluginEventManager::s_modelingDomain = 0;
long long PluginEventManager::s_guiChannel = 0;

PluginEventManager::PluginEventManager()
    : m_eventManager(KFR::strict_cast<KFRIEventManagerInterface>(ServiceHelper::getEventManager()))
{
    std::string const name = "VRN.Tamarak.Plugins.ModelingPlugin";
    if (!getDomainID(name, s_modelingDomain).isOk()) {
        static_cast<void>(createDomainID(name, s_modelingDomain));
    }
}

KFRResult PluginEventManager::createDomainID(std::string const& name, long long& id)
{
    return m_eventManager != NULLSP ? m_eventManager->createDomainID(name, id) : KFR::ok;
}

KFRResult PluginEventManager::getDomainID(std::string const& name, long long& id)
{
    return m_eventManager != NULLSP ? m_eventManager->getDomainID(name, id) : KFR::ok;
}

KFRResult PluginEventManager::addListener(long long& domain, int const& event, Listener listener)
{
    return m_eventManager != NULLSP
               ? m_eventManager->addListener(domain, listener, kMode, KFRSequence<int>{event})
               : KFR::ok;
}

KFRResult PluginEventManager::addListener(int const& event, Listener listener)
{
    return addListener(s_modelingDomain, event, listener);
}

KFRResult PluginEventManager::addListener(EventFilter const& filter, Listener listener)
{
    return m_eventManager != NULLSP ? m_eventManager->addListener(filter, listener) : KFR::ok;
}

KFRResult PluginEventManager::addChannelListener(long long const& channel, Listener listener)
{
    return m_eventManager != NULLSP ? m_eventManager->addChannelListener(channel, listener, kMode)
                                    : KFR::ok;
}

KFRResult PluginEventManager::addChannelListener(Listener listener)
{
    if (m_eventManager != NULLSP) {
        static_cast<void>(m_eventManager->getChannelID(s_guiChannel));
    }
    return addChannelListener(s_guiChannel, listener);
}

KFRResult PluginEventManager::removeListener(long long& domain, Listener listener)
{
    return m_eventManager != NULLSP ? m_eventManager->removeListener(domain, listener) : KFR::ok;
}

KFRResult PluginEventManager::removeListener(Listener listener)
{
    return removeListener(s_modelingDomain, listener);
}

KFRResult PluginEventManager::publishEvent(int const& event, KFRAny const& payload)
{
    return publishEvent(s_modelingDomain, event, payload);
}

KFRResult PluginEventManager::publishEvent(long long const& domain, int const& event,
                                           KFRAny const& payload)
{
    return m_eventManager != NULLSP
               ? m_eventManager->publishEvent(eventOf(domain, event, payload), kPublishFlag)
               : KFR::ok;
}

KFRResult PluginEventManager::fireEvent(int const& event, KFRAny const& payload, Listener listener)
{
    return fireEvent(s_modelingDomain, event, payload, listener);
}

KFRResult PluginEventManager::fireEvent(long long& domain, int const& event, KFRAny const& payload,
                                        Listener listener)
{
    return m_eventManager != NULLSP
               ? m_eventManager->fireEvent(eventOf(domain, event, payload), kFireFlag, listener)
               : KFR::ok;
}

}  // namespace vrn::orlo::plugin::modeling
