#include "plugins/modelingplugin/utilities/selection/selectiondivider.h"

#include "tests/selection/selectionscope.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vrn::orlo::plugin::modeling {
namespace {

using test::Ids;
using test::Ref;
using test::Refs;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;
using Scope = test::ModelScope<test::SelectionScope>;
using List = KFRSmartPointer<CAE::IEntityReferenceConstListInterface>;
using ElementIds = KFRSequence<unsigned long long>;

TEST(SelectionDivider, DividesByTypeInTheOrderOfTheSelection)
{
    Scope scope;
    using Bucket = CAE::EntityReferenceSequence const& (SelectionDivider::*)() const;
    struct Row {
        Bucket bucket;
        std::vector<char const*> types;
    };
    Row const rows[] = {
        {&SelectionDivider::parts, {"Simulation.PartInstance"}},
        {&SelectionDivider::bodies, {"SHEETBODY", "FACETSOLID"}},
        {&SelectionDivider::meshes, {"FEM.Simulation.2DContinuousMesh"}},
        {&SelectionDivider::elements,
         {"Simulation.FEM.Element", "FEM.Simulation.1DElement", "FEM.Simulation.3DElement",
          "FEM.Simulation.2DElement"}},
        {&SelectionDivider::geometries, {"REGION", "EDGE", "FACE"}},
        {&SelectionDivider::materials, {"Simulation.Modeling.LineIsoMaterial"}},
        {&SelectionDivider::sections, {"Simulation.Modeling.ShellSectionProperty"}},
        {nullptr,
         {"VERTEX", "Simulation.FEM.Node", "Simulation.Modeling.ShellBehaviorProperty",
          "Simulation.MeshBody", "Simulation.Part"}},
    };
    Refs selection;
    for (unsigned int id = 2; id > 0; --id) {
        for (Row const& row : rows) {
            for (char const* const type : row.types) {
                selection.append({{}, scope.idOf(type), id, 0});
            }
        }
    }
    auto const container = KFR::make<test::FakeContainer>();
    container->owner = Ref{};
    auto const list = KFR::make<test::FakeList>(true, selection);
    for (SelectionDivider const& divider :
         {SelectionDivider(selection), SelectionDivider(List(list))}) {
        for (Row const& row : rows) {
            std::vector<Ref> expected;
            for (unsigned int id = 2; id > 0; --id) {
                for (char const* const type : row.types) {
                    expected.push_back({{}, scope.idOf(type), id, 0});
                }
            }
            if (row.bucket != nullptr) {
                EXPECT_THAT((divider.*row.bucket)(), ::testing::ElementsAreArray(expected))
                    << row.types[0];
            }
        }
        EXPECT_THAT(divider.behaviors(), IsEmpty());
        EXPECT_THAT(divider.getBehaviors(), IsEmpty());
    }
    EXPECT_THAT(SelectionDivider(List()).getElementIds(true), IsEmpty());

    // By the containers as soon as they give anything.
    unsigned int const face = scope.idOf("FACE");
    list->containers = appfw::IEntRefSequence{container};
    EXPECT_EQ(SelectionDivider(List(list)).geometries().size(), 6u);
    container->ids = {{face, {3, 0, 4}}};
    EXPECT_THAT(SelectionDivider(List(list)).geometries(),
                ElementsAre(Ref{{}, face, 3, 0}, Ref{{}, face, 4, 0}));
}

TEST(SelectionDivider, TakesAPartForItsFirstInstance)
{
    Scope scope;
    unsigned int const partType = scope.idOf("Simulation.Part");
    unsigned int const instanceType = scope.idOf("Simulation.PartInstance");
    auto const part = scope.make<test::FakePart>(partType, 1);
    auto const instance = scope.make<test::FakeInstance>(instanceType, 2);
    instance->placed = part;
    part->instances = {instance, scope.make<test::FakeInstance>(instanceType, 3)};
    auto const placeless = scope.make<test::FakePart>(partType, 4);
    placeless->instances = CAE::IInstanceSequence{};
    SelectionDivider const divider(
        Refs{instance->reference, placeless->reference, part->reference, {{}, partType, 9, 0}});
    EXPECT_THAT(divider.parts(), ElementsAre(instance->reference, instance->reference));
    EXPECT_THAT(divider.getParts(), ElementsAre(test::IsObject(part), test::IsObject(part)));
}

TEST(SelectionDivider, GivesTheObjectsOfABucketThatResolve)
{
    Scope scope;
    auto const body = scope.make<test::FakeGeometry>(scope.idOf("BODY"), 1);
    auto const face = scope.make<test::FakeGeometry>(scope.idOf("FACE"), 2);
    auto const material =
        scope.make<test::FakeProperty>(scope.idOf("Simulation.Modeling.LineIsoMaterial"), 3);
    auto const section =
        scope.make<test::FakeProperty>(scope.idOf("Simulation.Modeling.ShellSectionProperty"), 4);
    auto const meshBody = KFR::make<test::FakeMeshBody>();
    Refs selection{body->reference, face->reference, material->reference, section->reference};
    for (unsigned int id : {5u, 6u}) {
        auto const mesh =
            scope.make<test::FakeMesh>(scope.idOf("FEM.Simulation.2DContinuousMesh"), id);
        mesh->body = meshBody;
        selection.append(mesh->reference);
    }
    for (Ref reference : Refs(selection)) {
        reference.id += 100;  // of nothing
        selection.append(reference);
    }
    SelectionDivider const divider(selection);
    EXPECT_THAT(divider.getGeomBodies(), ElementsAre(test::IsObject(body)));
    EXPECT_THAT(divider.getGeometries(), ElementsAre(test::IsObject(face)));
    EXPECT_THAT(divider.getMaterials(), ElementsAre(test::IsObject(material)));
    EXPECT_THAT(divider.getSections(), ElementsAre(test::IsObject(section)));
    EXPECT_EQ(divider.getMeshes().size(), 2u);
    EXPECT_THAT(divider.getMeshBodies(),
                ElementsAre(test::IsObject(meshBody), test::IsObject(meshBody)));
}

TEST(SelectionDivider, GivesExternalIdsOfElementsUnderTheirMeshBody)
{
    Scope scope;
    auto const first = KFR::make<test::FakeMeshBody>();
    auto const second = KFR::make<test::FakeMeshBody>();
    auto const mesh = KFR::make<test::FakeMesh>();
    auto const part = KFR::make<test::FakePart>();
    static_cast<void>(first->getInstanceID());  // the bodies' order
    for (int i = 0; i < 3; ++i) {
        (i == 0 ? first : second)->add(3, {});
        second->add(3, {});
    }
    mesh->body = second;
    part->bodies = CAE::IMeshBodySequence{first, {}, second};
    unsigned int const type = scope.idOf("FEM.Simulation.2DElement");
    auto const instance = KFR::make<test::FakeInstance>();
    SelectionDivider const divider(Refs{{second, type, 4, 0},
                                        {part, type, 0, 0},
                                        {mesh, type, 3, 0},
                                        {part, type, 2, 0},
                                        {instance, type, 0, 0},
                                        {{}, type, 0, 0},
                                        {second, type, 99, 0},
                                        {second, type, 1001, 0}});
    EXPECT_THAT(divider.getElementIds(false),
                ElementsAre(Pair(test::IsObject(first), ElementIds{1000}),
                            Pair(test::IsObject(second), ElementIds{1004, 1003, 1002})));
    EXPECT_THAT(divider.getElementIds(true),
                ElementsAre(Pair(test::IsObject(second), ElementIds{1001})));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling
