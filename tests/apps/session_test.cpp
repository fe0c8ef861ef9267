// The library's classes on the services of the real host.

#include "apps/orlo/session.h"

#include "apps/orlo/loadmodel.h"
#include "host/model/entityobject.h"
#include "host/shell/atmousepanel.h"
#include "platform/appfw/guiexecutive.h"
#include "plugins/modelingplugin/utilities/componentframe/atmouseinstruction.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingsettinghelper.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingsettingkeys.h"
#include "plugins/modelingplugin/utilities/componentframe/pluginenv.h"
#include "plugins/modelingplugin/utilities/componentframe/producthelper.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"
#include "plugins/modelingplugin/utilities/eventswork/editentityhelper.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "plugins/modelingplugin/utilities/eventswork/flagmanager.h"
#include "plugins/modelingplugin/utilities/eventswork/plugineventmanager.h"
#include "plugins/modelingplugin/utilities/eventswork/scopewait.h"
#include "plugins/modelingplugin/utilities/eventswork/workitemmanager.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"
#include "plugins/modelingplugin/utilities/selection/geomsubentrefmakeup.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include <stdlib.h>  // NOLINT: setenv is POSIX's

namespace vrn::orlo::app {
namespace {

using namespace plugin::modeling;  // NOLINT: what is tested
using host::model::EntityObject;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

struct Listening final : IKFREventHandler {
    explicit Listening(long long domain) : m_domain(domain)
    {
        EventHandler::instance()->addDomainEventHandler(m_domain, this);
    }
    ~Listening() { EventHandler::instance()->removeDomainEventHandler(m_domain, this); }
    bool handle(long long, KFREvent const& event) override
    {
        ids.push_back(event.eventId);
        return true;
    }
    std::vector<int> ids;

private:
    long long m_domain;
};

class OnTheRealHost : public ::testing::Test {
protected:
    OnTheRealHost()
    {
        setenv("LC_ALL", "de_DE.UTF-8", 1);
        SessionOptions options;
        options.m_logFolder = m_folder.path();
        m_session.emplace(options);
        m_entity =
            KFR::make<EntityObject>(KFR::NULLSP, 7U, 1U, m_session->application().entityService());
        m_entity->declareProperty("name", KFRAny(std::string("load")));
        m_entity->declareProperty("factor", KFRAny(1.0));
        m_entity->declareProperty("row", KFRAny(KFRSequence<double>{1.0, 2.0}));
        EXPECT_TRUE(m_session->application().entities().add(m_entity).isOk());
    }

    host::application::Application& application() { return m_session->application(); }
    void edit(DataBunch const& values)
    {
        EditEntityHelper(m_entity->getEntityReference()).setProperties(values);
    }
    double factor()
    {
        KFRAny value;
        double number = 0.0;
        EXPECT_TRUE(m_entity->getProperty("factor", value).isOk() && (value >>= number));
        return number;
    }
    std::size_t rowLength()
    {
        KFRAny value;
        EXPECT_TRUE(m_entity->getProperty("row", value).isOk());
        return value.get<KFRSequence<double>>()->size();
    }

