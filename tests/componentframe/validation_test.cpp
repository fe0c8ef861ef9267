// The soft assertion and its log file, and what is thrown behind it.

#include "plugins/modelingplugin/utilities/componentframe/validation.h"

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/logimpl.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"
#include "tests/support/appframefakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/platformscope.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <exception>
#include <filesystem>
#include <string>
#include <type_traits>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::PlatformScope;
using ::vrn::orlo::test::contentOf;
using ::vrn::orlo::test::TemporaryFolder;

/// Gives the plug-in `folder` for its own.
void putPluginFolder(std::filesystem::path const& folder)
{
    auto const plugin = KFR::make<test::FakePlugin>();
    plugin->folder = icu::UnicodeString::fromUTF8(folder.string());
    auto const framework = KFR::make<test::FakeFrameworkAccess>();
    framework->plugins["VRN.ModelingPlugin"] = plugin;
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
}

TEST(LogFile, HasItsLinesWithALineEndEachAndTheSecondForItsNameWhereItsFolderIsFound)
{
    PlatformScope platform;
    LogFileImpl().write("no framework", 0);
    ServiceCacheModelingPlugin::frameworkAccess_ = KFR::make<test::FakeFrameworkAccess>();
    LogFileImpl().write("no plug-in", 0);
    TemporaryFolder folder;
    putPluginFolder(folder.path() / "missing");
    LogFileImpl().write("no folder", 0);
    putPluginFolder(folder.path());
    std::time_t const before = std::time(nullptr);
    LogFileImpl log;
    std::time_t const after = std::time(nullptr);
    ASSERT_EQ(folder.files().size(), 1u);
    std::filesystem::path const file = folder.files().front();
    EXPECT_EQ(file.extension(), ".log");
    long long const second = std::stoll(file.stem());
    EXPECT_EQ(file.stem(), std::to_string(second));
    EXPECT_GE(second, before);
    EXPECT_LE(second, after);

    log.write("one", 0);
    EXPECT_EQ(contentOf(file), "one\r\n");  // flushed
    log.write("", 3);
    log.write("100 %s \xC3\xA9", 1);
    EXPECT_EQ(contentOf(file), "one\r\n\r\n100 %s \xC3\xA9\r\n");
}

TEST(Validation, NotesEachFailureInOneFileAndCutsItAt511Characters)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        TemporaryFolder folder;
        putPluginFolder(folder.path());
        EXPECT_EQ(validation("spObject != NULLSP", "a/file", 12, "vrn::orlo::f"), 0);
        EXPECT_EQ(validation("100 %d", "", -1, ""), 0);
        ASSERT_EQ(folder.files().size(), 1u);
        std::string const start = "Validation failed with expression : ";
        std::string const noted =
            start + "spObject != NULLSP, at File : a/file, Line : 12, in Function : " +
            "vrn::orlo::f.\n\r\n" + start + "100 %d, at File : , Line : -1, in Function : .\n\r\n";
        EXPECT_EQ(contentOf(folder.files().front()), noted);

        std::string const end = ", at File : f, Line : 1, in Function : g.";
        std::string const fits(510 - start.size() - end.size(), 'x');
        validation(fits.c_str(), "f", 1, "g");
        validation((fits + 'y').c_str(), "f", 1, "g");
        validation(std::string(2000, 'z').c_str(), "f", 1, "g");
        EXPECT_EQ(contentOf(folder.files().at(0)),
                  noted + start + fits + end + "\n\r\n" + start + fits + "y" + end + "\r\n" +
                      start + std::string(511 - start.size(), 'z') + "\r\n");
    });
}

TEST(Validation, IsSilentWithoutAFolderForGood)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        EXPECT_EQ(validation("a", "b", 1, "c"), 0);
        TemporaryFolder folder;
        putPluginFolder(folder.path());
        EXPECT_EQ(validation("a", "b", 1, "c"), 0);  // the file is made at the first use only
        EXPECT_TRUE(folder.files().empty());
    });
}

TEST(CurrentModel, IsThatOfTheApplicationFrameAndItsLackNotedAndThrown)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        PlatformScope platform;
        TemporaryFolder folder;
        putPluginFolder(folder.path());
        auto const expectNoModel = [] {
            try {
                static_cast<void>(ServiceHelper::getCurrentModel());
                ADD_FAILURE() << "nothing thrown";
            } catch (UserException const& thrown) {
                EXPECT_EQ(thrown.getTextStr(), "No Model!");
                EXPECT_EQ(thrown.getKFRResult().getCode(), KFR::notDone);
            }
        };
        auto const session = KFR::make<test::FakeSession>();
        session->currentModel = KFR::make<test::FakeModel>();
        auto const persistence = KFR::make<test::FakePFW>();
        persistence->session = session;
        ServiceCacheModelingPlugin::PFW_ = persistence;  // not the holder that is asked
        expectNoModel();
        auto const empty = KFR::make<test::FakePFW>();
        appfw::ServiceCacheAppFrame::PFW_ = empty;
        expectNoModel();
        empty->session = KFR::make<test::FakeSession>();
        expectNoModel();

        std::string const line =
            "Validation failed with expression : !(KFR::NULLSP == spModel), at File : "
            "plugins/modelingplugin/utilities/servicehelper, Line : 463, in Function : "
            "vrn::orlo::plugin::modeling::ServiceHelper::getCurrentModel.\n\r\n";
        EXPECT_EQ(contentOf(folder.files().at(0)), line + line + line);
        empty->session = session;
        EXPECT_EQ(ServiceHelper::getCurrentModel().get(), session->currentModel.get());
    });
}

static_assert(!std::is_base_of_v<std::exception, UserException>);

TEST(UserException, OfATextHasItAsTheParameterOfItsResultAndOfAnIdItsNumbers)
{
    UserException const failure("\xC3\x9F");
    EXPECT_EQ(failure.getTextStr(), "\xC3\x9F");
    EXPECT_EQ(failure.getTextUStr(), u"\u00DF");
    KFRResult const result = failure.getKFRResult();
    EXPECT_EQ(result.getCode(), 0x7FFFFFFF);
    EXPECT_EQ(result.getMessageId(), 0);
    KFRSequence<KFRAny> const params = result.getParams();
    ASSERT_EQ(params.size(), 1u);
    std::string text;
    EXPECT_TRUE(params[0] >>= text);
    EXPECT_EQ(text, failure.getTextStr());

    struct {
        UserException failure;
        int code, message;
    } const rows[] = {{UserException(1022), 1022, 1022},
                      {UserException(5, 1022), 5, 1022},
                      {UserException(), KFR::notDone, 0}};
    for (auto const& row : rows) {
        EXPECT_EQ(row.failure.getKFRResult().getCode(), row.code);
        EXPECT_EQ(row.failure.getKFRResult().getMessageId(), row.message);
        EXPECT_EQ(row.failure.getTextStr(), "");
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
