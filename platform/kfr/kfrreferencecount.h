/// \file
/// The counter behind every shared thing of the framework.

#pragma once

#include <sys/single_threaded.h>

#include <atomic>

/// A reference count that starts at 1.
///
/// Threads    Any thread. While the process has only one thread the count is kept without the bus
///            lock (the same bargain that the standard library's shared pointers make).
class KFRReferenceCount {
public:
    constexpr explicit KFRReferenceCount(int start = 1) noexcept : m_count(start) {}
    KFRReferenceCount(KFRReferenceCount const&) = delete;
    KFRReferenceCount& operator=(KFRReferenceCount const&) = delete;

    void add() noexcept
    {
        if (__libc_single_threaded) {
            m_count.store(m_count.load(std::memory_order_relaxed) + 1, std::memory_order_relaxed);
        } else {
            m_count.fetch_add(1, std::memory_order_relaxed);
        }
    }

    /// Adds one unless the count has already fallen to 0. False if it has.
    [[nodiscard]] bool tryAdd() noexcept
    {
        int seen = m_count.load(std::memory_order_relaxed);
        while (seen > 0) {
            if (m_count.compare_exchange_weak(seen, seen + 1, std::memory_order_relaxed)) {
                return true;
            }
        }
        return false;
    }

    /// Takes one away. True for the call that brings the count to 0, and only for that one.
    [[nodiscard]] bool release() noexcept
    {
        if (__libc_single_threaded) {
            int const left = m_count.load(std::memory_order_relaxed) - 1;
            m_count.store(left, std::memory_order_relaxed);
            return left == 0;
        }
        return m_count.fetch_sub(1, std::memory_order_acq_rel) == 1;
    }

    /// The holder that sees 1 is the only one, and sees all that former holders wrote.
    [[nodiscard]] bool isUnique() const noexcept
    {
        return m_count.load(std::memory_order_acquire) == 1;
    }

    [[nodiscard]] int value() const noexcept { return m_count.load(std::memory_order_relaxed); }

private:
    std::atomic<int> m_count;
};
