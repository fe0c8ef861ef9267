#include "plugins/modelingplugin/utilities/eventswork/scopewait.h"

#include "platform/appfw/frameworkaccess.h"
#include "platform/kfr/kfreventmanager.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

constexpr int kBegin = 20;
constexpr int kEnd = 21;

void tell(int eventId)
{
    auto const framework =
        KFR::strict_cast<appfw::IFrameworkAccessInterface>(ServiceHelper::getFrameworkAccess());
    KFRSmartPointer<appfw::KFRIStateServiceInterface> states;
    if (framework != NULLSP) {
        static_cast<void>(framework->getStateService(states));
    }
    if (states == NULLSP) {
        return;
    }
    KFREvent event = initKFREvent();
    event.eventId = eventId;
    auto const events =
        KFR::strict_cast<KFRIEventManagerInterface>(ServiceHelper::getEventManager());
    if (events != NULLSP) {
        // A look-up only: the domain is the processor's to create.
        static_cast<void>(events->getDomainID("vrn.orlo.appfw.CmdProcessor", event.domain));
    }
    static_cast<void>(states->send("appfw.CommandSS", event, 0));
}

}  // namespace

ScopeWait::ScopeWait(bool notify, bool transaction) : m_notify(notify)
{
    if (m_notify) {
        tell(kBegin);
    }
    if (transaction) {
        auto const broker = KFR::strict_cast<appfw::KFRITransactionBrokerFactoryInterface>(
            ServiceHelper::getTransactionBroker());
        if (broker != NULLSP) {
            static_cast<void>(broker->createTransaction(m_transaction));
        }
    }
}

ScopeWait::~ScopeWait()
{
    if (m_transaction != NULLSP) {
        static_cast<void>(m_transaction->end());
        m_transaction.release();
    }
    if (m_notify) {
        tell(kEnd);
    }
}

}  // namespace vrn::orlo::plugin::modeling
