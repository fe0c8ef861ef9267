// Questions about a type, against the bare searches behind them.

#include "benchmarks/support/ratio.h"
#include "platform/deps/btree.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"
#include "plugins/modelingplugin/utilities/selection/selectfiltertable.h"
#include "tests/support/platformscope.h"

#include <algorithm>
#include <chrono>
#include <vector>

namespace {

using namespace vrn::orlo::plugin::modeling;  // NOLINT: the library under test
using orlo::bench::keep;
using orlo::bench::Ratios;
using vrn::orlo::plugin::modeling::test::PlatformScope;

constexpr int kRepeats = 10000;
constexpr std::chrono::nanoseconds kTableAllowance{20};

/// References to entities of every type in the table, in the table's order.
std::vector<CAE::EntityReference> referencesOfAllTypes()
{
    std::vector<CAE::EntityReference> references;
    for (auto const& row : detail::kSelectFilterRows) {
        references.push_back({.service = {}, .typeId = EntityTypeID(*row.m_name).typeID()});
    }
    return references;
}

template <class Ask>
void askAll(std::vector<CAE::EntityReference> const& references, Ask ask)
{
    int yes = 0;
    for (int repeat = 0; repeat < kRepeats; ++repeat) {
        for (CAE::EntityReference const& reference : references) {
            yes += ask(reference) ? 1 : 0;
        }
    }
    keep(yes);
}

/// By name: one search for the id's name, and comparisons.
template <class Ask>
void compareByName(Ratios& ratios, std::vector<CAE::EntityReference> const& references,
                   char const* name, Ask ask)
{
    btree::btree_map<unsigned int, icu::UnicodeString> bare;
    for (CAE::EntityReference const& reference : references) {
        bare[reference.typeId] = EntityTypeID(reference.typeId).typeName();
    }
    ratios.compare(
        name, 3.0, [&references, ask] { askAll(references, ask); },
        [&references, &bare] {
            for (int repeat = 0; repeat < kRepeats; ++repeat) {
                for (CAE::EntityReference const& reference : references) {
                    keep(bare.find(reference.typeId)->second);
                }
            }
        });
}

/// By table: at most the bare scan and 20 ns. The peer scans and then waits for as long as the
/// allowance of all its scans lasts, so that the bound is 1.
template <class Ask>
void compareByTable(Ratios& ratios, std::vector<CAE::EntityReference> const& references,
                    char const* name, std::vector<unsigned int> const& ids, Ask ask)
{
    ratios.compare(
        name, 1.0, [&references, ask] { askAll(references, ask); },
        [&references, &ids] {
            askAll(references, [&ids](CAE::EntityReference const& reference) {
                return std::find(ids.begin(), ids.end(), reference.typeId) != ids.end();
            });
            auto const end = std::chrono::steady_clock::now() +
                             kTableAllowance * kRepeats * static_cast<long long>(references.size());
            while (std::chrono::steady_clock::now() < end) {
            }
        });
}

std::vector<unsigned int> idsOf(SelectFilterType kind)
{
    std::vector<unsigned int> ids;
    for (auto const& row : detail::kSelectFilterRows) {
        if (row.m_type == kind) {
            ids.push_back(EntityTypeID(*row.m_name).typeID());
        }
    }
    return ids;
}

}  // namespace

int main()
{
    using Reference = CAE::EntityReference const&;
    PlatformScope platform;
    static_cast<void>(SelectFilter::instance());
    std::vector<CAE::EntityReference> const references = referencesOfAllTypes();

    Ratios ratios;
    compareByName(ratios, references, "one name: isFace",
                  [](Reference reference) { return SelectFilter::isFace(reference); });
    compareByName(ratios, references, "four names: isElement",
                  [](Reference reference) { return SelectFilter::isElement(reference); });
    compareByName(ratios, references, "five names: isSolidBody",
                  [](Reference reference) { return SelectFilter::isSolidBody(reference.typeId); });
    compareByName(ratios, references, "six long names: isConstraint",
                  [](Reference reference) { return SelectFilter::isConstraint(reference.typeId); });
    compareByTable(ratios, references, "one id: isRegion", idsOf(FilterRegion),
                   [](Reference reference) { return SelectFilter::isRegion(reference); });
    compareByTable(ratios, references, "13 ids: isBody", idsOf(FilterBody),
                   [](Reference reference) { return SelectFilter::isBody(reference); });
    compareByTable(
        ratios, references, "last kind: isNodeTieEntity", idsOf(FilterNodeTie),
        [](Reference reference) { return SelectFilter::isNodeTieEntity(reference.typeId); });
    return ratios.exitStatus();
}
