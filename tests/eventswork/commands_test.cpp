// Commands and what they take.

#include "plugins/modelingplugin/utilities/eventswork/cmdhelper.h"
#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"
#include "plugins/modelingplugin/utilities/eventswork/createentityhelper.h"
#include "plugins/modelingplugin/utilities/eventswork/editentityhelper.h"
#include "plugins/modelingplugin/utilities/eventswork/pluginvariables.h"
#include "tests/support/appframefakes.h"
#include "tests/support/commandfakes.h"
#include "tests/support/eventfakes.h"
#include "tests/support/matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

class BaseEntity final : public KFRServiceObjectImpl<IBaseEntityInterface> {
public:
    KFRResult getName(icu::UnicodeString&) override { return KFR::notDone; }
    KFRResult getParent(KFRSmartPointer<IEntityInterface>&) override { return KFR::notDone; }
    KFRResult getFlag(bool&) override { return KFR::notDone; }
};

using appfw::CmdOptions;
using appfw::CmdParameters;
using test::PlatformScope;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr char const* kOwn = "VRN.ModelingPlugin";
constexpr char const* kCore = "VRN.CorePlugin";

/// "name=value" of whole numbers, the name alone of others.
std::vector<std::string> textOf(CmdParameters const& parameters)
{
    std::vector<std::string> texts;
    for (appfw::CmdParameter const& parameter : parameters) {
        int value = 0;
        bool const isNumber = parameter.value >>= value;
        texts.push_back(parameter.name + (isNumber ? "=" + std::to_string(value) : ""));
    }
    return texts;
}

MATCHER(SaysThatThereIsNoCommand, "")
{
    std::string text;
    return arg.getCode() == KFR::notDone && arg.getParams().size() == 1 &&
           (arg.getParams()[0] >>= text) && text == "Command not exist.";
}

KFRSmartPointer<test::FakeCmdProcessor> putProcessor()
{
    auto const processor = KFR::make<test::FakeCmdProcessor>();
    ServiceCacheModelingPlugin::commandProcessor_ = processor;
    return processor;
}

TEST(DataBunch, ListsItsItemsByNameAndTheLastOfEqualOnes)
{
    DataBunch bunch{{"b", 1}, {"a", 2}, {"B", 3}, {"b", 4}};
    EXPECT_THAT(textOf(bunch.toCmdParams()), ElementsAre("B=3", "a=2", "b=4"));
    CmdParameters parameters{{"z", KFRAny(1)}, {"y", KFRAny(2)}, {"z", KFRAny(3)}};
    parameters.append({"x", KFRAny(4)});
    EXPECT_THAT(textOf(DataBunch(parameters).toCmdParams()), ElementsAre("x=4", "y=2", "z=3"));
    EXPECT_THAT(textOf(DataBunch(bunch.toKFRAny()).toCmdParams()),
                ElementsAre("B=3", "a=2", "b=4"));
    for (KFRAny const& other :
         {KFRAny(), KFRAny(1), KFRAny(std::string("b")), KFRAny(KFRSequence<int>{1})}) {
        EXPECT_TRUE(DataBunch(other).empty());
    }
    DataBunch const copy = bunch;
    for (auto&& [name, value] : bunch) {
        value <<= 7;
    }
    bunch.remove("a");
    bunch.remove("a");
    EXPECT_THAT(textOf(bunch.toCmdParams()), ElementsAre("B=7", "b=7"));
    bunch.clear();
    EXPECT_TRUE(bunch.empty());
    EXPECT_THAT(textOf(copy.toCmdParams()), ElementsAre("B=3", "a=2", "b=4"));
}

TEST(DataBunch, LeavesTheTargetAloneWhereItHasNoSuchValue)
{
    DataBunch bunch{{"text", "five"}};
    bunch["number"] <<= 5;
    KFRAny any(1.5);
    EXPECT_FALSE(bunch.queryData("Number", any));
    EXPECT_NE(any.get<double>(), nullptr);
    EXPECT_TRUE(bunch.queryData("number", any));
    EXPECT_EQ(*any.get<int>(), 5);
    EXPECT_EQ(bunch.valueOr("text", 3), 3);
    bunch.setValue("text", 4);
    EXPECT_EQ(bunch.valueOr("text", 3), 4);
    EXPECT_TRUE(bunch.hasData("text") && !bunch.hasData("Text"));
}

