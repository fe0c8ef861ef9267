/// \file
/// A function as a command of the GUI executive.

#pragma once

#include "platform/appfw/guiexecutive.h"
#include "platform/kfr/kfrserviceobject.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <functional>
#include <string>

namespace vrn::orlo::plugin::modeling {

using appfw::KFRIWorkCommandInterface;

/// Runs a function once.
///
/// Ownership  Owns a copy of the function, which goes with the run, or unrun with the object.
/// Threads    Of the executive's choosing, one at a time.
class MODELING_API WorkCommandImpl final : public KFRServiceObjectImpl<KFRIWorkCommandInterface> {
public:
    explicit WorkCommandImpl(std::function<void()> const& work);

    /// OK, also when there is nothing left to run. What the function throws goes to the caller.
    KFRResult execute() override;

    std::string getObjectName() override;

private:
    ~WorkCommandImpl() override;

    std::function<void()> m_work;
};

}  // namespace vrn::orlo::plugin::modeling
