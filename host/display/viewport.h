/// \file
/// A viewport, as the platform's tools see it.

#pragma once

#include "host/display/camera.h"
#include "platform/ddm/viewportadapter.h"
#include "platform/kfr/kfrserviceobject.h"

#include <optional>
#include <string>

namespace vrn::orlo::host::display {

/// Carries points between the pixels of a window and the model.
///
/// Units      As Camera has them, with points in single precision.
/// Shape      The near plane is always before the box of what is displayed.
/// Failure    KFR::notDone for a point that Camera cannot carry over, or whose place is beyond
///            single precision, and for the box while nothing is displayed. The last arguments stay
///            as they were.
/// Threads    Main thread.
class Viewport final : public KFRServiceObjectImpl<ddm::KFRIDisplayViewportAdapter> {
public:
    explicit Viewport(Camera const& camera);

    void setCamera(Camera const& camera);
    /// The camera in use, its near plane before the box.
    [[nodiscard]] Camera const& camera() const noexcept { return m_camera; }

    /// \param box  of all that is displayed; nothing, and an empty one, for nothing
    void setModelBox(std::optional<Box> const& box);

    KFRResult screenToModel(KFRFloat3DPoint const& screen, KFRFloat3DPoint& model) override;
    KFRResult modelToScreen(KFRFloat3DPoint const& model, KFRFloat3DPoint& screen) override;
    KFRResult getModelBoundingBox(KFRFloat3DPoint& min, KFRFloat3DPoint& max) override;

    std::string getObjectName() override { return "vrn.orlo.host.display:Viewport"; }

private:
    Camera m_given;   // as its owner has set it
    Camera m_camera;  // with the near plane for the box
    Box m_box;
};

}  // namespace vrn::orlo::host::display
