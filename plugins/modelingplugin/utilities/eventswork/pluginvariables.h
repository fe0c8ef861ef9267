/// \file
/// Values that tools keep between commands.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling {

/// Bunches by name, for the length of the process.
///
/// Ownership  The pointers are into the store; they hold until removeVariables() of their name,
///            whatever else comes and goes.
/// Threads    Main thread, no lock.
class MODELING_API PluginVariables {
public:
    PluginVariables() = delete;

    /// The bunch of that name with its values, made empty if there is none.
    static DataBunch* createVariables(std::string const& key);
    /// Null when there is none.
    static DataBunch* getVariables(std::string const& key);
    static void removeVariables(std::string const& key);

private:
    static std::map<std::string, DataBunch>& store();
};

}  // namespace vrn::orlo::plugin::modeling
