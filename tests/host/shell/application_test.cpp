#include "host/kernel/eventmanager.h"
#include "host/shell/applicationaccess.h"
#include "host/shell/messagecatalog.h"
#include "host/shell/messagedisplay.h"
#include "host/shell/stateservice.h"
#include "tests/host/shell/shelltesting.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

namespace vrn::orlo::host::shell {
namespace {

using appfw::Severity;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Pair;

// --- messages ----------------------------------------------------------------------------------

TEST(MessageDisplay, SaysOneLineInTheWordsThatAreClosestToTheMessage)
{
    auto const result = [](int code, int id) {
        return KFRResult(code, 3, id);
    };
    // clang-format off
    struct {
        KFRResult message;
        Severity severity;
        char const* line;
    } const cases[] = {
        {result(5, 1).addParam(0.5), Severity::error, "error: It's the part '0.5'"},
        {result(5, 0).addParam(7).addParam("two\nlines"), Severity::warning, "warning: two lines"},
        {result(5, 12345).addParam(icu::UnicodeString(u"größer")), Severity::information,
            "note: größer"},
        {result(12345, 12345), Severity::plain, "note: code 12345 (no text)"},
        {KFRResult(), Severity::error, "error: code 2147483647 (no text)"},
    };
    // clang-format on
    Lines lines;
    auto const display = KFR::make<MessageDisplay>(
        KFR::make<MessageCatalog>(TESTFILE_TESTMESSAGES, ""), lines.sink());
    for (auto const& row : cases) {
        EXPECT_TRUE(display->show(row.message, row.severity, false).isOk());
        EXPECT_THAT(lines.take(), ElementsAre(Pair(row.severity, row.line)));
    }
}

TEST(MessageDisplay, DoesWithoutCatalogueAndSink)
{
    Lines lines;
    auto const display = KFR::make<MessageDisplay>(nullptr, lines.sink());
    EXPECT_TRUE(display->show(KFRResult(5, 3, 1), Severity::error, true).isOk());
    EXPECT_THAT(lines.take(), ElementsAre(Pair(Severity::error, "error: code 5 (no text)")));
    EXPECT_TRUE(KFR::make<MessageDisplay>(nullptr, nullptr)->show(5, Severity::error, true).isOk());
}

// --- states ------------------------------------------------------------------------------------

/// Does with what is published as the test says.
class Listener final : public KFRServiceObjectImpl<KFRIEventListenerInterface> {
public:
    std::function<void(KFREvent const&)> m_then;

