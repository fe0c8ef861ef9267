/// \file
/// What the test component's service can be asked.

#pragma once

#include "platform/kfr/kfrsmartpointer.h"

#include <string>

namespace vrn::orlo::host::kernel {

inline constexpr char const* kTestComponentService = "vrn.orlo.test.Component.Service";

class ITestComponentInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.test.ITestComponent")

    /// Looks a service up through the provider that the component was given.
    virtual KFRIService lookUp(std::string const& name) = 0;
};

}  // namespace vrn::orlo::host::kernel
