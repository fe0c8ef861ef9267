/// \file
/// Opens transactions.

#pragma once

#include "host/commands/hostcommand.h"
#include "platform/appfw/transactions.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <string>
#include <utility>

namespace vrn::orlo::host::commands {

/// A transaction makes one step of all runs that can be undone from its opening to its end. One
/// inside another is merged into it, and one inside a command into the command's step. An outer one
/// that is ended first goes on until those inside have ended. A transaction whose last handle is
/// dropped has ended.
///
/// Failure    createTransaction: kNoProcessor, and kBusy while a step is undone or redone. end:
///            kEnded on a second call; the first is OK also when the processor has gone.
/// Ownership  Holds neither the processor nor the transactions.
/// Threads    Main thread.
class TransactionBroker final
    : public KFRServiceObjectImpl<appfw::KFRITransactionBrokerFactoryInterface> {
public:
    /// \param link  of the processor whose runs are joined
    explicit TransactionBroker(std::weak_ptr<ProcessorLink> link) : m_link(std::move(link)) {}

    KFRResult createTransaction(
        KFRSmartPointer<appfw::KFRITransactionInterface>& transaction) override;

    std::string getObjectName() override { return "vrn.orlo.host.commands:TransactionBroker"; }

private:
    std::weak_ptr<ProcessorLink> m_link;
};

}  // namespace vrn::orlo::host::commands
