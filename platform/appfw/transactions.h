/// \file
/// Transactions: several commands as one step for the user.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::appfw {

class KFRITransactionInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRITransaction")

    /// Closes the transaction. A second call fails.
    virtual KFRResult end() = 0;
};

class KFRITransactionBrokerFactoryInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRITransactionBrokerFactory")

    /// Opens a transaction. Fails with `transaction` as it was.
    virtual KFRResult createTransaction(KFRSmartPointer<KFRITransactionInterface>& transaction) = 0;
};

}  // namespace vrn::orlo::appfw
