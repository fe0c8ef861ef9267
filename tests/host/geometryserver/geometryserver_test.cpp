#include "host/geometry/geometryimport.h"
#include "host/geometryserver/servertesting.h"
#include "host/kernel/servicename.h"
#include "tests/support/shareddata.h"

#include <array>
#include <cmath>
#include <limits>
#include <set>
#include <stdexcept>
#include <utility>

namespace vrn::orlo::host::geometryserver {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr std::array kClasses{7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 18, 21, 22};

using GeometryServerTest = WithServer<>;
using RealModel = WithServer<vrn::orlo::test::WithSharedData>;

TEST_F(RealModel, ChildrenAndParentsAreEachOthersReverse)
{
    auto const model = open(geometry::importGeometry(sharedFile("step", "as1-tu-203.stp")));
    std::set<std::pair<int, int>> down;
    std::set<std::pair<int, int>> up;
    for (geometry::Entity const& entity : model->geometry().m_entities) {
        auto const number = static_cast<int>(entity.m_number);
        for (int const entityClass : kClasses) {
            for (int const child : children(number, entityClass)) {
                down.emplace(number, child);
            }
            for (int const parent : parents(number, entityClass)) {
                up.emplace(parent, number);
            }
        }
        EXPECT_THAT(children(number, gsc::kSubEdgeClass), IsEmpty());
        EXPECT_THAT(children(number, gsc::kHardPointClass), IsEmpty());
        bool const isBody = geometry::isBodyClass(entity.m_class);
        EXPECT_THAT(parents(number, gsc::kBodyOfAnyClass), SizeIs(isBody ? 0 : 1));
    }
    EXPECT_EQ(down, up);
    EXPECT_GT(down.size(), model->geometry().m_entities.size());
}

TEST_F(GeometryServerTest, EdgesOfABoxLieBetweenTwoFacesOfOneBody)
{
    auto const other = open(boxModel("other"));
    auto const model = open(boxModel("box"));
    int const body = numbersOf(*model, EntityClass::solidBody).front();
    EXPECT_THAT(children(body, gsc::kVolumeClass), SizeIs(1));
    EXPECT_THAT(children(body, gsc::kEdgeClass), SizeIs(12));
    EXPECT_THAT(children(body, gsc::kFaceClass), numbersOf(*model, EntityClass::face));
    for (int const edge : children(body, gsc::kEdgeClass)) {
        EXPECT_THAT(parents(edge, gsc::kFaceClass), SizeIs(2));
        EXPECT_THAT(parents(edge, gsc::kBodyOfAnyClass), ElementsAre(body));
        EXPECT_THAT(parents(edge, 7), ElementsAre(body));
        EXPECT_THAT(parents(edge, 8), IsEmpty());
    }
    EXPECT_THAT(children(body, 7 + 256), IsEmpty()) << "no class at all";
    gsc::GSCPointStruct low;
    gsc::GSCPointStruct high;
    EXPECT_TRUE(m_query->getBoundingBox(body, low, high).isOk());
    EXPECT_THAT(low, IsNearRecord(gsc::GSCPointStruct{}));
    EXPECT_THAT(high, IsNearRecord(gsc::GSCPointStruct{2.0, 3.0, 4.0}));
}

TEST_F(GeometryServerTest, NoNumberIsGivenTwice)
{
    auto first = open(boxModel("first"));
    auto const second = open(boxModel("second"));
    Entity line;
    EXPECT_TRUE(m_modify->makeLine({}, {0, 0, 1}, line).isOk());
    int lineNumber = 0;
    EXPECT_TRUE(line->getNumber(lineNumber).isOk());
    int const firstFace = numbersOf(*first, EntityClass::face).front();
    int const secondFace = numbersOf(*second, EntityClass::face).front();
    EXPECT_LT(firstFace, secondFace);
    EXPECT_LT(numbersOf(*second, EntityClass::vertex).back(), lineNumber);

    first.reset();
    EXPECT_TRUE(m_modify->deleteEntity(line).isOk());
    auto const third = open(boxModel("third"));
    EXPECT_LT(lineNumber, numbersOf(*third, EntityClass::solidBody).front());
    EXPECT_FALSE(exists(firstFace));
    EXPECT_TRUE(exists(secondFace));
    for (int const nothing : {0, -1, std::numeric_limits<int>::max(), lineNumber}) {
        EXPECT_FALSE(exists(nothing)) << nothing;
    }
    EXPECT_THROW(m_server->takeNumbers(std::numeric_limits<int>::max()), std::length_error);
    EXPECT_THROW(m_server->open(third->geometryStore()), std::invalid_argument) << "again";
    model::Model const stranger(boxModel("numbered from 1"), *m_types);
    EXPECT_THROW(m_server->open(stranger.geometryStore()), std::invalid_argument)
        << "numbers that were taken by others";
}

TEST_F(GeometryServerTest, WhatIsDeletedIsNeitherFoundNorAnybodysChild)
{
    auto const model = open(boxModel("box"));
    int const body = numbersOf(*model, EntityClass::solidBody).front();
    int const face = numbersOf(*model, EntityClass::face).front();
    int const edge = children(face, gsc::kEdgeClass).front();
    Entity const kept = entity(face);
    KFRSmartPointer<CAE::IGeometryInterface> object;
    auto const remove = [&](int number) {
        EXPECT_TRUE(m_session->getGeometry(number, object).isOk());
        EXPECT_TRUE(model->remove(KFR::strict_cast<appfw::IEntityInterface>(object)).isOk());
    };
    remove(face);
    EXPECT_FALSE(exists(face));
    EXPECT_THAT(children(body, gsc::kFaceClass), SizeIs(5));
    EXPECT_THAT(parents(edge, gsc::kFaceClass), SizeIs(1));
    bool suppressed = true;
    EXPECT_FALSE(kept->isSuppressed(suppressed).isOk());
    EXPECT_FALSE(m_session->getGeometry(face, object).isOk());
    remove(body);
    EXPECT_FALSE(exists(edge));
}

TEST_F(GeometryServerTest, ALineFindsWhatItMeetsAndIsGoneAfterwards)
{
    auto const model = open(boxModel("box"));
    std::vector<int> const faces = numbersOf(*model, EntityClass::face);
    gsc::GSCPointStruct const origin{1.0, 1.0, -5.0};
    Entity line;
    ASSERT_TRUE(m_modify->makeLine(origin, {0, 0, 2}, line).isOk());
    std::vector<int> met;
    for (int const face : faces) {
        gsc::GSCPointList points{kUntouched};
        EXPECT_TRUE(m_query->getIntersections(line, entity(face), points).isOk());
        if (!points.empty()) {
            met.push_back(face);
            EXPECT_THAT(points.front(),
                        IsNearRecord(gsc::GSCPointStruct{1.0, 1.0, met.size() == 1 ? 0.0 : 4.0}));
        }
    }
    ASSERT_THAT(met, SizeIs(2)) << "the lower one first, as a box's faces are numbered";

    gsc::GSCPointStruct onEdge = kUntouched;
    gsc::GSCPointStruct onLine = kUntouched;
    for (int const edge : children(met[1], gsc::kEdgeClass)) {
        EXPECT_TRUE(m_query->getLeastDistance(entity(edge), line, onEdge, onLine).isOk());
        EXPECT_THAT(onLine, IsNearRecord(gsc::GSCPointStruct{1.0, 1.0, 4.0}));
        EXPECT_NEAR(onEdge.z, 4.0, 1e-6);
    }
    EXPECT_FALSE(m_query->getLeastDistance(entity(met[0]), line, onEdge, onLine).isOk());

    Entity tied;
    gsc::GSCPointList points{kUntouched};
    ASSERT_TRUE(m_modify->makeLineForFace(origin, {0, 0, 1}, entity(met[0]), tied).isOk());
    EXPECT_FALSE(m_query->getIntersections(tied, entity(met[1]), points).isOk()) << "another face";
    EXPECT_THAT(points, ElementsAre(kUntouched));
    EXPECT_TRUE(m_query->getIntersections(tied, entity(met[0]), points).isOk());
    EXPECT_THAT(points, SizeIs(1));

    EXPECT_EQ(m_server->temporaryCount(), 2U);
    gsc::GSCKernelTag tag;
    EXPECT_FALSE(line->getKernelTag(tag).isOk());
    for (Entity const& made : {line, tied}) {
        EXPECT_TRUE(m_modify->deleteEntity(made).isOk());
        EXPECT_FALSE(m_modify->deleteEntity(made).isOk());
        EXPECT_FALSE(m_query->getIntersections(made, entity(met[0]), points).isOk());
    }
    EXPECT_FALSE(m_modify->deleteEntity(entity(met[0])).isOk());
    EXPECT_FALSE(m_modify->makeLine({std::nan(""), 0, 0}, {0, 0, 1}, line).isOk());
    EXPECT_FALSE(m_modify->makeLine({}, {}, line).isOk());
    EXPECT_FALSE(m_modify->makeLineForFace({}, {0, 0, 1}, {}, line).isOk());
    EXPECT_EQ(m_server->temporaryCount(), 0U);
}

TEST_F(GeometryServerTest, SessionAndCommonServiceLeadFromNumbersToObjects)
{
    kernel::Kernel kernel;
    auto const common = KFR::make<model::GeometryCommonService>();
    KFRSmartPointer<plugin::geometry::KFRIGeomSession> session;
    EXPECT_FALSE(common->getSession(session).isOk());
    registerGeometryServer(kernel, m_server, *common);
    ASSERT_TRUE(common->getSession(session).isOk());
    KFRResult result;
    auto const server = KFR::loose_cast<gsc::KFRIGSCServer>(
        kernel.services().getService(kernel::serviceNameOf("getGSCServer"), result));
    KFRSmartPointer<gsc::KFRIGSCSession> active;
    ASSERT_TRUE(server != KFR::NULLSP && server->getActiveSession(active).isOk());
    KFRSmartPointer<gsc::GSCIQueryTool> tool;
    KFRSmartPointer<gsc::GSCIQueryTool> same;
    EXPECT_TRUE(session->getQueryTool(tool).isOk() && active->getQueryTool(same).isOk());
    EXPECT_EQ(tool, same);

    auto first = open(boxModel("first"));
    auto const second = open(boxModel("second"));
    common->addModel(first->root(), first->geometryStore());
    common->addModel(second->root(), second->geometryStore());
    int const face = numbersOf(*second, EntityClass::face).front();
    auto const number = static_cast<unsigned>(face);
    KFRSmartPointer<CAE::IGeometryInterface> object;
    KFRSmartPointer<CAE::IGeomBodyInterface> body;
    KFRSmartPointer<CAE::IPartInterface> part;
    unsigned typeId = 0;
    EXPECT_TRUE(session->getGeometry(face, object).isOk());
    EXPECT_EQ(object, second->object(number));
    EXPECT_FALSE(session->getGeomBody(face, body).isOk());
    EXPECT_TRUE(session->getGeomBody(numbersOf(*second, EntityClass::solidBody)[0], body).isOk());
    EXPECT_TRUE(session->getPart(face, part).isOk());
    EXPECT_EQ(part, second->parts().front());
    EXPECT_TRUE(session->getTypeId(face, typeId).isOk());
    EXPECT_EQ(typeId, second->reference(number).typeId);

    CAE::EntityReference reference;
    EXPECT_TRUE(common->findInModel(second->root(), face, reference).isOk());
    EXPECT_EQ(reference, second->reference(number));
    EXPECT_FALSE(common->findInModel(first->root(), face, reference).isOk());
    EXPECT_FALSE(common->findInModel({}, face, reference).isOk());
    int const ofFirst = numbersOf(*first, EntityClass::face).front();
    auto const root = first->root();
    EXPECT_TRUE(common->findInModel(root, ofFirst, reference).isOk());
    first.reset();
    EXPECT_FALSE(common->findInModel(root, ofFirst, reference).isOk());

    m_server.reset();
    Entity none;
    EXPECT_FALSE(tool->getEntity(face, none).isOk());
    EXPECT_FALSE(m_modify->makeLine({}, {0, 0, 1}, none).isOk());
    EXPECT_FALSE(session->getPart(face, part).isOk());
}

}  // namespace
}  // namespace vrn::orlo::host::geometryserver
