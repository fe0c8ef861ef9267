#include "apps/orlo/answers.h"
#include "apps/orlo/geometryreport.h"

#include <array>
#include <cstdarg>
#include <cstdio>

namespace vrn::orlo::app {

using host::geometry::Box;
using host::geometry::Counts;
using host::geometry::Entity;
using host::geometry::EntityClass;
using host::geometry::GeometryModel;
using host::geometry::Instance;
using host::geometry::Part;
using host::model::Model;

namespace {

[[gnu::format(printf, 1, 2)]] std::string formatted(char const* format, ...)
{
    std::array<char, 256> buffer{};
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(buffer.data(), buffer.size(), format, arguments);
    va_end(arguments);
    return buffer.data();
}

struct CountRow {
    std::size_t Counts::*m_count;
    char const* m_one;
    char const* m_many;
};

// clang-format off
constexpr std::array kCountRows{
    CountRow{&Counts::m_solids,   "solid",      "solids"},
    CountRow{&Counts::m_sheets,   "sheet",      "sheets"},
    CountRow{&Counts::m_wires,    "wire",       "wires"},
    CountRow{&Counts::m_points,   "point body", "point bodies"},
    CountRow{&Counts::m_faces,    "face",       "faces"},
    CountRow{&Counts::m_edges,    "edge",       "edges"},
    CountRow{&Counts::m_vertices, "vertex",     "vertices"},
};
// clang-format on

std::string numbered(std::size_t count, char const* one, char const* many)
{
    return std::to_string(count) + ' ' + (count == 1 ? one : many);
}

std::string inWords(Counts const& counts)
{
    std::string text;
    for (CountRow const& row : kCountRows) {
        if (std::size_t const count = counts.*row.m_count; count > 0) {
            text += (text.empty() ? "" : ", ") + numbered(count, row.m_one, row.m_many);
        }
    }
    return text.empty() ? "nothing" : text;
}

std::string inWords(Box const& box)
{
    if (box.isEmpty()) {
        return "none";
    }
    auto const& low = box.m_min;
    auto const& high = box.m_max;
    return formatted("%.6g x %.6g x %.6g mm, from (%.6g, %.6g, %.6g) to (%.6g, %.6g, %.6g)",
                     high[0] - low[0], high[1] - low[1], high[2] - low[2], low[0], low[1], low[2],
                     high[0], high[1], high[2]);
}

std::size_t leafCount(Instance const& node)
{
    std::size_t leaves = node.m_part != Instance::kNoPart ? 1 : 0;
    for (Instance const& child : node.m_children) {
        leaves += leafCount(child);
    }
    return leaves;
}

void appendHead(std::string& text, GeometryModel const& geometry)
{
    std::size_t leaves = 0;
    for (Instance const& root : geometry.m_roots) {
        leaves += leafCount(root);
    }
    text += geometry.m_sourceFile + '\n';
    text += formatted("  length unit  %s (%.9g mm)\n", geometry.m_unit.m_name.c_str(),
                      geometry.m_unit.m_millimetres);
    text += "  box          " + inWords(geometry.m_box) + '\n';
    text += formatted("  volume       %.9g mm3\n", geometry.volume());
    text += "  holds        " + inWords(geometry.m_totals) + '\n';
    text += "  made of      " + numbered(geometry.m_parts.size(), "part", "parts") + " in " +
            numbered(leaves, "instance", "instances") + ", " +
            numbered(geometry.m_assemblyCount, "assembly", "assemblies") + "\n\n";
}

void appendNode(std::string& text, GeometryModel const& geometry, Instance const& node,
                std::string const& indent, std::string const& branch)
{
    text += indent + branch + node.m_name;
    if (node.m_productName != node.m_name) {
        text += " (" + node.m_productName + ')';
    }
    if (node.m_part != Instance::kNoPart) {
        Part const& part = geometry.m_parts[static_cast<std::size_t>(node.m_part)];
        text += ": " + inWords(part.m_counts);
    }
    text += '\n';
    std::string const below = indent + (branch.empty() ? "" : branch[0] == '`' ? "   " : "|  ");
    for (std::size_t i = 0; i < node.m_children.size(); ++i) {
        bool const isLast = i + 1 == node.m_children.size();
        appendNode(text, geometry, node.m_children[i], below, isLast ? "`- " : "|- ");
    }
}

char const* unitOfMeasure(EntityClass entityClass)
{
    switch (entityClass) {
        case EntityClass::solidBody:
        case EntityClass::facetSolid:
        case EntityClass::volume:
            return "mm3";
        case EntityClass::sheetBody:
        case EntityClass::facetSheet:
        case EntityClass::generalBody:
        case EntityClass::facetGeneral:
        case EntityClass::face:
            return "mm2";
        case EntityClass::wireBody:
        case EntityClass::facetWire:
        case EntityClass::edge:
            return "mm";
        case EntityClass::pointBody:
        case EntityClass::vertex:
            break;
    }
    return "";
}

void appendPart(std::string& text, Model const& model, std::size_t index)
{
    Part const& part = model.geometry().m_parts[index];
    text += "\npart " + part.m_name + ": " +
            numbered(part.m_instanceCount, "instance", "instances") + ", " +
            inWords(part.m_counts) + '\n';
    text += "   number class type             body            measure      answers\n";
    for (Entity const& entity : model.geometry().entitiesOf(index)) {
        std::string const measure =
            *unitOfMeasure(entity.m_class) != '\0'
                ? formatted("%.9g", model.geometry().measure(entity.m_number))
                : "";
        text += formatted("%9u %5d %-14.14s %6u %16s %-3s ", entity.m_number,
                          static_cast<int>(entity.m_class),
                          std::string(host::geometry::typeNameOf(entity.m_class)).c_str(),
                          entity.m_body, measure.c_str(), unitOfMeasure(entity.m_class));
        for (std::string_view const answer : answersFor(model.reference(entity.m_number))) {
            text += ' ';
            text += answer;
        }
        text += '\n';
    }
}

}  // namespace

std::string textReport(Model const& model, ReportDepth depth)
{
    GeometryModel const& geometry = model.geometry();
    std::string text;
    appendHead(text, geometry);
    for (Instance const& root : geometry.m_roots) {
        appendNode(text, geometry, root, "", "");
    }
    if (depth == ReportDepth::entities) {
        for (std::size_t part = 0; part < geometry.m_parts.size(); ++part) {
            appendPart(text, model, part);
        }
    }
    return text;
}

}  // namespace vrn::orlo::app
