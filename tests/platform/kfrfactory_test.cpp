#include "platform/kfr/kfrfactory.h"

#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceaccess.h"
#include "tests/platform/testobjects.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace KFR::Framework {
namespace {

using test::AlarmClock;
using test::IClockInterface;
using ::testing::HasSubstr;

/// Keeps what is published, as the application's does.
class StubPublisher final : public KFRServiceObjectImpl<KFRIServicePublisherInterface> {
public:
    KFRResult publishFactory(std::string const& name, KFRIServiceFactoryInterface* factory, bool,
                             std::string const&, std::string const&, std::string const&) override
    {
        m_factories[name] = KFRSmartPointer<KFRIServiceFactoryInterface>(factory, kAdopt);
        return ok;
    }

    std::map<std::string, KFRSmartPointer<KFRIServiceFactoryInterface>> m_factories;
};

/// Knows one service.
class StubProvider final : public KFRServiceObjectImpl<KFRIServiceProviderInterface> {
public:
    explicit StubProvider(std::string name, int failure = 42)
        : m_name(std::move(name)), m_failure(failure)
    {
    }

    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result) override
    {
        m_parameters = parameters;
        result = KFRResult(name == m_name ? ok : m_failure);
        return name == m_name ? KFRIService(make<AlarmClock>()) : KFRIService();
    }

    std::string m_parameters;

private:
    std::string m_name;
    int m_failure;
};

/// A service class as components write it: the access interface outside, the framework's half behind.
class Greeter final : public KFRIServiceAccess, public KFRServiceAccess {
public:
    Greeter(KFRIFactoryAccess& access, bool tracked) : KFRServiceAccess(access, tracked)
    {
        ++s_living;
    }

    void addReference() override { KFRServiceAccess::addReference(); }
    void releaseReference(void** holder) override { KFRServiceAccess::releaseReference(holder); }
    int getInterface(KFRUUID const& id, void** object) override
    {
        return KFRServiceAccess::getInterface(id, object);
    }
    std::string getObjectName() override { return "Greeter"; }
    long long getInstanceID() override { return KFRServiceAccess::getInstanceID(); }

    KFRIService getService(std::string const& name, KFRResult& result) override
    {
        return KFRServiceAccess::getService(name, result);
    }
    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result) override
    {
        return KFRServiceAccess::getService(name, parameters, result);
    }
    KFRIService getService(std::string const& name, std::string const& parameters) override
    {
        return KFRServiceAccess::getService(name, parameters);
    }
    KFRIService getKFRIService() override { return KFRServiceAccess::getKFRIService(); }
    KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider() override
    {
        return KFRServiceAccess::getKFRIServiceProvider();
    }
    KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher() override
    {
        return KFRServiceAccess::getKFRIServicePublisher();
    }
    KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory() override
    {
        return KFRServiceAccess::getKFRIServiceFactory();
    }
    KFRIService getHeldReference() override { return KFRServiceAccess::getHeldReference(); }
    KFRResult addNewProvider(KFRSmartPointer<KFRIServiceProviderInterface> const& provider) override
    {
        return KFRServiceAccess::addNewProvider(provider);
    }
    int compareReferenceCount(int count) override
    {
        return KFRServiceAccess::compareReferenceCount(count);
    }
    void trackObject() override { KFRServiceAccess::trackObject(); }

    static inline int s_living = 0;

private:
    ~Greeter() override { --s_living; }
    KFRIServiceAccess* asServiceAccess() noexcept override { return this; }
};

class GreeterFactory final : public KFRFactory {
public:
    explicit GreeterFactory(KFRSmartPointer<KFRIServicePublisherInterface> publisher,
                            bool tracked = false)
        : KFRFactory(std::move(publisher), "test.Greeter", false, "1", "0", ""), m_tracked(tracked)
    {
        ++s_living;
    }
    std::string getProperty(std::string const&) override { return {}; }

    static inline int s_living = 0;
    static inline bool s_makesNothing = false;

private:
    ~GreeterFactory() override { --s_living; }
    KFRIServiceInterface* create(KFRIFactoryAccess& access) override
    {
        return s_makesNothing ? nullptr
                              : static_cast<KFRIServiceAccess*>(new Greeter(access, m_tracked));
    }

    bool m_tracked;
};

class Factories : public ::testing::Test {
protected:
    ~Factories() override
    {
        m_publisher.release();
        EXPECT_EQ(GreeterFactory::s_living, 0);
        EXPECT_EQ(Greeter::s_living, 0);
    }

    [[nodiscard]] KFRIService request(std::string const& name, KFRResult& result) const
    {
        return m_publisher->m_factories["test.Greeter"]->getServiceInstance(name, m_provider,
                                                                            result);
    }
    [[nodiscard]] KFRSmartPointer<KFRIServiceAccess> greeter() const
    {
        KFRResult result;
        return request("test.Greeter", result);
    }

    KFRSmartPointer<StubPublisher> m_publisher = make<StubPublisher>();
    KFRSmartPointer<StubProvider> m_provider = make<StubProvider>("test.Clock");
};

TEST_F(Factories, BelongToThePublisher)
{
    new GreeterFactory(m_publisher);
    ASSERT_EQ(m_publisher->m_factories.count("test.Greeter"), 1U);
    EXPECT_EQ(GreeterFactory::s_living, 1);
    EXPECT_EQ(m_publisher->referenceCount(), 1);  // or publisher and factory would hold each other
    m_publisher->m_factories.clear();
    EXPECT_EQ(GreeterFactory::s_living, 0);
}

