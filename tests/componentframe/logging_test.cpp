// The leveled log, the performance log and the debug log.

#include "plugins/modelingplugin/utilities/componentframe/logger.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"
#include "tests/support/appframefakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/messagefakes.h"
#include "tests/support/platformscope.h"
#include "tests/support/settingsfakes.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::FakeKernel;
using ::testing::ElementsAre;
using ::testing::internal::CaptureStderr;
using ::testing::internal::CaptureStdout;
using ::testing::internal::GetCapturedStderr;
using ::testing::internal::GetCapturedStdout;
using ::vrn::orlo::test::contentOf;
using ::vrn::orlo::test::TemporaryFolder;

KFRSmartPointer<FakeKernel> installKernel()
{
    auto const kernel = KFR::make<FakeKernel>();
    KFR::Framework::setKernelAccessInterface(kernel);
    return kernel;
}

TEST(LeveledLog, LetsThroughWhatItsFilterSaidAtTheFirstQuestion)
{
    for (long long const filter : {0, 2, 3, 4}) {
        EXPECT_HOLDS_IN_FRESH_PROCESS([filter] {
            test::PlatformScope platform;
            auto const settings = KFR::make<test::FakeSettings>();
            platform.services().put("KFR.Framework.ConfigurationManager", settings);
            auto const group = settings->put(u"VRN.ModelingPlugin.NonDeliverable");
            if (filter != 4) {
                group->values[u"LogFilter"] <<= filter;
            }
            for (int level = 0; level < 4; ++level) {
                EXPECT_EQ(LogHelper::isAllowLog(level), level >= filter) << level;
                group->values[u"LogFilter"] <<= 1LL;
            }
        });
    }
}

TEST(LeveledLog, WritesTextsOfEveryLengthToTheFrameworkWithTheLocalTimeUntilItIsReleased)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        ::setenv("TZ", "XYZ-5:30", 1);
        auto const kernel = installKernel();
        LogHelper* const log = LogHelper::instance();
        std::time_t const before = std::time(nullptr);
        std::vector<std::string> expected;
        for (std::size_t const length : {0u, 1021u, 1022u, 1023u, 1024u, 2046u, 2047u, 9u}) {
            std::string const text(length, 'x');
            log->logMessage(3, "%s and %d%%", text.c_str(), -7);
            expected.push_back(" >> " + text + " and -7%");
        }
        log->write("100 %s", 3);
        expected.push_back(" >> 100 %s");
        std::time_t const after = std::time(nullptr);
        ASSERT_EQ(kernel->lines.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            auto const& [line, level] = kernel->lines[i];
            EXPECT_EQ(level, 3);
            std::tm time{};
            char const* const rest = ::strptime(line.c_str(), "%Y-%m-%d %H:%M:%S", &time);
            ASSERT_EQ(rest, line.c_str() + 19);
            EXPECT_EQ(rest, expected[i]);
            std::time_t const stamp = ::timegm(&time) - 19800;
            EXPECT_TRUE(before <= stamp && stamp <= after) << line;
        }
        log->release();
        log->write("late", 3);
        EXPECT_EQ(kernel->lines.size(), expected.size());
    });
}

TEST(PerformanceLog, IsAFileOfThePluginAndComesBackAfterItsRelease)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        test::PlatformScope platform;
        TemporaryFolder folder;
        auto const plugin = KFR::make<test::FakePlugin>();
        plugin->folder = icu::UnicodeString::fromUTF8(folder.path().string());
        auto const framework = KFR::make<test::FakeFrameworkAccess>();
        framework->plugins["VRN.ModelingPlugin"] = plugin;
        ServiceCacheModelingPlugin::frameworkAccess_ = framework;
        PerformanceLogger* const log = PerformanceLogger::instance();
        log->logMessage(1, "took %d s", 3);
        log->write("next", 0);
        EXPECT_THAT(contentOf(folder.files().at(0)),
                    ::testing::MatchesRegex("[-0-9: ]+ >> took 3 s\r\n[-0-9: ]+ >> next\r\n"));
        log->release();
        std::filesystem::remove(folder.files().at(0));
        log->write("again", 0);
        EXPECT_EQ(contentOf(folder.files().at(0)).substr(19), " >> again\r\n");
    });
}

