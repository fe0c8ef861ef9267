#include "host/kernel/configurationmanager.h"

#include "host/kernel/settingslock.h"

#include "platform/kfr/kfrany.h"
#include "tests/host/kernel/notinglogger.h"
#include "tests/support/temporaryfolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <limits>
#include <string>
#include <thread>

namespace vrn::orlo::host::kernel {
namespace {

using KFR::Util::Units::FloatValue;
using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

std::string textOf(KFRResult const& result)
{
    std::string text;
    if (!result.getParams().empty()) {
        result.getParams().front() >>= text;
    }
    return text;
}

icu::UnicodeString unicode(std::string const& text)
{
    return icu::UnicodeString::fromUTF8(text);
}

class ConfigurationManagerTest : public ::testing::Test {
protected:
    ConfigurationManagerTest() { KFR::Framework::setKernelAccessInterface(m_logger); }
    ~ConfigurationManagerTest() override { KFR::Framework::setKernelAccessInterface({}); }

    KFRSmartPointer<ConfigurationManager> makeManager() const
    {
        return KFR::make<ConfigurationManager>(ConfigurationManager::Options{
            {m_folder.path() / "absent", m_folder.path()}, m_folder.path() / "developer.xml"});
    }
    KFRSmartPointer<KFRIConfigurationInterface> get(std::string const& name) const
    {
        KFRSmartPointer<KFRIConfigurationInterface> found;
        EXPECT_TRUE(m_manager->getConfiguration(unicode(name), found).isOk());
        return found;
    }
    KFRResult load(std::string const& file, std::string const& section = "", int timeout = 0) const
    {
        return m_settings->load(unicode(file), unicode(section), 3, 0, timeout);
    }
    /// Loads a file with that body.
    KFRResult loadBody(std::string const& body) const
    {
        m_folder.write("s.xml", "<settings>\n" + body + "</settings>");
        return load("s.xml");
    }
    std::string text(std::string const& key, int index = 0) const
    {
        icu::UnicodeString value(u"untouched");
        std::string utf8;
        static_cast<void>(m_settings->readString(unicode(key), index, value));
        return value.toUTF8String(utf8);
    }

