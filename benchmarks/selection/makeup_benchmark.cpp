// Selections of half a million elements, against one pass with a hash map from id to owner.

#include "benchmarks/support/ratio.h"
#include "platform/deps/btree.h"
#include "plugins/modelingplugin/utilities/identity/modelingentitycompare.h"
#include "plugins/modelingplugin/utilities/selection/elementselectionmakeup.h"
#include "plugins/modelingplugin/utilities/selection/selectfilter.h"
#include "plugins/modelingplugin/utilities/selection/selectiondivider.h"
#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"
#include "tests/support/modelfakes.h"
#include "tests/support/platformscope.h"

#include <absl/container/flat_hash_map.h>

#include <utility>

namespace {

using namespace vrn::orlo::plugin::modeling;  // NOLINT: the library under test
using orlo::bench::keep;
using orlo::bench::Ratios;
using ElementIds = KFRSequence<unsigned long long>;

constexpr unsigned int kElements = 500000;
constexpr unsigned int kReferences = 100000;

/// A part with one mesh of triangles, whose elements stand in a flat array.
struct Picks {
    test::ModelScope<> platform;
    test::SP<test::FakePart> part = KFR::make<test::FakePart>();
    test::SP<test::FakeMeshBody> body = KFR::make<test::FakeMeshBody>();
    ElementIds ids;
    test::Refs references;
    absl::flat_hash_map<unsigned long long, KFRIService> owners;

    Picks()
    {
        auto const mesh = KFR::make<test::FakeMesh>();
        mesh->triangles = platform.make<test::PlainEntity>(1, 1);
        body->parent = part;
        unsigned int const type =
            EntityTypeID(icu::UnicodeString(u"FEM.Simulation.2DElement")).typeID();
        for (unsigned int i = 0; i < kElements; ++i) {
            ids.append(*body->add(3, mesh).id);
            references.append({part, type, i, 0});
            owners.emplace(*body->elements.back()->id, part);
        }
    }
    ~Picks() { body->parent.reset(); }
};

/// One pass that asks the hash map for the owner of every id, and appends a reference.
test::Refs pass(Picks const& picks)
{
    test::Refs references;
    references.reserve(kElements);
    for (unsigned long long const id : std::as_const(picks.ids)) {
        references.append({picks.owners.find(id)->second, 1, static_cast<unsigned int>(id), 0});
    }
    return references;
}

void compareElements(Ratios& ratios)
{
    Picks const picks;
    auto const peer = [&picks] {
        keep(pass(picks));
    };
    SelectionMakeup::ElementsByBody const byBody{{picks.body, picks.ids}};
    ratios.compare(
        "500000 elements: SelectionMakeup", 1.0,
        [&byBody] {
            SelectionMakeup makeup;
            makeup.add(byBody);
            keep(makeup.getEntRefs());
        },
        peer);
    ratios.compare(
        "500000 elements: ElementSelectionMakeup", 1.0,
        [&picks] {
            vrn::orlo::appfw::IEntRefSequence containers;
            ElementSelectionMakeup().append2EntRefSequence(picks.body, picks.ids, containers);
            keep(containers);
            picks.platform.model->made.clear();
        },
        peer);
    ratios.compare(
        "500000 elements: SelectionDivider", 1.0,
        [&picks] { keep(SelectionDivider(picks.references)); }, peer);
}

/// Fills a map and finds every key in it.
template <class Map, class KeyOf>
void fillAndFind(test::Refs const& references, KeyOf keyOf)
{
    Map map;
    for (CAE::EntityReference const& reference : references) {
        map.emplace(keyOf(reference), 1);
    }
    int found = 0;
    for (CAE::EntityReference const& reference : references) {
        found += map.find(keyOf(reference))->second;
    }
    keep(found);
}

/// As ModelingEntityCompare, on two bare numbers.
using Key = std::pair<unsigned int, unsigned int>;

/// Two bare numbers in the room of a reference: what the comparator costs, and not what the size of
/// the keys does.
struct WideKey {
    Key key;
    KFRIService service;
    unsigned int subId = 0;
    friend bool operator<(WideKey const& left, WideKey const& right)
    {
        return left.key < right.key;
    }
};

void compareMaps(Ratios& ratios)
{
    auto const owner = KFR::make<test::PlainEntity>();
    test::Refs references;
    for (unsigned int i = 0; i < kReferences; ++i) {
        unsigned int const shuffled = i * 2654435761U;
        references.append({owner, shuffled % 7, shuffled >> 8, 0});
    }
    auto const subject = [&references] {
        fillAndFind<btree::btree_map<CAE::EntityReference, int, ModelingEntityCompare>>(
            references, [](auto const& reference) -> auto const& { return reference; });
    };
    ratios.compare("100000 references: map, key of two numbers", 1.1, subject, [&references] {
        fillAndFind<btree::btree_map<Key, int>>(
            references, [](auto const& reference) { return Key(reference.id, reference.typeId); });
    });
    ratios.compare("100000 references: map, key of their size", 1.1, subject, [&references] {
        fillAndFind<btree::btree_map<WideKey, int>>(references, [](auto const& reference) {
            return WideKey{{reference.id, reference.typeId}, reference.service, 0};
        });
    });
}

}  // namespace

int main()
{
    Ratios ratios;
    compareElements(ratios);
    compareMaps(ratios);
    return ratios.exitStatus();
}
