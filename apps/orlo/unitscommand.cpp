#include "apps/orlo/unitscommand.h"

#include "apps/orlo/console.h"
#include "apps/orlo/session.h"
#include "host/study/nearestkey.h"
#include "platform/kfr/kfrsequence.h"
#include "plugins/modelingplugin/utilities/numerics/inconsistentunitsystems.h"
#include "plugins/modelingplugin/utilities/numerics/systemunit.h"
#include "plugins/modelingplugin/utilities/numerics/unittable.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdio>
#include <span>
#include <string_view>
#include <utility>

namespace vrn::orlo::app {

namespace {

using plugin::modeling::InconsistentUnitSystems;
using plugin::modeling::SystemUnit;
using plugin::modeling::UnitSysUnitIDs;
using plugin::modeling::detail::kUnitTable;
using plugin::modeling::detail::UnitKind;
using Json = nlohmann::ordered_json;
using Cells = std::vector<std::string>;

struct SystemName {
    std::string m_name;
    std::string m_label;
};

struct BaseUnit {
    char const* m_quantity;
    UnitKind m_kind;
    unsigned short UnitSysUnitIDs::*m_id;
};

constexpr std::array kBaseUnits{
    BaseUnit{"length", UnitKind::length, &UnitSysUnitIDs::m_length},
    BaseUnit{"mass", UnitKind::mass, &UnitSysUnitIDs::m_mass},
    BaseUnit{"time", UnitKind::time, &UnitSysUnitIDs::m_time},
    BaseUnit{"force", UnitKind::force, &UnitSysUnitIDs::m_force},
    BaseUnit{"angle", UnitKind::angle, &UnitSysUnitIDs::m_angle},
};

struct WeightUnit {
    std::string m_text;        ///< As people read it.
    icu::UnicodeString m_key;  ///< As the library reads it.
};

struct Report {
    SystemName m_system;
    UnitSysUnitIDs m_ids;
    std::array<double, kBaseUnits.size()> m_factors{};
    std::vector<double> m_wtmass;  ///< For each weight unit.
};

std::string utf8(icu::UnicodeString const& text)
{
    std::string result;
    return text.toUTF8String(result);
}

std::string number(double value)
{
    std::array<char, 32> buffer{};
    std::snprintf(buffer.data(), buffer.size(), "%.7g", value);
    return buffer.data();
}

std::vector<SystemName> knownSystems()
{
    SystemUnit units = SystemUnit::getStandardUnit();
    KFRSequence<icu::UnicodeString> names;
    KFRSequence<icu::UnicodeString> labels;
    units.getUnitSystemNames(names);
    units.getUnitSystemLabels(labels);
    std::vector<SystemName> known;
    for (std::size_t i = 0; i < names.size(); ++i) {
        known.push_back({utf8(names.at(i)), utf8(labels.at(i))});
    }
    return known;
}

std::vector<WeightUnit> weightUnits(host::units::UnitCatalogue const& catalogue)
{
    std::vector<WeightUnit> weights;
    for (auto const& row : kUnitTable) {
        if (row.m_kind == UnitKind::force) {
            host::units::Unit const* const unit = catalogue.unit(row.m_id);
            icu::UnicodeString key;
            for (wchar_t const c : row.m_text) {
                key.append(static_cast<UChar32>(c));
            }
            weights.push_back({unit != nullptr ? unit->m_text : utf8(key), key});
        }
    }
    return weights;
}

Report reportOn(SystemName const& system, std::span<WeightUnit const> weights)
{
    InconsistentUnitSystems& systems = *InconsistentUnitSystems::instance();
    icu::UnicodeString const label = icu::UnicodeString::fromUTF8(system.m_label);
    Report report{system, systems.getUnitIDsFromUnitSystem(label), {}, {}};
    std::ranges::transform(kBaseUnits, report.m_factors.begin(), [&](BaseUnit const& unit) {
        return systems.getRelativeValueOfUnit(static_cast<unsigned short>(unit.m_kind),
                                              report.m_ids.*unit.m_id);
    });
    for (WeightUnit const& weight : weights) {
        report.m_wtmass.push_back(systems.getWTMASS(label, weight.m_key));
    }
    return report;
}

std::string unknownSystem(std::string_view asked, std::vector<SystemName> known)
{
    auto const distance = [&](SystemName const& system) {
        return std::min(host::study::editDistance(asked, system.m_label),
                        host::study::editDistance(asked, system.m_name));
    };
    std::ranges::stable_sort(known, {}, distance);
    std::string text = "unknown unit system \"" + std::string(asked) + "\"; known, nearest first:";
    for (SystemName const& system : known) {
        text += " " + system.m_label + " (" + system.m_name + ")";
        text += &system == &known.back() ? "" : ",";
    }
    return text;
}

/// The library takes a unit that it does not know for the SI unit; users are to know where.
void warnOfUnknownUnits(Report const& report)
{
    std::string unknown;
    for (BaseUnit const& unit : kBaseUnits) {
        if (unit.m_kind != UnitKind::angle && report.m_ids.*unit.m_id == 0) {
            unknown += std::string(unknown.empty() ? "" : " and ") + unit.m_quantity;
        }
    }
    if (!unknown.empty()) {
        reportWarning(report.m_system.m_label + ": the unit of " + unknown +
                      " is not known by this text; the factor is 1, as of the SI unit");
    }
}

/// Columns as wide as their widest cell; the first two to the left, numbers to the right.
void printTable(std::vector<Cells> const& rows)
{
    constexpr std::size_t kTextColumns = 2;
    std::vector<int> widths(rows.front().size());
    for (Cells const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], static_cast<int>(row[i].size()));
        }
    }
    for (Cells const& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < row.size(); ++i) {
            std::string const fill(static_cast<std::size_t>(widths[i]) - row[i].size(), ' ');
            line += i == 0 ? "" : "  ";
            line += i < kTextColumns ? row[i] + fill : fill + row[i];
        }
        std::printf("%s\n", line.c_str());
    }
}

