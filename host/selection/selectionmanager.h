/// \file
/// What the user has selected.

#pragma once

#include "host/model/eventdomain.h"
#include "host/selection/pickfiltermanager.h"
#include "host/selection/pickingsettings.h"
#include "platform/appfw/selection.h"
#include "platform/kfr/kfreventmanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <map>
#include <string>

namespace vrn::orlo::host::selection {

/// The domain of the events of the selection.
inline constexpr char const* kSelectionDomain = "vrn.orlo.appfw.SelectionManagerEvent";

/// Events of the domain.
enum SelectionEvent : int {
    kSelectionChanged = 1,  ///< Something is selected, and not what was selected before.
    kSelectionCleared = 2,  ///< Something was selected, and now nothing is.
};

/// Keeps one selection per stage of the pick filter, and one, under the empty name, for what is
/// picked outside of a stage. The current one is that of the current stage; a stage that opens
/// again finds what was selected in it.
///
/// Every change publishes one event, whose payload is CmdParameters: "stage", a std::string;
/// "selection", an EntityReferenceSequence of what is selected in it now. A pick that changes
/// nothing publishes nothing, and so does a change of the stage.
///
/// Shape      No duplicates. At most one reference from a pick where several picks are forbidden,
///            by the filter or by the settings.
/// Order      Of picking.
/// Ownership  Holds the owners of what is selected, until it is picked away or cleared.
/// Threads    Main thread. Listeners may pick; they see the selection as it is after the event.
/// Cost       A pick: linear in the selection and the pick.
class SelectionManager final : public KFRServiceObjectImpl<appfw::ISelectionManagerInterface> {
public:
    /// Creates the domain.
    /// \param events    null for a manager that publishes nothing
    /// \param settings  the viewport's; not null
    SelectionManager(KFRSmartPointer<KFRIEventManagerInterface> events,
                     KFRSmartPointer<PickingSettings> settings);

    KFRResult getPickFilterManager(
        KFRSmartPointer<appfw::IPickFilterManagerInterface>& manager) override;
    [[nodiscard]] PickFilterManager& pickFilters() noexcept { return *m_filters; }

    /// In the mode of the settings.
    void pick(CAE::EntityReferenceSequence const& references);
    /// Picks what the filter lets through. A pick of nothing replaces with nothing; one of which
    /// the filter leaves nothing is ignored.
    ///
    /// Where several picks are forbidden, `add` replaces, and so does `toggle` unless the reference
    /// is selected.
    void pick(CAE::EntityReferenceSequence const& references, ddm::SelectionChangeMode mode);

    [[nodiscard]] CAE::EntityReferenceSequence selection() const;
    /// Empty for a stage in which nothing is selected, or that there never was.
    [[nodiscard]] CAE::EntityReferenceSequence selectionOf(std::string const& stage) const;

    /// Clears the current selection.
    void clear();
    /// Clears the selections of all stages, each with its event.
    void clearAll();

    std::string getObjectName() override { return "vrn.orlo.host.selection:SelectionManager"; }

private:
    void store(std::string const& stage, CAE::EntityReferenceSequence const& selection);

    model::EventDomain m_domain;
    KFRSmartPointer<PickingSettings> m_settings;
    KFRSmartPointer<PickFilterManager> m_filters = KFR::make<PickFilterManager>();
    std::map<std::string, CAE::EntityReferenceSequence> m_selections;  // none is empty
};

}  // namespace vrn::orlo::host::selection
