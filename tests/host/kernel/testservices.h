/// \file
/// Services, and a fixture that looks them up.

#pragma once

#include "host/kernel/serviceregistry.h"

#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>

namespace vrn::orlo::host::kernel {

/// A service that says when it goes.
class TestService final : public KFRServiceObjectImpl<KFR::Framework::KFRILoggerInterface> {
public:
    explicit TestService(std::function<void()> onEnd) : m_onEnd(std::move(onEnd)) {}
    KFRResult log(std::string const&, int) override { return KFR::ok; }

protected:
    ~TestService() override { m_onEnd(); }

private:
    std::function<void()> m_onEnd;
};

inline KFRIService makeTestService(std::function<void()> onEnd = [] {})
{
    return KFRIService(KFR::make<TestService>(std::move(onEnd)));
}

struct LookUp {
    KFRIService m_service;
    int m_code = KFR::ok;
};

MATCHER(Found, "is a service with an OK result")
{
    return arg.m_service != KFR::NULLSP && arg.m_code == KFR::ok;
}

MATCHER_P(FailsWith, code, "is null with the code " + std::to_string(code))
{
    *result_listener << "code " << arg.m_code;
    return arg.m_service == KFR::NULLSP && arg.m_code == code;
}

class RegistryTest : public ::testing::Test {
protected:
    void TearDown() override { m_registry->stop(); }

    LookUp get(std::string const& name, std::string const& parameters = "")
    {
        KFRResult result;
        KFRIService service = m_registry->getService(name, parameters, result);
        return {std::move(service), result.getCode()};
    }

    KFRSmartPointer<ServiceRegistry> m_registry = KFR::make<ServiceRegistry>();
};

}  // namespace vrn::orlo::host::kernel
