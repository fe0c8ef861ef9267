/// \file
/// A geometry body as the mesher's model. For the sources of this module only: its types are the
/// geometry kernel's.

#pragma once

#include "host/geometry/shapestore.h"
#include "host/meshing/bodymesh.h"
#include "host/meshing/mesher.h"

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Highest dimension of what a body is made of, 0 to 3. A compound of solids is 3D.
[[nodiscard]] std::uint8_t dimensionOf(geometry::PartTopology const& topology, unsigned body);

/// One body in the mesher, which works on the kernel's own shape and numbers the entities as the
/// kernel's maps do.
///
/// Failure    MesherError, from any operation.
/// Threads    Main thread, while a GmshSession is open that was opened for this body.
class GmshBody {
public:
    using Report = std::function<void(double fraction, char const* step)>;

    GmshBody(geometry::PartTopology const& topology, unsigned body, MeshOptions const& options);
    ~GmshBody();
    GmshBody(GmshBody const&) = delete;
    GmshBody& operator=(GmshBody const&) = delete;

    /// Makes the mesh inside the mesher. Elements of the dimension, which is at least 1.
    void mesh(std::uint8_t dimension, Report const& report);

    /// Takes the mesh out, with triangles of the faces and elements of what is above.
    [[nodiscard]] BodyMesh extract(std::uint8_t dimension) const;

private:
    void importShape();
    void checkNumbers() const;
    void addFacets();
    void setSizes();

    geometry::PartTopology const& m_topology;
    TopoDS_Shape m_shape;
    MeshOptions const& m_options;
    bool m_isFacetted = false;
    /// By dimension: the body's entities in the order of the mesher's tags, and their numbers.
    std::array<TopTools_IndexedMapOfShape, 4> m_maps;
    std::array<std::vector<unsigned>, 4> m_numbers;
    std::array<std::vector<double>, 3> m_sizes;  // by dimension and tag; empty for one size
};

}  // namespace vrn::orlo::host::meshing