    test::TemporaryFolder m_folder;
    KFRSmartPointer<NotingLogger> m_logger = KFR::make<NotingLogger>();
    KFRSmartPointer<ConfigurationManager> m_manager = makeManager();
    KFRSmartPointer<KFRIConfigurationInterface> m_settings = get("Modeling");
};

TEST_F(ConfigurationManagerTest, ConfigurationIsOneObjectAndKeepsWhatItHasUntilAFileSaysOtherwise)
{
    EXPECT_EQ(get("Modeling"), m_settings);
    EXPECT_NE(get("modeling"), m_settings);
    EXPECT_EQ(text("a"), "untouched");
    ASSERT_TRUE(loadBody("<value key='a'> 1 </value><value key='b'>B</value>").isOk());
    ASSERT_TRUE(loadBody("<value key='a'>2<!-- no -->2</value>").isOk());
    EXPECT_EQ(text("a"), "22");
    EXPECT_EQ(text("b"), "B");
    EXPECT_EQ(text("A"), "untouched");
}

TEST_F(ConfigurationManagerTest, KeyIsThePathAndTextsHaveAnIndex)
{
    ASSERT_TRUE(loadBody("<group name='P'><group name='G'><value key='v'><item>x</item><item/>"
                         "<item>ü&amp;</item></value></group></group>"
                         "<group name='P'><value key='e'></value></group>")
                    .isOk());
    EXPECT_EQ(text("P.G.v", 0), "x");
    EXPECT_EQ(text("P.G.v", 1), "");
    EXPECT_EQ(text("P.G.v", 2), "ü&");
    EXPECT_EQ(text("P.e"), "");
    EXPECT_EQ(text("P.G.v", 3), "untouched");
    EXPECT_EQ(text("P.G.v", -1), "untouched");
    EXPECT_THAT(m_logger->m_lines, IsEmpty());
}

TEST_F(ConfigurationManagerTest, ReadsWholeValuesOfTheTypeOnly)
{
    constexpr long long kInt = 77;
    constexpr double kReal = 7.5;
    // clang-format off
    struct {
        char const* m_text;
        long long m_int;
        double m_real;
    } const rows[] = {
        {"+12", 12, 12.0}, {"-0012", -12, -12.0}, {"1e3", kInt, 1000.0}, {".5", kInt, 0.5},
        {"9223372036854775807", std::numeric_limits<long long>::max(), 0x1p63},
        {"-9223372036854775808", std::numeric_limits<long long>::min(), -0x1p63},
        {"9223372036854775808", kInt, 0x1p63},
        {"1,5", kInt, kReal}, {"12 mm", kInt, kReal}, {"0x10", kInt, kReal}, {"", kInt, kReal},
        {"+-1", kInt, kReal}, {"++1", kInt, kReal}, {"inf", kInt, kReal}, {"1e999", kInt, kReal},
    };
    // clang-format on
    for (auto const& row : rows) {
        ASSERT_TRUE(loadBody("<value key='k'>" + std::string(row.m_text) + "</value>").isOk());
        long long whole = kInt;
        double real = kReal;
        EXPECT_EQ(m_settings->readInt(u"k", whole).isOk(), row.m_int != kInt) << row.m_text;
        EXPECT_EQ(m_settings->readDouble(u"k", real).isOk(), row.m_real != kReal) << row.m_text;
        EXPECT_EQ(whole, row.m_int) << row.m_text;
        EXPECT_EQ(real, row.m_real) << row.m_text;
    }
}

TEST_F(ConfigurationManagerTest, WrongTypeIsLoggedOnceForItsKeyAndAMissingKeyNever)
{
    ASSERT_TRUE(loadBody("<value key='b'>yes</value>\n<value key='w'>maybe</value>\n"
                         "<value key='v'><item>1</item><item>2</item></value>")
                    .isOk());
    bool truth = false;
    EXPECT_TRUE(m_settings->readBool(u"b", truth).isOk());
    EXPECT_TRUE(truth);
    EXPECT_EQ(m_settings->readBool(u"w", truth).getCode(), kWrongType);
    EXPECT_EQ(m_settings->readBool(u"w", truth).getCode(), kWrongType);
    EXPECT_TRUE(truth);
    double number = 7.5;
    EXPECT_EQ(m_settings->readDouble(u"v", number).getCode(), kWrongType);
    EXPECT_EQ(number, 7.5);
    EXPECT_EQ(m_settings->readDouble(u"absent", number).getCode(), kNoSuchKey);
    std::string const file = "2 " + (m_folder.path() / "s.xml").string();
    EXPECT_THAT(m_logger->m_lines,
                ElementsAre(file + ":3: the key 'w' says 'maybe'; write true or false",
                            AllOf(StartsWith(file + ":4: "), HasSubstr("'1', '2'"))));
}

TEST_F(ConfigurationManagerTest, FloatValueHasItsUnitFromTheFileOrTheOverrideWhichWinsEarlyAndLate)
{
    m_manager->set("Modeling", "own", "1e-3 0xC0001");
    ASSERT_TRUE(loadBody("<value key='k' unit='0x0C01' first='12' second='0xFF'>0.5</value>"
                         "<value key='d' unit='3073'>2</value><value key='n'>3</value><value "
                         "key='own'>9</value>")
                    .isOk());
    m_manager->set("Modeling", "bare", "1");
    FloatValue const untouched{9, 9, 9, 9.0};
    auto const valueOf = [&](char16_t const* key) {
        FloatValue value = untouched;
        static_cast<void>(m_settings->readFloatValue(key, value));
        return value;
    };
    EXPECT_EQ(valueOf(u"k"), (FloatValue{0x0C01, 12, 255, 0.5}));
    EXPECT_EQ(valueOf(u"d"), (FloatValue{0x0C01, 0, 0, 2.0}));
    EXPECT_EQ(valueOf(u"n"), untouched);
    EXPECT_EQ(valueOf(u"bare"), untouched);
    EXPECT_EQ(valueOf(u"own"), (FloatValue{1, 12, 0, 0.001}));
    m_manager->set("Modeling", "k", "4");
    EXPECT_EQ(valueOf(u"k"), (FloatValue{0x0C01, 12, 255, 4.0}));
}

TEST_F(ConfigurationManagerTest, SectionTakesItsGroupOnlyAndMustBeThere)
{
    m_folder.write("s.xml",
                   "<settings><group name='Graphics'><value key='a'>1</value></group>"
                   "<group name='Other'><value key='a'>2</value></group></settings>");
    EXPECT_TRUE(load("s.xml", "Graphics").isOk());
    EXPECT_EQ(text("Graphics.a"), "1");
    EXPECT_EQ(text("Other.a"), "untouched");
    EXPECT_EQ(load("s.xml", "graphics").getCode(), kNoSuchSection);
}

// clang-format off
struct {
    char const* m_content;
    char const* m_error;  ///< From the line on.
} const kBrokenCases[] = {
    {"", ":1: not well-formed XML"},
    {"<settings>\n<value key='k'>1</settings>", ":2: not well-formed XML"},
    {"<!-- c -->\n<config/>", ":2: the outermost element is <config>"},
    {"<settings/>\n<settings/>", ":2: a second <settings>"},
    {"<settings>\n\n<group/></settings>", ":3: <group> without a name"},
    {"<settings><group name='G'>\n<group name=''/></group></settings>", ":2: <group> without a name"},
    {"<settings>\n<value>k</value></settings>", ":2: <value> without a name"},
    {"<settings>\n<valve key='k'/></settings>", ":2: <valve> is unknown here"},
    {"<settings>\n<value key='k' unti='1'>1</value></settings>", ":2: <value> has no attribute 'unti'"},
    {"<settings>\n<group name='G'>k=1</group></settings>", ":2: a text outside of a value"},
    {"<settings>\n<value key='k'>1<item>2</item></value></settings>", ":2: a value of items and something else"},
    {"<settings>\n<value key='k'><b>1</b></value></settings>", ":2: <b> inside of a text"},
    {"<settings><group name='G'>\n<value key='k'/></group><group name='G'>\n<value key='k'/></group></settings>", ":3: the key 'k' is at "},
    {"<settings>\n<value key='k' unit='0x10000'>1</value></settings>", ":2: unit='0x10000' is no such number"},
    {"<settings>\n<value key='k' unit='mm'>1</value></settings>", ":2: unit='mm' is no such number"},
    {"<settings>\n<value key='k' first='1'>1</value></settings>", ":2: bytes of a unit without one"},
    {"<settings>\n<value key='k'>\xFC</value></settings>", ":2: not UTF-8"},
};
// clang-format on

TEST_F(ConfigurationManagerTest, BrokenFileIsToldWithItsLineAndChangesNothing)
{
    ASSERT_TRUE(loadBody("<value key='k'>kept</value>").isOk());
    for (auto const& row : kBrokenCases) {
        m_logger->m_lines.clear();
        std::filesystem::path const file = m_folder.write("broken.xml", row.m_content);
        KFRResult const result = load("broken.xml");
        EXPECT_EQ(result.getCode(), kBrokenFile) << row.m_error;
        EXPECT_THAT(textOf(result), StartsWith(file.string() + row.m_error));
        EXPECT_THAT(m_logger->m_lines, ElementsAre("3 " + textOf(result)));
    }
    EXPECT_EQ(text("k"), "kept");
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "broken.lck"));
}

