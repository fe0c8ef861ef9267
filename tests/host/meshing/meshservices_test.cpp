#include "host/kernel/typeregistry.h"
#include "host/meshing/beamchain.h"
#include "host/meshing/componentaccess.h"
#include "host/meshing/freefaces.h"
#include "host/meshing/meshedpart.h"
#include "host/meshing/meshfixtures.h"
#include "host/meshing/skinfaces.h"
#include "host/model/testevents.h"

#include <gmock/gmock.h>

#include <utility>

namespace vrn::orlo::host::meshing {
namespace {

using ::testing::ElementsAre;
using Ids = KFR::DynamicArray::ArrayPtr1<long long>;
using Faces = KFR::DynamicArray::ArrayPtr1<int>;
using Corners = std::vector<std::pair<int, int>>;

Point operator-(Point const& a, Point const& b)
{
    return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point middle(Point const& a, Point const& b)
{
    return {(a[0] + b[0]) / 2, (a[1] + b[1]) / 2, (a[2] + b[2]) / 2};
}

double triple(Point const& a, Point const& b, Point const& c)
{
    return (a[1] * b[2] - a[2] * b[1]) * c[0] + (a[2] * b[0] - a[0] * b[2]) * c[1] +
           (a[0] * b[1] - a[1] * b[0]) * c[2];
}

/// A part of one store, and the services.
class MeshServices : public ::testing::Test {
protected:
    void show(std::shared_ptr<MeshStore const> const& store)
    {
        m_part = KFR::make<MeshedPart>("file", store, 1U, m_types, nullptr);
    }
    [[nodiscard]] MeshPart& mesh() { return *m_part->meshPart(); }
    [[nodiscard]] MeshStore const& store() { return mesh().tables()->store(); }

    KFRSmartPointer<kernel::TypeRegistry> m_registry = KFR::make<kernel::TypeRegistry>(7U);
    MeshTypes m_types{*m_registry};
    KFRSmartPointer<MeshedPart> m_part;
    KFRSmartPointer<FreeFaceService> m_faces = KFR::make<FreeFaceService>();
    KFRSmartPointer<SkinService> m_skins = KFR::make<SkinService>();
    KFRSmartPointer<BeamChainService> m_chains = KFR::make<BeamChainService>();
};

TEST_F(MeshServices, SkinLooksOutwardsAndAgreesWithFreeFacesForEverySolid)
{
    std::vector<Point> const tetra{{0, 0, 0}, {2, 0, 0}, {0, 2, 0}, {0, 0, 2}};
    std::vector<Point> const wedge{{0, 0, 0}, {2, 0, 0}, {0, 2, 0},
                                   {0, 0, 2}, {2, 0, 2}, {0, 2, 2}};
    std::vector<Point> const hexa{{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0},
                                  {0, 0, 2}, {2, 0, 2}, {2, 2, 2}, {0, 2, 2}};
    Corners const tetraSides{{0, 1}, {1, 2}, {2, 0}, {0, 3}, {1, 3}, {2, 3}};
    Corners const wedgeSides{{0, 1}, {1, 2}, {2, 0}, {3, 4}, {4, 5},
                             {5, 3}, {0, 3}, {1, 4}, {2, 5}};
    Corners const hexaSides{{0, 1}, {1, 2}, {2, 3}, {3, 0}, {4, 5}, {5, 6},
                            {6, 7}, {7, 4}, {0, 4}, {1, 5}, {2, 6}, {3, 7}};
    struct Row {
        ElementType m_type;
        std::vector<Point> const& m_corners;
        Corners const& m_sides;
    };
    for (Row const& row :
         {Row{ElementType::tetra4, tetra, {}}, Row{ElementType::tetra10, tetra, tetraSides},
          Row{ElementType::wedge6, wedge, {}}, Row{ElementType::wedge15, wedge, wedgeSides},
          Row{ElementType::hexa8, hexa, {}}, Row{ElementType::hexa20, hexa, hexaSides}}) {
        ElementTraits const& traits = traitsOf(row.m_type);
        SCOPED_TRACE(int{traits.m_nodeCount});
        StoreMaker maker;
        std::vector<LocalNumber> nodes;
        Point centre{};
        for (Point const& corner : row.m_corners) {
            nodes.push_back(maker.node(corner));
            for (std::size_t i = 0; i < 3; ++i) {
                centre[i] += corner[i] / static_cast<double>(row.m_corners.size());
            }
        }
        for (std::size_t i = nodes.size(); i < traits.m_nodeCount; ++i) {
            auto const [a, b] = row.m_sides[i - row.m_corners.size()];
            nodes.push_back(maker.node(middle(row.m_corners[static_cast<std::size_t>(a)],
                                              row.m_corners[static_cast<std::size_t>(b)])));
        }
        maker.element(row.m_type, nodes);
        show(maker.make());

        KFRSequence<long long> skinNodes;
        muc::SkinElementSequence skin;
        ASSERT_THAT(m_skins->getSkinFaces(m_part, m_part->meshBody()->meshOf(3), skinNodes, skin),
                    test::IsOk());
        ASSERT_EQ(skin.size(), 1U);
        auto const& faces = skin.at(0).m_faces;
        ASSERT_EQ(faces.size(), traits.m_faceCount);
        EXPECT_EQ(skinNodes.size(), traits.m_nodeCount) << "no node is inside";
        EXPECT_EQ(skinNodes.at(0), StoreMaker::nodeId(1)) << "by local number";
        Ids const elements(std::vector<long long>(faces.size(), skin.at(0).m_elementId));
        Faces const numbers(faces.size());
        for (std::size_t i = 0; i < faces.size(); ++i) {
            numbers[i] = static_cast<int>(i);
        }
        Ids owners;
        KFRInt64SequenceSequence lists;
        Faces kinds;
        Ids flat;
        ASSERT_THAT(m_faces->getFaceData(m_part->meshPart(), elements, {}, numbers, owners, lists,
                                         kinds, flat, {}, false),
                    test::IsOk());
        for (std::size_t i = 0; i < faces.size(); ++i) {
            SCOPED_TRACE(i);
            auto const& ids = faces.at(i).m_nodeIds;
            EXPECT_EQ(lists.at(i), ids);
            EXPECT_EQ(typeCodeOf(static_cast<ElementType>(kinds[i])), faces.at(i).m_typeCode);
            std::vector<Point> at;
            for (long long const id : ids) {
                at.push_back(store().position(store().nodes().numberOf(id)));
            }
            EXPECT_GT(triple(at[1] - at[0], at[2] - at[0], at[0] - centre), 0.0);
            std::size_t const corners = traitsOf(static_cast<ElementType>(kinds[i])).m_cornerCount;
            for (std::size_t mid = corners; mid < at.size(); ++mid) {
                EXPECT_EQ(at[mid], middle(at[mid - corners], at[(mid - corners + 1) % corners]));
            }
        }
    }
}

TEST_F(MeshServices, FreeFacesLeaveOutWhatIsNotThereAndFillTheCallersArrays)
{
    show(twoCubes(2));
    Ids const elements({StoreMaker::elementId(2), 4, StoreMaker::elementId(1)});
    Faces const numbers({6, 0, 5});
    Ids const owners = elements;  // in and out in one array
    Ids own = owners;
    KFRInt64SequenceSequence lists{{1}};
    Faces kinds;
    Ids flat;
    auto const ask = [&](auto const& part, Faces const& faces) {
        return m_faces->getFaceData(part, elements, {}, faces, own, lists, kinds, flat, {}, true);
    };
    EXPECT_FALSE(ask(KFRSmartPointer<CAE::IMeshPartInterface>(), numbers).isOk());
    EXPECT_FALSE(ask(m_part->meshPart(), Faces(2)).isOk());
    EXPECT_EQ(owners.size(), 3U) << "left as they were";
    EXPECT_THAT(ask(m_part->meshPart(), numbers), test::IsOk());
    ASSERT_EQ(owners.size(), 1U);
    EXPECT_EQ(owners[0], StoreMaker::elementId(1));
    EXPECT_EQ(lists.size(), 1U) << "left alone";
    EXPECT_THAT(std::vector<long long>(flat.begin(), flat.end()),
                ElementsAre(StoreMaker::nodeId(8), StoreMaker::nodeId(5), StoreMaker::nodeId(9),
                            StoreMaker::nodeId(12)));
    EXPECT_EQ(kinds[0], static_cast<int>(ElementType::quad4));
}

TEST_F(MeshServices, ChainsFollowTheLineFromItsLowestEnd)
{
    using Lines = std::vector<std::vector<LocalNumber>>;
    struct Row {
        char const* m_what;
        Lines m_lines;  // ends, middle
        std::vector<int> m_nodes;
        std::vector<int> m_elements;
        bool m_isClosed;
    };
    for (Row const& row :
         {Row{"open", {{4, 2, 5}, {3, 4, 6}, {1, 2, 7}}, {1, 2, 4, 3}, {3, 1, 2}, false},
          Row{"closed", {{3, 1, 5}, {2, 3, 6}, {1, 2, 7}}, {1, 3, 2}, {1, 2, 3}, true},
          Row{"two elements on two nodes", {{1, 2, 5}, {1, 2, 6}}, {1, 2}, {1, 2}, true},
          Row{"branch", {{1, 2, 5}, {2, 3, 6}, {2, 4, 7}}, {}, {}, false},
          Row{"two pieces", {{1, 2, 5}, {3, 4, 6}}, {}, {}, false},
          Row{"loop beside a line", {{1, 2, 5}, {2, 1, 6}, {3, 4, 7}}, {}, {}, false},
          Row{"collapsed", {{1, 1, 5}}, {}, {}, false}}) {
        SCOPED_TRACE(row.m_what);
        StoreMaker maker;
        for (double x = 0; x < 7; ++x) {
            maker.node({x, 0, 0});
        }
        for (auto const& line : row.m_lines) {
            maker.element(ElementType::line3, line);
        }
        show(maker.make());
        KFRSequence<int> nodes;
        KFRSequence<int> elements;
        bool isClosed = false;
        EXPECT_EQ(m_chains
                      ->getChain(m_part->meshBody(), m_part->meshBody()->meshOf(1), nodes, elements,
                                 isClosed)
                      .isOk(),
                  !row.m_nodes.empty());
        EXPECT_THAT(nodes, ::testing::ElementsAreArray(row.m_nodes));
        EXPECT_THAT(elements, ::testing::ElementsAreArray(row.m_elements));
        EXPECT_EQ(isClosed, row.m_isClosed);
    }
    KFRSequence<int> none;
    bool isClosed = false;
    auto const lines = m_part->meshBody()->meshOf(1);
    EXPECT_EQ(m_chains->getChain({}, lines, none, none, isClosed).getCode(), kForeignMesh);
    show(twoCubes(2));
    EXPECT_EQ(m_chains->getChain(m_part->meshBody(), lines, none, none, isClosed).getCode(),
              kForeignMesh);
    auto const solids = m_part->meshBody()->meshOf(3);
    EXPECT_EQ(m_chains->getChain(m_part->meshBody(), solids, none, none, isClosed).getCode(),
              kNoChain);
}

TEST_F(MeshServices, GeometryLeadsToWhatLiesOnItAndToWhatItBounds)
{
    // A cube on body 100 with one of its faces, 102, and an edge of it, 103; a shell on face 104.
    StoreMaker maker;
    for (Point const& at : {Point{0, 0, 0}, Point{1, 0, 0}, Point{1, 1, 0}, Point{0, 1, 0},
                            Point{0, 0, 1}, Point{1, 0, 1}, Point{1, 1, 1}, Point{0, 1, 1}}) {
        maker.node(at);
    }
    maker.element(ElementType::hexa8, {1, 2, 3, 4, 5, 6, 7, 8}, 0);
    maker.element(ElementType::quad4, {8, 7, 6, 5}, 1);
    maker.content().m_bodies = {{"solid", 100}};
    maker.content().m_groups = {{0, 3, 101, "volume 101"}, {0, 2, 104, "surface 104"}};
    maker.content().m_entities = {{102, {1, 2, 3, 4}, {{1, 0}}}, {103, {1, 2}, {}}};
    show(maker.make());
    auto const access = KFR::make<FEMComponentAccess>(
        [this](int number) { return number < 900 ? m_part->meshPart() : KFR::NULLSP; });
    KFRSmartPointer<plugin::fem::KFRIFEMeshWrapper> wrapper;
    ASSERT_THAT(access->getFEMeshWrapper(wrapper), test::IsOk());
    struct Row {
        int m_number;
        int m_mesh;     // dimension of the continuous mesh on it; 0 for a failure
        int m_subMesh;  // likewise
        bool m_hasBody;
        std::size_t m_nodes;
        std::size_t m_faces;
    };
    for (Row const& row :
         {Row{100, 3, 0, true, 8, 0}, Row{101, 3, 3, true, 8, 0}, Row{102, 0, 0, true, 4, 1},
          Row{103, 0, 0, true, 2, 0}, Row{104, 2, 2, true, 4, 0}, Row{105, 0, 0, false, 0, 0},
          Row{-1, 0, 0, false, 0, 0}, Row{901, 0, 0, false, 0, 0}}) {
        SCOPED_TRACE(row.m_number);
        auto const dimensionOf = [&](auto operation) {
            KFRSmartPointer<CAE::IFEMeshInterface> mesh;
            unsigned char dimension = 0;
            if (((*wrapper).*operation)(row.m_number, mesh).isOk()) {
                KFR::strict_cast<CAE::IMeshInterface>(mesh)->getDimension(dimension);
            }
            return int{dimension};
        };
        EXPECT_EQ(dimensionOf(&plugin::fem::KFRIFEMeshWrapper::getMesh), row.m_mesh);
        EXPECT_EQ(dimensionOf(&plugin::fem::KFRIFEMeshWrapper::getSubMesh), row.m_subMesh);
        KFRSmartPointer<CAE::IMeshBodyInterface> body;
        CAE::INodeSequence nodes;
        KFRSequence<unsigned long long> ids;
        KFRSequence<int> faces;
        EXPECT_EQ(wrapper->getMeshBody(row.m_number, body).isOk(), row.m_hasBody);
        EXPECT_EQ(wrapper->getNodes(row.m_number, nodes).isOk(), row.m_nodes > 0);
        EXPECT_EQ(nodes.size(), row.m_nodes);
        EXPECT_EQ(wrapper->getElementFaces(row.m_number, ids, faces).isOk(), row.m_faces > 0);
        EXPECT_EQ(faces.size(), row.m_faces);
    }
    KFRSmartPointer<CAE::IContinuousMeshInterface> surface;
    EXPECT_THAT(wrapper->getContinuousMesh(100, 2, surface), test::IsOk());
    EXPECT_EQ(surface, m_part->meshBody()->meshOf(2));
    EXPECT_FALSE(wrapper->getContinuousMesh(102, 3, surface).isOk()) << "only bounds it";
    EXPECT_FALSE(wrapper->getContinuousMesh(100, 9, surface).isOk());
}

}  // namespace
}  // namespace vrn::orlo::host::meshing
