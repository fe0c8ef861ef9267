#include "host/kernel/testservices.h"

#include <atomic>
#include <chrono>
#include <latch>
#include <thread>
#include <vector>

namespace vrn::orlo::host::kernel {
namespace {

using ServiceRegistryThreads = RegistryTest;

TEST_F(ServiceRegistryThreads, FirstRequestsAtOnceGetOneInstance)
{
    constexpr int kThreads = 4;
    for (int round = 0; round < 50; ++round) {
        std::string const name = "one" + std::to_string(round);
        std::atomic<int> made{0};
        m_registry->addService(name, [&made] {
            ++made;
            std::this_thread::yield();
            return makeTestService();
        });
        std::latch start(kThreads);
        std::vector<KFRIService> found(kThreads);
        {
            std::vector<std::jthread> threads;
            for (KFRIService& mine : found) {
                threads.emplace_back([&] {
                    start.arrive_and_wait();
                    mine = get(name).m_service;
                });
            }
        }
        EXPECT_EQ(made, 1);
        EXPECT_NE(found.front(), KFR::NULLSP);
        EXPECT_THAT(found, ::testing::Each(found.front()));
    }
}

TEST_F(ServiceRegistryThreads, CycleAcrossTwoThreadsFailsInsteadOfHanging)
{
    std::latch bothInside(2);
    std::atomic<int> cycles{0};
    auto const makerThatNeeds = [&](std::string const& other) {
        return [&, other] {
            bothInside.arrive_and_wait();
            cycles += get(other).m_code == kCyclicRequest ? 1 : 0;
            return makeTestService();
        };
    };
    m_registry->addService("A", makerThatNeeds("B"));
    m_registry->addService("B", makerThatNeeds("A"));
    std::thread other([this] { EXPECT_THAT(get("A"), Found()); });
    EXPECT_THAT(get("B"), Found());
    other.join();
    EXPECT_EQ(cycles, 1);
}

TEST_F(ServiceRegistryThreads, WaiterTakesOverWhenTheFirstMakerFails)
{
    std::latch inside(1);
    std::atomic<int> calls{0};
    m_registry->addService("late", [&] {
        if (++calls > 1) {
            return makeTestService();
        }
        inside.count_down();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        return KFRIService();
    });
    std::thread first([this] { EXPECT_THAT(get("late"), FailsWith(kNotMade)); });
    inside.wait();
    EXPECT_THAT(get("late"), Found());
    first.join();
    EXPECT_EQ(calls, 2);
}

TEST_F(ServiceRegistryThreads, InstanceThatIsReadyAfterTheStopIsGivenBack)
{
    std::latch inside(1);
    std::latch stopped(1);
    std::atomic<bool> ended{false};
    m_registry->addService("slow", [&] {
        inside.count_down();
        stopped.wait();
        return makeTestService([&] { ended = true; });
    });
    std::thread asker([this] { EXPECT_THAT(get("slow"), FailsWith(kStopped)); });
    inside.wait();
    m_registry->stop();
    stopped.count_down();
    asker.join();
    EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
