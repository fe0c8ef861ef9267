#include "host/model/meshbodies.h"

#include "host/model/modelobject.h"

#include <algorithm>
#include <utility>

namespace vrn::orlo::host::model {

void MeshBodies::add(MeshBody const& body)
{
    if (body != KFR::NULLSP &&
        std::find(m_bodies.begin(), m_bodies.end(), body) == m_bodies.end()) {
        m_bodies.push_back(body);
    }
}

void MeshBodies::remove(MeshBody const& body)
{
    std::erase(m_bodies, body);
}

void MeshBodies::deleteAll()
{
    for (MeshBody const& body : std::exchange(m_bodies, {})) {
        if (auto const gone = KFR::loose_cast<ModelObjectInterface>(body); gone != KFR::NULLSP) {
            gone->setDeleted(true);
            gone->detach();
        }
    }
}

CAE::IMeshBodySequence MeshBodies::all() const
{
    CAE::IMeshBodySequence bodies;
    for (MeshBody const& body : m_bodies) {
        if (!isDeleted(body)) {
            bodies.append(body);
        }
    }
    return bodies;
}

}  // namespace vrn::orlo::host::model
