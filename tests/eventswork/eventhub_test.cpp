// The event hub: which domains it knows, when it subscribes, and who is told of an event.

#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"

#include "plugins/modelingplugin/utilities/eventswork/eventlistener.h"
#include "tests/support/eventfakes.h"
#include "tests/support/freshprocess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <functional>
#include <stdexcept>
#include <string>
#include <thread>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::EventScope;
using test::FakeEventManager;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Hub = EventHandler;

struct Domain {
    long long (*getter)();
    std::string name;
    bool created;
    std::string events;
};

// clang-format off
Domain const kDomains[] = {
    {&Hub::getSelectionDomainId, "vrn.orlo.appfw.SelectionManagerEvent", false, "1 2"},
    {&Hub::getFEMDomainId, "VRN.Tamarak.Plugins.FEMPlugin", false, "1 2 3 801 705 706 106 708"},
    {&Hub::getStudyDomainId, "VRN.Tamarak.Plugins.StudyPlugin", true, "800009 900001 900002"},
    {&Hub::getMotionDomainId, "vrn.orlo.plugin.motion", true, "1 2"},
    {&Hub::getModelingDomainId, "VRN.Tamarak.Plugins.ModelingPlugin",
     true, "23841 23842 90001 900001 900002 900003 1000001"},
    {&Hub::getShaperDomainId, "VRN.Tamarak.Plugins.ShaperPlugin", true, "900001"},
    {&Hub::getEntityDomainId, "vrn.orlo.appfw.Entity", false, "1 3 2 9 10 15 30"},
    {&Hub::getUndoRedoDomainId, "vrn.orlo.appfw.UndoRedoFWEvent", true, "2 3 5 6"},
    {&Hub::getPivotDomainId, "vrn.orlo.appfw.PivotDataFW", true, "1001 1002 1003 1004 1006 3002"},
    {&Hub::getModesDomainId, "vrn.orlo.appfw.Modes", true, "1 2"},
    {&Hub::getFilterChangeDomainId, "vrn.orlo.appfw.PickFilterEvent", true, "1000"},
    {&Hub::getDDMDomainId, "VRN.Services.Display3DDataManager", true, "100 202 204"},
    {&Hub::getModelPersistenceDomainId, "vrn.orlo.appfw.ModelPersistence", true, "1 5 20 30 21"},
    {&Hub::getPluginOptsDomainId, "vrn.orlo.appfw.PluginOptionsEvents", true, "300 400"},
    {&Hub::getPostPluginDomainId, "VRN.PostPluginDomain", true, "4001 4002 4003 4004 4005 4006"},
    {&Hub::getProcessorDomainId, "vrn.orlo.appfw.CmdProcessor", true, "3 4 5"},
    {&Hub::getGeomDomainId, "GeomPluginEventDomain", false, "115"},
    {&Hub::getGeomODMDomainId, "Tamarak.Plugins.GeomPlugin.OnDisplayMenu", false, "1001"},
    {&Hub::getGeomModelDisplayDomainId, "vrn.orlo.plugin.geometry.ModelDisplayService",
     false, "100"},
    {&Hub::getODMModeDomainId, "vrn.orlo.appfw.PluginODMDomain", true, "1 2"},
    {&Hub::getRestorePanelValueToDefaultDomainId, "vrn.orlo.appfw.RestorePanelValueToDefaultDomainName",
     true, "1"},
    {&Hub::getMissionsEventDomainId, "vrn.orlo.appfw.Missions", true, "1"},
};

struct Operations {
    long long (*getter)();
    void (Hub::*add)(IKFREventHandler*);
    void (Hub::*remove)(IKFREventHandler*);
};

constexpr Operations kOperations[] = {
#define EVENT_CLIENTS(getter, add, remove) {&Hub::getter, &Hub::add, &Hub::remove},
#include "plugins/modelingplugin/utilities/eventswork/eventdomains.def"
};
// clang-format on

constexpr long long kDomain = 4001;

Hub& hub()
{
    return *Hub::instance();
}

int publish(long long domain, int id)
{
    return hub().handleEvent({domain, id, {}});
}

/// Notes what it is told, then does what it was made for.
class Client final : public IKFREventHandler {
public:
    std::function<void()> act = [] {
    };
    std::vector<int> heard;

    bool handle(long long domain, KFREvent const& event) override
    {
        EXPECT_EQ(domain, event.domain);
        heard.push_back(event.eventId);
        act();
        return false;
    }
};

/// Clients of one array are called in its order.
struct Clients : std::array<Client, 3> {
    Clients()
    {
        for (std::size_t const i : {2u, 0u, 1u, 2u}) {
            hub().addDomainEventHandler(kDomain, &at(i));
        }
    }
};

