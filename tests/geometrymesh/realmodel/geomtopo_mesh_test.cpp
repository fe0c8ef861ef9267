// What GeomTopo says of meshes that the mesher has made on geometry.

#include "host/geometry/geometryimport.h"
#include "host/meshing/remesh.h"
#include "platform/fem/componentaccess.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/geometrymesh/partmeshea.h"
#include "tests/geometrymesh/realmodel/realmodel.h"

#include <algorithm>
#include <set>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

using OnMeshes = RealModel;
using OnRealMeshes = RealAssembly;

/// What holds of an entity; two words where operations that say the same differ.
std::string describe(GeomTopo const& topo)
{
    std::string text;
    text += topo.hasMesh() ? " own" : "";
    text += topo.hasMesh() == (topo.getMesh() != KFR::NULLSP) ? "" : " DIFFERS";
    text += topo.isMeshed() ? " meshed" : "";
    text += topo.isMeshed() == !topo.getNodes().empty() ? "" : " DIFFERS";
    text += topo.isFullMeshed() ? " full" : "";
    text += topo.get1DConMesh() != KFR::NULLSP ? " 1D" : "";
    text += topo.has2DMesh() ? " 2D" : "";
    text += topo.has3DMesh() ? " 3D" : "";
    return text;
}

TEST_F(OnMeshes, TellElementsOnAnEntityFromNodesOfWhatItBounds)
{
    using enum PartMeshEA::PartMesh;
    BRep_Builder builder;
    TopoDS_Compound solidAndPoint;
    builder.MakeCompound(solidAndPoint);
    builder.Add(solidAndPoint, cube());
    builder.Add(solidAndPoint, pointBody());
    struct Row {
        char const* name;
        TopoDS_Shape shape;
        int dimension;
        bool withFaces;
        EntityClass lower;  // what is asked beside the body
        char const* bare;   // the body before it is meshed
        char const* body;
        char const* ofLower;
        PartMeshEA::PartMesh state;
    } const rows[] = {
        {"solid", cylinder(), 3, false, EntityClass::face, "", " own meshed full 3D", " meshed",
         fully},
        {"volume", cylinder(), 3, false, EntityClass::volume, "", " own meshed full 3D",
         " own meshed full 3D", fully},
        {"with faces", cylinder(), 3, true, EntityClass::face, "", " own meshed full 2D 3D",
         " own meshed full 2D", fully},
        {"shells", cylinder(), 2, false, EntityClass::volume, "", " own meshed 2D", "", partly},
        {"sheet", sheet(), 3, false, EntityClass::face, "", " own meshed full 2D",
         " own meshed full 2D", fully},
        {"edge of a sheet", sheet(), 3, false, EntityClass::edge, "", " own meshed full 2D",
         " meshed", fully},
        // Neither volumes nor faces: none lacks a mesh.
        {"wire", wire(), 3, false, EntityClass::edge, " full", " own meshed full 1D",
         " own meshed full 1D", fully},
        {"point", pointBody(), 3, false, EntityClass::vertex, " full", " full", "", none},
        // A general body counts as 2D, so that the state asks for its faces as well.
        {"two volumes", twoVolumes(), 3, false, EntityClass::volume, "", " own meshed full 3D",
         " own meshed full 3D", partly},
        // There is nothing of a point to mesh.
        {"solid and point", solidAndPoint, 3, false, EntityClass::face, "", " own meshed full 3D",
         " meshed", fully},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.name);
        open({{row.shape}});
        EXPECT_EQ(describe(body()), row.bare);
        EXPECT_EQ(PartMeshEA::getPartMeshState(model().parts()[0]), none);
        MeshRequest request;
        request.m_options.m_size = 5.0;
        request.m_options.m_dimension = row.dimension;
        request.m_options.m_meshFaces = row.withFaces;
        static_cast<void>(mesh(request));
        EXPECT_EQ(describe(body()), row.body);
        EXPECT_EQ(PartMeshEA::getPartMeshState(model().parts()[0]), row.state);
        for (GeomTopo const& lower : all(row.lower)) {
            EXPECT_EQ(describe(lower), row.ofLower);
            EXPECT_EQ(lower.getElementIds().empty(), !lower.hasMesh());
            EXPECT_EQ(lower.getSubMesh() == KFR::NULLSP, !lower.hasMesh());
            EXPECT_EQ(lower.getIMeshBody(), body().getIMeshBody());
        }
    }
}

