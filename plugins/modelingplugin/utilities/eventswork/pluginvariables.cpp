#include "plugins/modelingplugin/utilities/eventswork/pluginvariables.h"

namespace vrn::orlo::plugin::modeling {

std::map<std::string, DataBunch>& PluginVariables::store()
{
    // A map of nodes: a B-tree would move its values when others are inserted.
    static std::map<std::string, DataBunch> variables;
    return variables;
}

DataBunch* PluginVariables::createVariables(std::string const& key)
{
    return &store()[key];
}

DataBunch* PluginVariables::getVariables(std::string const& key)
{
    auto const found = store().find(key);
    return found != store().end() ? &found->second : nullptr;
}

void PluginVariables::removeVariables(std::string const& key)
{
    store().erase(key);
}

}  // namespace vrn::orlo::plugin::modeling
