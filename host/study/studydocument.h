/// \file
/// A study file as a tree of keys and texts, free of the parser's types.

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::study {

enum class NodeKind : std::uint8_t { empty, text, list, map };

/// The kind with its article, as messages say it: "a text", "a map of keys", ...
[[nodiscard]] std::string_view nameOf(NodeKind kind) noexcept;

/// A value of the file, with the key before it.
struct DocumentNode {
    NodeKind m_kind = NodeKind::empty;
    int m_line = 1;      ///< Of its key; of its own beginning for a list item and the root.
    std::string m_key;   ///< Its key in the map above; empty for a list item and the root.
    std::string m_text;  ///< Of a text, else empty.
    std::vector<DocumentNode> m_children;  ///< Of a map or a list, in the order of the file.
};

/// Reads the text of a study file.
///
/// Shape      The root is a map. Keys of one map differ. References (`*name`) are replaced by what
///            they stand for.
/// Failure    StudyError for what is empty, no YAML, no map, several documents in one, a key that
///            is no text or is given twice, or nested beyond reason.
[[nodiscard]] DocumentNode parseStudyDocument(std::filesystem::path const& file,
                                              std::string const& text);

}  // namespace vrn::orlo::host::study