TEST_F(OnMeshes, ABodyIsNotFullWithoutOneOfItsVolumes)
{
    open({{twoVolumes()}});
    static_cast<void>(mesh(5.0));
    auto const kept = host::meshing::meshPartOf(*model().parts()[0])->tables();
    auto content = kept->store().content();
    std::vector<host::meshing::ExternalId> ids;
    std::vector<host::meshing::MeshStore::Row> rows;
    for (std::size_t i = 0; i < content.m_rows.size(); ++i) {
        if (content.m_rows[i].m_group == 0) {
            rows.push_back(content.m_rows[i]);
            ids.push_back(content.m_elements.ids()[i]);
        }
    }
    content.m_rows = rows;
    content.m_elements = host::meshing::Numbering(ids);
    content.m_entities.clear();  // their elements have other numbers now
    static_cast<void>(host::meshing::installMesh(
        model().parts()[0], std::make_shared<host::meshing::MeshStore const>(std::move(content)),
        host::meshing::MeshTypes(session().kernel().typeRegistry()), nullptr));
    EXPECT_TRUE(body().hasMesh());
    EXPECT_FALSE(body().isFullMeshed());
    EXPECT_THAT((std::multiset{all(EntityClass::volume)[0].isFullMeshed(),
                               all(EntityClass::volume)[1].isFullMeshed()}),
                ElementsAre(false, true));
}

TEST_F(OnMeshes, AFaceWithoutItsOwnRefersToTheMeshesOfItsBody)
{
    open({{cylinder()}, {wire()}});
    GeomTopo const face = all(EntityClass::face)[0];
    EXPECT_THAT(face.getAllGeometryRefMesh(), IsEmpty());
    static_cast<void>(mesh(4.0));
    CAE::IMeshSequence const ofBody = body().getIGeometryRefMesh();
    EXPECT_THAT(ofBody, SizeIs(1));
    EXPECT_EQ(face.getAllGeometryRefMesh(), ofBody);
    EXPECT_THAT(face.getIGeometryRefMesh(), IsEmpty());
    EXPECT_THAT(all(EntityClass::edge)[0].getAllGeometryRefMesh(), IsEmpty());
    EXPECT_EQ(face.getAuxMeshes(), ofBody);
    EXPECT_EQ(body().getAuxMeshes(), (CAE::IMeshSequence{ofBody[0], ofBody[0], ofBody[0]}))
        << "once for each of its faces";
    EXPECT_THAT(body(1).getAuxMeshes(), SizeIs(2)) << "of the edges of a wire";

    static_cast<void>(mesh(4.0, 1, true));
    CAE::IMeshSequence ofFaces;
    for (GeomTopo const& one : all(EntityClass::face)) {
        EXPECT_THAT(one.getAllGeometryRefMesh(), SizeIs(1));
        EXPECT_EQ(one.getAllGeometryRefMesh(), one.getIGeometryRefMesh());
        ofFaces.append(one.getAllGeometryRefMesh());
    }
    EXPECT_EQ(body().getAuxMeshes(), ofFaces);
    EXPECT_FALSE(std::as_const(ofFaces)[0] == std::as_const(ofFaces)[1]);
}

TEST_F(OnMeshes, BelongToTheModelOfTheirGeometry)
{
    open({{cube()}});
    static_cast<void>(mesh(5.0));
    GeomTopo const before = body();
    auto first = take();
    open({{cube()}});
    EXPECT_LT(static_cast<int>(first->geometry().m_entities.back().m_number), body().getVTKId());
    EXPECT_TRUE(before.isFullMeshed() && !body().hasMesh());
    static_cast<void>(mesh(2.5));
    EXPECT_GT(body().getElementIds().size(), before.getElementIds().size());
    first.reset();
    EXPECT_TRUE(!before.isValidInGSC() && !before.hasMesh() && body().isFullMeshed());
}

