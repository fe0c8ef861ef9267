#include "apps/orlo/valuetext.h"

#include "platform/appfw/commands.h"
#include "platform/caedata/entityreference.h"
#include "platform/kfr/numbertext.h"
#include "platform/kfr/textvalues.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace vrn::orlo::app {

namespace {

std::string toUtf8(icu::UnicodeString const& text)
{
    std::string utf8;
    return text.toUTF8String(utf8);
}

std::string inQuotes(std::string const& text)
{
    return '"' + text + '"';
}

template <class Sequence, class Text>
std::string listOf(Sequence const& sequence, Text const& text)
{
    std::string list = "[";
    for (auto const& element : sequence) {
        list.append(list.size() > 1 ? ", " : "").append(text(element));
    }
    return list + "]";
}

std::string recordText(appfw::CmdParameters const& record)
{
    std::string list = "{";
    for (appfw::CmdParameter const& item : record) {
        list.append(list.size() > 1 ? ", " : "").append(item.name + ": " + textOf(item.value));
    }
    return list + "}";
}

std::string sequenceText(KFRAny const& value)
{
    if (auto const* const texts = value.get<KFRSequence<std::string>>()) {
        return listOf(*texts, [](std::string const& text) { return inQuotes(text); });
    }
    if (auto const* const numbers = value.get<KFRSequence<double>>()) {
        return listOf(*numbers, KFR::numberText);
    }
    if (auto const* const numbers = value.get<KFRSequence<int>>()) {
        return listOf(*numbers, [](int number) { return std::to_string(number); });
    }
    return "[...]";
}

std::string structureText(KFRAny const& value)
{
    if (auto const* const record = value.get<appfw::CmdParameters>()) {
        return recordText(*record);
    }
    if (auto const* const reference = value.get<CAE::EntityReference>()) {
        return toUtf8(plugin::modeling::EntityTypeID::nameOf(reference->typeId)) + " #" +
               std::to_string(reference->id);
    }
    return "{...}";
}

template <class Number>
std::optional<KFRAny> wholeNumber(std::string_view text)
{
    bool const isNegative = text.starts_with('-');
    if (isNegative) {
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.starts_with("0x") || text.starts_with("0X")) {
        text.remove_prefix(2);
        base = 16;
    }
    // Read as a magnitude: what is left of "--1" and "0x-1" is refused.
    unsigned long long magnitude = 0;
    char const* const end = text.data() + text.size();
    auto const read = std::from_chars(text.data(), end, magnitude, base);
    auto const greatest = static_cast<unsigned long long>(std::numeric_limits<Number>::max());
    if (read.ec != std::errc() || read.ptr != end || magnitude > greatest) {
        return std::nullopt;
    }
    auto const number = static_cast<Number>(magnitude);
    return KFRAny(isNegative ? static_cast<Number>(-number) : number);
}

std::optional<KFRAny> realNumber(std::string_view text)
{
    double number = 0.0;
    char const* const end = text.data() + text.size();
    auto const read = std::from_chars(text.data(), end, number);
    if (read.ec != std::errc() || read.ptr != end) {
        return std::nullopt;
    }
    return KFRAny(number);
}

KFR::AnyKind kindOf(KFRAny const& value)
{
    return static_cast<KFR::AnyKind>(value.getTypeID());
}

}  // namespace

std::string textOf(KFRAny const& value)
{
    using enum KFR::AnyKind;
    switch (kindOf(value)) {
        case none:
            return "-";
        case boolean:
            return *value.get<bool>() ? "true" : "false";
        case integer:
            return std::to_string(*value.get<int>());
        case integer64:
            return std::to_string(*value.get<long long>());
        case doublePrecision:
            return KFR::numberText(*value.get<double>());
        case string:
            return inQuotes(*value.get<std::string>());
        case unicodeString:
            return inQuotes(toUtf8(*value.get<icu::UnicodeString>()));
        case service: {
            KFRIService const object = *value.get<KFRIService>();
            return object == KFR::NULLSP ? "null" : object->getObjectName();
        }
        case sequence:
            return sequenceText(value);
        case structure:
            return structureText(value);
        default:
            return "?";
    }
}

std::string textOf(std::array<double, 3> const& point)
{
    auto const rounded = [](double value) {
        constexpr double kDigits = 1e6;
        return KFR::numberText(std::round(value * kDigits) / kDigits + 0.0);
    };
    return "(" + rounded(point[0]) + ", " + rounded(point[1]) + ", " + rounded(point[2]) + ")";
}

std::optional<KFRAny> valueOf(std::string_view text, KFRAny const& like)
{
    using enum KFR::AnyKind;
    switch (kindOf(like)) {
        case boolean: {
            auto const value = KFR::readBool(text);
            return value.has_value() ? std::optional<KFRAny>(*value) : std::nullopt;
        }
        case integer:
            return wholeNumber<int>(text);
        case integer64:
            return wholeNumber<long long>(text);
        case doublePrecision:
            return realNumber(text);
        case string:
            return KFRAny(std::string(text));
        case unicodeString:
            return KFRAny(icu::UnicodeString::fromUTF8(
                icu::StringPiece(text.data(), static_cast<std::int32_t>(text.size()))));
        default:
            return std::nullopt;
    }
}

std::string exampleOf(KFRAny const& like)
{
    using enum KFR::AnyKind;
    switch (kindOf(like)) {
        case boolean:
            return "true or false";
        case integer:
        case integer64:
            return "a whole number such as 12 or 0x0C";
        case doublePrecision:
            return "a number such as 0.5";
        case string:
        case unicodeString:
            return "a text";
        default:
            return "nothing that the command line can say";
    }
}

}  // namespace vrn::orlo::app
