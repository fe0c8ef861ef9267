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
    int calls = 0;
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

/// Whether the process has that many threads, soon: one that was joined is listed for a moment.
bool hasThreads(std::ptrdiff_t count)
{
    std::ptrdiff_t listed = 0;
    for (int i = 0; i < 2000; ++i) {
        listed = std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
        if (listed == count) {
            return true;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return false;
}

std::ptrdiff_t threads()
{
    std::thread([] {}).join();  // a sanitizer's own thread comes with the first one
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return std::distance(std::filesystem::directory_iterator("/proc/self/task"), {});
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
        EXPECT_TRUE(hasThreads(before + 1));
        controller.execute(&task, &parameter);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        controller.stop();
        EXPECT_TRUE(hasThreads(before));
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
        EXPECT_TRUE(hasThreads(before + 1));
        EXPECT_EQ(TaskController::defaultInstance(), shared);
        shared->stop();
        EXPECT_TRUE(hasThreads(before));
    });
}

TEST(TaskController, CallsATaskOfAnyFormAndThenDestroysItsParameter)
{
    TaskController controller;
    Log log;
    std::thread::id thread;
    Task const task([&](TaskParameter const* given) {
        static_cast<Parameter const*>(given)->note("task");
        thread = std::this_thread::get_id();
    });
    IEventHandler object;
    using ObjectTask = Invoker<IEventHandler>;
    ObjectTask const method(
        &object, [](IEventHandler* handler, KFRResult& result, TaskParameter const* given) {
            ++handler->calls;
            static_cast<Parameter const*>(given)->note("method");
            result = 5;
        });
    ObjectTask const function([](KFRResult& result, TaskParameter const* given) {
        static_cast<Parameter const*>(given)->note("function");
        result = 6;
    });
    ObjectTask const none(&object, ObjectTask::ObjectFunction(nullptr));
    controller.executeSyn(&task, new Parameter(log));
    controller.executeSyn(method, new Parameter(log));
    controller.executeSyn(function, new Parameter(log));
    controller.executeSyn(none, new Parameter(log));
    EXPECT_THAT(log, ElementsAre("task", "destroyed", "method", "destroyed", "function",
                                 "destroyed", "destroyed"));
    EXPECT_EQ(thread, std::this_thread::get_id());
    EXPECT_EQ(object.calls, 1);
    Parameter const kept(log);
    EXPECT_EQ(method(&kept).getCode(), 5);
    EXPECT_EQ(function(&kept).getCode(), 6);
    EXPECT_TRUE(none(&kept).isOk());
}

TEST(TaskController, RunsTasksOfAllThreadsOneByOneButOneFromWithinAnotherAtOnce)
{
    TaskController controller;
    controller.start();
    int runs = 0;  // of no atomic kind: the controller's lock is what is tried
    Task const inner([&runs](TaskParameter const*) {
        int const seen = runs;
        std::this_thread::yield();
        runs = seen + 1;
    });
    Task const task([&](TaskParameter const*) {
        int const before = runs;
        controller.executeSyn(&inner, nullptr);
        EXPECT_EQ(runs, before + 1);
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
