/// \file
/// What a mesh file shows, under a pixel.

#pragma once

#include "apps/orlo/pixelview.h"
#include "host/display/meshpixelpicker.h"
#include "host/meshing/meshedpart.h"

#include <cstddef>
#include <span>
#include <vector>

namespace vrn::orlo::app {

/// All parts of a mesh file at their places.
///
/// Ownership  Refers to the mesh, which must stay where it is.
class MeshScene {
public:
    struct Hit {
        std::size_t m_part;  ///< Index in the mesh.
        host::display::MeshHit m_hit;
    };

    explicit MeshScene(host::meshing::LoadedMesh const& mesh);

    [[nodiscard]] host::display::Box const& box() const noexcept { return m_box; }

    /// Order      By depth.
    /// Failure    UsageError as cameraOf().
    [[nodiscard]] std::vector<Hit> at(PixelOptions const& pixel,
                                      std::span<host::display::MeshClass const> classes) const;

private:
    std::vector<host::display::MeshPixelPicker> m_parts;
    host::display::Box m_box;
};

}  // namespace vrn::orlo::app
