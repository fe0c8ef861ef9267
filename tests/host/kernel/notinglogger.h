/// \file
/// A kernel whose log a test can read.

#pragma once

#include "platform/kfr/kfrkernelaccess.h"
#include "platform/kfr/kfrserviceobject.h"

#include <string>
#include <vector>

namespace vrn::orlo::host::kernel {

/// Notes "LEVEL text", and stands for the kernel too.
class NotingLogger final : public KFRServiceObjectImpl<KFR::Framework::KFRIKernelAccessInterface,
                                                       KFR::Framework::KFRILoggerInterface> {
public:
    KFRSmartPointer<KFR::Framework::KFRILoggerInterface> getLogger() override
    {
        return KFRSmartPointer<KFR::Framework::KFRILoggerInterface>(this);
    }
    KFRResult log(std::string const& text, int level) override
    {
        m_lines.push_back(std::to_string(level) + " " + text);
        return KFR::ok;
    }

    std::vector<std::string> m_lines;
};

}  // namespace vrn::orlo::host::kernel
