#include "host/meshing/remesh.h"

#include "host/kernel/typeregistry.h"
#include "host/meshing/meshfixtures.h"
#include "host/model/geometryobjects.h"
#include "host/model/testevents.h"

#include <gmock/gmock.h>

#include <map>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr unsigned long long kFirstElement =
    static_cast<unsigned long long>(StoreMaker::kLastElement - 1);

/// The body 100 of a part.
class Bodies final : public model::GeometryLink {
public:
    KFRSmartPointer<CAE::IGeometryInterface> geometry(unsigned number) override
    {
        return number == 100 ? m_body : KFRSmartPointer<CAE::IGeometryInterface>();
    }
    KFRSmartPointer<CAE::IGeometryInterface> m_body;
};

class Remesh : public ::testing::Test {
protected:
    Remesh()
    {
        m_link->m_body = KFR::make<model::GeomBody>("part/BODY/1", m_part, 2U, 100U, nullptr);
        m_part->setGeometry(m_link, {100});
    }
    ~Remesh() override { m_events->m_events.clear(); }  // they hold entities

    std::shared_ptr<MeshReplacement> install(std::shared_ptr<MeshStore const> const& store)
    {
        return installMesh(m_part, store, m_types, m_service);
    }
    [[nodiscard]] MeshPart& mesh() { return *meshPartOf(*m_part); }

    KFRSmartPointer<test::NotingEventManager> m_events = KFR::make<test::NotingEventManager>();
    std::shared_ptr<model::EntityService> m_service =
        std::make_shared<model::EntityService>(m_events);
    KFRSmartPointer<kernel::TypeRegistry> m_registry = KFR::make<kernel::TypeRegistry>(7U);
    MeshTypes m_types{*m_registry};
    KFRSmartPointer<model::Part> m_part = KFR::make<model::Part>("part", "part", 1U, 1U, m_service);
    std::shared_ptr<Bodies> m_link = std::make_shared<Bodies>();
};

TEST_F(Remesh, KeepsTheHandlesOfWhatStaysAndPutsBackWhatWent)
{
    install(twoCubes(2));
    KFRSmartPointer<MeshBody> const left = mesh().bodyOn(100);
    KFRSmartPointer<MeshBody> const right = mesh().bodyOn(200);
    KFRSmartPointer<Mesh> const solid = left->meshOf(3);
    KFRSmartPointer<SubMesh> const volume = right->subMeshes().at(0);
    KFRSmartPointer<CAE::IElementInterface> old;
    ASSERT_THAT(mesh().getElementById(kFirstElement, old, true), test::IsOk());
    CAE::EntityReference const reference = volume->getEntityReference();
    m_events->takeLines();

    auto const step = install(twoCubes(1));
    EXPECT_EQ(mesh().bodyOn(100), left);
    EXPECT_EQ(left->meshOf(3), solid);
    EXPECT_EQ(solid->elementCount(), 2U);
    EXPECT_TRUE(right->isDeleted() && volume->isDeleted() && !left->isDeleted());
    EXPECT_EQ(mesh().entity(reference.typeId, reference.id), KFR::NULLSP);
    auto const lines = m_events->takeLines();
    EXPECT_THAT(lines, Contains(StartsWith("Entity 3 right")));
    EXPECT_THAT(lines, Contains(StartsWith("Entity 15 left")));
    EXPECT_THAT(lines, ::testing::Not(Contains(StartsWith("Entity 1 "))));
    CAE::INodeSequence nodes;
    KFRSmartPointer<CAE::IMeshInterface> holder;
    EXPECT_THAT(old->getNodes(nodes), test::IsOk());
    EXPECT_EQ(nodes.size(), 8U);
    EXPECT_THAT(old->getMesh(holder), test::IsOk());
    EXPECT_EQ(holder, volume) << "as it was";

    EXPECT_THAT(step->revert(), test::IsOk());
    EXPECT_FALSE(right->isDeleted() || volume->isDeleted());
    EXPECT_EQ(mesh().entity(reference.typeId, reference.id), volume);
    EXPECT_EQ(solid->elementCount(), 1U);
    EXPECT_THAT(step->apply(), test::IsOk());
    EXPECT_TRUE(right->isDeleted());
    m_part->setDeleted(true);
    EXPECT_EQ(step->revert().getCode(), model::kDeleted);
    EXPECT_EQ(install(twoCubes(2)), nullptr);
}

TEST_F(Remesh, MeshIsGoneAfterTheFirstMeshingIsUndone)
{
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> child;
    EXPECT_FALSE(m_part->getChild("MeshPart", child).isOk());
    auto const step = install(twoCubes(2));
    EXPECT_THAT(m_part->getChild("MeshPart", child), test::IsOk());
    EXPECT_THAT(step->revert(), test::IsOk());
    EXPECT_TRUE(model::isDeleted(child));
    CAE::IMeshPartSequence parts;
    CAE::IMeshBodySequence bodies;
    EXPECT_THAT(m_part->getMeshParts(parts), test::IsOk());
    EXPECT_THAT(m_part->getMeshBodies(bodies), test::IsOk());
    EXPECT_THAT(parts, IsEmpty());
    EXPECT_THAT(bodies, IsEmpty());
    EXPECT_THAT(step->apply(), test::IsOk());
    EXPECT_FALSE(model::isDeleted(child));
}

