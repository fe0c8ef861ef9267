#include "plugins/modelingplugin/utilities/selection/selectiondivider.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ::testing::ElementsAre;
using ::testing::Pair;
using Scope = ModelScope<SelectionScope>;
using ConstList = SP<CAE::IEntityReferenceConstListInterface>;
using ElementIds = KFRSequence<unsigned long long>;

constexpr auto kPart = "Simulation.Part";
constexpr auto kInstance = "Simulation.PartInstance";
constexpr auto kMesh = "FEM.Simulation.2DContinuousMesh";
constexpr auto kElement = "FEM.Simulation.2DElement";
constexpr auto kStored = "Simulation.FEM.Element";
constexpr auto kMaterial = "Simulation.Modeling.LineIsoMaterial";
constexpr auto kSection = "Simulation.Modeling.ShellSectionProperty";
constexpr auto kBehavior = "Simulation.Modeling.ShellBehaviorProperty";

TEST(SelectionDivider, DividesByTypeInTheOrderOfTheSelection)
{
    Scope scope;
    auto const refs = [&](std::vector<char const*> const& types) {
        Refs all;
        for (char const* const type : types) {
            all.append({{}, scope.idOf(type), 9, 0});
        }
        return all;
    };
    auto const list = KFR::make<FakeList>(
        refs({kElement, "FACE", "BODY", "VERTEX", kStored, "REGION", kInstance, kMaterial,
              "FACETSOLID", kMesh, kPart, kBehavior, kSection, "EDGE", "BODY"}));
    for (auto const& divided :
         {SelectionDivider(list->references), SelectionDivider(ConstList(list))}) {
        EXPECT_EQ(divided.parts(), refs({kInstance}));
        EXPECT_EQ(divided.bodies(), refs({"BODY", "FACETSOLID", "BODY"}));
        EXPECT_EQ(divided.meshes(), refs({kMesh}));
        EXPECT_EQ(divided.elements(), refs({kElement, kStored}));
        EXPECT_EQ(divided.geometries(), refs({"FACE", "REGION", "EDGE"}));
        EXPECT_EQ(divided.materials(), refs({kMaterial}));
        EXPECT_EQ(divided.sections(), refs({kSection}));
        EXPECT_TRUE(divided.behaviors().empty() && divided.getBehaviors().empty());
    }
    // By the containers as soon as they give anything.
    auto const container = KFR::make<FakeContainer>();
    container->owner = Ref{};
    list->containers = {container};
    EXPECT_EQ(SelectionDivider(ConstList(list)).geometries().size(), 3u);
    Word const face = scope.idOf("FACE");
    container->ids[face] = {3, 0, 4};
    EXPECT_EQ(SelectionDivider(ConstList(list)).geometries(),
              (Refs{{{}, face, 3, 0}, {{}, face, 4, 0}}));
}

TEST(SelectionDivider, GivesTheObjectsOfABucketThatResolve)
{
    Scope scope;
    auto const part = scope.make<FakePart>(scope.idOf(kPart), 1);
    auto const instance = scope.make<FakeInstance>(scope.idOf(kInstance), 3);
    auto const material = scope.make<FakeProperty>(scope.idOf(kMaterial), 6);
    auto const mesh = scope.make<FakeMesh>(scope.idOf(kMesh), 8);
    scope.make<FakePart>(scope.idOf(kPart), 2)->instances = CAE::IInstanceSequence();
    part->instances = {instance, KFR::make<FakeInstance>()};
    instance->placed = part;
    mesh->body = KFR::make<FakeMeshBody>();
    Refs selection{mesh->reference};
    for (auto const& [number, entity] : scope.model->entities) {
        selection.append(entity->getEntityReference());
        selection.append({{}, entity->getEntityReference().typeId, number + 100, 0});  // of nothing
    }
    SelectionDivider const divider(selection);
    EXPECT_EQ(divider.parts()[0], instance->reference);
    EXPECT_THAT(divider.getParts(), ElementsAre(IsObject(part), IsObject(part)));
    EXPECT_THAT(divider.getMaterials(), ElementsAre(IsObject(material)));
    EXPECT_THAT(divider.getMeshes(), ElementsAre(IsObject(mesh), IsObject(mesh)));
    EXPECT_EQ(divider.getMeshBodies(), CAE::IMeshBodySequence({*mesh->body, *mesh->body}));
    part->instances.reset();  // they hold each other
}

TEST(SelectionDivider, GivesExternalIdsOfElementsUnderTheirMeshBody)
{
    Scope scope;
    auto const one = KFR::make<FakeMeshBody>();
    auto const two = KFR::make<FakeMeshBody>();
    auto const mesh = KFR::make<FakeMesh>();
    auto const part = KFR::make<FakePart>();
    auto const instance = KFR::make<FakeInstance>();
    static_cast<void>(one->getInstanceID());  // the bodies' order
    one->add(3, {});
    for (int i = 0; i < 5; ++i) {
        two->add(3, {});
    }
    mesh->body = two;
    part->bodies = {one, {}, two};
    Refs refs{{two, 0, 4, 0},      {part, 0, 0, 0}, {mesh, 0, 3, 0},  {part, 0, 2, 0},
              {instance, 0, 0, 0}, {two, 0, 99, 0}, {two, 0, 1001, 0}};
    for (Ref& ref : refs) {
        ref.typeId = scope.idOf(kElement);
    }
    auto const second = [&](ElementIds const& ids) {
        return Pair(IsObject(two), ids);
    };
    EXPECT_THAT(SelectionDivider(refs).getElementIds(false),
                ElementsAre(Pair(IsObject(one), ElementIds{1000}), second({1004, 1003, 1002})));
    EXPECT_THAT(SelectionDivider(refs).getElementIds(true), ElementsAre(second({1001})));
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
