#include "host/geometryserver/entities.h"

#include "host/geometryserver/entityhandle.h"
#include "platform/kfr/kfrserviceobject.h"

#include <array>
#include <memory>
#include <optional>
#include <utility>

namespace vrn::orlo::host::geometryserver {

using geometry::EntityClass;
using gsc::GSCKernelTag;
using gsc::GSCPointList;
using gsc::GSCPointStruct;
using gsc::GSCVectorStruct;

namespace {

/// \tparam Views  the interfaces of the kind
template <class... Views>
class EntityOf : public KFRServiceObjectImpl<gsc::KFRIVTKEntity, Views..., gsc::KFRIVTKVirtuable> {
public:
    explicit EntityOf(EntityHandle entity) : m_entity(std::move(entity)) {}

    KFRResult getNumber(int& number) override
    {
        return m_entity.answer(number, [](FoundEntity const& found) {
            return std::optional(static_cast<int>(found.number()));
        });
    }
    KFRResult getKernelTag(GSCKernelTag& tag) override
    {
        return m_entity.answer(tag, [](FoundEntity const& found) -> std::optional<GSCKernelTag> {
            auto const place = found.m_queries->kernelTag(found.number());
            return place ? std::optional(GSCKernelTag{static_cast<int>(place->m_part),
                                                      static_cast<int>(place->m_index)})
                         : std::nullopt;
        });
    }
    KFRResult isSuppressed(bool& suppressed) override { return no(suppressed); }
    KFRResult isVirtual(bool& isVirtual) override { return no(isVirtual); }

protected:
    /// What `ask` says of the queries and the number.
    template <class Out, class Ask>
    KFRResult ask(Out& out, Ask const& ask) const
    {
        return m_entity.answer(out, [&](FoundEntity const& found) -> std::optional<Out> {
            return ask(*found.m_queries, found.number());
        });
    }
    /// The same for what the queries give as a vector.
    template <class Record, class Ask>
    KFRResult askVector(Record& out, Ask const& ask) const
    {
        return m_entity.answer(out, [&](FoundEntity const& found) {
            return recordOf<Record>(ask(*found.m_queries, found.number()));
        });
    }
    KFRResult measure(double& out) const
    {
        return m_entity.answer(out, [](FoundEntity const& found) {
            return std::optional(found.model().measure(found.number()));
        });
    }
    KFRResult middle(GSCPointStruct& out) const
    {
        return askVector(
            out, [](auto const& queries, unsigned number) { return queries.middleOf(number); });
    }
    KFRResult projection(GSCPointStruct const& point, GSCPointStruct& out) const
    {
        return askVector(out, [&](auto const& queries, unsigned number) {
            return queries.projection(number, vectorOf(point));
        });
    }
    KFRResult periodic(bool& out) const
    {
        return ask(out,
                   [](auto const& queries, unsigned number) { return queries.isPeriodic(number); });
    }
    /// An entity has at least one, unless the kernel fails.
    KFRResult seedPoints(GSCPointList& out) const
    {
        return ask(out, [](auto const& queries, unsigned number) -> std::optional<GSCPointList> {
            auto const points = queries.seedPoints(number);
            return points.empty() ? std::nullopt : std::optional(pointListOf(points));
        });
    }

    EntityHandle const m_entity;

private:
    KFRResult no(bool& out) const
    {
        return m_entity.answer(out, [](FoundEntity const&) { return std::optional(false); });
    }
};

/// A body or a volume.
using WholeEntity = EntityOf<>;

class FaceEntity final : public EntityOf<gsc::KFRIVTKFace> {
public:
    using EntityOf::EntityOf;

