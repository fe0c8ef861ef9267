#include "plugins/modelingplugin/utilities/numerics/settedfloatvaluewraper.h"

#include "plugins/modelingplugin/utilities/numerics/settedvalues.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

bool SettedFloatValueWraper::isZero() const
{
    return !m_value.m_setted || std::fabs(m_value.m_value) < kSettedValueTolerance;
}

bool operator==(SettedFloatValueWraper const& left, SettedFloatValueWraper const& right)
{
    auto const& a = left.m_value;
    auto const& b = right.m_value;
    if (a.m_unit != b.m_unit || a.m_setted != b.m_setted) {
        return false;
    }
    return !a.m_setted || std::fabs(a.m_value - b.m_value) < kSettedValueTolerance;
}

}  // namespace vrn::orlo::plugin::modeling
