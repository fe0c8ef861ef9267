/// \file
/// Unit systems whose force unit is not what their other base units imply.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {

/// Ids of a unit system's base units; 0 for one that its label does not tell.
struct UnitSysUnitIDs {
    unsigned short m_length = 0;
    unsigned short m_mass = 0;
    unsigned short m_time = 0;
    unsigned short m_force = 0;
    unsigned short m_angle = 0;

    friend bool operator==(UnitSysUnitIDs const&, UnitSysUnitIDs const&) = default;
};

/// A unit in which mass may be stated instead of the system's own.
struct OverrideUnit {
    unsigned short m_kind = 0;  ///< 2 in all that this library makes: mass.
    icu::UnicodeString m_label;

    friend bool operator==(OverrideUnit const&, OverrideUnit const&) = default;
};

/// Ids and factors of the base units that labels such as "mm-kg-s-mN" spell, and WTMASS.
///
/// Units      Factors are to m, s and N. Mass and angle have the factor 1.0 whatever the unit.
/// Failure    Silent: an unknown text has the id 0, an unknown id the factor 1.0, so a label that
///            nobody knows gives a plausible number. Callers who care check the ids.
/// Threads    Main thread. getOverrideBaseMassUnits fills a cache; the others may run anywhere.
class MODELING_API InconsistentUnitSystems {
public:
    static InconsistentUnitSystems* instance();

    InconsistentUnitSystems(InconsistentUnitSystems const&) = delete;
    InconsistentUnitSystems& operator=(InconsistentUnitSystems const&) = delete;

    /// The unit of that kind (1 length, 2 mass, 3 time, 4 force, 5 angle) and exactly that text.
    /// The micro of units 33 and 44 is spelled U+00A6 U+00CC; no other spelling is known.
    [[nodiscard]] unsigned short resolveUnitIDFromWString(unsigned short kind, std::wstring text);

    /// The units that a label spells. All 0 for fewer than four tokens. The angle is read from
    /// labels of exactly five.
    [[nodiscard]] UnitSysUnitIDs getUnitIDsFromUnitSystem(icu::UnicodeString label);

    /// The force unit of that text: mass stated as weight is stated in a force unit.
    [[nodiscard]] unsigned short getUnitIDFromMassAsWeight(icu::UnicodeString text);

    /// Times this a value in the unit is one in the base unit of its kind.
    [[nodiscard]] double getRelativeValueOfUnit(unsigned short kind, unsigned short unit);

    /// The factor by which a solver multiplies masses that were stated as weights:
    /// (W L) / (F 9.80665 T T) with the factors of the weight's unit and the system's units.
    /// \param massAsWeight  text of a force unit; one that is not known counts as the newton
    [[nodiscard]] double getWTMASS(icu::UnicodeString unitSystemLabel,
                                   icu::UnicodeString massAsWeight);

    /// The force units of the standard list's systems, ascending by code units. Only labels of
    /// exactly four tokens are looked at. Kept from the first answer on that is not empty.
    [[nodiscard]] std::vector<OverrideUnit> getOverrideBaseMassUnits();

private:
    InconsistentUnitSystems() = default;

    std::vector<OverrideUnit> m_overrideUnits;
};

}  // namespace vrn::orlo::plugin::modeling
