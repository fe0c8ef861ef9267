/// \file
/// The framework's variant.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <concepts>
#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

/// A byte of text, a kind apart from `unsigned char`.
struct KFRUChar {
    unsigned char m_value = 0;

    friend bool operator==(KFRUChar, KFRUChar) = default;
};

namespace KFR {

/// Numbers of the value kinds. 11 and 16 are not used; 18 to 34 but for those named here are free.
enum class AnyKind : int {
    none = 0,
    characterValue = 1,
    unsignedCharacter = 2,
    shortInteger = 3,
    unsignedShort = 4,
    integer = 5,
    unsignedInteger = 6,
    integer64 = 7,
    unsignedInteger64 = 8,
    singlePrecision = 9,
    doublePrecision = 10,
    string = 12,  ///< KFRString, std::string
    wideCharacter = 13,
    wideString = 14,
    boolean = 15,
    typeCode = 17,
    service = 18,   ///< A handle of an object: KFRIService and every KFRSmartPointer
    sequence = 19,  ///< KFRSequence of any element type
    result = 20,
    uChar = 21,          ///< KFRUChar
    unicodeString = 22,  ///< KFRUString, UnicodeString
    structure = 27,      ///< KFRStruct: a record of the platform
};

namespace detail {

template <class T>
inline constexpr bool kIsSequence = false;
template <class T>
inline constexpr bool kIsSequence<KFRSequence<T>> = true;

template <class T>
inline constexpr bool kIsHandle = std::same_as<T, KFRIService>;
template <class I>
inline constexpr bool kIsHandle<KFRSmartPointer<I>> = true;

/// Kind of a stored type.
template <class T>
[[nodiscard]] constexpr AnyKind anyKindOf() noexcept
{
    // clang-format off
    if constexpr (std::same_as<T, char>)                    return AnyKind::characterValue;
    else if constexpr (std::same_as<T, unsigned char>)      return AnyKind::unsignedCharacter;
    else if constexpr (std::same_as<T, short>)              return AnyKind::shortInteger;
    else if constexpr (std::same_as<T, unsigned short>)     return AnyKind::unsignedShort;
    else if constexpr (std::same_as<T, int>)                return AnyKind::integer;
    else if constexpr (std::same_as<T, unsigned int>)       return AnyKind::unsignedInteger;
    else if constexpr (std::same_as<T, long long>)          return AnyKind::integer64;
    else if constexpr (std::same_as<T, unsigned long long>) return AnyKind::unsignedInteger64;
    else if constexpr (std::same_as<T, float>)              return AnyKind::singlePrecision;
    else if constexpr (std::same_as<T, double>)             return AnyKind::doublePrecision;
    else if constexpr (std::same_as<T, std::string>)        return AnyKind::string;
    else if constexpr (std::same_as<T, wchar_t>)            return AnyKind::wideCharacter;
    else if constexpr (std::same_as<T, std::wstring>)       return AnyKind::wideString;
    else if constexpr (std::same_as<T, bool>)               return AnyKind::boolean;
    else if constexpr (std::same_as<T, KFRTypeCode>)        return AnyKind::typeCode;
    else if constexpr (std::same_as<T, KFRIService>)        return AnyKind::service;
    else if constexpr (kIsSequence<T>)                      return AnyKind::sequence;
    else if constexpr (std::same_as<T, KFRResult>)          return AnyKind::result;
    else if constexpr (std::same_as<T, KFRUChar>)           return AnyKind::uChar;
    else if constexpr (std::same_as<T, icu::UnicodeString>) return AnyKind::unicodeString;
    else return AnyKind::structure;
    // clang-format on
}

/// What a value is kept as: `long` as the 64-bit integer that it is here, literals as strings,
/// typed handles and the null handle as service handles; everything else as itself.
template <class T>
struct StoredAs {
    using type = T;
};
template <>
struct StoredAs<long> {
    using type = long long;
};
template <>
struct StoredAs<unsigned long> {
    using type = unsigned long long;
};
template <>
struct StoredAs<char const*> {
    using type = std::string;
};
template <>
struct StoredAs<char*> {
    using type = std::string;
};
template <class I>
struct StoredAs<KFRSmartPointer<I>> {
    using type = KFRIService;
};
template <>
struct StoredAs<NullServicePointer> {
    using type = KFRIService;
};
template <class T>
using StoredAsT = typename StoredAs<std::decay_t<T>>::type;

/// A value that a KFRAny takes: those with a kind of their own, and records. Pointers, enumerations
/// and the remaining arithmetic types are refused, lest they pass for a record.
template <class T>
concept AnyValue = std::copy_constructible<T> &&
    (anyKindOf<T>() != AnyKind::structure || std::is_class_v<T>);

/// What may be put in: everything with such a value, but no KFRAny itself.
template <class T>
concept Storable = !std::same_as<std::decay_t<T>, KFRAny> && AnyValue<StoredAsT<T>>;

/// What may be taken out as it is: all of that but handles, which come out by a cast.
template <class T>
concept Extractable = Storable<T> && !kIsHandle<T>;

}  // namespace detail
}  // namespace KFR

