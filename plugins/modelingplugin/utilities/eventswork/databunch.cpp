#include "plugins/modelingplugin/utilities/eventswork/databunch.h"

namespace vrn::orlo::plugin::modeling {

using appfw::CmdParameters;

DataBunch::DataBunch(std::initializer_list<BunchItem> const& items)
{
    for (BunchItem const& item : items) {
        m_items.insert_or_assign(item.name, item.value);
    }
}

DataBunch::DataBunch(CmdParameters const& parameters)
{
    take(parameters);
}

DataBunch::DataBunch(KFRAny const& any)
{
    if (auto const* const parameters = any.get<CmdParameters>(); parameters != nullptr) {
        take(*parameters);
    }
}

void DataBunch::take(CmdParameters const& parameters)
{
    for (appfw::CmdParameter const& parameter : parameters) {
        // Mostly sorted already, since bunches write them so.
        m_items.insert_or_assign(m_items.end(), parameter.name, parameter.value);
    }
}

bool DataBunch::queryData(std::string const& name, KFRAny& value) const
{
    auto const item = m_items.find(name);
    if (item == m_items.end()) {
        return false;
    }
    value = item->second;
    return true;
}

CmdParameters DataBunch::toCmdParams() const
{
    CmdParameters parameters;
    parameters.reserve(m_items.size());
    for (auto const& [name, value] : m_items) {
        parameters.append({name, value});
    }
    return parameters;
}

KFRAny DataBunch::toKFRAny() const
{
    return KFRAny(toCmdParams());
}

}  // namespace vrn::orlo::plugin::modeling
