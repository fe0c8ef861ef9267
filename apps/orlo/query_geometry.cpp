// Questions about entities of a geometry, and about the mesh on them.

#include "apps/orlo/console.h"
#include "apps/orlo/loadmodel.h"
#include "apps/orlo/meshrun.h"
#include "apps/orlo/pickfilters.h"
#include "apps/orlo/query.h"
#include "apps/orlo/usageerror.h"
#include "host/display/pixelpicker.h"
#include "host/geometry/geometrypicker.h"
#include "host/geometry/geometryqueries.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"

#include <array>
#include <utility>

namespace vrn::orlo::app {

namespace {

using host::display::PixelHit;
using host::model::Model;
using plugin::modeling::EntityTypeID;
using plugin::modeling::GeomTopo;
using plugin::modeling::MeshHelper;
using plugin::modeling::PluginHelper;

template <class Answer>
struct Question {
    char const* m_label;
    Answer (*m_ask)(GeomTopo const&);
};

template <auto Member>
auto asked(GeomTopo const& entity)
{
    return (entity.*Member)();
}

// clang-format off
constexpr std::array<Question<bool>, 17> kPredicates{{
    {"isBody",              asked<&GeomTopo::isBody>},
    {"is3DBody",            asked<&GeomTopo::is3DBody>},
    {"is2DBody",            asked<&GeomTopo::is2DBody>},
    {"is1DBody",            asked<&GeomTopo::is1DBody>},
    {"isAcornBody",         asked<&GeomTopo::isAcornBody>},
    {"isSheetBody",         asked<&GeomTopo::isSheetBody>},
    {"isFacetSheetBody",    asked<&GeomTopo::isFacetSheetBody>},
    {"isFacetBody",         asked<&GeomTopo::isFacetBody>},
    {"isRegion",            asked<&GeomTopo::isRegion>},
    {"isFace",              asked<&GeomTopo::isFace>},
    {"isEdge",              asked<&GeomTopo::isEdge>},
    {"isSubEdge",           asked<&GeomTopo::isSubEdge>},
    {"isVertex",            asked<&GeomTopo::isVertex>},
    {"isValidInGSC",        asked<&GeomTopo::isValidInGSC>},
    {"isVirtual",           asked<&GeomTopo::isVirtual>},
    {"isSuppressedEntity",  asked<&GeomTopo::isSuppressedEntity>},
    {"isStraingtLine",      asked<&GeomTopo::isStraingtLine>},
}};

using Topos = std::vector<GeomTopo>;
constexpr std::array<Question<Topos>, 3> kParents{{
    {"regions",  asked<&GeomTopo::getParentRegions>},
    {"faces",    asked<&GeomTopo::getParentFaces>},
    {"edges",    asked<&GeomTopo::getParentEdges>},
}};
constexpr std::array<Question<Topos>, 6> kChildren{{
    {"regions",    asked<&GeomTopo::getChildRegions>},
    {"faces",      asked<&GeomTopo::getChildFaces>},
    {"edges",      asked<&GeomTopo::getChildEdges>},
    {"vertices",   asked<&GeomTopo::getChildVertices>},
    {"hardPoints", asked<&GeomTopo::getChildHardPoints>},
    {"subEdges",   asked<&GeomTopo::getSubEdges>},
}};
constexpr std::array<Question<bool>, 5> kMeshPredicates{{
    {"isMeshed",     asked<&GeomTopo::isMeshed>},
    {"hasMesh",      asked<&GeomTopo::hasMesh>},
    {"has2DMesh",    asked<&GeomTopo::has2DMesh>},
    {"has3DMesh",    asked<&GeomTopo::has3DMesh>},
    {"isFullMeshed", asked<&GeomTopo::isFullMeshed>},
}};
// clang-format on

std::string typeNameOf(GeomTopo const& entity)
{
    std::string name;
    return EntityTypeID::nameOf(entity.getTypeId()).toUTF8String(name);
}

template <std::size_t N>
Json related(GeomTopo const& entity, std::array<Question<Topos>, N> const& questions)
{
    Json json = Json::object();
    for (auto const& question : questions) {
        Json numbers = Json::array();
        for (GeomTopo const& other : question.m_ask(entity)) {
            numbers.push_back(other.getVTKId());
        }
        if (!numbers.empty()) {
            json[question.m_label] = std::move(numbers);
        }
    }
    return json;
}

template <std::size_t N>
Json trueOnes(GeomTopo const& entity, std::array<Question<bool>, N> const& questions)
{
    Json names = Json::array();
    for (auto const& question : questions) {
        if (question.m_ask(entity)) {
            names.push_back(question.m_label);
        }
    }
    return names;
}

void addPlaces(GeomTopo const& entity, Json& json)
{
    if (entity.isFace()) {
        json["area"] = entity.getArea();
    }
    if (entity.isEdge()) {
        json["length"] = entity.getLength();
    }
    if (entity.isFace() || entity.isEdge()) {
        json["periodic"] = entity.getPeriodic();
    }
    KFRDouble3DPoint point;
    KFRDouble3DPoint other;
    if (entity.getMidPoint(point)) {
        json["midPoint"] = toJson(point);
        if (entity.isFace() && entity.getNormal(point, other)) {
            json["normal"] = toJson(other);
        }
    }
    if (entity.isEdge() && entity.getEndPointsOfEdge(point, other)) {
        json["endPoints"] = {toJson(point), toJson(other)};
    }
}

/// The mean of the normals of the elements on an entity, and of how many.
Json averageNormal(CAE::EntityReference const& reference)
{
    KFRDouble3DPointSequence points;
    KFRDouble3DPointSequence normals;
    if (!MeshHelper::getDistributedPointsOnExistMesh(reference, points, normals) ||
        normals.size() == 0) {
        return nullptr;
    }
    KFRDouble3DPoint mean;
    for (KFRDouble3DPoint const& normal : normals) {
        mean.x += normal.x / static_cast<double>(normals.size());
        mean.y += normal.y / static_cast<double>(normals.size());
        mean.z += normal.z / static_cast<double>(normals.size());
    }
    return {{"elements", normals.size()}, {"mean", toJson(mean)}};
}

Json meshOn(GeomTopo const& entity, CAE::EntityReference const& reference, KFRIService const& part)
{
    Json json = {{"is", trueOnes(entity, kMeshPredicates)},
                 {"elements", entity.getElementIds().size()},
                 {"nodes", entity.getNodes().size()},
                 {"meshBody", describe(entity.getIMeshBody())}};
    constexpr std::array<unsigned char, 3> kDimensions{1, 2, 3};
    for (unsigned char const dimension : kDimensions) {
        auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(entity.getContinuousMesh(dimension));
        if (mesh != KFR::NULLSP) {
            json["continuous" + std::to_string(dimension) + "D"] = describe(mesh);
        }
    }
    if (auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(entity.getSubMesh());
        mesh != KFR::NULLSP) {
        json["subMesh"] = describe(mesh);
    }
    Json meshes = Json::array();
    for (auto const& mesh : entity.getAllGeometryRefMesh()) {
        meshes.push_back(describe(mesh));
    }
    json["meshes"] = std::move(meshes);
    if (Json normals = averageNormal(reference); !normals.is_null()) {
        json["elementNormals"] = std::move(normals);
    }
    if (entity.isBody()) {
        json["facesWithMesh"] = PluginHelper::checkFaceMeshForBody(reference);
    }
    json["partIsMeshed"] = meshStateOf(part);
    auto const whole = KFR::loose_cast<CAE::IPartInterface>(part);
    json["partBodies"] = PluginHelper::getValidGeomBodyNumber(whole);
    json["partMeshBodies"] = PluginHelper::getValidMeshBodyNumber(whole);
    return json;
}

class GeometryQuery final : public QuerySource {
public:
    GeometryQuery(Session& session, QueryOptions const& options)
        : m_session(session), m_model(loadModel(session, options.m_file))
    {
        if (MeshSettings const settings = settingsOf(options.m_mesh); isAnySet(settings)) {
            static_cast<void>(meshWithProgress(session, *m_model, settings));
        }
    }

