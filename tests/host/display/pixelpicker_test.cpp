#include "host/display/pixelpicker.h"

#include "host/display/frame.h"
#include "host/geometry/modelbuilder.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <numbers>
#include <stdexcept>

#include <BRepPrimAPI_MakeBox.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <TopoDS_Shape.hxx>

namespace vrn::orlo::host::display {
namespace {

using geometry::EntityClass;
using geometry::GeometryModel;
using geometry::Placement;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array kEdges{EntityClass::edge};
constexpr std::array kVertices{EntityClass::vertex};
constexpr std::array kParts{EntityClass::face, EntityClass::edge, EntityClass::vertex};
constexpr std::array kWholes{EntityClass::solidBody, EntityClass::volume};
constexpr Projection kBoth[] = {Projection::orthographic, Projection::perspective};

/// Turned about a slanted axis, mirrored, twice as large and aside.
Placement const kSkewed{{-0.72, 0.96, -1.6, 100, 1.6, 1.2, 0, -3, -0.96, 1.28, 1.2, 11}};

class PixelPickerTest : public ::testing::Test {
protected:
    /// One part, placed as often as there are placements.
    void show(TopoDS_Shape const& shape, std::vector<Placement> const& placements = {{}})
    {
        addPart(m_model, "part", shape, geometry::bodiesOf(shape));
        for (Placement const& placement : placements) {
            geometry::Instance leaf;
            leaf.m_part = 0;
            leaf.m_placement = placement;
            m_model.m_roots.push_back(leaf);
        }
        sumOverInstances(m_model);
        m_queries = std::make_unique<geometry::GeometryQueries>(m_model);
        m_instances = std::make_unique<geometry::GeometryPicker>(m_model);
        m_picker = std::make_unique<PixelPicker>(m_model, *m_instances, *m_queries);
    }
    [[nodiscard]] Camera cameraAlong(Vector const& direction, Projection projection) const
    {
        Box const box{m_model.m_box.m_min, m_model.m_box.m_max};
        return Camera::fit(box, 1000, 800, projection, direction, {0, 0.1, 1});
    }
    [[nodiscard]] std::vector<PixelHit> hitsAt(Camera const& camera, Vector const& point,
                                               std::span<EntityClass const> classes) const
    {
        Vector const screen = camera.modelToScreen(point).value();
        return m_picker->at(camera, screen[0], screen[1], classes);
    }
    [[nodiscard]] std::vector<unsigned> numbersOf(EntityClass entityClass) const
    {
        std::vector<unsigned> numbers;
        for (geometry::Entity const& entity : m_model.m_entities) {
            if (entity.m_class == entityClass) {
                numbers.push_back(entity.m_number);
            }
        }
        return numbers;
    }
    [[nodiscard]] Frame frameOf(unsigned instance) const
    {
        return Frame(m_instances->instances()[instance].m_placement.m_rows);
    }
    [[nodiscard]] Vector middleOf(unsigned number, unsigned instance) const
    {
        return frameOf(instance).toModel(m_queries->middleOf(number).value());
    }
    /// Of a face of a convex body: whether its outer side is to the eye.
    [[nodiscard]] bool isFacing(unsigned face, unsigned instance, Camera const& camera) const
    {
        Vector const centre = frameOf(instance).toModel(Vector{5, 10, 15});
        Vector const outward = difference(middleOf(face, instance), centre);
        Vector const screen = camera.modelToScreen(middleOf(face, instance)).value();
        // A block's faces are square to the way from its centre to their middles.
        return dot(outward, camera.sight(screen[0], screen[1]).m_direction) < 0.0;
    }
    [[nodiscard]] bool hasFacing(unsigned part, unsigned instance, Camera const& camera) const
    {
        auto const faces = m_model.parents(part, EntityClass::face);
        return std::any_of(faces.begin(), faces.end(),
                           [&](unsigned face) { return isFacing(face, instance, camera); });
    }