TEST(DebugLog, IsSteeredByTheEnvironmentAlone)
{
    char const* const twelve = "A|B|C|D|E|F|G|H|I|J|K|L";
    // clang-format off
    struct {
        std::vector<std::pair<char const*, char const*>> environment;
        bool debug, scopeA, scopeK, errors;
        bool console, framework, debugOutput;
    } const kCases[] = {
        {{}, 0, 0, 0, 0, 0, 0, 0},
        {{{"args", "-console"}, {"OutputDebugString", "true"}}, 0, 0, 0, 0, 0, 0, 0},
        {{{"MODELING_LOG_FILTER", "x"}, {"LogFilter", "0"}, {"args", "-console"}}, 0, 0, 0, 0, 0, 0, 0},
        {{{"MODELING_LOG_FILTER", ""}}, 0, 0, 0, 0, 0, 0, 0},
        {{{"MODELING_LOG_FILTER", "99999999999"}}, 0, 0, 0, 0, 0, 0, 0},
        {{{"MODELING_LOG_FILTER", "0"}, {"LogFilter", "4"}}, 1, 1, 1, 1, 0, 1, 0},
        {{{"LogFilter", "-3"}, {"args", "a -console b"}}, 1, 1, 1, 1, 1, 1, 0},
        {{{"LogFilter", "1"}, {"OutputDebugString", "true"}}, 0, 0, 0, 1, 0, 1, 1},
        {{{"LogFilter", "3"}, {"OutputDebugString", "True"}}, 0, 0, 0, 1, 0, 1, 0},
        {{{"LogFilter", "4"}, {"args", "console"}}, 0, 0, 0, 0, 0, 1, 0},
        {{{"LogFilter", "0"}, {"MODELING_LOG_SCOPE", twelve}}, 1, 1, 0, 1, 0, 1, 0},
        {{{"LogFilter", "0"}, {"MODELING_LOG_SCOPE", "K"}}, 1, 0, 1, 1, 0, 1, 0},
    };
    // clang-format on
    for (auto const& row : kCases) {
        EXPECT_HOLDS_IN_FRESH_PROCESS([&row] {
            for (char const* const name : {"MODELING_LOG_FILTER", "LogFilter", "args",
                                           "MODELING_LOG_SCOPE", "OutputDebugString"}) {
                ::unsetenv(name);
            }
            for (auto const& [name, value] : row.environment) {
                ::setenv(name, value, 1);
            }
            auto const kernel = installKernel();
            EXPECT_FALSE(Logger::enableDebugLog() || Logger::enableErrorLog());
            Logger::initialize();
            EXPECT_EQ(Logger::enableDebugLog(), row.debug);
            EXPECT_EQ(Logger::enableDebugLog("A"), row.scopeA);
            EXPECT_EQ(Logger::enableDebugLog(std::string("K")), row.scopeK);
            EXPECT_EQ(Logger::enableErrorLog(), row.errors);
            CaptureStdout();
            CaptureStderr();
            Logger::write("text", 3);
            EXPECT_EQ(GetCapturedStdout(), row.console ? "text\n" : "");
            EXPECT_EQ(GetCapturedStderr(), row.debugOutput ? "text\n" : "");
            EXPECT_EQ(kernel->lines.size(), row.framework ? 1u : 0u);
        });
    }
}

TEST(DebugLog, GetsTheTextOfAScopeAtEachSinkAndWhatIsLeftAtItsEnd)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        ::setenv("MODELING_LOG_FILTER", "0", 1);
        auto const kernel = installKernel();
        Logger::initialize();
        Logger::uninitialize();
        {
            ScopeLog log(3);
            log.stream() << "nodes " << 12;
            log.sink();
            log.stream() << "rest";
        }
        EXPECT_THAT(kernel->lines, ElementsAre(std::pair("nodes 12", 1), std::pair("rest", 1)));
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
