#include "plugins/modelingplugin/utilities/eventswork/workcommandimpl.h"

#include <utility>

namespace vrn::orlo::plugin::modeling {

WorkCommandImpl::WorkCommandImpl(std::function<void()> const& work) : m_work(work)
{
    // The service manager's number is taken now and not at the first question; the base gives it
    // back.
    static_cast<void>(getInstanceID());
}

WorkCommandImpl::~WorkCommandImpl() = default;

KFRResult WorkCommandImpl::execute()
{
    // Out of the object first: the function may lead to a second call.
    if (auto const work = std::exchange(m_work, nullptr)) {
        work();
    }
    return KFR::ok;
}

std::string WorkCommandImpl::getObjectName()
{
    return "vrn.orlo.plugin.modeling:WorkCommandImpl";
}

}  // namespace vrn::orlo::plugin::modeling
