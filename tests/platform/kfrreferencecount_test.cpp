#include "platform/kfr/kfrreferencecount.h"

#include <gtest/gtest.h>

namespace KFR {
namespace {

TEST(KFRReferenceCount, TellsTheLastReleaseOnlyAndCannotBeRaisedFromZero)
{
    KFRReferenceCount count;
    EXPECT_TRUE(count.isUnique());
    EXPECT_TRUE(count.tryAdd());
    count.add();
    EXPECT_EQ(count.value(), 3);
    EXPECT_FALSE(count.release());
    EXPECT_FALSE(count.isUnique());
    EXPECT_FALSE(count.release());
    EXPECT_TRUE(count.release());
    EXPECT_FALSE(count.tryAdd());
    EXPECT_EQ(count.value(), 0);
}

}  // namespace
}  // namespace KFR
