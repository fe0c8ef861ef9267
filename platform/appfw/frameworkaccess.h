/// \file
/// The application as its plug-ins see it.

#pragma once

#include "platform/appfw/severity.h"
#include "platform/kfr/kfrevent.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsmartpointer.h"

#include <unicode/unistr.h>

#include <string>

namespace vrn::orlo::appfw {

/// A plug-in of the application.
class IPluginInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IPlugin")

    /// The folder that the plug-in may write its own files to.
    virtual KFRResult getFolder(icu::UnicodeString& folder) = 0;
};

/// The edition of the application that runs.
class IProductInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IProduct")

    virtual KFRResult getName(icu::UnicodeString& name) = 0;
};

/// Tells the application's own state machines what goes on.
class KFRIStateServiceInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIStateService")

    /// \param name  of the state machine, "appfw.CommandSS"
    /// \param flag  passed through; the library always says 0
    virtual KFRResult send(std::string const& name, KFREvent const& event, int flag) = 0;
};

/// Failure    An operation that hands something out and fails leaves its argument as it was.
class IFrameworkAccessInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IFrameworkAccess")

    /// Fails for a name that no plug-in has.
    virtual KFRResult getPlugin(std::string const& name,
                                KFRSmartPointer<IPluginInterface>& plugin) = 0;
    virtual KFRResult getProduct(KFRSmartPointer<IProductInterface>& product) = 0;
    virtual KFRResult showStatusMessage(icu::UnicodeString const& text, Severity severity) = 0;
    virtual KFRResult getStateService(KFRSmartPointer<KFRIStateServiceInterface>& service) = 0;
};

/// Asked of the object that is IFrameworkAccess as well.
class KFRIAppExecutive : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.KFRIAppExecutive")

    /// 0 when a person sits in front of a window; anything else when nobody can answer a box.
    virtual int isHeadless() = 0;
};

}  // namespace vrn::orlo::appfw
