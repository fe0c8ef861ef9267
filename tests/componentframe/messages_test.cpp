// Texts, messages and boxes.

#include "framework/appframe/pluginsupport/helpers/messagehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/localizationhelper.h"
#include "plugins/modelingplugin/utilities/componentframe/messagehandler.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"
#include "plugins/modelingplugin/utilities/numerics/floatvaluerange.h"
#include "tests/support/appframefakes.h"
#include "tests/support/commandfakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/messagefakes.h"
#include "tests/support/settingsfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using Text = icu::UnicodeString;
using Params = KFRSequence<KFRAny>;
using test::FakeFrameworkAccess;
using test::MessageScope;

KFRSmartPointer<FakeFrameworkAccess> putFramework()
{
    auto const framework = KFR::make<FakeFrameworkAccess>();
    ServiceCacheModelingPlugin::frameworkAccess_ = framework;
    return framework;
}

TEST(Messages, AreEmptyAndDroppedBeforeTheHelperIsThere)
{
    test::PlatformScope platform;
    EXPECT_EQ(LocalizationHelper::instance()->getMsgHelper(), nullptr);
    EXPECT_EQ(LocalStr(7, "fallback").getUStr(), Text(u"fallback"));
    EXPECT_EQ(LocalStr("ID").getStr(), "");
    KFRResult const result = MessageHandler::createKFRResult(5, 7);
    EXPECT_EQ(result.getDomain(), -1);
    MessageHandler::showMessage(result, Severity::error, true);
    MessageHandler::showMessage(Text(u"text"), Severity::error, true);
    MessageHandler::showDrupalMessage(7, {}, true);
    KFRSmartPointer<KFRIServiceProviderInterface> provider(&platform.services());
    LocalizationHelper::instance()->initialize("Tested", provider);  // nothing to be found there
    EXPECT_EQ(LocalStr(7, "fallback").getStr(), "fallback");
    EXPECT_EQ(MessageHandler::createKFRResult(7).getDomain(), -1);
    MessageHandler::showMessage(7U, Severity::error, true);
    LocalizationHelper::instance()->release();
}

TEST(LocalStr, ResolvesANumberOrATextIdAndKeepsWhatItHas)
{
    MessageScope scope;
    KFRSmartPointer<KFRIServiceProviderInterface> other;
    LocalizationHelper::instance()->initialize("Other", other);  // too late
    scope.catalog->numbers[7] = u"seven";
    scope.catalog->ids["NAME"] = u"Stra\u00DFe";
    EXPECT_EQ(LocalStr("NAME", "unused").getStr(), std::string("Stra\xC3\x9F") + "e");
    EXPECT_EQ(LocalStr("7").getUStr(), Text());  // a text id, though it looks like a number
    LocalStr plain(7);
    EXPECT_EQ(static_cast<std::string>(plain), "seven");
    EXPECT_EQ(plain.loadRes({KFRAny(Text(u"a"))}), Text(u"seven<a>"));
    scope.catalog->numbers[7] = u"changed";
    EXPECT_EQ(static_cast<Text>(plain), Text(u"seven"));
    EXPECT_EQ(plain.format(u"a").getUStr(), Text(u"changed<a>"));
    EXPECT_EQ(plain.format(u"a", u"b").getUStr(), Text(u"changed<a><b>"));
    EXPECT_EQ(&plain.format(u"a", u"b", u"c"), &plain);
    EXPECT_EQ(plain.getStr(), "changed<a><b><c>");
    EXPECT_EQ(UserException(7).getTextUStr(), Text(u"changed"));
    EXPECT_EQ(UserException(8).getTextUStr(), Text());
}

TEST(LocalStr, WithoutATextIsNotedAsAWarningWhereTheLogTakesThose)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        MessageScope scope;
        auto const settings = KFR::make<test::FakeSettings>();
        scope.platform.services().put("KFR.Framework.ConfigurationManager", settings);
        settings->put(u"VRN.ModelingPlugin.NonDeliverable")->values[u"LogFilter"] <<= 2LL;
        auto const kernel = KFR::make<test::FakeKernel>();
        KFR::Framework::setKernelAccessInterface(kernel);
        EXPECT_EQ(LocalStr(12345, "fallback").getStr(), "fallback");
        ASSERT_EQ(kernel->lines.size(), 1u);
        EXPECT_EQ(kernel->lines[0].first.substr(23),
                  "Localization warning, can not get locale string for res : id=12345, text=");
        EXPECT_EQ(kernel->lines[0].second, 2);
    });
}

TEST(MessageHandler, ShowsAResultWithTheParametersOfTheFiveKinds)
{
    MessageScope scope;
    // clang-format off
    Params const params{KFRAny(1), KFRAny(true), KFRAny(2LL), KFRAny(2U), KFRAny(0.5), KFRAny(0.5F),
                        KFRAny(std::string("s")), KFRAny(), KFRAny(Text(u"u"))};
    // clang-format on
    MessageHandler::showMessage(1022U, params, Severity::warning, true);
    MessageHandler::showMessage(1022U, Severity::plain, false);
    MessageHandler::showKFRResultError(MessageHandler::createKFRResult(5, 9), true);
    using Numbers = std::vector<int>;
    std::vector<Numbers> shown;  // code, domain, id, severity, flag, kinds of the parameters
    for (auto const& [message, severity, flag] : scope.display->shown) {
        shown.push_back({message.getCode(), message.getDomain(), message.getMessageId(),
                         static_cast<int>(severity), flag});
        for (KFRAny const& param : message.getParams()) {
            shown.back().push_back(param.getTypeID());
        }
    }
    EXPECT_THAT(shown,
                ::testing::ElementsAre(Numbers{1022, 77, 1022, 2, 1, 5, 7, 10, 12, 22},
                                       Numbers{1022, 77, 1022, 0, 0}, Numbers{5, 77, 9, 3, 1}));
}

TEST(MessageHandler, OpensHelpByTheKeyOrElseByTheNumber)
{
    MessageScope scope;
    auto const framework = putFramework();
    scope.catalog->helpKeys["1022"] = "mesh/failed";
    MessageHandler::showDrupalMessage(1022, {KFRAny(1)}, true);
    MessageHandler::showDrupalMessage(1023, {}, false);
    std::vector<std::string> helps;
    for (auto const& [key, params, flag] : framework->helps) {
        helps.push_back(key + " " + std::to_string(params.size()) + (flag ? " new" : ""));
    }
    EXPECT_THAT(helps, ::testing::ElementsAre("mesh/failed 1 new", "1023 0"));
}

