#include "host/geometryserver/entities.h"
#include "host/geometryserver/servertesting.h"

#include <cmath>
#include <functional>
#include <memory>
#include <numbers>
#include <utility>

#include <BRepPrimAPI_MakeCylinder.hxx>

namespace vrn::orlo::host::geometryserver {
namespace {

using gsc::GSCPointStruct;
using gsc::GSCVectorStruct;
using ::testing::SizeIs;

constexpr double kPi = std::numbers::pi;

/// A cylinder of radius 2 and height 5 on the origin, with a seam along x.
class CylinderEntities : public WithServer<> {
protected:
    /// The only face or edge for which `isMeant` holds.
    template <class View>
    KFRSmartPointer<View> only(EntityClass entityClass, std::function<bool(View&)> const& isMeant)
    {
        KFRSmartPointer<View> found;
        for (int const number : numbersOf(*m_model, entityClass)) {
            auto const view = KFR::strict_cast<View>(entity(number));
            if (isMeant(*view)) {
                EXPECT_EQ(found, KFR::NULLSP);
                found = view;
            }
        }
        return found;
    }
    KFRSmartPointer<gsc::KFRIVTKFace> side()
    {
        return only<gsc::KFRIVTKFace>(EntityClass::face, [](auto& face) {
            bool periodic = false;
            return face.isPeriodic(periodic).isOk() && periodic;
        });
    }
    KFRSmartPointer<gsc::KFRIVTKCurve> seam()
    {
        return only<gsc::KFRIVTKCurve>(EntityClass::edge, [](auto& curve) {
            bool straight = false;
            return curve.isStraight(straight).isOk() && straight;
        });
    }
    KFRSmartPointer<gsc::KFRIVTKCurve> topCircle()
    {
        return only<gsc::KFRIVTKCurve>(EntityClass::edge, [](auto& curve) {
            bool periodic = false;
            GSCPointStruct middle;
            return curve.isPeriodic(periodic).isOk() && periodic &&
                   curve.getMidPoint(middle).isOk() && middle.z > 1.0;
        });
    }
    template <class View>
    static Entity asEntity(KFRSmartPointer<View> const& view)
    {
        return KFR::strict_cast<gsc::KFRIVTKEntity>(view);
    }

