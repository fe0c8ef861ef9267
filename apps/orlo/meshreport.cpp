#include "apps/orlo/meshreport.h"

#include "apps/orlo/loadmodel.h"
#include "apps/orlo/valuetext.h"
#include "host/meshing/elementtype.h"
#include "platform/kfr/numbertext.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>
#include <vector>

namespace vrn::orlo::app {

using host::meshing::ElementType;
using host::meshing::LocalNumber;
using host::meshing::MeshFile;
using host::meshing::MeshInstance;
using host::meshing::MeshSet;
using host::meshing::MeshStore;
using Json = nlohmann::ordered_json;

namespace {

// .dat is a mesh only where it looks like one; the reader says so.
constexpr std::array<std::string_view, 5> kEndings{".inp", ".msh", ".bdf", ".nas", ".dat"};

/// Elements of one type, under the name that the file has for it.
struct TypeCount {
    std::string m_name;
    ElementType m_type;
    std::size_t m_count = 0;
};

std::vector<TypeCount> typesOf(MeshStore const& mesh)
{
    std::map<std::pair<ElementType, std::string_view>, std::size_t> counts;
    for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
        ++counts[{mesh.typeOf(element), mesh.typeNameOf(element)}];
    }
    std::vector<TypeCount> types;
    for (auto const& [key, count] : counts) {
        types.push_back({std::string(key.second), key.first, count});
    }
    return types;
}

std::vector<std::size_t> groupSizes(MeshStore const& mesh)
{
    std::vector<std::size_t> sizes(mesh.groups().size());
    for (LocalNumber element = 1; element <= mesh.elements().size(); ++element) {
        ++sizes[mesh.groupOf(element)];
    }
    return sizes;
}

std::string numbered(std::size_t count, std::string const& one)
{
    return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

std::size_t instancesOf(MeshFile const& mesh, std::size_t part)
{
    return static_cast<std::size_t>(
        std::ranges::count(mesh.m_instances, part, &MeshInstance::m_part));
}

std::string inWords(host::meshing::MeshPlacement const& placement)
{
    std::string text;
    if (placement.m_translation != host::meshing::Point{}) {
        text += ", moved by " + textOf(placement.m_translation);
    }
    if (placement.m_degrees != 0.0) {
        text += ", turned by " + KFR::numberText(placement.m_degrees) + " degrees about " +
                textOf(placement.m_axis[0]) + " to " + textOf(placement.m_axis[1]);
    }
    return text;
}

void appendSets(std::string& text, char const* label, std::vector<MeshSet> const& sets)
{
    for (MeshSet const& set : sets) {
        text += std::string("  ") + label + set.m_name + ": " +
                std::to_string(set.m_numbers.size()) + "\n";
    }
}

void appendContent(std::string& text, MeshStore const& mesh)
{
    for (std::uint8_t dimension = 0; dimension <= 3; ++dimension) {
        if (mesh.countOf(dimension) > 0) {
            text += "  " + std::to_string(dimension) + "D           " +
                    std::to_string(mesh.countOf(dimension)) + "\n";
        }
    }
    for (TypeCount const& type : typesOf(mesh)) {
        text += "  type         " + type.m_name + ", " +
                numbered(traitsOf(type.m_type).m_nodeCount, "node") + ": " +
                std::to_string(type.m_count) + "\n";
    }
    std::vector<std::size_t> const sizes = groupSizes(mesh);
    for (std::size_t group = 0; group < sizes.size(); ++group) {
        auto const& row = mesh.groups()[group];
        text += "  group        " + (row.m_name.empty() ? "-" : row.m_name) + ", " +
                std::to_string(row.m_dimension) + "D: " + std::to_string(sizes[group]) + "\n";
    }
    appendSets(text, "node set     ", mesh.nodeSets());
    appendSets(text, "element set  ", mesh.elementSets());
    text +=
        "  box          " + textOf(mesh.box().m_low) + " to " + textOf(mesh.box().m_high) + "\n";
}

Json toJson(std::vector<MeshSet> const& sets)
{
    Json json = Json::array();
    for (MeshSet const& set : sets) {
        json.push_back({{"name", set.m_name}, {"count", set.m_numbers.size()}});
    }
    return json;
}

Json toJson(MeshStore const& mesh)
{
    Json types = Json::array();
    for (TypeCount const& type : typesOf(mesh)) {
        auto const& traits = traitsOf(type.m_type);
        types.push_back({{"name", type.m_name},
                         {"nodes", traits.m_nodeCount},
                         {"dimension", traits.m_dimension},
                         {"count", type.m_count}});
    }
    Json dimensions = Json::array();
    for (std::uint8_t dimension = 0; dimension <= 3; ++dimension) {
        dimensions.push_back(mesh.countOf(dimension));
    }
    Json groups = Json::array();
    std::vector<std::size_t> const sizes = groupSizes(mesh);
    for (std::size_t group = 0; group < sizes.size(); ++group) {
        auto const& row = mesh.groups()[group];
        groups.push_back({{"name", row.m_name},
                          {"dimension", row.m_dimension},
                          {"body", mesh.bodies()[row.m_body].m_name},
                          {"count", sizes[group]}});
    }
    return {{"name", mesh.name()},
            {"nodes", mesh.nodes().size()},
            {"elements", mesh.elements().size()},
            {"elementsByDimension", std::move(dimensions)},
            {"types", std::move(types)},
            {"groups", std::move(groups)},
            {"nodeSets", toJson(mesh.nodeSets())},
            {"elementSets", toJson(mesh.elementSets())},
            {"box", {{"min", mesh.box().m_low}, {"max", mesh.box().m_high}}}};
}

}  // namespace

bool isMeshFile(std::filesystem::path const& file)
{
    return std::ranges::find(kEndings, endingOf(file)) != kEndings.end();
}

std::string textReport(std::filesystem::path const& file, MeshFile const& mesh, bool treeOnly)
{
    std::size_t nodes = 0;
    std::size_t elements = 0;
    for (auto const& part : mesh.m_parts) {
        nodes += part->nodes().size();
        elements += part->elements().size();
    }
    std::string text = file.string() + "\n  made of      " + numbered(mesh.m_parts.size(), "part") +
                       " in " + numbered(mesh.m_instances.size(), "instance") +
                       "\n  holds        " + numbered(nodes, "node") + ", " +
                       numbered(elements, "element") + "\n\n";
    for (std::size_t part = 0; part < mesh.m_parts.size(); ++part) {
        MeshStore const& store = *mesh.m_parts[part];
        text += "part " + store.name() + ": " + numbered(instancesOf(mesh, part), "instance") +
                ", " + numbered(store.nodes().size(), "node") + ", " +
                numbered(store.elements().size(), "element") + "\n";
        if (!treeOnly) {
            appendContent(text, store);
        }
    }
    for (MeshInstance const& instance : mesh.m_instances) {
        text += "instance " + instance.m_name + " of " + mesh.m_parts[instance.m_part]->name() +
                inWords(instance.m_placement) + "\n";
    }
    return text;
}

std::string jsonReport(std::filesystem::path const& file, MeshFile const& mesh)
{
    Json parts = Json::array();
    for (auto const& part : mesh.m_parts) {
        parts.push_back(toJson(*part));
    }
    Json instances = Json::array();
    for (MeshInstance const& instance : mesh.m_instances) {
        instances.push_back({{"name", instance.m_name},
                             {"part", instance.m_part},
                             {"translation", instance.m_placement.m_translation},
                             {"axis", instance.m_placement.m_axis},
                             {"degrees", instance.m_placement.m_degrees}});
    }
    Json const document = {{"file", file.string()},
                           {"warnings", mesh.m_warnings},
                           {"parts", std::move(parts)},
                           {"instances", std::move(instances)}};
    // Names that are no UTF-8 after all must not cost the user the report.
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace vrn::orlo::app
