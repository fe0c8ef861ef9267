#include "platform/deps/critical_section.h"

#include <gtest/gtest.h>

#include <mutex>
#include <thread>
#include <vector>

namespace tbb_compat {
namespace {

TEST(CriticalSection, ThrowsWhenItsOwnThreadEntersAgainAndStaysHeld)
{
    critical_section section;
    section.lock();
    EXPECT_THROW(section.lock(), improper_lock);
    EXPECT_FALSE(section.try_lock());
    EXPECT_EQ(section.owner(), std::this_thread::get_id());
    std::jthread([&section] { EXPECT_FALSE(section.try_lock()); }).join();
    section.unlock();
    EXPECT_EQ(section.owner(), std::thread::id());
    EXPECT_TRUE(section.try_lock());
    EXPECT_EQ(section.owner(), std::this_thread::get_id());
    section.unlock();
}

TEST(CriticalSectionThreads, LetsOneThreadInAtATime)
{
    critical_section section;
    int inside = 0;
    int entries = 0;  // not atomic: the lock is what protects it
    std::vector<std::jthread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([&] {
            for (int i = 0; i < 2000; ++i) {
                std::scoped_lock const guard(section);
                EXPECT_EQ(++inside, 1);
                ++entries;
                --inside;
            }
        });
    }
    threads.clear();  // joins
    EXPECT_EQ(entries, 8000);
}

}  // namespace
}  // namespace tbb_compat