    GeometryModel m_model;
    std::unique_ptr<geometry::GeometryQueries> m_queries;
    std::unique_ptr<geometry::GeometryPicker> m_instances;
    std::unique_ptr<PixelPicker> m_picker;
};

bool isHit(std::vector<PixelHit> const& hits, unsigned number, unsigned instance)
{
    return std::any_of(hits.begin(), hits.end(), [&](PixelHit const& hit) {
        return hit.m_number == number && hit.m_instance == instance;
    });
}

TEST_F(PixelPickerTest, OfABlockThePartsOfFacingSidesAreFoundFirst)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape(), {{}, kSkewed});
    for (Projection const projection : kBoth) {
        for (Vector const& direction : {Vector{1, 2, -3}, Vector{-1, 3, 0.8}, Vector{0.2, -2, 1}}) {
            Camera const camera = cameraAlong(direction, projection);
            for (unsigned instance = 0; instance < 2; ++instance) {
                for (EntityClass const entityClass : kParts) {
                    for (unsigned const number : numbersOf(entityClass)) {
                        SCOPED_TRACE(number);
                        bool const isFace = entityClass == EntityClass::face;
                        bool const isSeen = isFace ? isFacing(number, instance, camera)
                                                   : hasFacing(number, instance, camera);
                        Vector const point = middleOf(number, instance);
                        std::array const one{entityClass};
                        auto const hits = hitsAt(camera, point, one);
                        EXPECT_EQ(isHit(hits, number, instance), isSeen || isFace);
                        // A side that is seen from its side has its edges within the pick size.
                        auto const all = isFace ? hits : hitsAt(camera, point, kParts);
                        ASSERT_FALSE(all.empty());
                        EXPECT_EQ(all[0].m_number == number, isSeen);
                        if (isSeen) {
                            EXPECT_EQ(all[0].m_instance, instance);
                            EXPECT_NEAR(length(difference(all[0].m_point, point)), 0.0, 1e-5);
                            EXPECT_NEAR(all[0].m_pixels, 0.0, 1e-3);
                        }
                    }
                }
            }
        }
    }
}

TEST_F(PixelPickerTest, VerticesGoBeforeEdgesBeforeFacesWhateverTheirDepth)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape());
    Camera const camera = cameraAlong({0.5, 1, -1}, Projection::perspective);
    std::vector<EntityClass> classes;
    for (PixelHit const& hit : hitsAt(camera, {0.05, 19.95, 30}, kParts)) {
        classes.push_back(m_model.entity(hit.m_number)->m_class);
    }
    using enum EntityClass;
    // The second face is where the line of sight goes out.
    EXPECT_THAT(classes, ElementsAre(vertex, edge, edge, edge, face, face));

    // On all sides of a corner: on its faces, and beside the block.
    for (unsigned const number : numbersOf(vertex)) {
        Vector const screen = camera.modelToScreen(middleOf(number, 0)).value();
        for (int i = 0; i < 9 && hasFacing(number, 0, camera); ++i) {
            auto const hits = m_picker->at(camera, screen[0] + 2 * (i % 3) - 2,
                                           screen[1] + 2 * (i / 3) - 2, kParts);
            ASSERT_FALSE(hits.empty());
            EXPECT_EQ(hits[0].m_number, number) << i;
        }
    }
}

TEST_F(PixelPickerTest, WhatLiesBehindTheEyeIsNotFound)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape());
    Camera::View view;
    view.m_eye = {5, 10, 15};
    view.m_target = {5, 10, 30};
    view.m_projection = Projection::perspective;
    Camera const inside(view, 1000, 800);
    auto const hits = m_picker->at(inside, 500, 400, kParts);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_NEAR(hits[0].m_point[2], 30.0, 1e-9);
}

