// Picks in a mesh file.

#include "apps/orlo/console.h"
#include "apps/orlo/meshreport.h"
#include "apps/orlo/meshscene.h"
#include "apps/orlo/picksource.h"
#include "apps/orlo/usageerror.h"
#include "apps/orlo/valuetext.h"
#include "plugins/modelingplugin/utilities/identity/entitytypeid.h"
#include "plugins/modelingplugin/utilities/selection/selectionmakeup.h"

#include <algorithm>
#include <array>
#include <limits>
#include <utility>
#include <vector>

namespace vrn::orlo::app {

namespace {

using host::meshing::LocalNumber;
using host::meshing::MeshedPart;
using host::meshing::MeshStore;
using plugin::modeling::EntityTypeID;
using plugin::modeling::SelectionMakeup;

using Vector = std::array<double, 3>;

/// The mean of an element's nodes, in coordinates of its part.
Vector middleOf(MeshStore const& store, LocalNumber element)
{
    Vector middle{};
    auto const nodes = store.nodesOf(element);
    for (LocalNumber const node : nodes) {
        auto const& position = store.position(node);
        for (std::size_t i = 0; i < 3; ++i) {
            middle[i] += position[i] / static_cast<double>(nodes.size());
        }
    }
    return middle;
}

double squaredDistance(Vector const& left, Vector const& right)
{
    double sum = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        sum += (left[i] - right[i]) * (left[i] - right[i]);
    }
    return sum;
}

class MeshPicks final : public PickSource {
public:
    MeshPicks(Session& session, std::filesystem::path const& file)
        : m_mesh(host::meshing::loadMesh(file, session.kernel().typeRegistry(),
                                         session.application().entityService(),
                                         &session.application().entities()))
    {
        for (std::string const& warning : m_mesh.m_warnings) {
            reportWarning(warning);
        }
    }

    CAE::EntityReferenceSequence hits(PickOptions const& options,
                                      host::selection::PickFilterManager const& filter) override
    {
        if (!options.m_normal.empty() || !options.m_area.empty() || options.m_grow.has_value()) {
            throw UsageError(
                "--normal, --area and --grow: a mesh has no faces to ask; give --all, "
                "--at, --at-pixel, --box, --id or --name");
        }
        CAE::EntityReference const clicked =
            isGiven(options.m_pixel) ? inFrontAt(options.m_pixel, filter) : CAE::EntityReference();
        CAE::EntityReferenceSequence references;
        for (auto const& part : m_mesh.m_parts) {
            for (LocalNumber const element : elementHits(*part, options)) {
                CAE::EntityReference const reference = part->elementReference(element);
                bool const isMeant = !isGiven(options.m_pixel) || reference == clicked;
                if (isMeant && reference.typeId != 0 && filter.isPickable(reference)) {
                    references.append(reference);
                }
            }
        }
        if (!options.m_at.empty() && !references.empty()) {
            references = nearestOf(references, options);
        }
        return references;
    }

    CAE::EntityReferenceSequence madeUp(CAE::EntityReferenceSequence const& picked) override
    {
        constexpr bool kExternal = true;
        CAE::IMeshBodySequence bodies;
        KFRSequence<unsigned long long> ids;
        for (CAE::EntityReference const& reference : picked) {
            MeshedPart const& part = *partOf(reference);
            bodies.append(KFRSmartPointer<CAE::IMeshBodyInterface>(part.meshBody()));
            ids.append(part.meshBody()->store().elements().idOf(reference.id));
        }
        SelectionMakeup makeup;
        makeup.add(bodies, ids, kExternal);
        return makeup.getEntRefs();
    }

