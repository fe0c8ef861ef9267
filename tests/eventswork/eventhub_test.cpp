// The event hub: which domains it knows, when it subscribes, and who is told of an event.

#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"

#include "plugins/modelingplugin/utilities/eventswork/eventlistener.h"
#include "tests/support/eventfakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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
    char const* name;
    long long (*getter)();
    bool created;
    char const* events;
    void (EventListener::*listen)(long long);
    void (Hub::*add)(IKFREventHandler*);  // null: by addDomainEventHandler
    void (Hub::*remove)(IKFREventHandler*);
};

// clang-format off
constexpr Domain kDomains[] = {
    {"vrn.orlo.appfw.SelectionManagerEvent", &Hub::getSelectionDomainId, false,
     "1 2", &EventListener::listenSelectionEvent,
     &Hub::addSelectionEventHandler, &Hub::removeSelectionEventHandler},
    {"VRN.Tamarak.Plugins.FEMPlugin", &Hub::getFEMDomainId, false,
     "1 2 3 801 705 706 106 708", &EventListener::listenMeshPluginEvent,
     &Hub::addFEMPluginEventHandler, &Hub::removeFEMPluginEventHandler},
    {"VRN.Tamarak.Plugins.StudyPlugin", &Hub::getStudyDomainId, true,
     "800009 900001 900002", &EventListener::listenStudyPluginEvent,
     &Hub::addStudyPluginEventHandler, &Hub::removeStudyPluginEventHandler},
    {"vrn.orlo.plugin.motion", &Hub::getMotionDomainId, true,
     "1 2", &EventListener::listenMotionPluginEvent,
     &Hub::addMotionPluginEventHandler, &Hub::removeMotionPluginEventHandler},
    {"VRN.Tamarak.Plugins.ModelingPlugin", &Hub::getModelingDomainId, true,
     "23841 23842 90001 900001 900002 900003 1000001", &EventListener::listenModelingPluginEvent,
     &Hub::addModelingPluginEventHandler, &Hub::removeModelingPluginEventHandler},
    {"VRN.Tamarak.Plugins.ShaperPlugin", &Hub::getShaperDomainId, true,
     "900001", &EventListener::listenShaperPluginEvent,
     &Hub::addShaperPluginEventHandler, &Hub::removeShaperPluginEventHandler},
    {"vrn.orlo.appfw.Entity", &Hub::getEntityDomainId, false,
     "1 3 2 9 10 15 30", &EventListener::listenEntityDomainEvent,
     nullptr, nullptr},
    {"vrn.orlo.appfw.UndoRedoFWEvent", &Hub::getUndoRedoDomainId, true,
     "2 3 5 6", &EventListener::listenUndoRedoEvent,
     nullptr, nullptr},
    {"vrn.orlo.appfw.PivotDataFW", &Hub::getPivotDomainId, true,
     "1001 1002 1003 1004 1006 3002", &EventListener::listenPivotDomainEvent,
     &Hub::addPivotEventHandler, &Hub::removePivotEventHandler},
    {"vrn.orlo.appfw.Modes", &Hub::getModesDomainId, true,
     "1 2", &EventListener::listenModesDomainEvent,
     &Hub::addModeChangeEventHandler, &Hub::removeModeChangeEventHander},
    {"vrn.orlo.appfw.PickFilterEvent", &Hub::getFilterChangeDomainId, true,
     "1000", &EventListener::listenFilterDomainEvent,
     &Hub::addFilterChangeEventHandler, &Hub::removeFilterChangeEventHandler},
    {"VRN.Services.Display3DDataManager", &Hub::getDDMDomainId, true,
     "100 202 204", &EventListener::listenDDMEvent,
     &Hub::addDDMEventHandler, &Hub::removeDDMEventHandler},
    {"vrn.orlo.appfw.ModelPersistence", &Hub::getModelPersistenceDomainId, true,
     "1 5 20 30 21", &EventListener::listenModelPersistenceDomainEvent,
     &Hub::addModelPersistenceEventHandler, &Hub::removeModelPersistenceEventHandler},
    {"vrn.orlo.appfw.PluginOptionsEvents", &Hub::getPluginOptsDomainId, true,
     "300 400", &EventListener::listenPluginOptsDomainEvent,
     nullptr, nullptr},
    {"VRN.PostPluginDomain", &Hub::getPostPluginDomainId, true,
     "4001 4002 4003 4004 4005 4006", &EventListener::listenPostPluginDomainEvent,
     &Hub::addPostPluginEventHandler, &Hub::removePostPluginEventHandler},
    {"vrn.orlo.appfw.CmdProcessor", &Hub::getProcessorDomainId, true,
     "3 4 5", &EventListener::listenProcessorDomainEvent,
     &Hub::addProcessorEventHandler, &Hub::removeProcessorEventHandler},
    {"GeomPluginEventDomain", &Hub::getGeomDomainId, false,
     "115", &EventListener::listenGeomPluginEvent,
     &Hub::addGeomPluginEventHandler, &Hub::removeGeomPluginEventHandler},
    {"Tamarak.Plugins.GeomPlugin.OnDisplayMenu", &Hub::getGeomODMDomainId, false,
     "1001", &EventListener::listenGeomPluginODMEvent,
     &Hub::addGeomPluginODMEventHandler, &Hub::removeGeomPluginODMEventHandler},
    {"vrn.orlo.plugin.geometry.ModelDisplayService", &Hub::getGeomModelDisplayDomainId, false,
     "100", &EventListener::listenGeomPluginModelDisplayEvent,
     &Hub::addGeomPluginModelDisplayEventHandler, &Hub::removeGeomPluginModelDisplayEventHandler},
    {"vrn.orlo.appfw.PluginODMDomain", &Hub::getODMModeDomainId, true,
     "1 2", &EventListener::listenODMModeDomainEvent,
     &Hub::addODMModeEventHandler, &Hub::removeODMModeEventHandler},
    {"vrn.orlo.appfw.RestorePanelValueToDefaultDomainName", &Hub::getRestorePanelValueToDefaultDomainId,
     true,
     "1", &EventListener::listenRestorePanelValueToDefaultDomainEvent,
     &Hub::addRestorePanelValueToDefaultEventHandler,
     &Hub::removeRestorePanelValueToDefaultEventHandler},
    {"vrn.orlo.appfw.Missions", &Hub::getMissionsEventDomainId, true,
     "1", &EventListener::listenMissionChangeDomainEvent,
     &Hub::addMissionChangeEventHandler, &Hub::removeMissionChangeEventHandler},
};
// clang-format on

