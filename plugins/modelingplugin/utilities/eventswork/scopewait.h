/// \file
/// A marker around a long operation.

#pragma once

#include "platform/appfw/transactions.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Tells the command processor's state machine that a silent stretch begins, and at its end that it
/// is over: the shell's wait cursor hangs on that. It can hold a transaction meanwhile.
///
/// Failure    What the platform lacks or refuses is left out. A service of the wrong kind throws
///            KFRSystemException on construction, never at the end.
/// Threads    Main thread.
class MODELING_API ScopeWait {
public:
    ScopeWait(bool notify, bool transaction);
    ScopeWait(ScopeWait const&) = delete;
    ScopeWait& operator=(ScopeWait const&) = delete;
    /// Ends the transaction, then the stretch.
    ~ScopeWait();

private:
    bool m_notify;
    KFRSmartPointer<appfw::KFRITransactionInterface> m_transaction;
};

}  // namespace vrn::orlo::plugin::modeling
