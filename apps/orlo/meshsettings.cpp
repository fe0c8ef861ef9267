#include "apps/orlo/meshsettings.h"

#include "apps/orlo/usageerror.h"

#include <charconv>
#include <cstddef>
#include <string_view>
#include <system_error>
#include <utility>

namespace vrn::orlo::app {

namespace {

template <class Number>
std::optional<Number> numberIn(std::string_view text)
{
    Number number{};
    auto const [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    bool const isRead = error == std::errc() && stop == text.data() + text.size();
    return isRead ? std::optional(number) : std::nullopt;
}

/// What stands on both sides of the last equals sign: names may have one in them.
std::pair<std::string, double> sizeIn(std::string const& text, char const* option, char const* form)
{
    std::size_t const equals = text.rfind('=');
    auto const size = equals != text.npos
                          ? numberIn<double>(std::string_view(text).substr(equals + 1))
                          : std::nullopt;
    if (!size.has_value() || equals == 0) {
        throw UsageError(std::string(option) + " " + text + ": give " + form);
    }
    return {text.substr(0, equals), *size};
}

std::string textOf(host::study::KeyPlace const& place)
{
    return place.m_file.string() + ":" + std::to_string(place.m_line) + ": " + place.m_key;
}

}  // namespace

MeshSettings settingsOf(MeshArguments const& arguments)
{
    MeshSettings settings{arguments.m_size,
                          arguments.m_minimum,
                          arguments.m_order,
                          arguments.m_dimension,
                          arguments.m_faces ? std::optional(true) : std::nullopt,
                          arguments.m_curvature,
                          {},
                          {}};
    for (std::string const& text : arguments.m_partSizes) {
        auto const [part, size] = sizeIn(text, "--part-size", "PART=MM, such as bolt=2.5");
        settings.m_partSizes.push_back({"--part-size " + text, part, size});
    }
    constexpr char const* kFaceForm = "NUMBER=MM, such as 12=0.5, with a number of `orlo inspect`";
    for (std::string const& text : arguments.m_faceSizes) {
        auto const [face, size] = sizeIn(text, "--face-size", kFaceForm);
        auto const number = numberIn<unsigned>(face);
        if (!number.has_value()) {
            throw UsageError("--face-size " + text + ": give " + kFaceForm);
        }
        settings.m_faceSizes[*number] = size;
    }
    return settings;
}

MeshSettings settingsOf(host::study::Study const& study)
{
    MeshSettings settings;
    if (!study.m_mesh.has_value()) {
        return settings;
    }
    host::study::StudyMesh const& mesh = *study.m_mesh;
    settings.m_size = mesh.m_size;
    settings.m_minimum = mesh.m_minimum;
    settings.m_order = mesh.m_order;
    settings.m_dimension = mesh.m_dimension;
    settings.m_faces = mesh.m_faces;
    settings.m_curvature = mesh.m_curvature;
    for (std::size_t i = 0; i < mesh.m_partSizes.size(); ++i) {
        auto const& row = mesh.m_partSizes[i];
        std::string const key = "mesh.parts[" + std::to_string(i + 1) + "].part";
        settings.m_partSizes.push_back({textOf(study.placeOf(key)), row.m_part, row.m_size});
    }
    settings.m_faceSizes = mesh.m_faceSizes;
    return settings;
}

bool isAnySet(MeshSettings const& settings) noexcept
{
    return settings.m_size || settings.m_minimum || settings.m_order || settings.m_dimension ||
           settings.m_faces || settings.m_curvature || !settings.m_partSizes.empty() ||
           !settings.m_faceSizes.empty();
}

MeshSettings overridden(MeshSettings first, MeshSettings const& other)
{
    auto const fill = [](auto& value, auto const& with) {
        if (!value.has_value()) {
            value = with;
        }
    };
    fill(first.m_size, other.m_size);
    fill(first.m_minimum, other.m_minimum);
    fill(first.m_order, other.m_order);
    fill(first.m_dimension, other.m_dimension);
    fill(first.m_faces, other.m_faces);
    fill(first.m_curvature, other.m_curvature);
    first.m_partSizes.insert(first.m_partSizes.begin(), other.m_partSizes.begin(),
                             other.m_partSizes.end());
    first.m_faceSizes.insert(other.m_faceSizes.begin(), other.m_faceSizes.end());
    return first;
}

host::modelspace::MeshRequest requestOf(MeshSettings const& settings,
                                        host::model::Model const& model)
{
    if (!settings.m_size.has_value()) {
        throw UsageError("there is no mesh size; give --size MM, or a study with one");
    }
    host::modelspace::MeshRequest request;
    host::meshing::MeshOptions& options = request.m_options;
    options.m_size = *settings.m_size;
    options.m_minimumSize = settings.m_minimum.value_or(options.m_minimumSize);
    options.m_order = settings.m_order.value_or(options.m_order);
    options.m_dimension = settings.m_dimension.value_or(options.m_dimension);
    options.m_meshFaces = settings.m_faces.value_or(options.m_meshFaces);
    options.m_curvature = settings.m_curvature.value_or(options.m_curvature);
    options.m_faceSizes = settings.m_faceSizes;
    auto const& parts = model.parts();
    for (MeshSettings::PartSize const& row : settings.m_partSizes) {
        std::string names;
        bool isFound = false;
        for (std::size_t part = 0; part < parts.size(); ++part) {
            names += (part > 0 ? ", " : "") + parts[part]->name();
            if (parts[part]->name() == row.m_part) {
                request.m_partSizes[part] = row.m_size;
                isFound = true;
            }
        }
        if (!isFound) {
            throw UsageError(row.m_place + ": there is no part \"" + row.m_part +
                             "\"; the parts are " + names);
        }
    }
    return request;
}

}  // namespace vrn::orlo::app
