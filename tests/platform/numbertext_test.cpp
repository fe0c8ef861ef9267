#include "platform/kfr/numbertext.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

TEST(NumberText, IsTheShortestThatReadsBack)
{
    // clang-format off
    constexpr struct {
        double m_value;
        char const* m_text;
    } kRows[] = {
        {0.0, "0"}, {-0.0, "-0"}, {0.5, "0.5"}, {200.0, "200"}, {-1.25, "-1.25"},
        {1e-9, "1e-09"}, {0.1 + 0.2, "0.30000000000000004"}, {1e22, "1e+22"},
        {1.7976931348623157e308, "1.7976931348623157e+308"},
        {std::numeric_limits<double>::infinity(), "inf"},
    };
    // clang-format on
    for (auto const& [value, text] : kRows) {
        EXPECT_EQ(KFR::numberText(value), text);
        EXPECT_EQ(std::stod(KFR::numberText(value)), value);
    }
}

}  // namespace
