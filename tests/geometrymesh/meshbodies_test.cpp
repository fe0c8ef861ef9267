// Mesh bodies and meshes: which there are, and whose.

#include "plugins/modelingplugin/utilities/geometrymesh/femeshea.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshbodyea.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/geometrymesh/partmeshea.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/support/appframefakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/meshfakes.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::vrn::orlo::test::contentOf;
using ::vrn::orlo::test::TemporaryFolder;

SP<MemoryMesh> makeMesh(unsigned char dimension, LongIds const& ids, bool isContinuous = true)
{
    auto const mesh = KFR::make<MemoryMesh>();
    mesh->dimension = dimension;
    mesh->elementIds = ids;
    mesh->continuous = isContinuous;
    return mesh;
}

TEST(MeshBodyEA, TellsTheFirstContinuousMeshFromTheFirstValidOne)
{
    auto const single = makeMesh(2, {1}, false);
    auto const deleted = makeMesh(2, {1});
    auto const empty = makeMesh(2, {});
    auto const valid = makeMesh(2, {7});
    auto const solid = makeMesh(3, {8});
    auto const deletedLine = makeMesh(1, {9});
    deleted->deleted = deletedLine->deleted = true;
    auto const body = KFR::make<MemoryMeshBody>();
    MeshBodyEA const wrapped{body};
    Mesh found = solid;
    auto const isValid = [&](unsigned int dimension) {
        return wrapped.getValidContinuousMesh(dimension, found);
    };
    EXPECT_FALSE(isValid(2) || wrapped.has2DMesh());
    EXPECT_EQ(wrapped.getDimensionalities(), 0U);
    body->meshes = {{}, single, deleted, empty};
    EXPECT_EQ(wrapped.getContinuousMesh(2), deleted);
    EXPECT_FALSE(isValid(2) || wrapped.has2DMesh());
    body->meshes = {{}, single, empty, deletedLine, valid, solid};
    EXPECT_EQ(wrapped.getContinuousMesh(2), empty);
    EXPECT_EQ(wrapped.getContinuousMesh(1), deletedLine);
    EXPECT_THAT(wrapped.getContinuousMesh(0), IsNullHandle());
    EXPECT_FALSE(isValid(1) || isValid(0));
    EXPECT_EQ(found, solid);  // left alone
    EXPECT_TRUE(isValid(2) && wrapped.has2DMesh());
    EXPECT_EQ(found, valid);
    EXPECT_EQ(wrapped.getDimensionalities(), 0b1110U);
    body->meshes = {makeMesh(0, {1}, false), {}, solid};
    EXPECT_EQ(MeshBodyEA::getDimensionalities(body), 0b1001U);
    body->elementIds = LongIds{5, 3};
    EXPECT_EQ(wrapped.getElementIds(), (LongIds{5, 3}));
    EXPECT_TRUE(wrapped.isPureMesh());
    body->geomBody = KFR::make<MeshedGeometry>();
    EXPECT_FALSE(wrapped.isPureMesh());
    EXPECT_EQ(wrapped.getIGeomBody(), *body->geomBody);
    EXPECT_EQ(wrapped.getIMeshBody(), body);
}

/// A closed line of nodes 4, 2 and 9.
struct FakeBeams final : KFRServiceObjectImpl<muc::IBeamTessService> {
    KFRSequence<int> elements{6, 5, 7};
    int result = KFR::ok;
    KFRResult getChain(MeshBody const&, FEMesh const&, KFRSequence<int>& nodes,
                       KFRSequence<int>& ofLine, bool& closed) override
    {
        nodes = {4, 2, 9};
        ofLine = elements;
        closed = true;
        return result;
    }
};

