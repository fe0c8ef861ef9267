#include "host/commands/testcommands.h"
#include "host/model/testentities.h"

#include "host/commands/modifyobjects.h"

namespace vrn::orlo::host::commands {
namespace {

using host::test::Beam;
using host::test::makeBeam;
using host::test::valueOf;
using test::FailsWith;
using test::IsOk;
using ::testing::_;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

using Doubles = KFRSequence<double>;

class ModifyObjectsTest : public host::test::EntityTest {
protected:
    ModifyObjectsTest() { EXPECT_THAT(registerCoreCommands(*m_processor, m_service), IsOk()); }

    KFRResult call(std::string const& name, appfw::CmdParameters const& parameters = {})
    {
        appfw::CmdInvocationRequest const request{"VRN.CorePlugin", name, {}};
        appfw::CmdOptions options;
        EXPECT_THAT(m_processor->getCommandOptions(request, options), IsOk());
        return m_processor->executeCommand(request, options, parameters);
    }
    KFRResult modify(appfw::IEntities const& objects, appfw::CmdParameters const& values)
    {
        return call("ModifyObjects", {{"objects", KFRAny(objects)}, {"values", KFRAny(values)}});
    }
    /// The events of the entities alone.
    std::vector<std::string> entityLines()
    {
        std::vector<std::string> lines = m_events->takeLines();
        std::erase_if(lines, [](std::string const& line) { return !line.starts_with("Entity "); });
        return lines;
    }

    KFRSmartPointer<CommandProcessor> m_processor = KFR::make<CommandProcessor>(m_events);
    Beam m_first = makeBeam(m_service, "A", 1);
    Beam m_second = makeBeam(m_service, "B", 2);
};

TEST_F(ModifyObjectsTest, EditIsToldOncePerEntityAndUndoneAndRedoneAsOne)
{
    EXPECT_THAT(modify({m_first, m_second}, {{"length", KFRAny(2.0)}, {"count", KFRAny(5)}}),
                IsOk());
    auto const told = ElementsAre("Entity 2 A length count", "Entity 2 B length count");
    EXPECT_THAT(entityLines(), told);
    EXPECT_EQ(valueOf<double>(m_second, "length"), 2.0);

    EXPECT_THAT(call("Undo"), IsOk());
    EXPECT_THAT(entityLines(), ElementsAre("Entity 2 B count length", "Entity 2 A count length"));
    EXPECT_EQ(valueOf<double>(m_first, "length"), 1.0);
    EXPECT_EQ(valueOf<int>(m_second, "count"), 3);

    EXPECT_THAT(call("Redo"), IsOk());
    EXPECT_THAT(entityLines(), told);
    EXPECT_EQ(valueOf<int>(m_second, "count"), 5);
    EXPECT_THAT(call("Redo"), FailsWith(kNoHistory, _));
}

TEST_F(ModifyObjectsTest, RefusalPutsEverythingBackAndTellsNobody)
{
    EXPECT_THAT(modify({m_first, m_second}, {{"count", KFRAny(5)}, {"length", KFRAny(0.0)}}),
                FailsWith(model::kRefusedValue,
                          "Property \"length\" of entity \"A\" takes a value above 0."));
    Beam const bare = KFR::make<model::EntityObject>(KFRIService(), 7U, 9U, m_service);
    EXPECT_THAT(modify({m_first, bare}, {{"count", KFRAny(5)}}),
                FailsWith(model::kUnknownProperty,
                          "Entity number 9 has no property \"count\"; it has none."));
    EXPECT_THAT(modify({m_first, {}}, {{"count", KFRAny(5)}}),
                FailsWith(kBadParameters, HasSubstr("null at place 1")));
    EXPECT_EQ(valueOf<int>(m_first, "count"), 3);
    EXPECT_THAT(entityLines(), IsEmpty());
    EXPECT_FALSE(m_processor->history().canUndo());
}

TEST_F(ModifyObjectsTest, UndoThatAnEntityRefusesChangesNothing)
{
    bool isOpen = true;
    m_second->declareProperty("state", KFRAny(1), [&isOpen](KFRAny const&) {
        return isOpen ? std::string() : std::string("nothing any more");
    });
    EXPECT_THAT(modify({m_second}, {{"state", KFRAny(2)}, {"count", KFRAny(5)}}), IsOk());
    isOpen = false;
    EXPECT_THAT(call("Undo"), FailsWith(model::kRefusedValue, HasSubstr("nothing any more")));
    EXPECT_EQ(valueOf<int>(m_second, "count"), 5);
    isOpen = true;
    EXPECT_THAT(call("Undo"), IsOk());
    EXPECT_EQ(valueOf<int>(m_second, "state"), 1);
}

TEST_F(ModifyObjectsTest, RunOfEqualValuesIsMergedUnlessTheValuesSayOtherwise)
{
    Doubles const equal{4.0, 4.0, 4.0};
    EXPECT_THAT(modify({m_first}, {{"loads", KFRAny(equal)}}), IsOk());
    EXPECT_EQ(valueOf<Doubles>(m_first, "loads"), (Doubles{4.0}));
    for (auto const& [flag, expected] : {std::pair(true, equal), std::pair(false, Doubles{4.0})}) {
        EXPECT_THAT(
            modify({m_first}, {{"loads", KFRAny(equal)}, {"ignorecompresssequence", KFRAny(flag)}}),
            IsOk());
        EXPECT_EQ(valueOf<Doubles>(m_first, "loads"), expected);
    }
    // The later of two values of one name counts.
    EXPECT_THAT(modify({m_first}, {{"loads", KFRAny(equal)},
                                   {"ignorecompresssequence", KFRAny(false)},
                                   {"ignorecompresssequence", KFRAny(true)}}),
                IsOk());
    EXPECT_EQ(valueOf<Doubles>(m_first, "loads"), equal);
    Doubles const mixed{4.0, 4.0, 5.0};
    EXPECT_THAT(modify({m_first}, {{"loads", KFRAny(mixed)}}), IsOk());
    EXPECT_EQ(valueOf<Doubles>(m_first, "loads"), mixed);
    EXPECT_THAT(modify({m_first}, {{"ignorecompresssequence", KFRAny(1)}}),
                FailsWith(kBadParameters, HasSubstr("\"ignorecompresssequence\"")));
}

TEST_F(ModifyObjectsTest, EditThatChangesNothingIsNoStep)
{
    EXPECT_THAT(modify({m_first}, {{"count", KFRAny(3)}}), IsOk());
    EXPECT_FALSE(m_processor->history().canUndo());
    EXPECT_THAT(call("Undo"), FailsWith(kNoHistory, "There is nothing to undo."));
}

TEST_F(ModifyObjectsTest, WrongParametersAreNamed)
{
    KFRAny const values(appfw::CmdParameters{});
    EXPECT_THAT(call("ModifyObjects", {{"values", values}}),
                FailsWith(kBadParameters,
                          "ModifyObjects: the parameter \"objects\" is missing; "
                          "it must be a sequence of entities."));
    EXPECT_THAT(call("ModifyObjects",
                     {{"objects", KFRAny(appfw::IEntities{m_first})}, {"values", KFRAny(1)}}),
                FailsWith(kBadParameters,
                          "ModifyObjects: the parameter \"values\" is of another "
                          "kind; it must be command parameters."));
}

}  // namespace
}  // namespace vrn::orlo::host::commands
