// What may be picked: the filter's bridge to the pick filter manager and the display.

#include "platform/deps/btree.h"
#include "platform/fem/fementities.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/typenames/femdisplay.h"
#include "platform/typenames/geometry.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/eventswork/eventhandler.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"

#include <algorithm>
#include <array>

namespace vrn::orlo::plugin::modeling {

using Ids = KFRSequence<unsigned int>;
using KFR::NULLSP;

namespace {

/// Names this library's filter at the pick filter manager; the same in all its calls.
constexpr int kOwner = 20130711;

constexpr int kNotTheUsers = 0;
constexpr int kTheUsers = 1;
constexpr int kReserved = 0;

// Targets are signed numbers in unsigned words.
constexpr bool isNegative(unsigned int target)
{
    return static_cast<int>(target) < 0;
}

constexpr unsigned int negated(unsigned int target)
{
    return 0U - target;
}

constexpr unsigned int magnitudeOf(unsigned int target)
{
    return isNegative(target) ? negated(target) : target;
}

unsigned int idOf(typenames::TypeName const& name)
{
    return EntityTypeID(name).typeID();
}

bool contains(Ids const& ids, unsigned int id)
{
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

KFRResult publish(long long domain, int eventId, KFRAny payload)
{
    auto const events =
        KFR::strict_cast<KFRIEventManagerInterface>(ServiceHelper::getEventManager());
    if (events == NULLSP) {
        return KFR::notDone;
    }
    KFREvent event = initKFREvent();
    event.domain = domain;
    event.eventId = eventId;
    event.payload = std::move(payload);
    return events->publishEvent(event, 0);
}

}  // namespace

void SelectFilter::appendIds(SelectFilterType type, Ids& ids) const
{
    if (auto const kind = m_table.find(type); kind != m_table.end()) {
        for (unsigned int const id : kind->second) {
            ids.append(id);
        }
    }
}

Ids SelectFilter::idsOf(SelectFilterType const* types, int count) const
{
    Ids ids;
    for (int i = 0; i < count; ++i) {
        appendIds(types[i], ids);
    }
    return ids;
}

void SelectFilter::setPickFilter(Ids const& allowed, Ids const& active, bool multi)
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->setPickFilter(kOwner, allowed, kNotTheUsers, active,
                                                             multi, kReserved));
    }
}

void SelectFilter::initStage(Ids const& allowed, Ids const& overwritable, bool multi,
                             std::string const& stageName)
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->initStagePickFilter(kOwner, allowed, kNotTheUsers,
                                                                   overwritable, multi, stageName));
    }
}

void SelectFilter::getActiveTargets(Ids& out) const
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->getActiveTargets(out));
    }
}

Ids SelectFilter::activeTargets() const
{
    Ids targets;
    getActiveTargets(targets);
    return targets;
}

Ids SelectFilter::pickTargets() const
{
    Ids targets;
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->getPickTargets(targets));
    }
    return targets;
}

void SelectFilter::setFilter(SelectFilterType const* types, int count, bool multi)
{
    setPickFilter(idsOf(types, count), {}, multi);
}

void SelectFilter::setFilter(SelectFilterType const* types, int count, bool multi,
                             SelectFilterType active)
{
    setPickFilter(idsOf(types, count), idsOf(&active, 1), multi);
}

void SelectFilter::setFilter(SelectFilterType type, bool multi)
{
    setFilter(&type, 1, multi);
}

void SelectFilter::setFilterByTypeID(Ids const& ids, bool multi, Ids& active)
{
    setPickFilter(ids, active, multi);
}

void SelectFilter::setFilterWithDefault2D3DBodies(SelectFilterType const* types, int count,
                                                  bool multi)
{
    using namespace typenames;  // NOLINT: the tables below are made of its names
    static TypeName const kMisspelt{true, u"GENERALsBODY", -1};
    static std::array<TypeName const*, 7> const kBodies{&kSheetBody,
                                                        &kBody,
                                                        &kPrimitiveBoxSolid,
                                                        &kPrimitiveCylinderSolid,
                                                        &kPrimitiveSphereSolid,
                                                        &kPrimitiveEllipsoidSolid,
                                                        &kGeneralBody};
    // The misspelt name stands where that of general bodies would: nothing ever is of that type, and
    // general bodies, though allowed, are not switched on.
    static std::array<TypeName const*, 9> const kActive{&kSheetBody,
                                                        &kBody,
                                                        &kMisspelt,
                                                        &kDisplay2DContinuousMesh,
                                                        &kDisplay3DContinuousMesh,
                                                        &kPrimitiveBoxSolid,
                                                        &kPrimitiveCylinderSolid,
                                                        &kPrimitiveSphereSolid,
                                                        &kPrimitiveEllipsoidSolid};

    Ids const allowed = idsOf(types, count);
    for (TypeName const* const name : kBodies) {
        m_table[FilterBody].push_back(idOf(*name));
    }
    m_table[Filter2dMesh].push_back(idOf(kDisplay2DContinuousMesh));
    m_table[Filter3dMesh].push_back(idOf(kDisplay3DContinuousMesh));
    Ids active;
    for (TypeName const* const name : kActive) {
        active.append(idOf(*name));
    }
    setPickFilter(allowed, active, multi);
}

