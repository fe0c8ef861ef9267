/// \file
/// Tables of the keys that a map of a study file may hold, and the reading of a map by its table.

#pragma once

#include "host/study/studydocument.h"
#include "host/study/studyerror.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vrn::orlo::host::study {

enum class Need : std::uint8_t { optional, required };

/// What is asked of a key before its reader sees the value.
struct KeyRule {
    std::string_view m_key;
    Need m_need;
    NodeKind m_kind;             ///< Never empty: leaving a key out is how to give nothing.
    std::string_view m_example;  ///< The key and a right value on one line, for messages.
};

/// A key and its reader. A reader throws StudyError at the place for a value that it cannot take.
template <typename Target>
struct KeyRow {
    KeyRule m_rule;
    void (*m_read)(KeyPlace const& place, DocumentNode const& value, Target& target);
};

/// The place of a child of a map.
[[nodiscard]] KeyPlace placeOfKey(KeyPlace const& map, DocumentNode const& child);

/// The place of an item of a list; numbers count from 1.
[[nodiscard]] KeyPlace placeOfItem(KeyPlace const& list, DocumentNode const& item,
                                   std::size_t number);

/// Throws StudyError for the first key of the map that no rule knows or whose value is of another
/// kind than its rule's, and for a required key that the map lacks.
void checkKeys(KeyPlace const& place, DocumentNode const& map, std::span<KeyRule const> rules);

/// Checks the map against the table, then calls the readers in the order of the table.
template <typename Target, std::size_t N>
void readKeys(KeyPlace const& place, DocumentNode const& map,
              std::array<KeyRow<Target>, N> const& table, Target& target)
{
    std::array<KeyRule, N> rules{};
    for (std::size_t i = 0; i < N; ++i) {
        rules[i] = table[i].m_rule;
    }
    checkKeys(place, map, rules);
    for (KeyRow<Target> const& row : table) {
        for (DocumentNode const& child : map.m_children) {
            if (child.m_key == row.m_rule.m_key) {
                row.m_read(placeOfKey(place, child), child, target);
            }
        }
    }
}

/// The text of a value, without blanks around it. Throws StudyError for an empty text and for one
/// with control characters or line breaks.
[[nodiscard]] std::string lineOfText(KeyPlace const& place, DocumentNode const& value);

}  // namespace vrn::orlo::host::study
