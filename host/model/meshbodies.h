/// \file
/// The mesh bodies of a part or of a geometry body.

#pragma once

#include "platform/caedata/caedata.h"

#include <vector>

namespace vrn::orlo::host::model {

/// Mesh bodies that others have made.
///
/// Order      As added, each once.
/// Ownership  Holds them. They may hold the part in turn, so whoever owns the part calls deleteAll()
///            before it gives the part up.
/// Threads    Main thread.
class MeshBodies {
public:
    using MeshBody = KFRSmartPointer<CAE::IMeshBodyInterface>;

    /// Null, and one that is there already, are ignored.
    void add(MeshBody const& body);
    void remove(MeshBody const& body);
    /// Marks them deleted, takes their parent from them and forgets them.
    void deleteAll();

    /// Without those that have been deleted.
    [[nodiscard]] CAE::IMeshBodySequence all() const;

private:
    std::vector<MeshBody> m_bodies;
};

/// An object that others give mesh bodies.
class MeshBodyOwnerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.host.model.IMeshBodyOwner")

    [[nodiscard]] virtual MeshBodies& meshBodies() noexcept = 0;
};

}  // namespace vrn::orlo::host::model
