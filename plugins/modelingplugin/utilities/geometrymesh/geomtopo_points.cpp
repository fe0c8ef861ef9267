#include "plugins/modelingplugin/utilities/geometrymesh/geometryaccess.h"
#include "plugins/modelingplugin/utilities/geometrymesh/geomtopo.h"
#include "plugins/modelingplugin/utilities/numerics/kernelconversions.h"
#include "plugins/modelingplugin/utilities/numerics/pluginmath.h"

#include <cmath>

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;

namespace {

/// 0.1 degrees.
constexpr double kOnTheRay = 0.0017453292519943296;
constexpr double kFarthest = 1.7976931348623157e308;
/// Not quite the largest number there is; the digits are meant.
constexpr double kFarthestOnRay = 1.79769e308;
constexpr double kDiagonalsBeforeFace = 3.0;

constexpr KFRDouble3DPoint recordOf(GSCPointStruct const& p)
{
    return {p.x, p.y, p.z};
}

constexpr GSCPointStruct structOf(KFRDouble3DPoint const& p)
{
    return {p.x, p.y, p.z};
}

double distance(GSCPointStruct const& a, GSCPointStruct const& b)
{
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y) +
                     (a.z - b.z) * (a.z - b.z));
}

/// A temporary entity of the server, which goes with the scope.
class TemporaryLine {
public:
    /// \param face  null for a line that is tied to none
    TemporaryLine(KFRSmartPointer<gsc::GSCIModifyTool> tool, GSCPointStruct const& origin,
                  GSCVectorStruct const& direction,
                  KFRSmartPointer<gsc::KFRIVTKEntity> const& face = {})
        : m_tool(std::move(tool))
    {
        if (m_tool != NULLSP) {
            static_cast<void>(face == NULLSP
                                  ? m_tool->makeLine(origin, direction, m_line)
                                  : m_tool->makeLineForFace(origin, direction, face, m_line));
        }
    }
    TemporaryLine(TemporaryLine const&) = delete;
    TemporaryLine& operator=(TemporaryLine const&) = delete;
    ~TemporaryLine()
    {
        if (m_line != NULLSP) {
            static_cast<void>(m_tool->deleteEntity(m_line));
        }
    }

    [[nodiscard]] KFRSmartPointer<gsc::KFRIVTKEntity> const& get() const { return m_line; }

private:
    KFRSmartPointer<gsc::GSCIModifyTool> m_tool;
    KFRSmartPointer<gsc::KFRIVTKEntity> m_line;
};

struct Ray {
    GSCPointStruct m_origin;
    GSCVectorStruct m_direction;
};

bool pickOnEdge(gsc::GSCIQueryTool& tool, KFRSmartPointer<gsc::KFRIVTKEntity> const& entity,
                Ray const& ray, GSCPointStruct& point)
{
    auto const edge = KFR::loose_cast<gsc::KFRIVTKEdge>(entity);
    TemporaryLine const line(geometryaccess::modifyTool(), ray.m_origin, ray.m_direction);
    GSCPointStruct onLine;
    bool isOnEdge = false;
    return edge != NULLSP && line.get() != NULLSP &&
           tool.getLeastDistance(entity, line.get(), point, onLine).isOk() &&
           edge->contains(point, isOnEdge).isOk() && isOnEdge;
}

bool pickOnFace(gsc::GSCIQueryTool& tool, KFRSmartPointer<gsc::KFRIVTKEntity> const& entity,
                int number, Ray ray, GSCPointStruct& point)
{
    GeomTopo::movePointCloseToFace(ray.m_origin, ray.m_direction, number);
    TemporaryLine const line(geometryaccess::modifyTool(), ray.m_origin, ray.m_direction, entity);
    GSCPointList points;
    return line.get() != NULLSP && tool.getIntersections(line.get(), entity, points).isOk() &&
           GeomTopo::getBetterPointToEdge(points, ray.m_origin, ray.m_direction, point);
}

