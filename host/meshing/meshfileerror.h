/// \file
/// A mesh file that cannot be taken.

#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>

namespace vrn::orlo::host::meshing {

/// what() is one line for the user: "FILE:LINE: what is wrong; the mend", without the line where
/// the whole file is meant, and without the mend where there is none.
class MeshFileError : public std::runtime_error {
public:
    /// \param line  from 1; 0 for the file as a whole
    MeshFileError(std::filesystem::path file, unsigned line, std::string const& wrong,
                  std::string mend)
        : std::runtime_error(file.string() + (line != 0 ? ":" + std::to_string(line) : "") + ": " +
                             wrong + (mend.empty() ? "" : "; " + mend)),
          m_file(std::move(file)),
          m_line(line),
          m_mend(std::move(mend))
    {
    }

    [[nodiscard]] std::filesystem::path const& file() const noexcept { return m_file; }
    [[nodiscard]] unsigned line() const noexcept { return m_line; }
    [[nodiscard]] std::string const& mend() const noexcept { return m_mend; }

private:
    std::filesystem::path m_file;
    unsigned m_line;
    std::string m_mend;
};

}  // namespace vrn::orlo::host::meshing
