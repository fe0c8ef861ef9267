#include "host/study/nearestkey.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>

namespace vrn::orlo::host::study {
namespace {

// clang-format off
struct {
    char const* name;
    std::string_view a;
    std::string_view b;
    std::size_t expected;
} const kDistanceCases[] = {
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

TEST(EditDistance, IsTheSameBothWays)
{
    for (auto const& row : kDistanceCases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(editDistance(row.a, row.b), row.expected);
        EXPECT_EQ(editDistance(row.b, row.a), row.expected);
    }
}

constexpr std::array<std::string_view, 3> kKnown{"study", "geometry", "outputs"};

TEST(NearestKey, FindsTheFirstOfTheNearestWordsOrNone)
{
    constexpr std::array<std::string_view, 2> kTwins{"bolt", "belt"};
    EXPECT_EQ(nearestKey("balt", kTwins), "bolt");
    EXPECT_EQ(nearestKey("geometri", kKnown), "geometry");
    EXPECT_EQ(nearestKey("output", kKnown), "outputs");
    EXPECT_EQ(nearestKey("STUDY", kKnown), "study");
    EXPECT_EQ(nearestKey("temperature", kKnown), "");
    EXPECT_EQ(nearestKey("study", {}), "");
    EXPECT_EQ(nearestKey(std::string(100'000, 'g'), kKnown), "");
}

}  // namespace
}  // namespace vrn::orlo::host::study
