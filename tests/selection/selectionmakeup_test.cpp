#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"
#include "plugins/modelingplugin/utilities/selection/elementselectionmakeup.h"
#include "plugins/modelingplugin/utilities/selection/selectionbuffer.h"
#include "tests/selection/selectionscope.h"
#include "tests/support/matchers.h"
#include "tests/support/modelfakes.h"

#include <gmock/gmock.h>

namespace vrn::orlo::plugin::modeling::test {
namespace {

using ElementIds = SelectionMakeup::ElementIds;
using Scope = ModelScope<SelectionScope>;

/// What a make-up holds after one call.
template <class... Arguments>
Refs made(Arguments const&... arguments)
{
    SelectionMakeup makeup;
    makeup.add(arguments...);
    return makeup.getEntRefs();
}

TEST(SelectionMakeup, TakesObjectsByTheirEntities)
{
    Scope scope;
    auto const part = scope.make<FakePart>(1, 1);
    auto const stranger = scope.make<FakePart>(1, 3);
    auto const property = scope.make<FakeProperty>(2, 2);
    auto const mesh = scope.make<FakeMesh>(4, 4);
    auto const body = KFR::make<FakeMeshBody>();
    property->lost = stranger->lost = IEntityInterface::kfrInterfaceId();
    EXPECT_EQ(made(CAE::IPartSequence{part, stranger, {}}), Refs{part->reference});
    EXPECT_THROW(made(CAE::IMaterialSequence{property}), KFRSystemException);
    property->lost.reset();
    EXPECT_EQ(made(CAE::IMaterialSequence{property}), Refs{property->reference});
    EXPECT_EQ(made(CAE::ISectionPropertySequence{property}), Refs{property->reference});
    EXPECT_EQ(made(CAE::IBehaviorPropertySequence{property}), Refs{property->reference});
    body->meshes = {mesh, {}};
    EXPECT_EQ(made(CAE::IMeshBodySequence{{}, body}), Refs{mesh->reference});
}

TEST(SelectionMakeup, TakesElementsByTheirLocalNumberUnderTheirPart)
{
    Scope scope;
    SP<FakePart> const part = KFR::make<FakePart>();
    auto const body = KFR::make<FakeMeshBody>();
    auto const stray = KFR::make<FakeMeshBody>();
    stray->add(3, {});
    body->parent = part;
    for (int shape = 0; shape < 4; ++shape) {
        body->add(3, {}).shape = shape;
    }
    body->add(3, {}).shape.reset();
    body->add(3, {}).number.reset();
    Ref const line{part, scope.idOf("FEM.Simulation.1DElement"), 0, 0};
    Ref const quad{part, scope.idOf("FEM.Simulation.2DElement"), 2, 0};
    Ref const solid{part, scope.idOf("FEM.Simulation.3DElement"), 3, 0};
    CAE::IMeshBodySequence const all{body, stray, {}, body, body, body};
    EXPECT_EQ(made(all, ElementIds{1000, 1000, 1000, 1004, 1005, 1003}, true), (Refs{line, solid}));
    EXPECT_EQ(made(all, ElementIds{0, 0, 0, 4, 77, 2}, false), (Refs{line, quad}));
    EXPECT_EQ(made(all, ElementIds{0, 0}, false), Refs());
    EXPECT_EQ(made(SelectionMakeup::ElementsByBody{{body, {1002, 2, 1000}}}), (Refs{quad, line}));
    SP<CAE::IPartInterface> const asked = part;
    EXPECT_EQ(made(asked, ElementIds{2}, false), Refs());
    part->bodies = {body, stray};
    EXPECT_EQ(made(asked, ElementIds{2, 4, 3}, false), (Refs{quad, solid}));
    part->bodies.reset();  // they hold each other
}

TEST(ElementSelectionMakeup, PacksByMeshAndTopology)
{
    Scope scope;
    auto const body = KFR::make<FakeMeshBody>();
    SP<FakeMesh> meshes[4];
    for (unsigned char dimension = 1; dimension < 4; ++dimension) {
        auto const mesh = meshes[dimension] = KFR::make<FakeMesh>();
        static_cast<void>(mesh->getInstanceID());  // the meshes' order
        mesh->dimension = dimension;
        mesh->triangles = scope.make<PlainEntity>(1, 1);
        mesh->quads = scope.make<PlainEntity>(2, 2);
        mesh->solids = scope.make<PlainEntity>(3, 3);
    }
    for (int const nodes : {4, 6, 7, 8, 12}) {
        body->add(nodes, meshes[2]);
    }
    body->add(10, meshes[3]);
    body->add(2, meshes[1]);
    body->add(3, {}).mesh.reset();
    using Rows = std::vector<std::tuple<Word, Word, Ids>>;  // the owner's type, the type, the ids
    auto const packed = [&](ElementIds const& ids) {
        scope.model->made.clear();
        appfw::IEntRefSequence out;
        ElementSelectionMakeup().appendToEntRefSequence(body, ids, out);
        Rows rows;
        for (auto const& container : scope.model->made) {
            auto const& [type, numbers] = *container->ids.begin();
            rows.emplace_back(container->owner->typeId, type, numbers);
        }
        EXPECT_EQ(out.size(), rows.size());
        return rows;
    };
    Word const flat = scope.idOf("FEM.Simulation.2DElement");
    Word const solid = scope.idOf("FEM.Simulation.3DElement");
    EXPECT_EQ(packed({1005, 1000, 1001, 1002, 1003, 1004, 1006, 1007, 1008}),
              (Rows{{1, flat, {1, 4}}, {2, flat, {0, 3}}, {3, solid, {5}}}));
    EXPECT_EQ(packed({1003, 1000}), (Rows{{2, flat, {3, 0}}}));
}

TEST(SelectionBuffer, KeepsTheLastListOfAName)
{
    SelectionBuffer& buffer = *SelectionBuffer::instance();
    SelectionBuffer::List const last = KFR::make<FakeList>();
    buffer.popSelectionList("faces");
    buffer.setSelectionList("faces", KFR::make<FakeList>());
    buffer.setSelectionList("faces", last);
    EXPECT_EQ(buffer.getSelectionList("faces"), last);
    buffer.popSelectionList("faces");
    EXPECT_THAT(buffer.getSelectionList("faces"), IsNullHandle());
}

}  // namespace
}  // namespace vrn::orlo::plugin::modeling::test
