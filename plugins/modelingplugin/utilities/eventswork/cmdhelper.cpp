#include "plugins/modelingplugin/utilities/eventswork/cmdhelper.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

KFRResult CmdHelper::call(std::string name, appfw::CmdParameters const& params)
{
    auto const processor =
        KFR::strict_cast<appfw::ICmdProcessorInterface>(ServiceHelper::getCmdProcessor());
    if (processor == KFR::NULLSP) {
        KFRResult result(KFR::notDone);
        result.addParam("Command not exist.");
        return result;
    }
    appfw::CmdInvocationRequest const request{"VRN.ModelingPlugin", std::move(name), {}};
    appfw::CmdOptions options;
    static_cast<void>(processor->getCommandOptions(request, options));
    return processor->executeCommand(request, options, params);
}

KFRResult CmdHelper::call(ICmdParams* params)
{
    return call(params->getCommandName(), params->getParameters());
}

}  // namespace vrn::orlo::plugin::modeling
