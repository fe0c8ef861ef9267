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
#include <ostream>
#include <sstream>
#include <string>

namespace vrn::orlo::plugin::modeling {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;
using ::testing::SizeIs;

struct KeyCase {
    char const* name;
    char const* key;
    char const* pattern;  // a regular expression of the whole value
};

void PrintTo(KeyCase const& row, std::ostream* out)
{
    *out << '"' << row.key << '"';
}

class InformationBlock : public ::testing::TestWithParam<KeyCase> {};

TEST_P(InformationBlock, AnswersTheKey)
{
    EXPECT_THAT(KFR_Comp_Info(GetParam().key), MatchesRegex(GetParam().pattern));
    EXPECT_EQ(componentinfo::value(GetParam().key), KFR_Comp_Info(GetParam().key));
}

// clang-format off
KeyCase const kKeyCases[] = {
    {"VersionNumbers",     "VersionNumbers",     ",,24,8"},
    {"BuildDate",          "BuildDate",          "[01][0-9]/[0-3][0-9]/20[0-9][0-9]"},
    {"BuildTime",          "BuildTime",          "[0-2][0-9]:[0-5][0-9]:[0-5][0-9]"},
    {"KernelMajorVersion", "KernelMajorVersion", "24"},
    {"KernelMinorVersion", "KernelMinorVersion", "8"},
    {"Platform",           "Platform",           "win32"},
    {"Name",               "Name",               "vrn\\.orlo\\.plugin\\.modeling\\.ModelingPluginUtilities"},
    {"MajorVersion",       "MajorVersion",       ""},
    {"MinorVersion",       "MinorVersion",       ""},
    {"BuildNumber",        "BuildNumber",        "Time:[1-9][0-9]+"},
    {"TheListOfKeys",      "*",                  "BuildDate,BuildTime,KernelMajorVersion,KernelMinorVersion,"
                                                 "Platform,Name,MajorVersion,MinorVersion,BuildNumber"},
    {"UnknownKey",         "Unknown",            ""},
    {"EmptyKey",           "",                   ""},
    {"OneLetter",          "N",                  ""},
    {"OneSign",            "?",                  ""},
    {"TwoStars",           "**",                 ""},
    {"LowerCase",          "name",               ""},
    {"KeyAndMore",         "Name ",              ""},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(ComponentInfo, InformationBlock, ::testing::ValuesIn(kKeyCases),
                         [](auto const& row) { return std::string(row.param.name); });

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

TEST(ServiceVersionTable, LeavesASharedBlockToItsOtherHolders)
{
    KFRSequence<std::string> table{"first row", "second row"};
    KFRSequence<std::string> const other(table);
    KFR_Get_ServiceVersionTable(table);
    EXPECT_TRUE(table.empty());
    EXPECT_THAT(other, ElementsAre("first row", "second row"));
    EXPECT_EQ(other.holders(), 1);
}

TEST(ServiceVersionTable, EmptiesABlockOfItsOwnInPlace)
{
    KFRSequence<std::string> table{"a row too long to stand in the string itself", "second row"};
    std::size_t const room = table.capacity();
    KFR_Get_ServiceVersionTable(table);
    EXPECT_TRUE(table.empty());
    EXPECT_EQ(table.capacity(), room);
}

TEST(ServiceVersionTable, TakesAnEmptySequence)
{
    KFRSequence<std::string> table;
    KFR_Get_ServiceVersionTable(table);
    EXPECT_TRUE(table.empty());
}

TEST(ComponentInit, PublishesOneFactoryThatItDoesNotKeep)
{
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

TEST(ComponentInit, IsSilentWithoutAPublisher)
{
    EXPECT_EQ(KFR_Comp_Init(KFR::NULLSP), 0);
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
