/// \file
/// The known word that a misspelled one was meant to be.

#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace vrn::orlo::host::study {

/// How many letters must be put in, left out, changed or swapped with their neighbour to make one
/// word of the other. Capital and small ASCII letters are the same letter.
[[nodiscard]] std::size_t editDistance(std::string_view a, std::string_view b);

/// The nearest of the known words, the first of equally near ones; empty when none is near enough
/// to be meant: at most a third of the letters, rounded up, may differ.
[[nodiscard]] std::string_view nearestKey(std::string_view word,
                                          std::span<std::string_view const> known);

}  // namespace vrn::orlo::host::study
