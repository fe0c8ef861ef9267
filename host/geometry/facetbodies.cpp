#include "host/geometry/facetbodies.h"

#include <algorithm>
#include <array>
#include <utility>

#include <BRep_Builder.hxx>
#include <TopoDS_Face.hxx>
#include <TopoDS_Shell.hxx>
#include <TopoDS_Solid.hxx>

namespace vrn::orlo::host::geometry {

namespace {

using Corners = std::array<int, 3>;

/// A side of a triangle, kept at the lower of its two nodes.
struct Side {
    int m_otherNode;
    int m_triangle;
    bool m_isUpwards;  // the triangle runs from the lower to the higher node
};

/// What a walk over the triangles finds about one body.
struct Component {
    std::vector<int> m_triangles;
    bool m_isOpen = false;
    bool m_isManifold = true;
    bool m_wasTurned = false;  // some triangles ran against their neighbours
};

class TriangleGraph {
public:
    explicit TriangleGraph(Poly_Triangulation const& mesh) : m_mesh(mesh)
    {
        for (int i = 1; i <= mesh.NbTriangles(); ++i) {
            Corners corners{};
            mesh.Triangle(i).Get(corners[0], corners[1], corners[2]);
            if (corners[0] != corners[1] && corners[1] != corners[2] && corners[2] != corners[0]) {
                m_triangles.push_back(corners);
            }
        }
        fillSides();
        m_isReached.resize(m_triangles.size());
    }

    std::vector<Component> components()
    {
        std::vector<Component> found;
        for (std::size_t i = 0; i < m_triangles.size(); ++i) {
            if (!m_isReached[i]) {
                found.push_back(walkFrom(static_cast<int>(i)));
            }
        }
        return found;
    }

    Corners const& corners(int triangle) const
    {
        return m_triangles[static_cast<std::size_t>(triangle)];
    }

    double volumeOf(Component const& component) const
    {
        // About a node of the body: far from the origin the terms would cancel.
        gp_XYZ const origin = m_mesh.Node(corners(component.m_triangles.front())[0]).XYZ();
        double sum = 0.0;
        for (int const triangle : component.m_triangles) {
            Corners const& c = corners(triangle);
            gp_XYZ const a = m_mesh.Node(c[0]).XYZ() - origin;
            gp_XYZ const b = m_mesh.Node(c[1]).XYZ() - origin;
            gp_XYZ const d = m_mesh.Node(c[2]).XYZ() - origin;
            sum += a.DotCross(b, d);
        }
        return sum / 6.0;
    }

    void turn(Component const& component)
    {
        for (int const triangle : component.m_triangles) {
            turn(triangle);
        }
    }

private:
    /// Sides in buckets by their lower node: a few per node, so neighbours are found by looking.
    void fillSides()
    {
        m_firstSide.assign(static_cast<std::size_t>(m_mesh.NbNodes()) + 2, 0);
        forEachSide(
            [&](int low, Side const&) { ++m_firstSide[static_cast<std::size_t>(low) + 1]; });
        for (std::size_t i = 1; i < m_firstSide.size(); ++i) {
            m_firstSide[i] += m_firstSide[i - 1];
        }
        m_sides.resize(m_triangles.size() * 3);
        std::vector<std::size_t> next(m_firstSide.begin(), m_firstSide.end() - 1);
        forEachSide([&](int low, Side const& side) {
            m_sides[next[static_cast<std::size_t>(low)]++] = side;
        });
        // A node in the middle of a fan of very many triangles would make looking quadratic.
        for (std::size_t node = 0; node + 1 < m_firstSide.size(); ++node) {
            std::sort(sideAt(m_firstSide[node]), sideAt(m_firstSide[node + 1]),
                      [](Side const& a, Side const& b) {
                          return std::pair(a.m_otherNode, a.m_triangle) <
                                 std::pair(b.m_otherNode, b.m_triangle);
                      });
        }
    }

    std::vector<Side>::iterator sideAt(std::size_t index)
    {
        return m_sides.begin() + static_cast<std::ptrdiff_t>(index);
    }

    template <typename Take>
    void forEachSide(Take const& take) const
    {
        for (std::size_t i = 0; i < m_triangles.size(); ++i) {
            Corners const& c = m_triangles[i];
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax({c[k], c[(k + 1) % 3]});
                take(low, Side{high, static_cast<int>(i), c[k] == low});
            }
        }
    }

    void turn(int triangle)
    {
        Corners& c = m_triangles[static_cast<std::size_t>(triangle)];
        std::swap(c[1], c[2]);
    }

    bool runsUpwards(int triangle, int low, int high) const
    {
        Corners const& c = corners(triangle);
        return (c[0] == low && c[1] == high) || (c[1] == low && c[2] == high) ||
               (c[2] == low && c[0] == high);
    }

