#include "host/kernel/settingsfile.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

#include <unicode/unistr.h>
#include <pugixml.hpp>

namespace vrn::orlo::host::kernel {

namespace {

std::string inQuotes(std::string_view text)
{
    return "'" + std::string(text) + "'";
}

/// The unsigned number that is the whole text.
std::optional<std::uint32_t> unsignedNumber(std::string_view text, std::uint32_t largest)
{
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        base = 16;
    }
    std::uint32_t number = 0;
    auto const read = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || number > largest) {
        return std::nullopt;
    }
    return number;
}

/// Where the first line begins that is not UTF-8, or has a zero character; the text's end when none
/// is so.
std::size_t endOfGoodLines(std::string const& text)
{
    constexpr UChar32 kReplaced = 0xFFFD;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t const end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        auto const line = icu::UnicodeString::fromUTF8(text.substr(begin, end - begin));
        if (line.indexOf(kReplaced) >= 0 || line.indexOf(UChar32{0}) >= 0) {
            return begin;
        }
        begin = end;
    }
    return text.size();
}

class Reader {
public:
    explicit Reader(std::filesystem::path const& file) : m_file(file.string())
    {
        std::error_code error;
        auto const size = std::filesystem::file_size(file, error);
        m_text.resize(error ? 0 : static_cast<std::size_t>(size));
        std::ifstream in(file, std::ios::binary);
        if (error || !in.read(m_text.data(), static_cast<std::streamsize>(m_text.size()))) {
            throw SettingsFileError(m_file + ": cannot be read; allow this user to read it");
        }
    }

    SettingsFile read()
    {
        if (std::size_t const end = endOfGoodLines(m_text); end < m_text.size()) {
            fail(end, "not UTF-8; save the file in that encoding");
        }
        pugi::xml_document document;
        // Told the encoding, the parser leaves the text as it is, and its offsets hold for it.
        auto const parsed = document.load_buffer(m_text.data(), m_text.size(),
                                                 pugi::parse_default | pugi::parse_trim_pcdata,
                                                 pugi::encoding_utf8);
        if (!parsed) {
            fail(static_cast<std::size_t>(parsed.offset), "not well-formed XML (" +
                                                              std::string(parsed.description()) +
                                                              "); mend the markup here or before");
        }
        for (pugi::xml_node const node : document.children()) {
            readRoot(node);
        }
        return std::move(m_result);
    }

private:
    [[noreturn]] void fail(std::size_t offset, std::string const& what) const
    {
        throw SettingsFileError(placeOf(offset) + ": " + what);
    }
    [[noreturn]] void fail(pugi::xml_node node, std::string const& what) const
    {
        fail(offsetOf(node), what);
    }

    static std::size_t offsetOf(pugi::xml_node node)
    {
        return static_cast<std::size_t>(std::max<std::ptrdiff_t>(node.offset_debug(), 0));
    }
    [[nodiscard]] std::string placeOf(std::size_t offset) const
    {
        auto const end =
            m_text.begin() + static_cast<std::ptrdiff_t>(std::min(offset, m_text.size()));
        return m_file + ":" + std::to_string(1 + std::count(m_text.begin(), end, '\n'));
    }

    void allowAttributes(pugi::xml_node node, std::initializer_list<std::string_view> names) const
    {
        for (pugi::xml_attribute const attribute : node.attributes()) {
            if (std::ranges::find(names, std::string_view(attribute.name())) == names.end()) {
                fail(node, "<" + std::string(node.name()) + "> has no attribute " +
                               inQuotes(attribute.name()) + "; leave it out or mend its name");
            }
        }
    }

    [[nodiscard]] std::string nameIn(pugi::xml_node node, char const* attribute) const
    {
        std::string name = node.attribute(attribute).value();
        if (name.empty()) {
            fail(node, "<" + std::string(node.name()) + "> without a name; add " + attribute +
                           "=\"...\"");
        }
        return name;
    }

