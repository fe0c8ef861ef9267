// The commands that the instruction beside the cursor sends.

#include "plugins/modelingplugin/utilities/componentframe/atmouseinstruction.h"

#include "tests/support/commandfakes.h"
#include "tests/support/freshprocess.h"
#include "tests/support/matchers.h"
#include "tests/support/messagefakes.h"
#include "tests/support/platformscope.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using ::testing::ElementsAre;
using Execution = test::FakeCmdProcessor::Execution;

/// "context/name" and behind it every parameter, a truth value as "?" when it is set.
std::string worded(Execution const& sent)
{
    std::string text = sent.context + "/" + sent.name;
    for (auto const& [name, value] : sent.parameters) {
        icu::UnicodeString localised;
        std::string bytes;
        bool flag = false;
        static_cast<void>((value >>= localised) || (value >>= bytes) || (value >>= flag));
        text += " " + name + "=" + localised.toUTF8String(bytes) + (flag ? "?" : "");
    }
    return text;
}

TEST(AtMouseInstruction, IsMadeOnceAndStaysAfterItsEnd)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        test::PlatformScope platform;
        EXPECT_EQ(AtMouseInstruction::instance(), nullptr);
        auto const services = KFR::make<test::FakeServices>();
        KFRSmartPointer<KFRIServiceProviderInterface> const provider(services);
        EXPECT_TRUE(AtMouseInstruction::initialize("First", provider, "first/").isOk());
        AtMouseInstruction* const made = AtMouseInstruction::instance();
        EXPECT_TRUE(AtMouseInstruction::initialize("Second", {}, "second/").isOk());
        EXPECT_TRUE(made->terminate().isOk());
        ASSERT_EQ(AtMouseInstruction::instance(), made);
        EXPECT_EQ(made->getPluginID(), "First");
        EXPECT_EQ(made->getResourcePath(), "first/");
        EXPECT_THAT(made->getLocalizationProvider(), test::IsObject(provider));
        made->show(1);  // nobody to send it to
    });
}

TEST(AtMouseInstruction, SendsTheShellItsTextsAndIcons)
{
    EXPECT_HOLDS_IN_FRESH_PROCESS([] {
        test::MessageScope scope;
        scope.catalog->numbers = {{1, u"one"}, {2, u"two"}};
        auto const processor = KFR::make<test::FakeCmdProcessor>();
        ServiceCacheModelingPlugin::commandProcessor_ = processor;
        AtMouseInstruction::initialize("Tested", {}, "res/");
        AtMouseInstruction& at = *AtMouseInstruction::instance();
        KFRSequence<KFRAny> const params{KFRAny(icu::UnicodeString(u"p"))};

        at.setInstructionIcon("old");
        at.setIcon("icon");
        at.setErrorIcon("error");
        at.show(1);
        at.show(1, params);
        at.show(1, 2);
        at.show(1, params, 2, params);
        at.showError(2, params);
        at.showWorkflow(1, 2);
        at.showWorkflow(1, params, 2, params);
        at.setCursorIcon("Cross");
        at.resetCursor();
        for (int const what : {1, 0, 2, 9}) {
            at.close(static_cast<AtMouseCloseEnum>(what));
        }
        at.show(2);
        at.showError(2, {});

        std::string const set = "VRN.ShellPlugin/SetAtMouseInstructionData text=";
        std::string const workflow = "VRN.ShellPlugin/SetWorkflowData title=";
        std::string const clear = "VRN.ShellPlugin/ClearAtMouseInstructionData";
        std::string const clearError = "VRN.ShellPlugin/ClearAtMouseErrorInstructionData";
        std::string const icon = " resourcePath=res/ icon=icon isError=";
        std::vector<std::string> sent;
        for (Execution const& execution : processor->executions) {
            EXPECT_EQ(execution.options, processor->defaults);
            sent.push_back(worded(execution));
        }
        EXPECT_THAT(
            sent,
            ElementsAre(set + "one" + icon, set + "one<p>" + icon,
                        set + "one secondText=two" + icon, set + "one<p> secondText=two<p>" + icon,
                        set + "two<p> resourcePath=res/ icon=error isError=?",
                        workflow + "one text=two", workflow + "one<p> text=two<p>",
                        "UI.SDK/SetCursor cursor=Cross", "UI.SDK/SetCursor cursor=Default",
                        "VRN.ShellPlugin/ClearWorkflowData", clear, clear, clearError, clear,
                        clearError, set + "two resourcePath=res/ icon= isError=",
                        set + "two resourcePath=res/ icon= isError=?"));
    });
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
