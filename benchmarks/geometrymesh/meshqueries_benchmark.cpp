// Questions about a mesh of a million tetrahedra: which ids it has, where elements are, ids into
// numbers; and what it takes in memory.

#include "benchmarks/support/ratio.h"
#include "host/kernel/typeregistry.h"
#include "host/meshing/meshedpart.h"
#include "plugins/modelingplugin/utilities/geometrymesh/elementgeometry.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/support/platformscope.h"
#include "tests/support/silent.h"

#include <absl/container/flat_hash_set.h>

#include <malloc.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <random>
#include <utility>
#include <vector>

namespace {

using namespace vrn::orlo::plugin::modeling;  // NOLINT: the library under test
namespace meshing = vrn::orlo::host::meshing;
using meshing::LocalNumber;
using orlo::bench::keep;
using orlo::bench::Ratios;
using Ids = KFRSequence<unsigned long long>;

constexpr LocalNumber kCubes = 55;  // on a side, of six tetrahedra each
constexpr std::size_t kCount = 1000000;

/// A block of tetrahedra that fill cubes, with ids from 2^33 on in another order than the numbers.
meshing::MeshStore::Content block()
{
    constexpr LocalNumber kSide = kCubes + 1;
    constexpr std::array<std::array<std::size_t, 3>, 6> kOrders{
        {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {1, 0, 2}, {2, 1, 0}, {0, 2, 1}}};
    constexpr meshing::ExternalId kFirst = meshing::ExternalId{1} << 33;
    constexpr std::array<LocalNumber, 3> kSteps{1, kSide, kSide * kSide};

    meshing::MeshStore::Content content;
    content.m_name = "block";
    content.m_typeNames = {"C3D4"};
    std::vector<meshing::ExternalId> nodeIds;
    for (LocalNumber i = 0; i < kSide * kSide * kSide; ++i) {
        nodeIds.push_back(kFirst + kSide * kSide * kSide - i);
        content.m_positions.push_back({static_cast<double>(i % kSide),
                                       static_cast<double>(i / kSide % kSide),
                                       static_cast<double>(i / kSide / kSide)});
    }
    for (LocalNumber cube = 0; cube < kCubes * kCubes * kCubes; ++cube) {
        LocalNumber const corner = cube % kCubes + kSide * (cube / kCubes % kCubes) +
                                   kSide * kSide * (cube / kCubes / kCubes) + 1;
        for (std::size_t order = 0; order < kOrders.size(); ++order) {
            std::array<LocalNumber, 4> nodes{corner};
            for (std::size_t step = 0; step < 3; ++step) {
                nodes[step + 1] = nodes[step] + kSteps[kOrders[order][step]];
            }
            if (order >= 3) {  // the odd orders turn the other way
                std::swap(nodes[1], nodes[2]);
            }
            content.m_rows.push_back({static_cast<std::uint32_t>(content.m_connectivity.size()), 0,
                                      meshing::ElementType::tetra4, 0});
            content.m_connectivity.insert(content.m_connectivity.end(), nodes.begin(), nodes.end());
        }
    }
    std::vector<meshing::ExternalId> elementIds;
    for (std::size_t i = content.m_rows.size(); i > 0; --i) {
        elementIds.push_back(kFirst + static_cast<meshing::ExternalId>(i));
    }
    content.m_nodes = meshing::Numbering(std::move(nodeIds));
    content.m_elements = meshing::Numbering(std::move(elementIds));
    return content;
}

std::size_t bytesInUse()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Prints what the mesh takes with all its tables. \return whether that is within the bound
bool reportMemory(std::shared_ptr<meshing::MeshStore const>& store, meshing::MeshPart*& meshPart,
                  KFRSmartPointer<meshing::MeshedPart>& part, meshing::MeshTypes const& types)
{
    constexpr double kBound = 250.0;
    std::size_t const before = bytesInUse();
    store = std::make_shared<meshing::MeshStore>(block());
    part = KFR::make<meshing::MeshedPart>("block", store, 1U, types, nullptr);
    meshPart = part->meshPart().get();
    auto const& tables = *meshPart->tables();
    keep(tables.elementsAt(1));
    keep(tables.elementsOfGroup(0));
    keep(tables.nodesOfBody(0));
    keep(tables.skinOfBody(0));
    double const each =
        static_cast<double>(bytesInUse() - before) / static_cast<double>(store->elements().size());
    std::printf("%u tetrahedra with all tables: %.0f bytes each (bound %.0f)%s\n",
                store->elements().size(), each, kBound, each <= kBound ? "" : "  OVER");
    return each <= kBound;
}

/// A mesh body with these ids, as the library reads it.
struct IdBody final : KFRServiceObjectImpl<test::silent::MeshBodyView, test::silent::PersistentView,
                                           KFR::EOM::IEOMMeshBodyInterface> {
    Ids ids;

    KFRResult getElementIds(Ids& out) override { return out = ids, KFR::ok; }
    KFRResult getPersistentObject(KFRSmartPointer<CAE::IPersistentObjectInterface>& object) override
    {
        object = KFRSmartPointer<CAE::IPersistentObjectInterface>(this);
        return KFR::ok;
    }
};

struct IdCase {
    KFRSmartPointer<IdBody> body = KFR::make<IdBody>();
    Ids asked;

