/// \file
/// Makes meshes of parts, free of the mesher's and the geometry kernel's types.

#pragma once

#include "host/geometry/geometrymodel.h"
#include "host/meshing/meshstore.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::host::meshing {

/// What a user may set for the mesh of a part.
struct MeshOptions {
    double m_size = 0.0;  ///< mm; above 0, at most the box diagonal of each body that is meshed.
    /// mm, up to m_size: no curvature makes elements smaller. 0 for a twentieth of m_size.
    double m_minimumSize = 0.0;
    int m_order = 1;           ///< 1, or 2 with nodes in the middle of the sides.
    int m_dimension = 3;       ///< Of elements in solid bodies: 3, or 2 for shells on their faces.
    bool m_meshFaces = false;  ///< Faces of solids that are meshed get shells beside them.
    int m_curvature = 12;      ///< Elements on a full circle; 0 lets curvature alone.
    /// mm by the number of a face in the geometry; above m_size it makes the face coarser. A side
    /// between two faces takes the smaller size.
    std::map<unsigned, double> m_faceSizes;
    ExternalId m_firstNodeId = 1;  ///< Above 0; so the next.
    ExternalId m_firstElementId = 1;
};

/// A body that has got no mesh.
struct BodyFailure {
    unsigned m_body = 0;   ///< Number of the geometry body in its model.
    std::string m_name;    ///< As its mesh body has it.
    std::string m_reason;  ///< One line for the user; the mesher's own text where it gave one.
};

struct MeshedPartResult {
    std::shared_ptr<MeshStore const> m_store;  ///< Null when no body has got a mesh.
    std::vector<BodyFailure> m_failures;       ///< In the order of the bodies.
    /// Elements of second order whose curved sides would have turned them inside out, or nearly so:
    /// their sides are straight, with nodes beside the geometry.
    std::size_t m_straightened = 0;
};

/// Called as meshing goes on: a fraction from 0 to 1 and what is being done. May be empty.
using MeshProgress = std::function<void(double fraction, std::string const& step)>;

/// Meshes the bodies of a part, each by itself: bodies in contact share no nodes, and their meshes
/// do not match there.
///
/// Solids get tetrahedra, sheets get triangles, wires get lines, points nothing. Bodies made of triangles keep
/// these as their surface mesh, whatever the size; closed ones are filled.
///
/// Units      mm, in coordinates of the part.
/// Shape      One mesh body per geometry body, also without elements, with the part's name if it is
///            the only one, else "body" and its entity's number. One group per body and geometry
///            entity that has elements of its own dimension. Faces, edges and vertices of the
///            bodies lead to what lies on them.
///            Only nodes that elements have are there. Shells look out of their solid.
/// Order      Two calls give equal stores. Local numbers go body by body, and in a body from
///            volumes down to vertices. External ids go by body too, but in a body the other way
///            round: nodes from vertices up to volumes; shells, then tetrahedra with a face on the
///            boundary, then the rest.
/// Failure    std::invalid_argument, one line, for options that cannot be; std::out_of_range for a
///            part that is not there. A body that cannot be meshed is named in the result, the
///            others are meshed. What `progress` throws ends the call.
/// Threads    Main thread; the mesher has one state per process.
/// Cost       10 000 to 30 000 tetrahedra a second, and 1.5 kB for each while it works.
[[nodiscard]] MeshedPartResult meshPart(geometry::GeometryModel const& model, std::size_t part,
                                        MeshOptions const& options,
                                        MeshProgress const& progress = {});

}  // namespace vrn::orlo::host::meshing
