#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"

#include "platform/kfr/kfrexception.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"
#include "plugins/modelingplugin/utilities/componentframe/userexception.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"
#include "plugins/modelingplugin/utilities/identity/pluginhelper.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// The server's classes of bodies.
struct BodyClass {
    int m_class;
    int m_dimension;
    bool m_isFacet;
};

// clang-format off
constexpr std::array kBodyClasses{
    BodyClass{ 7, 3, false},
    BodyClass{ 8, 2, false},
    BodyClass{ 9, 1, false},
    BodyClass{10, 0, false},
    BodyClass{11, 2, false},
    BodyClass{12, 3, true},
    BodyClass{13, 2, true},
    BodyClass{14, 1, true},
    BodyClass{15, 2, true},
};
// clang-format on

constexpr int kSheetBodyClass = 8;
constexpr int kFacetSheetBodyClass = 13;

BodyClass const* bodyClass(int entityClass)
{
    auto const* const row =
        std::find_if(kBodyClasses.begin(), kBodyClasses.end(),
                     [&](BodyClass const& known) { return known.m_class == entityClass; });
    return row != kBodyClasses.end() ? row : nullptr;
}

template <class Object>
int numberOf(Object const& object)
{
    int number = 0;
    if (object != NULLSP) {
        static_cast<void>(object->getNumber(number));
    }
    return number;
}

/// Children or parents of a class.
std::vector<GeomTopo> related(int number, int entityClass,
                              KFRResult (gsc::GSCIQueryTool::*ask)(int, int, KFRSequence<int>&))
{
    KFRSequence<int> numbers;
    if (auto const tool = geometryaccess::queryTool(); tool != NULLSP) {
        static_cast<void>(((*tool).*ask)(number, entityClass, numbers));
    }
    return {std::as_const(numbers).begin(), std::as_const(numbers).end()};
}

/// Least members of sets that grow together.
class Sets {
public:
    explicit Sets(std::size_t count) : m_leader(count)
    {
        std::iota(m_leader.begin(), m_leader.end(), std::size_t{0});
    }
    std::size_t find(std::size_t member)
    {
        while (m_leader[member] != member) {
            member = m_leader[member] = m_leader[m_leader[member]];
        }
        return member;
    }
    void join(std::size_t a, std::size_t b)
    {
        auto const [low, high] = std::minmax({find(a), find(b)});
        m_leader[high] = low;
    }

private:
    std::vector<std::size_t> m_leader;
};

}  // namespace

GeomTopo::GeomTopo(KFRSmartPointer<CAE::IGeometryInterface> const& geometry)
    : m_vtkId(numberOf(geometry))
{
}

GeomTopo::GeomTopo(KFRSmartPointer<CAE::IGeomBodyInterface> const& body) : m_vtkId(numberOf(body))
{
}

// --- What it is ---------------------------------------------------------------------------------

int GeomTopo::tryGetBodyType() const
{
    int entityClass = -1;
    if (auto const tool = geometryaccess::queryTool(); tool != NULLSP) {
        static_cast<void>(tool->getClass(m_vtkId, entityClass));
    }
    return entityClass;
}

int GeomTopo::tryGetBodyDimension() const
{
    BodyClass const* const row = bodyClass(tryGetBodyType());
    return row != nullptr ? row->m_dimension : -1;
}

bool GeomTopo::isFacetBody() const
{
    BodyClass const* const row = bodyClass(tryGetBodyType());
    return row != nullptr && row->m_isFacet;
}

bool GeomTopo::isOfClass(int entityClass) const
{
    return tryGetBodyType() == entityClass;
}

bool GeomTopo::isSheetBody() const
{
    return isOfClass(kSheetBodyClass);
}

bool GeomTopo::isFacetSheetBody() const
{
    return isOfClass(kFacetSheetBodyClass);
}

bool GeomTopo::isRegion() const
{
    return isOfClass(gsc::kVolumeClass);
}

bool GeomTopo::isFace() const
{
    return isOfClass(gsc::kFaceClass);
}

bool GeomTopo::isEdge() const
{
    return isOfClass(gsc::kEdgeClass);
}

bool GeomTopo::isSubEdge() const
{
    return isOfClass(gsc::kSubEdgeClass);
}

bool GeomTopo::isVertex() const
{
    return isOfClass(gsc::kVertexClass);
}

bool GeomTopo::isValidInGSC() const
{
    return geometryaccess::entity(m_vtkId) != NULLSP;
}

bool GeomTopo::isVirtual() const
{
    auto const view = geometryaccess::viewOf<gsc::KFRIVTKVirtuable>(m_vtkId);
    bool answer = false;
    return view != NULLSP && view->isVirtual(answer).isOk() && answer;
}

