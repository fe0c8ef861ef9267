#include "apps/orlo/answers.h"

#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <array>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::SelectFilter;

struct PredicateRow {
    std::string_view m_name;
    bool (*m_ask)(CAE::EntityReference const&);
};

// clang-format off
#define ORLO_ASK_Reference(name) [](CAE::EntityReference const& r) { return SelectFilter::name(r); }
#define ORLO_ASK_Both(name)      ORLO_ASK_Reference(name)
#define ORLO_ASK_Id(name)        [](CAE::EntityReference const& r) { return SelectFilter::name(r.typeId); }
constexpr std::array kPredicates{
#define TYPE_PREDICATE(forms, name, test) PredicateRow{#name, ORLO_ASK_##forms(name)},
#include "plugins/modelingplugin/utilities/selection/typepredicates.def"
    PredicateRow{"isConstraint", ORLO_ASK_Id(isConstraint)},
};
// clang-format on

}  // namespace

std::vector<std::string_view> answersFor(CAE::EntityReference const& reference)
{
    std::vector<std::string_view> answers;
    for (PredicateRow const& row : kPredicates) {
        if (row.m_ask(reference)) {
            answers.push_back(row.m_name);
        }
    }
    return answers;
}

}  // namespace vrn::orlo::app