/// A value of any kind, with its kind number.
///
/// `operator<<=` puts a value in, `operator>>=` takes it out and answers false, with the target as
/// it was, unless the kind matches exactly: an int is no 64-bit integer. Sequences and records
/// match by their element and record type as well. A handle comes out as any interface that its
/// object has.
///
/// Ownership  Values are copied in and out. Up to 32 bytes are kept in place.
/// Threads    One object is one thread's.
class KFRAny {
public:
    KFRAny() noexcept = default;
    template <KFR::detail::Storable T>
    explicit KFRAny(T&& value)
    {
        emplace<KFR::detail::StoredAsT<T>>(std::forward<T>(value));
    }
    KFRAny(KFRAny const& other) { copyFrom(other); }
    KFRAny(KFRAny&& other) noexcept { moveFrom(other); }
    KFRAny& operator=(KFRAny const& other)
    {
        if (this != &other) {
            KFRAny copy(other);
            clear();
            moveFrom(copy);
        }
        return *this;
    }
    KFRAny& operator=(KFRAny&& other) noexcept
    {
        if (this != &other) {
            KFRAny taken(std::move(other));  // the other may stand in a sequence inside this one
            clear();
            moveFrom(taken);
        }
        return *this;
    }
    ~KFRAny() { clear(); }

    /// Kind number of the value: 0 when there is none, else as KFR::AnyKind numbers them.
    [[nodiscard]] int getTypeID() const noexcept
    {
        return m_type != nullptr ? static_cast<int>(m_type->m_kind) : 0;
    }
    [[nodiscard]] bool isEmpty() const noexcept { return m_type == nullptr; }

    void clear() noexcept
    {
        // Empty before the value goes: its end may lead back here.
        Type const* const type = std::exchange(m_type, nullptr);
        if (type != nullptr && type->m_destroy != nullptr) {
            type->m_destroy(m_store);
        }
    }

    /// The value, when it is a `T`; nullptr otherwise. Holds until the next change.
    template <class T>
    [[nodiscard]] T const* get() const noexcept
    {
        if (!holds<T>()) {
            return nullptr;
        }
        if constexpr (kInPlace<T>) {
            return std::launder(reinterpret_cast<T const*>(m_store));
        } else {
            return *std::launder(reinterpret_cast<T* const*>(m_store));
        }
    }

    /// Puts a value in; what its copy throws leaves this one as it was.
    template <class T>
    void set(T&& value)
    {
        using Stored = KFR::detail::StoredAsT<T>;
        if (m_type == nullptr) {
            emplace<Stored>(std::forward<T>(value));
            return;
        }
        // Made first: the value may stand inside this one.
        if constexpr (kPlain<Stored>) {
            Stored const fresh(std::forward<T>(value));
            clear();
            emplace<Stored>(fresh);
        } else {
            KFRAny fresh(std::forward<T>(value));
            clear();
            moveFrom(fresh);
        }
    }

private:
    static constexpr std::size_t kStoreSize = 32;

    template <class T>
    static constexpr bool kInPlace =
        sizeof(T) <= kStoreSize &&
        alignof(T) <= alignof(std::max_align_t) && std::is_nothrow_move_constructible_v<T>;
    template <class T>
    static constexpr bool kPlain = kInPlace<T>&& std::is_trivially_copyable_v<T>;

    struct Type {
        KFR::AnyKind m_kind;
        std::type_info const* m_info;
        // Null for values that are copied by their bytes and need no destruction.
        void (*m_copy)(unsigned char* to, unsigned char const* from);
        void (*m_move)(unsigned char* to, unsigned char* from) noexcept;
        void (*m_destroy)(unsigned char* store) noexcept;
    };

