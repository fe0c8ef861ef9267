#include "platform/kfr/kfrreferencecount.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

namespace KFR {
namespace {

TEST(KFRReferenceCount, TellsTheLastReleaseOnly)
{
    KFRReferenceCount count;
    EXPECT_TRUE(count.isUnique());
    count.add();
    EXPECT_FALSE(count.isUnique());
    EXPECT_FALSE(count.release());
    EXPECT_TRUE(count.isUnique());
    EXPECT_TRUE(count.release());
}

TEST(KFRReferenceCount, CannotBeRaisedFromZero)
{
    KFRReferenceCount count;
    EXPECT_TRUE(count.tryAdd());
    EXPECT_EQ(count.value(), 2);
    EXPECT_FALSE(count.release());
    EXPECT_TRUE(count.release());
    EXPECT_FALSE(count.tryAdd());
    EXPECT_EQ(count.value(), 0);
}

TEST(KFRReferenceCountThreads, OneReleaseIsTheLastWhateverTheRaceWithTryAdd)
{
    for (int round = 0; round < 200; ++round) {
        KFRReferenceCount count;
        std::atomic<int> last{0};
        std::vector<std::thread> threads;
        for (int t = 0; t < 3; ++t) {
            threads.emplace_back([&] {
                for (int i = 0; i < 50 && count.tryAdd(); ++i) {
                    last += count.release() ? 1 : 0;
                }
            });
        }
        last += count.release() ? 1 : 0;
        for (auto& thread : threads) {
            thread.join();
        }
        EXPECT_EQ(last.load(), 1);
        EXPECT_EQ(count.value(), 0);
    }
}

}  // namespace
}  // namespace KFR
