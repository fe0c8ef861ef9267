#include "host/model/model.h"

#include "host/kernel/typeregistry.h"
#include "host/meshing/remesh.h"
#include "host/model/geometryservice.h"
#include "host/model/testentities.h"

#include <algorithm>
#include <optional>
#include <set>

namespace vrn::orlo::host::model {
namespace {

using geometry::EntityClass;
using test::FailsWith;
using test::IsOk;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// "rig" with the parts "a/b" twice over: a solid of 2 faces, an edge and a vertex, with a sheet of
/// one face beside it; and a wire body. The first stands three times in the tree, twice by one
/// name; "rig" is also the name of an assembly in an assembly.
geometry::GeometryModel rig()
{
    geometry::GeometryModel model;
    model.m_sourceFile = "/somewhere/rig.v2.step";
    unsigned number = 0;
    auto const add = [&](EntityClass entityClass, unsigned part, unsigned body) {
        model.m_entities.push_back({++number, entityClass, part, body});
    };
    add(EntityClass::solidBody, 0, 1);
    add(EntityClass::sheetBody, 0, 2);
    add(EntityClass::volume, 0, 1);
    add(EntityClass::face, 0, 1);  // 4
    add(EntityClass::face, 0, 2);
    add(EntityClass::face, 0, 1);  // 6
    add(EntityClass::edge, 0, 1);
    add(EntityClass::vertex, 0, 1);
    add(EntityClass::wireBody, 1, 9);
    add(EntityClass::edge, 1, 9);  // 10
    for (unsigned part = 0; part < 2; ++part) {
        geometry::Part& made = model.m_parts.emplace_back();
        made.m_name = "a/b";
        made.m_firstEntity = part * 8;
        made.m_entityCount = part == 0 ? 8 : 2;
    }
    auto const leaf = [](std::string const& name, int part) {
        geometry::Instance node;
        node.m_name = name;
        node.m_part = part;
        return node;
    };
    geometry::Instance inner;
    inner.m_name = "rig";
    inner.m_children = {leaf("bolt", 0), leaf("x", 1)};
    geometry::Instance outer;
    outer.m_name = "rig";
    outer.m_children = {leaf("bolt", 0), inner, leaf("bolt", 0)};
    model.m_roots = {outer, leaf("x", 1)};
    return model;
}

/// Holds its part, as the part holds it.
class Mesh final : public ModelObjectOf<CAE::IMeshBodyInterface> {
public:
    using Ids = KFRSequence<unsigned long long>;

    explicit Mesh(KFRIService const& part) : ModelObjectOf("mesh", part, 1, 1, nullptr) {}
    KFRResult getMeshes(unsigned int, CAE::IMeshSequence&) override { return {}; }
    KFRResult getElement(unsigned long long, KFRSmartPointer<CAE::IElementInterface>&,
                         bool) override
    {
        return {};
    }
    KFRResult getMeshList(CAE::IMeshSequence&) override { return {}; }
    KFRResult getElementIds(Ids&) override { return {}; }
    KFRResult getNodeIds(Ids&) override { return {}; }
    KFRResult getElementId(int, unsigned long long&) override { return {}; }
    KFRResult getNodeId(int, unsigned long long&) override { return {}; }
    KFRResult getGeomBody(KFRSmartPointer<CAE::IGeomBodyInterface>&) override { return {}; }
};

class ModelTest : public test::EntityTest {
protected:
    ModelTest() { m_model.emplace(rig(), *m_types, m_service, m_root.get()); }

    /// The entity of a geometry reference, as clients find it.
    RootManager::Entity found(unsigned number)
    {
        return m_root->getEntity(m_model->reference(number));
    }
    static std::string nameOf(KFRIService const& object)
    {
        return KFR::strict_cast<ModelObjectInterface>(object)->persistentName();
    }
    /// Names of what contains an object, from the inside out.
    static std::vector<std::string> parentsOf(KFRIService const& object)
    {
        std::vector<std::string> names;
        auto inner = KFR::strict_cast<CAE::IPersistentObjectInterface>(object);
        for (KFRSmartPointer<CAE::IPersistentObjectInterface> outer; inner->getParent(outer).isOk();
             inner = outer) {
            names.push_back(nameOf(outer));
        }
        return names;
    }
    template <class I>
    static bool answers(KFRIService const& object)
    {
        return KFR::loose_cast<I>(object) != KFR::NULLSP;
    }

