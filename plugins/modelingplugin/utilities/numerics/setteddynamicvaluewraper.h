/// \file
/// Wrapper of a value over a range that may be set.

#pragma once

#include "platform/units/settedvalues.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// A value over a range, set or not, in one of two forms: a transfer function, with samples of
/// three numbers, or a plain course, with samples of two.
///
/// Units      The owner's.
class MODELING_API SettedDynamicValueWraper {
public:
    using SettedDynamicValue = KFR::Util::Units::SettedDynamicValue;

    explicit SettedDynamicValueWraper(SettedDynamicValue const& value) : m_value(value) {}
    /// No samples, scale 1.
    SettedDynamicValueWraper(bool isSetted, bool isTransfer);

    [[nodiscard]] double getScale() const { return m_value.m_scale; }
    void setSetted(bool isSetted) { m_value.m_setted = isSetted; }
    /// No samples in either form, scale 1. The form is that of a transfer function here as well;
    /// this is meant.
    void setFullyDynamic();
    /// A transfer function of constant 1 from 0 to 100000, scale 1, no samples in the other form.
    void setTransferFunction();

    /// 1 when the second number of any sample is above 0, else -1; 0 when it is not set or has no
    /// samples at all. Asks the samples of the first form, those of the second where there are
    /// none; which form is in use does not matter.
    [[nodiscard]] double dir() const;

    [[nodiscard]] SettedDynamicValue const& getSDV() const { return m_value; }
    [[nodiscard]] SettedDynamicValue& getSDV() { return m_value; }

    /// Both not set; or both set and of one form, with as many samples of it, all of whose numbers
    /// are nearer than kSettedValueTolerance. Scale and the second pair of sequences do not count.
    friend MODELING_API bool operator==(SettedDynamicValueWraper const& left,
                                        SettedDynamicValueWraper const& right);

private:
    SettedDynamicValue m_value;
};

}  // namespace vrn::orlo::plugin::modeling
