#include "plugins/modelingplugin/utilities/geometrymesh/femeshea.h"

#include "platform/fem/fementities.h"
#include "platform/muc/meshutilities.h"
#include "plugins/modelingplugin/utilities/componentframe/servicehelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using Ids = KFRSequence<unsigned long long>;
using MeshBody = KFRSmartPointer<CAE::IMeshBodyInterface>;

namespace {

/// External ids of local numbers; false where one has none.
bool idsOf(CAE::IMeshBodyInterface& body, KFRSequence<int> const& numbers,
           KFRResult (CAE::IMeshBodyInterface::*idOf)(int, unsigned long long&), Ids& ids)
{
    Ids found;
    found.resize(numbers.size());
    unsigned long long* out = found.data();
    for (int const number : numbers) {
        if (!(body.*idOf)(number, *out++).isOk()) {
            return false;
        }
    }
    ids = std::move(found);
    return true;
}

}  // namespace

/// A line in local numbers of its mesh body.
struct FEMeshEA::Chain {
    MeshBody m_body;
    KFRSequence<int> m_nodes;
    KFRSequence<int> m_elements;
    bool m_isClosed = false;
};

MeshBody FEMeshEA::getMeshBody() const
{
    auto const mesh = KFR::loose_cast<CAE::IMeshInterface>(m_mesh);
    MeshBody body;
    if (mesh != NULLSP) {
        static_cast<void>(mesh->getMeshBody(body));
    }
    return body;
}

KFRSmartPointer<appfw::IEntityInterface> FEMeshEA::getIEntity() const
{
    auto const entities =
        KFR::loose_cast<fem::IFEMEntitiesInterface>(ServiceHelper::getFEMEntities());
    KFRSmartPointer<appfw::IEntityInterface> entity;
    if (entities != NULLSP && m_mesh != NULLSP) {
        static_cast<void>(entities->getEntity(m_mesh, entity));
    }
    return entity;
}

bool FEMeshEA::isOrphan() const
{
    KFRSmartPointer<CAE::IGeometryInterface> geometry;
    return m_mesh != NULLSP && (!m_mesh->getGeometry(geometry).isOk() || geometry == NULLSP);
}

bool FEMeshEA::isVisible() const
{
    auto const entity = getIEntity();
    KFRAny value;
    bool isShown = false;
    return entity != NULLSP && entity->getProperty("visible", value).isOk() &&
           (value >>= isShown) && isShown;
}

bool FEMeshEA::readChain(Chain& chain) const
{
    auto const service =
        KFR::loose_cast<muc::IBeamTessService>(ServiceHelper::getMUCBeamTessService());
    if (service == NULLSP) {
        return false;
    }
    chain.m_body = getMeshBody();
    return chain.m_body != NULLSP &&
           service
               ->getChain(chain.m_body, m_mesh, chain.m_nodes, chain.m_elements, chain.m_isClosed)
               .isOk();
}

bool FEMeshEA::getOrderedNodeIds(Ids& ids, bool& closed) const
{
    closed = false;
    Chain chain;
    if (!readChain(chain)) {
        return false;
    }
    closed = chain.m_isClosed;
    return idsOf(*chain.m_body, chain.m_nodes, &CAE::IMeshBodyInterface::getNodeId, ids);
}

bool FEMeshEA::getNodalChain(Ids& nodeIds, Ids& elementIds, bool& closed) const
{
    closed = false;
    Chain chain;
    if (!readChain(chain)) {
        return false;
    }
    closed = chain.m_isClosed;
    Ids nodes;
    if (!idsOf(*chain.m_body, chain.m_nodes, &CAE::IMeshBodyInterface::getNodeId, nodes) ||
        !idsOf(*chain.m_body, chain.m_elements, &CAE::IMeshBodyInterface::getElementId,
               elementIds)) {
        return false;
    }
    nodeIds = nodes;
    return true;
}

}  // namespace vrn::orlo::plugin::modeling
