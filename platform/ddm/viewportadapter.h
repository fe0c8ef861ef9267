/// \file
/// Display data manager: the camera of a viewport.

#pragma once

#include "platform/kfr/kfrrecords.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::ddm {

/// Screen x and y are pixels; what the depth z counts in is the display's.
///
/// Failure    A point that cannot be carried over: a failure, with the last arguments as they were.
class KFRIDisplayViewportAdapter : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.ddm.KFRIDisplayViewportAdapter")

    virtual KFRResult screenToModel(KFRFloat3DPoint const& screen, KFRFloat3DPoint& model) = 0;
    virtual KFRResult modelToScreen(KFRFloat3DPoint const& model, KFRFloat3DPoint& screen) = 0;
    /// The box of what is displayed.
    virtual KFRResult getModelBoundingBox(KFRFloat3DPoint& min, KFRFloat3DPoint& max) = 0;
};

}  // namespace vrn::orlo::ddm
