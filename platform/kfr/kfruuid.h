/// \file
/// Identifier of an interface: two 64-bit words.

#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

/// Identifier of an interface or type.
///
/// Order      By the high word, then by the low word; unsigned.
struct KFRUUID {
    unsigned long long high = 0;
    unsigned long long low = 0;

    friend constexpr auto operator<=>(KFRUUID const&, KFRUUID const&) = default;

    /// The identifier of an interface that is given none: a hash of its type name, the same in
    /// every library and every run. FNV-1a from two different starting values.
    [[nodiscard]] static constexpr KFRUUID ofName(std::string_view name) noexcept
    {
        return {fnv1a(name, 0xcbf29ce484222325ULL), fnv1a(name, 0x84222325cbf29ce4ULL)};
    }

private:
    static constexpr unsigned long long fnv1a(std::string_view text,
                                              unsigned long long hash) noexcept
    {
        for (char const c : text) {
            hash ^= static_cast<unsigned char>(c);
            hash *= 0x100000001b3ULL;
        }
        return hash;
    }
};
