#include "host/study/keytable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

namespace vrn::orlo::host::study {
namespace {

using ::testing::ElementsAre;
using ::testing::StrEq;

using Calls = std::vector<std::string>;

void record(KeyPlace const& place, DocumentNode const&, Calls& calls)
{
    calls.push_back(place.m_key + "@" + std::to_string(place.m_line));
}

constexpr std::array kTable{
    KeyRow<Calls>{{"first", Need::required, NodeKind::text, "first: 1"}, record},
    KeyRow<Calls>{{"second", Need::optional, NodeKind::list, "second: [1, 2]"}, record},
};

/// What the table says to a text below the key "load".
std::string answerTo(std::string const& text, Calls& calls)
{
    DocumentNode const root = parseStudyDocument("s.yaml", text);
    try {
        readKeys({"s.yaml", root.m_line, "load"}, root, kTable, calls);
    } catch (StudyError const& error) {
        return error.what();
    }
    return "";
}

TEST(KeyTable, CallsReadersInTheOrderOfTheTable)
{
    Calls calls;
    EXPECT_EQ(answerTo("second: [a]\nfirst: b\n", calls), "");
    EXPECT_THAT(calls, ElementsAre("load.first@2", "load.second@1"));
}

TEST(KeyTable, CallsNoReaderForAMapWithAnError)
{
    Calls calls;
    EXPECT_THAT(answerTo("first: b\nsecond: c\n", calls),
                StrEq("s.yaml:2: load.second: is a text, and should be a list; write for instance "
                      "'second: [1, 2]'"));
    EXPECT_THAT(calls, ElementsAre());
}

TEST(KeyTable, CountsListItemsFromOneAndDropsOuterBlanksOnly)
{
    DocumentNode value;
    value.m_line = 7;
    KeyPlace const place = placeOfItem({"s.yaml", 6, "loads"}, value, 1);
    EXPECT_EQ(place.m_key, "loads[1]");
    EXPECT_EQ(place.m_line, 7);
    value.m_text = " \ta  b \n";
    EXPECT_EQ(lineOfText({}, value), "a  b");
}

}  // namespace
}  // namespace vrn::orlo::host::study
