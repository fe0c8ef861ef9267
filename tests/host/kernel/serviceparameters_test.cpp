#include "host/kernel/serviceparameters.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

using Values = std::map<std::string, std::string>;

struct ParameterCase {
    char const* name;
    char const* text;
    bool isWellFormed;
    std::vector<std::string> tables;
    Values values;
};

void PrintTo(ParameterCase const& row, std::ostream* out)
{
    *out << row.name << ": \"" << row.text << '"';
}

class ServiceParametersOf : public ::testing::TestWithParam<ParameterCase> {};

TEST_P(ServiceParametersOf, ATextAreItsTablesAndValues)
{
    auto const parsed = ServiceParameters::parse(GetParam().text);
    ASSERT_EQ(parsed.has_value(), GetParam().isWellFormed);
    if (parsed) {
        EXPECT_EQ(parsed->m_tables, GetParam().tables);
        EXPECT_EQ(parsed->m_values, GetParam().values);
    }
}

// clang-format off
ParameterCase const kParameterCases[] = {
    // name                     text                          well   tables      values
    {"Empty",                   "",                           true,  {},         {}},
    {"ShortTable",              "#=T",                        true,  {"T"},      {}},
    {"LongTable",               "serviceTable=T",             true,  {"T"},      {}},
    {"TableAppendedToValues",   "a=1,b=2,serviceTable=T",     true,  {"T"},      {{"a", "1"}, {"b", "2"}}},
    {"OneTableTwice",           "#=T,serviceTable=T",         true,  {"T"},      {}},
    {"TwoTables",               "#=U,serviceTable=T",         true,  {"U", "T"}, {}},
    {"EmptyValue",              "a=",                         true,  {},         {{"a", ""}}},
    {"ValueWithEquals",         "a=b=c",                      true,  {},         {{"a", "b=c"}}},
    {"SameValueTwice",          "a=1,a=1",                    true,  {},         {{"a", "1"}}},
    {"TwoValuesOfOneKey",       "a=1,a=2",                    false, {},         {}},
    {"TableWithoutName",        "#=",                         false, {},         {}},
    {"NoEquals",                "table",                      false, {},         {}},
    {"NoKey",                   "=1",                         false, {},         {}},
    {"EmptyItemAtTheEnd",       "a=1,",                       false, {},         {}},
    {"EmptyItemAtTheStart",     ",a=1",                       false, {},         {}},
    {"LoneComma",               ",",                          false, {},         {}},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ServiceParameters, ServiceParametersOf,
                         ::testing::ValuesIn(kParameterCases),
                         [](auto const& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace vrn::orlo::host::kernel
