/// \file
/// Names that objects of a model have in every run.

#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vrn::orlo::host::model {

/// A name as one step of a persistent name. Steps are joined by '/', and "#2" tells the second of a
/// name apart, so '/', '#' and '%' become "%2F", "%23" and "%25".
[[nodiscard]] std::string stepOf(std::string_view name);

/// The first step of all names of a file: its name without folder and ending.
[[nodiscard]] std::string firstStepOf(std::string const& file);

/// Persistent names of things that stand side by side: "bracket/Part/bolt", "bracket/Part/bolt#2".
///
/// Order      The number of a name is that of its coming. A number is not given out twice.
class SiblingNames {
public:
    /// \param above  persistent name of what they stand in
    explicit SiblingNames(std::string above) : m_above(std::move(above)) {}

    [[nodiscard]] std::string next(std::string_view name);

private:
    std::string m_above;
    std::map<std::string, unsigned> m_counts;
};

}  // namespace vrn::orlo::host::model
