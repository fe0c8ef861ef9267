/// \file
/// What a part and its geometry ask of the part's mesh.

#pragma once

#include "platform/appfw/entity.h"
#include "platform/caedata/caedata.h"

#include <vector>

namespace vrn::orlo::host::model {

/// The mesh of a part, seen from the part and from its geometry.
///
/// Order      Mesh bodies by their numbers; of one body its continuous meshes by ascending
///            dimension.
/// Failure    Empty lists, null or false for what has no mesh.
/// Threads    Main thread.
class PartMeshInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.host.model.IPartMesh")

    /// \param entity  number of a geometry entity, here and below
    [[nodiscard]] virtual CAE::IMeshBodySequence bodiesOn(unsigned entity) const = 0;
    /// The meshes whose elements lie on the entity itself; of a body all continuous ones in it.
    [[nodiscard]] virtual CAE::IMeshSequence meshesOn(unsigned entity) const = 0;
    /// Whether nodes lie on the entity.
    [[nodiscard]] virtual bool isMeshed(unsigned entity) const = 0;

    [[nodiscard]] virtual CAE::IMeshBodySequence bodies() const = 0;
    /// The highest external id of a node; 0 without nodes.
    [[nodiscard]] virtual unsigned long long highestNodeId() const = 0;
    /// All objects that are there: the mesh part, and each body with its meshes and sub-meshes.
    [[nodiscard]] virtual std::vector<KFRSmartPointer<appfw::IEntityInterface>> entities() = 0;
    /// The mesh part, mesh body or mesh whose reference has this type and number.
    [[nodiscard]] virtual KFRSmartPointer<appfw::IEntityInterface> entity(unsigned typeId,
                                                                          unsigned number) = 0;

    /// To be called when a geometry body is deleted: its mesh bodies are deleted with it.
    virtual void deleteBodiesOn(unsigned entity) = 0;
    /// To be called when the part is deleted: so is all of its mesh.
    virtual void deleteAll() = 0;
    /// To be called by the part when it goes: nothing leads back to it then.
    virtual void leavePart() noexcept = 0;
};

}  // namespace vrn::orlo::host::model
