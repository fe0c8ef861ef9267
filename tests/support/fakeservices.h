/// \file
/// A framework that finds what a test puts into it, and notes every look-up.

#pragma once

#include "platform/kfr/kfrframework.h"
#include "platform/kfr/kfrserviceobject.h"

#include <exception>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace vrn::orlo::plugin::modeling::test {

/// Which of the three look-ups was called.
enum class LookUpForm { nameResult, nameParametersResult, nameParameters };

struct LookUp {
    LookUpForm form;
    std::string name;
    std::string parameters;

    friend bool operator==(LookUp const&, LookUp const&) = default;
};

inline void PrintTo(LookUp const& lookUp, std::ostream* out)
{
    constexpr char const* kForms[] = {"(name, result)", "(name, parameters, result)",
                                      "(name, parameters)"};
    *out << kForms[static_cast<int>(lookUp.form)] << " \"" << lookUp.name << "\" \""
         << lookUp.parameters << '"';
}

/// An interface that nothing of the application has.
class IStrangerInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.test.IStranger")
};

/// Object of an interface that has no operations.
template <class I>
class Plain final : public KFRServiceObjectImpl<I> {
};

/// Object that lacks every interface that anybody casts to.
using Stranger = Plain<IStrangerInterface>;

template <class I>
KFRSmartPointer<I> makePlain()
{
    return KFR::make<Plain<I>>();
}

/// The framework's provider and its service access in one object. A name that was not put in gives
/// null and KFR::notDone; a name that was made to fail throws.
class FakeServices final
    : public KFRServiceObjectImpl<KFR::Framework::KFRIServiceAccess, KFRIServiceProviderInterface> {
public:
    void put(std::string const& name, KFRIService const& service) { m_services[name] = service; }
    /// Puts a new object in that lacks every interface, and gives it back.
    KFRIService putStranger(std::string const& name)
    {
        return m_services[name] = KFR::make<Stranger>();
    }
    void remove(std::string const& name) { m_services.erase(name); }
    void clear()
    {
        m_services.clear();
        m_failures.clear();
    }

    /// Every look-up of the name throws a copy of `failure`.
    template <class Failure>
    void fail(std::string const& name, Failure failure)
    {
        m_failures[name] = std::make_exception_ptr(std::move(failure));
    }

    [[nodiscard]] std::vector<LookUp> const& lookUps() const { return m_lookUps; }
    /// The look-ups since the last call of this.
    std::vector<LookUp> takeLookUps() { return std::exchange(m_lookUps, {}); }

    KFRIService getService(std::string const& name, KFRResult& result) override
    {
        return find({LookUpForm::nameResult, name, ""}, result);
    }
    KFRIService getService(std::string const& name, std::string const& parameters,
                           KFRResult& result) override
    {
        return find({LookUpForm::nameParametersResult, name, parameters}, result);
    }
    KFRIService getService(std::string const& name, std::string const& parameters) override
    {
        KFRResult dropped;
        return find({LookUpForm::nameParameters, name, parameters}, dropped);
    }
    KFRIService getKFRIService() override { return KFRSmartPointer<KFRIServiceAccess>(this); }
    KFRSmartPointer<KFRIServiceProviderInterface> getKFRIServiceProvider() override
    {
        return KFRSmartPointer<KFRIServiceProviderInterface>(this);
    }
    KFRSmartPointer<KFRIServicePublisherInterface> getKFRIServicePublisher() override { return {}; }
    KFRSmartPointer<KFRIServiceFactoryInterface> getKFRIServiceFactory() override { return {}; }
    KFRIService getHeldReference() override { return {}; }
    KFRResult addNewProvider(KFRSmartPointer<KFRIServiceProviderInterface> const&) override
    {
        return KFR::notDone;
    }
    int compareReferenceCount(int count) override { return referenceCount() - count; }
    void trackObject() override {}

private:
    using KFRIServiceAccess = KFR::Framework::KFRIServiceAccess;

    KFRIService find(LookUp const& lookUp, KFRResult& result)
    {
        m_lookUps.push_back(lookUp);
        if (auto const failure = m_failures.find(lookUp.name); failure != m_failures.end()) {
            std::rethrow_exception(failure->second);
        }
        auto const service = m_services.find(lookUp.name);
        result = KFRResult(service != m_services.end() ? KFR::ok : KFR::notDone);
        return service != m_services.end() ? service->second : KFRIService();
    }

    std::map<std::string, KFRIService> m_services;
    std::map<std::string, std::exception_ptr> m_failures;
    std::vector<LookUp> m_lookUps;
};

}  // namespace vrn::orlo::plugin::modeling::test
