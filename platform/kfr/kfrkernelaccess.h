/// \file
/// The kernel of the framework: its logger and its service manager, reached from anywhere.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <mutex>
#include <string>

namespace KFR::Framework {

/// The framework's logger.
class KFRILoggerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRILogger")

    /// \param text   one message, UTF-8, without a line end
    /// \param level  0 debug, 1 information, 2 warning, 3 error
    virtual KFRResult log(std::string const& text, int level) = 0;
};

/// Keeps the numbers of living objects.
///
/// Threads    Any thread.
class KFRIServiceManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIServiceManager")

    /// A number that no living object has; never 0.
    virtual long long allocInstanceId() = 0;
    virtual void freeInstanceId(long long id) = 0;

    /// Notes an object that the framework must see gone before it ends.
    virtual void trackInstance(long long id, std::string const& objectName) = 0;
    /// Names of the objects that are noted and have not given their number back, in order of
    /// number.
    virtual KFRSequence<std::string> getTrackedInstances() = 0;
};

/// What the host gives the framework.
class KFRIKernelAccessInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIKernelAccess")

    virtual KFRSmartPointer<KFRILoggerInterface> getLogger() = 0;
};

/// The kernel that the host set; null before it did.
[[nodiscard]] KFR_API KFRSmartPointer<KFRIKernelAccessInterface> getKernelAccessInterface();

/// Sets the kernel, or with null takes it away. The host's, at start and stop, on the main thread.
KFR_API void setKernelAccessInterface(KFRSmartPointer<KFRIKernelAccessInterface> kernel);

/// The process's service manager; there from the first call to the end of the process.
[[nodiscard]] KFR_API KFRIServiceManagerInterface* getServiceManagerInterface() noexcept;

/// The lock around first fetches of things of the kernel.
using RecursiveMutex = std::recursive_mutex;
using RecursiveLock = std::lock_guard<RecursiveMutex>;

}  // namespace KFR::Framework
