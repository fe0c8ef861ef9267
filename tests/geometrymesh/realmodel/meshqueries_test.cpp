// What PluginHelper and MeshHelper find out about meshes that the mesher has made, by references as
// picks have them: an instance and a local number.

#include "host/meshing/remesh.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshbodyea.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "tests/geometrymesh/realmodel/realmodel.h"

#include <algorithm>
#include <optional>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using Ref = CAE::EntityReference;
using PersistentObject = KFRSmartPointer<CAE::IPersistentObjectInterface>;

constexpr unsigned long long kFirstId = 5'000'000'001;
constexpr char const* kNode = "Simulation.FEM.Node";
constexpr char const* kElement1D = "FEM.Simulation.1DElement";
constexpr char const* kElement2D = "FEM.Simulation.2DElement";
constexpr char const* kElement3D = "FEM.Simulation.3DElement";
constexpr char const* kElementFace = "FEM.Simulation.ElementFace";
constexpr char const* kPlainElement = "Simulation.FEM.Element";

/// Two cubes of one part, and a cube of another.
class MeshQueries : public RealModel {
protected:
    MeshQueries()
    {
        BRep_Builder builder;
        TopoDS_Compound pair;
        builder.MakeCompound(pair);
        builder.Add(pair, cube());
        builder.Add(pair, cube(20));
        open({{pair}, {cube()}});
    }
    void meshAll(double size, bool withFaces)
    {
        MeshRequest request;
        request.m_options.m_size = size;
        request.m_options.m_meshFaces = withFaces;
        request.m_options.m_firstNodeId = kFirstId;
        request.m_options.m_firstElementId = kFirstId;
        for (auto const& report : mesh(request)) {
            EXPECT_GT(report.m_elements, 0U);
        }
    }
    [[nodiscard]] Ref ref(char const* type, unsigned number, unsigned subId = 0,
                          std::size_t part = 0) const
    {
        return {instance(part), EntityTypeID(type).typeID(), number, subId};
    }
    [[nodiscard]] host::meshing::MeshPart& meshPart(std::size_t part = 0) const
    {
        return *host::meshing::meshPartOf(*model().parts()[part]);
    }
    [[nodiscard]] host::meshing::MeshStore const& store(std::size_t part = 0) const
    {
        return meshPart(part).tables()->store();
    }
    /// Local number of the first element on an entity.
    [[nodiscard]] unsigned elementOn(GeomTopo const& topo) const
    {
        Ids const ids = topo.getElementIds();
        return store().elements().numberOf(static_cast<host::meshing::ExternalId>(ids[0]));
    }
    [[nodiscard]] PersistentObject object(GeomTopo const& topo) const
    {
        return KFR::loose_cast<CAE::IPersistentObjectInterface>(topo.getIGeometry());
    }
};

TEST_F(MeshQueries, LeadFromNodesAndElementsToTheirMeshBodiesMeshesAndGeometry)
{
    meshAll(5.0, true);
    Topos const bodies = all(EntityClass::solidBody);
    for (GeomTopo const& topo : bodies) {
        GeomTopo const volume = topo.getChildRegions()[0];
        GeomTopo const face = topo.getChildFaces()[3];
        unsigned const solid = elementOn(volume);
        unsigned const shell = elementOn(face);
        unsigned const node = store().nodesOf(shell)[0];
        struct {
            char const* type;
            unsigned number;
            int dimension;  // of the mesh that is found; -1 for none
            GeomTopo geometry;
        } const rows[] = {
            {kNode, node, -1, {}},
            {kElement2D, shell, 2, face},
            {kElement3D, solid, 3, volume},
            {kElementFace, solid, 3, volume},
            {kPlainElement, shell, -1, face},
        };
        for (auto const& [type, number, dimension, geometry] : rows) {
            SCOPED_TRACE(type);
            Ref const reference = ref(type, number);
            auto const meshBody = PluginHelper::getMeshBody(reference);
            EXPECT_EQ(GeomTopo(MeshBodyEA(meshBody).getIGeomBody()), topo);
            EXPECT_EQ(meshBody, topo.getIMeshBody());
            KFRSmartPointer<CAE::IMeshInterface> found;
            PluginHelper::getMeshByElement(reference, found);
            unsigned char own = 255;
            EXPECT_EQ(found != KFR::NULLSP && found->getDimension(own).isOk() ? own : -1,
                      dimension);
            EXPECT_EQ(GeomTopo(PluginHelper::getMeshRelatedGeometry(reference)), geometry);
            Ref const pickedFace = PluginHelper::getFaceByElement(reference);
            EXPECT_EQ(GeomTopo(static_cast<int>(pickedFace.id)),
                      type == kElement2D ? face : GeomTopo());
        }
        EXPECT_EQ(PluginHelper::getFaceByElement(ref(kElement2D, shell)).service, instance());
    }
    for (char const* const type : {kNode, kElement1D, kElement3D, kElementFace, kPlainElement}) {
        EXPECT_EQ(PluginHelper::getMeshBody(ref(type, 99999)), KFR::NULLSP) << type;
        EXPECT_EQ(PluginHelper::getMeshBody({{}, ref(type, 1).typeId, 1, 0}), KFR::NULLSP) << type;
    }
}