    Component walkFrom(int start)
    {
        Component component;
        std::vector<int> open{start};
        m_isReached[static_cast<std::size_t>(start)] = true;
        while (!open.empty()) {
            int const triangle = open.back();
            open.pop_back();
            component.m_triangles.push_back(triangle);
            Corners const own = corners(triangle);
            for (std::size_t k = 0; k < 3; ++k) {
                auto const [low, high] = std::minmax({own[k], own[(k + 1) % 3]});
                cross(component, triangle, low, high, open);
            }
        }
        std::sort(component.m_triangles.begin(), component.m_triangles.end());
        return component;
    }

    /// Goes over one side to the triangles behind it, and turns them to run as this one does.
    void cross(Component& component, int triangle, int low, int high, std::vector<int>& open)
    {
        auto const [first, last] = std::equal_range(
            sideAt(m_firstSide[static_cast<std::size_t>(low)]),
            sideAt(m_firstSide[static_cast<std::size_t>(low) + 1]), Side{high, 0, false},
            [](Side const& a, Side const& b) { return a.m_otherNode < b.m_otherNode; });
        component.m_isOpen = component.m_isOpen || last - first == 1;
        component.m_isManifold = component.m_isManifold && last - first <= 2;
        bool const upwards = runsUpwards(triangle, low, high);
        for (auto side = first; side != last; ++side) {
            int const other = side->m_triangle;
            if (other == triangle) {
                continue;
            }
            bool const agrees = runsUpwards(other, low, high) != upwards;
            if (!m_isReached[static_cast<std::size_t>(other)]) {
                m_isReached[static_cast<std::size_t>(other)] = true;
                if (!agrees) {
                    turn(other);
                    component.m_wasTurned = true;
                }
                open.push_back(other);
            } else if (!agrees) {
                component.m_isManifold = false;  // one-sided: no turning makes neighbours agree
            }
        }
    }

    Poly_Triangulation const& m_mesh;
    std::vector<Corners> m_triangles;
    std::vector<Side> m_sides;
    std::vector<std::size_t> m_firstSide;  // by node number
    std::vector<bool> m_isReached;
};

EntityClass classOf(Component const& component)
{
    if (!component.m_isManifold) {
        return EntityClass::facetGeneral;
    }
    return component.m_isOpen ? EntityClass::facetSheet : EntityClass::facetSolid;
}

/// A triangulation of the component's own nodes and triangles.
Handle(Poly_Triangulation) extracted(Poly_Triangulation const& mesh, TriangleGraph const& graph,
                                     Component const& component, std::vector<int>& newNumbers)
{
    std::vector<int> nodes;
    for (int const triangle : component.m_triangles) {
        for (int const node : graph.corners(triangle)) {
            int& number = newNumbers[static_cast<std::size_t>(node)];
            if (number == 0) {
                nodes.push_back(node);
                number = static_cast<int>(nodes.size());
            }
        }
    }
    Handle(Poly_Triangulation) const part =
        new Poly_Triangulation(static_cast<int>(nodes.size()),
                               static_cast<int>(component.m_triangles.size()), Standard_False);
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        part->SetNode(static_cast<int>(i) + 1, mesh.Node(nodes[i]));
    }
    auto const renumbered = [&](int node) {
        return newNumbers[static_cast<std::size_t>(node)];
    };
    int index = 0;
    for (int const triangle : component.m_triangles) {
        Corners const& c = graph.corners(triangle);
        part->SetTriangle(++index,
                          Poly_Triangle(renumbered(c[0]), renumbered(c[1]), renumbered(c[2])));
    }
    for (int const node : nodes) {  // a node may also belong to another body
        newNumbers[static_cast<std::size_t>(node)] = 0;
    }
    return part;
}

TopoDS_Shape shapeOf(Handle(Poly_Triangulation) const& triangles, bool isSolid)
{
    BRep_Builder builder;
    TopoDS_Face face;
    builder.MakeFace(face, triangles);
    TopoDS_Shell shell;
    builder.MakeShell(shell);
    builder.Add(shell, face);
    if (!isSolid) {
        return shell;
    }
    TopoDS_Solid solid;
    builder.MakeSolid(solid);
    builder.Add(solid, shell);
    return solid;
}

}  // namespace

FacetBodies facetBodiesOf(Poly_Triangulation const& mesh)
{
    TriangleGraph graph(mesh);
    FacetBodies result;
    BRep_Builder builder;
    builder.MakeCompound(result.m_shape);
    std::vector<int> newNumbers(static_cast<std::size_t>(mesh.NbNodes()) + 1, 0);
    for (Component const& component : graph.components()) {
        EntityClass const bodyClass = classOf(component);
        bool const isSolid = bodyClass == EntityClass::facetSolid;
        if (isSolid && graph.volumeOf(component) < 0.0) {
            graph.turn(component);
            result.m_insideOut += component.m_wasTurned ? 0 : 1;
        }
        TopoDS_Shape const body = shapeOf(extracted(mesh, graph, component, newNumbers), isSolid);
        builder.Add(result.m_shape, body);
        result.m_bodies.push_back({body, bodyClass});
    }
    return result;
}

}  // namespace vrn::orlo::host::geometry
