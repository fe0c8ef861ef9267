/// \file
/// The tools of the geometry server.

#pragma once

#include "host/geometryserver/geometryserver.h"
#include "platform/gsc/geometryserver.h"
#include "platform/kfr/kfrserviceobject.h"

#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace vrn::orlo::host::geometryserver {

/// Entity classes of the server are geometry::EntityClass. There are neither hard points nor
/// sub-edges here, as the kernel splits no edges.
///
/// A temporary line has a number and an entity, but neither class, children, parents nor box.
/// Entities are told by their numbers: any object that gives one stands for the entity.
///
/// Failure    KFR::notDone; also of everything when the server has gone.
/// Ownership  Does not hold the server.
/// Threads    As the server.
/// Cost       Children and parents: linear in the answer, but for a table that the first question
///            for a pair of classes makes in a part.
class QueryTool final : public KFRServiceObjectImpl<gsc::GSCIQueryTool> {
public:
    using Entity = KFRSmartPointer<gsc::KFRIVTKEntity>;

    explicit QueryTool(std::weak_ptr<GeometryServer> server) : m_server(std::move(server)) {}

    KFRResult getEntity(int number, Entity& entity) override;
    KFRResult getClass(int number, int& entityClass) override;
    /// Empty for classes that are none.
    KFRResult getChildren(int number, int entityClass, KFRSequence<int>& children) override;
    /// Of the class gsc::kBodyOfAnyClass only the owning body comes, which a body has none of. An
    /// edge that bodies share has all of them as parents of their own classes.
    KFRResult getParents(int number, int entityClass, KFRSequence<int>& parents) override;
    KFRResult getBoundingBox(int number, gsc::GSCPointStruct& low,
                             gsc::GSCPointStruct& high) override;
    KFRResult getCurve(Entity const& entity, KFRSmartPointer<gsc::GSCICurve>& curve) override;
    KFRResult getSurface(Entity const& entity, KFRSmartPointer<gsc::GSCISurface>& surface) override;
    /// Fails for a line that was made for a face.
    KFRResult getLeastDistance(Entity const& edge, Entity const& line, gsc::GSCPointStruct& onEdge,
                               gsc::GSCPointStruct& onLine) override;
    /// Fails for a line that was made for another face.
    KFRResult getIntersections(Entity const& line, Entity const& face,
                               gsc::GSCPointList& points) override;

    std::string getObjectName() override { return "vrn.orlo.host.geometryserver:QueryTool"; }

private:
    [[nodiscard]] std::optional<FoundEntity> find(int number) const;
    [[nodiscard]] std::optional<FoundEntity> find(Entity const& entity,
                                                  geometry::EntityClass entityClass) const;
    [[nodiscard]] std::optional<TemporaryLine> line(Entity const& entity) const;

    std::weak_ptr<GeometryServer> m_server;
};

/// Failure    KFR::notDone: for a line whose origin is not finite or whose direction has no length,
///            for what is no face, and of everything when the server has gone.
/// Ownership  Does not hold the server. Lines stay until they are deleted, whoever holds them.
/// Threads    As the server.
class ModifyTool final : public KFRServiceObjectImpl<gsc::GSCIModifyTool> {
public:
    using Entity = KFRSmartPointer<gsc::KFRIVTKEntity>;

    explicit ModifyTool(std::weak_ptr<GeometryServer> server) : m_server(std::move(server)) {}

    KFRResult makeLine(gsc::GSCPointStruct const& origin, gsc::GSCVectorStruct const& direction,
                       Entity& line) override;
    KFRResult makeLineForFace(gsc::GSCPointStruct const& origin,
                              gsc::GSCVectorStruct const& direction, Entity const& face,
                              Entity& line) override;
    KFRResult deleteEntity(Entity const& entity) override;

    std::string getObjectName() override { return "vrn.orlo.host.geometryserver:ModifyTool"; }

private:
    KFRResult make(gsc::GSCPointStruct const& origin, gsc::GSCVectorStruct const& direction,
                   int face, Entity& line);

    std::weak_ptr<GeometryServer> m_server;
};

}  // namespace vrn::orlo::host::geometryserver
