#include "host/commands/transactionbroker.h"

#include "host/commands/commandfailure.h"
#include "host/kernel/frameworklog.h"

namespace vrn::orlo::host::commands {

namespace {

class Transaction final : public KFRServiceObjectImpl<appfw::KFRITransactionInterface> {
public:
    explicit Transaction(std::shared_ptr<ProcessorLink> const& link)
        : m_link(link), m_group(link->m_history.open())
    {
    }

    KFRResult end() override
    {
        if (m_hasEnded) {
            return failure(kEnded, "The transaction has ended already.");
        }
        m_hasEnded = true;
        if (auto const link = m_link.lock()) {
            link->m_history.close(m_group);
        }
        return KFR::ok;
    }

protected:
    ~Transaction() override
    {
        if (m_hasEnded) {
            return;
        }
        KFRResult const ended = guarded("Ending a transaction", [this] { return end(); });
        if (!ended.isOk()) {
            kernel::logToFramework(failureText(ended), kernel::LogLevel::error);
        }
    }

private:
    std::weak_ptr<ProcessorLink> m_link;
    UndoStack::GroupId m_group;
    bool m_hasEnded = false;
};

}  // namespace

KFRResult TransactionBroker::createTransaction(
    KFRSmartPointer<appfw::KFRITransactionInterface>& transaction)
{
    auto const link = m_link.lock();
    if (link == nullptr) {
        return failure(kNoProcessor, "The command processor has gone.");
    }
    if (link->m_history.isReplaying()) {
        return failure(kBusy, "Cannot open a transaction while a step is undone or redone.");
    }
    transaction = KFR::make<Transaction>(link);
    return KFR::ok;
}

}  // namespace vrn::orlo::host::commands
