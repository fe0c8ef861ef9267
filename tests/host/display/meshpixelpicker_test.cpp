#include "host/display/meshpixelpicker.h"

#include "host/meshing/meshstore.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <numeric>
#include <stdexcept>
#include <string>

namespace vrn::orlo::host::display {
namespace {

using meshing::ElementType;
using meshing::LocalNumber;
using meshing::MeshStore;
using ::testing::IsEmpty;
using Nodes = std::vector<LocalNumber>;

constexpr std::array kNodes{MeshClass::node};
constexpr std::array kElements{MeshClass::element};
constexpr std::array kAll{MeshClass::element, MeshClass::node};

meshing::Numbering counted(std::size_t count)
{
    std::vector<meshing::ExternalId> ids(count);
    std::iota(ids.begin(), ids.end(), 1);
    return meshing::Numbering(std::move(ids));
}

MeshStore storeOf(std::vector<meshing::Point> positions,
                  std::vector<std::pair<ElementType, Nodes>> const& elements)
{
    MeshStore::Content content;
    content.m_typeNames = {"any"};
    for (auto const& [type, nodes] : elements) {
        auto const first = static_cast<std::uint32_t>(content.m_connectivity.size());
        content.m_rows.push_back({first, 0, type});
        content.m_connectivity.insert(content.m_connectivity.end(), nodes.begin(), nodes.end());
    }
    content.m_nodes = counted(positions.size());
    content.m_positions = std::move(positions);
    content.m_elements = counted(elements.size());
    return MeshStore(std::move(content));
}

/// Two cubes of 1 mm side by side along x, and a bar that sticks out from below x = 0.
MeshStore twoCubes()
{
    return storeOf({{0, 0, 0},
                    {1, 0, 0},
                    {1, 1, 0},
                    {0, 1, 0},
                    {0, 0, 1},
                    {1, 0, 1},
                    {1, 1, 1},
                    {0, 1, 1},
                    {2, 0, 0},
                    {2, 1, 0},
                    {2, 0, 1},
                    {2, 1, 1},
                    {-1, 0.5, 0.5}},
                   {{ElementType::hexa8, {1, 2, 3, 4, 5, 6, 7, 8}},
                    {ElementType::hexa8, {2, 9, 10, 3, 6, 11, 12, 7}},
                    {ElementType::line2, {13, 1}}});
}

Camera cameraOn(Box const& box, Vector const& direction, Projection projection)
{
    return Camera::fit(box, 1000, 800, projection, direction, {0, 1, 0.1});
}

std::vector<MeshHit> hitsAt(MeshPixelPicker const& picker, Camera const& camera,
                            Vector const& point, std::span<MeshClass const> classes)
{
    Vector const screen = camera.modelToScreen(point).value();
    return picker.at(camera, screen[0], screen[1], classes);
}

/// "E2.1@0" for face 1 of element 2 in instance 0.
std::string textOf(std::vector<MeshHit> const& hits)
{
    std::string text;
    for (MeshHit const& hit : hits) {
        text += text.empty() ? "" : " ";
        text += hit.m_class == MeshClass::node ? "N" : "E";
        text += std::to_string(hit.m_hit.m_number) + '.' + std::to_string(hit.m_face) + '@' +
                std::to_string(hit.m_hit.m_instance);
    }
    return text;
}

TEST(MeshPixelPicker, FindsWhatAUserSees)
{
    MeshStore const store = twoCubes();
    // The second instance is turned by 90 degrees about z and 5 mm aside.
    Frame const turned({0, -1, 0, 0, 1, 0, 0, 5, 0, 0, 1, 0});
    Frame const straight;
    MeshPixelPicker const picker(store, {straight, turned});
    struct Row {
        char const* m_name;
        Vector m_direction;
        Frame m_frame;
        Vector m_point;  // in the part
        std::span<MeshClass const> m_classes;
        char const* m_hits;
    };
    // clang-format off
    Row const rows[] = {
        {"top, from above",       {0, 0, -1},        straight, {1.5, 0.5, 1},
         kElements, "E2.1@0"},
        {"top of the turned one", {0, 0, -1},        turned,   {1.5, 0.5, 1},
         kElements, "E2.1@1"},
        {"bottom, from below",    {0, 0, 1},         turned,   {0.5, 0.5, 0},
         kElements, "E1.0@1"},
        {"both, from the end",    {-1, 0, 0},        straight, {2, 0.5, 0.4},
         kElements, "E2.3@0 E1.5@0"},
        {"a corner",              {-1, -1, -1},      straight, {2, 1, 1},
         kNodes,    "N12.0@0"},
        {"a node goes first",     {-1, 0, 0},        straight, {2, 0.001, 0.999},
         kAll,      "N11.0@0 E2.3@0 E1.5@0"},
        {"a corner at the back",  {-1, -0.7, -1.3},  straight, {0, 0, 0},
         kNodes,    ""},
        {"a turned corner",       {-1, -1, -1},      turned,   {2, 0, 1},
         kNodes,    "N11.0@1"},
        {"a bar behind",          {-1, 0, 0},        straight, {-1, 0.5, 0.5},
         kNodes,    ""},
        {"a bar in front",        {1, 0, 0},         straight, {-1, 0.5, 0.5},
         kAll,      "N13.0@0 E1.5@0 E2.3@0"},
        {"beside all",            {0, 0, -1},        straight, {-0.5, 0.1, 1},
         kAll,      ""},
    };
    // clang-format on
    for (Row const& row : rows) {
        Vector const point = row.m_frame.toModel(row.m_point);
        Camera const camera = cameraOn(picker.box(), row.m_direction, Projection::orthographic);
        EXPECT_EQ(textOf(hitsAt(picker, camera, point, row.m_classes)), row.m_hits) << row.m_name;
    }
    Camera const above = cameraOn(picker.box(), {0, 0, -1}, Projection::perspective);
    auto const hits = hitsAt(picker, above, {1.5, 0.5, 1}, kElements);
    ASSERT_EQ(hits.size(), 1U);
    EXPECT_NEAR(length(difference(hits[0].m_hit.m_point, {1.5, 0.5, 1})), 0.0, 1e-9);
    EXPECT_THROW((void)picker.at(above, 1001, 1, kAll), std::out_of_range);
}

TEST(MeshPixelPicker, WhatLiesBehindTheEyeIsNotFound)
{
    MeshStore const store = twoCubes();
    MeshPixelPicker const picker(store);
    Camera::View view;
    view.m_eye = {0.5, 0.5, 0.5};
    view.m_target = {2, 0.5, 0.5};
    view.m_near = 0.01;
    view.m_projection = Projection::perspective;
    EXPECT_EQ(textOf(picker.at(Camera(view, 1000, 800), 500, 400, kAll)), "E2.3@0");
}

TEST(PixelHit, OfTwoPointsOnOneSpotTheOneInFrontIsBetter)
{
    auto const hit = [](double pixels, double depth) {
        return PixelHit{0, 0, depth, {}, pixels};
    };
    EXPECT_TRUE(isBetter(hit(1.00001, 5), hit(1, 6)));
    EXPECT_FALSE(isBetter(hit(1, 6), hit(1.00001, 5)));
    EXPECT_TRUE(isBetter(hit(1, 6), hit(1.1, 5)));
}

TEST(MeshPixelPicker, AFaceIsHitAllOver)
{
    struct Row {
        ElementType m_type;
        Nodes m_nodes;
        bool m_isTriangle;
    };
    std::vector<meshing::Point> const positions{{0, 0, 0}, {4, 0, 0}, {4, 4, 0},
                                                {0, 4, 0}, {2, 0, 0}, {4, 2, 0},
                                                {2, 4, 0}, {0, 2, 0}, {2, 2, 0}};
    Row const rows[] = {
        {ElementType::triangle3, {1, 2, 4}, true},
        {ElementType::triangle6, {1, 2, 4, 5, 9, 8}, true},
        {ElementType::quad4, {1, 2, 3, 4}, false},
        {ElementType::quad8, {1, 2, 3, 4, 5, 6, 7, 8}, false},
    };
    for (Row const& row : rows) {
        MeshStore const store = storeOf(positions, {{row.m_type, row.m_nodes}});
        MeshPixelPicker const picker(store);
        Camera const camera =
            cameraOn({{-1, -1, 0}, {5, 5, 0}}, {0.1, 0.2, -1}, Projection::perspective);
        for (double x = -0.25; x < 4.5; x += 0.5) {
            for (double y = -0.125; y < 4.5; y += 0.5) {
                bool const isIn =
                    std::min(x, y) > 0 && std::max(x, y) < 4 && (!row.m_isTriangle || x + y < 4);
                EXPECT_EQ(hitsAt(picker, camera, {x, y, 0}, kElements).size(), isIn ? 1U : 0U)
                    << meshing::traitsOf(row.m_type).m_nodeCount << " nodes at " << x << ' ' << y;
            }
        }
    }
}

TEST(MeshPixelPicker, FindsEachElementOfALargeMesh)
{
    constexpr LocalNumber kSide = 40;
    std::vector<meshing::Point> positions;
    std::vector<std::pair<ElementType, Nodes>> elements;
    for (LocalNumber i = 0; i < kSide * kSide; ++i) {
        double const x = i % kSide;
        double const y = i / kSide;
        positions.push_back({x, y, 0.01 * x * y});
        if (i % kSide > 0 && i >= kSide) {
            elements.push_back({ElementType::quad4, {i - kSide, i + 1 - kSide, i + 1, i}});
        }
    }
    MeshStore const store = storeOf(positions, elements);
    MeshPixelPicker const picker(store);
    Camera const camera = cameraOn(picker.box(), {0, 0, -1}, Projection::perspective);
    for (LocalNumber element = 1; element <= elements.size(); ++element) {
        Vector const a = store.position(store.nodesOf(element)[0]);
        Vector const c = store.position(store.nodesOf(element)[2]);
        auto const hits = hitsAt(picker, camera, sum(a, difference(c, a), 0.5), kElements);
        ASSERT_EQ(textOf(hits), "E" + std::to_string(element) + ".0@0");
    }
    MeshStore const none = storeOf({}, {});
    EXPECT_THAT(MeshPixelPicker(none).at(camera, 500, 400, kAll), IsEmpty());
}

}  // namespace
}  // namespace vrn::orlo::host::display
