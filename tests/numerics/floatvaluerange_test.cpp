#include "plugins/modelingplugin/utilities/numerics/floatvaluerange.h"

#include <gtest/gtest.h>

#include <limits>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Util::Units::FloatValue;

FloatValue number(double value, unsigned short unit = 0)
{
    return {unit, 0, 0, value};
}

TEST(FloatValueRange, OpenBoundsLeaveThemselvesOut)
{
    auto const zero = number(0.0);
    auto const half = number(0.5);
    // clang-format off
    struct {
        FloatValueRange m_range;
        char16_t const* m_text;
        bool m_below, m_low, m_between, m_high, m_above;
    } const rows[] = {
        {{},                             u"(-\u221E,+\u221E)", true,  true,  true, true,  true},
        {{zero, false, half, false},     u"[0,0.5]",           false, true,  true, true,  false},
        {{zero, true, half, true},       u"(0,0.5)",           false, false, true, false, false},
        {{zero, true, half, false},      u"(0,0.5]",           false, false, true, true,  false},
        {{zero, true, true},             u"(0,+\u221E)",       false, false, true, true,  true},
        {{zero, true, false},            u"[0,+\u221E)",       false, true,  true, true,  true},
        {{half, false, true},            u"(-\u221E,0.5)",     true,  true,  true, false, false},
        {{half, false, false},           u"(-\u221E,0.5]",     true,  true,  true, true,  false},
    };
    // clang-format on
    for (auto const& row : rows) {
        EXPECT_EQ(row.m_range.toString(), row.m_text);
        EXPECT_EQ(row.m_range.inRange(number(-1e-9)), row.m_below);
        EXPECT_EQ(row.m_range.inRange(zero), row.m_low);
        EXPECT_EQ(row.m_range.inRange(number(0.25)), row.m_between);
        EXPECT_EQ(row.m_range.inRange(half), row.m_high);
        EXPECT_EQ(row.m_range.inRange(number(0.6)), row.m_above);
        EXPECT_TRUE(row.m_range.inRange(number(std::numeric_limits<double>::quiet_NaN())));
    }
}

TEST(FloatValueRange, AnswersTheKindAndTheBound)
{
    FloatValueRange const range(number(7.0, 988), false, true);
    EXPECT_TRUE(range.inRange(number(6.5, 1)));  // whatever the units
    FloatValue out = number(3.0);
    EXPECT_EQ(range.getUpBound(out), 2);
    EXPECT_EQ(out, number(7.0, 988));
    EXPECT_EQ(range.getLowBound(out), 0);
    EXPECT_EQ(out, FloatValue());
    EXPECT_EQ(FloatValueRange(number(7.0), true, false).getLowBound(out), 1);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