bool GeomTopo::isVisible() const
{
    auto object = KFR::loose_cast<CAE::IPersistentObjectInterface>(getIGeometry());
    bool const isThere = object != NULLSP;
    while (object != NULLSP) {
        KFRAny value;
        bool isShown = true;
        auto const shown = KFR::loose_cast<appfw::IEntityInterface>(object);
        if (shown != NULLSP && shown->getProperty("visible", value).isOk() && (value >>= isShown) &&
            !isShown) {
            return false;
        }
        KFRSmartPointer<CAE::IPersistentObjectInterface> parent;
        static_cast<void>(object->getParent(parent));
        object = parent;
    }
    return isThere;
}

bool GeomTopo::isSuppressedEntity() const
{
    auto const entity = geometryaccess::entity(m_vtkId);
    bool answer = false;
    return entity != NULLSP && entity->isSuppressed(answer).isOk() && answer;
}

bool GeomTopo::isStraingtLine() const
{
    auto const curve = geometryaccess::viewOf<gsc::KFRIVTKCurve>(m_vtkId);
    bool answer = false;
    return curve != NULLSP && curve->isStraight(answer).isOk() && answer;
}

// --- What is around it --------------------------------------------------------------------------

std::vector<GeomTopo> GeomTopo::children(int entityClass) const
{
    return related(m_vtkId, entityClass, &gsc::GSCIQueryTool::getChildren);
}

std::vector<GeomTopo> GeomTopo::parents(int entityClass) const
{
    return related(m_vtkId, entityClass, &gsc::GSCIQueryTool::getParents);
}

std::vector<GeomTopo> GeomTopo::getChildRegions() const
{
    return children(gsc::kVolumeClass);
}

std::vector<GeomTopo> GeomTopo::getChildFaces() const
{
    return children(gsc::kFaceClass);
}

std::vector<GeomTopo> GeomTopo::getChildEdges() const
{
    return children(gsc::kEdgeClass);
}

std::vector<GeomTopo> GeomTopo::getChildVertices() const
{
    return children(gsc::kVertexClass);
}

std::vector<GeomTopo> GeomTopo::getChildHardPoints() const
{
    return children(gsc::kHardPointClass);
}

std::vector<GeomTopo> GeomTopo::getParentRegions() const
{
    return parents(gsc::kVolumeClass);
}

std::vector<GeomTopo> GeomTopo::getParentFaces() const
{
    return parents(gsc::kFaceClass);
}

std::vector<GeomTopo> GeomTopo::getParentEdges() const
{
    return parents(gsc::kEdgeClass);
}

GeomTopo GeomTopo::getParentBody() const
{
    if (isBody()) {
        return *this;
    }
    auto const bodies = parents(gsc::kBodyOfAnyClass);
    return bodies.empty() ? GeomTopo() : bodies.front();
}

std::vector<GeomTopo> GeomTopo::getSubEdges() const
{
    return children(gsc::kSubEdgeClass);
}

std::vector<KFRSmartPointer<gsc::KFRIVTKEntity>> GeomTopo::getSubEdgeEntities() const
{
    std::vector<KFRSmartPointer<gsc::KFRIVTKEntity>> entities;
    for (GeomTopo const& subEdge : getSubEdges()) {
        if (auto entity = geometryaccess::entity(subEdge.m_vtkId); entity != NULLSP) {
            entities.push_back(std::move(entity));
        }
    }
    return entities;
}

std::vector<std::vector<GeomTopo>> GeomTopo::getContinuousFaces(std::vector<GeomTopo> const& faces)
{
    std::vector<GeomTopo> sorted = faces;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());

    std::vector<std::pair<GeomTopo, std::size_t>> edges;  // with the index of a face at each
    for (std::size_t face = 0; face < sorted.size(); ++face) {
        for (GeomTopo const& edge : sorted[face].getChildEdges()) {
            edges.emplace_back(edge, face);
        }
    }
    std::sort(edges.begin(), edges.end());
    Sets sets(sorted.size());
    for (std::size_t i = 1; i < edges.size(); ++i) {
        if (edges[i].first == edges[i - 1].first) {
            sets.join(edges[i].second, edges[i - 1].second);
        }
    }
    std::vector<std::vector<GeomTopo>> result;
    std::vector<std::size_t> place(sorted.size());
    for (std::size_t face = 0; face < sorted.size(); ++face) {
        std::size_t const leader = sets.find(face);
        if (leader == face) {
            place[face] = result.size();
            result.emplace_back();
        }
        result[place[leader]].push_back(sorted[face]);
    }
    return result;
}

