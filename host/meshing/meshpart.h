/// \file
/// The nodes and elements of a part as one object.

#pragma once

#include "host/meshing/meshobjects.h"
#include "host/meshing/meshsource.h"
#include "host/model/modelobject.h"
#include "host/model/partmesh.h"
#include "platform/caedata/caedata.h"
#include "platform/eom/eom.h"

#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// The mesh of a part, whatever bodies it has. Stands in the part, as its mesh bodies do.
///
/// The part is meshed anew by replace(). Handles stay good: a mesh body stays the same object as
/// long as the part has a mesh on the same geometry body, or, without geometry, of the same name,
/// and so do its meshes. What has no elements any more is deleted, and comes back with elements.
/// Nodes and elements belong to the revision that they were asked of.
///
/// A row of the store without elements has no mesh body, unless it is the only row.
///
/// Properties: "name", which is "MeshPart", and "visible".
///
/// Failure    As MeshFailure says, with the last argument as it was.
/// Ownership  Holds all mesh bodies that it ever had.
class MeshPart final
    : public model::ModelObjectOf<CAE::IMeshPartInterface, KFR::EOM::IEOMMeshPartInterface,
                                  model::PartMeshInterface, MeshSourceInterface> {
public:
    /// Persistent names.
    struct Names {
        std::string m_own;
        /// Of the mesh body that is named like the store; those of others begin with it.
        std::string m_bodies;
    };

    /// Shows a store, of which nobody is told.
    /// \param part   the parent, which calls leavePart() when it goes
    /// \param store  null for a part that is not meshed: the object is deleted then
    MeshPart(CAE::IPersistentObjectInterface& part, Names names,
             std::shared_ptr<MeshContext> context, std::shared_ptr<MeshStore const> store);

    CAE::EntityReference getEntityReference() override;

    /// Shows another mesh, and tells of what came, stayed and went.
    /// \param store  null deletes the object with all bodies
    /// \return what was shown before, for replacing it back; null for nothing
    std::shared_ptr<MeshStore const> replace(std::shared_ptr<MeshStore const> store);

    // Of the platform.

    KFRResult getNodeById(unsigned long long id, KFRSmartPointer<CAE::INodeInterface>& node,
                          bool flag) override;
    KFRResult getElementById(unsigned long long id,
                             KFRSmartPointer<CAE::IElementInterface>& element, bool flag) override;
    KFRResult getElementNumbers(KFRSequence<unsigned long long> const& ids,
                                KFRSequence<unsigned int>& numbers) override;
    KFRResult getNodeNumbers(KFRSequence<unsigned long long> const& ids,
                             KFRSequence<unsigned int>& numbers) override;
    /// Fails for a node that the present mesh does not have: by id, number and location.
    KFRResult getElementsConnectedTo(KFRSmartPointer<CAE::INodeInterface> const& node,
                                     CAE::IElementSequence& elements) override;
    KFRResult getMeshBodies(CAE::IMeshBodySequence& bodies) override;
    KFRResult getElementNodes(std::span<long long const> elementIds,
                              CAE::ElementNodes& nodes) override;
    /// One above the highest.
    KFRResult getNextAvaialbleNodeID(unsigned long long& id) override;
    /// Not free are also 0 and what exceeds 63 bits, which no node can have.
    KFRResult isNodeIdFree(unsigned long long id, bool& free) override;

    // Of the part and its geometry.

    [[nodiscard]] CAE::IMeshBodySequence bodiesOn(unsigned entity) const override;
    [[nodiscard]] CAE::IMeshSequence meshesOn(unsigned entity) const override;
    [[nodiscard]] bool isMeshed(unsigned entity) const override;
    [[nodiscard]] CAE::IMeshBodySequence bodies() const override;
    [[nodiscard]] unsigned long long highestNodeId() const override { return m_highestNodeId; }
    [[nodiscard]] KFRSmartPointer<appfw::IEntityInterface> entity(unsigned typeId,
                                                                  unsigned number) override;
    [[nodiscard]] std::vector<model::EntityService::Entity> entities() override;
    void deleteBodiesOn(unsigned entity) override;
    void deleteAll() override;
    void leavePart() noexcept override;

    // Of the host.

    [[nodiscard]] std::shared_ptr<MeshTables const> const& tables() const noexcept override
    {
        return m_tables;
    }
    [[nodiscard]] std::vector<LocalNumber> elements() const override;
    [[nodiscard]] MeshTypes const& types() const noexcept { return m_context->m_types; }
    /// By the index in the store; null for a row that has no mesh body.
    [[nodiscard]] std::vector<KFRSmartPointer<MeshBody>> const& bodyRows() const noexcept
    {
        return m_present;
    }
    /// The one on a geometry body; null for none.
    [[nodiscard]] KFRSmartPointer<MeshBody> bodyOn(unsigned entity) const;

private:
    void show(std::shared_ptr<MeshStore const> store, MeshChanges& changes);
    [[nodiscard]] KFRSmartPointer<MeshBody> bodyFor(MeshBodyRow const& row);
    [[nodiscard]] KFRSmartPointer<CAE::IElementInterface> element(LocalNumber number) const;
    [[nodiscard]] KFRSmartPointer<SubMesh> subMesh(unsigned number) const;
    [[nodiscard]] std::string nameOfBody(MeshBodyRow const& row);

    CAE::IPersistentObjectInterface* m_part;  // null once it has gone
    std::shared_ptr<MeshContext> m_context;
    std::string m_bodyName;
    bool m_hasNamesake = false;  // a body has the name itself
    model::SiblingNames m_bodyNames;
    std::shared_ptr<MeshStore const> m_store;  // null for none
    std::shared_ptr<MeshTables const> m_tables;
    std::vector<KFRSmartPointer<MeshBody>> m_bodies;   // in the order of their numbers
    std::vector<KFRSmartPointer<MeshBody>> m_present;  // in the order of the store
    unsigned long long m_highestNodeId = 0;
};

}  // namespace vrn::orlo::host::meshing
