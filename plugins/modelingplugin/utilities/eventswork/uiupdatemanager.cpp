#include "plugins/modelingplugin/utilities/eventswork/uiupdatemanager.h"

#include <algorithm>
#include <mutex>
#include <ranges>

namespace vrn::orlo::plugin::modeling {

namespace {

constexpr unsigned char kDisabled = 1;

}  // namespace

tbb_compat::critical_section UIUpdateManager::s_lock;

bool UIUpdateProxy::regist(std::string const& name)
{
    return UIUpdateManager::instance()->regist(name, this);
}

bool UIUpdateProxy::isRefreshEnabled(std::string const& name)
{
    return UIUpdateManager::instance()->isRefreshEnabled(name);
}

UIUpdateManager* UIUpdateManager::instance()
{
    static UIUpdateManager manager;
    return &manager;
}

bool UIUpdateManager::regist(std::string const& name, UIUpdateProxy* proxy)
{
    std::lock_guard const lock(s_lock);
    auto const [first, last] = m_proxies.equal_range(name);
    if (std::any_of(first, last, [proxy](auto const& row) { return row.second == proxy; })) {
        return false;
    }
    m_proxies.emplace(name, proxy);
    return true;
}

void UIUpdateManager::disableRefresh(std::string const& name)
{
    std::lock_guard const lock(s_lock);
    m_disabled[name] = kDisabled;
}

void UIUpdateManager::enableRefresh(std::string const& name, bool refreshNow)
{
    {
        std::lock_guard const lock(s_lock);
        m_disabled[name] = 0;
    }
    if (refreshNow) {
        refresh(name);
    }
}

bool UIUpdateManager::isRefreshEnabled(std::string const& name)
{
    std::lock_guard const lock(s_lock);
    auto const row = m_disabled.find(name);
    return row == m_disabled.end() || row->second != kDisabled;
}

void UIUpdateManager::refresh(std::string const& name)
{
    std::lock_guard const lock(s_lock);
    auto const [first, last] = m_proxies.equal_range(name);
    for (auto row = first; row != last; ++row) {
        row->second->refresh();
    }
}

}  // namespace vrn::orlo::plugin::modeling
