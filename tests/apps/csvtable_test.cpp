#include "apps/orlo/csvtable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>

namespace vrn::orlo::app {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::array<std::string_view, 2> kNames{"time", "value"};

struct TextRow {
    char const* m_name;
    char const* m_text;
    char const* m_says = "";  ///< Part of the message.
};

void PrintTo(TextRow const& row, std::ostream* out)
{
    *out << row.m_name;
}

std::string nameOf(::testing::TestParamInfo<TextRow> const& row)
{
    return row.param.m_name;
}

class CsvReads : public ::testing::TestWithParam<TextRow> {};

TEST_P(CsvReads, TwoRowsOfTwoNumbers)
{
    CsvTable const table = parseCsv(GetParam().m_text, "f.csv", kNames);
    EXPECT_THAT(table.m_columns[0], ElementsAre(0.0, 0.5));
    EXPECT_THAT(table.m_columns[1], ElementsAre(1.0, -2.0));
}

// clang-format off
TextRow const kGood[] = {
    {"Plain",           "0,1\n0.5,-2\n"},
    {"NoLastLineEnd",   "0,1\n0.5,-2"},
    {"Header",          "time,value\n0,1\n0.5,-2\n"},
    {"Semicolons",      "t;v\n0;1\n0.5;-2\n"},
    {"CrLf",            "time,value\r\n0,1\r\n0.5,-2\r\n"},
    {"Utf8Mark",        "\xEF\xBB\xBFtime,value\n0,1\n0.5,-2\n"},
    {"Comments",        "# from a gauge\n\ntime,value\n0,1\n  # here, too\n0.5,-2\n\n"},
    {"SpacesAndQuotes", "\"time\",\"value\"\n \"0\" , 1\n\t+0.5 ,\"-2\"\n"},
    {"SeparatorAtEnd",  "0,1,\n0.5,-2,\n"},
    {"Exponents",       "0e0,1E+0\n5e-1,-0.2e1\n"},
};
TextRow const kBad[] = {
    {"MissingColumn",   "0,1\n5\n",            "f.csv:2: the value is missing"},
    {"EmptyField",      "0,1\n,5\n",           "f.csv:2: the time is missing"},
    {"ColumnTooMany",   "0,1\n1,2,3\n",        "f.csv:2: there are more than 2 columns"},
    {"TextInANumber",   "time,value\n0,1x\n",  "f.csv:2: the value '1x' is not a number"},
    {"SecondHeader",    "t,v\nt,v\n",          "f.csv:2: the time 't' is not a number"},
    {"HalfAHeader",     "0,volts\n",           "f.csv:1: the value 'volts' is not a number"},
    {"NotANumber",      "0,1\n1,nan\n",        "f.csv:2: the value 'nan' is not finite"},
    {"Infinite",        "# c\n0,1\n-inf,1\n",  "f.csv:3: the time '-inf' is not finite"},
    {"OutOfRange",      "0,1e999\n",           "f.csv:1: the value '1e999' is out of the range"},
    {"DecimalComma",    "0;1\n0,5;2\n",        "f.csv:2: the time '0,5' has a decimal comma"},
    {"ControlBytes",    "0,1\n1,\x01\n",       "the value '?' is not a number"},
    {"Empty",           "",                    "f.csv: has no rows"},
    {"HeaderOnly",      "time,value\n",        "f.csv: has no rows"},
    {"Utf16",           "\xFF\xFE" "0",        "f.csv: is UTF-16"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Csv, CsvReads, ::testing::ValuesIn(kGood), nameOf);

class CsvRefuses : public ::testing::TestWithParam<TextRow> {};

TEST_P(CsvRefuses, InOneLineThatNamesFileAndRow)
{
    try {
        static_cast<void>(parseCsv(GetParam().m_text, "f.csv", kNames));
        ADD_FAILURE() << "read";
    } catch (CsvError const& error) {
        EXPECT_THAT(error.what(), StartsWith("f.csv:"));
        EXPECT_THAT(error.what(), HasSubstr(GetParam().m_says));
        EXPECT_THAT(error.what(), ::testing::Not(HasSubstr("\n")));
    }
}

INSTANTIATE_TEST_SUITE_P(Csv, CsvRefuses, ::testing::ValuesIn(kBad), nameOf);

TEST(CsvFile, ThatIsMissingOrAFolderIsNamed)
{
    EXPECT_THROW(static_cast<void>(readCsv("/nowhere/f.csv", kNames)), CsvError);
    EXPECT_THROW(static_cast<void>(readCsv("/tmp", kNames)), CsvError);
}

TEST(CsvTable, KnowsTheLineOfARow)
{
    CsvTable const table = parseCsv("# c\nt,v\n0,1\n\n1,2\n", "f.csv", kNames);
    EXPECT_EQ(table.at(1, "here"), "f.csv:5: here");
}

}  // namespace
}  // namespace vrn::orlo::app
