#include "host/modelspace/modelwriter.h"

#include "host/geometry/geometrypicker.h"
#include "host/geometry/placement.h"
#include "host/meshing/meshfile.h"
#include "host/meshing/meshwriter.h"
#include "host/meshing/remesh.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <map>
#include <numbers>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::host::modelspace {

using geometry::PlacedInstance;
using geometry::Placement;
using meshing::ElementType;
using meshing::ExternalId;
using meshing::LocalNumber;
using meshing::MeshStore;
using meshing::Numbering;
using meshing::Point;

namespace {

using Store = std::shared_ptr<MeshStore const>;

/// A meshed part in its place.
struct Placed {
    std::string m_name;
    std::size_t m_part = 0;
    Placement m_placement;
    Store m_store;
};

[[noreturn]] void refuse(std::filesystem::path const& file, std::string const& reason)
{
    throw ModelWriteError(file.string() + ": " + reason);
}

std::vector<Placed> placedMeshes(model::Model const& model, std::filesystem::path const& file)
{
    std::vector<Placed> placed;
    geometry::GeometryPicker const picker(model.geometry());
    for (std::size_t i = 0; i < picker.instances().size(); ++i) {
        PlacedInstance const& instance = picker.instances()[i];
        bool const isThere = i >= model.instances().size() || !model.instances()[i]->isDeleted();
        if (Store store = isThere ? meshOf(model, instance.m_part) : nullptr) {
            placed.push_back(
                {instance.m_leaf->m_name, instance.m_part, instance.m_placement, std::move(store)});
        }
    }
    if (placed.empty()) {
        refuse(file, "the model has no mesh to write; mesh it first");
    }
    return placed;
}

// --- Abaqus ----------------------------------------------------------------------------------

double entry(Placement const& placement, std::size_t row, std::size_t column)
{
    return placement.m_rows[4 * row + column];
}

bool isRotation(Placement const& placement)
{
    constexpr double kTolerance = 1e-6;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            double product = 0.0;
            for (std::size_t row = 0; row < 3; ++row) {
                product += entry(placement, row, i) * entry(placement, row, j);
            }
            if (!(std::abs(product - (i == j ? 1.0 : 0.0)) <= kTolerance)) {
                return false;
            }
        }
    }
    return geometry::determinant(placement) > 0.0;
}

/// w, x, y and z of the rotation as a quaternion with w from 0. The greatest of the four comes from
/// the diagonal, so that no turn is a special case.
std::array<double, 4> quaternionOf(Placement const& placement)
{
    auto const r = [&placement](std::size_t i, std::size_t j) {
        return entry(placement, i, j);
    };
    std::array<double, 4> const squares{
        1 + r(0, 0) + r(1, 1) + r(2, 2), 1 + r(0, 0) - r(1, 1) - r(2, 2),
        1 - r(0, 0) + r(1, 1) - r(2, 2), 1 - r(0, 0) - r(1, 1) + r(2, 2)};
    auto const greatest = static_cast<std::size_t>(
        std::max_element(squares.begin(), squares.end()) - squares.begin());
    std::array<std::array<double, 4>, 4> const rows{
        {{squares[0], r(2, 1) - r(1, 2), r(0, 2) - r(2, 0), r(1, 0) - r(0, 1)},
         {r(2, 1) - r(1, 2), squares[1], r(0, 1) + r(1, 0), r(0, 2) + r(2, 0)},
         {r(0, 2) - r(2, 0), r(0, 1) + r(1, 0), squares[2], r(1, 2) + r(2, 1)},
         {r(1, 0) - r(0, 1), r(0, 2) + r(2, 0), r(1, 2) + r(2, 1), squares[3]}}};
    std::array<double, 4> quaternion = rows[greatest];
    double const length =
        std::copysign(2.0 * std::sqrt(squares[greatest]), quaternion[0] < 0.0 ? -1.0 : 1.0);
    for (double& value : quaternion) {
        value /= length;
    }
    return quaternion;
}

/// Turned about an axis through the place to which the part's origin comes: then the translation is
/// that place.
meshing::MeshPlacement meshPlacementOf(Placement const& placement)
{
    meshing::MeshPlacement result;
    result.m_translation = {entry(placement, 0, 3), entry(placement, 1, 3), entry(placement, 2, 3)};
    auto const [w, x, y, z] = quaternionOf(placement);
    double const sine = std::hypot(x, y, z);
    constexpr double kNoTurn = 1e-12;
    if (sine > kNoTurn) {
        Point const& start = result.m_translation;
        result.m_axis = {start, {start[0] + x / sine, start[1] + y / sine, start[2] + z / sine}};
        result.m_degrees = 2.0 * std::atan2(sine, w) * 180.0 / std::numbers::pi;
    }
    return result;
}

