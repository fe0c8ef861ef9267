#include "host/model/referencelist.h"

#include "host/model/testentities.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace vrn::orlo::host::test {
namespace {

using model::ReferenceContainer;
using model::ReferenceList;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Ids = KFRSequence<unsigned int>;
using Container = KFRSmartPointer<appfw::IEntRefInterface>;

/// Knows one entity, of type 7 and number 5.
class OneEntity final : public KFRServiceObjectImpl<appfw::IRootManagerInterface> {
public:
    using Entity = KFRSmartPointer<appfw::IEntityInterface>;
    Entity m_entity = makeBeam(nullptr, "five");

    Entity getEntity(CAE::EntityReference const& reference) override
    {
        return reference.typeId == 7 && reference.id == 5 ? m_entity : Entity();
    }
    Entity getEntityOfObject(KFRIService const&) override { return {}; }
    KFRSmartPointer<appfw::IEntityListInterface> createEntityList(appfw::IEntities const&) override
    {
        return {};
    }
};

class ReferenceListTest : public ::testing::Test {
protected:
    KFRIService const m_a = makeBeam(nullptr, "a");
    KFRIService const m_b = makeBeam(nullptr, "b");
    KFRSmartPointer<OneEntity> const m_root = KFR::make<OneEntity>();
    KFRSmartPointer<ReferenceContainer> const m_container =
        KFR::make<ReferenceContainer>(CAE::EntityReference{m_a, 3, 1, 2}, m_root);
    KFRSmartPointer<model::ReferenceListFactory> const m_lists =
        KFR::make<model::ReferenceListFactory>(m_root);