constexpr long long kDomain = 4001;

Hub& hub()
{
    return *Hub::instance();
}

KFREvent eventOf(long long domain, int id = 1)
{
    KFREvent event = initKFREvent();
    event.domain = domain;
    event.eventId = id;
    return event;
}

/// Notes what it is told, then does what it was made for.
class Client final : public IKFREventHandler {
public:
    std::function<void()> act;
    std::vector<int> heard;
    long long domain = -1;

    bool handle(long long ofDomain, KFREvent const& event) override
    {
        heard.push_back(event.eventId);
        domain = ofDomain;
        if (act) {
            act();
        }
        return false;
    }
};

// The clients of one array are called in its order.
using Clients = std::array<Client, 3>;

void addAll(Clients& clients)
{
    for (Client& client : clients) {
        hub().addDomainEventHandler(kDomain, &client);
    }
}

TEST(EventDomain, HasItsNameAndIsCreatedOrNot)
{
    for (Domain const& row : kDomains) {
        SCOPED_TRACE(row.name);
        EventScope scope;
        auto const none = std::vector<std::string>();
        auto const creation = std::vector<std::string>{std::string("create ") + row.name};
        long long const id = FakeEventManager::idOf(row.name);
        EXPECT_EQ(row.getter(), row.created ? id : 0);
        EXPECT_EQ(scope.manager->takeNotes(), row.created ? creation : none);
        scope.manager->put(row.name);
        EXPECT_EQ(row.getter(), id);
        EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
        scope.platform.services().remove("KFR.Framework.EventManager");
        ServiceHelper::releaseServices();
        EXPECT_EQ(row.getter(), 0);
    }
    EventScope scope;
    EXPECT_EQ(Hub::getDomainId("a"), FakeEventManager::idOf("a"));
    EXPECT_EQ(Hub::getGUIChannelId(), FakeEventManager::kGuiChannel);
}

