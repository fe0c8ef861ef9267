#include "host/meshing/abaqusparts.h"

#include "host/meshing/names.h"

#include <memory>
#include <utility>

namespace vrn::orlo::host::meshing {

std::size_t AbaqusParts::add(std::string const& name)
{
    if (find(name) != kNone) {
        m_scanner.refuse("there are two parts with the name \"" + name + "\"",
                         "rename one of them");
    }
    m_builders.emplace_back(name);
    return m_builders.size() - 1;
}

std::size_t AbaqusParts::find(std::string_view name) const
{
    for (std::size_t i = 0; i < m_builders.size(); ++i) {
        if (isSameName(m_builders[i].name(), name)) {
            return i;
        }
    }
    return kNone;
}

MeshBuilder& AbaqusParts::builder(std::size_t part)
{
    if (part == kNone && m_flat == kNone) {
        m_flat = add(m_stem);
    }
    return m_builders[part != kNone ? part : m_flat];
}

MeshInstance& AbaqusParts::addInstance(std::string const& name, std::size_t part)
{
    m_instances.push_back({name, part, {}});
    return m_instances.back();
}

std::size_t AbaqusParts::partOfInstance(std::string_view name) const
{
    for (MeshInstance const& instance : m_instances) {
        if (isSameName(instance.m_name, name)) {
            return instance.m_part;
        }
    }
    return kNone;
}

MeshFile AbaqusParts::finish(bool arePlaced, std::vector<std::string>& warnings)
{
    MeshFile file{m_stem, {}, std::move(m_instances), {}};
    for (std::size_t part = 0; part < m_builders.size(); ++part) {
        MeshBuilder& builder = m_builders[part];
        file.m_parts.push_back(
            std::make_shared<MeshStore>(builder.finish(m_scanner.lines(), warnings)));
        if (!arePlaced || part == m_flat) {
            file.m_instances.push_back({builder.name(), part, {}});
        }
    }
    return file;
}

}  // namespace vrn::orlo::host::meshing
