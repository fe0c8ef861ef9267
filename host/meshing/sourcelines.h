/// \file
/// Where the lines of a mesh come from, when files include each other.

#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Number of a line from 1 in the order of reading, through all files. In a file without lines, its
/// byte from 0.
using SourceLine = std::uint64_t;

/// Turns a line as read into a file and a line of it.
class SourceLines {
public:
    /// \return number of the file for begin()
    [[nodiscard]] std::size_t addFile(std::filesystem::path file);
    /// Says that from `line` on, lines come from `file`, the first of them being its `lineOfFile`.
    void begin(SourceLine line, std::size_t file, unsigned lineOfFile);
    /// Says that a file is the only one and binary: what follows are bytes of it.
    void beginBytes(std::size_t file);

    [[nodiscard]] std::filesystem::path const& file(std::size_t file) const
    {
        return m_files[file];
    }
    /// "line 7", with the file where that is another than the one of `from`; or "byte 7".
    [[nodiscard]] std::string placeFrom(SourceLine from, SourceLine line) const;
    /// "FILE:LINE", or "FILE: at byte 7".
    [[nodiscard]] std::string place(SourceLine line) const;

    /// Throws MeshFileError.
    [[noreturn]] void refuse(SourceLine line, std::string const& wrong,
                             std::string const& mend) const;

private:
    struct Stretch {
        SourceLine m_first;
        std::size_t m_file;
        unsigned m_lineOfFile;
    };
    [[nodiscard]] Stretch at(SourceLine line) const;

    std::vector<std::filesystem::path> m_files;
    std::vector<Stretch> m_stretches;
    bool m_isBytes = false;
};

}  // namespace vrn::orlo::host::meshing
