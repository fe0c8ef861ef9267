#include "host/shell/messagecatalog.h"

#include "host/kernel/frameworklog.h"
#include "platform/kfr/numbertext.h"

#include <unicode/msgfmt.h>
#include <unicode/uloc.h>

#include <array>
#include <cstdlib>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::shell {

namespace {

struct Domain {
    char const* m_plugin;
    int m_number;
};

constexpr std::array kDomains{Domain{"VRN.CorePlugin", 1},     Domain{"VRN.ShellPlugin", 2},
                              Domain{"VRN.ModelingPlugin", 3}, Domain{"VRN.FEMPlugin", 4},
                              Domain{"VRN.StudyPlugin", 5},    Domain{"VRN.ShaperPlugin", 6},
                              Domain{"VRN.MotionPlugin", 7}};

KFRResult failure(MessageFailure code, std::string const& text)
{
    return KFRResult(code).addParam(text);
}

/// Language, script and country of a POSIX or ICU locale name.
std::string bareLocale(std::string const& locale)
{
    static constexpr char kInName[] =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-";
    std::string const name = locale.substr(0, locale.find_first_not_of(kInName));
    return icu::Locale(name.c_str()).getBaseName();
}

/// The locale above; empty above a language.
std::string parentOf(std::string const& locale)
{
    char parent[ULOC_FULLNAME_CAPACITY] = {};
    UErrorCode status = U_ZERO_ERROR;
    uloc_getParent(locale.c_str(), parent, ULOC_FULLNAME_CAPACITY - 1, &status);
    return U_SUCCESS(status) != 0 ? parent : "";
}

icu::UnicodeString textOf(KFRAny const& param)
{
    if (auto const* const unicode = param.get<icu::UnicodeString>()) {
        return *unicode;
    }
    std::string utf8 = "?";
    if (auto const* const string = param.get<std::string>()) {
        utf8 = *string;
    } else if (auto const* const integer = param.get<int>()) {
        utf8 = std::to_string(*integer);
    } else if (auto const* const integer64 = param.get<long long>()) {
        utf8 = std::to_string(*integer64);
    } else if (auto const* const real = param.get<double>()) {
        utf8 = KFR::numberText(*real);
    }
    return icu::UnicodeString::fromUTF8(utf8);
}

std::optional<icu::UnicodeString> format(icu::UnicodeString const& pattern,
                                         KFRSequence<KFRAny> const& params)
{
    // As texts: numbers would be written in the manner of some language.
    std::vector<icu::Formattable> texts;
    texts.reserve(params.size());
    for (KFRAny const& param : params) {
        texts.emplace_back(textOf(param));
    }
    UErrorCode status = U_ZERO_ERROR;
    icu::MessageFormat const message(pattern, icu::Locale::getRoot(), status);
    icu::UnicodeString text;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    message.format(texts.data(), static_cast<int>(texts.size()), text, ignored, status);
    return U_SUCCESS(status) != 0 ? std::optional(text) : std::nullopt;
}

}  // namespace

MessageCatalog::MessageCatalog(std::filesystem::path const& folder, std::string const& locale)
{
    // Each bundle alone, and absolute: left to itself, ICU would go from an unknown language to
    // that of the process before it comes to root, and look for a plain name in its own data.
    std::string const path = std::filesystem::absolute(folder).string();
    auto const open = [&](std::string const& name) {
        UErrorCode status = U_ZERO_ERROR;
        icu::LocalUResourceBundlePointer bundle(
            ures_openDirect(path.c_str(), name.c_str(), &status));
        if (U_SUCCESS(status) != 0) {
            m_bundles.push_back(std::move(bundle));
        }
        return U_SUCCESS(status) != 0;
    };
    for (std::string name = bareLocale(locale); !name.empty(); name = parentOf(name)) {
        open(name);
    }
    if (!open("root")) {
        throw std::runtime_error("The folder " + path +
                                 " holds no texts: root.res is missing or unreadable. Build the "
                                 "message bundles, or give the folder that holds them.");
    }
}

std::string MessageCatalog::localeFromEnvironment()
{
    for (char const* const name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (char const* const value = std::getenv(name); value != nullptr && *value != '\0') {
            return value;
        }
    }
    return {};
}

std::optional<icu::UnicodeString> MessageCatalog::find(char const* table,
                                                       std::string const& key) const
{
    for (icu::LocalUResourceBundlePointer const& bundle : m_bundles) {
        UErrorCode status = U_ZERO_ERROR;
        icu::LocalUResourceBundlePointer const rows(
            ures_getByKey(bundle.getAlias(), table, nullptr, &status));
        int length = 0;
        char16_t const* const text =
            ures_getStringByKey(rows.getAlias(), key.c_str(), &length, &status);
        if (U_SUCCESS(status) != 0) {
            return icu::UnicodeString(text, length);
        }
    }
    return {};
}

KFRResult MessageCatalog::getText(char const* table, std::string const& key,
                                  KFRSequence<KFRAny> const& params, icu::UnicodeString& text)
{
    std::optional<icu::UnicodeString> const pattern = find(table, key);
    if (!pattern) {
        return missing(table, key);
    }
    std::optional<icu::UnicodeString> const formatted = format(*pattern, params);
    if (!formatted) {
        return failure(kUnusableText, "The text " + key + " in the table " + table +
                                          " of the message catalogue cannot be used: mend its "
                                          "braces and apostrophes.");
    }
    text = *formatted;
    return KFR::ok;
}

KFRResult MessageCatalog::missing(char const* table, std::string const& key)
{
    std::string const reason = "The message catalogue has no text " + key +
                               ". Add it to the table " + table +
                               " in each file of host/resources/messages.";
    if (m_missed.insert(std::string(table) + "/" + key).second) {
        kernel::logToFramework(reason, kernel::LogLevel::warning);
    }
    return failure(kNoText, reason);
}

KFRResult MessageCatalog::getTextByNumber(int id, KFRSequence<KFRAny> const& params,
                                          icu::UnicodeString& text)
{
    return getText("numbers", "n" + std::to_string(id), params, text);
}

KFRResult MessageCatalog::getTextById(std::string const& id, KFRSequence<KFRAny> const& params,
                                      icu::UnicodeString& text)
{
    // Some callers name a numbered message by its number as a text.
    bool const isNumber = !id.empty() && id.find_first_not_of("0123456789") == std::string::npos;
    return isNumber ? getText("numbers", "n" + id, params, text)
                    : getText("texts", id, params, text);
}

KFRResult MessageCatalog::getHelpKey(std::string const& number, std::string& key)
{
    std::optional<icu::UnicodeString> const found = find("help", "n" + number);
    if (!found) {
        return failure(kNoText, "The message " + number + " has no help key.");
    }
    std::string utf8;
    key = found->toUTF8String(utf8);
    return KFR::ok;
}

KFRResult MessageCatalog::getDomain(std::string const& pluginName, int& domain)
{
    for (Domain const& row : kDomains) {
        if (pluginName == row.m_plugin) {
            domain = row.m_number;
            return KFR::ok;
        }
    }
    return failure(kUnknownPlugin,
                   "No plug-in is called " + pluginName + ", so its messages have no domain.");
}

}  // namespace vrn::orlo::host::shell
