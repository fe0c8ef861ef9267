// The thin layer over the event manager.

#include "plugins/modelingplugin/utilities/eventswork/plugineventmanager.h"

#include "tests/support/eventfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::EventScope;
using test::FakeEventManager;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using M = PluginEventManager&;
using L = PluginEventManager::Listener const&;

constexpr char const* kModeling = "VRN.Tamarak.Plugins.ModelingPlugin";

struct Call {
    char const* note;  // # for the modeling domain
    KFRResult (*call)(M, L);
    bool toListener = true;
};

long long domain = 12;

// clang-format off
constexpr Call kCalls[] = {
    {"listen 12 5 mode 2", [](M m, L l) { return m.addListener(domain, 5, l); }},
    {"listen # 5 mode 2", [](M m, L l) { return m.addListener(5, l); }},
    {"filter 13 3 1", [](M m, L l) { return m.addListener(KFR::Framework::EventFilter{13, {3, 1}}, l); }},
    {"channel 14 mode 2", [](M m, L l) { return m.addChannelListener(14, l); }},
    {"channel 7 mode 2", [](M m, L l) { return m.addChannelListener(l); }},
    {"remove 12", [](M m, L l) { return m.removeListener(domain, l); }},
    {"remove #", [](M m, L l) { return m.removeListener(l); }},
    {"publish # 5 0", [](M m, L) { return m.publishEvent(5, KFRAny(1)); }, false},
    {"publish 12 5 0", [](M m, L) { return m.publishEvent(domain, 5, KFRAny(2)); }, false},
    {"fire # 5 1", [](M m, L l) { return m.fireEvent(5, KFRAny(3), l); }},
    {"fire 12 5 1", [](M m, L l) { return m.fireEvent(domain, 5, KFRAny(4), l); }},
};
// clang-format on

TEST(PluginEventManager, PassesEachCallOnAndItsResultBack)
{
    EventScope scope;
    PluginEventManager events = PluginEventManager();
    scope.manager->takeNotes();
    int payloads = 0;
    for (Call const& row : kCalls) {
        std::string note = row.note;
        if (auto const place = note.find('#'); place != std::string::npos) {
            note.replace(place, 1, kModeling);
        }
        scope.manager->lastEvent = initKFREvent();
        EXPECT_EQ(row.call(events, scope.initializer).getCode(), FakeEventManager::kAnswer);
        EXPECT_THAT(scope.manager->takeNotes(), ElementsAre(note));
        EXPECT_EQ(scope.manager->lastListener == scope.initializer, row.toListener) << note;
        if (int const* const payload = scope.manager->lastEvent.payload.get<int>()) {
            EXPECT_EQ(*payload, ++payloads);
        }
    }
    EXPECT_EQ(payloads, 4);
}

TEST(PluginEventManager, CreatesTheModelingDomainUnlessItIsThere)
{
    EventScope scope;
    PluginEventManager events;
    EXPECT_THAT(scope.manager->takeNotes(), ElementsAre(std::string("create ") + kModeling));
    PluginEventManager again;
    EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
    long long id = 3;
    EXPECT_FALSE(again.getDomainID("new", id).isOk());
    EXPECT_EQ(id, 3);
    EXPECT_TRUE(again.createDomainID("new", id).isOk());
    EXPECT_EQ(id, FakeEventManager::idOf("new"));
    EXPECT_TRUE(events.getDomainID(kModeling, id).isOk());
    EXPECT_EQ(id, FakeEventManager::idOf(kModeling));
}

TEST(PluginEventManager, IsOkAndDoesNothingWithoutAnEventManagerAndRefusesAnythingElse)
{
    EventScope scope;
    scope.platform.services().remove("KFR.Framework.EventManager");
    PluginEventManager events;
    for (Call const& row : kCalls) {
        EXPECT_TRUE(row.call(events, scope.initializer).isOk()) << row.note;
    }
    long long id = 3;
    EXPECT_TRUE(events.createDomainID("new", id).isOk() && events.getDomainID("new", id).isOk());
    EXPECT_EQ(id, 3);
    EXPECT_THAT(scope.manager->takeNotes(), IsEmpty());
    scope.platform.services().putStranger("KFR.Framework.EventManager");
    EXPECT_THROW(PluginEventManager(), KFRSystemException);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