TEST(EventDomain, HasItsNameAndIsCreatedOrNot)
{
    for (Domain const& row : kDomains) {
        SCOPED_TRACE(row.name);
        EventScope scope;
        long long const id = FakeEventManager::idOf(row.name);
        EXPECT_EQ(row.getter(), row.created ? id : 0);
        EXPECT_EQ(scope.manager->takeNotes().size(), row.created ? 1u : 0u);
        scope.manager->put(row.name);
        EXPECT_EQ(row.getter(), id);
        EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
    }
}

TEST(EventDomain, ThatExistsIsSubscribedToForItsEvents)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EventScope scope;
        for (Domain const& row : kDomains) {
            scope.manager->put(row.name);
        }
        for (Domain const& row : kDomains) {
            Client client;
            long long const id = row.getter();
            hub().addDomainEventHandler(id, &client);
            EXPECT_THAT(scope.manager->takeNotes(),
                        ElementsAre("listen " + row.name + ' ' + row.events + " mode 2"));
            EXPECT_TRUE(scope.manager->lastListener == scope.initializer);
            EXPECT_TRUE(scope.initializer->handleEvent({id, 5, {}}).isOk());
            EXPECT_THAT(client.heard, ElementsAre(5));
            hub().removeDomainEventHandler(id, &client);
            EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove " + row.name));
        }
    });
}

TEST(EventDomain, ThatDoesNotExistSharesTheIdZeroAndIsHeardAsAWholeOnceItIsThere)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EventScope scope;
        Client client;
        hub().addSelectionEventHandler(&client);
        EXPECT_THAT(scope.manager->takeNotes().back(), testing::StartsWith("listen 0 "));
        hub().addFEMPluginEventHandler(&client);
        hub().addGeomPluginEventHandler(&client);
        EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
        scope.manager->put("GeomPluginEventDomain");
        hub().addGeomPluginEventHandler(&client);
        EXPECT_THAT(scope.manager->takeNotes(),
                    ElementsAre("channel GeomPluginEventDomain mode 2"));
    });
}

TEST(EventHub, SubscribesForTheFirstClientOfADomainAndUnsubscribesAfterTheLast)
{
    EventScope scope;
    for (Operations const& row : kOperations) {
        Client first, second, stranger;
        long long const id = row.getter();
        (hub().*row.add)(&first);
        EXPECT_NE(scope.manager->takeNotes().back().find(" mode 2"), std::string::npos);
        (hub().*row.add)(&second);
        (hub().*row.add)(&first);
        (hub().*row.remove)(&stranger);
        (hub().*row.remove)(&first);
        (hub().*row.remove)(&first);
        EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
        EXPECT_EQ(publish(id, 1), 1);
        (hub().*row.remove)(&second);
        EXPECT_THAT(scope.manager->takeNotes(), ElementsAre(testing::StartsWith("remove ")));
        EXPECT_EQ(publish(id, 2), 0);
        EXPECT_THAT(first.heard, IsEmpty());
        EXPECT_THAT(second.heard, ElementsAre(1));
    }
}

TEST(EventHub, DropsADomainOrAllWithTheirSubscriptions)
{
    EventScope scope;
    Clients clients;
    hub().addGuiEventHandler(&clients[0]);
    hub().addDomainEventHandler(kDomain + 1, &clients[0]);
    scope.manager->takeNotes();
    hub().removeDomainEventHandlers(kDomain);
    hub().removeDomainEventHandlers(kDomain);
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 4001"));
    EXPECT_EQ(publish(kDomain, 1), 0);
    EXPECT_EQ(publish(7, 1), 1);
    hub().removeAllEventHandler();
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 7", "remove 4002"));
    EXPECT_EQ(publish(7, 1), 0);
    hub().addGuiEventHandler(&clients[0]);
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("channel 7 mode 2"));
}

TEST(EventHub, CallsAClientThatIsRemovedDuringTheEventAndNotOneThatIsAdded)
{
    EventScope scope;
    Clients clients;
    Client added;
    clients[0].act = [&] {
        EXPECT_THAT(clients[1].heard, IsEmpty());              // the order of addresses
        hub().removeDomainEventHandler(kDomain, &clients[0]);  // itself
        hub().removeDomainEventHandler(kDomain, &clients[2]);
        hub().addDomainEventHandler(kDomain, &added);
    };
    EXPECT_EQ(publish(kDomain, 1), 1);
    clients[1].act = [] {
        hub().removeAllEventHandler();
    };
    EXPECT_EQ(publish(kDomain, 2), 1);
    EXPECT_EQ(publish(kDomain, 3), 0);
    EXPECT_THAT(clients[0].heard, ElementsAre(1));
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[2].heard, ElementsAre(1));
    EXPECT_THAT(added.heard, ElementsAre(2));
}

