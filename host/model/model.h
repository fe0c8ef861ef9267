/// \file
/// The model that the host holds: everything in it as objects of the platform.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/model/assemblytree.h"
#include "host/model/entityservice.h"
#include "host/model/geometrystore.h"
#include "host/model/parts.h"
#include "host/model/persistence.h"
#include "host/model/persistentname.h"
#include "host/model/properties.h"
#include "host/model/rootmanager.h"
#include "platform/caedata/caedata.h"
#include "platform/caedata/entityreference.h"
#include "platform/eom/eom.h"
#include "platform/registry/typeregistry.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::model {

/// An imported geometry, its parts and their instances, and the materials, sections and behaviours
/// that were added to it.
///
/// Persistent names begin with the name of the geometry's file, without folder and ending:
///
///     bracket                       the model itself
///     bracket/Part/bolt#2           the second part of that name
///     bracket/Part/bolt#2/FACE/7    its seventh face
///     bracket/Part/bolt#2/MeshPart  its mesh; mesh bodies and meshes stand below "MeshBody"
///     bracket/Instance/rig/bolt     a node of the assembly tree, below the node "rig"
///     bracket/Material/steel        likewise Section and Behavior
///
/// No two objects of a model have the same, and the same file gives the same in every run.
///
/// Ownership  Owns the geometry and the objects; the objects never lead back to the model. Objects
///            that others hold on to are marked deleted when the model goes, of which nobody is
///            told.
/// Threads    Main thread.
class Model {
public:
    using Entity = EntityService::Entity;

    /// \param types     asked for the ids of the type names
    /// \param service   told of changes to objects; may be null
    /// \param entities  made to know the objects and to find those of the geometry; may be null
    Model(geometry::GeometryModel geometry,
          KFR::Services::TypeRegistry::ITypeRegistryInterface& types,
          std::shared_ptr<EntityService> const& service = nullptr, RootManager* entities = nullptr);
    Model(Model const&) = delete;
    Model& operator=(Model const&) = delete;
    ~Model();

    [[nodiscard]] geometry::GeometryModel const& geometry() const noexcept
    {
        return m_geometry->geometry();
    }
    /// Held weakly by services that outlive the model.
    [[nodiscard]] std::shared_ptr<GeometryStore> const& geometryStore() const noexcept
    {
        return m_geometry;
    }
    /// Leads from numbers of the geometry to its objects; goes with the model.
    [[nodiscard]] std::shared_ptr<GeometryLink> const& geometryLink() const noexcept
    {
        return m_link;
    }
    /// The object that stands for the model; its name is that of the file to begin with.
    [[nodiscard]] KFRSmartPointer<ModelRoot> const& root() const noexcept { return m_root; }

    /// In the order of the geometry's parts, those that were removed among them.
    [[nodiscard]] std::vector<KFRSmartPointer<Part>> const& parts() const noexcept
    {
        return m_parts;
    }
    /// Of all parts, in the order of the tree.
    [[nodiscard]] std::vector<KFRSmartPointer<PartInstance>> const& instances() const noexcept
    {
        return m_instances;
    }
    /// Materials, sections and behaviours, as added.
    [[nodiscard]] std::vector<Entity> const& properties() const noexcept { return m_properties; }

    /// A topological entity, made at the first question; null for a number that the model does not
    /// have, or no longer.
    [[nodiscard]] GeometryStore::Object object(unsigned number) const;
    /// Null when there is no such object, or no longer.
    [[nodiscard]] KFRSmartPointer<CAE::IPersistentObjectInterface> byPersistentName(
        std::string const& name) const;

    /// The entity of a reference, be it added, of the geometry or of a part's mesh; its service may
    /// also be an instance of the part. Null when there is none, or no longer.
    [[nodiscard]] Entity entity(CAE::EntityReference const& reference) const;

    /// Failure    std::invalid_argument for an empty name. Names may repeat.
    KFRSmartPointer<Material> addMaterial(std::string const& name);
    KFRSmartPointer<SectionProperty> addSection(std::string const& name);
    KFRSmartPointer<BehaviorProperty> addBehavior(std::string const& name);

    /// Deletes an object with what belongs to it: a part's geometry, mesh and instances, a body's
    /// faces, edges, vertices and mesh bodies, all that stands in an assembly. Told is the going of
    /// the object, of tree nodes and of meshes, in one batch.
    ///
    /// Failure    kUnknownEntity for null, for what is not of the model, was deleted already, or is
    ///            the model itself; for meshes, which go by meshing anew.
    KFRResult remove(Entity const& entity);

    /// Reference of a topological entity: its part as the service, the type of its class, its
    /// number. The empty reference for a number that the model does not have. Makes no object.
    [[nodiscard]] CAE::EntityReference reference(unsigned number) const;

    /// Reference of a part as such: "Simulation.Part", numbered from 1 in the order of the parts.
    /// The empty reference for an index out of range.
    [[nodiscard]] CAE::EntityReference partReference(std::size_t part) const;

    [[nodiscard]] static std::string_view typeNameOf(geometry::Instance const& node,
                                                     bool isRoot) noexcept
    {
        return model::typeNameOf(node, isRoot);
    }

private:
    template <class Property>
    KFRSmartPointer<Property> addProperty(std::string const& name);
    /// Of what is made or found when it is asked for: geometry and meshes.
    [[nodiscard]] Entity entityInParts(CAE::EntityReference const& reference) const;
    void setUpParts();
    [[nodiscard]] unsigned long long highestNodeId() const;
    /// As byPersistentName(), but null for what is of a mesh.
    [[nodiscard]] KFRSmartPointer<CAE::IPersistentObjectInterface> ownByName(
        std::string const& name) const;
    /// Makes an object findable by name and, where there is a manager, by reference.
    void enter(Entity const& entity);
    /// The reverse, told to the service.
    void take(Entity const& entity);
    void removeBelow(Entity const& entity);
    void deleteMeshOn(KFR::EOM::IEOMGeomBodyInterface& body, unsigned number);

    KFRSmartPointer<KFR::Services::TypeRegistry::ITypeRegistryInterface> m_types;
    std::shared_ptr<EntityService> m_service;
    KFRSmartPointer<RootManager> m_entities;
    KFRSmartPointer<ModelRoot> m_root;
    std::vector<KFRSmartPointer<Part>> m_parts;
    std::vector<KFRSmartPointer<PartInstance>> m_instances;
    std::vector<Entity> m_properties;
    unsigned m_lastProperty = 0;
    std::map<std::string, SiblingNames> m_propertyNames;  // by kind
    std::map<std::string, Entity> m_byName;               // all but root and geometry
    std::shared_ptr<GeometryStore> m_geometry;
    std::shared_ptr<GeometryLink> m_link;
    RootManager::Registration m_resolver;  // goes before the store, which it asks
};

}  // namespace vrn::orlo::host::model
