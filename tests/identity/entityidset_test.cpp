#include "plugins/modelingplugin/utilities/identity/entityidset.h"

#include "tests/support/freshprocess.h"

#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

TEST(EntityIDSet, StartsAndRestartsAtOneAndCountsOnThroughEveryAccess)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EXPECT_EQ(EntityIDSet::instance().nextID(), 1u);
        EntityIDSet& set = EntityIDSet::instance();
        EXPECT_EQ(set.nextID(), 2u);
        set.reset();
        set.reset();
        EXPECT_EQ(set.nextID(), 1u);
        EXPECT_EQ(EntityIDSet::instance().nextID(), 2u);
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