    KFRResult handleEvent(KFREvent const& event) override
    {
        m_then(event);
        return KFR::ok;
    }
};

TEST(StateService, CountsNestedSilenceAndPassesEveryEventOn)
{
    auto const events = KFR::make<kernel::EventManager>();
    auto const states = KFR::make<StateService>(events);
    long long domain = 0;
    events->createDomainID("vrn.test", domain);
    auto const listener = KFR::make<Listener>();
    events->addListener(domain, listener, 2, {});
    std::vector<std::pair<int, int>> depthAtEvent;
    listener->m_then = [&](KFREvent const& event) {
        depthAtEvent.emplace_back(event.eventId, states->silentDepth());
    };
    auto const send = [&](int id) {
        return states->send("appfw.CommandSS", KFREvent{domain, id, {}}, 1).getCode();
    };
    for (int const id : {20, 20, 5, 21, 21}) {
        EXPECT_EQ(send(id), KFR::ok) << id;
    }
    EXPECT_EQ(send(21), kNotSilent);
    EXPECT_EQ(send(20), KFR::ok);
    EXPECT_THAT(depthAtEvent, ElementsAre(Pair(20, 1), Pair(20, 2), Pair(5, 2), Pair(21, 1),
                                          Pair(21, 0), Pair(21, 0), Pair(20, 1)));

    KFRResult const unknown = states->send("appfw.Other", KFREvent{domain, 20, {}}, 0);
    EXPECT_EQ(unknown.getCode(), kUnknownStateMachine);
    EXPECT_THAT(reasonOf(unknown), HasSubstr("appfw.Other"));
    EXPECT_EQ(depthAtEvent.size(), 7U);

    domain = 5;  // none: the manager's refusal comes first
    EXPECT_EQ(send(21), kernel::kUnknownDomain);
    EXPECT_EQ(states->silentDepth(), 0);
    EXPECT_EQ(send(21), kNotSilent);
}

// --- the application ---------------------------------------------------------------------------

TEST(ApplicationAccess, IsOneObjectForPluginsHeadAndHelp)
{
    Lines lines;
    std::string help;
    ApplicationAccess::Options options;
    options.m_productName = "Orlo Shaper";
    options.m_headless = false;
    options.m_status = lines.sink();
    options.m_help = [&](std::string const& key, KFRSequence<KFRAny> const& params) {
        help = key + " " + std::to_string(params.size());
    };
    KFRIService const application =
        KFR::make<ApplicationAccess>(options, KFR::make<StateService>(nullptr));

    KFRSmartPointer<appfw::IFrameworkAccessInterface> const access(application);
    KFRSmartPointer<appfw::IProductInterface> product;
    icu::UnicodeString name;
    ASSERT_TRUE(access->getProduct(product).isOk());
    ASSERT_TRUE(product->getName(name).isOk());
    EXPECT_EQ(name, u"Orlo Shaper");

    EXPECT_TRUE(access->showStatusMessage(u"Größe", Severity::warning).isOk());
    EXPECT_THAT(lines.take(), ElementsAre(Pair(Severity::warning, "warning: Größe")));

    KFRSmartPointer<appfw::KFRIStateServiceInterface> states;
    EXPECT_TRUE(access->getStateService(states).isOk());
    EXPECT_TRUE(states->send("appfw.CommandSS", KFREvent{}, 0).isOk());  // no event manager

    EXPECT_EQ(KFR::strict_cast<appfw::KFRIAppExecutive>(application)->isHeadless(), 0);
    EXPECT_TRUE(KFR::strict_cast<plugin::shell::IShellHelp>(application)
                    ->show("value_ranges", {KFRAny(1)}, true)
                    .isOk());
    EXPECT_EQ(help, "value_ranges 1");
}

TEST(ApplicationAccess, HasNoHeadHelpOrStatesOfItsOwnAccord)
{
    auto const access = KFR::make<ApplicationAccess>(ApplicationAccess::Options{}, nullptr);
    EXPECT_NE(access->isHeadless(), 0);
    EXPECT_THAT(reasonOf(access->show("value_ranges", {}, false)), HasSubstr("value_ranges"));
    KFRSmartPointer<appfw::KFRIStateServiceInterface> states;
    EXPECT_EQ(access->getStateService(states).getCode(), kNoStateService);
}

TEST(ApplicationAccess, MakesAPluginsFolderWhenItIsAskedFor)
{
    test::TemporaryFolder const folder;
    folder.write("file", "");
    ApplicationAccess::Options options;
    options.m_pluginFolders = {
        {"VRN.ModelingPlugin", std::filesystem::relative(folder.path() / "a" / "b")},
        {"VRN.ShellPlugin", folder.path() / "file" / "c"},
        {"VRN.StudyPlugin", folder.path() / "file"}};
    auto const access = KFR::make<ApplicationAccess>(options, nullptr);
    auto const folderOf = [&](char const* name, icu::UnicodeString& path) {
        KFRSmartPointer<appfw::IPluginInterface> plugin;
        EXPECT_TRUE(access->getPlugin(name, plugin).isOk());
        EXPECT_FALSE(std::filesystem::exists(folder.path() / "a")) << "made before its time";
        return plugin->getFolder(path);
    };
    icu::UnicodeString path = u"before";
    for (auto const& [name, inTheWay] :
         {std::pair("VRN.ShellPlugin", "file/c"), std::pair("VRN.StudyPlugin", "file")}) {
        KFRResult const refused = folderOf(name, path);
        EXPECT_EQ(refused.getCode(), kFolderNotMade) << name;
        EXPECT_THAT(reasonOf(refused),
                    ::testing::AllOf(HasSubstr(name), HasSubstr(folder.path() / inTheWay)));
    }
    EXPECT_EQ(path, u"before");
    EXPECT_TRUE(folderOf("VRN.ModelingPlugin", path).isOk());
    EXPECT_EQ(toUtf8(path), (folder.path() / "a" / "b").string());
    EXPECT_TRUE(std::filesystem::is_directory(toUtf8(path)));

    KFRSmartPointer<appfw::IPluginInterface> none;
    EXPECT_THAT(reasonOf(access->getPlugin("VRN.Nobody", none)), HasSubstr("VRN.Nobody"));
    EXPECT_EQ(none, KFR::NULLSP);
}

}  // namespace
}  // namespace vrn::orlo::host::shell