    test::TemporaryFolder m_folder;
    std::optional<Session> m_session;
    KFRSmartPointer<EntityObject> m_entity;
};

TEST_F(OnTheRealHost, SettingsAreThoseThatAreShipped)
{
    bool create = false;
    EXPECT_TRUE(
        ModelingSettingHelper::loadBoolConfiguration(settingkeys::kGravityAutoCreate, create)
            .isOk());
    double magnitude = 0.0;
    EXPECT_TRUE(ModelingSettingHelper::loadDoubleConfiguration(
                    u"MODELINGPLUGIN.GravitySettings.Magnitude", magnitude)
                    .getCode() != KFR::ok);  // only the beginning ignores the case
    EXPECT_TRUE(
        ModelingSettingHelper::loadDoubleConfiguration(settingkeys::kGravityMagnitude, magnitude)
            .isOk());
    EXPECT_GT(magnitude, 0.0);
    EXPECT_NE(ModelingSettingHelper::getConfigByOption(u"FEMPlugin.x"), KFR::NULLSP);
    EXPECT_TRUE(ProductHelper::isOrloProduct());
    EXPECT_TRUE(PluginEnv::instance()->isHeadlessOrHandlessMode());
    EXPECT_EQ(PluginEnv::instance()->getModelingLogFilter(), 4);
    static_cast<void>(PluginEnv::instance()->CheckedDDMAggregatePattern());
}

TEST_F(OnTheRealHost, MessagesComeInTheUsersLanguageWithTheirParameters)
{
    ::testing::internal::CaptureStderr();
    MessageHandler::showMessage(10613, {KFRAny(std::string("nu")), KFRAny(0), KFRAny(0.5)},
                                Severity::warning, false);
    MessageHandler::showMessage(987654, Severity::error, false);
    std::string const said = ::testing::internal::GetCapturedStderr();
    EXPECT_THAT(said, HasSubstr("warning: "));
    EXPECT_THAT(said, HasSubstr("0.5"));
    EXPECT_THAT(said, HasSubstr("987654"));  // the id that no catalogue has
    EXPECT_NE(LocalStr(10440).getUStr(), u"Loads");
    EXPECT_FALSE(LocalStr(10440).getUStr().isEmpty());
    EXPECT_EQ(LocalStr(12345, "fallback").getStr(), "fallback");
    EXPECT_NE(MessageHandler::createKFRResult(10613).getDomain(), -1);
}

TEST_F(OnTheRealHost, AnEditIsHeardUndoneAndRedone)
{
    Listening const entities(EventHandler::getEntityDomainId());
    edit({{"factor", 2.5}, {"name", std::string("wind")}});
    EXPECT_EQ(factor(), 2.5);
    EXPECT_THAT(entities.ids, ElementsAre(2));  // one event for both properties
    static_cast<void>(CmdInvoker("Undo", "VRN.CorePlugin").invoke(DataBunch()));
    EXPECT_EQ(factor(), 1.0);
    static_cast<void>(CmdInvoker("Redo", "VRN.CorePlugin").invoke(DataBunch()));
    EXPECT_EQ(factor(), 2.5);
    EXPECT_THAT(entities.ids, ElementsAre(2, 2, 2));

    edit({{"factor", 3.0}, {"mass", 1.0}});  // all or nothing
    EXPECT_EQ(factor(), 2.5);
    EditEntityHelper(m_entity->getEntityReference()).setPropertiesEx({{"factor", 4.0}});
    EXPECT_EQ(factor(), 4.0);
    EXPECT_THAT(application().processor().history().undoNames(), ElementsAre("ModifyObjects"));
    EditEntityHelper::refreshEntity(m_entity);
    EXPECT_THAT(entities.ids, ElementsAre(2, 2, 2, 2, 15));
}

TEST_F(OnTheRealHost, RunsOfEqualValuesAreMergedUnlessToldNotTo)
{
    edit({{"row", KFRSequence<double>{5.0, 5.0, 5.0}}});
    EXPECT_EQ(rowLength(), 1U);
    EditEntityHelper(m_entity->getEntityReference())
        .setPropertiesWithoutCompressSequence({{"row", KFRSequence<double>{6.0, 6.0, 6.0}}});
    EXPECT_EQ(rowLength(), 3U);
}

TEST_F(OnTheRealHost, AScopeWaitIsOneStepAndOneSilentStretch)
{
    Listening const processor(EventHandler::getProcessorDomainId());
    {
        ScopeWait const wait(true, true);
        EXPECT_EQ(application().states().silentDepth(), 1);
        edit({{"factor", 2.0}});
        edit({{"factor", 3.0}});
    }
    EXPECT_EQ(application().states().silentDepth(), 0);
    // 20 and 21 open and close the stretch for the state machine; the hub hears the runs alone.
    EXPECT_THAT(processor.ids, ElementsAre(3, 4, 3, 4));
    EXPECT_EQ(application().processor().history().undoNames().size(), 1U);
    EXPECT_TRUE(application().processor().undo().isOk());
    EXPECT_EQ(factor(), 1.0);
}

TEST_F(OnTheRealHost, WorkForLaterWaitsForThePump)
{
    FlagManager::instance()->ignoreEventUpdateInCommand();
    std::string order;
    WorkItemManager::instance()->push([&order] { order += "a"; }, true);
    CmdInvoker later("Undo", "VRN.CorePlugin");
    edit({{"factor", 9.0}});
    EXPECT_TRUE(later.invokeAsync({}).isOk());
    EXPECT_TRUE(FlagManager::instance()->isUpdatedSetted());
    EXPECT_EQ(order, "");
    EXPECT_EQ(factor(), 9.0);
    EXPECT_EQ(application().pump(), 3U);
    EXPECT_FALSE(FlagManager::instance()->isUpdatedSetted());
    EXPECT_EQ(order, "a");
    EXPECT_EQ(factor(), 1.0);
}

TEST_F(OnTheRealHost, EventsOfOtherThreadsReachClientsOnTheMainThread)
{
    Listening const modeling(EventHandler::getModelingDomainId());
    std::thread([] {
        PluginEventManager events;
        static_cast<void>(events.publishEvent(90001, KFRAny(1)));
        static_cast<void>(events.publishEvent(5, KFRAny()));  // nobody listens to that id
    }).join();
    EXPECT_TRUE(modeling.ids.empty());
    application().pump();
    EXPECT_THAT(modeling.ids, ElementsAre(90001));
}

TEST_F(OnTheRealHost, TheAtMousePanelShowsAndClears)
{
    ::testing::internal::CaptureStderr();
    AtMouseInstruction& mouse = *AtMouseInstruction::instance();
    mouse.setIcon("pick.svg");
    mouse.show(10440, 10441);
    auto const& shown = application().atMousePanel().instruction();
    ASSERT_TRUE(shown.has_value());
    EXPECT_EQ(shown->m_text, LocalStr(10440).getUStr());
    EXPECT_EQ(shown->m_secondText, LocalStr(10441).getUStr());
    EXPECT_EQ(shown->m_icon, "pick.svg");
    mouse.showError(10442, {});
    EXPECT_TRUE(application().atMousePanel().errorInstruction().has_value());
    mouse.showWorkflow(10443, 10444);
    EXPECT_TRUE(application().atMousePanel().workflow().has_value());
    mouse.setCursorIcon("Cross");
    EXPECT_EQ(application().atMousePanel().cursor(), "Cross");
    mouse.close(AtMouseCloseEnum::workflow);
    EXPECT_FALSE(application().atMousePanel().workflow().has_value());
    mouse.close(AtMouseCloseEnum::all);
    EXPECT_FALSE(application().atMousePanel().instruction().has_value());
    EXPECT_FALSE(application().atMousePanel().errorInstruction().has_value());
    ::testing::internal::GetCapturedStderr();
}

TEST(ModelsOfTheHost, LeadFromWhatAReferenceNamesToItsPart)
{
    Session session;
    auto const model = loadModel(session, std::string(ORLO_BRACKET) + "/bracket.step");
    EXPECT_EQ(ServiceHelper::getCurrentModel(), KFRIService(model->root()));
    auto const& bolt = model->parts()[2];
    unsigned const body = model->geometry().entitiesOf(2).front().m_number;
    EXPECT_EQ(PluginHelper::getPart(model->reference(body)), KFRIService(bolt));
    auto const instance =
        PluginHelper::getPartInstancebyPart(PluginHelper::getPart(bolt->getEntityReference()));
    ASSERT_NE(instance, KFR::NULLSP);
    auto const entity = KFR::loose_cast<appfw::IEntityInterface>(instance);
    EXPECT_EQ(PluginHelper::getPart(entity->getEntityReference()), KFRIService(bolt));
    EXPECT_EQ(PluginHelper::getPart(CAE::EntityReference()), KFR::NULLSP);
}

TEST(ModelsOfTheHost, PackFacesUnderTheFirstPlaceOfTheirPart)
{
    Session session;
    auto const model = loadModel(session, std::string(ORLO_BRACKET) + "/bracket.step");
    auto const& bolt = model->parts()[2];
    CAE::IGeometrySequence faces;
    KFRSequence<unsigned int> numbers;
    for (auto const& entity : model->geometry().entitiesOf(2)) {
        if (entity.m_class == host::geometry::EntityClass::face) {
            faces.append(model->object(entity.m_number));
            numbers.append(entity.m_number);
        }
    }
    GeomSubEntRefMakeup makeup;
    makeup.addGeometries(faces);
    appfw::IEntRefSequence containers;
    makeup.appendToEntRefSequence(containers);
    ASSERT_EQ(containers.size(), 1U);  // one body
    CAE::EntityReference owner;
    EXPECT_TRUE(containers[0]->getOwner(owner).isOk());
    EXPECT_EQ(owner.service, KFRIService(PluginHelper::getPartInstancebyPart(
                                 PluginHelper::getPart(bolt->getEntityReference()))));
    KFRSequence<unsigned int> ids;
    EXPECT_TRUE(containers[0]->getIds(model->reference(numbers[0]).typeId, ids).isOk());
    EXPECT_TRUE(std::equal(ids.begin(), ids.end(), numbers.begin(), numbers.end()));

    SubEntitiesCollector collector;
    collector.addGeometries(faces);
    auto const shown = collector.getSubEntities();
    ASSERT_EQ(shown.size(), 1U);  // the body displays them
    EXPECT_EQ(shown[0].numbers.size(), faces.size());
}

TEST(BoxesOfTheHost, AnswerFromTheScriptWhereSomebodyIsToAnswer)
{
    host::kernel::Kernel kernel;
    host::application::Application::Options options;
    test::TemporaryFolder const folder;
    options.m_resources = ORLO_RESOURCES_FOLDER;
    options.m_stateFolder = folder.path();
    options.m_headless = false;
    options.m_boxAnswers = {"2", "OK"};
    host::application::Application application(kernel, options);
    ModelingPlugin plugin(kernel);
    kernel.loadComponent("libModelingPluginUtilities.so");
    plugin.start("");
    bool answer = false;
    EXPECT_FALSE(
        MessageHandler::showThreeButtonMessageBox(u"Merge?", answer, Severity::warning, u"", u"")
            .isOk());
    EXPECT_TRUE(answer);
    EXPECT_TRUE(MessageHandler::showPopMessage(u"Merged.", Severity::information, u"", u"").isOk());
    ASSERT_EQ(application.boxes().log().size(), 2U);
    EXPECT_EQ(application.boxes().log()[0].m_title, u"Warning");
    EXPECT_TRUE(application.boxes().unused().empty());
    plugin.stop();
    kernel.stop();
}

}  // namespace
}  // namespace vrn::orlo::app
