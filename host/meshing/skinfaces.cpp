#include "host/meshing/skinfaces.h"

#include "host/meshing/facenodes.h"
#include "host/meshing/meshobjects.h"
#include "host/meshing/meshsource.h"

#include <algorithm>
#include <vector>

namespace vrn::orlo::host::meshing {

KFRResult SkinService::getSkinFaces(KFRSmartPointer<CAE::IPartInterface> const& part,
                                    KFRSmartPointer<CAE::IContinuousMeshInterface> const& mesh,
                                    KFRSequence<long long>& nodes, muc::SkinElementSequence& faces)
{
    auto const source = KFR::loose_cast<MeshSourceInterface>(mesh);
    auto const object = KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh);
    if (part == KFR::NULLSP || source == KFR::NULLSP || object == KFR::NULLSP ||
        !(partAbove(*object) == KFRIService(part))) {
        return KFRResult(kForeignMesh)
            .addParam(
                "A skin is asked of no mesh of the host, or with a part that is not its own.");
    }
    std::vector<LocalNumber> const elements = source->elements();
    MeshTables const& tables = *source->tables();
    MeshStore const& store = tables.store();
    // A continuous mesh has elements of one dimension and of one body.
    if (elements.empty() || traitsOf(store.typeOf(elements.front())).m_dimension != 3) {
        return KFRResult(kNoMesh).addParam("A mesh without solid elements has no skin.");
    }
    muc::SkinElementSequence found;
    std::vector<LocalNumber> numbers;
    auto const skin = tables.skinOfBody(tables.bodyOf(elements.front()));
    for (auto face = skin.begin(); face != skin.end();) {
        LocalNumber const element = face->m_element;
        muc::SkinElement row{store.elements().idOf(element), {}};
        for (; face != skin.end() && face->m_element == element; ++face) {
            ElementFaceRow const& kind = *faceRowOf(store, element, face->m_face);
            muc::SkinFace skinFace{typeCodeOf(kind.m_type), {}};
            forEachFaceNode(store, element, kind, [&](LocalNumber node) {
                skinFace.m_nodeIds.append(store.nodes().idOf(node));
                numbers.push_back(node);
            });
            row.m_faces.append(std::move(skinFace));
        }
        found.append(std::move(row));
    }
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    KFRSequence<long long> nodeIds;
    nodeIds.reserve(numbers.size());
    for (LocalNumber const node : numbers) {
        nodeIds.append(store.nodes().idOf(node));
    }
    nodes = nodeIds;
    faces = found;
    return KFR::ok;
}

}  // namespace vrn::orlo::host::meshing
