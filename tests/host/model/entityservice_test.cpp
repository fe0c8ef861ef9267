#include "host/model/testentities.h"

#include "host/model/rootmanager.h"

#include <stdexcept>

namespace vrn::orlo::host::model {
namespace {

using test::Beam;
using test::FailsWith;
using test::IsOk;
using test::makeBeam;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EntityServiceTest : public test::EntityTest {
protected:
    Beam m_first = makeBeam(m_service, "A", 1);
    Beam m_second = makeBeam(m_service, "B", 2);
    KFRSmartPointer<RootManager> m_root = KFR::make<RootManager>(m_service);
};

TEST_F(EntityServiceTest, BatchTellsOncePerEntityWhenTheOutermostEnds)
{
    {
        EntityService::Batch const outer(m_service);
        m_second->setProperty("length", KFRAny(2.0));
        {
            EntityService::Batch const inner(m_service);
            m_first->setProperty("count", KFRAny(1));
            m_second->setProperty("count", KFRAny(1));
        }
        m_second->setProperty("length", KFRAny(3.0));
        m_second->notify("EntityRefersh", {});
        m_second->notify("EntityRefersh", {});
        EXPECT_THAT(m_events->takeLines(), IsEmpty());
    }
    EXPECT_THAT(m_events->takeLines(),
                ElementsAre("Entity 2 B length count", "Entity 15 B", "Entity 2 A count"));
}

TEST_F(EntityServiceTest, BatchTellsOnlyWhatDiffersInTheEnd)
{
    Beam const kept = makeBeam(m_service, "kept", 3);
    Beam const gone = makeBeam(m_service, "gone", 4);
    EXPECT_THAT(m_root->add(kept), IsOk());
    EXPECT_THAT(m_root->add(gone), IsOk());
    m_events->takeLines();
    {
        EntityService::Batch const batch(m_service);
        m_first->setProperty("count", KFRAny(1));  // before it is known
        EXPECT_THAT(m_root->add(m_first), IsOk());
        EXPECT_THAT(m_root->add(m_second), IsOk());
        EXPECT_THAT(m_root->remove(m_second->getEntityReference()), IsOk());
        EXPECT_THAT(m_root->remove(kept->getEntityReference()), IsOk());
        EXPECT_THAT(m_root->add(kept), IsOk());
        kept->setProperty("count", KFRAny(9));
        kept->setProperty("count", KFRAny(3));
        gone->setProperty("length", KFRAny(9.0));
        EXPECT_THAT(m_root->remove(gone->getEntityReference()), IsOk());
    }
    EXPECT_THAT(m_events->takeLines(),
                ElementsAre("Entity 1 A count", "Entity 2 kept", "Entity 3 gone length"));
}

TEST_F(EntityServiceTest, ListenerMayChangeEntitiesAndItsExceptionHarmsNobody)
{
    m_events->m_listener = [this](std::string const& line) {
        if (line == "Entity 2 A count") {
            m_second->setProperty("count", KFRAny(1));
            throw std::runtime_error("listener");
        }
    };
    EXPECT_THAT(m_first->setProperty("count", KFRAny(1)), IsOk());
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 2 A count", "Entity 2 B count"));
}

TEST_F(EntityServiceTest, RootManagerFindsByReferenceAndNameWhatItHolds)
{
    EXPECT_THAT(m_root->add(m_first), IsOk());
    EXPECT_THAT(m_root->add(m_second), IsOk());
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 1 A", "Entity 1 B"));
    CAE::EntityReference const second = m_second->getEntityReference();
    EXPECT_EQ(m_root->getEntity(second), m_second);
    EXPECT_EQ(m_root->entityByName("B"), m_second);
    EXPECT_EQ(m_root->entityByName("C"), KFR::NULLSP);

    EXPECT_THAT(m_root->add(makeBeam(m_service, "C", 2)),
                FailsWith(kReferenceTaken,
                          "Entity \"C\" cannot be added: its reference is that "
                          "of \"B\"."));
    EXPECT_THAT(m_root->add({}), FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_EQ(m_root->getEntity(second), m_second);

    EXPECT_THAT(m_root->remove(second), IsOk());
    EXPECT_THAT(m_root->remove(second), FailsWith(kUnknownEntity, ::testing::_));
    EXPECT_EQ(m_root->getEntity(second), KFR::NULLSP);
    EXPECT_EQ(m_root->entityByName("B"), KFR::NULLSP);
    EXPECT_EQ(m_root->entities().size(), 1U);
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 3 B"));
}

TEST_F(EntityServiceTest, ReferencesOfTwoOwnersAreTwo)
{
    KFRIService const owner = KFR::make<RootManager>(nullptr);
    Beam const owned = KFR::make<EntityObject>(owner, 7U, 1U, m_service);
    EXPECT_THAT(m_root->add(m_first), IsOk());
    EXPECT_THAT(m_root->add(owned), IsOk());
    EXPECT_EQ(m_root->getEntity({owner, 7, 1, 0}), owned);
    EXPECT_EQ(m_root->getEntity({{}, 7, 1, 0}), m_first);
    EXPECT_EQ(m_root->getEntity({owner, 8, 1, 0}), KFR::NULLSP);
}

}  // namespace
}  // namespace vrn::orlo::host::model