TEST_F(MeshQueries, LeadFromGeometryToMeshesOnlyWhereItHasElements)
{
    GeomTopo const face = all(EntityClass::face)[0];
    auto const& part = model().parts()[0];
    auto const reference = [&](GeomTopo const& topo) {
        return PluginHelper::getDisplayEnityReference(topo.getIGeometry());
    };
    for (EntityClass const kind : {EntityClass::solidBody, EntityClass::volume, EntityClass::face,
                                   EntityClass::edge, EntityClass::vertex}) {
        for (GeomTopo const& topo : all(kind)) {
            Ref const display = reference(topo);
            EXPECT_EQ(GeomTopo(static_cast<int>(display.id)), topo);
            EXPECT_EQ(display.service, instance());
            EXPECT_EQ(display.typeId, topo.getTypeId());
        }
    }
    struct {
        bool isMeshed, withFaces;
        unsigned faces, bodies;
        std::size_t meshes;
    } const rows[] = {{false, false, 0, 0, 0}, {true, false, 0, 2, 2}, {true, true, 6, 2, 4}};
    for (auto const& row : rows) {
        SCOPED_TRACE(row.meshes);
        if (row.isMeshed) {
            meshAll(5.0, row.withFaces);
        }
        EXPECT_EQ(PluginHelper::checkFaceMeshForBody(reference(body())), row.faces);
        EXPECT_EQ(PluginHelper::getValidMeshBodyNumber(part), row.bodies);
        EXPECT_THAT(PluginHelper::getValidMeshBodySequence(part), SizeIs(row.bodies));
        EXPECT_THAT(PluginHelper::getValidMeshesofPart(part), SizeIs(row.meshes));
        EXPECT_EQ(PluginHelper::getValidGeomBodyNumber(part), 2U);
        EXPECT_EQ(PluginHelper::getMeshForGeometry(reference(body())), body().getIMeshBody());
        EXPECT_EQ(PluginHelper::getMeshForGeometry(object(face)), face.getSubMesh());
        EXPECT_EQ(PluginHelper::getMeshForGeometry(reference(face)), face.getSubMesh());
        EXPECT_EQ(PluginHelper::isSurfaceMesh(PluginHelper::getMeshForGeometry(object(face))),
                  row.withFaces);
        EXPECT_FALSE(PluginHelper::isSurfaceMesh(
            PluginHelper::getMeshForGeometry(object(all(EntityClass::volume)[0]))));
        KFRDouble3DPointSequence points{kUnset}, normals{kUnset};
        EXPECT_EQ(MeshHelper::getDistributedPointsOnExistMesh(reference(face), points, normals),
                  row.withFaces);
        EXPECT_EQ(points.size(), face.getElementIds().size());
        ASSERT_EQ(normals.size(), points.size());
        for (std::size_t i = 0; i < points.size(); ++i) {
            Point onFace, normal;
            EXPECT_TRUE(face.getProjectPoint(points.at(i), onFace));
            EXPECT_TRUE(face.getNormal(onFace, normal));
            EXPECT_THAT(points.at(i), IsWithin(1e-9, onFace));
            EXPECT_THAT(normals.at(i), IsWithin(1e-9, normal));
        }
    }
}

TEST_F(MeshQueries, FreeNodeIdsAreAboveThoseOfTheModelAndOfTheInstance)
{
    unsigned long long id = 7;
    EXPECT_TRUE(MeshHelper::getNextAvailableNodeId(id).isOk());
    EXPECT_EQ(id, 1U) << "nothing is meshed";
    meshAll(5.0, false);
    auto const count = [this](std::size_t part) {
        return static_cast<unsigned long long>(store(part).nodes().size());
    };
    EXPECT_TRUE(MeshHelper::getNextAvailableNodeId(id).isOk());
    EXPECT_EQ(id, kFirstId + count(0) + count(1));
    auto const placed = KFR::strict_cast<KFR::EOM::IEOMInstanceInterface>(instance(0));
    struct {
        std::optional<unsigned long long> wanted;
        unsigned long long expected;
    } const rows[] = {{{}, kFirstId + count(0)},
                      {17, 17},
                      {kFirstId + 3, kFirstId + count(0)},
                      {kFirstId + count(0) + 5, kFirstId + count(0) + 5},
                      {0, kFirstId + count(0)}};
    for (auto const& [wanted, expected] : rows) {
        KFRResult const result = wanted ? MeshHelper::getNextAvailableNodeId(placed, *wanted, id)
                                        : MeshHelper::getNextAvailableNodeId(placed, id);
        EXPECT_TRUE(result.isOk());
        EXPECT_EQ(id, expected);
    }
}

