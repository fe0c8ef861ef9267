/// \file
/// Reads the parameters of commands.

#pragma once

#include "host/commands/commandfailure.h"
#include "platform/appfw/commands.h"

#include <string>
#include <string_view>

namespace vrn::orlo::host::commands {

/// The last parameter of that name; null when there is none.
[[nodiscard]] KFRAny const* findParameter(appfw::CmdParameters const& parameters,
                                          std::string_view name) noexcept;

/// Reads a parameter that must be there.
///
/// Failure    kBadParameters, with `value` as it was.
/// \param command  named in the text
/// \param wanted   what the parameter is, in the text: "a truth value"
template <class T>
[[nodiscard]] KFRResult readParameter(std::string const& command,
                                      appfw::CmdParameters const& parameters,
                                      std::string const& name, std::string const& wanted, T& value)
{
    KFRAny const* const given = findParameter(parameters, name);
    if (given != nullptr && (*given >>= value)) {
        return KFR::ok;
    }
    return failure(kBadParameters, command + ": the parameter \"" + name + "\" is " +
                                       (given == nullptr ? "missing" : "of another kind") +
                                       "; it must be " + wanted + ".");
}

/// The same for a handle, which must not be null.
template <class I>
[[nodiscard]] KFRResult readHandle(std::string const& command,
                                   appfw::CmdParameters const& parameters, std::string const& name,
                                   std::string const& wanted, KFRSmartPointer<I>& handle)
{
    KFRSmartPointer<I> given;
    if (KFRResult const read = readParameter(command, parameters, name, wanted, given);
        !read.isOk()) {
        return read;
    }
    if (given == KFR::NULLSP) {
        return failure(kBadParameters, command + ": the parameter \"" + name +
                                           "\" is null; it must be " + wanted + ".");
    }
    handle = given;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::commands
