/// \file
/// What a user may pick, and what kind of entity a reference names.

#pragma once

#include "platform/appfw/selection.h"
#include "platform/caedata/entityreference.h"
#include "platform/ddm/display3ddatamanager.h"
#include "platform/deps/btree.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"
#include "plugins/modelingplugin/utilities/selection/selectfiltertype.h"

#include <unicode/unistr.h>

#include <cstddef>
#include <string>
#include <vector>

namespace vrn::orlo::plugin::modeling {

/// Classifies entities by their type id, and holds the table of what each kind of pick allows.
///
/// The predicates are static, one or two forms each (see typepredicates.def): of a reference, which
/// is judged by its `typeId` alone, and of a type id. Those that go by name read the type registry
/// at the first use of an id; those that go by the table compare with the ids that the names had
/// when the table was built.
///
/// Failure    A predicate is false for everything that it does not know. The first instance(), and
///            with it the first predicate that goes by the table, throws KFRSystemException when
///            the type registry is missing or the display service is of another kind; the next call
///            tries again.
/// Threads    Main thread; the table has no lock.
/// Cost       By name: a B-tree search and a comparison. By table: a B-tree search and a scan over
///            at most 13 ids.
class MODELING_API SelectFilter {
public:
    /// The one filter; its table is built by the first call.
    static SelectFilter* instance();

#define ORLO_DECLARE_Reference(name) static bool name(CAE::EntityReference const& reference);
#define ORLO_DECLARE_Id(name) static bool name(unsigned int typeId);
#define ORLO_DECLARE_Both(name) ORLO_DECLARE_Reference(name) ORLO_DECLARE_Id(name)
#define TYPE_PREDICATE(forms, name, test) ORLO_DECLARE_##forms(name)
#include "plugins/modelingplugin/utilities/selection/typepredicates.def"
#undef ORLO_DECLARE_Reference
#undef ORLO_DECLARE_Id
#undef ORLO_DECLARE_Both

    /// A displacement constraint. The form with a name compares it as it stands and asks no
    /// registry.
    static bool isConstraint(icu::UnicodeString const& typeName);
    static bool isConstraint(unsigned int typeId);

    /// Whether the id stands under the kind. A kind that the table does not have is entered, empty.
    static bool isSelectFilter(SelectFilterType type, unsigned int typeId);

    /// The first id of the kind; 0 for a kind that has none. Enters nothing.
    static unsigned int getTypeID(SelectFilterType const& type);

    // What may be picked. "multi" allows several picks at once. Without a pick
    // filter manager or a display there is nothing to set, and nothing is.

    /// Allows the types of these kinds, in order; a kind without types adds none.
    void setFilter(SelectFilterType const* types, int count, bool multi);
    /// The same, with the types of one kind switched on.
    void setFilter(SelectFilterType const* types, int count, bool multi, SelectFilterType active);
    void setFilter(SelectFilterType type, bool multi);
    /// \param active  type ids that are switched on
    void setFilterByTypeID(KFRSequence<unsigned int> const& ids, bool multi,
                           KFRSequence<unsigned int>& active);
    /// The same for a tool on all bodies of dimension 2 and 3, which are switched on. Enters their
    /// types into the table, anew at each call.
    void setFilterWithDefault2D3DBodies(SelectFilterType const* types, int count, bool multi);

    /// Opens a stage of a tool.
    /// \param types  values of SelectFilterType
    void initStageFilter(KFRSequence<unsigned int> types, bool multi, std::string stageName);
    void initStageFilterByID(KFRSequence<unsigned int> ids, bool multi, std::string stageName);
    /// \param overwritable  ids that the user may replace; negative afterwards
    void initStageFilterByID(KFRSequence<unsigned int> ids, bool multi,
                             KFRSequence<unsigned int>& overwritable, std::string stageName);
    /// Opens a stage and keeps of what the user had switched on what the stage still allows.
    void initStageFilterWithOverwritableTargets(KFRSequence<unsigned int> const& ids,
                                                bool const& multi,
                                                KFRSequence<unsigned int>& overwritable,
                                                std::string stageName);
    void initStageFilterWithOverwritableTargets(KFRSequence<unsigned int> const& ids,
                                                bool const& multi, std::string stageName);
    void clearFilters();

    /// Appends all targets, without their signs.
    void getPickTargets(KFRSequence<unsigned int>& out);
    /// The targets that are in force; where there are none, all with their signs.
    void getPickTargetTypes(KFRSequence<unsigned int>& out);
    /// The targets that the user has in force.
    void getUserHierarchies(KFRSequence<unsigned int>& out);
    /// Stores the user's choice.
    void setUserHierarchies(KFRSequence<unsigned int>& ids);

    void setContiguousPickFlag(bool contiguous);
    void setMulitSelectionWithoutChangePickingFilter(bool multi);
    /// \param clearHighlight  also takes back the highlights of picks
    void setPickMode(bool multi, ddm::SelectionChangeMode mode, bool clearHighlight);
    /// Takes all highlights back. OK without a display.
    KFRResult cleanHightlights();

    /// Tells the geometry plug-in to show or hide vertices.
    static KFRResult showHideVertex(bool show);
    /// Tells the FEM plug-in whether nodes are to be seen.
    /// \param refresh  reads the setting anew; otherwise what was read last counts
    KFRResult showNode(bool refresh);
    /// The FEM plug-in's setting "Nodes"; false without one.
    static bool getNodesVisibility();

    /// How many kinds the table holds, those that were entered empty among them.
    [[nodiscard]] std::size_t tableSize() const noexcept
    {
        return m_table.size();
    }

private:
    using Table = btree::btree_map<SelectFilterType, std::vector<unsigned int>>;

    SelectFilter() = default;
    void initialize();
    [[nodiscard]] static Table buildTable();
    void appendIds(SelectFilterType type, KFRSequence<unsigned int>& ids) const;
    [[nodiscard]] KFRSequence<unsigned int> idsOf(SelectFilterType const* types, int count) const;
    [[nodiscard]] KFRSequence<unsigned int> pickTargets() const;
    [[nodiscard]] KFRSequence<unsigned int> activeTargets() const;
    void getActiveTargets(KFRSequence<unsigned int>& out) const;
    void setPickFilter(KFRSequence<unsigned int> const& allowed,
                       KFRSequence<unsigned int> const& active, bool multi);
    void initStage(KFRSequence<unsigned int> const& allowed,
                   KFRSequence<unsigned int> const& overwritable, bool multi,
                   std::string const& stageName);

    KFRSmartPointer<ddm::KFRIDisplay3DDataManager> m_displayManager;
    KFRSmartPointer<appfw::ISelectionManagerInterface> m_selectionManager;
    KFRSmartPointer<appfw::IPickFilterManagerInterface> m_pickFilterManager;
    KFRSequence<unsigned int> m_pickTargets;
    Table m_table;
};

}  // namespace vrn::orlo::plugin::modeling
