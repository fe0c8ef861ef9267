/// \file
/// The library's own worker thread, and its tasks.

#pragma once

#include "platform/deps/btree.h"
#include "platform/kfr/kfrresult.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <memory>

namespace vrn::orlo::plugin::modeling {

/// What a task is given.
class TaskParameter {
public:
    virtual ~TaskParameter() = default;
};

/// A task as an object.
class TaskHandler {
public:
    virtual ~TaskHandler() = default;
    virtual void run(TaskParameter const* parameter) const = 0;
};

class IEventHandler;

/// A task as a function, with an object or without.
///
/// Ownership  Keeps neither.
template <class Object>
class Invoker {
public:
    using ObjectFunction = void (*)(Object* object, KFRResult& result,
                                    TaskParameter const* parameter);
    using FreeFunction = void (*)(KFRResult& result, TaskParameter const* parameter);
    /// Either of them; which one says the object.
    using AnyFunction = void (*)();

    Invoker(Object* target, ObjectFunction called)
        : m_object(target), m_function(reinterpret_cast<AnyFunction>(called))
    {
    }
    explicit Invoker(FreeFunction called) : m_function(reinterpret_cast<AnyFunction>(called)) {}
    Invoker(Object* target, AnyFunction called) : m_object(target), m_function(called) {}

    /// Calls the function. A null function is OK.
    KFRResult operator()(TaskParameter const* parameter) const
    {
        KFRResult result(KFR::ok);
        if (m_function != nullptr && m_object != nullptr) {
            reinterpret_cast<ObjectFunction>(m_function)(m_object, result, parameter);
        } else if (m_function != nullptr) {
            reinterpret_cast<FreeFunction>(m_function)(result, parameter);
        }
        return result;
    }

    [[nodiscard]] Object* object() const noexcept { return m_object; }
    [[nodiscard]] AnyFunction function() const noexcept { return m_function; }

private:
    Object* m_object = nullptr;
    AnyFunction m_function = nullptr;
};

/// A task as it waits in the queue.
struct task_request {
    TaskHandler const* handler = nullptr;  ///< When set, the two below are not looked at.
    IEventHandler* invokerObject = nullptr;
    Invoker<IEventHandler>::AnyFunction invokerFunction = nullptr;
    /// The queue's from the request on: it is deleted after the run.
    mutable TaskParameter const* parameter = nullptr;
};

/// A thread with a queue of tasks, and the running of tasks on the caller's thread beside it.
///
/// A queued task does NOT wake the thread: it runs only when something else signals it, and in this
/// library nothing but stop() does, which ends the thread. That is how the platform's design has
/// it, and callers rely on queued tasks not to run by themselves.
///
/// Order      Tasks run by number, the lowest first; numbers count from 1 and are never given again.
/// Failure    A task that throws on the thread ends the process.
/// Ownership  Parameters become the controller's and are deleted after the run; a task that is
///            cancelled leaves its parameter behind. Handlers stay the caller's. A controller that
///            goes while its thread runs leaves the thread waiting for good: stop() is its owner's
///            to call.
/// Threads    All operations may be called on any thread. Tasks never overlap, be they queued or
///            run by executeSyn(); executeSyn() from within a task runs at once.
class MODELING_API TaskController {
public:
    TaskController();
    TaskController(TaskController const&) = delete;
    TaskController& operator=(TaskController const&) = delete;
    ~TaskController();

    /// The controller that all share, made and started at the first call and never destroyed.
    static TaskController* defaultInstance();

    /// Starts the thread, unless it runs.
    void start();
    /// Ends the thread, if it runs, and waits for that. What is queued stays queued.
    void stop();

    /// Queues a task. \return its number
    int execute(TaskHandler const* handler, TaskParameter const* parameter);
    int execute(Invoker<IEventHandler> const& invoker, TaskParameter const* parameter);
    /// \param task  loses its parameter to the queue
    int request(task_request const& task);

    /// Runs a task on this thread, then deletes the parameter.
    void executeSyn(TaskHandler const* handler, TaskParameter const* parameter);
    void executeSyn(Invoker<IEventHandler> const& invoker, TaskParameter const* parameter);

    /// Takes a task out of the queue, if it is still there; its parameter is not deleted.
    /// \return true, always
    bool cancel(int id);

    /// The thread's loop.
    /// \param controller  a TaskController
    /// \return 0
    static unsigned long threadproc(void* controller);

private:
    struct State;

    // The thread shares it, so that it outlives a controller that is destroyed while it runs.
    std::shared_ptr<State> m_state;
};

}  // namespace vrn::orlo::plugin::modeling
