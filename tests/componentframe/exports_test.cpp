// What the built library shows to the outside.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {
namespace {

using ::testing::HasSubstr;
using ::testing::UnorderedElementsAre;

/// The names of the dynamic symbols that the component defines.
std::vector<std::string> definedSymbols()
{
    struct Close {
        void operator()(std::FILE* pipe) const { pclose(pipe); }
    };
    std::unique_ptr<std::FILE, Close> const pipe(
        popen("nm --dynamic --defined-only --format=posix '" ORLO_COMPONENT_FILE "'", "r"));
    std::vector<std::string> names;
    char line[4096];
    while (pipe != nullptr && std::fgets(line, sizeof line, pipe.get()) != nullptr) {
        names.emplace_back(line, std::string(line).find(' '));
    }
    return names;
}

TEST(Exports, AreThreeFunctionsWithCNamesAndTheSystemsOwn)
{
    std::vector<std::string> plain;
    auto const names = definedSymbols();
    for (std::string const& name : names) {
        if (name.rfind("_Z", 0) != 0) {
            plain.push_back(name);
        } else {
            EXPECT_THAT(name, HasSubstr("3vrn4orlo"));
        }
    }
    EXPECT_THAT(plain, UnorderedElementsAre("KFR_Comp_Info", "KFR_Comp_Init",
                                            "KFR_Get_ServiceVersionTable"));
    EXPECT_GT(names.size(), 100U);
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
