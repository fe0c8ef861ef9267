#include "host/model/assemblytree.h"

#include "host/model/persistentname.h"

#include <map>
#include <utility>

namespace vrn::orlo::host::model {

using geometry::Instance;
using KFR::Services::TypeRegistry::ITypeRegistryInterface;

namespace {

class TreeMaker {
public:
    TreeMaker(std::vector<KFRSmartPointer<Part>> const& parts, ITypeRegistryInterface& types,
              std::shared_ptr<EntityService> const& service)
        : m_parts(parts), m_types(types), m_service(service)
    {
    }

    void make(std::vector<Instance> const& siblings, bool areRoots, std::string const& above,
              CAE::IPersistentObjectInterface& parent)
    {
        SiblingNames names(above);
        for (Instance const& node : siblings) {
            std::string const name = names.next(node.m_name);
            unsigned const typeId = typeIdOf(typeNameOf(node, areRoots));
            auto const number = static_cast<unsigned>(m_tree.m_nodes.size()) + 1;
            if (node.m_part != Instance::kNoPart) {
                auto const& part = m_parts[static_cast<std::size_t>(node.m_part)];
                auto const instance =
                    KFR::make<PartInstance>(node.m_name, name, part, typeId, number, m_service);
                instance->attach(&parent);
                part->addInstance(*instance);
                m_tree.m_nodes.push_back(instance);
                m_tree.m_partInstances.push_back(instance);
            } else {
                auto const assembly =
                    KFR::make<Assembly>(node.m_name, name, typeId, number, m_service);
                assembly->attach(&parent);
                m_tree.m_nodes.push_back(assembly);
                make(node.m_children, false, name, *assembly);
            }
        }
    }

    [[nodiscard]] AssemblyTree& tree() noexcept { return m_tree; }

private:
    unsigned typeIdOf(std::string_view name)
    {
        auto const [row, isNew] = m_typeIds.try_emplace(name);
        if (isNew) {
            row->second = m_types.getTypeId(icu::UnicodeString::fromUTF8(std::string(name)));
        }
        return row->second;
    }

    std::vector<KFRSmartPointer<Part>> const& m_parts;
    ITypeRegistryInterface& m_types;
    std::shared_ptr<EntityService> const& m_service;
    std::map<std::string_view, unsigned> m_typeIds;
    AssemblyTree m_tree;
};

}  // namespace

std::string_view typeNameOf(Instance const& node, bool isRoot) noexcept
{
    if (node.m_part != Instance::kNoPart) {
        return "Simulation.PartInstance";
    }
    return isRoot ? "Simulation.Assembly" : "Simulation.AssemblyInstance";
}

AssemblyTree makeAssemblyTree(geometry::GeometryModel const& geometry,
                              std::vector<KFRSmartPointer<Part>> const& parts,
                              std::string const& above, CAE::IPersistentObjectInterface& root,
                              ITypeRegistryInterface& types,
                              std::shared_ptr<EntityService> const& service)
{
    TreeMaker maker(parts, types, service);
    maker.make(geometry.m_roots, true, above, root);
    return std::move(maker.tree());
}

}  // namespace vrn::orlo::host::model
