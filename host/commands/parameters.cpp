#include "host/commands/parameters.h"

namespace vrn::orlo::host::commands {

KFRAny const* findParameter(appfw::CmdParameters const& parameters, std::string_view name) noexcept
{
    KFRAny const* found = nullptr;
    for (appfw::CmdParameter const& parameter : parameters) {
        if (parameter.name == name) {
            found = &parameter.value;
        }
    }
    return found;
}

}  // namespace vrn::orlo::host::commands
