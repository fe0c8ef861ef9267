/// \file
/// Parts, and the tree of their instances.

#pragma once

#include "host/model/geometrylink.h"
#include "host/model/meshbodies.h"
#include "host/model/modelobject.h"
#include "host/model/partmesh.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {

class PartInstance;

/// A part: the object through which its entities are reached, and an entity itself.
///
/// Properties: "name" and "description", texts; "visible"; "color", 0xRRGGBB; "transparency", 0 for
/// solid to 1 for invisible.
///
/// Ownership  Holds its mesh, and the mesh bodies that others gave it, as MeshBodies says, but
///            neither its geometry nor its instances, all of which hold the part.
class Part final : public ModelObjectOf<CAE::IPartInterface, KFR::EOM::IEOMPartInterface,
                                        MeshBodyOwnerInterface> {
public:
    /// \param persistentName, typeId, service  as for ModelObjectOf
    /// \param number  from 1, in the order of the parts
    Part(std::string name, std::string persistentName, unsigned int typeId, unsigned int number,
         std::shared_ptr<EntityService> service);

    /// As the geometry has it, whatever the user has made of the property.
    [[nodiscard]] std::string const& name() const noexcept { return m_name; }

    /// In the order of the assembly.
    void addInstance(PartInstance& instance);
    void addMeshBody(KFRSmartPointer<CAE::IMeshBodyInterface> const& body)
    {
        m_meshBodies.add(body);
    }
    [[nodiscard]] MeshBodies& meshBodies() noexcept override { return m_meshBodies; }

    /// \param bodies  numbers of the part's geometry bodies, ascending
    void setGeometry(std::weak_ptr<GeometryLink> link, std::vector<unsigned> bodies)
    {
        m_geometry = std::move(link);
        m_geomBodies = std::move(bodies);
    }
    [[nodiscard]] std::weak_ptr<GeometryLink> const& geometry() const noexcept
    {
        return m_geometry;
    }

    /// The mesh as the child "MeshPart". To be given once: meshing anew changes what it shows.
    /// \param mesh  answers CAE::IMeshPartInterface and KFR::EOM::IEOMMeshPartInterface as well
    void setMeshPart(KFRSmartPointer<PartMeshInterface> const& mesh) { m_mesh = mesh; }
    /// What was given, deleted or not; null before.
    [[nodiscard]] KFRSmartPointer<PartMeshInterface> const& meshPart() const noexcept
    {
        return m_mesh;
    }
    /// Null where there is none, or where it is deleted.
    [[nodiscard]] KFRSmartPointer<PartMeshInterface> mesh() const;

    /// Those that others gave it, then those of its mesh.
    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    /// One, or none for a part that is not meshed.
    KFRResult getMeshParts(CAE::IMeshPartSequence& meshParts) override;
    KFRResult getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts) override;
    KFRResult getBodies(CAE::IPersistentObjectSequence& bodies) override;
    KFRResult getChild(std::string const& name,
                       KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child) override;
    /// Those that are still there: neither deleted nor gone with their model.
    KFRResult getInstances(CAE::IInstanceSequence& instances) override;
    KFRResult getInstances(KFR::EOM::IEOMInstanceSequence& instances) override;

    std::string getObjectName() override { return "Part " + m_name; }

private:
    ~Part() override;

    std::string m_name;
    MeshBodies m_meshBodies;
    KFRSmartPointer<PartMeshInterface> m_mesh;
    std::weak_ptr<GeometryLink> m_geometry;
    std::vector<unsigned> m_geomBodies;
    std::vector<KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>> m_instances;
};

/// A node of the assembly tree.
template <class... Further>
using TreeNodeOf =
    ModelObjectOf<CAE::IInstanceInterface, KFR::EOM::IEOMInstanceInterface, Further...>;

/// A part in its place.
///
/// Properties: "name", a text; "visible".
///
/// Ownership  Holds the part.
class PartInstance final : public TreeNodeOf<> {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    PartInstance(std::string const& name, std::string persistentName, KFRSmartPointer<Part> part,
                 unsigned int typeId, unsigned int number, std::shared_ptr<EntityService> service);

    KFRResult getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override;
    KFRResult getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object) override;
    KFRResult getPart(KFRIService& part) override;

    std::string getObjectName() override { return "PartInstance " + persistentName(); }

private:
    KFRSmartPointer<Part> m_part;
};

/// An assembly in its place: the root of a tree, whose type is "Simulation.Assembly", or a node
/// within one, "Simulation.AssemblyInstance". What stands in it has it as its parent. Trees share
/// parts but no assemblies, so an assembly is what stands in its own place.
///
/// Properties: as PartInstance.
///
/// Ownership  Holds what stands in it.
class Assembly final : public TreeNodeOf<KFR::EOM::IEOMAssemblyInterface> {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    Assembly(std::string const& name, std::string persistentName, unsigned int typeId,
             unsigned int number, std::shared_ptr<EntityService> service);

    /// In the order of the tree.
    void addChild(KFRSmartPointer<appfw::IEntityInterface> const& node)
    {
        m_children.push_back(node);
    }

    /// The assembly itself.
    KFRResult getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override;
    KFRResult getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object) override;
    /// None: nodes and elements belong to parts.
    KFRResult getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts) override;
    /// The first instance of a name, which is that of the property "name".
    KFRResult getChild(std::string const& name,
                       KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child) override;
    /// Fails: no part stands there.
    KFRResult getPart(KFRIService& part) override;

    std::string getObjectName() override { return "Assembly " + persistentName(); }

private:
    std::vector<KFRSmartPointer<appfw::IEntityInterface>> m_children;
};

}  // namespace vrn::orlo::host::model
