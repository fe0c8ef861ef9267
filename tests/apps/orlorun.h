/// \file
/// Runs the `orlo` program as a user would.

#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace vrn::orlo::app {

/// What one run left behind.
struct OrloRun {
    int m_status = -1;  ///< Exit status; -1 when it did not exit by itself.
    std::string m_out;
    std::string m_err;
};

/// Runs `orlo` with these arguments, in `folder`.
[[nodiscard]] OrloRun runOrlo(std::vector<std::string> const& arguments,
                              std::filesystem::path const& folder = ".");

/// A folder that goes with its owner.
class TemporaryFolder {
public:
    TemporaryFolder();
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    ~TemporaryFolder();

    [[nodiscard]] std::filesystem::path const& path() const noexcept { return m_path; }

    /// Writes a file below the folder and gives its path.
    std::filesystem::path write(std::string const& name, std::string const& content) const;

private:
    std::filesystem::path m_path;
};

[[nodiscard]] std::string contentOf(std::filesystem::path const& file);

}  // namespace vrn::orlo::app
