// The table behind the predicates: what it holds, when it is built, and how it grows.

#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include "tests/selection/expectedkinds.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::candidateNames;
using test::IsMissingInterface;
using test::kExpectedKinds;
using test::SelectionScope;
using ::testing::UnorderedElementsAreArray;

constexpr char const* kDisplayName = "vrn.orlo.ddm.Display3DDataManager";
constexpr char const* kRegistryType = "KFR.Services.TypeRegistry.ITypeRegistry";

CAE::EntityReference referenceOf(unsigned int typeId)
{
    return {.service = {}, .typeId = typeId};
}

TEST(FilterTable, HoldsExactlyTheTypesOfEachKind)
{
    SelectionScope platform;
    EXPECT_GE(candidateNames().size(), 170u);  // or the loops below were over too little
    for (auto const& row : kExpectedKinds) {
        SCOPED_TRACE(row.number);
        EXPECT_EQ(row.kind, row.number);
        std::vector<std::string> held;
        for (std::string const& name : candidateNames()) {
            if (SelectFilter::isSelectFilter(row.kind, platform.idOf(name))) {
                held.push_back(name);
            }
        }
        EXPECT_THAT(held, UnorderedElementsAreArray(row.names));
        EXPECT_FALSE(SelectFilter::isSelectFilter(row.kind, 0));
    }
}

TEST(FilterTable, GivesTheFirstIdOfAKindAndZeroForTheNumbersWithoutOne)
{
    SelectionScope platform;
    for (int number = -1; number <= 108; ++number) {
        SCOPED_TRACE(number);
        auto const row = std::find_if(kExpectedKinds.begin(), kExpectedKinds.end(),
                                      [=](auto const& kind) { return kind.number == number; });
        EXPECT_EQ(SelectFilter::getTypeID(SelectFilterType(number)),
                  row != kExpectedKinds.end() ? platform.idOf(row->names.front()) : 0u);
    }
}

TEST(FilterTable, ResolvesItsNamesInTheirOrderAndOnce)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        test::PlatformScope platform(1000);
        static_cast<void>(SelectFilter::instance());
        unsigned int next = 1000;
        std::vector<std::string> seen;
        for (auto const& row : kExpectedKinds) {
            for (std::string const& name : row.names) {
                if (std::find(seen.begin(), seen.end(), name) == seen.end()) {
                    seen.push_back(name);
                    EXPECT_EQ(platform.registry().idOf(test::unicode(name)), next++) << name;
                }
            }
        }
        EXPECT_EQ(seen.size(), 109u);
        EXPECT_EQ(platform.registry().calls(), (test::RegistryCalls{.typeId = 109}));
    });
}

TEST(FilterTable, GrowsByTheKindsThatAreAskedForWithoutBeingThere)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        SelectionScope platform;
        SelectFilter const* const filter = SelectFilter::instance();
        EXPECT_EQ(filter->tableSize(), 93u);

        EXPECT_EQ(SelectFilter::getTypeID(SelectFilterType(25)), 0u);
        EXPECT_TRUE(SelectFilter::isSelectFilter(FilterFace, platform.idOf("FACE")));
        EXPECT_EQ(filter->tableSize(), 93u);

        EXPECT_FALSE(SelectFilter::isSelectFilter(SelectFilterType(25), platform.idOf("FACE")));
        EXPECT_EQ(filter->tableSize(), 94u);
        EXPECT_FALSE(SelectFilter::isSelectFilter(SelectFilterType(25), 0));
        EXPECT_EQ(SelectFilter::getTypeID(SelectFilterType(25)), 0u);
        EXPECT_EQ(filter->tableSize(), 94u);

        // The scenarios are asked in order, and the asking ends at the first hit.
        EXPECT_TRUE(SelectFilter::isScenario(
            referenceOf(platform.idOf("Simulation.Modeling.StaticScenario"))));
        EXPECT_EQ(filter->tableSize(), 94u);
        EXPECT_TRUE(SelectFilter::isScenario(
            referenceOf(platform.idOf("Simulation.Modeling.DynamicScenario"))));
        EXPECT_EQ(filter->tableSize(), 95u);
        EXPECT_FALSE(SelectFilter::isScenario({}));
        EXPECT_EQ(filter->tableSize(), 96u);
        EXPECT_FALSE(SelectFilter::isScenario(referenceOf(platform.idOf("FACE"))));
        EXPECT_EQ(filter->tableSize(), 96u);
    });
}

TEST(FilterTable, IsBuiltByTheFirstCallThatFindsARegistry)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        SelectionScope platform;
        platform.removeRegistry();
        auto const isEdge = [] {
            static_cast<void>(SelectFilter::isEdge(1));
        };
        auto const firstFace = [] {
            static_cast<void>(SelectFilter::getTypeID(FilterFace));
        };
        auto const lacksRegistry =
            ::testing::Throws<KFRSystemException>(IsMissingInterface(kRegistryType));
        EXPECT_THAT(isEdge, lacksRegistry);
        EXPECT_THAT(firstFace, lacksRegistry);
        platform.putStrangerForRegistry();
        EXPECT_THAT(isEdge, lacksRegistry);

        platform.putRegistryBack();
        EXPECT_TRUE(SelectFilter::isEdge(platform.idOf("EDGESHARE")));
        EXPECT_EQ(SelectFilter::instance()->tableSize(), 93u);
    });
}

TEST(FilterTable, WantsADisplayServiceOfTheRightKindOrNone)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        SelectionScope platform;
        platform.services().putStranger(kDisplayName);
        auto const instance = [] {
            static_cast<void>(SelectFilter::instance());
        };
        EXPECT_THAT(instance, ::testing::Throws<KFRSystemException>(
                                  IsMissingInterface("vrn.orlo.ddm.KFRIDisplay3DDataManager")));
        ServiceHelper::releaseServices();
        platform.services().remove(kDisplayName);
        EXPECT_NO_THROW(instance());
        EXPECT_EQ(SelectFilter::instance(), SelectFilter::instance());
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