    /// \param step  between ids, on the average
    explicit IdCase(unsigned long long step)
    {
        std::mt19937_64 random(7);
        std::vector<unsigned long long> ids;
        unsigned long long id = 1ULL << 33;
        for (std::size_t i = 0; i < kCount; ++i) {
            ids.push_back(id += 1 + (step > 1 ? random() % (2 * step) : 0));
        }
        body->ids = Ids(ids.begin(), ids.end());
        for (std::size_t i = 0; i < ids.size(); i += 2) {
            ids[i] += 1;  // every other one is a stranger where ids are sparse
        }
        std::shuffle(ids.begin(), ids.end(), random);
        asked = Ids(ids.begin(), ids.end());
    }
};

void compareValidIds(Ratios& ratios)
{
    IdCase const dense(1);
    ratios.compare(
        "getValidElements, 1e6 in 1e6 dense ids", 2.0,
        [&] { keep(PluginHelper::getValidElements(dense.body, dense.asked)); },
        [&] {
            Ids const& known = dense.body->ids;
            unsigned long long const first = known[0];
            std::vector<bool> bits(known[known.size() - 1] - first + 1);
            for (unsigned long long const id : known) {
                bits[id - first] = true;
            }
            Ids kept;
            kept.reserve(dense.asked.size());
            for (unsigned long long const id : dense.asked) {
                if (id - first < bits.size() && bits[id - first]) {
                    kept.append(id);
                }
            }
            keep(kept);
        });
    IdCase const sparse(1000000);
    ratios.compare(
        "getValidElements, 1e6 in 1e6 sparse ids", 1.0,
        [&] { keep(PluginHelper::getValidElements(sparse.body, sparse.asked)); },
        [&] {
            absl::flat_hash_set<unsigned long long> const known(sparse.body->ids.begin(),
                                                                sparse.body->ids.end());
            Ids kept;
            kept.reserve(sparse.asked.size());
            for (unsigned long long const id : sparse.asked) {
                if (known.contains(id)) {
                    kept.append(id);
                }
            }
            keep(kept);
        });
}

void wait(std::chrono::nanoseconds time)
{
    auto const end = std::chrono::steady_clock::now() + time;
    while (std::chrono::steady_clock::now() < end) {
    }
}

void compareMesh(Ratios& ratios, meshing::MeshPart& meshPart, meshing::MeshStore const& store)
{
    std::vector<long long> elements(store.elements().ids().begin(), store.elements().ids().end());
    ArrayPtr1<long long> ids(elements);
    KFRSmartPointer<CAE::IMeshPartInterface> const handle(&meshPart);
    auto const bare = [&](bool withNodes) {
        KFRDouble3DPointSequence locations;
        KFRDouble3DPointSequence normals;
        KFRInt64SequenceSequence nodeIds;
        locations.reserve(ids.size());
        normals.reserve(ids.size());
        nodeIds.reserve(withNodes ? ids.size() : 0);
        std::array<KFRDouble3DPoint, 4> points;
        std::array<long long, 4> nodes{};
        for (long long const id : ids) {
            auto const numbers = store.nodesOf(store.elements().numberOf(id));
            for (std::size_t i = 0; i < points.size(); ++i) {
                meshing::Point const& at = store.position(numbers[i]);
                points[i] = {at[0], at[1], at[2]};
                nodes[i] = store.nodes().idOf(numbers[i]);
            }
            locations.append(centreOf(points));
            normals.append(unitNormalOf(points));
            if (withNodes) {
                nodeIds.append(KFRSequence<long long>(nodes.begin(), nodes.end()));
            }
        }
        keep(locations);
        keep(normals);
        keep(nodeIds);
    };
    ratios.compare(
        "getElemLocationsAndNormals of 1e6 elements", 2.0,
        [&] {
            KFRDouble3DPointSequence locations;
            KFRDouble3DPointSequence normals;
            MeshHelper::getElemLocationsAndNormals(handle, ids, locations, normals);
            keep(locations);
        },
        [&] { bare(false); });
    ratios.compare(
        "getElemLocNormal of 1e6 elements, with their nodes", 2.0,
        [&] {
            KFRDouble3DPointSequence locations;
            KFRDouble3DPointSequence normals;
            KFRInt64SequenceSequence nodeIds;
            MeshHelper::getElemLocNormal(handle, ids, locations, normals, nodeIds, 0, ids);
            keep(locations);
        },
        [&] { bare(true); });
    Ids const asked(elements.begin(), elements.end());
    ratios.compare(
        "numbers of 1e6 ids, against 30 ns each", 1.0,
        [&] {
            KFRSequence<unsigned int> numbers;
            keep(meshPart.getElementNumbers(asked, numbers));
        },
        [&] { wait(std::chrono::nanoseconds(30) * asked.size()); });
}

}  // namespace

int main()
{
    test::PlatformScope const platform;
    auto const registry = KFR::make<vrn::orlo::host::kernel::TypeRegistry>(1000U);
    meshing::MeshTypes const types(*registry);
    std::shared_ptr<meshing::MeshStore const> store;
    meshing::MeshPart* meshPart = nullptr;
    KFRSmartPointer<meshing::MeshedPart> part;
    bool const isSmall = reportMemory(store, meshPart, part, types);
    Ratios ratios;
    compareValidIds(ratios);
    compareMesh(ratios, *meshPart, *store);
    return isSmall ? ratios.exitStatus() : 1;
}
