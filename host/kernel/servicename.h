/// \file
/// Service names for those who register the services.

#pragma once

#include "platform/servicenames.h"

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

}  // namespace vrn::orlo::host::kernel
