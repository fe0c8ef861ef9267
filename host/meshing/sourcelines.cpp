#include "host/meshing/sourcelines.h"

#include "host/meshing/meshfileerror.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::meshing {

std::size_t SourceLines::addFile(std::filesystem::path file)
{
    m_files.push_back(std::move(file));
    return m_files.size() - 1;
}

void SourceLines::begin(SourceLine line, std::size_t file, unsigned lineOfFile)
{
    m_stretches.push_back({line, file, lineOfFile});
}

void SourceLines::beginBytes(std::size_t file)
{
    m_stretches = {{0, file, 0}};
    m_isBytes = true;
}

SourceLines::Stretch SourceLines::at(SourceLine line) const
{
    auto const after =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), line,
                         [](SourceLine l, Stretch const& s) { return l < s.m_first; });
    Stretch stretch = *std::prev(after);
    stretch.m_lineOfFile += static_cast<unsigned>(line - stretch.m_first);
    return stretch;
}

std::string SourceLines::placeFrom(SourceLine from, SourceLine line) const
{
    if (m_isBytes) {
        return "byte " + std::to_string(line);
    }
    Stretch const stretch = at(line);
    std::string const number = "line " + std::to_string(stretch.m_lineOfFile);
    return stretch.m_file == at(from).m_file ? number
                                             : number + " of " + m_files[stretch.m_file].string();
}

std::string SourceLines::place(SourceLine line) const
{
    Stretch const stretch = at(line);
    if (m_isBytes) {
        return m_files[stretch.m_file].string() + ": at byte " + std::to_string(line);
    }
    return m_files[stretch.m_file].string() + ":" + std::to_string(stretch.m_lineOfFile);
}

void SourceLines::refuse(SourceLine line, std::string const& wrong, std::string const& mend) const
{
    Stretch const stretch = at(line);
    if (m_isBytes) {
        throw MeshFileError(m_files[stretch.m_file], 0,
                            "at byte " + std::to_string(line) + ": " + wrong, mend);
    }
    throw MeshFileError(m_files[stretch.m_file], stretch.m_lineOfFile, wrong, mend);
}

}  // namespace vrn::orlo::host::meshing
