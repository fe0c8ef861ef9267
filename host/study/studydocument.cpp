#include "host/study/studydocument.h"

#include "host/study/keytable.h"
#include "host/study/studyerror.h"
#include "host/study/studytext.h"

#include <yaml-cpp/yaml.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace vrn::orlo::host::study {

namespace {

constexpr int kDeepest = 32;
constexpr std::size_t kMostNodes = 100'000;  // references may multiply a short text

constexpr std::string_view kShortestStudy =
    "a study names at least its geometry, for instance 'geometry: bracket.step'";

int lineOf(YAML::Mark const& mark)
{
    return mark.is_null() ? 1 : mark.line + 1;
}

/// Changes the parser's tree into ours.
class Conversion {
public:
    explicit Conversion(std::filesystem::path file) : m_file(std::move(file)) {}

    void convert(YAML::Node const& source, KeyPlace const& place, DocumentNode& target, int depth)
    {
        if (depth > kDeepest || ++m_nodes > kMostNodes) {
            throw StudyError(place, "is nested too deep or refers to too much; write it out flat");
        }
        target.m_line = place.m_line;
        if (source.IsScalar()) {
            target.m_kind = NodeKind::text;
            target.m_text = source.Scalar();
        } else if (source.IsSequence()) {
            target.m_kind = NodeKind::list;
            convertList(source, place, target, depth);
        } else if (source.IsMap()) {
            target.m_kind = NodeKind::map;
            convertMap(source, place, target, depth);
        }
    }

private:
    void convertList(YAML::Node const& source, KeyPlace const& place, DocumentNode& target,
                     int depth)
    {
        for (YAML::Node const& item : source) {
            DocumentNode& child = target.m_children.emplace_back();
            child.m_line = lineOf(item.Mark());
            convert(item, placeOfItem(place, child, target.m_children.size()), child, depth + 1);
        }
    }

    void convertMap(YAML::Node const& source, KeyPlace const& place, DocumentNode& target,
                    int depth)
    {
        for (auto const& entry : source) {
            YAML::Node const& key = entry.first;
            YAML::Node const& value = entry.second;
            int const line = lineOf(key.Mark());
            if (!key.IsScalar() || key.Scalar().empty()) {
                throw StudyError({m_file, line, place.m_key},
                                 "a key is a single word before a colon; quote it if it is meant");
            }
            refuseTwin(target, key.Scalar(), line, place);
            DocumentNode& child = target.m_children.emplace_back();
            child.m_line = line;
            child.m_key = key.Scalar();
            convert(value, placeOfKey(place, child), child, depth + 1);
        }
    }

    static void refuseTwin(DocumentNode const& map, std::string const& key, int line,
                           KeyPlace const& place)
    {
        auto const twin = std::find_if(map.m_children.begin(), map.m_children.end(),
                                       [&](DocumentNode const& n) { return n.m_key == key; });
        if (twin == map.m_children.end()) {
            return;
        }
        DocumentNode second;
        second.m_line = line;
        second.m_key = key;
        throw StudyError(
            placeOfKey(place, second),
            "is given twice, first in line " + std::to_string(twin->m_line) + "; keep one of them");
    }

    std::filesystem::path m_file;
    std::size_t m_nodes = 0;
};

/// The text without blanks at its end: with them, the parser takes a quote that is never closed for
/// closed at the end of the file.
std::string trimmed(std::string text)
{
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    return text;
}

std::string_view lineOfText(std::string_view text, int number)
{
    for (int i = 1; i < number; ++i) {
        std::size_t const end = text.find('\n');
        if (end == text.npos) {
            return {};
        }
        text.remove_prefix(end + 1);
    }
    return text.substr(0, text.find('\n'));
}

std::string reasonOf(YAML::Exception const& error, std::string_view line)
{
    std::size_t const begin = line.find_first_not_of(" \t");
    if (line.substr(0, begin).find('\t') != line.npos) {
        return "a tab stands before the key; indent with spaces";
    }
    if (error.msg == YAML::ErrorMsg::EOF_IN_SCALAR) {
        return "a quote is opened and never closed; close it";
    }
    return "cannot be read as YAML (" + error.msg +
           "); write 'key: value', keys of one map below each other, spaces before them alike";
}

std::vector<YAML::Node> documentsOf(std::filesystem::path const& file, std::string const& text)
{
    try {
        return YAML::LoadAll(text);
    } catch (YAML::Exception const& error) {
        int const line = lineOf(error.mark);
        throw StudyError({file, line, {}}, reasonOf(error, lineOfText(text, line)));
    }
}

}  // namespace

std::string_view nameOf(NodeKind kind) noexcept
{
    switch (kind) {
        case NodeKind::empty:
            return "nothing";
        case NodeKind::text:
            return "a text";
        case NodeKind::list:
            return "a list";
        case NodeKind::map:
            return "a map of keys";
    }
    return "unknown";
}

DocumentNode parseStudyDocument(std::filesystem::path const& file, std::string const& text)
{
    checkStudyText(file, text);
    std::vector<YAML::Node> const documents = documentsOf(file, trimmed(text));
    if (documents.empty() || (documents.size() == 1 && documents.front().IsNull())) {
        throw StudyError({file, 1, {}}, "is empty; " + std::string(kShortestStudy));
    }
    if (documents.size() > 1) {
        throw StudyError({file, lineOf(documents[1].Mark()), {}},
                         "a second study begins here; one file holds one study, so give it a file "
                         "of its own");
    }
    YAML::Node const& source = documents.front();
    KeyPlace const place{file, lineOf(source.Mark()), {}};
    if (!source.IsMap()) {
        throw StudyError(place, "is no map of keys; " + std::string(kShortestStudy));
    }
    DocumentNode root;
    try {
        Conversion(file).convert(source, place, root, 0);
    } catch (YAML::Exception const& error) {
        throw StudyError({file, lineOf(error.mark), {}}, reasonOf(error, {}));
    }
    return root;
}

}  // namespace vrn::orlo::host::study
