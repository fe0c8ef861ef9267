// Refreshes by name, the flags that hold updates back, work for the executive, and the marker
// around long operations.

#include "plugins/modelingplugin/utilities/eventswork/databunch.h"
#include "plugins/modelingplugin/utilities/eventswork/flagmanager.h"
#include "plugins/modelingplugin/utilities/eventswork/scopewait.h"
#include "plugins/modelingplugin/utilities/eventswork/uiupdatemanager.h"
#include "plugins/modelingplugin/utilities/eventswork/workcommandimpl.h"
#include "plugins/modelingplugin/utilities/eventswork/workitemmanager.h"
#include "tests/support/appframefakes.h"
#include "tests/support/commandfakes.h"
#include "tests/support/eventfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::EventScope;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// The manager never forgets a proxy: each test has names of its own, which nobody refreshes later.
class Proxy final : public UIUpdateProxy {
public:
    explicit Proxy(std::function<void()> act) : m_act(std::move(act)) {}
    void refresh() override { m_act(); }

private:
    std::function<void()> m_act;
};

UIUpdateManager& updates()
{
    return *UIUpdateManager::instance();
}

TEST(UIUpdateManager, RefreshesTheProxiesOfANameInTheirOrder)
{
    std::string log;
    Proxy first([&log] { log += '1'; });
    Proxy second([&log] { log += '2'; });
    EXPECT_TRUE(second.regist("tree"));
    EXPECT_TRUE(updates().regist("tree", &first));
    EXPECT_FALSE(second.regist("tree"));
    EXPECT_TRUE(second.regist("Tree"));
    updates().refresh("tree");
    EXPECT_EQ(log, "21");
    updates().refresh("nothing");
    updates().refresh("Tree");
    EXPECT_EQ(log, "212");
}

TEST(UIUpdateManager, KeepsASwitchPerNameThatARefreshDoesNotAsk)
{
    int refreshes = 0;
    Proxy proxy([&refreshes] { ++refreshes; });
    proxy.regist("list");
    EXPECT_TRUE(updates().isRefreshEnabled("list"));
    updates().disableRefresh("list");
    updates().disableRefresh("list");
    EXPECT_FALSE(UIUpdateProxy::isRefreshEnabled("list"));
    EXPECT_TRUE(updates().isRefreshEnabled("never seen"));
    updates().refresh("list");
    EXPECT_EQ(refreshes, 1);
    updates().enableRefresh("list", false);
    EXPECT_TRUE(updates().isRefreshEnabled("list"));
    EXPECT_EQ(refreshes, 1);
    updates().disableRefresh("list");
    updates().enableRefresh("list", true);
    EXPECT_TRUE(updates().isRefreshEnabled("list"));
    EXPECT_EQ(refreshes, 2);
}

TEST(UIUpdateManager, RefusesACallFromWithinARefreshAndIsUsableAfterwards)
{
    std::function<void()> call;
    Proxy proxy([&call] { call(); });
    proxy.regist("self");
    std::function<void()> const calls[] = {
        [&] { proxy.regist("other"); },
        [] { updates().disableRefresh("self"); },
        [] { updates().enableRefresh("self", false); },
        [] { updates().isRefreshEnabled("self"); },
        [] { updates().refresh("nothing"); },
    };
    for (auto const& row : calls) {
        call = row;
        EXPECT_THROW(updates().refresh("self"), tbb_compat::improper_lock);
        EXPECT_TRUE(updates().isRefreshEnabled("self"));
    }
    EXPECT_TRUE(proxy.regist("other"));
}

TEST(WorkCommand, RunsItsFunctionOnceAndLetsItGo)
{
    auto const runs = std::make_shared<int>(0);
    KFRSmartPointer<KFRIWorkCommandInterface> command;
    std::function<void()> const work = [runs, &command] {
        ++*runs;
        EXPECT_TRUE(command->execute().isOk());  // from within
    };
    command = KFR::make<WorkCommandImpl>(work);
    EXPECT_NE(command->getInstanceID(), 0);
    EXPECT_EQ(runs.use_count(), 3);
    EXPECT_TRUE(command->execute().isOk());
    EXPECT_EQ(runs.use_count(), 2);
    EXPECT_TRUE(command->execute().isOk());
    EXPECT_EQ(*runs, 1);

    command = KFR::make<WorkCommandImpl>(work);
    EXPECT_EQ(runs.use_count(), 3);
    command.release();  // unrun
    EXPECT_EQ(runs.use_count(), 2);
    EXPECT_TRUE(KFR::make<WorkCommandImpl>(std::function<void()>())->execute().isOk());
}

TEST(WorkCommand, ThatThrowsIsNotRunAgain)
{
    auto const command = KFR::make<WorkCommandImpl>([] { throw std::runtime_error("refused"); });
    EXPECT_THROW(command->execute(), std::runtime_error);
    EXPECT_TRUE(command->execute().isOk());
}

KFRSmartPointer<test::FakeExecutive> putExecutive(EventScope& scope)
{
    auto const executive = KFR::make<test::FakeExecutive>();
    scope.platform.services().put("vrn.orlo.appfw.GuiExecutive", executive);
    return executive;
}