TEST(EventHub, DeliversWhatAClientPublishesToTheClientsOfThatMoment)
{
    EventScope scope;
    Clients clients;
    Client added;
    clients[1].act = [&] {
        if (clients[1].heard.size() > 1) {
            return;
        }
        hub().removeDomainEventHandler(kDomain, &clients[0]);
        hub().addDomainEventHandler(kDomain, &added);
        EXPECT_EQ(publish(kDomain, 2), 1);
        hub().removeDomainEventHandler(kDomain, &clients[2]);
        EXPECT_EQ(publish(kDomain, 3), 1);
    };
    publish(kDomain, 1);
    EXPECT_THAT(clients[0].heard, ElementsAre(1));
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2, 3));
    EXPECT_THAT(clients[2].heard, ElementsAre(2, 1));
    EXPECT_THAT(added.heard, ElementsAre(2, 3));
}

TEST(EventHub, HandsOnWhatAClientThrowsAndGoesOnWithTheNextEvent)
{
    EventScope scope;
    Clients clients;
    clients[1].act = [&] {
        hub().addGuiEventHandler(&clients[1]);
        publish(kDomain + 1, 1);
        throw std::runtime_error("refused");
    };
    EXPECT_THROW(publish(kDomain, 1), std::runtime_error);
    clients[1].act = [] {
    };
    EXPECT_EQ(publish(kDomain, 2), 1);
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[2].heard, ElementsAre(2));
}

TEST(EventHub, RefusesAnEventFromWithinTheSubscriptionAndIsUsableAfterwards)
{
    EventScope scope;
    Clients clients;
    publish(kDomain, 1);
    scope.manager->atAddListener = [] {
        publish(kDomain, 2);
    };
    for (int i = 0; i < 2; ++i) {  // the second time the clients are as this thread has seen them
        EXPECT_THROW(hub().addModelingPluginEventHandler(&clients[0]), tbb_compat::improper_lock);
        EXPECT_EQ(publish(kDomain, 3), 1);
    }
    EXPECT_THAT(clients[0].heard, ElementsAre(1, 3, 3));
    scope.manager->atAddListener = [] {
    };
    scope.manager->takeNotes();
    hub().addModelingPluginEventHandler(&clients[0]);  // it is not subscribed yet
    EXPECT_EQ(scope.manager->takeNotes().size(), 1u);
    EXPECT_EQ(publish(Hub::getModelingDomainId(), 4), 1);
}

TEST(EventHub, WorksWithoutAnEventManagerAndRefusesAnythingElseInItsPlace)
{
    EventScope scope;
    scope.platform.services().remove("KFR.Framework.EventManager");
    EXPECT_EQ(Hub::getDomainId("a"), 0);
    Client client;
    hub().addGuiEventHandler(&client);
    EXPECT_EQ(publish(0, 1), 1);
    hub().removeGuiEventHandler(&client);
    EXPECT_EQ(publish(0, 1), 0);
    scope.platform.services().putStranger("KFR.Framework.EventManager");
    EXPECT_THROW(Hub::getDomainId("a"), KFRSystemException);
}

TEST(EventHub, LetsAClientGoWhateverTheEndOfItsSubscriptionThrows)
{
    EventScope scope;
    Client client;
    hub().addDomainEventHandler(kDomain, &client);
    scope.platform.services().putStranger("KFR.Framework.EventManager");
    ServiceHelper::releaseServices();
    EXPECT_THROW(hub().removeDomainEventHandler(kDomain, &client), KFRSystemException);
    EXPECT_EQ(publish(kDomain, 1), 0);
    scope.platform.services().put("KFR.Framework.EventManager", scope.manager);
    ServiceHelper::releaseServices();
}

TEST(EventHub, TellsAThreadThatDeliversOfEachChangeOfAnother)
{
    EventScope scope;
    Clients clients;  // the first one comes and goes
    std::atomic<int> change = 0;
    std::thread deliveries([&] {
        for (int seen = 0; seen < 400; seen = change) {
            publish(kDomain, 0);  // while it changes
            if (int const settled = change; settled % 2 != 0) {
                std::size_t const before = clients[0].heard.size();
                publish(kDomain, 0);
                EXPECT_EQ(clients[0].heard.size() - before, settled % 4 == 1 ? 0u : 1u);
                ++change;
            }
        }
    });
    for (int i = 0; i < 200; ++i) {
        i % 2 == 0 ? hub().removeDomainEventHandler(kDomain, &clients[0])
                   : hub().addDomainEventHandler(kDomain, &clients[0]);
        ++change;
        while (change % 2 != 0) {
            std::this_thread::yield();
        }
    }
    deliveries.join();
    EXPECT_GE(clients[1].heard.size(), 400u);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
