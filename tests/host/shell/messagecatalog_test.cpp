#include "host/shell/messagecatalog.h"

#include "tests/host/kernel/notinglogger.h"
#include "tests/host/shell/shelltesting.h"
#include "tests/support/temporaryfolder.h"

#include <unicode/ures.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>

namespace vrn::orlo::host::shell {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using Params = KFRSequence<KFRAny>;

constexpr char kProduct[] = TESTFILE_MESSAGES;
constexpr char kTest[] = TESTFILE_TESTMESSAGES;

KFRSmartPointer<MessageCatalog> catalogueOf(char const* folder, char const* locale)
{
    return KFR::make<MessageCatalog>(folder, locale);
}

/// A text by its number, or by its key; "<none>" for a failure.
std::string textOf(MessageCatalog& catalogue, int id, Params const& params = {})
{
    icu::UnicodeString text = u"<none>";
    static_cast<void>(catalogue.getTextByNumber(id, params, text));
    return toUtf8(text);
}
std::string textOf(MessageCatalog& catalogue, std::string const& id)
{
    icu::UnicodeString text = u"<none>";
    static_cast<void>(catalogue.getTextById(id, {}, text));
    return toUtf8(text);
}

// --- the product's texts -----------------------------------------------------------------------

using Texts = std::map<std::string, std::string>;

/// All texts that one bundle itself has, by table and key; nothing comes from elsewhere.
Texts textsOf(char const* language)
{
    Texts texts;
    UErrorCode status = U_ZERO_ERROR;
    icu::LocalUResourceBundlePointer const bundle(ures_openDirect(kProduct, language, &status));
    for (std::string const table : {"numbers", "texts"}) {
        icu::LocalUResourceBundlePointer const rows(
            ures_getByKey(bundle.getAlias(), table.c_str(), nullptr, &status));
        char const* key = nullptr;
        int length = 0;
        while (U_SUCCESS(status) != 0 && ures_hasNext(rows.getAlias()) != 0) {
            char16_t const* const text =
                ures_getNextString(rows.getAlias(), &length, &key, &status);
            texts[table + "/" + key] = toUtf8(icu::UnicodeString(text, length));
        }
    }
    return texts;
}

TEST(ProductTexts, CoverWhatTheLibraryAsksForDifferAndTakeTheSameParameters)
{
    std::set<std::string> expected;
    for (int const number :
         {10076, 10077, 10082, 10083, 10084, 10085, 10387,  10440,  10441,  10442,  10443, 10444,
          10445, 10446, 10447, 10451, 10456, 10607, 10608,  10609,  10610,  10611,  10612, 10613,
          10614, 10657, 10658, 92007, 92008, 92009, 140113, 140114, 160300, 270009, 400007}) {
        expected.insert("numbers/n" + std::to_string(number));
    }
    for (std::string const key :
         {"BucklingScenario_DefaultName", "DEFAULT_NAME_DISCRETE_TIE", "DEFAULT_NAME_DISCRETE_TIES",
          "DyanmicScenario_DefaultName", "InteractionLayer", "LABEL_BEAM_SPAN_GROUP_NAME",
          "MODELING_NONSTRUCTURAL_MASS_NAME", "ManufacturingConstraint_Container_Name",
          "NonDesignRegion_Group_Default_Name", "SectionView_Panel_GROUP_NAME",
          "TopologyDesignRegion_Group_Default_Name"}) {
        expected.insert("texts/" + key);
    }
    Texts const english = textsOf("root");
    for (char const* const language : {"root", "de"}) {
        std::set<std::string> keys;
        std::map<std::string, std::string> keyOf;
        for (auto const& [key, text] : textsOf(language)) {
            keys.insert(key);
            EXPECT_NE(text, "") << key;
            for (char const* const slot : {"{0}", "{1}", "{2}", "{3}"}) {
                EXPECT_EQ(text.find(slot) == std::string::npos,
                          english.at(key).find(slot) == std::string::npos)
                    << key << slot;
            }
            // Groups are found again by their names.
            EXPECT_TRUE(keyOf.try_emplace(text, key).second) << key << " and " << keyOf[text];
        }
        EXPECT_EQ(keys, expected) << language;
    }
}

TEST(ProductTexts, OfRangesTellWhichBoundsAreIncluded)
{
    auto const english = catalogueOf(kProduct, "");
    auto const german = catalogueOf(kProduct, "de_DE.UTF-8");
    Params const params{KFRAny("X"), KFRAny(0), KFRAny(0.5)};
    for (auto const& [id, text] : std::vector<std::pair<int, std::string>>{
             {10607, "X must be greater than 0."},
             {10608, "X must be at least 0."},
             {10609, "X must be less than 0."},
             {10610, "X must be at most 0."},
             {10611, "X must be greater than 0 and less than 0.5."},
             {10612, "X must be at least 0 and less than 0.5."},
             {10613, "X must be greater than 0 and at most 0.5."},
             {10614, "X must be between 0 and 0.5, both included."}}) {
        EXPECT_EQ(textOf(*english, id, params), text);
        std::string help;  // stands for all languages in root alone
        EXPECT_TRUE(german->getHelpKey(std::to_string(id), help).isOk());
        EXPECT_EQ(help, "value_ranges");
    }
    EXPECT_EQ(textOf(*german, 10613, params), "X muss größer als 0 und darf höchstens 0.5 sein.");
}

// --- the catalogue -----------------------------------------------------------------------------

TEST(MessageCatalogue, TakesTheClosestLanguageThatHasTheText)
{
    struct Case {
        char const* locale;
        char const* everywhere;
        char const* three;
    };
    for (Case const& row :
         {Case{"de_AT@euro", "de", "at 1"}, Case{"DE-AT", "de", "at 1"}, Case{"de_CH", "de", "2-1"},
          Case{"fr_FR", "root", "2-1"}, Case{"C", "root", "2-1"}, Case{"POSIX", "root", "2-1"},
          Case{"en_US", "root", "2-1"}, Case{"../de", "root", "2-1"}}) {
        auto const catalogue = catalogueOf(kTest, row.locale);
        EXPECT_EQ(textOf(*catalogue, "Everywhere"), row.everywhere) << row.locale;
        EXPECT_EQ(textOf(*catalogue, "OnlyInRoot"), "root alone") << row.locale;
        EXPECT_EQ(textOf(*catalogue, 3, {KFRAny(1), KFRAny(2)}), row.three) << row.locale;
    }
}

TEST(MessageCatalogue, PutsParametersInAsTheyAreAndRefusesWrongBraces)
{
    auto const catalogue = catalogueOf(kTest, "de");
    for (auto const& [param, text] : std::vector<std::pair<KFRAny, std::string>>{
             {KFRAny(-1234567), "-1234567"},
             {KFRAny(9007199254740993LL), "9007199254740993"},
             {KFRAny(12345.5), "12345.5"},
             {KFRAny(1e-9), "1e-09"},
             {KFRAny("l'aire {0} Ø"), "l'aire {0} Ø"},
             {KFRAny(icu::UnicodeString(u"größer")), "größer"},
             {KFRAny(true), "?"}}) {
        EXPECT_EQ(textOf(*catalogue, 1, {param}), "It's the part '" + text + "'");
    }
    EXPECT_EQ(textOf(*catalogue, 3, {KFRAny(1)}), "{1}-1");
    icu::UnicodeString text = u"before";
    KFRResult const wrongBraces = catalogueOf(kTest, "")->getTextByNumber(2, {}, text);
    EXPECT_EQ(wrongBraces.getCode(), kUnusableText);
    EXPECT_THAT(reasonOf(wrongBraces), HasSubstr("n2"));
    EXPECT_EQ(text, u"before");
}

TEST(MessageCatalogue, WarnsOncePerIdThatHasNoText)
{
    auto const logger = KFR::make<kernel::NotingLogger>();
    KFR::Framework::setKernelAccessInterface(logger);
    auto const catalogue = catalogueOf(kProduct, "de");
    std::string const none = "<none>";
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(textOf(*catalogue, 12345), none);
        EXPECT_EQ(textOf(*catalogue, -1), none);
        EXPECT_EQ(textOf(*catalogue, "n10076"), none);
        EXPECT_EQ(textOf(*catalogue, ""), none);
    }
    std::string help = "before";
    EXPECT_EQ(catalogue->getHelpKey("10076", help).getCode(), kNoText);
    EXPECT_EQ(help, "before");
    KFR::Framework::setKernelAccessInterface({});
    EXPECT_THAT(logger->m_lines,
                ElementsAre("2 The message catalogue has no text n12345. Add it to the table "
                            "numbers in each file of host/resources/messages.",
                            HasSubstr("no text n-1."),
                            HasSubstr("no text n10076. Add it to the table texts"),
                            HasSubstr("Add it to the table texts")));
}

