// Which types each predicate accepts.

#include "tests/selection/expectedpredicates.h"
#include "tests/selection/selectionscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::candidateNames;
using test::ExpectedPredicate;
using test::SelectionScope;
using ::testing::UnorderedElementsAreArray;

/// The rows whose predicate has a form.
template <class Form>
std::vector<ExpectedPredicate> rowsWith(Form form)
{
    std::vector<ExpectedPredicate> rows = test::expectedPredicates();
    std::erase_if(rows, [form](ExpectedPredicate const& row) { return !(row.*form); });
    return rows;
}

/// What of all names makes `accepts` true.
template <class Accepts>
std::vector<std::string> acceptedNames(SelectionScope& platform, Accepts accepts)
{
    std::vector<std::string> names;
    for (std::string const& name : candidateNames()) {
        if (accepts(platform.idOf(name))) {
            names.push_back(name);
        }
    }
    return names;
}

class PredicateOfAReference : public ::testing::TestWithParam<ExpectedPredicate> {};
class PredicateOfAnId : public ::testing::TestWithParam<ExpectedPredicate> {};

TEST_P(PredicateOfAReference, AcceptsExactlyItsNamesAndReadsTheTypeAlone)
{
    SelectionScope platform;
    auto const& row = GetParam();
    unsigned int const decoy = platform.idOf(row.accepted.front());
    auto const owner = KFR::make<test::Stranger>();
    EXPECT_THAT(acceptedNames(platform,
                              [&](unsigned int typeId) {
                                  return row.ofReference({owner, typeId, decoy, decoy});
                              }),
                UnorderedElementsAreArray(row.accepted));
    EXPECT_FALSE(row.ofReference({}));
    EXPECT_FALSE(row.ofReference({.service = {}, .typeId = 0xFFFFFFFFu}));
}

TEST_P(PredicateOfAnId, AcceptsExactlyItsNames)
{
    SelectionScope platform;
    auto const& row = GetParam();
    EXPECT_THAT(acceptedNames(platform, row.ofId), UnorderedElementsAreArray(row.accepted));
    EXPECT_FALSE(row.ofId(0));
    EXPECT_FALSE(row.ofId(0xFFFFFFFFu));
}

INSTANTIATE_TEST_SUITE_P(SelectFilter, PredicateOfAReference,
                         ::testing::ValuesIn(rowsWith(&ExpectedPredicate::ofReference)),
                         [](auto const& row) { return row.param.name; });
INSTANTIATE_TEST_SUITE_P(SelectFilter, PredicateOfAnId,
                         ::testing::ValuesIn(rowsWith(&ExpectedPredicate::ofId)),
                         [](auto const& row) { return row.param.name; });

TEST(TypePredicates, AreAllExpectedHere)
{
    std::vector<std::string> const all{
#define TYPE_PREDICATE(forms, name, test) #name,
#include "plugins/modelingplugin/utilities/selection/typepredicates.def"
        "isConstraint"};
    std::vector<std::string> expected;
    for (auto const& row : test::expectedPredicates()) {
        expected.push_back(row.name);
    }
    EXPECT_THAT(expected, UnorderedElementsAreArray(all));
}

TEST(IsConstraint, OfANameComparesItAsItStandsAndAsksNobody)
{
    SelectionScope platform;
    platform.removeRegistry();
    platform.services().takeLookUps();
    std::vector<std::string> found;
    for (std::string const& name : candidateNames()) {
        if (SelectFilter::isConstraint(test::unicode(name))) {
            found.push_back(name);
        }
    }
    EXPECT_EQ(found.size(), 6u);
    EXPECT_TRUE(SelectFilter::isConstraint(u"Simulation.Modeling.DisplacementConstraint.Pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u"Simulation.Modeling.DisplacementConstraint.pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u".Pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u""));
    EXPECT_THAT(platform.services().lookUps(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
