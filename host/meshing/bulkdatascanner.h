/// \file
/// Cards of bulk data files.

#pragma once

#include "host/meshing/sourcelines.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vrn::orlo::host::meshing {

/// A finite number as such files write it: "1.5-3" and "1.0D+2" as well. Nothing for a blank field
/// and for what is no number.
[[nodiscard]] std::optional<double> bulkDataNumber(std::string_view field) noexcept;

/// Goes through the cards of a file and of what it includes: fields of 8 columns, of 16, or
/// between commas, mixed as they like. What stands above BEGIN BULK is skipped, and what follows
/// ENDDATA.
///
/// Failure    MeshFileError for a file that is missing, a folder, unreadable or empty, for one that
///            includes itself, and for cards that repeat fields of others.
/// Cost       Files are read as a whole and kept.
class BulkDataScanner {
public:
    explicit BulkDataScanner(std::filesystem::path const& file);

    /// Goes to the next card, with its continuations. False at the end.
    [[nodiscard]] bool next();

    /// In capitals, without an asterisk.
    [[nodiscard]] std::string_view name() const noexcept { return m_name; }
    /// Of the card's first line.
    [[nodiscard]] SourceLine line() const noexcept { return m_cardLine; }
    /// Behind the name, from 0, without blanks around; continuations go on with 8. Empty where
    /// nothing stands.
    [[nodiscard]] std::string_view field(std::size_t index) const noexcept
    {
        return index < m_fields.size() ? m_fields[index] : std::string_view();
    }
    /// Up to the last that is not empty.
    [[nodiscard]] std::size_t fieldCount() const noexcept;

    /// Refuses a card whose lines do not belong together. A card that nobody uses may be so.
    void checkLines() const;

    [[nodiscard]] SourceLines const& lines() const noexcept { return m_lines; }
    /// Throws MeshFileError at the card.
    [[noreturn]] void refuse(std::string const& wrong, std::string const& mend) const
    {
        m_lines.refuse(m_cardLine, wrong, mend);
    }

private:
    struct Open {
        std::size_t m_file;
        std::string_view m_text;
        std::size_t m_at = 0;
        unsigned m_linesRead = 0;
    };
    /// A line in fields.
    struct Line {
        std::string_view m_head;  ///< The name, or the mark of the continuation.
        std::string_view m_tail;  ///< Name of the continuation that is to follow.
        bool m_isLarge = false;
        bool m_isContinuation = false;
        bool m_hasTooMany = false;
        std::size_t m_count = 0;
        std::string_view m_fields[8];
    };
    /// What is wrong with the lines of a card, and where.
    struct Trouble {
        SourceLine m_line = 0;  ///< 0 for nothing.
        char const* m_wrong = "";
        char const* m_mend = "";
    };

    void open(std::filesystem::path const& file, std::string text);
    void skipToBulk();
    void include(std::string_view text);
    /// Reads the next line with anything on it into m_ahead.
    void lookAhead();
    [[nodiscard]] std::optional<std::string_view> nextLineOfFile();
    void split(std::string_view text);
    void splitFree(std::string_view text);
    void splitFixed(std::string_view text);
    void take();
    void checkTail(bool isContinued);
    void note(char const* wrong, char const* mend);

    SourceLines m_lines;
    std::deque<std::string> m_texts;  // fields point into them
    std::vector<Open> m_open;
    SourceLine m_line = 0;
    bool m_hasAhead = false;
    Line m_ahead;
    std::deque<std::string> m_expanded;  // lines of the card that have tabs, and the one ahead

    std::string m_name;
    SourceLine m_cardLine = 0;
    std::vector<std::string_view> m_fields;
    std::string_view m_tail;     // of the card's last line
    bool m_isHalfLarge = false;  // its last line is the first half of a pair
    Trouble m_trouble;
};

}  // namespace vrn::orlo::host::meshing
