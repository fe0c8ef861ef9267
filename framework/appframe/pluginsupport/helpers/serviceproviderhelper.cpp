#include "framework/appframe/pluginsupport/helpers/serviceproviderhelper.h"

#include <cassert>

namespace vrn::orlo::appfw {

using KFR::NULLSP;

KFRSmartPointer<KFRIServiceProviderInterface> ServiceProviderHelper::m_kfrServiceProvider;

KFRResult ServiceProviderHelper::setServiceProvider(
    KFRSmartPointer<KFRIServiceProviderInterface> const& provider)
{
    if (provider == NULLSP) {
        return KFR::notDone;
    }
    m_kfrServiceProvider = provider;
    return KFR::ok;
}

KFRIService ServiceProviderHelper::getService(std::string const& name,
                                              std::string const& parameters)
{
    assert(m_kfrServiceProvider != NULLSP);
    if (m_kfrServiceProvider == NULLSP) {
        return {};
    }
    KFRResult dropped;
    return m_kfrServiceProvider->getService(name, parameters, dropped);
}

KFRIService ServiceProviderHelper::getService(std::string const& name, KFRResult& result)
{
    assert(m_kfrServiceProvider != NULLSP);
    if (m_kfrServiceProvider == NULLSP) {
        result = KFRResult(KFR::notDone);
        return {};
    }
    return m_kfrServiceProvider->getService(name, std::string(), result);
}

}  // namespace vrn::orlo::appfw