TEST(FEMeshEA, TurnsTheChainIntoExternalIds)
{
    MeshScope scope;
    auto const body = KFR::make<MemoryMeshBody>();
    body->nodeNumbers = {2, 4, 9};
    for (int number = 1; number < 8; ++number) {
        scope.mesh->add(0, {});
        body->elements[number] = scope.mesh->elements.back();
    }
    auto const mesh = makeMesh(1, {});
    mesh->body = body.get();
    FEMeshEA const wrapped{mesh};
    LongIds nodes, elements;
    bool closed = true;
    EXPECT_FALSE(wrapped.getNodalChain(nodes, elements, closed) || closed);  // no service
    closed = true;
    EXPECT_FALSE(wrapped.getOrderedNodeIds(nodes, closed) || closed);
    auto const beams = KFR::make<FakeBeams>();
    scope.services().put("vrn.orlo.muc.BeamTessService", beams);
    LongIds const line{nodeId(4), nodeId(2), nodeId(9)};
    EXPECT_TRUE(wrapped.getNodalChain(nodes, elements, closed) && closed);
    EXPECT_EQ(nodes, line);
    EXPECT_EQ(elements, (LongIds{elementId(6), elementId(5), elementId(7)}));
    nodes = LongIds(17);
    EXPECT_TRUE(wrapped.getOrderedNodeIds(nodes, closed));
    EXPECT_EQ(nodes, line);
    beams->elements = {6, 55};  // one that the body does not have
    EXPECT_FALSE(wrapped.getNodalChain(nodes, elements, closed));
    beams->result = KFR::notDone;
    closed = true;
    EXPECT_FALSE(wrapped.getOrderedNodeIds(nodes, closed) || closed);
    beams->result = KFR::ok;
    mesh->body = nullptr;
    closed = true;
    EXPECT_FALSE(wrapped.getNodalChain(nodes, elements, closed) || closed);
}

TEST(FEMeshEA, KnowsItsBodyItsEntityAndItsGeometry)
{
    MeshScope scope;
    auto const body = KFR::make<MemoryMeshBody>();
    auto const mesh = makeMesh(2, {});
    FEMeshEA const wrapped{mesh};
    EXPECT_THAT(wrapped.getMeshBody(), IsNullHandle());
    EXPECT_TRUE(wrapped.isOrphan());
    EXPECT_FALSE(wrapped.isVisible());
    mesh->body = body.get();
    mesh->geometry = KFR::make<MeshedGeometry>();
    mesh->visible = true;
    EXPECT_EQ(wrapped.getMeshBody(), body);
    EXPECT_EQ(wrapped.getIEntity(), mesh);
    EXPECT_FALSE(wrapped.isOrphan());
    EXPECT_TRUE(wrapped.isVisible());
    mesh->visible = false;
    EXPECT_FALSE(wrapped.isVisible());
}

TEST(PluginHelper, FindsTheMeshBodyByTheMeshThenByAskingTheBodiesAndNotForOrphans)
{
    MeshScope scope;
    auto const first = KFR::make<MemoryMeshBody>();
    auto const second = KFR::make<MemoryMeshBody>();
    auto const mesh = makeMesh(2, {});
    mesh->body = second.get();
    scope.mesh->add(2, {{0, 0, 0}}).mesh = mesh;
    scope.mesh->add(2, {{0, 0, 0}});                         // no mesh, but a body
    scope.mesh->add(2, {{0, 0, 0}}).mesh = makeMesh(2, {});  // a mesh without a body
    scope.mesh->bodies = CAE::IMeshBodySequence{{}, first, second};
    second->elements[2] = scope.mesh->elements[1];
    second->nodeNumbers = {2};
    auto const named = scope.make<MemoryMeshBody>(1, 77);
    for (char const* const type : kElementTypes) {
        SCOPED_TRACE(type);
        EXPECT_EQ(PluginHelper::getMeshBody(scope.reference(type, 1)), second);
        EXPECT_EQ(PluginHelper::getMeshBody(scope.reference(type, 2)), second);
        EXPECT_THAT(PluginHelper::getMeshBody(scope.reference(type, 3)), IsNullHandle());
        Ref stray = scope.reference(type, 77);  // the root manager would know it
        stray.service = {};
        EXPECT_THAT(PluginHelper::getMeshBody(stray), IsNullHandle());
        Mesh found = makeMesh(1, {});
        Mesh const before = found;
        PluginHelper::getMeshByElement(scope.reference(type, 1), found);
        EXPECT_EQ(found, std::string_view(type) == kElementTypes[4] ? before : Mesh(mesh));
    }
    EXPECT_EQ(PluginHelper::getMeshBody(scope.node(1)), second);
    EXPECT_EQ(PluginHelper::getMeshBody(scope.node(2)), second);
    EXPECT_THAT(PluginHelper::getMeshBody(scope.node(3)), IsNullHandle());
    EXPECT_EQ(PluginHelper::getMeshBody({scope.part, 1, 77, 0}), named);
    Mesh none;
    PluginHelper::getMeshByElement(scope.node(1), none);
    EXPECT_THAT(none, IsNullHandle());
    // The part where an instance stands.
    auto const instance = KFR::make<FakeInstance>();
    instance->placed = scope.part;
    Ref placed = scope.reference(kElementTypes[1], 1);
    placed.service = instance;
    PluginHelper::getMeshByElement(placed, none);
    EXPECT_EQ(none, mesh);
    EXPECT_EQ(PluginHelper::getMeshPartByNode(placed), scope.mesh);
    EXPECT_EQ(PluginHelper::getMeshPart({instance, 1, 1, 0}), scope.mesh);
    EXPECT_THAT(PluginHelper::getMeshPartByNode({instance, 1, 1, 0}), IsNullHandle());
    EXPECT_EQ(MeshHelper::getMeshPart(scope.mesh), scope.mesh);
}