/// Asks a view of the entity for a number.
template <class View>
double measure(int number, KFRResult (View::*ask)(double&))
{
    auto const view = geometryaccess::viewOf<View>(number);
    double value = 0.0;
    if (view != NULLSP) {
        static_cast<void>(((*view).*ask)(value));
    }
    return value;
}

/// Asks a view of the entity for a point.
template <class View>
bool pointFrom(int number, KFRResult (View::*ask)(GSCPointStruct&), KFRDouble3DPoint& point)
{
    auto const view = geometryaccess::viewOf<View>(number);
    GSCPointStruct found;
    if (view == NULLSP || !((*view).*ask)(found).isOk()) {
        return false;
    }
    point = recordOf(found);
    return true;
}

}  // namespace

double GeomTopo::getArea() const
{
    return measure(m_vtkId, &gsc::KFRIVTKFace::getArea);
}

double GeomTopo::getLength() const
{
    return measure(m_vtkId, &gsc::KFRIVTKCurve::getLength);
}

bool GeomTopo::getPeriodic() const
{
    auto const entity = geometryaccess::entity(m_vtkId);
    bool answer = false;
    if (auto const face = KFR::loose_cast<gsc::KFRIVTKFace>(entity); face != NULLSP) {
        return face->isPeriodic(answer).isOk() && answer;
    }
    auto const curve = KFR::loose_cast<gsc::KFRIVTKCurve>(entity);
    return curve != NULLSP && curve->isPeriodic(answer).isOk() && answer;
}

bool GeomTopo::getMidPoint(KFRDouble3DPoint& point) const
{
    return pointFrom(m_vtkId, &gsc::KFRIVTKFace::getMidPoint, point) ||
           pointFrom(m_vtkId, &gsc::KFRIVTKCurve::getMidPoint, point) || getPointOfVertex(point);
}

bool GeomTopo::getPointOfVertex(KFRDouble3DPoint& point) const
{
    return pointFrom(m_vtkId, &gsc::KFRIVTKVertex::getPoint, point);
}

bool GeomTopo::getEndPointsOfEdge(KFRDouble3DPoint& start, KFRDouble3DPoint& end) const
{
    auto const edge = geometryaccess::viewOf<gsc::KFRIVTKEdge>(m_vtkId);
    GSCPointStruct first;
    GSCPointStruct last;
    if (edge == NULLSP || !edge->getEndPoints(first, last).isOk()) {
        return false;
    }
    start = recordOf(first);
    end = recordOf(last);
    return true;
}

bool GeomTopo::getNormal(KFRDouble3DPoint const& point, KFRDouble3DPoint& normal) const
{
    auto const face = geometryaccess::viewOf<gsc::KFRIVTKFace>(m_vtkId);
    GSCVectorStruct found;
    if (face == NULLSP || !face->getNormal(structOf(point), found).isOk()) {
        return false;
    }
    normal = {found.x, found.y, found.z};
    return true;
}

bool GeomTopo::getSeedPoints(KFRDouble3DPointSequence& points) const
{
    auto const entity = geometryaccess::entity(m_vtkId);
    auto const face = KFR::loose_cast<gsc::KFRIVTKFace>(entity);
    auto const edge = KFR::loose_cast<gsc::KFRIGSCTessellationEdge>(entity);
    GSCPointList found;
    if (face != NULLSP) {
        static_cast<void>(face->getSeedPoints(found));
    } else if (edge != NULLSP) {
        static_cast<void>(edge->getPoints(found));
    } else if (KFRDouble3DPoint point; getPointOfVertex(point)) {
        found.append(structOf(point));
    }
    if (found.empty()) {
        return false;
    }
    points = {};
    for (GSCPointStruct const& point : std::as_const(found)) {
        points.append(recordOf(point));
    }
    return true;
}

bool GeomTopo::getProjectPoint(KFRDouble3DPoint const& point, KFRDouble3DPoint& projection) const
{
    auto const entity = geometryaccess::entity(m_vtkId);
    auto const face = KFR::loose_cast<gsc::KFRIVTKFace>(entity);
    auto const edge = KFR::loose_cast<gsc::KFRIVTKEdge>(entity);
    GSCPointStruct found;
    bool const isDone = face != NULLSP   ? face->getProjection(structOf(point), found).isOk()
                        : edge != NULLSP ? edge->getProjection(structOf(point), found).isOk()
                                         : false;
    if (isDone) {
        projection = recordOf(found);
    }
    return isDone;
}

