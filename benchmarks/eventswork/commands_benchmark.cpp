// Commands and their parameters, and the tests that stand before every log line.

#include "benchmarks/support/ratio.h"
#include "platform/kfr/kfrserviceobject.h"
#include "plugins/modelingplugin/utilities/componentframe/logger.h"
#include "plugins/modelingplugin/utilities/componentframe/loghelper.h"
#include "plugins/modelingplugin/utilities/eventswork/cmdinvoker.h"
#include "tests/support/commandfakes.h"
#include "tests/support/platformscope.h"

#include <any>
#include <chrono>
#include <map>
#include <string>

namespace {

using namespace vrn::orlo;  // NOLINT: the benchmark's own file
using orlo::bench::keep;
using orlo::bench::Ratios;
using plugin::modeling::CmdInvoker;
using plugin::modeling::DataBunch;
using plugin::modeling::Logger;
using plugin::modeling::LogHelper;

class EmptyCommand final : public KFRServiceObjectImpl<appfw::ICmdCommandInterface> {
public:
    KFRResult setOptions(appfw::CmdOptions const&) override { return KFR::ok; }
    appfw::CmdOptions getOptions() override { return {}; }
    KFRResult execute(appfw::CmdParameters const&) override { return KFR::ok; }
    KFRAny getReturnValue() override { return {}; }
    appfw::CmdParameters getOutputParams() override { return {}; }
    KFRSmartPointer<appfw::IURCommandInterface> getURCommand() override { return {}; }
};

class OneCommand final : public KFRServiceObjectImpl<appfw::ICmdProcessorInterface> {
public:
    KFRSmartPointer<appfw::ICmdCommandInterface> command = KFR::make<EmptyCommand>();

    KFRResult getCommandOptions(appfw::CmdInvocationRequest const&, appfw::CmdOptions&) override
    {
        return KFR::ok;
    }
    KFRResult executeCommand(appfw::CmdInvocationRequest const&, appfw::CmdOptions const&,
                             appfw::CmdParameters const&) override
    {
        return KFR::ok;
    }
    KFRResult createCommand(appfw::CmdInvocationRequest const&,
                            KFRSmartPointer<appfw::ICmdCommandInterface>& out) override
    {
        out = command;
        return KFR::ok;
    }
};

/// Passes the time that `count` operations of `each` may take.
void spend(std::chrono::nanoseconds each, int count)
{
    auto const end = std::chrono::steady_clock::now() + each * count;
    while (std::chrono::steady_clock::now() < end) {
    }
}

}  // namespace

int main()
{
    using namespace std::chrono_literals;
    plugin::modeling::test::PlatformScope platform;
    auto const processor = KFR::make<OneCommand>();
    plugin::modeling::ServiceCacheModelingPlugin::commandProcessor_ = processor;
    Ratios ratios;

    DataBunch const bunch{{"area", 2.5},
                          {"count", 12},
                          {"flag", true},
                          {"id", 123456789LL},
                          {"label", "load on the flange"},
                          {"name", "x"},
                          {"scale", 1.0},
                          {"unit", 0x0001}};
    std::map<std::string, std::any> bare;
    bare["area"] = 2.5;
    bare["count"] = 12;
    bare["flag"] = true;
    bare["id"] = 123456789LL;
    bare["label"] = std::string("load on the flange");
    bare["name"] = std::string("x");
    bare["scale"] = 1.0;
    bare["unit"] = 0x0001;
    ratios.compare(
        "8 items to parameters and back; copied map", 2.0,
        [&bunch] {
            for (int repeat = 0; repeat < 20000; ++repeat) {
                DataBunch const back(bunch.toCmdParams());
                keep(back);
            }
        },
        [&bare] {
            for (int repeat = 0; repeat < 20000; ++repeat) {
                auto const copy = bare;  // NOLINT: the copy is what is measured
                keep(copy);
            }
        });

    constexpr int kCalls = 10000;
    CmdInvoker command("Empty", "VRN.ModelingPlugin");
    auto const parameters = bunch.toCmdParams();
    ratios.compare(
        "invoke; the command and 2 us", 1.0,
        [&] {
            for (int call = 0; call < kCalls; ++call) {
                static_cast<void>(command.invoke(parameters));
            }
        },
        [&] {
            for (int call = 0; call < kCalls; ++call) {
                static_cast<void>(processor->command->execute(parameters));
            }
            spend(2us, kCalls);
        });
    ratios.compare(
        "make and invoke with 8 items; and 2 us", 1.0,
        [&] {
            for (int call = 0; call < kCalls; ++call) {
                static_cast<void>(CmdInvoker("Empty", "VRN.ModelingPlugin").invoke(bunch));
            }
        },
        [&] {
            for (int call = 0; call < kCalls; ++call) {
                static_cast<void>(processor->command->execute(bunch.toCmdParams()));
            }
            spend(2us, kCalls);
        });

    constexpr int kTests = 1000000;
    ratios.compare(
        "isAllowLog when off; 5 ns", 1.0,
        [] {
            for (int test = 0; test < kTests; ++test) {
                keep(LogHelper::isAllowLog(2));
            }
        },
        [] { spend(5ns, kTests); });
    ratios.compare(
        "enableDebugLog of a scope when off; 5 ns", 1.0,
        [] {
            for (int test = 0; test < kTests; ++test) {
                keep(Logger::enableDebugLog("MBHelper"));
            }
        },
        [] { spend(5ns, kTests); });
    return ratios.exitStatus();
}
