// Selections of objects as references, as containers and as numbers of the display.

#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"
#include "plugins/modelingplugin/utilities/selection/elementselectionmakeup.h"
#include "plugins/modelingplugin/utilities/selection/geomsubentrefmakeup.h"
#include "plugins/modelingplugin/utilities/selection/selectionbuffer.h"

#include "tests/selection/selectionscope.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::Ids;
using test::Ref;
using test::SP;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using Scope = test::ModelScope<test::SelectionScope>;

/// What a make-up holds after one call.
template <class... Arguments>
std::vector<Ref> made(Arguments const&... arguments)
{
    SelectionMakeup makeup;
    makeup.add(arguments...);
    auto const references = makeup.getEntRefs();
    return {references.begin(), references.end()};
}

TEST(SelectionMakeup, TakesObjectsByTheirEntities)
{
    Scope scope;
    EXPECT_THAT(SelectionMakeup().getEntRefs(), IsEmpty());
    auto const part = scope.make<test::FakePart>(1, 1);
    auto const property = scope.make<test::FakeProperty>(2, 2);
    auto const stranger = scope.make<test::FakePart>(1, 3);
    stranger->lost = {IEntityInterface::kfrInterfaceId()};
    EXPECT_THAT(made(CAE::IPartSequence{part, stranger, {}, part}),
                ElementsAre(part->reference, part->reference));
    EXPECT_THAT(made(CAE::IMaterialSequence{property}), ElementsAre(property->reference));
    EXPECT_THAT(made(CAE::ISectionPropertySequence{property}), ElementsAre(property->reference));
    EXPECT_THAT(made(CAE::IBehaviorPropertySequence{property}), ElementsAre(property->reference));
    property->lost = stranger->lost;
    EXPECT_THROW(made(CAE::IMaterialSequence{property}), KFRSystemException);

    auto const mesh = scope.make<test::FakeMesh>(4, 4);
    auto const body = KFR::make<test::FakeMeshBody>();
    body->meshes[scope.idOf("Simulation.FEM.ContinuousMesh")] = {mesh, {}};
    EXPECT_THAT(made(CAE::IMeshBodySequence{body, {}, body}),
                ElementsAre(mesh->reference, mesh->reference));
    mesh->lost = {CAE::IFEMeshInterface::kfrInterfaceId()};
    EXPECT_THAT(made(CAE::IMeshSequence{mesh}), IsEmpty());
}

TEST(SelectionMakeup, TakesGeometryByItsPersistentName)
{
    Scope scope;
    auto const face = KFR::make<test::FakeGeometry>();
    auto const nameless = KFR::make<test::FakeGeometry>();
    auto const unknown = KFR::make<test::FakeGeometry>();
    Ref const reference{{}, 3, 4, 5};
    face->name = "f";
    unknown->name = "u";
    scope.model->names["f"] = reference;
    EXPECT_THAT(made(CAE::IGeometrySequence{nameless, {}, unknown, face}), ElementsAre(reference));
    EXPECT_THAT(made(CAE::IGeomBodySequence{face}), ElementsAre(reference));
    EXPECT_THAT(made(KFR::EOM::IEOMGeometrySequence{face}), ElementsAre(reference));
}

TEST(SelectionMakeup, TakesElementsByTheirLocalNumberUnderTheirPart)
{
    Scope scope;
    auto const part = KFR::make<test::FakePart>();
    auto const body = KFR::make<test::FakeMeshBody>();
    auto const stray = KFR::make<test::FakeMeshBody>();
    for (int shape = 0; shape < 4; ++shape) {
        body->add(3, {}).shape = shape;
    }
    body->add(3, {}).shape.reset();
    body->add(3, {}).number.reset();
    stray->add(3, {});
    body->parent = part;
    CAE::IMeshBodySequence const six{body, stray, {}, body, body, body};
    auto const element = [&](char const* type, unsigned int number) {
        return Ref{part, scope.idOf(type), number, 0};
    };
    auto const line = element("FEM.Simulation.1DElement", 0);
    auto const quad = element("FEM.Simulation.2DElement", 2);
    auto const solid = element("FEM.Simulation.3DElement", 3);
    using ElementIds = SelectionMakeup::ElementIds;
    EXPECT_THAT(made(six, ElementIds{1000, 1000, 1000, 1004, 1005, 1003}, true),
                ElementsAre(line, solid));
    EXPECT_THAT(made(six, ElementIds{0, 0, 0, 4, 77, 2}, false), ElementsAre(line, quad));
    EXPECT_THAT(made(six, ElementIds{0, 0}, false), IsEmpty());
    EXPECT_THAT(made(SelectionMakeup::ElementsByBody{{body, {1002, 2, 1000}}}),
                ElementsAre(quad, line));

    part->bodies = CAE::IMeshBodySequence{};
    EXPECT_THAT(made(SP<CAE::IPartInterface>(part), ElementIds{2}, false), IsEmpty());
    part->bodies = CAE::IMeshBodySequence{body, stray};
    EXPECT_THAT(made(SP<CAE::IPartInterface>(part), ElementIds{2, 4, 3}, false),
                ElementsAre(quad, solid));
    EXPECT_THAT(made(SP<CAE::IPartInterface>(), ElementIds{2}, false), IsEmpty());
}

