#include "host/kernel/settingslock.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

namespace vrn::orlo::host::kernel {

SettingsLock::SettingsLock(std::filesystem::path const& settingsFile,
                           std::chrono::milliseconds timeout)
    : m_path(std::filesystem::path(settingsFile).replace_extension(".lck")), m_state(tryIt())
{
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kStep(10);
    auto const end = Clock::now() + timeout;
    for (auto left = end - Clock::now(); isTaken() && left > Clock::duration::zero();
         left = end - Clock::now()) {
        std::this_thread::sleep_for(std::min<Clock::duration>(kStep, left));
        m_state = tryIt();
    }
}

SettingsLock::~SettingsLock()
{
    if (m_state == State::held) {
        std::error_code ignored;
        std::filesystem::remove(m_path, ignored);
    }
}

SettingsLock::State SettingsLock::tryIt() const
{
    // The standard's streams cannot insist on a new file before C++23.
    int const file = ::open(m_path.c_str(), O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC, 0644);
    if (file < 0) {
        return errno == EEXIST ? State::taken : State::none;
    }
    ::close(file);
    return State::held;
}

}  // namespace vrn::orlo::host::kernel