TEST(EventDomain, ThatExistsHasItsClientsSubscribedToItsEvents)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EventScope scope;
        for (Domain const& row : kDomains) {
            scope.manager->put(row.name);
        }
        for (Domain const& row : kDomains) {
            SCOPED_TRACE(row.name);
            long long const id = FakeEventManager::idOf(row.name);
            Client client;
            row.add != nullptr ? (hub().*row.add)(&client)
                               : hub().addDomainEventHandler(id, &client);
            EXPECT_THAT(scope.manager->takeNotes(),
                        ElementsAre(std::string("listen ") + row.name + " mode 2: " + row.events));
            EXPECT_THAT(scope.manager->lastListener,
                        test::IsObject(KFRIService(scope.initializer)));
            EXPECT_TRUE(scope.initializer->handleEvent(eventOf(id, 5)).isOk());
            EXPECT_THAT(client.heard, ElementsAre(5));
            EXPECT_EQ(client.domain, id);
            row.remove != nullptr ? (hub().*row.remove)(&client)
                                  : hub().removeDomainEventHandler(id, &client);
            EXPECT_THAT(scope.manager->takeNotes(), ElementsAre(std::string("remove ") + row.name));
        }
    });
}

TEST(EventDomain, ThatDoesNotExistSharesTheIdZeroAndIsHeardAsAWholeOnceItIsThere)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        EventScope scope;
        Client client;
        for (Domain const& row : kDomains) {
            if (!row.created && row.add != nullptr) {
                (hub().*row.add)(&client);
            }
        }
        auto notes = scope.manager->takeNotes();
        std::erase_if(notes, [](auto const& note) { return note.starts_with("create "); });
        EXPECT_THAT(notes, ElementsAre(testing::StartsWith("listen 0 mode 2: ")));
        scope.manager->put("GeomPluginEventDomain");
        hub().addGeomPluginEventHandler(&client);
        EXPECT_THAT(scope.manager->takeNotes(),
                    ElementsAre("channel GeomPluginEventDomain mode 2"));
    });
}

TEST(EventListener, SubscribesOnceByEachOfItsOperationsUntilItIsRemoved)
{
    EventScope scope;
    EventListener listener(scope.initializer);
    for (Domain const& row : kDomains) {
        SCOPED_TRACE(row.name);
        (listener.*row.listen)(77);
        (listener.*row.listen)(77);
        listener.removeDomainListener(78);
        EXPECT_THAT(scope.manager->takeNotes(),
                    ElementsAre(std::string("listen 77 mode 2: ") + row.events));
        listener.removeDomainListener(77);
        listener.removeDomainListener(77);
        EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 77"));
    }
    listener.listenDomainEvent(80);  // without initialize() no domain has a row
    listener.listenDomainEvent(79);
    listener.removeAllListener();
    listener.removeAllListener();
    EXPECT_THAT(scope.manager->takeNotes(),
                ElementsAre("channel 80 mode 2", "channel 79 mode 2", "remove 79", "remove 80"));
}

TEST(EventHub, SubscribesForTheFirstClientAndUnsubscribesAfterTheLast)
{
    EventScope scope;
    Client first;
    Client second;
    hub().addGuiEventHandler(&first);
    EXPECT_EQ(scope.manager->takeNotes().back(), "channel 7 mode 2");
    hub().addGuiEventHandler(&second);
    hub().addGuiEventHandler(&first);
    Client stranger;
    hub().removeGuiEventHandler(&stranger);
    hub().removeDomainEventHandler(kDomain, &first);
    hub().removeGuiEventHandler(&first);
    hub().removeGuiEventHandler(&first);
    EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
    EXPECT_EQ(hub().handleEvent(eventOf(7)), 1);
    hub().removeGuiEventHandler(&second);
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 7"));
    EXPECT_EQ(hub().handleEvent(eventOf(7)), 0);
    EXPECT_THAT(first.heard, IsEmpty());
    EXPECT_THAT(second.heard, ElementsAre(1));
}