TEST(ElementSelectionMakeup, PacksBySurfaceTopologyAndMesh)
{
    Scope scope;
    auto const body = KFR::make<test::FakeMeshBody>();
    auto const surface = KFR::make<test::FakeMesh>();
    auto const solid = KFR::make<test::FakeMesh>();
    auto const line = KFR::make<test::FakeMesh>();
    for (auto const& mesh : {surface, solid, line}) {
        static_cast<void>(mesh->getInstanceID());  // the meshes' order
        mesh->triangles = scope.make<test::PlainEntity>(1, 1);
        mesh->quads = scope.make<test::PlainEntity>(2, 2);
        mesh->solids = scope.make<test::PlainEntity>(3, 3);
    }
    solid->dimension = 3;
    line->dimension = 1;
    for (int const nodes : {4, 6, 7, 8, 12}) {
        body->add(nodes, surface);
    }
    body->add(10, solid);
    body->add(2, line);
    body->add(3, {}).mesh.reset();
    auto const packed = [&](KFRSequence<unsigned long long> const& ids) {
        scope.model->made.clear();
        appfw::IEntRefSequence out;
        ElementSelectionMakeup().appendToEntRefSequence(body, ids, out);
        EXPECT_EQ(out.size(), scope.model->made.size());
        std::vector<std::pair<unsigned int, Ids>> rows;  // the owner's type, the numbers
        for (auto const& container : scope.model->made) {
            EXPECT_EQ(container->emptyFlag, 1);
            EXPECT_EQ(container->ids.begin()->first,
                      scope.idOf(container->owner->typeId == 3 ? "FEM.Simulation.3DElement"
                                                               : "FEM.Simulation.2DElement"));
            rows.emplace_back(container->owner->typeId, container->ids.begin()->second);
        }
        return rows;
    };
    EXPECT_THAT(packed({1005, 1000, 1001, 1002, 1003, 1004, 1006, 1007, 1008}),
                ElementsAre(Pair(1u, Ids{1, 4}), Pair(2u, Ids{0, 3}), Pair(3u, Ids{5})));
    EXPECT_THAT(packed({1003, 1000}), ElementsAre(Pair(2u, Ids{3, 0})));
    EXPECT_THAT(packed({}), IsEmpty());
}

TEST(GeomSubEntRefMakeup, PacksUnderTheFirstInstanceOfTheBodysPart)
{
    Scope scope;
    auto const part = KFR::make<test::FakePart>();
    auto const instance = scope.make<test::FakeInstance>(1, 1, part);
    auto const body = scope.make<test::FakeGeometry>(2, 2);
    auto const placeless = scope.make<test::FakeGeometry>(2, 3);
    part->eomInstances = {instance, scope.make<test::FakeInstance>(1, 9)};
    body->part = part;
    placeless->part = KFR::make<test::FakePart>();
    CAE::IGeometrySequence faces{{}};
    for (unsigned int number = 1; number < 5; ++number) {
        auto const face = scope.make<test::FakeGeometry>(8, number);
        face->name = std::to_string(number);
        face->body = number == 3 ? placeless : body;
        face->number = 10 * number;
        scope.model->names[*face->name] = {{}, number == 1 ? 7u : 6u, number, 0};
        faces.append(face);
    }
    GeomSubEntRefMakeup makeup;
    makeup.addGeometries(faces);
    appfw::IEntRefSequence out;
    makeup.appendToEntRefSequence(out);
    ASSERT_THAT(out, ElementsAre(scope.model->made.at(0)));
    EXPECT_EQ(scope.model->made[0]->owner, (Ref{part, 2, 2, 0}));
    EXPECT_THAT(scope.model->made[0]->ids, ElementsAre(Pair(6u, Ids{2, 4}), Pair(7u, Ids{1})));

    SubEntitiesCollector collector;
    scope.make<test::FakeGeometry>(8, 5);
    collector.addGeometries(faces);
    collector.addGeometries(faces);
    auto const shown = collector.getSubEntities();
    ASSERT_EQ(shown.size(), 4u);
    EXPECT_TRUE(shown[0].typeId == 8 && shown[0].id == 101 && shown[0].numbers == Ids({10, 10}));
    EXPECT_EQ(collector.getSubEntities().size(), 4u);
}

/// Comes back to the buffer at its end.
struct CurtainCall : test::PlainEntity {
    ~CurtainCall() override { SelectionBuffer::instance()->popSelectionList("other"); }
};

TEST(SelectionBuffer, KeepsTheLastListOfANameAndEndsListsOutsideItsLock)
{
    SelectionBuffer* const buffer = SelectionBuffer::instance();
    SelectionBuffer::List const list = KFR::make<test::FakeList>(true);
    buffer->popSelectionList("faces");
    EXPECT_THAT(buffer->getSelectionList("faces"), test::IsNullHandle());
    for (int round = 0; round < 2; ++round) {
        buffer->setSelectionList(
            "faces",
            KFR::make<test::FakeList>(true, test::Refs{{KFR::make<CurtainCall>(), 0, 0, 0}}));
    }
    EXPECT_NO_THROW(buffer->setSelectionList("faces", list));
    EXPECT_EQ(buffer->getSelectionList("faces"), list);
    buffer->setSelectionList("faces", {});
    EXPECT_THAT(buffer->getSelectionList("faces"), test::IsNullHandle());
    buffer->setSelectionList("faces", list);
    buffer->popSelectionList("faces");
    EXPECT_THAT(buffer->getSelectionList("faces"), test::IsNullHandle());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
