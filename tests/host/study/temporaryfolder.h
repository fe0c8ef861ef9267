/// \file
/// A folder that lives as long as a test.

#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace vrn::orlo::host::study {

class TemporaryFolder {
public:
    TemporaryFolder()
    {
        std::string pattern =
            (std::filesystem::temp_directory_path() / "orlo_study_XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("no temporary folder: " + pattern);
        }
        m_path = pattern;
    }

    ~TemporaryFolder()
    {
        std::error_code error;
        std::filesystem::permissions(m_path, std::filesystem::perms::owner_all, error);
        std::filesystem::remove_all(m_path, error);
    }

    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

    [[nodiscard]] std::filesystem::path const& path() const { return m_path; }

    /// Writes a file and gives its path.
    std::filesystem::path write(std::string const& name, std::string const& text) const
    {
        std::filesystem::path const file = m_path / name;
        std::ofstream(file, std::ios::binary) << text;
        return file;
    }

    /// Names of everything in the folder.
    [[nodiscard]] std::vector<std::string> names() const
    {
        std::vector<std::string> names;
        for (auto const& entry : std::filesystem::directory_iterator(m_path)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

private:
    std::filesystem::path m_path;
};

/// The bytes of a file.
inline std::string contentOf(std::filesystem::path const& file)
{
    std::ifstream in(file, std::ios::binary);
    EXPECT_TRUE(in) << file;
    return {std::istreambuf_iterator<char>(in), {}};
}

}  // namespace vrn::orlo::host::study
