/// \file
/// The non-recursive lock that notices re-entry, which oneTBB no longer has.

#pragma once

#include <oneapi/tbb/mutex.h>

#include <atomic>
#include <exception>
#include <thread>

namespace tbb_compat {

/// A thread entered a lock that it already holds.
class improper_lock : public std::exception {
public:
    [[nodiscard]] char const* what() const noexcept override
    {
        return "a critical section was entered twice on one thread";
    }
};

/// Mutual exclusion between threads; entering again on the holding thread throws instead of
/// hanging.
///
/// Threads    Any. The owner's id is read relaxed: only the owning thread can ever see its own
///            there.
class critical_section {
public:
    critical_section() = default;
    critical_section(critical_section const&) = delete;
    critical_section& operator=(critical_section const&) = delete;

    /// \throws improper_lock when this thread holds the lock already.
    void lock()
    {
        if (isHeldHere()) {
            throw improper_lock();
        }
        m_mutex.lock();
        m_owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
    }

    /// False when any thread, this one included, holds the lock.
    [[nodiscard]] bool try_lock()
    {
        if (isHeldHere() || !m_mutex.try_lock()) {
            return false;
        }
        m_owner.store(std::this_thread::get_id(), std::memory_order_relaxed);
        return true;
    }

    void unlock()
    {
        m_owner.store(std::thread::id(), std::memory_order_relaxed);
        m_mutex.unlock();
    }

    /// The thread that holds the lock; the empty id for none.
    [[nodiscard]] std::thread::id owner() const noexcept
    {
        return m_owner.load(std::memory_order_relaxed);
    }

private:
    [[nodiscard]] bool isHeldHere() const noexcept
    {
        std::thread::id const holder = owner();
        return holder != std::thread::id() && holder == std::this_thread::get_id();
    }

    tbb::mutex m_mutex;
    std::atomic<std::thread::id> m_owner{};
};

}  // namespace tbb_compat
