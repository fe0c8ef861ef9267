#include "host/kernel/serviceparameters.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

using Values = std::map<std::string, std::string>;

// clang-format off
struct {
    char const* name;
    char const* text;
    bool isWellFormed;
    std::vector<std::string> tables;
    Values values;
} const kParameterCases[] = {
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

TEST(ServiceParametersOf, ATextAreItsTablesAndValues)
{
    for (auto const& row : kParameterCases) {
        SCOPED_TRACE(row.name);
        auto const parsed = ServiceParameters::parse(row.text);
        ASSERT_EQ(parsed.has_value(), row.isWellFormed);
        if (parsed) {
            EXPECT_EQ(parsed->m_tables, row.tables);
            EXPECT_EQ(parsed->m_values, row.values);
        }
    }
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