TEST(MessageHandler, TellsWhatAValueOutsideItsRangeWouldHaveToBe)
{
    MessageScope scope;
    auto const framework = putFramework();
    scope.platform.services().put("vrn.orlo.appfw.Units", KFR::make<test::WordingUnits>());
    for (int id = 10607; id <= 10614; ++id) {
        scope.catalog->numbers[id] = Text::fromUTF8(std::to_string(id));
    }
    using Range = FloatValueRange;
    MessageHandler::FloatValue const low{1, 0, 0, 2.0};
    MessageHandler::FloatValue const high{1, 0, 0, 5.0};
    struct Row {
        Range range;
        double value;
        char16_t const* text;  ///< Null when the value is in the range.
    };
    // clang-format off
    Row const rows[] = {
        {Range(low, false, high, false), 5, nullptr}, {Range(low, false, high, false), 6, u"10614<n><2><5>"},
        {Range(low, false, high, true), 2, nullptr}, {Range(low, false, high, true), 5, u"10612<n><2><5>"},
        {Range(low, true, high, false), 5, nullptr}, {Range(low, true, high, false), 2, u"10613<n><2><5>"},
        {Range(low, true, high, true), 2, u"10611<n><2><5>"},
        {Range(low, true, false), 2, nullptr}, {Range(low, true, false), 1, u"10608<n><2>"},
        {Range(low, true, true), 2, u"10607<n><2>"},
        {Range(high, false, false), 5, nullptr}, {Range(high, false, false), 6, u"10610<n><5>"},
        {Range(high, false, true), 5, u"10609<n><5>"},
        {Range(), -1e308, nullptr},
    };
    // clang-format on
    for (auto const& [range, number, text] : rows) {
        SCOPED_TRACE(number);
        framework->statuses.clear();
        MessageHandler::FloatValue const value{9, 0, 0, number};
        EXPECT_EQ(MessageHandler::checkFloatValueWithMsg(value, range, Text(u"n")),
                  text == nullptr);
        ASSERT_EQ(framework->statuses.size(), text == nullptr ? 0u : 1u);
        if (text != nullptr) {
            EXPECT_EQ(framework->statuses[0].text, Text(text));
            EXPECT_EQ(framework->statuses[0].severity, Severity::warning);
        }
    }

    framework->statuses.clear();
    scope.catalog->ids["NAME"] = scope.catalog->numbers[3] = u"named";
    Range const range(low, true, true);
    EXPECT_FALSE(MessageHandler::checkFloatValueWithMsg(low, range, std::string("NAME")));
    EXPECT_FALSE(MessageHandler::checkFloatValueWithMsg(KFRAny(low), range, 3U));
    EXPECT_TRUE(MessageHandler::checkFloatValueWithMsg(KFRAny(high), range, 3U));
    EXPECT_FALSE(MessageHandler::checkFloatValueWithMsg(KFRAny(9.0), range, 3U));  // no FloatValue
    ASSERT_EQ(framework->statuses.size(), 2u);
    EXPECT_EQ(framework->statuses[0].text, Text(u"10607<named><2>"));
    EXPECT_EQ(framework->statuses[1].text, Text(u"10607<named><2>"));
}

TEST(MessageBox, HasItsTitleByTheSeverityAndTheUsualButtonsUnlessOthersAreGiven)
{
    MessageScope scope;
    scope.catalog->ids = {{"10085", u"t0"}, {"10084", u"t1"},  {"10083", u"t2"},
                          {"10082", u"t3"}, {"10076", u"yes"}, {"10077", u"no"}};
    auto const executive = KFR::make<test::FakeExecutive>();
    scope.platform.services().put("vrn.orlo.appfw.GuiExecutive", executive);
    struct Row {
        bool asks;
        int severity;
        char16_t const *first, *second;
        KFRResult pressed;
        std::vector<Text> box;  ///< Title, text, buttons.
        bool answer;
    };
    Row const rows[] = {{false, 0, u"", u"", 0, {u"t0", u"?", u"yes", u"", u""}, false},
                        {false, 1, u"a", u"b", 5, {u"t1", u"?", u"a", u"b", u"b"}, false},
                        {true, 2, u"", u"", 0, {u"t2", u"?", u"yes", u"no", u"no"}, false},
                        {true, 3, u"", u"b", 5, {u"t3", u"?", u"yes", u"b", u"b"}, true},
                        {true, 3, u"a", u"a", 5, {u"t3", u"?", u"a", u"a", u"a"}, false}};
    for (auto const& [asks, number, first, second, pressed, expected, answer] : rows) {
        executive->answer = pressed;
        auto const severity = static_cast<Severity>(number);
        bool given = asks;
        KFRResult const result =
            asks ? MessageHandler::showThreeButtonMessageBox(u"?", given, severity, first, second)
                 : MessageHandler::showPopMessage(u"?", severity, first, second);
        EXPECT_EQ(result.getCode(), pressed.getCode());
        EXPECT_EQ(given, answer);
        auto const& box = executive->boxes.back();
        EXPECT_EQ((std::vector{box.title, box.text, box.first, box.second, box.third}), expected);
        EXPECT_EQ(box.kind, 1);
    }

    putFramework()->headless = 1;
    bool answer = true;
    EXPECT_TRUE(MessageHandler::showPopMessage(u"?", Severity::error, u"", u"").isOk());
    KFRResult const asked =
        MessageHandler::showThreeButtonMessageBox(u"?", answer, Severity::error, u"", u"");
    EXPECT_EQ(asked.getCode(), KFR::notDone);
    EXPECT_FALSE(answer);
    EXPECT_EQ(executive->boxes.size(), std::size(rows));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
