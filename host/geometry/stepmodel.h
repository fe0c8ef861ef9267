/// \file
/// Questions to the records of a STEP file that the kernel has read and not yet transferred.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include <StepData_StepModel.hxx>

namespace vrn::orlo::host::geometry {

/// What the records say beside the shapes.
struct StepFacts {
    LengthUnit m_unit;
    std::vector<std::string> m_otherUnits;  ///< Names of further units in use.
    std::set<std::string>
        m_bareOccurrenceIds;          ///< Ids of occurrences without name and description.
    std::size_t m_brokenRecords = 0;  ///< Records that miss or misuse what they refer to.
    bool m_hasCycle = false;          ///< A product holds itself, over however many levels.
    std::size_t m_depth = 0;          ///< Levels of the deepest product; 0 with a cycle.
};

[[nodiscard]] StepFacts factsOf(StepData_StepModel const& model);

/// English name, singular, of a unit that is so many mm long; empty for one that has none.
[[nodiscard]] std::string unitName(double millimetres);

}  // namespace vrn::orlo::host::geometry
