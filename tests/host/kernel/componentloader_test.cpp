#include "host/kernel/componentloader.h"

#include "host/kernel/serviceregistry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace vrn::orlo::host::kernel {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::Pair;
using ::testing::StartsWith;

TEST(ComponentLoader, KeepsWhatTheComponentSaysInItsOrder)
{
    Component const component = ComponentLoader(TESTFILE_COMPONENT).component();
    EXPECT_EQ(component.m_path, TESTFILE_COMPONENT);
    EXPECT_THAT(
        component.m_info,
        ElementsAre(Pair("KernelMajorVersion", "24"), Pair("Name", "vrn.orlo.test.Component"),
                    Pair("MinorVersion", ""), Pair("VersionNumbers", ",,24,8")));
    EXPECT_THAT(component.m_versionTable, ElementsAre("one row"));
    EXPECT_EQ(component.m_serviceTable, "vrn_orlo_test_Component_ServiceTable");
    EXPECT_EQ(component.info("Unknown"), "");
}

// clang-format off
struct {
    char const* name;
    char const* path;
    char const* reason;
} const kRefusalCases[] = {
    // name                        path                      reason
    {"NoPath",                     "",                       "a component needs a name"},
    {"NoFile",                     "/no/such/component.so",  "there is no such file"},
    {"NotInTheLibrarySearch",      "libnosuchcomponent.so",  "cannot be loaded"},
    {"NoLibrary",                  TESTFILE_NOLIBRARY,       "cannot be loaded"},
    {"LibraryThatIsNoComponent",   TESTFILE_NOCOMPONENT,     "no entry function KFR_Comp_Info"},
    {"OneEntryMissing",            TESTFILE_NOINIT,          "no entry function KFR_Comp_Init"},
    {"EntryOfALibraryBelow",       TESTFILE_NOINITOFITSOWN,  "no entry function KFR_Comp_Init"},
    {"OtherKernelVersion",         TESTFILE_KERNEL25,        "version 25 of the framework"},
    {"NoName",                     TESTFILE_NAMELESS,        "does not tell its name"},
    {"FailingInit",                TESTFILE_FAILINGINIT,     "KFR_Comp_Init failed with 7"},
};
// clang-format on

TEST(RefusedComponent, IsNamedWithItsReasonOnOneLine)
{
    for (auto const& row : kRefusalCases) {
        SCOPED_TRACE(row.name);
        auto const registry = KFR::make<ServiceRegistry>();
        try {
            ComponentLoader(row.path).initialise(registry);
            ADD_FAILURE() << "accepted";
        } catch (ComponentError const& error) {
            EXPECT_THAT(error.what(), AllOf(StartsWith(std::string(row.path) + ": "),
                                            HasSubstr(row.reason), Not(HasSubstr("\n"))));
        }
        registry->stop();
    }
}

}  // namespace
}  // namespace vrn::orlo::host::kernel
