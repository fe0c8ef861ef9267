#include "plugins/modelingplugin/utilities/numerics/valueranges.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Util::Units::FloatValue;

std::uint32_t headOf(FloatValue const& value)
{
    std::uint32_t head = 0;
    std::memcpy(&head, &value, sizeof head);
    return head;
}

#define ROW(name) #name, ValueRanges::name()

TEST(ValueRanges, HaveTheirBoundsAndUnits)
{
    // clang-format off
    struct {
        char const* m_name;
        FloatValueRange m_range;
        int m_lowKind;
        double m_low;
        int m_highKind;
        double m_high;
        std::uint32_t m_head;
    } const rows[] = {
        {ROW(getBehaviorMomentRange),             2,   0.0, 0, 0.0, 0x60000},
        {ROW(getBehaviorThicknessRange),          2,   0.0, 0, 0.0, 0x60000},
        {ROW(getMaterialDampingCoefficientRange), 1,   0.0, 0, 0.0, 0x60000},
        {ROW(getMaterialDensityRange),            2,   0.0, 0, 0.0, 0x603E1},
        {ROW(getMaterialPoissonRatioRange),       2,   0.0, 1, 0.5, 0x60000},
        {ROW(getMaterialShearModulusGxyRange),    2,   0.0, 0, 0.0, 0x603DC},
        {ROW(getMaterialShearModulusGxzRange),    1,   0.0, 0, 0.0, 0x603DC},
        {ROW(getMaterialShearModulusGyzRange),    1,   0.0, 0, 0.0, 0x603DC},
        {ROW(getMaterialYoungsModulusRange),      2,   0.0, 0, 0.0, 0x603DC},
        {ROW(getMatrixConditionLimit),            2,   0.0, 0, 0.0, 0x60000},
        {ROW(getPlyThicknessRange),               2,   0.0, 0, 0.0, 0x603E8},
        {ROW(getPointMassInertiaRange),           1,   0.0, 0, 0.0, 0x603CF},
        {ROW(getPointMassMassRange),              1,   0.0, 0, 0.0, 0x603E7},
        {ROW(getSectionThicknessRange),           2,   0.0, 0, 0.0, 0x603E8},
        {ROW(getStressLimitRange),                2,   0.0, 0, 0.0, 0x603DC},
        {ROW(getSolverMemoryRange),               1, 200.0, 0, 0.0, 0x603C2},
    };
    // clang-format on
    for (auto const& row : rows) {
        FloatValue low;
        FloatValue high;
        EXPECT_EQ(row.m_range.getLowBound(low), row.m_lowKind) << row.m_name;
        EXPECT_EQ(low.m_value, row.m_low) << row.m_name;
        EXPECT_EQ(headOf(low), row.m_head) << row.m_name;
        EXPECT_EQ(row.m_range.getUpBound(high), row.m_highKind) << row.m_name;
        EXPECT_EQ(high.m_value, row.m_high) << row.m_name;
        EXPECT_EQ(headOf(high), row.m_highKind == 0 ? 0 : row.m_head) << row.m_name;
    }
}

TEST(ValueRanges, LetTheTransverseShearModuliBeZeroButNotThatOfThePlane)
{
    EXPECT_FALSE(ValueRanges::getMaterialShearModulusGxyRange().inRange({}));
    EXPECT_TRUE(ValueRanges::getMaterialShearModulusGxzRange().inRange({}));
    EXPECT_TRUE(ValueRanges::getMaterialShearModulusGyzRange().inRange({}));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
