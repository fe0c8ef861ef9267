/// \file
/// The base on which objects of the platform are written: counting, interface queries, weak
/// references and the instance number.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrreferencecount.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <atomic>
#include <string>
#include <tuple>
#include <utility>

namespace KFR::Framework {

/// A reference that does not keep its object alive.
class KFRIWeakReferenceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIWeakReference")

    /// The object, with a reference added; null when it has gone.
    virtual KFRIService lock() = 0;
};

/// An object that hands out weak references to itself.
class KFRIWeakReferenceSupportInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Framework.KFRIWeakReferenceSupport")

    virtual KFRSmartPointer<KFRIWeakReferenceInterface> getWeakReference() = 0;
};

/// The counting part of every object: count, instance number, weak references.
///
/// Threads    All operations may be called on any thread.
class KFR_API KFRObjectCore {
public:
    KFRObjectCore() noexcept = default;
    KFRObjectCore(KFRObjectCore const&) = delete;
    KFRObjectCore& operator=(KFRObjectCore const&) = delete;
    ~KFRObjectCore();

    void addReference() noexcept { m_count.add(); }

    /// Gives one reference back and nulls `holder`. True when the object must be deleted now; its
    /// weak references are empty by then.
    [[nodiscard]] bool releaseReference(void** holder) noexcept
    {
        if (holder != nullptr) {
            *holder = nullptr;
        }
        if (!m_count.release()) {
            return false;
        }
        if (m_weak.load(std::memory_order_acquire) != nullptr) {
            expireWeak();
        }
        return true;
    }

    [[nodiscard]] int referenceCount() const noexcept { return m_count.value(); }

    /// The object's number, taken from the service manager on the first call.
    [[nodiscard]] long long instanceID() noexcept;

    /// \param object  the root view of the object that this core counts
    [[nodiscard]] KFRSmartPointer<KFRIWeakReferenceInterface> weakReference(
        KFRIServiceInterface* object);

private:
    class WeakReference;
    friend class WeakReference;
    void expireWeak() noexcept;

    KFRReferenceCount m_count;
    std::atomic<long long> m_instanceID{0};
    std::atomic<WeakReference*> m_weak{nullptr};
};

}  // namespace KFR::Framework

namespace KFR::detail {

/// Looks `id` up in the interface `I` and in those that it extends (`using Extends = Base;`).
template <class I>
[[nodiscard]] void* viewOf(I* object, KFRUUID const& id) noexcept
{
    if (id == I::kfrInterfaceId()) {
        return object;
    }
    if constexpr (requires { typename I::Extends; }) {
        return viewOf<typename I::Extends>(object, id);
    } else {
        return nullptr;
    }
}

}  // namespace KFR::detail

/// Base of an object that answers the interfaces `Is`, the first of which stands for it.
///
/// \code
/// class HostClock final : public KFRServiceObjectImpl<IClockInterface, ITickerInterface> { ... };
/// KFRSmartPointer<HostClock> clock = KFR::make<HostClock>(arguments...);
/// \endcode
///
/// Ownership  Counted; make objects with KFR::make, never on the stack. A derived class that
///            extends queryInterface answers more, such as the views of a part that it owns.
/// Threads    The root operations may be called on any thread; the object is deleted on the thread
///            of the last release.
template <class... Is>
class KFRServiceObjectImpl : public Is... {
public:
    using Primary = std::tuple_element_t<0, std::tuple<Is...>>;

    KFRServiceObjectImpl() = default;
    KFRServiceObjectImpl(KFRServiceObjectImpl const&) = delete;
    KFRServiceObjectImpl& operator=(KFRServiceObjectImpl const&) = delete;

    // The object stands for its first interface where a handle asks who it is.
    static constexpr char const* kfrTypeName() noexcept { return Primary::kfrTypeName(); }
    static constexpr KFRUUID kfrInterfaceId() noexcept { return Primary::kfrInterfaceId(); }
    static KFRTypeCode kfrTypeCode() noexcept { return Primary::kfrTypeCode(); }
    [[nodiscard]] KFRIServiceInterface* kfrRoot() noexcept { return static_cast<Primary*>(this); }

    void addReference() final { m_core.addReference(); }
    void releaseReference(void** holder) final
    {
        if (m_core.releaseReference(holder)) {
            delete this;
        }
    }
    int getInterface(KFRUUID const& id, void** object) final
    {
        void* const view = queryInterface(id);
        if (view == nullptr) {
            return KFR::kInterfaceNotImplemented;
        }
        addReference();
        *object = view;
        return KFR::kInterfaceFound;
    }
    std::string getObjectName() override { return Primary::kfrTypeName(); }
    long long getInstanceID() final { return m_core.instanceID(); }

    [[nodiscard]] KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface> weakReference()
    {
        return m_core.weakReference(kfrRoot());
    }
    [[nodiscard]] int referenceCount() const noexcept { return m_core.referenceCount(); }

protected:
    virtual ~KFRServiceObjectImpl() = default;

    /// The view of the object with this identifier, no reference added; null when it has none.
    [[nodiscard]] virtual void* queryInterface(KFRUUID const& id) noexcept
    {
        if (id == KFRIServiceInterface::kfrInterfaceId()) {
            return kfrRoot();
        }
        void* view = nullptr;
        static_cast<void>(
            ((view = KFR::detail::viewOf<Is>(static_cast<Is*>(this), id), view != nullptr) || ...));
        return view;
    }

private:
    KFR::Framework::KFRObjectCore m_core;
};

namespace KFR {

/// Makes an object and the first handle on it.
template <class T, class... Arguments>
[[nodiscard]] KFRSmartPointer<T> make(Arguments&&... arguments)
{
    return KFRSmartPointer<T>(new T(std::forward<Arguments>(arguments)...), kAdopt);
}

}  // namespace KFR
