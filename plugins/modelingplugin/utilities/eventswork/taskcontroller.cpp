#include "plugins/modelingplugin/utilities/eventswork/taskcontroller.h"

#include <atomic>
#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <semaphore>
#include <thread>

namespace vrn::orlo::plugin::modeling {

namespace {

using Semaphore = std::counting_semaphore<0x10000>;

void runTask(task_request const& task)
{
    std::unique_ptr<TaskParameter const> const owned(task.parameter);
    if (task.handler != nullptr) {
        task.handler->run(task.parameter);
    } else {
        static_cast<void>(
            Invoker<IEventHandler>(task.invokerObject, task.invokerFunction)(task.parameter));
    }
}

}  // namespace

struct TaskController::State {
    std::atomic<int> m_running{0};
    std::thread m_thread;
    // A new one for each start: one that was kept would hold what stop() released too much.
    std::shared_ptr<Semaphore> m_semaphore;
    std::recursive_mutex m_queueLock;  // guards m_queue and m_lastId
    std::recursive_mutex m_execLock;   // held while a task runs; taken without the queue's
    int m_lastId = 0;
    btree::btree_map<int, task_request> m_queue;

    std::mutex m_startLock;  // start and stop of several threads come one after the other

    std::optional<task_request> takeFirst()
    {
        std::lock_guard const lock(m_queueLock);
        if (m_queue.empty()) {
            return std::nullopt;
        }
        std::optional<task_request> task(m_queue.begin()->second);
        m_queue.erase(m_queue.begin());
        return task;
    }

    unsigned long loop(Semaphore& semaphore)
    {
        while (m_running != 0) {
            semaphore.acquire();
            if (m_running == 0) {
                break;
            }
            if (auto const task = takeFirst(); task.has_value()) {
                std::lock_guard const lock(m_execLock);
                runTask(*task);
            }
        }
        return 0;
    }
};

TaskController::TaskController() : m_state(std::make_shared<State>())
{
}

TaskController::~TaskController()
{
    // Nothing is stopped: the thread goes on waiting with its own share of the state.
    if (m_state->m_thread.joinable()) {
        m_state->m_thread.detach();
    }
}

TaskController* TaskController::defaultInstance()
{
    static TaskController* const controller = [] {
        auto* const made = new TaskController;
        made->start();
        return made;
    }();
    return controller;
}

unsigned long TaskController::threadproc(void* controller)
{
    std::shared_ptr<State> const state = static_cast<TaskController*>(controller)->m_state;
    std::shared_ptr<Semaphore> const semaphore = state->m_semaphore;
    return semaphore != nullptr ? state->loop(*semaphore) : 0;
}

void TaskController::start()
{
    std::lock_guard const lock(m_state->m_startLock);
    if (m_state->m_running != 0) {
        return;
    }
    m_state->m_semaphore = std::make_shared<Semaphore>(0);
    m_state->m_running = 1;
    m_state->m_thread = std::thread([state = m_state, semaphore = m_state->m_semaphore] {
        static_cast<void>(state->loop(*semaphore));
    });
}

void TaskController::stop()
{
    std::lock_guard const lock(m_state->m_startLock);
    if (m_state->m_running == 0) {
        return;
    }
    m_state->m_running = 0;
    m_state->m_semaphore->release(2);
    m_state->m_thread.join();
    m_state->m_semaphore.reset();
}

int TaskController::execute(TaskHandler const* handler, TaskParameter const* parameter)
{
    return request({handler, nullptr, nullptr, parameter});
}

int TaskController::execute(Invoker<IEventHandler> const& invoker, TaskParameter const* parameter)
{
    return request({nullptr, invoker.object(), invoker.function(), parameter});
}

int TaskController::request(task_request const& task)
{
    std::lock_guard const lock(m_state->m_queueLock);
    int const id = ++m_state->m_lastId;
    task_request taken = task;
    task.parameter = nullptr;
    auto const [place, isNew] = m_state->m_queue.emplace(id, taken);
    if (!isNew) {  // not while numbers count upwards
        delete taken.parameter;
    }
    // No release of the semaphore: see the class.
    return id;
}

void TaskController::executeSyn(TaskHandler const* handler, TaskParameter const* parameter)
{
    std::lock_guard const lock(m_state->m_execLock);
    runTask({handler, nullptr, nullptr, parameter});
}

void TaskController::executeSyn(Invoker<IEventHandler> const& invoker,
                                TaskParameter const* parameter)
{
    std::lock_guard const lock(m_state->m_execLock);
    runTask({nullptr, invoker.object(), invoker.function(), parameter});
}

bool TaskController::cancel(int id)
{
    std::lock_guard const lock(m_state->m_queueLock);
    m_state->m_queue.erase(id);
    return true;
}

}  // namespace vrn::orlo::plugin::modeling
