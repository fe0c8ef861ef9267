#include "host/modelspace/modelmesher.h"

#include "host/commands/undorecord.h"
#include "host/meshing/remesh.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace vrn::orlo::host::modelspace {

namespace {

void checkRequest(geometry::GeometryModel const& geometry, MeshRequest const& request)
{
    for (auto const& [part, size] : request.m_partSizes) {
        if (part >= geometry.m_parts.size()) {
            throw std::invalid_argument("the mesh size " + std::to_string(size) +
                                        " is for a part that is not there");
        }
    }
    for (auto const& [face, size] : request.m_options.m_faceSizes) {
        geometry::Entity const* const entity = geometry.entity(face);
        if (entity == nullptr || entity->m_class != geometry::EntityClass::face) {
            throw std::invalid_argument("the mesh size " + std::to_string(size) + " is for #" +
                                        std::to_string(face) +
                                        ", which is no face; `orlo inspect` lists them");
        }
    }
}

meshing::MeshOptions optionsOf(geometry::GeometryModel const& geometry, std::size_t part,
                               MeshRequest const& request)
{
    meshing::MeshOptions options = request.m_options;
    if (auto const own = request.m_partSizes.find(part); own != request.m_partSizes.end()) {
        options.m_size = own->second;
    }
    std::erase_if(options.m_faceSizes,
                  [&](auto const& row) { return geometry.entity(row.first)->m_part != part; });
    return options;
}

/// The highest id of a numbering, and one more.
meshing::ExternalId nextId(meshing::Numbering const& numbering, meshing::ExternalId first)
{
    meshing::ExternalId next = first;
    for (meshing::ExternalId const id : numbering.ids()) {
        next = std::max(next, id + 1);
    }
    return next;
}

}  // namespace

std::vector<PartMeshReport> meshModel(model::Model& model, MeshRequest const& request,
                                      meshing::MeshTypes const& types,
                                      std::shared_ptr<model::EntityService> const& service,
                                      commands::UndoStack* history,
                                      meshing::MeshProgress const& progress)
{
    geometry::GeometryModel const& geometry = model.geometry();
    checkRequest(geometry, request);

    // All meshes first: a size that is wrong for the last part changes nothing in the first.
    std::vector<PartMeshReport> reports;
    std::vector<std::shared_ptr<meshing::MeshStore const>> stores;
    MeshRequest next = request;
    auto const count = static_cast<double>(model.parts().size());
    for (std::size_t part = 0; part < model.parts().size(); ++part) {
        if (model.parts()[part]->isDeleted()) {
            continue;
        }
        meshing::MeshedPartResult result =
            meshing::meshPart(geometry, part, optionsOf(geometry, part, next),
                              [&](double fraction, std::string const& step) {
                                  if (progress) {
                                      progress((static_cast<double>(part) + fraction) / count,
                                               geometry.m_parts[part].m_name + ": " + step);
                                  }
                              });
        PartMeshReport report;
        report.m_part = part;
        report.m_straightened = result.m_straightened;
        report.m_failures = std::move(result.m_failures);
        if (result.m_store != nullptr) {
            report.m_nodes = result.m_store->nodes().size();
            report.m_elements = result.m_store->elements().size();
            auto& options = next.m_options;
            options.m_firstNodeId = nextId(result.m_store->nodes(), options.m_firstNodeId);
            options.m_firstElementId = nextId(result.m_store->elements(), options.m_firstElementId);
        }
        reports.push_back(std::move(report));
        stores.push_back(std::move(result.m_store));
    }

    model::EntityService::Batch const batch(service);
    std::vector<commands::Step> steps;
    for (std::size_t i = 0; i < reports.size(); ++i) {
        if (stores[i] == nullptr) {
            continue;
        }
        // Not null: deleted parts were passed over.
        auto const step =
            meshing::installMesh(model.parts()[reports[i].m_part], stores[i], types, service);
        steps.push_back(commands::makeStep([step] { return step->revert(); },
                                           [step] { return step->apply(); }));
    }
    if (history != nullptr && !steps.empty()) {
        history->add("Mesh", KFR::make<commands::UndoRecord>(std::move(steps)));
    }
    return reports;
}

}  // namespace vrn::orlo::host::modelspace