    std::string describe(CAE::EntityReference const& reference) override
    {
        MeshStore const& store = partOf(reference)->meshBody()->store();
        std::string text = std::to_string(store.elements().idOf(reference.id)) + " ";
        EntityTypeID::nameOf(reference.typeId).toUTF8String(text);
        return text + " " + store.typeNameOf(reference.id) + " of " + store.name() + ", at " +
               textOf(middleOf(store, reference.id));
    }

private:
    /// What a click hits: of all elements under the pixel the first that the filter allows.
    [[nodiscard]] CAE::EntityReference inFrontAt(
        PixelOptions const& pixel, host::selection::PickFilterManager const& filter) const
    {
        constexpr std::array kElements{host::display::MeshClass::element};
        for (MeshScene::Hit const& hit : MeshScene(m_mesh).at(pixel, kElements)) {
            CAE::EntityReference const reference =
                m_mesh.m_parts[hit.m_part]->elementReference(hit.m_hit.m_hit.m_number);
            if (filter.isPickable(reference)) {
                return reference;
            }
        }
        return {};
    }

    [[nodiscard]] MeshedPart* partOf(CAE::EntityReference const& reference) const
    {
        for (auto const& part : m_mesh.m_parts) {
            if (KFRIService(part) == reference.service) {
                return part.get();
            }
        }
        throw std::logic_error("a pick of another file");
    }

    [[nodiscard]] static std::vector<LocalNumber> elementHits(MeshedPart const& part,
                                                              PickOptions const& options)
    {
        MeshStore const& store = part.meshBody()->store();
        std::vector<LocalNumber> numbers(store.elements().size());
        for (LocalNumber i = 0; i < numbers.size(); ++i) {
            numbers[i] = i + 1;
        }
        if (!options.m_ids.empty()) {
            std::vector<LocalNumber> asked;
            for (unsigned long long const id : options.m_ids) {
                if (LocalNumber const number = store.elements().numberOf(id); number != 0) {
                    asked.push_back(number);
                }
            }
            numbers = std::move(asked);
        }
        if (!options.m_name.empty()) {
            auto const* const set = findSet(store.elementSets(), options.m_name);
            if (set == nullptr) {
                return {};
            }
            std::erase_if(numbers, [set](LocalNumber number) {
                return !std::ranges::binary_search(set->m_numbers, number);
            });
        }
        if (!options.m_box.empty()) {
            std::erase_if(numbers,
                          [&](LocalNumber number) { return !isInBox(store, number, options); });
        }
        return numbers;
    }

    /// By its nodes: all of them in the box, or where touching is enough one.
    [[nodiscard]] static bool isInBox(MeshStore const& store, LocalNumber element,
                                      PickOptions const& options)
    {
        auto const nodeIsIn = [&](LocalNumber node) {
            auto const& position = store.position(node);
            for (std::size_t i = 0; i < 3; ++i) {
                auto const [low, high] = std::minmax(options.m_box[i], options.m_box[i + 3]);
                if (position[i] < low || position[i] > high) {
                    return false;
                }
            }
            return true;
        };
        auto const nodes = store.nodesOf(element);
        return options.m_touching ? std::ranges::any_of(nodes, nodeIsIn)
                                  : std::ranges::all_of(nodes, nodeIsIn);
    }

    [[nodiscard]] CAE::EntityReferenceSequence nearestOf(
        CAE::EntityReferenceSequence const& references, PickOptions const& options) const
    {
        Vector const at{options.m_at[0], options.m_at[1], options.m_at[2]};
        double best = std::numeric_limits<double>::infinity();
        CAE::EntityReferenceSequence nearest;
        for (CAE::EntityReference const& reference : references) {
            double const distance =
                squaredDistance(at, middleOf(partOf(reference)->meshBody()->store(), reference.id));
            if (distance < best) {
                best = distance;
                nearest = CAE::EntityReferenceSequence{reference};
            }
        }
        return nearest;
    }

    host::meshing::LoadedMesh m_mesh;
};

}  // namespace

std::unique_ptr<PickSource> openMeshPicks(Session& session, std::filesystem::path const& file)
{
    return std::make_unique<MeshPicks>(session, file);
}

std::unique_ptr<PickSource> openPickSource(Session& session, std::filesystem::path const& file)
{
    return isMeshFile(file) ? openMeshPicks(session, file) : openGeometryPicks(session, file);
}

}  // namespace vrn::orlo::app
