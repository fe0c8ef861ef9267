/// \file
/// Selection and pick filters of the application frame.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::appfw {

class IPickFilterManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IPickFilterManager")
};

class ISelectionManagerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.ISelectionManager")

    virtual KFRResult getPickFilterManager(
        KFRSmartPointer<IPickFilterManagerInterface>& manager) = 0;
};

}  // namespace vrn::orlo::appfw
