/// \file
/// The model that the host holds: parts as objects of the platform, and a reference for everything
/// that the geometry has.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/model/entityobject.h"
#include "host/model/entityservice.h"
#include "host/model/rootmanager.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/kfr/kfrserviceobject.h"
#include "platform/registry/typeregistry.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::model {

/// A part: the object through which its entities are reached, and an entity itself.
///
/// Properties: "name" and "description", texts; "visible"; "color", 0xRRGGBB; "transparency", 0 for
/// solid to 1 for invisible.
class Part final : public EntityObjectOf<CAE::IPartInterface> {
public:
    /// \param typeId   of parts
    /// \param number   from 1, in the order of the parts
    /// \param service  told of changes; may be null
    Part(std::string name, unsigned int typeId, unsigned int number,
         std::shared_ptr<EntityService> service);

    /// The part is its own owner.
    CAE::EntityReference getEntityReference() override;
    std::string getObjectName() override { return "Part " + m_name; }
    /// As the geometry has it, whatever the user has made of the property.
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
    /// \param types     asked for the ids of the type names, once each
    /// \param service   told of changes to parts; may be null
    /// \param entities  made to know the parts; may be null
    Model(geometry::GeometryModel geometry,
          KFR::Services::TypeRegistry::ITypeRegistryInterface& types,
          std::shared_ptr<EntityService> const& service = nullptr, RootManager* entities = nullptr);

    [[nodiscard]] geometry::GeometryModel const& geometry() const noexcept { return m_geometry; }
    /// In the order of the geometry's parts.
    [[nodiscard]] std::vector<KFRSmartPointer<Part>> const& parts() const noexcept
    {
        return m_parts;
    }

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
