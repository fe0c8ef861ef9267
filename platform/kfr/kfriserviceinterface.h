/// \file
/// The root of all interfaces, and the two lines by which an interface names itself.

#pragma once

#include "platform/kfr/kfrtypecode.h"

#include <string>

/// Names an interface: its type name as a text, its identifier being a hash of that name. To stand
/// first in the class, which it leaves in its public section.
#define KFR_INTERFACE(typeName) KFR_INTERFACE_ID_IMPL(typeName, KFRUUID::ofName(typeName))

/// The same for an interface whose identifier words are given.
#define KFR_INTERFACE_ID(typeName, high, low) KFR_INTERFACE_ID_IMPL(typeName, (KFRUUID{high, low}))

#define KFR_INTERFACE_ID_IMPL(typeName, id)                            \
public:                                                                \
    static constexpr char const* kfrTypeName() noexcept                \
    {                                                                  \
        return typeName;                                               \
    }                                                                  \
    static constexpr KFRUUID kfrInterfaceId() noexcept                 \
    {                                                                  \
        return id;                                                     \
    }                                                                  \
    static KFRTypeCode kfrTypeCode() noexcept                          \
    {                                                                  \
        static constinit KFRTypeCodeRecord const record(typeName, id); \
        return KFRTypeCode(record);                                    \
    }

/// Answers of KFRIServiceInterface::getInterface. 0 is success; what is not listed is an error of
/// the object's own.
namespace KFR {
enum InterfaceQueryResult : int {
    kInterfaceFound = 0,
    kInterfaceNotImplemented = 1,
    kTypeCodeNotLoaded = 2,
    kNoProxy = 3,
    // A bridge to another language answers with its kind's number plus a code below 100.
    kCorbaBridge = 100,
    kCppBridge = 200,
    kJavaBridge = 300,
    kPythonBridge = 400,
    kDotNetBridge = 500,
    kBridgeEnd = 600,
};
}  // namespace KFR

/// Root of every interface of the platform.
///
/// Ownership  Counted. An object is made with one reference, which belongs to its maker, and goes
///            when the last one is given back. KFRSmartPointer and KFRIService do the counting.
/// Threads    The five root operations may be called on any thread.
class KFRIServiceInterface {
    KFR_INTERFACE("KFR.KFRIService")

    virtual void addReference() = 0;

    /// Gives one reference back.
    /// \param holder  where the caller keeps its pointer, set to null before the object can go; or
    /// null.
    virtual void releaseReference(void** holder) = 0;

    /// Asks for another interface of the same object.
    /// \param id      the interface's identifier
    /// \param object  receives the pointer, with a reference added; untouched on failure
    /// \return        0 on success, else one of KFR::InterfaceQueryResult or another code
    virtual int getInterface(KFRUUID const& id, void** object) = 0;

    /// Name of the object's class, for people: "vrn.orlo.plugin.modeling.Utilities:Utilities".
    virtual std::string getObjectName() = 0;

    /// Number of the object, unique among the living objects of the process. Two pointers that give
    /// one number point at one object.
    virtual long long getInstanceID() = 0;

protected:
    // Not virtual: an object is deleted by itself, never through an interface.
    ~KFRIServiceInterface() = default;
};

namespace KFR {

/// The root view of any interface or object; null for null. An object class that has the root more
/// than once says with `kfrRoot()` which one stands for it.
template <class T>
[[nodiscard]] KFRIServiceInterface* rootOf(T* object) noexcept
{
    if constexpr (requires { object->kfrRoot(); }) {
        return object != nullptr ? object->kfrRoot() : nullptr;
    } else {
        return object;
    }
}

}  // namespace KFR
