// The skins of solid meshes: faces that belong to one element only.

#include "host/meshing/elementfaces.h"
#include "host/meshing/meshtables.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>

namespace vrn::orlo::host::meshing {

namespace {

/// A face of a solid by its corners; two faces with the same are one and the same place.
struct FaceKey {
    LocalNumber m_lowest;
    std::array<LocalNumber, 3> m_others;  ///< Ascending; a triangle has 0 last.
};

/// Nothing for a face that has collapsed to a line or a point.
std::optional<FaceKey> keyOf(std::span<LocalNumber const> nodes, ElementFaceRow const& face)
{
    constexpr LocalNumber kNone = ~LocalNumber{0};
    std::array<LocalNumber, 4> corners{kNone, kNone, kNone, kNone};
    std::size_t count = 0;
    for (std::uint8_t const place : placesOf(face).first(traitsOf(face.m_type).m_cornerCount)) {
        corners[count++] = nodes[place];
    }
    std::ranges::sort(corners);
    // A quadrilateral with two corners in one meets the triangles that it looks like.
    auto const end = std::unique(corners.begin(), std::ranges::find(corners, kNone));
    if (end - corners.begin() < 3) {
        return std::nullopt;
    }
    std::fill(end, corners.end(), 0);
    return FaceKey{corners[0], {corners[1], corners[2], corners[3]}};
}

/// A face among those with the same lowest corner.
struct Candidate {
    std::array<LocalNumber, 3> m_others;
    MeshIndex m_body;
    ElementFace m_face;

    [[nodiscard]] auto place() const noexcept { return std::tie(m_body, m_others); }
};

/// Faces of all solids in rows by their lowest corner: so few share one that sorting is cheap.
class FacesByCorner {
public:
    explicit FacesByCorner(MeshStore const& store) : m_store(store)
    {
        m_ends.resize(std::size_t{store.nodes().size()} + 1, 0);
        forEachFace([this](FaceKey const& key, ElementFace const&) { ++m_ends[key.m_lowest]; });
        std::size_t total = 0;
        for (std::size_t& end : m_ends) {
            total += std::exchange(end, total);  // for now, where the row begins
        }
        m_faces.resize(total);
        forEachFace([this](FaceKey const& key, ElementFace const& face) {
            m_faces[m_ends[key.m_lowest]++] = face;
        });
    }

    /// Calls `take` with the body and the face for each face that has its place in the body alone.
    template <class Take>
    void forEachSingle(Take const& take) const
    {
        std::vector<Candidate> row;
        std::size_t first = 0;
        for (std::size_t const end : m_ends) {
            row.clear();
            for (; first < end; ++first) {
                row.push_back(candidate(m_faces[first]));
            }
            std::sort(row.begin(), row.end(),
                      [](Candidate const& a, Candidate const& b) { return a.place() < b.place(); });
            for (auto from = row.begin(); from != row.end();) {
                auto const to = std::find_if(from + 1, row.end(), [from](Candidate const& other) {
                    return other.place() != from->place();
                });
                if (to - from == 1) {
                    take(from->m_body, from->m_face);
                }
                from = to;
            }
        }
    }

private:
    template <class Take>
    void forEachFace(Take const& take) const
    {
        for (LocalNumber element = 1; element <= m_store.elements().size(); ++element) {
            ElementType const type = m_store.typeOf(element);
            if (traitsOf(type).m_dimension != 3) {
                continue;
            }
            auto const faces = facesOf(type);
            for (std::uint8_t face = 0; face < faces.size(); ++face) {
                if (auto const key = keyOf(m_store.nodesOf(element), faces[face])) {
                    take(*key, ElementFace{element, face});
                }
            }
        }
    }

    [[nodiscard]] Candidate candidate(ElementFace const& face) const
    {
        auto const& row = facesOf(m_store.typeOf(face.m_element))[face.m_face];
        MeshIndex const group = m_store.groupOf(face.m_element);
        return {keyOf(m_store.nodesOf(face.m_element), row)->m_others,
                m_store.groups()[group].m_body, face};
    }

    MeshStore const& m_store;
    std::vector<std::size_t> m_ends;  // by node
    std::vector<ElementFace> m_faces;
};

}  // namespace

Rows<ElementFace> skinsOf(MeshStore const& store)
{
    std::vector<std::vector<ElementFace>> skins(store.bodies().size());
    FacesByCorner(store).forEachSingle(
        [&skins](MeshIndex body, ElementFace const& face) { skins.at(body).push_back(face); });
    Rows<ElementFace> rows;
    rows.m_first.push_back(0);
    for (std::vector<ElementFace>& skin : skins) {
        std::sort(skin.begin(), skin.end());
        rows.m_items.insert(rows.m_items.end(), skin.begin(), skin.end());
        rows.m_first.push_back(static_cast<std::uint32_t>(rows.m_items.size()));
        skin = {};
    }
    rows.m_items.shrink_to_fit();
    return rows;
}

}  // namespace vrn::orlo::host::meshing