void runWork(test::FakeExecutive::Run const& run)
{
    KFRSmartPointer<KFRIWorkCommandInterface> command;
    ASSERT_TRUE(DataBunch(run.parameters).queryValue("workCommand", command));
    EXPECT_TRUE(command->execute().isOk());
}

TEST(WorkItems, GoToTheExecutiveWithTheirThreeParameters)
{
    EventScope scope;
    int runs = 0;
    auto const work = [&runs] {
        ++runs;
    };
    WorkItemManager::instance()->push(work, true);  // nobody there
    ServiceHelper::releaseServices();
    auto const executive = putExecutive(scope);
    for (bool const showWait : {false, true}) {
        for (bool const queueAlways : {false, true}) {
            queueAlways ? WorkItemManager::instance()->push(work, showWait)
                        : WorkItemManager::instance()->execAsyncOnWorkThread(work, showWait);
            DataBunch const items(executive->runs.back().parameters);
            EXPECT_EQ(executive->runs.back().name, "VRN.ModelingPlugin.ModelingWorkCommand");
            EXPECT_EQ(items.toCmdParams().size(), 3u);
            EXPECT_EQ(items.valueOr("showWait", !showWait), showWait);
            EXPECT_EQ(items.valueOr("queueAlways", !queueAlways), queueAlways);
        }
    }
    EXPECT_EQ(runs, 0);
    runWork(executive->runs[1]);
    runWork(executive->runs[1]);
    EXPECT_EQ(runs, 1);
}

TEST(FlagManager, IsSetByEitherFlagAndHoldsTheFirstOneForTheRunningCommand)
{
    EventScope scope;
    FlagManager& flags = *FlagManager::instance();
    EXPECT_FALSE(flags.isUpdatedSetted());
    flags.renumbering(true);
    EXPECT_TRUE(flags.isRenumbering() && flags.isUpdatedSetted());
    EXPECT_FALSE(flags.isIgnoreEventUpdate());
    auto const executive = putExecutive(scope);
    flags.ignoreEventUpdateInCommand();
    EXPECT_TRUE(flags.isIgnoreEventUpdate());
    ASSERT_EQ(executive->runs.size(), 1u);
    DataBunch const items(executive->runs[0].parameters);
    EXPECT_TRUE(items.valueOr("showWait", false) && items.valueOr("queueAlways", false));
    runWork(executive->runs[0]);
    EXPECT_FALSE(flags.isIgnoreEventUpdate());
    EXPECT_TRUE(flags.isRenumbering());
    flags.renumbering(false);
    flags.ignoreEventUpdate(true);
    EXPECT_TRUE(flags.isIgnoreEventUpdate() && flags.isUpdatedSetted());
    flags.renumbering(true);
    flags.reset();
    EXPECT_FALSE(flags.isIgnoreEventUpdate() || flags.isRenumbering());
}

class FakeStateService final : public KFRServiceObjectImpl<appfw::KFRIStateServiceInterface> {
public:
    std::vector<std::string> log;
    std::vector<KFREvent> events;

    KFRResult send(std::string const& name, KFREvent const& event, int flag) override
    {
        log.push_back(name + ' ' + std::to_string(event.eventId) + ' ' + std::to_string(flag));
        events.push_back(event);
        return KFR::notDone;
    }
};

TEST(ScopeWait, OpensAndClosesTheStretchAroundTheTransaction)
{
    EventScope scope;
    for (bool const notify : {false, true}) {
        ScopeWait const nobodyThere(notify, !notify);
    }
    auto const states = KFR::make<FakeStateService>();
    auto const framework = KFR::make<test::FakeFrameworkAccess>();
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
    {
        ScopeWait const noStateService(true, false);
    }
    framework->stateService = states;
    auto const broker = KFR::make<test::FakeTransactionBroker>();
    broker->atCreate = [&] {
        states->log.push_back("open");
    };
    broker->atEnd = [&] {
        states->log.push_back("close");
    };
    ServiceCacheModelingPlugin::transactionBrokerFactory_ = broker;

    std::vector<std::string> const logs[] = {
        {"inside"},
        {"open", "inside", "close"},
        {"appfw.CommandSS 20 0", "inside", "appfw.CommandSS 21 0"},
        {"appfw.CommandSS 20 0", "open", "inside", "close", "appfw.CommandSS 21 0"},
    };
    for (int i = 0; i < 4; ++i) {
        states->log.clear();
        {
            ScopeWait const wait((i & 2) != 0, (i & 1) != 0);
            states->log.push_back("inside");
        }
        EXPECT_EQ(states->log, logs[i]);
    }
}

TEST(ScopeWait, LooksTheProcessorsDomainUpAndDoesNotCreateIt)
{
    EventScope scope;
    auto const states = KFR::make<FakeStateService>();
    auto const framework = KFR::make<test::FakeFrameworkAccess>();
    framework->stateService = states;
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
    {
        ScopeWait const wait(true, false);
        EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
        scope.manager->put("vrn.orlo.appfw.CmdProcessor");
    }
    ASSERT_EQ(states->events.size(), 2u);
    EXPECT_EQ(states->events[0].domain, 0);
    EXPECT_EQ(states->events[1].domain,
              test::FakeEventManager::idOf("vrn.orlo.appfw.CmdProcessor"));
    EXPECT_TRUE(states->events[0].payload.isEmpty() && states->events[1].payload.isEmpty());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
