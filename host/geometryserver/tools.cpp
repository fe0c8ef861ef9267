#include "host/geometryserver/tools.h"

#include "host/geometryserver/curves.h"
#include "host/geometryserver/entities.h"
#include "host/geometryserver/entityhandle.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <vector>

namespace vrn::orlo::host::geometryserver {

using geometry::EntityClass;
using gsc::GSCPointStruct;
using gsc::GSCVectorStruct;

namespace {

using Entity = KFRSmartPointer<gsc::KFRIVTKEntity>;

/// 0, which nothing has, for null and for what has gone.
int numberOf(Entity const& entity)
{
    int number = 0;
    return entity != KFR::NULLSP && entity->getNumber(number).isOk() ? number : 0;
}

/// The class of the number; nothing for a number outside of the range of classes.
std::optional<EntityClass> classOf(int number)
{
    constexpr auto kFirst = static_cast<int>(EntityClass::solidBody);
    constexpr auto kLast = static_cast<int>(EntityClass::vertex);
    return number >= kFirst && number <= kLast ? std::optional(static_cast<EntityClass>(number))
                                               : std::nullopt;
}

KFRSequence<int> existing(model::GeometryStore const& store, std::vector<unsigned> const& numbers)
{
    KFRSequence<int> result;
    result.reserve(numbers.size());
    for (unsigned const number : numbers) {
        if (store.exists(number)) {
            result.append(static_cast<int>(number));
        }
    }
    return result;
}

template <class Made>
KFRResult give(Made const& made, Made& out)
{
    if (made == KFR::NULLSP) {
        return KFR::notDone;
    }
    out = made;
    return KFR::ok;
}

bool isLine(Vector const& origin, Vector const& direction)
{
    auto const isFinite = [](double value) {
        return std::isfinite(value);
    };
    return std::all_of(origin.begin(), origin.end(), isFinite) &&
           std::all_of(direction.begin(), direction.end(), isFinite) && direction != Vector{};
}

}  // namespace

std::optional<FoundEntity> QueryTool::find(int number) const
{
    auto const server = m_server.lock();
    return server != nullptr ? server->find(number) : std::nullopt;
}

std::optional<FoundEntity> QueryTool::find(Entity const& entity, EntityClass entityClass) const
{
    std::optional<FoundEntity> const found = find(numberOf(entity));
    return found && found->entityClass() == entityClass ? found : std::nullopt;
}

std::optional<TemporaryLine> QueryTool::line(Entity const& entity) const
{
    auto const server = m_server.lock();
    return server != nullptr ? server->line(numberOf(entity)) : std::nullopt;
}

KFRResult QueryTool::getEntity(int number, Entity& entity)
{
    auto const server = m_server.lock();
    return server != nullptr ? give(makeEntity(server, number), entity) : KFR::notDone;
}

KFRResult QueryTool::getClass(int number, int& entityClass)
{
    std::optional<FoundEntity> const found = find(number);
    if (!found) {
        return KFR::notDone;
    }
    entityClass = static_cast<int>(found->entityClass());
    return KFR::ok;
}

KFRResult QueryTool::getChildren(int number, int entityClass, KFRSequence<int>& children)
{
    std::optional<FoundEntity> const found = find(number);
    if (!found) {
        return KFR::notDone;
    }
    auto const wanted = classOf(entityClass);
    children = existing(*found->m_store, wanted ? found->model().children(found->number(), *wanted)
                                                : std::vector<unsigned>());
    return KFR::ok;
}

KFRResult QueryTool::getParents(int number, int entityClass, KFRSequence<int>& parents)
{
    std::optional<FoundEntity> const found = find(number);
    if (!found) {
        return KFR::notDone;
    }
    std::vector<unsigned> above;
    if (auto const wanted = classOf(entityClass)) {
        above = found->model().parents(found->number(), *wanted);
    } else if (entityClass == gsc::kBodyOfAnyClass && !isBodyClass(found->entityClass())) {
        above = {found->m_entity->m_body};
    }
    parents = existing(*found->m_store, above);
    return KFR::ok;
}

KFRResult QueryTool::getBoundingBox(int number, GSCPointStruct& low, GSCPointStruct& high)
{
    std::optional<FoundEntity> const found = find(number);
    std::optional<geometry::Box> const box =
        found ? found->m_queries->box(found->number()) : std::nullopt;
    if (!box) {
        return KFR::notDone;
    }
    low = recordOf<GSCPointStruct>(box->m_min);
    high = recordOf<GSCPointStruct>(box->m_max);
    return KFR::ok;
}

KFRResult QueryTool::getCurve(Entity const& entity, KFRSmartPointer<gsc::GSCICurve>& curve)
{
    auto const server = m_server.lock();
    return server != nullptr ? give(makeCurve(server, numberOf(entity)), curve) : KFR::notDone;
}

KFRResult QueryTool::getSurface(Entity const& entity, KFRSmartPointer<gsc::GSCISurface>& surface)
{
    auto const server = m_server.lock();
    return server != nullptr ? give(makeSurface(server, numberOf(entity)), surface) : KFR::notDone;
}

KFRResult QueryTool::getLeastDistance(Entity const& edge, Entity const& line,
                                      GSCPointStruct& onEdge, GSCPointStruct& onLine)
{
    std::optional<FoundEntity> const found = find(edge, EntityClass::edge);
    std::optional<TemporaryLine> const straight = this->line(line);
    if (!found || !straight || straight->m_face != 0) {
        return KFR::notDone;
    }
    auto const nearest = found->m_queries->leastDistance(found->number(), straight->m_line);
    if (!nearest) {
        return KFR::notDone;
    }
    onEdge = recordOf<GSCPointStruct>(nearest->m_onEntity);
    onLine = recordOf<GSCPointStruct>(nearest->m_onLine);
    return KFR::ok;
}

KFRResult QueryTool::getIntersections(Entity const& line, Entity const& face,
                                      gsc::GSCPointList& points)
{
    std::optional<FoundEntity> const found = find(face, EntityClass::face);
    std::optional<TemporaryLine> const straight = this->line(line);
    if (!found || !straight ||
        (straight->m_face != 0 && straight->m_face != static_cast<int>(found->number()))) {
        return KFR::notDone;
    }
    points = pointListOf(found->m_queries->intersections(found->number(), straight->m_line));
    return KFR::ok;
}

KFRResult ModifyTool::make(GSCPointStruct const& origin, GSCVectorStruct const& direction, int face,
                           Entity& line)
{
    auto const server = m_server.lock();
    geometry::GeometryQueries::Line const made{vectorOf(origin), vectorOf(direction)};
    if (server == nullptr || !isLine(made.m_origin, made.m_direction)) {
        return KFR::notDone;
    }
    try {
        line = makeEntity(server, server->addLine({made, face}));
    } catch (std::length_error const&) {
        return KFR::notDone;
    }
    return KFR::ok;
}

KFRResult ModifyTool::makeLine(GSCPointStruct const& origin, GSCVectorStruct const& direction,
                               Entity& line)
{
    return make(origin, direction, 0, line);
}

KFRResult ModifyTool::makeLineForFace(GSCPointStruct const& origin,
                                      GSCVectorStruct const& direction, Entity const& face,
                                      Entity& line)
{
    auto const server = m_server.lock();
    std::optional<FoundEntity> const found =
        server != nullptr ? server->find(numberOf(face)) : std::nullopt;
    return found && found->entityClass() == EntityClass::face
               ? make(origin, direction, static_cast<int>(found->number()), line)
               : KFR::notDone;
}

KFRResult ModifyTool::deleteEntity(Entity const& entity)
{
    auto const server = m_server.lock();
    return server != nullptr && server->removeLine(numberOf(entity)) ? KFR::ok : KFR::notDone;
}

}  // namespace vrn::orlo::host::geometryserver
