#include "plugins/modelingplugin/utilities/geometrymesh/meshbodyea.h"

#include "plugins/modelingplugin/utilities/geometrymesh/meshhelper.h"

namespace vrn::orlo::plugin::modeling {

using KFR::NULLSP;
using Ids = KFRSequence<unsigned long long>;
using Mesh = KFRSmartPointer<CAE::IMeshInterface>;
using MeshBody = KFRSmartPointer<CAE::IMeshBodyInterface>;

namespace {

CAE::IMeshSequence meshesOf(MeshBody const& body)
{
    CAE::IMeshSequence meshes;
    if (body != NULLSP) {
        static_cast<void>(body->getMeshList(meshes));
    }
    return meshes;
}

bool isContinuousOf(Mesh const& mesh, unsigned int dimension)
{
    bool isContinuous = false;
    unsigned char own = 0;
    return mesh != NULLSP && mesh->isContinuous(isContinuous).isOk() && isContinuous &&
           mesh->getDimension(own).isOk() && own == dimension;
}

bool isValid(Mesh const& mesh)
{
    Ids ids;
    return !MeshHelper::isDeleted(KFR::loose_cast<CAE::IPersistentObjectInterface>(mesh)) &&
           mesh->getElementIds(ids).isOk() && !ids.empty();
}

}  // namespace

KFRSmartPointer<CAE::IGeomBodyInterface> MeshBodyEA::getIGeomBody() const
{
    KFRSmartPointer<CAE::IGeomBodyInterface> body;
    if (m_meshBody != NULLSP) {
        static_cast<void>(m_meshBody->getGeomBody(body));
    }
    return body;
}

Mesh MeshBodyEA::getContinuousMesh(unsigned int dimension) const
{
    CAE::IMeshSequence const meshes = meshesOf(m_meshBody);
    for (Mesh const& mesh : meshes) {
        if (isContinuousOf(mesh, dimension)) {
            return mesh;
        }
    }
    return {};
}

bool MeshBodyEA::getValidContinuousMesh(unsigned int dimension, Mesh& mesh) const
{
    CAE::IMeshSequence const meshes = meshesOf(m_meshBody);
    for (Mesh const& candidate : meshes) {
        if (isContinuousOf(candidate, dimension) && isValid(candidate)) {
            mesh = candidate;
            return true;
        }
    }
    return false;
}

unsigned int MeshBodyEA::getDimensionalities(MeshBody const& meshBody)
{
    unsigned int mask = 0;
    CAE::IMeshSequence const meshes = meshesOf(meshBody);
    for (Mesh const& mesh : meshes) {
        constexpr unsigned char kHighest = 3;
        if (unsigned char dimension = 0;
            mesh != NULLSP && mesh->getDimension(dimension).isOk() && dimension <= kHighest) {
            mask |= 1U << dimension;
        }
    }
    return mask;
}

Ids MeshBodyEA::getElementIds(MeshBody const& meshBody)
{
    Ids ids;
    if (meshBody != NULLSP) {
        static_cast<void>(meshBody->getElementIds(ids));
    }
    return ids;
}

bool MeshBodyEA::has2DMesh() const
{
    Mesh mesh;
    return getValidContinuousMesh(2, mesh);
}

bool MeshBodyEA::isPureMesh() const
{
    return m_meshBody != NULLSP && getIGeomBody() == NULLSP;
}

}  // namespace vrn::orlo::plugin::modeling