TEST(CmdInvoker, WithoutACommandSaysSoAndAnswersEmpty)
{
    PlatformScope platform;
    CmdInvoker const withoutProcessor("Known", kOwn);
    putProcessor()->put(kOwn, "Known");
    CmdInvoker replaced("Known", kOwn);
    EXPECT_TRUE(replaced.invoke(DataBunch()).isOk());
    replaced.initCommandSync("known", true, true, kOwn);
    for (CmdInvoker invoker :
         {CmdInvoker(), withoutProcessor, CmdInvoker("Known", kCore), replaced}) {
        EXPECT_THAT(invoker.invoke(DataBunch()), SaysThatThereIsNoCommand());
        EXPECT_THAT(invoker.invoke(CmdParameters()), SaysThatThereIsNoCommand());
        EXPECT_THAT(invoker.invokeAsync(DataBunch()), SaysThatThereIsNoCommand());
        EXPECT_TRUE(invoker.getReturnValue().isEmpty());
        EXPECT_TRUE(invoker.getOutputParams().empty());
        EXPECT_THAT(invoker.getURCommand(), test::IsNullHandle());
        invoker.setOptions({5, 5, 5, 5});
        EXPECT_EQ(invoker.getOptions(), CmdOptions());
    }
}

TEST(CmdInvoker, RunsItsCommandAndReadsWhatItDid)
{
    PlatformScope platform;
    auto const processor = putProcessor();
    auto const command = processor->put(kCore, "Known");
    command->returnValue <<= 11;
    command->output = {{"out", KFRAny(12)}, {"also", KFRAny(13)}};
    CmdInvoker invoker("Known", kCore);
    EXPECT_THAT(processor->calls,
                ElementsAre("create VRN.CorePlugin Known", "options VRN.CorePlugin Known"));
    EXPECT_EQ(invoker.getOptions(), processor->defaults);
    EXPECT_TRUE(invoker.invoke(DataBunch{{"b", 2}, {"a", 1}}).isOk());  // though the command fails
    CmdInvoker copy = invoker;
    EXPECT_TRUE(copy.invoke(CmdParameters{{"b", KFRAny(2)}, {"a", KFRAny(1)}}).isOk());
    ASSERT_EQ(command->runs.size(), 2u);
    EXPECT_THAT(textOf(command->runs[0]), ElementsAre("a=1", "b=2"));
    EXPECT_THAT(textOf(command->runs[1]), ElementsAre("b=2", "a=1"));
    EXPECT_EQ(*copy.getReturnValue().get<int>(), 11);
    EXPECT_THAT(textOf(copy.getOutputParams().toCmdParams()), ElementsAre("also=13", "out=12"));
    EXPECT_THAT(copy.getURCommand(), test::IsObject(KFRIService(command->ur)));
    copy.setOptions({4, 3, 2, 1});
    EXPECT_EQ(invoker.getOptions(), (CmdOptions{4, 3, 2, 1}));
}

TEST(CmdInvoker, ChangesTwoOptionsAndAThirdForACommandThatCannotBeUndone)
{
    struct {
        bool undoable, silent;
        CmdOptions defaults, options;
    } const rows[] = {
        {true, false, {0, 1, 0, 1}, {1, 0, 0, 1}},
        {false, true, {1, 0, 1, 0}, {0, 1, 0, 0}},
    };
    PlatformScope platform;
    auto const processor = putProcessor();
    auto const command = processor->put(kOwn, "Known");
    for (auto const& row : rows) {
        processor->defaults = row.defaults;
        CmdInvoker invoker("Known", row.undoable, row.silent, kOwn);
        EXPECT_EQ(command->options, row.options);
        command->options = {};
        invoker.initCommandSync("Known", row.undoable, row.silent, kOwn);
        EXPECT_EQ(command->options, row.options);
    }
}

