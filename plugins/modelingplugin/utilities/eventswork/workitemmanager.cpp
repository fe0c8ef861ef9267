#include "plugins/modelingplugin/utilities/eventswork/workitemmanager.h"

#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/databunch.h"
#include "plugins/modelingplugin/utilities/eventswork/workcommandimpl.h"

namespace vrn::orlo::plugin::modeling {

namespace {

void run(std::function<void()> const& work, bool showWait, bool queueAlways)
{
    std::string const name = std::string("VRN.ModelingPlugin") + ".ModelingWorkCommand";
    KFRSmartPointer<KFRIWorkCommandInterface> const command = KFR::make<WorkCommandImpl>(work);
    DataBunch const bunch{
        {"workCommand", command}, {"showWait", showWait}, {"queueAlways", queueAlways}};
    auto const executive =
        KFR::strict_cast<appfw::KFRIGuiExecutive>(ServiceHelper::getGuiExeutive());
    if (executive != KFR::NULLSP) {
        static_cast<void>(executive->run(name, bunch.toKFRAny()));
    }
}

}  // namespace

WorkItemManager* WorkItemManager::instance()
{
    static WorkItemManager manager;
    return &manager;
}

void WorkItemManager::push(std::function<void()> const& work, bool showWait)
{
    run(work, showWait, true);
}

void WorkItemManager::execAsyncOnWorkThread(std::function<void()> const& work, bool showWait)
{
    run(work, showWait, false);
}

}  // namespace vrn::orlo::plugin::modeling
