#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include "platform/servicecaches/servicecachemodelingplugin.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectfiltertable.h"

namespace vrn::orlo::plugin::modeling {

SelectFilter* SelectFilter::instance()
{
    static SelectFilter* ready = nullptr;
    if (ready == nullptr) {
        static SelectFilter filter;
        filter.initialize();  // may throw: then the next call comes here again
        ready = &filter;
    }
    return ready;
}

void SelectFilter::initialize()
{
    m_displayManager =
        KFR::strict_cast<ddm::KFRIDisplay3DDataManager>(ServiceHelper::getDisplayDataManager());
    m_selectionManager = ServiceCacheModelingPlugin::selectionManager_;
    if (m_selectionManager != KFR::NULLSP) {
        static_cast<void>(m_selectionManager->getPickFilterManager(m_pickFilterManager));
    }
    m_table = buildTable();
}

SelectFilter::Table SelectFilter::buildTable()
{
    Table table;
    for (detail::SelectFilterRow const& row : detail::kSelectFilterRows) {
        table[row.m_type].push_back(EntityTypeID(*row.m_name).typeID());
    }
    return table;
}

unsigned int SelectFilter::getTypeID(SelectFilterType const& type)
{
    Table const& table = instance()->m_table;
    auto const kind = table.find(type);
    return kind == table.end() || kind->second.empty() ? 0 : kind->second.front();
}

}  // namespace vrn::orlo::plugin::modeling
