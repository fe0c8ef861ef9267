#include "plugins/modelingplugin/utilities/numerics/degreefreedom.h"

#include <gtest/gtest.h>

#include <concepts>
#include <string>
#include <type_traits>

namespace vrn::orlo::plugin::modeling {
namespace {

// Each has one integer: with both, every conversion to a number would be ambiguous.
static_assert(std::convertible_to<DegreeFreedom, int>);
static_assert(std::convertible_to<BitDegreeFreedom, unsigned long long>);
static_assert(std::constructible_from<DegreeFreedom, BitDegreeFreedom>);
static_assert(std::constructible_from<BitDegreeFreedom, DegreeFreedom>);
static_assert(!std::convertible_to<BitDegreeFreedom, DegreeFreedom>);

TEST(DegreeFreedom, IsAListOfDigitsAndTheOtherAMask)
{
    // clang-format off
    constexpr struct {
        char const* m_text;
        int m_digits;
        unsigned long long m_mask;
    } kRows[] = {
        {"", 0, 0}, {"x7", 0, 0}, {"0789", 0, 0},
        {"135", 135, 42}, {"531", 135, 42}, {"1 3,5,1", 135, 42},
        {"1", 1, 32}, {"6", 6, 1}, {"-24", 24, 20}, {"123456", 123456, 63},
    };
    // clang-format on
    for (auto const& [text, digits, mask] : kRows) {
        DegreeFreedom const freedom{std::string(text)};
        EXPECT_EQ(freedom.toInt(), digits) << text;
        EXPECT_EQ(freedom.toString(), digits == 0 ? "" : std::to_string(digits)) << text;
        EXPECT_EQ(BitDegreeFreedom(freedom).toInt(), mask) << text;
        EXPECT_EQ(DegreeFreedom(BitDegreeFreedom(mask)).toInt(), digits) << text;
    }
}

TEST(DegreeFreedom, OrdersItsFlags)
{
    DegreeFreedom freedom("126");
    EXPECT_TRUE(freedom.tx() && freedom.ty() && freedom.rz());
    EXPECT_FALSE(freedom.tz() || freedom.rx() || freedom.ry());
    EXPECT_TRUE(freedom.get(5));
    EXPECT_FALSE(freedom.get(6));
    EXPECT_FALSE(freedom.get(-1));
    EXPECT_FALSE(freedom.isAllTranslationalDegreesFixed());
    freedom[2] = true;
    EXPECT_TRUE(freedom.isAllTranslationalDegreesFixed());
    EXPECT_FALSE(freedom.isClamped());
    freedom.rx() = true;
    freedom.ry() = true;
    EXPECT_TRUE(freedom.isClamped());
}

TEST(DegreeFreedom, IsSetByNumbersOfEveryWidthAndFlagByFlag)
{
    DegreeFreedom freedom(531);
    EXPECT_EQ(static_cast<int>(freedom), 135);
    freedom.set(36L);
    EXPECT_EQ(freedom.toInt(), 36);
    freedom.set(6543216543210LL);
    EXPECT_EQ(freedom.toInt(), 123456);
    freedom.set(18446744073709551615ULL);
    EXPECT_EQ(freedom.toInt(), 13456);
    int const flags[6] = {0, 2, 0, 0, -1, 0};
    long long const wide[6] = {1LL << 40, 0, 0, 0, 0, 1};
    freedom.set(flags);
    EXPECT_EQ(freedom.toInt(), 25);
    BitDegreeFreedom bits;
    bits.set(wide);
    EXPECT_EQ(bits.toInt(), 33u);
    bits.set(freedom);  // the flags, not the number 25
    EXPECT_EQ(bits.toInt(), 18u);
}

TEST(BitDegreeFreedom, DividesByTheWeightsInTurn)
{
    EXPECT_EQ(BitDegreeFreedom(63).toUString(), u"111111");
    EXPECT_EQ(BitDegreeFreedom(32).toUString(), u"100000");
    EXPECT_EQ(static_cast<unsigned long long>(BitDegreeFreedom(32)), 32u);
    EXPECT_EQ(BitDegreeFreedom(64).toInt(), 32u);  // too large still fixes tx
    EXPECT_EQ(BitDegreeFreedom(69).toInt(), 37u);  // and the rest goes on
    EXPECT_EQ(BitDegreeFreedom(~0ULL).toInt(), 63u);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
