#include "host/display/meshsurface.h"

#include "host/meshing/elementfaces.h"
#include "host/meshing/meshtables.h"

#include <algorithm>
#include <array>
#include <limits>

namespace vrn::orlo::host::display {

namespace {

using meshing::ElementFace;
using meshing::LocalNumber;
using meshing::MeshStore;

constexpr double kNever = std::numeric_limits<double>::infinity();

using Triangle = std::array<std::uint8_t, 3>;  // places among the nodes of a face

constexpr std::array<Triangle, 1> kTriangle3{Triangle{0, 1, 2}};
constexpr std::array kTriangle6{Triangle{0, 3, 5}, Triangle{3, 1, 4}, Triangle{5, 4, 2},
                                Triangle{3, 4, 5}};
constexpr std::array kQuad4{Triangle{0, 1, 2}, Triangle{0, 2, 3}};
constexpr std::array kQuad8{Triangle{0, 4, 7}, Triangle{4, 1, 5}, Triangle{5, 2, 6},
                            Triangle{6, 3, 7}, Triangle{4, 5, 6}, Triangle{4, 6, 7}};

std::span<Triangle const> trianglesOf(meshing::ElementType face)
{
    switch (face) {
        case meshing::ElementType::triangle3:
            return kTriangle3;
        case meshing::ElementType::triangle6:
            return kTriangle6;
        case meshing::ElementType::quad4:
            return kQuad4;
        case meshing::ElementType::quad8:
            return kQuad8;
        default:
            return {};
    }
}

/// Infinite where the ray passes by. A ray through a common side of triangles meets at least one.
double depthOnTriangle(Ray const& ray, Vector const& a, Vector const& b, Vector const& c)
{
    constexpr double kSpare = 1e-9;
    constexpr double kLevel = 1e-12;  // sine of the angle below which it is seen from its side
    Vector const alongB = difference(b, a);
    Vector const alongC = difference(c, a);
    Vector const normal = cross(ray.m_direction, alongC);
    double const determinant = dot(alongB, normal);
    if (std::abs(determinant) <=
        kLevel * length(alongB) * length(alongC) * length(ray.m_direction)) {
        return kNever;
    }
    Vector const toOrigin = difference(ray.m_origin, a);
    Vector const moment = cross(toOrigin, alongB);
    double const shareB = dot(toOrigin, normal) / determinant;
    double const shareC = dot(ray.m_direction, moment) / determinant;
    double const depth = dot(alongC, moment) / determinant;
    bool const isMet = shareB >= -kSpare && shareC >= -kSpare && shareB + shareC <= 1.0 + kSpare;
    return isMet ? depth : kNever;
}

template <typename Visit>
void visitNodes(MeshStore const& store, ElementFace const& face, Visit const& visit)
{
    auto const nodes = store.nodesOf(face.m_element);
    auto const& row = meshing::facesOf(store.typeOf(face.m_element))[face.m_face];
    for (std::uint8_t const place : meshing::placesOf(row)) {
        visit(nodes[place]);
    }
}

bool isSolid(MeshStore const& store, LocalNumber element)
{
    return meshing::traitsOf(store.typeOf(element)).m_dimension == 3;
}

/// The skins of solids, and all surface elements.
std::vector<ElementFace> facesToSee(MeshStore const& store)
{
    std::vector<ElementFace> faces = meshing::skinsOf(store).m_items;
    for (LocalNumber element = 1; element <= store.elements().size(); ++element) {
        if (meshing::traitsOf(store.typeOf(element)).m_dimension == 2) {
            faces.push_back({element, 0});
        }
    }
    return faces;
}

std::vector<LocalNumber> nodesToSee(MeshStore const& store, std::vector<ElementFace> const& faces)
{
    std::vector<bool> isWithin(std::size_t{store.nodes().size()} + 1);
    for (LocalNumber element = 1; element <= store.elements().size(); ++element) {
        for (LocalNumber const node : store.nodesOf(element)) {
            isWithin[node] = isWithin[node] || isSolid(store, element);
        }
    }
    for (ElementFace const& face : faces) {
        visitNodes(store, face, [&](LocalNumber node) { isWithin[node] = false; });
    }
    std::vector<LocalNumber> nodes;
    for (LocalNumber node = 1; node <= store.nodes().size(); ++node) {
        if (!isWithin[node]) {
            nodes.push_back(node);
        }
    }
    return nodes;
}

std::vector<Box> boxesOf(MeshStore const& store, std::vector<ElementFace> const& faces)
{
    std::vector<Box> boxes;
    boxes.reserve(faces.size());
    for (ElementFace const& face : faces) {
        Box box;
        visitNodes(store, face, [&](LocalNumber node) { box.add(store.position(node)); });
        // The triangles take rays that pass by within rounding; so must their boxes.
        double const spare = 1e-9 * box.diagonal();
        boxes.push_back({sum(box.m_low, {1, 1, 1}, -spare), sum(box.m_high, {1, 1, 1}, spare)});
    }
    return boxes;
}

}  // namespace

MeshSurface::MeshSurface(MeshStore const& store)
    : m_store(store),
      m_faces(facesToSee(store)),
      m_nodes(nodesToSee(store, m_faces)),
      m_tree(boxesOf(store, m_faces))
{
    for (LocalNumber const node : m_nodes) {
        m_box.add(store.position(node));
    }
}

std::vector<MeshSurface::Crossing> MeshSurface::crossings(Ray const& ray) const
{
    std::vector<Crossing> found;
    m_tree.along(ray, kNever, [&](std::uint32_t face) {
        double const depth = depthOn(m_faces[face], ray);
        if (depth < kNever) {
            found.push_back({m_faces[face], depth});
        }
        return kNever;
    });
    return found;
}

bool MeshSurface::isMet(Ray const& ray, double limit) const
{
    bool isMet = false;
    m_tree.along(ray, limit, [&](std::uint32_t face) {
        isMet = isMet || depthOn(m_faces[face], ray) < limit;
        return isMet ? -1.0 : limit;
    });
    return isMet;
}

double MeshSurface::depthOn(ElementFace const& face, Ray const& ray) const
{
    auto const nodes = m_store.nodesOf(face.m_element);
    auto const& row = meshing::facesOf(m_store.typeOf(face.m_element))[face.m_face];
    auto const position = [&](std::uint8_t place) {
        return m_store.position(nodes[row.m_places[place]]);
    };
    double least = kNever;
    for (Triangle const& triangle : trianglesOf(row.m_type)) {
        double const depth = depthOnTriangle(ray, position(triangle[0]), position(triangle[1]),
                                             position(triangle[2]));
        if (depth >= 0.0) {
            least = std::min(least, depth);
        }
    }
    return least;
}

}  // namespace vrn::orlo::host::display
