/// \file
/// Application frame: the units that the user works in.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

namespace vrn::orlo::appfw {

/// Quantities by number: 1 length, 2 mass, 3 time, 4 force, 5 angle; the others are the service's.
///
/// Failure    Operations that fail leave their last argument as it was.
class IUnitsInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IUnits")

    /// The unit in which the user sees values of the quantity.
    virtual KFRResult getCurrentUnit(unsigned short quantity, unsigned short& unit) = 0;

    /// What the unit measures.
    virtual KFRResult getQuantity(unsigned short unit, unsigned short& quantity) = 0;

    /// \param value  in the unit `fromUnit`
    /// \param out    receives it in the unit `toUnit`, which must measure the same quantity
    virtual KFRResult convert(double value, unsigned short fromUnit, unsigned short toUnit,
                              double& out) = 0;

    /// The value as a text for people.
    /// \param flag  1: the number alone; else the number and, where it has one, its unit
    virtual KFRResult format(KFR::Util::Units::FloatValue const& value, icu::UnicodeString& out,
                             int flag) = 0;
};

}  // namespace vrn::orlo::appfw