    KFRResult getArea(double& area) override { return measure(area); }
    KFRResult isPeriodic(bool& out) override { return periodic(out); }
    KFRResult getProjection(GSCPointStruct const& point, GSCPointStruct& out) override
    {
        return projection(point, out);
    }
    KFRResult getNormal(GSCPointStruct const& point, GSCVectorStruct& normal) override
    {
        return askVector(normal, [&](auto const& queries, unsigned number) {
            return queries.normalAt(number, vectorOf(point));
        });
    }
    KFRResult getMidPoint(GSCPointStruct& point) override { return middle(point); }
    KFRResult getSeedPoints(GSCPointList& points) override { return seedPoints(points); }
};

class EdgeEntity final
    : public EntityOf<gsc::KFRIVTKEdge, gsc::KFRIVTKCurve, gsc::KFRIGSCTessellationEdge> {
public:
    using EntityOf::EntityOf;

    KFRResult getLength(double& length) override { return measure(length); }
    KFRResult isPeriodic(bool& out) override { return periodic(out); }
    KFRResult isStraight(bool& straight) override
    {
        return ask(straight,
                   [](auto const& queries, unsigned number) { return queries.isStraight(number); });
    }
    KFRResult getMidPoint(GSCPointStruct& point) override { return middle(point); }
    KFRResult getGeometries(CAE::IGeometrySequence& geometries) override
    {
        return m_entity.answer(geometries, [](FoundEntity const& found) {
            return std::optional(CAE::IGeometrySequence{found.m_store->object(found.number())});
        });
    }
    KFRResult getEndPoints(GSCPointStruct& start, GSCPointStruct& end) override
    {
        std::array<Vector, 2> ends{};
        KFRResult const result = ask(
            ends, [](auto const& queries, unsigned number) { return queries.endPoints(number); });
        if (result.isOk()) {
            start = recordOf<GSCPointStruct>(ends[0]);
            end = recordOf<GSCPointStruct>(ends[1]);
        }
        return result;
    }
    KFRResult getProjection(GSCPointStruct const& point, GSCPointStruct& out) override
    {
        return projection(point, out);
    }
    KFRResult contains(GSCPointStruct const& point, bool& contained) override
    {
        return ask(contained, [&](auto const& queries, unsigned number) {
            return std::optional(queries.contains(number, vectorOf(point), kOnEdge));
        });
    }
    KFRResult getPoints(GSCPointList& points) override { return seedPoints(points); }
};

class VertexEntity final : public EntityOf<gsc::KFRIVTKVertex> {
public:
    using EntityOf::EntityOf;

    KFRResult getPoint(GSCPointStruct& point) override
    {
        return askVector(point, [](auto const& queries, unsigned number) {
            return queries.pointOfVertex(number);
        });
    }
};

class LineEntity final : public KFRServiceObjectImpl<gsc::KFRIVTKEntity> {
public:
    LineEntity(std::weak_ptr<GeometryServer const> server, int number)
        : m_server(std::move(server)), m_number(number)
    {
    }

    KFRResult getNumber(int& number) override { return answer(number, m_number); }
    KFRResult getKernelTag(GSCKernelTag&) override { return KFR::notDone; }
    KFRResult isSuppressed(bool& suppressed) override { return answer(suppressed, false); }

private:
    template <class Value>
    KFRResult answer(Value& out, Value value) const
    {
        auto const server = m_server.lock();
        if (server == nullptr || !server->line(m_number)) {
            return KFR::notDone;
        }
        out = value;
        return KFR::ok;
    }

    std::weak_ptr<GeometryServer const> m_server;
    int m_number;
};

}  // namespace

KFRSmartPointer<gsc::KFRIVTKEntity> makeEntity(std::shared_ptr<GeometryServer const> const& server,
                                               int number)
{
    if (server->line(number)) {
        return KFR::make<LineEntity>(server, number);
    }
    std::optional<FoundEntity> const found = server->find(number);
    if (!found) {
        return {};
    }
    EntityHandle const handle(server, number);
    switch (found->entityClass()) {
        case EntityClass::face:
            return KFR::make<FaceEntity>(handle);
        case EntityClass::edge:
            return KFR::make<EdgeEntity>(handle);
        case EntityClass::vertex:
            return KFR::make<VertexEntity>(handle);
        default:
            return KFR::make<WholeEntity>(handle);
    }
}

}  // namespace vrn::orlo::host::geometryserver
