#include "host/meshing/beamchain.h"

#include "host/meshing/meshsource.h"

#include <algorithm>
#include <array>
#include <utility>

namespace vrn::orlo::host::meshing {

namespace {

/// An end of an element.
struct End {
    LocalNumber m_node;
    LocalNumber m_element;

    friend auto operator<=>(End const&, End const&) = default;
};

/// The ends of line elements by their nodes.
class Ends {
public:
    /// Gives up at what no single line has.
    static std::optional<Ends> of(MeshStore const& store, std::span<LocalNumber const> elements)
    {
        Ends ends(store);
        for (LocalNumber const element : elements) {
            if (traitsOf(store.typeOf(element)).m_dimension != 1) {
                return std::nullopt;
            }
            auto const nodes = store.nodesOf(element);
            if (nodes[0] == nodes[1]) {
                return std::nullopt;
            }
            ends.m_ends.push_back({nodes[0], element});
            ends.m_ends.push_back({nodes[1], element});
        }
        std::sort(ends.m_ends.begin(), ends.m_ends.end());
        for (std::size_t i = 2; i < ends.m_ends.size(); ++i) {
            if (ends.m_ends[i].m_node == ends.m_ends[i - 2].m_node) {
                return std::nullopt;  // a branch
            }
        }
        return ends;
    }

    /// One or two, by ascending element.
    [[nodiscard]] std::span<End const> at(LocalNumber node) const
    {
        auto const first = std::lower_bound(m_ends.begin(), m_ends.end(), End{node, 0});
        auto const last = std::find_if(first, m_ends.end(),
                                       [node](End const& end) { return end.m_node != node; });
        return {first, last};
    }
    /// The lowest node that only one element has; 0 where there is none.
    [[nodiscard]] LocalNumber lowestFree() const
    {
        for (End const& end : m_ends) {
            if (at(end.m_node).size() == 1) {
                return end.m_node;
            }
        }
        return 0;
    }
    [[nodiscard]] LocalNumber lowest() const { return m_ends.front().m_node; }
    [[nodiscard]] LocalNumber acrossFrom(End const& end) const
    {
        auto const nodes = m_store->nodesOf(end.m_element);
        return nodes[0] == end.m_node ? nodes[1] : nodes[0];
    }

private:
    explicit Ends(MeshStore const& store) : m_store(&store) {}

    MeshStore const* m_store;
    std::vector<End> m_ends;
};

KFRSequence<int> numbersOf(std::vector<LocalNumber> const& numbers)
{
    return {numbers.begin(), numbers.end()};
}

}  // namespace

std::optional<Chain> chainOf(MeshStore const& store, std::span<LocalNumber const> elements)
{
    std::optional<Ends> const ends = elements.empty() ? std::nullopt : Ends::of(store, elements);
    if (!ends.has_value()) {
        return std::nullopt;
    }
    LocalNumber const free = ends->lowestFree();
    LocalNumber const start = free != 0 ? free : ends->lowest();
    Chain chain;
    chain.m_isClosed = free == 0;
    chain.m_nodes.push_back(start);
    for (End end = ends->at(start).front();;) {
        LocalNumber const node = ends->acrossFrom(end);
        chain.m_elements.push_back(end.m_element);
        if (node == start) {
            break;
        }
        chain.m_nodes.push_back(node);
        auto const there = ends->at(node);
        if (there.size() == 1) {
            break;
        }
        end = there[0].m_element == end.m_element ? there[1] : there[0];
    }
    // What was not come by lies apart.
    return chain.m_elements.size() == elements.size() ? std::optional(std::move(chain))
                                                      : std::nullopt;
}

KFRResult BeamChainService::getChain(KFRSmartPointer<CAE::IMeshBodyInterface> const& body,
                                     KFRSmartPointer<CAE::IFEMeshInterface> const& mesh,
                                     KFRSequence<int>& nodes, KFRSequence<int>& elements,
                                     bool& closed)
{
    auto const source = KFR::loose_cast<MeshSourceInterface>(mesh);
    auto const ofBody = KFR::loose_cast<CAE::IMeshInterface>(mesh);
    KFRSmartPointer<CAE::IMeshBodyInterface> holder;
    if (body == KFR::NULLSP || source == KFR::NULLSP || ofBody == KFR::NULLSP ||
        !ofBody->getMeshBody(holder).isOk() || !(holder == body)) {
        return KFRResult(kForeignMesh).addParam("A chain is asked of no mesh of the mesh body.");
    }
    auto const chain = chainOf(source->tables()->store(), source->elements());
    if (!chain.has_value()) {
        return KFRResult(kNoChain).addParam(
            "The mesh has no elements, others than lines, branches or pieces apart.");
    }
    nodes = numbersOf(chain->m_nodes);
    elements = numbersOf(chain->m_elements);
    closed = chain->m_isClosed;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