TEST(PluginHelper, FindsTheMeshOfAGeometryAndNotesWhatIsNone)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        MeshScope scope;
        TemporaryFolder folder;
        auto const plugin = KFR::make<FakePlugin>();
        plugin->folder = unicode(folder.path().string());
        auto const framework = KFR::make<FakeFrameworkAccess>();
        framework->plugins["VRN.ModelingPlugin"] = plugin;
        ServiceCacheModelingPlugin::frameworkAccess_ = framework;
        auto const geometry = scope.make<MeshedGeometry>(1, 5);
        auto const body = scope.make<MemoryMeshBody>(1, 6);
        geometry->meshes = {makeMesh(2, {}), makeMesh(2, {})};
        geometry->meshBodies = {body};
        EXPECT_EQ(PluginHelper::getMeshForGeometry(geometry), geometry->meshes->at(0));
        EXPECT_EQ(PluginHelper::getMeshForGeometry({{}, 1, 5, 0}), geometry->meshes->at(0));
        EXPECT_EQ(PluginHelper::getMeshForGeometry({{}, scope.idOf("BODY"), 5, 0}), body);
        geometry->meshes->clear();
        EXPECT_THAT(PluginHelper::getMeshForGeometry(geometry), IsNullHandle());
        EXPECT_TRUE(folder.files().empty());
        EXPECT_THAT(PluginHelper::getMeshForGeometry(Persistent()), IsNullHandle());
        EXPECT_THAT(PluginHelper::getMeshForGeometry(body), IsNullHandle());
        std::string const noted = contentOf(folder.files().at(0));
        std::string const place = ", at File : plugins/modelingplugin/utilities/pluginhelper,";
        EXPECT_THAT(noted, ::testing::HasSubstr("NULLSP != spObject" + place));
        EXPECT_THAT(noted, ::testing::HasSubstr("NULLSP != spGeom" + place));
    });
}

TEST(PluginHelper, TakesForASurfaceWhatHasTwoDimensionsOrSaysSo)
{
    struct {
        std::optional<unsigned char> dimension;
        std::optional<bool> saysSo;
        bool isSurface;
    } const rows[] = {{2, false, true},  {2, {}, true},  {3, true, true},
                      {3, false, false}, {3, {}, false}, {{}, true, true}};
    for (auto const& row : rows) {
        auto const mesh = KFR::make<MemoryMesh>();
        mesh->dimension = row.dimension;
        mesh->surface = row.saysSo;
        EXPECT_EQ(PluginHelper::isSurfaceMesh(mesh), row.isSurface) << &row - rows;
    }
    EXPECT_FALSE(PluginHelper::isSurfaceMesh(KFR::make<FakeObject>()));
    EXPECT_FALSE(PluginHelper::isSurfaceMesh({}));
}

