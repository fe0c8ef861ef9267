/// \file
/// What the component tells the framework about itself.

#pragma once

#include "plugins/modelingplugin/utilities/componentframe/modelingexport.h"

#include <string>
#include <string_view>

namespace vrn::orlo::plugin::modeling::componentinfo {

/// Name of the component's service table. It travels in parameter texts only.
inline constexpr std::string_view kServiceTable =
    "vrn_orlo_plugin_modeling_ModelingPluginUtilities_ServiceTable";

/// Value of a key of the information block; empty for a key that it does not have. Keys are
/// case-sensitive; "*" gives the list of keys.
[[nodiscard]] MODELING_API std::string value(std::string_view key);

/// The component's description in one line, with the date, time and stamp of the block.
[[nodiscard]] MODELING_API std::string description();

/// What the build made for the framework: 176 hexadecimal digits and a semicolon. Passed on only.
[[nodiscard]] std::string_view buildData() noexcept;

}  // namespace vrn::orlo::plugin::modeling::componentinfo
