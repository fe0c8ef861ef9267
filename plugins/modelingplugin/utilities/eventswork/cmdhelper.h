/// \file
/// Running a command once.

#pragma once

#include "platform/appfw/commands.h"
#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>

namespace vrn::orlo::plugin::modeling {

/// A command that is called often, as a class of its own: its name, and its parameters from its
/// members.
class ICmdParams {
public:
    virtual std::string getCommandName() = 0;
    virtual appfw::CmdParameters getParameters() = 0;

protected:
    ICmdParams() = default;
    ICmdParams(ICmdParams const&) = default;
    ICmdParams& operator=(ICmdParams const&) = default;
    ~ICmdParams() = default;  // never deleted through this class
};

/// Runs commands of the modeling plug-in.
///
/// Failure    What the command processor answers, which for a command that nobody knows is its own
///            failure; without a processor KFR::notDone with the parameter "Command not exist.".
/// Threads    Main thread.
class MODELING_API CmdHelper {
public:
    KFRResult call(std::string name, appfw::CmdParameters const& params);
    KFRResult call(ICmdParams* params);
};

}  // namespace vrn::orlo::plugin::modeling
