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

KFRSmartPointer<appfw::KFRITransactionInterface> openTransaction()
{
    KFRSmartPointer<appfw::KFRITransactionInterface> transaction;
    auto const broker = KFR::strict_cast<appfw::KFRITransactionBrokerFactoryInterface>(
        ServiceHelper::getTransactionBroker());
    if (broker != NULLSP) {
        static_cast<void>(broker->createTransaction(transaction));
    }
    return transaction;
}

}  // namespace

ScopeWait::ScopeWait(bool notify, bool transaction) : m_notify(notify)
{
    if (m_notify) {
        tell(kBegin);
    }
    if (!transaction) {
        return;
    }
    try {
        m_transaction = openTransaction();
    } catch (...) {
        if (m_notify) {
            tell(kEnd);  // no destructor will
        }
        throw;
    }
}

ScopeWait::~ScopeWait()
{
    // Nothing may leave a destructor, and each step is owed whatever becomes of the other.
    try {
        if (m_transaction != NULLSP) {
            static_cast<void>(m_transaction->end());
            m_transaction.release();
        }
    } catch (...) {
        m_transaction.release();
    }
    try {
        if (m_notify) {
            tell(kEnd);
        }
    } catch (...) {
        return;
    }
}

}  // namespace vrn::orlo::plugin::modeling
