/// \file
/// Elements and nodes under a pixel.

#pragma once

#include "host/display/frame.h"
#include "host/display/meshsurface.h"
#include "host/display/pixelhit.h"
#include "host/meshing/meshstore.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vrn::orlo::host::display {

enum class MeshClass : std::uint8_t { node, element };

struct MeshHit {
    MeshClass m_class = MeshClass::element;
    std::uint8_t m_face = 0;  ///< Of the element, from 0 as in elementfaces.h; 0 for a node.
    PixelHit m_hit;           ///< With the local number.
};

/// Finds what of a part's mesh a user means who points at a pixel.
///
/// Shape      A mesh shows its MeshSurface. Line and point elements are not hit; their nodes are.
/// Failure    at() throws as requirePixel(). Nothing under the pixel: no hits.
/// Ownership  Refers to the store, which must stay where it is.
/// Threads    Const operations may run on several threads.
/// Cost       Construction sorts the faces of all solid elements. A pick of elements looks at few
///            faces; one of nodes is linear in the nodes of the surface.
class MeshPixelPicker {
public:
    /// \param instances  where the part is shown
    explicit MeshPixelPicker(meshing::MeshStore const& store,
                             std::vector<Frame> instances = {Frame()});

    /// All elements that the line of sight through the pixel meets, each where it is met first, and
    /// of the visible nodes within the pick size the one that is nearest to the pixel.
    ///
    /// Order      By depth; a node before the elements that have it.
    [[nodiscard]] std::vector<MeshHit> at(Camera const& camera, double x, double y,
                                          std::span<MeshClass const> classes,
                                          double pickSizePixels = kPickSizePixels) const;

    /// What is shown, in model coordinates.
    [[nodiscard]] Box const& box() const noexcept { return m_box; }

private:
    [[nodiscard]] std::vector<MeshHit> elementsAt(Ray const& ray) const;
    [[nodiscard]] std::vector<PixelHit> nodesNear(Camera const& camera, double x, double y,
                                                  double pixels) const;
    [[nodiscard]] bool isHidden(Camera const& camera, PixelHit const& node) const;
    void putNode(PixelHit const& node, std::vector<MeshHit>& hits) const;

    meshing::MeshStore const& m_store;
    std::vector<Frame> m_instances;
    MeshSurface m_surface;
    Box m_box;
};

}  // namespace vrn::orlo::host::display
