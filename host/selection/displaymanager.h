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

/// Keeps highlights by kind, the settings of picking, and the viewport.
///
/// Order      Highlights of a kind as added, each as often as added.
/// Failure    A kind that nothing is highlighted with has no highlights.
/// Ownership  Holds the owners of what is highlighted, and the viewport.
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

    /// \param adapter  of the viewport in use; null for none
    void setViewportAdapter(KFRSmartPointer<ddm::KFRIDisplayViewportAdapter> adapter);
    /// Fails without a viewport, and leaves the argument as it was.
    KFRResult getViewportAdapter(
        KFRSmartPointer<ddm::KFRIDisplayViewportAdapter>& adapter) override;

    std::string getObjectName() override { return "vrn.orlo.host.selection:DisplayManager"; }

private:
    std::map<int, CAE::EntityReferenceSequence> m_highlights;
    KFRSmartPointer<PickingSettings> m_settings = KFR::make<PickingSettings>();
    KFRSmartPointer<ddm::KFRIDisplayViewportAdapter> m_viewport;
};

}  // namespace vrn::orlo::host::selection