    std::unique_ptr<model::Model> m_model =
        open(modelOf("can", BRepPrimAPI_MakeCylinder(2.0, 5.0).Shape()));
};

TEST_F(CylinderEntities, AnswerTheViewsOfTheirKind)
{
    for (geometry::Entity const& known : m_model->geometry().m_entities) {
        SCOPED_TRACE(geometry::typeNameOf(known.m_class));
        Entity const object = entity(static_cast<int>(known.m_number));
        bool const isEdge = known.m_class == EntityClass::edge;
        EXPECT_EQ(KFR::loose_cast<gsc::KFRIVTKFace>(object) != KFR::NULLSP,
                  known.m_class == EntityClass::face);
        EXPECT_EQ(KFR::loose_cast<gsc::KFRIVTKEdge>(object) != KFR::NULLSP, isEdge);
        EXPECT_EQ(KFR::loose_cast<gsc::KFRIVTKCurve>(object) != KFR::NULLSP, isEdge);
        EXPECT_EQ(KFR::loose_cast<gsc::KFRIGSCTessellationEdge>(object) != KFR::NULLSP, isEdge);
        EXPECT_EQ(KFR::loose_cast<gsc::KFRIVTKVertex>(object) != KFR::NULLSP,
                  known.m_class == EntityClass::vertex);
        bool isVirtual = true;
        EXPECT_TRUE(KFR::strict_cast<gsc::KFRIVTKVirtuable>(object)->isVirtual(isVirtual).isOk());
        EXPECT_FALSE(isVirtual);
        gsc::GSCKernelTag tag;
        EXPECT_TRUE(object->getKernelTag(tag).isOk());
        auto const ofClass = numbersOf(*m_model, known.m_class);
        EXPECT_EQ(tag,
                  (gsc::GSCKernelTag{0, static_cast<int>(known.m_number) - ofClass.front() + 1}));
        KFRSmartPointer<gsc::GSCICurve> curve;
        KFRSmartPointer<gsc::GSCISurface> surface;
        EXPECT_EQ(m_query->getCurve(object, curve).isOk(), isEdge);
        EXPECT_EQ(m_query->getSurface(object, surface).isOk(), known.m_class == EntityClass::face);
    }
}

TEST_F(CylinderEntities, TheSideLooksOutwards)
{
    auto const face = side();
    double area = 0.0;
    EXPECT_TRUE(face->getArea(area).isOk());
    EXPECT_NEAR(area, 20.0 * kPi, 1e-9);
    GSCPointStruct const outside{0.0, 7.0, 3.0};
    GSCPointStruct nearest;
    GSCVectorStruct normal;
    EXPECT_TRUE(face->getProjection(outside, nearest).isOk());
    EXPECT_THAT(nearest, IsNearRecord(GSCPointStruct{0.0, 2.0, 3.0}));
    EXPECT_TRUE(face->getNormal(outside, normal).isOk());
    EXPECT_THAT(normal, IsNearRecord(GSCVectorStruct{0.0, 1.0, 0.0}));
    gsc::GSCPointList seeds;
    GSCPointStruct middle;
    EXPECT_TRUE(face->getMidPoint(middle).isOk() && face->getSeedPoints(seeds).isOk());
    seeds.append(middle);
    for (GSCPointStruct const& point : std::as_const(seeds)) {
        EXPECT_NEAR(std::hypot(point.x, point.y), 2.0, 1e-6);
    }

    KFRSmartPointer<gsc::GSCISurface> surface;
    ASSERT_TRUE(m_query->getSurface(asEntity(face), surface).isOk());
    gsc::GSCSurfaceParameters parameters;
    EXPECT_TRUE(surface->closestParameters(outside, parameters).isOk());
    GSCVectorStruct u;
    GSCVectorStruct v;
    EXPECT_TRUE(surface->evaluate(parameters, normal, u, v).isOk());
    EXPECT_THAT(normal, IsNearRecord(GSCVectorStruct{0.0, 1.0, 0.0}));
    EXPECT_THAT(u, IsNearRecord(GSCVectorStruct{-1.0, 0.0, 0.0}));
    EXPECT_THAT(v, IsNearRecord(GSCVectorStruct{0.0, 0.0, 1.0}));

    Entity line;
    gsc::GSCPointList points;
    ASSERT_TRUE(m_modify->makeLine({0.0, -9.0, 1.0}, {0, 1, 0}, line).isOk());
    EXPECT_TRUE(m_query->getIntersections(line, asEntity(face), points).isOk());
    EXPECT_THAT(points, ::testing::ElementsAre(IsNearRecord(GSCPointStruct{0.0, -2.0, 1.0}),
                                               IsNearRecord(GSCPointStruct{0.0, 2.0, 1.0})));
    EXPECT_TRUE(m_modify->deleteEntity(line).isOk());
}

TEST_F(CylinderEntities, ACircleIsClosedAndBendsToItsCentre)
{
    auto const circle = topCircle();
    double length = 0.0;
    EXPECT_TRUE(circle->getLength(length).isOk());
    EXPECT_NEAR(length, 4.0 * kPi, 1e-9);
    auto const edge = KFR::strict_cast<gsc::KFRIVTKEdge>(circle);
    GSCPointStruct start;
    GSCPointStruct end = kUntouched;
    EXPECT_TRUE(edge->getEndPoints(start, end).isOk());
    EXPECT_THAT(start, IsNearRecord(end));
    GSCPointStruct nearest;
    EXPECT_TRUE(edge->getProjection({0.0, 9.0, 5.0}, nearest).isOk());
    EXPECT_THAT(nearest, IsNearRecord(GSCPointStruct{0.0, 2.0, 5.0}));
    for (double const away : {0.0, 0.9 * kOnEdge, 1.1 * kOnEdge}) {
        bool contained = away > kOnEdge;
        EXPECT_TRUE(edge->contains({0.0, 2.0 + away, 5.0}, contained).isOk());
        EXPECT_EQ(contained, away < kOnEdge) << away;
    }
    gsc::GSCPointList corners;
    EXPECT_TRUE(KFR::strict_cast<gsc::KFRIGSCTessellationEdge>(edge)->getPoints(corners).isOk());
    EXPECT_GT(corners.size(), 8U);
    CAE::IGeometrySequence geometries;
    EXPECT_TRUE(circle->getGeometries(geometries).isOk());
    int number = 0;
    EXPECT_TRUE(asEntity(circle)->getNumber(number).isOk());
    EXPECT_THAT(geometries, ::testing::ElementsAre(m_model->object(static_cast<unsigned>(number))));

    KFRSmartPointer<gsc::GSCICurve> curve;
    ASSERT_TRUE(m_query->getCurve(asEntity(circle), curve).isOk());
    double parameter = 0.0;
    GSCVectorStruct tangent;
    GSCVectorStruct normal;
    GSCVectorStruct binormal;
    EXPECT_TRUE(curve->closestParameter({0.0, 9.0, 5.0}, parameter).isOk());
    EXPECT_TRUE(curve->evaluate(parameter, tangent, normal, binormal).isOk());
    EXPECT_THAT(tangent, IsNearRecord(GSCVectorStruct{-1.0, 0.0, 0.0}));
    EXPECT_THAT(normal, IsNearRecord(GSCVectorStruct{0.0, -1.0, 0.0}));
    EXPECT_THAT(binormal, IsNearRecord(GSCVectorStruct{0.0, 0.0, 1.0}));
    ASSERT_TRUE(m_query->getCurve(asEntity(seam()), curve).isOk());
    EXPECT_TRUE(curve->evaluate(1.0, tangent, normal, binormal).isOk());
    EXPECT_NEAR(std::abs(tangent.z), 1.0, 1e-9);
    EXPECT_EQ(normal, GSCVectorStruct{}) << "a straight curve has no normal";
    EXPECT_EQ(binormal, GSCVectorStruct{});
}

TEST_F(CylinderEntities, FailWhenTheirModelHasGone)
{
    auto const face = side();
    auto const edge = KFR::strict_cast<gsc::KFRIVTKEdge>(topCircle());
    auto const vertex = KFR::strict_cast<gsc::KFRIVTKVertex>(
        entity(numbersOf(*m_model, EntityClass::vertex).front()));
    GSCPointStruct point = kUntouched;
    EXPECT_TRUE(vertex->getPoint(point).isOk());
    EXPECT_NEAR(point.x, 2.0, 1e-9);
    KFRSmartPointer<gsc::GSCICurve> curve;
    KFRSmartPointer<gsc::GSCISurface> surface;
    ASSERT_TRUE(m_query->getCurve(asEntity(edge), curve).isOk());
    ASSERT_TRUE(m_query->getSurface(asEntity(face), surface).isOk());

    m_model.reset();
    point = kUntouched;
    GSCPointStruct other = kUntouched;
    int number = 9;
    double value = 9.0;
    gsc::GSCSurfaceParameters parameters;
    EXPECT_FALSE(vertex->getPoint(point).isOk());
    EXPECT_FALSE(face->getProjection({}, point).isOk());
    EXPECT_FALSE(face->getArea(value).isOk());
    EXPECT_FALSE(edge->getEndPoints(point, other).isOk());
    EXPECT_FALSE(asEntity(edge)->getNumber(number).isOk());
    EXPECT_FALSE(curve->closestParameter({}, value).isOk());
    EXPECT_FALSE(surface->closestParameters({}, parameters).isOk());
    EXPECT_FALSE(m_query->getCurve(asEntity(edge), curve).isOk());
    EXPECT_EQ(point, kUntouched);
    EXPECT_EQ(other, kUntouched);
    EXPECT_EQ(number, 9);
    EXPECT_EQ(value, 9.0);
}

}  // namespace
}  // namespace vrn::orlo::host::geometryserver
