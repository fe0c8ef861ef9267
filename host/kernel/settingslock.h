/// \file
/// The lock beside a file of settings.

#pragma once

#include <chrono>
#include <filesystem>

namespace vrn::orlo::host::kernel {

/// Marks a file of settings as in use, to other processes too: a file of the same name with the
/// extension ".lck" beside it, from the construction to the end.
///
/// Where no such file can be made, there is no lock and nobody to wait for.
class SettingsLock {
public:
    /// Waits for another's lock to go.
    SettingsLock(std::filesystem::path const& settingsFile, std::chrono::milliseconds timeout);
    SettingsLock(SettingsLock const&) = delete;
    SettingsLock& operator=(SettingsLock const&) = delete;
    ~SettingsLock();

    /// Path of the file.
    [[nodiscard]] std::filesystem::path const& path() const noexcept { return m_path; }
    /// The other's lock is still there.
    [[nodiscard]] bool isTaken() const noexcept { return m_state == State::taken; }

private:
    enum class State { none, held, taken };

    [[nodiscard]] State tryIt() const;

    std::filesystem::path m_path;
    State m_state;
};

}  // namespace vrn::orlo::host::kernel
