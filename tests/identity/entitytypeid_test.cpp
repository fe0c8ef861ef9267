#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace vrn::orlo::plugin::modeling {
namespace {

using icu::UnicodeString;
using test::IsMissingInterface;
using test::PlatformScope;
using test::RegistryCalls;
using ::testing::ElementsAre;

constexpr char const* kRegistryType = "KFR.Services.TypeRegistry.ITypeRegistry";

EntityTypeID groupOf(UnicodeString name, KFRSequence<unsigned int> ids)
{
    return EntityTypeID(name, ids);
}

TEST(EntityTypeID, OfANameAsksTheRegistryOnceForTheId)
{
    PlatformScope platform(4711);
    EntityTypeID const cold(UnicodeString(u"FACE"));
    EXPECT_EQ(cold.typeID(), 4711u);
    EXPECT_EQ(cold.typeName(), u"FACE");
    EntityTypeID const warm(UnicodeString(u"FACE"));
    EXPECT_EQ(warm.typeID(), 4711u);
    EXPECT_EQ(warm.typeName(), u"FACE");
    EXPECT_EQ(EntityTypeID(UnicodeString(u"face")).typeID(), 4712u);
    EXPECT_EQ(platform.registry().calls(), (RegistryCalls{.typeId = 2}));
}

TEST(EntityTypeID, OfAnIdAsksTheRegistryOnceForTheName)
{
    PlatformScope platform(0xFFFFFFF0u);
    unsigned int const id = platform.registry().idOf(u"EDGE");
    for (int i = 0; i < 3; ++i) {
        EntityTypeID const type(id);
        EXPECT_EQ(type.typeID(), id);
        EXPECT_EQ(type.typeName(), u"EDGE");
        EXPECT_EQ(EntityTypeID::nameOf(id), u"EDGE");
    }
    EXPECT_EQ(platform.registry().calls(), (RegistryCalls{.typeName = 1}));
}

TEST(EntityTypeID, OfAGroupPassesItsIdsOnAndAsksOnce)
{
    PlatformScope platform(500);
    EXPECT_EQ(groupOf(u"Edges", {7, 8, 9}).typeID(), 500u);
    EXPECT_THAT(platform.registry().lastGroup(), ElementsAre(7, 8, 9));
    // The name alone finds the group: other ids do not make another one.
    EntityTypeID const again = groupOf(u"Edges", {1});
    EXPECT_EQ(again.typeID(), 500u);
    EXPECT_EQ(again.typeName(), u"Edges");
    EXPECT_EQ(platform.registry().calls(), (RegistryCalls{.groupTypeId = 1}));
}

TEST(EntityTypeID, KeepsNamesIdsAndGroupsApart)
{
    PlatformScope platform;
    unsigned int const id = EntityTypeID(UnicodeString(u"BODY")).typeID();
    EXPECT_EQ(EntityTypeID(id).typeName(), u"BODY");
    EXPECT_NE(groupOf(u"BODY", {id}).typeID(), id);  // one name, two values
    EXPECT_EQ(EntityTypeID(UnicodeString(u"BODY")).typeID(), id);
    EXPECT_EQ(platform.registry().takeCalls(), (RegistryCalls{1, 1, 1, 0}));

    unsigned int const other = platform.registry().idOf(u"VERTEX");
    EXPECT_EQ(EntityTypeID(other).typeName(), u"VERTEX");
    EXPECT_EQ(EntityTypeID(UnicodeString(u"VERTEX")).typeID(), other);
    EXPECT_EQ(platform.registry().takeCalls(), (RegistryCalls{.typeId = 1, .typeName = 1}));
}

TEST(EntityTypeID, KeepsTheEmptyNameOfAnIdThatIsGivenLater)
{
    PlatformScope platform(900);
    EXPECT_EQ(EntityTypeID(0).typeName(), u"");  // the literal is an id
    EXPECT_EQ(EntityTypeID(900u).typeName(), u"");
    ASSERT_EQ(platform.registry().idOf(u"REGION"), 900u);
    EXPECT_EQ(EntityTypeID(900u).typeName(), u"");
    EntityTypeID::unRegister();
    EXPECT_EQ(EntityTypeID(900u).typeName(), u"REGION");
}

TEST(EntityTypeID, MadeFromANameThrowsWithoutARegistryAndCachesNothing)
{
    auto const alone = [] {
        EntityTypeID(UnicodeString(u"FACE"));
    };
    auto const withIds = [] {
        groupOf(u"FACE", {1});
    };
    for (void (*const make)() : {+alone, +withIds}) {
        PlatformScope platform;
        auto const lacksRegistry =
            ::testing::Throws<KFRSystemException>(IsMissingInterface(kRegistryType));
        platform.removeRegistry();
        EXPECT_THAT(make, lacksRegistry);
        platform.putStrangerForRegistry();
        EXPECT_THAT(make, lacksRegistry);
        platform.putRegistryBack();
        platform.registry().failOnce();
        EXPECT_THROW(make(), std::runtime_error);
        platform.registry().takeCalls();
        make();
        make();
        RegistryCalls const calls = platform.registry().calls();
        EXPECT_EQ(calls.typeId + calls.groupTypeId, 1);
    }
}

TEST(EntityTypeID, OfAnIdIsNamelessForTheTimeThatTheRegistryIsAway)
{
    PlatformScope platform;
    unsigned int const id = platform.registry().idOf(u"FACE");
    platform.removeRegistry();
    EXPECT_EQ(EntityTypeID(id).typeName(), u"");
    platform.putStrangerForRegistry();
    EXPECT_EQ(EntityTypeID(id).typeName(), u"");
    platform.putRegistryBack();
    EXPECT_EQ(EntityTypeID(id).typeName(), u"FACE");
    platform.removeRegistry();
    EXPECT_EQ(EntityTypeID(id).typeName(), u"FACE");
}

TEST(EntityTypeID, UnRegisterDropsTheNamesMadeIntoIdsInTheirOrder)
{
    PlatformScope platform;
    // By code unit: the surrogates of U+1F600 come before U+FFFD.
    for (char16_t const* name : {u"b", u"\uFFFD", u"a", u"\U0001F600", u"B", u"a"}) {
        static_cast<void>(EntityTypeID(UnicodeString(name)));
    }
    unsigned int const onlyRead = platform.registry().idOf(u"aa");
    static_cast<void>(EntityTypeID(onlyRead));
    static_cast<void>(groupOf(u"ab", {onlyRead}));

    EntityTypeID::unRegister();
    EXPECT_THAT(platform.registry().unregistered(),
                ElementsAre(u"B", u"a", u"b", u"\U0001F600", u"\uFFFD"));
}

TEST(EntityTypeID, UnRegisterForgetsAllThreeCachesAlsoWithoutARegistry)
{
    PlatformScope platform(100);
    unsigned int const first = EntityTypeID(UnicodeString(u"FACE")).typeID();
    unsigned int const read = platform.registry().idOf(u"EDGE");
    static_cast<void>(EntityTypeID(read));
    unsigned int const group = groupOf(u"GROUP", {}).typeID();
    EntityTypeID::unRegister();
    platform.registry().takeCalls();

    EXPECT_NE(EntityTypeID(UnicodeString(u"FACE")).typeID(), first);  // was dropped: another id
    EXPECT_EQ(EntityTypeID(read).typeName(), u"EDGE");                // stayed registered
    EXPECT_EQ(groupOf(u"GROUP", {}).typeID(), group);
    EXPECT_EQ(platform.registry().calls(), (RegistryCalls{1, 1, 1, 0}));
    EXPECT_EQ(EntityTypeID(first).typeName(), u"");

    platform.removeRegistry();
    EXPECT_NO_THROW(EntityTypeID::unRegister());
    platform.putRegistryBack();
    platform.registry().takeCalls();
    static_cast<void>(EntityTypeID(UnicodeString(u"FACE")));
    EXPECT_EQ(platform.registry().calls(), (RegistryCalls{.typeId = 1}));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
