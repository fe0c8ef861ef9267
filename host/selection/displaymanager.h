/// \file
/// What the display has to show beside the model.

#pragma once

#include "host/selection/pickingsettings.h"
#include "platform/caedata/entityreference.h"
#include "platform/ddm/display3ddatamanager.h"
#include "platform/kfr/kfrserviceobject.h"

#include <map>
#include <string>

namespace vrn::orlo::host::selection {

/// The kind of highlights that show what is picked.
inline constexpr int kPickHighlight = 0;

/// Keeps highlights by kind, and the settings of picking.
///
/// Order      Highlights of a kind as added, each as often as added.
/// Failure    None: a kind that nothing is highlighted with has no highlights.
/// Ownership  Holds the owners of what is highlighted.
/// Threads    Main thread.
class DisplayManager final : public KFRServiceObjectImpl<ddm::KFRIDisplay3DDataManager> {
public:
    void addHighlights(int kind, CAE::EntityReferenceSequence const& references);
    [[nodiscard]] CAE::EntityReferenceSequence highlights(int kind) const;

    /// Those of these kinds; no kinds, nothing.
    KFRResult clearHighlights(KFRSequence<int> const& kinds) override;
    /// The same object each time.
    KFRResult getPickingSettings(
        KFRSmartPointer<ddm::KFRIPickingSettingAdapter>& settings) override;
    [[nodiscard]] KFRSmartPointer<PickingSettings> const& pickingSettings() const noexcept
    {
        return m_settings;
    }

    std::string getObjectName() override { return "vrn.orlo.host.selection:DisplayManager"; }

private:
    std::map<int, CAE::EntityReferenceSequence> m_highlights;
    KFRSmartPointer<PickingSettings> m_settings = KFR::make<PickingSettings>();
};

}  // namespace vrn::orlo::host::selection