TEST(CmdInvoker, HasTheExecutiveRunTheCommandAndSaysWhatThatAnswers)
{
    PlatformScope platform;
    auto const command = putProcessor()->put(kOwn, "Known");
    CmdInvoker invoker("Known", kOwn);
    EXPECT_FALSE(invoker.invokeAsync(DataBunch()).isOk());
    auto const executive = KFR::make<test::FakeExecutive>();
    platform.services().put("vrn.orlo.appfw.GuiExecutive", executive);
    EXPECT_EQ(invoker.invokeAsync(DataBunch{{"a", 1}}).getCode(), 4713);
    ASSERT_EQ(executive->runs.size(), 1u);
    EXPECT_EQ(executive->runs[0].name, "VRN.ModelingPlugin.WorkThreadCommandRequest");
    DataBunch const request(executive->runs[0].parameters);
    EXPECT_THAT(textOf(request.toCmdParams()), ElementsAre("command", "param"));
    EXPECT_THAT(request.valueOr("command", KFRIService()), test::IsObject(KFRIService(command)));
    EXPECT_THAT(textOf(request.valueOr("param", CmdParameters())), ElementsAre("a=1"));
    EXPECT_THAT(command->runs, IsEmpty());
}

TEST(CmdInvoker, AsksForTheOwnPluginsCommandFirst)
{
    PlatformScope platform;
    EXPECT_EQ(CmdInvoker::getInvocationRequest("Mine", kCore).commandContext, kOwn);
    putProcessor()->put(kOwn, "Mine");
    for (auto const& [name, context] : {std::pair("Mine", kOwn), std::pair("Other", kCore)}) {
        auto const request = CmdInvoker::getInvocationRequest(name, kCore);
        EXPECT_EQ(request.commandContext, context);
        EXPECT_EQ(request.commandName, name);
        EXPECT_THAT(request.command, test::IsNullHandle());
    }
}

TEST(CmdHelper, RunsACommandOfTheOwnPluginWithItsOptions)
{
    PlatformScope platform;
    class Params final : public ICmdParams {
    public:
        std::string getCommandName() override { return "Known"; }
        CmdParameters getParameters() override { return {{"b", KFRAny(1)}, {"a", KFRAny(2)}}; }
    } params;
    EXPECT_THAT(CmdHelper().call(&params), SaysThatThereIsNoCommand());
    auto const processor = putProcessor();
    processor->defaults = {0, 1, 0, 1};
    EXPECT_EQ(CmdHelper().call(&params).getCode(), 4712);
    EXPECT_THAT(processor->calls, ElementsAre("options VRN.ModelingPlugin Known",
                                              "execute VRN.ModelingPlugin Known"));
    EXPECT_EQ(processor->executions[0].options, processor->defaults);
    EXPECT_THAT(textOf(processor->executions[0].parameters), ElementsAre("b=1", "a=2"));
}

class EditEntity : public ::testing::Test {
protected:
    EditEntity() { ServiceCacheModelingPlugin::rootManager_ = roots; }

    /// What the last run was given.
    appfw::IEntities objects() const
    {
        return DataBunch(command->runs.back()).valueOr("objects", appfw::IEntities());
    }
    std::vector<std::string> values() const
    {
        return textOf(DataBunch(command->runs.back()).valueOr("values", CmdParameters()));
    }

    PlatformScope platform;
    KFRSmartPointer<test::FakeRootManager> roots = KFR::make<test::FakeRootManager>();
    KFRSmartPointer<test::FakeEntity> one = KFR::make<test::FakeEntity>();
    KFRSmartPointer<test::FakeEntity> two = KFR::make<test::FakeEntity>();
    KFRSmartPointer<test::FakeCmdProcessor> processor = putProcessor();
    KFRSmartPointer<test::FakeCommand> command = processor->put(kCore, "ModifyObjects");
};

