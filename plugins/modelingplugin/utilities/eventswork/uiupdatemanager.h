/// \file
/// Refreshes of the user interface, by name.

#pragma once

#include "platform/deps/btree.h"
#include "platform/deps/critical_section.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Something that can be refreshed.
///
/// Ownership  Once registered it has to live as long as the process: nothing takes it out again.
class MODELING_API UIUpdateProxy {
public:
    /// Called with the manager's lock held: it must not call the manager back, which would throw
    /// tbb_compat::improper_lock.
    virtual void refresh() = 0;

    /// Registers this proxy. \return as UIUpdateManager::regist
    bool regist(std::string const& name);
    static bool isRefreshEnabled(std::string const& name);

protected:
    UIUpdateProxy() = default;
    UIUpdateProxy(UIUpdateProxy const&) = default;
    UIUpdateProxy& operator=(UIUpdateProxy const&) = default;
    ~UIUpdateProxy() = default;
};

/// Proxies by name, and a switch per name that holds refreshes back.
///
/// Order      Proxies of a name are refreshed in the order of their registration.
/// Threads    Any; one lock, which a thread must not enter twice.
class MODELING_API UIUpdateManager {
public:
    static UIUpdateManager* instance();
    UIUpdateManager(UIUpdateManager const&) = delete;
    UIUpdateManager& operator=(UIUpdateManager const&) = delete;

    /// False for a proxy that is registered under this name already.
    bool regist(std::string const& name, UIUpdateProxy* proxy);

    void disableRefresh(std::string const& name);
    /// \param refreshNow  refreshes afterwards
    void enableRefresh(std::string const& name, bool refreshNow);
    /// True for every name that nobody has disabled.
    bool isRefreshEnabled(std::string const& name);

    /// Refreshes all proxies of the name, disabled or not: who wants a refresh asks
    /// isRefreshEnabled() first.
    void refresh(std::string const& name);

private:
    UIUpdateManager() = default;
    ~UIUpdateManager() = default;

    std::multimap<std::string, UIUpdateProxy*> m_proxies;
    btree::btree_map<std::string, unsigned char> m_disabled;  // 1: disabled
    static tbb_compat::critical_section s_lock;               // guards both maps
};

}  // namespace vrn::orlo::plugin::modeling
