#include "apps/orlorun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

namespace vrn::orlo::app {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The second column of a table with a header.
std::vector<double> secondColumn(std::string const& csv)
{
    std::vector<double> column;
    std::istringstream lines(csv);
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) {
        column.push_back(std::stod(line.substr(line.find(',') + 1)));
    }
    return column;
}

std::string signalOf(std::size_t samples)
{
    std::string csv = "time,value\n";
    for (std::size_t i = 0; i < samples; ++i) {
        csv += std::to_string(0.25 * static_cast<double>(i)) + "," +
               std::to_string(std::sin(0.3 * static_cast<double>(i)) + 0.5) + "\n";
    }
    return csv;
}

TEST(OrloSpectrum, ThereAndBackGivesTheValues)
{
    TemporaryFolder const folder;
    for (std::size_t const samples : {2U, 7U, 64U, 101U}) {
        SCOPED_TRACE(samples);
        std::string const signal = signalOf(samples);
        OrloRun const forward = runOrlo({"spectrum", folder.write("signal.csv", signal)});
        ASSERT_EQ(forward.m_status, 0) << forward.m_err;
        EXPECT_THAT(forward.m_out, StartsWith("frequency,magnitude,phase\n"));
        OrloRun const back =
            runOrlo({"spectrum", "--inverse", folder.write("spectrum.csv", forward.m_out)});
        ASSERT_EQ(back.m_status, 0) << back.m_err;
        EXPECT_THAT(secondColumn(back.m_out),
                    ::testing::Pointwise(::testing::DoubleNear(1e-12), secondColumn(signal)));
    }
}

struct BadTable {
    char const* m_name;
    char const* m_text;
    char const* m_place;
};

void PrintTo(BadTable const& row, std::ostream* out)
{
    *out << row.m_name;
}

class OrloSpectrumRefuses : public ::testing::TestWithParam<BadTable> {};

TEST_P(OrloSpectrumRefuses, InOneLineWithTheRow)
{
    TemporaryFolder const folder;
    OrloRun const run = runOrlo({"spectrum", folder.write("bad.csv", GetParam().m_text)});
    EXPECT_EQ(run.m_status, 2);
    EXPECT_EQ(run.m_out, "");
    EXPECT_THAT(run.m_err, HasSubstr(GetParam().m_place));
    EXPECT_EQ(std::count(run.m_err.begin(), run.m_err.end(), '\n'), 1) << run.m_err;
}

// clang-format off
BadTable const kBadTables[] = {
    {"MissingColumn", "time,value\n0,1\n1\n2,3\n",   "bad.csv:3"},
    {"TextInANumber", "0,1\n\n1,2x\n",               "bad.csv:3"},
    {"NaN",           "0,1\n1,nan\n",                "bad.csv:2"},
    {"Unsorted",      "0,1\n2,1\n1,1\n",             "bad.csv:3"},
    {"OneRow",        "time,value\n0,1\n",           "bad.csv"},
    {"Empty",         "",                            "bad.csv"},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Orlo, OrloSpectrumRefuses, ::testing::ValuesIn(kBadTables),
                         [](auto const& row) { return std::string(row.param.m_name); });

}  // namespace
}  // namespace vrn::orlo::app
