#include "host/model/rootmanager.h"

#include "host/model/eomfactory.h"
#include "host/model/persistence.h"
#include "host/model/properties.h"
#include "host/model/testentities.h"

#include <limits>
#include <utility>
#include <vector>

namespace vrn::orlo::host::model {
namespace {

using test::FailsWith;
using test::IsOk;
using ::testing::HasSubstr;

KFRSmartPointer<Material> makeMaterial(std::string const& name = "steel")
{
    return KFR::make<Material>(name, "file/Material/" + name, KFRIService(), 7U, 1U, nullptr);
}

class RootManagerTest : public test::EntityTest {
protected:
    KFRSmartPointer<RootManager> m_root = KFR::make<RootManager>(m_service);
};

TEST_F(RootManagerTest, OrderIsTotalOverTheWholeReferenceAndTheHashFitsIt)
{
    KFRIService first = makeMaterial();
    KFRIService second = makeMaterial();
    if (first->getInstanceID() > second->getInstanceID()) {
        first.swap(second);  // numbers of objects that went are given out again
    }
    // The same object through another of its views.
    KFRIService const view = KFR::strict_cast<CAE::IMaterialInterface>(second);
    unsigned const most = std::numeric_limits<unsigned>::max();
    std::vector<CAE::EntityReference> const ascending{
        {{}, 0, 0, 0},    {{}, 9, 9, most},    {first, 1, most, 0}, {first, 2, 1, 0},
        {first, 2, 1, 1}, {first, 2, most, 0}, {second, 1, 0, 0},   {second, most, 0, 0}};
    for (std::size_t i = 0; i < ascending.size(); ++i) {
        for (std::size_t j = 0; j < ascending.size(); ++j) {
            EXPECT_EQ(m_root->lessThan(ascending[i], ascending[j]), i < j) << i << ' ' << j;
            EXPECT_EQ(m_root->equals(ascending[i], ascending[j]), i == j) << i << ' ' << j;
            EXPECT_EQ(m_root->hashCode(ascending[i]) == m_root->hashCode(ascending[j]), i == j);
        }
    }
    CAE::EntityReference const through{view, 1, 0, 0};
    EXPECT_TRUE(m_root->equals(through, ascending[6]));
    EXPECT_EQ(m_root->hashCode(through), m_root->hashCode(ascending[6]));
}

TEST_F(RootManagerTest, ResolversAreAskedAfterWhatWasAddedAndAsLongAsTheyAreRegistered)
{
    auto const added = makeMaterial("added");
    auto const resolved = makeMaterial("resolved");
    EXPECT_THAT(m_root->add(added), IsOk());
    auto registration = m_root->addResolver([&](CAE::EntityReference const& reference) {
        return reference.id == 1 ? RootManager::Entity(resolved) : RootManager::Entity();
    });
    EXPECT_EQ(m_root->getEntity(added->getEntityReference()), added);
    EXPECT_EQ(m_root->getEntity(resolved->getEntityReference()), resolved);
    EXPECT_EQ(m_root->getEntity({{}, 7, 2, 0}), KFR::NULLSP);
    RootManager::Registration moved = std::move(registration);
    EXPECT_EQ(m_root->getEntity(resolved->getEntityReference()), resolved);
    moved = {};
    EXPECT_EQ(m_root->getEntity(resolved->getEntityReference()), KFR::NULLSP);
    EXPECT_EQ(m_root->referenceCount(), 1);
}

TEST_F(RootManagerTest, DeletedObjectIsFoundByNobodyAndRefusesChanges)
{
    auto const material = makeMaterial();
    EXPECT_THAT(m_root->add(material), IsOk());
    EXPECT_EQ(m_root->getEntityOfObject(material), material);
    KFRSmartPointer<KFR::EOM::IEOMObjectInterface> object;
    auto const eom = KFR::make<EomObjectFactory>();
    KFRSmartPointer<CAE::IPersistentObjectInterface> const persistent(material);
    EXPECT_THAT(eom->getEOMObject(persistent, object), IsOk());
    EXPECT_EQ(object, material);

    material->setDeleted(true);
    EXPECT_EQ(m_root->getEntity(material->getEntityReference()), KFR::NULLSP);
    EXPECT_EQ(m_root->getEntityOfObject(material), KFR::NULLSP);
    EXPECT_FALSE(eom->getEOMObject(persistent, object).isOk());
    EXPECT_FALSE(eom->getEOMObject({}, object).isOk());
    EXPECT_EQ(object, material);
    EXPECT_THAT(material->setProperty("density", KFRAny(1.0)),
                FailsWith(kDeleted, "Entity \"steel\" is deleted."));
    EXPECT_EQ(m_root->getEntityOfObject(m_root), KFR::NULLSP) << "no entity";
    EXPECT_EQ(m_root->getEntityOfObject({}), KFR::NULLSP);
}

TEST_F(RootManagerTest, ListKeepsItsEntitiesAndWithdrawingIsToldToNobody)
{
    auto const material = makeMaterial();
    EXPECT_THAT(m_root->add(material), IsOk());
    m_events->takeLines();
    appfw::IEntities entities;
    EXPECT_THAT(m_root->createEntityList({material, material})->getEntities(entities), IsOk());
    EXPECT_EQ(entities.size(), 2U);
    EXPECT_THAT(m_root->withdraw(material->getEntityReference()), IsOk());
    EXPECT_THAT(m_root->withdraw(material->getEntityReference()),
                FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_THAT(m_events->takeLines(), ::testing::IsEmpty());
}

TEST(ModelProperties, RefuseWhatNoMaterialOrShellHas)
{
    auto const owner = makeMaterial();
    auto const section = KFR::make<SectionProperty>("s", "file/Section/s", owner, 8U, 2U, nullptr);
    auto const behavior =
        KFR::make<BehaviorProperty>("b", "file/Behavior/b", owner, 9U, 3U, nullptr);
    double const infinity = std::numeric_limits<double>::infinity();
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct Row {
        EntityService::Entity m_entity;
        char const* m_property;
        std::vector<KFRAny> m_taken;
        std::vector<KFRAny> m_refused;
    };
    Row const rows[] = {
        {owner, "youngsModulus", {KFRAny(1.0)}, {KFRAny(0.0), KFRAny(infinity), KFRAny(nan)}},
        {owner, "poissonRatio", {KFRAny(-0.99), KFRAny(0.49)}, {KFRAny(-1.0), KFRAny(0.5)}},
        {owner, "density", {KFRAny(0.0)}, {KFRAny(-1e-9), KFRAny(nan)}},
        {owner, "name", {KFRAny(icu::UnicodeString(u"ä"))}, {KFRAny(icu::UnicodeString())}},
        {section, "thickness", {KFRAny(0.1)}, {KFRAny(0.0), KFRAny(-1.0), KFRAny(infinity)}},
        {section, "offset", {KFRAny(-2.0)}, {KFRAny(nan)}},
        {section, "integrationPoints", {KFRAny(1), KFRAny(15)}, {KFRAny(4), KFRAny(17)}},
        {behavior, "drillingStiffness", {KFRAny(0.0), KFRAny(1.0)}, {KFRAny(-0.1), KFRAny(1.1)}},
    };
    for (Row const& row : rows) {
        SCOPED_TRACE(row.m_property);
        for (KFRAny const& value : row.m_taken) {
            EXPECT_THAT(row.m_entity->setProperty(row.m_property, value), IsOk());
        }
        for (KFRAny const& value : row.m_refused) {
            EXPECT_THAT(row.m_entity->setProperty(row.m_property, value),
                        FailsWith(kRefusedValue, HasSubstr(row.m_property)));
        }
    }
}

TEST(Persistence, KnowsModelsByNameAndTheOneOpenedLastUntilTheyClose)
{
    auto const persistence = KFR::make<Persistence>();
    KFRSmartPointer<CAE::IPersistenceSessionInterface> session;
    EXPECT_THAT(persistence->getSession(session), IsOk());
    KFRSmartPointer<CAE::IModelInterface> model;
    EXPECT_FALSE(session->getCurrentModel(model).isOk());

    auto const first = KFR::make<ModelRoot>("rig", "rig", 5U, nullptr);
    auto second = KFR::make<ModelRoot>("bolt", "bolt", 5U, nullptr);
    persistence->session().open(*first);
    persistence->session().open(*second);
    EXPECT_THAT(session->getCurrentModel(model), IsOk());
    EXPECT_EQ(model, second);
    EXPECT_THAT(persistence->getModelByName(u"rig", model), IsOk());
    EXPECT_EQ(model, first);
    EXPECT_FALSE(persistence->getModelByName(u"nut", model).isOk());
    EXPECT_EQ(model, first) << "left as it was";

    second.release();
    EXPECT_FALSE(persistence->getModelByName(u"bolt", model).isOk());
    EXPECT_THAT(session->getCurrentModel(model), IsOk());
    EXPECT_EQ(model, first);
    first->setDeleted(true);
    EXPECT_FALSE(session->getCurrentModel(model).isOk());
    KFRSmartPointer<CAE::IPartInterface> part;
    EXPECT_FALSE(first->getDesignPart(part).isOk());
}

}  // namespace
}  // namespace vrn::orlo::host::model
