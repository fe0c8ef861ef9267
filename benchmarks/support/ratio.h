/// \file
/// A subject and its peer, timed in turn in one process, and their ratio held against a bound.

#pragma once

#include <malloc.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <limits>

namespace orlo::bench {

/// Makes the compiler believe that `value` is read.
template <class T>
void keep(T const& value)
{
    asm volatile("" : : "g"(&value) : "memory");
}

/// Comparisons of one program, printed as they are made.
///
/// A comparison is subject, peer, subject, peer ...: what disturbs the machine disturbs both, and
/// the medians leave the odd disturbance out.
///
/// Units      Times in milliseconds of one run. The bound is a ratio, subject over peer.
/// Failure    A ratio above its bound by more than kNoise is OVER, and exitStatus() is 1.
class Ratios {
public:
    /// What two runs of the same code may differ by on a machine that others use as well. Relative.
    static constexpr double kNoise = 0.05;
    static constexpr std::size_t kRounds = 15;

    /// Lets the heap keep its pages for the length of the process. Otherwise a large block comes
    /// from the heap or from the kernel depending on what was freed before, and the order of the
    /// comparisons decides their ratios.
    Ratios()
    {
        mallopt(M_MMAP_MAX, 0);
        mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
    }

    /// \param subject, peer  callables; each call is one run. A run below a millisecond should
    /// loop.
    template <class Subject, class Peer>
    void compare(char const* name, double bound, Subject&& subject, Peer&& peer)
    {
        static_cast<void>(milliseconds(subject));  // the first runs fill caches and the heap
        static_cast<void>(milliseconds(peer));
        std::array<double, kRounds> subjectTimes;
        std::array<double, kRounds> peerTimes;
        for (std::size_t round = 0; round < kRounds; ++round) {
            subjectTimes[round] = milliseconds(subject);
            peerTimes[round] = milliseconds(peer);
        }
        report(name, median(subjectTimes), median(peerTimes), bound);
    }

    /// 0 when every ratio kept its bound; 1 otherwise.
    [[nodiscard]] int exitStatus() const { return m_over == 0 ? 0 : 1; }

private:
    template <class Run>
    [[nodiscard]] static double milliseconds(Run& run)
    {
        auto const start = std::chrono::steady_clock::now();
        run();
        return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start)
            .count();
    }

    [[nodiscard]] static double median(std::array<double, kRounds>& times)
    {
        auto const middle = times.begin() + static_cast<std::ptrdiff_t>(kRounds / 2);
        std::nth_element(times.begin(), middle, times.end());
        return *middle;
    }

    void report(char const* name, double subject, double peer, double bound)
    {
        if (m_lines++ == 0) {
            std::printf("%-44s %10s %10s %7s %7s\n", "", "subject ms", "peer ms", "ratio", "bound");
        }
        double const ratio = subject / peer;
        bool const over = ratio > bound * (1.0 + kNoise);
        m_over += over ? 1 : 0;
        std::printf("%-44s %10.3f %10.3f %7.2f %7.2f  %s\n", name, subject, peer, ratio, bound,
                    over ? "OVER" : "OK");
        std::fflush(stdout);
    }

    int m_lines = 0;
    int m_over = 0;
};

}  // namespace orlo::bench
