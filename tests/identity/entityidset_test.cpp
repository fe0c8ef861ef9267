#include "plugins/modelingplugin/utilities/identity/entityidset.h"

#include "tests/support/freshprocess.h"

#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

TEST(EntityIDSet, StartsAtOne)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EXPECT_EQ(EntityIDSet::instance().nextID(), 1u);
        EXPECT_EQ(EntityIDSet::instance().nextID(), 2u);
    });
}

TEST(EntityIDSet, CountsOnThroughEveryAccessAndRestartsAtOne)
{
    EntityIDSet& set = EntityIDSet::instance();
    set.reset();
    EXPECT_EQ(set.nextID(), 1u);
    EXPECT_EQ(EntityIDSet::instance().nextID(), 2u);
    EXPECT_EQ(set.nextID(), 3u);
    set.reset();
    set.reset();
    EXPECT_EQ(set.nextID(), 1u);
    EXPECT_EQ(set.nextID(), 2u);
    EXPECT_EQ(&set, &EntityIDSet::instance());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
