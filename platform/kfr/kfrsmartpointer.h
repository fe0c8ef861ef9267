/// \file
/// Handles: the typed KFRSmartPointer, the untyped KFRIService, and the casts between them.

#pragma once

#include "platform/kfr/kfrapi.h"
#include "platform/kfr/kfrexception.h"
#include "platform/kfr/kfriserviceinterface.h"
#include "platform/kfr/kfrrelocation.h"

#include <concepts>
#include <type_traits>
#include <utility>

class KFRIService;
template <class I>
class KFRSmartPointer;

namespace KFR {

/// The null handle. Compares with and converts to every handle type.
struct NullServicePointer {};
inline constexpr NullServicePointer NULLSP{};

/// Says that a raw pointer brings its reference along.
struct AdoptReference {};
inline constexpr AdoptReference kAdopt{};

namespace detail {

/// Raises the exception of a failed strict cast.
/// \param typeName  the interface that was asked for
/// \param error     what getInterface answered; not 0
[[noreturn]] KFR_API void throwCastFailure(char const* typeName, int error);

/// One object behind both: the same root pointer, or the same instance number.
[[nodiscard]] KFR_API bool isSameObject(KFRIServiceInterface* left,
                                        KFRIServiceInterface* right) noexcept;

/// Handles whose pointers convert without a query, and those that need one.
template <class From, class To>
concept ConvertsToInterface = !std::same_as<From, To> && std::convertible_to<From*, To*>;
template <class From, class To>
concept NeedsCastToInterface = !std::same_as<From, To> && !std::convertible_to<From*, To*>;

/// True of object classes, which stand for several interfaces.
template <class T>
concept HasOwnRoot = requires(T& object)
{
    object.kfrRoot();
};

/// A referenced interface of an object, or null. `error` receives getInterface's answer.
template <class I>
[[nodiscard]] I* query(KFRIServiceInterface* object, int& error)
{
    // An object class is not asked for: another class of object may answer its first interface.
    static_assert(!HasOwnRoot<I>, "cast to an interface");
    void* found = nullptr;
    error = object->getInterface(I::kfrInterfaceId(), &found);
    return error == kInterfaceFound ? static_cast<I*>(found) : nullptr;
}

}  // namespace detail
}  // namespace KFR

/// Untyped handle of a service or any other object of the platform.
///
/// Ownership  Holds one reference; null holds none.
/// Threads    Like a pointer: one handle is one thread's, the object's count is anybody's.
class KFRIService {
public:
    constexpr KFRIService() noexcept = default;
    constexpr KFRIService(KFR::NullServicePointer) noexcept {}
    constexpr KFRIService(std::nullptr_t) noexcept {}

    /// Adds a reference to `object`.
    KFRIService(KFRIServiceInterface* object, KFRTypeCode type) noexcept
        : m_object(object), m_type(type)
    {
        if (m_object != nullptr) {
            m_object->addReference();
        }
    }
    /// Takes over a reference of the caller's.
    KFRIService(KFRIServiceInterface* object, KFRTypeCode type, KFR::AdoptReference) noexcept
        : m_object(object), m_type(type)
    {
    }

    KFRIService(KFRIService const& other) noexcept : KFRIService(other.m_object, other.m_type) {}
    KFRIService(KFRIService&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)),
          m_type(std::exchange(other.m_type, KFRTypeCode()))
    {
    }

    /// Every typed handle is a service handle as well.
    template <class I>
    KFRIService(KFRSmartPointer<I> const& typed) noexcept
        : KFRIService(KFR::rootOf(typed.get()), typed.typeCode())
    {
    }

    KFRIService& operator=(KFRIService const& other) noexcept
    {
        KFRIService(other).swap(*this);
        return *this;
    }
    KFRIService& operator=(KFRIService&& other) noexcept
    {
        KFRIService(std::move(other)).swap(*this);
        return *this;
    }
    ~KFRIService() { release(); }

    void swap(KFRIService& other) noexcept
    {
        std::swap(m_object, other.m_object);
        std::swap(m_type, other.m_type);
    }

    /// Gives the reference back and becomes null.
    void release() noexcept
    {
        m_type = KFRTypeCode();
        if (KFRIServiceInterface* const object = std::exchange(m_object, nullptr)) {
            object->releaseReference(nullptr);
        }
    }

    [[nodiscard]] KFRIServiceInterface* get() const noexcept { return m_object; }
    KFRIServiceInterface* operator->() const noexcept { return m_object; }

    /// Type code of the interface through which the handle came.
    [[nodiscard]] KFRTypeCode typeCode() const noexcept { return m_type; }

    explicit operator bool() const noexcept { return m_object != nullptr; }

    friend bool operator==(KFRIService const& left, KFRIService const& right) noexcept
    {
        return KFR::detail::isSameObject(left.m_object, right.m_object);
    }
    friend bool operator==(KFRIService const& left, KFR::NullServicePointer) noexcept
    {
        return left.m_object == nullptr;
    }

private:
    KFRIServiceInterface* m_object = nullptr;
    KFRTypeCode m_type;
};

/// Intrusive smart pointer on the interface `I`: the pointer, with the interface's type code beside
/// it.
///
/// A handle of another interface is cast on construction, strictly: KFRSystemException when the
/// object lacks `I`; null stays null. KFR::loose_cast gives null instead of the exception. Handles
/// are equal when they hold one object, whatever the interface. Adding and giving back references
/// is a call into the object, so `I` must be complete where a handle is copied or destroyed.
template <class I>
class KFRSmartPointer {
public:
    using Interface = I;

