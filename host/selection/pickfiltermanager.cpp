#include "host/selection/pickfiltermanager.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace vrn::orlo::host::selection {

namespace {

bool holds(std::vector<unsigned int> const& types, unsigned int type)
{
    return std::binary_search(types.begin(), types.end(), type);
}

void sortOnce(std::vector<unsigned int>& types)
{
    std::sort(types.begin(), types.end());
    types.erase(std::unique(types.begin(), types.end()), types.end());
}

}  // namespace

KFRResult PickFilterManager::clearPickFilter(int owner)
{
    std::erase_if(m_filters, [owner](Filter const& filter) { return filter.m_owner == owner; });
    return KFR::ok;
}

KFRResult PickFilterManager::getPickTargets(KFRSequence<unsigned int>& targets)
{
    Filter const* const filter = current();
    targets = filter != nullptr ? filter->m_targets : KFRSequence<unsigned int>();
    return KFR::ok;
}

KFRResult PickFilterManager::getActiveTargets(KFRSequence<unsigned int>& targets)
{
    Filter const* const filter = current();
    targets = filter != nullptr ? filter->m_active : KFRSequence<unsigned int>();
    return KFR::ok;
}

KFRResult PickFilterManager::setMultiSelection(int owner, bool multi)
{
    m_filters[indexOf(owner)].m_multi = multi;
    return KFR::ok;
}

KFRResult PickFilterManager::setContiguousPick(int owner, bool contiguous)
{
    m_filters[indexOf(owner)].m_contiguous = contiguous;
    return KFR::ok;
}

KFRResult PickFilterManager::setPickFilter(int owner, KFRSequence<unsigned int> const& allowed,
                                           int userSet, KFRSequence<unsigned int> const& active,
                                           bool multi, int)
{
    Filter& filter = makeCurrent(owner);
    filter.m_multi = multi;
    filter.m_isUserChoice = userSet != 0;
    filter.m_active.clear();
    for (unsigned int const target : active) {
        filter.m_active.append(typeOfTarget(target));
    }
    Types on = typesOf(active, false);
    if (filter.m_isUserChoice) {
        on.insert(on.end(), filter.m_fixed.begin(), filter.m_fixed.end());
        sortOnce(on);
    } else if (on.empty()) {
        on = typesOf(allowed, true);
    }
    filter.set(allowed, on);
    return KFR::ok;
}

KFRResult PickFilterManager::initStagePickFilter(int owner,
                                                 KFRSequence<unsigned int> const& allowed,
                                                 int userSet,
                                                 KFRSequence<unsigned int> const& overwritable,
                                                 bool multi, std::string const& stageName)
{
    Filter& filter = makeCurrent(owner);
    filter.m_multi = multi;
    filter.m_isUserChoice = userSet != 0;
    std::erase(filter.m_stages, stageName);
    filter.m_stages.push_back(stageName);

    Types const ofStage = typesOf(allowed, true);
    Types const replaceable = typesOf(overwritable, false);
    filter.m_fixed.clear();
    std::set_difference(ofStage.begin(), ofStage.end(), replaceable.begin(), replaceable.end(),
                        std::back_inserter(filter.m_fixed));
    Types const on = typesOf(overwritable, true);
    filter.set(allowed, on.empty() ? ofStage : on);
    return KFR::ok;
}

bool PickFilterManager::isPickable(CAE::EntityReference const& reference) const
{
    Filter const* const filter = current();
    return filter == nullptr || !filter->m_isSet || holds(filter->m_pickable, reference.typeId);
}

CAE::EntityReferenceSequence PickFilterManager::filter(
    CAE::EntityReferenceSequence const& references) const
{
    CAE::EntityReferenceSequence pickable;
    for (CAE::EntityReference const& reference : references) {
        if (isPickable(reference)) {
            pickable.append(reference);
            if (!isMulti()) {
                break;
            }
        }
    }
    return pickable;
}

std::string PickFilterManager::stage() const
{
    Filter const* const filter = current();
    return filter != nullptr && !filter->m_stages.empty() ? filter->m_stages.back() : std::string();
}

bool PickFilterManager::isMulti() const
{
    Filter const* const filter = current();
    return filter == nullptr || filter->m_multi;
}

std::optional<PickFilterManager::State> PickFilterManager::state() const
{
    Filter const* const filter = current();
    if (filter == nullptr || !filter->m_isSet) {
        return std::nullopt;
    }
    State state{filter->m_owner,
                stage(),
                filter->m_stages,
                {},
                {},
                filter->m_multi,
                filter->m_contiguous,
                filter->m_isUserChoice};
    for (unsigned int const target : filter->m_targets) {
        state.m_allowed.append(typeOfTarget(target));
        if (static_cast<int>(target) < 0) {
            state.m_on.append(typeOfTarget(target));
        }
    }
    return state;
}

/// \param on  what is switched on, as far as it is allowed
void PickFilterManager::Filter::set(KFRSequence<unsigned int> const& allowed, Types const& on)
{
    KFRSequence<unsigned int> targets;
    targets.reserve(allowed.size());
    for (unsigned int const target : allowed) {
        unsigned int const type = typeOfTarget(target);
        targets.append(holds(on, type) ? 0U - type : type);
    }
    m_pickable = typesOf(targets, true);
    if (m_pickable.empty()) {
        m_pickable = typesOf(targets, false);
    }
    m_targets = std::move(targets);
    m_isSet = true;
}

PickFilterManager::Types PickFilterManager::typesOf(KFRSequence<unsigned int> const& targets,
                                                    bool negativeOnly)
{
    Types types;
    for (unsigned int const target : targets) {
        if (!negativeOnly || static_cast<int>(target) < 0) {
            types.push_back(typeOfTarget(target));
        }
    }
    sortOnce(types);
    return types;
}

/// Where the owner's filter is; made if need be.
std::size_t PickFilterManager::indexOf(int owner)
{
    auto const known = std::find_if(m_filters.begin(), m_filters.end(),
                                    [owner](Filter const& f) { return f.m_owner == owner; });
    if (known != m_filters.end()) {
        return static_cast<std::size_t>(known - m_filters.begin());
    }
    // In front: a filter of somebody else's stays the current one.
    m_filters.emplace(m_filters.begin())->m_owner = owner;
    return 0;
}

PickFilterManager::Filter& PickFilterManager::makeCurrent(int owner)
{
    auto const filter = m_filters.begin() + static_cast<std::ptrdiff_t>(indexOf(owner));
    std::rotate(filter, filter + 1, m_filters.end());
    return m_filters.back();
}

PickFilterManager::Filter const* PickFilterManager::current() const
{
    return !m_filters.empty() ? &m_filters.back() : nullptr;
}

}  // namespace vrn::orlo::host::selection
