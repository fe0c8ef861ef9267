/// \file
/// Creating entities.

#pragma once

#include "platform/baseplugin/baseentity.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"

#include <string>

namespace vrn::orlo::plugin::modeling {

using baseplugin::IBaseEntityInterface;

/// Creates entities by a command of the modeling plug-in.
///
/// Threads    Main thread.
class MODELING_API CreateEntityHelper {
public:
    explicit CreateEntityHelper(std::string const& commandName) : m_commandName(commandName) {}

    /// Runs the command.
    /// \return the entity that the command returned; null without a command or a return value, and
    ///         for a return value of another kind
    KFRSmartPointer<IBaseEntityInterface> create(DataBunch const& params);

private:
    std::string m_commandName;
};

}  // namespace vrn::orlo::plugin::modeling
