/// \file
/// From the platform's mesh objects to their data.

#pragma once

#include "host/meshing/meshtables.h"
#include "platform/caedata/caedata.h"

#include <memory>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Codes of what a mesh does not have.
enum MeshFailure : int {
    kNoElement = 101,
    kNoMesh = 102,      ///< Of the type, or that holds the element, or on the geometry.
    kShapeless = 103,   ///< A point element has no shape.
    kBodyIsGone = 104,  ///< The mesh has outlived its body.
    kNoOwner = 105,     ///< The mesh has no elements of the kind.
    kNoNode = 106,
    kNoGeometry = 107,   ///< The mesh lies on none, or on one that is gone.
    kForeignMesh = 108,  ///< A handle that is null, or no mesh of the host's of the kind.
    kNoChain = 109,      ///< The elements are no single line.
    kBadRequest = 110,   ///< Lists that do not go together, or an option that nobody knows.
};

/// What the host asks of its own mesh parts, mesh bodies and meshes, for lists that are too long to
/// be asked for element by element.
class MeshSourceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.host.meshing.IMeshSource")

    /// The revision that the object shows. Never null.
    [[nodiscard]] virtual std::shared_ptr<MeshTables const> const& tables() const noexcept = 0;
    /// Of what is the object's, ascending; none for a deleted one.
    [[nodiscard]] virtual std::vector<LocalNumber> elements() const = 0;
};

/// External ids of elements or nodes.
template <class Numbers>
[[nodiscard]] KFRSequence<unsigned long long> idsOf(Numbering const& numbering,
                                                    Numbers const& numbers)
{
    KFRSequence<unsigned long long> ids;
    ids.reserve(numbers.size());
    for (LocalNumber const number : numbers) {
        ids.append(static_cast<unsigned long long>(numbering.idOf(number)));
    }
    return ids;
}

}  // namespace vrn::orlo::host::meshing
