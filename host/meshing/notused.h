/// \file
/// What a reader has met and not used.

#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::meshing {

/// Counts cards, keywords or sections by name, so that nothing is dropped in silence.
class NotUsed {
public:
    void add(std::string_view name)
    {
        auto found = m_counts.find(name);
        if (found == m_counts.end()) {
            found = m_counts.emplace(std::string(name), 0U).first;
        }
        ++found->second;
    }

    /// One line, "FILE: 210 PLOAD4, 342 SPC not used", by name; none when nothing was met.
    void report(std::filesystem::path const& file, std::vector<std::string>& warnings) const
    {
        std::string list;
        for (auto const& [name, count] : m_counts) {
            list += (list.empty() ? "" : ", ") + std::to_string(count) + " " + name;
        }
        if (!list.empty()) {
            warnings.push_back(file.string() + ": " + list + " not used");
        }
    }

private:
    std::map<std::string, unsigned, std::less<>> m_counts;
};

}  // namespace vrn::orlo::host::meshing
