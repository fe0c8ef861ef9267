#include "plugins/modelingplugin/utilities/numerics/setteddynamicvaluewraper.h"
#include "plugins/modelingplugin/utilities/numerics/settedfloatvaluewraper.h"

#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using KFR::Util::Units::SettedDynamicValue;
using KFR::Util::Units::SettedFloatValue;
using KFR::Util::Units::TripleSample;

using Float = SettedFloatValueWraper;
using Dynamic = SettedDynamicValueWraper;

constexpr unsigned short kLength = 1000;
constexpr unsigned short kMass = 999;

TEST(SettedFloatValueWraper, IsSetByAValueAndNotByAUnit)
{
    EXPECT_EQ(Float(kLength).getSFV(), (SettedFloatValue{false, kLength, 0.0}));
    EXPECT_EQ(Float(kLength, 2.5).getSFV(), (SettedFloatValue{true, kLength, 2.5}));
    EXPECT_EQ(Float(2.5, kLength).getSFV(), (SettedFloatValue{true, kLength, 2.5}));
    Float value(kLength);
    value.setValue(4.0);
    EXPECT_EQ(value.getSFV(), (SettedFloatValue{false, kLength, 4.0}));
    value.setSetted(true);
    EXPECT_EQ(value.getSFV(), (SettedFloatValue{true, kLength, 4.0}));
}

TEST(SettedFloatValueWraper, IsZeroBelowTheToleranceOrWhenNotSet)
{
    EXPECT_TRUE(Float(SettedFloatValue{false, kLength, 7.0}).isZero());
    EXPECT_TRUE(Float(kLength, -4.9e-9).isZero());
    EXPECT_FALSE(Float(kLength, 5e-9).isZero());  // strict
    EXPECT_FALSE(Float(kLength, -5e-9).isZero());
}

TEST(SettedFloatValueWraper, ComparesUnitsFirst)
{
    EXPECT_NE(Float(kLength), Float(kMass));
    EXPECT_EQ(Float(kLength), Float(SettedFloatValue{false, kLength, 7.0}));
    EXPECT_NE(Float(kLength), Float(kLength, 0.0));
    EXPECT_NE(Float(kLength, 1.0), Float(kMass, 1.0));
    EXPECT_EQ(Float(kLength, 0.0), Float(kLength, 4.9e-9));
    EXPECT_NE(Float(kLength, 0.0), Float(kLength, 5e-9));
}

TEST(SettedDynamicValueWraper, ComparesTheFormInUse)
{
    SettedDynamicValue value{true, {{0, 1, 2}}, {{3, 4}}, true, 1.0, {}, {}};
    SettedDynamicValue other = value;
    other.m_pairs.append({5, 6});
    other.m_scale = 2.0;
    other.m_otherPairs.append({7, 8});
    EXPECT_EQ(Dynamic(value), Dynamic(other));

    value.m_isTransfer = false;
    EXPECT_NE(Dynamic(value), Dynamic(other));  // the forms differ
    other.m_isTransfer = false;
    EXPECT_NE(Dynamic(value), Dynamic(other));  // one sample more
    other.m_pairs = {{3, 4 + 4e-9}};
    EXPECT_EQ(Dynamic(value), Dynamic(other));
    other.m_pairs = {{3, 4 + 6e-9}};
    EXPECT_NE(Dynamic(value), Dynamic(other));

    value.m_setted = false;
    EXPECT_NE(Dynamic(value), Dynamic(other));
    other.m_setted = false;
    EXPECT_EQ(Dynamic(value), Dynamic(other));
}

TEST(SettedDynamicValueWraper, ComparesEveryNumberOfASample)
{
    SettedDynamicValue const value{true, {{1, 2, 3}}, {}, true, 1.0, {}, {}};
    for (TripleSample const& sample :
         {TripleSample{1.1, 2, 3}, TripleSample{1, 2.1, 3}, TripleSample{1, 2, 3.1}}) {
        SettedDynamicValue other = value;
        other.m_triples = {sample};
        EXPECT_NE(Dynamic(value), Dynamic(other));
    }
}

TEST(SettedDynamicValueWraper, BothSettersMakeATransferFunction)
{
    Dynamic value(SettedDynamicValue{true, {{1, 2, 3}}, {{1, 2}}, false, 3.0, {{4, 5, 6}}, {}});
    value.setTransferFunction();
    KFRSequence<TripleSample> const other{{4, 5, 6}};
    EXPECT_EQ(value.getSDV(),
              (SettedDynamicValue{
                  true, {{0.0, 1.0, 0.0}, {100000.0, 1.0, 0.0}}, {}, true, 1.0, other, {}}));
    value.setFullyDynamic();
    EXPECT_EQ(value.getSDV(), (SettedDynamicValue{true, {}, {}, true, 1.0, other, {}}));
    EXPECT_EQ(Dynamic(true, false).getScale(), 1.0);
    EXPECT_FALSE(Dynamic(true, false).getSDV().m_isTransfer);
}

TEST(SettedDynamicValueWraper, DirectionGoesByTheSamplesThatThereAre)
{
    // clang-format off
    struct {
        SettedDynamicValue m_value;
        double m_direction;
    } const rows[] = {
        {{true,  {},                      {},                 true,  1.0, {}, {}},  0.0},
        {{false, {{0, 1, 0}},             {},                 true,  1.0, {}, {}},  0.0},
        {{true,  {{0, -1, 0}, {0, 1, 0}}, {},                 true,  1.0, {}, {}},  1.0},
        {{true,  {{1, 0, 1}},             {},                 true,  1.0, {}, {}}, -1.0},
        {{true,  {},                      {{0, -1}, {0, 1}},  true,  1.0, {}, {}},  1.0},
        {{true,  {},                      {{1, 0}},           true,  1.0, {}, {}}, -1.0},
        {{true,  {{1, -1, 1}},            {{0, 1}},           false, 1.0, {}, {}}, -1.0},
    };
    // clang-format on
    for (auto const& [value, direction] : rows) {
        EXPECT_EQ(Dynamic(value).dir(), direction);
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
