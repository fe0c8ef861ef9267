/// \file
/// Parts that are made of a mesh file alone.

#pragma once

#include "host/meshing/meshfile.h"
#include "host/meshing/meshobjects.h"
#include "host/meshing/meshpart.h"
#include "host/model/entityservice.h"
#include "host/model/modelobject.h"
#include "host/model/rootmanager.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"
#include "platform/registry/typeregistry.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

class MeshedPart;

/// A meshed part in its place. Leads to the part, and has no mesh of its own.
///
/// The instance is its own service. Properties: "name" and "visible".
class MeshedInstance final
    : public model::ModelObjectOf<CAE::IInstanceInterface, KFR::EOM::IEOMInstanceInterface> {
public:
    /// \param part  tells the instance when it goes
    MeshedInstance(std::string const& fileStem, MeshedPart& part, MeshInstance const& instance,
                   unsigned number, MeshTypes const& types,
                   std::shared_ptr<model::EntityService> service);

    KFRResult getReferenceObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override;
    KFRResult getReferenceObject(KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& object) override;
    KFRResult getPart(KFRIService& part) override;

    [[nodiscard]] MeshPlacement const& placement() const noexcept { return m_placement; }
    /// To be called by the part when it goes.
    void leavePart() noexcept { m_part = nullptr; }

private:
    MeshedPart* m_part;
    MeshPlacement m_placement;
};

/// A part with a mesh and no geometry.
///
/// The part is its own service. Properties: "name", "description" and "visible".
///
/// Ownership  Holds its mesh and its instances, which know it by a plain pointer.
class MeshedPart final
    : public model::ModelObjectOf<CAE::IPartInterface, KFR::EOM::IEOMPartInterface> {
public:
    /// \param number  of the part's reference, from 1
    MeshedPart(std::string const& fileStem, std::shared_ptr<MeshStore const> store, unsigned number,
               MeshTypes const& types, std::shared_ptr<model::EntityService> const& service);

    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    KFRResult getInstances(CAE::IInstanceSequence& instances) override;
    KFRResult getInstances(KFR::EOM::IEOMInstanceSequence& instances) override;
    KFRResult getMeshParts(CAE::IMeshPartSequence& meshParts) override;
    KFRResult getMeshParts(KFR::EOM::IEOMMeshPartSequence& meshParts) override;
    /// The mesh bodies.
    KFRResult getBodies(CAE::IPersistentObjectSequence& bodies) override;
    KFRResult getChild(std::string const& name,
                       KFRSmartPointer<KFR::EOM::IEOMObjectInterface>& child) override;

    /// Reference of an element: the part as its service, the type of its dimension, its local
    /// number. The empty reference for a number that the part does not have, and for a point.
    [[nodiscard]] CAE::EntityReference elementReference(LocalNumber element);

    void addInstance(KFRSmartPointer<MeshedInstance> const& instance);
    [[nodiscard]] KFRSmartPointer<MeshPart> const& meshPart() const noexcept { return m_mesh; }
    /// The first; most files give a part no more.
    [[nodiscard]] KFRSmartPointer<MeshBody> const& meshBody() const { return m_firstBody; }
    [[nodiscard]] std::vector<KFRSmartPointer<MeshedInstance>> const& instances() const noexcept
    {
        return m_instances;
    }

private:
    ~MeshedPart() override;

    KFRSmartPointer<MeshPart> m_mesh;
    KFRSmartPointer<MeshBody> m_firstBody;
    std::vector<KFRSmartPointer<MeshedInstance>> m_instances;
};

/// The parts of a mesh file, of which there is one unless the file has parts of its own.
struct LoadedMesh {
    std::vector<KFRSmartPointer<MeshedPart>> m_parts;  ///< In the order of the file.
    std::vector<std::string> m_warnings;               ///< As MeshFile::m_warnings.
};

/// Reads a mesh file and makes its parts, with their meshes, and instances known.
///
/// \param entityService  told of changes; may be null
/// \param rootManager    made to know the objects; may be null
/// Order      Each part, its mesh part, its bodies with the meshes and sub-meshes of each, its
///            instances.
/// Failure    MeshFileError as readMeshFile(); nothing is known then.
[[nodiscard]] LoadedMesh loadMesh(std::filesystem::path const& file,
                                  KFR::Services::TypeRegistry::ITypeRegistryInterface& typeRegistry,
                                  std::shared_ptr<model::EntityService> const& entityService,
                                  model::RootManager* rootManager);

/// Takes a part, its mesh and its instances out of what is known, the part last. What is not known
/// is passed over.
void removeMesh(MeshedPart& part, model::RootManager& rootManager);

}  // namespace vrn::orlo::host::meshing
