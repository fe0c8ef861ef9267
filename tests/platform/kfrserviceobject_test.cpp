#include "platform/kfr/kfrserviceobject.h"

#include "tests/platform/testobjects.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <thread>
#include <vector>

namespace KFR {
namespace {

using Framework::KFRIWeakReferenceInterface;
using test::AlarmClock;
using test::IClockInterface;

using WeakHandle = KFRSmartPointer<KFRIWeakReferenceInterface>;

TEST(WeakReference, GivesTheObjectWhileItLivesAndNullAfterwards)
{
    auto clock = make<AlarmClock>(5);
    WeakHandle const weak = clock->weakReference();
    EXPECT_EQ(clock->referenceCount(), 1);
    {
        KFRIService const locked = weak->lock();
        EXPECT_TRUE(locked == clock);
        EXPECT_EQ(clock->referenceCount(), 2);
        EXPECT_EQ(KFRSmartPointer<IClockInterface>(locked)->hour(), 5);
    }
    EXPECT_TRUE(clock->weakReference() == weak);  // one per object

    KFRIService locked = weak->lock();
    clock.release();
    EXPECT_EQ(AlarmClock::living(), 1);  // the lock keeps it
    locked.release();
    EXPECT_EQ(AlarmClock::living(), 0);
    EXPECT_TRUE(weak->lock() == NULLSP);
    EXPECT_TRUE(weak->lock() == NULLSP);
}

/// Hands its weak reference out, then fails to be made.
class Stillborn final : public KFRServiceObjectImpl<IClockInterface> {
public:
    explicit Stillborn(WeakHandle& out)
    {
        out = weakReference();
        throw std::runtime_error("cannot be made");
    }
    int hour() override { return 0; }
};

TEST(WeakReference, OfAnObjectThatCouldNotBeMadeIsNull)
{
    WeakHandle weak;
    EXPECT_THROW(static_cast<void>(make<Stillborn>(weak)), std::runtime_error);
    ASSERT_TRUE(weak);
    EXPECT_TRUE(weak->lock() == NULLSP);
}

TEST(WeakReferenceThreads, LocksRaceWithTheLastRelease)
{
    for (int round = 0; round < 200; ++round) {
        auto clock = make<AlarmClock>(9);
        WeakHandle const weak = clock->weakReference();
        std::atomic<bool> go{false};
        std::vector<std::jthread> threads;
        for (int t = 0; t < 3; ++t) {
            threads.emplace_back([&go, weak] {
                while (!go.load()) {
                }
                for (int i = 0; i < 50; ++i) {
                    if (KFRIService const locked = weak->lock(); locked != NULLSP) {
                        EXPECT_EQ(KFRSmartPointer<IClockInterface>(locked)->hour(), 9);
                    }
                }
            });
        }
        go.store(true);
        clock.release();
        threads.clear();  // joins
        EXPECT_TRUE(weak->lock() == NULLSP);
        EXPECT_EQ(AlarmClock::living(), 0);
    }
}

TEST(WeakReferenceThreads, FirstRequestsOnSeveralThreadsGetOneReferenceAndOneNumber)
{
    for (int round = 0; round < 100; ++round) {
        auto const clock = make<AlarmClock>();
        WeakHandle weak[2];
        long long number[2] = {};
        auto const ask = [&](int i) {
            weak[i] = clock->weakReference();
            number[i] = clock->getInstanceID();
        };
        std::thread other(ask, 1);
        ask(0);
        other.join();
        EXPECT_EQ(weak[0].get(), weak[1].get());
        EXPECT_EQ(number[0], number[1]);
        EXPECT_NE(number[0], 0);
        EXPECT_NE(number[0], make<AlarmClock>()->getInstanceID());
    }
    EXPECT_EQ(AlarmClock::living(), 0);
}

TEST(ServiceObject, LeavesTheOutPointerOfAFailedQueryUntouched)
{
    auto const clock = make<AlarmClock>();
    int mark = 0;
    void* found = &mark;
    EXPECT_EQ(clock->getInterface(KFRUUID{1, 2}, &found), kInterfaceNotImplemented);
    EXPECT_EQ(found, &mark);
    EXPECT_EQ(clock->referenceCount(), 1);
}

}  // namespace
}  // namespace KFR
