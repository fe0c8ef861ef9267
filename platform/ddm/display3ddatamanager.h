/// \file
/// Display data manager.

#pragma once

#include "platform/caedata/entityreference.h"
#include "platform/ddm/viewportadapter.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::ddm {

/// What a pick does with the selection that is there.
enum class SelectionChangeMode : int { replace = 0, add = 1, remove = 2, toggle = 3 };

/// How picking works in the viewport.
class KFRIPickingSettingAdapter : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.ddm.KFRIPickingSettingAdapter")

    virtual KFRResult setPickMode(bool multi, SelectionChangeMode mode) = 0;
};

class KFRIDisplay3DDataManager : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.ddm.KFRIDisplay3DDataManager")

    /// \param kinds  of highlights: 0 pick, 3 and 4 the display's
    virtual KFRResult clearHighlights(KFRSequence<int> const& kinds) = 0;
    virtual KFRResult getPickingSettings(KFRSmartPointer<KFRIPickingSettingAdapter>& settings) = 0;
    /// Fails while there is no viewport.
    virtual KFRResult getViewportAdapter(KFRSmartPointer<KFRIDisplayViewportAdapter>& adapter) = 0;
};

/// Sub-entities of one displayed entity.
struct subEntity {
    KFRIService service;
    unsigned int typeId = 0;
    unsigned int id = 0;
    unsigned int subId = 0;
    KFRSequence<unsigned int> numbers;
};

using subEntitySequence = KFRSequence<subEntity>;

}  // namespace vrn::orlo::ddm
