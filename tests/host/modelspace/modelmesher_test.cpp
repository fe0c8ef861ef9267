#include "host/modelspace/modelmesher.h"

#include "host/geometry/modelbuilder.h"
#include "host/geometry/shapestore.h"
#include "host/kernel/typeregistry.h"
#include "host/meshing/remesh.h"
#include "host/model/testevents.h"

#include <gmock/gmock.h>

#include <BRepPrimAPI_MakeBox.hxx>

#include <limits>
#include <set>
#include <stdexcept>

namespace vrn::orlo::host::modelspace {
namespace {

using meshing::ExternalId;
using meshing::MeshStore;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// A model of parts that are a cube each.
class MeshingAModel : public ::testing::Test {
protected:
    MeshingAModel() { m_model = cubes(3); }
    ~MeshingAModel() override { m_events->m_events.clear(); }  // they hold entities

    std::unique_ptr<model::Model> cubes(std::size_t count)
    {
        geometry::GeometryModel geometry;
        for (std::size_t i = 0; i < count; ++i) {
            TopoDS_Shape const cube = BRepPrimAPI_MakeBox(10.0, 10.0, 10.0).Shape();
            auto& root = geometry.m_roots.emplace_back();
            root.m_part = static_cast<int>(
                addPart(geometry, "cube" + std::to_string(i), cube, geometry::bodiesOf(cube)));
        }
        sumOverInstances(geometry);
        return std::make_unique<model::Model>(std::move(geometry), *m_registry, m_service);
    }
    static MeshRequest sized(double size)
    {
        MeshRequest request;
        request.m_options.m_size = size;
        return request;
    }
    std::vector<PartMeshReport> mesh(MeshRequest const& request)
    {
        return meshModel(*m_model, request, m_types, m_service, &m_history);
    }
    [[nodiscard]] std::shared_ptr<MeshStore const> store(std::size_t part) const
    {
        auto const mesh = meshing::meshPartOf(*m_model->parts()[part]);
        return mesh != nullptr && !mesh->isDeleted() ? mesh->tables()->sharedStore() : nullptr;
    }
    [[nodiscard]] unsigned numberOf(std::size_t part, geometry::EntityClass entityClass) const
    {
        for (geometry::Entity const& entity : m_model->geometry().entitiesOf(part)) {
            if (entity.m_class == entityClass) {
                return entity.m_number;
            }
        }
        return 0;
    }