TEST_F(Remesh, MeshPartFindsByIdsAndDropsThoseThatAreNotThere)
{
    install(twoCubes(2));
    KFRSequence<unsigned int> numbers;
    EXPECT_THAT(mesh().getElementNumbers({kFirstElement - 1, 4, ~0ULL, kFirstElement}, numbers),
                test::IsOk());
    EXPECT_THAT(numbers, ElementsAre(2U, 1U));
    CAE::ElementNodes nodes;
    std::vector<long long> const ids{StoreMaker::elementId(2), 4, StoreMaker::elementId(1)};
    EXPECT_THAT(mesh().getElementNodes(ids, nodes), test::IsOk());
    EXPECT_THAT(nodes.m_first, ElementsAre(0U, 8U, 8U, 16U));
    EXPECT_EQ(nodes.m_ids.at(15), StoreMaker::nodeId(12));
    EXPECT_EQ(nodes.m_locations.at(15), (KFRDouble3DPoint{2, 0, 1}));

    KFRSmartPointer<CAE::INodeInterface> node;
    CAE::IElementSequence around;
    ASSERT_THAT(mesh().getNodeById(5, node, false), test::IsOk());
    EXPECT_THAT(mesh().getElementsConnectedTo(node, around), test::IsOk());
    EXPECT_EQ(around.size(), 2U);
    EXPECT_FALSE(mesh().getNodeById(13, node, false).isOk());
    unsigned long long next = 0;
    bool isFree = true;
    EXPECT_THAT(mesh().getNextAvaialbleNodeID(next), test::IsOk());
    EXPECT_EQ(next, static_cast<unsigned long long>(StoreMaker::kLastNode));
    EXPECT_THAT(mesh().isNodeIdFree(next - 1, isFree), test::IsOk());
    EXPECT_FALSE(isFree);
    EXPECT_THAT(mesh().isNodeIdFree(next, isFree), test::IsOk());
    EXPECT_TRUE(isFree);

    auto const& body = mesh().bodyOn(100);
    KFRSmartPointer<CAE::IElementInterface> element;
    EXPECT_THAT(body->getElement(2, element, false), test::IsOk());
    EXPECT_EQ(body->getElement(1, element, false).getCode(), kNoElement) << "of the other body";
    EXPECT_EQ(body->getNodeId(12, next).getCode(), kNoNode);
    KFRSmartPointer<CAE::IGeometryInterface> geometry;
    EXPECT_THAT(body->meshOf(3)->getGeometry(geometry), test::IsOk());
    EXPECT_EQ(geometry, m_link->m_body);
    EXPECT_FALSE(body->subMeshes().at(0)->getGeometry(geometry).isOk()) << "volume 101 is unknown";
    m_link.reset();
    EXPECT_FALSE(body->meshOf(3)->getGeometry(geometry).isOk());
}

TEST_F(Remesh, DeletedBodyTakesItsElementsAndItsOwnNodesAlong)
{
    StoreMaker maker;
    maker.content() = twoCubes(2)->content();
    maker.content().m_nodeSets = {{"NODES", {1, 5, 9}}};
    maker.content().m_elementSets = {{"RIGHT", {1}}, {"BOTH", {1, 2}}};
    maker.content().m_entities = {{102, {5, 6, 7, 8}, {{1, 0}, {2, 1}}}, {202, {9, 10}, {{1, 1}}}};
    auto const all = std::make_shared<MeshStore const>(maker.content());
    install(all);
    KFRSmartPointer<MeshBody> const left = mesh().bodyOn(100);
    KFRSmartPointer<MeshBody> const right = mesh().bodyOn(200);

    mesh().deleteBodiesOn(200);  // the first element, and the last four nodes
    MeshStore const& rest = mesh().tables()->store();
    EXPECT_TRUE(right->isDeleted() && !left->isDeleted());
    EXPECT_THAT(rest.elements().ids(), ElementsAre(all->elements().idOf(2)));
    EXPECT_EQ(rest.nodes().size(), 8U);
    for (LocalNumber node = 1; node <= rest.nodes().size(); ++node) {
        EXPECT_EQ(rest.nodes().idOf(node), all->nodes().idOf(node));
        EXPECT_EQ(rest.position(node), all->position(node));
    }
    EXPECT_THAT(rest.nodesOf(1), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
    EXPECT_THAT(findSet(rest.nodeSets(), "NODES")->m_numbers, ElementsAre(1, 5));
    EXPECT_THAT(findSet(rest.elementSets(), "RIGHT")->m_numbers, IsEmpty());
    EXPECT_THAT(findSet(rest.elementSets(), "BOTH")->m_numbers, ElementsAre(1));
    EXPECT_THAT(rest.meshOn(102)->m_faces, ElementsAre(ElementFace{1, 1}));
    EXPECT_EQ(rest.meshOn(202), nullptr);
    EXPECT_FALSE(mesh().isMeshed(201));

    mesh().deleteBodiesOn(100);
    EXPECT_TRUE(mesh().isDeleted());
    install(all);
    EXPECT_EQ(mesh().bodyOn(200), right);
}

TEST_F(Remesh, ObjectsOutliveTheirPart)
{
    install(twoCubes(2));
    KFRSmartPointer<MeshPart> const mesh = meshPartOf(*m_part);
    KFRSmartPointer<Mesh> const solid = mesh->bodyOn(100)->meshOf(3);
    auto const weak = m_part->weakReference();
    m_link.reset();
    m_events->m_events.clear();
    m_part.release();
    EXPECT_EQ(weak->lock(), KFR::NULLSP) << "held by what it holds";
    KFRSmartPointer<CAE::IPersistentObjectInterface> above;
    EXPECT_FALSE(mesh->getParent(above).isOk());
    bool deleted = false;
    EXPECT_THAT(solid->isDeleted(deleted), test::IsOk());
    EXPECT_TRUE(deleted);
    EXPECT_EQ(solid->elementCount(), 1U);
    EXPECT_NE(solid->getEntityReference().service, KFR::NULLSP);
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
