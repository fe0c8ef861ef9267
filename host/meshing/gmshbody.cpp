#include "host/meshing/gmshbody.h"

#include "host/geometry/facetfaces.h"
#include "host/meshing/gmshsession.h"

#include <algorithm>
#include <string>

#include <gmsh.h>
#include <BRep_Tool.hxx>
#include <Poly_Triangulation.hxx>
#include <Precision.hxx>
#include <TopExp.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>

namespace vrn::orlo::host::meshing {

using geometry::TopologyLevel;

namespace {

constexpr std::array kShapeTypes{TopAbs_VERTEX, TopAbs_EDGE, TopAbs_FACE, TopAbs_SOLID};
constexpr std::array kLevels{TopologyLevel::vertex, TopologyLevel::edge, TopologyLevel::face,
                             TopologyLevel::volume};
constexpr int kTriangle = 2;  // the mesher's number for it
constexpr char const* kOtherNumbers =
    "the mesher numbers its entities otherwise than the geometry kernel; repair the geometry, or "
    "export it anew";

/// Tags of the entities that bound an entity.
std::vector<int> boundsOf(int dimension, int tag)
{
    std::vector<int> above;
    std::vector<int> below;
    gmsh::model::getAdjacencies(dimension, tag, above, below);
    return below;
}

void checkNear(gp_Pnt const& point, int dimension, int tag, std::vector<double> const& parameter)
{
    std::vector<double> place;
    gmsh::model::getValue(dimension, tag, parameter, place);
    double const tolerance = 1e-6 * (1.0 + point.XYZ().Modulus());
    if (point.Distance({place.at(0), place.at(1), place.at(2)}) > tolerance) {
        throw MesherError(kOtherNumbers);
    }
}

}  // namespace

std::uint8_t dimensionOf(geometry::PartTopology const& topology, unsigned body)
{
    for (std::uint8_t dimension = 3; dimension > 0; --dimension) {
        if (!topology.below(body, kLevels[dimension]).empty()) {
            return dimension;
        }
    }
    return 0;
}

GmshBody::GmshBody(geometry::PartTopology const& topology, unsigned body,
                   MeshOptions const& options)
    : m_topology(topology), m_shape(topology.shapeOf(body)), m_options(options)
{
    for (std::size_t dimension = 0; dimension < m_maps.size(); ++dimension) {
        TopExp::MapShapes(m_shape, kShapeTypes[dimension], m_maps[dimension]);
        for (int tag = 1; tag <= m_maps[dimension].Extent(); ++tag) {
            m_numbers[dimension].push_back(
                topology.numberOf(m_maps[dimension].FindKey(tag), kLevels[dimension]));
        }
    }
    m_isFacetted = geometry::hasFacetFaces(m_shape);
    onGmsh([this] { m_isFacetted ? addFacets() : importShape(); });
}

GmshBody::~GmshBody()
{
    try {
        gmsh::model::mesh::removeSizeCallback();
    } catch (...) {  // NOLINT: the session ends with the body, and the callback with it
    }
}

void GmshBody::importShape()
{
    gmsh::vectorpair imported;
    gmsh::model::occ::importShapesNativePointer(&m_shape, imported, false);
    gmsh::model::occ::synchronize();
    checkNumbers();
    setSizes();
}

/// Vertices and edges are compared by where they are, faces and solids by what bounds them.
void GmshBody::checkNumbers() const
{
    for (int dimension = 0; dimension < 4; ++dimension) {
        TopTools_IndexedMapOfShape const& map = m_maps[static_cast<std::size_t>(dimension)];
        gmsh::vectorpair entities;
        gmsh::model::getEntities(entities, dimension);
        if (entities.size() != static_cast<std::size_t>(map.Extent())) {
            throw MesherError(kOtherNumbers);
        }
        for (auto const& [_, tag] : entities) {
            if (tag < 1 || tag > map.Extent()) {
                throw MesherError(kOtherNumbers);
            }
            TopoDS_Shape const& shape = map.FindKey(tag);
            if (dimension == 0) {
                checkNear(BRep_Tool::Pnt(TopoDS::Vertex(shape)), 0, tag, {});
            } else if (dimension == 1) {
                double first = 0.0;
                double last = 0.0;
                Handle(Geom_Curve) const curve = BRep_Tool::Curve(TopoDS::Edge(shape), first, last);
                if (!curve.IsNull() && !Precision::IsInfinite(last - first)) {
                    double const middle = (first + last) / 2;
                    checkNear(curve->Value(middle), 1, tag, {middle});
                }
            } else {
                auto const lower = static_cast<std::size_t>(dimension) - 1;
                TopTools_IndexedMapOfShape expected;
                TopExp::MapShapes(shape, kShapeTypes[lower], expected);
                for (int const bound : boundsOf(dimension, tag)) {
                    if (!expected.Contains(m_maps[lower].FindKey(bound))) {
                        throw MesherError(kOtherNumbers);
                    }
                }
            }
        }
    }
}

/// Triangles without a surface under them become a mesh that is already there; closed ones enclose a
/// volume.
void GmshBody::addFacets()
{
    std::size_t nodeCount = 0;
    std::vector<int> tags;
    for (int tag = 1; tag <= m_maps[2].Extent(); ++tag) {
        TopLoc_Location location;
        Handle(Poly_Triangulation) const facets =
            BRep_Tool::Triangulation(TopoDS::Face(m_maps[2].FindKey(tag)), location);
        if (!geometry::isFacetFace(TopoDS::Face(m_maps[2].FindKey(tag)))) {
            throw MesherError("it has faces with a surface and faces made of triangles");
        }
        std::vector<std::size_t> nodes;
        std::vector<double> places;
        for (int i = 1; i <= facets->NbNodes(); ++i) {
            gp_Pnt const place = facets->Node(i).Transformed(location);
            places.insert(places.end(), {place.X(), place.Y(), place.Z()});
            nodes.push_back(nodeCount + static_cast<std::size_t>(i));
        }
        std::vector<std::size_t> corners;
        for (int i = 1; i <= facets->NbTriangles(); ++i) {
            for (int corner = 1; corner <= 3; ++corner) {
                corners.push_back(nodeCount +
                                  static_cast<std::size_t>(facets->Triangle(i).Value(corner)));
            }
        }
        nodeCount += nodes.size();
        gmsh::model::addDiscreteEntity(2, tag);
        gmsh::model::mesh::addNodes(2, tag, nodes, places);
        gmsh::model::mesh::addElementsByType(tag, kTriangle, {}, corners);
        tags.push_back(tag);
    }
    if (m_maps[3].Extent() > 0) {
        gmsh::model::geo::addVolume({gmsh::model::geo::addSurfaceLoop(tags)}, 1);
        gmsh::model::geo::synchronize();
    }
    gmsh::option::setNumber("Mesh.SecondOrderLinear", 1);
}

void GmshBody::setSizes()
{
    auto const& wanted = m_options.m_faceSizes;
    bool const hasOwn = std::any_of(m_numbers[2].begin(), m_numbers[2].end(),
                                    [&](unsigned face) { return wanted.contains(face); });
    if (!hasOwn) {
        return;
    }
    // What bounds faces takes the smallest size of theirs.
    for (std::size_t dimension = 0; dimension < m_sizes.size(); ++dimension) {
        m_sizes[dimension].assign(m_numbers[dimension].size(), Precision::Infinite());
    }
    for (std::size_t face = 0; face < m_numbers[2].size(); ++face) {
        auto const found = wanted.find(m_numbers[2][face]);
        double const size = found == wanted.end() ? m_options.m_size : found->second;
        m_sizes[2][face] = size;
        for (std::size_t lower : {std::size_t{0}, std::size_t{1}}) {
            TopTools_IndexedMapOfShape bounds;
            TopExp::MapShapes(m_maps[2].FindKey(static_cast<int>(face) + 1), kShapeTypes[lower],
                              bounds);
            for (int i = 1; i <= bounds.Extent(); ++i) {
                double& own = m_sizes[lower][static_cast<std::size_t>(
                    m_maps[lower].FindIndex(bounds.FindKey(i)) - 1)];
                own = std::min(own, size);
            }
        }
    }
    gmsh::model::mesh::setSizeCallback([this](int dimension, int tag, double, double, double) {
        auto const level = static_cast<std::size_t>(dimension);
        auto const index = static_cast<std::size_t>(tag) - 1;
        bool const isKnown = level < m_sizes.size() && index < m_sizes[level].size();
        return isKnown ? m_sizes[level][index] : m_options.m_size;
    });
}

void GmshBody::mesh(std::uint8_t dimension, Report const& report)
{
    // At the tip of a cone the curvature has no end: without a limit the mesher would fail there.
    constexpr double kLeastShare = 0.05;
    double largest = m_options.m_size;
    double smallest =
        m_options.m_minimumSize > 0.0 ? m_options.m_minimumSize : m_options.m_size * kLeastShare;
    for (double const size : m_sizes[2]) {
        largest = std::max(largest, size);
        smallest = std::min(smallest, size);
    }
    onGmsh([&] {
        gmsh::option::setNumber("Mesh.MeshSizeMax", largest);
        gmsh::option::setNumber("Mesh.MeshSizeMin", smallest);
        gmsh::option::setNumber("Mesh.MeshSizeFromCurvature", m_options.m_curvature);
    });
    struct Stage {
        double m_start;
        char const* m_step;
    };
    constexpr std::array kStages{Stage{0.05, "meshing its edges"}, Stage{0.1, "meshing its faces"},
                                 Stage{0.5, "meshing its volumes"}};
    for (int stage = m_isFacetted ? 3 : 1; stage <= dimension; ++stage) {
        report(kStages[static_cast<std::size_t>(stage) - 1].m_start,
               kStages[static_cast<std::size_t>(stage) - 1].m_step);
        onGmsh([stage] { gmsh::model::mesh::generate(stage); });
    }
    if (m_options.m_order == 2) {
        report(0.85, "placing its middle nodes");
        onGmsh([] { gmsh::model::mesh::setOrder(2); });
    }
}

}  // namespace vrn::orlo::host::meshing
