// Questions about elements and nodes of a mesh file.

#include "apps/orlo/console.h"
#include "apps/orlo/meshscene.h"
#include "apps/orlo/query.h"
#include "apps/orlo/usageerror.h"
#include "host/meshing/meshedpart.h"
#include "host/meshing/names.h"
#include "platform/typenames/femesh.h"
#include "plugins/modelingplugin/utilities/geometrymesh/femeshea.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::app {

namespace {

using host::display::MeshClass;
using host::meshing::LocalNumber;
using host::meshing::MeshedPart;
using host::meshing::MeshStore;
using host::meshing::Numbering;
using plugin::modeling::EntityTypeID;
using plugin::modeling::FEMeshEA;
using plugin::modeling::MeshHelper;
using plugin::modeling::PluginHelper;

using MeshPart = KFRSmartPointer<CAE::IMeshPartInterface>;

std::string typeNameOf(CAE::EntityReference const& reference)
{
    std::string name;
    return EntityTypeID::nameOf(reference.typeId).toUTF8String(name);
}

Json facesOf(MeshPart const& mesh, unsigned long long element)
{
    Json faces = Json::array();
    KFRDouble3DPoint centre;
    KFRDouble3DPoint normal;
    KFRSequence<long long> nodes;
    constexpr int kMostFaces = 6;
    for (int face = 0; face < kMostFaces; ++face) {
        nodes.clear();
        if (!MeshHelper::getElemFaceLocNormal(mesh, element, face, centre, normal, nodes).isOk()) {
            break;
        }
        faces.push_back({{"face", face},
                         {"centre", toJson(centre)},
                         {"normal", toJson(normal)},
                         {"nodes", std::vector<long long>(nodes.begin(), nodes.end())}});
    }
    return faces;
}

class MeshQuery final : public QuerySource {
public:
    MeshQuery(Session& session, QueryOptions const& options)
        : m_session(session),
          m_part(options.m_part),
          m_takesNodes(options.m_filters.empty()),
          m_mesh(host::meshing::loadMesh(options.m_file, session.kernel().typeRegistry(),
                                         session.application().entityService(),
                                         &session.application().entities()))
    {
        for (std::string const& warning : m_mesh.m_warnings) {
            reportWarning(warning);
        }
        if (isAnySet(settingsOf(options.m_mesh))) {
            throw UsageError(options.m_file.string() +
                             ": it is a mesh already; leave the options of meshing out");
        }
    }

    Json ofEntity(unsigned long long id) override
    {
        auto const [part, number] = find(id, "element", &MeshStore::elements);
        return element(*part, number);
    }

    Json ofNode(unsigned long long id) override
    {
        auto const [part, number] = find(id, "node", &MeshStore::nodes);
        return node(*part, number);
    }

    std::vector<QueryHit> at(PixelOptions const& pixel) override
    {
        std::vector<MeshClass> classes{MeshClass::element};
        if (m_takesNodes) {
            classes.push_back(MeshClass::node);
        }
        auto const& filter = m_session.application().selection().pickFilters();
        std::vector<QueryHit> hits;
        for (MeshScene::Hit const& found : MeshScene(m_mesh).at(pixel, classes)) {
            MeshedPart& part = *m_mesh.m_parts[found.m_part];
            auto const& [meshClass, face, hit] = found.m_hit;
            LocalNumber const number = hit.m_number;
            Json const place = {{"part", storeOf(part).name()},
                                {"instance", nameOf(part.instances()[hit.m_instance])},
                                {"depth", hit.m_depth},
                                {"point", hit.m_point}};
            if (meshClass == MeshClass::node) {
                Json json = {{"node", storeOf(part).nodes().idOf(number)}};
                json.update(place);
                hits.push_back({std::move(json), [&part, number] {
                                    return node(part, number);
                                }});
            } else if (m_takesNodes || filter.isPickable(part.elementReference(number))) {
                Json json = {{"element", storeOf(part).elements().idOf(number)}, {"face", face}};
                json.update(place);
                hits.push_back({std::move(json), [&part, number] {
                                    return element(part, number);
                                }});
            }
        }
        return hits;
    }

private:
    static MeshStore const& storeOf(MeshedPart const& part)
    {
        return part.meshPart()->tables()->store();
    }

    using NumberingOf = Numbering const& (MeshStore::*)() const noexcept;

    /// "1 to 6044 in plate"
    static std::string idsIn(MeshStore const& store, NumberingOf numbering)
    {
        auto const& ids = (store.*numbering)().ids();
        if (ids.empty()) {
            return "none in " + store.name();
        }
        auto const [least, greatest] = std::ranges::minmax(ids);
        return std::to_string(least) + " to " + std::to_string(greatest) + " in " + store.name();
    }

