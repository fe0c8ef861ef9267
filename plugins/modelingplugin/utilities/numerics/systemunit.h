/// \file
/// The unit systems that a user may choose from, and the current unit system.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/units/units.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling {

using KFR::Util::Units::FloatValue;
using KFR::Util::Units::UnitSystemData;

/// A list of unit systems, taken from the framework's units service.
///
/// Units      Unit ids and quantities are those of the units services; length is quantity 1.
/// Order      The service's.
/// Failure    An outcome value where the operation has one, else silent: a service that is missing
///            or has nothing to say gives an empty list, unit 0, or leaves the output alone.
/// Ownership  Keeps texts only. Services are fetched at each call.
/// Threads    Main thread: the services are the main thread's.
class MODELING_API SystemUnit {
public:
    enum UnitFilterEnum {
        standardUnits = 0,
        mnfUnits = 1,  ///< Without the six systems that a modal neutral file cannot state.
    };

    explicit SystemUnit(SystemUnit::UnitFilterEnum filter);

    /// A copy of a list that is built at the first call and never again: what the service learns or
    /// loses afterwards is not seen, not even when the list was empty.
    [[nodiscard]] static SystemUnit getStandardUnit();
    /// The same with the other filter, and with a list of its own.
    [[nodiscard]] static SystemUnit getMNFUnit();

    /// Puts the names in place of what `names` held.
    void getUnitSystemNames(KFRSequence<icu::UnicodeString>& names);
    /// Likewise the labels.
    void getUnitSystemLabels(KFRSequence<icu::UnicodeString>& labels);

    /// What the service knows of a system of this list.
    /// \param index  place in the list
    /// \return KFR::notDone, with `out` as it was, for an index that is out of range and for a
    ///         missing service; else the service's outcome
    KFRResult getUnitSystemDataByLocalID(int index, UnitSystemData& out);

    /// The system "SI" or "SI_mm", as the current length unit is. Any other length unit, inches
    /// too, gives "SI".
    static void getBaseUnitSystem(UnitSystemData& out);

    /// The current length unit; 0 when there is no service to ask.
    [[nodiscard]] static unsigned short lengthUnit();
    [[nodiscard]] static bool isUseMeter();

    /// The value in the current unit of what it measures, with the two bytes of its head passed on.
    /// \param out  may be `in`; as it was on a failure
    /// \return     the service's first outcome that is no success; KFR::notDone without a service
    static KFRResult convertToCurrentFloatValue(FloatValue const& in, FloatValue& out);

private:
    void initUnits(UnitFilterEnum filter);

    std::vector<std::pair<icu::UnicodeString, icu::UnicodeString>> m_units;  // name, label
};

}  // namespace vrn::orlo::plugin::modeling