TEST(EventHub, DropsADomainOrAllWithTheirSubscriptions)
{
    EventScope scope;
    Clients clients;
    addAll(clients);
    hub().addGuiEventHandler(&clients[0]);
    hub().addDomainEventHandler(kDomain + 1, &clients[0]);
    scope.manager->takeNotes();
    hub().removeDomainEventHandlers(kDomain);
    hub().removeDomainEventHandlers(kDomain);
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 4001"));
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain)), 0);
    EXPECT_EQ(hub().handleEvent(eventOf(7)), 1);
    hub().removeAllEventHandler();
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("remove 7", "remove 4002"));
    EXPECT_EQ(hub().handleEvent(eventOf(7)), 0);
    addAll(clients);
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre("channel 4001 mode 2"));
}

TEST(EventHub, CallsEachClientOfTheDomainOnceInTheOrderOfAddresses)
{
    EventScope scope;
    Clients clients;
    std::vector<Client const*> order;
    for (std::size_t const i : {2u, 0u, 1u, 2u}) {
        clients[i].act = [&order, client = &clients[i]] {
            order.push_back(client);
        };
        hub().addDomainEventHandler(kDomain, &clients[i]);
    }
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain)), 1);
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain + 1)), 0);
    EXPECT_THAT(order, ElementsAre(&clients[0], &clients[1], &clients[2]));
}

TEST(EventHub, CallsAClientThatIsRemovedDuringTheEventAndNotOneThatIsAdded)
{
    EventScope scope;
    Clients clients;
    Client added;
    addAll(clients);
    clients[0].act = [&] {
        hub().removeDomainEventHandler(kDomain, &clients[0]);  // itself
        hub().removeDomainEventHandler(kDomain, &clients[2]);
        hub().addDomainEventHandler(kDomain, &added);
        hub().addDomainEventHandler(kDomain + 1, &added);
    };
    clients[1].act = [&] {
        hub().removeDomainEventHandlers(kDomain + 1);
    };
    hub().handleEvent(eventOf(kDomain, 1));
    hub().handleEvent(eventOf(kDomain, 2));
    EXPECT_THAT(clients[0].heard, ElementsAre(1));
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[2].heard, ElementsAre(1));
    EXPECT_THAT(added.heard, ElementsAre(2));

    clients[1].act = [] {
        hub().removeAllEventHandler();
    };
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain, 3)), 1);
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain, 4)), 0);
    EXPECT_EQ(clients[1].heard.back(), 3);
    EXPECT_EQ(added.heard.size() + clients[2].heard.size(), 3u);  // 3 went to `added` as well
}

TEST(EventHub, DeliversWhatAClientPublishesToTheClientsOfThatMoment)
{
    EventScope scope;
    Clients clients;
    addAll(clients);
    Client added;
    clients[1].act = [&] {
        clients[1].act = nullptr;
        hub().removeDomainEventHandler(kDomain, &clients[0]);
        hub().removeDomainEventHandler(kDomain, &clients[2]);
        hub().addDomainEventHandler(kDomain, &added);
        EXPECT_EQ(hub().handleEvent(eventOf(kDomain, 2)), 1);
        hub().removeDomainEventHandler(kDomain, &clients[1]);
        EXPECT_EQ(hub().handleEvent(eventOf(kDomain, 3)), 1);
    };
    hub().handleEvent(eventOf(kDomain, 1));
    EXPECT_THAT(clients[0].heard, ElementsAre(1));
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[2].heard, ElementsAre(1));
    EXPECT_THAT(added.heard, ElementsAre(2, 3));
}

