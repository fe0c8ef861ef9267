/// \file
/// Wrapper of a number that may be set.

#pragma once

#include "platform/units/settedvalues.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// A number with its unit id, set or not.
///
/// Units      That of the id. Values are compared as they stand; ids have to be equal.
class MODELING_API SettedFloatValueWraper {
public:
    using SettedFloatValue = KFR::Util::Units::SettedFloatValue;

    explicit SettedFloatValueWraper(SettedFloatValue const& value) : m_value(value) {}
    /// Not set.
    explicit SettedFloatValueWraper(unsigned short unit) : m_value{false, unit, 0.0} {}
    /// Set. The type tells the arguments apart: the double is the value.
    SettedFloatValueWraper(unsigned short unit, double value) : m_value{true, unit, value} {}
    SettedFloatValueWraper(double value, unsigned short unit) : m_value{true, unit, value} {}

    [[nodiscard]] double getValue() const { return m_value.m_value; }
    /// Whether the value is set stays as it is.
    void setValue(double const& value) { m_value.m_value = value; }
    void setSetted(bool isSetted) { m_value.m_setted = isSetted; }
    [[nodiscard]] SettedFloatValue const& getSFV() const { return m_value; }
    [[nodiscard]] SettedFloatValue& getSFV() { return m_value; }

    /// Not set, or nearer to 0 than kSettedValueTolerance.
    [[nodiscard]] bool isZero() const;

    /// Units first, so two that are not set differ when their units do. Then both not set, or both
    /// set and nearer than kSettedValueTolerance.
    friend MODELING_API bool operator==(SettedFloatValueWraper const& left,
                                        SettedFloatValueWraper const& right);

private:
    SettedFloatValue m_value;
};

}  // namespace vrn::orlo::plugin::modeling
