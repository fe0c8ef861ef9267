#include "host/meshing/meshtesting.h"

#include "host/kernel/typeregistry.h"
#include "host/meshing/fementities.h"
#include "host/meshing/meshedpart.h"

#include <gmock/gmock.h>

#include <memory>
#include <vector>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::ElementsAre;

/// Six nodes, a line, a triangle, a quadrilateral, a tetrahedron, a mass; ids from 40 downwards.
constexpr char const* kMixed =
    "*NODE\n11,0,0\n12,1,0\n13,1,1\n14,0,1\n15,0,0,1\n16,2,0\n"
    "*ELEMENT,TYPE=MASS\n40,16\n*ELEMENT,TYPE=B31\n39,12,16\n*ELEMENT,TYPE=S3\n38,11,12,13\n"
    "*ELEMENT,TYPE=S4\n37,11,12,13,14\n*ELEMENT,TYPE=C3D4\n36,11,12,13,15\n";

class MeshObjects : public WithMeshFolder {
protected:
    MeshObjects()
    {
        m_loaded = loadMesh(write("mixed.inp", kMixed), *m_registry, nullptr, &*m_manager);
        m_part = m_loaded.m_parts.at(0);
        m_body = m_part->meshBody();
    }

    [[nodiscard]] std::string typeNameOf(CAE::EntityReference const& reference)
    {
        std::string name;
        return m_registry->getTypeName(reference.typeId).toUTF8String(name);
    }
    [[nodiscard]] CAE::IMeshSequence meshesOf(icu::UnicodeString const& type)
    {
        CAE::IMeshSequence meshes;
        m_body->getMeshes(m_registry->getTypeId(type), meshes);
        return meshes;
    }

    KFRSmartPointer<kernel::TypeRegistry> m_registry = KFR::make<kernel::TypeRegistry>(7U);
    KFRSmartPointer<model::RootManager> m_manager = KFR::make<model::RootManager>(nullptr);
    LoadedMesh m_loaded;
    KFRSmartPointer<MeshedPart> m_part;
    KFRSmartPointer<MeshBody> m_body;
};

TEST_F(MeshObjects, FindElementsByIdAndByNumber)
{
    struct Row {
        LocalNumber m_number;
        int m_nodes;
        int m_shape;      // -1 for a failure
        int m_dimension;  // 0 for a failure
        char const* m_type;
    };
    for (Row const& row :
         {Row{1, 1, -1, 0, ""}, Row{2, 2, 0, 1, "FEM.Simulation.1DElement"},
          Row{3, 3, 1, 2, "FEM.Simulation.2DElement"}, Row{4, 4, 2, 2, "FEM.Simulation.2DElement"},
          Row{5, 4, 3, 3, "FEM.Simulation.3DElement"}}) {
        SCOPED_TRACE(row.m_number);
        for (bool const byId : {true, false}) {
            KFRSmartPointer<CAE::IElementInterface> element;
            ASSERT_TRUE(
                m_body->getElement(byId ? 41 - row.m_number : row.m_number, element, byId).isOk());
            unsigned long long id = 0;
            int number = 0;
            int nodes = 0;
            int shape = -1;
            KFRSmartPointer<CAE::IMeshInterface> mesh;
            unsigned char dimension = 0;
            EXPECT_TRUE(element->getId(id).isOk());
            EXPECT_TRUE(element->getNumber(number).isOk());
            EXPECT_TRUE(element->getNodeCount(nodes).isOk());
            EXPECT_EQ(element->getShape(shape).isOk(), row.m_shape >= 0);
            if (element->getMesh(mesh).isOk()) {
                mesh->getDimension(dimension);
            }
            EXPECT_EQ(id, 41 - row.m_number);
            EXPECT_EQ(number, static_cast<int>(row.m_number));
            EXPECT_EQ(nodes, row.m_nodes);
            EXPECT_EQ(shape, row.m_shape);
            EXPECT_EQ(dimension, row.m_dimension);
        }
        CAE::EntityReference const reference = m_part->elementReference(row.m_number);
        EXPECT_EQ(typeNameOf(reference), row.m_type);
        EXPECT_EQ(reference.id, row.m_shape < 0 ? 0 : row.m_number);
        EXPECT_EQ(reference.service == m_part, row.m_shape >= 0);
    }
    KFRSmartPointer<CAE::IElementInterface> none;
    for (unsigned long long const id : {0ULL, 6ULL, 41ULL, ~0ULL}) {
        EXPECT_EQ(m_body->getElement(id, none, true).getCode(), kNoElement) << id;
        EXPECT_EQ(m_body->getElement(id, none, false).getCode(), kNoElement) << id;
    }
    EXPECT_EQ(none, KFR::NULLSP);
    EXPECT_EQ(m_part->elementReference(6), CAE::EntityReference());
}

