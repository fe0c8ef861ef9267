/// \file
/// The host's unit systems, base units and quantities.

#pragma once

#include <array>
#include <cstddef>
#include <numbers>
#include <string_view>

namespace vrn::orlo::host::units {

/// Quantities. The numbers 1 to 5 are common to the whole application, the others are this host's.
enum Quantity : unsigned short {
    kNone = 0,
    kLength = 1,
    kMass = 2,
    kTime = 3,
    kForce = 4,
    kAngle = 5,
    kMemory = 6,
    kArea = 10,
    kVolume = 11,
    kVelocity = 12,
    kAcceleration = 13,
    kDensity = 14,
    kStress = 15,
    kPressure = 16,
    kMoment = 17,
    kEnergy = 18,
    kStiffness = 19,
    kMassMoment = 20,
};

/// A unit system by its two names.
struct SystemRow {
    std::string_view m_name;
    std::string_view m_label;
};

/// All unit systems, in the order in which the service lists them. Names of metric systems tell
/// what differs from the plain one: the length unit, then the time unit, then "t", "N" or "deg".
/// "SI_mm_N", with degrees too, and the "English" systems with "lb" are those whose force unit is
/// not what the other base units imply.
// clang-format off
inline constexpr std::array kSystems{
    //        name                   label
    SystemRow{"SI",                  "m-kg-s-N"},
    SystemRow{"SI_cm",               "cm-kg-s-cN"},
    SystemRow{"SI_cm_ms",            "cm-kg-ms-dakN"},
    SystemRow{"SI_cm_us",            "cm-kg-us-daGN"},
    SystemRow{"SI_mm_ms",            "mm-kg-ms-kN"},
    SystemRow{"CGS",                 "cm-g-s-dyn"},
    SystemRow{"CGS_us",              "cm-g-us-daMN"},
    SystemRow{"CGS_mm",              "mm-g-s-uN"},
    SystemRow{"CGS_mm_ms",           "mm-g-ms-N"},
    SystemRow{"SI_mm_t",             "mm-t-s-N"},
    SystemRow{"English_slinch",      "in-slinch-s-lbf"},
    SystemRow{"English_slug",        "ft-slug-s-lbf"},
    SystemRow{"KgForce_mm",          "mm-khyl-s-kgf"},
    SystemRow{"SI_mm",               "mm-kg-s-mN"},
    SystemRow{"CGS_ms",              "cm-g-ms-daN"},
    SystemRow{"English",             "ft-lb-s-lbf"},
    SystemRow{"English_BTU",         "ft-lb-s-lbf-BTU"},
    SystemRow{"SI_mm_N",             "mm-kg-s-N"},
    SystemRow{"English_in_BTU",      "in-lb-s-lbf-BTU"},
    SystemRow{"SI_deg",              "m-kg-s-N-deg"},
    SystemRow{"SI_mm_t_deg",         "mm-t-s-N-deg"},
    SystemRow{"SI_mm_deg",           "mm-kg-s-mN-deg"},
    SystemRow{"CGS_mm_deg",          "mm-g-s-uN-deg"},
    SystemRow{"SI_mm_N_deg",         "mm-kg-s-N-deg"},
    SystemRow{"English_slinch_deg",  "in-slinch-s-lbf-deg"},
    SystemRow{"English_slug_deg",    "ft-slug-s-lbf-deg"},
};

static_assert(kSystems.size() == 26);

/// A unit that is not made of others. Numerator over denominator is its size in the SI unit of its
/// quantity; both are exact, so that 1000 mm are 1 m and not nearly so.
struct BaseUnitRow {
    Quantity m_quantity;
    unsigned short m_id;
    std::string_view m_text;
    double m_numerator;
    double m_denominator;
};

inline constexpr double kPoundForce = 44482216152605.0;  // of 1e13: 0.45359237 times 9.80665

/// By the definitions, not rounded. The library's own table has 4.448222 for the pound-force: decks
/// were written with that number for years and must come out the same. Here values are converted
/// for users, who expect 1 lbf to be 4.4482216152605 N and the way back to end where it began.
inline constexpr std::array kBaseUnits{
    //          quantity    id  text      numerator            denominator
    BaseUnitRow{kNone,      0,  "",       1.0,                 1.0},
    BaseUnitRow{kLength,    1,  "m",      1.0,                 1.0},
    BaseUnitRow{kLength,    2,  "cm",     1.0,                 100.0},
    BaseUnitRow{kLength,    3,  "mm",     1.0,                 1000.0},
    BaseUnitRow{kLength,    6,  "in",     127.0,               5000.0},
    BaseUnitRow{kLength,    7,  "ft",     381.0,               1250.0},
    BaseUnitRow{kMass,     16,  "kg",     1.0,                 1.0},
    BaseUnitRow{kMass,     17,  "g",      1.0,                 1000.0},
    BaseUnitRow{kMass,     21,  "lb",     45359237.0,          1e8},
    BaseUnitRow{kMass,     22,  "t",      1000.0,              1.0},
    BaseUnitRow{kMass,     23,  "slug",   kPoundForce,         3048e9},    // lbf s^2/ft
    BaseUnitRow{kMass,     24,  "slinch", kPoundForce,         254e9},     // lbf s^2/in
    BaseUnitRow{kMass,     26,  "khyl",   980665.0,            100.0},     // kgf s^2/mm
    BaseUnitRow{kTime,     31,  "s",      1.0,                 1.0},
    BaseUnitRow{kTime,     32,  "ms",     1.0,                 1e3},
    BaseUnitRow{kTime,     33,  "us",     1.0,                 1e6},
    BaseUnitRow{kForce,    41,  "N",      1.0,                 1.0},
    BaseUnitRow{kForce,    42,  "cN",     1.0,                 100.0},
    BaseUnitRow{kForce,    43,  "mN",     1.0,                 1e3},
    BaseUnitRow{kForce,    44,  "uN",     1.0,                 1e6},
    BaseUnitRow{kForce,    45,  "daN",    10.0,                1.0},
    BaseUnitRow{kForce,    46,  "kN",     1e3,                 1.0},
    BaseUnitRow{kForce,    47,  "dakN",   1e4,                 1.0},
    BaseUnitRow{kForce,    49,  "daMN",   1e7,                 1.0},
    BaseUnitRow{kForce,    51,  "daGN",   1e10,                1.0},
    BaseUnitRow{kForce,    52,  "lbf",    kPoundForce,         1e13},
    BaseUnitRow{kForce,    53,  "dyn",    1.0,                 1e5},
    BaseUnitRow{kForce,    54,  "kgf",    980665.0,            1e5},
    BaseUnitRow{kAngle,    61,  "rad",    1.0,                 1.0},
    BaseUnitRow{kAngle,    62,  "deg",    std::numbers::pi,    180.0},
    // Units of the finite-element properties, whose ranges are stated in them.
    BaseUnitRow{kMemory,  962,  "MB",     1.0,                 1.0},
    BaseUnitRow{kMass,    999,  "kg",     1.0,                 1.0},
    BaseUnitRow{kLength, 1000,  "m",      1.0,                 1.0},
    BaseUnitRow{kEnergy, 2199,  "BTU",    105505585262.0,      1e8},       // international table
};

/// A quantity whose units are made of the base units: one for each combination that a unit system
/// has, with ids from `m_firstId` on in the order of the systems.
struct DerivedRow {
    Quantity m_quantity;
    int m_length;  ///< Exponents.
    int m_mass;
    int m_time;
    int m_force;
    unsigned short m_firstId;
    unsigned short m_siId;       ///< Id of the SI unit where it has one of its own, else 0.
    std::string_view m_siText;   ///< Name of the SI unit where it has one of its own.
};

inline constexpr std::array kDerived{
    //         quantity       L   M   T   F  first   SI  text
    DerivedRow{kArea,         2,  0,  0,  0, 2000,   0,  ""},
    DerivedRow{kVolume,       3,  0,  0,  0, 2020,   0,  ""},
    DerivedRow{kVelocity,     1,  0, -1,  0, 2040,   0,  ""},
    DerivedRow{kAcceleration, 1,  0, -2,  0, 2060,   0,  ""},
    DerivedRow{kDensity,     -3,  1,  0,  0, 2080, 993,  ""},
    DerivedRow{kStress,      -2,  0,  0,  1, 2100, 988,  "Pa"},
    DerivedRow{kPressure,    -2,  0,  0,  1, 2120,   0,  "Pa"},
    DerivedRow{kMoment,       1,  0,  0,  1, 2140,   0,  ""},
    DerivedRow{kEnergy,       1,  0,  0,  1, 2160,   0,  "J"},
    DerivedRow{kStiffness,   -1,  0,  0,  1, 2180,   0,  ""},
    DerivedRow{kMassMoment,   2,  1,  0,  0, 2200, 975,  ""},
};
// clang-format on

/// No quantity has more units than this, so that the ids of two do not meet.
inline constexpr std::size_t kIdsPerQuantity = 19;

/// Energy is in this unit where a label's fifth token is "BTU".
inline constexpr unsigned short kBtu = 2199;

}  // namespace vrn::orlo::host::units