TEST(EventHub, HandsOnWhatAClientThrowsAndGoesOnWithTheNextEvent)
{
    EventScope scope;
    Clients clients;
    addAll(clients);
    clients[1].act = [] {
        hub().addDomainEventHandler(kDomain + 1, nullptr);
        hub().handleEvent(eventOf(kDomain + 2));
        throw std::runtime_error("refused");
    };
    EXPECT_THROW(hub().handleEvent(eventOf(kDomain, 1)), std::runtime_error);
    clients[1].act = nullptr;
    EXPECT_EQ(hub().handleEvent(eventOf(kDomain, 2)), 1);
    EXPECT_THAT(clients[0].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[1].heard, ElementsAre(1, 2));
    EXPECT_THAT(clients[2].heard, ElementsAre(2));
}

TEST(EventHub, RefusesAnEventFromWithinTheSubscriptionAndIsUsableAfterwards)
{
    EventScope scope;
    Client client;
    hub().addDomainEventHandler(kDomain, &client);
    hub().handleEvent(eventOf(kDomain, 1));
    scope.manager->atAddListener = [] {
        hub().handleEvent(eventOf(kDomain, 2));
    };
    EXPECT_THROW(hub().addModelingPluginEventHandler(&client), tbb_compat::improper_lock);
    EXPECT_THAT(client.heard, ElementsAre(1));
    scope.manager->atAddListener = nullptr;
    scope.manager->takeNotes();
    hub().addModelingPluginEventHandler(&client);  // it is not subscribed yet
    EXPECT_EQ(scope.manager->takeNotes().size(), 1u);
    hub().handleEvent(eventOf(Hub::getModelingDomainId(), 3));
    EXPECT_THAT(client.heard, ElementsAre(1, 3));
}

TEST(EventHub, WorksWithoutAnEventManagerAndRefusesAnythingElseInItsPlace)
{
    EventScope scope;
    scope.platform.services().remove("KFR.Framework.EventManager");
    EXPECT_EQ(Hub::getDomainId("a"), 0);
    EXPECT_EQ(Hub::getGUIChannelId(), 0);
    Client client;
    hub().addGuiEventHandler(&client);
    EXPECT_EQ(hub().handleEvent(eventOf(0)), 1);
    hub().removeGuiEventHandler(&client);
    EXPECT_EQ(hub().handleEvent(eventOf(0)), 0);
    scope.platform.services().putStranger("KFR.Framework.EventManager");
    EXPECT_THROW(Hub::getDomainId("a"), KFRSystemException);
    int width = -1;
    int height = -1;
    hub().viewportSize(width, height);
    EXPECT_EQ(width + height, 0);
}

TEST(EventHub, DeliversOnOneThreadWhileAnotherChangesTheClients)
{
    EventScope scope;
    Clients clients;
    hub().addDomainEventHandler(kDomain, &clients[1]);
    std::atomic<bool> done = false;
    std::thread changes([&] {
        for (int i = 0; i < 2000; ++i) {
            hub().addDomainEventHandler(kDomain, &clients[i % 2 == 0 ? 0 : 2]);
            hub().removeDomainEventHandler(kDomain, &clients[i % 2 == 0 ? 0 : 2]);
        }
        done = true;
    });
    std::size_t events = 0;
    do {
        EXPECT_EQ(hub().handleEvent(eventOf(kDomain)), 1);
        ++events;
    } while (!done);
    changes.join();
    EXPECT_EQ(clients[1].heard.size(), events);
    EXPECT_LE(clients[0].heard.size() + clients[2].heard.size(), 2 * events);
}

TEST(EventHub, TellsAThreadThatHasDeliveredBeforeOfEachChangeOfAnother)
{
    EventScope scope;
    Client client;
    std::atomic<int> turn = 0;
    std::thread deliveries([&] {
        for (int i = 0; i < 200; ++i) {
            while (turn != 2 * i + 1) {
                std::this_thread::yield();
            }
            EXPECT_EQ(hub().handleEvent(eventOf(kDomain, i)), i % 2 == 0 ? 1 : 0);
            ++turn;
        }
    });
    for (int i = 0; i < 200; ++i) {
        i % 2 == 0 ? hub().addDomainEventHandler(kDomain, &client)
                   : hub().removeDomainEventHandler(kDomain, &client);
        ++turn;
        while (turn != 2 * i + 2) {
            std::this_thread::yield();
        }
    }
    deliveries.join();
    EXPECT_EQ(client.heard.size(), 100u);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
