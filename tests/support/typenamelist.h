/// \file
/// Every type name that the platform spells.

#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace vrn::orlo::plugin::modeling::test {

/// The names in the headers of a folder, read from the sources: one that is added later is in the
/// list without anybody thinking of it.
inline std::set<std::string> typeNamesIn(std::filesystem::path const& folder)
{
    std::string const opening = "u\"";
    std::set<std::string> names;
    for (auto const& header : std::filesystem::directory_iterator(folder)) {
        std::ifstream file(header.path());
        std::string const text(std::istreambuf_iterator<char>(file), {});
        for (auto at = text.find(opening); at != std::string::npos; at = text.find(opening, at)) {
            at += opening.size();
            names.insert(text.substr(at, text.find('"', at) - at));
        }
    }
    return names;
}

}  // namespace vrn::orlo::plugin::modeling::test
