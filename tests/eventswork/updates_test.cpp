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

TEST(UIUpdateManager, RefreshesTheProxiesOfANameInTheirOrderWhateverTheSwitchSays)
{
    std::string log;
    Proxy first([&log] { log += '1'; });
    Proxy second([&log] { log += '2'; });
    EXPECT_TRUE(second.regist("tree"));
    EXPECT_TRUE(updates().regist("tree", &first));
    EXPECT_FALSE(second.regist("tree"));
    EXPECT_TRUE(second.regist("Tree"));
    EXPECT_TRUE(updates().isRefreshEnabled("tree"));
    updates().disableRefresh("tree");
    EXPECT_FALSE(UIUpdateProxy::isRefreshEnabled("tree"));
    EXPECT_TRUE(UIUpdateProxy::isRefreshEnabled("Tree"));
    updates().refresh("tree");
    updates().refresh("nothing");
    EXPECT_EQ(log, "21");
    updates().enableRefresh("tree", false);
    EXPECT_TRUE(updates().isRefreshEnabled("tree"));
    EXPECT_EQ(log, "21");
    updates().disableRefresh("tree");
    updates().enableRefresh("tree", true);
    EXPECT_TRUE(updates().isRefreshEnabled("tree"));
    EXPECT_EQ(log, "2121");
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
    command = KFR::make<WorkCommandImpl>([runs, &command] {
        ++*runs;
        EXPECT_TRUE(command->execute().isOk());  // from within
        throw std::runtime_error("refused");
    });
    EXPECT_EQ(runs.use_count(), 2);
    EXPECT_THROW(command->execute(), std::runtime_error);
    EXPECT_EQ(runs.use_count(), 1);
    EXPECT_TRUE(command->execute().isOk());
    EXPECT_EQ(*runs, 1);
    command = KFR::make<WorkCommandImpl>([runs] { ++*runs; });
    command.release();  // unrun
    EXPECT_EQ(runs.use_count(), 1);
    EXPECT_EQ(*runs, 1);
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
    auto const executive = putExecutive(scope);
    FlagManager& flags = *FlagManager::instance();
    EXPECT_FALSE(flags.isUpdatedSetted());
    flags.renumbering(true);
    EXPECT_TRUE(flags.isRenumbering() && flags.isUpdatedSetted());
    flags.ignoreEventUpdateInCommand();
    EXPECT_TRUE(flags.isIgnoreEventUpdate());
    ASSERT_EQ(executive->runs.size(), 1u);
    DataBunch const items(executive->runs[0].parameters);
    EXPECT_TRUE(items.valueOr("showWait", false) && items.valueOr("queueAlways", false));
    runWork(executive->runs[0]);
    EXPECT_TRUE(!flags.isIgnoreEventUpdate() && flags.isRenumbering());
    flags.renumbering(false);
    flags.ignoreEventUpdate(true);
    EXPECT_TRUE(!flags.isRenumbering() && flags.isUpdatedSetted());
    flags.renumbering(true);
    flags.reset();
    EXPECT_FALSE(flags.isIgnoreEventUpdate() || flags.isRenumbering());
}

class FakeStateService final : public KFRServiceObjectImpl<appfw::KFRIStateServiceInterface> {
public:
    std::vector<std::string> log;
    KFREvent last;

    KFRResult send(std::string const& name, KFREvent const& event, int flag) override
    {
        log.push_back(name + ' ' + std::to_string(event.eventId) + ' ' + std::to_string(flag));
        last = event;
        return KFR::notDone;
    }
};

TEST(ScopeWait, OpensAndClosesTheStretchAroundTheTransaction)
{
    EventScope scope;
    {
        ScopeWait const nobodyThere(true, true);
    }
    auto const framework = KFR::make<test::FakeFrameworkAccess>();
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
    {
        ScopeWait const noStateService(true, true);
    }
    auto const states = KFR::make<FakeStateService>();
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
    // The domain is looked up each time, and never created.
    EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
    EXPECT_EQ(states->last.domain, 0);
    EXPECT_TRUE(states->last.payload.isEmpty());
    scope.manager->put("vrn.orlo.appfw.CmdProcessor");
    {
        ScopeWait const wait(true, false);
    }
    EXPECT_EQ(states->last.domain, test::FakeEventManager::idOf("vrn.orlo.appfw.CmdProcessor"));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