TEST_F(MeshObjects, GiveTheMeshesOfATypeByAscendingDimension)
{
    std::vector<std::string> types;
    for (auto const& mesh : meshesOf(u"Simulation.FEM.ContinuousMesh")) {
        CAE::EntityReference const reference =
            KFR::strict_cast<appfw::IEntityInterface>(mesh)->getEntityReference();
        EXPECT_EQ(reference.service, KFRIService(m_part));
        EXPECT_EQ(m_manager->getEntity(reference), mesh);
        KFRSmartPointer<CAE::IMeshBodyInterface> body;
        EXPECT_TRUE(mesh->getMeshBody(body).isOk());
        EXPECT_EQ(body, m_body);
        types.push_back(typeNameOf(reference));
    }
    EXPECT_THAT(types,
                ElementsAre("FEM.Simulation.1DContinuousMesh", "FEM.Simulation.2DContinuousMesh",
                            "FEM.Simulation.3DContinuousMesh"));
    ASSERT_EQ(meshesOf(u"FEM.Simulation.2DContinuousMesh").size(), 1U);
    EXPECT_EQ(meshesOf(u"FEM.Simulation.2DContinuousMesh")[0], m_body->meshOf(2));
    EXPECT_EQ(m_body->meshOf(2)->elementCount(), 2U);
    EXPECT_TRUE(meshesOf(u"FEM.Simulation.0DContinuousMesh").empty());
    CAE::IMeshSequence untouched{m_body->meshOf(1)};
    EXPECT_EQ(m_body->getMeshes(0, untouched).getCode(), kNoMesh);
    EXPECT_EQ(untouched.size(), 1U);
}

TEST_F(MeshObjects, KnowEachOtherAndAreKnown)
{
    EXPECT_EQ(m_body->persistentName(), "mixed/mesh/mixed");
    EXPECT_EQ(typeNameOf(m_body->getEntityReference()), "Simulation.MeshBody");
    KFRSmartPointer<CAE::IPersistentObjectInterface> parent;
    ASSERT_TRUE(m_body->getParent(parent).isOk());
    EXPECT_EQ(parent, m_part);

    CAE::IInstanceSequence instances;
    ASSERT_TRUE(m_part->getInstances(instances).isOk());
    ASSERT_EQ(instances.size(), 1U);
    KFRSmartPointer<CAE::IPersistentObjectInterface> placed;
    EXPECT_TRUE(instances[0]->getReferenceObject(placed).isOk());
    EXPECT_EQ(placed, m_part);
    EXPECT_EQ(KFR::loose_cast<CAE::IMeshBodyInterface>(instances[0]), KFR::NULLSP);
    EXPECT_EQ(KFR::loose_cast<CAE::IMeshInterface>(instances[0]), KFR::NULLSP);
    EXPECT_EQ(KFR::loose_cast<CAE::IPartInterface>(instances[0]), KFR::NULLSP);
    CAE::EntityReference const reference =
        KFR::strict_cast<appfw::IEntityInterface>(instances[0])->getEntityReference();
    EXPECT_EQ(typeNameOf(reference), "Simulation.PartInstance");
    EXPECT_EQ(reference.service, KFRIService(instances[0]));

    // Part, mesh part, body, three meshes with a sub-mesh each, instance.
    EXPECT_EQ(m_manager->entities().size(), 10U);
    for (auto const& entity : m_manager->entities()) {
        EXPECT_EQ(m_manager->getEntity(entity->getEntityReference()), entity);
    }
    removeMesh(*m_part, *m_manager);
    EXPECT_TRUE(m_manager->entities().empty());
}

