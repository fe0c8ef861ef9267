#include "plugins/modelingplugin/utilities/eventswork/createentityhelper.h"

#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"

namespace vrn::orlo::plugin::modeling {

KFRSmartPointer<IBaseEntityInterface> CreateEntityHelper::create(DataBunch const& params)
{
    CmdInvoker command(m_commandName, "VRN.ModelingPlugin");
    static_cast<void>(command.invoke(params));
    KFRSmartPointer<IBaseEntityInterface> entity;
    static_cast<void>(command.getReturnValue() >>= entity);
    return entity;
}

}  // namespace vrn::orlo::plugin::modeling
