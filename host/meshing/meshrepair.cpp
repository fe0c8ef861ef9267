#include "host/meshing/meshrepair.h"

#include "host/meshing/gmshsession.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

constexpr double kLeastRatio = 0.1;
constexpr double kLeastSize = 1e-10;  // volume or area to the longest side's power; below is none
constexpr int kLattice = 4;           // steps along a side

using Side = std::array<std::uint8_t, 2>;

// Corners at the ends of the sides, in the order of the middle nodes.
constexpr std::array<Side, 6> kTetraSides{{{0, 1}, {1, 2}, {0, 2}, {0, 3}, {1, 3}, {2, 3}}};
constexpr std::array<Side, 3> kTriangleSides{{{0, 1}, {1, 2}, {0, 2}}};

Point operator-(Point const& a, Point const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point cross(Point const& a, Point const& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(Point const& a, Point const& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// Elements with D + 1 corners, whose size is what their sides at a place span.
template <std::size_t D>
class Shape {
public:
    static constexpr std::size_t kCorners = D + 1;
    using Weights = std::array<double, kCorners>;
    using Spanned = std::array<Point, D>;

    static constexpr std::span<Side const> sides()
    {
        if constexpr (D == 3) {
            return kTetraSides;
        } else {
            return kTriangleSides;
        }
    }

    /// What the corners span.
    static Spanned spanned(std::span<Point const> points)
    {
        Spanned result;
        for (std::size_t i = 0; i < D; ++i) {
            result[i] = points[i + 1] - points[0];
        }
        return result;
    }

    /// What the element's coordinate lines span at a place that the weights of the corners give.
    static Spanned spanned(std::span<Point const> points, Weights const& weights)
    {
        std::array<Point, kCorners> slopes{};
        auto const add = [&](std::size_t corner, double factor, Point const& point) {
            for (std::size_t axis = 0; axis < 3; ++axis) {
                slopes[corner][axis] += factor * point[axis];
            }
        };
        for (std::size_t i = 0; i < kCorners; ++i) {
            add(i, 4 * weights[i] - 1, points[i]);
        }
        for (std::size_t i = 0; i < sides().size(); ++i) {
            auto const [a, b] = sides()[i];
            add(a, 4 * weights[b], points[kCorners + i]);
            add(b, 4 * weights[a], points[kCorners + i]);
        }
        return spanned(slopes);
    }

    /// Of two spanned sizes: their quotient for volumes; for areas that of the first's projection.
    static double ratio(Spanned const& curved, Spanned const& straight)
    {
        Point const normal = cross(straight[0], straight[1]);
        if constexpr (D == 3) {
            return dot(cross(curved[0], curved[1]), curved[2]) / dot(normal, straight[2]);
        } else {
            return dot(cross(curved[0], curved[1]), normal) / dot(normal, normal);
        }
    }

    static bool hasSize(Spanned const& straight)
    {
        double longest = 0.0;
        for (std::size_t i = 0; i < D; ++i) {
            longest = std::max(longest, dot(straight[i], straight[i]));
            for (std::size_t j = 0; j < i; ++j) {
                Point const side = straight[i] - straight[j];
                longest = std::max(longest, dot(side, side));
            }
        }
        Point const normal = cross(straight[0], straight[1]);
        if constexpr (D == 3) {
            return dot(normal, straight[2]) > kLeastSize * longest * std::sqrt(longest);
        } else {
            return std::sqrt(dot(normal, normal)) > kLeastSize * longest;
        }
    }

    static std::vector<Weights> const& lattice()
    {
        static std::vector<Weights> const points = [] {
            std::vector<Weights> found;
            for (int a = 0; a <= kLattice; ++a) {
                for (int b = 0; a + b <= kLattice; ++b) {
                    if constexpr (D == 2) {
                        found.push_back(weightsOf({a, b, kLattice - a - b}));
                    } else {
                        for (int c = 0; a + b + c <= kLattice; ++c) {
                            found.push_back(weightsOf({a, b, c, kLattice - a - b - c}));
                        }
                    }
                }
            }
            return found;
        }();
        return points;
    }

private:
    static Weights weightsOf(std::array<int, kCorners> const& steps)
    {
        Weights weights{};
        std::transform(steps.begin(), steps.end(), weights.begin(),
                       [](int step) { return static_cast<double>(step) / kLattice; });
        return weights;
    }
};

template <std::size_t D>
class Repair {
public:
    explicit Repair(BodyMesh& mesh)
        : m_mesh(mesh),
          m_nodeCount(traitsOf(meshedType(static_cast<std::uint8_t>(D), mesh.m_order)).m_nodeCount)
    {
        m_points.resize(m_nodeCount);
    }

    std::size_t run()
    {
        forEachElement([](auto) { return true; }, [this](auto) { checkSize(); });
        if (m_mesh.m_order == 1) {
            return 0;
        }
        // Moving a node may spoil the neighbour. An element with straight sides is good and stays
        // so, hence this ends.
        std::vector<bool> isMended(m_elementCount);
        for (bool isMoved = true; isMoved;) {
            isMoved = false;
            forEachElement([&](std::size_t index) { return !isMended[index]; },
                           [&](std::size_t index) {
                               if (isBad()) {
                                   straighten();
                                   isMended[index] = isMoved = true;
                               }
                           });
        }
        return static_cast<std::size_t>(std::count(isMended.begin(), isMended.end(), true));
    }

private:
    template <class IsWanted, class Do>
    void forEachElement(IsWanted const& isWanted, Do const& perform)
    {
        std::size_t index = 0;
        for (EntityPiece const& piece : m_mesh.m_pieces) {
            if (piece.m_dimension != D) {
                continue;
            }
            auto const all = std::span(piece.m_connectivity);
            for (std::size_t at = 0; at < all.size(); at += m_nodeCount, ++index) {
                if (!isWanted(index)) {
                    continue;
                }
                m_element = all.subspan(at, m_nodeCount);
                std::transform(m_element.begin(), m_element.end(), m_points.begin(),
                               [this](LocalNumber node) { return m_mesh.m_positions[node]; });
                perform(index);
            }
        }
        m_elementCount = index;
    }

    void checkSize() const
    {
        if (Shape<D>::hasSize(Shape<D>::spanned(m_points))) {
            return;
        }
        std::array<char, 128> place{};
        std::snprintf(place.data(), place.size(), "(%.6g, %.6g, %.6g)", m_points[0][0],
                      m_points[0][1], m_points[0][2]);
        throw MesherError("the mesher made an element without " +
                          std::string(D == 3 ? "volume" : "area") + " at " + place.data() +
                          "; try another size");
    }

    bool isBad() const
    {
        auto const straight = Shape<D>::spanned(m_points);
        auto const& lattice = Shape<D>::lattice();
        return std::any_of(lattice.begin(), lattice.end(), [&](auto const& weights) {
            return Shape<D>::ratio(Shape<D>::spanned(m_points, weights), straight) < kLeastRatio;
        });
    }

    void straighten()
    {
        for (std::size_t i = 0; i < Shape<D>::sides().size(); ++i) {
            auto const [a, b] = Shape<D>::sides()[i];
            Point& middle = m_mesh.m_positions[m_element[Shape<D>::kCorners + i]];
            for (std::size_t axis = 0; axis < 3; ++axis) {
                middle[axis] = (m_points[a][axis] + m_points[b][axis]) / 2;
            }
        }
    }

    BodyMesh& m_mesh;
    std::size_t m_nodeCount;
    std::size_t m_elementCount = 0;
    std::span<LocalNumber const> m_element;
    std::vector<Point> m_points;
};

}  // namespace

std::size_t straightenInverted(BodyMesh& mesh)
{
    return mesh.m_dimension == 3   ? Repair<3>(mesh).run()
           : mesh.m_dimension == 2 ? Repair<2>(mesh).run()
                                   : 0;
}

void turnOutwards(BodyMesh& mesh)
{
    std::size_t const step = traitsOf(meshedType(2, mesh.m_order)).m_nodeCount;
    double enclosed = 0.0;
    for (EntityPiece const& piece : mesh.m_pieces) {
        for (std::size_t at = 0; at < piece.m_connectivity.size(); at += step) {
            std::array<Point, 3> corners;
            for (std::size_t i = 0; i < corners.size(); ++i) {
                // About a node of the body: far from the origin the terms would cancel.
                corners[i] =
                    mesh.m_positions[piece.m_connectivity[at + i]] - mesh.m_positions.front();
            }
            enclosed += dot(cross(corners[0], corners[1]), corners[2]);
        }
    }
    if (enclosed >= 0.0) {
        return;
    }
    for (EntityPiece& piece : mesh.m_pieces) {
        for (std::size_t at = 0; at < piece.m_connectivity.size(); at += step) {
            std::swap(piece.m_connectivity[at + 1], piece.m_connectivity[at + 2]);
            if (mesh.m_order == 2) {  // the middles of the first and of the last side
                std::swap(piece.m_connectivity[at + 3], piece.m_connectivity[at + 5]);
            }
        }
    }
}

}  // namespace vrn::orlo::host::meshing
