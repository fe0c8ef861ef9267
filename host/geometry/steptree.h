/// \file
/// The assembly tree of a transferred STEP document.

#pragma once

#include "host/geometry/geometrymodel.h"

#include <cstddef>
#include <set>
#include <string>

#include <TDocStd_Document.hxx>

namespace vrn::orlo::host::geometry {

/// Deeper assemblies are refused: they are walked by recursion.
inline constexpr std::size_t kMostLevels = 500;

/// Fills roots, parts, entities and assembly count of the model. Products without any geometry are
/// left out with a warning.
///
/// \param bareIds names that are mere ids of occurrences: the product's name is better.
/// Throws std::length_error for a tree of more levels or instances than can be held.
void readTree(GeometryModel& model, Handle(TDocStd_Document) const& document,
              std::set<std::string> const& bareIds);

}  // namespace vrn::orlo::host::geometry