    KFRSmartPointer<kernel::TypeRegistry> m_types = KFR::make<kernel::TypeRegistry>(1U);
    KFRSmartPointer<RootManager> m_root = KFR::make<RootManager>(m_service);
    std::optional<Model> m_model;
};

TEST_F(ModelTest, NamesAndIdentitiesAreUniqueAndTheSameAfterAnotherLoad)
{
    Model again(rig(), *m_types);
    std::set<std::string> names;
    std::set<CAE::GUIDDATA> identities;
    auto const check = [&](KFRIService const& object) {
        auto const eom = KFR::strict_cast<KFR::EOM::IEOMObjectInterface>(object);
        EXPECT_TRUE(names.insert(nameOf(object)).second) << nameOf(object);
        EXPECT_TRUE(identities.insert(eom->getGuid()).second) << nameOf(object);
        auto const other = again.byPersistentName(nameOf(object));
        ASSERT_TRUE(other != KFR::NULLSP) << nameOf(object);
        EXPECT_FALSE(other == object);
        EXPECT_TRUE(KFR::strict_cast<KFR::EOM::IEOMObjectInterface>(other)->isSameObject(eom));
    };
    for (Model* const model : {&*m_model, &again}) {
        model->addMaterial("rig");
        model->addMaterial("rig");
        model->addSection("rig");
    }
    for (auto const& entity : m_root->entities()) {
        check(entity);
    }
    for (unsigned number = 1; number <= 10; ++number) {
        check(m_model->object(number));
    }
    EXPECT_EQ(names.size(), 1U + 2U + 7U + 3U + 10U);
    EXPECT_TRUE(names.contains("rig.v2"));
    EXPECT_EQ(nameOf(m_model->object(6)), "rig.v2/Part/a%2Fb/FACE/3");
    EXPECT_EQ(nameOf(m_model->object(10)), "rig.v2/Part/a%2Fb#2/EDGE/1");
    for (char const* const nobodys :
         {"", "/", "FACE/1", "rig.v2/Part/a%2Fb/FACE/03", "rig.v2/Part/a%2Fb/FACE/3x",
          "rig.v2/Part/a%2Fb/FACE/4", "rig.v2/Part/a%2Fb/BODY/2", "rig.v2/Part/c/FACE/1"}) {
        EXPECT_EQ(m_model->byPersistentName(nobodys), KFR::NULLSP) << nobodys;
    }
}

TEST_F(ModelTest, InstancesStandInTreeOrderNestedAndAreNeitherPartsNorMeshes)
{
    std::vector<std::string> names;
    for (auto const& instance : m_model->instances()) {
        names.push_back(nameOf(instance).substr(sizeof("rig.v2/Instance")));
    }
    EXPECT_THAT(names, ElementsAre("rig/bolt", "rig/rig/bolt", "rig/rig/x", "rig/bolt#2", "x"));
    auto const& nested = m_model->instances().at(1);
    EXPECT_THAT(parentsOf(nested),
                ElementsAre("rig.v2/Instance/rig/rig", "rig.v2/Instance/rig", "rig.v2"));
    CAE::IInstanceSequence placed;
    EXPECT_THAT(m_model->parts()[0]->getInstances(placed), IsOk());
    ASSERT_EQ(placed.size(), 3U);
    EXPECT_EQ(placed.at(1), nested);

    KFRIService part;
    EXPECT_THAT(nested->getPart(part), IsOk());
    EXPECT_EQ(part, KFRIService(m_model->parts()[0]));
    EXPECT_TRUE(answers<KFR::EOM::IEOMPartInterface>(part));
    EXPECT_FALSE(answers<CAE::IPartInterface>(nested) || answers<CAE::IMeshInterface>(nested) ||
                 answers<CAE::IMeshBodyInterface>(nested));
    EXPECT_EQ(nested->getEntityReference().service, KFRIService(nested));

    struct Row {
        char const* m_name;
        char const* m_type;
    };
    for (auto const& [name, type] :
         {Row{"rig", "Simulation.Assembly"}, Row{"rig/rig", "Simulation.AssemblyInstance"},
          Row{"x", "Simulation.PartInstance"}}) {
        auto const node = m_model->byPersistentName(std::string("rig.v2/Instance/") + name);
        ASSERT_TRUE(node != KFR::NULLSP) << name;
        CAE::EntityReference const reference =
            KFR::strict_cast<appfw::IEntityInterface>(node)->getEntityReference();
        EXPECT_EQ(m_types->getTypeName(reference.typeId), icu::UnicodeString(type)) << name;
        EXPECT_EQ(m_root->getEntity(reference), node) << name;
    }
    auto const assembly = KFR::strict_cast<KFR::EOM::IEOMInstanceInterface>(
        m_model->byPersistentName("rig.v2/Instance/rig"));
    auto const rig = KFR::strict_cast<KFR::EOM::IEOMAssemblyInterface>(assembly);
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> child;
    EXPECT_THAT(rig->getChild("bolt", child), IsOk());
    EXPECT_EQ(child, m_model->instances().at(0)) << "the first of its name";
    EXPECT_FALSE(rig->getChild("x", child).isOk()) << "stands one deeper";
    EXPECT_FALSE(assembly->getPart(part).isOk());
    EXPECT_EQ(part, KFRIService(m_model->parts()[0])) << "left as it was";
}

TEST_F(ModelTest, GeometryIsMadeOnceAndKnowsBodyPartAndDisplay)
{
    auto const face = m_model->object(6);
    EXPECT_EQ(found(6), face);
    EXPECT_EQ(m_model->object(6).get(), face.get());
    CAE::EntityReference placed = m_model->reference(6);
    placed.service = m_model->instances().at(3);
    EXPECT_EQ(m_root->getEntity(placed), face) << "through an instance of its part";
    placed.service = m_model->instances().at(4);
    EXPECT_EQ(m_root->getEntity(placed), KFR::NULLSP) << "another part's instance";
    CAE::EntityReference other = m_model->reference(6);
    other.typeId = m_model->reference(7).typeId;
    EXPECT_EQ(m_root->getEntity(other), KFR::NULLSP) << "an edge of the face's number";
    EXPECT_EQ(m_model->object(0), KFR::NULLSP);
    EXPECT_EQ(m_model->object(11), KFR::NULLSP);

    EXPECT_THAT(parentsOf(face),
                ElementsAre("rig.v2/Part/a%2Fb/BODY/1", "rig.v2/Part/a%2Fb", "rig.v2"));
    KFRSmartPointer<CAE::IGeometryInterface> body;
    EXPECT_THAT(face->getOwningBody(body), IsOk());
    EXPECT_EQ(body, m_model->object(1));
    EXPECT_TRUE(answers<CAE::IGeomBodyInterface>(body) &&
                answers<KFR::EOM::IEOMGeomBodyInterface>(body));
    EXPECT_FALSE(answers<CAE::IGeomBodyInterface>(face));

    auto const service = KFR::make<GeometryCommonService>();
    service->setModel(m_model->geometryStore());
    KFRSmartPointer<plugin::geometry::IGeometryDisplayServiceInterface> display;
    EXPECT_THAT(service->getDisplayService(display), IsOk());
    CAE::EntityReference entity;
    unsigned number = 0;
    EXPECT_THAT(face->getDisplayEntity(entity, number), IsOk());
    EXPECT_EQ(entity, m_model->reference(1));
    EXPECT_EQ(number, 3U) << "after the volume and a face, the sheet's face not counted";
    CAE::EntityReference shown;
    EXPECT_THAT(display->getDisplayReference(entity, number, shown), IsOk());
    EXPECT_EQ(shown, entity);
    EXPECT_FALSE(display->getDisplayReference(entity, 6, shown).isOk());
    EXPECT_FALSE(display->getDisplayReference(m_model->reference(6), 0, shown).isOk());
    EXPECT_THAT(service->getReferenceByName(nameOf(face), shown), IsOk());
    EXPECT_EQ(shown, m_model->reference(6));
    EXPECT_FALSE(service->getReferenceByName("rig.v2/Part/a%2Fb", shown).isOk());
    m_model.reset();
    EXPECT_FALSE(service->getReferenceByName(nameOf(face), shown).isOk());
}

TEST_F(ModelTest, PartsLeadToTheirMeshAndMeshesToTheirGeometry)
{
    auto const& part = m_model->parts()[0];
    unsigned long long id = 0;
    EXPECT_THAT(m_model->root()->getNextAvaialbleNodeID(id), IsOk());
    EXPECT_EQ(id, 1U) << "no meshes";
    CAE::IPersistentObjectSequence bodies;
    EXPECT_THAT(part->getBodies(bodies), IsOk());
    EXPECT_THAT(bodies, ElementsAre(m_model->object(1), m_model->object(2)));

    // A triangle on face 4 of body 1, and a body without geometry, of a point that is an element.
    meshing::MeshStore::Content content;
    content.m_name = "mesh";
    content.m_nodes = meshing::Numbering({7, 9, 8});
    content.m_positions = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    content.m_elements = meshing::Numbering({5, 6});
    content.m_connectivity = {1, 2, 3, 3};
    content.m_typeNames = {"S3", "MASS"};
    content.m_rows = {{0, 0, meshing::ElementType::triangle3, 0},
                      {3, 1, meshing::ElementType::point1, 1}};
    content.m_bodies = {{"solid", 1}, {"pure", 0}};
    content.m_groups = {{0, 2, 4, "surface 4"}, {1, 0, 0, ""}};
    content.m_entities = {{4, {1, 2, 3}, {}}, {7, {1, 2}, {}}};
    ASSERT_TRUE(meshing::installMesh(part,
                                     std::make_shared<meshing::MeshStore const>(std::move(content)),
                                     meshing::MeshTypes(*m_types), m_service));
    EXPECT_THAT(m_model->root()->getNextAvaialbleNodeID(id), IsOk());
    EXPECT_EQ(id, 10U);
    EXPECT_THAT(part->getBodies(bodies), IsOk());
    ASSERT_EQ(bodies.size(), 3U) << "the mesh of body 1 is no body besides";
    EXPECT_EQ(nameOf(bodies.at(2)), "rig.v2/Part/a%2Fb/MeshBody/pure");

    auto const body = KFR::strict_cast<CAE::IGeomBodyInterface>(m_model->object(1));
    CAE::IMeshBodySequence meshBodies;
    EXPECT_THAT(body->getMeshBodies(meshBodies), IsOk());
    ASSERT_EQ(meshBodies.size(), 1U);
    KFRSmartPointer<CAE::IGeomBodyInterface> below;
    EXPECT_THAT(meshBodies.at(0)->getGeomBody(below), IsOk());
    EXPECT_EQ(below, body);
    struct Row {
        unsigned m_number;
        std::size_t m_meshes;
        bool m_isMeshed;
    };
    for (auto const& [number, count, isMeshed] :
         {Row{1, 1, true}, Row{2, 0, false}, Row{4, 1, true}, Row{6, 0, false}, Row{7, 0, true}}) {
        CAE::IMeshSequence meshes;
        bool meshed = !isMeshed;
        int own = 0;
        EXPECT_THAT(m_model->object(number)->getMeshes(meshes), IsOk());
        EXPECT_THAT(m_model->object(number)->isMeshed(meshed), IsOk());
        EXPECT_THAT(m_model->object(number)->getNumber(own), IsOk());
        EXPECT_EQ(meshes.size(), count) << number;
        EXPECT_EQ(meshed, isMeshed) << number;
        EXPECT_EQ(own, static_cast<int>(number));
    }

    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> child;
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> resolved;
    EXPECT_THAT(part->getChild("MeshPart", child), IsOk());
    CAE::EntityReference reference =
        KFR::strict_cast<appfw::IEntityInterface>(child)->getEntityReference();
    EXPECT_EQ(reference.service, KFRIService(part));
    reference.service = m_model->instances()[0];
    EXPECT_THAT(m_model->root()->resolveEntity(reference, resolved), IsOk());
    EXPECT_EQ(resolved, child);
    EXPECT_EQ(m_model->byPersistentName(nameOf(meshBodies.at(0))), meshBodies.at(0));
    EXPECT_FALSE(m_model->remove(KFR::strict_cast<appfw::IEntityInterface>(child)).isOk());
    EXPECT_THAT(m_model->remove(found(1)), IsOk());
    EXPECT_TRUE(isDeleted(meshBodies.at(0)));
    EXPECT_THAT(m_model->remove(part), IsOk());
    EXPECT_FALSE(m_model->root()->resolveEntity(reference, resolved).isOk());
    EXPECT_TRUE(isDeleted(child));
    auto const root = m_model->root();
    m_model.reset();
    EXPECT_FALSE(root->getNextAvaialbleNodeID(id).isOk());
    EXPECT_EQ(id, 10U) << "left as it was";
}

TEST_F(ModelTest, RemovalTakesWhatBelongsToItAndTellsOfNodesInOneBatch)
{
    auto const material = m_model->addMaterial("steel");
    RootManager::Entity const body = found(1);
    RootManager::Entity const face = found(6);
    m_events->takeLines();
    EXPECT_THAT(m_model->remove(material), IsOk());
    EXPECT_THAT(m_model->remove(material), FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_THAT(m_model->remove(m_model->root()), FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_THAT(m_model->remove({}), FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_THAT(m_model->properties(), IsEmpty());
    EXPECT_EQ(nameOf(m_model->addMaterial("steel")), "rig.v2/Material/steel#2");
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 3 steel", "Entity 1 steel"));

    EXPECT_THAT(m_model->remove(body), IsOk());
    EXPECT_EQ(found(1), KFR::NULLSP);
    EXPECT_EQ(found(6), KFR::NULLSP);
    EXPECT_EQ(found(8), KFR::NULLSP) << "was never made";
    EXPECT_EQ(m_root->getEntityOfObject(face), KFR::NULLSP);
    EXPECT_TRUE(found(5) != KFR::NULLSP) << "of the other body";
    m_events->takeLines();

    EXPECT_THAT(m_model->remove(m_model->parts()[0]), IsOk());
    EXPECT_THAT(m_events->takeLines(),
                ElementsAre("Entity 3 bolt", "Entity 3 bolt", "Entity 3 bolt", "Entity 3 a/b"));
    EXPECT_EQ(found(5), KFR::NULLSP);
    EXPECT_TRUE(found(10) != KFR::NULLSP);
    auto const outer = m_model->byPersistentName("rig.v2/Instance/rig");
    EXPECT_THAT(m_model->remove(KFR::strict_cast<appfw::IEntityInterface>(outer)), IsOk());
    ASSERT_EQ(m_model->instances().size(), 1U);
    EXPECT_EQ(nameOf(m_model->instances()[0]), "rig.v2/Instance/x");
}

TEST_F(ModelTest, ModelThatGoesLeavesNothingBehindAndTellsNobody)
{
    CAE::EntityReference const face = m_model->reference(6);
    std::vector<KFRSmartPointer<KFR::Framework::KFRIWeakReferenceInterface>> weak{
        m_model->root()->weakReference(), m_model->parts()[1]->weakReference(),
        m_model->instances()[1]->weakReference(), m_model->addSection("s")->weakReference()};
    for (KFRIService const& owner :
         {KFRIService(m_model->parts()[1]), KFRIService(m_model->object(9))}) {
        auto const mesh = KFR::make<Mesh>(m_model->parts()[1]);
        KFR::strict_cast<MeshBodyOwnerInterface>(owner)->meshBodies().add(mesh);
        weak.push_back(mesh->weakReference());
    }
    CAE::IMeshBodySequence meshes;
    EXPECT_THAT(m_model->parts()[1]->getMeshBodies(meshes), IsOk());
    EXPECT_EQ(meshes.size(), 1U);
    meshes.clear();
    auto const held = m_model->object(4);
    EXPECT_TRUE(found(10) != KFR::NULLSP);
    m_events->m_events.clear();  // they hold entities
    m_events->takeLines();
    m_model.reset();
    EXPECT_THAT(m_events->takeLines(), IsEmpty());
    EXPECT_THAT(m_root->entities(), IsEmpty());
    EXPECT_EQ(m_root->referenceCount(), 1) << "no resolver is left";
    for (auto const& reference : weak) {
        EXPECT_TRUE(reference->lock() == KFR::NULLSP);
    }
    EXPECT_TRUE(isDeleted(held));
    EXPECT_EQ(m_root->getEntity(face), KFR::NULLSP);
    EXPECT_THAT(parentsOf(held), ElementsAre("rig.v2/Part/a%2Fb/BODY/1", "rig.v2/Part/a%2Fb"));
}

}  // namespace
}  // namespace vrn::orlo::host::model
