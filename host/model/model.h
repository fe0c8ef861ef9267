/// \file
/// The model that the host holds: parts as objects of the platform, and a reference for everything
/// that the geometry has.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::model {

/// A part: the object through which its entities are reached.
class Part final : public KFRServiceObjectImpl<CAE::IPartInterface> {
public:
    explicit Part(std::string name) : m_name(std::move(name)) {}

    std::string getObjectName() override { return "Part " + m_name; }
    [[nodiscard]] std::string const& name() const noexcept { return m_name; }

private:
    std::string m_name;
};

/// An imported geometry with its parts as objects.
///
/// Ownership  Owns the geometry. References keep the part that they name alive, not the model.
/// Threads    Main thread.
class Model {
public:
    /// \param types  asked for the ids of the type names, once each
    Model(geometry::GeometryModel geometry,
          KFR::Services::TypeRegistry::ITypeRegistryInterface& types);

    [[nodiscard]] geometry::GeometryModel const& geometry() const noexcept { return m_geometry; }

    /// Reference of a topological entity: its part as the service, the type of its class, its
    /// number. The empty reference for a number that the model does not have.
    [[nodiscard]] CAE::EntityReference reference(unsigned number) const;

    /// Reference of a part as such: "Simulation.Part", numbered from 1 in the order of the parts.
    /// The empty reference for an index out of range.
    [[nodiscard]] CAE::EntityReference partReference(std::size_t part) const;

    /// Type name of a node of the assembly tree.
    /// \param isRoot  whether the node is one of GeometryModel::m_roots
    [[nodiscard]] static std::string_view typeNameOf(geometry::Instance const& node,
                                                     bool isRoot) noexcept;

private:
    geometry::GeometryModel m_geometry;
    std::vector<KFRSmartPointer<Part>> m_parts;
    std::map<geometry::EntityClass, unsigned> m_typeIds;
    unsigned m_partTypeId;
};

}  // namespace vrn::orlo::host::model