TEST_F(PixelPickerTest, ARimIsHiddenAtTheBackAndSeenInFront)
{
    show(BRepPrimAPI_MakeCylinder(10, 20).Shape());
    constexpr double kPi = std::numbers::pi;
    for (Projection const projection : kBoth) {
        Camera const camera = cameraAlong({0, 1, -0.5}, projection);
        for (double const degrees : {200.0, 230.0, 270.0, 333.0, 20.0, 90.0, 150.0}) {
            double const angle = degrees * kPi / 180.0;
            Vector const onRim{10 * std::cos(angle), 10 * std::sin(angle), 0};
            auto const hits = hitsAt(camera, onRim, kEdges);
            bool const isFront = degrees > 180.0;
            ASSERT_EQ(hits.size(), isFront ? 1U : 0U) << degrees;
            if (isFront) {
                EXPECT_NEAR(length(difference(hits[0].m_point, onRim)), 0.0, 1e-4) << degrees;
            }
        }
        // Near the lowest point of the rim on the screen, which a level pixel cannot leave.
        Vector const screen = camera.modelToScreen({0, -10, 0}).value();
        auto const below = m_picker->at(camera, screen[0], screen[1] + 3, kEdges);
        ASSERT_EQ(below.size(), 1U);
        EXPECT_NEAR(below[0].m_pixels, 3.0, 1e-3);
        EXPECT_THAT(m_picker->at(camera, screen[0], screen[1] + 5, kEdges), IsEmpty());
        EXPECT_EQ(m_picker->at(camera, screen[0], screen[1] + 5, kEdges, 6).size(), 1U);
    }
}

TEST_F(PixelPickerTest, AnEdgeSeenFromItsEndIsHitAtTheNearEnd)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape());
    Camera const camera = cameraAlong({0, 0, -1}, Projection::orthographic);
    EXPECT_EQ(hitsAt(camera, {0, 20, 0}, kEdges).size(), 3U);
    auto const vertices = hitsAt(camera, {0, 20, 0}, kVertices);
    ASSERT_EQ(vertices.size(), 1U);
    EXPECT_EQ(vertices[0].m_point, (Vector{0, 20, 30}));
    for (PixelHit const& hit : hitsAt(camera, {0, 20, 0}, kEdges)) {
        EXPECT_NEAR(hit.m_point[2], 30.0, 1e-9);
    }
}

TEST_F(PixelPickerTest, WholesAreFoundByTheirFacesOnce)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape(), {{}, kSkewed});
    Camera const camera = cameraAlong({1, 2, -3}, Projection::perspective);
    auto const hits = hitsAt(camera, frameOf(1).toModel(Vector{5, 10, 15}), kWholes);
    ASSERT_EQ(hits.size(), 2U);
    EXPECT_EQ(m_model.entity(hits[0].m_number)->m_class, EntityClass::volume);
    EXPECT_EQ(m_model.entity(hits[1].m_number)->m_class, EntityClass::solidBody);
    EXPECT_EQ(hits[1].m_instance, 1U);
    EXPECT_LT(hits[1].m_depth,
              camera.modelToScreen(frameOf(1).toModel(Vector{5, 10, 15})).value()[2]);
}

TEST_F(PixelPickerTest, OutsideOfTheModelNothingIsFoundAndOutsideOfTheWindowItThrows)
{
    show(BRepPrimAPI_MakeBox(10, 20, 30).Shape());
    Camera const camera = cameraAlong({1, 2, -3}, Projection::perspective);
    EXPECT_THAT(m_picker->at(camera, 0.5, 0.5, kParts), IsEmpty());
    EXPECT_THAT(m_picker->at(camera, 500, 400, {}), IsEmpty());
    try {
        (void)m_picker->at(camera, 1200, 40, kParts);
        FAIL() << "a pixel outside is taken";
    } catch (std::out_of_range const& error) {
        EXPECT_STREQ(error.what(), "pixel 1200,40 is outside the window of 1000 x 800");
    }
    EXPECT_THROW((void)m_picker->at(camera, 500, 400, kParts, -1), std::invalid_argument);
}

}  // namespace
}  // namespace vrn::orlo::host::display
