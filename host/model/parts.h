/// \file
/// Parts, and the tree of their instances.

#pragma once

#include "host/model/meshbodies.h"
#include "host/model/modelobject.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::model {

class PartInstance;

/// A part: the object through which its entities are reached, and an entity itself.
///
/// Properties: "name" and "description", texts; "visible"; "color", 0xRRGGBB; "transparency", 0 for
/// solid to 1 for invisible.
///
/// Ownership  Holds its mesh bodies, as MeshBodies says, but neither its geometry nor its
///            instances, all of which hold the part.
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

    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    /// Those that are still there: neither deleted nor gone with their model.
    KFRResult getInstances(CAE::IInstanceSequence& instances) override;
    KFRResult getInstances(KFR::EOM::IEOMInstanceSequence& instances) override;

    std::string getObjectName() override { return "Part " + m_name; }

private:
    std::string m_name;
    MeshBodies m_meshBodies;
    std::vector<KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>> m_instances;
};

/// A node of the assembly tree.
using TreeNode = ModelObjectOf<CAE::IInstanceInterface, KFR::EOM::IEOMInstanceInterface>;

/// A part in its place.
///
/// Properties: "name", a text; "visible".
///
/// Ownership  Holds the part.
class PartInstance final : public TreeNode {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    PartInstance(std::string const& name, std::string persistentName, KFRSmartPointer<Part> part,
                 unsigned int typeId, unsigned int number, std::shared_ptr<EntityService> service);

    KFRResult getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override;
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
class Assembly final : public TreeNode {
public:
    /// \param persistentName, typeId, number, service  as for ModelObjectOf
    Assembly(std::string const& name, std::string persistentName, unsigned int typeId,
             unsigned int number, std::shared_ptr<EntityService> service);

    /// The assembly itself.
    KFRResult getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override;
    /// Fails: no part stands there.
    KFRResult getPart(KFRIService& part) override;

    std::string getObjectName() override { return "Assembly " + persistentName(); }
};

}  // namespace vrn::orlo::host::model
