#include "host/selection/selectionmanager.h"

#include "host/model/referencekey.h"

#include <unordered_set>
#include <utility>
#include <vector>

namespace vrn::orlo::host::selection {

namespace {

using ddm::SelectionChangeMode;
using References = CAE::EntityReferenceSequence;

/// Keys of references that the set's maker holds.
class KeySet {
public:
    KeySet() = default;
    explicit KeySet(References const& references)
    {
        m_keys.reserve(references.size());
        for (CAE::EntityReference const& reference : references) {
            m_keys.emplace(reference);
        }
    }
    [[nodiscard]] bool holds(CAE::EntityReference const& reference) const
    {
        return m_keys.contains(model::ReferenceKey(reference));
    }
    /// Whether it is new.
    bool add(CAE::EntityReference const& reference) { return m_keys.emplace(reference).second; }

private:
    std::unordered_set<model::ReferenceKey, model::ReferenceKey::Hash> m_keys;
};

/// Appends what is neither in `known` nor appended already.
void appendNew(References& to, References const& references, KeySet known)
{
    for (CAE::EntityReference const& reference : references) {
        if (known.add(reference)) {
            to.append(reference);
        }
    }
}

References without(References const& references, KeySet const& removed)
{
    References kept;
    for (CAE::EntityReference const& reference : references) {
        if (!removed.holds(reference)) {
            kept.append(reference);
        }
    }
    return kept;
}

References changed(References const& before, References const& picked, SelectionChangeMode mode,
                   bool multi)
{
    References after;
    switch (mode) {
        case SelectionChangeMode::add:
            if (multi) {
                after = before;
            }
            appendNew(after, picked, KeySet(after));
            return after;
        case SelectionChangeMode::remove:
            return without(before, KeySet(picked));
        case SelectionChangeMode::toggle: {
            KeySet const selected(before);
            if (multi || selected.holds(picked.front())) {
                after = without(before, KeySet(picked));
            }
            appendNew(after, picked, selected);
            return after;
        }
        case SelectionChangeMode::replace:
            break;
    }
    appendNew(after, picked, KeySet());
    return after;
}

}  // namespace

SelectionManager::SelectionManager(KFRSmartPointer<KFRIEventManagerInterface> events,
                                   KFRSmartPointer<PickingSettings> settings)
    : m_domain(std::move(events), kSelectionDomain), m_settings(std::move(settings))
{
}

KFRResult SelectionManager::getPickFilterManager(
    KFRSmartPointer<appfw::IPickFilterManagerInterface>& manager)
{
    manager = m_filters;
    return KFR::ok;
}

void SelectionManager::pick(References const& references)
{
    pick(references, m_settings->mode());
}

void SelectionManager::pick(References const& references, SelectionChangeMode mode)
{
    References picked = m_filters->filter(references);
    if (picked.empty() && !references.empty()) {
        return;
    }
    bool const multi = m_settings->isMulti() && m_filters->isMulti();
    if (!multi && picked.size() > 1) {
        picked.resize(1);
    }
    bool const goesByWhatIsThere = mode == SelectionChangeMode::add ||
                                   mode == SelectionChangeMode::remove ||
                                   mode == SelectionChangeMode::toggle;
    if (picked.empty() && goesByWhatIsThere) {
        return;
    }
    std::string const stage = m_filters->stage();
    store(stage, changed(selectionOf(stage), picked, mode, multi));
}

CAE::EntityReferenceSequence SelectionManager::selection() const
{
    return selectionOf(m_filters->stage());
}

CAE::EntityReferenceSequence SelectionManager::selectionOf(std::string const& stage) const
{
    auto const kept = m_selections.find(stage);
    return kept != m_selections.end() ? kept->second : References();
}

void SelectionManager::clear()
{
    store(m_filters->stage(), {});
}

void SelectionManager::clearAll()
{
    std::vector<std::string> stages;
    for (auto const& [stage, selection] : m_selections) {
        stages.push_back(stage);
    }
    for (std::string const& stage : stages) {
        store(stage, {});
    }
}

void SelectionManager::store(std::string const& stage, References const& selection)
{
    if (selection == selectionOf(stage)) {
        return;
    }
    if (selection.empty()) {
        m_selections.erase(stage);
    } else {
        m_selections[stage] = selection;
    }
    m_domain.publish(selection.empty() ? kSelectionCleared : kSelectionChanged,
                     {{"stage", KFRAny(stage)}, {"selection", KFRAny(selection)}});
}

}  // namespace vrn::orlo::host::selection