KFRResult GeomTopo::getNearestPoint(float screenX, float screenY, KFRDouble3DPoint& point) const
{
    auto const tool = geometryaccess::queryTool();
    auto const entity = geometryaccess::entity(m_vtkId);
    int entityClass = -1;
    if (tool == NULLSP || entity == NULLSP || !tool->getClass(m_vtkId, entityClass).isOk()) {
        return KFR::notDone;
    }
    if (entityClass == gsc::kVertexClass) {
        return getPointOfVertex(point) ? KFR::ok : KFR::notDone;
    }
    KFRFloat3DPoint origin;
    KFRFloat3DPoint direction;
    gsc::GSCKernelTag tag;
    if (!PluginMath().screenPoint2ModelRay(screenX, screenY, origin, direction).isOk() ||
        !entity->getKernelTag(tag).isOk()) {
        return KFR::notDone;
    }
    KFRDouble3DPoint const along = widened(direction);
    Ray const ray{structOf(widened(origin)), {along.x, along.y, along.z}};
    GSCPointStruct found;
    bool isFound = false;
    if (entityClass == gsc::kEdgeClass) {
        isFound = pickOnEdge(*tool, entity, ray, found);
    } else if (entityClass == gsc::kFaceClass) {
        isFound = pickOnFace(*tool, entity, m_vtkId, ray, found);
    }
    if (!isFound) {
        return KFR::notDone;
    }
    point = recordOf(found);
    return KFR::ok;
}

bool GeomTopo::getNearestPointAndNormal(KFRDouble3DPoint const& point,
                                        std::vector<GeomTopo> const& faces,
                                        KFRDouble3DPoint& nearest, KFRDouble3DPoint& normal)
{
    double least = kFarthest;
    bool isFound = false;
    for (GeomTopo const& face : faces) {
        KFRDouble3DPoint projection;
        if (!face.getProjectPoint(point, projection)) {
            continue;
        }
        double const apart = distance(structOf(point), structOf(projection));
        KFRDouble3DPoint normalThere;
        if (apart < least && face.getNormal(projection, normalThere)) {
            least = apart;
            nearest = projection;
            normal = normalThere;
            isFound = true;
        }
    }
    return isFound;
}

bool GeomTopo::movePointCloseToFace(GSCPointStruct& point, GSCVectorStruct const& direction,
                                    int vtkId)
{
    auto const tool = geometryaccess::queryTool();
    GSCPointStruct low;
    GSCPointStruct high;
    if (tool == NULLSP || !tool->getBoundingBox(vtkId, low, high).isOk()) {
        return false;
    }
    GSCPointStruct const center{(low.x + high.x) * 0.5, (low.y + high.y) * 0.5,
                                (low.z + high.z) * 0.5};
    double const step = distance(point, center) - kDiagonalsBeforeFace * distance(low, high);
    point = {point.x + step * direction.x, point.y + step * direction.y,
             point.z + step * direction.z};
    return true;
}

bool GeomTopo::getBetterPointToEdge(GSCPointList const& points, GSCPointStruct const& origin,
                                    GSCVectorStruct const& direction, GSCPointStruct& out)
{
    if (points.empty()) {
        return false;
    }
    out = points[0];
    double least = kFarthestOnRay;
    double const onTheRay = std::cos(kOnTheRay);
    for (GSCPointStruct const& p : points) {
        double const apart = distance(p, origin);
        // Not a number for the origin itself, which is not on the ray then.
        double const cosAngle = ((p.x - origin.x) * direction.x + (p.y - origin.y) * direction.y +
                                 (p.z - origin.z) * direction.z) /
                                apart;
        if (cosAngle > onTheRay && apart < least) {
            least = apart;
            out = p;
        }
    }
    return true;
}

}  // namespace vrn::orlo::plugin::modeling