// --- Gmsh ------------------------------------------------------------------------------------

/// Places of an element's nodes when it is seen in a mirror, so that it is not inside out.
using Places = std::array<std::uint8_t, meshing::kMostElementNodes>;
// clang-format off
constexpr std::array<Places, meshing::kElementTraits.size()> kMirrored{{
    {0, 1},
    {0, 1, 2},
    {0, 2, 1},
    {0, 2, 1, 5, 4, 3},
    {0, 3, 2, 1},
    {0, 3, 2, 1, 7, 6, 5, 4},
    {0, 2, 1, 3},
    {0, 2, 1, 3, 6, 5, 4, 7, 9, 8},
    {0, 2, 1, 3, 5, 4},
    {0, 2, 1, 3, 5, 4, 8, 7, 6, 11, 10, 9, 12, 14, 13},
    {0, 3, 2, 1, 4, 7, 6, 5},
    {0, 3, 2, 1, 4, 7, 6, 5, 11, 10, 9, 8, 15, 14, 13, 12, 16, 19, 18, 17},
    {0},
}};
// clang-format on

/// One mesh of many.
class Union {
public:
    Union(std::vector<Placed> const& placed, std::string name) : m_placed(placed)
    {
        m_content.m_name = std::move(name);
    }

    [[nodiscard]] MeshStore join(std::filesystem::path const& file)
    {
        checkRoom(file);
        m_nextNode = nextId([](MeshStore const& mesh) -> Numbering const& { return mesh.nodes(); });
        m_nextElement =
            nextId([](MeshStore const& mesh) -> Numbering const& { return mesh.elements(); });
        std::map<std::size_t, bool> isShown;
        for (Placed const& placed : m_placed) {
            bool const isFirst = !std::exchange(isShown[placed.m_part], true);
            addNodes(placed, isFirst);
            addElements(placed, isFirst);
        }
        m_content.m_nodes = Numbering(std::move(m_nodeIds));
        m_content.m_elements = Numbering(std::move(m_elementIds));
        return MeshStore(std::move(m_content));
    }

private:
    void checkRoom(std::filesystem::path const& file) const
    {
        std::size_t nodes = 0;
        std::size_t connectivity = 0;
        std::size_t groups = 0;
        std::size_t bodies = 0;
        for (Placed const& placed : m_placed) {
            auto const& content = placed.m_store->content();
            nodes += content.m_positions.size();
            connectivity += content.m_connectivity.size();
            groups += content.m_groups.size();
            bodies += content.m_bodies.size();
        }
        constexpr std::size_t kMost = std::numeric_limits<LocalNumber>::max();
        constexpr std::size_t kMostIndices = std::numeric_limits<std::uint16_t>::max();
        if (nodes > kMost || connectivity > kMost) {
            refuse(file,
                   "all instances together have too many nodes for one mesh; write .inp, or "
                   "mesh coarser");
        }
        if (groups > kMostIndices || bodies > kMostIndices) {
            refuse(file, "all instances together have " + std::to_string(groups) +
                             " groups, and at most " + std::to_string(kMostIndices) +
                             " can be written; write .inp, or mesh without faces");
        }
    }

    template <class NumberingOf>
    [[nodiscard]] ExternalId nextId(NumberingOf const& numberingOf) const
    {
        ExternalId next = 1;
        for (Placed const& placed : m_placed) {
            for (ExternalId const id : numberingOf(*placed.m_store).ids()) {
                next = std::max(next, id + 1);
            }
        }
        return next;
    }

    static void addIds(Numbering const& from, bool isFirst, ExternalId& next,
                       std::vector<ExternalId>& ids)
    {
        for (ExternalId const id : from.ids()) {
            ids.push_back(isFirst ? id : next++);
        }
    }

