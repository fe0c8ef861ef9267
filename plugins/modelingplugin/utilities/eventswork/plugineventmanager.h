/// \file
/// Publishing events, and listening without the hub.

#pragma once

#include "platform/kfr/kfreventmanager.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

namespace vrn::orlo::plugin::modeling {

/// A thin layer over the event manager that knows the modeling plug-in's domain.
///
/// Failure    The event manager's results. Without an event manager every operation is OK and does
///            nothing.
/// Threads    A value; the two ids that all share are set by each construction.
class MODELING_API PluginEventManager {
public:
    using Listener = KFRSmartPointer<KFRIEventListenerInterface>;
    using EventFilter = KFR::Framework::EventFilter;

    /// Finds the event manager and the modeling plug-in's domain, which is created if need be.
    PluginEventManager();

    KFRResult createDomainID(std::string const& name, long long& id);
    KFRResult getDomainID(std::string const& name, long long& id);

    // Without a domain: the modeling plug-in's.
    KFRResult addListener(long long& domain, int const& event, Listener listener);
    KFRResult addListener(int const& event, Listener listener);
    KFRResult addListener(EventFilter const& filter, Listener listener);
    KFRResult addChannelListener(long long const& channel, Listener listener);
    /// To the channel of the graphical surface.
    KFRResult addChannelListener(Listener listener);
    KFRResult removeListener(long long& domain, Listener listener);
    KFRResult removeListener(Listener listener);

    KFRResult publishEvent(int const& event, KFRAny const& payload);
    KFRResult publishEvent(long long const& domain, int const& event, KFRAny const& payload);
    /// To one listener.
    KFRResult fireEvent(int const& event, KFRAny const& payload, Listener listener);
    KFRResult fireEvent(long long& domain, int const& event, KFRAny const& payload,
                        Listener listener);

private:
    KFRSmartPointer<KFRIEventManagerInterface> m_eventManager;
    static long long s_modelingDomain;
    static long long s_guiChannel;
};

}  // namespace vrn::orlo::plugin::modeling
