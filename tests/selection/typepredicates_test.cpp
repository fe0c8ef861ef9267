// Which types each predicate accepts.

#include "tests/selection/expectedpredicates.h"
#include "tests/selection/selectionscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::candidateNames;
using test::SelectionScope;
using ::testing::UnorderedElementsAreArray;

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

TEST(TypePredicates, AcceptExactlyTheirNamesAndReadTheTypeAlone)
{
    SelectionScope platform;
    auto const owner = KFR::make<test::Stranger>();
    for (auto const& row : test::expectedPredicates()) {
        SCOPED_TRACE(row.name);
        unsigned int const decoy = platform.idOf(row.accepted.front());
        auto const ofReference = [&](unsigned int typeId) {
            return row.ofReference({owner, typeId, decoy, decoy});
        };
        std::vector<std::function<bool(unsigned int)>> forms;
        if (row.ofReference) {
            forms.emplace_back(ofReference);
            EXPECT_FALSE(row.ofReference({}));
        }
        if (row.ofId) {
            forms.push_back(row.ofId);
        }
        for (auto const& accepts : forms) {
            EXPECT_THAT(acceptedNames(platform, accepts), UnorderedElementsAreArray(row.accepted));
            EXPECT_FALSE(accepts(0));
            EXPECT_FALSE(accepts(0xFFFFFFFFu));
        }
    }
}

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
    auto const& names = candidateNames();
    EXPECT_EQ(std::count_if(
                  names.begin(), names.end(),
                  [](auto const& name) { return SelectFilter::isConstraint(test::unicode(name)); }),
              6);
    EXPECT_TRUE(SelectFilter::isConstraint(u"Simulation.Modeling.DisplacementConstraint.Pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u"Simulation.Modeling.DisplacementConstraint.pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u".Pinned"));
    EXPECT_FALSE(SelectFilter::isConstraint(u""));
    EXPECT_THAT(platform.services().lookUps(), ::testing::IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