TEST_F(MeshObjects, GoWithTheirPartAndSayThatItIsGone)
{
    auto const weak = m_part->weakReference();
    KFRSmartPointer<Mesh> const mesh = m_body->meshOf(3);
    KFRSmartPointer<MeshedInstance> const instance = m_part->instances().at(0);
    removeMesh(*m_part, *m_manager);
    m_loaded = {};
    m_part.release();
    EXPECT_EQ(weak->lock(), KFR::NULLSP) << "the part is held by something that it holds";
    KFRSmartPointer<CAE::IPersistentObjectInterface> object;
    EXPECT_FALSE(m_body->getParent(object).isOk());
    EXPECT_FALSE(instance->getReferenceObject(object).isOk());
    m_body.release();
    KFRSmartPointer<CAE::IMeshBodyInterface> body;
    EXPECT_EQ(mesh->getMeshBody(body).getCode(), kBodyIsGone);
    EXPECT_EQ(mesh->elementCount(), 1U);
}

TEST_F(MeshObjects, HaveAnOwnerForEachKindOfTheirElements)
{
    auto const entities = KFR::make<FEMEntities>(m_registry);
    KFRSmartPointer<appfw::IEntityInterface> entity;
    EXPECT_TRUE(entities->getEntity(m_body->meshOf(2), entity).isOk());
    EXPECT_EQ(entity, m_body->meshOf(2));
    EXPECT_FALSE(entities->getEntity(KFR::NULLSP, entity).isOk());

    KFRSmartPointer<plugin::fem::IFEMeshDataInterface> lines;
    KFRSmartPointer<plugin::fem::IFEMeshDataInterface> surface;
    KFRSmartPointer<plugin::fem::IFEMeshDataInterface> again;
    KFRSmartPointer<plugin::fem::IFEMeshDataInterface> solid;
    ASSERT_TRUE(entities->getMeshData(m_body->meshOf(1), lines).isOk());
    ASSERT_TRUE(entities->getMeshData(m_body->meshOf(2), surface).isOk());
    ASSERT_TRUE(entities->getMeshData(m_body->meshOf(2), again).isOk());
    ASSERT_TRUE(entities->getMeshData(m_body->meshOf(3), solid).isOk());
    EXPECT_FALSE(entities->getMeshData(KFR::NULLSP, again).isOk());

    KFRSmartPointer<appfw::IEntityInterface> triangles;
    KFRSmartPointer<appfw::IEntityInterface> quads;
    KFRSmartPointer<appfw::IEntityInterface> same;
    KFRSmartPointer<appfw::IEntityInterface> solids;
    EXPECT_TRUE(surface->getTriangleOwner(triangles).isOk());
    EXPECT_TRUE(surface->getQuadOwner(quads).isOk());
    EXPECT_TRUE(again->getTriangleOwner(same).isOk());
    EXPECT_TRUE(solid->getSolidOwner(solids).isOk());
    EXPECT_EQ(same, triangles);
    EXPECT_EQ(surface->getSolidOwner(same).getCode(), kNoOwner);
    EXPECT_EQ(solid->getQuadOwner(same).getCode(), kNoOwner);
    EXPECT_EQ(lines->getTriangleOwner(same).getCode(), kNoOwner);
    EXPECT_NE(triangles->getEntityReference(), quads->getEntityReference());
    EXPECT_EQ(quads->getEntityReference().service, KFRIService(m_body->meshOf(2)));
    EXPECT_EQ(typeNameOf(solids->getEntityReference()), "FEM.Simulation.3DContinuousMesh");

    entities->forget(m_body->meshOf(2));
    ASSERT_TRUE(entities->getMeshData(m_body->meshOf(2), again).isOk());
    EXPECT_NE(again, surface);
}

TEST(FEMPluginManager, HidesNodesUntilTheUserSetsOtherwise)
{
    auto const manager = KFR::make<FEMPluginManager>();
    KFRSmartPointer<plugin::fem::IPropertyStoreInterface> store;
    ASSERT_TRUE(manager->getPropertyStore(store).isOk());
    auto const nodes = [&store] {
        KFRAny value;
        bool shown = true;
        EXPECT_TRUE(store->getProperty("Nodes", value).isOk());
        EXPECT_TRUE(value >>= shown);
        return shown;
    };
    EXPECT_FALSE(nodes());
    EXPECT_FALSE(manager->properties().setProperty("Nodes", KFRAny(1)).isOk());
    EXPECT_TRUE(manager->properties().setProperty("Nodes", KFRAny(true)).isOk());
    EXPECT_TRUE(nodes());
    KFRAny none;
    EXPECT_FALSE(store->getProperty("Edges", none).isOk());
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
