#include "plugins/modelingplugin/utilities/componentframe/componentinfo.h"

#include "builddata.h"

#include <array>

namespace vrn::orlo::plugin::modeling::componentinfo {

namespace {

/// Date and time of this source's compilation: __DATE__ is "Apr  6 2020", __TIME__ "13:09:12".
struct BuildMoment {
    int m_year = 0;
    int m_month = 0;  // 1 to 12
    int m_day = 0;
};

constexpr int twoDigits(char const* text) noexcept
{
    return (text[0] == ' ' ? 0 : text[0] - '0') * 10 + (text[1] - '0');
}

constexpr BuildMoment momentOf(char const* date) noexcept
{
    constexpr std::string_view kMonths = "JanFebMarAprMayJunJulAugSepOctNovDec";
    return {twoDigits(date + 7) * 100 + twoDigits(date + 9),
            static_cast<int>(kMonths.find(std::string_view(date, 3)) / 3) + 1, twoDigits(date + 4)};
}

/// Days from 1970-01-01 (proleptic Gregorian calendar, years counted from March).
constexpr long long daysSince1970(BuildMoment moment) noexcept
{
    int const year = moment.m_month <= 2 ? moment.m_year - 1 : moment.m_year;
    int const monthFromMarch = (moment.m_month + 9) % 12;
    int const dayOfYear = (153 * monthFromMarch + 2) / 5 + moment.m_day - 1;
    return 365LL * year + year / 4 - year / 100 + year / 400 + dayOfYear - 719468;
}
static_assert(daysSince1970({1970, 1, 1}) == 0 && daysSince1970({2020, 4, 16}) == 18368);

constexpr BuildMoment kBuilt = momentOf(__DATE__);
constexpr long long kBuildMinutes = daysSince1970(kBuilt) * 24 * 60 + twoDigits(__TIME__) * 60 +
                                    twoDigits(static_cast<char const*>(__TIME__) + 3);

std::string padded(int value)
{
    return (value < 10 ? "0" : "") + std::to_string(value);
}

std::string buildDate()
{
    return padded(kBuilt.m_month) + '/' + padded(kBuilt.m_day) + '/' +
           std::to_string(kBuilt.m_year);
}

std::string buildTime()
{
    return __TIME__;
}

/// Minutes since 1970 of the date and time above, both as they stand.
std::string buildNumber()
{
    return "Time:" + std::to_string(kBuildMinutes);
}

struct Row {
    std::string_view m_key;
    std::string_view m_text;
    std::string (*m_make)();  // for the rows that the build makes; null for a text
};

// "VersionNumbers" is missing from the list under "*", and "Platform" names the application's first
// platform whatever this one is: both as clients have always read them.
// clang-format off
constexpr std::array kRows{
    Row{"VersionNumbers",     ",,24,8", nullptr},
    Row{"BuildDate",          "",       &buildDate},
    Row{"BuildTime",          "",       &buildTime},
    Row{"KernelMajorVersion", "24",     nullptr},
    Row{"KernelMinorVersion", "8",      nullptr},
    Row{"Platform",           "win32",  nullptr},
    Row{"Name",               "vrn.orlo.plugin.modeling.ModelingPluginUtilities", nullptr},
    Row{"MajorVersion",       "",       nullptr},
    Row{"MinorVersion",       "",       nullptr},
    Row{"BuildNumber",        "",       &buildNumber},
    Row{"*", "BuildDate,BuildTime,KernelMajorVersion,KernelMinorVersion,Platform,Name,MajorVersion,"
             "MinorVersion,BuildNumber", nullptr},
};
// clang-format on

static_assert(sizeof(ORLO_BUILD_DATA) - 1 == 177, "176 digits and a semicolon");

}  // namespace

std::string value(std::string_view key)
{
    for (Row const& row : kRows) {
        if (row.m_key == key) {
            return row.m_make != nullptr ? row.m_make() : std::string(row.m_text);
        }
    }
    return {};
}

std::string description()
{
    return "<KFRComponentInfo> VRN Name=" + value("Name") + ", Platform=" + value("Platform") +
           ", KernelVersion=" + value("KernelMajorVersion") + "." + value("KernelMinorVersion") +
           ", BuildDate=" + value("BuildDate") + ", BuildTime=" + value("BuildTime") +
           ", BuildNumber=" + value("BuildNumber") +
           ", <service name=Utilities/> </KFRComponentInfo>";
}

std::string_view buildData() noexcept
{
    return ORLO_BUILD_DATA;
}

}  // namespace vrn::orlo::plugin::modeling::componentinfo