    void readRoot(pugi::xml_node root)
    {
        if (std::string_view(root.name()) != "settings") {
            fail(root, "the outermost element is <" + std::string(root.name()) +
                           ">; it has to be <settings>");
        }
        if (!m_result.m_groups.empty()) {
            fail(root, "a second <settings>; join it with the first");
        }
        allowAttributes(root, {"name"});
        m_result.m_groups[""];
        for (pugi::xml_node const node : root.children()) {
            if (std::string_view(node.name()) == "group") {
                readGroup(node, "", m_result.m_groups[nameIn(node, "name")]);
            } else {
                readValue(node, "", m_result.m_groups[""]);
            }
        }
    }

    void readGroup(pugi::xml_node group, std::string const& path, Settings& settings) const
    {
        allowAttributes(group, {"name"});
        for (pugi::xml_node const node : group.children()) {
            if (std::string_view(node.name()) == "group") {
                readGroup(node, path + nameIn(node, "name") + ".", settings);
            } else {
                readValue(node, path, settings);
            }
        }
    }

    void readValue(pugi::xml_node node, std::string const& path, Settings& settings) const
    {
        if (node.type() != pugi::node_element) {
            fail(node, "a text outside of a value; put it into <value key=\"...\">");
        }
        if (std::string_view(node.name()) != "value") {
            fail(node, "<" + std::string(node.name()) +
                           "> is unknown here; use <group name=\"...\"> or <value key=\"...\">");
        }
        allowAttributes(node, {"key", "unit", "first", "second"});
        std::string const key = path + nameIn(node, "key");
        Setting setting{textsOf(node), unitCodeOf(node), placeOf(offsetOf(node))};
        auto const [entry, isNew] = settings.try_emplace(key, std::move(setting));
        if (!isNew) {
            fail(node, "the key " + inQuotes(key) + " is at " + entry->second.m_place +
                           " already; keep one of them");
        }
    }

    [[nodiscard]] std::vector<std::string> textsOf(pugi::xml_node value) const
    {
        std::vector<std::string> texts;
        for (pugi::xml_node const node : value.children()) {
            if (std::string_view(node.name()) != "item") {
                continue;
            }
            allowAttributes(node, {});
            texts.push_back(plainText(node));
        }
        if (texts.empty()) {
            return {plainText(value)};
        }
        if (static_cast<std::ptrdiff_t>(texts.size()) !=
            std::distance(value.children().begin(), value.children().end())) {
            fail(value, "a value of items and something else; leave the items alone in it");
        }
        return texts;
    }

    /// Comments leave a text in pieces.
    [[nodiscard]] std::string plainText(pugi::xml_node element) const
    {
        std::string text;
        for (pugi::xml_node const piece : element.children()) {
            if (piece.type() == pugi::node_element) {
                fail(piece, "<" + std::string(piece.name()) +
                                "> inside of a text; several texts go into <item>s");
            }
            text += piece.value();
        }
        return text;
    }

    [[nodiscard]] std::optional<std::uint32_t> unitCodeOf(pugi::xml_node value) const
    {
        auto const unit = number(value, "unit", 0xFFFF);
        auto const first = number(value, "first", 0xFF);
        auto const second = number(value, "second", 0xFF);
        if (!unit) {
            if (first || second) {
                fail(value, "bytes of a unit without one; add unit=\"...\"");
            }
            return std::nullopt;
        }
        return *unit | first.value_or(0) << 16U | second.value_or(0) << 24U;
    }

    [[nodiscard]] std::optional<std::uint32_t> number(pugi::xml_node node, char const* attribute,
                                                      std::uint32_t largest) const
    {
        pugi::xml_attribute const found = node.attribute(attribute);
        if (!found) {
            return std::nullopt;
        }
        auto const read = unsignedNumber(found.value(), largest);
        if (!read) {
            fail(node, attribute + ("=" + inQuotes(found.value())) +
                           " is no such number; write one from 0 to " + std::to_string(largest));
        }
        return read;
    }

    std::string m_file;
    std::string m_text;
    SettingsFile m_result;
};

}  // namespace

SettingsFile SettingsFile::read(std::filesystem::path const& file)
{
    return Reader(file).read();
}

}  // namespace vrn::orlo::host::kernel