TEST_F(Factories, BelongToTheirMakerWithoutAPublisher)
{
    {
        auto const factory = make<GreeterFactory>(KFRSmartPointer<KFRIServicePublisherInterface>());
        KFRResult result;
        EXPECT_TRUE(factory->getServiceInstance("test.Greeter", m_provider, result) != NULLSP);
        EXPECT_EQ(Greeter::s_living, 0);
    }
    EXPECT_EQ(GreeterFactory::s_living, 0);
}

TEST_F(Factories, GiveNothingForAnotherNameOrWhenNothingIsMade)
{
    new GreeterFactory(m_publisher);
    KFRResult result(ok);
    EXPECT_TRUE(request("test.Other", result) == NULLSP);
    EXPECT_EQ(result.getCode(), notDone);

    GreeterFactory::s_makesNothing = true;
    result = ok;
    EXPECT_TRUE(request("test.Greeter", result) == NULLSP);
    EXPECT_EQ(result.getCode(), notDone);
    GreeterFactory::s_makesNothing = false;

    EXPECT_TRUE(request("test.Greeter", result) != NULLSP);
    EXPECT_TRUE(result.isOk());
}

TEST_F(Factories, HandTheirSurroundingsToTheInstance)
{
    new GreeterFactory(m_publisher);
    auto const access = greeter();
    EXPECT_EQ(access->compareReferenceCount(1), 0);
    EXPECT_TRUE(access->getKFRIServiceProvider() == m_provider);
    EXPECT_TRUE(access->getKFRIServicePublisher() == m_publisher);
    EXPECT_TRUE(access->getKFRIServiceFactory() == m_publisher->m_factories["test.Greeter"]);
    EXPECT_TRUE(access->getHeldReference() == m_provider);  // it is no service access itself
    EXPECT_TRUE(access->getKFRIService() == access);
}

TEST_F(Factories, InstanceLooksServicesUpInAllThreeForms)
{
    new GreeterFactory(m_publisher);
    auto const access = greeter();
    KFRResult result;
    EXPECT_TRUE(access->getService("test.Clock", result) != NULLSP);
    EXPECT_TRUE(result.isOk());
    EXPECT_EQ(m_provider->m_parameters, "");
    EXPECT_TRUE(access->getService("test.Clock", "#=TABLE", result) != NULLSP);
    EXPECT_EQ(m_provider->m_parameters, "#=TABLE");
    KFRSmartPointer<IClockInterface> const clock = access->getService("test.Clock", "");
    EXPECT_EQ(clock->hour(), 12);

    EXPECT_TRUE(access->getService("test.Lamp", result) == NULLSP);
    EXPECT_EQ(result.getCode(), 42);
    try {
        static_cast<void>(access->getService("test.Lamp", ""));
        FAIL() << "no exception";
    } catch (KFRException const& exception) {
        EXPECT_EQ(exception.getCode(), 42);
        EXPECT_THAT(exception.getText(), HasSubstr("test.Lamp"));
    }
}

TEST_F(Factories, InstanceAsksFurtherProvidersAfterTheFirst)
{
    new GreeterFactory(m_publisher);
    auto const access = greeter();
    EXPECT_FALSE(access->addNewProvider({}).isOk());
    EXPECT_TRUE(access->addNewProvider(make<StubProvider>("test.Lamp", 43)).isOk());
    KFRResult result;
    EXPECT_TRUE(access->getService("test.Lamp", result) != NULLSP);
    EXPECT_TRUE(access->getService("test.Clock", result) != NULLSP);
    EXPECT_TRUE(access->getService("test.Radio", result) == NULLSP);
    EXPECT_EQ(result.getCode(), 42);  // the first one that says more than "unknown"
    EXPECT_TRUE(access->getKFRIServiceProvider() == m_provider);
}

TEST_F(Factories, InstanceComparesItsCountAndAnswersItsViews)
{
    new GreeterFactory(m_publisher);
    auto access = greeter();
    auto const second = access;
    EXPECT_EQ(access->compareReferenceCount(2), 0);
    EXPECT_EQ(access->compareReferenceCount(5), -3);
    auto const support = loose_cast<KFRIWeakReferenceSupportInterface>(access);
    ASSERT_TRUE(support);
    EXPECT_TRUE(support == access);
    EXPECT_TRUE(support->getWeakReference()->lock() == access);
    EXPECT_TRUE(loose_cast<KFRIServicePublisherInterface>(access) == NULLSP);
}

TEST_F(Factories, TrackedInstancesAreNotedUntilTheyGo)
{
    auto const count = [](std::string const& name) {
        auto const names = getServiceManagerInterface()->getTrackedInstances();
        return std::count(names.begin(), names.end(), name);
    };
    new GreeterFactory(m_publisher, true);
    auto const type = KFRIServiceAccess::kfrTypeName();
    auto access = greeter();
    EXPECT_EQ(count(type), 1);
    access.release();
    EXPECT_EQ(count(type), 0);

    m_publisher->m_factories.clear();
    new GreeterFactory(m_publisher);
    access = greeter();
    EXPECT_EQ(count(type), 0);
    access->trackObject();
    EXPECT_EQ(count(type) + count("Greeter"), 1);
    access.release();
    EXPECT_EQ(count(type) + count("Greeter"), 0);
}

}  // namespace
}  // namespace KFR::Framework
