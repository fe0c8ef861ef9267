#include "host/study/nearestkey.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>
#include <string_view>

namespace vrn::orlo::host::study {
namespace {

struct DistanceCase {
    char const* name;
    std::string_view a;
    std::string_view b;
    std::size_t expected;
};

void PrintTo(DistanceCase const& row, std::ostream* out)
{
    *out << row.name << ": '" << row.a << "' to '" << row.b << "'";
}

class EditDistance : public ::testing::TestWithParam<DistanceCase> {};

TEST_P(EditDistance, IsTheSameBothWays)
{
    EXPECT_EQ(editDistance(GetParam().a, GetParam().b), GetParam().expected);
    EXPECT_EQ(editDistance(GetParam().b, GetParam().a), GetParam().expected);
}

// clang-format off
DistanceCase const kDistanceCases[] = {
    // name                a           b           expected
    {"BothEmpty",          "",         "",         0},
    {"OneEmpty",           "",         "tree",     4},
    {"Equal",              "tree",     "tree",     0},
    {"OneLetterChanged",   "tree",     "trea",     1},
    {"OneLetterLeftOut",   "geometry", "geomtry",  1},
    {"TwoNeighboursSwapped", "study",  "stduy",    1},
    {"CapitalsAreTheSame", "Study",    "sTUDY",    0},
    {"NothingInCommon",    "abc",      "xyz",      3},
    {"OfDifferentLength",  "kitten",   "sitting",  3},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(NearestKey, EditDistance, ::testing::ValuesIn(kDistanceCases),
                         [](auto const& row) { return std::string(row.param.name); });

constexpr std::array<std::string_view, 3> kKnown{"study", "geometry", "outputs"};

TEST(NearestKey, FindsTheWordThatWasMeant)
{
    EXPECT_EQ(nearestKey("geometri", kKnown), "geometry");
    EXPECT_EQ(nearestKey("output", kKnown), "outputs");
    EXPECT_EQ(nearestKey("STUDY", kKnown), "study");
}

TEST(NearestKey, StaysSilentWhenNothingIsNear)
{
    EXPECT_EQ(nearestKey("temperature", kKnown), "");
    EXPECT_EQ(nearestKey("study", {}), "");
    EXPECT_EQ(nearestKey(std::string(100'000, 'g'), kKnown), "");
}

TEST(NearestKey, TakesTheFirstOfEquallyNearWords)
{
    constexpr std::array<std::string_view, 2> kTwins{"bolt", "belt"};
    EXPECT_EQ(nearestKey("balt", kTwins), "bolt");
}

}  // namespace
}  // namespace vrn::orlo::host::study
