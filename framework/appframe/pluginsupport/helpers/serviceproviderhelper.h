/// \file
/// Services straight from the framework's provider, for the few callers that work before or beside
/// the library's name cache.

#pragma once

#include "platform/kfr/kfrframework.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

namespace vrn::orlo::appfw {

/// The framework's service provider, kept for the process.
///
/// Failure    Without a provider: the soft stop of an assertion in a build that has them, else null
///            and KFR::notDone. What the provider fails at comes back as null.
/// Threads    Main thread, no lock.
class MODELING_API ServiceProviderHelper {
public:
    /// Stores the provider. Null changes nothing and gives KFR::notDone.
    static KFRResult setServiceProvider(
        KFRSmartPointer<KFRIServiceProviderInterface> const& provider);

    /// A fresh handle from the provider at every call. Its result is dropped.
    static KFRIService getService(std::string const& name, std::string const& parameters);
    /// The same with empty parameters and the provider's result.
    static KFRIService getService(std::string const& name, KFRResult& result);

private:
    static KFRSmartPointer<KFRIServiceProviderInterface> m_kfrServiceProvider;
};

}  // namespace vrn::orlo::appfw

namespace vrn::orlo::plugin::modeling {
using appfw::ServiceProviderHelper;
}
