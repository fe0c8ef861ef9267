// The three entry functions of the component, and what it says of itself.

#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"

#include "platform/kfr/kfrfactory.h"
#include "plugins/modelingplugin/utilities/componentframe/componententry.h"
#include "tests/support/fakepublisher.h"
#include "tests/support/matchers.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ctime>
#include <iomanip>
#include <sstream>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using ::testing::MatchesRegex;
using ::testing::SizeIs;

// clang-format off
struct {
    char const* key;
    char const* pattern;  // a regular expression of the whole value
} const kKeyCases[] = {
    {"VersionNumbers",     ",,24,8"},
    {"BuildDate",          "[01][0-9]/[0-3][0-9]/20[0-9][0-9]"},
    {"BuildTime",          "[0-2][0-9]:[0-5][0-9]:[0-5][0-9]"},
    {"KernelMajorVersion", "24"},
    {"KernelMinorVersion", "8"},
    {"Platform",           "win32"},
    {"Name",               "vrn\\.orlo\\.plugin\\.modeling\\.ModelingPluginUtilities"},
    {"MajorVersion",       ""},
    {"MinorVersion",       ""},
    {"BuildNumber",        "Time:[1-9][0-9]+"},
    {"*",                  "BuildDate,BuildTime,KernelMajorVersion,KernelMinorVersion,"
                           "Platform,Name,MajorVersion,MinorVersion,BuildNumber"},
    {"Unknown",            ""},
    {"",                   ""},
    {"N",                  ""},
    {"?",                  ""},
    {"**",                 ""},
    {"name",               ""},
    {"Name ",              ""},
};
// clang-format on

TEST(InformationBlock, AnswersTheKey)
{
    for (auto const& row : kKeyCases) {
        SCOPED_TRACE(row.key);
        EXPECT_THAT(KFR_Comp_Info(row.key), MatchesRegex(row.pattern));
        EXPECT_EQ(componentinfo::value(row.key), KFR_Comp_Info(row.key));
    }
}

TEST(ComponentInfo, StampsTheMinuteOfItsDateAndTime)
{
    std::tm moment{};
    std::istringstream text(KFR_Comp_Info("BuildDate") + " " + KFR_Comp_Info("BuildTime"));
    text >> std::get_time(&moment, "%m/%d/%Y %H:%M:%S");
    ASSERT_FALSE(text.fail());
    EXPECT_EQ(KFR_Comp_Info("BuildNumber"), "Time:" + std::to_string(timegm(&moment) / 60));
}

TEST(ComponentInfo, RepeatsTheBlockInItsDescription)
{
    std::string const line = componentinfo::description();
    EXPECT_EQ(line,
              "<KFRComponentInfo> VRN Name=vrn.orlo.plugin.modeling.ModelingPluginUtilities, "
              "Platform=win32, KernelVersion=24.8, BuildDate=" +
                  KFR_Comp_Info("BuildDate") + ", BuildTime=" + KFR_Comp_Info("BuildTime") +
                  ", BuildNumber=" + KFR_Comp_Info("BuildNumber") +
                  ", <service name=Utilities/> </KFRComponentInfo>");
    // 228 characters, as long as the stamp has eight digits.
    EXPECT_THAT(line, SizeIs(228 - std::string("Time:26451129").size() +
                             KFR_Comp_Info("BuildNumber").size()));
}

TEST(ServiceVersionTable, LeavesASharedBlockToItsOtherHoldersAndEmptiesItsOwnInPlace)
{
    KFRSequence<std::string> table{"a row too long to stand in the string itself", "second row"};
    KFRSequence<std::string> own(table);
    own.append("third row");
    KFRSequence<std::string> const other(table);
    KFR_Get_ServiceVersionTable(table);
    EXPECT_TRUE(table.empty());
    EXPECT_THAT(other, SizeIs(2));
    EXPECT_EQ(other.holders(), 1);
    std::size_t const room = own.capacity();
    KFR_Get_ServiceVersionTable(own);
    EXPECT_TRUE(own.empty());
    EXPECT_EQ(own.capacity(), room);
}

TEST(ComponentInit, PublishesOneFactoryThatItDoesNotKeep)
{
    EXPECT_EQ(KFR_Comp_Init(KFR::NULLSP), 0);
    auto const publisher = KFR::make<test::FakePublisher>();
    EXPECT_EQ(KFR_Comp_Init(publisher), 0);
    ASSERT_THAT(publisher->published, SizeIs(1));
    test::Publication const& publication = publisher->published.front();
    EXPECT_EQ(publication.name, "vrn.orlo.plugin.modeling.Utilities");
    EXPECT_TRUE(publication.single);
    EXPECT_EQ(publication.majorVersion, "");
    EXPECT_EQ(publication.minorVersion, "");
    EXPECT_THAT(publication.buildData, SizeIs(177));
    EXPECT_THAT(publication.buildData, MatchesRegex("[0-9a-f]+;"));
    EXPECT_EQ(publisher->referenceCount(), 1);

    auto* const factory = static_cast<KFR::Framework::KFRFactory*>(publication.factory.get());
    EXPECT_EQ(factory->referenceCount(), 1);  // the publisher's
}

TEST(UtilitiesFactory, NamesItselfAndHasNoProperties)
{
    auto const publisher = KFR::make<test::FakePublisher>();
    KFR_Comp_Init(publisher);
    auto const& factory = publisher->published.at(0).factory;
    EXPECT_EQ(factory->getObjectName(), "vrn.orlo.plugin.modeling.Utilities:UtilitiesFactory");
    for (char const* key :
         {"MajorVersion", "MinorVersion", "Name", "KernelMajorVersion", "*", "", "?"}) {
        EXPECT_EQ(factory->getProperty(key), "") << key;
    }
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
