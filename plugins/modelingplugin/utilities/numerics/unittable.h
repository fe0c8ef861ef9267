/// \file
/// Unit ids, texts and factors.

#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace vrn::orlo::plugin::modeling::detail {

enum class UnitKind : unsigned short { length = 1, mass = 2, time = 3, force = 4, angle = 5 };

struct UnitRow {
    UnitKind m_kind;
    unsigned short m_id;
    std::wstring_view m_text;
    double m_factor;  ///< Times this gives the base unit of the kind (m, s, N).
};

/// Ascending by id. Numbers and texts are what callers and stored decks go by, oddities included:
///
/// - Units 33 and 44 spell their micro as U+00A6 U+00CC. With "u" or a micro sign they are unknown.
/// - Mass and angle have no factors of their own: 1.0 throughout.
/// - Row 52 is rounded on purpose and must not be "corrected" to 4.4482216152605.
// clang-format off
inline constexpr std::array kUnitTable{
    //      kind              id  text                  factor
    UnitRow{UnitKind::length,  1, L"m",                 1.0},
    UnitRow{UnitKind::length,  2, L"cm",                0.01},
    UnitRow{UnitKind::length,  3, L"mm",                0.001},
    UnitRow{UnitKind::length,  6, L"in",                0.0254},
    UnitRow{UnitKind::length,  7, L"ft",                0.3048},
    UnitRow{UnitKind::mass,   16, L"kg",                1.0},
    UnitRow{UnitKind::mass,   17, L"g",                 1.0},
    UnitRow{UnitKind::mass,   21, L"lb",                1.0},
    UnitRow{UnitKind::mass,   22, L"t",                 1.0},
    UnitRow{UnitKind::mass,   23, L"slug",              1.0},
    UnitRow{UnitKind::mass,   24, L"slinch",            1.0},
    UnitRow{UnitKind::mass,   26, L"khyl",              1.0},
    UnitRow{UnitKind::time,   31, L"s",                 1.0},
    UnitRow{UnitKind::time,   32, L"ms",                0.001},
    UnitRow{UnitKind::time,   33, L"\u00A6\u00CCs",     1e-6},
    UnitRow{UnitKind::force,  41, L"N",                 1.0},
    UnitRow{UnitKind::force,  42, L"cN",                0.01},
    UnitRow{UnitKind::force,  43, L"mN",                0.001},
    UnitRow{UnitKind::force,  44, L"\u00A6\u00CCN",     1e-6},
    UnitRow{UnitKind::force,  45, L"daN",               10.0},
    UnitRow{UnitKind::force,  46, L"kN",                1000.0},
    UnitRow{UnitKind::force,  47, L"10\u2074N",         10000.0},
    UnitRow{UnitKind::force,  49, L"10\u2077N",         1e7},
    UnitRow{UnitKind::force,  51, L"10\u00B9\u2070N",   1e10},
    UnitRow{UnitKind::force,  52, L"lbf",               4.448222},  // rounded on purpose
    UnitRow{UnitKind::force,  53, L"dyn",               1e-5},
    UnitRow{UnitKind::force,  54, L"kgf",               9.80665},
    UnitRow{UnitKind::angle,  61, L"rad",               1.0},
    UnitRow{UnitKind::angle,  62, L"deg",               1.0},
};
// clang-format on

consteval bool unitTableAscends()
{
    for (std::size_t i = 1; i < kUnitTable.size(); ++i) {
        if (kUnitTable[i - 1].m_id >= kUnitTable[i].m_id ||
            kUnitTable[i - 1].m_kind > kUnitTable[i].m_kind) {
            return false;
        }
    }
    return true;
}

static_assert(kUnitTable.size() == 29);
static_assert(unitTableAscends(), "ids are unique, and a kind's units stand together");

}  // namespace vrn::orlo::plugin::modeling::detail