    template <class T>
    static T& valueIn(unsigned char* store) noexcept
    {
        if constexpr (kInPlace<T>) {
            return *std::launder(reinterpret_cast<T*>(store));
        } else {
            return **std::launder(reinterpret_cast<T**>(store));
        }
    }
    template <class T, class U>
    static void construct(unsigned char* store, U&& value)
    {
        if constexpr (kInPlace<T>) {
            ::new (static_cast<void*>(store)) T(std::forward<U>(value));
        } else {
            ::new (static_cast<void*>(store)) T*(new T(std::forward<U>(value)));
        }
    }
    template <class T>
    static void copyValue(unsigned char* to, unsigned char const* from)
    {
        construct<T>(to, static_cast<T const&>(valueIn<T>(const_cast<unsigned char*>(from))));
    }
    template <class T>
    static void moveValue(unsigned char* to, unsigned char* from) noexcept
    {
        if constexpr (kInPlace<T>) {
            construct<T>(to, std::move(valueIn<T>(from)));
            std::destroy_at(&valueIn<T>(from));
        } else {
            std::memcpy(to, from, sizeof(T*));
        }
    }
    template <class T>
    static void destroyValue(unsigned char* store) noexcept
    {
        if constexpr (kInPlace<T>) {
            std::destroy_at(&valueIn<T>(store));
        } else {
            delete &valueIn<T>(store);
        }
    }

    template <class T>
    static constexpr Type kType{
        KFR::detail::anyKindOf<T>(), &typeid(T), kPlain<T> ? nullptr : &copyValue<T>,
        kPlain<T> ? nullptr : &moveValue<T>, kPlain<T> ? nullptr : &destroyValue<T>};

    template <class T>
    [[nodiscard]] bool holds() const noexcept
    {
        constexpr KFR::AnyKind kKind = KFR::detail::anyKindOf<T>();
        if (m_type == &kType<T>) {
            return true;
        }
        // Each library has its own table of a type, so the address alone does not decide.
        if (m_type == nullptr || m_type->m_kind != kKind) {
            return false;
        }
        if constexpr (kKind == KFR::AnyKind::sequence || kKind == KFR::AnyKind::structure) {
            return *m_type->m_info == typeid(T);
        }
        return true;
    }

    template <class T, class U>
    void emplace(U&& value)
    {
        construct<T>(m_store, std::forward<U>(value));
        m_type = &kType<T>;
    }
    void copyFrom(KFRAny const& other)
    {
        if (other.m_type == nullptr) {
            return;
        }
        if (other.m_type->m_copy == nullptr) {
            std::memcpy(m_store, other.m_store, kStoreSize);
        } else {
            other.m_type->m_copy(m_store, other.m_store);
        }
        m_type = other.m_type;
    }
    void moveFrom(KFRAny& other) noexcept
    {
        m_type = std::exchange(other.m_type, nullptr);
        if (m_type == nullptr) {
            return;
        }
        if (m_type->m_move == nullptr) {
            std::memcpy(m_store, other.m_store, kStoreSize);
        } else {
            m_type->m_move(m_store, other.m_store);
        }
    }

    Type const* m_type = nullptr;
    alignas(std::max_align_t) unsigned char m_store[kStoreSize]{};
};

/// Puts a value in, in place of what was there.
template <KFR::detail::Storable T>
void operator<<=(KFRAny& any, T&& value)
{
    any.set(std::forward<T>(value));
}

/// Takes the value out. False, with `value` as it was, when the kinds differ.
template <KFR::detail::Extractable T>
bool operator>>=(KFRAny const& any, T& value)
{
    auto const* const held = any.get<KFR::detail::StoredAsT<T>>();
    if (held == nullptr) {
        return false;
    }
    value = static_cast<T>(*held);
    return true;
}

inline bool operator>>=(KFRAny const& any, KFRIService& value)
{
    auto const* const held = any.get<KFRIService>();
    if (held == nullptr) {
        return false;
    }
    value = *held;
    return true;
}

/// False also when the handle's object lacks the interface; a null handle comes out as null.
template <class I>
bool operator>>=(KFRAny const& any, KFRSmartPointer<I>& value)
{
    auto const* const held = any.get<KFRIService>();
    if (held == nullptr) {
        return false;
    }
    KFRSmartPointer<I> found = KFR::loose_cast<I>(*held);
    if (found == KFR::NULLSP && *held != KFR::NULLSP) {
        return false;
    }
    value = std::move(found);
    return true;
}