TEST_F(OnMeshes, ListsAnEntityWithWhatIsBelowItByNumber)
{
    open({{cylinder()}});
    auto const listed = [](GeomTopo const& topo) {
        Topos topos;
        auto const geometries = topo.getAuxGeometries();
        for (auto const& geometry : geometries) {
            topos.emplace_back(KFR::loose_cast<CAE::IGeometryInterface>(geometry));
        }
        return topos;
    };
    auto const joined = [](Topos topos, Topos const& more) {
        topos.insert(topos.end(), more.begin(), more.end());
        std::sort(topos.begin(), topos.end());
        return topos;
    };
    using enum EntityClass;
    // A body leaves out its volumes, a face its vertices.
    EXPECT_EQ(listed(body()), joined(joined({body()}, all(face)), joined(all(edge), all(vertex))));
    EXPECT_THAT(listed(body()), SizeIs(1 + 3 + 3 + 2));
    for (GeomTopo const& one : all(face)) {
        EXPECT_EQ(listed(one), joined({one}, one.getChildEdges()));
    }
    for (GeomTopo const& one : all(edge)) {
        EXPECT_EQ(listed(one), joined({one}, one.getChildVertices()));
    }
    EXPECT_EQ(listed(all(volume)[0]), all(volume));
    EXPECT_THAT(listed(all(vertex)[0]), ElementsAre(all(vertex)[0]));
}

/// Nodes on the faces of a part lie there, and what solids show there looks out as the face does.
/// \return how many faces of elements that were
std::size_t compareFaces(host::model::Model const& model, std::size_t part, Topos const& faces,
                         double distance, double leastCosine)
{
    auto const access = KFR::strict_cast<fem::KFRICompAccess>(ServiceHelper::getFEMCompAccess());
    KFRSmartPointer<fem::KFRIFEMeshWrapper> wrapper;
    EXPECT_TRUE(access->getFEMeshWrapper(wrapper).isOk());
    auto const meshPart = MeshHelper::getMeshPart(model.parts()[part]);
    std::size_t count = 0;
    for (GeomTopo const& face : faces) {
        SCOPED_TRACE(face.getVTKId());
        CAE::INodeSequence const nodes = face.getNodes();
        for (auto const& node : nodes) {
            Point location, onFace;
            EXPECT_TRUE(node->getLocation(location).isOk());
            EXPECT_TRUE(face.getProjectPoint(location, onFace));
            EXPECT_THAT(location, IsWithin(distance, onFace));
        }
        Ids elements;
        KFRSequence<int> numbers;
        EXPECT_TRUE(wrapper->getElementFaces(face.getVTKId(), elements, numbers).isOk());
        count += elements.size();
        for (std::size_t i = 0; i < elements.size(); ++i) {
            Point centre, normal, expected;
            EXPECT_TRUE(MeshHelper::getElemFaceLocNormal(meshPart, std::as_const(elements)[i],
                                                         std::as_const(numbers)[i], centre, normal)
                            .isOk());
            EXPECT_TRUE(face.getNormal(centre, expected));
            EXPECT_GT(dot(normal, expected) / std::sqrt(dot(normal, normal)), leastCosine);
        }
    }
    return count;
}

TEST_F(OnMeshes, NodesLieOnTheirFacesAndElementsLookOutThere)
{
    for (int const order : {1, 2}) {
        SCOPED_TRACE(order);
        open({{cube()}, {cylinder()}});
        static_cast<void>(mesh(3.0, order));
        EXPECT_GT(compareFaces(model(), 0, all(EntityClass::face, 0), 1e-9, 1 - 1e-9), 100U);
        EXPECT_GT(compareFaces(model(), 1, all(EntityClass::face, 1), 1e-6, 0.9), 100U);
    }
}

TEST_F(OnRealMeshes, NodesLieOnTheirFacesAndElementsLookOutThere)
{
    open(host::geometry::importGeometry(sharedFile("step", "as1-tu-203.stp")));
    MeshRequest request;
    for (std::size_t part = 0; part < model().parts().size(); ++part) {
        request.m_partSizes[part] = model().geometry().m_parts[part].m_box.diagonal() / 8;
    }
    request.m_options.m_size = 1000.0;
    for (auto const& report : mesh(request)) {
        SCOPED_TRACE(report.m_part);
        EXPECT_THAT(report.m_failures, IsEmpty());
        EXPECT_EQ(PartMeshEA::getPartMeshState(model().parts()[report.m_part]),
                  PartMeshEA::PartMesh::fully);
        EXPECT_GT(
            compareFaces(model(), report.m_part, all(EntityClass::face, report.m_part), 1e-6, 0.8),
            100U);
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
