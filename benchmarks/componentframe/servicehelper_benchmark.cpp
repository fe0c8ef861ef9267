// Services that were found by name once, against a bare search for the same names.

#include "benchmarks/support/ratio.h"
#include "platform/deps/btree.h"
#include "platform/servicenames.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "tests/support/platformscope.h"

#include <string>
#include <vector>

namespace {

using orlo::bench::keep;
using orlo::bench::Ratios;
using vrn::orlo::plugin::modeling::ServiceHelper;
using vrn::orlo::plugin::modeling::test::PlatformScope;

constexpr int kRepeats = 20000;

}  // namespace

int main()
{
    namespace servicenames = vrn::orlo::servicenames;
    PlatformScope platform;
    std::vector<std::string> names;
    btree::btree_map<std::string, KFRIService> bare;
    for (servicenames::Row const& row : servicenames::kAll) {
        names.emplace_back(row.m_name);
        bare[names.back()] = platform.services().putStranger(names.back());
    }

    Ratios ratios;
    // The peer finds the key and reads the pointer behind it. It copies no handle, which the
    // subject has to: an addition and a release through the object's table of functions.
    ratios.compare(
        "service by name, kept; bare B-tree search", 1.5,
        [&names] {
            for (int repeat = 0; repeat < kRepeats; ++repeat) {
                for (std::string const& name : names) {
                    KFRIService const service = ServiceHelper::getServiceByName(name);
                    keep(service);
                }
            }
        },
        [&names, &bare] {
            for (int repeat = 0; repeat < kRepeats; ++repeat) {
                for (std::string const& name : names) {
                    keep(bare.find(name)->second);
                }
            }
        });
    return ratios.exitStatus();
}
