#include "platform/kfr/kfrfactory.h"

#include <utility>

namespace KFR::Framework {

namespace {

class FactoryAccess final : public KFRIFactoryAccess {
public:
    FactoryAccess(KFRSmartPointer<KFRIServiceProviderInterface> provider,
                  KFRSmartPointer<KFRIServicePublisherInterface> publisher,
                  KFRSmartPointer<KFRIServiceFactoryInterface> factory)
        : m_provider(std::move(provider)),
          m_publisher(std::move(publisher)),
          m_factory(std::move(factory))
    {
    }

    KFRIService getServiceHandle() override
    {
        // The framework's provider answers as a service access too; another provider may not.
        auto const handle = loose_cast<KFRIServiceAccess>(m_provider);
        return handle != NULLSP ? KFRIService(handle) : KFRIService(m_provider);
    }
    KFRSmartPointer<KFRIServiceProviderInterface> getServiceProvider() override
    {
        return m_provider;
    }
    KFRSmartPointer<KFRIServicePublisherInterface> getServicePublisher() override
    {
        return m_publisher;
    }
    KFRSmartPointer<KFRIServiceFactoryInterface> getServiceFactory() override { return m_factory; }

private:
    KFRSmartPointer<KFRIServiceProviderInterface> m_provider;
    KFRSmartPointer<KFRIServicePublisherInterface> m_publisher;
    KFRSmartPointer<KFRIServiceFactoryInterface> m_factory;
};

}  // namespace

KFRFactory::KFRFactory(KFRSmartPointer<KFRIServicePublisherInterface> publisher, std::string name,
                       bool single, std::string majorVersion, std::string minorVersion,
                       std::string buildData)
    : m_publisher(publisher.get()), m_name(std::move(name))
{
    if (publisher != NULLSP) {
        static_cast<void>(
            publisher->publishFactory(m_name, this, single, majorVersion, minorVersion, buildData));
    }
}

KFRFactory::~KFRFactory() = default;

KFRIService KFRFactory::getServiceInstance(
    std::string const& name, KFRSmartPointer<KFRIServiceProviderInterface> const& provider,
    KFRResult& result)
{
    result = KFRResult(notDone);
    if (name != m_name) {
        return {};
    }
    FactoryAccess access(provider, KFRSmartPointer<KFRIServicePublisherInterface>(m_publisher),
                         KFRSmartPointer<KFRIServiceFactoryInterface>(this));
    KFRIServiceInterface* const made = create(access);
    if (made == nullptr) {
        return {};
    }
    result = KFRResult(ok);
    return KFRIService(made, KFRIServiceInterface::kfrTypeCode(), kAdopt);
}

}  // namespace KFR::Framework