    /// "a7:1.4" for an id 1 of type 7 with the sub-id 4.
    [[nodiscard]] std::vector<std::string> walk(CAE::IEntityReferenceConstListInterface& list) const
    {
        std::vector<std::string> lines;
        CAE::EntityReference at;
        auto const iterator = list.getIterator();
        while (iterator->next(at).isOk()) {
            lines.push_back((at.service == m_a   ? "a"
                             : at.service == m_b ? "b"
                                                 : "-") +
                            std::to_string(at.typeId) + ":" + std::to_string(at.id) + "." +
                            std::to_string(at.subId));
        }
        return lines;
    }
};

TEST_F(ReferenceListTest, AContainerKeepsIdsByTypeAndFindsTheFirstOfAnId)
{
    EXPECT_THAT(m_container->addIds(7, {5, 3}, {}), IsOk());
    EXPECT_THAT(m_container->addIds(4, {9}, {0}), IsOk());
    EXPECT_THAT(m_container->addIds(7, {8, 8, 5}, {1, 2, 3}), IsOk());
    EXPECT_THAT(m_container->addIds(6, {}, {}), IsOk());
    EXPECT_THAT(m_container->addIds(4, {1, 2}, {1}),
                FailsWith(model::kSubIdCount, HasSubstr("1 sub-ids came with 2 ids of type 4")));

    Ids types;
    Ids ids;
    EXPECT_THAT(m_container->getTypes(types), IsOk());
    EXPECT_EQ(types, (Ids{7, 4}));
    EXPECT_THAT(m_container->getIds(7, ids), IsOk());
    EXPECT_EQ(ids, (Ids{5, 3, 8, 8, 5}));
    EXPECT_THAT(m_container->getIds(6, ids),
                FailsWith(model::kNotInContainer, HasSubstr("ids of")));
    EXPECT_EQ(ids.size(), 5U);

    CAE::EntityReference found;
    EXPECT_THAT(m_container->getOwner(found), IsOk());
    EXPECT_EQ(found, (CAE::EntityReference{m_a, 3, 1, 2}));
    for (auto const& [id, subId] : {std::pair(5U, 0U), std::pair(3U, 0U), std::pair(8U, 1U)}) {
        EXPECT_THAT(m_container->getReference(7, id, found), IsOk());
        EXPECT_EQ(found, (CAE::EntityReference{m_a, 7, id, subId}));
    }
    EXPECT_THAT(m_container->getReference(7, 9, found),
                FailsWith(model::kNotInContainer, HasSubstr("\"a\" has no id 9 of type 7")));
    KFRSmartPointer<appfw::IEntityInterface> entity;
    EXPECT_THAT(m_container->getEntity(7, 5, entity), IsOk());
    EXPECT_THAT(m_container->getEntity(7, 8, entity),
                FailsWith(model::kNoEntityOfId, HasSubstr("type 7 and number 8")));
    EXPECT_EQ(entity, m_root->m_entity);
}

TEST_F(ReferenceListTest, IdsAreFoundBetweenAdditionsInAnyOrder)
{
    CAE::EntityReference found;
    for (unsigned int const id : {2U, 6U, 1U, 9U, 4U}) {
        EXPECT_FALSE(m_container->getReference(7, id, found).isOk());
        m_container->add(7, id, id);
        ASSERT_THAT(m_container->getReference(7, id, found), IsOk());
        EXPECT_EQ(found.subId, id);
        EXPECT_THAT(m_container->getReference(7, 2, found), IsOk());
        EXPECT_FALSE(m_container->getReference(7, 3, found).isOk());
    }
    m_container->add(7, 6, 5);
    EXPECT_THAT(m_container->getReference(7, 6, found), IsOk());
    EXPECT_EQ(found.subId, 6U);
}

TEST_F(ReferenceListTest, TheFactoryFindsTheNewestContainerOfAnOwnerWhileItLives)
{
    auto const factory = KFR::make<model::ReferenceContainerFactory>(m_root);
    EXPECT_EQ(factory->create({}, 3, 1, 0, 1), KFR::NULLSP);
    Container const first = factory->create(m_a, 3, 1, 0, 1);
    for (unsigned int passing = 0; passing < 200; ++passing) {
        static_cast<void>(factory->create(m_b, 3, passing, 0, 1));
        EXPECT_EQ(factory->find(m_b, 3, passing, 0), KFR::NULLSP);
    }
    EXPECT_EQ(factory->find(m_a, 3, 1, 0), first);
    EXPECT_EQ(factory->find(m_a, 3, 1, 1), KFR::NULLSP);
    EXPECT_EQ(factory->find(m_b, 3, 1, 0), KFR::NULLSP);

    Container second = factory->create(m_a, 3, 1, 0, 1);
    EXPECT_NE(second, first);
    EXPECT_EQ(factory->find(m_a, 3, 1, 0), second);
    second.release();
    EXPECT_EQ(factory->find(m_a, 3, 1, 0), KFR::NULLSP);

    Ids types;
    EXPECT_THAT(first->getTypes(types), IsOk());
    EXPECT_TRUE(types.empty());
}

TEST_F(ReferenceListTest, AnOrderedListKeepsTheOrderAndAPackedOneGroupsByOwnerAndType)
{
    auto const ordered = m_lists->createOrderedList();
    auto const packed = m_lists->createList();
    m_container->addIds(6, {2, 1}, {});
    for (auto const& list : {ordered, packed}) {
        for (CAE::EntityReference const& reference :
             {CAE::EntityReference{m_b, 7, 1, 0}, {m_a, 7, 2, 0}, {m_b, 8, 3, 0}}) {
            EXPECT_THAT(list->add(reference), IsOk());
        }
        EXPECT_THAT(list->addContainer(m_container), IsOk());
        EXPECT_THAT(list->addContainer({}), FailsWith(model::kNoContainer, HasSubstr("no cont")));
        EXPECT_THAT(list->add({m_b, 7, 1, 4}), IsOk());
        EXPECT_THAT(list->add({m_a, 7, 1, 0}), IsOk());
    }
    EXPECT_THAT(walk(*ordered),
                ElementsAre("b7:1.0", "a7:2.0", "b8:3.0", "a6:2.0", "a6:1.0", "b7:1.4", "a7:1.0"));
    EXPECT_THAT(walk(*packed),
                ElementsAre("b7:1.0", "b7:1.4", "b8:3.0", "a7:2.0", "a7:1.0", "a6:2.0", "a6:1.0"));

    appfw::IEntRefSequence containers;
    EXPECT_THAT(packed->getContainers(containers), IsOk());
    ASSERT_EQ(containers.size(), 3U);
    EXPECT_EQ(containers.at(2), m_container);
    EXPECT_THAT(ordered->getContainers(containers),
                FailsWith(model::kNotOfContainers, HasSubstr("iterator")));
    EXPECT_EQ(containers.size(), 3U);
}

// Anything but linear packing or indexed reading would not come to an end here.
TEST_F(ReferenceListTest, HalfAMillionReferencesArePackedAndReadById)
{
    constexpr unsigned int kCount = 500000;
    auto const list = m_lists->createList();
    for (unsigned int i = 0; i < kCount; ++i) {
        list->add({i % 2 == 0 ? m_a : m_b, 7, kCount - i, 0});
    }
    appfw::IEntRefSequence containers;
    ASSERT_THAT(list->getContainers(containers), IsOk());
    ASSERT_EQ(containers.size(), 2U);
    Ids ids;
    ASSERT_THAT(containers.at(1)->getIds(7, ids), IsOk());
    ASSERT_EQ(ids.size(), kCount / 2);
    CAE::EntityReference at;
    for (unsigned int const id : std::as_const(ids)) {
        ASSERT_THAT(containers.at(1)->getReference(7, id, at), IsOk());
    }
    EXPECT_EQ(at, (CAE::EntityReference{m_b, 7, 1, 0}));
}

}  // namespace
}  // namespace vrn::orlo::host::test