btree::btree_set<GeomTopo> GeomTopo::toGTFaces(CAE::IGeometrySequence const& geometries)
{
    btree::btree_set<GeomTopo> topos;
    for (auto const& geometry : geometries) {
        if (geometry != NULLSP) {
            topos.insert(GeomTopo(geometry));
        }
    }
    return topos;
}

// --- The objects behind it ----------------------------------------------------------------------

KFRSmartPointer<CAE::IGeometryInterface> GeomTopo::getIGeometry() const
{
    KFRSmartPointer<CAE::IGeometryInterface> geometry;
    if (auto const session = geometryaccess::session(); session != NULLSP) {
        static_cast<void>(session->getGeometry(m_vtkId, geometry));
    }
    return geometry;
}

KFRSmartPointer<CAE::IGeometryInterface> GeomTopo::getIGeometryEx() const
{
    if (auto geometry = getIGeometry(); geometry != NULLSP) {
        return geometry;
    }
    auto const service = geometryaccess::commonService();
    if (service == NULLSP) {
        return {};
    }
    try {
        auto const model = ServiceHelper::getCurrentModel();
        auto const objects = KFR::loose_cast<KFR::EOM::IEOMModelInterface>(model);
        CAE::EntityReference reference;
        KFRSmartPointer<KFR::EOM::IEOMObjectInterface> object;
        KFRSmartPointer<CAE::IPersistentObjectInterface> persistent;
        if (objects != NULLSP && service->findInModel(model, m_vtkId, reference).isOk() &&
            objects->resolveEntity(reference, object).isOk() && object != NULLSP) {
            static_cast<void>(object->getPersistentObject(persistent));
        }
        return KFR::loose_cast<CAE::IGeometryInterface>(persistent);
    } catch (UserException const&) {  // there is no model
        return {};
    } catch (KFRException const&) {
        return {};
    }
}

KFRSmartPointer<CAE::IGeomBodyInterface> GeomTopo::getIGeomBody() const
{
    KFRSmartPointer<CAE::IGeomBodyInterface> body;
    if (auto const session = geometryaccess::session(); session != NULLSP) {
        static_cast<void>(session->getGeomBody(m_vtkId, body));
    }
    return body;
}

KFRSmartPointer<CAE::IGeomBodyInterface> GeomTopo::getIGeomBodyEx() const
{
    if (auto body = getIGeomBody(); body != NULLSP) {
        return body;
    }
    auto const bodies = parents(gsc::kBodyOfAnyClass);
    return bodies.empty() ? KFRSmartPointer<CAE::IGeomBodyInterface>()
                          : bodies.front().getIGeomBody();
}

KFRSmartPointer<CAE::IPartInterface> GeomTopo::getIPart() const
{
    KFRSmartPointer<CAE::IPartInterface> part;
    if (auto const session = geometryaccess::session(); session != NULLSP) {
        static_cast<void>(session->getPart(m_vtkId, part));
    }
    return part;
}

KFRSmartPointer<appfw::IEntityInterface> GeomTopo::getIEntity() const
{
    return KFR::loose_cast<appfw::IEntityInterface>(getIGeometry());
}

unsigned int GeomTopo::getTypeId() const
{
    unsigned int typeId = 0;
    if (auto const session = geometryaccess::session(); session != NULLSP) {
        static_cast<void>(session->getTypeId(m_vtkId, typeId));
    }
    return typeId;
}

KFR::EOM::IEOMGeometrySequence GeomTopo::getAuxGeometries() const
{
    btree::btree_set<GeomTopo> all{*this};
    auto const add = [&](std::vector<GeomTopo> const& topos) {
        all.insert(topos.begin(), topos.end());
    };
    int const entityClass = tryGetBodyType();
    bool const isOfBody = bodyClass(entityClass) != nullptr;
    if (isOfBody) {
        add(getChildFaces());
    }
    if (isOfBody || entityClass == gsc::kFaceClass) {
        add(getChildEdges());
    }
    if (isOfBody || entityClass == gsc::kEdgeClass) {
        add(getChildVertices());
        for (auto const& subEdge : getSubEdgeEntities()) {
            all.insert(numberOf(subEdge));
        }
    }
    if (isOfBody || entityClass == gsc::kFaceClass || entityClass == gsc::kEdgeClass) {
        add(getChildHardPoints());
    }
    KFR::EOM::IEOMGeometrySequence geometries;
    for (GeomTopo const& topo : all) {
        auto const object = PluginHelper::pfwObject2EOMObject(
            KFR::loose_cast<CAE::IPersistentObjectInterface>(topo.getIGeometry()));
        if (auto const geometry = KFR::loose_cast<KFR::EOM::IEOMGeometryInterface>(object);
            geometry != NULLSP) {
            geometries.append(geometry);
        }
    }
    return geometries;
}

}  // namespace vrn::orlo::plugin::modeling
