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

SourceLines::Stretch SourceLines::at(SourceLine line) const
{
    auto const after =
        std::upper_bound(m_stretches.begin(), m_stretches.end(), line,
                         [](SourceLine l, Stretch const& s) { return l < s.m_first; });
    Stretch stretch = *std::prev(after);
    stretch.m_lineOfFile += line - stretch.m_first;
    return stretch;
}

std::string SourceLines::placeFrom(SourceLine from, SourceLine line) const
{
    Stretch const stretch = at(line);
    std::string const number = "line " + std::to_string(stretch.m_lineOfFile);
    return stretch.m_file == at(from).m_file ? number
                                             : number + " of " + m_files[stretch.m_file].string();
}

std::string SourceLines::place(SourceLine line) const
{
    Stretch const stretch = at(line);
    return m_files[stretch.m_file].string() + ":" + std::to_string(stretch.m_lineOfFile);
}

void SourceLines::refuse(SourceLine line, std::string const& wrong, std::string const& mend) const
{
    Stretch const stretch = at(line);
    throw MeshFileError(m_files[stretch.m_file], stretch.m_lineOfFile, wrong, mend);
}

}  // namespace vrn::orlo::host::meshing
