/// \file
/// What a Gmsh mesh says before its nodes: its format, physical groups and entities.

#pragma once

#include "host/meshing/gmshsource.h"

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Reads the first sections of a file, each behind its name, and keeps what they say.
///
/// Failure    MeshFileError for a format that is not read, and as GmshSource.
class GmshHead {
public:
    void readFormat(GmshSource& source);
    void readPhysicalNames(GmshSource& source);
    void readEntities(GmshSource& source);

    /// 2 or 4; 0 before the format is read.
    [[nodiscard]] int majorVersion() const noexcept { return m_major; }
    [[nodiscard]] bool is41() const noexcept { return m_is41; }

    /// "physical 3" for a group without a name.
    [[nodiscard]] std::string nameOf(std::int64_t dimension, std::int64_t physical) const;
    /// The physical groups of an entity.
    [[nodiscard]] std::vector<std::int64_t> physicalsOf(std::int64_t dimension,
                                                        std::int64_t entity) const;

private:
    /// Dimension and tag.
    using Tag = std::pair<std::int64_t, std::int64_t>;
    void readEntity(GmshSource& source, std::int64_t dimension);

    int m_major = 0;
    bool m_is20 = false;
    bool m_is41 = false;
    std::map<Tag, std::string> m_names;
    std::map<Tag, std::vector<std::int64_t>> m_physicals;  // by entity
};

}  // namespace vrn::orlo::host::meshing