void printText(std::span<Report const> reports, std::span<WeightUnit const> weights)
{
    std::vector<Cells> bases{{"label", "name"}};
    std::vector<Cells> masses{{"label", "name"}};
    for (BaseUnit const& unit : kBaseUnits) {
        bases.front().emplace_back(unit.m_quantity);
    }
    for (BaseUnit const& unit : kBaseUnits) {
        bases.front().push_back(std::string("x ") + unit.m_quantity);
    }
    for (WeightUnit const& weight : weights) {
        masses.front().push_back(weight.m_text);
    }
    for (Report const& report : reports) {
        Cells& base = bases.emplace_back(Cells{report.m_system.m_label, report.m_system.m_name});
        Cells& mass = masses.emplace_back(base);
        for (BaseUnit const& unit : kBaseUnits) {
            base.push_back(std::to_string(report.m_ids.*unit.m_id));
        }
        std::ranges::transform(report.m_factors, std::back_inserter(base), number);
        std::ranges::transform(report.m_wtmass, std::back_inserter(mass), number);
    }
    std::printf("unit ids (0: not known) and factors to m, s and N\n");
    printTable(bases);
    std::printf("\nWTMASS by the unit of the weights\n");
    printTable(masses);
}

void printJson(std::span<Report const> reports, std::span<WeightUnit const> weights)
{
    Json systems = Json::array();
    for (Report const& report : reports) {
        Json json = {{"label", report.m_system.m_label}, {"name", report.m_system.m_name}};
        for (std::size_t i = 0; i < kBaseUnits.size(); ++i) {
            json["ids"][kBaseUnits[i].m_quantity] = report.m_ids.*kBaseUnits[i].m_id;
            json["factors"][kBaseUnits[i].m_quantity] = report.m_factors[i];
        }
        for (std::size_t i = 0; i < weights.size(); ++i) {
            json["wtmass"][weights[i].m_text] = report.m_wtmass[i];
        }
        systems.push_back(std::move(json));
    }
    std::printf("%s\n", Json{{"systems", std::move(systems)}}.dump(2).c_str());
}

}  // namespace

int units(UnitsOptions const& options, SessionOptions const& sessionOptions)
{
    Session session(sessionOptions);
    std::vector<SystemName> const known = knownSystems();
    std::vector<SystemName> asked;
    for (std::string const& word : options.m_systems) {
        auto const system = std::ranges::find_if(known, [&](SystemName const& candidate) {
            return candidate.m_label == word || candidate.m_name == word;
        });
        if (system == known.end()) {
            reportError(unknownSystem(word, known));
            return kBadInput;
        }
        asked.push_back(*system);
    }
    if (options.m_systems.empty()) {
        asked = known;
    }
    std::vector<WeightUnit> const weights = weightUnits(session.units().catalogue());
    std::vector<Report> reports;
    for (SystemName const& system : asked) {
        reports.push_back(reportOn(system, weights));
        warnOfUnknownUnits(reports.back());
    }
    if (options.m_json) {
        printJson(reports, weights);
    } else {
        printText(reports, weights);
    }
    return kDone;
}

}  // namespace vrn::orlo::app
