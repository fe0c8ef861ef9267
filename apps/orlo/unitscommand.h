/// \file
/// The verb `orlo units`: what the library makes of unit systems.

#pragma once

#include <string>
#include <vector>

namespace vrn::orlo::app {

struct SessionOptions;

struct UnitsOptions {
    std::vector<std::string> m_systems;  ///< Labels or names; none for all systems.
    bool m_json = false;
};

/// Unit ids, factors, and the WTMASS for every unit that a weight may be in. \return an ExitStatus
[[nodiscard]] int units(UnitsOptions const& options, SessionOptions const& session);

}  // namespace vrn::orlo::app
