/// \file
/// The command processor: every change that can be undone goes through it.

#pragma once

#include "platform/kfr/kfrany.h"
#include "platform/kfr/kfrresult.h"
#include "platform/kfr/kfrsequence.h"
#include "platform/kfr/kfrsmartpointer.h"
#include "platform/kfr/kfruuid.h"

#include <string>

namespace vrn::orlo::appfw {

/// A named parameter of a command.
struct CmdParameter {
    std::string name;
    KFRAny value;
};

/// Named parameters in the order of their adding; a name may stand more than once. Counted, and
/// copied when changed, like every sequence; in a KFRAny a record of its own kind.
class CmdParameters : public KFRSequence<CmdParameter> {
public:
    using KFRSequence<CmdParameter>::KFRSequence;

    /// What the type is known by where it is kept without its C++ type.
    static constexpr KFRUUID kRecordId{0x842f14211789310fULL, 0x8a6ccefe5e88ae62ULL};
};

/// How a command is run. Each is a byte of the platform's, 0 or 1.
struct CmdOptions {
    unsigned char m_undoable = 1;  ///< The run can be undone.
    unsigned char m_silent = 0;    ///< Nothing is shown while it runs.
    unsigned char m_macro = 1;     ///< The run is written down for macros.
    unsigned char m_notify = 1;    ///< The run is published as an event of the processor.

    friend bool operator==(CmdOptions const&, CmdOptions const&) = default;
};

/// What a command has done, for taking back and doing again.
class IURCommandInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.IURCommand")

    virtual KFRResult undo() = 0;
    virtual KFRResult redo() = 0;
};

class ICmdCommandInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.ICmdCommand")

    virtual KFRResult setOptions(CmdOptions const& options) = 0;
    virtual CmdOptions getOptions() = 0;
    virtual KFRResult execute(CmdParameters const& parameters) = 0;
    /// What the last run returned; empty before, and where the command returns nothing.
    virtual KFRAny getReturnValue() = 0;
    virtual CmdParameters getOutputParams() = 0;
    /// Null for a command that cannot be undone.
    virtual KFRSmartPointer<IURCommandInterface> getURCommand() = 0;
};

/// Names a command.
struct CmdInvocationRequest {
    std::string commandContext;  ///< The plug-in that owns it: "VRN.ModelingPlugin".
    std::string commandName;
    KFRSmartPointer<ICmdCommandInterface> command;  ///< Null where a request is built.
};

/// Failure    A command that nobody knows: a failure, with the last argument as it was.
class ICmdProcessorInterface : public KFRIServiceInterface {
    KFR_INTERFACE("vrn.orlo.appfw.ICmdProcessor")

    /// The options that the command is meant to be run with.
    virtual KFRResult getCommandOptions(CmdInvocationRequest const& request,
                                        CmdOptions& options) = 0;
    /// \return what the command answered
    virtual KFRResult executeCommand(CmdInvocationRequest const& request, CmdOptions const& options,
                                     CmdParameters const& parameters) = 0;
    virtual KFRResult createCommand(CmdInvocationRequest const& request,
                                    KFRSmartPointer<ICmdCommandInterface>& command) = 0;
};

}  // namespace vrn::orlo::appfw

/// One pointer wide like its base, and as easily moved.
template <>
inline constexpr bool kKfrMovesByBytes<vrn::orlo::appfw::CmdParameters> = true;
