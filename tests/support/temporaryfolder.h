/// \file
/// A folder that lives as long as a test, and what a file holds.

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include <stdlib.h>  // NOLINT: mkdtemp is POSIX's

namespace vrn::orlo::test {

/// A new, empty folder; gone with its owner, whatever its permissions have become.
class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orlo-test-").string() + std::string(6, 'X');
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + pattern);
        }
        m_path = pattern;
    }
    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, ignored);
        std::filesystem::remove_all(m_path, ignored);
    }

    [[nodiscard]] std::filesystem::path const& path() const noexcept { return m_path; }

    /// Writes a file below the folder and gives its path.
    std::filesystem::path write(std::string const& name, std::string const& content) const
    {
        std::filesystem::path const file = m_path / name;
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }

    /// Everything directly in the folder.
    [[nodiscard]] std::vector<std::filesystem::path> files() const
    {
        return {std::filesystem::directory_iterator(m_path), {}};
    }

    /// Names of everything directly in the folder.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (std::filesystem::path const& file : files()) {
            names.push_back(file.filename().string());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

/// The bytes of a file; none when it cannot be read.
[[nodiscard]] inline std::string contentOf(std::filesystem::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace vrn::orlo::test
