/// \file
/// Meshing a part of a model, so that it can be undone.

#pragma once

#include "host/meshing/meshpart.h"
#include "host/model/entityservice.h"
#include "host/model/parts.h"

#include <memory>
#include <utility>

namespace vrn::orlo::host::meshing {

/// The mesh that a part has, or had; null for a part that never had one.
[[nodiscard]] KFRSmartPointer<MeshPart> meshPartOf(model::Part const& part);

/// What a part shows before and after it was meshed, as a step that can be taken back.
///
/// Failure    kDeleted, with nothing changed, where the part has been deleted since.
/// Ownership  Holds the mesh part and both meshes, and the part itself.
/// Threads    Main thread.
class MeshReplacement {
public:
    using Store = std::shared_ptr<MeshStore const>;

    /// \param before, after  null for no mesh
    MeshReplacement(KFRSmartPointer<model::Part> part, KFRSmartPointer<MeshPart> meshPart,
                    Store before, Store after)
        : m_part(std::move(part)),
          m_meshPart(std::move(meshPart)),
          m_before(std::move(before)),
          m_after(std::move(after))
    {
    }

    KFRResult apply() { return show(m_after); }
    KFRResult revert() { return show(m_before); }

private:
    KFRResult show(Store const& store);

    KFRSmartPointer<model::Part> m_part;
    KFRSmartPointer<MeshPart> m_meshPart;
    Store m_before;
    Store m_after;
};

/// Gives a part a mesh, or another one, and tells the entity service of what came, stayed and went.
/// The meshes and mesh bodies of the part are found through references to it from then on.
///
/// \param store    null takes the mesh away
/// \param service  may be null
/// \return the step, done; null for a part that has been deleted
[[nodiscard]] std::shared_ptr<MeshReplacement> installMesh(
    KFRSmartPointer<model::Part> const& part, std::shared_ptr<MeshStore const> store,
    MeshTypes const& types, std::shared_ptr<model::EntityService> const& service);

}  // namespace vrn::orlo::host::meshing