    KFRSmartPointer<test::NotingEventManager> m_events = KFR::make<test::NotingEventManager>();
    std::shared_ptr<model::EntityService> m_service =
        std::make_shared<model::EntityService>(m_events);
    KFRSmartPointer<kernel::TypeRegistry> m_registry = KFR::make<kernel::TypeRegistry>(7U);
    meshing::MeshTypes m_types{*m_registry};
    commands::UndoStack m_history{10, [](commands::HistoryEvent, std::string const&) {
                                  }};
    std::unique_ptr<model::Model> m_model;
};

TEST_F(MeshingAModel, GivesNoIdTwiceInAnyPart)
{
    MeshRequest request = sized(5.0);
    request.m_options.m_firstNodeId = 1000;
    request.m_options.m_firstElementId = 5'000'000'000;
    double last = 0.0;
    auto const reports = meshModel(*m_model, request, m_types, m_service, nullptr,
                                   [&](double fraction, std::string const&) {
                                       EXPECT_GE(fraction, last);
                                       last = fraction;
                                   });
    EXPECT_LE(last, 1.0);
    EXPECT_GT(last, 0.7);
    ASSERT_THAT(reports, SizeIs(3));
    std::set<ExternalId> nodes, elements;
    std::size_t nodeCount = 0, elementCount = 0;
    for (PartMeshReport const& report : reports) {
        EXPECT_THAT(report.m_failures, IsEmpty());
        auto const& ids = store(report.m_part)->nodes().ids();
        auto const& elementIds = store(report.m_part)->elements().ids();
        EXPECT_EQ(ids.size(), report.m_nodes);
        EXPECT_EQ(elementIds.size(), report.m_elements);
        nodes.insert(ids.begin(), ids.end());
        elements.insert(elementIds.begin(), elementIds.end());
        nodeCount += ids.size();
        elementCount += elementIds.size();
    }
    EXPECT_EQ(nodes.size(), nodeCount);
    EXPECT_EQ(elements.size(), elementCount);
    EXPECT_EQ(*nodes.begin(), 1000);
    EXPECT_EQ(*nodes.rbegin(), 1000 + static_cast<ExternalId>(nodeCount) - 1);
    EXPECT_EQ(*elements.begin(), 5'000'000'000);
    EXPECT_THAT(m_history.undoNames(), IsEmpty()) << "a run without a history";
}

TEST_F(MeshingAModel, TakesSizesOfPartsAndFaces)
{
    MeshRequest request = sized(5.0);
    request.m_partSizes[1] = 2.5;
    request.m_options.m_faceSizes[numberOf(2, geometry::EntityClass::face)] = 1.0;
    auto const reports = mesh(request);
    ASSERT_THAT(reports, SizeIs(3));
    EXPECT_GT(reports[1].m_elements, 3 * reports[0].m_elements);
    auto const nodesOn = [this](std::size_t part) {
        return store(part)->meshOn(numberOf(part, geometry::EntityClass::face))->m_nodes.size();
    };
    EXPECT_GT(nodesOn(2), 100U);
    EXPECT_LT(nodesOn(0), 30U);
}

TEST_F(MeshingAModel, ChangesNothingForASizeThatCannotBe)
{
    static_cast<void>(mesh(sized(5.0)));
    std::vector<std::shared_ptr<MeshStore const>> const before{store(0), store(1), store(2)};
    struct Row {
        char const* name;
        MeshRequest request;
        char const* text;
    };
    auto const changed = [](auto const& change) {
        MeshRequest request = sized(5.0);
        change(request);
        return request;
    };
    unsigned const body = numberOf(2, geometry::EntityClass::solidBody);
    unsigned const face = numberOf(2, geometry::EntityClass::face);
    for (Row const& row : {
             Row{"zero", sized(0.0), "the mesh size is 0 mm"},
             Row{"below zero", sized(-1.0), "the mesh size is -1 mm"},
             Row{"no number", sized(kNaN), "nan mm"},
             Row{"larger than the body", sized(18.0), "diagonal of 17.3205 mm"},
             Row{"of the last part", changed([](auto& r) { r.m_partSizes[2] = 0.0; }), "\"cube2\""},
             Row{"of no part", changed([](auto& r) { r.m_partSizes[3] = 4.0; }), "not there"},
             Row{"of no face", changed([=](auto& r) { r.m_options.m_faceSizes[body] = 4.0; }),
                 "which is no face"},
             Row{"of nothing", changed([](auto& r) { r.m_options.m_faceSizes[9999] = 4.0; }),
                 "#9999"},
             Row{"of a face", changed([=](auto& r) { r.m_options.m_faceSizes[face] = kNaN; }),
                 "nan mm"},
         }) {
        SCOPED_TRACE(row.name);
        try {
            static_cast<void>(mesh(row.request));
            ADD_FAILURE() << "no error";
        } catch (std::invalid_argument const& error) {
            EXPECT_THAT(error.what(), HasSubstr(row.text));
        }
        EXPECT_EQ((std::vector{store(0), store(1), store(2)}), before);
        EXPECT_THAT(m_history.undoNames(), ElementsAre("Mesh"));
    }
}

TEST_F(MeshingAModel, KeepsHandlesAndComesBackWithItsNodesWhenItIsUndone)
{
    static_cast<void>(mesh(sized(5.0)));
    auto const first = store(0);
    unsigned const number = numberOf(0, geometry::EntityClass::solidBody);
    auto const meshPart = meshing::meshPartOf(*m_model->parts()[0]);
    auto const meshBody = meshPart->bodyOn(number);
    auto const solid = meshBody->meshOf(3);
    static_cast<void>(mesh(sized(2.5)));
    auto const second = store(0);
    EXPECT_THAT(m_history.undoNames(), ElementsAre("Mesh", "Mesh"));
    struct {
        bool isRedo;
        std::shared_ptr<MeshStore const> shown;
    } const rows[] = {{false, first},   {true, second}, {false, first},
                      {false, nullptr}, {true, first},  {true, second}};
    for (auto const& [isRedo, shown] : rows) {
        EXPECT_TRUE((isRedo ? m_history.redo() : m_history.undo()).isOk());
        EXPECT_EQ(store(0), shown);
        EXPECT_EQ(meshBody->isDeleted(), shown == nullptr);
        EXPECT_EQ(meshing::meshPartOf(*m_model->parts()[0]), meshPart);
        if (shown != nullptr) {
            EXPECT_EQ(meshPart->bodyOn(number), meshBody);
            EXPECT_EQ(meshBody->meshOf(3), solid);
            EXPECT_EQ(solid->elementCount(), shown->countOf(3));
        }
    }
}

TEST_F(MeshingAModel, PassesOverAPartThatIsDeleted)
{
    EXPECT_TRUE(m_model->remove(m_model->parts()[1]).isOk());
    auto const reports = mesh(sized(5.0));
    ASSERT_THAT(reports, SizeIs(2));
    EXPECT_EQ(reports[0].m_part, 0U);
    EXPECT_EQ(reports[1].m_part, 2U);
    EXPECT_EQ(meshing::meshPartOf(*m_model->parts()[1]), nullptr);
}

}  // namespace
}  // namespace vrn::orlo::host::modelspace