TEST_F(EditEntity, SendsItsEntitiesAndTheValuesToTheCorePluginsCommand)
{
    roots->entities = {{1, one}, {2, two}};
    CAE::EntityReference const first{{}, 0, 1, 0};
    CAE::EntityReference const second{{}, 0, 2, 0};
    CAE::EntityReference const gone{{}, 0, 3, 0};
    DataBunch const bunch{{"b", 2}, {"a", 1}};
    struct {
        EditEntityHelper helper;
        appfw::IEntities expected;
    } rows[] = {
        {EditEntityHelper(second), {two}},
        {EditEntityHelper(gone), {}},
        {EditEntityHelper(KFRSmartPointer<IEntityInterface>(one)), {one}},
        {EditEntityHelper(CAE::EntityReferenceSequence{second, gone, first}), {two, one}},
        {EditEntityHelper(appfw::IEntities{one, two, one}), {one, two, one}},
    };
    for (auto& row : rows) {
        row.helper.setProperties(bunch);
        EXPECT_THAT(textOf(command->runs.back()), ElementsAre("objects", "values"));
        EXPECT_EQ(objects(), row.expected);
        EXPECT_THAT(values(), ElementsAre("a=1", "b=2"));
        EXPECT_EQ(command->options, processor->defaults);
    }
    rows[0].helper.setPropertiesWithoutCompressSequence(DataBunch{{"z", 1}});
    EXPECT_EQ(objects(), rows[0].expected);
    EXPECT_THAT(values(), ElementsAre("z=1", "ignorecompresssequence"));
    CmdParameters const sent = DataBunch(command->runs.back()).valueOr("values", CmdParameters());
    EXPECT_TRUE(DataBunch(sent).valueOr("ignorecompresssequence", false));
    rows[0].helper.setProperties(bunch, false, true);
    EXPECT_EQ(command->options, (CmdOptions{0, 1, 0, 1}));
    EXPECT_THAT(values(), ElementsAre("a=1", "b=2"));
    processor->commands.clear();
    rows[0].helper.setProperties(bunch);  // silent
}

TEST_F(EditEntity, WritesAndRefreshesWithoutACommand)
{
    EditEntityHelper(appfw::IEntities{one, two}).setPropertiesEx({{"a", 1}, {"b", 2}});
    for (auto const& entity : {one, two}) {
        EXPECT_EQ(entity->properties.size(), 2u);
        EXPECT_EQ(*entity->properties["b"].get<int>(), 2);
    }
    EditEntityHelper::refreshEntity(one);
    ASSERT_EQ(one->notifications.size(), 1u);
    EXPECT_EQ(one->notifications[0].first, "EntityRefersh");
    EXPECT_TRUE(one->notifications[0].second.isEmpty());
    EditEntityHelper::refreshEntity(KFR::NULLSP);
    EXPECT_THAT(processor->calls, IsEmpty());
}

TEST(CreateEntity, GivesTheEntityThatTheCommandReturned)
{
    PlatformScope platform;
    CreateEntityHelper helper("CreateLoad");
    EXPECT_THAT(helper.create(DataBunch()), test::IsNullHandle());
    auto const command = putProcessor()->put(kOwn, "CreateLoad");
    for (KFRAny const& other : {KFRAny(), KFRAny(1), KFRAny(KFR::make<test::Stranger>())}) {
        command->returnValue = other;
        EXPECT_THAT(helper.create(DataBunch()), test::IsNullHandle());
    }
    auto const entity = KFR::make<BaseEntity>();
    command->returnValue <<= entity;
    EXPECT_THAT(helper.create({{"b", 2}, {"a", 1}}), test::IsObject(KFRIService(entity)));
    EXPECT_THAT(textOf(command->runs.back()), ElementsAre("a=1", "b=2"));
    EXPECT_THAT(CreateEntityHelper("createLoad").create(DataBunch()), test::IsNullHandle());
}

TEST(PluginVariables, KeepABunchPerNameAtOnePlace)
{
    DataBunch* const bunch = PluginVariables::createVariables("tool");
    bunch->setValue("a", 1);
    for (int i = 0; i < 100; ++i) {
        PluginVariables::createVariables(std::to_string(i));
    }
    EXPECT_EQ(PluginVariables::createVariables("tool"), bunch);
    EXPECT_EQ(PluginVariables::getVariables("tool"), bunch);
    EXPECT_EQ(bunch->valueOr("a", 0), 1);
    EXPECT_EQ(PluginVariables::getVariables("Tool"), nullptr);
    PluginVariables::removeVariables("tool");
    PluginVariables::removeVariables("tool");
    EXPECT_EQ(PluginVariables::getVariables("tool"), nullptr);
    EXPECT_TRUE(PluginVariables::createVariables("tool")->empty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
