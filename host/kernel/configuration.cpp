#include "host/kernel/configuration.h"

#include "host/kernel/frameworklog.h"
#include "host/kernel/settingslock.h"

#include "platform/kfr/textvalues.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <system_error>
#include <utility>

namespace vrn::orlo::host::kernel {

using KFR::Util::Units::FloatValue;

namespace {

constexpr char const* kCommandLine = "command line";

std::string utf8(icu::UnicodeString const& text)
{
    std::string bytes;
    return text.toUTF8String(bytes);
}

/// The number that is the whole text; an optional base as for std::from_chars.
template <class Number, class... Base>
std::optional<Number> wholeNumber(std::string_view text, Base... base)
{
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    Number number{};
    auto const read = std::from_chars(text.data(), text.data() + text.size(), number, base...);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size()) {
        return std::nullopt;
    }
    return number;
}

std::optional<double> finiteNumber(std::string_view text)
{
    auto const number = wholeNumber<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<FloatValue> numberWithUnit(std::string_view text, std::optional<std::uint32_t> code)
{
    constexpr std::string_view kSeparator = " 0x";
    if (auto const end = text.find(kSeparator); end != std::string_view::npos) {
        code = wholeNumber<std::uint32_t>(text.substr(end + kSeparator.size()), 16);
        text = text.substr(0, end);
    }
    auto const number = finiteNumber(text);
    if (!number || !code) {
        return std::nullopt;
    }
    return FloatValue{static_cast<unsigned short>(*code & 0xFFFFU),
                      static_cast<unsigned char>(*code >> 16U & 0xFFU),
                      static_cast<unsigned char>(*code >> 24U), *number};
}

std::optional<std::filesystem::path> found(std::filesystem::path const& file,
                                           SearchFolders const& folders)
{
    std::error_code ignored;
    if (file.is_absolute()) {
        return std::filesystem::is_regular_file(file, ignored) ? std::optional(file) : std::nullopt;
    }
    for (std::filesystem::path const& folder : folders) {
        if (std::filesystem::is_regular_file(folder / file, ignored)) {
            return folder / file;
        }
    }
    return std::nullopt;
}

KFRResult noSuchFile(std::filesystem::path const& file, SearchFolders const& folders)
{
    std::string text = file.string() + ": there is no such file";
    if (file.is_relative()) {
        text += " in the search folders";
        for (char const* separator = " "; std::filesystem::path const& folder : folders) {
            text += std::exchange(separator, ", ") + folder.string();
        }
    }
    return KFRResult(kNoSuchFile).addParam(text + "; put it there, or mend its name");
}

KFRResult logged(SettingsFailure code, std::string const& text)
{
    logToFramework(text, LogLevel::error);
    return KFRResult(code).addParam(text);
}

}  // namespace

Configuration::Configuration(std::string name, std::shared_ptr<SearchFolders const> folders,
                             Settings settings)
    : m_name(std::move(name)), m_folders(std::move(folders)), m_settings(std::move(settings))
{
}

void Configuration::set(std::string const& key, std::string const& text)
{
    std::lock_guard const guard(m_mutex);
    m_overrides.insert_or_assign(key, Setting{{text}, std::nullopt, kCommandLine});
}

KFRResult Configuration::load(icu::UnicodeString const& file, icu::UnicodeString const& section,
                              int /*mode*/, int /*reserved*/, int timeout)
{
    std::filesystem::path const name = utf8(icu::UnicodeString(file).findAndReplace(u"\\", u"/"));
    auto const path = found(name, *m_folders);
    if (!path) {
        return noSuchFile(name, *m_folders);
    }
    SettingsFile content;
    try {
        SettingsLock const lock(*path, std::chrono::milliseconds(timeout));
        if (lock.isTaken()) {
            return logged(kFileLocked, path->string() +
                                           ": locked by another program; end that, "
                                           "or remove " +
                                           lock.path().string());
        }
        content = SettingsFile::read(*path);
    } catch (SettingsFileError const& error) {
        return logged(kBrokenFile, error.what());
    }

    std::string const wanted = utf8(section);
    if (!wanted.empty() && !content.m_groups.contains(wanted)) {
        return logged(kNoSuchSection, path->string() + ":1: there is no top-level group '" +
                                          wanted + "'; add <group name=\"" + wanted + "\">");
    }
    std::lock_guard const guard(m_mutex);
    for (auto& [group, settings] : content.m_groups) {
        if (!wanted.empty() && group != wanted) {
            continue;
        }
        std::string const begin = group.empty() ? "" : group + ".";
        for (auto& [key, setting] : settings) {
            m_settings.insert_or_assign(begin + key, std::move(setting));
        }
    }
    return KFR::ok;
}

std::optional<Setting> Configuration::find(std::string const& key)
{
    std::lock_guard const guard(m_mutex);
    auto const fromFile = m_settings.find(key);
    auto const override = m_overrides.find(key);
    if (override == m_overrides.end()) {
        return fromFile != m_settings.end() ? std::optional(fromFile->second) : std::nullopt;
    }
    Setting setting = override->second;
    if (fromFile != m_settings.end()) {
        setting.m_unitCode = fromFile->second.m_unitCode;
    }
    return setting;
}

KFRResult Configuration::missing(std::string const& key) const
{
    return KFRResult(kNoSuchKey)
        .addParam("The configuration '" + m_name + "' has nothing under the key '" + key + "'.");
}

KFRResult Configuration::refuse(std::string const& key, Setting const& setting, char const* wanted)
{
    std::string text = setting.m_place + ": the key '" + key + "' says";
    for (char const* separator = " '"; std::string const& item : setting.m_texts) {
        text += std::exchange(separator, ", '") + item + "'";
    }
    text += std::string("; write ") + wanted;
    bool isFirst = false;
    {
        std::lock_guard const guard(m_mutex);
        isFirst = m_refused.insert(key).second;
    }
    if (isFirst) {
        logToFramework(text, LogLevel::warning);
    }
    return KFRResult(kWrongType).addParam(text);
}

template <class Value, class Parse>
KFRResult Configuration::read(icu::UnicodeString const& key, char const* wanted, Parse parse,
                              Value& value)
{
    std::string const name = utf8(key);
    auto const setting = find(name);
    if (!setting) {
        return missing(name);
    }
    // One of several would be a guess.
    std::optional<Value> const parsed =
        setting->m_texts.size() == 1 ? parse(*setting) : std::nullopt;
    if (!parsed) {
        return refuse(name, *setting, wanted);
    }
    value = *parsed;
    return KFR::ok;
}

KFRResult Configuration::readBool(icu::UnicodeString const& key, bool& value)
{
    return read(
        key, "true or false",
        [](Setting const& setting) { return KFR::readBool(setting.m_texts.front()); }, value);
}

KFRResult Configuration::readInt(icu::UnicodeString const& key, long long& value)
{
    return read(
        key, "one whole number of 64 bits, such as 12",
        [](Setting const& setting) { return wholeNumber<long long>(setting.m_texts.front()); },
        value);
}

KFRResult Configuration::readDouble(icu::UnicodeString const& key, double& value)
{
    return read(
        key, "one number, such as 9.80665 or 1e-3",
        [](Setting const& setting) { return finiteNumber(setting.m_texts.front()); }, value);
}

KFRResult Configuration::readFloatValue(icu::UnicodeString const& key, FloatValue& value)
{
    return read(
        key, "one number and its unit: unit=\"0x0001\" in a file, 0.001 0xC0001 without",
        [](Setting const& setting) {
            return numberWithUnit(setting.m_texts.front(), setting.m_unitCode);
        },
        value);
}

KFRResult Configuration::readString(icu::UnicodeString const& key, int index,
                                    icu::UnicodeString& value)
{
    std::string const name = utf8(key);
    auto const setting = find(name);
    if (!setting) {
        return missing(name);
    }
    if (index < 0 || static_cast<std::size_t>(index) >= setting->m_texts.size()) {
        return missing(name + "[" + std::to_string(index) + "]");
    }
    value = icu::UnicodeString::fromUTF8(setting->m_texts[static_cast<std::size_t>(index)]);
    return KFR::ok;
}

}  // namespace vrn::orlo::host::kernel