TEST(MessageCatalogue, GivesEachPluginADomainOfItsOwn)
{
    auto const catalogue = catalogueOf(kProduct, "");
    std::set<int> domains;
    for (char const* const plugin : {"VRN.ModelingPlugin", "VRN.ShaperPlugin", "VRN.CorePlugin"}) {
        int domain = -1;
        EXPECT_TRUE(catalogue->getDomain(plugin, domain).isOk());
        EXPECT_GT(domain, 0);
        domains.insert(domain);
    }
    EXPECT_EQ(domains.size(), 3U);
    int untouched = -1;
    EXPECT_THAT(reasonOf(catalogue->getDomain("VRN.Nobody", untouched)), HasSubstr("VRN.Nobody"));
    EXPECT_EQ(untouched, -1);
}

TEST(MessageCatalogue, NeedsABundleInItsFolderWhichMayBeAPlainName)
{
    std::filesystem::current_path(std::filesystem::path(kTest).parent_path());
    std::string const plain = std::filesystem::path(kTest).filename();
    EXPECT_EQ(textOf(*catalogueOf(plain.c_str(), "de"), "Everywhere"), "de");
    test::TemporaryFolder const folder;
    try {
        catalogueOf(folder.path().c_str(), "de");
        FAIL() << "made of nothing";
    } catch (std::runtime_error const& thrown) {
        EXPECT_THAT(thrown.what(), HasSubstr(folder.path().string()));
    }
}

TEST(MessageCatalogue, TakesTheLocaleOfTheFirstVariableThatIsSetToSomething)
{
    char const* const kRows[][4] = {{"", "", "", ""},
                                    {"", "", "fr_FR", "fr_FR"},
                                    {"", "de_DE.UTF-8", "fr_FR", "de_DE.UTF-8"},
                                    {"C", "de_DE.UTF-8", "fr_FR", "C"}};
    for (auto const& [all, messages, lang, locale] : kRows) {
        ::setenv("LC_ALL", all, 1);
        ::setenv("LC_MESSAGES", messages, 1);
        ::setenv("LANG", lang, 1);
        EXPECT_EQ(MessageCatalog::localeFromEnvironment(), locale);
    }
}

}  // namespace
}  // namespace vrn::orlo::host::shell