    Json ofEntity(unsigned long long number) override
    {
        auto const& geometry = m_model->geometry();
        if (number == 0 || number > geometry.m_entities.back().m_number ||
            geometry.entity(static_cast<unsigned>(number)) == nullptr) {
            throw UsageError("--entity " + std::to_string(number) + ": the file has entities " +
                             std::to_string(geometry.firstNumber()) + " to " +
                             std::to_string(geometry.m_entities.back().m_number));
        }
        return answer(static_cast<unsigned>(number));
    }

    Json ofNode(unsigned long long id) override
    {
        throw UsageError("--node " + std::to_string(id) +
                         ": geometry has no nodes; write its mesh with `orlo mesh`, and ask that");
    }

    std::vector<QueryHit> at(PixelOptions const& pixel) override
    {
        auto const& geometry = m_model->geometry();
        host::display::Camera const camera =
            cameraOf(pixel, {geometry.m_box.m_min, geometry.m_box.m_max});
        m_session.application().viewport().setCamera(camera);
        host::geometry::GeometryPicker const instances(geometry);
        host::geometry::GeometryQueries const queries(geometry);
        host::display::PixelPicker const picker(geometry, instances, queries);
        auto const classes = pickableClasses(m_session.application().selection().pickFilters());
        std::vector<QueryHit> hits;
        for (PixelHit const& hit : picker.at(camera, pixel.m_pixel[0], pixel.m_pixel[1], classes)) {
            auto const& instance = instances.instances()[hit.m_instance];
            hits.push_back({{{"entity", hit.m_number},
                             {"type", typeNameOf(GeomTopo(static_cast<int>(hit.m_number)))},
                             {"instance", instance.m_leaf->m_name},
                             {"depth", hit.m_depth},
                             {"point", hit.m_point}},
                            [this, number = hit.m_number] {
                                return answer(number);
                            }});
        }
        return hits;
    }

private:
    [[nodiscard]] Json answer(unsigned number) const
    {
        GeomTopo const entity(static_cast<int>(number));
        Json json = {
            {"entity", number}, {"class", entity.tryGetBodyType()}, {"type", typeNameOf(entity)}};
        if (entity.isBody()) {
            json["dimension"] = entity.tryGetBodyDimension();
        }
        json["is"] = trueOnes(entity, kPredicates);
        auto const part = PluginHelper::getPart(
            KFR::loose_cast<CAE::IPersistentObjectInterface>(entity.getIGeometry()));
        json["part"] = nameOf(part);
        json["firstInstance"] = nameOf(PluginHelper::getPartInstancebyPart(part));
        json["visible"] = entity.isVisible();
        json["body"] = entity.getParentBody().getVTKId();
        json["parents"] = related(entity, kParents);
        json["children"] = related(entity, kChildren);
        addPlaces(entity, json);
        json["mesh"] = meshOn(entity, m_model->reference(number), part);
        return json;
    }

    Session& m_session;
    std::unique_ptr<Model> m_model;
};

}  // namespace

std::unique_ptr<QuerySource> openGeometryQuery(Session& session, QueryOptions const& options)
{
    return std::make_unique<GeometryQuery>(session, options);
}

}  // namespace vrn::orlo::app
