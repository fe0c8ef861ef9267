/// \file
/// What of a mesh can be seen.

#pragma once

#include "host/display/boxtree.h"
#include "host/meshing/meshstore.h"

#include <span>
#include <vector>

namespace vrn::orlo::host::display {

/// The free surface of a part's mesh, ready for lines of sight.
///
/// Units      Of the store, in coordinates of the part.
/// Shape      The skins of the solid meshes, body by body, and the surface elements. A face
///            with nodes in the middle of its sides is flat triangles through all of its nodes.
/// Ownership  Refers to the store, which must stay where it is.
/// Threads    Const operations may run on several threads.
/// Cost       Construction sorts the faces of all solid elements.
class MeshSurface {
public:
    /// Where a ray meets a face.
    struct Crossing {
        meshing::ElementFace m_face;
        double m_depth = 0.0;
    };

    explicit MeshSurface(meshing::MeshStore const& store);

    /// All nodes but those within solids; ascending.
    [[nodiscard]] std::span<meshing::LocalNumber const> nodes() const noexcept { return m_nodes; }
    /// Of nodes().
    [[nodiscard]] Box const& box() const noexcept { return m_box; }

    /// At depths from 0, in no particular order.
    [[nodiscard]] std::vector<Crossing> crossings(Ray const& ray) const;
    /// True when the ray meets a face at a depth from 0 to below the limit.
    [[nodiscard]] bool isMet(Ray const& ray, double limit) const;

private:
    [[nodiscard]] double depthOn(meshing::ElementFace const& face, Ray const& ray) const;

    meshing::MeshStore const& m_store;
    std::vector<meshing::ElementFace> m_faces;
    std::vector<meshing::LocalNumber> m_nodes;
    BoxTree m_tree;  // of m_faces
    Box m_box;
};

}  // namespace vrn::orlo::host::display