void SelectFilter::initStageFilter(Ids types, bool multi, std::string stageName)
{
    Ids allowed;
    for (unsigned int const type : types) {
        appendIds(static_cast<SelectFilterType>(type), allowed);
    }
    initStage(allowed, {}, multi, stageName);
}

void SelectFilter::initStageFilterByID(Ids ids, bool multi, std::string stageName)
{
    initStage(ids, {}, multi, stageName);
}

void SelectFilter::initStageFilterByID(Ids ids, bool multi, Ids& overwritable,
                                       std::string stageName)
{
    // In place: callers find their sequence negated.
    Ids negatives;
    for (unsigned int const id : overwritable) {
        negatives.append(negated(id));
    }
    overwritable = negatives;
    initStage(ids, overwritable, multi, stageName);
}

void SelectFilter::initStageFilterWithOverwritableTargets(Ids const& ids, bool const& multi,
                                                          Ids& overwritable, std::string stageName)
{
    Ids const allowed = ids;
    initStage(allowed, overwritable, multi, stageName);

    btree::btree_set<unsigned int> const fits(ids.begin(), ids.end());
    Ids kept;
    for (unsigned int const target : activeTargets()) {
        if (fits.contains(target)) {
            kept.append(target);
        }
    }
    Ids const targets = pickTargets();
    auto const switchedOn = std::find_if(targets.begin(), targets.end(), isNegative);
    if (switchedOn != targets.end() && contains(kept, magnitudeOf(*switchedOn))) {
        kept = Ids{*switchedOn};
    }
    setPickFilter(allowed, kept, multi);
}

void SelectFilter::initStageFilterWithOverwritableTargets(Ids const& ids, bool const& multi,
                                                          std::string stageName)
{
    Ids none;
    initStageFilterWithOverwritableTargets(ids, multi, none, stageName);
}

void SelectFilter::clearFilters()
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->clearPickFilter(kOwner));
    }
}

void SelectFilter::getPickTargets(Ids& out)
{
    for (unsigned int const target : pickTargets()) {
        out.append(magnitudeOf(target));
    }
}

void SelectFilter::getPickTargetTypes(Ids& out)
{
    out = activeTargets();
    if (out.empty()) {
        out = pickTargets();
    }
}

void SelectFilter::getUserHierarchies(Ids& out)
{
    getActiveTargets(out);
}

void SelectFilter::setUserHierarchies(Ids& ids)
{
    Ids rewritten;
    for (unsigned int const target : pickTargets()) {
        rewritten.append(contains(ids, target) ? negated(magnitudeOf(target)) : target);
    }
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(
            m_pickFilterManager->setPickFilter(kOwner, rewritten, kTheUsers, ids, true, kReserved));
    }
}

void SelectFilter::setContiguousPickFlag(bool contiguous)
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->setContiguousPick(kOwner, contiguous));
    }
}

void SelectFilter::setMulitSelectionWithoutChangePickingFilter(bool multi)
{
    if (m_pickFilterManager != NULLSP) {
        static_cast<void>(m_pickFilterManager->setMultiSelection(kOwner, multi));
    }
}

void SelectFilter::setPickMode(bool multi, ddm::SelectionChangeMode mode, bool clearHighlight)
{
    if (m_displayManager == NULLSP) {
        return;
    }
    KFRSmartPointer<ddm::KFRIPickingSettingAdapter> settings;
    static_cast<void>(m_displayManager->getPickingSettings(settings));
    if (settings != NULLSP) {
        static_cast<void>(settings->setPickMode(multi, mode));
    }
    if (clearHighlight) {
        static_cast<void>(m_displayManager->clearHighlights({0}));
    }
}

KFRResult SelectFilter::cleanHightlights()
{
    return m_displayManager != NULLSP ? m_displayManager->clearHighlights({0, 3, 4}) : KFR::ok;
}

KFRResult SelectFilter::showHideVertex(bool show)
{
    constexpr int kShowVertices = 116;
    unsigned short const payload = show ? 1 : 2;
    return publish(EventHandler::getGeomDomainId(), kShowVertices, KFRAny(payload));
}

bool SelectFilter::getNodesVisibility()
{
    static KFRSmartPointer<fem::IPropertyStoreInterface> store;
    if (store == NULLSP) {
        auto const manager =
            KFR::loose_cast<fem::IFEMPluginManagerInterface>(ServiceHelper::getFEMPMService());
        if (manager != NULLSP) {
            static_cast<void>(manager->getPropertyStore(store));
        }
    }
    KFRAny value;
    bool visible = false;
    return store != NULLSP && store->getProperty("Nodes", value).isOk() && (value >>= visible) &&
           visible;
}

KFRResult SelectFilter::showNode(bool refresh)
{
    constexpr int kShowNodes = 108;
    static bool visible = false;
    if (refresh) {
        visible = getNodesVisibility();
    }
    KFRSequence<KFRAny> const payload{KFRAny(0U), KFRAny(visible), KFRAny(false)};
    return publish(EventHandler::getFEMDomainId(), kShowNodes, KFRAny(payload));
}

}  // namespace vrn::orlo::plugin::modeling