TEST(PluginHelper, LooksIntoContinuousMeshesAndPassesDeletedOnesOver)
{
    auto const deleted = makeMesh(1, {1});
    deleted->deleted = true;
    auto const whole = makeMesh(9, {99});
    whole->subMeshes = {deleted, makeMesh(2, {7, 5}, false), makeMesh(3, {5, 6}, false)};
    CAE::IMeshSequence const meshes{{}, deleted, whole, makeMesh(3, {elementId(1)}, false)};
    btree::btree_set<LongId> ids{1000};
    PluginHelper::getElementIdsfromMesh(meshes, ids);
    EXPECT_THAT(ids, ::testing::ElementsAre(5, 6, 7, 1000, elementId(1)));
    EXPECT_EQ(PluginHelper::getMeshDimension(meshes), 2);
    EXPECT_EQ(PluginHelper::getMeshDimension({{}, deleted}), -1);
}

TEST(PluginHelper, CountsBodiesWithElementsAndFacesWithSurfaceMeshes)
{
    MeshScope scope;
    auto const bodies = std::vector{KFR::make<MemoryMeshBody>(), KFR::make<MemoryMeshBody>(),
                                    KFR::make<MemoryMeshBody>()};
    auto const full = makeMesh(2, {1});
    auto const deleted = makeMesh(2, {1});
    deleted->deleted = true;
    bodies[0]->meshes = {deleted, makeMesh(3, {})};
    bodies[1]->meshes = {deleted, full};
    scope.part->meshBodies = {bodies[0], {}, bodies[1], bodies[2]};
    EXPECT_EQ(PluginHelper::getValidMeshBodySequence(scope.part),
              CAE::IMeshBodySequence{bodies[1]});
    EXPECT_EQ(PluginHelper::getValidMeshBodyNumber(scope.part), 1U);
    EXPECT_EQ(PluginHelper::getValidMeshesofPart(scope.part), CAE::IMeshSequence{full});
    scope.geometry->children[{40, 18}] = {41, 42, 43, 44};
    scope.geometry->children[{40, 21}] = {45};
    scope.geometry->meshes = {{41, full}, {43, makeMesh(3, {1})}, {44, full}, {45, full}};
    EXPECT_EQ(PluginHelper::checkFaceMeshForBody({{}, 0, 40, 0}), 2U);
}

TEST(PartMeshEA, SumsUpTheBodiesOfAPart)
{
    using enum PartMeshEA::PartMesh;
    constexpr int kSheet = 8, kPoint = 10;
    MeshScope scope;
    auto const full = makeMesh(2, {1});
    auto& geometry = *scope.geometry;
    auto const body = [&](int number, int entityClass) {
        auto const made = KFR::make<MeshedGeometry>();
        made->number = number;
        geometry.classes[number] = entityClass;
        return Persistent(made);
    };
    Persistent const sheet = body(1, kSheet), bare = body(2, kSheet), point = body(3, kPoint);
    auto const pure = KFR::make<MemoryMeshBody>();
    geometry.children[{1, 18}] = {11, 12};
    geometry.meshes = geometry.subMeshes = {{1, full}, {11, full}, {12, full}};
    auto const state = [&](CAE::IPersistentObjectSequence const& bodies) {
        scope.part->bodies = bodies;
        return PartMeshEA::getPartMeshState(scope.part);
    };
    EXPECT_EQ(PartMeshEA::getPartMeshState({}), none);
    EXPECT_EQ(state({}), none);
    EXPECT_EQ(state({bare, pure, point}), none);
    EXPECT_EQ(state({sheet, point}), fully);
    EXPECT_EQ(state({sheet, bare}), partly);
    EXPECT_EQ(state({sheet, pure}), partly);
    pure->meshes = CAE::IMeshSequence{full};
    EXPECT_EQ(state({sheet, pure}), fully);
    geometry.subMeshes.erase(12);  // no elements on a face
    EXPECT_EQ(state({sheet}), partly);
    geometry.meshes.erase(12);
    EXPECT_EQ(state({sheet}), partly);
}

