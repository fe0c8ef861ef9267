#include "plugins/modelingplugin/utilities/eventswork/flagmanager.h"

#include "plugins/modelingplugin/utilities/eventswork/workitemmanager.h"

namespace vrn::orlo::plugin::modeling {

FlagManager* FlagManager::instance()
{
    static FlagManager manager;
    return &manager;
}

void FlagManager::reset()
{
    m_ignoreEventUpdate = false;
    m_renumbering = false;
}

void FlagManager::ignoreEventUpdateInCommand()
{
    m_ignoreEventUpdate = true;
    WorkItemManager::instance()->push([this] { m_ignoreEventUpdate = false; }, true);
}

}  // namespace vrn::orlo::plugin::modeling