    void addNodes(Placed const& placed, bool isFirst)
    {
        m_firstNode = static_cast<LocalNumber>(m_content.m_positions.size());
        for (Point const& point : placed.m_store->content().m_positions) {
            Point moved{};
            for (std::size_t row = 0; row < 3; ++row) {
                moved[row] = entry(placed.m_placement, row, 3);
                for (std::size_t column = 0; column < 3; ++column) {
                    moved[row] += entry(placed.m_placement, row, column) * point[column];
                }
            }
            m_content.m_positions.push_back(moved);
        }
        addIds(placed.m_store->nodes(), isFirst, m_nextNode, m_nodeIds);
    }

    void addElements(Placed const& placed, bool isFirst)
    {
        MeshStore const& mesh = *placed.m_store;
        auto const firstBody = static_cast<std::uint16_t>(m_content.m_bodies.size());
        auto const firstGroup = static_cast<std::uint16_t>(m_content.m_groups.size());
        auto const nameOf = [&](std::string const& name) {
            bool const isWhole = name.empty() || name == placed.m_name;
            return m_placed.size() == 1 ? name
                                        : placed.m_name + (isWhole ? std::string() : " " + name);
        };
        for (meshing::MeshBodyRow const& body : mesh.bodies()) {
            m_content.m_bodies.push_back({nameOf(body.m_name), 0});
        }
        for (meshing::MeshGroup group : mesh.groups()) {
            group.m_body = static_cast<std::uint16_t>(group.m_body + firstBody);
            group.m_name = nameOf(group.m_name);
            group.m_entity = 0;
            m_content.m_groups.push_back(std::move(group));
        }
        bool const isMirrored = geometry::determinant(placed.m_placement) < 0.0;
        for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
            ElementType const type = mesh.typeOf(element);
            m_content.m_rows.push_back(
                {static_cast<std::uint32_t>(m_content.m_connectivity.size()),
                 typeName(mesh.typeNameOf(element)), type,
                 static_cast<std::uint16_t>(mesh.groupOf(element) + firstGroup)});
            auto const nodes = mesh.nodesOf(element);
            Places const& mirrored = kMirrored[static_cast<std::size_t>(type)];
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                m_content.m_connectivity.push_back(m_firstNode +
                                                   nodes[isMirrored ? mirrored[i] : i]);
            }
        }
        addIds(mesh.elements(), isFirst, m_nextElement, m_elementIds);
    }

    std::uint16_t typeName(std::string const& name)
    {
        auto& names = m_content.m_typeNames;
        auto const found = std::find(names.begin(), names.end(), name);
        auto const index = static_cast<std::uint16_t>(found - names.begin());
        if (found == names.end()) {
            names.push_back(name);
        }
        return index;
    }

    std::vector<Placed> const& m_placed;
    MeshStore::Content m_content;
    std::vector<ExternalId> m_nodeIds;
    std::vector<ExternalId> m_elementIds;
    ExternalId m_nextNode = 1;
    ExternalId m_nextElement = 1;
    LocalNumber m_firstNode = 0;
};

}  // namespace

Store meshOf(model::Model const& model, std::size_t part)
{
    if (part >= model.parts().size() || model.parts()[part]->isDeleted()) {
        return nullptr;
    }
    auto const mesh = meshing::meshPartOf(*model.parts()[part]);
    return mesh != KFR::NULLSP && !mesh->isDeleted() ? mesh->tables()->sharedStore() : nullptr;
}

void writeAbaqusModel(model::Model const& model, std::filesystem::path const& file)
{
    meshing::MeshFile assembly;
    std::map<std::size_t, std::size_t> indices;  // of parts
    for (Placed const& placed : placedMeshes(model, file)) {
        if (!isRotation(placed.m_placement)) {
            refuse(file, "instance \"" + placed.m_name +
                             "\" is mirrored or scaled, which an instance of Abaqus cannot be; "
                             "write .msh");
        }
        auto const [row, isNew] = indices.emplace(placed.m_part, assembly.m_parts.size());
        if (isNew) {
            assembly.m_parts.push_back(placed.m_store);
        }
        assembly.m_instances.push_back(
            {placed.m_name, row->second, meshPlacementOf(placed.m_placement)});
    }
    meshing::writeAbaqusAssembly(assembly, file);
}

void writeGmshModel(model::Model const& model, std::filesystem::path const& file)
{
    std::vector<Placed> const placed = placedMeshes(model, file);
    MeshStore const all = Union(placed, file.stem().string()).join(file);
    // There are no sets whose loss could be told.
    static_cast<void>(meshing::writeGmshMesh(all, file));
}

}  // namespace vrn::orlo::host::modelspace
