/// \file
/// The assembly tree of a geometry as objects.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/model/entityservice.h"
#include "host/model/parts.h"
#include "platform/registry/typeregistry.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::model {

/// Type name of a node of the assembly tree.
/// \param isRoot  whether the node is one of GeometryModel::m_roots
[[nodiscard]] std::string_view typeNameOf(geometry::Instance const& node, bool isRoot) noexcept;

/// The nodes of an assembly tree.
///
/// Order      Of the tree: an assembly before what stands in it.
struct AssemblyTree {
    std::vector<KFRSmartPointer<appfw::IEntityInterface>> m_nodes;
    std::vector<KFRSmartPointer<PartInstance>> m_partInstances;  ///< Of the nodes, those of parts.
};

/// Makes the tree and tells the parts of their instances. Numbers run through all nodes, from 1.
/// \param parts    those of the geometry, in its order
/// \param above    persistent name that the nodes' own begin with
/// \param root     parent of the nodes that stand in no assembly
/// \param types    asked for the ids of the nodes' type names, once each
/// \param service  told of changes to nodes; may be null
[[nodiscard]] AssemblyTree makeAssemblyTree(
    geometry::GeometryModel const& geometry, std::vector<KFRSmartPointer<Part>> const& parts,
    std::string const& above, CAE::IPersistentObjectInterface& root,
    KFR::Services::TypeRegistry::ITypeRegistryInterface& types,
    std::shared_ptr<EntityService> const& service);

}  // namespace vrn::orlo::host::model
