#include "host/geometryserver/curves.h"

#include "host/geometryserver/entityhandle.h"
#include "platform/kfr/kfrserviceobject.h"

#include <utility>

namespace vrn::orlo::host::geometryserver {

using geometry::EntityClass;
using geometry::GeometryQueries;
using gsc::GSCPointStruct;
using gsc::GSCSurfaceParameters;
using gsc::GSCVectorStruct;

namespace {

class Curve final : public KFRServiceObjectImpl<gsc::GSCICurve> {
public:
    explicit Curve(EntityHandle edge) : m_edge(std::move(edge)) {}

    KFRResult closestParameter(GSCPointStruct const& point, double& parameter) override
    {
        return m_edge.answer(parameter, [&](FoundEntity const& found) {
            return found.m_queries->closestParameter(found.number(), vectorOf(point));
        });
    }
    KFRResult evaluate(double parameter, GSCVectorStruct& tangent, GSCVectorStruct& normal,
                       GSCVectorStruct& binormal) override
    {
        GeometryQueries::CurveFrame frame;
        KFRResult const result = m_edge.answer(frame, [&](FoundEntity const& found) {
            return found.m_queries->curveFrame(found.number(), parameter);
        });
        if (result.isOk()) {
            tangent = recordOf<GSCVectorStruct>(frame.m_tangent);
            normal = recordOf<GSCVectorStruct>(frame.m_normal);
            binormal = recordOf<GSCVectorStruct>(frame.m_binormal);
        }
        return result;
    }

private:
    EntityHandle m_edge;
};

class Surface final : public KFRServiceObjectImpl<gsc::GSCISurface> {
public:
    explicit Surface(EntityHandle face) : m_face(std::move(face)) {}

    KFRResult closestParameters(GSCPointStruct const& point,
                                GSCSurfaceParameters& parameters) override
    {
        return m_face.answer(
            parameters, [&](FoundEntity const& found) -> std::optional<GSCSurfaceParameters> {
                auto const uv = found.m_queries->closestParameters(found.number(), vectorOf(point));
                return uv ? std::optional(GSCSurfaceParameters{(*uv)[0], (*uv)[1]}) : std::nullopt;
            });
    }
    KFRResult evaluate(GSCSurfaceParameters const& parameters, GSCVectorStruct& normal,
                       GSCVectorStruct& uDirection, GSCVectorStruct& vDirection) override
    {
        GeometryQueries::SurfaceFrame frame;
        KFRResult const result = m_face.answer(frame, [&](FoundEntity const& found) {
            return found.m_queries->surfaceFrame(found.number(), {parameters.u, parameters.v});
        });
        if (result.isOk()) {
            normal = recordOf<GSCVectorStruct>(frame.m_normal);
            uDirection = recordOf<GSCVectorStruct>(frame.m_u);
            vDirection = recordOf<GSCVectorStruct>(frame.m_v);
        }
        return result;
    }

private:
    EntityHandle m_face;
};

/// Whether the number is that of an entity of the class which has a curve or surface.
bool hasShape(GeometryServer const& server, int number, EntityClass entityClass)
{
    std::optional<FoundEntity> const found = server.find(number);
    // Every curve and every surface is closed or is not.
    return found && found->entityClass() == entityClass &&
           found->m_queries->isPeriodic(found->number()).has_value();
}

}  // namespace

KFRSmartPointer<gsc::GSCICurve> makeCurve(std::shared_ptr<GeometryServer const> const& server,
                                          int edge)
{
    return hasShape(*server, edge, EntityClass::edge)
               ? KFRSmartPointer<gsc::GSCICurve>(KFR::make<Curve>(EntityHandle(server, edge)))
               : KFR::NULLSP;
}

KFRSmartPointer<gsc::GSCISurface> makeSurface(std::shared_ptr<GeometryServer const> const& server,
                                              int face)
{
    return hasShape(*server, face, EntityClass::face)
               ? KFRSmartPointer<gsc::GSCISurface>(KFR::make<Surface>(EntityHandle(server, face)))
               : KFR::NULLSP;
}

}  // namespace vrn::orlo::host::geometryserver