TEST_F(ConfigurationManagerTest, FileIsFoundByItsPathOrInTheSearchFolders)
{
    std::filesystem::create_directory(m_folder.path() / "res");
    std::string path = m_folder.write("res/s.xml", "<settings/>").string();
    for (char& c : path) {
        c = c == '/' ? '\\' : c;
    }
    EXPECT_TRUE(load(path).isOk());
    EXPECT_TRUE(load("res\\s.xml").isOk());
    KFRResult const result = load("none.xml");
    EXPECT_EQ(result.getCode(), kNoSuchFile);
    EXPECT_THAT(textOf(result),
                AllOf(StartsWith("none.xml: "), HasSubstr(m_folder.path().string())));
    EXPECT_EQ(load("res").getCode(), kNoSuchFile);
    EXPECT_THAT(m_logger->m_lines, IsEmpty());
}

TEST_F(ConfigurationManagerTest, AnothersLockIsWaitedForAndNotRemoved)
{
    m_folder.write("s.xml", "<settings><value key='k'>1</value></settings>");
    std::filesystem::path const lock = m_folder.write("s.lck", "");
    KFRResult const result = load("s.xml", "", 30);
    EXPECT_EQ(result.getCode(), kFileLocked);
    EXPECT_THAT(textOf(result), HasSubstr(lock.string()));
    EXPECT_TRUE(std::filesystem::exists(lock));
    EXPECT_EQ(text("k"), "untouched");
    std::jthread const other([&lock] {
        std::this_thread::sleep_for(std::chrono::milliseconds(40));
        std::filesystem::remove(lock);
    });
    EXPECT_TRUE(load("s.xml", "", 60000).isOk());
    EXPECT_EQ(text("k"), "1");
    EXPECT_THAT(m_folder.names(), ElementsAre("s.xml"));
}

TEST_F(ConfigurationManagerTest, LockStandsBesideTheFileAsLongAsItIsHeld)
{
    {
        SettingsLock const lock(m_folder.path() / "s.xml", std::chrono::milliseconds(0));
        EXPECT_FALSE(lock.isTaken());
        EXPECT_THAT(m_folder.names(), ElementsAre("s.lck"));
    }
    EXPECT_THAT(m_folder.names(), IsEmpty());
}

// The lock's name would be too long. A read-only folder is none to a test that runs as root.
TEST_F(ConfigurationManagerTest, FileIsReadWithoutALockWhereNoneCanBeMade)
{
    std::string const name = std::string(252, 'n') + ".x";
    m_folder.write(name, "<settings/>");
    EXPECT_TRUE(load(name).isOk());
}

