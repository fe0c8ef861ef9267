// The worker thread with its queue, and tasks on the caller's thread.

#include "plugins/modelingplugin/utilities/eventswork/taskcontroller.h"

#include "tests/support/freshprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace vrn::orlo::plugin::modeling {

/// What the invoker's functions are called with here.
class IEventHandler {
public:
    std::vector<std::string> log;
};

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Log = std::vector<std::string>;

class Parameter final : public TaskParameter {
public:
    explicit Parameter(Log& log) : m_log(log) {}
    ~Parameter() override { note("destroyed"); }
    void note(char const* text) const { m_log.push_back(text); }

private:
    Log& m_log;
};

class Task final : public TaskHandler {
public:
    explicit Task(std::function<void(TaskParameter const*)> work) : m_work(std::move(work)) {}
    void run(TaskParameter const* parameter) const override { m_work(parameter); }

private:
    std::function<void(TaskParameter const*)> m_work;
};

std::ptrdiff_t threads()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
}

/// A thread that was joined may still be listed for a moment.
bool soonHas(std::ptrdiff_t count)
{
    for (int i = 0; i < 2000 && threads() != count; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return threads() == count;
}

TEST(TaskController, NumbersTasksFromOneAndNeverAgain)
{
    TaskController controller;
    Log log;
    Parameter const parameter(log);  // a task that never runs keeps its hands off it
    task_request request;
    request.parameter = &parameter;
    EXPECT_EQ(controller.request(request), 1);
    EXPECT_EQ(request.parameter, nullptr);
    EXPECT_TRUE(controller.cancel(1));
    EXPECT_TRUE(controller.cancel(1));
    EXPECT_TRUE(controller.cancel(99));
    EXPECT_EQ(controller.execute(nullptr, &parameter), 2);
    EXPECT_EQ(controller.execute(Invoker<IEventHandler>(nullptr), &parameter), 3);
    EXPECT_TRUE(controller.cancel(2));
    EXPECT_EQ(controller.execute(nullptr, nullptr), 4);
    EXPECT_THAT(log, IsEmpty());
}

TEST(TaskController, StartsOneThreadAndLeavesQueuedTasksAlone)
{
    std::ptrdiff_t const before = threads();
    Log log;
    Parameter const parameter(log);
    Task const task([&log](TaskParameter const*) { log.push_back("run"); });
    TaskController controller;
    controller.stop();
    EXPECT_EQ(TaskController::threadproc(&controller), 0u);
    for (int round = 0; round < 3; ++round) {
        controller.execute(&task, &parameter);
        controller.start();
        controller.start();
        EXPECT_EQ(threads(), before + 1);
        controller.execute(&task, &parameter);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        controller.stop();
        EXPECT_TRUE(soonHas(before));
        controller.stop();
    }
    EXPECT_EQ(controller.execute(&task, &parameter), 7);
    EXPECT_THAT(log, IsEmpty());
}

TEST(TaskController, HasADefaultThatRuns)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        std::ptrdiff_t const before = threads();
        TaskController* const shared = TaskController::defaultInstance();
        EXPECT_EQ(threads(), before + 1);
        EXPECT_EQ(TaskController::defaultInstance(), shared);
        shared->stop();
        EXPECT_TRUE(soonHas(before));
        EXPECT_EQ(TaskController::defaultInstance(), shared);  // which starts nothing again
        EXPECT_EQ(threads(), before);
    });
}

TEST(TaskController, RunsATaskOnTheCallersThreadAndThenDestroysTheParameter)
{
    TaskController controller;
    Log log;
    std::thread::id thread;
    Task const task([&](TaskParameter const* given) {
        static_cast<Parameter const*>(given)->note("run");
        thread = std::this_thread::get_id();
    });
    controller.executeSyn(&task, new Parameter(log));
    EXPECT_THAT(log, ElementsAre("run", "destroyed"));
    EXPECT_EQ(thread, std::this_thread::get_id());
    controller.executeSyn(Invoker<IEventHandler>(nullptr), new Parameter(log));
    EXPECT_THAT(log, ElementsAre("run", "destroyed", "destroyed"));
    controller.executeSyn(Invoker<IEventHandler>(nullptr), nullptr);
}

TEST(TaskController, CallsAnInvokersFunctionWithItsObjectOrWithout)
{
    TaskController controller;
    Log log;
    IEventHandler object;
    Invoker<IEventHandler> const withObject(
        &object, [](IEventHandler* handler, KFRResult& result, TaskParameter const* given) {
            handler->log.push_back("object");
            static_cast<Parameter const*>(given)->note("object");
            result = 5;
        });
    Invoker<IEventHandler> const free([](KFRResult& result, TaskParameter const* given) {
        static_cast<Parameter const*>(given)->note("free");
        result = 6;
    });
    controller.executeSyn(withObject, new Parameter(log));
    controller.executeSyn(free, new Parameter(log));
    EXPECT_THAT(log, ElementsAre("object", "destroyed", "free", "destroyed"));
    EXPECT_THAT(object.log, ElementsAre("object"));
    Parameter const kept(log);
    EXPECT_EQ(withObject(&kept).getCode(), 5);
    EXPECT_EQ(free(&kept).getCode(), 6);
    using Function = Invoker<IEventHandler>::ObjectFunction;
    EXPECT_TRUE(Invoker<IEventHandler>(&object, Function(nullptr))(&kept).isOk());
}

TEST(TaskController, RunsATaskFromWithinATaskAtOnce)
{
    TaskController controller;
    Log log;
    Task const inner([](TaskParameter const* p) { static_cast<Parameter const*>(p)->note("in"); });
    Task const outer([&](TaskParameter const*) {
        controller.executeSyn(&inner, new Parameter(log));
        EXPECT_EQ(controller.execute(&inner, nullptr), 1);
        controller.cancel(1);
        log.push_back("out");
    });
    controller.executeSyn(&outer, nullptr);
    EXPECT_THAT(log, ElementsAre("in", "destroyed", "out"));
}

TEST(TaskController, NeverRunsTwoTasksAtOnceAndCountsForAllThreads)
{
    TaskController controller;
    controller.start();
    int runs = 0;  // of no atomic kind: the controller's lock is what is tried
    Task const task([&runs](TaskParameter const*) {
        int const seen = runs;
        std::this_thread::yield();
        runs = seen + 1;
    });
    std::vector<std::thread> callers;
    for (int i = 0; i < 4; ++i) {
        callers.emplace_back([&] {
            for (int k = 0; k < 200; ++k) {
                controller.executeSyn(&task, nullptr);
                controller.cancel(controller.execute(&task, nullptr));
            }
        });
    }
    for (std::thread& caller : callers) {
        caller.join();
    }
    controller.stop();
    EXPECT_EQ(runs, 800);
    EXPECT_EQ(controller.execute(&task, nullptr), 801);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
