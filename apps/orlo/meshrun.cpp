#include "apps/orlo/meshrun.h"

#include "apps/orlo/console.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshmeasure.h"
#include "apps/orlo/usageerror.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/placement.h"
#include "host/meshing/meshtypes.h"
#include "host/modelfile/modelfile.h"
#include "host/modelspace/modelmesher.h"
#include "host/modelspace/modelwriter.h"
#include "platform/kfr/numbertext.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::app {

namespace {

using host::meshing::LocalNumber;
using host::meshing::MeshStore;
using host::model::Model;

PartMeshRow rowOf(Model const& model, std::size_t index, MeshStore const& store)
{
    auto const& part = model.geometry().m_parts[index];
    PartMeshRow row;
    row.m_part = part.m_name;
    row.m_instances = part.m_instanceCount;
    std::vector<bool> hasMesh(store.bodies().size());
    for (LocalNumber element = 1; element <= store.elements().size(); ++element) {
        ++row.m_elements[store.typeNameOf(element)];
        hasMesh[store.groups()[store.groupOf(element)].m_body] = true;
    }
    row.m_bodies = static_cast<std::size_t>(std::count(hasMesh.begin(), hasMesh.end(), true));
    row.m_nodes = store.nodes().size();
    MeshMeasure const measure = measureOf(store);
    row.m_volume = measure.m_volume;
    row.m_area = measure.m_area;
    row.m_length = measure.m_length;
    return row;
}

/// Adds a part as one instance shows it.
void addInstance(PartMeshRow const& part, double scale, PartMeshRow& total)
{
    ++total.m_instances;
    total.m_bodies += part.m_bodies;
    total.m_nodes += part.m_nodes;
    for (auto const& [type, count] : part.m_elements) {
        total.m_elements[type] += count;
    }
    total.m_volume += part.m_volume * scale * scale * scale;
    total.m_area += part.m_area * scale * scale;
    total.m_length += part.m_length * scale;
    if (part.m_straightened.has_value()) {
        total.m_straightened = total.m_straightened.value_or(0) + *part.m_straightened;
    }
}

MeshSummary summaryWith(Model const& model, std::map<std::size_t, std::size_t> const& straightened)
{
    MeshSummary summary;
    std::map<std::size_t, std::size_t> rows;  // of parts
    for (std::size_t part = 0; part < model.parts().size(); ++part) {
        if (auto const store = host::modelspace::meshOf(model, part)) {
            rows[part] = summary.m_parts.size();
            summary.m_parts.push_back(rowOf(model, part, *store));
            if (auto const found = straightened.find(part); found != straightened.end()) {
                summary.m_parts.back().m_straightened = found->second;
            }
        }
    }
    host::geometry::GeometryPicker const picker(model.geometry());
    for (auto const& instance : picker.instances()) {
        if (auto const row = rows.find(instance.m_part); row != rows.end()) {
            addInstance(summary.m_parts[row->second],
                        std::cbrt(std::abs(host::geometry::determinant(instance.m_placement))),
                        summary.m_total);
        }
    }
    return summary;
}

std::string cellOf(double measure)
{
    return measure > 0.0 ? KFR::numberText(std::round(measure * 1e3) / 1e3) : "-";
}

std::string cellOf(std::map<std::string, std::size_t> const& elements)
{
    std::string text;
    for (auto const& [type, count] : elements) {
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " " + type;
    }
    return text;
}

std::vector<std::string> cellsOf(std::string const& name, PartMeshRow const& row)
{
    return {name,
            std::to_string(row.m_instances),
            std::to_string(row.m_bodies),
            std::to_string(row.m_nodes),
            cellOf(row.m_volume),
            cellOf(row.m_area),
            cellOf(row.m_length),
            row.m_straightened.has_value() ? std::to_string(*row.m_straightened) : "-",
            cellOf(row.m_elements)};
}

}  // namespace

MeshSummary meshWithProgress(Session& session, Model& model, MeshSettings const& settings)
{
    host::modelspace::MeshRequest const request = requestOf(settings, model);
    host::meshing::MeshTypes const types(session.kernel().typeRegistry());
    std::vector<host::modelspace::PartMeshReport> reports;
    try {
        ProgressLine progress;
        reports = host::modelspace::meshModel(
            model, request, types, session.application().entityService(),
            &session.application().processor().history(),
            [&progress](double fraction, std::string const& step) {
                progress.show(fraction, step);
            });
    } catch (std::invalid_argument const& error) {
        throw UsageError(error.what());
    }
    std::map<std::size_t, std::size_t> straightened;
    bool isWhole = true;
    for (auto const& report : reports) {
        straightened[report.m_part] = report.m_straightened;
        isWhole = isWhole && report.m_failures.empty();
        for (auto const& failure : report.m_failures) {
            reportWarning("part \"" + model.parts()[report.m_part]->name() + "\", body #" +
                          std::to_string(failure.m_body) + " has no mesh: " + failure.m_reason);
        }
    }
    MeshSummary summary = summaryWith(model, straightened);
    summary.m_isWhole = isWhole;
    return summary;
}

MeshSummary summaryOf(Model const& model)
{
    return summaryWith(model, {});
}

std::string textOf(MeshSummary const& summary)
{
    std::vector<std::vector<std::string>> rows{{"mesh of", "instances", "bodies", "nodes",
                                                "volume mm3", "area mm2", "length mm",
                                                "straightened", "elements"}};
    for (PartMeshRow const& part : summary.m_parts) {
        rows.push_back(cellsOf(part.m_part, part));
    }
    rows.push_back(cellsOf("all instances", summary.m_total));
    std::vector<std::size_t> widths(rows.front().size());
    for (auto const& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            widths[i] = std::max(widths[i], row[i].size());
        }
    }
    std::string text;
    for (auto const& row : rows) {
        text += row[0] + std::string(widths[0] - row[0].size(), ' ');
        for (std::size_t i = 1; i + 1 < row.size(); ++i) {
            text += "  " + std::string(widths[i] - row[i].size(), ' ') + row[i];
        }
        text += "  " + row.back() + "\n";
    }
    return text;
}

void requireMeshEnding(std::filesystem::path const& file)
{
    std::string const ending = endingOf(file);
    if (ending != ".inp" && ending != ".msh" && ending != ".orlo") {
        throw UsageError(file.string() +
                         ": no mesh is written with this ending; give .inp, .msh or .orlo");
    }
}

void writeMesh(Model const& model, std::filesystem::path const& source,
               MeshSettings const& settings, std::filesystem::path const& file)
{
    requireMeshEnding(file);
    std::string const ending = endingOf(file);
    if (ending == ".inp") {
        host::modelspace::writeAbaqusModel(model, file);
    } else if (ending == ".msh") {
        host::modelspace::writeGmshModel(model, file);
    } else {
        GeometrySource geometry = geometrySourceOf(source);
        host::modelfile::ModelFile kept{
            std::move(geometry.m_name), std::move(geometry.m_bytes), {}, {}};
        for (std::size_t part = 0; part < model.parts().size(); ++part) {
            if (auto const store = host::modelspace::meshOf(model, part)) {
                kept.m_meshes.push_back(
                    {model.parts()[part]->name(), static_cast<unsigned>(part), store});
            }
        }
        kept.m_notes["size"] = KFR::numberText(settings.m_size.value_or(0.0)) + " mm";
        kept.m_notes["order"] = std::to_string(settings.m_order.value_or(1));
        host::modelfile::writeModelFile(file, kept, model.geometry().firstNumber());
    }
    std::fprintf(stderr, "wrote %s\n", file.string().c_str());
}

}  // namespace vrn::orlo::app