TEST_F(ConfigurationManagerTest, DeveloperGroupIsThereWhenTheFileOrAnOverrideDefinesIt)
{
    KFRSmartPointer<KFRIConfigurationInterface> out = m_settings;
    KFRResult const missing = m_manager->getConfiguration(u"VRN.Test.Group", out);
    EXPECT_EQ(missing.getCode(), kNoSuchGroup);
    EXPECT_THAT(textOf(missing), AllOf(HasSubstr("VRN.Test.Group"), HasSubstr("developer.xml")));
    EXPECT_EQ(out, m_settings);

    m_folder.write("developer.xml",
                   "<settings><group name='VRN.Test.Group'><value key='LogFilter'>2"
                   "</value></group><group name='VRN.Empty'/></settings>");
    m_manager = makeManager();
    m_manager->set("VRN.Other", "k", "5");
    m_manager->set("VRN.Test.Group", "SCENARIO_DEBUG", "1");
    long long number = 0;
    EXPECT_TRUE(get("VRN.Test.Group")->readInt(u"LogFilter", number).isOk());
    EXPECT_EQ(number, 2);
    EXPECT_TRUE(get("VRN.Test.Group")->readInt(u"SCENARIO_DEBUG", number).isOk());
    EXPECT_TRUE(get("VRN.Other")->readInt(u"k", number).isOk());
    EXPECT_EQ(number, 5);
    EXPECT_TRUE(get("VRN.Empty"));
    EXPECT_THAT(m_logger->m_lines, IsEmpty());
}

TEST_F(ConfigurationManagerTest, BrokenDeveloperFileIsLoggedAndGivesNoGroups)
{
    m_folder.write("developer.xml", "<settings><group name='VRN.A'/>\n<group/></settings>");
    m_manager = makeManager();
    KFRSmartPointer<KFRIConfigurationInterface> out;
    EXPECT_EQ(m_manager->getConfiguration(u"VRN.A", out).getCode(), kNoSuchGroup);
    EXPECT_THAT(m_logger->m_lines,
                ElementsAre(AllOf(StartsWith("3 "), HasSubstr("developer.xml:2:"))));
}

std::string resources(char const* path)
{
    return std::string(TESTFOLDER_RESOURCES) + path;
}

TEST_F(ConfigurationManagerTest, ShippedSettingsHaveEveryKeyAndADeveloperGroupWithAllOff)
{
    ASSERT_TRUE(load(resources("\\app\\Plugins\\ModelingPlugin\\res\\ModelingConfig.xml")).isOk());
    for (std::string const key :
         {"ShellBehavior.IsAutoAssign", "GravitySettings.AutoCreate", "GravitySettings.Unit",
          "GravitySettings.Magnitude", "GravitySettings.Constant", "GravitySettings.Acceleration",
          "GravitySettings.Direction", "StudyManagerSettings.DefaultScenarioType",
          "MemorySetting.Memory", "MatrixCondition.Maximum", "SolverSettings.ScratchDirectory",
          "ImportExportSettings.OverRideUnitsAlternatives", "ImportExportSettings.ScaleWTMASS",
          "ImportExportSettings.ImportThresholdNumber", "ImportExportSettings.ExportOrganization",
          "ImportExportSettings.SelectedMassAsWeightOption",
          "ImportExportSettings.JointAxisElementType",
          "ImportExportSettings.SelectedBaseUnitSystem"}) {
        EXPECT_NE(text("ModelingPlugin." + key), "untouched") << key;
    }
    EXPECT_EQ(text("ModelingPlugin.GravitySettings.Vector", 2), "-1");
    FloatValue value;
    EXPECT_TRUE(
        m_settings->readFloatValue(u"ModelingPlugin.GravitySettings.Acceleration", value).isOk());
    EXPECT_TRUE(load(resources("/leaf/Plugins/FEMPlugin/res/FEMConfig.xml")).isOk());
    EXPECT_TRUE(m_settings->readFloatValue(u"FEMPlugin.MeshSettings.ElementSize", value).isOk());

    m_manager = KFR::make<ConfigurationManager>(ConfigurationManager::Options{
        {resources("/app/res")}, resources("/app/res/DeveloperConfig.xml")});
    bool pattern = false;
    EXPECT_EQ(get("VRN.ModelingPlugin.NonDeliverable")->readBool(u"LogFilter", pattern).getCode(),
              kNoSuchKey);
    auto const display = get("Display3DDataManager");
    ASSERT_TRUE(display->load(u"DDMOptionsCfg.xml", u"Graphics", 0, 0, 3000).isOk());
    EXPECT_TRUE(display->readBool(u"Graphics.EnableAggregatePattern", pattern).isOk());
    EXPECT_TRUE(pattern);
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