    /// The first part that has the id. Ids may repeat from part to part, which a warning tells.
    std::pair<MeshedPart*, LocalNumber> find(unsigned long long id, std::string const& what,
                                             NumberingOf numbering) const
    {
        std::pair<MeshedPart*, LocalNumber> first{};
        std::string others;
        for (auto const& part : m_mesh.m_parts) {
            MeshStore const& store = storeOf(*part);
            bool const isMeant = m_part.empty() || host::meshing::isSameName(store.name(), m_part);
            LocalNumber const number =
                isMeant ? (store.*numbering)().numberOf(static_cast<host::meshing::ExternalId>(id))
                        : 0;
            if (number != 0 && first.first != nullptr) {
                others += ", " + store.name();
            } else if (number != 0) {
                first = {part.get(), number};
            }
        }
        if (first.first == nullptr) {
            std::string parts;
            for (auto const& part : m_mesh.m_parts) {
                parts += (parts.empty() ? "" : ", ") + idsIn(storeOf(*part), numbering);
            }
            throw UsageError("there is no " + what + " " + std::to_string(id) +
                             (m_part.empty() ? "" : " in a part \"" + m_part + "\"") +
                             "; the ids are " + parts);
        }
        if (!others.empty()) {
            reportWarning("the " + what + " " + std::to_string(id) + " is the one of part " +
                          storeOf(*first.first).name() +
                          "; --part chooses another: " + others.substr(2));
        }
        return first;
    }

    static Json element(MeshedPart& part, LocalNumber number)
    {
        MeshStore const& store = storeOf(part);
        auto const id = static_cast<unsigned long long>(store.elements().idOf(number));
        CAE::EntityReference const reference = part.elementReference(number);
        // Not by the reference, which point elements have none of.
        MeshPart const mesh(part.meshPart());
        KFRSmartPointer<CAE::IPersistentObjectInterface> const object(&part);
        KFRDouble3DPoint centre;
        KFRDouble3DPoint normal;
        KFRSequence<long long> nodes;
        MeshHelper::getElemLocationAndNormal(mesh, id, centre, normal, nodes);
        KFRSmartPointer<CAE::IMeshInterface> ownMesh;
        PluginHelper::getMeshByElement(reference, ownMesh);
        Json json = {{"element", id},
                     {"kind", store.typeNameOf(number)},
                     {"type", typeNameOf(reference)},
                     {"part", nameOf(object)},
                     {"firstInstance", nameOf(PluginHelper::getPartInstancebyPart(object))},
                     {"nodes", std::vector<long long>(nodes.begin(), nodes.end())},
                     {"centre", toJson(centre)},
                     {"normal", toJson(normal)},
                     {"faces", facesOf(mesh, id)},
                     {"mesh", describe(ownMesh)},
                     {"meshBody", describe(PluginHelper::getMeshBody(reference))}};
        if (auto const feMesh = KFR::loose_cast<CAE::IFEMeshInterface>(ownMesh);
            feMesh != KFR::NULLSP) {
            json["visible"] = FEMeshEA(feMesh).isVisible();
            json["isOrphan"] = FEMeshEA(feMesh).isOrphan();
        }
        auto const geometry = PluginHelper::getMeshRelatedGeometry(reference);
        json["geometry"] = geometry != KFR::NULLSP ? Json(nameOf(geometry)) : Json(nullptr);
        json["partIsMeshed"] = meshStateOf(object);
        return json;
    }

    static Json node(MeshedPart& part, LocalNumber number)
    {
        KFRSmartPointer<CAE::IPersistentObjectInterface> const object(&part);
        CAE::EntityReference const reference{object, EntityTypeID(typenames::kFemNode).typeID(),
                                             number, 0};
        MeshPart const mesh = PluginHelper::getMeshPartByNode(reference);
        Json elements = Json::array();
        KFRSmartPointer<CAE::INodeInterface> handle;
        CAE::IElementSequence connected;
        if (mesh != KFR::NULLSP && mesh->getNodeById(number, handle, false).isOk() &&
            mesh->getElementsConnectedTo(handle, connected).isOk()) {
            for (auto const& neighbour : connected) {
                unsigned long long id = 0;
                static_cast<void>(neighbour->getId(id));
                elements.push_back(id);
            }
        }
        return {{"node", storeOf(part).nodes().idOf(number)},
                {"type", typeNameOf(reference)},
                {"part", nameOf(object)},
                {"location", toJson(PluginHelper::getNodeLocation(reference))},
                {"isConnected", MeshHelper::isConnectedNode(reference)},
                {"elements", std::move(elements)},
                {"meshBody", describe(PluginHelper::getMeshBody(reference))},
                {"partIsMeshed", meshStateOf(object)}};
    }

    Session& m_session;
    std::string m_part;
    bool m_takesNodes;
    host::meshing::LoadedMesh m_mesh;
};

}  // namespace

std::unique_ptr<QuerySource> openMeshQuery(Session& session, QueryOptions const& options)
{
    return std::make_unique<MeshQuery>(session, options);
}

}  // namespace vrn::orlo::app
