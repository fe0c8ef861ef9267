/// \file
/// Shell plug-in: managers and viewports.

#pragma once

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <string>

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

/// Help pages. Asked of the object that is IFrameworkAccess as well.
class IShellHelp : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.plugin.shell.IShellHelp")

    /// \param flag  passed through by the library
    virtual KFRResult show(std::string const& key, KFRSequence<KFRAny> const& params,
                           bool flag) = 0;
};

}  // namespace vrn::orlo::plugin::shell
