#include "host/geometry/plausibility.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <vector>

#include "host/geometry/placement.h"

namespace vrn::orlo::host::geometry {

namespace {

constexpr double kLargest = 10'000.0;      // mm
constexpr double kSmallest = 0.5;          // mm
constexpr double kLargestFastener = 1000;  // mm
constexpr std::array<std::string_view, 6> kFasteners{"bolt",   "screw", "nut",
                                                     "washer", "rivet", "pin"};

bool isPlausible(double diagonal)
{
    return diagonal >= kSmallest && diagonal <= kLargest;
}

/// "; in millimetres it would be ..." for the unit that makes sense of the size, where there is
/// one.
std::string otherReading(double diagonal, LengthUnit const& unit)
{
    double const inUnits = diagonal / unit.m_millimetres;
    struct Reading {
        char const* m_units;
        double m_millimetres;
    };
    constexpr std::array kReadings{Reading{"millimetres", 1.0}, Reading{"metres", 1000.0},
                                   Reading{"micrometres", 0.001}};
    for (Reading const& reading : kReadings) {
        double const size = inUnits * reading.m_millimetres;
        if (isPlausible(size) && reading.m_millimetres != unit.m_millimetres) {
            return std::string("; in ") + reading.m_units + " it would be " + lengthText(size);
        }
    }
    return {};
}

std::string unitDoubt(LengthUnit const& unit)
{
    return unit.m_name == "none" ? ": the file states no length unit, and millimetres look wrong"
                                 : ": its length unit (" + unit.m_name + ") looks wrong";
}

/// The leaves' largest fasteners, one line per part.
void warnOfFasteners(GeometryModel& model, Instance const& instance, Placement const& parent,
                     std::vector<bool>& told)
{
    Placement const placement = composed(parent, instance.m_placement);
    if (instance.m_part != Instance::kNoPart) {
        auto const index = static_cast<std::size_t>(instance.m_part);
        double const size =
            model.m_parts[index].m_box.diagonal() * std::cbrt(std::abs(determinant(placement)));
        bool const isFastener =
            namesFastener(instance.m_name) || namesFastener(model.m_parts[index].m_name);
        if (isFastener && size > kLargestFastener && !told[index]) {
            told[index] = true;
            model.m_warnings.push_back("the part '" + model.m_parts[index].m_name +
                                       "' is a fastener by its name, but is " + lengthText(size) +
                                       " across" + unitDoubt(model.m_unit));
        }
    }
    for (Instance const& child : instance.m_children) {
        warnOfFasteners(model, child, placement, told);
    }
}

bool isFastenerWord(std::string word)
{
    std::transform(word.begin(), word.end(), word.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return std::any_of(kFasteners.begin(), kFasteners.end(), [&](std::string_view fastener) {
        return word == fastener || word == std::string(fastener) + 's';
    });
}

}  // namespace

std::string lengthText(double millimetres)
{
    std::array<char, 48> text{};
    bool const inMetres = millimetres >= 1000.0;
    // Above 9999 m, %g would turn to powers of ten.
    char const* const format = inMetres && millimetres >= 1e7 ? "%.0f %s" : "%.4g %s";
    std::snprintf(text.data(), text.size(), format, inMetres ? millimetres / 1000.0 : millimetres,
                  inMetres ? "m" : "mm");
    return text.data();
}

bool namesFastener(std::string_view name)
{
    auto const isSmall = [](char c) {
        return c >= 'a' && c <= 'z';
    };
    auto const isCapital = [](char c) {
        return c >= 'A' && c <= 'Z';
    };
    auto const isForeign = [](char c) {
        return static_cast<unsigned char>(c) >= 0x80;
    };
    std::string word;
    for (char const c : name) {
        bool const isLetter = isSmall(c) || isCapital(c) || isForeign(c);
        bool const begins = isCapital(c) && !word.empty() && isSmall(word.back());
        if ((!isLetter || begins) && isFastenerWord(word)) {
            return true;
        }
        if (!isLetter || begins) {
            word.clear();
        }
        if (isLetter) {
            word += c;
        }
    }
    return isFastenerWord(word);
}

void warnOfOddSizes(GeometryModel& model)
{
    double const diagonal = model.m_box.diagonal();
    if (!model.m_box.isEmpty() && diagonal > 0.0 && !isPlausible(diagonal)) {
        model.m_warnings.push_back("the model is " + lengthText(diagonal) + " across" +
                                   unitDoubt(model.m_unit) + otherReading(diagonal, model.m_unit));
    }
    std::vector<bool> told(model.m_parts.size());
    for (Instance const& root : model.m_roots) {
        warnOfFasteners(model, root, Placement{}, told);
    }
}

}  // namespace vrn::orlo::host::geometry
