/// \file
/// Selections of elements, packed by what displays them.

#pragma once

#include "platform/appfw/entref.h"
#include "platform/caedata/caedata.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

namespace vrn::orlo::plugin::modeling {

/// Packs elements of a mesh body into one container per owner: the display keeps triangles,
/// quadrilaterals and solids of a mesh apart.
///
/// Shape      Of a surface mesh, elements whose number of nodes is a multiple of 3 count as
///            triangles, which takes in those of nine and twelve nodes; else multiples of 4 as
///            quadrilaterals; others are left out. Line meshes give nothing.
/// Order      Meshes in the order of POCompare, triangles before quadrilaterals, elements as given.
/// Failure    What cannot be found is left out in silence.
/// Threads    Main thread.
/// Cost       Linear.
class MODELING_API ElementSelectionMakeup {
public:
    virtual ~ElementSelectionMakeup() = default;

    /// \param ids  external ids
    void append2EntRefSequence(KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
                               KFRSequence<unsigned long long> const& ids,
                               appfw::IEntRefSequence& out);
    void appendToEntRefSequence(KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
                                KFRSequence<unsigned long long> const& ids,
                                appfw::IEntRefSequence& out);
};

}  // namespace vrn::orlo::plugin::modeling
