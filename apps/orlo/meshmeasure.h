/// \file
/// What a mesh measures.

#pragma once

#include "host/meshing/meshstore.h"

namespace vrn::orlo::app {

/// Units      Of the mesh: mm3, mm2 and mm for one that was made here.
struct MeshMeasure {
    double m_volume = 0.0;  ///< Of solid elements.
    double m_area = 0.0;    ///< Of surface elements.
    double m_length = 0.0;  ///< Of line elements.
};

/// Of elements with their sides as curved as their nodes make them. Volumes are exact but for
/// rounding; areas and lengths of curved elements are good to some 1e-4 of their part.
[[nodiscard]] MeshMeasure measureOf(host::meshing::MeshStore const& mesh);

}  // namespace vrn::orlo::app
