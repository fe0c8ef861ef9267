#include "host/model/testentities.h"

#include "host/model/propertyvalue.h"

#include <limits>
#include <stdexcept>

namespace vrn::orlo::host::model {
namespace {

using test::Beam;
using test::FailsWith;
using test::IsOk;
using test::makeBeam;
using test::valueOf;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

using EntityObjectTest = test::EntityTest;

TEST_F(EntityObjectTest, ChangeIsKeptAndToldWithReferenceAndNames)
{
    Beam const beam = makeBeam(m_service, "Tie", 5);
    EXPECT_THAT(beam->propertyNames(), ElementsAre("name", "length", "count", "loads"));
    EXPECT_THAT(beam->setProperty("length", KFRAny(2.5)), IsOk());
    EXPECT_EQ(valueOf<double>(beam, "length"), 2.5);
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 2 Tie length"));
    EXPECT_EQ(m_events->m_lastFlag, 0);

    auto const payload = *m_events->m_events.at(0).payload.get<appfw::CmdParameters>();
    EXPECT_EQ(payload[1].name, "reference");
    EXPECT_EQ(*payload[1].value.get<CAE::EntityReference>(), beam->getEntityReference());
    EXPECT_EQ(beam->getEntityReference().id, 5U);
}

TEST_F(EntityObjectTest, EqualValueIsTakenAndToldToNobody)
{
    Beam const beam = makeBeam(m_service, "Tie");
    EXPECT_THAT(beam->setProperty("length", KFRAny(1.0)), IsOk());
    EXPECT_THAT(beam->setProperty("loads", KFRAny(KFRSequence<double>{1.0, 2.0})), IsOk());
    EXPECT_THAT(m_events->takeLines(), IsEmpty());
}

TEST_F(EntityObjectTest, RefusedValueNamesEntityAndPropertyAndChangesNothing)
{
    Beam const beam = makeBeam(m_service, "Tie");
    EXPECT_THAT(beam->setProperty("width", KFRAny(1.0)),
                FailsWith(kUnknownProperty,
                          "Entity \"Tie\" has no property \"width\"; it has "
                          "name, length, count, loads."));
    EXPECT_THAT(beam->setProperty("count", KFRAny(4.0)),
                FailsWith(kOtherKind,
                          "Property \"count\" of entity \"Tie\" takes an integer, not "
                          "a number."));
    EXPECT_THAT(beam->setProperty("count", KFRAny(4LL)), FailsWith(kOtherKind, ::testing::_));
    EXPECT_THAT(
        beam->setProperty("length", KFRAny(-1.0)),
        FailsWith(kRefusedValue, "Property \"length\" of entity \"Tie\" takes a value above 0."));
    KFRAny untouched(8);
    EXPECT_THAT(beam->getProperty("width", untouched), FailsWith(kUnknownProperty, ::testing::_));
    EXPECT_EQ(*untouched.get<int>(), 8);
    EXPECT_EQ(valueOf<double>(beam, "length"), 1.0);
    EXPECT_EQ(valueOf<int>(beam, "count"), 3);
    EXPECT_THAT(m_events->takeLines(), IsEmpty());
}

TEST_F(EntityObjectTest, DeclarationThatCannotBeMeantThrows)
{
    Beam const beam = makeBeam(nullptr, "Tie");
    EXPECT_THROW(beam->declareProperty("name", KFRAny(1)), std::invalid_argument);
    EXPECT_THROW(beam->declareProperty("", KFRAny(1)), std::invalid_argument);
    EXPECT_THROW(beam->declareProperty("owner", KFRAny(KFRIService())), std::invalid_argument);
    EXPECT_THROW(beam->declareProperty("n", KFRAny(1), [](KFRAny const&) { return "2"; }),
                 std::invalid_argument);
}

TEST_F(EntityObjectTest, OnlyTheMisspeltNotificationRefreshes)
{
    KFRIService const beam = makeBeam(m_service, "Tie");
    auto const notified = KFR::strict_cast<appfw::IEntityNotificationInterface>(beam);
    EXPECT_THAT(notified->notify("EntityRefersh", {}), IsOk());
    EXPECT_THAT(notified->notify("EntityRefresh", {}),
                FailsWith(kUnknownNotification, ::testing::HasSubstr("\"EntityRefresh\"")));
    EXPECT_THAT(m_events->takeLines(), ElementsAre("Entity 15 Tie"));
}

TEST(PropertyValue, ComparesOnlyValuesOfOneKindAndTakesNanForNan)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(isSameValue(KFRAny(nan), KFRAny(nan)));
    EXPECT_TRUE(isSameValue(KFRAny(icu::UnicodeString(u"ä")), KFRAny(icu::UnicodeString(u"ä"))));
    EXPECT_FALSE(isSameValue(KFRAny(1), KFRAny(1LL)));
    EXPECT_FALSE(isSameValue(KFRAny(1.0), KFRAny(nan)));
    EXPECT_FALSE(isSameValue(KFRAny(KFRSequence<int>{1}), KFRAny(KFRSequence<int>{1, 1})));
    EXPECT_FALSE(isSameValue(KFRAny(), KFRAny()));
    EXPECT_EQ(propertyKindOf(KFRAny(KFRSequence<std::string>())), PropertyKind::none);
}

}  // namespace
}  // namespace vrn::orlo::host::model
