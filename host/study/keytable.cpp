#include "host/study/keytable.h"

#include "host/study/nearestkey.h"

#include <algorithm>
#include <string>
#include <vector>

namespace vrn::orlo::host::study {

namespace {

/// Throws for "geometry:bracket.step", which to the parser is one long key without a value.
void refuseColonWithoutBlank(KeyPlace const& place, DocumentNode const& child,
                             std::span<KeyRule const> rules)
{
    std::string_view const key = std::string_view(child.m_key).substr(0, child.m_key.find(':'));
    bool const isKnown = std::any_of(rules.begin(), rules.end(),
                                     [&](KeyRule const& rule) { return rule.m_key == key; });
    if (isKnown && child.m_kind == NodeKind::empty) {
        throw StudyError(
            place, "lacks the blank after its colon; write " +
                       inQuotes(std::string(key) + ": " + child.m_key.substr(key.size() + 1)));
    }
}

[[noreturn]] void refuseUnknown(KeyPlace const& place, DocumentNode const& child,
                                std::span<KeyRule const> rules)
{
    refuseColonWithoutBlank(place, child, rules);
    std::vector<std::string_view> known;
    known.reserve(rules.size());
    for (KeyRule const& rule : rules) {
        known.push_back(rule.m_key);
    }
    std::string reason = "is no known key; ";
    if (std::string_view const nearest = nearestKey(child.m_key, known); !nearest.empty()) {
        reason += "did you mean " + inQuotes(nearest) + "? ";
    }
    reason += "known here: ";
    std::sort(known.begin(), known.end());
    for (std::size_t i = 0; i < known.size(); ++i) {
        reason.append(i == 0 ? "" : ", ").append(known[i]);
    }
    throw StudyError(place, reason);
}

std::string exampleOf(KeyRule const& rule)
{
    return "; write for instance '" + std::string(rule.m_example) + "'";
}

void checkKind(KeyPlace const& place, DocumentNode const& value, KeyRule const& rule)
{
    if (value.m_kind == rule.m_kind) {
        return;
    }
    std::string const reason = value.m_kind == NodeKind::empty
                                   ? std::string("has no value")
                                   : "is " + std::string(nameOf(value.m_kind)) +
                                         ", and should be " + std::string(nameOf(rule.m_kind));
    throw StudyError(place, reason + exampleOf(rule));
}

}  // namespace

KeyPlace placeOfKey(KeyPlace const& map, DocumentNode const& child)
{
    return {map.m_file, child.m_line,
            map.m_key.empty() ? child.m_key : map.m_key + '.' + child.m_key};
}

KeyPlace placeOfItem(KeyPlace const& list, DocumentNode const& item, std::size_t number)
{
    return {list.m_file, item.m_line, list.m_key + '[' + std::to_string(number) + ']'};
}

void checkKeys(KeyPlace const& place, DocumentNode const& map, std::span<KeyRule const> rules)
{
    for (DocumentNode const& child : map.m_children) {
        KeyPlace const childPlace = placeOfKey(place, child);
        auto const rule = std::find_if(rules.begin(), rules.end(),
                                       [&](KeyRule const& r) { return r.m_key == child.m_key; });
        if (rule == rules.end()) {
            refuseUnknown(childPlace, child, rules);
        }
        checkKind(childPlace, child, *rule);
    }
    for (KeyRule const& rule : rules) {
        bool const isGiven =
            std::any_of(map.m_children.begin(), map.m_children.end(),
                        [&](DocumentNode const& child) { return child.m_key == rule.m_key; });
        if (rule.m_need == Need::required && !isGiven) {
            DocumentNode missing;
            missing.m_line = place.m_line;
            missing.m_key = rule.m_key;
            throw StudyError(placeOfKey(place, missing), "is missing" + exampleOf(rule));
        }
    }
}

std::string lineOfText(KeyPlace const& place, DocumentNode const& value)
{
    std::string text = value.m_text;
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    text.erase(0, text.find_first_not_of(" \t\r\n"));
    if (text.empty()) {
        throw StudyError(place, "is an empty text; give a value, or leave the key out");
    }
    if (std::any_of(text.begin(), text.end(),
                    [](unsigned char c) { return c < 0x20 || c == 0x7F; })) {
        throw StudyError(place, inQuotes(text) +
                                    " holds a line break or a control character; write it on one "
                                    "line");
    }
    return text;
}

}  // namespace vrn::orlo::host::study
