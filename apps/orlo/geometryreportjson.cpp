#include "apps/orlo/answers.h"
#include "apps/orlo/geometryreport.h"
#include "apps/orlo/meshrun.h"

#include <nlohmann/json.hpp>

namespace vrn::orlo::app {

using host::geometry::Box;
using host::geometry::Counts;
using host::geometry::Entity;
using host::geometry::GeometryModel;
using host::geometry::Instance;
using host::geometry::Part;
using host::model::Model;
using Json = nlohmann::ordered_json;

namespace {

Json toJson(Counts const& counts)
{
    return {{"solids", counts.m_solids}, {"sheets", counts.m_sheets},    {"wires", counts.m_wires},
            {"points", counts.m_points}, {"volumes", counts.m_volumes},  {"faces", counts.m_faces},
            {"edges", counts.m_edges},   {"vertices", counts.m_vertices}};
}

Json toJson(Box const& box)
{
    if (box.isEmpty()) {
        return nullptr;
    }
    return {{"min", box.m_min}, {"max", box.m_max}};
}

Json toJson(Instance const& node, bool isRoot)
{
    Json json = {{"name", node.m_name},
                 {"product", node.m_productName},
                 {"type", Model::typeNameOf(node, isRoot)}};
    if (node.m_part != Instance::kNoPart) {
        json["part"] = node.m_part;
    }
    if (!node.m_placement.isIdentity()) {
        json["placement"] = node.m_placement.m_rows;
    }
    if (!node.m_children.empty()) {
        Json& children = json["children"] = Json::array();
        for (Instance const& child : node.m_children) {
            children.push_back(toJson(child, false));
        }
    }
    return json;
}

Json toJson(Model const& model, std::size_t index)
{
    GeometryModel const& geometry = model.geometry();
    Part const& part = geometry.m_parts[index];
    Json entities = Json::array();
    for (Entity const& entity : geometry.entitiesOf(index)) {
        entities.push_back({{"number", entity.m_number},
                            {"class", static_cast<int>(entity.m_class)},
                            {"type", host::geometry::typeNameOf(entity.m_class)},
                            {"body", entity.m_body},
                            {"measure", geometry.measure(entity.m_number)},
                            {"answers", answersFor(model.reference(entity.m_number))}});
    }
    return {{"name", part.m_name},
            {"instances", part.m_instanceCount},
            {"answers", answersFor(model.partReference(index))},
            {"counts", toJson(part.m_counts)},
            {"box", toJson(part.m_box)},
            {"volume", geometry.volumeOf(index)},
            {"entities", std::move(entities)}};
}

Json toJson(PartMeshRow const& row)
{
    Json json = {{"part", row.m_part},   {"instances", row.m_instances}, {"bodies", row.m_bodies},
                 {"nodes", row.m_nodes}, {"elements", row.m_elements},   {"volume", row.m_volume},
                 {"area", row.m_area},   {"length", row.m_length}};
    if (row.m_straightened.has_value()) {
        json["straightened"] = *row.m_straightened;
    }
    return json;
}

Json toJson(MeshSummary const& mesh)
{
    Json parts = Json::array();
    for (PartMeshRow const& row : mesh.m_parts) {
        parts.push_back(toJson(row));
    }
    Json total = toJson(mesh.m_total);
    total.erase("part");
    return {{"parts", std::move(parts)}, {"total", std::move(total)}};
}

}  // namespace

std::string jsonReport(Model const& model, MeshSummary const* mesh)
{
    GeometryModel const& geometry = model.geometry();
    Json tree = Json::array();
    for (Instance const& root : geometry.m_roots) {
        tree.push_back(toJson(root, true));
    }
    Json parts = Json::array();
    for (std::size_t part = 0; part < geometry.m_parts.size(); ++part) {
        parts.push_back(toJson(model, part));
    }
    Json document = {
        {"file", geometry.m_sourceFile},
        {"lengthUnit",
         {{"name", geometry.m_unit.m_name}, {"millimetres", geometry.m_unit.m_millimetres}}},
        {"box", toJson(geometry.m_box)},
        {"volume", geometry.volume()},
        {"counts", toJson(geometry.m_totals)},
        {"assemblies", geometry.m_assemblyCount},
        {"warnings", geometry.m_warnings},
        {"tree", std::move(tree)},
        {"parts", std::move(parts)}};
    if (mesh != nullptr) {
        document["mesh"] = toJson(*mesh);
    }
    // Names that are no UTF-8 after all must not cost the user the report.
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace vrn::orlo::app
