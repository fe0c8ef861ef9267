/// \file
/// Identity of an object of the object model.

#pragma once

#include <compare>
#include <cstddef>
#include <functional>

namespace KFR::PersistenceFW::CAEData {

/// Identity of an object: two words, the first the more significant. Stable over sessions, unlike a
/// type id or a local number.
///
/// Order      Unsigned, by the first word, then by the second.
struct GUIDDATA {
    unsigned long long m_first = 0;
    unsigned long long m_second = 0;

    friend constexpr auto operator<=>(GUIDDATA const&, GUIDDATA const&) = default;
};

}  // namespace KFR::PersistenceFW::CAEData

/// The short name by which the application knows the persistence framework's data.
namespace CAE = KFR::PersistenceFW::CAEData;

template <>
struct std::hash<CAE::GUIDDATA> {
    std::size_t operator()(CAE::GUIDDATA const& guid) const noexcept
    {
        return static_cast<std::size_t>((guid.m_first * 0x9e3779b97f4a7c15ULL) ^ guid.m_second);
    }
};
