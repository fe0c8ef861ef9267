#include "host/meshing/freefaces.h"

#include "host/meshing/facenodes.h"
#include "host/meshing/meshsource.h"

#include <algorithm>
#include <vector>

namespace vrn::orlo::host::meshing {

namespace {

/// Changes what the caller's array holds, which others may hold as well.
template <class T>
void put(std::vector<T> const& from, KFR::DynamicArray::ArrayPtr1<T> const& to)
{
    to.resize(from.size());
    std::copy(from.begin(), from.end(), to.begin());
}

}  // namespace

KFRResult FreeFaceService::getFaceData(KFRSmartPointer<CAE::IMeshPartInterface> const& meshPart,
                                       KFR::DynamicArray::ArrayPtr1<long long> const& elementIds,
                                       KFRIService const& filter,
                                       KFR::DynamicArray::ArrayPtr1<int> const& faceNumbers,
                                       KFR::DynamicArray::ArrayPtr1<long long>& faceElementIds,
                                       KFRInt64SequenceSequence& nodeLists,
                                       KFR::DynamicArray::ArrayPtr1<int>& topologies,
                                       KFR::DynamicArray::ArrayPtr1<long long>& flatNodeIds,
                                       KFRIService const& /*options*/, bool flat)
{
    auto const source = KFR::loose_cast<MeshSourceInterface>(meshPart);
    if (source == KFR::NULLSP) {
        return KFRResult(kForeignMesh).addParam("Faces are asked of no mesh part of the host.");
    }
    if (elementIds.size() != faceNumbers.size() || filter != KFR::NULLSP) {
        return KFRResult(kBadRequest)
            .addParam("Faces: give one face number for each of the " +
                      std::to_string(elementIds.size()) + " elements, and no filter.");
    }
    MeshStore const& store = source->tables()->store();
    // The caller may pass one array in and out.
    std::vector<long long> elements;
    std::vector<int> kinds;
    std::vector<long long> flatIds;
    KFRInt64SequenceSequence lists;
    for (std::size_t i = 0; i < elementIds.size(); ++i) {
        LocalNumber const element = store.elements().numberOf(elementIds[i]);
        ElementFaceRow const* const row =
            element != 0 ? faceRowOf(store, element, faceNumbers[i]) : nullptr;
        if (row == nullptr) {
            continue;
        }
        elements.push_back(elementIds[i]);
        kinds.push_back(static_cast<int>(row->m_type));
        std::size_t const first = flatIds.size();
        forEachFaceNode(store, element, *row,
                        [&](LocalNumber node) { flatIds.push_back(store.nodes().idOf(node)); });
        if (!flat) {
            lists.append(KFRSequence<long long>(
                flatIds.begin() + static_cast<std::ptrdiff_t>(first), flatIds.end()));
        }
    }
    put(elements, faceElementIds);
    put(kinds, topologies);
    put(flatIds, flatNodeIds);
    if (!flat) {
        nodeLists = lists;
    }
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
