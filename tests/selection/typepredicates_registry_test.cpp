// How the predicates use the type registry: those that go by name, and those that go by the table.

#include "tests/selection/expectedpredicates.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::expectedPredicates;
using test::Goes;
using test::PlatformScope;
using test::SelectionScope;
using test::unicode;

TEST(NamePredicates, AreFalseWithoutARegistryAndForgetThatTheyWere)
{
    SelectionScope platform;
    static_cast<void>(SelectFilter::instance());
    for (auto const& row : expectedPredicates()) {
        SCOPED_TRACE(row.name);
        unsigned int const id = platform.idOf(row.accepted.front());
        EntityTypeID::unRegister();
        platform.removeRegistry();
        EXPECT_EQ(row.accepts(id), row.goes == Goes::byTable);
        platform.putStrangerForRegistry();
        EXPECT_EQ(row.accepts(id), row.goes == Goes::byTable);
        platform.putRegistryBack();
        EXPECT_TRUE(row.accepts(id));
    }
}

TEST(NamePredicates, FollowTheNewIdsOfTypesWhileTablePredicatesKeepTheOldOnes)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform(200);
        auto& registry = platform.registry();
        static_cast<void>(SelectFilter::instance());
        std::map<std::string, unsigned int> oldIds;
        for (auto const& row : expectedPredicates()) {
            for (std::string const& name : row.accepted) {
                oldIds[name] = registry.idOf(unicode(name));
            }
        }
        EntityTypeID::unRegister();
        registry.renumber();
        for (auto const& row : expectedPredicates()) {
            for (std::string const& name : row.accepted) {
                SCOPED_TRACE(row.name + " " + name);
                unsigned int const newId = registry.idOf(unicode(name));
                ASSERT_NE(newId, oldIds[name]);
                EXPECT_EQ(row.accepts(newId), row.goes == Goes::byName);
                EXPECT_EQ(row.accepts(oldIds[name]), row.goes == Goes::byTable);
            }
        }
        EXPECT_EQ(EntityTypeID(icu::UnicodeString(u"EDGE")).typeID(), registry.idOf(u"EDGE"));
        EXPECT_EQ(SelectFilter::getTypeID(FilterEdge), oldIds["EDGE"]);
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
