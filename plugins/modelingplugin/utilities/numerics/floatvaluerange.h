/// \file
/// A range of physical values.

#pragma once

#include "platform/kfr/floatvalue.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <unicode/unistr.h>

namespace vrn::orlo::plugin::modeling {

/// An interval with a closed, an open or no bound at either end.
///
/// Units      Each bound has its own, and none is looked at: inRange compares the numbers as they
///            stand.
class MODELING_API FloatValueRange {
public:
    using FloatValue = KFR::Util::Units::FloatValue;

    /// Kinds of a bound.
    enum Kind : int { none = 0, closed = 1, open = 2 };

    /// No bounds.
    FloatValueRange() = default;
    FloatValueRange(FloatValue const& low, bool lowOpen, FloatValue const& high, bool highOpen);
    /// One bound: the low or the high one.
    FloatValueRange(FloatValue const& value, bool isLow, bool isOpen);

    /// Copies the bound, whatever its kind, and returns its kind.
    int getLowBound(FloatValue& out) const;
    int getUpBound(FloatValue& out) const;

    /// A NaN is in every range.
    [[nodiscard]] bool inRange(FloatValue const& value) const;

    /// In mathematical notation: "[0,0.5)", and "(-∞" or "+∞)" for no bound.
    [[nodiscard]] icu::UnicodeString toString() const;

private:
    int m_lowKind = none;
    int m_highKind = none;
    FloatValue m_low;
    FloatValue m_high;
};

}  // namespace vrn::orlo::plugin::modeling
