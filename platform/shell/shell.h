/// \file
/// Shell plug-in: managers and viewports.

#pragma once

#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

namespace vrn::orlo::plugin::shell {

class IViewport : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.shell.IViewport")
};

class IViewportManager : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.shell.IViewportManager")

    virtual KFRResult getCurrentViewport(KFRSmartPointer<IViewport>& viewport) = 0;
};

class IGetManagers : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.shell.IGetManagers")

    virtual KFRResult getViewportManager(KFRSmartPointer<IViewportManager>& manager) = 0;
};

}  // namespace vrn::orlo::plugin::shell
