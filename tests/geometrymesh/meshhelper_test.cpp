// Centres, normals and nodes of elements.

#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"

#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/support/meshfakes.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>
#include <string_view>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using P = KFRDouble3DPoint;
using Points = KFRDouble3DPointSequence;
using Lists = KFRInt64SequenceSequence;
using ElementIds = ArrayPtr1<long long>;

using ::testing::ElementsAre;

constexpr double kRoot2 = std::numbers::sqrt2;
constexpr P kUnset{7, 8, 9};
constexpr int kFailure = 17;

MATCHER_P(IsNear, point, "")
{
    return std::hypot(arg.x - point.x, arg.y - point.y, arg.z - point.z) < 1e-12;
}

std::vector<P> const kSquare{{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
std::vector<P> const kTriangle{{0, 0, 0}, {2, 0, 0}, {0, 2, 0}};
/// The first of its middle nodes is lifted.
std::vector<P> const kSixNodes{{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {1, 0, 1}, {1, 1, 0}, {0, 1, 0}};

/// External ids of elements with these numbers.
ElementIds elementIds(std::vector<LongId> const& numbers)
{
    std::vector<long long> ids;
    for (LongId const number : numbers) {
        ids.push_back(static_cast<long long>(elementId(number)));
    }
    return ElementIds(ids);
}

TEST(MeshHelper, TakesTheMeanOfAllNodesAndTheNormalOfTheFirstFour)
{
    // clang-format off
    struct {
        char const* name;
        std::vector<P> nodes;
        P centre, normal;
    } const rows[] = {
        {"square", kSquare, {0.5, 0.5, 0}, {0, 0, 2}},
        {"triangle", kTriangle, {2.0 / 3, 2.0 / 3, 0}, {0, 0, 4}},
        {"turned", {{0, 3, 0}, {3, 0, 0}, {0, 0, 0}}, {1, 1, 0}, {0, 0, -9}},
        {"small", {{0, 0, 0}, {3e-5, 0, 0}, {0, 3e-5, 0}}, {1e-5, 1e-5, 0}, {0, 0, 9e-10}},
        {"six nodes", kSixNodes, {4.0 / 6, 4.0 / 6, 1.0 / 6}, {kRoot2, 0, kRoot2}},
        {"four in space", {{0, 0, 0}, {4, 0, 0}, {0, 4, 0}, {0, 0, 4}}, {1, 1, 1},
         {kRoot2, 0, kRoot2}},
        {"folded", {{0, 0, 0}, {4, 0, 0}, {0, 0, 0}, {0, 4, 0}}, {1, 1, 0}, {}},
        {"short diagonal", {{0, 0, 0}, {1, 0, 0}, {0, 4e-16, 0}, {-1, 0, 0}}, {}, {}},
        {"long enough", {{0, 0, 0}, {1, 0, 0}, {0, 6e-16, 0}, {-1, 0, 0}}, {}, {0, 0, 2}},
        {"line", {{0, 0, 0}, {2, 0, 4}}, {1, 0, 2}, {}},
        {"point", {{1, 2, 3}}, {1, 2, 3}, {}},
        {"nothing", {}, {}, {}},
    };
    // clang-format on
    for (auto const& [name, nodes, expectedCentre, expectedNormal] : rows) {
        SCOPED_TRACE(name);
        MeshScope scope;
        scope.mesh->add(2, {{9, 9, 9}});
        scope.mesh->add(2, nodes);
        P centre = kUnset, normal = kUnset, sameCentre = kUnset, sameNormal = kUnset;
        KFRSequence<long long> nodeIds{1}, expectedIds;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            expectedIds.append(static_cast<long long>(nodeId(i + 2)));
        }
        MeshHelper::getElemLocationAndNormal(scope.mesh, elementId(2), centre, normal, nodeIds);
        EXPECT_THAT(centre, IsNear(expectedCentre));
        EXPECT_THAT(normal, IsNear(expectedNormal));
        EXPECT_EQ(nodeIds, expectedIds);
        MeshHelper::getElemLocNormal(scope.reference(kElementTypes[1], 2), sameCentre, sameNormal);
        EXPECT_EQ(std::pair(sameCentre, sameNormal), std::pair(centre, normal));
        Points centres, normals;
        ElementIds ids = elementIds({2});
        MeshHelper::getElemLocationsAndNormals(scope.mesh, ids, centres, normals);
        double const length = std::hypot(normal.x, normal.y, normal.z);
        double const scale = length > 0 ? 1 / length : 0;
        EXPECT_THAT(centres, ElementsAre(centre));
        EXPECT_THAT(normals,
                    ElementsAre(IsNear(P{normal.x * scale, normal.y * scale, normal.z * scale})));
    }
}

TEST(MeshHelper, AppendsOneEntryPerIdAcrossBlocksForWhatIsMissingToo)
{
    MeshScope scope;
    scope.mesh->add(2, kSquare);
    scope.mesh->add(1, kTriangle);
    std::vector<LongId> numbers(1500, 1);
    numbers[3] = numbers[1024] = 2;
    numbers[5] = numbers[1023] = numbers[1025] = 3;  // not there
    ElementIds ids = elementIds(numbers);
    ids[7] = 2;  // a local number
    auto const expectEntries = [&](SP<CAE::IMeshPartInterface> const& mesh, bool isRead) {
        Points locations{kUnset}, normals{kUnset}, separate[4];
        Lists nodes{{1, 2}};
        MeshHelper::getElemLocNormal(mesh, ids, locations, normals, nodes, 0, ElementIds());
        MeshHelper::getElemLocations(mesh, ids, separate[0]);
        MeshHelper::getElemNormals(mesh, ids, separate[1]);
        MeshHelper::getElemLocationsAndNormals(mesh, ids, separate[2], separate[3]);
        ASSERT_EQ(locations.size(), 1501U);
        ASSERT_EQ(normals.size(), 1501U);
        ASSERT_EQ(nodes.size(), 1501U);
        EXPECT_EQ(locations.at(0), kUnset);
        EXPECT_EQ(nodes.at(0), (KFRSequence<long long>{1, 2}));
        for (std::size_t i = 0; i < 1500; ++i) {
            bool const isThere = isRead && numbers[i] != 3 && i != 7;
            P const normal = isThere ? P{0, 0, 1} : P();
            std::size_t const corners = !isThere ? 0 : numbers[i] == 2 ? 3 : 4;
            ASSERT_THAT(normals.at(i + 1), IsNear(normal)) << i;
            ASSERT_EQ(nodes.at(i + 1).size(), corners) << i;
            ASSERT_EQ(locations.at(i + 1).x, corners == 0 ? 0 : corners == 3 ? 2.0 / 3 : 0.5) << i;
        }
        locations.erase(0);
        normals.erase(0);
        EXPECT_TRUE(separate[0] == locations && separate[2] == locations);
        EXPECT_TRUE(separate[1] == normals && separate[3] == normals);
    };
    expectEntries(scope.mesh, true);
    scope.mesh->isReadable = false;
    expectEntries(scope.mesh, false);
    expectEntries({}, false);
}

/// Knows the second face of the first element.
struct FakeFreeFaces final : KFRServiceObjectImpl<muc::IFreeFaceService> {
    int result = KFR::ok;
    KFRResult getFaceData(SP<CAE::IMeshPartInterface> const&, ElementIds const& elements,
                          KFRIService const&, ArrayPtr1<int> const& faces, ElementIds&, Lists&,
                          ArrayPtr1<int>&, ElementIds& flat, KFRIService const&,
                          bool isFlat) override
    {
        if (isFlat && elements[0] == static_cast<long long>(elementId(1)) && faces[0] == 2) {
            flat.resize(4);
            for (std::size_t i = 0; i < 4; ++i) {
                flat[i] = static_cast<long long>(nodeId(5 + i));
            }
        }
        return result;
    }
};

TEST(MeshHelper, FindsFacesOfElementsByTheLowByteOfTheSubId)
{
    MeshScope scope;
    std::vector<P> nodesOfBrick = kSquare;
    nodesOfBrick.insert(nodesOfBrick.end(), {{0, 0, 3}, {0, 1, 3}, {1, 1, 3}, {1, 0, 3}});
    scope.mesh->add(3, nodesOfBrick);
    auto const service = KFR::make<FakeFreeFaces>();
    auto const ask = [&](SP<CAE::IMeshPartInterface> const& mesh, LongId id, int face) {
        P location = kUnset, normal = kUnset;
        KFRSequence<long long> nodes;
        KFRResult const first = MeshHelper::getElemFaceLocNormal(mesh, id, face, location, normal);
        KFRResult const second =
            MeshHelper::getElemFaceLocNormal(mesh, id, face, location, normal, nodes);
        EXPECT_EQ(first.getCode(), second.getCode());
        EXPECT_EQ(location, first.isOk() ? (P{0.5, 0.5, 3}) : kUnset);
        EXPECT_EQ(nodes.size(), first.isOk() ? 4U : 0U);
        EXPECT_THAT(normal, IsNear(first.isOk() ? P{0, 0, -2} : kUnset));
        return first.getCode();
    };
    EXPECT_EQ(ask(scope.mesh, elementId(1), 2), KFR::notDone);  // no service
    scope.services().put("vrn.orlo.muc.FreeFaceService", service);
    EXPECT_EQ(ask({}, elementId(1), 2), KFR::notDone);
    EXPECT_EQ(ask(scope.mesh, elementId(1), 2), KFR::ok);
    EXPECT_EQ(ask(scope.mesh, elementId(1), 3), KFR::notDone);
    service->result = kFailure;
    EXPECT_EQ(ask(scope.mesh, elementId(1), 2), kFailure);
    service->result = KFR::ok;

    for (char const* const type : kElementTypes) {
        P location = kUnset, normal = kUnset;
        MeshHelper::getElemFaceLocNormal(scope.reference(type, 1, 0xFEDCBA02), location, normal);
        bool const isFace = std::string_view(type) == kElementTypes[3];
        EXPECT_EQ(location, isFace ? (P{0.5, 0.5, 3}) : kUnset) << type;
        EXPECT_THAT(normal, IsNear(isFace ? P{0, 0, -2} : kUnset)) << type;
    }
    Refs nodes;
    MeshHelper::getNodes({scope.reference(kElementTypes[3], 1, 0xAB02), scope.node(3),
                          scope.node(6), scope.reference(kElementTypes[2], 1)},
                         nodes);
    EXPECT_EQ(nodes, (Refs{scope.node(5), scope.node(6), scope.node(7), scope.node(8),
                           scope.node(3), scope.node(1), scope.node(2), scope.node(4)}));
}

TEST(MeshHelper, GivesANodeTheNormalOfTheElementsCorners)
{
    MeshScope scope;
    std::vector<P> tenNodes{{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
    tenNodes.resize(10, {5, 5, 5});
    scope.mesh->add(1, kSixNodes);
    scope.mesh->add(2, kSquare);
    scope.mesh->add(3, tenNodes);
    scope.mesh->add(0, {{0, 0, 0}, {2, 0, 0}, {1, 1, 0}});
    struct {
        LongId element;
        P normal;
    } const rows[] = {{1, {0, 0, 4}}, {2, {0, 0, 2}}, {3, {kRoot2, 0, kRoot2}}, {4, {}}};
    for (auto const& row : rows) {
        LongId number = 0;
        P location, normal = kUnset;
        KFRResult const result = MeshHelper::getNodeLocationAndNormal(
            scope.mesh, elementId(row.element), nodeId(4), number, location, normal);
        EXPECT_TRUE(result.isOk());
        EXPECT_EQ(number, 4U);
        EXPECT_EQ(location, kSixNodes[3]);
        EXPECT_THAT(normal, IsNear(row.normal)) << row.element;
    }
    LongId number = 3;
    P location = kUnset, normal = kUnset;
    auto const code = [&](SP<CAE::IMeshPartInterface> const& mesh, LongId element, LongId node) {
        return MeshHelper::getNodeLocationAndNormal(mesh, element, node, number, location, normal)
            .getCode();
    };
    EXPECT_EQ(code({}, elementId(1), nodeId(1)), 0x7FFFFFFF);
    EXPECT_EQ(code(scope.mesh, 1, nodeId(1)), KFR::notDone);
    EXPECT_EQ(code(scope.mesh, elementId(1), 1), KFR::notDone);
    EXPECT_EQ(std::tuple(number, location, normal), std::tuple(3U, kUnset, kUnset));
    EXPECT_EQ(PluginHelper::getNodeLocation(scope.node(4)), kSixNodes[3]);
    EXPECT_EQ(PluginHelper::getNodeLocation(scope.node(400)), P());
    auto const& loose = scope.mesh->nodes.emplace_back(KFR::make<MemoryNode>());
    loose->number = 99;
    EXPECT_TRUE(MeshHelper::isConnectedNode(scope.node(4)));
    EXPECT_FALSE(MeshHelper::isConnectedNode(scope.node(99)));
    EXPECT_FALSE(MeshHelper::isConnectedNode(scope.reference(kElementTypes[1], 1)));
}

TEST(MeshHelper, FindsTheNodesOfAPointBodyAtItsVertex)
{
    MeshScope scope;
    scope.mesh->add(2, kSquare);
    constexpr int kPointBody = 10, kVertex = 22, kFace = 18;
    scope.geometry->classes = {{60, kVertex}, {61, kPointBody}, {62, kFace}};
    scope.geometry->children[{61, kVertex}] = scope.geometry->children[{62, kVertex}] = {60};
    scope.geometry->nodes[60] = {scope.mesh->nodes[3], scope.mesh->nodes[0]};
    Ref const expected{{}, scope.idOf("Simulation.FEM.Node"), 4, 0};
    for (Word const number : {60U, 61U}) {
        Ref node;
        EXPECT_TRUE(MeshHelper::getNodeFromAcornBody({{}, 0, number, 0}, node).isOk());
        EXPECT_EQ(node, expected);
    }
    Ref node;
    EXPECT_FALSE(MeshHelper::getNodeFromAcornBody({{}, 0, 62, 0}, node).isOk());
    EXPECT_EQ(node, Ref());
    LongIds ids{1};
    MeshHelper::getNodesByGeometryId(60, ids);
    EXPECT_EQ(ids, (LongIds{nodeId(4), nodeId(1)}));
}

TEST(MeshHelper, TakesPointsOnAGeometryFromItsElementsIfItHasAny)
{
    MeshScope scope;
    scope.mesh->add(2, kSquare);
    scope.mesh->add(1, kTriangle);
    auto const mesh = KFR::make<MemoryMesh>();
    auto const meshBody = KFR::make<MemoryMeshBody>();
    meshBody->parent = scope.part;
    auto const body = scope.geometry->bodies[50] = KFR::make<MeshedGeometry>();
    body->meshBodies = {meshBody};
    scope.geometry->subMeshes[50] = mesh;
    Points points{kUnset}, normals{kUnset};
    Lists nodes{{1}};
    Ref const ref{scope.part, 1, 50, 0};
    auto const ask = [&] {
        return MeshHelper::getDistributedPointsOnExistMesh(ref, points, normals, nodes);
    };
    EXPECT_FALSE(ask());  // no elements
    EXPECT_TRUE(points.empty() && normals.empty() && nodes.empty());
    mesh->elementIds = LongIds{elementId(2), elementId(1)};
    EXPECT_TRUE(ask());
    EXPECT_THAT(points, ElementsAre(IsNear(P{2.0 / 3, 2.0 / 3, 0}), IsNear(P{0.5, 0.5, 0})));
    EXPECT_THAT(normals, ElementsAre(IsNear(P{0, 0, 1}), IsNear(P{0, 0, 1})));
    EXPECT_EQ(nodes.size(), 2U);
    EXPECT_TRUE(ask());
    EXPECT_EQ(points.size(), 2U);
    meshBody->parent.reset();
    EXPECT_FALSE(ask());  // no mesh part
    EXPECT_TRUE(points.empty() && normals.empty() && nodes.empty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