    constexpr KFRSmartPointer() noexcept = default;
    constexpr KFRSmartPointer(KFR::NullServicePointer) noexcept {}
    constexpr KFRSmartPointer(std::nullptr_t) noexcept {}

    /// Adds a reference to `object`.
    explicit KFRSmartPointer(I* object) noexcept : m_object(object) { addReference(); }
    /// Takes over a reference of the caller's, such as the one that an object is made with.
    KFRSmartPointer(I* object, KFR::AdoptReference) noexcept : m_object(object) { setType(); }

    KFRSmartPointer(KFRSmartPointer const& other) noexcept : m_object(other.m_object)
    {
        addReference();
    }
    KFRSmartPointer(KFRSmartPointer&& other) noexcept
        : m_object(std::exchange(other.m_object, nullptr)),
          m_type(std::exchange(other.m_type, KFRTypeCode()))
    {
    }

    /// From a class derived from `I`: no query.
    template <KFR::detail::ConvertsToInterface<I> D>
    KFRSmartPointer(KFRSmartPointer<D> const& other) noexcept : m_object(other.get())
    {
        addReference();
    }
    /// From another interface: the strict cast.
    template <KFR::detail::NeedsCastToInterface<I> J>
    explicit KFRSmartPointer(KFRSmartPointer<J> const& other)
    {
        castFrom(KFR::rootOf(other.get()));
    }
    /// From an untyped handle: the strict cast.
    KFRSmartPointer(KFRIService const& service) { castFrom(service.get()); }

    KFRSmartPointer& operator=(KFRSmartPointer const& other) noexcept
    {
        KFRSmartPointer(other).swap(*this);
        return *this;
    }
    KFRSmartPointer& operator=(KFRSmartPointer&& other) noexcept
    {
        KFRSmartPointer(std::move(other)).swap(*this);
        return *this;
    }
    ~KFRSmartPointer() { release(); }

    void swap(KFRSmartPointer& other) noexcept
    {
        std::swap(m_object, other.m_object);
        std::swap(m_type, other.m_type);
    }

    /// Gives the reference back and becomes null.
    void release() noexcept
    {
        m_type = KFRTypeCode();
        if (I* const object = std::exchange(m_object, nullptr)) {
            object->releaseReference(nullptr);
        }
    }

    [[nodiscard]] I* get() const noexcept { return m_object; }
    I* operator->() const noexcept { return m_object; }
    I& operator*() const noexcept { return *m_object; }
    [[nodiscard]] KFRTypeCode typeCode() const noexcept { return m_type; }

    explicit operator bool() const noexcept { return m_object != nullptr; }

    template <class J>
    friend bool operator==(KFRSmartPointer const& left, KFRSmartPointer<J> const& right) noexcept
    {
        return KFR::detail::isSameObject(KFR::rootOf(left.get()), KFR::rootOf(right.get()));
    }
    friend bool operator==(KFRSmartPointer const& left, KFRIService const& right) noexcept
    {
        return KFR::detail::isSameObject(KFR::rootOf(left.get()), right.get());
    }
    friend bool operator==(KFRSmartPointer const& left, KFR::NullServicePointer) noexcept
    {
        return left.m_object == nullptr;
    }

private:
    void setType() noexcept
    {
        if (m_object != nullptr) {
            m_type = I::kfrTypeCode();
        }
    }
    void addReference() noexcept
    {
        if (m_object != nullptr) {
            m_object->addReference();
            setType();
        }
    }
    void castFrom(KFRIServiceInterface* object)
    {
        if (object == nullptr) {
            return;
        }
        int error = KFR::kInterfaceFound;
        m_object = KFR::detail::query<I>(object, error);
        if (error != KFR::kInterfaceFound) {
            KFR::detail::throwCastFailure(I::kfrTypeName(), error);
        }
        setType();
    }

    I* m_object = nullptr;
    KFRTypeCode m_type;
};

namespace KFR {

/// The interface `I` of the object behind `service`; null when the object lacks it, or on null.
template <class I>
[[nodiscard]] KFRSmartPointer<I> loose_cast(KFRIService const& service)
{
    if (service == NULLSP) {
        return {};
    }
    int error = kInterfaceFound;
    return KFRSmartPointer<I>(detail::query<I>(service.get(), error), kAdopt);
}

/// The same from a typed handle.
template <class I, class J>
[[nodiscard]] KFRSmartPointer<I> loose_cast(KFRSmartPointer<J> const& typed)
{
    if (typed == NULLSP) {
        return {};
    }
    int error = kInterfaceFound;
    return KFRSmartPointer<I>(detail::query<I>(rootOf(typed.get()), error), kAdopt);
}

/// The interface `I` of the object behind `service`; KFRSystemException when the object lacks it,
/// null on null. What the converting constructor does, for where a name reads better.
template <class I>
[[nodiscard]] KFRSmartPointer<I> strict_cast(KFRIService const& service)
{
    return KFRSmartPointer<I>(service);
}

}  // namespace KFR

template <>
inline constexpr bool kKfrMovesByBytes<KFRIService> = true;
template <class I>
inline constexpr bool kKfrMovesByBytes<KFRSmartPointer<I>> = true;
