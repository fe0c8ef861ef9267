#include "platform/kfr/textvalues.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

TEST(TextValues, AreReadAsTruthAndAsNumber)
{
    constexpr std::optional<bool> kNone;
    // clang-format off
    constexpr struct {
        char const* text;
        std::optional<bool> truth;
        float number;
    } kRows[] = {
        {"true", true, 0}, {"TRUE", true, 0}, {"Yes", true, 0}, {"oN", true, 0}, {"1", true, 1},
        {"false", false, 0}, {"No", false, 0}, {"OFF", false, 0}, {"0", false, 0},
        {"", kNone, 0}, {"true ", kNone, 0}, {"tru", kNone, 0}, {"2", kNone, 2}, {"01", kNone, 1},
        {"0.5", kNone, 0.5F}, {" \t-2.5e1mm", kNone, -25}, {"+3", kNone, 3}, {"+ 3", kNone, 0},
        {".5", kNone, 0.5F}, {"1,5", kNone, 1}, {"1e99", kNone, 0}, {"mm 2", kNone, 0}, {"-", kNone, 0},
        {" \n", kNone, 0},
    };
    // clang-format on
    for (auto const& [text, truth, number] : kRows) {
        EXPECT_EQ(KFR::readBool(text), truth) << text;
        EXPECT_EQ(KFR::stringToBool(text), truth.value_or(false)) << text;
        EXPECT_EQ(KFR::stringToReal32(text), number) << text;
    }
}

}  // namespace
