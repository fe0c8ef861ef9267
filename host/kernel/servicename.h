/// \file
/// Service names for those who register the services.

#pragma once

#include "platform/servicenames.h"

#include <span>
#include <string_view>

namespace vrn::orlo::host::kernel {

/// The name under which the operation `operation` of ServiceHelper looks its service up. An
/// operation that there is not does not compile.
[[nodiscard]] consteval char const* serviceNameOf(std::string_view operation)
{
    for (servicenames::Row const& row : servicenames::kAll) {
        if (row.m_operation == operation) {
            return row.m_name.data();  // the rows are made from literals
        }
    }
    throw "no operation of that name";
}

/// Every service that the library asks for, with the operation that asks for it.
[[nodiscard]] constexpr std::span<servicenames::Row const> applicationServices() noexcept
{
    return servicenames::kAll;
}

/// The service that the library itself publishes.
[[nodiscard]] constexpr char const* componentService() noexcept
{
    return servicenames::kUtilities;
}

}  // namespace vrn::orlo::host::kernel
