/// \file
/// The platform for tests that share the filter table of the process.

#pragma once

#include "tests/support/platformscope.h"
#include "tests/support/typenamelist.h"

#include <unicode/unistr.h>

#include <set>
#include <string>

namespace vrn::orlo::plugin::modeling::test {

inline icu::UnicodeString unicode(std::string const& ascii)
{
    return icu::UnicodeString::fromUTF8(ascii);
}

/// The registry of the whole process. The table of SelectFilter keeps the ids that it was built
/// with, so the tests of one process have to agree on them.
inline KFRSmartPointer<FakeTypeRegistry> const& processRegistry()
{
    static auto const registry = KFR::make<FakeTypeRegistry>(30011u, Unregistered::kept);
    return registry;
}

class SelectionScope : public PlatformScope {
public:
    SelectionScope() : PlatformScope(processRegistry()) {}

    unsigned int idOf(std::string const& name) { return registry().idOf(unicode(name)); }
};

/// Every type name of the platform, and some that only look like one.
inline std::set<std::string> const& candidateNames()
{
    static std::set<std::string> const names = [] {
        std::set<std::string> all = typeNamesIn(ORLO_TYPENAMES_DIR);
        all.insert({"face", "FACE ", "FAC", "FACES", "BODY.", "Simulation.part", "Simulation.Parts",
                    "simulation.FEM.Node", "FEM.Simulation.Element", "FEM.Simulation.4DElement",
                    "Simulation.Modeling.DiscreteTie.AveragePoint",
                    "Simulation.Modeling.TopologyDesignRegion",
                    "Simulation.Modeling.ShaperScenario",
                    "Simulation.Modeling.DisplacementConstraint", "DATUMPLANE", "EDGEUNKNOWN"});
        return all;
    }();
    return names;
}

}  // namespace vrn::orlo::plugin::modeling::test