TEST_F(MeshQueries, NodesOfGeometryAreThoseThatStandThere)
{
    meshAll(5.0, false);
    for (GeomTopo const& vertex : all(EntityClass::vertex)) {
        Point corner;
        Ref node;
        EXPECT_TRUE(vertex.getPointOfVertex(corner));
        EXPECT_TRUE(MeshHelper::getNodeByGeometryId(vertex.getVTKId(), node).isOk());
        EXPECT_EQ(node, ref(kNode, node.id));
        EXPECT_THAT(PluginHelper::getNodeLocation(node), IsWithin(1e-9, corner));
        EXPECT_TRUE(MeshHelper::isConnectedNode(node));
        Ids ids;
        MeshHelper::getNodesByGeometryId(vertex.getVTKId(), ids);
        EXPECT_THAT(ids,
                    ElementsAre(static_cast<unsigned long long>(store().nodes().idOf(node.id))));
    }
    GeomTopo const face = all(EntityClass::face)[0];
    Ids ids;
    MeshHelper::getNodesByGeometryId(face.getVTKId(), ids);
    CAE::EntityReferenceSequence nodes;
    MeshHelper::getNodes(
        {ref(kElement3D, 1), PluginHelper::getDisplayEnityReference(face.getIGeometry()),
         ref(kElement3D, 1)},
        nodes);
    EXPECT_GE(nodes.size(), ids.size() + 1);
    EXPECT_LE(nodes.size(), ids.size() + 4);
    for (unsigned const number : store().nodesOf(1)) {
        EXPECT_EQ(std::count(nodes.begin(), nodes.end(), ref(kNode, number)), 1);
    }
}

TEST_F(MeshQueries, FacesOfElementsAreFoundByTheLowByteThroughAnInstance)
{
    meshAll(5.0, false);
    for (unsigned face = 0; face < 4; ++face) {
        Point byReference, normal, byId, sameNormal;
        KFRSequence<long long> nodeIds;
        MeshHelper::getElemFaceLocNormal(ref(kElementFace, 1, 0xAB00 + face), byReference, normal);
        auto const id = static_cast<unsigned long long>(store().elements().idOf(1));
        EXPECT_TRUE(MeshHelper::getElemFaceLocNormal(PluginHelper::getMeshPart(ref(kNode, 1)), id,
                                                     static_cast<int>(face), byId, sameNormal,
                                                     nodeIds)
                        .isOk());
        EXPECT_THAT(nodeIds, SizeIs(3));
        EXPECT_TRUE(byReference == byId && normal == sameNormal);
        Point centre, unused;
        MeshHelper::getElemLocNormal(ref(kElement3D, 1), centre, unused);
        EXPECT_GT(dot(normal, {byId.x - centre.x, byId.y - centre.y, byId.z - centre.z}), 0.0)
            << "out of the element";
    }
}

TEST_F(MeshQueries, OfOldIdsThoseAreValidThatTheNewMeshHas)
{
    meshAll(2.5, false);
    auto const meshBody = body().getIMeshBody();
    Ids elements, nodes;
    EXPECT_TRUE(meshBody->getElementIds(elements).isOk());
    EXPECT_TRUE(meshBody->getNodeIds(nodes).isOk());
    std::reverse(elements.begin(), elements.end());
    meshAll(5.0, false);
    Ids newElements, newNodes;
    EXPECT_TRUE(meshBody->getElementIds(newElements).isOk());
    EXPECT_TRUE(meshBody->getNodeIds(newNodes).isOk());
    ASSERT_LT(newElements.size(), elements.size());
    auto const kept = KFR::strict_cast<KFR::EOM::IEOMMeshBodyInterface>(meshBody);
    auto const valid = [](Ids const& ids, Ids const& known) {
        Ids expected;
        for (unsigned long long const id : ids) {
            if (std::count(known.begin(), known.end(), id) > 0) {
                expected.append(id);
            }
        }
        return expected;
    };
    EXPECT_EQ(PluginHelper::getValidElements(kept, elements), valid(elements, newElements));
    EXPECT_EQ(PluginHelper::getValidNodes(kept, nodes), valid(nodes, newNodes));
    EXPECT_FALSE(valid(elements, newElements).empty());
    EXPECT_THAT(PluginHelper::getValidNodes(kept, {1, 2}), IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
