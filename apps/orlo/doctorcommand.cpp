#include "apps/orlo/commands.h"
#include "apps/orlo/console.h"
#include "apps/orlo/session.h"
#include "host/kernel/servicename.h"
#include "platform/appfw/appfw.h"
#include "platform/appfw/entity.h"
#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::LocalStr;
using plugin::modeling::ServiceHelper;

struct HeldRow {
    char const* m_operation;
    char const* m_member;
    KFRIService (*m_ask)();
};

constexpr std::array kHeld{
#define HELD_SERVICE(operation, member) HeldRow{#operation, #member, &ServiceHelper::operation},
#include "platform/heldservices.def"
};

std::string answerOf(KFRIService const& service)
{
    return service == KFR::NULLSP ? "-" : service->getObjectName();
}

void printRow(std::string const& operation, std::string const& name, KFRIService const& service)
{
    std::printf("  %-33s %-62s %s\n", operation.c_str(), name.c_str(), answerOf(service).c_str());
}

}  // namespace

int doctor(SessionOptions const& sessionOptions)
{
    Session session(sessionOptions);
    std::printf("component %s\n", session.component().m_path.c_str());
    for (auto const& [key, value] : session.component().m_info) {
        std::printf("  %-20s %s\n", key.c_str(), value.c_str());
    }
    std::printf("  %s\n\n", plugin::modeling::componentinfo::description().c_str());

    constexpr int kRangeMessage = 10614;
    std::printf("messages read like this: %s\n\n",
                LocalStr(kRangeMessage).format(u"x", u"0", u"1").getStr().c_str());

    std::printf("services by name: operation, name, what answers\n");
    std::size_t answering = 0;
    for (auto const& row : host::kernel::applicationServices()) {
        std::string const name(row.m_name);
        KFRIService const service = ServiceHelper::getServiceByName(name);
        answering += service != KFR::NULLSP ? 1 : 0;
        printRow(std::string(row.m_operation), name, service);
    }
    std::printf("\nservices that are held: operation, holder's member, what answers\n");
    for (HeldRow const& row : kHeld) {
        KFRIService const service = row.m_ask();
        answering += service != KFR::NULLSP ? 1 : 0;
        printRow(row.m_operation, row.m_member, service);
    }
    KFRIService const rootManager = ServiceHelper::getRootManager();
    answering += rootManager != KFR::NULLSP ? 1 : 0;
    printRow("getRootManager", "rootManager_", rootManager);

    std::printf("\nservices of this host: name\n");
    for (std::string const& name : session.kernel().services().names()) {
        std::printf("  %s\n", name.c_str());
    }
    std::printf("\n%zu of %zu services answer; \"-\" is a service that this host does not have\n",
                answering, host::kernel::applicationServices().size() + kHeld.size() + 1);
    if (!session.isConnected()) {
        reportError("the component is loaded, but its service " +
                    std::string(host::kernel::componentService()) + " does not answer");
        return kToolFailed;
    }
    return kDone;
}

}  // namespace vrn::orlo::app