TEST(MeshQueries, AreEmptyWithoutAnyService)
{
    SelectionScope scope;
    KFRDouble3DPoint a, b;
    KFRDouble3DPointSequence as, bs;
    KFRInt64SequenceSequence lists;
    LongIds ids;
    LongId id = 0;
    Ref none;
    Refs nodes;
    Mesh mesh;
    bool closed = true;
    std::vector<std::string> types{"", "BODY", "Simulation.FEM.Node"};
    types.insert(types.end(), std::begin(kElementTypes), std::end(kElementTypes));
    KFRIService const services[] = {{}, KFR::make<Stranger>(), KFR::make<MeshedPart>()};
    for (KFRIService const& service : services) {
        for (std::string const& type : types) {
            SCOPED_TRACE(type);
            bool const isNode = type == "Simulation.FEM.Node";
            Ref const ref{service, type.empty() ? 0 : scope.idOf(type), 1, 1};
            MeshHelper::getElemLocNormal(ref, a, b);
            MeshHelper::getElemFaceLocNormal(ref, a, b);
            MeshHelper::getNodes({isNode ? Ref() : ref}, nodes);
            PluginHelper::getMeshByElement(ref, mesh);
            EXPECT_FALSE(MeshHelper::getDistributedPointsOnExistMesh(ref, as, bs, lists));
            EXPECT_FALSE(MeshHelper::getNodeFromAcornBody(ref, none).isOk());
            EXPECT_FALSE(MeshHelper::isConnectedNode(ref));
            EXPECT_THAT(PluginHelper::getMeshPart(ref), IsNullHandle());
            EXPECT_THAT(PluginHelper::getMeshBody(ref), IsNullHandle());
            EXPECT_THAT(PluginHelper::getMeshForGeometry(ref), IsNullHandle());
            EXPECT_THAT(PluginHelper::getMeshRelatedGeometry(ref), IsNullHandle());
            EXPECT_EQ(PluginHelper::getFaceByElement(ref), Ref());
            EXPECT_EQ(PluginHelper::getNodeLocation(ref), KFRDouble3DPoint());
            EXPECT_EQ(PluginHelper::checkFaceMeshForBody(ref), 0U);
        }
    }
    MeshHelper::getNodesByGeometryId(1, ids);
    EXPECT_FALSE(MeshHelper::getNodeByGeometryId(1, none).isOk());
    EXPECT_FALSE(MeshHelper::getNextAvailableNodeId(id).isOk());
    EXPECT_FALSE(MeshHelper::getNextAvailableNodeId({}, id).isOk());
    EXPECT_FALSE(MeshHelper::getNextAvailableNodeId({}, 3, id).isOk());
    EXPECT_TRUE(!MeshHelper::isDeleted({}) && MeshHelper::isNullOrDeleted({}));
    EXPECT_TRUE(PluginHelper::getValidMeshBodySequence({}).empty());
    EXPECT_TRUE(PluginHelper::getValidMeshesofPart(KFR::make<MeshedPart>()).empty());
    EXPECT_EQ(PluginHelper::getValidGeomBodyNumber({}), 0U);
    MeshBodyEA const body;
    EXPECT_FALSE(body.has2DMesh() || body.isPureMesh() || body.getValidContinuousMesh(2, mesh));
    EXPECT_TRUE(body.getElementIds().empty() && body.getDimensionalities() == 0);
    EXPECT_THAT(body.getContinuousMesh(2), IsNullHandle());
    FEMeshEA const feMesh;
    EXPECT_FALSE(feMesh.isOrphan() || feMesh.isVisible() || feMesh.getOrderedNodeIds(ids, closed));
    EXPECT_FALSE(closed);
    EXPECT_THAT(feMesh.getMeshBody(), IsNullHandle());
    EXPECT_THAT(feMesh.getIEntity(), IsNullHandle());
    EXPECT_TRUE(as.empty() && bs.empty() && lists.empty() && ids.empty() && nodes.empty());
    EXPECT_EQ(std::tuple(a, b, id, none),
              std::tuple(KFRDouble3DPoint(), KFRDouble3DPoint(), 0U, Ref()));
    EXPECT_THAT(mesh, IsNullHandle());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
