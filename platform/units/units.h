/// \file
/// Unit services: the unit systems that the framework knows.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace KFR::Util::Units {

/// How a unit system is called. The label spells its base units in the order length, mass, time,
/// force, and where there is one a fifth token: "mm-kg-s-mN".
struct UnitSystemInfo {
    icu::UnicodeString m_name;
    icu::UnicodeString m_label;

    friend bool operator==(UnitSystemInfo const&, UnitSystemInfo const&) = default;
};

/// A unit system: its names and the ids of its base units. 0 for a unit that is not known.
struct UnitSystemData {
    icu::UnicodeString m_name;
    icu::UnicodeString m_label;
    unsigned short m_length = 0;
    unsigned short m_mass = 0;
    unsigned short m_time = 0;
    unsigned short m_force = 0;
    unsigned short m_angle = 0;

    friend bool operator==(UnitSystemData const&, UnitSystemData const&) = default;
};

class KFRIUnitsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("KFR.Util.Units.KFRIUnits")

    /// All unit systems, in the service's order, in place of what `systems` held.
    virtual KFRResult getUnitSystems(KFRSequence<UnitSystemInfo>& systems) = 0;

    /// Whether the system of that name is one that users are offered.
    virtual KFRResult isCounted(icu::UnicodeString const& name, bool& counted) = 0;

    /// Fails, with `data` as it was, for a name that no system has.
    virtual KFRResult getUnitSystemData(icu::UnicodeString const& name, UnitSystemData& data) = 0;
};

}  // namespace KFR::Util::Units
